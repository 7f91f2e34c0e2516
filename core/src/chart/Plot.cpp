// SPDX-License-Identifier: MIT
#include <zembra/chart/Plot.h>

#include "AxisPrivate.h"

#include <zembra/series/Canvas.h>

#include <algorithm>
#include <array>

namespace zembra {

namespace {

constexpr int axisCount = 4;
constexpr double autoPadding = 0.04;

bool isAxis(int axis) {
    return axis >= 0 && axis < axisCount;
}

bool isHorizontal(int axis) {
    return axis >= 2;
}

} // namespace

struct Plot::Private {
    // One more than there are: the spare one for numbers that name no axis.
    std::array<Axis, axisCount + 1> axes;
    std::string title;
    Theme theme = Theme::light();
    std::vector<std::shared_ptr<Series>> series;
    Rect canvas;

    std::pair<double, double> range(int axis) const;
};

std::pair<double, double> Plot::Private::range(int axis) const {
    const Axis::Private& a = *axes[static_cast<std::size_t>(axis)].d;
    if (!a.autoScale)
        return {a.first, a.second};
    Interval data;
    bool fromZero = false;
    for (const auto& s : series) {
        if (!s->isVisible() || (isHorizontal(axis) ? s->xAxis() : s->yAxis()) != axis)
            continue;
        const Bounds bounds = s->bounds(axes[static_cast<std::size_t>(s->xAxis())].scale(),
                                        axes[static_cast<std::size_t>(s->yAxis())].scale());
        data.include(isHorizontal(axis) ? bounds.x : bounds.y);
        fromZero = fromZero || (isHorizontal(axis) ? bounds.xFromZero : bounds.yFromZero);
    }
    const Interval r = a.scale.autoRange(data, autoPadding, fromZero && data.min == 0.0,
                                         fromZero && data.max == 0.0);
    return a.inverted ? std::pair{r.max, r.min} : std::pair{r.min, r.max};
}

Plot::Plot() : d(std::make_unique<Private>()) {
    axis(0).setEnabled(true);
    axis(2).setEnabled(true);
}

Plot::~Plot() = default;

Rect Plot::canvasRect() const {
    return d->canvas;
}

ScaleMap Plot::scaleMap(int axis) const {
    if (!isAxis(axis))
        return {};
    const auto [first, second] = d->range(axis);
    const Rect& c = d->canvas;
    return isHorizontal(axis)
               ? ScaleMap(this->axis(axis).scale(), c.left(), c.right(), first, second)
               : ScaleMap(this->axis(axis).scale(), c.bottom(), c.top(), first, second);
}

bool Plot::axisEnabled(int axis) const {
    return isAxis(axis) && this->axis(axis).isEnabled();
}

void Plot::setAxisEnabled(int axis, bool on) {
    this->axis(axis).setEnabled(on && isAxis(axis));
}

void Plot::setAxisScale(int axis, double min, double max, double step) {
    this->axis(axis).setRange(min, max, step);
}

void Plot::setAxisAutoScale(int axis, bool on) {
    if (!isAxis(axis))
        return;
    Axis::Private& a = *this->axis(axis).d;
    if (!on && a.autoScale)
        std::tie(a.first, a.second) = d->range(axis);
    a.autoScale = on;
}

Axis& Plot::axis(int axis) {
    return d->axes[static_cast<std::size_t>(isAxis(axis) ? axis : axisCount)];
}

const Axis& Plot::axis(int axis) const {
    return d->axes[static_cast<std::size_t>(isAxis(axis) ? axis : axisCount)];
}

void Plot::setTitle(std::string title) {
    d->title = std::move(title);
}

const std::string& Plot::title() const {
    return d->title;
}

void Plot::setTheme(const Theme& theme) {
    d->theme = theme;
}

const Theme& Plot::theme() const {
    return d->theme;
}

void Plot::addSeries(std::shared_ptr<Series> series) {
    if (series && std::find(d->series.begin(), d->series.end(), series) == d->series.end())
        d->series.push_back(std::move(series));
}

bool Plot::removeSeries(const std::shared_ptr<Series>& series) {
    return std::erase(d->series, series) > 0;
}

const std::vector<std::shared_ptr<Series>>& Plot::series() const {
    return d->series;
}

void Plot::renderInto(Painter& painter, int width, int height) {
    const double w = width;
    const double h = height;
    d->canvas = {std::min(60.0, w), std::min(40.0, h), std::max(w - 80.0, 0.0),
                 std::max(h - 80.0, 0.0)};
    if (width <= 0 || height <= 0)
        return;
    const Theme& theme = d->theme;
    painter.fillRect({0.0, 0.0, w, h}, theme.background);
    painter.drawText(d->canvas.x, 25.0, d->title, theme.titleFont, theme.text);
    FrameBuffers buffers;
    for (int id = 0; id < axisCount; ++id) {
        if (!axisEnabled(id))
            continue;
        const ScaleMap map = scaleMap(id);
        for (const Tick& tick : axis(id).scale().ticks(map.s1(), map.s2(), {8, true}).major) {
            const double p = map.transform(tick.value);
            painter.setPen(Pen(theme.gridLine));
            if (isHorizontal(id))
                painter.drawLine(p, d->canvas.top(), p, d->canvas.bottom());
            else
                painter.drawLine(d->canvas.left(), p, d->canvas.right(), p);
            painter.drawText(isHorizontal(id) ? p : 10.0, isHorizontal(id) ? h - 20.0 : p,
                             tick.label, theme.tickFont, theme.text);
        }
    }
    painter.setPen(Pen(theme.axisLine));
    painter.drawRect(d->canvas);
    painter.setClipRect(d->canvas);
    for (std::size_t i = 0; i < d->series.size(); ++i) {
        const Series& s = *d->series[i];
        SeriesLook look{s.color().value_or(theme.cycle[i % theme.cycle.size()]), theme.text,
                        theme.canvas, theme.tickFont};
        Canvas canvas(painter, d->canvas, scaleMap(s.xAxis()), scaleMap(s.yAxis()), look, buffers);
        if (s.isVisible())
            s.draw(canvas);
    }
    painter.clearClip();
}

} // namespace zembra
