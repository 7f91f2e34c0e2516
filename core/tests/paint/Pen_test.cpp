// SPDX-License-Identifier: MIT
#include <zembra/paint/Pen.h>

#include <gtest/gtest.h>

using namespace zembra;

TEST(Pen, IsASolidBlackLineOfOnePixelAtFirst) {
    const Pen pen;
    EXPECT_EQ(pen.color(), Color(0, 0, 0));
    EXPECT_EQ(pen.widthF(), 1.0);
    EXPECT_EQ(pen.style(), PenStyle::Solid);
    EXPECT_TRUE(pen.dashPattern().empty());
    EXPECT_EQ(Pen(Color(1, 2, 3)).widthF(), 1.0);
}

TEST(Pen, NumbersItsStylesFromNoneToDashDotDot) {
    EXPECT_EQ(sizeof(PenStyle), sizeof(int));
    const PenStyle styles[] = {PenStyle::None, PenStyle::Solid,   PenStyle::Dash,
                               PenStyle::Dot,  PenStyle::DashDot, PenStyle::DashDotDot};
    for (int i = 0; i < 6; ++i)
        EXPECT_EQ(static_cast<int>(styles[i]), i);
}

TEST(Pen, KeepsWhatItIsGivenUnchanged) {
    Pen pen(Color(1, 2, 3, 4), 2.5);
    pen.setStyle(static_cast<PenStyle>(6));
    pen.setDashPattern({4.0, 2.0, 1.0});
    EXPECT_EQ(pen.color(), Color(1, 2, 3, 4));
    EXPECT_EQ(pen.widthF(), 2.5);
    EXPECT_EQ(static_cast<int>(pen.style()), 6);
    EXPECT_EQ(pen.dashPattern(), (std::vector<double>{4.0, 2.0, 1.0}));
    pen.setColor(Color(5, 6, 7));
    pen.setWidthF(0.0);
    pen.setDashPattern({});
    EXPECT_EQ(pen.color(), Color(5, 6, 7));
    EXPECT_EQ(pen.widthF(), 0.0);
    EXPECT_TRUE(pen.dashPattern().empty());
}

TEST(Pen, CopiesAreIndependent) {
    Pen pen(Color(1, 2, 3), 2.0);
    pen.setDashPattern({4.0, 2.0});
    const Pen copy = pen;
    EXPECT_EQ(copy, pen);
    pen.setWidthF(3.0);
    pen.setDashPattern({1.0, 1.0});
    EXPECT_EQ(copy.widthF(), 2.0);
    EXPECT_EQ(copy.dashPattern(), (std::vector<double>{4.0, 2.0}));
    EXPECT_NE(copy, pen);
}
