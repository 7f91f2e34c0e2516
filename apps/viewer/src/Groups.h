// SPDX-License-Identifier: MIT
#pragma once

#include "ChartPlan.h"

#include <zembra/paint/Color.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace viewer {

/// The rows of a table that make one series.
struct Group {
    std::string name;
    std::vector<std::uint32_t> rows;
    /// Of classes, in order from dark to light.
    std::optional<zembra::Color> color;
};

/// Divides the rows of a table as its plan says; none without a grouping. Rows whose cell is empty
/// belong to no group.
std::vector<Group> groupsOf(const Table& table, const ChartPlan& plan);

/// The values of some rows.
std::vector<double> pick(const std::vector<double>& values, const std::vector<std::uint32_t>& rows);

} // namespace viewer
