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
