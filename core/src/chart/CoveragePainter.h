// SPDX-License-Identifier: MIT
#pragma once

#include <zembra/paint/Painter.h>

#include <array>

namespace zembra {

/// Draws nothing and notes roughly where ink would fall, so that a legend can choose the emptiest
/// corner.
class CoveragePainter : public Painter {
public:
    /// Texts are measured by `ruler`.
    /// Requires: `ruler` outlives this painter.
    CoveragePainter(Painter& ruler, const Rect& area);

    /// The share of a rectangle that has ink, 0 to 1.
    double covered(const Rect& rect) const;

    void save() override {}
    void restore() override {}
    void setPen(const Pen&) override {}
    void setBrush(const Brush&) override {}
    void setFont(const Font&) override {}
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
    void translate(double, double) override {}
    void rotate(double) override {}
    void setClipRect(const Rect&) override {}
    void clearClip() override {}

private:
    static constexpr int cells = 48;

    void markPoint(double x, double y);
    void markLine(const Point& from, const Point& to);
    void markRect(const Rect& rect);
    int column(double x) const;
    int row(double y) const;

    Painter& ruler;
    Rect area;
    std::array<bool, static_cast<std::size_t>(cells) * cells> ink{};
};

} // namespace zembra
