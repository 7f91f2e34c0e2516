// SPDX-License-Identifier: MIT
#include "support/HostileNumbers.h"

#include <zembra/series/AreaSeries.h>

#include <gtest/gtest.h>

#include <cmath>

using namespace zembra;
using namespace zembra::test;

TEST(AreaSeries, FillsToZeroUnderItsLine) {
    Stage stage;
    const AreaSeries area({0.0, 5.0, 10.0}, {4.0, 8.0, 6.0});
    EXPECT_EQ(stage.draw(area), "fillPolygon #0072b24d 0,60 50,20 100,40 100,100 50,100 0,100\n"
                                "setPen #0072b2 1.5\n"
                                "drawPolyline 0,60 50,20 100,40\n");
}

TEST(AreaSeries, IsCutByGaps) {
    Stage stage;
    AreaSeries area({0.0, 1.0, 2.0, 3.0, 4.0, 5.0}, {4.0, 8.0, notANumber, 6.0, 6.0, notANumber});
    EXPECT_TRUE(area.setStyle({.lineWidth = 0.0, .opacity = 1.0}));
    EXPECT_EQ(stage.draw(area), "fillPolygon #0072b2 0,60 10,20 10,100 0,100\n"
                                "fillPolygon #0072b2 30,40 40,40 40,100 30,100\n");
}

TEST(AreaSeries, EndsAtItsBaselineOnEitherSide) {
    Stage stage;
    AreaSeries area({0.0, 10.0}, {10.0, 0.0});
    EXPECT_TRUE(area.setStyle({.baseline = 5.0, .lineWidth = 0.0, .opacity = 1.0}));
    EXPECT_EQ(stage.draw(area), "fillPolygon #0072b2 0,0 100,100 100,50 0,50\n"
                                "fillRect 0,50 100x1 #666666\n");
    EXPECT_FALSE(area.bounds(Scale(), Scale()).yFromZero);
}

TEST(AreaSeries, EndsAtTheLowEndOfALogarithmicScale) {
    AreaSeries area({1.0, 2.0, 3.0, 4.0}, {10.0, 10.0, 0.0, 10.0});
    area.setStyle({.lineWidth = 0.0, .opacity = 1.0});
    Stage stage(Scale(), 0.0, 10.0, Scale::log(), 1.0, 100.0);
    EXPECT_EQ(stage.draw(area), "fillPolygon #0072b2 10,50 20,50 20,100 10,100\n");
    Stage reversed(Scale(), 0.0, 10.0, Scale::log(), 100.0, 1.0);
    EXPECT_EQ(reversed.draw(area), "fillPolygon #0072b2 10,50 20,50 20,0 10,0\n");
    const Bounds bounds = area.bounds(Scale(), Scale::log());
    EXPECT_EQ(bounds.y, (Interval{10.0, 10.0}));
    EXPECT_FALSE(bounds.yFromZero);
}

TEST(AreaSeries, KeepsTheOrderOfItsSamples) {
    Stage stage;
    AreaSeries area({10.0, 5.0, 0.0}, {6.0, 8.0, 4.0});
    area.setStyle({.lineWidth = 0.0, .opacity = 1.0});
    EXPECT_EQ(stage.draw(area), "fillPolygon #0072b2 100,40 50,20 0,60 0,100 50,100 100,100\n");
}

TEST(AreaSeries, CoversItsBaseline) {
    const AreaSeries area({1.0, 2.0, notANumber}, {4.0, 8.0, 100.0});
    const Bounds bounds = area.bounds(Scale(), Scale());
    EXPECT_EQ(bounds.x, (Interval{1.0, 2.0}));
    EXPECT_EQ(bounds.y, (Interval{0.0, 8.0}));
    EXPECT_TRUE(bounds.yFromZero);
    EXPECT_TRUE(AreaSeries().bounds(Scale(), Scale()).y.isEmpty());
    EXPECT_EQ(AreaSeries({3.0}, {-2.0}).bounds(Scale(), Scale()).y, (Interval{-2.0, 0.0}));
}

TEST(AreaSeries, RefusesAStyleOutOfRange) {
    AreaSeries area;
    EXPECT_FALSE(area.setStyle({.baseline = notANumber}));
    EXPECT_FALSE(area.setStyle({.lineWidth = -1.0}));
    EXPECT_FALSE(area.setStyle({.lineWidth = notANumber}));
    EXPECT_FALSE(area.setStyle({.opacity = 1.1}));
    EXPECT_FALSE(area.setStyle({.opacity = notANumber}));
    EXPECT_EQ(area.style().opacity, 0.3);
}

TEST(AreaSeries, FindsTheNearestSampleWithinTheAxes) {
    Stage stage;
    const AreaSeries sorted({1.0, 5.0, 5.5, 90.0}, {5.0, 20.0, 8.0, 5.0});
    const auto found = stage.nearest(sorted, {50.0, 20.0});
    ASSERT_TRUE(found);
    EXPECT_EQ(found->index, 2u);
    EXPECT_NEAR(found->distance, 5.0, 1e-9);
    const AreaSeries unsorted({5.5, 1.0}, {8.0, 5.0});
    EXPECT_EQ(stage.nearest(unsorted, {0.0, 50.0})->index, 1u);
    EXPECT_FALSE(stage.nearest(AreaSeries({notANumber}, {1.0}), {0.0, 0.0}));
}

TEST(AreaSeries, ShowsFillAndLineInItsKey) {
    Stage stage;
    EXPECT_EQ(stage.drawKey(AreaSeries()), "fillRect 0,0 20x10 #0072b24d\n"
                                           "fillRect 0,0 20x1.5 #0072b2\n");
}

TEST(AreaSeries, CostsAsMuchAsTheCanvasHasColumns) {
    std::vector<double> x;
    std::vector<double> y;
    for (int i = 0; i < 1'000'000; ++i) {
        x.push_back(1e-5 * i);
        y.push_back(i == 234'567 ? 9.0 : 5.0 + 1e-6 * (i % 1000));
    }
    Stage stage;
    AreaSeries area(x, y);
    area.setStyle({.lineWidth = 0.0, .opacity = 1.0});
    const std::string drawn = stage.draw(area);
    EXPECT_EQ(stage.painter().count(), 1u);
    EXPECT_LT(stage.painter().vertices(), 250u);
    // Even one sample among a million shows.
    EXPECT_NE(drawn.find(" 23.5,10 "), std::string::npos);
}

TEST(AreaSeries, WithstandsHostileNumbers) {
    expectHarmlessForAll([](const std::vector<double>& x, const std::vector<double>& y) {
        return std::make_shared<AreaSeries>(x, y);
    });
}

TEST(AreaSeries, LiesOnTheAreasBelowItInItsStack) {
    Stage stage;
    AreaSeries below({0.0, 5.0, 10.0}, {2.0, 4.0, 2.0});
    AreaSeries above({10.0, 0.0}, {3.0, 1.0});
    EXPECT_TRUE(above.stackOn(below));
    EXPECT_FALSE(above.stackOn(above));
    below.setStyle({.lineWidth = 0.0, .opacity = 1.0});
    above.setStyle({.lineWidth = 1.0, .opacity = 1.0});
    EXPECT_EQ(stage.draw(below), "fillPolygon #0072b2 0,80 50,60 100,80 100,100 50,100 0,100\n");
    // Straight between its own samples, it follows the corners of what lies below.
    EXPECT_EQ(stage.draw(above), "fillPolygon #0072b2 0,70 50,40 100,50 100,80 50,60 0,80\n"
                                 "setPen #0072b2 1\n"
                                 "drawPolyline 0,70 50,40 100,50\n");
    const Bounds bounds = above.bounds(Scale(), Scale());
    EXPECT_EQ(bounds.x, (Interval{0.0, 10.0}));
    EXPECT_EQ(bounds.y, (Interval{0.0, 6.0}));
    EXPECT_TRUE(bounds.yFromZero);
}

TEST(AreaSeries, AddsNothingInItsGapsAndBesideItsSamples) {
    Stage stage;
    const std::vector<double> x = {0.0, 2.0, 4.0, 6.0, 8.0, 10.0};
    AreaSeries below(x, {2.0, 2.0, notANumber, 2.0, 2.0, 2.0});
    AreaSeries above(x, {1.0, 1.0, 1.0, 1.0, notANumber, 1.0});
    AreaSeries shorter({2.0, 6.0}, {4.0, 4.0});
    above.stackOn(below);
    shorter.stackOn(above);
    for (AreaSeries* area : {&below, &above, &shorter})
        area->setStyle({.lineWidth = 0.0, .opacity = 1.0});
    EXPECT_EQ(stage.draw(below), "fillPolygon #0072b2 0,80 20,80 20,100 0,100\n"
                                 "fillPolygon #0072b2 60,80 80,80 100,80 100,100 80,100 60,100\n");
    EXPECT_EQ(stage.draw(above),
              "fillPolygon #0072b2 0,70 20,70 40,90 60,70 60,80 40,100 20,80 0,80\n");
    EXPECT_EQ(stage.draw(shorter), "fillPolygon #0072b2 20,30 40,50 60,30 60,70 40,90 20,70\n");
}

TEST(AreaSeries, ComesDownWhereAnAreaBelowItIsHiddenMovedOrGone) {
    Stage stage;
    auto lowest = std::make_unique<AreaSeries>(std::vector{0.0, 10.0}, std::vector{2.0, 2.0});
    AreaSeries middle({0.0, 10.0}, {3.0, 3.0});
    AreaSeries top({0.0, 10.0}, {1.0, 1.0});
    middle.stackOn(*lowest);
    top.stackOn(middle);
    std::uint64_t last = top.revision();
    const auto topAt = [&] {
        EXPECT_GT(top.revision(), last);
        last = top.revision();
        return top.bounds(Scale(), Scale()).y.max;
    };
    top.setName("top");
    EXPECT_EQ(topAt(), 6.0);
    middle.setVisible(false);
    EXPECT_EQ(topAt(), 3.0);
    // Hidden areas have the place that they would have.
    EXPECT_EQ(middle.bounds(Scale(), Scale()).y.max, 5.0);
    lowest->setSamples({0.0, 10.0}, {4.0, 4.0});
    EXPECT_EQ(topAt(), 5.0);
    middle.setVisible(true);
    lowest.reset();
    EXPECT_EQ(topAt(), 4.0);
    middle.stackOn(top);
    EXPECT_EQ(topAt(), 1.0);
    top.standAlone();
    top.setStyle({.baseline = -2.0});
    EXPECT_EQ(topAt(), 1.0);
    EXPECT_EQ(top.bounds(Scale(), Scale()).y.min, -2.0);
}

TEST(AreaSeries, TellsTheOwnValueOfTheNearestSampleInAStack) {
    Stage stage;
    AreaSeries below({0.0, 5.0, 10.0}, {2.0, 4.0, 2.0});
    AreaSeries above({9.0, 1.0}, {3.0, 1.0});
    above.stackOn(below);
    const auto found = stage.nearest(above, {85.0, 46.0});
    ASSERT_TRUE(found);
    EXPECT_EQ(found->index, 0u);
    EXPECT_EQ(found->x, 9.0);
    EXPECT_EQ(found->y, 3.0);
    EXPECT_NEAR(found->distance, 5.0, 1e-9);
}

TEST(AreaSeries, TakesTheLastOfEqualPositionsInAStack) {
    Stage stage;
    AreaSeries below({0.0, 10.0, 10.0}, {2.0, 9.0, 2.0});
    AreaSeries above({0.0, 10.0}, {1.0, 1.0});
    above.stackOn(below);
    EXPECT_EQ(above.bounds(Scale(), Scale()).y, (Interval{0.0, 3.0}));
}

TEST(AreaSeries, WithstandsHostileNumbersInStacks) {
    std::vector<std::shared_ptr<AreaSeries>> kept;
    expectHarmlessForAll([&](const std::vector<double>& x, const std::vector<double>& y) {
        kept.clear();
        kept.push_back(std::make_shared<AreaSeries>(y, x));
        kept.push_back(std::make_shared<AreaSeries>(x, y));
        const auto top = std::make_shared<AreaSeries>(x, y);
        kept[1]->stackOn(*kept[0]);
        top->stackOn(*kept[1]);
        return top;
    });
}
