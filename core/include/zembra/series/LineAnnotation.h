// SPDX-License-Identifier: MIT
#pragma once

#include <zembra/paint/Pen.h>
#include <zembra/series/Annotation.h>

#include <string>

namespace zembra {

/// Which way a line or span runs across the canvas.
enum class AcrossCanvas {
    /// From left to right, at a y.
    Horizontal,
    /// From bottom to top, at an x.
    Vertical,
};

/// A line from edge to edge of the canvas, with an optional label at its right or upper end.
class ZEMBRA_EXPORT LineAnnotation : public Annotation {
public:
    LineAnnotation(AcrossCanvas direction, Coordinate at, std::string label = {});
    ~LineAnnotation() override;

    void setPosition(Coordinate at);
    Coordinate position() const;
    /// UTF-8; left out where the canvas has no room for it.
    void setLabel(std::string label);
    const std::string& label() const;
    /// Units: logical pixels; 1 at first. Negative and non-finite widths are ignored.
    void setWidth(double width);
    double width() const;
    /// Dashes at first.
    void setStyle(PenStyle style);
    PenStyle style() const;

    void draw(Canvas& canvas) const override;
    void drawLegendKey(Canvas& canvas, const Rect& area) const override;

private:
    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace zembra
