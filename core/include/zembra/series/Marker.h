// SPDX-License-Identifier: MIT
#pragma once

#include <zembra/paint/Color.h>
#include <zembra/paint/Geometry.h>

namespace zembra {

/// The shape of the mark at a sample.
///
/// A marker's size is the diameter of its circle; the other shapes are as large as looks equally
/// heavy.
enum class MarkerShape {
    Circle,
    Square,
    /// A square on its corner.
    Diamond,
    TriangleUp,
    TriangleDown,
    /// Two bars, upright and level.
    Plus,
    /// Two bars along the diagonals.
    Cross,
    /// Five-pointed.
    Star,
};

/// A marker on a canvas.
struct Marker {
    /// Units: logical pixels.
    Point centre;
    /// Units: logical pixels; sizes above 1000 count as 1000.
    double size = 6.0;
    Color color;
};

} // namespace zembra
