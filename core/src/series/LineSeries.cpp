// SPDX-License-Identifier: MIT
#include <zembra/series/LineSeries.h>

#include "SortedReduction.h"

#include <zembra/series/Canvas.h>

#include <cmath>
#include <utility>

namespace zembra {

struct LineSeries::Private {
    Samples samples;
    // The revisions of the samples before these, so that the sum only grows.
    std::uint64_t pastRevisions = 0;
    double width = 1.5;
    PenStyle style = PenStyle::Solid;
    std::vector<double> dashes;
    LineSteps steps = LineSteps::None;
    // Kept from frame to frame for its memory.
    std::vector<Point> path;
    std::vector<Point> stepped;

    Pen pen(const Color& color) const;
    void makeSteps();
};

Pen LineSeries::Private::pen(const Color& color) const {
    Pen pen(color, width);
    pen.setStyle(style);
    pen.setDashPattern(dashes);
    return pen;
}

void LineSeries::Private::makeSteps() {
    stepped.clear();
    for (std::size_t i = 0; i < path.size(); ++i) {
        const Point& to = path[i];
        if (i > 0 && !std::isnan(path[i - 1].x) && !std::isnan(to.x)) {
            const Point& from = path[i - 1];
            if (steps == LineSteps::Before) {
                stepped.push_back({from.x, to.y});
            } else if (steps == LineSteps::After) {
                stepped.push_back({to.x, from.y});
            } else {
                const double middle = 0.5 * (from.x + to.x);
                stepped.push_back({middle, from.y});
                stepped.push_back({middle, to.y});
            }
        }
        stepped.push_back(to);
    }
}

LineSeries::LineSeries() : d(std::make_unique<Private>()) {}

LineSeries::LineSeries(std::vector<double> x, std::vector<double> y, std::string name)
    : LineSeries(Samples(std::move(x), std::move(y)), std::move(name)) {}

LineSeries::LineSeries(Samples samples, std::string name) : LineSeries() {
    setSamples(std::move(samples));
    setName(std::move(name));
}

LineSeries::~LineSeries() = default;

void LineSeries::setSamples(std::vector<double> x, std::vector<double> y) {
    setSamples(Samples(std::move(x), std::move(y)));
}

void LineSeries::setSamples(Samples samples) {
    d->pastRevisions += d->samples.revision();
    d->samples = std::move(samples);
    changed();
}

const Samples& LineSeries::samples() const {
    return d->samples;
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

void LineSeries::setStyle(PenStyle style) {
    d->style = style;
    changed();
}

PenStyle LineSeries::style() const {
    return d->style;
}

void LineSeries::setDashPattern(std::vector<double> pattern) {
    d->dashes = std::move(pattern);
    changed();
}

const std::vector<double>& LineSeries::dashPattern() const {
    return d->dashes;
}

void LineSeries::setSteps(LineSteps steps) {
    d->steps = steps;
    changed();
}

LineSteps LineSeries::steps() const {
    return d->steps;
}

Bounds LineSeries::bounds(const Scale& x, const Scale& y) const {
    const SampleBounds bounds = d->samples.bounds(x, y);
    return {bounds.x, bounds.y};
}

void LineSeries::draw(Canvas& canvas) const {
    const double margin = d->width + 1.0;
    const Rect& area = canvas.rect();
    if (d->samples.isSorted())
        reduceSorted(d->samples, canvas.x(), canvas.y(), area.left() - margin,
                     area.right() + margin, d->path);
    else
        mapAll(d->samples, canvas.x(), canvas.y(), d->path);
    if (d->steps != LineSteps::None) {
        d->makeSteps();
        d->path.swap(d->stepped);
    }
    canvas.drawPolyline(d->path, d->pen(canvas.look().color));
}

void LineSeries::drawLegendKey(Canvas& canvas, const Rect& area) const {
    const double middle = area.y + 0.5 * area.height;
    canvas.drawLine({area.left(), middle}, {area.right(), middle}, d->pen(canvas.look().color));
}

std::uint64_t LineSeries::revision() const {
    return Series::revision() + d->pastRevisions + d->samples.revision();
}

} // namespace zembra
