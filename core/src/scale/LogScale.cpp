// SPDX-License-Identifier: MIT
#include "LogScale.h"

#include <fmt/format.h>

#include <cmath>
#include <limits>

namespace zembra {

double LogScale::transform(double value) const {
    return value > 0.0 ? std::log10(value) : std::numeric_limits<double>::quiet_NaN();
}

double LogScale::invTransform(double position) const {
    return std::pow(10.0, position);
}

bool LogScale::contains(double value) const {
    return std::isfinite(value) && value > 0.0;
}

TickSet LogScale::ticks(double min, double max, const TickRequest& request) const {
    TickSet set;
    const int first = static_cast<int>(std::ceil(std::log10(min)));
    const int last = static_cast<int>(std::floor(std::log10(max)));
    for (int power = first; power <= last && power < first + request.maxMajor; ++power)
        set.major.push_back({std::pow(10.0, power), fmt::format("1e{}", power), {}});
    return set;
}

} // namespace zembra
