// SPDX-License-Identifier: MIT
#include "CsvReader.h"

#include <algorithm>
#include <new>
#include <utility>

namespace viewer {

namespace {

std::string_view trimmed(std::string_view text, char separator) {
    const auto isBlank = [separator](char c) { return (c == ' ' || c == '\t') && c != separator; };
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

} // namespace

CsvReader::CsvReader(char separator, Handler handler, std::size_t firstLine)
    : handler(std::move(handler)), separator(separator) {
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
    if (bytes.find('"') != std::string_view::npos) {
        parse(bytes);
        return;
    }
    // The parser ends the record that it is in, and begins the last one.
    std::size_t begin = 0;
    while (!betweenRecords && begin < bytes.size()) {
        const std::size_t end = bytes.find('\n', begin);
        const std::size_t next = end == std::string_view::npos ? bytes.size() : end + 1;
        parse(bytes.substr(begin, next - begin));
        begin = next;
    }
    const std::size_t last = bytes.rfind('\n');
    if (last != std::string_view::npos && last >= begin) {
        readPlainLines(bytes.substr(begin, last + 1 - begin));
        begin = last + 1;
    }
    parse(bytes.substr(begin));
}

void CsvReader::readPlainLines(std::string_view lines) {
    while (!lines.empty()) {
        const std::size_t end = lines.find('\n');
        std::string_view line = lines.substr(0, end);
        // Line ends of a kind of their own are the parser's.
        const std::size_t carriageReturn = line.find('\r');
        if (carriageReturn != std::string_view::npos && carriageReturn + 1 < line.size()) {
            parse(lines.substr(0, end + 1));
        } else {
            if (carriageReturn != std::string_view::npos)
                line.remove_suffix(1);
            readPlainLine(line);
            ++record.line;
        }
        lines.remove_prefix(end + 1);
    }
}

void CsvReader::readPlainLine(std::string_view line) {
    record.fields.clear();
    std::size_t begin = 0;
    while (true) {
        const std::size_t end = line.find(separator, begin);
        record.fields.push_back(trimmed(line.substr(begin, end - begin), separator));
        if (end == std::string_view::npos)
            break;
        begin = end + 1;
    }
    const bool isBlank = record.fields.size() == 1 && record.fields.front().empty();
    if (!isBlank)
        handler(record);
}

void CsvReader::parse(std::string_view bytes) {
    if (bytes.empty())
        return;
    // Only its last byte can tell whether the parser stands between two records then: a quoted
    // field may go on over the line end.
    if (bytes.size() > 1 && bytes.back() == '\n') {
        parse(bytes.substr(0, bytes.size() - 1));
        bytes = bytes.substr(bytes.size() - 1);
    }
    betweenRecords = false;
    const auto onField = [](void* field, std::size_t size, void* self) {
        static_cast<CsvReader*>(self)->endField({static_cast<const char*>(field), size});
    };
    const auto onRecord = [](int terminator, void* self) {
        static_cast<CsvReader*>(self)->endRecord(terminator);
    };
    if (csv_parse(&parser, bytes.data(), bytes.size(), onField, onRecord, this) != bytes.size())
        throw std::bad_alloc();
    betweenRecords = betweenRecords && bytes == "\n";
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
    betweenRecords = true;
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
