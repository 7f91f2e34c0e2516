// SPDX-License-Identifier: MIT
#pragma once

#include "ColumnTypes.h"
#include "Dialect.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace viewer {

/// A cell that its column has no use for, such as a word among numbers.
struct BadCell {
    std::size_t line = 0;
    std::string text;
};

/// A column of a table.
struct Column {
    std::string name;
    /// How its cells were read.
    ColumnType type;
    /// What they look like; differs where the reader was asked for words or numbers.
    ColumnType cells;

    /// Numbers, or seconds since the Unix epoch (UTC); NaN where a cell is empty or bad. Empty for
    /// columns of words.
    std::vector<double> values;
    std::size_t filledCells = 0;
    std::size_t badCells = 0;
    std::optional<BadCell> firstBadCell;

    /// Columns of words: the different words in order of appearance, and the place of every cell's
    /// word among them. Both are empty where there are more words than anyone would tell apart.
    std::vector<std::string> words;
    std::vector<std::uint32_t> codes;
    bool tooManyWords = false;
};

/// What was read from a file: all columns have the same number of cells.
struct Table {
    /// As the user named it.
    std::string file;
    Dialect dialect;
    bool hasHeader = false;
    std::size_t rows = 0;
    std::vector<Column> columns;

    /// The column of that name or, for a plain number, at that place, 1 being the first.
    std::optional<std::size_t> findColumn(const std::string& name) const;
};

/// How messages call a column: its place and its name.
std::string describeColumn(const Table& table, std::size_t column);

} // namespace viewer
