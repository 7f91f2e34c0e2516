// SPDX-License-Identifier: MIT
#pragma once

#include <zembra/paint/Geometry.h>

#include <cstddef>
#include <span>
#include <vector>

namespace zembra {

/// Appends to `result` the points of a path that it needs to stay within `tolerance` of every point
/// left out. First and last point always remain, and so does every turn back.
///
/// Requires: finite points. Complexity: O(points).
/// Source: the sector method of Z. Zhao, A. Saalfeld, "Linear-Time Sleeve-Fitting Polyline
/// Simplification Algorithms", AutoCarto 13, 1997.
void simplify(std::span<const Point> points, double tolerance, std::vector<Point>& result);

} // namespace zembra
