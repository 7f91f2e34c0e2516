// SPDX-License-Identifier: MIT
#pragma once

#include <zembra/paint/Brush.h>
#include <zembra/paint/Color.h>
#include <zembra/paint/Font.h>
#include <zembra/paint/Geometry.h>
#include <zembra/paint/Pen.h>
#include <zembra/zembra_export.h>

#include <string>
#include <vector>

namespace zembra {

/// The drawing operations a chart needs from its target.
///
/// The core draws through this interface alone. The order of the virtual operations is part of the
/// ABI: a target built separately relies on it, so new operations may only be appended.
///
/// Units: logical pixels, y pointing down; angles in radians, positive clockwise on screen; text is
/// UTF-8. Callers pass finite numbers only, pair every `save` with a `restore`, and follow every
/// `setClipRect` by exactly one `clearClip` before the enclosing `restore`.
class ZEMBRA_EXPORT Painter {
public:
    virtual ~Painter();

    /// Pushes the painter state.
    virtual void save() = 0;
    /// Pops the painter state.
    virtual void restore() = 0;

    virtual void setPen(const Pen& pen) = 0;
    virtual void setBrush(const Brush& brush) = 0;
    virtual void setFont(const Font& font) = 0;

    /// One segment with the current pen.
    virtual void drawLine(double x1, double y1, double x2, double y2) = 0;
    /// The outline of a rectangle with the current pen.
    virtual void drawRect(const Rect& rect) = 0;
    /// A filled rectangle without outline.
    virtual void fillRect(const Rect& rect, const Color& color) = 0;
    /// An open polyline with the current pen; fewer than 2 points draw nothing.
    virtual void drawPolyline(const std::vector<Point>& points) = 0;
    /// A filled polygon without outline, odd-even rule; fewer than 3 points draw nothing.
    virtual void fillPolygon(const std::vector<Point>& points, const Color& color) = 0;
    /// A filled ellipse without outline.
    virtual void fillEllipse(double cx, double cy, double rx, double ry, const Color& color) = 0;
    /// The outline of an ellipse with the current pen.
    virtual void drawEllipse(double cx, double cy, double rx, double ry) = 0;
    /// A picture at natural size, centred on (cx, cy).
    ///
    /// Shape: `width` × `height` pixels, rows top to bottom without padding, four bytes per pixel:
    /// red, green, blue, alpha, not premultiplied. A target may remember a picture by its pointer
    /// and size, so changed pixels need another buffer.
    virtual void drawImage(const unsigned char* rgba, int width, int height, double cx,
                           double cy) = 0;
    /// A line of text; (x, y) is the left end of its baseline.
    virtual void drawText(double x, double y, const std::string& text, const Font& font,
                          const Color& color) = 0;
    /// A line of text turned by `angle` about the left end of its baseline.
    virtual void drawRotatedText(double x, double y, double angle, const std::string& text,
                                 const Font& font, const Color& color) = 0;
    /// The advance width of a text, and the font's pixel size as its height.
    virtual TextExtent measureText(const std::string& text, const Font& font) = 0;

    virtual void translate(double dx, double dy) = 0;
    virtual void rotate(double angle) = 0;

    /// Begins clipping to `rect`; ended by `clearClip`, which also undoes every state change since.
    virtual void setClipRect(const Rect& rect) = 0;
    virtual void clearClip() = 0;
};

} // namespace zembra
