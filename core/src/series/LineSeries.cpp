// SPDX-License-Identifier: MIT
#include <zembra/series/LineSeries.h>

#include "BandFill.h"
#include "MarkerOutline.h"
#include "NearestPoint.h"
#include "SideView.h"
#include "SortedReduction.h"
#include "Stroke.h"

#include "data/SampleStore.h"

#include <zembra/series/Canvas.h>

#include <algorithm>
#include <cmath>
#include <limits>
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
    std::optional<MarkerShape> shape;
    double markerSize = 6.0;
    std::optional<LineFill> fill;
    // Kept from frame to frame for its memory.
    std::vector<Point> path;
    std::vector<Point> stepped;

    Pen pen(const Color& color) const;
    void makeSteps();
    void drawFill(Canvas& canvas) const;
    void drawMarkers(Canvas& canvas) const;
};

Pen LineSeries::Private::pen(const Color& color) const {
    Pen pen(color, width);
    pen.setStyle(style);
    pen.setDashPattern(dashes);
    return pen;
}

void LineSeries::Private::makeSteps() {
    stepped.clear();
    const auto isGap = [](const Point& p) { return std::isnan(p.x) || std::isnan(p.y); };
    for (std::size_t i = 0; i < path.size(); ++i) {
        const Point& to = path[i];
        if (i > 0 && !isGap(path[i - 1]) && !isGap(to)) {
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

void LineSeries::Private::drawFill(Canvas& canvas) const {
    // What no scale can place ends at the edge.
    const double level = fill->baseline.value_or(std::numeric_limits<double>::quiet_NaN());
    fillBetween(canvas, samples, level, thinned(canvas.look().color, fill->opacity), steps);
    drawBaseline(canvas, SideView(canvas, Orientation::Vertical), level);
}

void LineSeries::Private::drawMarkers(Canvas& canvas) const {
    const Samples::Store& store = samples.store();
    const Rect& area = canvas.rect();
    const double reach = markerReach(markerSize) + 1.0;
    const double x1 = canvas.x().invTransform(area.left() - reach);
    const double x2 = canvas.x().invTransform(area.right() + reach);
    std::size_t first = 0;
    std::size_t last = samples.size();
    double room = 2.0 * (area.width + area.height);
    if (samples.isSorted()) {
        room = area.width;
        if (std::isfinite(x1) && std::isfinite(x2)) {
            const double beyond =
                std::nextafter(std::max(x1, x2), std::numeric_limits<double>::max());
            first = samples.lowerBound(std::min(x1, x2));
            last = samples.lowerBound(beyond);
        }
    }
    // Counted by places in memory: samples of a ring keep theirs while others come and go.
    std::size_t stride = 1;
    const double most = std::max(room / (1.5 * markerSize), 2.0);
    while (static_cast<double>(last - first) > most * static_cast<double>(stride))
        stride *= 2;
    store.rows(first, last, [&](std::size_t begin, std::size_t end) {
        for (std::size_t slot = (begin + stride - 1) / stride * stride; slot < end;
             slot += stride) {
            const Point centre = store.read(
                [&](const auto& xs, const auto& ys) { return canvas.toPixel(xs[slot], ys[slot]); });
            if (area.grown(reach).contains(centre))
                canvas.fillMarker(*shape, {centre, markerSize, canvas.look().color});
        }
    });
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
    if (!isDashPattern(pattern))
        return;
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

void LineSeries::setMarkerShape(std::optional<MarkerShape> shape) {
    d->shape = shape;
    changed();
}

std::optional<MarkerShape> LineSeries::markerShape() const {
    return d->shape;
}

void LineSeries::setMarkerSize(double size) {
    if (!std::isfinite(size) || !(size > 0.0))
        return;
    d->markerSize = size;
    changed();
}

double LineSeries::markerSize() const {
    return d->markerSize;
}

bool LineSeries::setFill(const std::optional<LineFill>& fill) {
    if (fill && (!std::isfinite(fill->baseline.value_or(0.0)) ||
                 !(fill->opacity >= 0.0 && fill->opacity <= 1.0)))
        return false;
    d->fill = fill;
    changed();
    return true;
}

const std::optional<LineFill>& LineSeries::fill() const {
    return d->fill;
}

Bounds LineSeries::bounds(const Scale& x, const Scale& y) const {
    const SampleBounds covered = d->samples.bounds(x, y);
    Bounds bounds{covered.x, covered.y};
    const bool isFilled = d->fill && d->fill->baseline && !covered.x.isEmpty();
    if (isFilled && y.contains(*d->fill->baseline)) {
        bounds.y.include(*d->fill->baseline);
        bounds.yFromZero = *d->fill->baseline == 0.0;
    }
    return bounds;
}

void LineSeries::draw(Canvas& canvas) const {
    if (d->fill)
        d->drawFill(canvas);
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
    if (d->shape)
        d->drawMarkers(canvas);
}

void LineSeries::drawLegendKey(Canvas& canvas, const Rect& area) const {
    const Color color = canvas.look().color;
    const double middle = area.y + 0.5 * area.height;
    if (d->fill)
        canvas.fillRect({area.x, middle, area.width, area.bottom() - middle},
                        thinned(color, d->fill->opacity));
    canvas.drawLine({area.left(), middle}, {area.right(), middle}, d->pen(color));
    if (d->shape)
        canvas.fillMarker(
            *d->shape,
            {{area.x + 0.5 * area.width, middle}, std::min(d->markerSize, area.height), color});
}

std::optional<NearestSample> LineSeries::findNearest(const Point& pixel, const ScaleMap& x,
                                                     const ScaleMap& y) const {
    return nearestPoint(d->samples, pixel, x, y);
}

std::uint64_t LineSeries::revision() const {
    return Series::revision() + d->pastRevisions + d->samples.revision();
}

} // namespace zembra
