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
    /// The picture, cropped to what was drawn; without a buffer where that is nothing.
    Picture finish(const Color& color);

private:
    // In pixels of the picture that was begun; right and bottom lie outside.
    struct Box {
        int left = 0;
        int top = 0;
        int right = 0;
        int bottom = 0;
    };

    void addSegment(const Point& a, const Point& b);
    void addTriangle(const Point& a, const Point& b, const Point& c);
    bool isFilled(int band, double low, double high) const;
    bool isFilled(const Rect& part) const;
    void fillStripe(int begin, int end, double middle, double step, double width);
    void fill(int row, double from, double to);
    void fillPoints(int row, unsigned first, unsigned end);
    std::size_t leastPatience() const;
    void lookForFilledParts();
    void lookForCore();
    Box drawnBox() const;

    int left = 0;
    int top = 0;
    int columns = 0;
    int rows = 0;
    double half = 0.5;
    double strength = 1.0;
    // A byte for the points of a pixel in a row of points, and some more that are written with the
    // last ones.
    std::vector<std::uint8_t> mask;
    // By bands of rows: for every column of pixels, the first from there on that is not filled;
    // nothing before the first look.
    std::vector<std::int32_t> openInBand;
    int bands = 0;
    // What lies between the points of the path.
    Point least;
    Point greatest;
    // A part of the picture, filled all over, that segments pass by at once.
    Rect core;
    std::size_t openColumns = 0;
    // Rows of points that segments came by, since the last look for filled parts.
    std::size_t work = 0;
    std::size_t patience = 0;
};

} // namespace zembra
