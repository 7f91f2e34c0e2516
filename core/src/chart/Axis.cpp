// SPDX-License-Identifier: MIT
#include "AxisPrivate.h"

#include <cmath>
#include <tuple>
#include <utility>

namespace zembra {

namespace {

// The share of the data's span that automatic ranges leave free at either end.
constexpr double autoPadding = 0.04;

Scale derivedScale(const Scale& primary, const std::function<double(double)>& forward,
                   const std::function<double(double)>& inverse) {
    return Scale::custom(
        [primary, inverse](double value) { return primary.transform(inverse(value)); },
        [primary, forward](double position) { return forward(primary.invTransform(position)); });
}

} // namespace

void DataCover::include(const DataCover& other) {
    fromZero = fromZero || other.fromZero;
    if (other.values.isEmpty())
        return;
    const bool isFirst = values.isEmpty();
    if (isFirst || other.values.min <= values.min)
        flushMin = other.flushMin || (!isFirst && flushMin && other.values.min == values.min);
    if (isFirst || other.values.max >= values.max)
        flushMax = other.flushMax || (!isFirst && flushMax && other.values.max == values.max);
    values.include(other.values);
}

AxisDerivation::AxisDerivation(std::function<double(double)> forward,
                               std::function<double(double)> inverse, const Scale& primary)
    : forward(std::move(forward)),
      inverse(std::move(inverse)),
      from(primary),
      scale(derivedScale(primary, this->forward, this->inverse)) {}

const Scale& AxisDerivation::scaleBeside(const Scale& primary) {
    if (!(from == primary)) {
        scale = derivedScale(primary, forward, inverse);
        from = primary;
    }
    return scale;
}

Axis::Private::Private() {
    follow(std::make_shared<AxisRange>());
}

Axis::Private::~Private() {
    std::erase(range->axes, this);
}

void Axis::Private::follow(const std::shared_ptr<AxisRange>& other) {
    // First what may fail.
    other->axes.push_back(this);
    if (range)
        std::erase(range->axes, this);
    range = other;
    ++revision;
}

const Scale& Axis::Private::currentScale() const {
    return derivation ? derivation->scaleBeside(primary->scale()) : scale;
}

std::pair<double, double> Axis::Private::currentRange() const {
    if (derivation) {
        const auto [first, second] = primary->range();
        return {derivation->forward(first), derivation->forward(second)};
    }
    if (!range->autoScale && scale.contains(range->first) && scale.contains(range->second))
        return {range->first, range->second};
    DataCover all;
    for (const Private* axis : range->axes)
        if (axis->cover)
            all.include(axis->cover());
    const Interval r = scale.autoRange(all.values, autoPadding,
                                       all.flushMin || (all.fromZero && all.values.min == 0.0),
                                       all.flushMax || (all.fromZero && all.values.max == 0.0));
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
    return d->currentScale();
}

std::pair<double, double> Axis::range() const {
    return d->currentRange();
}

bool Axis::setRange(double first, double second, double step) {
    if (d->derivation) {
        const auto& inverse = d->derivation->inverse;
        if (!d->primary->setRange(inverse(first), inverse(second)))
            return false;
        d->range->step = std::isfinite(step) && step > 0.0 ? step : 0.0;
        return true;
    }
    if (!d->scale.contains(first) || !d->scale.contains(second) || first == second)
        return false;
    d->range->first = first;
    d->range->second = second;
    d->range->step = std::isfinite(step) && step > 0.0 ? step : 0.0;
    d->range->autoScale = false;
    return true;
}

void Axis::setAutoScale(bool on) {
    if (d->derivation)
        return d->primary->setAutoScale(on);
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
    return d->derivation ? d->primary->isAutoScale() : d->range->autoScale;
}

void Axis::setInverted(bool on) {
    if (d->derivation) {
        if (isInverted() != on)
            d->primary->setInverted(!d->primary->isInverted());
        return;
    }
    d->inverted = on;
    if (!d->range->autoScale && (d->range->first > d->range->second) != on)
        std::swap(d->range->first, d->range->second);
}

bool Axis::isInverted() const {
    const auto [first, second] = d->currentRange();
    return first > second;
}

bool Axis::setDerived(std::function<double(double)> forward,
                      std::function<double(double)> inverse) {
    if (!d->primary)
        return false;
    std::optional<AxisDerivation> derivation;
    if (forward && inverse)
        derivation.emplace(std::move(forward), std::move(inverse), d->primary->scale());
    unlink();
    d->derivation = std::move(derivation);
    return true;
}

bool Axis::isDerived() const {
    return d->derivation.has_value();
}

void Axis::linkTo(Axis& other) {
    if (d->derivation || other.d->derivation || other.d->range == d->range)
        return;
    d->follow(other.d->range);
    d->scale = other.d->scale;
    d->inverted = other.d->inverted;
}

void Axis::unlink() {
    auto own = std::make_shared<AxisRange>(*d->range);
    own->axes.clear();
    d->follow(own);
}

bool Axis::isLinkedTo(const Axis& other) const {
    return d->range == other.d->range;
}

void Axis::setNumberFormat(const NumberFormat& format) {
    // Copied first: an assignment that fails half-way would leave a mixture.
    NumberFormat copy = format;
    d->numberFormat = std::move(copy);
    ++d->revision;
}

const NumberFormat& Axis::numberFormat() const {
    return d->numberFormat;
}

void Axis::setGridVisible(bool on) {
    d->gridVisible = on;
}

bool Axis::isGridVisible() const {
    return d->gridVisible;
}

} // namespace zembra
