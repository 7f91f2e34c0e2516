// SPDX-License-Identifier: MIT
#include <zembra/series/ArrowAnnotation.h>

#include <zembra/paint/Pen.h>
#include <zembra/series/Canvas.h>

#include <algorithm>
#include <cmath>

namespace zembra {

struct ArrowAnnotation::Private {
    Position from;
    Position to;
    double width = 1.5;

    void drawArrow(Canvas& canvas, const Point& tail, const Point& tip, const Color& color) const;
};

void ArrowAnnotation::Private::drawArrow(Canvas& canvas, const Point& tail, const Point& tip,
                                         const Color& color) const {
    const double length = std::hypot(tip.x - tail.x, tip.y - tail.y);
    if (!std::isfinite(length) || length < 1.0)
        return;
    const Point along{(tip.x - tail.x) / length, (tip.y - tail.y) / length};
    const double head = std::min(6.0 + 2.0 * width, length);
    const double half = 0.4 * head;
    const Point base{tip.x - head * along.x, tip.y - head * along.y};
    canvas.drawLine(tail, base, Pen(color, width));
    canvas.fillPolygon({tip,
                        {base.x - half * along.y, base.y + half * along.x},
                        {base.x + half * along.y, base.y - half * along.x}},
                       color);
}

ArrowAnnotation::ArrowAnnotation(Position from, Position to) : d(new Private{from, to}) {}

ArrowAnnotation::~ArrowAnnotation() = default;

void ArrowAnnotation::setEnds(Position from, Position to) {
    d->from = from;
    d->to = to;
    changed();
}

const Position& ArrowAnnotation::from() const {
    return d->from;
}

const Position& ArrowAnnotation::to() const {
    return d->to;
}

void ArrowAnnotation::setWidth(double width) {
    if (!std::isfinite(width) || width < 0.0)
        return;
    d->width = width;
    changed();
}

double ArrowAnnotation::width() const {
    return d->width;
}

void ArrowAnnotation::draw(Canvas& canvas) const {
    d->drawArrow(canvas, place(canvas, d->from), place(canvas, d->to), ink(canvas));
}

void ArrowAnnotation::drawLegendKey(Canvas& canvas, const Rect& area) const {
    const double middle = area.y + 0.5 * area.height;
    d->drawArrow(canvas, {area.left(), middle}, {area.right(), middle}, ink(canvas));
}

} // namespace zembra
