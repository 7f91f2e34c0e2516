// SPDX-License-Identifier: MIT
#include "NumberText.h"

#include <array>
#include <charconv>
#include <cmath>
#include <utility>

namespace zembra {

namespace {

void replaceAll(std::string& text, std::string_view what, std::string_view by) {
    if (what.empty())
        return;
    for (auto at = text.find(what); at != std::string::npos; at = text.find(what, at + by.size()))
        text.replace(at, what.size(), by);
}

// The same text in ASCII: "−1,5×10⁻³" becomes "-1.5*10^-^3".
std::string toAscii(std::string_view label, const NumberFormat& format) {
    static constexpr std::array<std::pair<std::string_view, std::string_view>, 13> marks = {{
        {"\u2070", "^0"},
        {"\u00b9", "^1"},
        {"\u00b2", "^2"},
        {"\u00b3", "^3"},
        {"\u2074", "^4"},
        {"\u2075", "^5"},
        {"\u2076", "^6"},
        {"\u2077", "^7"},
        {"\u2078", "^8"},
        {"\u2079", "^9"},
        {"\u207b", "^-"},
        {"\u2212", "-"},
        {"\u00d7", "*"},
    }};
    std::string text(label);
    replaceAll(text, format.groupSeparator(), "");
    if (format.decimalPoint() != ".")
        replaceAll(text, format.decimalPoint(), ".");
    for (const auto& [from, to] : marks)
        replaceAll(text, from, to);
    return text;
}

// Reads and removes a superscript number at the front, such as "^-^3".
std::optional<int> takeSuperscript(std::string_view& text) {
    std::string figures;
    while (text.size() >= 2 && text[0] == '^') {
        figures += text[1];
        text.remove_prefix(2);
    }
    int value = 0;
    const auto read = std::from_chars(figures.data(), figures.data() + figures.size(), value);
    if (figures.empty() || read.ec != std::errc() || read.ptr != figures.data() + figures.size())
        return std::nullopt;
    return value;
}

// A number as it is told: exactly where that is possible, so that a sum is rounded once.
struct Number {
    std::optional<Decimal> exact;
    double value = 0.0;
};

// Takes the plain digits at the front of a text.
std::string takeFigures(std::string_view& text) {
    std::string figures;
    while (!text.empty() && ((text[0] >= '0' && text[0] <= '9') || text[0] == '.')) {
        figures += text[0];
        text.remove_prefix(1);
    }
    return figures;
}

std::optional<Number> readFigures(std::string figures, int exponent, bool negative) {
    Number number;
    const auto point = figures.find('.');
    std::string digits = figures;
    int behindPoint = 0;
    if (point != std::string::npos) {
        digits.erase(point, 1);
        behindPoint = static_cast<int>(digits.size() - point);
    }
    Decimal decimal{0, exponent - behindPoint};
    const auto end = digits.data() + digits.size();
    const auto whole = std::from_chars(digits.data(), end, decimal.digits);
    if (whole.ec == std::errc() && whole.ptr == end) {
        decimal.digits = negative ? -decimal.digits : decimal.digits;
        number.exact = decimal;
        number.value = decimal.toDouble();
        return number;
    }
    figures += 'e' + std::to_string(exponent);
    const auto last = figures.data() + figures.size();
    const auto read = std::from_chars(figures.data(), last, number.value);
    if (read.ec != std::errc() || read.ptr != last)
        return std::nullopt;
    number.value = negative ? -number.value : number.value;
    return number;
}

// Reads "1.5", "1.5*10^6", "2^7" and "e^3".
std::optional<Number> readNumber(std::string_view text, int factor) {
    const bool negative = !text.empty() && text[0] == '-';
    if (negative)
        text.remove_prefix(1);
    std::string figures = takeFigures(text);
    const bool isE = figures.empty() && !text.empty() && text[0] == 'e';
    if (isE)
        text.remove_prefix(1);
    int exponent = factor;
    int power = 1;
    if (text.substr(0, 3) == "*10") {
        text.remove_prefix(3);
        const auto ten = takeSuperscript(text);
        if (!ten)
            return std::nullopt;
        exponent += *ten;
    } else if (!text.empty()) {
        const auto raised = takeSuperscript(text);
        if (!raised)
            return std::nullopt;
        if (figures == "10") {
            figures = "1";
            exponent += *raised;
        } else {
            power = *raised;
        }
    }
    if (!text.empty() || (figures.empty() && !isE))
        return std::nullopt;
    constexpr double e = 2.718281828459045235;
    auto number = isE ? Number{std::nullopt, negative ? -e : e}
                      : readFigures(std::move(figures), exponent, negative);
    if (number && power != 1)
        number = Number{std::nullopt,
                        std::copysign(std::pow(std::abs(number->value), power), number->value)};
    return number;
}

double sum(const Number& a, const Number& b) {
    if (!a.exact || !b.exact)
        return a.value + b.value;
    const Decimal& fine = a.exact->exponent < b.exact->exponent ? *a.exact : *b.exact;
    const Decimal& coarse = a.exact->exponent < b.exact->exponent ? *b.exact : *a.exact;
    const int places = coarse.exponent - fine.exponent;
    if (digitCount(coarse.digits) + places > 18 || digitCount(fine.digits) > 18)
        return a.value + b.value;
    return Decimal{coarse.digits * integerPower10(places) + fine.digits, fine.exponent}.toDouble();
}

// The power of ten of an SI prefix and unit behind a number, which is cut off.
int takeSiPrefix(std::string_view& text, const NumberFormat& format) {
    const std::string_view unit = format.unit();
    if (!unit.empty() && text.size() > unit.size() && text.ends_with(unit))
        text.remove_suffix(unit.size());
    int power = 0;
    constexpr std::string_view up = "kMGTPEZYRQ";
    constexpr std::string_view down = "m?npfazyrq";
    if (text.ends_with("\u00b5")) {
        text.remove_suffix(2);
        power = -6;
    } else if (!text.empty() && up.find(text.back()) != std::string_view::npos) {
        power = 3 * (static_cast<int>(up.find(text.back())) + 1);
        text.remove_suffix(1);
    } else if (!text.empty() && down.find(text.back()) != std::string_view::npos) {
        power = -3 * (static_cast<int>(down.find(text.back())) + 1);
        text.remove_suffix(1);
    }
    if (text.ends_with("\u00a0"))
        text.remove_suffix(2);
    return power;
}

} // namespace

std::optional<double> parseNumber(std::string_view label, std::string_view offset,
                                  const NumberFormat& format) {
    if (!format.suffix().empty() && label.ends_with(format.suffix()))
        label.remove_suffix(format.suffix().size());
    int factor = -format.shift();
    if (format.notation() == NumberFormat::Notation::SiPrefix)
        factor += takeSiPrefix(label, format);
    std::string text(label);
    if (const auto at = text.find(format.prefix()); at != std::string::npos)
        text.erase(at, format.prefix().size());

    std::string common = toAscii(offset, format);
    std::string_view rest = common;
    if (rest.starts_with("*10")) {
        rest.remove_prefix(3);
        const auto power = takeSuperscript(rest);
        if (!power)
            return std::nullopt;
        factor += *power;
        if (!rest.empty() && rest[0] == ' ')
            rest.remove_prefix(1);
    }
    const auto number = readNumber(toAscii(text, format), factor);
    if (!number || rest.empty())
        return number ? std::optional(number->value) : std::nullopt;
    if (rest[0] == '+')
        rest.remove_prefix(1);
    const auto part = readNumber(rest, -format.shift());
    return part ? std::optional(sum(*number, *part)) : std::nullopt;
}

} // namespace zembra
