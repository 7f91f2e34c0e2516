// SPDX-License-Identifier: MIT
#include <zembra/series/SourceSeries.h>

#include <zembra/series/Canvas.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>
#include <vector>

namespace zembra {

namespace {

// The part of an interval that a scale can place, told by its ends.
Interval placed(const Interval& values, const Scale& scale) {
    Interval part;
    if (scale.contains(values.min))
        part.include(values.min);
    if (scale.contains(values.max))
        part.include(values.max);
    return part;
}

// Columns of pixels and what lies in them, aligned so that a pan by whole columns asks for the same
// columns again.
ColumnRequest requestFor(const ScaleMap& map, const Rect& area) {
    const double one = map.invTransform(area.left());
    const double other = map.invTransform(area.right());
    ColumnRequest request{std::min(one, other), std::max(one, other), 0};
    const double span = request.end - request.begin;
    const double count = std::ceil(area.width);
    if (!(std::isfinite(span) && span > 0.0 && count >= 1.0))
        return request;
    request.columns = static_cast<std::size_t>(count);
    const double column = span / count;
    const double begin = std::floor(request.begin / column) * column;
    if (std::isfinite(begin) && begin + column > begin) {
        request.begin = begin;
        request.columns += 1;
        request.end = begin + column * static_cast<double>(request.columns);
    }
    return request;
}

} // namespace

struct SourceSeries::Private {
    std::shared_ptr<SampleSource> source;
    // The revisions of the sources before this one, so that the sum only grows.
    std::uint64_t pastRevisions = 0;
    double width = 1.5;
    // Kept from frame to frame for its memory.
    std::vector<Point> path;

    void add(const Canvas& canvas, const ColumnExtent& column);
};

void SourceSeries::Private::add(const Canvas& canvas, const ColumnExtent& column) {
    constexpr double gap = std::numeric_limits<double>::quiet_NaN();
    if (column.afterGap)
        path.push_back({gap, gap});
    path.push_back(canvas.toPixel(column.firstX, column.firstY));
    // Where the extremes lie between is not known; they are likely to lie on the way.
    const double low = std::min(column.firstY, column.lastY);
    const double high = std::max(column.firstY, column.lastY);
    if (column.minY < low || column.maxY > high) {
        const bool up = column.firstY <= column.lastY;
        const auto between = [&](double share, double y) {
            path.push_back(canvas.toPixel(std::lerp(column.firstX, column.lastX, share), y));
        };
        between(0.25, up ? column.minY : column.maxY);
        between(0.75, up ? column.maxY : column.minY);
    }
    if (column.lastX != column.firstX || column.lastY != column.firstY)
        path.push_back(canvas.toPixel(column.lastX, column.lastY));
}

SourceSeries::SourceSeries() : d(std::make_unique<Private>()) {}

SourceSeries::SourceSeries(std::shared_ptr<SampleSource> source, std::string name)
    : SourceSeries() {
    setSource(std::move(source));
    setName(std::move(name));
}

SourceSeries::~SourceSeries() = default;

void SourceSeries::setSource(std::shared_ptr<SampleSource> source) {
    if (d->source)
        d->pastRevisions += d->source->revision();
    d->source = std::move(source);
    changed();
}

const std::shared_ptr<SampleSource>& SourceSeries::source() const {
    return d->source;
}

void SourceSeries::setWidth(double width) {
    if (!std::isfinite(width) || width < 0.0)
        return;
    d->width = width;
    changed();
}

double SourceSeries::width() const {
    return d->width;
}

Bounds SourceSeries::bounds(const Scale& x, const Scale& y) const {
    if (!d->source)
        return {};
    const SampleBounds all = d->source->bounds();
    return {placed(all.x, x), placed(all.y, y)};
}

void SourceSeries::draw(Canvas& canvas) const {
    const ColumnRequest request = requestFor(canvas.x(), canvas.rect());
    if (!d->source || request.columns == 0)
        return;
    const auto answer = d->source->extents(request);
    if (!answer)
        return;
    d->path.clear();
    for (const ColumnExtent& column : *answer)
        d->add(canvas, column);
    canvas.drawPolyline(d->path, Pen(canvas.look().color, d->width));
}

void SourceSeries::drawLegendKey(Canvas& canvas, const Rect& area) const {
    const double middle = area.y + 0.5 * area.height;
    canvas.drawLine({area.left(), middle}, {area.right(), middle},
                    Pen(canvas.look().color, d->width));
}

std::uint64_t SourceSeries::revision() const {
    return Series::revision() + d->pastRevisions + (d->source ? d->source->revision() : 0);
}

} // namespace zembra
