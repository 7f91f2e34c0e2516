// SPDX-License-Identifier: MIT
#include <zembra/chart/Plot.h>
#include <zembra/series/LineSeries.h>

#include <gtest/gtest.h>

#include <limits>

using namespace zembra;

namespace {

using Range = std::pair<double, double>;

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

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
    axis.setInverted(true);
    EXPECT_EQ(axis.range(), (Range{10.0, -10.0}));
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
