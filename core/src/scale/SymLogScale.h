// SPDX-License-Identifier: MIT
#pragma once

#include <zembra/scale/Scale.h>

namespace zembra {

/// Linear around zero and logarithmic far from it.
class SymLogScale : public ScaleEngine {
public:
    SymLogScale(double linearWidth, double base);
    double linearWidth() const { return width; }
    double base() const { return radix; }

    double transform(double value) const override;
    double invTransform(double position) const override;
    bool contains(double value) const override;
    Interval defaultRange() const override { return {-width * radix, width * radix}; }
    Interval rangeAround(double value) const override;
    TickSet ticks(double min, double max, const TickRequest& request) const override;

private:
    double width;
    double radix;
    double logOfBase;
};

} // namespace zembra
