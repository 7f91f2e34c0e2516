// SPDX-License-Identifier: MIT
#include <zembra/paint/Geometry.h>

#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <cmath>

using namespace zembra;

// Other toolkits' rectangles and points are filled by position, and a library built apart reads the
// fields by their place.
TEST(Geometry, ValuesAreDoublesInTheirAgreedOrder) {
    const Rect rect{1.0, 2.0, 3.0, 4.0};
    EXPECT_EQ((std::bit_cast<std::array<double, 4>>(rect)), (std::array{1.0, 2.0, 3.0, 4.0}));
    EXPECT_EQ(rect.x, 1.0);
    EXPECT_EQ(rect.y, 2.0);
    EXPECT_EQ(rect.width, 3.0);
    EXPECT_EQ(rect.height, 4.0);
    const Point point{5.0, 6.0};
    EXPECT_EQ((std::bit_cast<std::array<double, 2>>(point)), (std::array{5.0, 6.0}));
    EXPECT_EQ(point.x, 5.0);
    EXPECT_EQ(point.y, 6.0);
    const TextExtent extent{7.0, 8.0};
    EXPECT_EQ((std::bit_cast<std::array<double, 2>>(extent)), (std::array{7.0, 8.0}));
    EXPECT_EQ(extent.width, 7.0);
    EXPECT_EQ(extent.height, 8.0);
}

TEST(Geometry, ARectangleKnowsItsEdges) {
    const Rect rect{1.0, 2.0, 3.0, 4.0};
    EXPECT_EQ(rect.left(), 1.0);
    EXPECT_EQ(rect.top(), 2.0);
    EXPECT_EQ(rect.right(), 4.0);
    EXPECT_EQ(rect.bottom(), 6.0);
    EXPECT_EQ(rect.grown(0.5), (Rect{0.5, 1.5, 4.0, 5.0}));
    EXPECT_EQ(rect.grown(-1.0), (Rect{2.0, 3.0, 1.0, 2.0}));
}

TEST(Geometry, ARectangleContainsItsInsideAndItsEdge) {
    const Rect rect{1.0, 2.0, 3.0, 4.0};
    const struct {
        Point point;
        bool inside;
    } rows[] = {
        {{2.0, 3.0}, true},    {{1.0, 2.0}, true},           {{4.0, 6.0}, true},
        {{0.999, 3.0}, false}, {{4.001, 3.0}, false},        {{2.0, 1.999}, false},
        {{2.0, 6.001}, false}, {{std::nan(""), 3.0}, false},
    };
    for (const auto& row : rows)
        EXPECT_EQ(rect.contains(row.point), row.inside) << row.point.x << ", " << row.point.y;
}

TEST(Geometry, ARectangleWithoutAreaIsEmpty) {
    EXPECT_FALSE((Rect{0.0, 0.0, 1e-300, 1.0}).isEmpty());
    EXPECT_TRUE(Rect{}.isEmpty());
    EXPECT_TRUE((Rect{0.0, 0.0, 1.0, 0.0}).isEmpty());
    EXPECT_TRUE((Rect{0.0, 0.0, -1.0, 1.0}).isEmpty());
    EXPECT_TRUE((Rect{0.0, 0.0, std::nan(""), 1.0}).isEmpty());
}
