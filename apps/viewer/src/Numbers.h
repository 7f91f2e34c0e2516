// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string_view>

namespace viewer {

/// Reads a number such as -1.5e3, +7 or, in groups of three, 1,234,567.8. `decimalMark` is '.' or
/// ',', the groups are divided by the other one, an apostrophe or a space.
///
/// Errors: none for text that is not wholly a number, and for NaN and infinities.
std::optional<double> parseNumber(std::string_view text, char decimalMark);

/// Whether the text stands for a value that cannot be drawn: empty, NA, N/A, NaN, null, None, "-"
/// or an infinity.
bool isMissing(std::string_view text);

} // namespace viewer
