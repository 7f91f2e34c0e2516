// SPDX-License-Identifier: MIT
#pragma once

#include <zembra/paint/Geometry.h>
#include <zembra/scale/ScaleMap.h>
#include <zembra/series/Orientation.h>
#include <zembra/series/Series.h>

#include <vector>

namespace zembra {

class Canvas;

/// Two pixel positions, the lesser first.
struct PixelSpan {
    double low = 0.0;
    double high = 0.0;

    double length() const { return high - low; }
};

/// A canvas seen along positions and values, which change their axes when a series lies on its
/// side. Cheap; refers to the maps it was made from.
///
/// Pixels are kept within a thousand million of the origin, so that sums of them stay exact enough.
class SideView {
public:
    SideView(const Canvas& canvas, Orientation orientation);
    /// The area between the ends of the maps.
    SideView(const ScaleMap& x, const ScaleMap& y, Orientation orientation);

    bool isHorizontal() const { return horizontal; }
    const ScaleMap& positions() const { return horizontal ? y : x; }
    const ScaleMap& values() const { return horizontal ? x : y; }
    const Rect& area() const { return canvasArea; }
    PixelSpan positionSpan() const;
    PixelSpan valueSpan() const;

    /// NaN where the scale cannot place the number.
    double position(double number) const;
    double value(double number) const;
    /// The pixel where the axis has its least numbers, for those that the scale cannot place.
    double positionOrEnd(double number) const;
    double valueOrEnd(double number) const;
    /// The pixels that a distance on the positions' even measure takes.
    double positionLength(double even) const;

    /// From pixels along both axes, in any order.
    Rect rect(double p1, double p2, double v1, double v2) const;
    Point point(double p, double v) const;

private:
    const ScaleMap& x;
    const ScaleMap& y;
    bool horizontal;
    Rect canvasArea;
};

/// A thin line at a number along the values, where it runs inside the canvas: what marks on both
/// sides of it stand on. At the edge the axis does as well.
void drawBaseline(Canvas& canvas, const SideView& view, double number);
/// How far a pixel is from a rectangle; 0 inside.
double distanceTo(const Rect& rect, const Point& pixel);
/// Whether a rectangle, however thin, meets another.
bool meets(const Rect& rect, const Rect& area);
/// The area between the ends of two maps.
Rect areaOf(const ScaleMap& x, const ScaleMap& y);
/// The pixel of a number, held within a thousand million of the origin; NaN where it has none.
double heldPixel(const ScaleMap& map, double number);
/// The same, with the end of the least numbers for a number that the scale cannot place.
double pixelOrEnd(const ScaleMap& map, double number);
/// A nearest sample from its numbers along positions and values.
NearestSample nearestSample(std::size_t index, double position, double value, double distance,
                            Orientation orientation);
/// Bounds from what is covered along positions and values.
Bounds turnedBounds(const Interval& positions, const Interval& values, bool valuesFromZero,
                    Orientation orientation);

} // namespace zembra
