// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace viewer {

/// How a file separates its columns and writes its numbers.
struct Dialect {
    char separator = ',';
    char decimalMark = '.';

    friend bool operator==(const Dialect&, const Dialect&) = default;
};

/// Guesses the dialect from the beginning of a file. `isWhole` tells that `sample` does not end in
/// the middle of a record.
Dialect guessDialect(std::string_view sample, bool isWhole);

} // namespace viewer
