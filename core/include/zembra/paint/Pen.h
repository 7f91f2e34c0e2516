// SPDX-License-Identifier: MIT
#pragma once

#include <zembra/paint/Color.h>
#include <zembra/zembra_export.h>

#include <vector>

namespace zembra {

/// How a line is broken up. Painters draw any other value as a solid line.
enum class PenStyle : int {
    None = 0,
    Solid = 1,
    Dash = 2,
    Dot = 3,
    DashDot = 4,
    DashDotDot = 5,
};

/// A line pen: colour, width and dashes. A copyable value; solid pens copy without allocating.
///
/// Units: the width is in logical pixels, dashes are in pen widths. A width of 0 is drawn as the
/// thinnest line the target has.
class ZEMBRA_EXPORT Pen {
public:
    /// A solid black line, one pixel wide.
    Pen() = default;
    Pen(const Color& color, double widthF = 1.0);

    Color color() const { return lineColor; }
    void setColor(const Color& color) { lineColor = color; }

    double widthF() const { return lineWidth; }
    void setWidthF(double width) { lineWidth = width; }

    PenStyle style() const { return lineStyle; }
    void setStyle(PenStyle style) { lineStyle = style; }

    /// Alternating dash and gap lengths; when not empty it takes precedence over `style()`.
    std::vector<double> dashPattern() const { return dashes; }
    void setDashPattern(std::vector<double> pattern);

    friend bool operator==(const Pen&, const Pen&) = default;

private:
    Color lineColor;
    double lineWidth = 1.0;
    PenStyle lineStyle = PenStyle::Solid;
    std::vector<double> dashes;
};

} // namespace zembra
