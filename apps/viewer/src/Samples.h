// SPDX-License-Identifier: MIT
#pragma once

#include <zembra/zembra.h>

#include <memory>
#include <string>
#include <vector>

namespace viewer {

/// A chart to look at, with a name that does for a file.
struct Sample {
    std::string name;
    std::shared_ptr<zembra::Plot> plot;
};

/// The charts that are shown without a file; their data is computed, the same every time.
std::vector<Sample> sampleCharts();

} // namespace viewer
