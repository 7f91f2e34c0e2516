// SPDX-License-Identifier: MIT
#include "PlotPrivate.h"

#include <algorithm>
#include <tuple>

namespace zembra {

namespace {

// The share of the data's span that automatic ranges leave free at either end.
constexpr double autoPadding = 0.04;

} // namespace

Plot::Private::Private() {
    axis(0).enabled = true;
    axis(2).enabled = true;
}

std::pair<double, double> Plot::Private::range(int id) const {
    const Axis::Private& a = axis(id);
    if (!a.autoScale)
        return {a.first, a.second};
    Interval data;
    bool fromZero = false;
    for (const auto& s : series) {
        if (!s->isVisible() || (isHorizontalAxis(id) ? s->xAxis() : s->yAxis()) != id)
            continue;
        const Bounds bounds = s->bounds(axis(s->xAxis()).scale, axis(s->yAxis()).scale);
        data.include(isHorizontalAxis(id) ? bounds.x : bounds.y);
        fromZero = fromZero || (isHorizontalAxis(id) ? bounds.xFromZero : bounds.yFromZero);
    }
    const Interval r = a.scale.autoRange(data, autoPadding, fromZero && data.min == 0.0,
                                         fromZero && data.max == 0.0);
    return a.inverted ? std::pair{r.max, r.min} : std::pair{r.min, r.max};
}

ScaleMap Plot::Private::mapOver(int id, const Rect& area) const {
    const auto [first, second] = range(id);
    return isHorizontalAxis(id)
               ? ScaleMap(axis(id).scale, area.left(), area.right(), first, second)
               : ScaleMap(axis(id).scale, area.bottom(), area.top(), first, second);
}

std::vector<LegendName> Plot::Private::legendNames() const {
    std::vector<LegendName> names;
    for (std::size_t i = 0; i < series.size(); ++i)
        if (series[i]->isVisible() && !series[i]->name().empty())
            names.push_back({i, series[i]->name()});
    return names;
}

Plot::Plot() : d(std::make_unique<Private>()) {}

Plot::~Plot() = default;

void Plot::renderInto(Painter& painter, int width, int height) {
    if (width <= 0 || height <= 0) {
        d->canvas = Rect();
        return;
    }
    d->measure.setPainter(painter);
    const PlotLayout layout = d->layOut(width, height);
    d->canvas = layout.canvas;
    d->draw(painter, layout);
}

Rect Plot::canvasRect() const {
    return d->canvas;
}

ScaleMap Plot::scaleMap(int axis) const {
    return isAxis(axis) ? d->mapOver(axis, d->canvas) : ScaleMap();
}

bool Plot::axisEnabled(int axis) const {
    return isAxis(axis) && d->axis(axis).enabled;
}

void Plot::setAxisEnabled(int axis, bool on) {
    this->axis(axis).setEnabled(on);
}

void Plot::setAxisScale(int axis, double min, double max, double step) {
    this->axis(axis).setRange(min, max, step);
}

void Plot::setAxisAutoScale(int axis, bool on) {
    if (!isAxis(axis))
        return;
    Axis::Private& a = d->axis(axis);
    if (!on && a.autoScale)
        std::tie(a.first, a.second) = d->range(axis);
    this->axis(axis).setAutoScale(on);
    if (on)
        d->memory.legendCorner.reset();
}

Axis& Plot::axis(int axis) {
    return d->axes[static_cast<std::size_t>(isAxis(axis) ? axis : axisCount)];
}

const Axis& Plot::axis(int axis) const {
    return d->axes[static_cast<std::size_t>(isAxis(axis) ? axis : axisCount)];
}

Legend& Plot::legend() {
    return d->legend;
}

const Legend& Plot::legend() const {
    return d->legend;
}

void Plot::setTitle(std::string title) {
    d->title = std::move(title);
}

const std::string& Plot::title() const {
    return d->title;
}

void Plot::setSubtitle(std::string subtitle) {
    d->subtitle = std::move(subtitle);
}

const std::string& Plot::subtitle() const {
    return d->subtitle;
}

void Plot::setTheme(const Theme& theme) {
    d->theme = theme;
}

const Theme& Plot::theme() const {
    return d->theme;
}

void Plot::addSeries(std::shared_ptr<Series> series) {
    if (!series || std::find(d->series.begin(), d->series.end(), series) != d->series.end())
        return;
    d->series.push_back(std::move(series));
    d->memory = {};
}

bool Plot::removeSeries(const std::shared_ptr<Series>& series) {
    const bool removed = std::erase(d->series, series) > 0;
    if (removed)
        d->memory = {};
    return removed;
}

const std::vector<std::shared_ptr<Series>>& Plot::series() const {
    return d->series;
}

} // namespace zembra
