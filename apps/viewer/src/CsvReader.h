// SPDX-License-Identifier: MIT
#pragma once

#include <csv.h>

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace viewer {

/// One record of a file.
struct Record {
    /// The line on which the record begins, the first one being 1.
    std::size_t line = 0;
    /// Valid until the handler returns. Quotes are resolved, white space around plain fields is
    /// left out.
    std::vector<std::string_view> fields;
};

/// Splits the bytes of a file into records, whatever pieces they come in.
///
/// Empty lines are no records. Lines end in LF, CR LF or CR.
class CsvReader {
public:
    using Handler = std::function<void(const Record&)>;

    /// `firstLine` is the line on which the first byte stands.
    CsvReader(char separator, Handler handler, std::size_t firstLine = 1);
    CsvReader(const CsvReader&) = delete;
    CsvReader& operator=(const CsvReader&) = delete;
    ~CsvReader();

    void feed(std::string_view bytes);
    /// Hands over a last record that no line end follows.
    /// Errors: returns false when a quoted field is still open.
    bool finish();

    /// The line on which the record being read begins.
    std::size_t line() const { return record.line; }
    /// The number of fields of the record being read that are complete.
    std::size_t completeFields() const { return ends.size(); }

private:
    void parse(std::string_view bytes);
    // Hands over whole lines without quotes, several times as fast as the parser.
    void readPlainLines(std::string_view lines);
    void readPlainLine(std::string_view line);
    void endField(std::string_view field);
    void endRecord(int terminator);

    csv_parser parser;
    Handler handler;
    char separator;
    Record record;
    // The fields of a record one after the other, and where each ends: the parser reuses its own
    // buffer from field to field.
    std::string text;
    std::vector<std::size_t> ends;
    std::size_t linesInFields = 0;
    bool afterCarriageReturn = false;
    // Whether the parser stands between two records.
    bool betweenRecords = true;
};

} // namespace viewer
