// SPDX-License-Identifier: MIT
#include "SymLogScale.h"

#include "SymLogTicks.h"

#include <cmath>

namespace zembra {

SymLogScale::SymLogScale(double linearWidth, double base)
    : width(linearWidth), radix(base), logOfBase(std::log(base)) {}

double SymLogScale::transform(double value) const {
    const double ratio = std::abs(value) / width;
    // Where the quotient overflows, the one beside it has long ceased to count.
    const double even = std::isinf(ratio) && std::isfinite(value)
                            ? std::log(std::abs(value)) - std::log(width)
                            : std::log1p(ratio);
    return std::copysign(even / logOfBase, value);
}

double SymLogScale::invTransform(double position) const {
    const double even = std::abs(position) * logOfBase;
    const double grown = std::expm1(even);
    const double value = std::isinf(grown) && std::isfinite(position)
                             ? std::exp(even + std::log(width))
                             : width * grown;
    return std::copysign(value, position);
}

bool SymLogScale::contains(double value) const {
    return std::isfinite(value);
}

Interval SymLogScale::rangeAround(double value) const {
    const double half = std::abs(value) < width ? width : std::abs(value) * 0.5;
    return {value - half, value + half};
}

TickSet SymLogScale::ticks(double min, double max, const TickRequest& request) const {
    return symLogTicks(*this, min, max, request);
}

} // namespace zembra
