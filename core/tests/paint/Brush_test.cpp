// SPDX-License-Identifier: MIT
#include <zembra/paint/Brush.h>

#include <gtest/gtest.h>

using namespace zembra;

TEST(Brush, IsOpaqueBlackAtFirst) {
    EXPECT_EQ(Brush().color(), Color(0, 0, 0));
}

TEST(Brush, KeepsItsColor) {
    Brush brush(Color(1, 2, 3, 4));
    EXPECT_EQ(brush.color(), Color(1, 2, 3, 4));
    const Brush copy = brush;
    brush.setColor(Color(5, 6, 7));
    EXPECT_EQ(brush.color(), Color(5, 6, 7));
    EXPECT_EQ(copy, Brush(Color(1, 2, 3, 4)));
}
