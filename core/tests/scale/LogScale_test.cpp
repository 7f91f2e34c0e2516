// SPDX-License-Identifier: MIT
#include <zembra/scale/Scale.h>

#include "support/TickChecks.h"
#include "support/TickTexts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <map>

using namespace zembra;
using namespace zembra::test;

TEST(LogScale, TicksFollowTheNumberOfDecades) {
    struct Case {
        double base, min, max;
        const char* labels;
    };
    constexpr Case cases[] = {
        {10, 1, 10, "1 2 5 10"},
        {10, 2, 30, "2 5 10 20"},
        {10, 0.5, 2000, "1 10 100 1000"},
        {10, 1, 1e5, "1 10 100 1000 10000 10⁵"},
        {10, 3e4, 3e7, "10⁵ 10⁶ 10⁷"},
        {10, 1e-12, 1e12, "10⁻¹⁰ 10⁻⁵ 10⁰ 10⁵ 10¹⁰"},
        {10, 5e-324, 1.7e308, "10⁻³⁰⁰ 10⁻²⁰⁰ 10⁻¹⁰⁰ 10⁰ 10¹⁰⁰ 10²⁰⁰ 10³⁰⁰"},
        {10, 3, 5, "3.0 3.5 4.0 4.5 5.0"},
        {10, 1e6, 1.0001e6, "0 20 40 60 80 100 (+1000000)"},
        {2, 1, 100, "1 2 4 8 16 32 64"},
        {2, 0.1, 1.5, "0.125 0.25 0.5 1"},
        {2, 1e5, 1e6, "2¹⁷ 2¹⁸ 2¹⁹"},
        {2.718281828459045, 0.9, 60, "1 e e² e³ e⁴"},
        {1000, 1, 1e4, "1 10 100 1000 10000"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(labelLine(Scale::log(c.base).ticks(c.min, c.max, most(8))), c.labels)
            << c.base << ": " << c.min << " to " << c.max;
}

TEST(LogScale, MinorTicksFillDecadesOrCountThem) {
    const TickSet decade = Scale::log().ticks(1, 1000, most(5));
    ASSERT_EQ(decade.major.size(), 4u);
    EXPECT_EQ(decade.minor.size(), 24u);
    const TickSet many = Scale::log().ticks(1, 1e20, most(5));
    EXPECT_EQ(many.major.size() + many.minor.size(), 21u);
}

TEST(LogScale, MinorTicksFillTheRangeFromEndToEnd) {
    std::vector<double> multiples = {3, 4, 5, 6, 7, 8, 9};
    for (const double decade : {10.0, 100.0})
        for (int i = 2; i <= 9; ++i)
            multiples.push_back(i * decade);
    multiples.push_back(2000.0);
    multiples.push_back(3000.0);
    EXPECT_EQ(Scale::log().ticks(3, 3000, most(4)).minor, multiples);
    const TickSet powers = Scale::log(2.0).ticks(2, 1024, most(4));
    EXPECT_EQ(powers.major.size() + powers.minor.size(), 10u);
    EXPECT_EQ(powers.minor.front(), 2.0);
    EXPECT_EQ(powers.minor.back(), 1024.0);
}

TEST(LogScale, TicksSuitTheirRoom) {
    constexpr double e = 2.718281828459045;
    struct Case {
        double base, min, max;
        int maxMajor;
        const char* labels;
        const char* minor;
    };
    constexpr Case cases[] = {
        {10, 1, 1000, 3, "1 100", "10 1000"},
        {10, 1, 1000, 10, "1 2 5 10 20 50 100 200 500 1000",
         "3 4 6 7 8 9 30 40 60 70 80 90 300 400 600 700 800 900"},
        {10, 0.02, 40, 3, "20 40", "5 10 15 25 30 35"},
        {10, 0.02, 40, 20, "0.02 0.05 0.1 0.2 0.5 1 2 5 10 20",
         "0.03 0.04 0.06 0.07 0.08 0.09 0.3 0.4 0.6 0.7 0.8 0.9 3 4 6 7 8 9 30 40"},
        {10, 1, 1e200, 5, "10⁰ 10⁵⁰ 10¹⁰⁰ 10¹⁵⁰ 10²⁰⁰",
         "100000 1e+10 1e+15 1e+20 1e+25 1e+30 1e+35 1e+40 1e+45 1e+55 1e+60 1e+65 1e+70 1e+75 "
         "1e+80 1e+85 1e+90 1e+95 1e+105 1e+110 1e+115 1e+120 1e+125 1e+130 1e+135 1e+140 1e+145 "
         "1e+155 1e+160 1e+165 1e+170 1e+175 1e+180 1e+185 1e+190 1e+195"},
        {2, 1, 64, 3, "1 8 64", "2 4 16 32"},
        {2, 1, 64, 5, "1 4 16 64", "2 8 32"},
        {2, 1, 1e6, 5, "1 32 1024 32768",
         "2 4 8 16 64 128 256 512 2048 4096 8192 16384 65536 131072 262144 524288"},
        {e, 1, 1e4, 3, "1 e⁵", "2.71828 7.38906 20.0855 54.5982 403.429 1096.63 2980.96 8103.08"},
        {1000, 1, 1e9, 3, "10⁰ 10⁶", "1000 1e+09"},
        {1000, 1, 1e9, 5, "10⁰ 10³ 10⁶ 10⁹", ""},
    };
    for (const Case& c : cases) {
        const TickSet set = Scale::log(c.base).ticks(c.min, c.max, most(c.maxMajor));
        EXPECT_EQ(labelLine(set), c.labels) << c.base << ": " << c.min << " to " << c.max;
        EXPECT_EQ(minorLine(set), c.minor) << c.base << ": " << c.min << " to " << c.max;
    }
}

TEST(LogScale, OnlyPositiveNumbersHaveAPlace) {
    const Scale scale = Scale::log();
    for (const double value : {0.0, -0.0, -1.0, -1e308, std::nan("")}) {
        EXPECT_FALSE(scale.contains(value)) << value;
        EXPECT_TRUE(std::isnan(scale.transform(value))) << value;
    }
    EXPECT_TRUE(scale.ticks(-1, 10, most(5)).major.empty());
    EXPECT_TRUE(scale.ticks(0, 10, most(5)).major.empty());
}

TEST(LogScale, TransformIsExactAtPowersOfTenAndTwo) {
    for (int power = -300; power <= 300; ++power)
        EXPECT_EQ(Scale::log().transform(std::stod("1e" + std::to_string(power))), power);
    for (int power = -1000; power <= 1000; ++power)
        EXPECT_EQ(Scale::log(2).transform(std::ldexp(1.0, power)), power);
}

TEST(LogScale, BasesThatAreNoneMeanTen) {
    const double inf = std::numeric_limits<double>::infinity();
    for (const double base : {0.0, 1.0, -2.0, 0.5, std::nan(""), inf})
        EXPECT_EQ(Scale::log(base).transform(100.0), 2.0) << base;
}

TEST(LogScale, TicksOfRandomRangesKeepEveryPromise) {
    RandomRanges ranges;
    const Scale scales[] = {Scale::log(),    Scale::log(),
                            Scale::log(2),   Scale::log(2.718281828459045),
                            Scale::log(1.5), Scale::log(1000)};
    for (int i = 0; i < randomRangeCount; ++i) {
        const auto range = ranges.positive();
        ASSERT_EQ(tickFault(scales[i % 6], range.first, range.second, most(2 + i % 14)), "")
            << "scale " << i % 6;
    }
}

TEST(LogScale, LabelsHoldStillWhilePanning) {
    for (const double decades : {0.9, 2.0, 5.5, 30.0}) {
        std::map<double, std::string> seen;
        for (int i = 0; i < 1000; ++i) {
            const double low = -4.0 + i * 0.01;
            const TickSet set =
                Scale::log().ticks(std::pow(10, low), std::pow(10, low + decades), most(8));
            ASSERT_GE(set.major.size(), 2u);
            for (const Tick& tick : set.major) {
                const auto [at, isNew] = seen.insert({tick.value, tick.label});
                ASSERT_TRUE(isNew || at->second == tick.label)
                    << at->second << " became " << tick.label;
            }
        }
    }
}

TEST(LogScale, BasesThatAreNoPowerOfTenAreNotRepeatedWhereTheyAreLong) {
    EXPECT_EQ(labelLine(Scale::log(123456.0).ticks(1, 1e16, most(8))),
              "1 1.235×10⁵ 1.524×10¹⁰ 1.882×10¹⁵");
}

TEST(LogScale, BasesWithMorePowersThanCanBeCountedHaveTicksToo) {
    const Scale scale = Scale::log(std::nextafter(1.0, 2.0));
    for (int maxMajor : {1, 2, 8})
        EXPECT_EQ(tickFault(scale, 1.0, 1e6, most(maxMajor)), "") << maxMajor;
    EXPECT_GE(scale.ticks(1.0, 1e6, most(8)).major.size(), 2u);
}
