// SPDX-License-Identifier: MIT
#include "ClippedPath.h"

#include "Clip.h"

#include <cmath>

namespace zembra {

namespace {

double stepLength(const Point& a, const Point& b) {
    return std::abs(b.x - a.x) + std::abs(b.y - a.y);
}

// Whether simplification would cost more than it saves: among steps of many pixels it finds little
// to leave out. Some of the steps tell.
bool isJagged(std::span<const Point> path) {
    constexpr std::size_t few = 4096;
    constexpr std::size_t stride = 7;
    constexpr double longStep = 10.0;
    if (path.size() < few)
        return false;
    std::size_t longOnes = 0;
    for (std::size_t i = 1; i < path.size(); i += stride)
        longOnes += stepLength(path[i - 1], path[i]) > longStep ? 1 : 0;
    return 2 * stride * longOnes > path.size();
}

} // namespace

void ClippedPath::assign(std::span<const Point> path, const Rect& limits) {
    points.clear();
    ends.clear();
    if (isJagged(path)) {
        clip(path, limits, [this](const Point& point) {
            if (points.size() == pieceBegin() || points.back() != point)
                points.push_back(point);
        });
    } else {
        clip(path, limits, [this](const Point& point) { simplifier.add(point); });
    }
}

template <class Add>
void ClippedPath::clip(std::span<const Point> path, const Rect& limits, Add add) {
    bool connected = false;
    // Whether the point before lies within the limits.
    bool joined = false;
    for (std::size_t i = 0; i < path.size(); ++i) {
        const Point& to = path[i];
        const bool within = limits.contains(to);
        if (joined && within) {
            add(to);
            continue;
        }
        if (!isFinite(to)) {
            endPiece();
            connected = false;
            joined = false;
            continue;
        }
        if (!connected) {
            endPiece();
            if (within)
                add(to);
        } else if (const auto part = clipSegment(path[i - 1], to, limits)) {
            if (!joined) {
                endPiece();
                add(part->first);
            }
            add(part->second);
            if (part->second != to)
                endPiece();
        }
        connected = true;
        joined = within;
    }
    endPiece();
}

void ClippedPath::endPiece() {
    simplifier.finish();
    if (points.size() > pieceBegin())
        ends.push_back(points.size());
}

void ClippedPath::scale(double factor) {
    for (Point& point : points)
        point = {point.x * factor, point.y * factor};
}

bool ClippedPath::runsOneWay() const {
    bool right = true;
    bool leftwards = true;
    for (std::size_t i = 1; i < points.size() && (right || leftwards); ++i) {
        right = right && points[i].x >= points[i - 1].x;
        leftwards = leftwards && points[i].x <= points[i - 1].x;
    }
    return right || leftwards;
}

double ClippedPath::length(double enough) const {
    double total = 0.0;
    for (std::size_t i = 0; i < pieceCount() && total <= enough; ++i) {
        const auto p = piece(i);
        for (std::size_t k = 1; k < p.size() && total <= enough; ++k)
            total += stepLength(p[k - 1], p[k]);
    }
    return total;
}

} // namespace zembra
