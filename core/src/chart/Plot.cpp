// SPDX-License-Identifier: MIT
#include "PlotPrivate.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace zembra {

Plot::Private::Private() {
    axis(0).enabled = true;
    axis(2).enabled = true;
    axis(1).gridVisible = false;
    axis(3).gridVisible = false;
    for (int id = 0; id < axisCount; ++id)
        axis(id).cover = [this, id] { return coverOf(id); };
    for (const int id : {1, 3})
        axis(id).primary = &axes[static_cast<std::size_t>(primaryOf(id))];
}

DataCover Plot::Private::ownCoverOf(int id) const {
    DataCover cover;
    for (const auto& s : series) {
        if (!s->isVisible() || (isHorizontalAxis(id) ? s->xAxis() : s->yAxis()) != id)
            continue;
        const Bounds bounds =
            s->bounds(axis(s->xAxis()).currentScale(), axis(s->yAxis()).currentScale());
        cover.include(isHorizontalAxis(id)
                          ? DataCover{bounds.x, bounds.xFromZero, bounds.xFlush, bounds.xFlush}
                          : DataCover{bounds.y, bounds.yFromZero, bounds.yFlush, bounds.yFlush});
    }
    return cover;
}

DataCover Plot::Private::coverOf(int id) const {
    DataCover cover = ownCoverOf(id);
    if (id != primaryOf(id) || !axis(id + 1).derivation)
        return cover;
    // What lies on the derived axis has to fit as well.
    const DataCover beside = ownCoverOf(id + 1);
    if (!beside.values.isEmpty()) {
        const auto& inverse = axis(id + 1).derivation->inverse;
        cover.values.include(inverse(beside.values.min));
        cover.values.include(inverse(beside.values.max));
    }
    return cover;
}

std::pair<double, double> Plot::Private::range(int id, const Rect& area) const {
    if (const auto& derivation = axis(id).derivation) {
        const auto [first, second] = range(primaryOf(id), area);
        return {derivation->forward(first), derivation->forward(second)};
    }
    const auto own = axis(id).currentRange();
    const int other = id == 0 ? 2 : 0;
    if (!(aspect > 0.0) || area.isEmpty() || (id != 0 && id != 2) || !axis(0).scale.isLinear() ||
        !axis(2).scale.isLinear())
        return own;
    const auto crossing = axis(other).currentRange();
    // Both spans in units of axis 2 for each pixel; the larger one is what both take.
    const auto perPixel = [&](int along, const std::pair<double, double>& r) {
        const double span = std::abs(r.second - r.first);
        return along == 2 ? span / area.width : span * aspect / area.height;
    };
    const double widened = perPixel(other, crossing) / perPixel(id, own);
    if (!std::isfinite(widened) || widened <= 1.0)
        return own;
    const double middle = own.first + 0.5 * (own.second - own.first);
    const double half = 0.5 * (own.second - own.first) * widened;
    if (!std::isfinite(middle - half) || !std::isfinite(middle + half))
        return own;
    return {middle - half, middle + half};
}

ScaleMap Plot::Private::mapOver(int id, const Rect& area) const {
    const auto [first, second] = range(id, area);
    return isHorizontalAxis(id)
               ? ScaleMap(axis(id).currentScale(), area.left(), area.right(), first, second)
               : ScaleMap(axis(id).currentScale(), area.bottom(), area.top(), first, second);
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
    const PlotLayout layout = d->settledLayout(painter, width, height, d->leastMargins);
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
    this->axis(axis).setAutoScale(on);
    if (on)
        d->memory.legendPosition.reset();
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

void Plot::setAspectRatio(double ratio) {
    d->aspect = std::isfinite(ratio) && ratio > 0.0 ? ratio : 0.0;
}

double Plot::aspectRatio() const {
    return d->aspect;
}

void Plot::setTheme(const Theme& theme) {
    // Painters round sizes to whole pixels, and cannot draw text of none.
    constexpr double smallest = 0.5;
    const Theme ready;
    Theme drawable = theme;
    for (Font Theme::*font : {&Theme::titleFont, &Theme::subtitleFont, &Theme::axisTitleFont,
                              &Theme::tickFont, &Theme::legendFont}) {
        const double size = (theme.*font).pixelSize();
        if (!std::isfinite(size) || size < smallest)
            (drawable.*font).setPixelSize((ready.*font).pixelSize());
    }
    d->theme = std::move(drawable);
}

const Theme& Plot::theme() const {
    return d->theme;
}

bool Plot::setPixelRatio(double ratio) {
    constexpr double most = 4.0;
    if (!(ratio > 0.0 && ratio <= most))
        return false;
    d->pixelRatio = ratio;
    return true;
}

double Plot::pixelRatio() const {
    return d->pixelRatio;
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
