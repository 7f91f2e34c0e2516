// SPDX-License-Identifier: MIT
#include <zembra/series/LineAnnotation.h>

#include <zembra/series/Canvas.h>

#include <cmath>
#include <utility>

namespace zembra {

namespace {

constexpr double labelGap = 4.0;

} // namespace

struct LineAnnotation::Private {
    AcrossCanvas direction;
    Coordinate at;
    std::string label;
    double width = 1.0;
    PenStyle style = PenStyle::Dash;

    Pen pen(const Color& color) const {
        Pen pen(color, width);
        pen.setStyle(style);
        return pen;
    }
};

LineAnnotation::LineAnnotation(AcrossCanvas direction, Coordinate at, std::string label)
    : d(new Private{direction, at, std::move(label)}) {}

LineAnnotation::~LineAnnotation() = default;

void LineAnnotation::setPosition(Coordinate at) {
    d->at = at;
    changed();
}

Coordinate LineAnnotation::position() const {
    return d->at;
}

void LineAnnotation::setLabel(std::string label) {
    d->label = std::move(label);
    changed();
}

const std::string& LineAnnotation::label() const {
    return d->label;
}

void LineAnnotation::setWidth(double width) {
    if (!std::isfinite(width) || width < 0.0)
        return;
    d->width = width;
    changed();
}

double LineAnnotation::width() const {
    return d->width;
}

void LineAnnotation::setStyle(PenStyle style) {
    d->style = style;
    changed();
}

PenStyle LineAnnotation::style() const {
    return d->style;
}

void LineAnnotation::draw(Canvas& canvas) const {
    const Rect& area = canvas.rect();
    const Color color = ink(canvas);
    const Font& font = canvas.look().font;
    const TextExtent extent = d->label.empty() ? TextExtent() : canvas.measureText(d->label, font);
    if (d->direction == AcrossCanvas::Horizontal) {
        const double y = row(canvas, d->at);
        canvas.drawLine({area.left(), y}, {area.right(), y}, d->pen(color));
        // Above the line, below it where it runs along the upper edge.
        const bool above = y - labelGap - extent.height >= area.top();
        if (y >= area.top() && y <= area.bottom())
            canvas.drawText({area.right() - extent.width - labelGap,
                             above ? y - labelGap : y + labelGap + extent.height},
                            d->label, font, color);
        return;
    }
    const double x = column(canvas, d->at);
    canvas.drawLine({x, area.bottom()}, {x, area.top()}, d->pen(color));
    const bool right = x + labelGap + extent.width <= area.right();
    if (x >= area.left() && x <= area.right())
        canvas.drawText({right ? x + labelGap : x - labelGap - extent.width,
                         area.top() + labelGap + extent.height},
                        d->label, font, color);
}

void LineAnnotation::drawLegendKey(Canvas& canvas, const Rect& area) const {
    const double middle = area.y + 0.5 * area.height;
    canvas.drawLine({area.left(), middle}, {area.right(), middle}, d->pen(ink(canvas)));
}

} // namespace zembra
