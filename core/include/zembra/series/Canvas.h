// SPDX-License-Identifier: MIT
#pragma once

#include <zembra/paint/Painter.h>
#include <zembra/scale/ScaleMap.h>
#include <zembra/series/Marker.h>
#include <zembra/zembra_export.h>

#include <cstdint>
#include <functional>
#include <limits>
#include <memory>
#include <string>
#include <vector>

namespace zembra {

/// What a series takes from the theme.
struct SeriesLook {
    /// The series' own colour, or its place in the theme's cycle.
    Color color;
    Color foreground;
    Color background = Color(255, 255, 255);
    Font font;
};

/// Pictures handed to a painter; they stay alive until the frame ends, because a painter may
/// remember a picture by its address.
using FrameBuffers = std::vector<std::shared_ptr<const std::vector<std::uint8_t>>>;

/// The data area of a plot while it is being drawn: every series draws through it.
///
/// It maps data to pixels, and clips all geometry to its rectangle, widened by the pen where there
/// is one, in double precision before it reaches the painter: vector targets may ignore clip
/// rectangles, and raster targets break on coordinates far outside. Points that are not finite are
/// gaps in lines and leave out whatever else they belong to.
class ZEMBRA_EXPORT Canvas {
public:
    /// Requires: `painter` and `buffers` outlive the canvas.
    Canvas(Painter& painter, const Rect& rect, const ScaleMap& x, const ScaleMap& y,
           const SeriesLook& look, FrameBuffers& buffers);

    /// See `Plot::setPixelRatio`.
    void setPixelRatio(double pixelRatio);
    /// Draws lines with pens no wider than this, as a legend does, whose keys are small.
    void setWidestPen(double width);
    /// How large texts are, from one who remembers it; the painter is asked each time without.
    using Ruler = std::function<TextExtent(const std::string&, const Font&)>;
    void setRuler(Ruler ruler);

    const Rect& rect() const { return area; }
    const ScaleMap& x() const { return xMap; }
    const ScaleMap& y() const { return yMap; }
    const SeriesLook& look() const { return seriesLook; }

    /// The pixel position of a data point; NaN where a scale cannot place it.
    Point toPixel(double x, double y) const;

    void drawLine(const Point& from, const Point& to, const Pen& pen);
    /// A path of any length: what strokers would take too long over becomes a picture, in which
    /// each pixel is blended once. Points that are not finite separate its pieces; one alone is a
    /// dot.
    void drawPolyline(const std::vector<Point>& points, const Pen& pen);
    void drawRect(const Rect& rect, const Pen& pen);
    void drawEllipse(const Point& centre, double rx, double ry, const Pen& pen);
    void fillRect(const Rect& rect, const Color& color);
    void fillPolygon(const std::vector<Point>& points, const Color& color);
    void fillEllipse(const Point& centre, double rx, double ry, const Color& color);
    /// Many equal discs, at a cost bounded by the pixels they reach: one by one while they are few,
    /// as a picture with discs at quarters of a pixel where they are many. `next` replaces the
    /// vector's content by some more centres, and returns false when there are none left.
    void fillDiscs(const std::function<bool(std::vector<Point>&)>& next, double radius,
                   const Color& color);
    /// A marker; one of a size that is not above 0 or not finite is left out.
    void fillMarker(MarkerShape shape, const Marker& marker);
    /// Many markers of one shape: one by one while they are few, as a picture with markers at
    /// quarters of a pixel in place and size where they are many. `next` replaces the vector's
    /// content by some more, the topmost ones first, and returns false when there are none left.
    void fillMarkers(MarkerShape shape, const std::function<bool(std::vector<Marker>&)>& next);
    /// A picture at natural size with its top-left corner at `corner`, cropped to the canvas.
    /// Shape: `width` × `height` RGBA pixels as in `Painter::drawImage`; another size is ignored.
    void drawImage(const std::shared_ptr<const std::vector<std::uint8_t>>& rgba, int width,
                   int height, const Point& corner);
    /// Text whose box has to lie inside the canvas; drawn with the left end of its baseline at
    /// `baseline`, left out where it does not fit.
    void drawText(const Point& baseline, const std::string& text, const Font& font,
                  const Color& color);
    TextExtent measureText(const std::string& text, const Font& font);

private:
    Painter& painter;
    Rect area;
    double ratio = 1.0;
    double widestPen = std::numeric_limits<double>::infinity();
    Ruler ruler;
    ScaleMap xMap;
    ScaleMap yMap;
    SeriesLook seriesLook;
    FrameBuffers& buffers;
};

} // namespace zembra
