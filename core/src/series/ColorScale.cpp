// SPDX-License-Identifier: MIT
#include <zembra/series/ColorScale.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace zembra {

namespace {

// Halves keep the differences finite for ranges that fill all of double.
double halfDistance(const Scale& scale, double from, double to) {
    return 0.5 * scale.transform(to) - 0.5 * scale.transform(from);
}

} // namespace

ColorScale::ColorScale() {
    update();
}

ColorScale::ColorScale(ColorMap map, const Scale& scale)
    : colorMap(std::move(map)), valueScale(scale) {
    update();
}

void ColorScale::setMap(ColorMap map) {
    colorMap = std::move(map);
}

void ColorScale::setScale(const Scale& scale) {
    valueScale = scale;
    if (fixedRange && !(scale.contains(fixedRange->min) && scale.contains(fixedRange->max)))
        fixedRange.reset();
    update();
}

void ColorScale::setCenter(std::optional<double> value) {
    centerValue = value;
    update();
}

bool ColorScale::setRange(double min, double max) {
    if (!valueScale.contains(min) || !valueScale.contains(max) || !(min < max))
        return false;
    fixedRange = Interval{min, max};
    update();
    return true;
}

void ColorScale::setAutoRange() {
    fixedRange.reset();
    update();
}

void ColorScale::setDataRange(const Interval& values) {
    dataRange = values;
    update();
}

Interval ColorScale::automaticRange() const {
    const Interval range = valueScale.autoRange(dataRange, 0.0);
    if (!centerValue || !valueScale.contains(*centerValue))
        return range;
    const double below = halfDistance(valueScale, range.min, *centerValue);
    const double above = halfDistance(valueScale, *centerValue, range.max);
    const double reach = 2.0 * std::max(below, above);
    const double middle = valueScale.transform(*centerValue);
    const Interval even{valueScale.invTransform(middle - reach),
                        valueScale.invTransform(middle + reach)};
    const bool valid =
        valueScale.contains(even.min) && valueScale.contains(even.max) && even.min < even.max;
    return valid ? even : range;
}

void ColorScale::update() {
    currentRange = fixedRange ? *fixedRange : automaticRange();
    if (centerValue && valueScale.contains(*centerValue)) {
        const double half = std::max(halfDistance(valueScale, currentRange.min, *centerValue),
                                     halfDistance(valueScale, *centerValue, currentRange.max));
        begin = 0.5 * valueScale.transform(*centerValue) - half;
        reach = 2.0 * half;
    } else {
        begin = 0.5 * valueScale.transform(currentRange.min);
        reach = halfDistance(valueScale, currentRange.min, currentRange.max);
    }
}

double ColorScale::share(double value) const {
    if (!valueScale.contains(value))
        return std::numeric_limits<double>::quiet_NaN();
    return std::clamp((0.5 * valueScale.transform(value) - begin) / reach, 0.0, 1.0);
}

Color ColorScale::color(double value) const {
    const double place = share(value);
    return std::isnan(place) ? colorOfNan : colorMap.at(place);
}

} // namespace zembra
