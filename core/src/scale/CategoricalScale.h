// SPDX-License-Identifier: MIT
#pragma once

#include "LinearScale.h"

#include <string>
#include <vector>

namespace zembra {

/// Names at 0, 1, 2 and so on.
class CategoricalScale : public LinearScale {
public:
    explicit CategoricalScale(std::vector<std::string> names) : names(std::move(names)) {}
    bool isCategorical() const override { return true; }
    Interval defaultRange() const override;
    Interval rangeAround(double value) const override { return {value - 0.5, value + 0.5}; }
    Interval rangeOver(const Interval& data, double share) const override;
    TickSet ticks(double min, double max, const TickRequest& request) const override;

private:
    std::vector<std::string> names;
};

} // namespace zembra
