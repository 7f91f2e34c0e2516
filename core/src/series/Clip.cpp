// SPDX-License-Identifier: MIT
#include "Clip.h"

#include <algorithm>
#include <cmath>

namespace zembra {

namespace {

// Narrows the share [enter, leave] of a segment to where it runs on the inner side of one edge.
// `along` is how fast the segment leaves over the edge, `room` how far it still is from it.
bool narrow(double along, double room, double& enter, double& leave) {
    if (along == 0.0)
        return room >= 0.0;
    const double share = room / along;
    if (along < 0.0)
        enter = std::max(enter, share);
    else
        leave = std::min(leave, share);
    return enter <= leave;
}

// Also where the way from one to the other is longer than any number.
double between(double from, double to, double share) {
    const double way = to - from;
    return std::isfinite(way) ? from + share * way : (1.0 - share) * from + share * to;
}

Point between(const Point& from, const Point& to, double share) {
    return {between(from.x, to.x, share), between(from.y, to.y, share)};
}

// Where an edge lies between points of which one is `a` inside and the other `b`. Halves are finite
// for all of them, but lose the last bit of subnormal numbers.
double shareOf(double a, double b) {
    return std::isfinite(a - b) ? a / (a - b) : 0.5 * a / (0.5 * a - 0.5 * b);
}

// One pass of polygon clipping, against the half plane in which `inside` is not negative.
template <class Inside>
void clipAgainst(std::vector<Point>& points, std::vector<Point>& scratch, Inside inside) {
    scratch.clear();
    for (std::size_t i = 0; i < points.size(); ++i) {
        const Point& from = points[i];
        const Point& to = points[(i + 1) % points.size()];
        const double a = inside(from);
        const double b = inside(to);
        if (a >= 0.0)
            scratch.push_back(from);
        if ((a >= 0.0) != (b >= 0.0))
            scratch.push_back(between(from, to, shareOf(a, b)));
    }
    points.swap(scratch);
}

// Rounding may leave a cut end a hair outside, and one that is astronomically far anywhere.
Point held(const Point& p, const Rect& area) {
    return {std::clamp(p.x, area.left(), area.right()), std::clamp(p.y, area.top(), area.bottom())};
}

} // namespace

std::optional<std::pair<Point, Point>> clipSegment(const Point& from, const Point& to,
                                                   const Rect& area) {
    // Halves are finite for all ends.
    const double dx = 0.5 * to.x - 0.5 * from.x;
    const double dy = 0.5 * to.y - 0.5 * from.y;
    double enter = 0.0;
    double leave = 1.0;
    if (!narrow(-dx, 0.5 * (from.x - area.left()), enter, leave) ||
        !narrow(dx, 0.5 * (area.right() - from.x), enter, leave) ||
        !narrow(-dy, 0.5 * (from.y - area.top()), enter, leave) ||
        !narrow(dy, 0.5 * (area.bottom() - from.y), enter, leave))
        return std::nullopt;
    return std::pair{held(enter > 0.0 ? between(from, to, enter) : from, area),
                     held(leave < 1.0 ? between(from, to, leave) : to, area)};
}

std::vector<Point> clipPolygon(const std::vector<Point>& points, const Rect& area) {
    if (!std::all_of(points.begin(), points.end(), [](const Point& p) { return isFinite(p); }))
        return {};
    std::vector<Point> result = points;
    std::vector<Point> scratch;
    clipAgainst(result, scratch, [&](const Point& p) { return p.x - area.left(); });
    clipAgainst(result, scratch, [&](const Point& p) { return area.right() - p.x; });
    clipAgainst(result, scratch, [&](const Point& p) { return p.y - area.top(); });
    clipAgainst(result, scratch, [&](const Point& p) { return area.bottom() - p.y; });
    if (result.size() < 3)
        result.clear();
    for (Point& p : result)
        p = held(p, area);
    return result;
}

Rect intersected(const Rect& a, const Rect& b) {
    const double left = std::max(a.left(), b.left());
    const double top = std::max(a.top(), b.top());
    const double right = std::min(a.right(), b.right());
    const double bottom = std::min(a.bottom(), b.bottom());
    if (!(left < right && top < bottom))
        return {};
    return {left, top, right - left, bottom - top};
}

} // namespace zembra
