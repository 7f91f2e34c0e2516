// SPDX-License-Identifier: MIT
#include "support/HostileNumbers.h"

#include <zembra/series/HistogramSeries.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace zembra;
using namespace zembra::test;
using testing::ElementsAre;

TEST(HistogramSeries, CountsEachSampleOnce) {
    HistogramSeries histogram({0.0, 1.0, 2.0, 3.0, 4.0, notANumber, 2.5, 99.0});
    histogram.setBins(Bins::withEdges({0.0, 2.0, 4.0}));
    // The upper edge belongs to the last bin, and 99 to none.
    EXPECT_THAT(histogram.counts(), ElementsAre(2u, 4u));
    EXPECT_THAT(histogram.edges(), ElementsAre(0.0, 2.0, 4.0));
    EXPECT_THAT(histogram.heights(), ElementsAre(2.0, 4.0));
    histogram.setStyle({.height = HistogramHeight::Density});
    EXPECT_THAT(histogram.heights(), ElementsAre(2.0 / 7.0 / 2.0, 4.0 / 7.0 / 2.0));
}

TEST(HistogramSeries, DrawsABarForEachBin) {
    Stage stage;
    HistogramSeries histogram({1.0, 3.0, 3.0, 4.0});
    histogram.setBins(Bins::ofWidth(2.0));
    EXPECT_EQ(stage.draw(histogram), "fillRect 0,90 19x10 #0072b2\n"
                                     "fillRect 20,80 19x20 #0072b2\n"
                                     "fillRect 40,90 19x10 #0072b2\n");
    histogram.setStyle({.orientation = Orientation::Horizontal});
    EXPECT_EQ(stage.draw(histogram), "fillRect 0,80 10x19 #0072b2\n"
                                     "fillRect 0,60 20x19 #0072b2\n"
                                     "fillRect 0,40 10x19 #0072b2\n");
}

TEST(HistogramSeries, StandsOnTheLowEndOfALogarithmicScale) {
    Stage stage(Scale(), 10.0, 0.0, Scale::log(), 1.0, 100.0);
    HistogramSeries histogram(std::vector<double>(10, 5.0));
    histogram.setBins(Bins::withEdges({0.0, 4.0, 6.0, 10.0}));
    EXPECT_EQ(stage.draw(histogram), "fillRect 40,50 19x50 #0072b2\n");
    EXPECT_EQ(histogram.bounds(Scale(), Scale::log()).y, (Interval{10.0, 10.0}));
    EXPECT_EQ(histogram.bounds(Scale(), Scale::log()).x, (Interval{4.0, 6.0}));
}

TEST(HistogramSeries, CoversItsBinsAndZero) {
    HistogramSeries histogram({1.0, 3.0, 3.0});
    histogram.setBins(Bins::ofWidth(2.0));
    const Bounds bounds = histogram.bounds(Scale(), Scale());
    EXPECT_EQ(bounds.x, (Interval{0.0, 4.0}));
    EXPECT_EQ(bounds.y, (Interval{0.0, 2.0}));
    EXPECT_TRUE(bounds.yFromZero);
    EXPECT_TRUE(HistogramSeries().bounds(Scale(), Scale()).x.isEmpty());
    EXPECT_FALSE(HistogramSeries({notANumber}).bounds(Scale(), Scale()).yFromZero);
}

TEST(HistogramSeries, FindsTheBinUnderOrNearestToAPixel) {
    Stage stage;
    HistogramSeries histogram({1.0, 3.0, 3.0, 4.0});
    histogram.setBins(Bins::ofWidth(2.0));
    const auto inside = stage.nearest(histogram, {25.0, 85.0});
    ASSERT_TRUE(inside);
    EXPECT_EQ(inside->index, 1u);
    EXPECT_EQ(inside->x, 3.0);
    EXPECT_EQ(inside->y, 2.0);
    EXPECT_EQ(inside->distance, 0.0);
    EXPECT_EQ(stage.nearest(histogram, {99.0, 95.0})->index, 2u);
    EXPECT_FALSE(stage.nearest(HistogramSeries(), {99.0, 95.0}));
}

TEST(HistogramSeries, CostsAsMuchAsTheCanvasHasColumns) {
    std::vector<double> samples;
    for (int i = 0; i < 1'000'000; ++i)
        samples.push_back(1e-5 * i);
    samples.insert(samples.end(), 5, 2.34567);
    Stage stage;
    HistogramSeries histogram(std::move(samples));
    histogram.setBins(Bins::ofCount(300'000));
    stage.draw(histogram);
    EXPECT_EQ(histogram.counts().size(), Bins::maxBins);
    EXPECT_EQ(stage.painter().count(), 100u);
}

TEST(HistogramSeries, WithstandsHostileNumbers) {
    expectHarmlessForAll([](const std::vector<double>& a, const std::vector<double>& b) {
        auto histogram = std::make_shared<HistogramSeries>(a);
        if (b.size() > 2)
            histogram->setBins(Bins::withEdges(b));
        else if (!b.empty())
            histogram->setBins(Bins::ofWidth(b[0]));
        if (b.size() % 2 == 1)
            histogram->setStyle({Orientation::Horizontal, HistogramHeight::Density});
        return histogram;
    });
}
