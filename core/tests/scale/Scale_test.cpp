// SPDX-License-Identifier: MIT
#include <zembra/scale/Scale.h>
#include <zembra/scale/ScaleMap.h>

#include "support/Numbers.h"
#include "support/TickChecks.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <vector>

using namespace zembra;
using namespace zembra::test;

namespace {

struct NamedScale {
    const char* name;
    Scale scale;
    bool tellsNumbers;
};

std::vector<NamedScale> everyScale() {
    return {
        {"linear", Scale(), true},
        {"log", Scale::log(), true},
        {"log 2", Scale::log(2.0), true},
        {"log 1.01", Scale::log(1.01), true},
        {"log 1e300", Scale::log(1e300), true},
        {"symlog", Scale::symLog(), true},
        {"symlog tiny", Scale::symLog(smallest, 2.0), true},
        {"symlog huge", Scale::symLog(largest, 10.0), true},
        {"time", Scale::time(), false},
        {"zone", Scale::time("Australia/Lord_Howe"), false},
        {"categorical", Scale::categorical({"a", "b", "c"}), false},
        {"custom",
         Scale::custom([](double v) { return std::cbrt(v); }, [](double p) { return p * p * p; }),
         true},
    };
}

std::vector<double> hostileNumbers() {
    std::vector<double> numbers = {std::nan(""),
                                   infinity,
                                   0.0,
                                   smallest,
                                   3 * smallest,
                                   2.2250738585072014e-308,
                                   1e-300,
                                   1e-17,
                                   0.1,
                                   1.0,
                                   1.0 + ulp,
                                   1.0 + 4 * ulp,
                                   2.0,
                                   1e5,
                                   1.7e9,
                                   1.7e9 + 3e-7,
                                   9.9e14,
                                   1e15,
                                   1e16,
                                   9007199254740993.0,
                                   1e300,
                                   1e308,
                                   std::nextafter(1e308, infinity),
                                   largest};
    const std::size_t count = numbers.size();
    for (std::size_t i = 0; i < count; ++i)
        numbers.push_back(-numbers[i]);
    return numbers;
}

} // namespace

TEST(Scale, NoPairOfNumbersBreaksAnyTickEngine) {
    const std::vector<double> numbers = hostileNumbers();
    for (const NamedScale& named : everyScale()) {
        for (const double first : numbers) {
            // Between neighbours there is room for a tick or two, however many are asked for.
            std::vector<double> others = numbers;
            others.push_back(std::nextafter(first, HUGE_VAL));
            for (const double second : others) {
                for (const int count : {-5, 0, 1, 2, 8, 1 << 30}) {
                    TickRequest request;
                    request.maxMajor = count;
                    const TickSet set = named.scale.ticks(first, second, request);
                    ASSERT_LE(set.major.size(), 200u);
                    ASSERT_LE(set.minor.size(), 800u);
                    ASSERT_LE(static_cast<int>(set.major.size()), std::max(count, 0));
                    for (std::size_t i = 0; i < set.major.size(); ++i) {
                        const double value = set.major[i].value;
                        ASSERT_TRUE(value >= std::min(first, second) &&
                                    value <= std::max(first, second))
                            << named.name << " " << first << " " << second;
                        ASSERT_TRUE(i == 0 || value > set.major[i - 1].value);
                    }
                    if (!named.tellsNumbers || count <= 0)
                        continue;
                    ASSERT_EQ(tickFault(named.scale, first, second, request), "") << named.name;
                }
            }
        }
    }
}

TEST(Scale, RangesThatAreNoneHaveNoTicks) {
    for (const NamedScale& named : everyScale()) {
        for (const double value : hostileNumbers())
            EXPECT_TRUE(named.scale.ticks(value, value, {}).major.empty()) << named.name;
        EXPECT_TRUE(named.scale.ticks(std::nan(""), 1.0, {}).major.empty()) << named.name;
        EXPECT_TRUE(named.scale.ticks(1.0, infinity, {}).major.empty()) << named.name;
    }
}

TEST(Scale, ReversedRangesHaveTheSameTicks) {
    for (const NamedScale& named : everyScale()) {
        const TickSet up = named.scale.ticks(1.0, 50.0, {});
        const TickSet down = named.scale.ticks(50.0, 1.0, {});
        ASSERT_EQ(up.major.size(), down.major.size()) << named.name;
        for (std::size_t i = 0; i < up.major.size(); ++i)
            EXPECT_EQ(up.major[i].label, down.major[i].label);
    }
}

TEST(Scale, AutomaticRangesAreFiniteAndOpenForAnyData) {
    const std::vector<double> numbers = hostileNumbers();
    for (const NamedScale& named : everyScale()) {
        const Interval domain = named.scale.domain();
        for (const double first : numbers) {
            for (const double second : numbers) {
                for (const double share : {0.0, 0.04, 0.5, 1e300, -1.0, std::nan("")}) {
                    for (const bool keep : {false, true}) {
                        const Interval data{first, second};
                        const Interval range = named.scale.autoRange(data, share, keep, keep);
                        ASSERT_TRUE(std::isfinite(range.min) && std::isfinite(range.max) &&
                                    range.min < range.max)
                            << named.name << " " << first << " " << second << " " << share
                            << " gave " << range.min << " " << range.max;
                        ASSERT_TRUE(domain.contains(range.min) && domain.contains(range.max))
                            << named.name << " " << first << " " << second;
                        const bool isInside =
                            first <= second && domain.contains(first) && domain.contains(second);
                        ASSERT_TRUE(!isInside || (range.min <= first && range.max >= second))
                            << named.name << " " << first << " " << second << " gave " << range.min
                            << " " << range.max;
                    }
                }
            }
        }
    }
}

TEST(Scale, RangesArePaddedAsTheScaleSpreadsThem) {
    struct Case {
        Scale scale;
        Interval data, range;
    };
    const Case cases[] = {
        {Scale(), {0.0, 10.0}, {-1.0, 11.0}},
        {Scale(), {}, {0.0, 1.0}},
        {Scale(), {5.0, 5.0}, {2.5, 7.5}},
        {Scale(), {0.0, 0.0}, {-1.0, 1.0}},
        {Scale(), {1e-310, 1e-310}, {-1.0, 1.0}},
        {Scale(), {1.5e308, 1.5e308}, {0.75e308, largest}},
        {Scale::log(), {1.0, 1e10}, {0.1, 1e11}},
        {Scale::log(), {100.0, 100.0}, {10.0, 1000.0}},
        {Scale::log(), {-5.0, 100.0}, {10.0, 1000.0}},
        {Scale::log(), {-5.0, -1.0}, {1.0, 10.0}},
        {Scale::log(), {smallest, smallest}, {smallest, 10 * smallest}},
        {Scale::time(), {0.0, 100.0}, {-10.0, 110.0}},
        {Scale::time(), {}, {0.0, 86400.0}},
    };
    for (const Case& c : cases) {
        const Interval range = c.scale.autoRange(c.data, 0.1);
        EXPECT_DOUBLE_EQ(range.min, c.range.min) << c.data.min << " " << c.data.max;
        EXPECT_DOUBLE_EQ(range.max, c.range.max) << c.data.min << " " << c.data.max;
    }
}

TEST(Scale, EndsThatAreKeptStayWhereTheDataEnds) {
    EXPECT_EQ(Scale().autoRange({0.0, 10.0}, 0.1, true, false), (Interval{0.0, 11.0}));
    EXPECT_EQ(Scale().autoRange({0.0, 10.0}, 0.1, false, true), (Interval{-1.0, 10.0}));
    EXPECT_EQ(Scale().autoRange({0.0, 0.0}, 0.1, true, false), (Interval{0.0, 1.0}));
    EXPECT_EQ(Scale().autoRange({4.0, 4.0}, 0.1, true, true), (Interval{4.0, 6.0}));
}

TEST(Scale, LinearScalesAreEqualAndOthersAreTheirCopies) {
    EXPECT_EQ(Scale(), Scale::linear());
    const Scale log = Scale::log();
    const Scale copy = log;
    EXPECT_EQ(log, copy);
    EXPECT_FALSE(log == Scale());
}

TEST(Scale, MinorTicksAreMadeOnRequestOnly) {
    const struct {
        Scale scale;
        double min, max;
    } cases[] = {
        {Scale::linear(), 0.0, 10.0},   {Scale::log(), 1.0, 20.0},   {Scale::log(), 1.0, 1e4},
        {Scale::log(), 1.0, 1e20},      {Scale::log(2.0), 1.0, 1e9}, {Scale::symLog(), -1e3, 1e3},
        {Scale::time(), 0.0, 864000.0}, {Scale::time(), 0.0, 0.5},
    };
    for (const auto& c : cases) {
        TickRequest request;
        request.maxMajor = 12;
        const TickSet with = c.scale.ticks(c.min, c.max, request);
        request.minor = false;
        const TickSet without = c.scale.ticks(c.min, c.max, request);
        EXPECT_FALSE(with.minor.empty()) << c.max;
        EXPECT_TRUE(without.minor.empty()) << c.max;
        ASSERT_EQ(with.major.size(), without.major.size()) << c.max;
        for (std::size_t i = 0; i < with.major.size(); ++i)
            EXPECT_EQ(with.major[i].value, without.major[i].value);
    }
}
