// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

namespace zembra {

/// The number `digits` × 10^`exponent`, exactly. A cheap value.
///
/// Ticks are counted in these, so that a label tells the very number its tick stands at.
struct Decimal {
    std::int64_t digits = 0;
    int exponent = 0;

    /// The nearest double. Range: 0 where it underflows, an infinity where it overflows.
    double toDouble() const;
    /// The power of ten of the first digit; the exponent itself for zero.
    int magnitude() const;
    /// The same number without zeros at the end.
    Decimal trimmed() const;

    /// The decimal nearest to a finite value with at most so many significant digits.
    /// Range: `significant` 1 to 17.
    static Decimal nearest(double value, int significant);
    /// The shortest decimal that reads back as the finite value.
    static Decimal shortest(double value);

    friend bool operator==(const Decimal&, const Decimal&) = default;
};

/// The number of decimal digits of |`value`|; 1 for zero.
int digitCount(std::int64_t value);
/// 10^`power` for 0 to 18.
std::int64_t integerPower10(int power);
/// The nearest double to 10^`power`.
double power10(int power);
/// "⁻³" for -3.
std::string superscript(int value);

/// U+2212, which is as wide as a plus sign and does not break from its number.
inline constexpr char minusSign[] = "\u2212";

/// Quotient and remainder that round towards minus infinity.
constexpr std::int64_t floorDiv(std::int64_t a, std::int64_t b) {
    return a / b - (a % b != 0 && (a % b < 0) != (b < 0) ? 1 : 0);
}
constexpr std::int64_t floorMod(std::int64_t a, std::int64_t b) {
    return a - floorDiv(a, b) * b;
}

} // namespace zembra
