// SPDX-License-Identifier: MIT
#include <zembra/scale/ScaleMap.h>

#include <cmath>
#include <limits>

namespace zembra {

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
        return std::numeric_limits<double>::quiet_NaN();
    if (even1 == even2)
        return pixel1;
    // Halves keep the differences finite for ranges that fill all of double.
    const double share = (0.5 * even - 0.5 * even1) / (0.5 * even2 - 0.5 * even1);
    return pixel1 + share * (pixel2 - pixel1);
}

double ScaleMap::invTransform(double pixel) const {
    if (!std::isfinite(pixel))
        return std::numeric_limits<double>::quiet_NaN();
    if (pixel1 == pixel2)
        return value1;
    const double share = (pixel - pixel1) / (pixel2 - pixel1);
    const double span = even2 - even1;
    // Counted from the nearer end, so that both ends come back as the very values they are.
    if (share == 0.0)
        return value1;
    if (share == 1.0)
        return value2;
    const double even = !std::isfinite(span) ? even1 * (1.0 - share) + even2 * share
                        : share < 0.5        ? even1 + share * span
                                             : even2 - (1.0 - share) * span;
    return axisScale.invTransform(even);
}

} // namespace zembra
