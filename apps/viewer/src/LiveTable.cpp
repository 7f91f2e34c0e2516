// SPDX-License-Identifier: MIT
#include "LiveTable.h"

#include "ChartBuilder.h"
#include "TableReader.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace viewer {

namespace {

// The header, and a row that shows what its columns hold.
constexpr std::ptrdiff_t leastLines = 2;

void setSamples(zembra::Series& series, const zembra::Samples& samples) {
    if (auto* const line = dynamic_cast<zembra::LineSeries*>(&series))
        line->setSamples(samples);
    else if (auto* const markers = dynamic_cast<zembra::ScatterSeries*>(&series))
        markers->setSamples(samples);
}

bool isComment(std::string_view line) {
    return line.starts_with('#');
}

} // namespace

LiveTable::LiveTable(std::string name, const Options& options)
    : name(std::move(name)), options(options) {
    this->options.follow = true;
}

bool LiveTable::feed(std::string_view bytes) {
    if (reader) {
        reader->feed(bytes);
        return append();
    }
    head.append(bytes);
    return begin();
}

bool LiveTable::begin() {
    std::ptrdiff_t lines = 0;
    std::size_t whole = 0;
    for (std::size_t end = head.find('\n'); end != std::string::npos;
         end = head.find('\n', whole)) {
        lines += isComment(std::string_view(head).substr(whole)) ? 0 : 1;
        whole = end + 1;
    }
    if (lines < leastLines)
        return false;
    const std::string rest = head.substr(whole);
    head.resize(whole);
    const auto table = std::make_shared<const Table>(parseTable(std::exchange(head, {}), name, {}));
    plan = planChart(*table, options);
    dialect = table->dialect;
    hasHeader = table->hasHeader;
    for (const Column& column : table->columns)
        types.push_back(column.type);
    chart = buildChart(table, plan, options);
    addFirstRows(*table);
    reader = newReader();
    reader->feed(rest);
    append();
    return true;
}

void LiveTable::addFirstRows(const Table& table) {
    const std::vector<std::size_t> order = drawingOrder(plan);
    for (std::size_t i = 0; i < order.size(); ++i) {
        const std::size_t column = plan.y[order[i]].column;
        streams.push_back(
            {zembra::Samples::streamed(options.last), column, table.columns[column].values});
        setSamples(*chart->series()[i], streams.back().samples);
    }
    for (std::size_t row = 0; row < table.rows; ++row) {
        ++rowCount;
        pendingX.push_back(plan.x ? table.columns[*plan.x].values[row]
                                  : static_cast<double>(rowCount));
    }
    append();
}

std::unique_ptr<CsvReader> LiveTable::newReader() {
    return std::make_unique<CsvReader>(dialect.separator,
                                       [this](const Record& record) { add(record); });
}

void LiveTable::add(const Record& record) {
    if (headerPending) {
        headerPending = isComment(record.fields.front());
        return;
    }
    ++rowCount;
    pendingX.push_back(plan.x ? cell(record, *plan.x) : static_cast<double>(rowCount));
    for (Stream& stream : streams)
        stream.pending.push_back(cell(record, stream.column));
}

double LiveTable::cell(const Record& record, std::size_t column) const {
    if (column >= record.fields.size())
        return std::numeric_limits<double>::quiet_NaN();
    return parseCell(record.fields[column], types[column], dialect.decimalMark);
}

bool LiveTable::append() {
    if (pendingX.empty())
        return false;
    for (Stream& stream : streams) {
        stream.samples.append(pendingX, stream.pending);
        stream.pending.clear();
    }
    pendingX.clear();
    return true;
}

void LiveTable::restart() {
    head.clear();
    if (!reader)
        return;
    reader = newReader();
    headerPending = hasHeader;
    rowCount = 0;
    for (Stream& stream : streams)
        stream.samples.clear();
}

} // namespace viewer
