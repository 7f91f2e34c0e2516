// SPDX-License-Identifier: MIT
#include "CustomScale.h"

#include "LinearTicks.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace zembra {

namespace {

constexpr double nan = std::numeric_limits<double>::quiet_NaN();

double guarded(const std::function<double(double)>& function, double value) {
    try {
        return function ? function(value) : nan;
    } catch (...) {
        return nan;
    }
}

} // namespace

CustomScale::CustomScale(std::function<double(double)> forward,
                         std::function<double(double)> inverse, const Interval& domain)
    : forward(std::move(forward)), inverse(std::move(inverse)), limits(Scale::allReals()) {
    const Interval wanted{std::max(domain.min, limits.min), std::min(domain.max, limits.max)};
    if (wanted.min < wanted.max)
        limits = wanted;
    // Zooming out clamps to the ends of the domain, so they have to be values that can be placed:
    // where the function leaps to infinity, as a logarithm at 0, the end is the number beside it.
    const auto moveInward = [this](double& end, double other) {
        const double beside = std::nextafter(end, other);
        if (!contains(end) && contains(beside))
            end = beside;
    };
    moveInward(limits.min, limits.max);
    moveInward(limits.max, limits.min);
    const Interval probe = defaultRange();
    if (guarded(this->forward, probe.min) > guarded(this->forward, probe.max))
        direction = -1.0;
}

double CustomScale::transform(double value) const {
    return limits.contains(value) ? direction * guarded(forward, value) : nan;
}

double CustomScale::invTransform(double position) const {
    return std::isnan(position) ? nan : guarded(inverse, direction * position);
}

bool CustomScale::contains(double value) const {
    return limits.contains(value) && std::isfinite(guarded(forward, value));
}

Interval CustomScale::defaultRange() const {
    if (limits.contains(0.0) && limits.contains(1.0))
        return {0.0, 1.0};
    if (limits.contains(1.0) && limits.contains(10.0))
        return {1.0, 10.0};
    const double lowest = std::max(limits.min, std::min(limits.max - 1.0, 0.0));
    const double highest = std::min(limits.max, lowest + 1.0);
    return lowest < highest ? Interval{lowest, highest} : limits;
}

Interval CustomScale::rangeAround(double value) const {
    const double half = value == 0.0 ? 1.0 : std::abs(value) * 0.5;
    return {value - half, value + half};
}

TickSet CustomScale::ticks(double min, double max, const TickRequest& request) const {
    TickSet ticks = linearTicks(min, max, request);
    // A function that is not monotone, or not everywhere a number, may place values far off the
    // axis.
    Interval axis;
    axis.include(transform(min));
    axis.include(transform(max));
    const auto isOffAxis = [&](double value) { return !axis.contains(transform(value)); };
    std::erase_if(ticks.major, [&](const Tick& tick) { return isOffAxis(tick.value); });
    std::erase_if(ticks.minor, isOffAxis);
    return ticks;
}

} // namespace zembra
