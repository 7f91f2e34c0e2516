// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace viewer {

/// Values along one direction of a grid: `first`, `first + step` and so on.
struct EvenSteps {
    double first = 0.0;
    double step = 1.0;
    std::size_t count = 0;

    /// The place of a value of the grid.
    std::size_t indexOf(double value) const;
};

/// The grid on which positions lie, some of its places perhaps free.
struct EvenGrid {
    EvenSteps x;
    EvenSteps y;
    /// Why there is none, as the end of a sentence; empty where there is one.
    std::string problem;
};

/// Finds the grid of evenly spaced positions. Rows with a coordinate that is not finite are left
/// out. `rows` is the length of both.
EvenGrid findEvenGrid(const std::vector<double>& x, const std::vector<double>& y, std::size_t rows);

} // namespace viewer
