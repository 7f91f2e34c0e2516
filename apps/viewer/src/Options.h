// SPDX-License-Identifier: MIT
#pragma once

#include "ChartKind.h"
#include "Exporter.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace viewer {

/// What the command line asks for, or the user of a window.
struct Options {
    /// Each becomes a chart; "-" is standard input. Empty for the sample charts.
    std::vector<std::string> files;
    std::optional<std::string> x;
    std::vector<std::string> y;
    std::optional<std::string> by;
    std::optional<ChartKind> kind;
    bool logX = false;
    bool logY = false;
    /// Whether what is not named is chosen as a reader would expect. Else the rows are numbered
    /// without `x`, only `by` makes groups, and a heat map without `x` is a matrix of `y`.
    /// Requires: `kind` where false.
    bool guesses = true;
    PictureSize size;
    std::optional<std::string> title;
    std::vector<std::string> exports;
    /// Whether rows that are added to a file later are drawn, too.
    bool follow = false;
    /// How many of the newest rows of a stream are kept.
    std::size_t last = 500'000;
    bool help = false;
    bool version = false;
};

/// Reads the arguments that follow the program's name; `--name VALUE` and `--name=VALUE` both do.
///
/// Errors: throws Failure for unknown options, missing or bad values, and options that exclude each
/// other.
Options parseOptions(const std::vector<std::string>& arguments);

/// Whether rows can be added to the chart one by one: lines and markers of whole columns.
bool canStream(const Options& options);

/// The text of `--help`.
std::string usage();

} // namespace viewer
