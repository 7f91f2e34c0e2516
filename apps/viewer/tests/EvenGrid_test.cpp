// SPDX-License-Identifier: MIT
#include "EvenGrid.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

namespace viewer {
namespace {

using testing::HasSubstr;

constexpr double nan = std::numeric_limits<double>::quiet_NaN();

TEST(EvenGrid, PositionsInAnyOrderAreFound) {
    const EvenGrid grid = findEvenGrid({3, 1, 2, 1, 2, 3}, {10, 10, 10, 5, 5, 5}, 6);
    EXPECT_EQ(grid.problem, "");
    EXPECT_EQ(grid.x.first, 1.0);
    EXPECT_EQ(grid.x.count, 3U);
    EXPECT_EQ(grid.y.first, 5.0);
    EXPECT_EQ(grid.y.step, 5.0);
    EXPECT_EQ(grid.y.count, 2U);
    EXPECT_EQ(grid.x.indexOf(3.0), 2U);
}

TEST(EvenGrid, FreePlacesAndRoundedCoordinatesAreFine) {
    const EvenGrid grid = findEvenGrid({0, 0.333, 0.667, 1, nan}, {0, 1, 3, 0, 0}, 5);
    EXPECT_EQ(grid.problem, "");
    EXPECT_EQ(grid.x.count, 4U);
    EXPECT_EQ(grid.y.count, 4U);
    EXPECT_EQ(grid.x.indexOf(0.667), 2U);
}

TEST(EvenGrid, OtherPositionsAreRefused) {
    EXPECT_THAT(findEvenGrid({0, 1, 2.5}, {0, 1, 2}, 3).problem, HasSubstr("not evenly spaced"));
    EXPECT_THAT(findEvenGrid({1, 1, 1}, {0, 1, 2}, 3).problem, HasSubstr("not evenly spaced"));
    EXPECT_THAT(findEvenGrid({0, 1, 0}, {0, 1, 0}, 3).problem, HasSubstr("more than once"));
    EXPECT_THAT(findEvenGrid({0, 1, 500}, {0, 1, 500}, 3).problem, HasSubstr("fill too little"));
    EXPECT_NE(findEvenGrid({}, {}, 0).problem, "");
}

} // namespace
} // namespace viewer
