// SPDX-License-Identifier: MIT
#include "Statistics.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace viewer {

namespace {

std::vector<double> finiteOf(const std::vector<double>& values) {
    std::vector<double> finite;
    finite.reserve(values.size());
    std::ranges::copy_if(values, std::back_inserter(finite),
                         [](double value) { return std::isfinite(value); });
    return finite;
}

std::size_t distinctCount(std::vector<double> values) {
    std::ranges::sort(values);
    return static_cast<std::size_t>(std::unique(values.begin(), values.end()) - values.begin());
}

} // namespace

bool isStrictlyIncreasing(const std::vector<double>& values) {
    for (std::size_t i = 1; i < values.size(); ++i) {
        if (!(values[i] > values[i - 1]))
            return false;
    }
    return true;
}

bool isZigzag(const std::vector<double>& values) {
    const std::vector<double> finite = finiteOf(values);
    if (finite.size() < 4)
        return false;
    std::size_t rising = 0;
    std::size_t falling = 0;
    std::size_t turns = 0;
    int direction = 0;
    for (std::size_t i = 1; i < finite.size(); ++i) {
        const int step = finite[i] > finite[i - 1] ? 1 : finite[i] < finite[i - 1] ? -1 : 0;
        rising += step > 0 ? 1 : 0;
        falling += step < 0 ? 1 : 0;
        turns += step * direction < 0 ? 1 : 0;
        direction = step != 0 ? step : direction;
    }
    if (rising == 0 || falling == 0)
        return false;
    return turns * 5 > finite.size() || distinctCount(finite) * 5 < finite.size() * 2;
}

bool isUniqueWithin(const std::vector<std::uint32_t>& codes, const std::vector<double>& values) {
    std::vector<std::pair<std::uint32_t, double>> pairs;
    pairs.reserve(values.size());
    for (std::size_t i = 0; i < values.size(); ++i) {
        if (std::isfinite(values[i]))
            pairs.emplace_back(codes[i], values[i]);
    }
    std::ranges::sort(pairs);
    return std::ranges::adjacent_find(pairs) == pairs.end();
}

bool isGrid(const std::vector<double>& a, const std::vector<double>& b) {
    std::vector<std::pair<double, double>> pairs;
    pairs.reserve(a.size());
    for (std::size_t i = 0; i < a.size(); ++i) {
        if (std::isfinite(a[i]) && std::isfinite(b[i]))
            pairs.emplace_back(a[i], b[i]);
    }
    const std::size_t count = pairs.size();
    std::ranges::sort(pairs);
    if (count < 9 || std::ranges::adjacent_find(pairs) != pairs.end())
        return false;
    return distinctCount(finiteOf(a)) * 2 < count && distinctCount(finiteOf(b)) * 2 < count;
}

std::vector<double> fewDistinct(const std::vector<double>& values, std::size_t most) {
    std::vector<double> distinct;
    for (const double value : values) {
        if (!std::isfinite(value))
            continue;
        const auto place = std::ranges::lower_bound(distinct, value);
        if (place != distinct.end() && *place == value)
            continue;
        if (distinct.size() == most)
            return {};
        distinct.insert(place, value);
    }
    return distinct;
}

double magnitude(const std::vector<double>& values) {
    double largest = 0.0;
    for (const double value : values) {
        if (std::isfinite(value))
            largest = std::max(largest, std::abs(value));
    }
    return largest;
}

std::vector<double> roundBorders(const std::vector<double>& values, int classes) {
    const std::vector<double> finite = finiteOf(values);
    if (finite.empty())
        return {};
    const auto [least, most] = std::ranges::minmax(finite);
    const double width = most / classes - least / classes;
    if (!(width > 0.0) || !std::isfinite(width))
        return {};
    // The round width next to the wanted one: 1, 2, 2.5 or 5 times a power of ten.
    const double power = std::pow(10.0, std::floor(std::log10(width)));
    double step = power * 10.0;
    for (const double factor : {5.0, 2.5, 2.0, 1.0}) {
        if (width <= factor * power * 1.1)
            step = factor * power;
    }
    std::vector<double> borders;
    const double first = std::floor(least / step);
    for (int i = 0; i <= 2 * classes + 2; ++i) {
        const double border = (first + i) * step;
        borders.push_back(border);
        if (border >= most && i > 0)
            break;
    }
    return borders;
}

} // namespace viewer
