// SPDX-License-Identifier: MIT
#pragma once

#include <zembra/paint/Painter.h>
#include <zembra/zembra_export.h>

#include <cstdint>
#include <vector>

namespace zembra {

/// An off-screen target that owns its painter.
///
/// The order of the virtual operations is part of the ABI, as with `Painter`.
class ZEMBRA_EXPORT RenderSurface {
public:
    virtual ~RenderSurface();

    /// Starts a new target of that size in pixels, with a fresh painter.
    virtual void create(int width, int height) = 0;
    /// Scales all later drawing.
    virtual void scale(double sx, double sy) = 0;
    /// The painter, owned by the surface; null before `create` and once painting has ended.
    virtual Painter* painter() = 0;
    /// Ends painting and returns the pixels.
    ///
    /// Shape: `width` × `height` × 4 bytes, rows top to bottom without padding, red, green, blue,
    /// alpha, not premultiplied; empty for targets that have no pixels.
    virtual std::vector<std::uint8_t> getImageData(int width, int height) = 0;
};

} // namespace zembra
