// SPDX-License-Identifier: MIT
#pragma once

#include <zembra/chart/Plot.h>

#include <memory>
#include <vector>

namespace gallery {

/// One picture of the gallery.
struct Chart {
    /// Names its files: lower case, digits and hyphens.
    const char* id;
    const char* title;
    std::shared_ptr<zembra::Plot> (*make)();
};

/// Charts that belong together.
struct Chapter {
    const char* title;
    std::vector<Chart> charts;
};

// One function for each source with charts.
Chapter lineCharts();
Chapter pointCharts();
Chapter amountCharts();
Chapter statisticsCharts();
Chapter fieldCharts();
Chapter annotationCharts();
Chapter scaleCharts();
Chapter themeCharts();

/// The whole gallery in the order in which it is shown.
std::vector<Chapter> chapters();

} // namespace gallery
