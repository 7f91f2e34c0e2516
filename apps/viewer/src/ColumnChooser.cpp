// SPDX-License-Identifier: MIT
#include "ColumnChooser.h"

#include "Failure.h"

#include <algorithm>

namespace viewer {

namespace {

// More series than this nobody waits for.
constexpr std::size_t mostGroups = 1000;
constexpr std::size_t mostNamesTold = 12;

} // namespace

void ColumnChooser::fail(std::size_t line, const std::string& what) const {
    throw Failure(table.file + ":" + std::to_string(line) + ": " + what);
}

void ColumnChooser::failInData(const std::string& what) const {
    fail(table.hasHeader ? 2 : 1, what);
}

std::size_t ColumnChooser::named(const std::string& option, const std::string& name) const {
    if (const std::optional<std::size_t> found = table.findColumn(name))
        return *found;
    std::string known;
    for (std::size_t c = 0; c < table.columns.size() && c < mostNamesTold; ++c)
        known += (c > 0 ? ", " : "") + column(c).name;
    if (table.columns.size() > mostNamesTold)
        known += " and more";
    fail(1, option + ": no column is called \"" + name + "\"; there are " + known);
}

void ColumnChooser::require(const std::string& option, std::size_t index, Wanted wanted) const {
    const Column& checked = column(index);
    const bool timesToo = wanted == Wanted::NumbersOrTimes;
    if (checked.type.kind == ColumnKind::Number ||
        (timesToo && checked.type.kind == ColumnKind::Time))
        return;
    const bool words = checked.type.kind == ColumnKind::Word;
    const std::string what = option + ": " + describe(index) + " holds " +
                             (words ? "words" : "dates") + ", not numbers" +
                             (timesToo ? " or dates" : "");
    if (checked.firstBadCell)
        fail(checked.firstBadCell->line, what);
    failInData(what);
}

void ColumnChooser::requireClean(std::size_t index) const {
    const Column& used = column(index);
    if (!used.firstBadCell)
        return;
    fail(used.firstBadCell->line,
         describe(index) + ": \"" + used.firstBadCell->text + "\" is not a " +
             (used.type.kind == ColumnKind::Time ? "date like the others" : "number"));
}

void ColumnChooser::requirePositive(const std::string& option, std::size_t index) const {
    if (std::ranges::none_of(column(index).values, [](double value) { return value > 0.0; }))
        failInData(option + ": " + describe(index) + " has no value above 0");
}

void ColumnChooser::requireNames(const std::string& option, std::size_t index) const {
    const Column& names = column(index);
    if (names.firstBadCell)
        fail(names.firstBadCell->line,
             option + ": " + describe(index) + " mixes numbers and words");
    if (names.tooManyWords || names.words.size() > mostGroups)
        failInData(option + ": " + describe(index) + " has more than " +
                   std::to_string(mostGroups) + " different values");
}

std::optional<std::size_t> ColumnChooser::firstOf(ColumnKind wanted,
                                                  std::optional<std::size_t> except) const {
    for (std::size_t c = 0; c < table.columns.size(); ++c) {
        if (kind(c) == wanted && c != except)
            return c;
    }
    return std::nullopt;
}

std::size_t ColumnChooser::countOf(ColumnKind wanted, std::optional<std::size_t> except) const {
    std::size_t count = 0;
    for (std::size_t c = 0; c < table.columns.size(); ++c)
        count += kind(c) == wanted && c != except ? 1 : 0;
    return count;
}

bool ColumnChooser::isRowNumber(std::size_t index) const {
    const Column& counter = column(index);
    if (!table.hasHeader || counter.type.kind != ColumnKind::Number ||
        counter.name != "column " + std::to_string(index + 1) || counter.values.empty())
        return false;
    for (std::size_t i = 1; i < counter.values.size(); ++i) {
        if (counter.values[i] != counter.values[i - 1] + 1.0)
            return false;
    }
    return counter.values.front() == 0.0 || counter.values.front() == 1.0;
}

bool ColumnChooser::hasRepeatedWords(std::size_t index) const {
    const Column& names = column(index);
    return names.type.kind == ColumnKind::Word && !names.tooManyWords &&
           names.words.size() * 2 <= table.rows;
}

} // namespace viewer
