// SPDX-License-Identifier: MIT
#pragma once

#include "ExtentIndex.h"

#include <zembra/data/Samples.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <utility>

namespace zembra {

/// x computed from the place in the row.
struct EvenX {
    double start;
    double step;
    double operator[](std::size_t i) const { return start + static_cast<double>(i) * step; }
    void fetch(std::size_t) const {}
};

/// An array read as doubles.
template <class T>
struct ArrayOf {
    const T* values;
    double operator[](std::size_t i) const { return static_cast<double>(values[i]); }
    /// Begins to bring a value near that is needed soon.
    void fetch([[maybe_unused]] std::size_t i) const {
#if defined(__GNUC__)
        __builtin_prefetch(values + i);
#endif
    }
};

/// The memory behind `Samples`. Rings are told apart by `capacity`; their oldest sample lies at
/// `head`, and the index covers the ring's slots, whatever their order.
struct Samples::Store {
    std::vector<double> ownX, ownY;
    std::vector<float> ownXf, ownYf;

    const double* x = nullptr;
    const float* xf = nullptr;
    const double* y = nullptr;
    const float* yf = nullptr;
    EvenX even{0.0, 1.0};

    std::size_t count = 0;
    std::size_t capacity = 0;
    std::size_t head = 0;
    std::uint64_t revision = 0;

    /// In a ring, how many neighbours are out of order.
    std::size_t breaks = 0;
    mutable std::optional<bool> sorted;
    mutable ExtentIndex all{ExtentIndex::Domain::All};
    mutable ExtentIndex positive{ExtentIndex::Domain::Positive};

    struct KnownBounds {
        std::uint64_t revision = 0;
        SampleBounds bounds;
    };
    /// By whether only positive x, and only positive y, count.
    mutable std::array<std::array<std::optional<KnownBounds>, 2>, 2> known;
    struct CustomBounds {
        std::uint64_t revision;
        Scale x;
        Scale y;
        SampleBounds bounds;
    };
    mutable std::optional<CustomBounds> custom;

    bool isRing() const { return capacity > 0; }
    /// The slots behind the samples, filled or not.
    std::size_t slots() const { return isRing() ? capacity : count; }
    std::size_t slot(std::size_t i) const {
        const std::size_t s = head + i;
        return s >= slots() && isRing() ? s - capacity : s;
    }

    /// Calls `use` with how to read x and y by slot. Arrays of both have one precision.
    template <class Use>
    decltype(auto) read(Use&& use) const {
        if (xf)
            return use(ArrayOf<float>{xf}, ArrayOf<float>{yf});
        if (yf)
            return use(even, ArrayOf<float>{yf});
        if (x)
            return use(ArrayOf<double>{x}, ArrayOf<double>{y});
        return use(even, ArrayOf<double>{y});
    }

    /// Calls `use(first, last)` for the one or two unbroken rows of slots behind a range.
    template <class Use>
    void rows(std::size_t first, std::size_t last, Use&& use) const {
        if (first >= last)
            return;
        const std::size_t begin = slot(first);
        const std::size_t length = last - first;
        const std::size_t room = slots() - begin;
        use(begin, begin + std::min(length, room));
        if (length > room)
            use(std::size_t{0}, length - room);
    }

    bool isSorted() const;
    Interval extent(ExtentIndex::Domain domain, std::size_t first, std::size_t last) const;
    /// Of an unbroken row of slots.
    Interval extentOfSlots(ExtentIndex::Domain domain, std::size_t first, std::size_t last) const;
    SampleBounds boundsOf(bool positiveX, bool positiveY) const;
    SampleBounds computeBounds(bool positiveX, bool positiveY) const;
    SampleBounds computeBounds(const Scale& sx, const Scale& sy) const;
    void put(double newX, double newY);
};

/// The first index in [low, high] whose x is not below `value`, looked for around `guess` first.
template <class X>
std::size_t lowerBoundNear(const Samples::Store& store, const X& x, std::size_t low,
                           std::size_t high, std::size_t guess, double value) {
    const auto below = [&](std::size_t i) { return x[store.slot(i)] < value; };
    guess = std::clamp(guess, low, high);
    std::size_t stride = 1;
    if (guess < high && below(guess)) {
        low = guess + 1;
        while (low < high) {
            const std::size_t probe = low + std::min(stride, high - low) - 1;
            if (!below(probe)) {
                high = probe;
                break;
            }
            low = probe + 1;
            stride *= 4;
        }
    } else {
        high = guess;
        while (low < high) {
            const std::size_t probe = high - std::min(stride, high - low);
            if (below(probe)) {
                low = probe + 1;
                break;
            }
            high = probe;
            stride *= 4;
        }
    }
    while (low < high) {
        const std::size_t middle = low + (high - low) / 2;
        if (below(middle))
            low = middle + 1;
        else
            high = middle;
    }
    return low;
}

} // namespace zembra
