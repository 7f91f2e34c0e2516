// SPDX-License-Identifier: MIT
#include "support/HostileNumbers.h"

#include <zembra/series/Bins.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numeric>

using namespace zembra;
using namespace zembra::test;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

std::vector<double> counted(std::size_t count) {
    std::vector<double> values(count);
    std::iota(values.begin(), values.end(), 0.0);
    return values;
}

std::size_t binCount(const Bins& bins, const std::vector<double>& samples) {
    return bins.edgesFor(samples).size() - 1;
}

} // namespace

TEST(Bins, FollowThePublishedRules) {
    const std::vector<double> samples = counted(100);
    // ⌈log₂ 100⌉ + 1.
    EXPECT_EQ(binCount(Bins::byRule(BinRule::Sturges), samples), 8u);
    // s = 29.0115, so bins are 21.81 wide.
    EXPECT_EQ(binCount(Bins::byRule(BinRule::Scott), samples), 5u);
    // The quartiles are 24.75 and 74.25, so bins are 21.33 wide.
    EXPECT_EQ(binCount(Bins::byRule(BinRule::FreedmanDiaconis), samples), 5u);
    EXPECT_EQ(Bins().edgesFor(samples), Bins::byRule(BinRule::FreedmanDiaconis).edgesFor(samples));
    EXPECT_THAT(Bins::byRule(BinRule::Sturges).edgesFor({0.0, 8.0, 2.0, 6.0}),
                ElementsAre(0.0, 8.0 / 3.0, 16.0 / 3.0, 8.0));
}

TEST(Bins, FallBackWhereMostSamplesAreEqual) {
    const std::vector<double> samples = {1.0, 1.0, 1.0, 1.0, 1.0, 1.0, 1.0, 5.0};
    // No distance between the quartiles; s = 1.414, bins 2.468 wide.
    EXPECT_EQ(binCount(Bins::byRule(BinRule::FreedmanDiaconis), samples), 2u);
    EXPECT_THAT(Bins().edgesFor({3.0, 3.0}), ElementsAre(2.5, 3.5));
    EXPECT_THAT(Bins().edgesFor({}), IsEmpty());
}

TEST(Bins, AreAsManyAsAsked) {
    EXPECT_THAT(Bins::ofCount(2).edgesFor({0.0, 4.0}), ElementsAre(0.0, 2.0, 4.0));
    EXPECT_EQ(binCount(Bins::ofCount(0), {0.0, 4.0}), 1u);
    EXPECT_EQ(binCount(Bins::ofCount(10 * Bins::maxBins), {0.0, 4.0}), Bins::maxBins);
    // Doubles are not fine enough for a thousand bins here.
    EXPECT_EQ(binCount(Bins::ofCount(1000), {1.0, std::nextafter(1.0, 2.0)}), 1u);
}

TEST(Bins, AreAsWideAsAskedFromTheirOrigin) {
    EXPECT_THAT(Bins::ofWidth(2.0).edgesFor({1.0, 4.0}), ElementsAre(0.0, 2.0, 4.0, 6.0));
    EXPECT_THAT(Bins::ofWidth(2.0, 0.5).edgesFor({1.0, 4.0}), ElementsAre(0.5, 2.5, 4.5));
    const std::vector<double> samples = counted(100);
    for (const double width : {0.0, -1.0, notANumber, 1e-9})
        EXPECT_EQ(Bins::ofWidth(width).edgesFor(samples), Bins().edgesFor(samples)) << width;
}

TEST(Bins, OfAWidthThatDoublesCannotTellFallBack) {
    const struct {
        double width, origin, min, max;
    } cases[] = {
        // Neighbouring edges would be equal, or infinite, or the origin further away than can be.
        {0.01, 0.0, 1e17, 1e17 + 160.0}, {1e308, 0.0, -1.7e308, 1.7e308},
        {1e308, 0.0, 1e308, 1.7e308},    {1e306, -1.7e308, 1.0e308, 1.7e308},
        {1.0, notANumber, 1.0, 5.0},     {1.0, HUGE_VAL, 1.0, 5.0},
    };
    for (const auto& c : cases) {
        const std::vector<double> samples{c.min, c.max};
        EXPECT_EQ(Bins::ofWidth(c.width, c.origin).edgesFor(samples), Bins().edgesFor(samples))
            << c.width << " from " << c.origin;
    }
}

TEST(Bins, HoldEverySampleBesideTheirEdges) {
    for (int i = 1; i < 2000; ++i) {
        const double edge = 0.1 * i;
        for (const double value : {std::nextafter(edge, 0.0), edge, std::nextafter(edge, 1e9)}) {
            for (const std::vector<double>& samples :
                 {std::vector{value, value + 1.0}, std::vector{value - 1.0, value}}) {
                const auto edges = Bins::ofWidth(0.1).edgesFor(samples);
                ASSERT_LE(edges.front(), samples[0]) << i;
                ASSERT_GE(edges.back(), samples[1]) << i;
            }
        }
    }
}

TEST(Bins, OfOneValueSurroundItAtTheEndsOfDoubleToo) {
    const double huge = std::numeric_limits<double>::max();
    for (const double value : {0.0, 3.0, -1e15, huge, -huge}) {
        const auto edges = Bins().edgesFor({value, value});
        ASSERT_EQ(edges.size(), 2u) << value;
        EXPECT_TRUE(std::isfinite(edges[0]) && std::isfinite(edges[1])) << value;
        EXPECT_LT(edges[0], edges[1]) << value;
        EXPECT_LE(edges[0], value);
        EXPECT_GE(edges[1], value);
    }
}

TEST(Bins, KeepTheirEdgesSortedAndFinite) {
    EXPECT_THAT(Bins::withEdges({4.0, notANumber, 1.0, 2.0, 1.0}).edgesFor({7.0}),
                ElementsAre(1.0, 2.0, 4.0));
    EXPECT_EQ(Bins::withEdges({1.0, 1.0}).edgesFor({3.0}), Bins().edgesFor({3.0}));
}
