// SPDX-License-Identifier: MIT
#pragma once

#include <zembra/series/ColorScale.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>

namespace zembra {

/// A colour scale for loops over many values: where it is linear, a table and a straight line.
class PixelColors {
public:
    /// Requires: `colors` outlives the result and does not change.
    explicit PixelColors(const ColorScale& colors);

    /// The colour of a value, if there is a short way to it.
    bool find(double value, std::uint32_t& pixel) const {
        const double place = value * slope + offset;
        if (!std::isfinite(place))
            return false;
        pixel = table[static_cast<std::size_t>(static_cast<int>(std::clamp(place, 0.0, last)))];
        return true;
    }

    std::uint32_t operator()(double value) const;

private:
    static constexpr double last = 255.0;

    const ColorScale& colors;
    double slope = 0.0;
    // NaN where there is no straight line.
    double offset = 0.0;
    std::array<std::uint32_t, 256> table{};
};

} // namespace zembra
