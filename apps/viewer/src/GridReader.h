// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace viewer {

/// A matrix of values, row by row.
struct ValueGrid {
    std::vector<double> values;
    std::size_t columns = 0;
};

/// Whether the suffix of a file name, in either case, is that of a grid: ".json".
bool isGridFile(const std::string& path);

/// Reads an object with `width`, `height` and `values`, numbers row by row; null is a missing one.
///
/// Errors: throws Failure naming file and line.
ValueGrid readGrid(const std::string& path);

} // namespace viewer
