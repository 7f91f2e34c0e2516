// SPDX-License-Identifier: MIT
#pragma once

#include <qzembra_export.h>

#include <zembra/paint/RenderSurface.h>

#include <memory>
#include <string>

namespace zembra {

/// Renders into an SVG document in memory.
///
/// Owned by its maker and used on the GUI thread; not copyable. `create`, draw through `painter`,
/// take the document with `svgData` or `saveToFile`; `create` again starts afresh. Clip rectangles
/// are not part of the document.
class QZEMBRA_EXPORT QtSvgRenderSurface : public RenderSurface {
public:
    QtSvgRenderSurface();
    ~QtSvgRenderSurface() override;
    QtSvgRenderSurface(const QtSvgRenderSurface&) = delete;
    QtSvgRenderSurface& operator=(const QtSvgRenderSurface&) = delete;

    /// Starts a document whose user units are `width` × `height` pixels, and drops the previous
    /// one.
    void create(int width, int height) override;
    /// Scales all later drawing; without a painter nothing happens.
    void scale(double sx, double sy) override;
    /// The painter, owned by the surface; null before `create` and after `finalize`.
    Painter* painter() override;
    /// Always empty, and painting goes on: a document has no pixels.
    std::vector<std::uint8_t> getImageData(int width, int height) override;

    /// Ends painting, which completes the document; may be repeated.
    void finalize();
    /// Ends painting and returns the document as UTF-8; empty before `create`.
    std::string svgData();
    /// Ends painting and writes the document to a file, whose name is UTF-8.
    ///
    /// Errors: returns false when the file cannot be opened, or before `create`; then nothing is
    /// written. A write that falls short is not noticed.
    bool saveToFile(const std::string& path);

private:
    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace zembra
