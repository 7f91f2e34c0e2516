// SPDX-License-Identifier: MIT
#include "support/Numbers.h"

#include <zembra/scale/ScaleMap.h>

#include <gtest/gtest.h>

#include <cmath>

using namespace zembra;
using namespace zembra::test;

namespace {

struct Ends {
    double s1, s2;
};

constexpr Ends anyEnds[] = {
    {0.0, 1.0},
    {1.0, 0.0},
    {-0.1, 0.3},
    {1e308, -1e308},
    {-largest, largest},
    {0.0, smallest},
    {-smallest, 3 * smallest},
    {1.0, 1.0 + 4e-16},
    {1e308, 1.0000000000000005e308},
    {1.7e9, 1.7e9 + 1e-6},
    {1e-300, 1e300},
};

} // namespace

TEST(ScaleMap, EndsMapToEachOtherExactly) {
    const double pixels[][2] = {{0, 800}, {37.25, 761.1}, {560.3, 12.7}, {-0.1, 0.3}};
    for (const auto& p : pixels) {
        for (const Ends& e : anyEnds) {
            for (const Scale& scale : {Scale(), Scale::symLog(), Scale::time()}) {
                const ScaleMap map(scale, p[0], p[1], e.s1, e.s2);
                // The scale itself may be too coarse to tell the two ends apart.
                if (scale.transform(e.s1) == scale.transform(e.s2))
                    continue;
                EXPECT_EQ(map.transform(e.s1), p[0]) << e.s1 << " " << e.s2;
                EXPECT_EQ(map.transform(e.s2), p[1]) << e.s1 << " " << e.s2;
                EXPECT_EQ(map.invTransform(p[0]), e.s1) << e.s1 << " " << e.s2;
                EXPECT_EQ(map.invTransform(p[1]), e.s2) << e.s1 << " " << e.s2;
            }
        }
    }
}

TEST(ScaleMap, ThereAndBackIsAccurate) {
    for (const Ends& e : anyEnds) {
        const ScaleMap map(Scale(), 10.0, 810.0, e.s1, e.s2);
        for (int i = 0; i <= 100; ++i) {
            const double share = i * 0.01;
            const double value = e.s1 * (1.0 - share) + e.s2 * share;
            const double back = map.invTransform(map.transform(value));
            const double span = 0.5 * std::abs(0.5 * e.s2 - 0.5 * e.s1);
            const double magnitude = std::max(std::abs(e.s1), std::abs(e.s2));
            EXPECT_NEAR(back, value, std::max({span * 1e-14, magnitude * 3e-16, smallest}))
                << e.s1 << " " << e.s2;
        }
    }
    const ScaleMap log(Scale::log(), 0.0, 1000.0, 1e-12, 1e12);
    for (double value = 1e-12; value < 1e12; value *= 3.7)
        EXPECT_NEAR(log.invTransform(log.transform(value)) / value, 1.0, 1e-13);
}

TEST(ScaleMap, CollapsedEndsGiveTheFirstOne) {
    const ScaleMap noRange(Scale(), 10.0, 20.0, 5.0, 5.0);
    EXPECT_EQ(noRange.transform(-3.0), 10.0);
    EXPECT_EQ(noRange.invTransform(13.0), 5.0);
    const ScaleMap noPixels(Scale(), 10.0, 10.0, 5.0, 6.0);
    EXPECT_EQ(noPixels.invTransform(100.0), 5.0);
    EXPECT_EQ(noPixels.transform(5.5), 10.0);
}

TEST(ScaleMap, NotANumberStaysNone) {
    const ScaleMap map(Scale(), 0.0, 100.0, -largest, largest);
    for (const double value : {std::nan(""), infinity, -infinity}) {
        EXPECT_TRUE(std::isnan(map.transform(value)));
        EXPECT_TRUE(std::isnan(map.invTransform(value)));
    }
    const ScaleMap log(Scale::log(), 0.0, 100.0, 1.0, 10.0);
    EXPECT_TRUE(std::isnan(log.transform(0.0)));
    EXPECT_TRUE(std::isnan(log.transform(-1.0)));
    const ScaleMap outside(Scale::log(), 0.0, 100.0, -1.0, 10.0);
    EXPECT_TRUE(std::isnan(outside.transform(5.0)));
}

TEST(ScaleMap, PixelsBeyondTheEndsStayWithinTheDomain) {
    const ScaleMap map(Scale(), 0.0, 100.0, -largest, largest);
    EXPECT_EQ(map.invTransform(1e9), largest);
    EXPECT_EQ(map.invTransform(-1e9), -largest);
    const ScaleMap log(Scale::log(), 0.0, 100.0, 1.0, 10.0);
    EXPECT_EQ(log.invTransform(-1e9), smallest);
    EXPECT_EQ(log.invTransform(1e9), largest);
    const ScaleMap linear(Scale(), 0.0, 100.0, 0.0, 1.0);
    EXPECT_DOUBLE_EQ(linear.invTransform(150.0), 1.5);
}

TEST(ScaleMap, ReversedEndsRunTheOtherWay) {
    const Scale scales[] = {Scale(), Scale::log(), Scale::symLog(), Scale::time(),
                            Scale::categorical({"a", "b"})};
    for (const Scale& scale : scales) {
        const ScaleMap map(scale, 0.0, 100.0, 1.0, 10.0);
        const ScaleMap reversed(scale, 0.0, 100.0, 10.0, 1.0);
        for (const double value : {1.0, 2.0, 5.5, 10.0})
            EXPECT_NEAR(map.transform(value), 100.0 - reversed.transform(value), 1e-12);
    }
}
