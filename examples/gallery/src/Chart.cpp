// SPDX-License-Identifier: MIT
#include "Chart.h"

namespace gallery {

std::vector<Chapter> chapters() {
    return {lineCharts(), fieldCharts(), scaleCharts(), themeCharts()};
}

} // namespace gallery
