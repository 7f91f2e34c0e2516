// SPDX-License-Identifier: MIT
#include <zembra/scale/NumberFormat.h>
#include <zembra/scale/Scale.h>

#include "support/TickTexts.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <random>
#include <string>
#include <vector>

using namespace zembra;
using namespace zembra::test;

namespace {

using Count = std::int64_t;

// 1, 2, 5, 10, 20 and so on.
Count rung(int i) {
    constexpr Count leads[] = {1, 2, 5};
    Count power = 1;
    for (int k = 0; k < i / 3; ++k)
        power *= 10;
    return leads[i % 3] * power;
}

// How many minor ticks' distances make a major one's.
Count partsOf(int i) {
    constexpr Count parts[] = {5, 4, 5};
    return parts[i % 3];
}

std::vector<Count> multiples(Count step, Count min, Count max) {
    std::vector<Count> found;
    for (Count n = min / step - 1; n * step <= max; ++n)
        if (n * step >= min)
            found.push_back(n * step);
    return found;
}

// Ranges whose ends are whole numbers, counted in a power of ten.
struct CountedRange {
    Count min = 0;
    Count max = 0;
    int exponent = 0;
};

std::vector<CountedRange> countedRanges() {
    std::mt19937 dice(7);
    std::vector<CountedRange> ranges;
    for (const int exponent : {-320, -315, -290, -27, -9, -4, 0, 3, 17, 280, 298}) {
        for (int i = 0; i < 24; ++i) {
            const Count far = i % 3 == 0 ? 90'000 : i % 3 == 1 ? 900 : 12;
            std::uniform_int_distribution<Count> ends(-far, far);
            const Count a = 10'000 * ends(dice);
            const Count b = 10'000 * ends(dice);
            if (a != b)
                ranges.push_back({std::min(a, b), std::max(a, b), exponent});
        }
    }
    return ranges;
}

std::vector<double> decimals(const std::vector<Count>& digits, int exponent) {
    std::vector<double> values;
    for (const Count d : digits)
        values.push_back(decimal(d, exponent));
    return values;
}

} // namespace

TEST(LinearTicks, EveryMultipleOfTheSmallestStepThatFitsHasATickAndAllItsPartsHaveMinorOnes) {
    for (const CountedRange& range : countedRanges()) {
        for (const int maxMajor : {1, 2, 3, 5, 8, 13, 60, 200}) {
            const Count span = range.max - range.min;
            int i = 0;
            while (span * 1'000'001 >= rung(i) * maxMajor * 1'000'000)
                ++i;
            auto major = multiples(rung(i), range.min, range.max);
            while (major.empty())
                major = multiples(rung(--i), range.min, range.max);
            major.resize(std::min<std::size_t>(major.size(), static_cast<std::size_t>(maxMajor)));
            auto minor = multiples(rung(i) / partsOf(i), range.min, range.max);
            std::erase_if(minor, [&](Count n) {
                return std::find(major.begin(), major.end(), n) != major.end();
            });
            const TickSet set = Scale().ticks(decimal(range.min, range.exponent),
                                              decimal(range.max, range.exponent), most(maxMajor));
            ASSERT_EQ(valuesOf(set), decimals(major, range.exponent))
                << range.min << " to " << range.max << "e" << range.exponent << ": " << maxMajor;
            ASSERT_EQ(set.minor, decimals(minor, range.exponent))
                << range.min << " to " << range.max << "e" << range.exponent << ": " << maxMajor;
        }
    }
}

TEST(LinearTicks, RangesLongerThanAnyDoubleAreThinnedAsOthersAre) {
    struct Case {
        double min, max;
        int maxMajor;
        std::vector<double> ticks;
    };
    // More than six steps of 5e307 lie between the first ends, though only six of their ticks.
    const Case cases[] = {
        {-1.35e308, 1.75e308, 6, {-1e308, 0.0, 1e308}},
        {-1.35e308, 1.75e308, 7, {-1e308, -5e307, 0.0, 5e307, 1e308, 1.5e308}},
        {-1.35e308, 1.75e308, 3, {0.0}},
        {-1.7e308, 1.7e308, 4, {-1e308, 0.0, 1e308}},
    };
    for (const Case& c : cases)
        EXPECT_EQ(valuesOf(Scale().ticks(c.min, c.max, most(c.maxMajor))), c.ticks) << c.maxMajor;
}

TEST(LinearTicks, AStepOfTheHostHasATickAtEveryMultipleAndNoMinorOnes) {
    for (const CountedRange& range : countedRanges()) {
        for (const int maxMajor : {3, 11, 60}) {
            for (const Count step : {10'000, 30'000, 170'000, 12'345'000, 1'000'000'000}) {
                if (range.max - range.min >= step * maxMajor)
                    continue;
                const auto major = multiples(step, range.min, range.max);
                if (major.empty())
                    continue;
                TickRequest request = most(maxMajor);
                request.step = decimal(step, range.exponent);
                if (request.step > 1e308)
                    continue;
                const TickSet set = Scale().ticks(decimal(range.min, range.exponent),
                                                  decimal(range.max, range.exponent), request);
                ASSERT_EQ(valuesOf(set), decimals(major, range.exponent))
                    << range.min << " to " << range.max << "e" << range.exponent << ": " << step;
                ASSERT_TRUE(set.minor.empty());
            }
        }
    }
}

TEST(LinearTicks, NeverAreMoreThanAnyEngineMayReturn) {
    for (const int maxMajor : {199, 200, 201, 5000}) {
        const TickSet set = Scale().ticks(0.0, 199.0, most(maxMajor));
        EXPECT_EQ(set.major.size(), maxMajor == 199 ? 100u : 200u);
        EXPECT_LE(set.minor.size(), 800u);
    }
    EXPECT_TRUE(Scale().ticks(0.0, 1.0, most(0)).major.empty());
    TickRequest bare = most(5);
    bare.minor = false;
    EXPECT_TRUE(Scale().ticks(0.0, 1.0, bare).minor.empty());
}

TEST(LinearTicks, LabelsTakeAnExponentOrAnOffsetOnlyWhereTheyWouldBeLong) {
    struct Case {
        double min, max;
        int maxMajor;
        const char* labels;
    };
    constexpr Case cases[] = {
        {0, 50000, 2, "0 50000"},
        {0, 99999, 2, "0 50000"},
        {0, 100000, 3, "0 50 100 (×10³)"},
        {99990, 99999, 4, "99990 99995"},
        {99990, 100010, 3, "99.99 100.00 100.01 (×10³)"},
        {-100010, -99990, 3, "−100.01 −100.00 −99.99 (×10³)"},
        {0.0001, 0.0005, 5, "0.0001 0.0002 0.0003 0.0004 0.0005"},
        {0.00001, 0.00005, 5, "10 20 30 40 50 (×10⁻⁶)"},
        {1e6, 3e6, 3, "1 2 3 (×10⁶)"},
        {-2e9, 2e9, 5, "−2 −1 0 1 2 (×10⁹)"},
        {1e12, 1e12 + 2, 3, "0 1 2 (+1×10¹²)"},
        {1234567, 1234569, 3, "4567 4568 4569 (+1230000)"},
        {12345670, 12345672, 3, "5670 5671 5672 (+1.234×10⁷)"},
        {12.34567, 12.34569, 3, "45.67 45.68 45.69 (×10⁻³ +12.3)"},
        {0.01234567, 0.01234569, 3, "45.67 45.68 45.69 (×10⁻⁶ +0.0123)"},
        {0.001234567, 0.001234569, 3, "4.567 4.568 4.569 (×10⁻⁶ +1.23×10⁻³)"},
        {-100000, 0, 3, "−100 −50 0 (×10³)"},
        {-1234567, 1234567, 3, "−1 0 1 (×10⁶)"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(labelLine(Scale().ticks(c.min, c.max, most(c.maxMajor))), c.labels)
            << c.min << " to " << c.max;
}

TEST(LinearTicks, AStepOfTheHostWithMoreDigitsThanAnyoneReadsIsRounded) {
    struct Case {
        double step, max;
        const char* labels;
    };
    constexpr Case cases[] = {
        {1.0 / 3.0, 1.5, "0.0000 0.3333 0.6667 1.0000 1.3333"},
        {2.0 / 3.0, 2.5, "0.0000 0.6667 1.3333 2.0000"},
        {123456, 400000, "0.00 123.46 246.91 370.37 (×10³)"},
        {12345, 40000, "0 12345 24690 37035"},
    };
    for (const Case& c : cases) {
        TickRequest request = most(10);
        request.step = c.step;
        EXPECT_EQ(labelLine(Scale().ticks(0.0, c.max, request)), c.labels) << c.step;
    }
}
