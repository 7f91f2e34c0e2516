// SPDX-License-Identifier: MIT
#include "CoveragePainter.h"

#include <algorithm>
#include <cmath>

namespace zembra {

CoveragePainter::CoveragePainter(Painter& ruler, const Rect& area) : ruler(ruler), area(area) {}

int CoveragePainter::column(double x) const {
    return static_cast<int>(std::clamp((x - area.x) / area.width * cells, -1.0, cells + 0.0));
}

int CoveragePainter::row(double y) const {
    return static_cast<int>(std::clamp((y - area.y) / area.height * cells, -1.0, cells + 0.0));
}

double CoveragePainter::covered(const Rect& rect) const {
    const int left = std::clamp(column(rect.left()), 0, cells - 1);
    const int right = std::clamp(column(rect.right()), left, cells - 1);
    const int top = std::clamp(row(rect.top()), 0, cells - 1);
    const int bottom = std::clamp(row(rect.bottom()), top, cells - 1);
    int count = 0;
    for (int y = top; y <= bottom; ++y)
        for (int x = left; x <= right; ++x)
            count += ink[static_cast<std::size_t>(y * cells + x)] ? 1 : 0;
    return static_cast<double>(count) / ((right - left + 1) * (bottom - top + 1));
}

void CoveragePainter::markPoint(double x, double y) {
    const int c = column(x);
    const int r = row(y);
    if (c >= 0 && c < cells && r >= 0 && r < cells)
        ink[static_cast<std::size_t>(r * cells + c)] = true;
}

void CoveragePainter::markLine(const Point& from, const Point& to) {
    const double dx = (to.x - from.x) / area.width * cells;
    const double dy = (to.y - from.y) / area.height * cells;
    const int steps = static_cast<int>(std::max(std::abs(dx), std::abs(dy))) + 1;
    for (int i = 0; i <= steps; ++i) {
        const double share = static_cast<double>(i) / steps;
        markPoint(from.x + share * (to.x - from.x), from.y + share * (to.y - from.y));
    }
}

void CoveragePainter::markRect(const Rect& rect) {
    for (int y = std::max(row(rect.top()), 0); y <= std::min(row(rect.bottom()), cells - 1); ++y)
        for (int x = std::max(column(rect.left()), 0);
             x <= std::min(column(rect.right()), cells - 1); ++x)
            ink[static_cast<std::size_t>(y * cells + x)] = true;
}

void CoveragePainter::drawLine(double x1, double y1, double x2, double y2) {
    markLine({x1, y1}, {x2, y2});
}

void CoveragePainter::drawRect(const Rect& rect) {
    markRect(rect);
}

void CoveragePainter::fillRect(const Rect& rect, const Color&) {
    markRect(rect);
}

void CoveragePainter::drawPolyline(const std::vector<Point>& points) {
    for (std::size_t i = 1; i < points.size(); ++i)
        markLine(points[i - 1], points[i]);
}

void CoveragePainter::fillPolygon(const std::vector<Point>& points, const Color&) {
    // The outline stands for the whole: a legend over a flat fill hides no shape.
    for (std::size_t i = 0; i < points.size(); ++i) {
        const Point& from = points[i];
        const Point& to = points[(i + 1) % points.size()];
        markLine(from, to);
    }
}

void CoveragePainter::fillEllipse(double cx, double cy, double rx, double ry, const Color&) {
    markRect({cx - rx, cy - ry, 2.0 * rx, 2.0 * ry});
}

void CoveragePainter::drawEllipse(double cx, double cy, double rx, double ry) {
    markRect({cx - rx, cy - ry, 2.0 * rx, 2.0 * ry});
}

void CoveragePainter::drawImage(const unsigned char* rgba, int width, int height, double cx,
                                double cy) {
    constexpr int stride = 4;
    for (int y = 0; y < height; y += stride)
        for (int x = 0; x < width; x += stride)
            if (rgba[(static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
                      static_cast<std::size_t>(x)) *
                         4 +
                     3] != 0)
                markPoint(cx - 0.5 * width + x, cy - 0.5 * height + y);
}

void CoveragePainter::drawText(double x, double y, const std::string& text, const Font& font,
                               const Color&) {
    const TextExtent extent = ruler.measureText(text, font);
    markRect({x, y - extent.height, extent.width, extent.height});
}

void CoveragePainter::drawRotatedText(double x, double y, double angle, const std::string& text,
                                      const Font& font, const Color&) {
    const double width = ruler.measureText(text, font).width;
    markLine({x, y}, {x + width * std::cos(angle), y + width * std::sin(angle)});
}

TextExtent CoveragePainter::measureText(const std::string& text, const Font& font) {
    return ruler.measureText(text, font);
}

} // namespace zembra
