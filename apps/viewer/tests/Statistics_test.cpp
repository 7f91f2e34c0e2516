// SPDX-License-Identifier: MIT
#include "Statistics.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace viewer {
namespace {

using testing::DoubleNear;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr double nan = std::numeric_limits<double>::quiet_NaN();

TEST(Statistics, StrictlyIncreasingHasNoRepeatsAndNoGaps) {
    EXPECT_TRUE(isStrictlyIncreasing({}));
    EXPECT_TRUE(isStrictlyIncreasing({1.0, 2.0}));
    EXPECT_FALSE(isStrictlyIncreasing({1.0, 1.0}));
    EXPECT_FALSE(isStrictlyIncreasing({1.0, nan, 2.0}));
}

TEST(Statistics, RowsOfAGridAreAZigzag) {
    std::vector<double> x;
    for (int row = 0; row < 10; ++row) {
        for (int column = 0; column < 20; ++column)
            x.push_back(column);
    }
    EXPECT_TRUE(isZigzag(x));
}

TEST(Statistics, OrderedValuesAndClosedCurvesAreNoZigzag) {
    std::vector<double> falling;
    std::vector<double> circle;
    for (int i = 0; i < 200; ++i) {
        falling.push_back(-i / 3);
        circle.push_back(std::cos(i * 0.0311));
    }
    EXPECT_FALSE(isZigzag(falling));
    EXPECT_FALSE(isZigzag(circle));
    EXPECT_FALSE(isZigzag({1.0, 2.0, 1.0}));
    EXPECT_TRUE(isZigzag({1.0, 5.0, 2.0, 7.0, 3.0, 9.0, nan, 0.0}));
}

TEST(Statistics, UniqueWithinLooksAtPairs) {
    EXPECT_TRUE(isUniqueWithin({0, 0, 1, 1}, {1.0, 2.0, 1.0, 2.0}));
    EXPECT_FALSE(isUniqueWithin({0, 0, 1, 1}, {1.0, 2.0, 1.0, 1.0}));
    EXPECT_TRUE(isUniqueWithin({0, 0}, {nan, nan}));
}

TEST(Statistics, AGridRepeatsItsSidesButNoPosition) {
    std::vector<double> a;
    std::vector<double> b;
    for (int i = 0; i < 24; ++i) {
        a.push_back(i % 6);
        b.push_back(i / 6);
    }
    EXPECT_TRUE(isGrid(a, b));
    EXPECT_FALSE(isGrid(a, a));
    b.back() = 0.0;
    EXPECT_FALSE(isGrid(a, b));
}

TEST(Statistics, FewDistinctGivesUpBeyondTheMost) {
    EXPECT_THAT(fewDistinct({2.0, 1.0, nan, 2.0}, 2), ElementsAre(1.0, 2.0));
    EXPECT_THAT(fewDistinct({2.0, 1.0, 3.0}, 2), IsEmpty());
}

TEST(Statistics, TheMagnitudeLeavesOutWhatIsNotFinite) {
    EXPECT_EQ(magnitude({1.0, -5.0, nan, std::numeric_limits<double>::infinity()}), 5.0);
    EXPECT_EQ(magnitude({}), 0.0);
}

TEST(Statistics, BordersAreRoundAndHoldEverything) {
    EXPECT_THAT(roundBorders({0.1, 13.0}, 6), ElementsAre(0, 2, 4, 6, 8, 10, 12, 14));
    EXPECT_THAT(roundBorders({0.0, 30.0}, 6), ElementsAre(0, 5, 10, 15, 20, 25, 30));
    EXPECT_THAT(roundBorders({-0.011, 0.009}, 4),
                ElementsAre(DoubleNear(-0.015, 1e-12), DoubleNear(-0.01, 1e-12),
                            DoubleNear(-0.005, 1e-12), DoubleNear(0.0, 1e-12),
                            DoubleNear(0.005, 1e-12), DoubleNear(0.01, 1e-12)));
    EXPECT_THAT(roundBorders({3.0, 3.0}, 6), IsEmpty());
    EXPECT_THAT(roundBorders({nan}, 6), IsEmpty());
    const std::vector<double> wide = roundBorders({-1e308, 1e308}, 6);
    ASSERT_FALSE(wide.empty());
    EXPECT_LE(wide.front(), -1e308);
    EXPECT_GE(wide.back(), 1e308);
}

} // namespace
} // namespace viewer
