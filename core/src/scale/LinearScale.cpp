// SPDX-License-Identifier: MIT
#include "LinearScale.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

namespace zembra {

bool LinearScale::contains(double value) const {
    return std::isfinite(value);
}

Interval LinearScale::rangeAround(double value) const {
    const double half = value == 0.0 ? 1.0 : std::abs(value) * 0.5;
    return {value - half, value + half};
}

TickSet LinearScale::ticks(double min, double max, const TickRequest& request) const {
    TickSet set;
    const double rough = (max - min) / std::max(request.maxMajor - 1, 1);
    const double power = std::pow(10.0, std::floor(std::log10(rough)));
    if (!std::isfinite(power) || power <= 0.0 || !std::isfinite(5.0 * rough))
        return set;
    const double digit = rough / power;
    const double step = power * (digit <= 1.0   ? 1.0
                                 : digit <= 2.0 ? 2.0
                                 : digit <= 5.0 ? 5.0
                                                : 10.0);
    const int decimals = std::clamp(-static_cast<int>(std::floor(std::log10(step) + 1e-9)), 0, 17);
    const double first = std::ceil(min / step);
    for (int i = 0; i < request.maxMajor; ++i) {
        const double value = (first + i) * step;
        if (value > max)
            break;
        set.major.push_back({value, fmt::format("{:.{}f}", value + 0.0, decimals), {}});
    }
    return set;
}

} // namespace zembra
