// SPDX-License-Identifier: MIT
#include <zembra/series/FunctionSeries.h>

#include "FunctionPath.h"

#include <zembra/series/Canvas.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>
#include <vector>

namespace zembra {

namespace {

constexpr int boundSamples = 500;

// Values beyond the middle nine tenths by more than these span are taken for the flanks of poles.
Interval usualPart(std::vector<double> values) {
    const auto at = [&](double share) {
        const auto nth = values.begin() + static_cast<std::ptrdiff_t>(
                                              share * static_cast<double>(values.size() - 1));
        std::nth_element(values.begin(), nth, values.end());
        return *nth;
    };
    const double low = at(0.05);
    const double high = at(0.95);
    Interval usual;
    for (const double value : values)
        if (0.5 * value >= low - 0.5 * high && 0.5 * value <= high - 0.5 * low)
            usual.include(value);
    return usual;
}

} // namespace

struct FunctionSeries::Private {
    Function function;
    std::optional<Interval> domain;
    double width = 1.5;
    PenStyle style = PenStyle::Solid;
    std::vector<Point> path;

    Pen pen(const Color& color) const;
    double value(double x) const;
};

Pen FunctionSeries::Private::pen(const Color& color) const {
    Pen pen(color, width);
    pen.setStyle(style);
    return pen;
}

double FunctionSeries::Private::value(double x) const {
    constexpr double none = std::numeric_limits<double>::quiet_NaN();
    if (!std::isfinite(x) || (domain && !domain->contains(x)))
        return none;
    try {
        return function(x);
    } catch (...) {
        return none;
    }
}

FunctionSeries::FunctionSeries() : d(std::make_unique<Private>()) {}

FunctionSeries::FunctionSeries(Function function, std::string name) : FunctionSeries() {
    setFunction(std::move(function));
    setName(std::move(name));
}

FunctionSeries::~FunctionSeries() = default;

void FunctionSeries::setFunction(Function function) {
    d->function = std::move(function);
    changed();
}

bool FunctionSeries::setDomain(double first, double last) {
    if (!std::isfinite(first) || !std::isfinite(last) || first == last)
        return false;
    d->domain = Interval{std::min(first, last), std::max(first, last)};
    changed();
    return true;
}

void FunctionSeries::clearDomain() {
    d->domain.reset();
    changed();
}

std::optional<Interval> FunctionSeries::domain() const {
    return d->domain;
}

void FunctionSeries::setWidth(double width) {
    if (!std::isfinite(width) || width < 0.0)
        return;
    d->width = width;
    changed();
}

double FunctionSeries::width() const {
    return d->width;
}

void FunctionSeries::setStyle(PenStyle style) {
    d->style = style;
    changed();
}

PenStyle FunctionSeries::style() const {
    return d->style;
}

Bounds FunctionSeries::bounds(const Scale& x, const Scale& y) const {
    Bounds bounds;
    if (!d->domain || !d->function)
        return bounds;
    std::vector<double> values;
    bool hasPole = false;
    double before = std::numeric_limits<double>::quiet_NaN();
    double xBefore = before;
    for (int i = 0; i < boundSamples; ++i) {
        const double at =
            std::lerp(d->domain->min, d->domain->max, static_cast<double>(i) / (boundSamples - 1));
        if (!x.contains(at))
            continue;
        bounds.x.include(at);
        const double value = d->value(at);
        if (y.contains(value))
            values.push_back(value);
        hasPole =
            hasPole || isPole([this](double v) { return d->value(v); }, xBefore, before, at, value);
        xBefore = at;
        before = value;
    }
    if (hasPole && !values.empty()) {
        bounds.y = usualPart(std::move(values));
    } else {
        for (const double value : values)
            bounds.y.include(value);
    }
    return bounds;
}

void FunctionSeries::draw(Canvas& canvas) const {
    if (!d->function)
        return;
    FunctionPath path([this](double x) { return d->value(x); }, canvas.x(), canvas.y(),
                      canvas.rect(), d->domain, d->path);
    path.make();
    canvas.drawPolyline(d->path, d->pen(canvas.look().color));
}

void FunctionSeries::drawLegendKey(Canvas& canvas, const Rect& area) const {
    const double middle = area.y + 0.5 * area.height;
    canvas.drawLine({area.left(), middle}, {area.right(), middle}, d->pen(canvas.look().color));
}

std::optional<NearestSample> FunctionSeries::findNearest(const Point& pixel, const ScaleMap& x,
                                                         const ScaleMap& y) const {
    std::optional<NearestSample> best;
    if (!d->function)
        return best;
    constexpr int reach = 32;
    for (int i = -reach; i <= reach; ++i) {
        const double column = pixel.x + 0.5 * i;
        const double at = x.invTransform(column);
        const double value = d->value(at);
        const double distance = std::hypot(column - pixel.x, y.transform(value) - pixel.y);
        if (std::isfinite(distance) && (!best || distance < best->distance))
            best = NearestSample{0, at, value, distance};
    }
    return best;
}

} // namespace zembra
