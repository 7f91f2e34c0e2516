// SPDX-License-Identifier: MIT
#include <zembra/series/HistogramSeries.h>

#include "SideView.h"
#include "SortedRows.h"

#include <zembra/data/Samples.h>
#include <zembra/series/Canvas.h>

#include <cmath>
#include <limits>
#include <numeric>
#include <utility>

namespace zembra {

namespace {

// Units: logical pixels. Wide bins stand a pixel apart, so that equal neighbours can be counted.
constexpr double gapFrom = 5.0;

} // namespace

struct HistogramSeries::Private {
    // Finite ones only.
    std::vector<double> samples;
    Bins bins;
    HistogramStyle style;
    std::vector<double> edges;
    std::vector<std::size_t> counts;
    std::vector<double> heights;
    // Heights over the lower edges of their bins.
    Samples row;
    mutable BoundsCache boundsCache;

    void count();
    void measure();
    Rect rect(const SideView& view, std::size_t bin) const;
    SampleRange seen(const SideView& view) const;
};

void HistogramSeries::Private::count() {
    edges = bins.edgesFor(samples);
    counts.assign(edges.empty() ? 0 : edges.size() - 1, 0);
    for (const double sample : samples) {
        if (sample < edges.front() || sample > edges.back())
            continue;
        const auto above = std::upper_bound(edges.begin(), edges.end(), sample);
        const auto bin = static_cast<std::size_t>(above - edges.begin()) - 1;
        ++counts[std::min(bin, counts.size() - 1)];
    }
    measure();
}

void HistogramSeries::Private::measure() {
    heights.clear();
    heights.reserve(counts.size());
    for (std::size_t i = 0; i < counts.size(); ++i) {
        const auto count = static_cast<double>(counts[i]);
        const double share = count / static_cast<double>(samples.size());
        const double density = share / (edges[i + 1] - edges[i]);
        heights.push_back(style.height == HistogramHeight::Count ? count
                          : std::isfinite(density)               ? density
                                                   : std::numeric_limits<double>::max());
    }
    row = Samples::borrowed(std::span(edges).first(heights.size()), heights);
}

Rect HistogramSeries::Private::rect(const SideView& view, std::size_t bin) const {
    auto [low, high] = std::minmax({std::round(view.positionOrEnd(edges[bin])),
                                    std::round(view.positionOrEnd(edges[bin + 1]))});
    double left = low;
    double right = high;
    if (right - left >= gapFrom)
        right -= 1.0;
    else if (right - left < 1.0)
        right = left + 1.0;
    return view.rect(left, right, std::round(view.valueOrEnd(0.0)),
                     std::round(view.valueOrEnd(heights[bin])));
}

SampleRange HistogramSeries::Private::seen(const SideView& view) const {
    const PixelSpan span = view.positionSpan();
    SampleRange range = rangeBetween(std::span(edges).first(heights.size()), view.positions(),
                                     span.low - 1.0, span.high + 1.0);
    // The bin that begins before the canvas may reach into it.
    if (range.first > 0)
        --range.first;
    return range;
}

HistogramSeries::HistogramSeries() : d(std::make_unique<Private>()) {}

HistogramSeries::HistogramSeries(std::vector<double> samples, std::string name)
    : HistogramSeries() {
    setSamples(std::move(samples));
    setName(std::move(name));
}

HistogramSeries::~HistogramSeries() = default;

void HistogramSeries::setSamples(std::vector<double> samples) {
    std::erase_if(samples, [](double sample) { return !std::isfinite(sample); });
    d->samples = std::move(samples);
    d->count();
    changed();
}

void HistogramSeries::setBins(const Bins& bins) {
    d->bins = bins;
    d->count();
    changed();
}

const Bins& HistogramSeries::bins() const {
    return d->bins;
}

void HistogramSeries::setStyle(const HistogramStyle& style) {
    d->style = style;
    d->measure();
    changed();
}

const HistogramStyle& HistogramSeries::style() const {
    return d->style;
}

const std::vector<double>& HistogramSeries::edges() const {
    return d->edges;
}

const std::vector<std::size_t>& HistogramSeries::counts() const {
    return d->counts;
}

const std::vector<double>& HistogramSeries::heights() const {
    return d->heights;
}

Bounds HistogramSeries::bounds(const Scale& x, const Scale& y) const {
    const bool lies = d->style.orientation == Orientation::Horizontal;
    return d->boundsCache.get(revision(), x, y, [&] {
        const Scale& positionScale = lies ? y : x;
        const Scale& valueScale = lies ? x : y;
        Interval positions;
        Interval values;
        for (std::size_t i = 0; i < d->heights.size(); ++i) {
            const double low = d->edges[i];
            const double high = d->edges[i + 1];
            if (!positionScale.contains(high) || !valueScale.contains(d->heights[i]))
                continue;
            positions.include(positionScale.contains(low) ? low : high);
            positions.include(high);
            values.include(d->heights[i]);
        }
        if (!positions.isEmpty() && valueScale.contains(0.0))
            values.include(0.0);
        return turnedBounds(positions, values, !positions.isEmpty(), d->style.orientation);
    });
}

void HistogramSeries::draw(Canvas& canvas) const {
    const SideView view(canvas, d->style.orientation);
    const Color color = canvas.look().color;
    const PixelSpan span = view.positionSpan();
    const SampleRange seen = d->seen(view);
    if (static_cast<double>(seen.count()) <= span.length()) {
        for (std::size_t i = seen.first; i < seen.last; ++i)
            canvas.fillRect(d->rect(view, i), color);
        return;
    }
    const double base = view.valueOrEnd(0.0);
    forEachColumn(std::span(d->edges).first(d->heights.size()), view.positions(), span.low,
                  span.high, [&](double column, const SampleRange& range) {
                      const Interval covered = d->row.yExtent(range.first, range.last);
                      canvas.fillRect(
                          view.rect(column, column + 1.0, base, view.valueOrEnd(covered.max)),
                          color);
                  });
}

void HistogramSeries::drawLegendKey(Canvas& canvas, const Rect& area) const {
    canvas.fillRect(area, canvas.look().color);
}

std::optional<NearestSample> HistogramSeries::findNearest(const Point& pixel, const ScaleMap& x,
                                                          const ScaleMap& y) const {
    const SideView view(x, y, d->style.orientation);
    const SampleRange seen = d->seen(view);
    const double along = view.isHorizontal() ? pixel.y : pixel.x;
    const auto places = std::span(d->edges).first(d->heights.size());
    const auto gap = [&](std::size_t i) {
        const auto [low, high] =
            std::minmax({view.positionOrEnd(d->edges[i]), view.positionOrEnd(d->edges[i + 1])});
        return std::max({low - along, along - high, 0.0}) - 1.0;
    };
    const auto distance = [&](std::size_t i) {
        const Rect rect = d->rect(view, i);
        return meets(rect, view.area()) ? distanceTo(rect, pixel)
                                        : std::numeric_limits<double>::quiet_NaN();
    };
    const auto start =
        std::lower_bound(places.begin(), places.end(), view.positions().invTransform(along));
    const auto found =
        nearestAround(static_cast<std::size_t>(start - places.begin()), seen, gap, distance);
    if (!found)
        return std::nullopt;
    const double middle = std::midpoint(d->edges[found->index], d->edges[found->index + 1]);
    return nearestSample(found->index, middle, d->heights[found->index], found->distance,
                         d->style.orientation);
}

} // namespace zembra
