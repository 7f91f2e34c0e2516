// SPDX-License-Identifier: MIT
#include "support/Numbers.h"

#include <zembra/series/ColorScale.h>

#include <gtest/gtest.h>

#include <cmath>

using namespace zembra;
using namespace zembra::test;

TEST(ColorScale, SharesFollowTheScaleOverTheRange) {
    struct Row {
        Scale scale;
        double min, max, value, share;
    };
    const Row rows[] = {
        {Scale::linear(), 0.0, 10.0, 2.5, 0.25},
        {Scale::linear(), 0.0, 10.0, -1.0, 0.0},
        {Scale::linear(), 0.0, 10.0, 11.0, 1.0},
        {Scale::log(), 1.0, 100.0, 10.0, 0.5},
        {Scale::log(), 1.0, 100.0, 1000.0, 1.0},
        {Scale::log(), 1.0, 100.0, 0.0, notANumber},
        {Scale::log(), 1.0, 100.0, -5.0, notANumber},
        {Scale::linear(), 0.0, 1.0, notANumber, notANumber},
        {Scale::linear(), 0.0, 1.0, infinity, notANumber},
        {Scale::linear(), -1.7e308, 1.7e308, 0.0, 0.5},
    };
    for (const Row& row : rows) {
        ColorScale colors(ColorMap::viridis(), row.scale);
        ASSERT_TRUE(colors.setRange(row.min, row.max));
        const double share = colors.share(row.value);
        if (std::isnan(row.share))
            EXPECT_TRUE(std::isnan(share)) << row.value;
        else
            EXPECT_NEAR(share, row.share, 1e-12) << row.value;
    }
}

TEST(ColorScale, RangesThatCannotBePlacedAreRefused) {
    ColorScale colors(ColorMap::viridis(), Scale::log());
    EXPECT_TRUE(colors.setRange(1.0, 10.0));
    EXPECT_FALSE(colors.setRange(0.0, 10.0));
    EXPECT_FALSE(colors.setRange(10.0, 1.0));
    EXPECT_FALSE(colors.setRange(3.0, 3.0));
    EXPECT_FALSE(colors.setRange(1.0, notANumber));
    EXPECT_FALSE(colors.setRange(1.0, infinity));
    EXPECT_EQ(colors.range(), (Interval{1.0, 10.0}));
    EXPECT_FALSE(colors.isAutoRange());
}

TEST(ColorScale, AnotherScaleDropsAFixedRangeThatItCannotPlace) {
    ColorScale colors;
    colors.setRange(-1.0, 1.0);
    colors.setScale(Scale::log());
    EXPECT_TRUE(colors.isAutoRange());
}

TEST(ColorScale, AnAutomaticRangeIsExactlyTheDataAndWidensASingleValue) {
    ColorScale colors;
    colors.setDataRange({2.0, 6.0});
    EXPECT_EQ(colors.range(), (Interval{2.0, 6.0}));
    EXPECT_EQ(colors.color(2.0), ColorMap::viridis().at(0.0));
    EXPECT_EQ(colors.color(6.0), ColorMap::viridis().at(1.0));
    colors.setDataRange({5.0, 5.0});
    EXPECT_LT(colors.range().min, 5.0);
    EXPECT_GT(colors.range().max, 5.0);
    colors.setDataRange({});
    EXPECT_LT(colors.range().min, colors.range().max);
}

TEST(ColorScale, ACenterTakesTheMiddleAndEqualDistancesEqualSteps) {
    ColorScale colors(ColorMap::coolWarm());
    colors.setCenter(0.0);
    colors.setDataRange({-1.0, 4.0});
    EXPECT_EQ(colors.range(), (Interval{-4.0, 4.0}));
    EXPECT_DOUBLE_EQ(colors.share(0.0), 0.5);
    EXPECT_DOUBLE_EQ(colors.share(-1.0), 0.375);
    EXPECT_DOUBLE_EQ(colors.share(1.0), 0.625);
    // A fixed range that is not even keeps the slope and leaves a part of the map out.
    ASSERT_TRUE(colors.setRange(-1.0, 4.0));
    EXPECT_EQ(colors.range(), (Interval{-1.0, 4.0}));
    EXPECT_DOUBLE_EQ(colors.share(-1.0), 0.375);
    EXPECT_DOUBLE_EQ(colors.share(4.0), 1.0);
}

TEST(ColorScale, ACenterIsMeasuredAsTheScaleMeasures) {
    ColorScale colors(ColorMap::coolWarm(), Scale::log());
    colors.setCenter(1.0);
    colors.setDataRange({0.1, 1000.0});
    EXPECT_NEAR(colors.range().min, 1e-3, 1e-12);
    EXPECT_NEAR(colors.range().max, 1e3, 1e-6);
    EXPECT_NEAR(colors.share(10.0), 0.5 + 1.0 / 6.0, 1e-9);
}

TEST(ColorScale, ACenterThatCannotBePlacedIsIgnored) {
    ColorScale colors(ColorMap::coolWarm(), Scale::log());
    colors.setDataRange({1.0, 100.0});
    for (double center : {notANumber, infinity, -1.0, 0.0}) {
        colors.setCenter(center);
        EXPECT_NEAR(colors.share(10.0), 0.5, 1e-12) << center;
    }
}

TEST(ColorScale, ValuesWithoutAPlaceTakeTheNanColor) {
    ColorScale colors;
    colors.setDataRange({0.0, 1.0});
    EXPECT_EQ(colors.color(notANumber), Color(0, 0, 0, 0));
    colors.setNanColor({1, 2, 3});
    for (double value : {notANumber, infinity, -infinity})
        EXPECT_EQ(colors.color(value), Color(1, 2, 3));
}

TEST(ColorScale, ACenterSoFarAwayThatNoRangeIsEvenLeavesTheDataAlone) {
    ColorScale scale;
    scale.setDataRange({-1e308, 1e308});
    scale.setCenter(1.5e308);
    EXPECT_EQ(scale.range(), (Interval{-1e308, 1e308}));
    scale.setScale(Scale::log());
    scale.setDataRange({1e-300, 1.0});
    scale.setCenter(1e200);
    EXPECT_EQ(scale.range(), (Interval{1e-300, 1.0}));
    scale.setDataRange({1.0, 1e300});
    scale.setCenter(1e-200);
    EXPECT_EQ(scale.range(), (Interval{1.0, 1e300}));
}

TEST(ColorScale, AnotherScaleKeepsAFixedRangeThatItCanPlace) {
    const auto same = [](double v) { return v; };
    const struct {
        Interval domain;
        Interval range;
    } cases[] = {
        {{0.0, 10.0}, {2.0, 8.0}},
        {{3.0, 10.0}, {4.0, 5.0}},
        {{0.0, 7.0}, {4.0, 5.0}},
    };
    for (const auto& c : cases) {
        ColorScale scale;
        scale.setDataRange({4.0, 5.0});
        ASSERT_TRUE(scale.setRange(2.0, 8.0));
        scale.setScale(Scale::custom(same, same, c.domain));
        EXPECT_EQ(scale.range(), c.range) << c.domain.min << " to " << c.domain.max;
    }
}

TEST(ColorScale, FollowsTheDataAgainAfterAFixedRange) {
    ColorScale scale;
    scale.setMap(ColorMap({Color(0, 0, 0), Color(255, 255, 255)}));
    scale.setDataRange({4.0, 5.0});
    ASSERT_TRUE(scale.setRange(0.0, 10.0));
    EXPECT_NE(scale.color(5.0), Color(255, 255, 255));
    scale.setAutoRange();
    EXPECT_EQ(scale.range(), (Interval{4.0, 5.0}));
    EXPECT_EQ(scale.color(4.0), Color(0, 0, 0));
    EXPECT_EQ(scale.color(5.0), Color(255, 255, 255));
}
