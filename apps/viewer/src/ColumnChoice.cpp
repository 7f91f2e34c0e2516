// SPDX-License-Identifier: MIT
#include "ColumnChoice.h"

#include <cstddef>
#include <optional>

namespace viewer {

namespace {

// The name, unless an earlier column has it, too; else the place, with as many zeros before it as
// keep it from being a name.
std::string referenceTo(const Table& table, std::size_t index) {
    if (table.findColumn(table.columns[index].name) == index)
        return table.columns[index].name;
    std::string place = std::to_string(index + 1);
    while (table.findColumn(place) != index)
        place.insert(place.begin(), '0');
    return place;
}

// A heat map takes years for numbers.
bool holdsNumbers(const ChoosableColumn& column, ChartKind kind) {
    const ColumnType& cells = column.cells;
    const bool years = cells.kind == ColumnKind::Time && cells.order == DateOrder::Year;
    return cells.kind == ColumnKind::Number || (years && kind == ChartKind::HeatMap);
}

} // namespace

ColumnChoice choiceOf(const Table& table, const ChartPlan& plan, const Options& options) {
    ColumnChoice choice;
    for (std::size_t c = 0; c < table.columns.size(); ++c) {
        const Column& column = table.columns[c];
        choice.columns.push_back({column.name, referenceTo(table, c), column.cells});
    }
    const auto reference = [&choice](std::size_t c) { return choice.columns[c].reference; };
    Options& shown = choice.options;
    shown = options;
    shown.guesses = false;
    shown.kind = plan.kind;
    shown.x = plan.x ? std::optional(reference(*plan.x)) : std::nullopt;
    shown.y.clear();
    for (const DrawnColumn& drawn : plan.y)
        shown.y.push_back(reference(drawn.column));
    shown.by.reset();
    if (plan.value)
        shown.by = reference(*plan.value);
    else if (plan.grouping != Grouping::None)
        shown.by = reference(plan.by);
    return choice;
}

bool fitsX(const ChoosableColumn& column, ChartKind kind) {
    switch (kind) {
    case ChartKind::Bar:
        return true;
    case ChartKind::Line:
    case ChartKind::Scatter:
    case ChartKind::Candlestick:
        return column.cells.kind != ColumnKind::Word;
    case ChartKind::HeatMap:
    case ChartKind::Histogram:
    case ChartKind::Box:
        break;
    }
    return holdsNumbers(column, kind);
}

bool fitsY(const ChoosableColumn& column, ChartKind kind) {
    return holdsNumbers(column, kind);
}

bool fitsBy(const ChoosableColumn& column, ChartKind kind) {
    return kind != ChartKind::HeatMap || holdsNumbers(column, kind);
}

} // namespace viewer
