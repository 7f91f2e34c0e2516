// SPDX-License-Identifier: MIT
#include <zembra/scale/ScaleMap.h>

#include "support/TickChecks.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <stdexcept>
#include <utility>

using namespace zembra;
using namespace zembra::test;

namespace {

Scale squareRoot() {
    return Scale::custom([](double v) { return std::sqrt(v); }, [](double p) { return p * p; },
                         {0.0, std::numeric_limits<double>::max()});
}

} // namespace

TEST(CustomScale, ValuesLieAsTheTransformSays) {
    const ScaleMap map(squareRoot(), 0.0, 100.0, 0.0, 100.0);
    EXPECT_DOUBLE_EQ(map.transform(25.0), 50.0);
    EXPECT_DOUBLE_EQ(map.invTransform(50.0), 25.0);
    EXPECT_TRUE(std::isnan(map.transform(-1.0)));
    EXPECT_EQ(tickFault(squareRoot(), 0.0, 100.0, {}), "");
}

TEST(CustomScale, AFallingTransformRunsTheSameWay) {
    const auto reciprocal = [](double v) { return 1.0 / v; };
    const Scale scale = Scale::custom(reciprocal, reciprocal, {1e-3, 1e3});
    EXPECT_LT(scale.transform(1.0), scale.transform(2.0));
    EXPECT_DOUBLE_EQ(scale.invTransform(scale.transform(4.0)), 4.0);
}

TEST(CustomScale, RangesStayInsideTheDomain) {
    const Scale scale = squareRoot();
    const Interval range = scale.autoRange({0.0, 100.0}, 0.5);
    EXPECT_GE(range.min, 0.0);
    EXPECT_DOUBLE_EQ(range.max, 225.0);
    EXPECT_LT(scale.autoRange({0.0, 0.0}, 0.1).min, scale.autoRange({0.0, 0.0}, 0.1).max);
}

TEST(CustomScale, EndsOfTheDomainWhereTheTransformIsInfiniteAreLeftOut) {
    const Scale logit =
        Scale::custom([](double v) { return std::log(v / (1.0 - v)); },
                      [](double p) { return 1.0 / (1.0 + std::exp(-p)); }, {0.0, 1.0});
    const Interval domain = logit.domain();
    EXPECT_EQ(domain.min, std::nextafter(0.0, 1.0));
    EXPECT_EQ(domain.max, std::nextafter(1.0, 0.0));
    EXPECT_TRUE(logit.contains(domain.min) && logit.contains(domain.max));
    const Interval empty = logit.autoRange({}, 0.1);
    EXPECT_TRUE(logit.contains(empty.min) && logit.contains(empty.max));
    // However far out, a pixel gives a value that an axis can take for its range.
    const ScaleMap map(logit, 0.0, 100.0, 0.1, 0.9);
    for (const double pixel : {-1e5, -1e3, 1e3, 1e5})
        EXPECT_TRUE(logit.contains(map.invTransform(pixel))) << pixel;
    // Ends that can be placed stay.
    EXPECT_EQ(squareRoot().domain().min, 0.0);
}

TEST(CustomScale, WithoutDataTheRangeIsAnEasyOneOfTheDomain) {
    const auto same = [](double v) { return v; };
    const struct {
        Interval domain;
        Interval range;
    } cases[] = {
        {{-5.0, 5.0}, {0.0, 1.0}},        {{0.5, 100.0}, {1.0, 10.0}},
        {{1.0, 5.0}, {1.0, 2.0}},         {{20.0, 30.0}, {20.0, 21.0}},
        {{-30.0, -20.0}, {-21.0, -20.0}}, {{0.0, 0.5}, {0.0, 0.5}},
        {{1e300, 2e300}, {1e300, 2e300}},
    };
    for (const auto& c : cases)
        EXPECT_EQ(Scale::custom(same, same, c.domain).autoRange({}, 0.0), c.range) << c.domain.min;
}

TEST(CustomScale, ADomainThatIsNoneMeansAllNumbers) {
    const auto same = [](double v) { return v; };
    const double nan = std::numeric_limits<double>::quiet_NaN();
    for (const Interval& domain : {Interval{5.0, 1.0}, Interval{2.0, 2.0}, Interval{nan, nan}}) {
        const Scale scale = Scale::custom(same, same, domain);
        EXPECT_TRUE(scale.contains(-1e300));
        EXPECT_TRUE(scale.contains(1e300));
    }
}

TEST(CustomScale, FunctionsThatFailPlaceNothing) {
    const auto failing = [](double) -> double { throw std::runtime_error("no"); };
    const Scale scales[] = {Scale::custom(failing, failing), Scale::custom({}, {})};
    for (const Scale& scale : scales) {
        EXPECT_TRUE(std::isnan(scale.transform(1.0)));
        EXPECT_TRUE(std::isnan(scale.invTransform(1.0)));
        EXPECT_FALSE(scale.contains(1.0));
        EXPECT_TRUE(scale.ticks(0.0, 1.0, {}).major.empty());
        const Interval range = scale.autoRange({2.0, 3.0}, 0.1);
        EXPECT_TRUE(range.min < range.max && std::isfinite(range.min) && std::isfinite(range.max));
    }
}

TEST(CustomScale, TicksThatTheTransformPlacesOffTheAxisAreLeftOut) {
    const auto wave = [](double v) { return std::sin(v); };
    const Scale scale = Scale::custom(wave, wave);
    const Interval pixels{0.0, 600.0};
    // Between 2 and 4 a sine only falls.
    for (const auto& [min, max] : {std::pair{0.0, 40.0}, std::pair{2.0, 4.0}}) {
        const ScaleMap map(scale, 0.0, 600.0, min, max);
        const TickSet ticks = scale.ticks(min, max, {});
        EXPECT_FALSE(ticks.major.empty());
        for (const Tick& tick : ticks.major)
            EXPECT_TRUE(pixels.contains(map.transform(tick.value))) << tick.value;
        for (const double value : ticks.minor)
            EXPECT_TRUE(pixels.contains(map.transform(value))) << value;
    }
    const Scale even = Scale::linear();
    EXPECT_LT(scale.ticks(0.0, 40.0, {}).major.size(), even.ticks(0.0, 40.0, {}).major.size());
    EXPECT_EQ(scale.ticks(2.0, 4.0, {}).major.size(), even.ticks(2.0, 4.0, {}).major.size());
}

TEST(CustomScale, ASingleValueGetsHalfOfItselfOnEitherSide) {
    const auto same = [](double v) { return v; };
    const Scale scale = Scale::custom(same, same);
    EXPECT_EQ(scale.autoRange({8.0, 8.0}, 0.1), (Interval{4.0, 12.0}));
    EXPECT_EQ(scale.autoRange({-8.0, -8.0}, 0.1), (Interval{-12.0, -4.0}));
    EXPECT_EQ(scale.autoRange({0.0, 0.0}, 0.1), (Interval{-1.0, 1.0}));
}

TEST(CustomScale, WithoutDataItShowsTheFirstOfTheUsualRangesThatItHolds) {
    const auto same = [](double v) { return v; };
    struct Case {
        Interval domain, range;
    };
    constexpr Case cases[] = {
        {{-5.0, 5.0}, {0.0, 1.0}},        {{0.0, 1.0}, {0.0, 1.0}},
        {{0.5, 20.0}, {1.0, 10.0}},       {{1.0, 10.0}, {1.0, 10.0}},
        {{0.0, 0.5}, {0.0, 0.5}},         {{20.0, 30.0}, {20.0, 21.0}},
        {{-30.0, -20.0}, {-21.0, -20.0}}, {{20.0, 20.25}, {20.0, 20.25}},
        {{0.25, 4.0}, {0.25, 1.25}},
    };
    for (const Case& c : cases)
        EXPECT_EQ(Scale::custom(same, same, c.domain).autoRange({}, 0.0), c.range)
            << c.domain.min << " to " << c.domain.max;
}
