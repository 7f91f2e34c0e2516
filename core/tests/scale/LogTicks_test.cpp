// SPDX-License-Identifier: MIT
#include <zembra/scale/NumberFormat.h>
#include <zembra/scale/Scale.h>

#include "support/TickTexts.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <random>
#include <string>
#include <vector>

using namespace zembra;
using namespace zembra::test;

namespace {

// All factors times powers of ten from `min` to `max`, the powers being multiples of `step`.
std::vector<double> powerMultiples(const std::vector<int>& factors, int step, double min,
                                   double max) {
    std::vector<double> values;
    const auto end = static_cast<int>(std::log10(max)) + 1;
    for (int power = static_cast<int>(std::log10(min)) - 2; power <= end; ++power) {
        for (const int factor : factors) {
            const double value = decimal(factor, power);
            if (power % step == 0 && value >= min && value <= max)
                values.push_back(value);
        }
    }
    return values;
}

std::vector<double> without(std::vector<double> values, const std::vector<double>& others) {
    std::erase_if(values, [&](double value) {
        return std::find(others.begin(), others.end(), value) != others.end();
    });
    return values;
}

int stepAtLeast(double least) {
    for (const int step : {1, 2, 3, 5, 10, 20, 30, 50, 100, 200, 300})
        if (step >= least)
            return step;
    return 500;
}

const std::vector<int> oneToNine = {1, 2, 3, 4, 5, 6, 7, 8, 9};

} // namespace

TEST(LogTicks, EveryPowerOrMultipleThatFitsHasATickAndTheRestMinorOnes) {
    std::mt19937 dice(11);
    int told = 0;
    for (int i = 0; i < 700; ++i) {
        const int far = i % 3 == 0 ? 300 : i % 3 == 1 ? 12 : 2;
        std::uniform_int_distribution<int> powers(-far, far);
        std::uniform_int_distribution<int> leads(10, 99);
        // Every other range begins and ends at a power.
        const double a = decimal(i % 2 == 0 ? 10 : leads(dice), powers(dice));
        const double b = decimal(i % 4 < 2 ? 10 : leads(dice), powers(dice));
        const double min = std::min(a, b);
        const double max = std::max(a, b);
        const double decades = std::log10(max) - std::log10(min);
        const int maxMajor = 2 + i % 40;
        if (decades < 0.7)
            continue;
        const double room = decades * (1.0 + 1e-6) / maxMajor;
        const int step = stepAtLeast(room);
        std::vector<double> major;
        if (room < 0.30103)
            major = powerMultiples({1, 2, 5}, 1, min, max);
        else if (room < 0.47712 && decades < 2.0)
            major = powerMultiples({1, 3}, 1, min, max);
        else
            major = powerMultiples({1}, step, min, max);
        if (major.size() < 2 || major.size() > static_cast<std::size_t>(maxMajor))
            continue;
        ++told;
        const TickSet set = Scale::log().ticks(min, max, most(maxMajor));
        ASSERT_EQ(valuesOf(set), major) << min << " to " << max << ": " << maxMajor;
        const auto minor = step == 1    ? powerMultiples(oneToNine, 1, min, max)
                           : step <= 10 ? powerMultiples({1}, 1, min, max)
                                        : powerMultiples({1}, stepAtLeast(step / 10.0), min, max);
        const bool divides = step <= 10 || step % stepAtLeast(step / 10.0) == 0;
        ASSERT_EQ(set.minor, divides ? without(minor, major) : std::vector<double>())
            << min << " to " << max << ": " << maxMajor;
    }
    EXPECT_GT(told, 350);
}

TEST(LogTicks, PowersOfOtherBasesAreThinnedAsPowersOfTenAre) {
    std::mt19937 dice(12);
    for (int i = 0; i < 300; ++i) {
        std::uniform_int_distribution<int> powers(-60, 60);
        const int a = powers(dice);
        const int b = powers(dice);
        const int first = std::min(a, b);
        const int last = std::max(a, b);
        const int maxMajor = 2 + i % 20;
        // Within less than two powers, decades tell more.
        if (last - first < 2)
            continue;
        // Ends right at powers, or right inside of them.
        const bool inside = i % 2 == 0;
        const double min = std::ldexp(inside ? 1.001 : 1.0, first);
        const double max = std::ldexp(inside ? 0.999 : 1.0, last);
        const double span = std::log2(max) - std::log2(min);
        if (span < 2.01)
            continue;
        const int step = stepAtLeast(span * (1.0 + 1e-6) / maxMajor);
        std::vector<double> major;
        std::vector<double> minor;
        for (int power = first + (inside ? 1 : 0); power <= last - (inside ? 1 : 0); ++power)
            (power % step == 0 ? major : minor).push_back(std::ldexp(1.0, power));
        if (major.size() < 2)
            continue;
        const TickSet set = Scale::log(2.0).ticks(min, max, most(maxMajor));
        ASSERT_EQ(valuesOf(set), major) << first << " to " << last << ": " << maxMajor;
        if (step <= 10) {
            ASSERT_EQ(set.minor, minor) << first << " to " << last << ": " << maxMajor;
        }
    }
}

TEST(LogTicks, LabelsArePowersAlikeWhereTheRangeIsLong) {
    struct Case {
        double base, min, max;
        int maxMajor;
        const char* labels;
    };
    constexpr Case cases[] = {
        {10, 1, 3e6, 8, "1 10 100 1000 10000 10⁵ 10⁶"},
        {10, 1, 4e6, 8, "10⁰ 10¹ 10² 10³ 10⁴ 10⁵ 10⁶"},
        {10, 1e-6, 0.02, 6, "10⁻⁶ 10⁻⁵ 0.0001 0.001 0.01"},
        {10, 2e4, 2e5, 5, "20000 50000 10⁵ 2×10⁵"},
        {10, 2e-6, 2e-4, 8, "2×10⁻⁶ 5×10⁻⁶ 10⁻⁵ 2×10⁻⁵ 5×10⁻⁵ 0.0001 0.0002"},
        {10, 1e20, 1e23, 4, "10²⁰ 10²¹ 10²² 10²³"},
        {2, 0.01, 0.2, 8, "2⁻⁶ 2⁻⁵ 0.0625 0.125"},
        {2, 1e4, 1e6, 4, "16384 65536 2¹⁸"},
        {1000, 1, 1e12, 5, "10⁰ 10³ 10⁶ 10⁹ 10¹²"},
        {2.718281828459045, 0.3, 30, 8, "e⁻¹ 1 e e² e³"},
        {11, 1, 2000, 8, "1 11 121 1331"},
        {11, 11, 2e7, 3, "1331 11⁶"},
        {12345, 1, 1e9, 5, "12345⁰ 12345¹ 12345²"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(labelLine(Scale::log(c.base).ticks(c.min, c.max, most(c.maxMajor))), c.labels)
            << c.base << ": " << c.min << " to " << c.max;
}

TEST(LogTicks, WithinADecadeTheyStandWhereLinearOnesHaveRoom) {
    struct Case {
        double min, max;
        int maxMajor;
        const char* labels;
    };
    const Case cases[] = {
        {1, 5, 8, "2 4"},
        {1, 5.1, 8, "1 2 5"},
        // Right at seven tenths of a decade, multiples begin.
        {1, std::pow(10.0, 0.7), 8, "1 2 5"},
        {2, 9, 4, "2 4 6 8"},
        {4, 9, 2, "5"},
        {11, 19, 3, "15"},
        {1.1, 9.9, 3, "5"},
        {990, 1010, 5, "990 1000 1010"},
        {0.15, 0.19, 9, "0.15 0.16 0.17 0.18 0.19"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(labelLine(Scale::log().ticks(c.min, c.max, most(c.maxMajor))), c.labels)
            << c.min << " to " << c.max << ": " << c.maxMajor;
}

TEST(LogTicks, ASingleOneIsEnoughWhereNoMoreAreWanted) {
    EXPECT_EQ(labelLine(Scale::log().ticks(2, 300, most(1))), "200");
    EXPECT_LE(Scale::log().ticks(1e-300, 1e300, most(5000)).major.size(), 200u);
    EXPECT_LE(Scale::log(1.001).ticks(1e-300, 1e300, most(200)).minor.size(), 800u);
    TickRequest bare = most(5);
    bare.minor = false;
    for (const double base : {2.0, 10.0})
        EXPECT_TRUE(Scale::log(base).ticks(1, 1e4, bare).minor.empty());
    EXPECT_TRUE(Scale::log().ticks(2, 30, bare).minor.empty());
}

TEST(LogTicks, BelowZeroTheyMirrorThoseAboveIt) {
    for (const auto& [min, max] :
         {std::pair{100.0, 1e5}, {200.0, 900.0}, {150.0, 4e8}, {1e3, 1e40}}) {
        for (const int maxMajor : {3, 6, 12, 25}) {
            const TickSet above = Scale::symLog().ticks(min, max, most(maxMajor));
            const TickSet below = Scale::symLog().ticks(-max, -min, most(maxMajor));
            const std::size_t count = above.major.size();
            ASSERT_EQ(below.major.size(), count);
            for (std::size_t i = 0; i < count; ++i) {
                EXPECT_EQ(below.major[i].value, -above.major[count - 1 - i].value);
                EXPECT_EQ(below.major[i].label, "−" + above.major[count - 1 - i].label);
            }
            std::vector<double> mirrored(above.minor.rbegin(), above.minor.rend());
            for (double& value : mirrored)
                value = -value;
            EXPECT_EQ(below.minor, mirrored) << min << " to " << max << ": " << maxMajor;
        }
    }
}

TEST(LogTicks, PowersInBetweenEndWhereTheyWouldBeMoreThanAnyEngineMayReturn) {
    const Scale scale = Scale::log(2.0);
    EXPECT_EQ(scale.ticks(std::ldexp(1.0, -800), std::ldexp(1.0, 800), most(100)).minor.size(),
              720u);
    EXPECT_TRUE(scale.ticks(std::ldexp(1.0, -802), std::ldexp(1.0, 802), most(100)).minor.empty());
}
