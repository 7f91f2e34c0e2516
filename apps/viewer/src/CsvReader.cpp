// SPDX-License-Identifier: MIT
#include "CsvReader.h"

#include <algorithm>
#include <new>
#include <utility>

namespace viewer {

CsvReader::CsvReader(char separator, Handler handler, std::size_t firstLine)
    : handler(std::move(handler)) {
    // Line ends of empty lines are reported too, so that lines can be counted.
    if (csv_init(&parser, CSV_REPALL_NL) != 0)
        throw std::bad_alloc();
    csv_set_delim(&parser, static_cast<unsigned char>(separator));
    csv_set_blk_size(&parser, 4096);
    record.line = firstLine;
}

CsvReader::~CsvReader() {
    csv_free(&parser);
}

void CsvReader::feed(std::string_view bytes) {
    const auto onField = [](void* field, std::size_t size, void* self) {
        static_cast<CsvReader*>(self)->endField({static_cast<const char*>(field), size});
    };
    const auto onRecord = [](int terminator, void* self) {
        static_cast<CsvReader*>(self)->endRecord(terminator);
    };
    if (csv_parse(&parser, bytes.data(), bytes.size(), onField, onRecord, this) != bytes.size())
        throw std::bad_alloc();
}

bool CsvReader::finish() {
    // Strictness would refuse quotes inside plain fields, so it begins only here, where it tells
    // about an open quote.
    csv_set_opts(&parser, CSV_REPALL_NL | CSV_STRICT | CSV_STRICT_FINI);
    const auto onField = [](void* field, std::size_t size, void* self) {
        static_cast<CsvReader*>(self)->endField({static_cast<const char*>(field), size});
    };
    const auto onRecord = [](int terminator, void* self) {
        static_cast<CsvReader*>(self)->endRecord(terminator);
    };
    return csv_fini(&parser, onField, onRecord, this) == 0;
}

void CsvReader::endField(std::string_view field) {
    text.append(field);
    ends.push_back(text.size());
    linesInFields += static_cast<std::size_t>(std::ranges::count(field, '\n'));
}

void CsvReader::endRecord(int terminator) {
    const bool endsCrLf = afterCarriageReturn && terminator == '\n' && ends.empty();
    afterCarriageReturn = terminator == '\r';
    if (endsCrLf)
        return;
    if (!ends.empty()) {
        record.fields.clear();
        std::size_t begin = 0;
        for (const std::size_t end : ends) {
            record.fields.emplace_back(text.data() + begin, end - begin);
            begin = end;
        }
        const bool isBlank = ends.size() == 1 && text.empty();
        if (!isBlank)
            handler(record);
    }
    record.line += 1 + linesInFields;
    linesInFields = 0;
    text.clear();
    ends.clear();
}

} // namespace viewer
