// SPDX-License-Identifier: MIT
#include "Decimal.h"

#include <fmt/format.h>

#include <array>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <limits>

namespace zembra {

namespace {

constexpr std::array<double, 23> exactPowers = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                                1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};

// Reads "-1.25e-07" as the formatter writes it.
Decimal fromScientific(const char* text, const char* end) {
    Decimal result;
    bool negative = false;
    int behindPoint = 0;
    bool point = false;
    for (; text != end && *text != 'e'; ++text) {
        if (*text == '-') {
            negative = true;
        } else if (*text == '.') {
            point = true;
        } else {
            result.digits = result.digits * 10 + (*text - '0');
            behindPoint += point ? 1 : 0;
        }
    }
    if (text != end) {
        ++text;
        if (text != end && *text == '+')
            ++text;
        std::from_chars(text, end, result.exponent);
    }
    result.digits = negative ? -result.digits : result.digits;
    result.exponent -= behindPoint;
    return result.trimmed();
}

} // namespace

double Decimal::toDouble() const {
    // Both factors are exact up to here, so that one rounding remains (Clinger, "How to Read
    // Floating Point Numbers Accurately", 1990).
    constexpr std::int64_t exact = std::int64_t{1} << 53;
    if (digits >= -exact && digits <= exact && exponent >= -22 && exponent <= 22) {
        const auto power = exactPowers[static_cast<std::size_t>(std::abs(exponent))];
        const auto value = static_cast<double>(digits);
        return exponent < 0 ? value / power : value * power;
    }
    if (digits == 0)
        return 0.0;
    std::array<char, 40> text{};
    const auto end = fmt::format_to_n(text.data(), text.size(), "{}e{}", digits, exponent).out;
    double value = 0.0;
    if (std::from_chars(text.data(), end, value).ec == std::errc())
        return value;
    if (exponent < 0)
        return 0.0;
    return std::copysign(std::numeric_limits<double>::infinity(), static_cast<double>(digits));
}

int Decimal::magnitude() const {
    return exponent + digitCount(digits) - 1;
}

Decimal Decimal::trimmed() const {
    if (digits == 0)
        return {};
    Decimal result = *this;
    while (result.digits % 10 == 0) {
        result.digits /= 10;
        ++result.exponent;
    }
    return result;
}

Decimal Decimal::nearest(double value, int significant) {
    std::array<char, 40> text{};
    const auto end =
        fmt::format_to_n(text.data(), text.size(), "{:.{}e}", value, significant - 1).out;
    return fromScientific(text.data(), end);
}

Decimal Decimal::shortest(double value) {
    std::array<char, 40> text{};
    const auto end =
        std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::scientific)
            .ptr;
    return fromScientific(text.data(), end);
}

int digitCount(std::int64_t value) {
    int count = 1;
    for (; value >= 10 || value <= -10; value /= 10)
        ++count;
    return count;
}

std::int64_t integerPower10(int power) {
    std::int64_t result = 1;
    for (; power > 0; --power)
        result *= 10;
    return result;
}

double power10(int power) {
    return Decimal{1, power}.toDouble();
}

std::string superscript(int value) {
    static constexpr std::array<const char*, 10> figures = {"\u2070", "\u00b9", "\u00b2", "\u00b3",
                                                            "\u2074", "\u2075", "\u2076", "\u2077",
                                                            "\u2078", "\u2079"};
    std::string result;
    for (const char c : fmt::format("{}", value))
        result += c == '-' ? "\u207b" : figures[static_cast<std::size_t>(c - '0')];
    return result;
}

} // namespace zembra
