// SPDX-License-Identifier: MIT
#pragma once

#include <zembra/paint/Geometry.h>
#include <zembra/series/Marker.h>

#include <vector>

namespace zembra {

/// Larger markers are drawn as large as this; they fill most canvases.
constexpr double largestMarker = 1000.0;

/// The corners of a marker about (0, 0); of a circle, so many points that none is missed.
std::vector<Point> markerOutline(MarkerShape shape, double size);

/// No corner of a marker lies further from its centre.
constexpr double markerReach(double size) {
    return 0.7 * size;
}

} // namespace zembra
