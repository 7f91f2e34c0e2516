// SPDX-License-Identifier: MIT
#pragma once

#include <zembra/paint/Painter.h>
#include <zembra/series/Canvas.h>

#include <span>
#include <vector>

namespace zembra {

/// Whether dashes can be drawn: no length is negative or not finite, and not all of them are 0.
/// Painters may never return from others.
bool isDashPattern(const std::vector<double>& lengths);

/// Whether a line of some length has more dashes than a painter draws in time, by the pixels of
/// `area` that they can reach.
bool hasManyDashes(const Pen& pen, double length, const Rect& area);

/// Sets the painter's pen, bounded to a width that every painter can take, with a gap after its
/// last dash, and without dashes that cannot be drawn.
void usePen(Painter& painter, const Pen& pen);

/// Draws the stroke of a path with a pen, at a cost bounded by the pixels of `area` and the number
/// of points, whatever the pen: as polylines where the path is simple, as a picture where it or its
/// dashes are dense, drawn as rectangles where `pixelRatio` says that the target has finer pixels.
///
/// Points that are not finite separate the path's pieces; a point alone is drawn as a dot.
void strokePath(Painter& painter, const Rect& area, std::span<const Point> path, const Pen& pen,
                double pixelRatio, FrameBuffers& buffers);

} // namespace zembra
