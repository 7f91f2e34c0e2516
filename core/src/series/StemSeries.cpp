// SPDX-License-Identifier: MIT
#include <zembra/series/StemSeries.h>

#include "NearestPoint.h"
#include "SideView.h"
#include "SortedRows.h"

#include <zembra/data/Samples.h>
#include <zembra/series/Canvas.h>

#include <cmath>
#include <utility>

namespace zembra {

struct StemSeries::Private {
    // In order of x; without samples that are not finite.
    std::vector<double> x;
    std::vector<double> y;
    std::vector<std::size_t> order;
    // Over the vectors above.
    Samples row;
    StemStyle style;

    void drawColumns(Canvas& canvas, double base) const;
};

StemSeries::StemSeries() : d(std::make_unique<Private>()) {}

StemSeries::StemSeries(std::vector<double> x, std::vector<double> y, std::string name)
    : StemSeries() {
    setSamples(std::move(x), std::move(y));
    setName(std::move(name));
}

StemSeries::~StemSeries() = default;

void StemSeries::setSamples(std::vector<double> x, std::vector<double> y) {
    const std::size_t count = std::min(x.size(), y.size());
    d->order = ascendingOrder(std::span(x).first(count),
                              [&](std::size_t i) { return std::isfinite(y[i]); });
    d->x = gathered(x, d->order);
    d->y = gathered(y, d->order);
    d->row = Samples::borrowed(d->x, d->y);
    changed();
}

bool StemSeries::setStyle(const StemStyle& style) {
    const auto usable = [](double size) { return std::isfinite(size) && size >= 0.0; };
    if (!std::isfinite(style.baseline) || !usable(style.lineWidth) || !usable(style.headSize))
        return false;
    d->style = style;
    changed();
    return true;
}

const StemStyle& StemSeries::style() const {
    return d->style;
}

Bounds StemSeries::bounds(const Scale& x, const Scale& y) const {
    const SampleBounds covered = d->row.bounds(x, y);
    Bounds bounds{covered.x, covered.y};
    if (!covered.x.isEmpty() && y.contains(d->style.baseline))
        bounds.y.include(d->style.baseline);
    return bounds;
}

void StemSeries::Private::drawColumns(Canvas& canvas, double base) const {
    const Rect& area = canvas.rect();
    forEachColumn(
        x, canvas.x(), area.left(), area.right(), [&](double column, const SampleRange& range) {
            const Interval covered = row.yExtent(range.first, range.last);
            const auto [top, bottom] = std::minmax(
                {pixelOrEnd(canvas.y(), covered.min), pixelOrEnd(canvas.y(), covered.max), base});
            canvas.fillRect({column, top, 1.0, bottom - top}, canvas.look().color);
        });
}

void StemSeries::draw(Canvas& canvas) const {
    const Rect& area = canvas.rect();
    const Color color = canvas.look().color;
    const double base = pixelOrEnd(canvas.y(), d->style.baseline);
    const double radius = 0.5 * d->style.headSize;
    const double reach = std::max(radius, d->style.lineWidth);
    const SampleRange seen =
        rangeBetween(d->x, canvas.x(), area.left() - reach, area.right() + reach);
    if (static_cast<double>(seen.count()) > area.width) {
        d->drawColumns(canvas, base);
        return;
    }
    drawBaseline(canvas, SideView(canvas, Orientation::Vertical), d->style.baseline);
    const Pen pen(color, d->style.lineWidth);
    for (std::size_t i = seen.first; i < seen.last; ++i) {
        const Point head{heldPixel(canvas.x(), d->x[i]), heldPixel(canvas.y(), d->y[i])};
        if (std::isnan(head.x) || std::isnan(head.y))
            continue;
        canvas.drawLine({head.x, base}, head, pen);
        if (radius > 0.0)
            canvas.fillEllipse(head, radius, radius, color);
    }
}

void StemSeries::drawLegendKey(Canvas& canvas, const Rect& area) const {
    const double radius = std::min(0.5 * d->style.headSize, 0.35 * area.height);
    const double middle = area.x + 0.5 * area.width;
    const Point head{middle, area.top() + radius};
    canvas.drawLine({middle, area.bottom()}, head, Pen(canvas.look().color, d->style.lineWidth));
    if (radius > 0.0)
        canvas.fillEllipse(head, radius, radius, canvas.look().color);
}

std::optional<NearestSample> StemSeries::findNearest(const Point& pixel, const ScaleMap& x,
                                                     const ScaleMap& y) const {
    auto found = nearestPoint(d->row, pixel, x, y);
    if (found)
        found->index = d->order[found->index];
    return found;
}

} // namespace zembra
