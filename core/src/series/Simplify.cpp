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

double length(const Point& a) {
    return std::sqrt(dot(a, a));
}

} // namespace

void Simplifier::turnAt(const Point& point) {
    result.push_back(point);
    anchor = point;
    open = true;
    reach = 0.0;
}

// Whether the path goes back by more than the tolerance on the way that it came.
bool Simplifier::comesBack(const Point& point) const {
    const Point way{latest.x - anchor.x, latest.y - anchor.y};
    const double back = dot(way, {point.x - latest.x, point.y - latest.y});
    return back < 0.0 && back * back > tolerance * tolerance * dot(way, way);
}

// Whether the point clearly lies beside the sector of `latest` alone, told without a root.
bool Simplifier::turnsOff(const Point& point) const {
    const Point way{latest.x - anchor.x, latest.y - anchor.y};
    const Point next{point.x - anchor.x, point.y - anchor.y};
    const double aside = cross(way, next);
    const double onward = tolerance * dot(way, next);
    constexpr double clearly = 1.001;
    return aside * aside * dot(way, way) > clearly * onward * onward &&
           dot(way, way) > tolerance * tolerance;
}

void Simplifier::narrowTo(const Point& way, double distance) {
    reach = std::max(reach, distance);
    if (distance <= tolerance)
        return;
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

void Simplifier::add(const Point& point) {
    if (!begun) {
        begun = true;
        alone = true;
        turnAt(point);
        return;
    }
    if (alone) {
        alone = false;
        first = true;
        latest = point;
        return;
    }
    if (first && (turnsOff(point) || comesBack(point))) {
        turnAt(latest);
        latest = point;
        return;
    }
    if (first) {
        const Point way{latest.x - anchor.x, latest.y - anchor.y};
        narrowTo(way, length(way));
    }
    const Point way{point.x - anchor.x, point.y - anchor.y};
    const bool inside =
        open || (cross(low, way) >= 0.0 && cross(way, high) >= 0.0 && dot(low, way) > 0.0);
    // Coming back by more than the tolerance would lose how far the path went.
    const double distance = inside ? length(way) : 0.0;
    first = !inside || distance < reach - tolerance;
    if (first)
        turnAt(latest);
    else
        narrowTo(way, distance);
    latest = point;
}

void Simplifier::finish() {
    if (begun && !alone)
        result.push_back(latest);
    begun = false;
}

} // namespace zembra
