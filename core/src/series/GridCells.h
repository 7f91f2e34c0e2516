// SPDX-License-Identifier: MIT
#pragma once

#include <zembra/data/Grid.h>
#include <zembra/scale/ScaleMap.h>
#include <zembra/series/Series.h>

#include <cmath>
#include <cstddef>
#include <optional>

namespace zembra {

/// Which of `count` cells along `span` a value lies in; none beside them or for NaN.
inline std::optional<std::size_t> cellAt(const GridSpan& span, std::size_t count, double value) {
    // Halves keep the differences finite for spans that fill all of double.
    const double share = (0.5 * value - 0.5 * span.first) / (0.5 * span.last - 0.5 * span.first);
    if (!(share >= 0.0 && share <= 1.0))
        return std::nullopt;
    const auto cell = static_cast<std::size_t>(share * static_cast<double>(count));
    return cell < count ? cell : count - 1;
}

/// What a span covers of a scale's domain. Of a grid that reaches beyond it, what counts is the
/// cells whose centres the scale can place.
inline Interval placedPart(const GridSpan& span, std::size_t count, const Scale& scale) {
    Interval part;
    const auto include = [&](double value) {
        if (scale.contains(value))
            part.include(value);
    };
    include(span.first);
    include(span.last);
    if (scale.contains(span.first) && scale.contains(span.last))
        return part;
    for (std::size_t i = 0; i < count; ++i)
        include(std::lerp(span.first, span.last,
                          (static_cast<double>(i) + 0.5) / static_cast<double>(count)));
    return part;
}

/// The cell below a pixel, if it has a value, told by its centre.
inline std::optional<NearestSample> cellBelow(const Grid& grid, const Point& pixel,
                                              const ScaleMap& x, const ScaleMap& y) {
    if (grid.isEmpty())
        return std::nullopt;
    const auto column = cellAt(grid.x(), grid.columns(), x.invTransform(pixel.x));
    const auto row = cellAt(grid.y(), grid.rows(), y.invTransform(pixel.y));
    if (!column || !row || !std::isfinite(grid.value(*column, *row)))
        return std::nullopt;
    const double xCenter = grid.xCenter(*column);
    const double yCenter = grid.yCenter(*row);
    const double distance =
        std::hypot(x.transform(xCenter) - pixel.x, y.transform(yCenter) - pixel.y);
    if (!std::isfinite(distance))
        return std::nullopt;
    return NearestSample{*row * grid.columns() + *column, xCenter, yCenter, distance};
}

} // namespace zembra
