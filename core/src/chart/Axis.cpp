// SPDX-License-Identifier: MIT
#include "AxisPrivate.h"

#include <cmath>
#include <utility>

namespace zembra {

Axis::Axis() : d(std::make_unique<Private>()) {}

Axis::~Axis() = default;

void Axis::setEnabled(bool on) {
    d->enabled = on;
}

bool Axis::isEnabled() const {
    return d->enabled;
}

void Axis::setTitle(std::string title) {
    d->title = std::move(title);
}

const std::string& Axis::title() const {
    return d->title;
}

void Axis::setScale(const Scale& scale) {
    d->scale = scale;
    ++d->revision;
    if (!scale.contains(d->first) || !scale.contains(d->second))
        d->autoScale = true;
}

const Scale& Axis::scale() const {
    return d->scale;
}

bool Axis::setRange(double first, double second, double step) {
    if (!d->scale.contains(first) || !d->scale.contains(second) || first == second)
        return false;
    d->first = first;
    d->second = second;
    d->step = std::isfinite(step) && step > 0.0 ? step : 0.0;
    d->autoScale = false;
    return true;
}

void Axis::setAutoScale(bool on) {
    d->autoScale = on;
}

bool Axis::isAutoScale() const {
    return d->autoScale;
}

void Axis::setInverted(bool on) {
    d->inverted = on;
    if (!d->autoScale && (d->first > d->second) != on)
        std::swap(d->first, d->second);
}

bool Axis::isInverted() const {
    return d->autoScale ? d->inverted : d->first > d->second;
}

void Axis::setGridVisible(bool on) {
    d->gridVisible = on;
}

bool Axis::isGridVisible() const {
    return d->gridVisible;
}

} // namespace zembra
