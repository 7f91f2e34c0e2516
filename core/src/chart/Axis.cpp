// SPDX-License-Identifier: MIT
#include "AxisPrivate.h"

#include <cmath>
#include <tuple>
#include <utility>

namespace zembra {

namespace {

// The share of the data's span that automatic ranges leave free at either end.
constexpr double autoPadding = 0.04;

} // namespace

Axis::Private::Private() {
    follow(std::make_shared<AxisRange>());
}

Axis::Private::~Private() {
    std::erase(range->axes, this);
}

void Axis::Private::follow(const std::shared_ptr<AxisRange>& other) {
    if (range)
        std::erase(range->axes, this);
    range = other;
    range->axes.push_back(this);
    ++revision;
}

std::pair<double, double> Axis::Private::currentRange() const {
    if (!range->autoScale && scale.contains(range->first) && scale.contains(range->second))
        return {range->first, range->second};
    DataCover all;
    for (const Private* axis : range->axes)
        if (axis->cover)
            all.include(axis->cover());
    const Interval r =
        scale.autoRange(all.values, autoPadding, all.fromZero && all.values.min == 0.0,
                        all.fromZero && all.values.max == 0.0);
    return inverted ? std::pair{r.max, r.min} : std::pair{r.min, r.max};
}

Axis::Axis() : d(std::make_unique<Private>()) {}

Axis::~Axis() = default;

void Axis::setEnabled(bool on) {
    d->enabled = on;
    ++d->revision;
}

bool Axis::isEnabled() const {
    return d->enabled;
}

void Axis::setTitle(std::string title) {
    d->title = std::move(title);
    ++d->revision;
}

const std::string& Axis::title() const {
    return d->title;
}

void Axis::setScale(const Scale& scale) {
    d->scale = scale;
    ++d->revision;
    if (!scale.contains(d->range->first) || !scale.contains(d->range->second))
        d->range->autoScale = true;
}

const Scale& Axis::scale() const {
    return d->scale;
}

std::pair<double, double> Axis::range() const {
    return d->currentRange();
}

bool Axis::setRange(double first, double second, double step) {
    if (!d->scale.contains(first) || !d->scale.contains(second) || first == second)
        return false;
    d->range->first = first;
    d->range->second = second;
    d->range->step = std::isfinite(step) && step > 0.0 ? step : 0.0;
    d->range->autoScale = false;
    return true;
}

void Axis::setAutoScale(bool on) {
    if (on == d->range->autoScale)
        return;
    // Back to the data is where labels may take less room again.
    if (on)
        for (Private* axis : d->range->axes)
            ++axis->revision;
    else
        std::tie(d->range->first, d->range->second) = d->currentRange();
    d->range->autoScale = on;
}

bool Axis::isAutoScale() const {
    return d->range->autoScale;
}

void Axis::setInverted(bool on) {
    d->inverted = on;
    if (!d->range->autoScale && (d->range->first > d->range->second) != on)
        std::swap(d->range->first, d->range->second);
}

bool Axis::isInverted() const {
    const auto [first, second] = d->currentRange();
    return first > second;
}

void Axis::linkTo(Axis& other) {
    if (other.d->range == d->range)
        return;
    d->scale = other.d->scale;
    d->inverted = other.d->inverted;
    d->follow(other.d->range);
}

void Axis::unlink() {
    auto own = std::make_shared<AxisRange>(*d->range);
    own->axes.clear();
    d->follow(own);
}

bool Axis::isLinkedTo(const Axis& other) const {
    return d->range == other.d->range;
}

void Axis::setGridVisible(bool on) {
    d->gridVisible = on;
}

bool Axis::isGridVisible() const {
    return d->gridVisible;
}

} // namespace zembra
