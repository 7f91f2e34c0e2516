// SPDX-License-Identifier: MIT
#include "ColumnTypes.h"

#include "Ascii.h"
#include "Numbers.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <string_view>

namespace viewer {

namespace {

using Records = std::vector<std::vector<std::string>>;

// In the order of preference where several fit equally.
constexpr std::array dateOrders = {DateOrder::YearMonthDay, DateOrder::MonthName,
                                   DateOrder::MonthDayYear, DateOrder::DayMonthYear};

ColumnType guessType(const Records& records, std::size_t firstRecord, std::size_t column,
                     char decimalMark) {
    std::size_t cells = 0;
    std::size_t numbers = 0;
    std::array<std::size_t, dateOrders.size()> dates{};
    for (std::size_t r = firstRecord; r < records.size(); ++r) {
        if (column >= records[r].size() || isMissing(records[r][column]))
            continue;
        const std::string& cell = records[r][column];
        ++cells;
        if (parseNumber(cell, decimalMark)) {
            ++numbers;
            continue;
        }
        for (std::size_t k = 0; k < dateOrders.size(); ++k)
            dates[k] += parseDateTime(cell, dateOrders[k]) ? 1 : 0;
    }
    if (cells == 0 || numbers * 2 > cells)
        return {ColumnKind::Number};
    const auto best = std::ranges::max_element(dates);
    if (*best * 2 > cells)
        return {ColumnKind::Time, dateOrders[static_cast<std::size_t>(best - dates.begin())]};
    return {ColumnKind::Word};
}

bool guessHeader(const Records& records, std::size_t columns, char decimalMark) {
    if (records.empty())
        return false;
    bool anyValues = false;
    for (std::size_t c = 0; c < columns && c < records[0].size(); ++c) {
        const std::string& first = records[0][c];
        const ColumnType below = guessType(records, 1, c, decimalMark);
        const bool isValue =
            !isMissing(first) && std::isfinite(parseCell(first, below, decimalMark));
        anyValues = anyValues || isValue;
        if (records.size() > 1 && below.kind != ColumnKind::Word && !isMissing(first) && !isValue)
            return true;
    }
    return !anyValues;
}

// Four digits each, which under the name of a year, or under none, are meant as years.
bool looksLikeYears(const Records& records, std::size_t firstRecord, std::size_t column,
                    const std::string& name) {
    constexpr std::array<std::string_view, 8> yearNames = {"year", "years", "yr",   "jahr",
                                                           "date", "time",  "anno", "an"};
    const bool isNamed = !name.empty();
    if (isNamed && std::ranges::none_of(yearNames, [&name](std::string_view yearName) {
            return equalIgnoringCase(name, yearName);
        }))
        return false;
    const double least = isNamed ? 1000.0 : 1500.0;
    const double most = isNamed ? 2999.0 : 2200.0;
    bool any = false;
    for (std::size_t r = firstRecord; r < records.size(); ++r) {
        if (column >= records[r].size() || isMissing(records[r][column]))
            continue;
        const std::string& cell = records[r][column];
        if (cell.size() != 4 || !parseDateTime(cell, DateOrder::Year))
            return false;
        const double year = parseNumber(cell, '.').value_or(0.0);
        if (year < least || year > most)
            return false;
        any = true;
    }
    return any;
}

} // namespace

ColumnTypes guessColumnTypes(const Records& records, char decimalMark) {
    ColumnTypes result;
    std::size_t columns = 0;
    for (const std::vector<std::string>& record : records)
        columns = std::max(columns, record.size());
    result.hasHeader = guessHeader(records, columns, decimalMark);
    if (result.hasHeader)
        columns = records[0].size();

    const std::size_t firstRecord = result.hasHeader ? 1 : 0;
    bool yearsPossible = true;
    for (std::size_t c = 0; c < columns; ++c) {
        const std::string name = result.hasHeader ? records[0][c] : std::string();
        ColumnType type = guessType(records, firstRecord, c, decimalMark);
        // Only the column that x may come from: elsewhere such numbers are values.
        if (yearsPossible && looksLikeYears(records, firstRecord, c, name))
            type = {ColumnKind::Time, DateOrder::Year};
        yearsPossible = yearsPossible && type.kind == ColumnKind::Word;
        result.types.push_back(type);
        result.names.push_back(name.empty() ? "column " + std::to_string(c + 1) : name);
    }
    return result;
}

double parseCell(std::string_view cell, const ColumnType& type, char decimalMark) {
    constexpr double none = std::numeric_limits<double>::quiet_NaN();
    switch (type.kind) {
    case ColumnKind::Number:
        return parseNumber(cell, decimalMark).value_or(none);
    case ColumnKind::Time:
        return parseDateTime(cell, type.order).value_or(none);
    case ColumnKind::Word:
        break;
    }
    return none;
}

} // namespace viewer
