// SPDX-License-Identifier: MIT
#include <zembra/series/LineSeries.h>

#include <zembra/series/Canvas.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace zembra {

struct LineSeries::Private {
    std::vector<double> x;
    std::vector<double> y;
    double width = 1.5;
};

LineSeries::LineSeries() : d(std::make_unique<Private>()) {}

LineSeries::LineSeries(std::vector<double> x, std::vector<double> y, std::string name)
    : LineSeries() {
    setSamples(std::move(x), std::move(y));
    setName(std::move(name));
}

LineSeries::~LineSeries() = default;

void LineSeries::setSamples(std::vector<double> x, std::vector<double> y) {
    const std::size_t count = std::min(x.size(), y.size());
    x.resize(count);
    y.resize(count);
    d->x = std::move(x);
    d->y = std::move(y);
    changed();
}

void LineSeries::setWidth(double width) {
    if (!std::isfinite(width) || width < 0.0)
        return;
    d->width = width;
    changed();
}

double LineSeries::width() const {
    return d->width;
}

Bounds LineSeries::bounds(const Scale& x, const Scale& y) const {
    Bounds bounds;
    for (std::size_t i = 0; i < d->x.size(); ++i) {
        if (!x.contains(d->x[i]) || !y.contains(d->y[i]))
            continue;
        bounds.x.include(d->x[i]);
        bounds.y.include(d->y[i]);
    }
    return bounds;
}

void LineSeries::draw(Canvas& canvas) const {
    std::vector<Point> points;
    points.reserve(d->x.size());
    for (std::size_t i = 0; i < d->x.size(); ++i)
        points.push_back(canvas.toPixel(d->x[i], d->y[i]));
    canvas.drawPolyline(points, Pen(canvas.look().color, d->width));
}

void LineSeries::drawLegendKey(Canvas& canvas, const Rect& area) const {
    const double middle = area.y + 0.5 * area.height;
    canvas.drawLine({area.left(), middle}, {area.right(), middle},
                    Pen(canvas.look().color, d->width));
}

} // namespace zembra
