// SPDX-License-Identifier: MIT
#pragma once

#include "ChartPlan.h"
#include "Options.h"
#include "Table.h"

#include <zembra/zembra.h>

#include <cstddef>
#include <memory>
#include <vector>

namespace viewer {

/// Makes the chart of a plan. Columns are not copied where the rows are drawn as they come: the
/// plot keeps the table.
std::shared_ptr<zembra::Plot> buildChart(std::shared_ptr<const Table> table, const ChartPlan& plan,
                                         const Options& options);

/// The places in `plan.y` in the order in which their series are added: columns of the right axis
/// come first, so that they lie behind the others.
std::vector<std::size_t> drawingOrder(const ChartPlan& plan);

} // namespace viewer
