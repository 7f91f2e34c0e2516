// SPDX-License-Identifier: MIT
#include "SortedRows.h"

#include <limits>

namespace zembra {

std::vector<double> gathered(std::span<const double> values, std::span<const std::size_t> order) {
    std::vector<double> result;
    result.reserve(order.size());
    for (const std::size_t i : order)
        result.push_back(values[i]);
    return result;
}

double closestStep(std::span<const double> ascending, const Scale& scale) {
    double closest = std::numeric_limits<double>::infinity();
    double before = std::numeric_limits<double>::quiet_NaN();
    for (const double position : ascending) {
        const double even = scale.transform(position);
        if (!std::isfinite(even))
            continue;
        const double step = even - before;
        if (step > 0.0 && step < closest)
            closest = step;
        before = even;
    }
    return std::isfinite(closest) ? closest : 1.0;
}

Interval widened(double position, double width, const Scale& scale) {
    Interval covered;
    const double even = scale.transform(position);
    for (const double end : {even - 0.5 * width, even + 0.5 * width}) {
        const double value = scale.invTransform(end);
        covered.include(scale.contains(value) ? value : position);
    }
    return covered;
}

SampleRange rangeBetween(std::span<const double> ascending, const ScaleMap& map, double low,
                         double high) {
    const auto [least, greatest] = std::minmax({map.invTransform(low), map.invTransform(high)});
    if (std::isnan(least) || std::isnan(greatest))
        return {0, ascending.size()};
    const auto first = std::lower_bound(ascending.begin(), ascending.end(), least);
    const auto last = std::upper_bound(first, ascending.end(), greatest);
    return {static_cast<std::size_t>(first - ascending.begin()),
            static_cast<std::size_t>(last - ascending.begin())};
}

} // namespace zembra
