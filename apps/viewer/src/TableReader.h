// SPDX-License-Identifier: MIT
#pragma once

#include "Table.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace viewer {

/// Called now and then while a file is read; returns false to give up. Units: bytes and records so
/// far; `size` is the size of the file, 0 where it has none, as pipes.
using ReadProgress = std::function<bool(std::int64_t bytes, std::int64_t size, std::size_t rows)>;

/// Thrown where the progress function gives up.
struct ReadingCancelled {};

/// How to understand the columns of a file.
struct ReadRequest {
    /// A column that is kept as words even where it holds dates.
    std::optional<std::string> wordColumn;
    /// Numbers of four digits are values, never years.
    bool yearsAreNumbers = false;
};

/// Reads a CSV or TSV file in chunks; separator, decimal mark, header and column types are found
/// in the first one. The path "-" stands for standard input.
///
/// Errors: throws Failure naming file and line for files that cannot be read, hold no rows, are no
/// text, or have a record with too many fields or a quote that is never closed.
Table readTable(const std::string& path, const ReadRequest& request, const ReadProgress& progress);

/// Reads a text, which messages call `name`, as if it were a file. Errors: as above.
Table parseTable(const std::string& text, const std::string& name, const ReadRequest& request,
                 const ReadProgress& progress = {});

/// Whether the beginning of a text reads like a table that could be drawn: at least two records,
/// and a column of numbers. What comes later may still be no table.
bool looksLikeTable(std::string_view text);

} // namespace viewer
