// SPDX-License-Identifier: MIT
#pragma once

#include <zembra/paint/Geometry.h>

#include <cmath>
#include <optional>
#include <utility>
#include <vector>

namespace zembra {

/// Raster engines lose precision or break beyond this many pixels: nothing farther is drawn.
inline constexpr double farthest = 16000.0;

/// Whether both coordinates are numbers and finite.
inline bool isFinite(const Point& p) {
    return std::isfinite(p.x) && std::isfinite(p.y);
}

/// The part of a segment inside `area`, or nothing.
///
/// Requires: finite ends. Source: Y.-D. Liang, B. A. Barsky, "A New Concept and Method for Line
/// Clipping", ACM Transactions on Graphics 3(1), 1984.
std::optional<std::pair<Point, Point>> clipSegment(const Point& from, const Point& to,
                                                   const Rect& area);

/// The polygon inside `area`; empty where nothing is left or a point is not finite. Parts of a
/// concave polygon stay joined along the edges of `area`.
///
/// Source: I. E. Sutherland, G. W. Hodgman, "Reentrant Polygon Clipping", Communications of the
/// ACM 17(1), 1974.
std::vector<Point> clipPolygon(const std::vector<Point>& points, const Rect& area);

/// The common part of two rectangles; empty where they have none.
Rect intersected(const Rect& a, const Rect& b);

} // namespace zembra
