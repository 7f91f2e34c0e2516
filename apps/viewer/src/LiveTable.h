// SPDX-License-Identifier: MIT
#pragma once

#include "ChartPlan.h"
#include "CsvReader.h"
#include "Options.h"
#include "Table.h"

#include <zembra/zembra.h>

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace viewer {

/// A chart of lines or markers over the newest rows of a table that is still being written.
///
/// The first whole lines tell header, columns and types; from then on every row goes into rings,
/// one for each series, and its text is forgotten. Cells that are no numbers are gaps. GUI thread
/// only.
class LiveTable {
public:
    /// `name` is what messages call the source. Requires: `canStream(options)`.
    LiveTable(std::string name, const Options& options);

    /// Takes more of the text, in whatever pieces. Returns whether the chart has changed.
    /// Errors: throws Failure where the beginning makes no chart.
    bool feed(std::string_view bytes);
    /// Forgets all rows; what comes next is the table from its beginning, header included.
    void restart();

    /// Null until header and first row are known.
    std::shared_ptr<zembra::Plot> plot() const { return chart; }
    /// The rows that have come, whether still kept or not.
    std::size_t rows() const { return rowCount; }
    const std::vector<std::string>& notes() const { return plan.notes; }

private:
    struct Stream {
        zembra::Samples samples;
        std::size_t column = 0;
        /// The rows that are not in the ring yet.
        std::vector<double> pending;
    };

    bool begin();
    void addFirstRows(const Table& table);
    void add(const Record& record);
    double cell(const Record& record, std::size_t column) const;
    bool append();
    std::unique_ptr<CsvReader> newReader();

    std::string name;
    Options options;
    // The text until the columns are known.
    std::string head;
    ChartPlan plan;
    std::vector<ColumnType> types;
    Dialect dialect;
    bool hasHeader = false;
    bool headerPending = false;
    std::unique_ptr<CsvReader> reader;
    std::shared_ptr<zembra::Plot> chart;
    std::vector<Stream> streams;
    std::vector<double> pendingX;
    std::size_t rowCount = 0;
};

} // namespace viewer
