// SPDX-License-Identifier: MIT
#include <zembra/series/ScatterSeries.h>

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
    double markerSize = 6.0;

    std::pair<std::size_t, std::size_t> between(double x1, double x2) const;
};

// The samples whose x may lie between the two values.
std::pair<std::size_t, std::size_t> ScatterSeries::Private::between(double x1, double x2) const {
    const std::size_t count = samples.size();
    if (!samples.isSorted() || !std::isfinite(x1) || !std::isfinite(x2))
        return {0, count};
    const double beyond = std::nextafter(std::max(x1, x2), std::numeric_limits<double>::infinity());
    return {samples.lowerBound(std::min(x1, x2)), samples.lowerBound(beyond)};
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
    if (!std::isfinite(size) || !(size > 0.0))
        return;
    d->markerSize = size;
    changed();
}

double ScatterSeries::markerSize() const {
    return d->markerSize;
}

Bounds ScatterSeries::bounds(const Scale& x, const Scale& y) const {
    const SampleBounds bounds = d->samples.bounds(x, y);
    return {bounds.x, bounds.y};
}

void ScatterSeries::draw(Canvas& canvas) const {
    constexpr std::size_t chunk = 1024;
    const Samples::Store& store = d->samples.store();
    const Rect reach = canvas.rect().grown(0.5 * d->markerSize + 1.0);
    const auto [first, last] =
        d->between(canvas.x().invTransform(reach.left()), canvas.x().invTransform(reach.right()));
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
    canvas.fillDiscs(next, 0.5 * d->markerSize, canvas.look().color);
}

void ScatterSeries::drawLegendKey(Canvas& canvas, const Rect& area) const {
    const double radius = 0.5 * std::min(d->markerSize, area.height);
    canvas.fillEllipse({area.x + 0.5 * area.width, area.y + 0.5 * area.height}, radius, radius,
                       canvas.look().color);
}

std::uint64_t ScatterSeries::revision() const {
    return Series::revision() + d->pastRevisions + d->samples.revision();
}

} // namespace zembra
