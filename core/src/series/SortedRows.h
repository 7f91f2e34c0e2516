// SPDX-License-Identifier: MIT
#pragma once

#include <zembra/scale/ScaleMap.h>
#include <zembra/series/Series.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <optional>
#include <span>
#include <vector>

namespace zembra {

/// A run of samples.
struct SampleRange {
    std::size_t first = 0;
    std::size_t last = 0;

    std::size_t count() const { return last - first; }
};

/// The places of samples in the order of their positions, equal ones as they came. Left out are
/// those with a position that is not finite and those that `keep` refuses.
template <class Keep>
std::vector<std::size_t> ascendingOrder(std::span<const double> positions, Keep keep) {
    std::vector<std::size_t> order;
    order.reserve(positions.size());
    bool sorted = true;
    for (std::size_t i = 0; i < positions.size(); ++i) {
        if (!std::isfinite(positions[i]) || !keep(i))
            continue;
        sorted = sorted && (order.empty() || positions[order.back()] <= positions[i]);
        order.push_back(i);
    }
    if (!sorted)
        std::stable_sort(order.begin(), order.end(),
                         [&](std::size_t a, std::size_t b) { return positions[a] < positions[b]; });
    return order;
}

/// The values at the given places.
std::vector<double> gathered(std::span<const double> values, std::span<const std::size_t> order);

/// The least distance between different neighbours on the scale's even measure; 1 where there are
/// no two positions that the scale can place.
double closestStep(std::span<const double> ascending, const Scale& scale);

/// What a position covers that is widened by half of `width`, a length on the scale's even measure.
Interval widened(double position, double width, const Scale& scale);

/// The samples with pixels between `low` and `high`.
SampleRange rangeBetween(std::span<const double> ascending, const ScaleMap& map, double low,
                         double high);

/// Calls `each(column, range)` for every pixel column between `low` and `high` that has samples,
/// `column` being its lesser edge.
/// Complexity: O(columns · log n).
template <class Each>
void forEachColumn(std::span<const double> ascending, const ScaleMap& map, double low, double high,
                   Each each) {
    const double from = std::floor(low);
    const double to = std::ceil(high);
    const bool forward = (map.p2() > map.p1()) == (map.s2() > map.s1());
    const auto columns = static_cast<std::size_t>(std::max(to - from, 0.0));
    const auto boundary = [&](std::size_t column) {
        const double offset = static_cast<double>(column);
        return map.invTransform(forward ? from + offset : to - offset);
    };
    const auto placeOf = [&](std::size_t first, double value) {
        if (std::isnan(value))
            return first;
        const auto begin = ascending.begin() + static_cast<std::ptrdiff_t>(first);
        return static_cast<std::size_t>(std::lower_bound(begin, ascending.end(), value) -
                                        ascending.begin());
    };
    std::size_t first = placeOf(0, boundary(0));
    for (std::size_t column = 0; column < columns && first < ascending.size(); ++column) {
        const std::size_t last = placeOf(first, boundary(column + 1));
        if (last > first) {
            const double offset = static_cast<double>(column);
            each(forward ? from + offset : to - offset - 1.0, SampleRange{first, last});
        }
        first = last;
    }
}

/// A sample and its distance.
struct FoundSample {
    std::size_t index = 0;
    double distance = 0.0;
};

/// Looks outwards from `start` for the sample in `range` with the least distance.
///
/// `gap(i)` is how far the sample is at least, along the positions alone; `distance(i)` is how far
/// it is, NaN for one that does not count.
template <class Gap, class Distance>
std::optional<FoundSample> nearestAround(std::size_t start, const SampleRange& range, Gap gap,
                                         Distance distance) {
    std::optional<FoundSample> best;
    const auto consider = [&](std::size_t i) {
        if (best && gap(i) > best->distance)
            return false;
        const double d = distance(i);
        if (std::isfinite(d) && (!best || d < best->distance))
            best = FoundSample{i, d};
        return true;
    };
    std::size_t up = std::clamp(start, range.first, range.last);
    std::size_t down = up;
    bool goesUp = true;
    bool goesDown = true;
    while (goesUp || goesDown) {
        goesUp = goesUp && up < range.last && consider(up++);
        goesDown = goesDown && down > range.first && consider(--down);
    }
    return best;
}

/// The least distance among all samples, in any order.
template <class Distance>
std::optional<FoundSample> nearestOfAll(std::size_t count, Distance distance) {
    std::optional<FoundSample> best;
    for (std::size_t i = 0; i < count; ++i) {
        const double d = distance(i);
        if (std::isfinite(d) && (!best || d < best->distance))
            best = FoundSample{i, d};
    }
    return best;
}

/// Bounds remembered for the pair of scales they were last asked for. Axes ask several times for
/// every frame.
class BoundsCache {
public:
    template <class Compute>
    const Bounds& get(std::uint64_t revision, const Scale& x, const Scale& y, Compute compute) {
        if (!entry || entry->revision != revision || !(entry->x == x) || !(entry->y == y))
            entry = Entry{revision, x, y, compute()};
        return entry->bounds;
    }

private:
    struct Entry {
        std::uint64_t revision;
        Scale x;
        Scale y;
        Bounds bounds;
    };
    std::optional<Entry> entry;
};

} // namespace zembra
