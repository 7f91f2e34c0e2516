// SPDX-License-Identifier: MIT
#pragma once

#include <zembra/scale/Scale.h>

namespace zembra {

/// Even spacing; ticks at 1, 2 and 5 times a power of ten.
class LinearScale : public ScaleEngine {
public:
    double transform(double value) const override { return value; }
    double invTransform(double position) const override { return position; }
    bool contains(double value) const override;
    bool isLinear() const override { return true; }
    Interval rangeAround(double value) const override;
    TickSet ticks(double min, double max, const TickRequest& request) const override;
};

} // namespace zembra
