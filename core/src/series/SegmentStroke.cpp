// SPDX-License-Identifier: MIT
#include "SegmentStroke.h"

#include <algorithm>
#include <cmath>

namespace zembra {

namespace {

// Farther than any canvas.
constexpr double unbounded = 1e9;
// Less than this is nothing.
constexpr double hair = 1e-9;

} // namespace

SegmentStroke::SegmentStroke(const Point& a, const Point& b, double half)
    : a(a),
      b(b),
      west(std::min(a.x, b.x) - half),
      east(std::max(a.x, b.x) + half),
      upright(std::abs(b.x - a.x) < hair) {
    const double dx = b.x - a.x;
    const double dy = b.y - a.y;
    const double length = std::sqrt(dx * dx + dy * dy);
    const bool level = std::abs(dy) < hair;
    slope = level ? 0.0 : dx / dy;
    width = level ? unbounded : half * length / std::abs(dy);
    fall = upright ? 0.0 : -dy / dx;
    const double reach = half * std::abs(dx) / length;
    const auto [low, high] = ordered(a.y, b.y);
    first = PointMask::rowFrom(low - reach);
    last = PointMask::rowFrom(high + reach) - 1;
    innerFirst = PointMask::rowFrom(low + reach);
    innerLast = PointMask::rowFrom(high - reach) - 1;
}

Range SegmentStroke::endsAt(int row) const {
    if (upright)
        return {-unbounded, unbounded};
    const double y = PointMask::middleOf(row);
    return ordered(a.x + (y - a.y) * fall, b.x + (y - b.y) * fall);
}

SegmentStroke::Rows SegmentStroke::rowsWithin(const Rect& part) const {
    const double left = part.left() + width;
    const double right = part.right() - width;
    double low = part.top();
    double high = part.bottom();
    if (std::abs(slope) > hair) {
        const auto [from, to] = ordered(a.y + (left - a.x) / slope, a.y + (right - a.x) / slope);
        low = std::max(low, from);
        high = std::min(high, to);
    } else if (!(a.x > left && a.x < right)) {
        return {};
    }
    if (!(left < right && low < high))
        return {};
    return {PointMask::rowFrom(low), PointMask::rowFrom(high)};
}

} // namespace zembra
