// SPDX-License-Identifier: MIT
#pragma once

#include "PictureStore.h"

#include <zembra/paint/Color.h>
#include <zembra/paint/Painter.h>
#include <zembra/series/Canvas.h>

#include <array>
#include <bit>
#include <cstdint>
#include <cstring>

namespace zembra {

/// A finished picture, ready for `Painter::drawImage`.
struct Picture {
    PictureBuffer buffer;
    int width = 0;
    int height = 0;
    /// Where its top-left corner belongs, in whole pixels.
    int x = 0;
    int y = 0;
};

/// A picture in slices: what lies between the upper and the lower one is opaque all over. They
/// overlap it by a row each, so that no seam shows when it is enlarged.
struct SlicedPicture {
    Picture upper;
    /// Empty where it was not worth cutting; all of the picture is in `upper` then.
    Rect middle;
    Picture lower;
};

/// The bytes of a pixel in one word; `alpha` may be left 0 and added with `alphaShift`.
inline std::uint32_t packedPixel(const Color& color, unsigned alpha) {
    const std::array<std::uint8_t, 4> bytes{color.red(), color.green(), color.blue(),
                                            static_cast<std::uint8_t>(alpha)};
    std::uint32_t pixel = 0;
    std::memcpy(&pixel, bytes.data(), bytes.size());
    return pixel;
}
constexpr unsigned alphaShift = std::endian::native == std::endian::little ? 24 : 0;

/// Draws a picture, if there is one, and keeps its memory until the frame ends.
inline void drawPicture(Painter& painter, const Picture& picture, FrameBuffers& buffers) {
    if (!picture.buffer.memory)
        return;
    buffers.push_back(picture.buffer.memory);
    painter.drawImage(picture.buffer.pixels, picture.width, picture.height,
                      picture.x + 0.5 * picture.width, picture.y + 0.5 * picture.height);
}

inline void drawPicture(Painter& painter, const SlicedPicture& picture, const Color& color,
                        FrameBuffers& buffers) {
    if (!picture.middle.isEmpty())
        painter.fillRect(picture.middle, color);
    drawPicture(painter, picture.upper, buffers);
    drawPicture(painter, picture.lower, buffers);
}

} // namespace zembra
