// SPDX-License-Identifier: MIT
#pragma once

#include <zembra/paint/Painter.h>

#include <array>

namespace zembra {

/// Passes everything on to another painter and notes roughly where ink falls, so that a legend can
/// choose the emptiest corner.
class CoveragePainter : public Painter {
public:
    /// Requires: `target` outlives this painter.
    CoveragePainter(Painter& target, const Rect& area);

    /// The share of a rectangle that has ink, 0 to 1.
    double covered(const Rect& rect) const;

    void save() override { target.save(); }
    void restore() override { target.restore(); }
    void setPen(const Pen& pen) override { target.setPen(pen); }
    void setBrush(const Brush& brush) override { target.setBrush(brush); }
    void setFont(const Font& font) override { target.setFont(font); }
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
    void translate(double dx, double dy) override { target.translate(dx, dy); }
    void rotate(double angle) override { target.rotate(angle); }
    void setClipRect(const Rect& rect) override { target.setClipRect(rect); }
    void clearClip() override { target.clearClip(); }

private:
    static constexpr int cells = 48;

    void markPoint(double x, double y);
    void markLine(const Point& from, const Point& to);
    void markRect(const Rect& rect);
    int column(double x) const;
    int row(double y) const;

    Painter& target;
    Rect area;
    std::array<bool, static_cast<std::size_t>(cells) * cells> ink{};
};

} // namespace zembra
