// SPDX-License-Identifier: MIT
#pragma once

namespace zembra {

/// A position in logical pixels, y pointing down.
struct Point {
    double x = 0.0;
    double y = 0.0;

    friend constexpr bool operator==(const Point&, const Point&) = default;
};

/// A rectangle by its top-left corner and size, in logical pixels, y pointing down.
struct Rect {
    double x = 0.0;
    double y = 0.0;
    double width = 0.0;
    double height = 0.0;

    constexpr double left() const { return x; }
    constexpr double top() const { return y; }
    constexpr double right() const { return x + width; }
    constexpr double bottom() const { return y + height; }
    /// Whether the rectangle has no area; sizes that are not a number count as none.
    constexpr bool isEmpty() const { return !(width > 0.0 && height > 0.0); }
    /// Whether the point lies inside or on the edge.
    constexpr bool contains(const Point& p) const {
        return p.x >= left() && p.x <= right() && p.y >= top() && p.y <= bottom();
    }
    /// The rectangle with every edge moved outwards by `margin` (inwards when negative).
    constexpr Rect grown(double margin) const {
        return {x - margin, y - margin, width + 2.0 * margin, height + 2.0 * margin};
    }

    friend constexpr bool operator==(const Rect&, const Rect&) = default;
};

/// The measured size of a text, in logical pixels.
struct TextExtent {
    double width = 0.0;
    double height = 0.0;

    friend constexpr bool operator==(const TextExtent&, const TextExtent&) = default;
};

} // namespace zembra
