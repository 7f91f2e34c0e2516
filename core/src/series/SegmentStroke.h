// SPDX-License-Identifier: MIT
#pragma once

#include "PointMask.h"

#include <zembra/paint/Geometry.h>

namespace zembra {

/// A part of a row, or of what lies in one.
struct Range {
    double low = 0.0;
    double high = 0.0;
};

inline Range ordered(double a, double b) {
    return a < b ? Range{a, b} : Range{b, a};
}

/// What a pen covers of the rows of a mask along one segment: where two stripes cross, one along
/// the segment and one across it.
/// Units: pixels of the mask's picture; rows are those of its points.
struct SegmentStroke {
    SegmentStroke(const Point& a, const Point& b, double half);

    /// The middle of the stripe along.
    double middleAt(int row) const { return a.x + (PointMask::middleOf(row) - a.y) * slope; }
    /// What the stripe across leaves of a row.
    Range endsAt(int row) const;
    /// Rows from `first` to before `end`.
    struct Rows {
        int first = 0;
        int end = 0;
    };
    /// Those where the stripe along lies within a part of the picture.
    Rows rowsWithin(const Rect& part) const;

    Point a;
    Point b;
    /// Its outermost places.
    double west;
    double east;
    /// What the stripe along moves right for a pixel down, and half its width.
    double slope;
    double width;
    /// The same way along the edges of the stripe across, if it is not level.
    double fall;
    bool upright;
    /// The rows that it reaches, and those where the stripe across does not count.
    int first;
    int last;
    int innerFirst;
    int innerLast;
};

} // namespace zembra
