// SPDX-License-Identifier: MIT
#pragma once

#include <zembra/scale/ScaleMap.h>

#include <cmath>

namespace zembra {

/// A `ScaleMap` for loops over many values: without indirections where the scale is linear.
class PixelMap {
public:
    explicit PixelMap(const ScaleMap& map)
        : map(map),
          origin(map.s1()),
          pixel(map.p1()),
          slope((map.p2() - map.p1()) / (map.s2() - map.s1())),
          linear(map.scale().isLinear() && std::isfinite(slope)) {}

    /// NaN where the scale cannot place the value.
    double operator()(double value) const {
        if (linear) {
            const double result = pixel + (value - origin) * slope;
            if (std::isfinite(result))
                return result;
        }
        return map.transform(value);
    }

private:
    const ScaleMap& map;
    double origin;
    double pixel;
    double slope;
    bool linear;
};

} // namespace zembra
