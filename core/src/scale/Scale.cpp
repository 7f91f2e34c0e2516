// SPDX-License-Identifier: MIT
#include <zembra/scale/Scale.h>

#include "CategoricalScale.h"
#include "CustomScale.h"
#include "LinearScale.h"
#include "LogScale.h"
#include "SymLogScale.h"
#include "TimeScale.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace zembra {

namespace {

const std::shared_ptr<const ScaleEngine>& linearEngine() {
    static const std::shared_ptr<const ScaleEngine> engine = std::make_shared<LinearScale>();
    return engine;
}

double baseOrTen(double base) {
    return std::isfinite(base) && base > 1.0 ? base : 10.0;
}

// Keeps what reaches beyond the domain, or has overflowed, within it.
Interval within(const Interval& domain, const Interval& range) {
    return {std::isnan(range.min) ? domain.min : std::clamp(range.min, domain.min, domain.max),
            std::isnan(range.max) ? domain.max : std::clamp(range.max, domain.min, domain.max)};
}

} // namespace

ScaleEngine::~ScaleEngine() = default;

Interval ScaleEngine::rangeOver(const Interval& data, double share) const {
    if (share == 0.0)
        return data;
    const double first = transform(data.min);
    const double second = transform(data.max);
    // Two products, since the span itself may overflow.
    const double padding = second * share - first * share;
    // Rounding on the way there and back must not cut the data.
    return {std::min(invTransform(first - padding), data.min),
            std::max(invTransform(second + padding), data.max)};
}

Scale::Scale() : engine(linearEngine()) {}

Scale::Scale(std::shared_ptr<const ScaleEngine> engine) : engine(std::move(engine)) {}

Scale Scale::linear() {
    return Scale();
}

Scale Scale::log(double base) {
    return Scale(std::make_shared<LogScale>(baseOrTen(base)));
}

Scale Scale::time(const std::string& zone) {
    return Scale(std::make_shared<TimeScale>(zone));
}

Scale Scale::symLog(double linearWidth, double base) {
    const bool isWidth = std::isfinite(linearWidth) && linearWidth > 0.0;
    return Scale(std::make_shared<SymLogScale>(isWidth ? linearWidth : 1.0, baseOrTen(base)));
}

Scale Scale::categorical(std::vector<std::string> names) {
    return Scale(std::make_shared<CategoricalScale>(std::move(names)));
}

Scale Scale::custom(std::function<double(double)> forward, std::function<double(double)> inverse,
                    const Interval& domain) {
    return Scale(std::make_shared<CustomScale>(std::move(forward), std::move(inverse), domain));
}

double Scale::transform(double value) const {
    return engine->transform(value);
}

double Scale::invTransform(double position) const {
    return engine->invTransform(position);
}

bool Scale::contains(double value) const {
    return engine->contains(value);
}

bool Scale::isLinear() const {
    return engine->isLinear();
}

bool Scale::isCategorical() const {
    return engine->isCategorical();
}

bool Scale::hasGroups() const {
    return engine->hasGroups();
}

Interval Scale::domain() const {
    return engine->domain();
}

Interval Scale::autoRange(const Interval& data, double share, bool keepMin, bool keepMax) const {
    const Interval limits = engine->domain();
    const Interval inside{std::max(data.min, limits.min), std::min(data.max, limits.max)};
    if (data.isEmpty() || inside.isEmpty())
        return within(limits, engine->defaultRange());
    // An end outside the domain tells nothing about where the data inside it begins.
    const bool isSingle =
        inside.min == inside.max || inside.min != data.min || inside.max != data.max;
    const double known = inside.max == data.max ? inside.max : inside.min;
    const double pad = std::isfinite(share) && share > 0.0 ? share : 0.0;
    Interval range =
        within(limits, isSingle ? engine->rangeAround(known) : engine->rangeOver(inside, pad));
    if (keepMin && inside.min == data.min && inside.min < range.max)
        range.min = inside.min;
    if (keepMax && inside.max == data.max && inside.max > range.min)
        range.max = inside.max;
    if (range.min < range.max)
        return range;
    const double inf = std::numeric_limits<double>::infinity();
    range = within(limits, {std::nextafter(known, -inf), std::nextafter(known, inf)});
    return range.min < range.max ? range : within(limits, engine->defaultRange());
}

TickSet Scale::ticks(double first, double second, const TickRequest& request) const {
    const double min = std::min(first, second);
    const double max = std::max(first, second);
    if (!contains(min) || !contains(max) || !(min < max) || request.maxMajor < 1)
        return {};
    return engine->ticks(min, max, request);
}

} // namespace zembra
