// SPDX-License-Identifier: MIT
#include "TableReader.h"

#include "CsvReader.h"
#include "Dialect.h"
#include "Failure.h"
#include "Numbers.h"

#include <QBuffer>
#include <QByteArray>
#include <QFile>
#include <QString>
#include <QStringDecoder>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <limits>
#include <memory>
#include <optional>
#include <string_view>
#include <unordered_map>
#include <utility>

namespace viewer {

namespace {

constexpr qint64 chunkSize = qint64{256} * 1024;
constexpr std::size_t sampleRecords = 1000;
constexpr std::size_t mostWords = 10000;

[[noreturn]] void fail(const std::string& file, std::size_t line, const std::string& what) {
    throw Failure(file + ":" + std::to_string(line) + ": " + what);
}

// Text that is not UTF-8 is taken as Latin-1, which any bytes are.
std::string toUtf8(std::string_view text) {
    const auto size = static_cast<qsizetype>(text.size());
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString decoded = decoder.decode(QByteArrayView(text.data(), size));
    if (!decoder.hasError())
        return std::string(text);
    return QString::fromLatin1(text.data(), size).toStdString();
}

// Gives every different word of a column a number.
class WordIndex {
public:
    void add(std::string_view word, Column& column) {
        if (column.tooManyWords)
            return;
        // Neighbouring cells are often equal.
        if (last && column.words[*last] == word) {
            column.codes.push_back(*last);
            return;
        }
        const auto [place, isNew] =
            places.try_emplace(std::string(word), static_cast<std::uint32_t>(column.words.size()));
        if (isNew && column.words.size() == mostWords) {
            column.tooManyWords = true;
            column.words = {};
            column.codes = {};
            places = {};
            return;
        }
        if (isNew)
            column.words.emplace_back(word);
        last = place->second;
        column.codes.push_back(place->second);
    }

private:
    std::unordered_map<std::string, std::uint32_t> places;
    std::optional<std::uint32_t> last;
};

// Turns records into cells of columns.
class TableBuilder {
public:
    TableBuilder(const std::string& file, const ColumnTypes& types, const Dialect& dialect)
        : decimalMark(dialect.decimalMark),
          wordIndexes(types.types.size()),
          headerPending(types.hasHeader) {
        table.file = file;
        table.dialect = dialect;
        table.hasHeader = types.hasHeader;
        for (std::size_t c = 0; c < types.types.size(); ++c) {
            Column column;
            column.name = toUtf8(types.names[c]);
            column.type = types.types[c];
            column.cells = column.type;
            table.columns.push_back(std::move(column));
        }
    }

    void keepWords(const std::string& name) {
        const std::optional<std::size_t> column = table.findColumn(name);
        if (column && table.columns[*column].type.kind == ColumnKind::Time)
            table.columns[*column].type = {ColumnKind::Word};
    }

    void takeYearsAsNumbers() {
        for (Column& column : table.columns) {
            if (column.type.kind == ColumnKind::Time && column.type.order == DateOrder::Year)
                column.type = {ColumnKind::Number};
        }
    }

    void reserve(std::size_t rows) {
        for (Column& column : table.columns) {
            if (column.type.kind == ColumnKind::Word)
                column.codes.reserve(rows);
            else
                column.values.reserve(rows);
        }
    }

    void add(const Record& record) {
        if (headerPending) {
            headerPending = false;
            return;
        }
        checkWidth(record);
        for (std::size_t c = 0; c < table.columns.size(); ++c) {
            const bool present = c < record.fields.size();
            addCell(c, present ? record.fields[c] : std::string_view(), record.line);
        }
        ++table.rows;
    }

    std::size_t rows() const { return table.rows; }
    bool hasHeader() const { return table.hasHeader; }

    Table finish() {
        for (Column& column : table.columns) {
            // What the beginning took for numbers turned out to be words.
            if (column.badCells * 2 > column.filledCells) {
                column.type = {ColumnKind::Word};
                column.cells = column.type;
                column.values = {};
                column.tooManyWords = true;
            }
            for (std::string& word : column.words)
                word = toUtf8(word);
        }
        return std::move(table);
    }

private:
    // Separators at the end of a record are often superfluous, values there are not.
    void checkWidth(const Record& record) {
        for (std::size_t c = table.columns.size(); c < record.fields.size(); ++c) {
            if (!record.fields[c].empty())
                fail(table.file, record.line,
                     "column " + std::to_string(c + 1) + " (\"" + toUtf8(record.fields[c]) +
                         "\") is one too many, " +
                         (table.hasHeader ? "the header names " : "the lines before have ") +
                         std::to_string(table.columns.size()));
        }
    }

    void addCell(std::size_t index, std::string_view cell, std::size_t line) {
        Column& column = table.columns[index];
        if (column.type.kind == ColumnKind::Word) {
            wordIndexes[index].add(cell, column);
            return;
        }
        const double value = parseCell(cell, column.type, decimalMark);
        column.values.push_back(value);
        if (std::isfinite(value)) {
            ++column.filledCells;
        } else if (!isMissing(cell)) {
            ++column.filledCells;
            ++column.badCells;
            if (!column.firstBadCell)
                column.firstBadCell = BadCell{line, toUtf8(cell.substr(0, 40))};
        }
    }

    Table table;
    char decimalMark;
    std::vector<WordIndex> wordIndexes;
    bool headerPending;
};

// The bytes of a file or of a text.
class Input {
public:
    explicit Input(const std::string& path) : name(path) {
        auto file = std::make_unique<QFile>(QString::fromStdString(path));
        const bool isOpen = path == "-"
                                ? file->open(stdin, QIODevice::ReadOnly | QIODevice::Unbuffered)
                                : file->open(QIODevice::ReadOnly | QIODevice::Unbuffered);
        if (!isOpen)
            throw Failure(path + ": cannot be read: " + file->errorString().toStdString());
        if (!file->isSequential())
            total = file->size();
        device = std::move(file);
    }

    /// Refers to the text.
    Input(const std::string& text, std::string name)
        : name(std::move(name)), total(static_cast<std::int64_t>(text.size())) {
        auto memory = std::make_unique<QBuffer>();
        memory->setData(QByteArray::fromRawData(text.data(), static_cast<qsizetype>(text.size())));
        memory->open(QIODevice::ReadOnly | QIODevice::Unbuffered);
        device = std::move(memory);
    }

    // The next bytes; none at the end.
    std::string_view read() {
        const qint64 count = device->read(buffer.data(), chunkSize);
        if (count < 0)
            throw Failure(name + ": cannot be read: " + device->errorString().toStdString());
        done += count;
        return {buffer.data(), static_cast<std::size_t>(count)};
    }

    std::int64_t bytes() const { return done; }
    std::int64_t size() const { return total; }

private:
    std::string name;
    std::unique_ptr<QIODevice> device;
    std::string buffer = std::string(chunkSize, '\0');
    std::int64_t done = 0;
    std::int64_t total = 0;
};

// Pipes give bytes in small pieces; the first chunk should be worth a guess.
std::string readHead(Input& input, bool& isWhole) {
    std::string head;
    isWhole = false;
    while (head.size() < static_cast<std::size_t>(chunkSize)) {
        const std::string_view piece = input.read();
        if (piece.empty()) {
            isWhole = true;
            break;
        }
        head.append(piece);
    }
    return head;
}

void checkEncoding(const std::string& path, std::string& head) {
    using namespace std::string_view_literals;
    if (head.starts_with("\xEF\xBB\xBF"sv))
        head.erase(0, 3);
    if (head.starts_with("\xFF\xFE"sv) || head.starts_with("\xFE\xFF"sv))
        fail(path, 1, "the text is UTF-16; save it as UTF-8");
    const std::size_t zero = head.find('\0');
    if (zero != std::string::npos) {
        const auto end = head.begin() + static_cast<std::ptrdiff_t>(zero);
        fail(path, 1 + static_cast<std::size_t>(std::count(head.begin(), end, '\n')),
             "this is not a text file");
    }
}

// Takes the lines of comment at the beginning, which measuring programs mark with "#", out of the
// text. Returns their number.
std::size_t dropComments(std::string& head) {
    std::size_t begin = 0;
    std::size_t lines = 0;
    while (begin < head.size() && head[begin] == '#') {
        const std::size_t end = head.find('\n', begin);
        if (end == std::string::npos)
            break;
        begin = end + 1;
        ++lines;
    }
    head.erase(0, begin);
    return lines;
}

std::vector<std::vector<std::string>> firstRecords(std::string_view head, bool isWhole,
                                                   char separator) {
    std::vector<std::vector<std::string>> records;
    CsvReader reader(separator, [&records](const Record& record) {
        if (records.size() < sampleRecords)
            records.emplace_back(record.fields.begin(), record.fields.end());
    });
    reader.feed(head);
    // The end of the chunk may have cut a record in two.
    if (isWhole)
        reader.finish();
    return records;
}

// From the first bytes of a file to the columns, and on to the last record.
class TableStream {
public:
    /// `head` is the beginning of the file; `isWhole` tells that it is all of it.
    TableStream(std::string head, const std::string& name, const ReadRequest& request, bool isWhole)
        : name(name) {
        checkEncoding(name, head);
        const std::size_t comments = dropComments(head);
        const Dialect dialect = guessDialect(head, isWhole);
        const auto records = firstRecords(head, isWhole, dialect.separator);
        builder.emplace(name, guessColumnTypes(records, dialect.decimalMark), dialect);
        if (request.yearsAreNumbers)
            builder->takeYearsAsNumbers();
        if (request.wordColumn)
            builder->keepWords(*request.wordColumn);
        reader.emplace(
            dialect.separator, [this](const Record& record) { builder->add(record); },
            1 + comments);
        reader->feed(head);
        rowsPerByte = static_cast<double>(builder->rows()) /
                      static_cast<double>(std::max<std::size_t>(head.size(), 1));
    }

    // A little more than expected, so that the last rows do not double the memory.
    void expect(std::int64_t bytes) {
        builder->reserve(static_cast<std::size_t>(rowsPerByte * static_cast<double>(bytes) * 1.02));
    }

    void feed(std::string_view bytes) { reader->feed(bytes); }
    std::size_t rows() const { return builder->rows(); }

    Table finish() {
        const std::size_t lastLine = reader->line();
        const std::size_t lastColumn = reader->completeFields() + 1;
        if (!reader->finish())
            fail(name, lastLine,
                 "column " + std::to_string(lastColumn) + ": the quote is never closed");
        if (builder->rows() == 0)
            fail(name, lastLine,
                 builder->hasHeader() ? "no rows follow the header" : "the file is empty");
        return builder->finish();
    }

private:
    std::string name;
    std::optional<TableBuilder> builder;
    std::optional<CsvReader> reader;
    double rowsPerByte = 0.0;
};

Table readAll(Input& input, const std::string& name, const ReadRequest& request,
              const ReadProgress& progress) {
    bool isWhole = false;
    TableStream stream(readHead(input, isWhole), name, request, isWhole);
    if (!isWhole)
        stream.expect(input.size());
    while (!isWhole) {
        const std::string_view piece = input.read();
        isWhole = piece.empty();
        stream.feed(piece);
        if (progress && !progress(input.bytes(), input.size(), stream.rows()))
            throw ReadingCancelled();
    }
    return stream.finish();
}

bool isNumber(std::string_view cell, const ColumnType& type, char decimalMark) {
    return type.kind == ColumnKind::Number && std::isfinite(parseCell(cell, type, decimalMark));
}

} // namespace

Table readTable(const std::string& path, const ReadRequest& request, const ReadProgress& progress) {
    Input input(path);
    return readAll(input, path, request, progress);
}

Table parseTable(const std::string& text, const std::string& name, const ReadRequest& request,
                 const ReadProgress& progress) {
    Input input(text, name);
    return readAll(input, name, request, progress);
}

bool looksLikeTable(std::string_view text) {
    const bool isWhole = text.size() <= static_cast<std::size_t>(chunkSize);
    std::string head(text.substr(0, static_cast<std::size_t>(chunkSize)));
    try {
        checkEncoding({}, head);
    } catch (const Failure&) {
        return false;
    }
    dropComments(head);
    const Dialect dialect = guessDialect(head, isWhole);
    const auto records = firstRecords(head, isWhole, dialect.separator);
    if (records.size() < 2)
        return false;
    const ColumnTypes types = guessColumnTypes(records, dialect.decimalMark);
    return std::ranges::any_of(records, [&](const std::vector<std::string>& record) {
        const std::size_t width = std::min(record.size(), types.types.size());
        for (std::size_t c = 0; c < width; ++c) {
            if (isNumber(record[c], types.types[c], dialect.decimalMark))
                return true;
        }
        return false;
    });
}

} // namespace viewer
