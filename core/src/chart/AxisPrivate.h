// SPDX-License-Identifier: MIT
#pragma once

#include <zembra/chart/Axis.h>

#include <cstdint>

namespace zembra {

struct Axis::Private {
    /// Counts what a layout has to start anew for; ranges are not among it.
    std::uint64_t revision = 1;
    bool enabled = false;
    std::string title;
    Scale scale;
    bool autoScale = true;
    double first = 0.0;
    double second = 1.0;
    double step = 0.0;
    bool inverted = false;
    bool gridVisible = true;
};

} // namespace zembra
