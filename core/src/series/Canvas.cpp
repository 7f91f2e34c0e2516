// SPDX-License-Identifier: MIT
#include <zembra/series/Canvas.h>

#include "Clip.h"
#include "DiscRaster.h"
#include "MarkerOutline.h"
#include "MarkerRaster.h"
#include "Stroke.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

namespace zembra {

namespace {

bool isFinite(const Rect& r) {
    return std::isfinite(r.x) && std::isfinite(r.y) && std::isfinite(r.width) &&
           std::isfinite(r.height);
}

bool contains(const Rect& outer, const Rect& inner) {
    return inner.left() >= outer.left() && inner.right() <= outer.right() &&
           inner.top() >= outer.top() && inner.bottom() <= outer.bottom();
}

Pen bounded(Pen pen, double widest) {
    pen.setWidthF(std::min(pen.widthF(), widest));
    return pen;
}

// A closed ring of points; fine enough that no edge leaves the ellipse by a tenth of a pixel.
std::vector<Point> ellipsePoints(const Point& centre, double rx, double ry) {
    const double radius = std::max(rx, ry);
    const int count = static_cast<int>(std::clamp(8.0 * std::sqrt(radius) + 8.0, 12.0, 400.0));
    std::vector<Point> points;
    points.reserve(static_cast<std::size_t>(count) + 1);
    for (int i = 0; i < count; ++i) {
        const double angle = 2.0 * std::numbers::pi * i / count;
        points.push_back({centre.x + rx * std::cos(angle), centre.y + ry * std::sin(angle)});
    }
    return points;
}

} // namespace

Canvas::Canvas(Painter& painter, const Rect& rect, const ScaleMap& x, const ScaleMap& y,
               const SeriesLook& look, FrameBuffers& buffers)
    : painter(painter), area(rect), xMap(x), yMap(y), seriesLook(look), buffers(buffers) {}

void Canvas::setPixelRatio(double pixelRatio) {
    ratio = pixelRatio;
}

void Canvas::setWidestPen(double width) {
    widestPen = width;
}

void Canvas::setRuler(Ruler other) {
    ruler = std::move(other);
}

Point Canvas::toPixel(double x, double y) const {
    return {xMap.transform(x), yMap.transform(y)};
}

void Canvas::drawLine(const Point& from, const Point& to, const Pen& pen) {
    drawPolyline({from, to}, pen);
}

void Canvas::drawPolyline(const std::vector<Point>& points, const Pen& pen) {
    strokePath(painter, area, points, bounded(pen, widestPen), ratio, buffers);
}

void Canvas::drawRect(const Rect& rect, const Pen& pen) {
    if (!isFinite(rect) || rect.width < 0.0 || rect.height < 0.0)
        return;
    if (contains(area, rect) && !hasManyDashes(pen, 2.0 * (rect.width + rect.height), area)) {
        usePen(painter, bounded(pen, widestPen));
        painter.drawRect(rect);
        return;
    }
    drawPolyline({{rect.left(), rect.top()},
                  {rect.right(), rect.top()},
                  {rect.right(), rect.bottom()},
                  {rect.left(), rect.bottom()},
                  {rect.left(), rect.top()}},
                 pen);
}

void Canvas::drawEllipse(const Point& centre, double rx, double ry, const Pen& pen) {
    const Rect box{centre.x - rx, centre.y - ry, 2.0 * rx, 2.0 * ry};
    if (!isFinite(box))
        return;
    if (contains(area, box) &&
        !hasManyDashes(pen, 2.0 * std::numbers::pi * std::max(rx, ry), area)) {
        usePen(painter, bounded(pen, widestPen));
        painter.drawEllipse(centre.x, centre.y, rx, ry);
        return;
    }
    auto ring = ellipsePoints(centre, rx, ry);
    ring.push_back(ring.front());
    drawPolyline(ring, pen);
}

void Canvas::fillRect(const Rect& rect, const Color& color) {
    if (!isFinite(rect))
        return;
    const Rect visible = intersected(rect, area);
    if (!visible.isEmpty())
        painter.fillRect(visible, color);
}

void Canvas::fillPolygon(const std::vector<Point>& points, const Color& color) {
    const auto visible = clipPolygon(points, area);
    if (!visible.empty())
        painter.fillPolygon(visible, color);
}

void Canvas::fillEllipse(const Point& centre, double rx, double ry, const Color& color) {
    const Rect box{centre.x - rx, centre.y - ry, 2.0 * rx, 2.0 * ry};
    if (!isFinite(box) || intersected(box, area).isEmpty())
        return;
    if (contains(area, box))
        painter.fillEllipse(centre.x, centre.y, rx, ry, color);
    else
        fillPolygon(ellipsePoints(centre, rx, ry), color);
}

void Canvas::fillDiscs(const std::function<bool(std::vector<Point>&)>& next, double radius,
                       const Color& color) {
    constexpr std::size_t few = 2000;
    constexpr double largest = 64.0;
    if (!(radius > 0.0))
        return;
    radius = std::min(radius, 0.5 * largestMarker);
    // Kept from frame to frame for their memory.
    thread_local std::vector<Point> chunk;
    thread_local std::vector<Point> waiting;
    thread_local DiscRaster raster;
    waiting.clear();
    bool many = false;
    while (next(chunk)) {
        if (!many && radius <= largest && waiting.size() + chunk.size() > few) {
            many = true;
            raster.begin(area, radius, color);
            for (const Point& centre : waiting)
                raster.add(centre);
        }
        if (many) {
            for (const Point& centre : chunk)
                raster.add(centre);
        } else if (radius <= largest) {
            waiting.insert(waiting.end(), chunk.begin(), chunk.end());
        } else {
            for (const Point& centre : chunk)
                fillEllipse(centre, radius, radius, color);
        }
    }
    if (many) {
        drawPicture(painter, raster.finish(), buffers);
        return;
    }
    for (const Point& centre : waiting)
        fillEllipse(centre, radius, radius, color);
}

void Canvas::fillMarker(MarkerShape shape, const Marker& marker) {
    if (!std::isfinite(marker.size) || !(marker.size > 0.0) || marker.color.alpha() == 0)
        return;
    const double size = std::min(marker.size, largestMarker);
    if (shape == MarkerShape::Circle) {
        fillEllipse(marker.centre, 0.5 * size, 0.5 * size, marker.color);
        return;
    }
    std::vector<Point> outline = markerOutline(shape, size);
    for (Point& p : outline)
        p = {p.x + marker.centre.x, p.y + marker.centre.y};
    fillPolygon(outline, marker.color);
}

void Canvas::fillMarkers(MarkerShape shape, const std::function<bool(std::vector<Marker>&)>& next) {
    constexpr std::size_t few = 2000;
    // Kept from frame to frame for their memory.
    thread_local std::vector<Marker> chunk;
    thread_local std::vector<Marker> waiting;
    thread_local MarkerRaster raster;
    waiting.clear();
    bool many = false;
    const auto add = [&](const std::vector<Marker>& markers) {
        for (const Marker& marker : markers)
            if (marker.size > 0.0)
                raster.add(marker);
    };
    while (next(chunk)) {
        if (many) {
            add(chunk);
            continue;
        }
        waiting.insert(waiting.end(), chunk.begin(), chunk.end());
        if (waiting.size() > few) {
            many = true;
            raster.begin(area, shape);
            add(waiting);
        }
    }
    if (many) {
        drawPicture(painter, raster.finish(), buffers);
        return;
    }
    for (auto marker = waiting.rbegin(); marker != waiting.rend(); ++marker)
        fillMarker(shape, *marker);
}

void Canvas::drawImage(const std::shared_ptr<const std::vector<std::uint8_t>>& rgba, int width,
                       int height, const Point& corner) {
    if (!rgba || width <= 0 || height <= 0 || !std::isfinite(corner.x) ||
        !std::isfinite(corner.y) ||
        rgba->size() != static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * 4)
        return;
    const Rect box{corner.x, corner.y, static_cast<double>(width), static_cast<double>(height)};
    const Rect visible = intersected(box, area);
    if (visible.isEmpty())
        return;
    if (visible == box) {
        buffers.push_back(rgba);
        painter.drawImage(rgba->data(), width, height, corner.x + 0.5 * width,
                          corner.y + 0.5 * height);
        return;
    }
    // Whole pixels only: the outermost ones may be cut in half by the canvas and are kept if their
    // centre lies inside.
    const int left = std::max(0, static_cast<int>(std::ceil(area.left() - corner.x - 0.5)));
    const int top = std::max(0, static_cast<int>(std::ceil(area.top() - corner.y - 0.5)));
    const int right = std::min(width, static_cast<int>(std::floor(area.right() - corner.x + 0.5)));
    const int bottom =
        std::min(height, static_cast<int>(std::floor(area.bottom() - corner.y + 0.5)));
    if (left >= right || top >= bottom)
        return;
    auto cropped = std::make_shared<std::vector<std::uint8_t>>();
    cropped->reserve(static_cast<std::size_t>(right - left) *
                     static_cast<std::size_t>(bottom - top) * 4);
    for (int row = top; row < bottom; ++row) {
        const auto* line = rgba->data() + (static_cast<std::ptrdiff_t>(row) * width + left) * 4;
        cropped->insert(cropped->end(), line, line + static_cast<std::ptrdiff_t>(right - left) * 4);
    }
    buffers.push_back(cropped);
    painter.drawImage(cropped->data(), right - left, bottom - top, corner.x + 0.5 * (left + right),
                      corner.y + 0.5 * (top + bottom));
}

void Canvas::drawText(const Point& baseline, const std::string& text, const Font& font,
                      const Color& color) {
    if (text.empty() || !std::isfinite(baseline.x) || !std::isfinite(baseline.y))
        return;
    const TextExtent extent = measureText(text, font);
    if (contains(area, {baseline.x, baseline.y - extent.height, extent.width, extent.height}))
        painter.drawText(baseline.x, baseline.y, text, font, color);
}

TextExtent Canvas::measureText(const std::string& text, const Font& font) {
    return ruler ? ruler(text, font) : painter.measureText(text, font);
}

} // namespace zembra
