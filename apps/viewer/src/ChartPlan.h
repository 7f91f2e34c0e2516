// SPDX-License-Identifier: MIT
#pragma once

#include "ChartKind.h"
#include "Options.h"
#include "Table.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace viewer {

/// How the rows of a table are divided into series.
enum class Grouping {
    /// Every y column is one series.
    None,
    /// One series for each word, or for each number of a column with few different ones.
    Values,
    /// One series for each of a handful of classes that a column of numbers is divided into.
    Classes,
};

/// A column that is drawn.
struct DrawnColumn {
    std::size_t column = 0;
    /// Against the right axis, because its values have another magnitude than the others.
    bool onRightAxis = false;
};

/// What of a table goes where in a chart.
struct ChartPlan {
    ChartKind kind = ChartKind::Line;
    /// None numbers the rows, 1 for the first.
    std::optional<std::size_t> x;
    /// For candles open, high, low and close; for a heat map of positions the vertical one, and for
    /// a heat map of a matrix all columns.
    std::vector<DrawnColumn> y;
    Grouping grouping = Grouping::None;
    std::size_t by = 0;
    /// The values of a heat map of positions; none for a matrix.
    std::optional<std::size_t> value;
    /// What the user should know, one line each.
    std::vector<std::string> notes;
};

/// Chooses what to draw: what the options ask for, and for the rest what a reader would expect.
/// Without a kind in the options that is lines or markers.
///
/// Errors: throws Failure naming file, line and column for columns that are not there or do not
/// hold what is asked of them.
ChartPlan planChart(const Table& table, const Options& options);

} // namespace viewer
