// SPDX-License-Identifier: MIT
#pragma once

#include "ChartPlan.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

namespace viewer {

// The plans of the kinds that do not draw y over x. Errors: as those of `planChart`.

/// Counts of every column of numbers, or of one for each value of the `by` column.
ChartPlan planHistogram(const Table& table, const Options& options);
/// A box for every column of numbers, or for each value of the `by` column.
ChartPlan planBoxes(const Table& table, const Options& options);
/// Values at evenly spaced positions (x, y and value in a row), or a matrix of numbers.
ChartPlan planHeatMap(const Table& table, const Options& options);
/// Open, high, low and close, found by their names.
ChartPlan planCandles(const Table& table, const Options& options);

/// The columns behind candles, in the order of a plan.
constexpr std::array priceColumns = {"open", "high", "low", "close"};

/// The column of that name in either case.
std::optional<std::size_t> findPriceColumn(const Table& table, std::string_view name);

/// Columns of numbers with more different values than this are divided into classes.
constexpr std::size_t mostNumberGroups = 20;

} // namespace viewer
