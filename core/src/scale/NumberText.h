// SPDX-License-Identifier: MIT
#pragma once

#include "Decimal.h"

#include <zembra/scale/NumberFormat.h>
#include <zembra/scale/Tick.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zembra {

/// "−1 234.50": plain digits with at least so many decimals, without prefix and suffix.
std::string plainText(Decimal value, int decimals, const NumberFormat& format);
/// "−1.25×10⁶"; the exponent is a multiple of `exponentStep`.
std::string scientificText(Decimal value, int exponentStep, const NumberFormat& format);
/// One number in the notation of the format, with everything around it. An automatic format takes
/// an exponent where plain digits would be long.
std::string numberText(Decimal value, int decimals, const NumberFormat& format);

/// Labels the major ticks of a set, which stand at `digits` × 10^`exponent`, and sets its offset.
///
/// Requires: as many digits as ticks, increasing.
void labelNumbers(TickSet& set, const std::vector<std::int64_t>& digits, int exponent,
                  const NumberFormat& format);

/// Leaves repeated texts of neighbours empty; a format of the user's own may bring them about.
void clearRepeatedLabels(TickSet& set);

/// What `NumberFormat::parse` promises.
std::optional<double> parseNumber(std::string_view label, std::string_view offset,
                                  const NumberFormat& format);

} // namespace zembra
