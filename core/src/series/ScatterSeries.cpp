// SPDX-License-Identifier: MIT
#include <zembra/series/ScatterSeries.h>

#include "MarkerOutline.h"
#include "NearestPoint.h"
#include "PixelMap.h"

#include "data/SampleStore.h"

#include <zembra/series/Canvas.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace zembra {

struct ScatterSeries::Private {
    Samples samples;
    // The revisions of the samples before these, so that the sum only grows.
    std::uint64_t pastRevisions = 0;
    MarkerShape shape = MarkerShape::Circle;
    double markerSize = 6.0;
    std::vector<double> sizes;
    double largestOfSizes = 0.0;
    std::vector<Color> colors;
    std::vector<double> values;
    ColorScale colorScale;

    std::pair<std::size_t, std::size_t> between(double x1, double x2) const;
    std::pair<std::size_t, std::size_t> reaching(const ScaleMap& x, const Rect& reach) const;
    bool isUniform() const { return sizes.empty() && colors.empty() && values.empty(); }
    double sizeOf(std::size_t i) const { return i < sizes.size() ? sizes[i] : markerSize; }
    Color colorOf(std::size_t i, const Color& own) const;
    bool isShown(std::size_t i) const;
    void coverValues();
    void drawDiscs(Canvas& canvas) const;
    void drawMarkers(Canvas& canvas) const;
};

namespace {

constexpr std::size_t chunk = 1024;

bool isSize(double size) {
    return std::isfinite(size) && size > 0.0;
}

} // namespace

// The samples whose x may lie between the two values.
std::pair<std::size_t, std::size_t> ScatterSeries::Private::between(double x1, double x2) const {
    const std::size_t count = samples.size();
    if (!samples.isSorted() || !std::isfinite(x1) || !std::isfinite(x2))
        return {0, count};
    const double beyond = std::nextafter(std::max(x1, x2), std::numeric_limits<double>::infinity());
    return {samples.lowerBound(std::min(x1, x2)), samples.lowerBound(beyond)};
}

std::pair<std::size_t, std::size_t> ScatterSeries::Private::reaching(const ScaleMap& x,
                                                                     const Rect& reach) const {
    return between(x.invTransform(reach.left()), x.invTransform(reach.right()));
}

Color ScatterSeries::Private::colorOf(std::size_t i, const Color& own) const {
    if (!values.empty())
        return i < values.size() ? colorScale.color(values[i]) : colorScale.nanColor();
    return i < colors.size() ? colors[i] : own;
}

bool ScatterSeries::Private::isShown(std::size_t i) const {
    return isSize(sizeOf(i)) && colorOf(i, Color()).alpha() > 0;
}

void ScatterSeries::Private::coverValues() {
    Interval covered;
    for (const double value : values)
        if (colorScale.scale().contains(value))
            covered.include(value);
    colorScale.setDataRange(covered);
}

ScatterSeries::ScatterSeries() : d(std::make_unique<Private>()) {}

ScatterSeries::ScatterSeries(std::vector<double> x, std::vector<double> y, std::string name)
    : ScatterSeries(Samples(std::move(x), std::move(y)), std::move(name)) {}

ScatterSeries::ScatterSeries(Samples samples, std::string name) : ScatterSeries() {
    setSamples(std::move(samples));
    setName(std::move(name));
}

ScatterSeries::~ScatterSeries() = default;

void ScatterSeries::setSamples(std::vector<double> x, std::vector<double> y) {
    setSamples(Samples(std::move(x), std::move(y)));
}

void ScatterSeries::setSamples(Samples samples) {
    d->pastRevisions += d->samples.revision();
    d->samples = std::move(samples);
    changed();
}

const Samples& ScatterSeries::samples() const {
    return d->samples;
}

void ScatterSeries::setMarkerSize(double size) {
    if (!isSize(size))
        return;
    d->markerSize = size;
    changed();
}

double ScatterSeries::markerSize() const {
    return d->markerSize;
}

void ScatterSeries::setMarkerShape(MarkerShape shape) {
    d->shape = shape;
    changed();
}

MarkerShape ScatterSeries::markerShape() const {
    return d->shape;
}

void ScatterSeries::setMarkerSizes(std::vector<double> sizes) {
    d->sizes = std::move(sizes);
    d->largestOfSizes = 0.0;
    for (const double size : d->sizes)
        if (isSize(size))
            d->largestOfSizes = std::max(d->largestOfSizes, size);
    changed();
}

const std::vector<double>& ScatterSeries::markerSizes() const {
    return d->sizes;
}

void ScatterSeries::setMarkerColors(std::vector<Color> colors) {
    d->colors = std::move(colors);
    changed();
}

const std::vector<Color>& ScatterSeries::markerColors() const {
    return d->colors;
}

void ScatterSeries::setColorValues(std::vector<double> values) {
    d->values = std::move(values);
    d->coverValues();
    changed();
}

const std::vector<double>& ScatterSeries::colorValues() const {
    return d->values;
}

void ScatterSeries::setColorScale(ColorScale scale) {
    d->colorScale = std::move(scale);
    d->coverValues();
    changed();
}

const ColorScale* ScatterSeries::colorScale() const {
    return d->values.empty() ? nullptr : &d->colorScale;
}

Bounds ScatterSeries::bounds(const Scale& x, const Scale& y) const {
    const SampleBounds bounds = d->samples.bounds(x, y);
    return {bounds.x, bounds.y};
}

void ScatterSeries::Private::drawDiscs(Canvas& canvas) const {
    const Samples::Store& store = samples.store();
    const Rect reach = canvas.rect().grown(0.5 * markerSize + 1.0);
    const auto [first, last] = reaching(canvas.x(), reach);
    const PixelMap toX(canvas.x());
    const PixelMap toY(canvas.y());
    const auto next = [&, i = first, end = last](std::vector<Point>& centres) mutable {
        centres.clear();
        if (i == end)
            return false;
        const std::size_t stop = std::min(i + chunk, end);
        store.read([&](const auto& xs, const auto& ys) {
            store.rows(i, stop, [&](std::size_t from, std::size_t to) {
                for (std::size_t s = from; s < to; ++s) {
                    const Point centre{toX(xs[s]), toY(ys[s])};
                    if (reach.contains(centre))
                        centres.push_back(centre);
                }
            });
        });
        i = stop;
        return true;
    };
    canvas.fillDiscs(next, 0.5 * markerSize, canvas.look().color);
}

void ScatterSeries::Private::drawMarkers(Canvas& canvas) const {
    const Samples::Store& store = samples.store();
    const Rect reach = canvas.rect().grown(markerReach(std::max(markerSize, largestOfSizes)) + 1.0);
    const auto [first, last] = reaching(canvas.x(), reach);
    const PixelMap toX(canvas.x());
    const PixelMap toY(canvas.y());
    const Color own = canvas.look().color;
    const auto next = [&, begin = first, i = last](std::vector<Marker>& markers) mutable {
        markers.clear();
        if (i == begin)
            return false;
        const std::size_t stop = i - std::min(chunk, i - begin);
        store.read([&](const auto& xs, const auto& ys) {
            while (i > stop) {
                const std::size_t slot = store.slot(--i);
                const Point centre{toX(xs[slot]), toY(ys[slot])};
                const double size = sizeOf(i);
                if (reach.contains(centre) && isSize(size))
                    markers.push_back({centre, size, colorOf(i, own)});
            }
        });
        return true;
    };
    canvas.fillMarkers(shape, next);
}

void ScatterSeries::draw(Canvas& canvas) const {
    if (d->shape == MarkerShape::Circle && d->isUniform())
        d->drawDiscs(canvas);
    else
        d->drawMarkers(canvas);
}

void ScatterSeries::drawLegendKey(Canvas& canvas, const Rect& area) const {
    const double middle = area.y + 0.5 * area.height;
    const double size = std::min(d->markerSize, area.height);
    if (d->values.empty()) {
        canvas.fillMarker(d->shape,
                          {{area.x + 0.5 * area.width, middle}, size, canvas.look().color});
        return;
    }
    // Both ends and the middle of the colours.
    for (int i = 0; i < 3; ++i)
        canvas.fillMarker(d->shape, {{area.x + area.width * (2 * i + 1) / 6.0, middle},
                                     std::min(size, area.width / 4.0),
                                     d->colorScale.map().at(0.5 * i)});
}

std::optional<NearestSample> ScatterSeries::findNearest(const Point& pixel, const ScaleMap& x,
                                                        const ScaleMap& y) const {
    if (d->isUniform())
        return nearestPoint(d->samples, pixel, x, y);
    return nearestPoint(d->samples, pixel, x, y, [this](std::size_t i) { return d->isShown(i); });
}

std::uint64_t ScatterSeries::revision() const {
    return Series::revision() + d->pastRevisions + d->samples.revision();
}

} // namespace zembra
