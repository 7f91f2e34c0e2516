// SPDX-License-Identifier: MIT
#pragma once

#include "Simplify.h"

#include <zembra/paint/Geometry.h>

#include <cstddef>
#include <limits>
#include <span>
#include <vector>

namespace zembra {

/// The pieces of a path that lie within limits, simplified where that helps.
class ClippedPath {
public:
    /// Replaces the pieces. Points of `path` that are not finite are gaps.
    void assign(std::span<const Point> path, const Rect& limits);
    void scale(double factor);

    /// Whether no piece turns back in x, nor begins behind the one before.
    bool runsOneWay() const;
    /// The sum of all steps along x and along y; adding up ends where it exceeds `enough`.
    double length(double enough = std::numeric_limits<double>::infinity()) const;
    std::size_t size() const { return points.size(); }
    std::size_t pieceCount() const { return ends.size(); }
    std::span<const Point> piece(std::size_t i) const {
        const std::size_t begin = i == 0 ? 0 : ends[i - 1];
        return std::span(points).subspan(begin, ends[i] - begin);
    }

private:
    template <class Add>
    void clip(std::span<const Point> path, const Rect& limits, Add add);
    void endPiece();
    std::size_t pieceBegin() const { return ends.empty() ? 0 : ends.back(); }

    // No eye sees a line move by this much.
    static constexpr double tolerance = 0.025;

    std::vector<Point> points;
    std::vector<std::size_t> ends;
    Simplifier simplifier{tolerance, points};
};

} // namespace zembra
