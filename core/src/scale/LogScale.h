// SPDX-License-Identifier: MIT
#pragma once

#include <zembra/scale/Scale.h>

namespace zembra {

/// Equal factors take equal room; ticks at powers of the base.
class LogScale : public ScaleEngine {
public:
    explicit LogScale(double base);
    double transform(double value) const override;
    double invTransform(double position) const override;
    bool contains(double value) const override;
    Interval domain() const override;
    Interval defaultRange() const override { return {1.0, base}; }
    Interval rangeAround(double value) const override { return {value / base, value * base}; }
    TickSet ticks(double min, double max, const TickRequest& request) const override;

private:
    double base;
    double logOfBase;
};

} // namespace zembra
