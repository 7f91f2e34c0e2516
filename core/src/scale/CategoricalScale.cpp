// SPDX-License-Identifier: MIT
#include "CategoricalScale.h"

#include "LinearTicks.h"
#include "LogTicks.h"

#include <algorithm>
#include <cmath>

namespace zembra {

Interval CategoricalScale::defaultRange() const {
    return {-0.5, std::max(static_cast<double>(names.size()), 1.0) - 0.5};
}

Interval CategoricalScale::rangeOver(const Interval& data, double) const {
    // Whole categories, also where the data tells the width of what stands in them. The hair keeps
    // what is a category wide out of its neighbours.
    constexpr double hair = 1e-9;
    return {std::min(std::floor(data.min + 0.5 + hair) - 0.5, data.min),
            std::max(std::ceil(data.max - 0.5 - hair) + 0.5, data.max)};
}

TickSet CategoricalScale::ticks(double min, double max, const TickRequest& request) const {
    TickSet set;
    const double first = std::max(std::ceil(min), 0.0);
    const double last = std::min(std::floor(max), static_cast<double>(names.size()) - 1.0);
    if (!(first <= last))
        return set;
    const int maxMajor = std::clamp(request.maxMajor, 1, majorCap);
    // The span alone decides how many names are skipped, so that the same ones stay while panning;
    // a range beyond the names counts as far as there are any.
    const double span = std::min(max - min, static_cast<double>(names.size()) - 1.0);
    int step = niceCount(span / maxMajor);
    while (std::floor(span / step) + 1.0 > maxMajor)
        step = niceCount(step + 1.0);
    const auto begin = static_cast<std::int64_t>(std::ceil(first / step)) * step;
    for (std::int64_t i = begin; i <= static_cast<std::int64_t>(last); i += step)
        set.major.push_back({static_cast<double>(i), names[static_cast<std::size_t>(i)], {}});
    return set;
}

} // namespace zembra
