// SPDX-License-Identifier: MIT
#pragma once

#include <zembra/data/Samples.h>
#include <zembra/paint/Color.h>
#include <zembra/series/LineSeries.h>

#include <variant>

namespace zembra {

class Canvas;

/// Fills between a row of samples and another one over the same x, or a level in data units.
///
/// A sample that one of the rows lacks is a gap in both. Where samples are dense and in order, one
/// point for each column and row remains, so that everything between the extremes is filled.
void fillBetween(Canvas& canvas, const Samples& row, const std::variant<Samples, double>& other,
                 const Color& color, LineSteps steps = LineSteps::None);

/// A colour that lets through more of what lies behind.
Color thinned(const Color& color, double opacity);

/// Draws the line through samples at a cost of columns where they are in order.
void drawThrough(Canvas& canvas, const Samples& samples, double width);

} // namespace zembra
