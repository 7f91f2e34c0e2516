// SPDX-License-Identifier: MIT
#include <zembra/scale/ScaleMap.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace zembra {

namespace {

constexpr double nan = std::numeric_limits<double>::quiet_NaN();

// Where `x` lies between `a` and `b`: 0 at `a`, 1 at `b`, exactly so at both.
double shareOf(double x, double a, double b) {
    const double span = b - a;
    // Halves keep the differences finite for ends that fill all of double; they are not taken
    // always because they lose the last bit of subnormal numbers.
    return std::isfinite(span) ? (x - a) / span : (0.5 * x - 0.5 * a) / (0.5 * b - 0.5 * a);
}

// The inverse, counted from the nearer end so that both ends come back as they are.
double between(double a, double b, double share) {
    const double span = b - a;
    if (!std::isfinite(span))
        return a * (1.0 - share) + b * share;
    return share < 0.5 ? a + share * span : b - (1.0 - share) * span;
}

} // namespace

ScaleMap::ScaleMap(const Scale& scale, double p1, double p2, double s1, double s2)
    : axisScale(scale),
      pixel1(p1),
      pixel2(p2),
      value1(s1),
      value2(s2),
      even1(scale.transform(s1)),
      even2(scale.transform(s2)) {}

double ScaleMap::transform(double value) const {
    const double even = axisScale.transform(value);
    if (!std::isfinite(even))
        return nan;
    if (even1 == even2)
        return pixel1;
    const double pixel = between(pixel1, pixel2, shareOf(even, even1, even2));
    return std::isfinite(pixel) ? pixel : nan;
}

double ScaleMap::invTransform(double pixel) const {
    if (!std::isfinite(pixel))
        return nan;
    if (pixel1 == pixel2 || pixel == pixel1)
        return value1;
    if (pixel == pixel2)
        return value2;
    const double even = between(even1, even2, shareOf(pixel, pixel1, pixel2));
    const double value = axisScale.invTransform(even);
    const Interval domain = axisScale.domain();
    return std::isnan(value) ? nan : std::clamp(value, domain.min, domain.max);
}

} // namespace zembra
