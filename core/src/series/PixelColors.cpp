// SPDX-License-Identifier: MIT
#include "PixelColors.h"

#include "Picture.h"

#include <limits>

namespace zembra {

namespace {

std::uint32_t packed(const Color& color) {
    return packedPixel(color, color.alpha());
}

} // namespace

PixelColors::PixelColors(const ColorScale& colors) : colors(colors) {
    const Interval& range = colors.range();
    const double first = colors.share(range.min);
    slope = (colors.share(range.max) - first) / (range.max - range.min) * last;
    offset = first * last + 0.5 - range.min * slope;
    const bool linear = colors.scale().isLinear() && std::isfinite(slope) && std::isfinite(offset);
    if (!linear)
        offset = std::numeric_limits<double>::quiet_NaN();
    for (std::size_t i = 0; linear && i < table.size(); ++i)
        table[i] = packed(colors.map().at(static_cast<double>(i) / last));
}

std::uint32_t PixelColors::operator()(double value) const {
    std::uint32_t pixel = 0;
    return find(value, pixel) ? pixel : packed(colors.color(value));
}

} // namespace zembra
