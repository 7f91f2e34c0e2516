// SPDX-License-Identifier: MIT
#include "NumberText.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cstdlib>

namespace zembra {

namespace {

// Plain digits beyond this many places are told with an exponent instead.
constexpr int longestPlain = 21;
// The number of digits that fit a label of seven characters with a sign and a point.
constexpr int labelDigits = 5;
// Digits that stay in the label when the rest moves to the offset. Few enough to be short, many
// enough that the common part changes only once in many screens of panning.
constexpr int digitsBesideOffset = 4;

constexpr std::array<const char*, 21> siPrefixes = {"q", "r",      "y", "z", "a", "f", "p",
                                                    "n", "\u00b5", "m", "",  "k", "M", "G",
                                                    "T", "P",      "E", "Z", "Y", "R", "Q"};

std::string around(const std::string& number, const NumberFormat& format) {
    if (format.prefix().empty())
        return number + format.suffix();
    const std::string_view sign = minusSign;
    const bool negative = number.compare(0, sign.size(), sign) == 0;
    return negative ? minusSign + format.prefix() + number.substr(sign.size()) + format.suffix()
                    : format.prefix() + number + format.suffix();
}

std::string siText(Decimal value, const NumberFormat& format) {
    const int power = value.digits == 0 ? 0 : 3 * static_cast<int>(floorDiv(value.magnitude(), 3));
    const int index = power / 3 + 10;
    if (index < 0 || index >= static_cast<int>(siPrefixes.size()))
        return scientificText(value, 3, format) +
               (format.unit().empty() ? "" : "\u00a0" + format.unit());
    std::string text = plainText({value.digits, value.exponent - power}, format.decimals(), format);
    if (!format.unit().empty())
        text += "\u00a0";
    return text + siPrefixes[static_cast<std::size_t>(index)] + format.unit();
}

// Where the labels of an axis leave out a common part, a common factor, or nothing.
struct CommonParts {
    std::int64_t part = 0;
    int factor = 0;
};

// Depends on the place of the last digit and on the magnitude alone, so that the form of the labels
// holds still while panning.
CommonParts commonParts(std::int64_t first, std::int64_t last, int exponent) {
    CommonParts common;
    int digits = std::max(digitCount(first), digitCount(last));
    if (digits > labelDigits && (first > 0 || last < 0)) {
        // Towards zero, so that label and offset have the same sign.
        const std::int64_t unit = integerPower10(digitsBesideOffset);
        common.part = (first > 0 ? first : last) / unit * unit;
        digits = digitsBesideOffset;
    }
    const int magnitude = exponent + digits - 1;
    if (magnitude >= labelDigits || exponent <= -labelDigits)
        common.factor = 3 * static_cast<int>(floorDiv(magnitude, 3));
    return common;
}

std::string offsetText(const CommonParts& common, int exponent, const NumberFormat& format) {
    std::string text;
    if (common.factor != 0)
        text = "\u00d710" + superscript(common.factor);
    if (common.part == 0)
        return text;
    if (!text.empty())
        text += ' ';
    if (common.part > 0)
        text += '+';
    const Decimal part = Decimal{common.part, exponent}.trimmed();
    const bool isShort = part.magnitude() <= 6 && part.magnitude() >= -2 && part.exponent >= -6;
    return text + (isShort ? plainText(part, 0, format) : scientificText(part, 1, format));
}

} // namespace

std::string plainText(Decimal value, int decimals, const NumberFormat& format) {
    if (value.magnitude() > longestPlain || value.exponent < -longestPlain)
        return scientificText(value, 1, format);
    std::string figures = fmt::format("{}", std::abs(value.digits));
    if (value.exponent > 0 && value.digits != 0)
        figures.append(static_cast<std::size_t>(value.exponent), '0');
    const auto behind = static_cast<std::size_t>(std::max(-value.exponent, 0));
    if (figures.size() <= behind)
        figures.insert(0, behind + 1 - figures.size(), '0');
    const std::size_t before = figures.size() - behind;
    std::string text = value.digits < 0 ? minusSign : "";
    for (std::size_t i = 0; i < before; ++i) {
        if (i > 0 && (before - i) % 3 == 0)
            text += format.groupSeparator();
        text += figures[i];
    }
    const std::size_t shown = std::max(behind, static_cast<std::size_t>(std::max(decimals, 0)));
    if (shown == 0)
        return text;
    text += format.decimalPoint();
    text.append(figures, before, behind);
    return text.append(shown - behind, '0');
}

std::string scientificText(Decimal value, int exponentStep, const NumberFormat& format) {
    const Decimal v = value.trimmed();
    if (v.digits == 0)
        return "0";
    const int power = exponentStep * static_cast<int>(floorDiv(v.magnitude(), exponentStep));
    const std::string mantissa = plainText({v.digits, v.exponent - power}, 0, format);
    return power == 0 ? mantissa : mantissa + "\u00d710" + superscript(power);
}

std::string numberText(Decimal value, int decimals, const NumberFormat& format) {
    const Decimal shown{value.digits, value.exponent + format.shift()};
    const int wanted = std::max(decimals, format.decimals());
    switch (format.notation()) {
    case NumberFormat::Notation::Fixed:
        return around(plainText(shown, wanted, format), format);
    case NumberFormat::Notation::Exponent:
        return around(scientificText(shown, 1, format), format);
    case NumberFormat::Notation::Engineering:
        return around(scientificText(shown, 3, format), format);
    case NumberFormat::Notation::SiPrefix:
        return around(siText(shown.trimmed(), format), format);
    case NumberFormat::Notation::Custom:
        try {
            return format.function() ? format.function()(value.toDouble()) : std::string();
        } catch (...) {
            return {};
        }
    case NumberFormat::Notation::Automatic:
        break;
    }
    const bool isShort = shown.digits == 0 || (shown.magnitude() < 7 && shown.magnitude() > -5);
    return around(isShort ? plainText(shown, wanted, format) : scientificText(shown, 1, format),
                  format);
}

void labelNumbers(TickSet& set, const std::vector<std::int64_t>& digits, int exponent,
                  const NumberFormat& format) {
    if (digits.empty())
        return;
    if (format.notation() != NumberFormat::Notation::Automatic) {
        for (std::size_t i = 0; i < digits.size(); ++i)
            set.major[i].label = numberText({digits[i], exponent}, 0, format);
        if (format.notation() == NumberFormat::Notation::Custom)
            clearRepeatedLabels(set);
        return;
    }
    // A step of the user's own may have more digits than anybody wants to read.
    const int tooMany = std::max(digitCount(digits.back() - digits.front()) - labelDigits, 0);
    const std::int64_t unit = integerPower10(tooMany);
    const auto rounded = [unit](std::int64_t n) { return floorDiv(n + unit / 2, unit); };
    exponent += tooMany + format.shift();
    const CommonParts common =
        commonParts(rounded(digits.front()), rounded(digits.back()), exponent);
    for (std::size_t i = 0; i < digits.size(); ++i)
        set.major[i].label =
            around(plainText({rounded(digits[i]) - common.part, exponent - common.factor},
                             format.decimals(), format),
                   format);
    set.offset = offsetText(common, exponent, format);
}

void clearRepeatedLabels(TickSet& set) {
    std::string previous;
    for (Tick& tick : set.major) {
        if (tick.label == previous)
            tick.label.clear();
        else
            previous = tick.label;
    }
}

} // namespace zembra
