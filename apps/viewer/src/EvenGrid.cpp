// SPDX-License-Identifier: MIT
#include "EvenGrid.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

namespace viewer {

namespace {

// How far a position may be off, in steps: coordinates are often rounded to few digits.
constexpr double tolerance = 0.02;
// A grid with more free places than this for each value would be a picture of nothing.
constexpr double mostPlacesPerValue = 20.0;

std::optional<EvenSteps> findSteps(std::vector<double> values) {
    std::erase_if(values, [](double value) { return !std::isfinite(value); });
    std::ranges::sort(values);
    values.erase(std::unique(values.begin(), values.end()), values.end());
    if (values.size() < 2)
        return std::nullopt;
    const double width = values.back() - values.front();
    double least = width;
    for (std::size_t i = 1; i < values.size(); ++i)
        least = std::min(least, values[i] - values[i - 1]);
    const double steps = std::round(width / least);
    if (!std::isfinite(steps) || steps > 1e6)
        return std::nullopt;
    EvenSteps found{values.front(), width / steps, static_cast<std::size_t>(steps) + 1};
    for (const double value : values) {
        const double place = (value - found.first) / found.step;
        if (std::abs(place - std::round(place)) > tolerance)
            return std::nullopt;
    }
    return found;
}

} // namespace

std::size_t EvenSteps::indexOf(double value) const {
    return static_cast<std::size_t>(std::max(0.0, std::round((value - first) / step)));
}

EvenGrid findEvenGrid(const std::vector<double>& x, const std::vector<double>& y,
                      std::size_t rows) {
    EvenGrid grid;
    const std::optional<EvenSteps> across = findSteps(x);
    const std::optional<EvenSteps> up = findSteps(y);
    if (!across || !up) {
        grid.problem = "are not evenly spaced; --kind scatter draws them as markers";
        return grid;
    }
    grid.x = *across;
    grid.y = *up;
    const double places = static_cast<double>(grid.x.count) * static_cast<double>(grid.y.count);
    if (places > mostPlacesPerValue * static_cast<double>(rows)) {
        grid.problem = "fill too little of a grid; --kind scatter draws them as markers";
        return grid;
    }
    std::vector<std::size_t> taken;
    for (std::size_t row = 0; row < rows; ++row) {
        if (std::isfinite(x[row]) && std::isfinite(y[row]))
            taken.push_back(grid.y.indexOf(y[row]) * grid.x.count + grid.x.indexOf(x[row]));
    }
    std::ranges::sort(taken);
    if (std::ranges::adjacent_find(taken) != taken.end())
        grid.problem = "name a position more than once";
    return grid;
}

} // namespace viewer
