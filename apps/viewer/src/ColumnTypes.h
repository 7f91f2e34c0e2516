// SPDX-License-Identifier: MIT
#pragma once

#include "DateTimeParser.h"

#include <cstddef>
#include <string>
#include <vector>

namespace viewer {

enum class ColumnKind { Number, Time, Word };

/// What the cells of a column are.
struct ColumnType {
    ColumnKind kind = ColumnKind::Number;
    /// How dates are written, for columns of times.
    DateOrder order = DateOrder::YearMonthDay;

    friend bool operator==(const ColumnType&, const ColumnType&) = default;
};

/// What the first records of a file tell about its columns.
struct ColumnTypes {
    bool hasHeader = false;
    /// The names in the header, or "column 1" and so on.
    std::vector<std::string> names;
    std::vector<ColumnType> types;
};

/// Guesses header and column types from the first records of a file. A column is what more than
/// half of its cells are, missing ones left out; one without any is of numbers.
///
/// Shape: records may differ in length.
ColumnTypes guessColumnTypes(const std::vector<std::vector<std::string>>& records,
                             char decimalMark);

/// Reads one cell of a column of numbers or times. NaN for anything else.
double parseCell(std::string_view cell, const ColumnType& type, char decimalMark);

} // namespace viewer
