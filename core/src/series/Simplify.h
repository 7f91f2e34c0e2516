// SPDX-License-Identifier: MIT
#pragma once

#include <zembra/paint/Geometry.h>

#include <vector>

namespace zembra {

/// Keeps the points of a path that it needs to stay within a tolerance of every point left out.
/// First and last point always remain, and so does every turn back.
///
/// Points come one by one and what remains is appended to `result`, so that long paths are never
/// held as a whole.
/// Source: the sector method of Z. Zhao, A. Saalfeld, "Linear-Time Sleeve-Fitting Polyline
/// Simplification Algorithms", AutoCarto 13, 1997.
class Simplifier {
public:
    /// Requires: `result` outlives this.
    Simplifier(double tolerance, std::vector<Point>& result)
        : tolerance(tolerance), result(result) {}

    /// Requires: a finite point. Complexity: O(1).
    void add(const Point& point);
    /// Ends the path; the next point begins another one.
    void finish();

private:
    void turnAt(const Point& point);
    bool comesBack(const Point& point) const;
    bool turnsOff(const Point& point) const;
    void narrowTo(const Point& way, double distance);

    double tolerance;
    std::vector<Point>& result;
    bool begun = false;
    bool alone = true;
    // Whether `latest` is the first point since the anchor, and the sector does not know it yet:
    // most points of a jagged path are the last ones as well.
    bool first = false;
    Point anchor;
    Point latest;
    // The sector of directions from the anchor that pass close to every point since, clockwise from
    // `low` to `high`; `reach` is how far they came.
    Point low;
    Point high;
    bool open = true;
    double reach = 0.0;
};

} // namespace zembra
