// SPDX-License-Identifier: MIT
#include "Chart.h"

namespace gallery {

std::vector<Chapter> chapters() {
    return {lineCharts(),  pointCharts(),      amountCharts(), statisticsCharts(),
            fieldCharts(), annotationCharts(), scaleCharts(),  themeCharts()};
}

} // namespace gallery
