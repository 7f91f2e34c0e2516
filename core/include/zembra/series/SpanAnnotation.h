// SPDX-License-Identifier: MIT
#pragma once

#include <zembra/series/LineAnnotation.h>

#include <string>

namespace zembra {

/// A translucent stripe from edge to edge of the canvas, between two places in either order, with
/// an optional label at its upper left.
///
/// A colour of its own is drawn as it is; without one the stripe is a tenth of the text's colour.
class ZEMBRA_EXPORT SpanAnnotation : public Annotation {
public:
    /// A vertical span lies between two x, a horizontal one between two y.
    SpanAnnotation(AcrossCanvas direction, Coordinate from, Coordinate to, std::string label = {});
    ~SpanAnnotation() override;

    void setSpan(Coordinate from, Coordinate to);
    Coordinate from() const;
    Coordinate to() const;
    /// UTF-8; left out where the canvas has no room for it.
    void setLabel(std::string label);
    const std::string& label() const;

    void draw(Canvas& canvas) const override;
    void drawLegendKey(Canvas& canvas, const Rect& area) const override;

private:
    Color tint(const Canvas& canvas) const;

    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace zembra
