// SPDX-License-Identifier: MIT
#include "MarkerOutline.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace zembra {

namespace {

// Of a marker of size 1. Squares have the circle's area; shapes that are longer than wide look
// larger than they are, and so are a little smaller.
constexpr double squareSide = 0.886;
constexpr double diamondRadius = 0.627;
constexpr double triangleRadius = 0.69;
constexpr double starRadius = 0.7;
// Bars of a plus and a cross: half their length and half their width.
constexpr double barLength = 0.6;
constexpr double barWidth = 0.13;

// Corners at even angles, the first one at `start`; every second one at `inner`.
std::vector<Point> ring(int count, double start, double outer, double inner) {
    std::vector<Point> points;
    for (int i = 0; i < count; ++i) {
        const double angle = start + 2.0 * std::numbers::pi * i / count;
        const double radius = i % 2 == 0 ? outer : inner;
        points.push_back({radius * std::cos(angle), radius * std::sin(angle)});
    }
    return points;
}

std::vector<Point> bars(double length, double width) {
    return {{-width, -length}, {width, -length}, {width, -width},   {length, -width},
            {length, width},   {width, width},   {width, length},   {-width, length},
            {-width, width},   {-length, width}, {-length, -width}, {-width, -width}};
}

std::vector<Point> turned(std::vector<Point> points, double angle) {
    for (Point& p : points)
        p = {p.x * std::cos(angle) - p.y * std::sin(angle),
             p.x * std::sin(angle) + p.y * std::cos(angle)};
    return points;
}

} // namespace

std::vector<Point> markerOutline(MarkerShape shape, double size) {
    constexpr double up = -0.5 * std::numbers::pi;
    switch (shape) {
    case MarkerShape::Square: {
        const double half = 0.5 * squareSide * size;
        return {{-half, -half}, {half, -half}, {half, half}, {-half, half}};
    }
    case MarkerShape::Diamond:
        return ring(4, up, diamondRadius * size, diamondRadius * size);
    case MarkerShape::TriangleUp:
        return ring(3, up, triangleRadius * size, triangleRadius * size);
    case MarkerShape::TriangleDown:
        return ring(3, -up, triangleRadius * size, triangleRadius * size);
    case MarkerShape::Plus:
        return bars(barLength * size, barWidth * size);
    case MarkerShape::Cross:
        return turned(bars(barLength * size, barWidth * size), 0.25 * std::numbers::pi);
    case MarkerShape::Star:
        return ring(10, up, starRadius * size, 0.42 * starRadius * size);
    case MarkerShape::Circle:
        break;
    }
    const int count = static_cast<int>(std::clamp(8.0 * std::sqrt(size) + 8.0, 16.0, 400.0));
    return ring(count, 0.0, 0.5 * size, 0.5 * size);
}

} // namespace zembra
