// SPDX-License-Identifier: MIT
#include <zembra/series/SpanAnnotation.h>

#include <zembra/series/Canvas.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace zembra {

namespace {

constexpr double labelGap = 4.0;

} // namespace

struct SpanAnnotation::Private {
    AcrossCanvas direction;
    Coordinate from;
    Coordinate to;
    std::string label;
};

SpanAnnotation::SpanAnnotation(AcrossCanvas direction, Coordinate from, Coordinate to,
                               std::string label)
    : d(new Private{direction, from, to, std::move(label)}) {}

SpanAnnotation::~SpanAnnotation() = default;

void SpanAnnotation::setSpan(Coordinate from, Coordinate to) {
    d->from = from;
    d->to = to;
    changed();
}

Coordinate SpanAnnotation::from() const {
    return d->from;
}

Coordinate SpanAnnotation::to() const {
    return d->to;
}

void SpanAnnotation::setLabel(std::string label) {
    d->label = std::move(label);
    changed();
}

const std::string& SpanAnnotation::label() const {
    return d->label;
}

Color SpanAnnotation::tint(const Canvas& canvas) const {
    return color().value_or(canvas.look().foreground.withAlpha(26));
}

void SpanAnnotation::draw(Canvas& canvas) const {
    const Rect& area = canvas.rect();
    const bool vertical = d->direction == AcrossCanvas::Vertical;
    const double one = vertical ? column(canvas, d->from) : row(canvas, d->from);
    const double other = vertical ? column(canvas, d->to) : row(canvas, d->to);
    if (!std::isfinite(one) || !std::isfinite(other))
        return;
    const double low = std::max(std::min(one, other), vertical ? area.left() : area.top());
    const double high = std::min(std::max(one, other), vertical ? area.right() : area.bottom());
    if (!(low < high))
        return;
    canvas.fillRect(vertical ? Rect{low, area.top(), high - low, area.height}
                             : Rect{area.left(), low, area.width, high - low},
                    tint(canvas));
    if (d->label.empty())
        return;
    const Font& font = canvas.look().font;
    const TextExtent extent = canvas.measureText(d->label, font);
    const Point corner = vertical ? Point{low, area.top()} : Point{area.left(), low};
    if ((vertical ? extent.width : extent.height) + 2.0 * labelGap <= high - low)
        canvas.drawText({corner.x + labelGap, corner.y + labelGap + extent.height}, d->label, font,
                        canvas.look().foreground);
}

void SpanAnnotation::drawLegendKey(Canvas& canvas, const Rect& area) const {
    canvas.fillRect(area, tint(canvas));
}

} // namespace zembra
