// SPDX-License-Identifier: MIT
#pragma once

#include <zembra/paint/Painter.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace zembra::test {

/// Writes every call as a line of text: the operation, then its arguments.
///
/// Numbers have at most two decimals and no trailing zeros ("-0" is "0"), colours are "#rrggbb"
/// with two more digits where not opaque, points are "x,y". Texts measure 0.6 of the font's size
/// per code point, so that layouts are the same on every machine. Measuring is counted, not
/// written.
class RecordingPainter : public Painter {
public:
    const std::vector<std::string>& lines() const { return written; }
    /// All lines, each ended by a newline.
    std::string text() const;
    /// The lines of one operation.
    std::vector<std::string> linesOf(std::string_view operation) const;
    /// How often an operation was called; of all that draw or change the state when empty.
    std::size_t count(std::string_view operation = {}) const;
    /// The corners and points of everything drawn.
    std::size_t vertices() const { return vertexCount; }
    std::size_t measurements() const { return measureCount; }
    /// Whether a coordinate beyond ±16,000 pixels or one that is no finite number was seen.
    bool sawWildNumber() const { return wild; }
    void clear();

    void save() override;
    void restore() override;
    void setPen(const Pen& pen) override;
    void setBrush(const Brush& brush) override;
    void setFont(const Font& font) override;
    void drawLine(double x1, double y1, double x2, double y2) override;
    void drawRect(const Rect& rect) override;
    void fillRect(const Rect& rect, const Color& color) override;
    void drawPolyline(const std::vector<Point>& points) override;
    void fillPolygon(const std::vector<Point>& points, const Color& color) override;
    void fillEllipse(double cx, double cy, double rx, double ry, const Color& color) override;
    void drawEllipse(double cx, double cy, double rx, double ry) override;
    void drawImage(const unsigned char* rgba, int width, int height, double cx, double cy) override;
    void drawText(double x, double y, const std::string& text, const Font& font,
                  const Color& color) override;
    void drawRotatedText(double x, double y, double angle, const std::string& text,
                         const Font& font, const Color& color) override;
    TextExtent measureText(const std::string& text, const Font& font) override;
    void translate(double dx, double dy) override;
    void rotate(double angle) override;
    void setClipRect(const Rect& rect) override;
    void clearClip() override;

private:
    std::string number(double value);
    std::string point(const Point& p);
    std::string rect(const Rect& r);
    std::string points(const std::vector<Point>& list);
    std::string font(const Font& f);

    std::vector<std::string> written;
    std::size_t vertexCount = 0;
    std::size_t measureCount = 0;
    bool wild = false;
};

} // namespace zembra::test
