// SPDX-License-Identifier: MIT
#include <zembra/scale/NumberFormat.h>
#include <zembra/scale/Scale.h>

#include "support/TickChecks.h"
#include "support/TickTexts.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using namespace zembra;
using namespace zembra::test;

TEST(SymLogScale, TicksRunThroughZero) {
    struct Case {
        double min, max;
        const char* labels;
    };
    constexpr Case cases[] = {
        {-1000, 1000, "−1000 −100 −10 0 10 100 1000"},
        {-0.1, 0.1, "−0.10 −0.05 0.00 0.05 0.10"},
        {0, 1e4, "0 10 100 1000 10000"},
        {-1e5, -100, "−10⁵ −10000 −1000 −100"},
        {-103, -102, "−103.0 −102.8 −102.6 −102.4 −102.2 −102.0"},
        {-1000004, -1000000, "−4 −3 −2 −1 0 (−1000000)"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(labelLine(Scale::symLog().ticks(c.min, c.max, most(8))), c.labels)
            << c.min << " to " << c.max;
}

TEST(SymLogScale, TicksSuitTheirRoom) {
    struct Case {
        double width, base, min, max;
        int maxMajor;
        const char* labels;
        std::size_t minor;
    };
    constexpr Case cases[] = {
        {1, 10, -1000, 1000, 2, "0", 4},
        {1, 10, -1000, 1000, 3, "−1000 0 1000", 0},
        {1, 10, -1000, 1000, 5, "−100 0 100", 0},
        {1, 10, -1000, 1000, 9, "−1000 −100 −10 0 10 100 1000", 50},
        {1, 10, -1000, 1000, 20, "−1000 −100 −10 −1 0 1 10 100 1000", 48},
        {1, 10, -1000, 1000, 30,
         "−1000 −500 −200 −100 −50 −20 −10 −1 0 1 10 20 50 100 200 500 1000", 40},
        {1, 10, 0, 1000, 15, "0 1 10 20 50 100 200 500 1000", 20},
        {1, 10, -5, 1e8, 8, "0 10² 10⁴ 10⁶ 10⁸", 0},
        {1, 10, -5, 1e8, 12, "0 10¹ 10² 10³ 10⁴ 10⁵ 10⁶ 10⁷ 10⁸", 70},
        {1, 10, -1e-3, 1e30, 8, "0 10⁵ 10¹⁰ 10¹⁵ 10²⁰ 10²⁵ 10³⁰", 0},
        {1, 10, -1e300, 1e300, 9, "−10³⁰⁰ −10²⁰⁰ −10¹⁰⁰ 0 10¹⁰⁰ 10²⁰⁰ 10³⁰⁰", 0},
        {0.1, 10, -10, 10, 9, "−10 −1 0 1 10", 34},
        {100, 10, -1e4, 1e4, 9, "−10000 −1000 0 1000 10000", 34},
        {100, 10, -1e4, 1e4, 15, "−10000 −5000 −2000 −1000 −100 0 100 1000 2000 5000 10000", 28},
        {1, 2, -16, 16, 11, "−16 −8 −4 −2 −1 0 1 2 4 8 16", 0},
        {1, 2, -16, 16, 5, "−16 −4 0 4 16", 0},
        {3, 2, -100, 100, 9, "−64 −16 −4 0 4 16 64", 0},
    };
    for (const Case& c : cases) {
        const TickSet set = Scale::symLog(c.width, c.base).ticks(c.min, c.max, most(c.maxMajor));
        EXPECT_EQ(labelLine(set), c.labels) << c.min << " to " << c.max << ": " << c.maxMajor;
        EXPECT_EQ(set.minor.size(), c.minor) << c.min << " to " << c.max << ": " << c.maxMajor;
    }
}

TEST(SymLogScale, MinorTicksRunThroughZero) {
    EXPECT_EQ(minorLine(Scale::symLog().ticks(-30, 20, most(5))),
              "-30 -20 -9 -8 -7 -6 -5 -4 -3 -2 -1 1 2 3 4 5 6 7 8 9 20");
    EXPECT_EQ(minorLine(Scale::symLog().ticks(-1000, 1000, most(2))), "-1000 -500 500 1000");
}

TEST(SymLogScale, TransformIsOddAndComesBack) {
    for (const double width : {1.0, 1e-300, 1e-3, 1e300}) {
        const Scale scale = Scale::symLog(width);
        EXPECT_EQ(scale.transform(0.0), 0.0);
        for (const double value : {5e-324, 1e-300, 1e-9, 0.3, 1.0, 7.0, 1e5, 1e100, 1e308}) {
            EXPECT_EQ(scale.transform(-value), -scale.transform(value));
            if (value / width < 1e-290)
                continue;
            const double back = scale.invTransform(scale.transform(value));
            EXPECT_NEAR(back / value, 1.0, 1e-12) << value << " width " << width;
        }
        EXPECT_TRUE(std::isnan(scale.transform(std::nan(""))));
    }
}

TEST(SymLogScale, TicksOfRandomRangesKeepEveryPromise) {
    RandomRanges ranges;
    const Scale scales[] = {Scale::symLog(), Scale::symLog(1e-3), Scale::symLog(1e6, 2.0)};
    const double widths[] = {1.0, 1e-3, 1e6};
    for (int i = 0; i < randomRangeCount; ++i) {
        const auto range = i % 2 == 0 ? ranges.nearZero(widths[i % 3]) : ranges.any();
        ASSERT_EQ(tickFault(scales[i % 3], range.first, range.second, most(1 + i % 15)), "")
            << "scale " << i % 3;
    }
}

TEST(SymLogScale, BasesWithMorePowersThanCanBeCountedHaveTicksToo) {
    const Scale scale = Scale::symLog(1.0, std::nextafter(1.0, 2.0));
    for (int maxMajor : {1, 2, 8})
        EXPECT_EQ(tickFault(scale, -1e6, 1e6, most(maxMajor)), "") << maxMajor;
    EXPECT_GE(scale.ticks(-1e6, 1e6, most(8)).major.size(), 2u);
}

TEST(SymLogScale, WidthsThatAreNoneMeanOne) {
    for (const double width : {0.0, -1.0, std::nan(""), HUGE_VAL})
        EXPECT_EQ(Scale::symLog(width).transform(5.0), Scale::symLog(1.0).transform(5.0)) << width;
}

TEST(SymLogScale, TicksBelowZeroFollowTheFormat) {
    const NumberFormat format = NumberFormat::exponent();
    TickRequest request = most(8);
    request.format = &format;
    EXPECT_EQ(labelLine(Scale::symLog().ticks(-1e6, -1e3, request)), "−1×10⁶ −1×10⁵ −1×10⁴ −1×10³");
}

TEST(SymLogScale, RangesNearZeroHaveLinearTicksThatKeepApartAtTheFarEnd) {
    struct Case {
        double min, max;
        int maxMajor;
        const char* labels;
    };
    constexpr Case cases[] = {
        {-1, 9, 8, "0 5"},      {-9, 1, 8, "−5 0"},       {0, 10, 10, "0 5 10"},
        {0, 11, 10, "0 1 10"},  {-10, 10, 6, "−10 0 10"}, {0, 2, 9, "0.0 0.5 1.0 1.5 2.0"},
        {-2, 2.9, 9, "−2 0 2"}, {1, 8, 12, "2 4 6 8"},    {-8, -1, 12, "−8 −6 −4 −2"},
        {2.9, 40, 5, "10 20"},  {3, 40, 5, "5 10 20"},    {-40, -3, 5, "−20 −10 −5"},
        {-5, 9, 2, "0"},        {-9, 5, 3, "−5 0 5"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(labelLine(Scale::symLog().ticks(c.min, c.max, most(c.maxMajor))), c.labels)
            << c.min << " to " << c.max << ": " << c.maxMajor;
}

TEST(SymLogScale, TicksAmongTheLeastNumbersKeepEveryPromise) {
    for (const double width : {5e-324, 1e-323, 3e-323, 1e-320}) {
        const Scale scale = Scale::symLog(width);
        for (const double top : {20.0, 400.0, 1e4})
            EXPECT_EQ(tickFault(scale, -width, top * width, most(9)), "") << width << ", " << top;
    }
}
