// SPDX-License-Identifier: MIT
#pragma once

#include "Picture.h"

#include <zembra/paint/Geometry.h>

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

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
    /// The picture; without a buffer where nothing was drawn.
    Picture finish(const Color& color);

private:
    void addSegment(const Point& a, const Point& b);
    void addTriangle(const Point& a, const Point& b, const Point& c);
    bool isFilled(const std::vector<std::int32_t>& nextOpen, int part, double low,
                  double high) const;
    bool isFilled(const Rect& part) const;
    void fill(int row, double from, double to);
    void lookForFilledParts();

    int left = 0;
    int top = 0;
    int columns = 0;
    int rows = 0;
    double half = 0.5;
    double strength = 1.0;
    std::vector<std::uint8_t> mask;
    // By bands of rows, and by blocks of bands: for every column of pixels, the first from there on
    // that is not filled.
    std::vector<std::int32_t> openInBand;
    std::vector<std::int32_t> openInBlock;
    int bands = 0;
    std::size_t openColumns = 0;
    // Rows of points that segments came by, since the last look for filled parts.
    std::size_t work = 0;
    std::size_t patience = 0;
};

} // namespace zembra
