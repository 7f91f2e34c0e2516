// SPDX-License-Identifier: MIT
#include "support/Numbers.h"

#include <zembra/data/Samples.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

using namespace zembra;
using namespace zembra::test;

namespace {

std::vector<double> roughValues(std::size_t count, unsigned seed) {
    std::mt19937 generator(seed);
    std::normal_distribution<double> normal;
    std::vector<double> values(count);
    for (double& v : values) {
        const auto dice = generator() % 50;
        v = dice == 0   ? notANumber
            : dice == 1 ? infinity
            : dice == 2 ? -infinity
                        : normal(generator);
    }
    return values;
}

template <class T>
Interval extentByHand(const std::vector<T>& values, std::size_t first, std::size_t last) {
    Interval result;
    for (std::size_t i = first; i < last; ++i)
        result.include(static_cast<double>(values[i]));
    return result;
}

template <class T>
void compareWithHand() {
    std::mt19937 generator(3);
    for (std::size_t count : {0u, 1u, 63u, 64u, 65u, 511u, 512u, 4095u, 4096u, 40000u}) {
        const std::vector<double> rough = roughValues(count, static_cast<unsigned>(count));
        const std::vector<T> values(rough.begin(), rough.end());
        const Samples samples = Samples::borrowedEvenlySpaced(0.0, 1.0, values);
        for (int i = 0; i < 300; ++i) {
            const std::size_t a = generator() % (count + 1);
            const std::size_t b = generator() % (count + 1);
            const std::size_t first = std::min(a, b);
            const std::size_t last = std::max(a, b);
            ASSERT_EQ(samples.yExtent(first, last), extentByHand(values, first, last))
                << count << ": " << first << " to " << last;
        }
    }
}

// One extreme and one gap anywhere must not escape, whichever way values are looked at together.
template <class T>
void moveAnExtremeAndAGap() {
    for (std::size_t count = 1; count < 70; ++count) {
        for (std::size_t place = 0; place < count; ++place) {
            for (const T extreme : {T(-3), T(3)}) {
                std::vector<T> values(count, T(1));
                values[(place + 5) % count] = static_cast<T>(notANumber);
                values[place] = extreme;
                const Samples samples = Samples::borrowedEvenlySpaced(0.0, 1.0, values);
                ASSERT_EQ(samples.yExtent(0, count), extentByHand(values, 0, count))
                    << count << ": " << place;
            }
        }
    }
}

template <class T>
bool areInOrder(const std::vector<T>& x) {
    return Samples::borrowed(x, x).isSorted();
}

template <class T>
void breakTheOrderAnywhere() {
    for (std::size_t count = 1; count < 70; ++count) {
        std::vector<T> x(count);
        for (std::size_t i = 0; i < count; ++i)
            x[i] = static_cast<T>(i / 2);
        ASSERT_TRUE(areInOrder(x));
        for (std::size_t place = 0; place < count; ++place) {
            std::vector<T> broken = x;
            broken[place] = static_cast<T>(notANumber);
            ASSERT_FALSE(areInOrder(broken)) << count << ": " << place;
            broken[place] = T(-1);
            ASSERT_EQ(areInOrder(broken), place == 0) << count << ": " << place;
        }
    }
}

std::vector<double> countUp(std::size_t count, double start = 0.0) {
    std::vector<double> values(count);
    for (std::size_t i = 0; i < count; ++i)
        values[i] = start + static_cast<double>(i);
    return values;
}

} // namespace

TEST(Samples, ExtentsAreThoseOfALookAtEverySample) {
    compareWithHand<double>();
    compareWithHand<float>();
    moveAnExtremeAndAGap<double>();
    moveAnExtremeAndAGap<float>();
}

TEST(Samples, TakeLessThanAByteOfIndexForEach) {
    const std::vector<float> values(1000000, 1.0f);
    const Samples samples = Samples::borrowedEvenlySpaced(0.0, 1.0, values);
    EXPECT_EQ(samples.indexBytes(), 0u);
    EXPECT_EQ(samples.yExtent(3, 999999), (Interval{1.0, 1.0}));
    EXPECT_GT(samples.indexBytes(), 0u);
    EXPECT_LT(samples.indexBytes(), values.size() / 3);
}

TEST(Samples, AreSortedWhereNoXIsBelowItsPredecessor) {
    const struct {
        std::vector<double> x;
        bool sorted;
    } cases[] = {
        {{}, true},
        {{1.0}, true},
        {{notANumber}, false},
        {{1.0, 1.0}, true},
        {{1.0, 0.5}, false},
        {{1.0, notANumber, 2.0}, false},
        {{notANumber, 1.0}, false},
        {{-1.0, 3.0, 4.0}, true},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(Samples(c.x, std::vector<double>(c.x.size())).isSorted(), c.sorted);
        Samples ring = Samples::streamed(10);
        ring.append(c.x, std::vector<double>(c.x.size()));
        EXPECT_EQ(ring.isSorted(), c.sorted);
    }
    breakTheOrderAnywhere<double>();
    breakTheOrderAnywhere<float>();
    std::vector<double> x = countUp(20000);
    EXPECT_TRUE(Samples(x, x).isSorted());
    for (std::size_t i : {1u, 4095u, 4096u, 4097u, 19999u}) {
        std::vector<double> broken = x;
        broken[i] = -1.0;
        EXPECT_FALSE(Samples(broken, x).isSorted()) << i;
    }
    EXPECT_TRUE(Samples::evenlySpaced(5.0, 0.1, x).isSorted());
    EXPECT_FALSE(Samples::evenlySpaced(5.0, -0.1, x).isSorted());
    EXPECT_FALSE(Samples::evenlySpaced(5.0, notANumber, x).isSorted());
    EXPECT_FALSE(Samples::evenlySpaced(-infinity, 1.0, x).isSorted());
    EXPECT_FALSE(Samples::evenlySpaced(1e308, 1e308, x).isSorted());
    EXPECT_TRUE(Samples::owned({1.0f, 2.0f, 2.0f}, std::vector<float>(3)).isSorted());
    EXPECT_FALSE(Samples::owned({1.0f, 2.0f, 1.5f}, std::vector<float>(3)).isSorted());
}

TEST(Samples, ReadTheSameHoweverTheyAreHeld) {
    const std::vector<double> x{1.0, 1.5, 2.0};
    const std::vector<double> y{4.0, notANumber, -2.0};
    const std::vector<float> xf(x.begin(), x.end());
    const std::vector<float> yf(y.begin(), y.end());
    Samples ring = Samples::streamed(3);
    ring.append(7.0, 7.0);
    ring.append(x, y);
    const Samples all[] = {Samples(x, y),
                           Samples::owned(xf, yf),
                           Samples::borrowed(x, y),
                           Samples::borrowed(xf, yf),
                           Samples::evenlySpaced(1.0, 0.5, y),
                           Samples::evenlySpaced(1.0, 0.5, yf),
                           Samples::borrowedEvenlySpaced(1.0, 0.5, y),
                           Samples::borrowedEvenlySpaced(1.0, 0.5, yf),
                           ring};
    for (const Samples& samples : all) {
        ASSERT_EQ(samples.size(), 3u);
        for (std::size_t i = 0; i < 3; ++i) {
            EXPECT_EQ(samples.x(i), x[i]);
            EXPECT_EQ(std::isnan(samples.y(i)), std::isnan(y[i]));
        }
        EXPECT_EQ(samples.y(2), -2.0);
        EXPECT_EQ(samples.lowerBound(1.2), 1u);
        EXPECT_EQ(samples.lowerBound(1.5), 1u);
        EXPECT_EQ(samples.lowerBound(9.0), 3u);
        EXPECT_EQ(samples.yExtent(0, 3), (Interval{-2.0, 4.0}));
        EXPECT_TRUE(samples.yExtent(1, 2).isEmpty());
    }
}

TEST(Samples, BoundsHoldWhatBothScalesCanPlace) {
    const std::vector<double> x{-1.0, 1.0, 2.0, 3.0, infinity};
    const std::vector<double> y{5.0, -4.0, 2.0, 100.0, 9.0};
    const struct {
        Scale x;
        Scale y;
        Interval expectedX;
        Interval expectedY;
    } cases[] = {
        {Scale::linear(), Scale::linear(), {-1.0, 3.0}, {-4.0, 100.0}},
        {Scale::log(), Scale::linear(), {1.0, 3.0}, {-4.0, 100.0}},
        {Scale::linear(), Scale::log(), {-1.0, 3.0}, {2.0, 100.0}},
        {Scale::log(), Scale::log(), {2.0, 3.0}, {2.0, 100.0}},
    };
    std::vector<double> turnedX(x.rbegin(), x.rend());
    std::vector<double> turnedY(y.rbegin(), y.rend());
    for (const auto& c : cases) {
        for (const Samples& samples : {Samples(x, y), Samples(turnedX, turnedY)}) {
            const SampleBounds bounds = samples.bounds(c.x, c.y);
            EXPECT_EQ(bounds.x, c.expectedX);
            EXPECT_EQ(bounds.y, c.expectedY);
        }
    }
    EXPECT_TRUE(Samples().bounds(Scale(), Scale()).x.isEmpty());
    EXPECT_TRUE(Samples({notANumber, 1.0}, {1.0, notANumber}).bounds(Scale(), Scale()).y.isEmpty());
}

TEST(Samples, BoundsUnderAnyScaleAreThoseOfALookAtEverySample) {
    const auto same = [](double v) { return v; };
    const Scale scales[] = {Scale::linear(),
                            Scale::log(),
                            Scale::custom(same, same, {2.0, 9.5}),
                            Scale::custom(same, same, {-3.0, 4.0}),
                            Scale::custom(same, same, {0.0, 1e9}),
                            Scale::custom(same, same, {1000.0, 1001.0})};
    const std::vector<double> rough = roughValues(100, 7);
    const std::vector<float> yf(rough.begin(), rough.end());
    const std::vector<double> y(yf.begin(), yf.end());
    std::vector<double> x(y.size());
    for (std::size_t i = 0; i < x.size(); ++i)
        x[i] = -10.0 + 0.25 * static_cast<double>(i);
    const std::vector<float> xf(x.begin(), x.end());
    Samples ring = Samples::streamed(x.size());
    ring.append(y, y);
    ring.append(x, y);
    const Samples all[] = {Samples(x, y),
                           Samples::owned(xf, yf),
                           Samples::evenlySpaced(-10.0, 0.25, y),
                           Samples::evenlySpaced(-10.0, 0.25, yf),
                           Samples(y, x),
                           Samples::owned(yf, xf),
                           ring};
    for (const Scale& sx : scales)
        for (const Scale& sy : scales)
            for (const Samples& samples : all) {
                SampleBounds expected;
                for (std::size_t i = 0; i < samples.size(); ++i) {
                    if (!sx.contains(samples.x(i)) || !sy.contains(samples.y(i)))
                        continue;
                    expected.x.include(samples.x(i));
                    expected.y.include(samples.y(i));
                }
                // The second answer comes from memory.
                for (int i = 0; i < 2; ++i) {
                    EXPECT_EQ(samples.bounds(sx, sy).x, expected.x);
                    EXPECT_EQ(samples.bounds(sx, sy).y, expected.y);
                }
            }
}

TEST(Samples, BoundsUnderAScaleOfTheHostFollowTheSamplesOfARing) {
    const auto same = [](double v) { return v; };
    const Scale upToTen = Scale::custom(same, same, {0.0, 10.0});
    Samples ring = Samples::streamed(4);
    ring.append(1.0, -5.0);
    ring.append(2.0, 3.0);
    EXPECT_EQ(ring.bounds(upToTen, upToTen).x, (Interval{2.0, 2.0}));
    ring.append(4.0, 6.0);
    EXPECT_EQ(ring.bounds(upToTen, upToTen).x, (Interval{2.0, 4.0}));
    EXPECT_EQ(ring.bounds(upToTen, upToTen).y, (Interval{3.0, 6.0}));
}

TEST(Samples, ARingAnswersAsItsLastSamplesDo) {
    std::mt19937 generator(5);
    for (std::size_t capacity : {1u, 2u, 100u, 1000u, 5000u}) {
        Samples ring = Samples::streamed(capacity);
        std::vector<double> x;
        std::vector<double> y;
        for (int step = 0; step < 60; ++step) {
            const std::size_t added = generator() % (capacity + capacity / 5 + 2);
            const std::vector<double> newY = roughValues(added, static_cast<unsigned>(generator()));
            std::vector<double> newX = countUp(added, static_cast<double>(x.size()));
            if (added > 0 && step % 7 == 3)
                newX[generator() % added] = -5.0;
            ASSERT_TRUE(ring.append(newX, newY));
            x.insert(x.end(), newX.begin(), newX.end());
            y.insert(y.end(), newY.begin(), newY.end());
            const auto kept = static_cast<std::ptrdiff_t>(std::min(capacity, x.size()));
            const Samples expected(std::vector<double>(x.end() - kept, x.end()),
                                   std::vector<double>(y.end() - kept, y.end()));
            ASSERT_EQ(ring.size(), expected.size());
            ASSERT_EQ(ring.isSorted(), expected.isSorted());
            const std::size_t a = generator() % (ring.size() + 1);
            const std::size_t b = generator() % (ring.size() + 1);
            ASSERT_EQ(ring.yExtent(std::min(a, b), std::max(a, b)),
                      expected.yExtent(std::min(a, b), std::max(a, b)));
            ASSERT_EQ(ring.bounds(Scale(), Scale::log()).y,
                      expected.bounds(Scale(), Scale::log()).y);
            ASSERT_EQ(ring.bounds(Scale(), Scale()).x, expected.bounds(Scale(), Scale()).x);
        }
        ring.clear();
        EXPECT_TRUE(ring.isEmpty());
        EXPECT_TRUE(ring.bounds(Scale(), Scale()).y.isEmpty());
    }
}

TEST(Samples, ARingKnowsTheExtentOfEachSampleAtOnce) {
    constexpr std::size_t capacity = 256;
    Samples ring = Samples::streamed(capacity);
    for (std::size_t i = 0; i < capacity; ++i)
        ring.append(static_cast<double>(i), 0.0);
    EXPECT_EQ(ring.yExtent(0, capacity), (Interval{0.0, 0.0}));
    for (std::size_t i = 0; i < 2 * capacity; ++i) {
        const auto x = static_cast<double>(capacity + i);
        ring.append(x, x);
        EXPECT_EQ(ring.yExtent(0, capacity).max, x);
        EXPECT_EQ(ring.yExtent(0, capacity).min, i < capacity - 1 ? 0.0 : x - capacity + 1.0);
    }
    ring.clear();
    for (std::size_t i = 0; i < capacity; ++i)
        ring.append(static_cast<double>(i), -5.0);
    EXPECT_EQ(ring.yExtent(0, capacity), (Interval{-5.0, -5.0}));
}

TEST(Samples, OnlyRingsGrow) {
    Samples owned({1.0}, {1.0});
    EXPECT_FALSE(owned.append(2.0, 2.0));
    EXPECT_FALSE(owned.clear());
    EXPECT_EQ(owned.size(), 1u);
    EXPECT_EQ(owned.revision(), 0u);
    Samples ring = Samples::streamed(4);
    const Samples copy = ring;
    EXPECT_TRUE(ring.append(2.0, 2.0));
    EXPECT_EQ(copy.size(), 1u);
    EXPECT_EQ(copy.revision(), 1u);
}

TEST(Samples, EverySingleSampleOfARingCountsAtOnce) {
    constexpr std::size_t capacity = 1100;
    Samples ring = Samples::streamed(capacity);
    for (std::size_t i = 0; i < capacity; ++i)
        ring.append(static_cast<double>(i), 0.0);
    for (std::size_t i = 0; i < 2 * capacity; ++i) {
        // A peak that the next sample's neighbours do not have, and later its end.
        const double peak = 1.0 + static_cast<double>(i);
        ASSERT_EQ(ring.yExtent(0, capacity).max, i == 0 ? 0.0 : peak - 1.0);
        ring.append(static_cast<double>(capacity + i), peak);
        ASSERT_EQ(ring.yExtent(0, capacity).max, peak) << i;
        ASSERT_EQ(ring.yExtent(0, capacity).min, i + 1 < capacity ? 0.0 : peak + 1.0 - capacity);
    }
}

TEST(Samples, ZerosAndNegativesAmongManyDoNotCountUnderALogarithm) {
    for (const double other : {0.0, -0.0, -5.0}) {
        std::vector<double> y(5000, 3.0);
        y[70] = 0.5;
        y[4000] = 40.0;
        for (const std::size_t i : {0u, 64u, 300u, 4097u, 4999u})
            y[i] = other;
        const std::vector<float> yf(y.begin(), y.end());
        for (const Samples& samples :
             {Samples(countUp(y.size(), 1.0), y), Samples::evenlySpaced(1.0, 1.0, yf)}) {
            EXPECT_EQ(samples.bounds(Scale(), Scale::log()).y, (Interval{0.5, 40.0}));
            EXPECT_EQ(samples.bounds(Scale(), Scale()).y, (Interval{std::min(other, 0.5), 40.0}));
        }
    }
}
