// SPDX-License-Identifier: MIT
#include <zembra/scale/Scale.h>

#include "support/TickTexts.h"

#include <gtest/gtest.h>

using namespace zembra;
using namespace zembra::test;

namespace {

std::string names(const TickSet& set) {
    std::string text;
    for (const Tick& tick : set.major)
        text += tick.label;
    return text;
}

} // namespace

TEST(CategoricalScale, NamesStandAtWholeNumbers) {
    const Scale scale = Scale::categorical({"a", "b", "c", "d", "e", "f"});
    const TickSet set = scale.ticks(-0.5, 5.5, most(10));
    EXPECT_EQ(names(set), "abcdef");
    for (std::size_t i = 0; i < 6; ++i)
        EXPECT_EQ(set.major[i].value, static_cast<double>(i));
    EXPECT_TRUE(set.minor.empty());
    EXPECT_EQ(names(scale.ticks(1.5, 3.2, most(10))), "cd");
    EXPECT_EQ(names(scale.ticks(3.2, 1.5, most(10))), "cd");
}

TEST(CategoricalScale, NamesAreSkippedEvenlyWhereThereIsNoRoom) {
    const Scale scale = Scale::categorical({"a", "b", "c", "d", "e", "f"});
    EXPECT_EQ(names(scale.ticks(-0.5, 5.5, most(3))), "ace");
    EXPECT_EQ(names(scale.ticks(-0.5, 5.5, most(2))), "ad");
    EXPECT_EQ(names(scale.ticks(-1e308, 1e308, most(6))), "abcdef");
    const Scale many = Scale::categorical(std::vector<std::string>(100000, "x"));
    EXPECT_LE(many.ticks(-1.0, 1e5, most(1 << 30)).major.size(), 200u);
}

TEST(CategoricalScale, OutsideTheNamesThereIsNothing) {
    const Scale scale = Scale::categorical({"a", "b"});
    EXPECT_TRUE(scale.ticks(2.0, 1e300, most(5)).major.empty());
    EXPECT_TRUE(scale.ticks(-1e300, -1.0, most(5)).major.empty());
    EXPECT_TRUE(Scale::categorical({}).ticks(-1.0, 1.0, most(5)).major.empty());
}

TEST(CategoricalScale, RangesKeepHalfAStepOnBothSides) {
    const Scale scale = Scale::categorical({"a", "b", "c"});
    EXPECT_EQ(scale.autoRange({0.0, 2.0}, 0.05), (Interval{-0.5, 2.5}));
    EXPECT_EQ(scale.autoRange({1.0, 1.0}, 0.05), (Interval{0.5, 1.5}));
    EXPECT_EQ(scale.autoRange({-0.4, 2.4}, 0.05), (Interval{-0.5, 2.5}));
    EXPECT_EQ(scale.autoRange({-0.5, 2.5}, 0.05), (Interval{-0.5, 2.5}));
    EXPECT_EQ(scale.autoRange({}, 0.05), (Interval{-0.5, 2.5}));
    EXPECT_EQ(Scale::categorical({}).autoRange({}, 0.05), (Interval{-0.5, 0.5}));
}

TEST(CategoricalScale, NamesAreSkippedEvenlyUntilNoMoreThanWantedAreLeft) {
    struct Case {
        int names;
        double min, max;
        int maxMajor;
        std::vector<double> ticks;
    };
    const Case cases[] = {
        {11, 0, 10, 11, {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10}},
        {11, 0, 10, 10, {0, 2, 4, 6, 8, 10}},
        {11, 0, 10, 5, {0, 3, 6, 9}},
        {11, 0, 10, 3, {0, 5, 10}},
        {11, 0, 10, 2, {0, 10}},
        {11, 0, 10, 1, {0}},
        {11, -0.5, 10.5, 6, {0, 2, 4, 6, 8, 10}},
        {11, -100, 100, 11, {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10}},
        {11, 2.5, 7.5, 6, {3, 4, 5, 6, 7}},
        {11, 3, 7, 4, {4, 6}},
        {11, 10.5, 20, 4, {}},
        {11, -3, -0.5, 4, {}},
        {11, 9.5, 12, 4, {10}},
    };
    for (const Case& c : cases) {
        std::vector<std::string> names(static_cast<std::size_t>(c.names), "name");
        TickRequest request;
        request.maxMajor = c.maxMajor;
        std::vector<double> values;
        for (const Tick& tick : Scale::categorical(names).ticks(c.min, c.max, request).major)
            values.push_back(tick.value);
        EXPECT_EQ(values, c.ticks) << c.min << " to " << c.max << ": " << c.maxMajor;
    }
}

TEST(CategoricalScale, AutomaticRangesHoldWholeCategories) {
    const Scale scale = Scale::categorical({"a", "b", "c", "d", "e"});
    struct Case {
        Interval data, range;
    };
    constexpr Case cases[] = {
        {{0.0, 4.0}, {-0.5, 4.5}},    {{1.0, 3.0}, {0.5, 3.5}},   {{0.6, 2.4}, {0.5, 2.5}},
        {{-0.4, 4.4}, {-0.5, 4.5}},   {{-0.5, 4.5}, {-0.5, 4.5}}, {{0.5, 1.5}, {0.5, 1.5}},
        {{-0.75, 4.75}, {-1.5, 5.5}},
    };
    for (const Case& c : cases)
        EXPECT_EQ(scale.autoRange(c.data, 0.0), c.range) << c.data.min << " to " << c.data.max;
    EXPECT_EQ(scale.autoRange({}, 0.0), (Interval{-0.5, 4.5}));
    EXPECT_EQ(Scale::categorical({}).autoRange({}, 0.0), (Interval{-0.5, 0.5}));
}
