// SPDX-License-Identifier: MIT
#pragma once

#include <zembra/data/Grid.h>

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

} // namespace zembra
