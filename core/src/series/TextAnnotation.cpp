// SPDX-License-Identifier: MIT
#include <zembra/series/TextAnnotation.h>

#include <zembra/paint/Pen.h>
#include <zembra/series/Canvas.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace zembra {

namespace {

constexpr double padding = 3.0;
constexpr double dotRadius = 2.0;

// Where the line from the middle of a box to a point outside leaves the box.
Point edgeTowards(const Rect& box, const Point& target) {
    const Point middle{box.x + 0.5 * box.width, box.y + 0.5 * box.height};
    const double dx = target.x - middle.x;
    const double dy = target.y - middle.y;
    const double share = std::max(2.0 * std::abs(dx) / box.width, 2.0 * std::abs(dy) / box.height);
    return {middle.x + dx / share, middle.y + dy / share};
}

} // namespace

struct TextAnnotation::Private {
    Position place;
    std::string text;
    Point offset = {40.0, -30.0};
};

TextAnnotation::TextAnnotation(Position place, std::string text)
    : d(new Private{place, std::move(text)}) {}

TextAnnotation::~TextAnnotation() = default;

void TextAnnotation::setPlace(Position place) {
    d->place = place;
    changed();
}

const Position& TextAnnotation::place() const {
    return d->place;
}

void TextAnnotation::setText(std::string text) {
    d->text = std::move(text);
    changed();
}

const std::string& TextAnnotation::text() const {
    return d->text;
}

void TextAnnotation::setOffset(const Point& offset) {
    if (!std::isfinite(offset.x) || !std::isfinite(offset.y))
        return;
    d->offset = offset;
    changed();
}

const Point& TextAnnotation::offset() const {
    return d->offset;
}

void TextAnnotation::draw(Canvas& canvas) const {
    const Rect& area = canvas.rect();
    const Point target = Annotation::place(canvas, d->place);
    if (d->text.empty() || !std::isfinite(target.x) || !std::isfinite(target.y) ||
        !area.contains(target))
        return;
    const Font& font = canvas.look().font;
    const TextExtent extent = canvas.measureText(d->text, font);
    Rect box{target.x + d->offset.x - 0.5 * extent.width - padding,
             target.y + d->offset.y - 0.5 * extent.height - padding, extent.width + 2.0 * padding,
             extent.height + 2.0 * padding};
    if (box.width > area.width || box.height > area.height)
        return;
    box.x = std::round(std::clamp(box.x, area.left(), area.right() - box.width));
    box.y = std::round(std::clamp(box.y, area.top(), area.bottom() - box.height));
    const Color color = ink(canvas);
    if (!box.grown(dotRadius).contains(target)) {
        canvas.drawLine(edgeTowards(box, target), target, Pen(color, 1.0));
        canvas.fillEllipse(target, dotRadius, dotRadius, color);
    }
    // A ground keeps the text readable over lines.
    canvas.fillRect(box, canvas.look().background.withAlpha(200));
    // Digits and capitals reach about seven tenths of the size up from the baseline.
    canvas.drawText({box.x + padding, box.y + padding + 0.85 * extent.height}, d->text, font,
                    color);
}

void TextAnnotation::drawLegendKey(Canvas& canvas, const Rect& area) const {
    canvas.fillEllipse({area.x + 0.5 * area.width, area.y + 0.5 * area.height}, dotRadius,
                       dotRadius, ink(canvas));
}

} // namespace zembra
