// SPDX-License-Identifier: MIT
#pragma once

#include "PointMask.h"

#include <zembra/paint/Geometry.h>

#include <cstddef>
#include <cstdint>
#include <vector>

namespace zembra {

/// Knows which parts of a mask are full, so that a path need not go there again.
///
/// It looks at the mask when the path has come by many rows of points since the last look, and less
/// often where looking found little.
class FilledParts {
public:
    /// What is full is known by columns of a pixel's width and this many rows of points.
    static constexpr int bandRows = 8 * pointsDown;

    /// Begins with an empty mask of a picture whose top-left pixel is (left, top).
    void begin(int left, int top, int columns, int rows);
    /// Whether every point is reached already from x to x in a band of rows.
    bool hides(int band, double low, double high) const;
    bool hides(const Rect& part) const;
    /// A part that is full all over: the largest one found, empty at first.
    const Rect& core() const { return largest; }
    bool isAll() const { return openColumns == 0; }
    /// Tells that the path went by some rows of points.
    void passBy(int pointRows) { work += static_cast<std::size_t>(pointRows); }
    /// Looks at the mask if that may pay, and fills the last gaps of columns that are all but full.
    void look(PointMask& mask);

private:
    std::size_t leastPatience() const;
    void lookAtBand(int band, PointMask& mask);
    void lookForCore();

    int left = 0;
    int top = 0;
    int columns = 0;
    int rows = 0;
    int bands = 0;
    // By bands: for every column of pixels, the first from there on that is not full; nothing
    // before the first look.
    std::vector<std::int32_t> openInBand;
    Rect largest;
    std::size_t openColumns = 0;
    // Rows of points that the path came by, since the last look.
    std::size_t work = 0;
    std::size_t patience = 0;
};

} // namespace zembra
