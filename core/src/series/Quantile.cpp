// SPDX-License-Identifier: MIT
#include <zembra/series/Quantile.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace zembra {

double quantile(std::span<const double> sorted, double share) {
    if (sorted.empty())
        return std::numeric_limits<double>::quiet_NaN();
    const double place = std::clamp(share, 0.0, 1.0) * static_cast<double>(sorted.size() - 1);
    const auto below = static_cast<std::size_t>(place);
    const std::size_t above = std::min(below + 1, sorted.size() - 1);
    return std::lerp(sorted[below], sorted[above], place - std::floor(place));
}

} // namespace zembra
