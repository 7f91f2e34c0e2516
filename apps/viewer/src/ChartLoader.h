// SPDX-License-Identifier: MIT
#pragma once

#include "Options.h"
#include "TableReader.h"

#include <zembra/zembra.h>

#include <memory>
#include <string>
#include <vector>

namespace viewer {

/// A chart of a file.
struct Chart {
    /// That of the file, without folder and suffix.
    std::string name;
    std::shared_ptr<zembra::Plot> plot;
    /// What the user should know, one line each.
    std::vector<std::string> notes;
};

/// Reads a file and makes the chart that the options ask for. Any thread; the plot is for the
/// thread that paints from then on.
///
/// Errors: throws Failure, and ReadingCancelled when `progress` gives up.
Chart loadChart(const std::string& path, const Options& options, const ReadProgress& progress);

} // namespace viewer
