// SPDX-License-Identifier: MIT
#pragma once

#include <zembra/zembra_export.h>

#include <cstdint>

namespace zembra {

/// An RGB colour with alpha, eight bits each, alpha not premultiplied. A cheap value.
///
/// Range: components are clamped to 0..255; alpha 255 is opaque.
class Color {
public:
    /// Opaque black.
    constexpr Color() = default;
    constexpr Color(int red, int green, int blue, int alpha = 255)
        : r(clamped(red)), g(clamped(green)), b(clamped(blue)), a(clamped(alpha)) {}

    constexpr std::uint8_t red() const { return r; }
    constexpr std::uint8_t green() const { return g; }
    constexpr std::uint8_t blue() const { return b; }
    constexpr std::uint8_t alpha() const { return a; }

    /// The same colour with another alpha.
    constexpr Color withAlpha(int alpha) const { return {r, g, b, alpha}; }

    friend constexpr bool operator==(const Color&, const Color&) = default;

private:
    static constexpr std::uint8_t clamped(int component) {
        return static_cast<std::uint8_t>(component < 0 ? 0 : component > 255 ? 255 : component);
    }

    std::uint8_t r = 0;
    std::uint8_t g = 0;
    std::uint8_t b = 0;
    std::uint8_t a = 255;
};

/// Mixes two colours; `share` 0 gives `from`, 1 gives `to`, values outside are clamped.
ZEMBRA_EXPORT Color mix(const Color& from, const Color& to, double share);

} // namespace zembra
