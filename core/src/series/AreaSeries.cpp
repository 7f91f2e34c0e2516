// SPDX-License-Identifier: MIT
#include <zembra/series/AreaSeries.h>

#include "BandFill.h"
#include "NearestPoint.h"

#include <zembra/series/Canvas.h>

#include <cmath>
#include <utility>

namespace zembra {

struct AreaSeries::Private {
    Samples samples;
    // The revisions of the samples before these, so that the sum only grows.
    std::uint64_t pastRevisions = 0;
    AreaStyle style;
};

AreaSeries::AreaSeries() : d(std::make_unique<Private>()) {}

AreaSeries::AreaSeries(std::vector<double> x, std::vector<double> y, std::string name)
    : AreaSeries(Samples(std::move(x), std::move(y)), std::move(name)) {}

AreaSeries::AreaSeries(Samples samples, std::string name) : AreaSeries() {
    setSamples(std::move(samples));
    setName(std::move(name));
}

AreaSeries::~AreaSeries() = default;

void AreaSeries::setSamples(std::vector<double> x, std::vector<double> y) {
    setSamples(Samples(std::move(x), std::move(y)));
}

void AreaSeries::setSamples(Samples samples) {
    d->pastRevisions += d->samples.revision();
    d->samples = std::move(samples);
    changed();
}

const Samples& AreaSeries::samples() const {
    return d->samples;
}

bool AreaSeries::setStyle(const AreaStyle& style) {
    if (!std::isfinite(style.baseline) || !std::isfinite(style.lineWidth) ||
        style.lineWidth < 0.0 || !(style.opacity >= 0.0 && style.opacity <= 1.0))
        return false;
    d->style = style;
    changed();
    return true;
}

const AreaStyle& AreaSeries::style() const {
    return d->style;
}

Bounds AreaSeries::bounds(const Scale& x, const Scale& y) const {
    const SampleBounds covered = d->samples.bounds(x, y);
    Bounds bounds{covered.x, covered.y};
    if (covered.x.isEmpty() || !y.contains(d->style.baseline))
        return bounds;
    bounds.y.include(d->style.baseline);
    bounds.yFromZero = d->style.baseline == 0.0;
    return bounds;
}

void AreaSeries::draw(Canvas& canvas) const {
    fillBetween(canvas, d->samples, d->style.baseline,
                thinned(canvas.look().color, d->style.opacity));
    drawThrough(canvas, d->samples, d->style.lineWidth);
}

void AreaSeries::drawLegendKey(Canvas& canvas, const Rect& area) const {
    canvas.fillRect(area, thinned(canvas.look().color, d->style.opacity));
    if (d->style.lineWidth > 0.0) {
        const double width = std::min(d->style.lineWidth, area.height);
        canvas.fillRect({area.x, area.y, area.width, width}, canvas.look().color);
    }
}

std::optional<NearestSample> AreaSeries::findNearest(const Point& pixel, const ScaleMap& x,
                                                     const ScaleMap& y) const {
    return nearestPoint(d->samples, pixel, x, y);
}

std::uint64_t AreaSeries::revision() const {
    return Series::revision() + d->pastRevisions + d->samples.revision();
}

} // namespace zembra
