// SPDX-License-Identifier: MIT
#pragma once

#include <zembra/paint/Painter.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <string>
#include <vector>

namespace zembra::test {

/// Draws nothing and remembers the first thing that a painter should not be told: a number that is
/// not finite, a coordinate beyond ±16,000 pixels, dashes and gaps, states or clips that are not
/// paired.
class StrictPainter : public Painter {
public:
    /// Empty while all is well.
    const std::string& fault() const { return found; }
    /// To be asked when nothing more is to come.
    bool isBalanced() const { return open.empty(); }
    std::size_t calls() const { return callCount; }

    void save() override { open.push_back('s'); }
    void restore() override { close('s'); }
    void setPen(const Pen& pen) override {
        size(pen.widthF());
        if (!(pen.widthF() >= 0.0 && pen.widthF() <= 32000.0))
            note("a pen of negative width, or wider than twice the farthest coordinate");
        for (const double dash : pen.dashPattern()) {
            size(dash);
            if (dash < 0.0)
                note("a dash of negative length");
        }
        if (pen.dashPattern().size() % 2 != 0)
            note("a dash without a gap");
    }
    void setBrush(const Brush&) override {}
    void setFont(const Font& font) override { size(font.pixelSize()); }
    void drawLine(double x1, double y1, double x2, double y2) override {
        point(x1, y1);
        point(x2, y2);
    }
    void drawRect(const Rect& rect) override { box(rect); }
    void fillRect(const Rect& rect, const Color&) override { box(rect); }
    void drawPolyline(const std::vector<Point>& points) override { all(points); }
    void fillPolygon(const std::vector<Point>& points, const Color&) override { all(points); }
    void fillEllipse(double cx, double cy, double rx, double ry, const Color&) override {
        drawEllipse(cx, cy, rx, ry);
    }
    void drawEllipse(double cx, double cy, double rx, double ry) override {
        point(cx, cy);
        point(rx, ry);
    }
    void drawImage(const unsigned char* rgba, int width, int height, double cx,
                   double cy) override {
        point(cx, cy);
        if (!rgba || width <= 0 || height <= 0)
            note("a picture without pixels");
        else // Reads the far ends, so that a sanitizer sees a buffer that is too short.
            lastPixel =
                rgba[0] +
                rgba[static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * 4 - 1];
    }
    void drawText(double x, double y, const std::string&, const Font& font, const Color&) override {
        point(x, y);
        size(font.pixelSize());
    }
    void drawRotatedText(double x, double y, double angle, const std::string&, const Font& font,
                         const Color&) override {
        point(x, y);
        size(angle);
        size(font.pixelSize());
    }
    /// As `RecordingPainter` does.
    TextExtent measureText(const std::string& text, const Font& font) override {
        size(font.pixelSize());
        const auto codePoints = std::count_if(text.begin(), text.end(), [](char byte) {
            return (static_cast<unsigned char>(byte) & 0xC0u) != 0x80u;
        });
        return {0.6 * font.pixelSize() * static_cast<double>(codePoints), font.pixelSize()};
    }
    void translate(double dx, double dy) override { point(dx, dy); }
    void rotate(double angle) override { size(angle); }
    void setClipRect(const Rect& rect) override {
        box(rect);
        open.push_back('c');
    }
    void clearClip() override { close('c'); }

private:
    void note(const char* what) {
        if (found.empty())
            found = what;
    }
    void size(double value) {
        ++callCount;
        if (!std::isfinite(value))
            note("a number that is not finite");
    }
    void point(double x, double y) {
        ++callCount;
        if (!(std::abs(x) <= 16000.0 && std::abs(y) <= 16000.0))
            note("a coordinate beyond 16,000 pixels");
    }
    void box(const Rect& rect) {
        point(rect.left(), rect.top());
        point(rect.right(), rect.bottom());
    }
    void all(const std::vector<Point>& points) {
        for (const Point& each : points)
            point(each.x, each.y);
    }
    void close(char kind) {
        if (open.empty() || open.back() != kind)
            note("an end that fits no beginning");
        else
            open.pop_back();
    }

    std::string found;
    std::string open;
    std::size_t callCount = 0;
    int lastPixel = 0;
};

} // namespace zembra::test
