// SPDX-License-Identifier: MIT
#pragma once

#include "ColumnChoice.h"
#include "Options.h"
#include "Source.h"
#include "TableReader.h"

#include <zembra/zembra.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace viewer {

/// A chart of a file or a text.
struct Chart {
    /// That of the source, without folder and suffix.
    std::string name;
    std::shared_ptr<zembra::Plot> plot;
    /// What the user should know, one line each.
    std::vector<std::string> notes;
    /// None for grids, which have no columns to choose from.
    std::optional<ColumnChoice> choice = std::nullopt;
};

/// Reads a table or a grid and makes the chart that the options ask for. Any thread; the plot is
/// for the thread that paints from then on.
///
/// Errors: throws Failure, and ReadingCancelled when `progress` gives up.
Chart loadChart(const Source& source, const Options& options, const ReadProgress& progress);

} // namespace viewer
