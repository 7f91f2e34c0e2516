// SPDX-License-Identifier: MIT
#include <zembra/scale/NumberFormat.h>
#include <zembra/scale/Scale.h>

#include "support/Numbers.h"
#include "support/TickChecks.h"
#include "support/TickTexts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <map>

using namespace zembra;
using namespace zembra::test;
using testing::ElementsAre;

namespace {

std::vector<std::string> labels(const TickSet& set) {
    std::vector<std::string> texts;
    for (const Tick& tick : set.major)
        texts.push_back(tick.label);
    return texts;
}

} // namespace

TEST(LinearScale, TicksStandAtOneTwoAndFive) {
    const Scale scale;
    EXPECT_THAT(labels(scale.ticks(0, 10, most(11))),
                ElementsAre("0", "1", "2", "3", "4", "5", "6", "7", "8", "9", "10"));
    EXPECT_THAT(labels(scale.ticks(0, 10, most(10))), ElementsAre("0", "2", "4", "6", "8", "10"));
    EXPECT_THAT(labels(scale.ticks(0, 10, most(5))), ElementsAre("0", "5", "10"));
    EXPECT_THAT(labels(scale.ticks(-0.3, 0.25, most(7))),
                ElementsAre("−0.3", "−0.2", "−0.1", "0.0", "0.1", "0.2"));
}

TEST(LinearScale, MinorTicksFillTheRangeFromEndToEnd) {
    std::vector<double> expected;
    for (int i = 1; i <= 49; ++i)
        if (i % 5 != 0)
            expected.push_back(2.0 * i / 10.0);
    EXPECT_EQ(Scale().ticks(0.2, 9.8, most(11)).minor, expected);
    EXPECT_THAT(Scale().ticks(-4, 4, most(3)).minor, ElementsAre(-4, -3, -2, -1, 1, 2, 3, 4));
}

TEST(LinearScale, MinorTicksEndWhereNumbersFallTogether) {
    struct Case {
        double min, max;
        std::size_t major, minor;
    };
    constexpr Case cases[] = {
        {1, 1 + 8 * ulp, 9, 0},   {1, 1 + 40 * ulp, 9, 0}, {1, 1 + 80 * ulp, 9, 27},
        {1e15, 1e15 + 40, 9, 32}, {1e15, 1e15 + 8, 9, 32}, {1e16, 1e16 + 40, 9, 0},
        {5e15, 5e15 + 20, 5, 16}, {1e16, 1e16 + 10, 6, 0}, {-1.7e308, 1.7e308, 7, 28}};
    for (const Case& c : cases) {
        const TickSet set = Scale().ticks(c.min, c.max, most(9));
        EXPECT_EQ(set.major.size(), c.major) << c.min << " to " << c.max;
        EXPECT_EQ(set.minor.size(), c.minor) << c.min << " to " << c.max;
    }
}

TEST(LinearScale, LongLabelsMoveWhatTheyShareToTheOffset) {
    struct Case {
        double min, max;
        std::vector<std::string> labels;
        std::string offset;
    };
    const std::vector<Case> cases = {
        {0, 99000, {"0", "20000", "40000", "60000", "80000"}, ""},
        {0, 1e5, {"0", "20", "40", "60", "80", "100"}, "×10³"},
        {0, 1e6, {"0.0", "0.2", "0.4", "0.6", "0.8", "1.0"}, "×10⁶"},
        {0, 1e-5, {"0", "2", "4", "6", "8", "10"}, "×10⁻⁶"},
        {-0.0002, 0.0002, {"−0.0002", "−0.0001", "0.0000", "0.0001", "0.0002"}, ""},
        {123456, 123460, {"3456", "3457", "3458", "3459", "3460"}, "+120000"},
        {-123460, -123456, {"−3460", "−3459", "−3458", "−3457", "−3456"}, "−120000"},
        {1.7e9, 1.7e9 + 4, {"0", "1", "2", "3", "4"}, "+1.7×10⁹"},
        {1013.2, 1013.6, {"1013.2", "1013.3", "1013.4", "1013.5", "1013.6"}, ""},
        {0.0123456, 0.0123458, {"45.60", "45.65", "45.70", "45.75", "45.80"}, "×10⁻⁶ +0.0123"},
        {1, 1 + 4 * ulp, {"0.0", "0.2", "0.4", "0.6", "0.8"}, "×10⁻¹⁵ +1"},
        {-1e308, 1e308, {"−100", "−50", "0", "50", "100"}, "×10³⁰⁶"},
    };
    for (const Case& c : cases) {
        const TickSet set = Scale().ticks(c.min, c.max, most(6));
        EXPECT_EQ(labels(set), c.labels) << c.min << " to " << c.max;
        EXPECT_EQ(set.offset, c.offset) << c.min << " to " << c.max;
    }
}

TEST(LinearScale, NoLabelIsMinusZero) {
    for (const Tick& tick : Scale().ticks(-1e-9, 3.0, most(8)).major)
        EXPECT_NE(tick.label.rfind("−0", 0), 0u) << tick.label;
    for (const Tick& tick : Scale().ticks(-0.0, 1.0, most(8)).major)
        EXPECT_FALSE(std::signbit(tick.value));
}

TEST(LinearScale, TicksFollowAStepOfTheHostUnlessItMakesTooMany) {
    TickRequest request = most(10);
    request.step = 0.25;
    EXPECT_THAT(labels(Scale().ticks(0.1, 1.1, request)),
                ElementsAre("0.25", "0.50", "0.75", "1.00"));
    request.step = 1.0 / 3.0;
    EXPECT_EQ(Scale().ticks(0.0, 2.0, request).major.size(), 7u);
    EXPECT_EQ(tickFault(Scale(), 0.0, 2.0, request), "");
    request.step = 1.0;
    EXPECT_EQ(Scale().ticks(0.5, 10.5, request).major.size(), 10u);
    EXPECT_EQ(Scale().ticks(0.0, 10.0, request).major.size(), 6u);
    request.step = 0.001;
    EXPECT_THAT(labels(Scale().ticks(0, 10, request)), ElementsAre("0", "2", "4", "6", "8", "10"));
    for (const double step :
         {-1.0, std::nan(""), std::numeric_limits<double>::infinity(), 1e300, 1e-300}) {
        request.step = step;
        EXPECT_EQ(Scale().ticks(1, 11, request).major.size(), 5u) << step;
    }
}

TEST(LinearScale, AnAxisHasATickEvenWhereFewAreWanted) {
    RandomRanges ranges;
    for (int i = 0; i < randomRangeCount / 10; ++i) {
        const auto range = ranges.any();
        for (const int count : {1, 2, 3, 5}) {
            if (!(range.first < range.second))
                continue;
            EXPECT_FALSE(Scale().ticks(range.first, range.second, most(count)).major.empty())
                << range.first << " " << range.second << " " << count;
        }
    }
}

TEST(LinearScale, TicksOfRandomRangesKeepEveryPromise) {
    RandomRanges ranges;
    for (int i = 0; i < randomRangeCount; ++i) {
        const auto range = ranges.any();
        ASSERT_EQ(tickFault(Scale(), range.first, range.second, most(2 + i % 14)), "");
    }
}

TEST(LinearScale, LabelsStayShort) {
    RandomRanges ranges;
    for (int i = 0; i < randomRangeCount / 4; ++i) {
        const auto range = ranges.any();
        for (const Tick& tick : Scale().ticks(range.first, range.second, most(8)).major) {
            // The minus sign takes three bytes and is one character.
            const std::size_t length =
                tick.label.size() - (tick.label.rfind("−", 0) == 0 ? 2u : 0u);
            ASSERT_LE(length, 7u) << tick.label << " " << range.first << " " << range.second;
        }
    }
}

TEST(LinearScale, LabelsHoldStillWhilePanning) {
    for (const double start : {0.0, -5.0, 20.0, 3e5, 1.5e9, 0.0123}) {
        for (const double span : {1.0, 7.3, 100.0, 2e-3}) {
            std::map<double, std::string> seen;
            double step = 0.0;
            for (int i = 0; i < 1000; ++i) {
                const double min = start + span * (i * 1e-3);
                const TickSet set = Scale().ticks(min, min + span, most(9));
                ASSERT_GE(set.major.size(), 2u);
                const double distance = set.major[1].value - set.major[0].value;
                step = i == 0 ? distance : step;
                ASSERT_NEAR(distance, step, 1e-3 * step) << start << " " << span << " " << i;
                for (const Tick& tick : set.major) {
                    const std::string text = tick.label + " " + set.offset;
                    const auto [at, isNew] = seen.insert({tick.value, text});
                    ASSERT_TRUE(isNew || at->second == text) << at->second << " became " << text;
                }
            }
        }
    }
}
