// SPDX-License-Identifier: MIT
#include "support/Numbers.h"
#include "support/RecordingPainter.h"

#include <zembra/chart/Plot.h>
#include <zembra/series/BarSeries.h>
#include <zembra/series/HeatMapSeries.h>
#include <zembra/series/LineSeries.h>

#include <gtest/gtest.h>

#include <algorithm>

using namespace zembra;
using namespace zembra::test;

namespace {

using Range = std::pair<double, double>;

} // namespace

TEST(Axis, RejectsRangesThatCannotBeShownAndKeepsTheOldOne) {
    Axis axis;
    ASSERT_TRUE(axis.setRange(2.0, 5.0));
    for (const Range& bad : {Range{1.0, 1.0},
                             {notANumber, 1.0},
                             {0.0, notANumber},
                             {-infinity, 0.0},
                             {0.0, infinity},
                             {0.0, -0.0}})
        EXPECT_FALSE(axis.setRange(bad.first, bad.second));
    EXPECT_EQ(axis.range(), (Range{2.0, 5.0}));
    axis.setScale(Scale::log());
    EXPECT_FALSE(axis.setRange(0.0, 10.0));
    EXPECT_FALSE(axis.setRange(-1.0, 10.0));
    EXPECT_EQ(axis.range(), (Range{2.0, 5.0}));
}

TEST(Axis, ARangeThatTheNewScaleCannotPlaceBecomesAutomatic) {
    Axis axis;
    axis.setRange(-5.0, 5.0);
    axis.setScale(Scale::log());
    EXPECT_TRUE(axis.isAutoScale());
    const Range range = axis.range();
    EXPECT_GT(range.first, 0.0);
    EXPECT_LT(range.first, range.second);
}

TEST(Axis, KeepsTheOrientationOfAFixedRange) {
    Axis axis;
    axis.setRange(10.0, -10.0);
    EXPECT_TRUE(axis.isInverted());
    EXPECT_EQ(axis.range(), (Range{10.0, -10.0}));
    axis.setInverted(false);
    EXPECT_EQ(axis.range(), (Range{-10.0, 10.0}));
    for (int again = 0; again < 2; ++again) {
        axis.setInverted(true);
        EXPECT_EQ(axis.range(), (Range{10.0, -10.0}));
    }
}

TEST(Axis, AutomaticRangesFollowTheInversion) {
    Plot plot;
    plot.add<LineSeries>(std::vector{0.0, 10.0}, std::vector{-1.0, 1.0});
    const Range upright = plot.axis(0).range();
    plot.axis(0).setInverted(true);
    EXPECT_EQ(plot.axis(0).range(), (Range{upright.second, upright.first}));
    EXPECT_EQ(plot.scaleMap(0).s1(), upright.second);
}

TEST(Axis, StaysWhereItIsWhenAutomaticScalingEnds) {
    Plot plot;
    auto line = plot.add<LineSeries>(std::vector{0.0, 10.0}, std::vector{-1.0, 1.0});
    const Range before = plot.axis(2).range();
    plot.setAxisAutoScale(2, false);
    line->setSamples({0.0, 1000.0}, {0.0, 1.0});
    EXPECT_EQ(plot.axis(2).range(), before);
    plot.setAxisAutoScale(2, true);
    EXPECT_GE(plot.axis(2).range().second, 1000.0);
}

TEST(Axis, LinkedAxesShareOneRangeAcrossPlots) {
    Plot upper;
    Plot lower;
    upper.add<LineSeries>(std::vector{0.0, 10.0}, std::vector{0.0, 1.0});
    lower.add<LineSeries>(std::vector{50.0, 100.0}, std::vector{0.0, 1.0});
    lower.axis(2).linkTo(upper.axis(2));
    EXPECT_TRUE(upper.axis(2).isLinkedTo(lower.axis(2)));
    EXPECT_LE(upper.axis(2).range().first, 0.0);
    EXPECT_GE(upper.axis(2).range().second, 100.0);
    EXPECT_EQ(upper.axis(2).range(), lower.axis(2).range());

    upper.setAxisScale(2, 3.0, 4.0);
    EXPECT_EQ(lower.axis(2).range(), (Range{3.0, 4.0}));
    lower.setAxisAutoScale(2, true);
    EXPECT_TRUE(upper.axis(2).isAutoScale());

    lower.axis(2).unlink();
    EXPECT_LT(upper.axis(2).range().second, 20.0);
    EXPECT_GT(lower.axis(2).range().first, 40.0);
}

TEST(Axis, ALinkedOneTakesScaleAndDirectionOfTheOther) {
    Plot leader;
    leader.axis(0).setScale(Scale::log());
    leader.axis(0).setInverted(true);
    Plot follower;
    follower.axis(0).linkTo(leader.axis(0));
    EXPECT_FALSE(follower.axis(0).scale().isLinear());
    EXPECT_TRUE(follower.axis(0).isInverted());
    EXPECT_GT(follower.axis(0).range().first, follower.axis(0).range().second);
}

TEST(Axis, ALinkedAxisMayOutliveTheOther) {
    Plot kept;
    {
        Plot gone;
        gone.add<LineSeries>(std::vector{500.0, 600.0}, std::vector{0.0, 1.0});
        kept.axis(2).linkTo(gone.axis(2));
        EXPECT_GE(kept.axis(2).range().second, 600.0);
    }
    kept.add<LineSeries>(std::vector{0.0, 1.0}, std::vector{0.0, 1.0});
    EXPECT_LT(kept.axis(2).range().second, 2.0);
    EXPECT_TRUE(kept.axis(2).setRange(7.0, 8.0));
    EXPECT_EQ(kept.scaleMap(2).s1(), 7.0);
}

namespace {

double fahrenheit(double celsius) {
    return celsius * 1.8 + 32.0;
}

double celsius(double fahrenheit) {
    return (fahrenheit - 32.0) / 1.8;
}

} // namespace

TEST(Axis, ADerivedOneTellsThePrimaryRangeInItsOwnUnit) {
    Plot plot;
    plot.axis(0).setRange(-10.0, 30.0);
    ASSERT_TRUE(plot.axis(1).setDerived(fahrenheit, celsius));
    EXPECT_TRUE(plot.axis(1).isDerived());
    EXPECT_DOUBLE_EQ(plot.axis(1).range().first, 14.0);
    EXPECT_DOUBLE_EQ(plot.axis(1).range().second, 86.0);
    plot.axis(1).setRange(32.0, 212.0);
    EXPECT_NEAR(plot.axis(0).range().first, 0.0, 1e-12);
    EXPECT_NEAR(plot.axis(0).range().second, 100.0, 1e-12);
    plot.setAxisScale(1, 50.0, 68.0);
    EXPECT_NEAR(plot.axis(0).range().second, 20.0, 1e-12);
}

TEST(Axis, ValuesOfADerivedOneLieBesideTheirEquals) {
    for (const Scale& scale : {Scale::linear(), Scale::log()}) {
        Plot plot;
        plot.axis(0).setScale(scale);
        plot.axis(0).setRange(1.0, 1000.0);
        // A falling function: wavelengths beside frequencies.
        const auto other = [](double value) { return 300.0 / value; };
        plot.axis(1).setDerived(other, other);
        plot.setAxisEnabled(1, true);
        RecordingPainter painter;
        plot.renderInto(painter, 640, 480);
        for (const double value : {1.0, 2.0, 30.0, 500.0, 1000.0})
            EXPECT_NEAR(plot.scaleMap(1).transform(other(value)), plot.scaleMap(0).transform(value),
                        1e-9);
        EXPECT_DOUBLE_EQ(plot.scaleMap(1).s1(), 300.0);
        EXPECT_DOUBLE_EQ(plot.scaleMap(1).s2(), 0.3);
        EXPECT_FALSE(painter.sawWildNumber());
    }
}

TEST(Axis, ADerivedOneFollowsANewScaleOfItsPrimary) {
    Plot plot;
    plot.axis(0).setRange(1.0, 100.0);
    plot.axis(1).setDerived([](double value) { return 2.0 * value; },
                            [](double value) { return 0.5 * value; });
    for (const Scale& scale : {Scale::log(), Scale::linear(), Scale::symLog()}) {
        plot.axis(0).setScale(scale);
        RecordingPainter painter;
        plot.renderInto(painter, 640, 480);
        EXPECT_NEAR(plot.scaleMap(1).transform(20.0), plot.scaleMap(0).transform(10.0), 1e-9);
    }
}

TEST(Axis, SeriesOnADerivedAxisCountForThePrimaryRange) {
    Plot plot;
    plot.axis(1).setDerived(fahrenheit, celsius);
    plot.add<LineSeries>(std::vector{0.0, 1.0}, std::vector{0.0, 10.0});
    auto warm = plot.add<LineSeries>(std::vector{0.0, 1.0}, std::vector{32.0, 122.0});
    warm->setAxes(2, 1);
    const Range range = plot.axis(0).range();
    EXPECT_LE(range.first, 0.0);
    EXPECT_GE(range.second, 50.0);
    EXPECT_LT(range.second, 60.0);
}

TEST(Axis, ADerivedOneHandsDirectionAndAutomaticScalingToItsPrimary) {
    Plot plot;
    plot.axis(0).setRange(0.0, 10.0);
    plot.axis(1).setDerived([](double value) { return -value; },
                            [](double value) { return -value; });
    EXPECT_TRUE(plot.axis(1).isInverted());
    plot.axis(1).setInverted(false);
    EXPECT_EQ(plot.axis(0).range(), (Range{10.0, 0.0}));
    plot.axis(1).setAutoScale(true);
    EXPECT_TRUE(plot.axis(0).isAutoScale());
    EXPECT_TRUE(plot.axis(1).isAutoScale());
}

TEST(Axis, ADerivedOneStandsForItselfAgainWithoutFunctions) {
    Plot plot;
    plot.axis(0).setRange(0.0, 10.0);
    plot.axis(1).setRange(3.0, 4.0);
    plot.axis(1).setDerived(fahrenheit, celsius);
    plot.axis(1).linkTo(plot.axis(0));
    EXPECT_FALSE(plot.axis(1).isLinkedTo(plot.axis(0)));
    EXPECT_TRUE(plot.axis(1).setDerived({}, {}));
    EXPECT_FALSE(plot.axis(1).isDerived());
    EXPECT_EQ(plot.axis(1).range(), (Range{3.0, 4.0}));
}

TEST(Axis, OnlySecondAxesCanBeDerived) {
    Plot plot;
    EXPECT_FALSE(plot.axis(0).setDerived(fahrenheit, celsius));
    EXPECT_FALSE(plot.axis(2).setDerived(fahrenheit, celsius));
    EXPECT_FALSE(plot.axis(7).setDerived(fahrenheit, celsius));
    EXPECT_TRUE(plot.axis(3).setDerived(fahrenheit, celsius));
}

TEST(Axis, TellsItsNumbersInTheFormatItIsGiven) {
    Plot plot;
    plot.axis(0).setRange(0.0, 1.0);
    plot.axis(2).setRange(0.0, 20e3);
    plot.axis(0).setNumberFormat(NumberFormat::percent());
    plot.axis(2).setNumberFormat(NumberFormat::siPrefix("Hz"));
    RecordingPainter painter;
    plot.renderInto(painter, 640, 480);
    EXPECT_NE(painter.text().find("\"100%\""), std::string::npos) << painter.text();
    EXPECT_NE(painter.text().find("kHz\""), std::string::npos) << painter.text();
    plot.axis(0).setNumberFormat({});
    RecordingPainter plain;
    plot.renderInto(plain, 640, 480);
    EXPECT_EQ(plain.text().find('%'), std::string::npos);
}

TEST(Axis, NamesEveryCategoryThatHasRoom) {
    const std::vector<std::string> names{"Nemer", "Wald",  "Sarn", "Ostra",
                                         "Lind",  "Arvel", "Bug",  "Esk"};
    Plot plot;
    plot.axis(0).setScale(Scale::categorical(names));
    plot.axis(0).setRange(-0.5, 7.5);
    RecordingPainter painter;
    plot.renderInto(painter, 480, 240);
    for (const std::string& name : names)
        EXPECT_NE(painter.text().find('"' + name + '"'), std::string::npos) << name;
}

TEST(Axis, ADerivedOneRefusesWhatItsPrimaryCannotShow) {
    Plot plot;
    plot.axis(0).setRange(0.0, 10.0);
    ASSERT_TRUE(plot.axis(1).setDerived(fahrenheit, celsius));
    EXPECT_FALSE(plot.axis(1).setRange(50.0, 50.0));
    EXPECT_FALSE(plot.axis(1).setRange(notANumber, 50.0));
    EXPECT_FALSE(plot.axis(1).setRange(50.0, infinity));
    EXPECT_EQ(plot.axis(0).range(), (Range{0.0, 10.0}));
}

TEST(Axis, TicksFollowAStepThatMakesSense) {
    for (const bool derived : {false, true}) {
        for (const double step : {90.0, 0.0, -90.0, notANumber, infinity}) {
            Plot plot;
            const int id = derived ? 1 : 0;
            if (derived)
                plot.axis(1).setDerived(fahrenheit, celsius);
            plot.setAxisEnabled(1, derived);
            plot.setAxisEnabled(0, !derived);
            ASSERT_TRUE(plot.axis(id).setRange(32.0, 212.0, step));
            RecordingPainter painter;
            plot.renderInto(painter, 640, 480);
            const bool follows = painter.text().find("\"90\"") != std::string::npos;
            EXPECT_EQ(follows, step == 90.0) << step << (derived ? " derived" : "");
        }
    }
}

TEST(Axis, ADerivedOneKeepsADirectionItHas) {
    Plot plot;
    plot.axis(0).setRange(0.0, 10.0);
    plot.axis(1).setDerived(fahrenheit, celsius);
    plot.axis(1).setInverted(false);
    EXPECT_EQ(plot.axis(0).range(), (Range{0.0, 10.0}));
    plot.axis(1).setInverted(true);
    EXPECT_EQ(plot.axis(0).range(), (Range{10.0, 0.0}));
}

TEST(Axis, OneFunctionAloneDerivesNothing) {
    Plot plot;
    EXPECT_TRUE(plot.axis(1).setDerived(fahrenheit, {}));
    EXPECT_FALSE(plot.axis(1).isDerived());
    EXPECT_TRUE(plot.axis(1).setDerived({}, celsius));
    EXPECT_FALSE(plot.axis(1).isDerived());
}

TEST(Axis, LinksNeitherToADerivedOneNorToItself) {
    Plot plot;
    Plot other;
    plot.axis(1).setDerived(fahrenheit, celsius);
    other.axis(0).setRange(3.0, 4.0);
    other.axis(0).linkTo(plot.axis(1));
    EXPECT_FALSE(other.axis(0).isLinkedTo(plot.axis(1)));
    other.axis(0).linkTo(other.axis(0));
    EXPECT_EQ(other.axis(0).range(), (Range{3.0, 4.0}));
    // Once more changes nothing.
    for (int i = 0; i < 2; ++i) {
        plot.axis(2).linkTo(other.axis(0));
        EXPECT_TRUE(plot.axis(2).isLinkedTo(other.axis(0)));
        EXPECT_EQ(plot.axis(2).range(), (Range{3.0, 4.0}));
        plot.axis(2).setScale(Scale::log());
    }
    EXPECT_FALSE(plot.axis(2).scale().isLinear());
}

TEST(Axis, ALinkedOneStaysWithinItsOwnScale) {
    for (const auto& [first, second] : {Range{-5.0, 5.0}, {5.0, -5.0}}) {
        Plot plot;
        Plot other;
        other.axis(0).linkTo(plot.axis(0));
        other.axis(0).setScale(Scale::log());
        ASSERT_TRUE(plot.axis(0).setRange(first, second));
        EXPECT_GT(other.axis(0).range().first, 0.0);
        EXPECT_GT(other.axis(0).range().second, 0.0);
    }
}

TEST(Axis, AScaleThatCannotPlaceEitherEndMakesTheRangeAutomatic) {
    for (const auto& [first, second] : {Range{-5.0, 5.0}, {5.0, -5.0}, {-5.0, -1.0}, {1.0, 5.0}}) {
        Plot plot;
        plot.axis(0).setRange(first, second);
        plot.axis(0).setScale(Scale::log());
        EXPECT_EQ(plot.axis(0).isAutoScale(), first < 0.0 || second < 0.0);
    }
}

TEST(Axis, AutomaticRangesEndAtTheFootOfBars) {
    const struct {
        std::vector<double> values;
        bool fromZero;
        bool toZero;
    } cases[] = {
        {{1.0, 5.0}, true, false}, {{-1.0, -5.0}, false, true}, {{-1.0, 5.0}, false, false}};
    for (const auto& c : cases) {
        Plot plot;
        plot.add<BarSeries>(std::vector{0.0, 1.0}, c.values);
        EXPECT_EQ(plot.axis(0).range().first == 0.0, c.fromZero);
        EXPECT_EQ(plot.axis(0).range().second == 0.0, c.toZero);
        // A line that goes further takes some room behind the foot.
        plot.add<LineSeries>(std::vector{0.0, 1.0}, std::vector{-9.0, 9.0});
        EXPECT_LT(plot.axis(0).range().first, -9.0);
        EXPECT_GT(plot.axis(0).range().second, 9.0);
    }
}

TEST(Axis, AutomaticRangesEndWithCellsUnlessSomethingReachesFurther) {
    const struct {
        double from, to;
        bool flushFirst, flushLast;
    } cases[] = {{1.0, 9.0, true, true},
                 {0.0, 10.0, true, true},
                 {-1.0, 10.0, false, true},
                 {0.0, 11.0, true, false},
                 {-1.0, 11.0, false, false}};
    for (const auto& c : cases) {
        for (const bool cellsFirst : {false, true}) {
            Plot plot;
            const auto addCells = [&] {
                plot.add<HeatMapSeries>(Grid({0.0, 1.0, 2.0, 3.0}, 2, {0.0, 10.0}, {0.0, 10.0}));
            };
            if (cellsFirst)
                addCells();
            plot.add<LineSeries>(std::vector{c.from, c.to}, std::vector{5.0, 6.0});
            if (!cellsFirst)
                addCells();
            const Range range = plot.axis(2).range();
            EXPECT_EQ(range.first == std::min(c.from, 0.0), c.flushFirst) << c.from << cellsFirst;
            EXPECT_EQ(range.second == std::max(c.to, 10.0), c.flushLast) << c.to << cellsFirst;
        }
    }
}

TEST(Axis, TellsWhatItWasGiven) {
    Plot plot;
    Axis& axis = plot.axis(0);
    axis.setTitle("Height");
    EXPECT_EQ(axis.title(), "Height");
    EXPECT_TRUE(axis.isEnabled());
    axis.setNumberFormat(NumberFormat::percent());
    EXPECT_EQ(axis.numberFormat().suffix(), "%");
    const auto gridLines = [&] {
        RecordingPainter painter;
        plot.renderInto(painter, 640, 480);
        return painter.count("drawLine");
    };
    const std::size_t with = gridLines();
    axis.setGridVisible(!axis.isGridVisible());
    EXPECT_NE(gridLines(), with);
}
