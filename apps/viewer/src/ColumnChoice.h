// SPDX-License-Identifier: MIT
#pragma once

#include "ChartKind.h"
#include "ChartPlan.h"
#include "Options.h"
#include "Table.h"

#include <string>
#include <vector>

namespace viewer {

/// A column that may be drawn.
struct ChoosableColumn {
    std::string name;
    /// How options name this column and no other.
    std::string reference;
    /// What its cells look like, however they were read.
    ColumnType cells;
};

/// What a chart shows of a table, and what it could show instead. A value.
struct ColumnChoice {
    std::vector<ChoosableColumn> columns;
    /// These draw the chart again, with nothing left to guess.
    Options options;
};

/// What the chart of a plan shows; `options` are those that led to the plan.
ColumnChoice choiceOf(const Table& table, const ChartPlan& plan, const Options& options);

// Whether the cells of a column can be used there. What the values are is the plan's to check.

bool fitsX(const ChoosableColumn& column, ChartKind kind);
bool fitsY(const ChoosableColumn& column, ChartKind kind);
bool fitsBy(const ChoosableColumn& column, ChartKind kind);

} // namespace viewer
