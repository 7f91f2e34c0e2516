// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace zembra {

/// Points of pixels that a stroke may reach, a bit for each: a byte holds those of a pixel that are
/// in a row, and rows of points follow one another. `maskTogether` bytes more lie at the end.
using PointMask = std::vector<std::uint8_t>;

constexpr int pointsAcross = 8;
constexpr int pointsDown = 4;
/// As many bytes are looked at together, also at the end of the last row.
constexpr int maskTogether = 64;

/// How many points of a byte are not reached. Counted by hand, so that the compiler counts many
/// bytes at once.
inline unsigned missingPoints(std::uint8_t byte) {
    unsigned bits = static_cast<std::uint8_t>(~byte);
    bits = (bits & 0x55u) + (bits >> 1 & 0x55u);
    bits = (bits & 0x33u) + (bits >> 2 & 0x33u);
    return (bits & 0x0Fu) + (bits >> 4);
}

} // namespace zembra
