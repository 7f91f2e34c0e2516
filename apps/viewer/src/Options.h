// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace viewer {

/// What the command line asks for.
struct Options {
    /// Empty for the sample charts.
    std::string file;
    std::optional<std::string> x;
    std::vector<std::string> y;
    std::optional<std::string> by;
    bool scatter = false;
    bool logX = false;
    bool logY = false;
    /// Units: logical pixels.
    int width = 960;
    int height = 600;
    std::optional<std::string> title;
    std::vector<std::string> exports;
    bool help = false;
    bool version = false;
};

/// Reads the arguments that follow the program's name; `--name VALUE` and `--name=VALUE` both do.
///
/// Errors: throws Failure for unknown options, missing or bad values and a second file.
Options parseOptions(const std::vector<std::string>& arguments);

/// The text of `--help`.
std::string usage();

} // namespace viewer
