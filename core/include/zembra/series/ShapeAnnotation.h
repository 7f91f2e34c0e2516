// SPDX-License-Identifier: MIT
#pragma once

#include <zembra/series/Annotation.h>

#include <vector>

namespace zembra {

/// The shapes of a `ShapeAnnotation`.
enum class AnnotationShape {
    /// Between two opposite corners.
    Rectangle,
    /// Within the rectangle between two opposite corners.
    Ellipse,
    /// Closed, through three corners or more, filled by the odd-even rule.
    Polygon,
};

/// An outlined shape with a translucent filling.
class ZEMBRA_EXPORT ShapeAnnotation : public Annotation {
public:
    /// Of a rectangle or an ellipse only the first two corners count; with too few of them nothing
    /// is drawn.
    ShapeAnnotation(AnnotationShape shape, std::vector<Position> corners);
    ~ShapeAnnotation() override;

    void setCorners(std::vector<Position> corners);
    const std::vector<Position>& corners() const;
    /// Of the outline; 0 leaves it out. Units: logical pixels; 1 at first. Negative and non-finite
    /// widths are ignored.
    void setWidth(double width);
    double width() const;
    /// How much of the colour fills the shape. Range: 0 to 1, others are ignored; 0.12 at first.
    void setOpacity(double opacity);
    double opacity() const;

    void draw(Canvas& canvas) const override;
    void drawLegendKey(Canvas& canvas, const Rect& area) const override;

private:
    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace zembra
