// SPDX-License-Identifier: MIT
#include "support/HostileNumbers.h"

#include <zembra/series/BarSeries.h>

#include <gtest/gtest.h>

#include <cmath>

using namespace zembra;
using namespace zembra::test;

namespace {

BarStyle lying() {
    BarStyle style;
    style.orientation = Orientation::Horizontal;
    return style;
}

} // namespace

TEST(BarSeries, StandsOnZeroWithCrispEdges) {
    Stage stage;
    const BarSeries bars({2.0, 4.0, 6.0}, {3.0, notANumber, 7.04});
    // The closest positions are 4 data units, 40 pixels, apart, of which bars take 80 %.
    EXPECT_EQ(stage.draw(bars), "fillRect 4,70 32x30 #0072b2\n"
                                "fillRect 44,30 32x70 #0072b2\n");
}

TEST(BarSeries, LiesWhenHorizontal) {
    Stage stage;
    BarSeries bars({2.5, 7.5}, {3.0, 6.0});
    EXPECT_TRUE(bars.setStyle(lying()));
    EXPECT_EQ(stage.draw(bars), "fillRect 0,55 30x40 #0072b2\n"
                                "fillRect 0,5 60x40 #0072b2\n");
    const Bounds bounds = bars.bounds(Scale(), Scale());
    EXPECT_EQ(bounds.x, (Interval{0.0, 6.0}));
    EXPECT_EQ(bounds.y, (Interval{0.5, 9.5}));
    EXPECT_TRUE(bounds.xFromZero);
    EXPECT_FALSE(bounds.yFromZero);
    const auto found = stage.nearest(bars, {50.0, 20.0});
    ASSERT_TRUE(found);
    EXPECT_EQ(found->x, 6.0);
    EXPECT_EQ(found->y, 7.5);
    EXPECT_EQ(found->distance, 0.0);
}

TEST(BarSeries, IsMirroredByReversedAxes) {
    Stage stage(Scale(), 10.0, 0.0, Scale(), 10.0, 0.0);
    const BarSeries bars({2.5, 7.5}, {3.0, 6.0});
    EXPECT_EQ(stage.draw(bars), "fillRect 55,0 40x30 #0072b2\n"
                                "fillRect 5,0 40x60 #0072b2\n");
}

TEST(BarSeries, StandsBesideOthersWithAPixelBetween) {
    Stage stage;
    BarSeries a({2.5, 7.5}, {5.0, 5.0});
    BarSeries b({2.5, 7.5}, {8.0, 2.0});
    EXPECT_TRUE(b.standBeside(a));
    EXPECT_EQ(stage.draw(a), "fillRect 5,50 19x50 #0072b2\n"
                             "fillRect 55,50 19x50 #0072b2\n");
    EXPECT_EQ(stage.draw(b), "fillRect 25,20 19x80 #0072b2\n"
                             "fillRect 75,80 19x20 #0072b2\n");
}

TEST(BarSeries, ClosesUpWhenItsNeighbourIsHiddenOrGone) {
    Stage stage;
    BarSeries a({2.5, 7.5}, {5.0, 5.0});
    const std::string alone = stage.draw(a);
    {
        BarSeries b({2.5, 7.5}, {8.0, 2.0});
        b.standBeside(a);
        EXPECT_NE(stage.draw(a), alone);
        b.setVisible(false);
        EXPECT_EQ(stage.draw(a), alone);
        b.setVisible(true);
        EXPECT_NE(stage.draw(a), alone);
    }
    EXPECT_EQ(stage.draw(a), alone);
}

TEST(BarSeries, StacksUpwardsAndDownwardsByPosition) {
    Stage stage(Scale(), 0.0, 10.0, Scale(), -10.0, 10.0);
    BarSeries a({2.5, 7.5}, {4.0, -2.0});
    // In another order and with a position that the one below lacks.
    BarSeries b({7.5, 5.0, 2.5}, {-4.0, 3.0, 2.0});
    BarSeries c({2.5}, {-6.0});
    EXPECT_TRUE(b.stackOn(a));
    EXPECT_TRUE(c.stackOn(b));
    EXPECT_EQ(stage.draw(a), "fillRect 15,30 20x20 #0072b2\n"
                             "fillRect 65,50 20x10 #0072b2\n"
                             "fillRect 0,50 100x1 #666666\n");
    // A hair's breadth lies between two bars of a stack.
    EXPECT_EQ(stage.draw(b), "fillRect 15,20 20x9 #0072b2\n"
                             "fillRect 40,35 20x15 #0072b2\n"
                             "fillRect 65,61 20x19 #0072b2\n"
                             "fillRect 0,50 100x1 #666666\n");
    EXPECT_EQ(stage.draw(c), "fillRect 15,50 20x30 #0072b2\n"
                             "fillRect 0,50 100x1 #666666\n");
    EXPECT_EQ(b.bounds(Scale(), Scale()).y, (Interval{-6.0, 6.0}));
    EXPECT_EQ(c.bounds(Scale(), Scale()).y, (Interval{-6.0, 0.0}));
}

TEST(BarSeries, SharesItsStyleWithThoseItIsJoinedTo) {
    BarSeries a({1.0}, {1.0});
    BarSeries b({1.0}, {1.0});
    b.stackOn(a);
    b.setStyle(lying());
    EXPECT_EQ(a.style().orientation, Orientation::Horizontal);
    b.standAlone();
    EXPECT_EQ(b.style().orientation, Orientation::Horizontal);
    b.setStyle({});
    EXPECT_EQ(a.style().orientation, Orientation::Horizontal);
    EXPECT_FALSE(a.stackOn(a));
    EXPECT_FALSE(a.standBeside(a));
}

TEST(BarSeries, TellsAChangeOfAJoinedSeries) {
    BarSeries a({1.0}, {1.0});
    BarSeries b({1.0}, {1.0});
    std::uint64_t before = a.revision();
    const auto changes = [&] {
        const bool grown = a.revision() > before;
        before = a.revision();
        return grown;
    };
    b.stackOn(a);
    EXPECT_TRUE(changes());
    b.setSamples({1.0}, {2.0});
    EXPECT_TRUE(changes());
    b.setVisible(false);
    EXPECT_TRUE(changes());
    const std::uint64_t joined = b.revision();
    b.standAlone();
    EXPECT_TRUE(changes());
    EXPECT_GT(b.revision(), joined);
    EXPECT_FALSE(changes());
}

TEST(BarSeries, RefusesAStyleOutOfRange) {
    BarSeries bars;
    for (const double share : {0.0, -1.0, 1.5, notANumber}) {
        BarStyle style;
        style.share = share;
        EXPECT_FALSE(bars.setStyle(style)) << share;
    }
    BarStyle style;
    style.baseline = notANumber;
    EXPECT_FALSE(bars.setStyle(style));
    EXPECT_EQ(bars.style().share, 0.8);
    EXPECT_EQ(bars.style().baseline, 0.0);
}

TEST(BarSeries, BeginsAtItsBaseline) {
    Stage stage;
    BarSeries bars({2.5, 7.5}, {3.0, 6.0});
    BarStyle style;
    style.baseline = 5.0;
    bars.setStyle(style);
    EXPECT_EQ(stage.draw(bars), "fillRect 5,50 40x20 #0072b2\n"
                                "fillRect 55,40 40x10 #0072b2\n"
                                "fillRect 0,50 100x1 #666666\n");
    EXPECT_FALSE(bars.bounds(Scale(), Scale()).yFromZero);
    EXPECT_EQ(bars.bounds(Scale(), Scale()).y, (Interval{3.0, 6.0}));
}

TEST(BarSeries, BeginsAtTheLowEndOfALogarithmicScale) {
    Stage stage(Scale::log(), 1.0, 100.0, Scale::log(), 1.0, 100.0);
    const BarSeries bars({1.0, 10.0, 100.0}, {-5.0, 10.0, 100.0});
    EXPECT_EQ(stage.draw(bars), "fillRect 30,50 40x50 #0072b2\n"
                                "fillRect 80,0 20x100 #0072b2\n");
    const Bounds bounds = bars.bounds(Scale::log(), Scale::log());
    EXPECT_EQ(bounds.y, (Interval{10.0, 100.0}));
    EXPECT_NEAR(bounds.x.min, std::pow(10.0, 0.6), 1e-12);
    EXPECT_NEAR(bounds.x.max, std::pow(10.0, 2.4), 1e-9);
}

TEST(BarSeries, CoversWholeBarsByItsBounds) {
    struct Case {
        const char* what;
        std::vector<double> positions;
        std::vector<double> values;
        Bounds bounds;
    };
    const Interval none;
    const std::vector<Case> cases = {
        {"empty", {}, {}, {none, none}},
        {"one", {5.0}, {2.0}, {{4.6, 5.4}, {0.0, 2.0}, false, true}},
        {"equal", {5.0, 5.0}, {2.0, -3.0}, {{4.6, 5.4}, {-3.0, 2.0}, false, true}},
        {"reversed", {6.0, 4.0, 3.0}, {1.0, 2.0, 3.0}, {{2.6, 6.4}, {0.0, 3.0}, false, true}},
        {"not a number",
         {1.0, notANumber, 2.0},
         {1.0, 9.0, notANumber},
         {{0.6, 1.4}, {0.0, 1.0}, false, true}},
    };
    for (const Case& c : cases) {
        const Bounds bounds = BarSeries(c.positions, c.values).bounds(Scale(), Scale());
        EXPECT_EQ(bounds.x, c.bounds.x) << c.what;
        EXPECT_EQ(bounds.y, c.bounds.y) << c.what;
        EXPECT_EQ(bounds.yFromZero, c.bounds.yFromZero) << c.what;
    }
}

TEST(BarSeries, FindsTheBarUnderOrNearestToAPixel) {
    Stage stage;
    // Out of order: the index counts the samples as they were given.
    const BarSeries bars({7.5, 2.5}, {6.0, 3.0});
    const auto inside = stage.nearest(bars, {20.0, 80.0});
    ASSERT_TRUE(inside);
    EXPECT_EQ(inside->index, 1u);
    EXPECT_EQ(inside->x, 2.5);
    EXPECT_EQ(inside->y, 3.0);
    EXPECT_EQ(inside->distance, 0.0);
    const auto above = stage.nearest(bars, {75.0, 10.0});
    ASSERT_TRUE(above);
    EXPECT_EQ(above->index, 0u);
    EXPECT_EQ(above->distance, 30.0);
    EXPECT_FALSE(stage.nearest(BarSeries({50.0}, {1.0}), {50.0, 50.0}));
    EXPECT_FALSE(stage.nearest(BarSeries(), {50.0, 50.0}));
}

TEST(BarSeries, FillsItsKey) {
    Stage stage;
    EXPECT_EQ(stage.drawKey(BarSeries()), "fillRect 0,0 20x10 #0072b2\n");
}

TEST(BarSeries, CostsAsMuchAsTheCanvasHasColumns) {
    std::vector<double> x;
    std::vector<double> y;
    for (int i = 0; i < 1'000'000; ++i) {
        x.push_back(1e-5 * i);
        y.push_back(i == 234'567 ? 9.0 : 2.0 + 1e-6 * (i % 1000));
    }
    Stage stage;
    BarSeries below(x, y);
    BarSeries above(x, y);
    stage.draw(below);
    EXPECT_EQ(stage.painter().count(), 100u);
    // Even one bar among a million shows.
    EXPECT_EQ(stage.painter().lines()[23], "fillRect 23,10 1x90 #0072b2");
    above.stackOn(below);
    stage.draw(above);
    EXPECT_EQ(stage.painter().count(), 100u);
    EXPECT_EQ(stage.nearest(below, {23.4567, 11.0})->index, 234'567u);
}

TEST(BarSeries, TouchesItsNeighboursWhereGapsWouldBeFinerThanPixels) {
    // Positions are two and a half pixels apart, of which the gaps would take half a pixel.
    std::vector<double> x;
    for (int i = 0; i < 40; ++i)
        x.push_back(0.25 * i + 0.125);
    Stage stage;
    stage.draw(BarSeries(x, std::vector<double>(40, 1.0)));
    const auto& lines = stage.painter().lines();
    EXPECT_EQ(lines[0], "fillRect 0,90 3x10 #0072b2");
    EXPECT_EQ(lines[1], "fillRect 3,90 2x10 #0072b2");
    EXPECT_EQ(lines[2], "fillRect 5,90 3x10 #0072b2");
}

TEST(BarSeries, IsAsWideAsEverWhereManyPositionsAreEqual) {
    Stage stage;
    const BarSeries bars(std::vector<double>(1000, 5.05), std::vector<double>(1000, 3.0));
    EXPECT_EQ(stage.draw(bars), "fillRect 47,70 8x30 #0072b2\n");
}

TEST(BarSeries, WithstandsHostileNumbers) {
    expectHarmlessForAll([](const std::vector<double>& x, const std::vector<double>& y) {
        auto bars = std::make_shared<BarSeries>(x, y);
        if (x.size() % 2 == 1)
            bars->setStyle(lying());
        return bars;
    });
}

TEST(BarSeries, WithstandsHostileNumbersInStacks) {
    for (const HostileRow& x : hostileRows()) {
        for (const HostileRow& y : hostileRows()) {
            BarSeries below(x.values, y.values);
            BarSeries above(x.values, x.values);
            BarSeries beside(y.values, x.values);
            above.stackOn(below);
            beside.standBeside(below);
            expectHarmless(above, x.name + " on " + y.name);
        }
    }
}
