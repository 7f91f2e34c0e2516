// SPDX-License-Identifier: MIT
#include <zembra/scale/Scale.h>

#include "LinearScale.h"
#include "LogScale.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace zembra {

namespace {

const std::shared_ptr<const ScaleEngine>& linearEngine() {
    static const std::shared_ptr<const ScaleEngine> engine = std::make_shared<LinearScale>();
    return engine;
}

} // namespace

ScaleEngine::~ScaleEngine() = default;

Scale::Scale() : engine(linearEngine()) {}

Scale::Scale(std::shared_ptr<const ScaleEngine> engine) : engine(std::move(engine)) {}

Scale Scale::linear() {
    return Scale();
}

Scale Scale::log(double base) {
    return Scale(std::make_shared<LogScale>(std::isfinite(base) && base > 1.0 ? base : 10.0));
}

Scale Scale::time(const std::string&) {
    return Scale(std::make_shared<LinearScale>());
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

bool Scale::hasGroups() const { return engine->hasGroups(); }

Interval Scale::autoRange(const Interval& data, double share, bool keepMin, bool keepMax) const {
    if (data.isEmpty() || !contains(data.min) || !contains(data.max))
        return engine->defaultRange();
    if (data.min == data.max)
        return engine->rangeAround(data.min);
    const double first = transform(data.min);
    const double second = transform(data.max);
    const double padding = (second - first) * share;
    const double min = keepMin ? data.min : invTransform(first - padding);
    const double max = keepMax ? data.max : invTransform(second + padding);
    return contains(min) && contains(max) && min < max ? Interval{min, max} : data;
}

TickSet Scale::ticks(double first, double second, const TickRequest& request) const {
    const double min = std::min(first, second);
    const double max = std::max(first, second);
    if (!contains(min) || !contains(max) || !(min < max) || request.maxMajor < 1)
        return {};
    return engine->ticks(min, max, request);
}

} // namespace zembra
