// SPDX-License-Identifier: MIT
#pragma once

#include "FilledParts.h"
#include "Picture.h"
#include "PointMask.h"
#include "SegmentStroke.h"
#include "StripePattern.h"

#include <zembra/paint/Geometry.h>

#include <array>
#include <span>

namespace zembra {

/// Draws strokes of any path into a picture: each pixel is blended once by the share of it that
/// the whole stroke covers, however often the path comes by.
///
/// It notes eight by four points of every pixel that the stroke reaches. Joins are bevelled and
/// ends are square, as painters draw them. Where a path has filled the picture it costs no more
/// than a look, so that endless scribbles end.
class MaskRaster {
public:
    /// Begins a picture of the whole pixels that meet `area`.
    void begin(const Rect& area, double penWidth);
    /// Adds one piece of the path.
    void add(std::span<const Point> piece);
    /// The picture, cropped to what was drawn; without a buffer where that is nothing.
    Picture finish(const Color& color);

private:
    // Whole pixels; right and bottom lie outside.
    struct Box {
        int left = 0;
        int top = 0;
        int right = 0;
        int bottom = 0;
    };

    Point placed(const Point& p) const { return {p.x - left, p.y - top}; }
    void addSegment(std::span<const Point> piece, std::size_t end);
    void addStroke(const SegmentStroke& segment);
    void addBands(const SegmentStroke& segment, int from, int to);
    void addRows(const SegmentStroke& segment, int from, int to);
    void addJoin(const Point& a, const Point& b, const Point& c);
    using Triangle = std::array<Point, 3>;
    void addTriangle(const Point& a, const Point& b, const Point& c);
    void addRows(const Triangle& corners, int begin, int end);
    void fillStripe(int begin, int end, double middle, double step, double width);
    void fill(int row, double from, double to);
    void reach(const Point& p);
    Box drawnBox() const;

    // Where the picture lies; all that follows is in its pixels.
    int left = 0;
    int top = 0;
    double half = 0.5;
    double strength = 1.0;
    PointMask mask;
    FilledParts filled;
    StripePattern pattern;
    // What lies between the points that the path reached.
    Point least;
    Point greatest;
};

} // namespace zembra
