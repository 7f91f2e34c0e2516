// SPDX-License-Identifier: MIT
#pragma once

#include <zembra/scale/Scale.h>
#include <zembra/zembra_export.h>

namespace zembra {

/// Maps data values to pixels along one axis, and back. A cheap value.
///
/// Units: `p1`, `p2` logical pixels; `s1`, `s2` data units.
/// Range: `s1 == s2` maps every value to `p1`, and `p1 == p2` every pixel to `s1`; non-finite input
/// gives NaN. The two ends map to each other exactly. Pixels beyond them are extrapolated, as far
/// as the scale's domain goes. An axis runs the other way where `s1 > s2` or `p1 > p2`.
class ZEMBRA_EXPORT ScaleMap {
public:
    ScaleMap() = default;
    ScaleMap(const Scale& scale, double p1, double p2, double s1, double s2);

    double p1() const { return pixel1; }
    double p2() const { return pixel2; }
    double s1() const { return value1; }
    double s2() const { return value2; }
    const Scale& scale() const { return axisScale; }

    /// The pixel position of a value; NaN outside the scale's domain.
    double transform(double value) const;
    /// The value at a pixel position.
    double invTransform(double pixel) const;

private:
    Scale axisScale;
    double pixel1 = 0.0;
    double pixel2 = 0.0;
    double value1 = 0.0;
    double value2 = 1.0;
    // The two ends on the scale's even measure.
    double even1 = 0.0;
    double even2 = 1.0;
};

} // namespace zembra
