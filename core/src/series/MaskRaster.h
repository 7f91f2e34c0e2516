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
/// ends are square, as painters draw them.
class MaskRaster {
public:
    /// Begins a picture of the whole pixels that meet `area`.
    void begin(const Rect& area, double penWidth);
    /// Adds one piece of the path.
    void add(std::span<const Point> piece);
    /// Whether nothing that is added changes the picture any more.
    bool isFull() const { return full; }
    /// The picture; without a buffer where nothing was drawn.
    Picture finish(const Color& color);

private:
    void addSegment(const Point& a, const Point& b);
    void addTriangle(const Point& a, const Point& b, const Point& c);
    void fill(int row, double from, double to);
    void lookForRoom();

    int left = 0;
    int top = 0;
    int columns = 0;
    int rows = 0;
    double half = 0.5;
    double strength = 1.0;
    std::vector<std::uint8_t> mask;
    // Rows of points in which every one is reached.
    std::vector<std::uint8_t> done;
    std::size_t segments = 0;
    std::size_t nextLook = 0;
    bool full = false;
};

} // namespace zembra
