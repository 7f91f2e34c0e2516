// SPDX-License-Identifier: MIT
#pragma once

#include <zembra/scale/Scale.h>

#include <functional>

namespace zembra {

/// A monotone transform of the user's own; ticks at round values.
class CustomScale : public ScaleEngine {
public:
    CustomScale(std::function<double(double)> forward, std::function<double(double)> inverse,
                const Interval& domain);
    double transform(double value) const override;
    double invTransform(double position) const override;
    bool contains(double value) const override;
    Interval domain() const override { return limits; }
    Interval defaultRange() const override;
    Interval rangeAround(double value) const override;
    TickSet ticks(double min, double max, const TickRequest& request) const override;

private:
    std::function<double(double)> forward;
    std::function<double(double)> inverse;
    Interval limits;
    // -1 where the user's transform falls.
    double direction = 1.0;
};

} // namespace zembra
