// SPDX-License-Identifier: MIT
#pragma once

#include <zembra/paint/Color.h>

namespace zembra {

/// A solid fill. A cheap value.
class Brush {
public:
    /// Opaque black.
    constexpr Brush() = default;
    constexpr Brush(const Color& color) : fillColor(color) {}

    constexpr Color color() const { return fillColor; }
    constexpr void setColor(const Color& color) { fillColor = color; }

    friend constexpr bool operator==(const Brush&, const Brush&) = default;

private:
    Color fillColor;
};

} // namespace zembra
