// SPDX-License-Identifier: MIT
#pragma once

#include "ChartPlan.h"
#include "Options.h"
#include "Table.h"

#include <zembra/zembra.h>

#include <memory>

namespace viewer {

/// Makes the chart of a plan.
std::shared_ptr<zembra::Plot> buildChart(const Table& table, const ChartPlan& plan,
                                         const Options& options);

} // namespace viewer
