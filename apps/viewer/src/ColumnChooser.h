// SPDX-License-Identifier: MIT
#pragma once

#include "Options.h"
#include "Table.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace viewer {

/// Finds the columns of a table that a chart needs, and tells where one is not fit for it.
///
/// Every check that fails throws Failure naming file, line and column. Refers to the table.
class ColumnChooser {
public:
    /// What a column may hold.
    enum class Wanted { Numbers, NumbersOrTimes };

    explicit ColumnChooser(const Table& table) : table(table) {}

    [[noreturn]] void fail(std::size_t line, const std::string& what) const;
    /// Fails at the first row of data.
    [[noreturn]] void failInData(const std::string& what) const;

    /// The column that an option names.
    std::size_t named(const std::string& option, const std::string& name) const;
    void require(const std::string& option, std::size_t index, Wanted wanted) const;
    /// Refuses a stray word among numbers.
    void requireClean(std::size_t index) const;
    void requirePositive(const std::string& option, std::size_t index) const;
    /// Refuses a column that cannot name groups.
    void requireNames(const std::string& option, std::size_t index) const;

    const Column& column(std::size_t index) const { return table.columns[index]; }
    ColumnKind kind(std::size_t index) const { return column(index).type.kind; }
    std::string describe(std::size_t index) const { return describeColumn(table, index); }

    /// The first column of a kind, `except` left out.
    std::optional<std::size_t> firstOf(ColumnKind kind, std::optional<std::size_t> except) const;
    std::size_t countOf(ColumnKind kind, std::optional<std::size_t> except) const;
    /// A nameless column that counts rows, as some programs write it.
    bool isRowNumber(std::size_t index) const;
    /// Words that come back again and again, as names of groups do.
    bool hasRepeatedWords(std::size_t index) const;

private:
    const Table& table;
};

} // namespace viewer
