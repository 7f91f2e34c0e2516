// SPDX-License-Identifier: MIT
#include "LinearScale.h"

#include "LinearTicks.h"

#include <cmath>

namespace zembra {

bool LinearScale::contains(double value) const {
    return std::isfinite(value);
}

Interval LinearScale::rangeAround(double value) const {
    // What is this close to zero is zero to the reader, too.
    constexpr double practicallyZero = 1e-300;
    const double half = std::abs(value) < practicallyZero ? 1.0 : std::abs(value) * 0.5;
    return {value - half, value + half};
}

TickSet LinearScale::ticks(double min, double max, const TickRequest& request) const {
    return linearTicks(min, max, request);
}

} // namespace zembra
