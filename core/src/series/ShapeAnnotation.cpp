// SPDX-License-Identifier: MIT
#include <zembra/series/ShapeAnnotation.h>

#include "Clip.h"

#include <zembra/paint/Pen.h>
#include <zembra/series/Canvas.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace zembra {

struct ShapeAnnotation::Private {
    AnnotationShape shape;
    std::vector<Position> corners;
    double width = 1.0;
    double opacity = 0.12;

    Color filling(const Color& color) const {
        return color.withAlpha(static_cast<int>(std::lround(opacity * color.alpha())));
    }
    void drawPolygon(Canvas& canvas, std::vector<Point> points, const Color& color) const;
    void drawBox(Canvas& canvas, const Rect& box, const Color& color) const;
};

void ShapeAnnotation::Private::drawPolygon(Canvas& canvas, std::vector<Point> points,
                                           const Color& color) const {
    if (points.size() < 3 ||
        !std::all_of(points.begin(), points.end(), [](const Point& p) { return isFinite(p); }))
        return;
    if (opacity > 0.0)
        canvas.fillPolygon(points, filling(color));
    points.push_back(points.front());
    if (width > 0.0)
        canvas.drawPolyline(points, Pen(color, width));
}

void ShapeAnnotation::Private::drawBox(Canvas& canvas, const Rect& box, const Color& color) const {
    const Point centre{box.x + 0.5 * box.width, box.y + 0.5 * box.height};
    const Pen pen(color, width);
    if (shape == AnnotationShape::Ellipse) {
        if (opacity > 0.0)
            canvas.fillEllipse(centre, 0.5 * box.width, 0.5 * box.height, filling(color));
        if (width > 0.0)
            canvas.drawEllipse(centre, 0.5 * box.width, 0.5 * box.height, pen);
        return;
    }
    if (opacity > 0.0)
        canvas.fillRect(box, filling(color));
    if (width > 0.0)
        canvas.drawRect(box, pen);
}

ShapeAnnotation::ShapeAnnotation(AnnotationShape shape, std::vector<Position> corners)
    : d(new Private{shape, std::move(corners)}) {}

ShapeAnnotation::~ShapeAnnotation() = default;

void ShapeAnnotation::setCorners(std::vector<Position> corners) {
    d->corners = std::move(corners);
    changed();
}

const std::vector<Position>& ShapeAnnotation::corners() const {
    return d->corners;
}

void ShapeAnnotation::setWidth(double width) {
    if (!std::isfinite(width) || width < 0.0)
        return;
    d->width = width;
    changed();
}

double ShapeAnnotation::width() const {
    return d->width;
}

void ShapeAnnotation::setOpacity(double opacity) {
    if (!(opacity >= 0.0 && opacity <= 1.0))
        return;
    d->opacity = opacity;
    changed();
}

double ShapeAnnotation::opacity() const {
    return d->opacity;
}

void ShapeAnnotation::draw(Canvas& canvas) const {
    std::vector<Point> points;
    for (const Position& corner : d->corners)
        points.push_back(place(canvas, corner));
    if (d->shape == AnnotationShape::Polygon) {
        d->drawPolygon(canvas, std::move(points), ink(canvas));
        return;
    }
    if (points.size() < 2)
        return;
    const auto [left, right] = std::minmax(points[0].x, points[1].x);
    const auto [top, bottom] = std::minmax(points[0].y, points[1].y);
    d->drawBox(canvas, {left, top, right - left, bottom - top}, ink(canvas));
}

void ShapeAnnotation::drawLegendKey(Canvas& canvas, const Rect& area) const {
    const Rect box = area.grown(-1.0);
    if (d->shape == AnnotationShape::Polygon)
        d->drawPolygon(canvas,
                       {{box.left(), box.bottom()},
                        {box.x + 0.5 * box.width, box.top()},
                        {box.right(), box.bottom()}},
                       ink(canvas));
    else
        d->drawBox(canvas, box, ink(canvas));
}

} // namespace zembra
