// SPDX-License-Identifier: MIT
#pragma once

#include <qzembra_export.h>

#include <zembra/paint/RenderSurface.h>

#include <memory>

namespace zembra {

/// Renders off screen into RGBA pixels.
///
/// Owned by its maker and used on the GUI thread; not copyable. `create`, draw through `painter`,
/// take the pixels with `getImageData`; `create` again starts afresh.
class QZEMBRA_EXPORT QtRenderSurface : public RenderSurface {
public:
    QtRenderSurface();
    ~QtRenderSurface() override;
    QtRenderSurface(const QtRenderSurface&) = delete;
    QtRenderSurface& operator=(const QtRenderSurface&) = delete;

    /// Starts a picture of that size in pixels, fully transparent, and drops the previous one.
    void create(int width, int height) override;
    /// Scales all later drawing; without a painter nothing happens.
    void scale(double sx, double sy) override;
    /// The painter, owned by the surface; null before `create` and after `getImageData`.
    Painter* painter() override;
    /// Ends painting and returns the pixels; may be repeated.
    ///
    /// Shape: exactly `width` × `height` × 4 bytes as `RenderSurface` says. A size other than that
    /// of `create` crops the picture, or fills up with transparent pixels, at its right and bottom.
    /// Before `create` there is no picture: every pixel is transparent.
    /// Errors: throws `std::length_error` for a negative area.
    std::vector<std::uint8_t> getImageData(int width, int height) override;

private:
    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace zembra
