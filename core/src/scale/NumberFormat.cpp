// SPDX-License-Identifier: MIT
#include <zembra/scale/NumberFormat.h>

#include "NumberText.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace zembra {

NumberFormat NumberFormat::fixed(int decimals) {
    NumberFormat format;
    format.kind = Notation::Fixed;
    return format.setDecimals(decimals);
}

NumberFormat NumberFormat::exponent() {
    NumberFormat format;
    format.kind = Notation::Exponent;
    return format;
}

NumberFormat NumberFormat::engineering() {
    NumberFormat format;
    format.kind = Notation::Engineering;
    return format;
}

NumberFormat NumberFormat::siPrefix(std::string unit) {
    NumberFormat format;
    format.kind = Notation::SiPrefix;
    format.siUnit = std::move(unit);
    return format;
}

NumberFormat NumberFormat::percent(int decimals) {
    NumberFormat format = fixed(decimals);
    format.powerOfTen = 2;
    return format.setSuffix("%");
}

NumberFormat NumberFormat::degrees(int decimals) {
    return fixed(decimals).setSuffix("\u00b0");
}

NumberFormat NumberFormat::currency(std::string prefix, std::string suffix, int decimals) {
    return fixed(decimals).setPrefix(std::move(prefix)).setSuffix(std::move(suffix));
}

NumberFormat NumberFormat::custom(Function function) {
    NumberFormat format;
    format.kind = Notation::Custom;
    format.ownFunction = std::move(function);
    return format;
}

NumberFormat& NumberFormat::setPrefix(std::string text) {
    before = std::move(text);
    return *this;
}

NumberFormat& NumberFormat::setSuffix(std::string text) {
    after = std::move(text);
    return *this;
}

NumberFormat& NumberFormat::setDecimals(int count) {
    minDecimals = std::clamp(count, 0, 15);
    return *this;
}

NumberFormat& NumberFormat::setDecimalPoint(std::string text) {
    point = text.empty() ? std::string(1, '.') : std::move(text);
    return *this;
}

NumberFormat& NumberFormat::setGroupSeparator(std::string text) {
    separator = std::move(text);
    return *this;
}

std::string NumberFormat::text(double value, double resolution) const {
    if (!std::isfinite(value))
        return {};
    if (!(resolution > 0.0) || !std::isfinite(resolution))
        return numberText(Decimal::nearest(value, 6), 0, *this);
    // A hair more, so that a resolution of 0.001 counts as three decimals and not as four.
    const int wanted = static_cast<int>(std::floor(std::log10(resolution) + 1e-9));
    // A double tells no more than seventeen digits.
    const int magnitude = Decimal::nearest(value, 17).magnitude();
    const int place = std::max(wanted, magnitude - 16);
    const int significant = magnitude - place + 1;
    Decimal rounded;
    if (significant >= 1)
        rounded = Decimal::nearest(value, significant);
    else if (std::abs(value) >= 0.5 * power10(place))
        rounded = {value < 0.0 ? -1 : 1, place};
    return numberText(rounded, -place - powerOfTen, *this);
}

std::optional<double> NumberFormat::parse(std::string_view label, std::string_view offset) const {
    return parseNumber(label, offset, *this);
}

} // namespace zembra
