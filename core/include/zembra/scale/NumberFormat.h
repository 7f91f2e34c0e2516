// SPDX-License-Identifier: MIT
#pragma once

#include <zembra/zembra_export.h>

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace zembra {

/// How numbers become texts, on axes and in read-outs. A value; copies are cheap enough for options
/// and too dear for inner loops.
///
/// The automatic format keeps the labels of an axis within about seven characters: it moves a
/// common factor ("×10⁶") or a common part ("+1.25") to the offset of the tick set. Every other
/// notation stands alone and is as long as it has to be.
class ZEMBRA_EXPORT NumberFormat {
public:
    using Function = std::function<std::string(double)>;
    enum class Notation { Automatic, Fixed, Exponent, Engineering, SiPrefix, Custom };

    /// The automatic format.
    NumberFormat() = default;
    /// Plain digits. At least `decimals` behind the point, more where two ticks would read alike.
    static NumberFormat fixed(int decimals);
    /// "1.5×10³".
    static NumberFormat exponent();
    /// "15×10³": exponents are multiples of three.
    static NumberFormat engineering();
    /// "15 kHz" for the unit "Hz"; without a unit "15k". Beyond quecto and quetta: engineering.
    static NumberFormat siPrefix(std::string unit = {});
    /// 0.25 becomes "25%".
    static NumberFormat percent(int decimals = 0);
    /// "90°".
    static NumberFormat degrees(int decimals = 0);
    /// "$1.50" or "1.50 €": the sign stands before the prefix.
    static NumberFormat currency(std::string prefix, std::string suffix = {}, int decimals = 0);
    /// Texts of one's own. Errors: where `function` is empty or throws, the text is empty.
    static NumberFormat custom(Function function);

    /// Put before the digits, behind the sign. UTF-8.
    NumberFormat& setPrefix(std::string text);
    /// Put behind the digits. UTF-8.
    NumberFormat& setSuffix(std::string text);
    /// Range: 0 to 15, others are moved to the nearer end.
    NumberFormat& setDecimals(int count);
    /// UTF-8; an empty text means ".".
    NumberFormat& setDecimalPoint(std::string text);
    /// What stands between groups of three digits before the point. UTF-8; empty for none.
    NumberFormat& setGroupSeparator(std::string text);

    Notation notation() const { return kind; }
    int decimals() const { return minDecimals; }
    /// Texts show the value times ten to this power: 2 for percent.
    int shift() const { return powerOfTen; }
    const std::string& prefix() const { return before; }
    const std::string& suffix() const { return after; }
    const std::string& decimalPoint() const { return point; }
    const std::string& groupSeparator() const { return separator; }
    const std::string& unit() const { return siUnit; }
    const Function& function() const { return ownFunction; }

    /// One number by itself, as in a read-out. `resolution` is the smallest difference that
    /// matters, in data units; 0 means six significant digits. The automatic format takes an
    /// exponent where plain digits would be long. Errors: empty where `value` is not finite.
    std::string text(double value, double resolution = 0.0) const;
    /// The number that a text of this format tells, given the offset of its tick set; nothing where
    /// it tells none. Custom texts are read as if automatic.
    std::optional<double> parse(std::string_view label, std::string_view offset = {}) const;

private:
    Notation kind = Notation::Automatic;
    int minDecimals = 0;
    int powerOfTen = 0;
    std::string before;
    std::string after;
    std::string point = ".";
    std::string separator;
    std::string siUnit;
    Function ownFunction;
};

} // namespace zembra
