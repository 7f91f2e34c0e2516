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
/// Units: pixels of the mask's picture.
class FilledParts {
public:
    /// Begins with a mask that nothing has reached.
    void begin(const PointMask& mask);
    /// Whether every point is reached already from x to x in a band of tiles.
    bool hides(int band, double low, double high) const;
    bool hides(const Rect& part) const;
    /// A part that is full all over: the largest one found, empty at first. Where it meets an edge
    /// of the picture it goes on far beyond, because nothing is seen there.
    const Rect& core() const { return largest; }
    bool isAll() const { return openColumns == 0; }
    /// Tells that the path went by some rows of points, or what cost as much.
    void passBy(int pointRows) { work += pointRows; }
    /// Looks at the mask if that may pay, and fills the last gaps of columns that are all but full.
    void look(PointMask& mask) {
        if (work > patience)
            lookAtAll(mask);
    }

private:
    // Columns next to each other.
    struct Run {
        int begin = 0;
        int end = 0;
    };
    // How many next to each other.
    struct Rows {
        int above = 0;
        int below = 0;
    };
    // A bit for each column of pixels, set where it is full.
    using Bits = std::uint64_t;
    static constexpr int bitsSize = 64;
    Bits* fullIn(int band) { return full.data() + static_cast<std::size_t>(band) * bitsAcross; }
    const Bits* fullIn(int band) const {
        return full.data() + static_cast<std::size_t>(band) * bitsAcross;
    }
    int nextColumn(int band, int from, bool isFull) const;
    std::int64_t leastPatience() const;
    void lookAtAll(PointMask& mask);
    int closeColumns(PointMask& mask, int band);
    Run longestRun(int band) const;
    static Rows fullRows(const PointMask& mask, const Run& part, int band);
    void lookForCore(const PointMask& mask);

    int columns = 0;
    int rows = 0;
    int bands = 0;
    // By bands; those beside the picture are full. It is asked for each band that a path crosses,
    // so it is small enough to remain in the cache beside the mask.
    std::vector<Bits> full;
    std::size_t bitsAcross = 0;
    std::vector<Run> longestRuns;
    Rect largest;
    int openColumns = 0;
    // Rows of points that the path came by since the last look.
    std::int64_t work = 0;
    std::int64_t patience = 0;
};

} // namespace zembra
