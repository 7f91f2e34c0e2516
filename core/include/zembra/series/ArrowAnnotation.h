// SPDX-License-Identifier: MIT
#pragma once

#include <zembra/series/Annotation.h>

namespace zembra {

/// An arrow from one place to another.
class ZEMBRA_EXPORT ArrowAnnotation : public Annotation {
public:
    ArrowAnnotation(Position from, Position to);
    ~ArrowAnnotation() override;

    void setEnds(Position from, Position to);
    const Position& from() const;
    const Position& to() const;
    /// Of the shaft; the head grows with it. Units: logical pixels; 1.5 at first. Negative and
    /// non-finite widths are ignored.
    void setWidth(double width);
    double width() const;

    /// Arrows shorter than a pixel have no direction and are not drawn.
    void draw(Canvas& canvas) const override;
    void drawLegendKey(Canvas& canvas, const Rect& area) const override;

private:
    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace zembra
