// SPDX-License-Identifier: MIT
#include "LogScale.h"

#include "LogTicks.h"

#include <cmath>
#include <limits>

namespace zembra {

LogScale::LogScale(double base) : base(base), logOfBase(std::log(base)) {}

double LogScale::transform(double value) const {
    if (!(value > 0.0))
        return std::numeric_limits<double>::quiet_NaN();
    // These two are exact at the powers of their base.
    if (base == 10.0)
        return std::log10(value);
    if (base == 2.0)
        return std::log2(value);
    return std::log(value) / logOfBase;
}

double LogScale::invTransform(double position) const {
    return std::pow(base, position);
}

bool LogScale::contains(double value) const {
    return std::isfinite(value) && value > 0.0;
}

Interval LogScale::domain() const {
    return {std::numeric_limits<double>::denorm_min(), std::numeric_limits<double>::max()};
}

TickSet LogScale::ticks(double min, double max, const TickRequest& request) const {
    return logTicks(min, max, base, request);
}

} // namespace zembra
