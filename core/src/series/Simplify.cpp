// SPDX-License-Identifier: MIT
#include "Simplify.h"

#include <algorithm>
#include <cmath>

namespace zembra {

namespace {

double cross(const Point& a, const Point& b) {
    return a.x * b.y - a.y * b.x;
}

double dot(const Point& a, const Point& b) {
    return a.x * b.x + a.y * b.y;
}

} // namespace

void simplify(std::span<const Point> points, double tolerance, std::vector<Point>& result) {
    if (points.empty())
        return;
    result.push_back(points.front());
    Point anchor = points.front();
    // The sector of directions from the anchor that pass close to every point since, clockwise from
    // `low` to `high`; `reach` is how far they came.
    Point low;
    Point high;
    bool open = true;
    double reach = 0.0;
    for (std::size_t i = 1; i < points.size(); ++i) {
        Point way{points[i].x - anchor.x, points[i].y - anchor.y};
        double distance = std::sqrt(dot(way, way));
        const bool inside =
            open || (cross(low, way) >= 0.0 && cross(way, high) >= 0.0 && dot(low, way) > 0.0);
        // Coming back by more than the tolerance would lose how far the path went.
        if (!inside || distance < reach - tolerance) {
            anchor = points[i - 1];
            result.push_back(anchor);
            way = {points[i].x - anchor.x, points[i].y - anchor.y};
            distance = std::sqrt(dot(way, way));
            open = true;
            reach = 0.0;
        }
        reach = std::max(reach, distance);
        if (distance <= tolerance)
            continue;
        const double share = tolerance / distance;
        const Point side{-way.y * share, way.x * share};
        const Point left{way.x - side.x, way.y - side.y};
        const Point right{way.x + side.x, way.y + side.y};
        if (open || cross(low, left) > 0.0)
            low = left;
        if (open || cross(right, high) > 0.0)
            high = right;
        open = false;
    }
    if (points.size() > 1)
        result.push_back(points.back());
}

} // namespace zembra
