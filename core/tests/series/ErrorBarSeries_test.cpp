// SPDX-License-Identifier: MIT
#include "support/HostileNumbers.h"

#include <zembra/series/ErrorBarSeries.h>

#include <gtest/gtest.h>

using namespace zembra;
using namespace zembra::test;

namespace {

// The lines alone, without their pen.
std::string strokes(Stage& stage, const Series& series) {
    stage.draw(series);
    std::string result;
    for (const std::string& line : stage.painter().linesOf("drawPolyline"))
        result += line.substr(std::string("drawPolyline ").size()) + '\n';
    return result;
}

} // namespace

TEST(ErrorBarSeries, DrawsTheSameErrorOnEitherSide) {
    Stage stage;
    ErrorBarSeries bars({5.0}, {5.0});
    bars.setYErrors({2.0});
    bars.setStyle({.lineWidth = 1.0, .capLength = 8.0});
    EXPECT_EQ(stage.draw(bars), "setPen #0072b2 1\n"
                                "drawPolyline 50,50 50,70\n"
                                "setPen #0072b2 1\n"
                                "drawPolyline 46,70 54,70\n"
                                "setPen #0072b2 1\n"
                                "drawPolyline 50,50 50,30\n"
                                "setPen #0072b2 1\n"
                                "drawPolyline 46,30 54,30\n"
                                "fillEllipse 50,50 3x3 #0072b2\n");
}

TEST(ErrorBarSeries, DrawsErrorsOfBothDirectionsAndTheirSidesApart) {
    Stage stage;
    ErrorBarSeries bars({5.0}, {5.0});
    bars.setStyle({.capLength = 0.0});
    bars.setXErrors({1.0}, {2.0});
    bars.setYErrors({3.0}, {4.0});
    EXPECT_EQ(strokes(stage, bars), "50,50 40,50\n"
                                    "50,50 70,50\n"
                                    "50,50 50,80\n"
                                    "50,50 50,10\n");
}

TEST(ErrorBarSeries, LeavesOutErrorsThatAreMissing) {
    Stage stage;
    // Out of order: errors belong to the samples as they were given.
    ErrorBarSeries bars({8.0, 6.0, 2.0, 4.0}, {5.0, 5.0, 5.0, 5.0});
    bars.setStyle({.capLength = 0.0});
    bars.setYErrors({1.0, notANumber, -2.0}, {notANumber, infinity, 3.0});
    EXPECT_EQ(strokes(stage, bars), "20,50 20,70\n"
                                    "20,50 20,20\n"
                                    "80,50 80,60\n");
    EXPECT_EQ(stage.painter().count("fillEllipse"), 4u);
    bars.setSamples({1.0}, {1.0});
    EXPECT_EQ(strokes(stage, bars), "");
}

TEST(ErrorBarSeries, RunsToTheEndOfALogarithmicScaleWithoutACap) {
    Stage stage(Scale(), 0.0, 10.0, Scale::log(), 1.0, 100.0);
    ErrorBarSeries bars({5.0}, {10.0});
    bars.setYErrors({20.0}, {90.0});
    bars.setStyle({.capLength = 8.0});
    EXPECT_EQ(strokes(stage, bars), "50,50 50,100\n"
                                    "50,50 50,0\n"
                                    "46,0 54,0\n");
    EXPECT_EQ(bars.bounds(Scale(), Scale::log()).y, (Interval{10.0, 100.0}));
}

TEST(ErrorBarSeries, CoversTheEndsOfItsBars) {
    ErrorBarSeries bars({5.0, notANumber}, {5.0, 50.0});
    bars.setXErrors({1.0, 1.0}, {2.0, 1.0});
    bars.setYErrors({3.0, 1.0});
    EXPECT_EQ(bars.bounds(Scale(), Scale()).x, (Interval{4.0, 7.0}));
    EXPECT_EQ(bars.bounds(Scale(), Scale()).y, (Interval{2.0, 8.0}));
    EXPECT_TRUE(ErrorBarSeries().bounds(Scale(), Scale()).y.isEmpty());
}

TEST(ErrorBarSeries, ReachesIntoTheCanvasFromOutside) {
    Stage stage;
    ErrorBarSeries bars({-90.0}, {5.0});
    bars.setXErrors({95.0});
    EXPECT_NE(stage.draw(bars).find(" 50,50\n"), std::string::npos) << stage.painter().text();
}

TEST(ErrorBarSeries, RefusesAStyleOutOfRange) {
    ErrorBarSeries bars;
    EXPECT_FALSE(bars.setStyle({.lineWidth = -1.0}));
    EXPECT_FALSE(bars.setStyle({.capLength = notANumber}));
    EXPECT_FALSE(bars.setStyle({.markerSize = infinity}));
    EXPECT_EQ(bars.style().capLength, 7.0);
}

TEST(ErrorBarSeries, FindsTheNearestSample) {
    Stage stage;
    const ErrorBarSeries bars({8.0, 2.0}, {5.0, 5.0});
    const auto found = stage.nearest(bars, {20.0, 53.0});
    ASSERT_TRUE(found);
    EXPECT_EQ(found->index, 1u);
    EXPECT_NEAR(found->distance, 3.0, 1e-9);
}

TEST(ErrorBarSeries, DrawsItsKeyWithCapsAndMarker) {
    Stage stage;
    ErrorBarSeries bars;
    bars.setStyle({.lineWidth = 1.0, .capLength = 6.0});
    EXPECT_EQ(stage.drawKey(bars), "setPen #0072b2 1\n"
                                   "drawPolyline 10,0 10,10\n"
                                   "setPen #0072b2 1\n"
                                   "drawPolyline 7,0.5 13,0.5\n"
                                   "setPen #0072b2 1\n"
                                   "drawPolyline 7,9.5 13,9.5\n"
                                   "fillEllipse 10,5 3x3 #0072b2\n");
}

TEST(ErrorBarSeries, CostsAsMuchAsTheCanvasHasColumns) {
    std::vector<double> x;
    std::vector<double> y;
    for (int i = 0; i < 100'000; ++i) {
        x.push_back(1e-4 * i);
        y.push_back(5.0);
    }
    Stage stage;
    ErrorBarSeries bars(x, y);
    bars.setYErrors(std::vector<double>(100'000, 2.0), std::vector<double>(100'000, 1.0));
    stage.draw(bars);
    EXPECT_EQ(stage.painter().count(), 100u);
    EXPECT_EQ(stage.painter().lines()[0], "fillRect 0,40 1x30 #0072b2");
}

TEST(ErrorBarSeries, WithstandsHostileNumbers) {
    expectHarmlessForAll([](const std::vector<double>& x, const std::vector<double>& y) {
        auto bars = std::make_shared<ErrorBarSeries>(x, y);
        bars->setYErrors(x, y);
        if (x.size() % 2 == 1)
            bars->setXErrors(y);
        return bars;
    });
}
