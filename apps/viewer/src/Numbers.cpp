// SPDX-License-Identifier: MIT
#include "Numbers.h"

#include "Ascii.h"

#include <fast_float/fast_float.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace viewer {

namespace {

std::optional<double> parsePlain(std::string_view text, char decimalMark) {
    // fast_float knows no plus sign.
    const bool hasPlus = !text.empty() && text.front() == '+';
    if (hasPlus)
        text.remove_prefix(1);
    if (text.empty() || text.front() == '+' || (hasPlus && text.front() == '-'))
        return std::nullopt;
    double value = 0.0;
    const auto [end, error] = fast_float::from_chars_advanced(
        text.data(), text.data() + text.size(), value,
        fast_float::parse_options(fast_float::chars_format::general, decimalMark));
    if (end != text.data() + text.size() || !std::isfinite(value))
        return std::nullopt;
    // Too small for a double is as good as 0, too large was refused above.
    if (error != std::errc() && error != std::errc::result_out_of_range)
        return std::nullopt;
    return value;
}

// Takes the group marks out of "1,234,567.8"; refuses other groups than of three digits.
std::optional<double> parseGrouped(std::string_view text, char decimalMark) {
    std::array<char, 64> plain{};
    if (text.size() > plain.size())
        return std::nullopt;
    const std::size_t begin = !text.empty() && (text[0] == '-' || text[0] == '+') ? 1 : 0;
    const std::size_t whole = std::min(text.find(decimalMark), text.size());
    char mark = 0;
    std::size_t size = 0;
    std::size_t digits = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        const bool isMark = i > begin && i < whole && !isDigit(c);
        if (!isMark) {
            digits += i < whole && isDigit(c) ? 1 : 0;
            plain[size++] = c;
            continue;
        }
        const bool known = c == '\'' || c == ' ' || (c == ',' && decimalMark == '.') ||
                           (c == '.' && decimalMark == ',');
        const bool groupIsWhole = mark == 0 ? digits >= 1 && digits <= 3 : digits == 3;
        if (!known || (mark != 0 && c != mark) || !groupIsWhole)
            return std::nullopt;
        mark = c;
        digits = 0;
    }
    if (mark == 0 || digits != 3)
        return std::nullopt;
    return parsePlain({plain.data(), size}, decimalMark);
}

} // namespace

std::optional<double> parseNumber(std::string_view text, char decimalMark) {
    if (text.empty())
        return std::nullopt;
    const char first = text.front();
    if (!isDigit(first) && first != '-' && first != '+' && first != decimalMark)
        return std::nullopt;
    if (const std::optional<double> value = parsePlain(text, decimalMark))
        return value;
    return parseGrouped(text, decimalMark);
}

bool isMissing(std::string_view text) {
    constexpr std::array<std::string_view, 12> marks = {"",     "-",    "na",       "n/a",
                                                        "nan",  "null", "none",     "inf",
                                                        "+inf", "-inf", "infinity", "-infinity"};
    return text.size() <= 9 && std::ranges::any_of(marks, [text](std::string_view mark) {
               return equalIgnoringCase(text, mark);
           });
}

} // namespace viewer
