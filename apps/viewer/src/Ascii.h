// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <string_view>

namespace viewer {

// The classes of characters of data files, whatever the locale.

constexpr bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

constexpr char lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

constexpr bool isLetter(char c) {
    return lower(c) >= 'a' && lower(c) <= 'z';
}

/// Whether two texts agree but for the case of the letters a to z.
constexpr bool equalIgnoringCase(std::string_view a, std::string_view b) {
    return std::ranges::equal(a, b, {}, lower, lower);
}

} // namespace viewer
