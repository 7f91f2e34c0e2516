// SPDX-License-Identifier: MIT
#pragma once

#include <zembra/paint/Geometry.h>
#include <zembra/scale/Interval.h>
#include <zembra/scale/ScaleMap.h>

#include <functional>
#include <optional>
#include <vector>

namespace zembra {

/// Whether a function that is `fa` at `a` and `fb` at `b` has a pole in between: its values grow
/// without an end as one closes in on where they are greatest.
bool isPole(const std::function<double(double)>& function, double a, double fa, double b,
            double fb);

/// Finds the points of a function's curve in pixels, with NaN points as gaps.
class FunctionPath {
public:
    /// Requires: all references outlive this.
    FunctionPath(std::function<double(double)> function, const ScaleMap& x, const ScaleMap& y,
                 const Rect& area, const std::optional<Interval>& domain, std::vector<Point>& path);

    void make();

private:
    struct Sample {
        double value = 0.0;
        Point pixel;
    };

    Sample at(double column);
    void connect(const Sample& from, const Sample& to, int depth);
    bool isStraight(const Sample& from, const Sample& middle, const Sample& to) const;
    bool jumps(const Sample& from, const Sample& to);
    void addGap();

    std::function<double(double)> function;
    const ScaleMap& x;
    const ScaleMap& y;
    const Rect& area;
    const std::optional<Interval>& domain;
    std::vector<Point>& path;
    int budget = 0;
};

} // namespace zembra
