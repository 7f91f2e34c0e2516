// SPDX-License-Identifier: MIT
#pragma once

#include <limits>

/// Numbers at the ends of what a double holds.
namespace zembra::test {

inline constexpr double infinity = std::numeric_limits<double>::infinity();
inline constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
inline constexpr double largest = std::numeric_limits<double>::max();
inline constexpr double smallest = std::numeric_limits<double>::denorm_min();
/// The step from 1 to the next number.
inline constexpr double ulp = std::numeric_limits<double>::epsilon();

} // namespace zembra::test
