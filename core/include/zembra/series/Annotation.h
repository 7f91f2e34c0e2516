// SPDX-License-Identifier: MIT
#pragma once

#include <zembra/paint/Geometry.h>
#include <zembra/scale/ScaleMap.h>
#include <zembra/series/Series.h>

namespace zembra {

/// A place along one direction of a canvas, in data units or as a share of the canvas. A cheap
/// value.
class ZEMBRA_EXPORT Coordinate {
public:
    /// A data value, on purpose without a word.
    Coordinate(double value) : number(value) {}
    /// A share of the canvas: 0 is its left or lower edge and 1 the right or upper one, also where
    /// the axis is reversed.
    static Coordinate canvas(double share);

    bool isData() const { return data; }
    double value() const { return number; }

    /// Units: logical pixels. `low` and `high` are the edges for the shares 0 and 1. NaN where the
    /// scale cannot place a data value.
    double pixel(const ScaleMap& map, double low, double high) const;

private:
    double number;
    bool data = true;
};

/// A place on a canvas.
struct Position {
    Coordinate x;
    Coordinate y;
};

/// Something that explains a chart and is not data: it has no part in automatic ranges and no
/// nearest sample. Without a colour of its own it takes that of texts.
///
/// What has a coordinate that is not finite, or that an axis cannot place, is not drawn.
class ZEMBRA_EXPORT Annotation : public Series {
public:
    bool takesCycleColor() const override;
    /// Empty.
    Bounds bounds(const Scale& x, const Scale& y) const override;

protected:
    Color ink(const Canvas& canvas) const;
    static Point place(const Canvas& canvas, const Position& position);
    static double column(const Canvas& canvas, const Coordinate& x);
    static double row(const Canvas& canvas, const Coordinate& y);
};

} // namespace zembra
