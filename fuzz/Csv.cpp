// SPDX-License-Identifier: MIT
// The bytes of a file, in pieces of any size, on their way to a table.
#include "Bytes.h"

#include "ColumnTypes.h"
#include "CsvReader.h"
#include "Dialect.h"
#include "Failure.h"
#include "Numbers.h"
#include "TableReader.h"

#include <cstdlib>
#include <fstream>
#include <optional>
#include <unistd.h>

namespace {

using Records = std::vector<std::vector<std::string>>;

std::optional<Records> read(const std::string& file, char separator, std::size_t piece) {
    Records records;
    viewer::CsvReader reader(separator, [&](const viewer::Record& record) {
        records.emplace_back(record.fields.begin(), record.fields.end());
    });
    for (std::size_t at = 0; at < file.size(); at += piece)
        reader.feed(std::string_view(file).substr(at, piece));
    if (!reader.finish())
        return std::nullopt;
    return records;
}

const std::string& scratchFile() {
    struct File {
        File() {
            std::string pattern = "/tmp/zembra-fuzz-XXXXXX";
            const int descriptor = mkstemp(pattern.data());
            fuzz::require(descriptor >= 0, "a file in /tmp");
            close(descriptor);
            name = pattern;
        }
        ~File() { unlink(name.c_str()); }
        std::string name;
    };
    static const File file;
    return file.name;
}

void checkTable(const std::string& bytes) {
    std::ofstream(scratchFile(), std::ios::binary | std::ios::trunc) << bytes;
    try {
        const viewer::Table table = viewer::readTable(scratchFile(), {}, {});
        for (const viewer::Column& column : table.columns) {
            fuzz::require(column.values.empty() || column.values.size() == table.rows,
                          "columns of equal length");
            fuzz::require(column.codes.empty() || column.codes.size() == table.rows,
                          "words of equal length");
            for (const double value : column.values)
                fuzz::require(!std::isinf(value), "finite numbers or none");
        }
    } catch (const viewer::Failure& failure) {
        fuzz::require(*failure.what() != '\0', "a message that says something");
    }
}

void run(fuzz::Bytes bytes) {
    const fuzz::Stopwatch stopwatch;
    const std::size_t piece = 1 + bytes.byte();
    const std::string file = bytes.rest();
    const viewer::Dialect dialect = viewer::guessDialect(file, true);
    const auto records = read(file, dialect.separator, piece);
    fuzz::require(records == read(file, dialect.separator, file.size() + 1),
                  "the same records whatever the pieces");
    if (records) {
        const auto types = viewer::guessColumnTypes(*records, dialect.decimalMark);
        fuzz::require(types.names.size() == types.types.size(), "a name for every column");
        for (const auto& record : *records) {
            for (std::size_t i = 0; i < record.size() && i < types.types.size(); ++i) {
                const double cell =
                    viewer::parseCell(record[i], types.types[i], dialect.decimalMark);
                fuzz::require(!std::isinf(cell), "finite cells or none");
            }
        }
    }
    checkTable(file);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Stopwatch::attend([&] { run({data, size}); });
    return 0;
}
