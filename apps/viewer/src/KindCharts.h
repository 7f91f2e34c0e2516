// SPDX-License-Identifier: MIT
#pragma once

#include "ChartPlan.h"

#include <zembra/zembra.h>

namespace viewer {

/// Draws a histogram, box plot, heat map or candles into a plot, axes included. Returns false, with
/// nothing done, for the kinds that draw y over x.
bool drawKind(zembra::Plot& plot, const Table& table, const ChartPlan& plan,
              const Options& options);

/// Draws the values of a grid as colours, row 1 at the top, as they stand in a file.
void drawMatrix(zembra::Plot& plot, std::vector<double> values, std::size_t columns);

} // namespace viewer
