// SPDX-License-Identifier: MIT
#include "support/HostileNumbers.h"

#include <zembra/series/StemSeries.h>

#include <gtest/gtest.h>

using namespace zembra;
using namespace zembra::test;

TEST(StemSeries, DrawsALineFromZeroWithAHead) {
    Stage stage(Scale(), 0.0, 10.0, Scale(), -10.0, 10.0);
    StemSeries stems({5.0, 2.0, 8.0}, {-4.0, 8.0, notANumber});
    EXPECT_EQ(stage.draw(stems), "fillRect 0,50 100x1 #666666\n"
                                 "setPen #0072b2 1.5\n"
                                 "drawPolyline 20,50 20,10\n"
                                 "fillEllipse 20,10 3.5x3.5 #0072b2\n"
                                 "setPen #0072b2 1.5\n"
                                 "drawPolyline 50,50 50,70\n"
                                 "fillEllipse 50,70 3.5x3.5 #0072b2\n");
    EXPECT_TRUE(stems.setStyle({.baseline = -10.0, .lineWidth = 1.0, .headSize = 0.0}));
    EXPECT_EQ(stage.draw(stems), "setPen #0072b2 1\n"
                                 "drawPolyline 20,100 20,10\n"
                                 "setPen #0072b2 1\n"
                                 "drawPolyline 50,100 50,70\n");
}

TEST(StemSeries, BeginsAtTheLowEndOfALogarithmicScale) {
    Stage stage(Scale(), 10.0, 0.0, Scale::log(), 1.0, 100.0);
    StemSeries stems({2.0, 4.0}, {10.0, -10.0});
    stems.setStyle({.headSize = 0.0});
    EXPECT_EQ(stage.draw(stems), "setPen #0072b2 1.5\n"
                                 "drawPolyline 80,100 80,50\n");
    EXPECT_EQ(stems.bounds(Scale(), Scale::log()).y, (Interval{10.0, 10.0}));
}

TEST(StemSeries, CoversItsBaseline) {
    const StemSeries stems({2.0, 1.0}, {3.0, 5.0});
    EXPECT_EQ(stems.bounds(Scale(), Scale()).x, (Interval{1.0, 2.0}));
    EXPECT_EQ(stems.bounds(Scale(), Scale()).y, (Interval{0.0, 5.0}));
    EXPECT_TRUE(StemSeries().bounds(Scale(), Scale()).y.isEmpty());
}

TEST(StemSeries, RefusesAStyleOutOfRange) {
    StemSeries stems;
    EXPECT_FALSE(stems.setStyle({.baseline = notANumber}));
    EXPECT_FALSE(stems.setStyle({.lineWidth = -1.0}));
    EXPECT_FALSE(stems.setStyle({.headSize = notANumber}));
    EXPECT_EQ(stems.style().headSize, 7.0);
}

TEST(StemSeries, FindsTheNearestHead) {
    Stage stage;
    const StemSeries stems({5.0, 2.0}, {4.0, 8.0});
    const auto found = stage.nearest(stems, {20.0, 26.0});
    ASSERT_TRUE(found);
    EXPECT_EQ(found->index, 1u);
    EXPECT_NEAR(found->distance, 6.0, 1e-9);
    EXPECT_FALSE(stage.nearest(StemSeries(), {20.0, 26.0}));
}

TEST(StemSeries, DrawsItsKeyStanding) {
    Stage stage;
    EXPECT_EQ(stage.drawKey(StemSeries()), "setPen #0072b2 1.5\n"
                                           "drawPolyline 10,10 10,3.5\n"
                                           "fillEllipse 10,3.5 3.5x3.5 #0072b2\n");
}

TEST(StemSeries, CostsAsMuchAsTheCanvasHasColumns) {
    std::vector<double> x;
    std::vector<double> y;
    for (int i = 0; i < 1'000'000; ++i) {
        x.push_back(1e-5 * i);
        y.push_back(i == 234'567 ? 9.0 : 5.0);
    }
    Stage stage;
    stage.draw(StemSeries(x, y));
    EXPECT_EQ(stage.painter().count(), 100u);
    EXPECT_EQ(stage.painter().lines()[23], "fillRect 23,10 1x90 #0072b2");
}

TEST(StemSeries, WithstandsHostileNumbers) {
    expectHarmlessForAll([](const std::vector<double>& x, const std::vector<double>& y) {
        return std::make_shared<StemSeries>(x, y);
    });
}
