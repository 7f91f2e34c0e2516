// SPDX-License-Identifier: MIT
#include "FunctionPath.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace zembra {

namespace {

constexpr double columnStep = 2.0;
constexpr int mostDepth = 6;
constexpr int callsPerColumn = 64;
// The curve is right within this distance, in pixels.
constexpr double precision = 0.25;
constexpr int halvings = 48;

} // namespace

bool isPole(const std::function<double(double)>& function, double a, double fa, double b,
            double fb) {
    // Only where the values on either side are far apart, or far from zero, is there a need to
    // look.
    if (!std::isfinite(fa) || !std::isfinite(fb))
        return false;
    double growth = std::max(std::abs(fa), std::abs(fb));
    for (int i = 0; i < halvings; ++i) {
        const double middle = 0.5 * a + 0.5 * b;
        if (middle == a || middle == b)
            break;
        const double fm = function(middle);
        if (std::isinf(fm))
            return true;
        if (std::isnan(fm))
            return false;
        // The half with the change of sign, or else the one with the greater end.
        const bool left = std::signbit(fa) != std::signbit(fm) ||
                          (std::signbit(fm) == std::signbit(fb) && std::abs(fa) > std::abs(fb));
        (left ? b : a) = middle;
        (left ? fb : fa) = fm;
        const double now = std::max(std::abs(fa), std::abs(fb));
        // What does not grow after a few steps is an ordinary function; most end here.
        if (i == 8 && now < 8.0 * growth)
            return false;
        if (i == 24)
            growth = now;
    }
    return std::max(std::abs(fa), std::abs(fb)) > 1000.0 * growth;
}

FunctionPath::FunctionPath(std::function<double(double)> function, const ScaleMap& x,
                           const ScaleMap& y, const Rect& area,
                           const std::optional<Interval>& domain, std::vector<Point>& path)
    : function(std::move(function)), x(x), y(y), area(area), domain(domain), path(path) {}

void FunctionPath::make() {
    path.clear();
    double left = area.left() - columnStep;
    double right = area.right() + columnStep;
    if (domain) {
        const double one = x.transform(domain->min);
        const double other = x.transform(domain->max);
        if (std::isfinite(one) && std::isfinite(other)) {
            left = std::max(left, std::min(one, other));
            right = std::min(right, std::max(one, other));
        }
    }
    if (!(left < right))
        return;
    const int steps = std::max(1, static_cast<int>(std::ceil((right - left) / columnStep)));
    budget = callsPerColumn * static_cast<int>(std::ceil(area.width + 2.0 * columnStep));
    Sample before = at(left);
    path.push_back(before.pixel);
    for (int i = 1; i <= steps; ++i) {
        const Sample next = at(std::lerp(left, right, static_cast<double>(i) / steps));
        connect(before, next, 0);
        before = next;
    }
}

FunctionPath::Sample FunctionPath::at(double column) {
    --budget;
    double where = x.invTransform(column);
    // Rounding must not push the ends of the domain out of it.
    if (domain)
        where = std::clamp(where, domain->min, domain->max);
    const double value = function(where);
    return {value, {column, y.transform(value)}};
}

bool FunctionPath::isStraight(const Sample& from, const Sample& middle, const Sample& to) const {
    const auto beyond = [this](double pixel) {
        return pixel < area.top() - 2.0 ? -1 : pixel > area.bottom() + 2.0 ? 1 : 0;
    };
    const int side = beyond(middle.pixel.y);
    if (side != 0 && side == beyond(from.pixel.y) && side == beyond(to.pixel.y))
        return true;
    return std::abs(middle.pixel.y - 0.5 * from.pixel.y - 0.5 * to.pixel.y) <= precision;
}

void FunctionPath::connect(const Sample& from, const Sample& to, int depth) {
    const bool hasFrom = std::isfinite(from.pixel.y);
    const bool hasTo = std::isfinite(to.pixel.y);
    if (!hasFrom && !hasTo && depth > 0) {
        addGap();
        return;
    }
    if (depth < mostDepth && budget > 0) {
        const Sample middle = at(0.5 * (from.pixel.x + to.pixel.x));
        const bool hasMiddle = std::isfinite(middle.pixel.y);
        // A second look beside the middle tells a curve that happens to cross its chord there.
        const auto looksStraight = [&] {
            const bool flat = std::abs(to.pixel.y - from.pixel.y) <= 2.0;
            return isStraight(from, middle, to) &&
                   ((depth > 0 && flat) ||
                    isStraight(from, at(0.5 * (from.pixel.x + middle.pixel.x)), middle));
        };
        const bool settled = hasFrom && hasMiddle && hasTo && looksStraight();
        if (!settled && (hasFrom || hasMiddle || hasTo)) {
            connect(from, middle, depth + 1);
            connect(middle, to, depth + 1);
            return;
        }
    }
    if (!hasFrom || !hasTo || jumps(from, to))
        addGap();
    path.push_back(to.pixel);
}

bool FunctionPath::jumps(const Sample& from, const Sample& to) {
    const double distance = std::abs(0.5 * to.value - 0.5 * from.value);
    if (std::abs(to.pixel.y - from.pixel.y) <= 2.0)
        return false;
    // The change closes in on a point where there is a jump, and fades away where there is none.
    double a = x.invTransform(from.pixel.x);
    double b = x.invTransform(to.pixel.x);
    double fa = from.value;
    double fb = to.value;
    for (int i = 0; i < halvings && budget > 0; ++i) {
        const double middle = 0.5 * a + 0.5 * b;
        if (middle == a || middle == b)
            break;
        --budget;
        const double fm = function(middle);
        if (!std::isfinite(fm))
            return true;
        const bool left = std::abs(0.5 * fm - 0.5 * fa) > std::abs(0.5 * fb - 0.5 * fm);
        (left ? b : a) = middle;
        (left ? fb : fa) = fm;
        if (std::abs(0.5 * fb - 0.5 * fa) < 0.25 * distance)
            return false;
    }
    return budget > 0;
}

void FunctionPath::addGap() {
    constexpr double none = std::numeric_limits<double>::quiet_NaN();
    if (!path.empty() && !std::isnan(path.back().y))
        path.push_back({none, none});
}

} // namespace zembra
