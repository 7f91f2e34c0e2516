// SPDX-License-Identifier: MIT
#pragma once

#include <cmath>
#include <limits>

namespace zembra {

/// A closed interval of data values. A cheap value.
///
/// Range: empty until a finite value is included; NaN and infinities are never included.
struct Interval {
    double min = std::numeric_limits<double>::infinity();
    double max = -std::numeric_limits<double>::infinity();

    constexpr bool isEmpty() const { return !(min <= max); }
    bool contains(double value) const { return value >= min && value <= max; }

    void include(double value) {
        if (!std::isfinite(value))
            return;
        min = value < min ? value : min;
        max = value > max ? value : max;
    }
    void include(const Interval& other) {
        if (other.isEmpty())
            return;
        include(other.min);
        include(other.max);
    }

    friend constexpr bool operator==(const Interval&, const Interval&) = default;
};

} // namespace zembra
