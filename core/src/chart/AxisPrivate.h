// SPDX-License-Identifier: MIT
#pragma once

#include <zembra/chart/Axis.h>

namespace zembra {

struct Axis::Private {
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
