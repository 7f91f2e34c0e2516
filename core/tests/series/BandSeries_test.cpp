// SPDX-License-Identifier: MIT
#include "support/HostileNumbers.h"

#include <zembra/series/BandSeries.h>

#include <gtest/gtest.h>

#include <cmath>

using namespace zembra;
using namespace zembra::test;

TEST(BandSeries, FillsBetweenItsCurves) {
    Stage stage;
    BandSeries band({0.0, 5.0, 10.0}, {1.0, 2.0, 1.0}, {4.0, 8.0, 6.0});
    EXPECT_EQ(stage.draw(band), "fillPolygon #0072b24d 0,60 50,20 100,40 100,90 50,80 0,90\n");
    band.setStyle({.lineWidth = 1.0, .opacity = 0.0});
    EXPECT_EQ(stage.draw(band), "setPen #0072b2 1\n"
                                "drawPolyline 0,90 50,80 100,90\n"
                                "setPen #0072b2 1\n"
                                "drawPolyline 0,60 50,20 100,40\n");
}

TEST(BandSeries, HasAGapWhereEitherCurveHasOne) {
    Stage stage;
    const BandSeries band({0.0, 1.0, 2.0, 3.0, 4.0, 5.0, 6.0, 7.0},
                          {1.0, 1.0, notANumber, 1.0, 1.0, 1.0, 1.0, 1.0},
                          {2.0, 2.0, 2.0, 2.0, 2.0, notANumber, 2.0, 2.0});
    EXPECT_EQ(stage.draw(band), "fillPolygon #0072b24d 0,80 10,80 10,90 0,90\n"
                                "fillPolygon #0072b24d 30,80 40,80 40,90 30,90\n"
                                "fillPolygon #0072b24d 60,80 70,80 70,90 60,90\n");
}

TEST(BandSeries, LeavesOutWhatALogarithmicScaleCannotPlace) {
    Stage stage(Scale(), 0.0, 10.0, Scale::log(), 1.0, 100.0);
    const BandSeries band({0.0, 1.0, 2.0}, {0.0, 1.0, 1.0}, {10.0, 10.0, 10.0});
    EXPECT_EQ(stage.draw(band), "fillPolygon #0072b24d 10,50 20,50 20,100 10,100\n");
    const Bounds bounds = band.bounds(Scale(), Scale::log());
    EXPECT_EQ(bounds.x, (Interval{1.0, 2.0}));
    EXPECT_EQ(bounds.y, (Interval{1.0, 10.0}));
}

TEST(BandSeries, CoversBothCurves) {
    const BandSeries crossing({3.0, 1.0}, {1.0, 5.0}, {4.0, -2.0});
    const Bounds bounds = crossing.bounds(Scale(), Scale());
    EXPECT_EQ(bounds.x, (Interval{1.0, 3.0}));
    EXPECT_EQ(bounds.y, (Interval{-2.0, 5.0}));
    EXPECT_FALSE(bounds.yFromZero);
    EXPECT_TRUE(BandSeries().bounds(Scale(), Scale()).x.isEmpty());
}

TEST(BandSeries, RefusesAStyleOutOfRange) {
    BandSeries band;
    EXPECT_FALSE(band.setStyle({.lineWidth = -1.0}));
    EXPECT_FALSE(band.setStyle({.opacity = notANumber}));
    EXPECT_EQ(band.style().lineWidth, 0.0);
}

TEST(BandSeries, FindsTheNearestSampleOnEitherCurve) {
    Stage stage;
    const BandSeries band({2.0, 5.0}, {1.0, 2.0}, {4.0, 8.0});
    EXPECT_EQ(stage.nearest(band, {50.0, 70.0})->y, 2.0);
    EXPECT_EQ(stage.nearest(band, {50.0, 30.0})->y, 8.0);
    EXPECT_EQ(stage.nearest(band, {20.0, 55.0})->index, 0u);
    EXPECT_FALSE(stage.nearest(BandSeries(), {20.0, 55.0}));
}

TEST(BandSeries, CostsAsMuchAsTheCanvasHasColumns) {
    std::vector<double> x;
    std::vector<double> lower;
    std::vector<double> upper;
    for (int i = 0; i < 1'000'000; ++i) {
        x.push_back(1e-5 * i);
        lower.push_back(i == 234'567 ? 0.5 : 2.0);
        upper.push_back(i == 834'567 ? 9.0 : 5.0);
    }
    Stage stage;
    const BandSeries band(x, lower, upper);
    const std::string drawn = stage.draw(band);
    EXPECT_EQ(stage.painter().count(), 1u);
    EXPECT_LT(stage.painter().vertices(), 250u);
    EXPECT_NE(drawn.find(" 23.5,95 "), std::string::npos);
    EXPECT_NE(drawn.find(" 83.5,10 "), std::string::npos);
}

TEST(BandSeries, FillsItsKey) {
    Stage stage;
    EXPECT_EQ(stage.drawKey(BandSeries()), "fillRect 0,0 20x10 #0072b24d\n");
}

TEST(BandSeries, ShowsTheLinesOfItsEdgesInItsKey) {
    Stage stage;
    BandSeries band;
    BandStyle style;
    style.lineWidth = 2.0;
    ASSERT_TRUE(band.setStyle(style));
    EXPECT_EQ(stage.drawKey(band), "fillRect 0,0 20x10 #0072b24d\n"
                                   "fillRect 0,0 20x2 #0072b2\n"
                                   "fillRect 0,8 20x2 #0072b2\n");
    // Lines wider than the key leave nothing between them.
    style.lineWidth = 30.0;
    ASSERT_TRUE(band.setStyle(style));
    EXPECT_EQ(stage.drawKey(band), "fillRect 0,0 20x10 #0072b24d\n"
                                   "fillRect 0,0 20x5 #0072b2\n"
                                   "fillRect 0,5 20x5 #0072b2\n");
}

TEST(BandSeries, RefusesWidthsAndOpacitiesOutOfRange) {
    BandSeries band;
    for (const double bad : {-1.0, notANumber, HUGE_VAL}) {
        BandStyle style;
        style.lineWidth = bad;
        EXPECT_FALSE(band.setStyle(style)) << bad;
        style = {};
        style.opacity = bad;
        EXPECT_FALSE(band.setStyle(style)) << bad;
    }
    EXPECT_EQ(band.style().opacity, BandStyle().opacity);
}

TEST(BandSeries, WithstandsHostileNumbers) {
    expectHarmlessForAll([](const std::vector<double>& x, const std::vector<double>& y) {
        return std::make_shared<BandSeries>(x, y, x);
    });
}
