// SPDX-License-Identifier: MIT
#include <zembra/paint/Color.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <type_traits>

using namespace zembra;

TEST(Color, IsOpaqueBlackAtFirst) {
    EXPECT_EQ(Color(), Color(0, 0, 0, 255));
    EXPECT_EQ(Color(1, 2, 3).alpha(), 255);
}

TEST(Color, GivesBackItsEightBitComponents) {
    const Color color(1, 20, 254, 128);
    static_assert(std::is_same_v<decltype(color.red()), std::uint8_t>);
    EXPECT_EQ(color.red(), 1);
    EXPECT_EQ(color.green(), 20);
    EXPECT_EQ(color.blue(), 254);
    EXPECT_EQ(color.alpha(), 128);
}

TEST(Color, ClampsComponentsThatDoNotFit) {
    constexpr int most = std::numeric_limits<int>::max();
    EXPECT_EQ(Color(-1, 256, most, -most), Color(0, 255, 255, 0));
}

TEST(Color, ChangesItsAlphaAlone) {
    EXPECT_EQ(Color(1, 2, 3).withAlpha(4), Color(1, 2, 3, 4));
    EXPECT_NE(Color(1, 2, 3).withAlpha(4), Color(1, 2, 3));
}

TEST(Color, MixesByShare) {
    const Color from(0, 100, 200, 255);
    const Color to(255, 100, 0, 0);
    const struct {
        double share;
        Color expected;
    } rows[] = {
        {0.0, from},
        {1.0, to},
        {0.5, Color(128, 100, 100, 128)},
        {0.25, Color(64, 100, 150, 191)},
        {-3.0, from},
        {7.0, to},
        {std::numeric_limits<double>::infinity(), to},
        {std::nan(""), from},
    };
    for (const auto& row : rows)
        EXPECT_EQ(mix(from, to, row.share), row.expected) << row.share;
}
