// SPDX-License-Identifier: MIT
#include <zembra/series/ErrorBarSeries.h>

#include "NearestPoint.h"
#include "SideView.h"
#include "SortedRows.h"

#include <zembra/data/Samples.h>
#include <zembra/series/Canvas.h>

#include <cmath>
#include <limits>
#include <utility>

namespace zembra {

namespace {

constexpr double none = std::numeric_limits<double>::quiet_NaN();

/// The ends of the bars of one direction, in the order of the samples; NaN where there is no bar.
struct Ends {
    std::vector<double> lower;
    std::vector<double> upper;

    bool isEmpty() const { return lower.empty(); }
};

} // namespace

struct ErrorBarSeries::Private {
    // In order of x; without samples that are not finite.
    std::vector<double> x;
    std::vector<double> y;
    std::vector<std::size_t> order;
    Samples row;
    Ends xEnds;
    Ends yEnds;
    // Over the ends in y.
    Samples lowerRow;
    Samples upperRow;
    ErrorBarStyle style;
    mutable BoundsCache boundsCache;

    Ends ends(const std::vector<double>& values, const std::vector<double>& lower,
              const std::vector<double>& upper) const;
    void drawColumns(Canvas& canvas) const;
    void drawBar(Canvas& canvas, const SideView& view, double across, double from, double to) const;
};

Ends ErrorBarSeries::Private::ends(const std::vector<double>& values,
                                   const std::vector<double>& lower,
                                   const std::vector<double>& upper) const {
    const auto errorAt = [](const std::vector<double>& errors, std::size_t i) {
        return i < errors.size() && std::isfinite(errors[i]) ? std::abs(errors[i]) : none;
    };
    // Beyond the largest double there is still a bar.
    const auto held = [](double end) {
        return std::isnan(end) ? end
                               : std::clamp(end, std::numeric_limits<double>::lowest(),
                                            std::numeric_limits<double>::max());
    };
    Ends result;
    result.lower.reserve(values.size());
    result.upper.reserve(values.size());
    for (std::size_t i = 0; i < values.size(); ++i) {
        result.lower.push_back(held(values[i] - errorAt(lower, order[i])));
        result.upper.push_back(held(values[i] + errorAt(upper, order[i])));
    }
    return result;
}

ErrorBarSeries::ErrorBarSeries() : d(std::make_unique<Private>()) {}

ErrorBarSeries::ErrorBarSeries(std::vector<double> x, std::vector<double> y, std::string name)
    : ErrorBarSeries() {
    setSamples(std::move(x), std::move(y));
    setName(std::move(name));
}

ErrorBarSeries::~ErrorBarSeries() = default;

void ErrorBarSeries::setSamples(std::vector<double> x, std::vector<double> y) {
    const std::size_t count = std::min(x.size(), y.size());
    d->order = ascendingOrder(std::span(x).first(count),
                              [&](std::size_t i) { return std::isfinite(y[i]); });
    d->x = gathered(x, d->order);
    d->y = gathered(y, d->order);
    d->row = Samples::borrowed(d->x, d->y);
    d->xEnds = {};
    d->yEnds = {};
    changed();
}

void ErrorBarSeries::setXErrors(const std::vector<double>& errors) {
    d->xEnds = d->ends(d->x, errors, errors);
    changed();
}

void ErrorBarSeries::setYErrors(const std::vector<double>& errors) {
    setYErrors(errors, errors);
}

void ErrorBarSeries::setXErrors(const std::vector<double>& lower,
                                const std::vector<double>& upper) {
    d->xEnds = d->ends(d->x, lower, upper);
    changed();
}

void ErrorBarSeries::setYErrors(const std::vector<double>& lower,
                                const std::vector<double>& upper) {
    d->yEnds = d->ends(d->y, lower, upper);
    d->lowerRow = Samples::borrowed(d->x, d->yEnds.lower);
    d->upperRow = Samples::borrowed(d->x, d->yEnds.upper);
    changed();
}

bool ErrorBarSeries::setStyle(const ErrorBarStyle& style) {
    for (const double size : {style.lineWidth, style.capLength, style.markerSize})
        if (!std::isfinite(size) || size < 0.0)
            return false;
    d->style = style;
    changed();
    return true;
}

const ErrorBarStyle& ErrorBarSeries::style() const {
    return d->style;
}

Bounds ErrorBarSeries::bounds(const Scale& x, const Scale& y) const {
    return d->boundsCache.get(revision(), x, y, [&] {
        Bounds bounds;
        const auto includeEnds = [](Interval& covered, const Ends& ends, std::size_t i,
                                    const Scale& scale) {
            if (ends.isEmpty())
                return;
            for (const double end : {ends.lower[i], ends.upper[i]})
                if (scale.contains(end))
                    covered.include(end);
        };
        for (std::size_t i = 0; i < d->x.size(); ++i) {
            if (!x.contains(d->x[i]) || !y.contains(d->y[i]))
                continue;
            bounds.x.include(d->x[i]);
            bounds.y.include(d->y[i]);
            includeEnds(bounds.x, d->xEnds, i, x);
            includeEnds(bounds.y, d->yEnds, i, y);
        }
        return bounds;
    });
}

// From the sample to one end; `view` has its values along the bar.
void ErrorBarSeries::Private::drawBar(Canvas& canvas, const SideView& view, double across,
                                      double from, double to) const {
    if (std::isnan(to))
        return;
    const Pen pen(canvas.look().color, style.lineWidth);
    const double start = view.valueOrEnd(from);
    const double end = view.valueOrEnd(to);
    canvas.drawLine(view.point(across, start), view.point(across, end), pen);
    const double half = 0.5 * style.capLength;
    if (half > 0.0 && !std::isnan(view.value(to)))
        canvas.drawLine(view.point(across - half, end), view.point(across + half, end), pen);
}

void ErrorBarSeries::Private::drawColumns(Canvas& canvas) const {
    const Rect& area = canvas.rect();
    forEachColumn(
        x, canvas.x(), area.left(), area.right(), [&](double column, const SampleRange& range) {
            Interval covered = row.yExtent(range.first, range.last);
            if (!yEnds.isEmpty()) {
                covered.include(lowerRow.yExtent(range.first, range.last));
                covered.include(upperRow.yExtent(range.first, range.last));
            }
            const auto [top, bottom] = std::minmax(
                {pixelOrEnd(canvas.y(), covered.min), pixelOrEnd(canvas.y(), covered.max)});
            canvas.fillRect({column, top, 1.0, std::max(bottom - top, 1.0)}, canvas.look().color);
        });
}

void ErrorBarSeries::draw(Canvas& canvas) const {
    const Rect& area = canvas.rect();
    const double reach = std::max(d->style.capLength, d->style.markerSize) + d->style.lineWidth;
    SampleRange seen{0, d->x.size()};
    // A bar in x may reach into the canvas from anywhere.
    if (d->xEnds.isEmpty()) {
        seen = rangeBetween(d->x, canvas.x(), area.left() - reach, area.right() + reach);
        if (static_cast<double>(seen.count()) > area.width) {
            d->drawColumns(canvas);
            return;
        }
    }
    const SideView upright(canvas, Orientation::Vertical);
    const SideView lying(canvas, Orientation::Horizontal);
    const double radius = 0.5 * d->style.markerSize;
    for (std::size_t i = seen.first; i < seen.last; ++i) {
        const Point p{heldPixel(canvas.x(), d->x[i]), heldPixel(canvas.y(), d->y[i])};
        if (std::isnan(p.x) || std::isnan(p.y))
            continue;
        if (!d->xEnds.isEmpty()) {
            d->drawBar(canvas, lying, p.y, d->x[i], d->xEnds.lower[i]);
            d->drawBar(canvas, lying, p.y, d->x[i], d->xEnds.upper[i]);
        }
        if (!d->yEnds.isEmpty()) {
            d->drawBar(canvas, upright, p.x, d->y[i], d->yEnds.lower[i]);
            d->drawBar(canvas, upright, p.x, d->y[i], d->yEnds.upper[i]);
        }
        if (radius > 0.0)
            canvas.fillEllipse(p, radius, radius, canvas.look().color);
    }
}

void ErrorBarSeries::drawLegendKey(Canvas& canvas, const Rect& area) const {
    const Color color = canvas.look().color;
    const Pen pen(color, d->style.lineWidth);
    const Point middle{area.x + 0.5 * area.width, area.y + 0.5 * area.height};
    canvas.drawLine({middle.x, area.top()}, {middle.x, area.bottom()}, pen);
    const double half = 0.5 * std::min(d->style.capLength, area.width);
    if (half > 0.0) {
        const double inset = 0.5 * d->style.lineWidth;
        for (const double y : {area.top() + inset, area.bottom() - inset})
            canvas.drawLine({middle.x - half, y}, {middle.x + half, y}, pen);
    }
    const double radius = 0.5 * std::min(d->style.markerSize, area.height);
    if (radius > 0.0)
        canvas.fillEllipse(middle, radius, radius, color);
}

std::optional<NearestSample> ErrorBarSeries::findNearest(const Point& pixel, const ScaleMap& x,
                                                         const ScaleMap& y) const {
    auto found = nearestPoint(d->row, pixel, x, y);
    if (found)
        found->index = d->order[found->index];
    return found;
}

} // namespace zembra
