// SPDX-License-Identifier: MIT
#include "support/HostileNumbers.h"

#include <zembra/series/BoxPlotSeries.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace zembra;
using namespace zembra::test;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

const std::vector<double> oneToNine = {9.0, 2.0, 3.0, 4.0, 5.0, 6.0, 7.0, 8.0, 1.0};

} // namespace

TEST(BoxStatistics, FollowTukey) {
    const BoxStatistics box = boxStatistics({1.0, 2.0, 3.0, 4.0, 100.0, notANumber, -50.0, 5.0});
    // Rising: -50 1 2 3 4 5 100.
    EXPECT_EQ(box.count, 7u);
    EXPECT_EQ(box.lowerQuartile, 1.5);
    EXPECT_EQ(box.median, 3.0);
    EXPECT_EQ(box.upperQuartile, 4.5);
    EXPECT_EQ(box.lowerWhisker, 1.0);
    EXPECT_EQ(box.upperWhisker, 5.0);
    EXPECT_THAT(box.outliers, ElementsAre(-50.0, 100.0));
    EXPECT_NEAR(box.mean, 65.0 / 7.0, 1e-12);
}

TEST(BoxStatistics, ReachAsFarAsAsked) {
    EXPECT_THAT(boxStatistics(oneToNine, 0.25).outliers, ElementsAre(1.0, 9.0));
    EXPECT_THAT(boxStatistics({1.0, 2.0, 1000.0}, infinity).outliers, IsEmpty());
    EXPECT_THAT(boxStatistics({1.0, 1.0, 1.0, 1.0, 9.0}, infinity).outliers, IsEmpty());
    EXPECT_THAT(boxStatistics({1.0, 1.0, 1.0, 1.0, 9.0}).outliers, ElementsAre(9.0));
    // The quartiles lie between the samples, and the outlier pulls one of them beyond the whisker.
    const BoxStatistics box = boxStatistics({0.0, 0.0, 1.0, 10.0}, 0.0);
    EXPECT_EQ(box.upperQuartile, 3.25);
    EXPECT_EQ(box.upperWhisker, 3.25);
    EXPECT_EQ(boxStatistics({notANumber}).count, 0u);
}

TEST(BoxPlotSeries, DrawsWhiskersBoxMedianAndOutliers) {
    Stage stage(Scale(), 0.0, 2.0, Scale(), 0.0, 10.0);
    BoxPlotSeries boxes({1.0}, {oneToNine});
    boxes.setStyle({.share = 0.4, .whiskerReach = 0.5, .lineWidth = 1.0});
    EXPECT_EQ(stage.draw(boxes), "setPen #0072b2 1\n"
                                 "drawPolyline 50.5,70 50.5,90\n"
                                 "setPen #0072b2 1\n"
                                 "drawPolyline 45.5,90 55.5,90\n"
                                 "setPen #0072b2 1\n"
                                 "drawPolyline 50.5,30 50.5,10\n"
                                 "setPen #0072b2 1\n"
                                 "drawPolyline 45.5,10 55.5,10\n"
                                 "fillRect 40.5,30 20x40 #a6cee4\n"
                                 "setPen #0072b2 1\n"
                                 "drawRect 40.5,30 20x40\n"
                                 "setPen #0072b2 2.25\n"
                                 "drawPolyline 40.5,50 60.5,50\n");
    boxes.setStyle({.share = 0.4, .whiskerReach = 0.25, .showsMean = true});
    stage.draw(boxes);
    EXPECT_THAT(stage.painter().linesOf("drawEllipse"),
                ElementsAre("drawEllipse 50.5,90 2.5x2.5", "drawEllipse 50.5,10 2.5x2.5"));
    EXPECT_THAT(stage.painter().linesOf("fillPolygon"),
                ElementsAre("fillPolygon #000000 47,50 50.5,46.5 54,50 50.5,53.5"));
}

TEST(BoxPlotSeries, LiesWhenHorizontal) {
    Stage stage(Scale(), 0.0, 10.0, Scale(), 0.0, 2.0);
    BoxPlotSeries boxes({1.0}, {oneToNine});
    boxes.setStyle({.orientation = Orientation::Horizontal, .share = 0.4});
    stage.draw(boxes);
    EXPECT_THAT(stage.painter().linesOf("drawRect"), ElementsAre("drawRect 30,40.5 40x20"));
    EXPECT_EQ(boxes.bounds(Scale(), Scale()).x, (Interval{1.0, 9.0}));
    EXPECT_EQ(boxes.bounds(Scale(), Scale()).y, (Interval{0.8, 1.2}));
}

TEST(BoxPlotSeries, LeavesOutGroupsWithoutSamplesOrPlace) {
    Stage stage(Scale(), 0.0, 5.0, Scale::log(), 0.1, 100.0);
    const BoxPlotSeries boxes({4.0, 1.0, notANumber, 2.0, 3.0},
                              {{}, {notANumber}, {1.0, 2.0}, {-1.0, 2.0}, {5.0, 5.0}});
    stage.draw(boxes);
    // A group of equal samples is a line.
    EXPECT_THAT(stage.painter().linesOf("drawRect"), testing::SizeIs(1));
    EXPECT_EQ(boxes.bounds(Scale(), Scale::log()).y, (Interval{5.0, 5.0}));
    EXPECT_EQ(boxes.bounds(Scale(), Scale()).y, (Interval{-1.0, 5.0}));
    EXPECT_EQ(boxes.statistics().size(), 5u);
    EXPECT_TRUE(BoxPlotSeries().bounds(Scale(), Scale()).x.isEmpty());
}

TEST(BoxPlotSeries, RefusesAStyleOutOfRange) {
    BoxPlotSeries boxes;
    EXPECT_FALSE(boxes.setStyle({.share = 0.0}));
    EXPECT_FALSE(boxes.setStyle({.share = 1.1}));
    EXPECT_FALSE(boxes.setStyle({.whiskerReach = -1.0}));
    EXPECT_FALSE(boxes.setStyle({.whiskerReach = notANumber}));
    EXPECT_FALSE(boxes.setStyle({.lineWidth = infinity}));
    EXPECT_FALSE(boxes.setStyle({.outlierSize = -1.0}));
    EXPECT_EQ(boxes.style().share, 0.5);
    EXPECT_TRUE(boxes.setStyle({.whiskerReach = infinity}));
}

TEST(BoxPlotSeries, FindsTheBoxUnderOrNearestToAPixel) {
    Stage stage;
    const BoxPlotSeries boxes({8.0, 2.0}, {oneToNine, {1.0, 2.0, 3.0}});
    const auto found = stage.nearest(boxes, {20.0, 60.0});
    ASSERT_TRUE(found);
    EXPECT_EQ(found->index, 1u);
    EXPECT_EQ(found->x, 2.0);
    EXPECT_EQ(found->y, 2.0);
    EXPECT_NEAR(found->distance, 10.0, 1e-9);
    EXPECT_EQ(stage.nearest(boxes, {75.0, 60.0})->distance, 0.0);
    EXPECT_FALSE(stage.nearest(BoxPlotSeries(), {75.0, 60.0}));
}

TEST(BoxPlotSeries, DrawsItsKeyLying) {
    Stage stage;
    BoxPlotSeries boxes;
    boxes.setStyle({.lineWidth = 1.0});
    EXPECT_EQ(stage.drawKey(boxes), "setPen #0072b2 1\n"
                                    "drawPolyline 0,5 20,5\n"
                                    "fillRect 3.5,0.5 13x9 #a6cee4\n"
                                    "setPen #0072b2 1\n"
                                    "drawRect 3.5,0.5 13x9\n"
                                    "setPen #0072b2 2.25\n"
                                    "drawPolyline 10,0.5 10,9.5\n");
}

TEST(BoxPlotSeries, DrawsOneOfManyOutliersPerPixel) {
    std::vector<double> samples(1'000'000, 1.0);
    for (std::size_t i = 0; i < 100'000; ++i)
        samples[i] = 2.0 + 1e-5 * static_cast<double>(i);
    Stage stage;
    stage.draw(BoxPlotSeries({5.0}, {std::move(samples)}));
    EXPECT_LE(stage.painter().count("drawEllipse"), 11u);
}

TEST(BoxPlotSeries, WithstandsHostileNumbers) {
    expectHarmlessForAll([](const std::vector<double>& x, const std::vector<double>& y) {
        auto boxes = std::make_shared<BoxPlotSeries>(
            x, std::vector<std::vector<double>>(std::min<std::size_t>(x.size(), 6), y));
        boxes->setStyle(
            {.orientation = x.size() % 2 == 1 ? Orientation::Horizontal : Orientation::Vertical,
             .showsMean = true});
        return boxes;
    });
}
