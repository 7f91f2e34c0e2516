// SPDX-License-Identifier: MIT
#include "Chart.h"

namespace gallery {

std::vector<Chapter> chapters() {
    return {lineCharts(),  amountCharts(), statisticsCharts(),
            fieldCharts(), scaleCharts(),  themeCharts()};
}

} // namespace gallery
