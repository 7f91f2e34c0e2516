// SPDX-License-Identifier: MIT
#include <zembra/series/ScatterSeries.h>

#include <zembra/series/Canvas.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace zembra {

struct ScatterSeries::Private {
    std::vector<double> x;
    std::vector<double> y;
    double markerSize = 6.0;
};

ScatterSeries::ScatterSeries() : d(std::make_unique<Private>()) {}

ScatterSeries::ScatterSeries(std::vector<double> x, std::vector<double> y, std::string name)
    : ScatterSeries() {
    setSamples(std::move(x), std::move(y));
    setName(std::move(name));
}

ScatterSeries::~ScatterSeries() = default;

void ScatterSeries::setSamples(std::vector<double> x, std::vector<double> y) {
    const std::size_t count = std::min(x.size(), y.size());
    x.resize(count);
    y.resize(count);
    d->x = std::move(x);
    d->y = std::move(y);
    changed();
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
    Bounds bounds;
    for (std::size_t i = 0; i < d->x.size(); ++i) {
        if (!x.contains(d->x[i]) || !y.contains(d->y[i]))
            continue;
        bounds.x.include(d->x[i]);
        bounds.y.include(d->y[i]);
    }
    return bounds;
}

void ScatterSeries::draw(Canvas& canvas) const {
    const double radius = 0.5 * d->markerSize;
    for (std::size_t i = 0; i < d->x.size(); ++i)
        canvas.fillEllipse(canvas.toPixel(d->x[i], d->y[i]), radius, radius, canvas.look().color);
}

void ScatterSeries::drawLegendKey(Canvas& canvas, const Rect& area) const {
    const double radius = 0.5 * std::min(d->markerSize, area.height);
    canvas.fillEllipse({area.x + 0.5 * area.width, area.y + 0.5 * area.height}, radius, radius,
                       canvas.look().color);
}

} // namespace zembra
