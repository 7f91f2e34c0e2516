// SPDX-License-Identifier: MIT
#include "CsvReader.h"

#include <gtest/gtest.h>

namespace viewer {
namespace {

// The records of a text, as "line: field|field".
struct Reading {
    std::vector<std::string> records;
    bool complete = false;
};

Reading readInPieces(std::string_view text, std::size_t pieceSize, char separator = ',') {
    Reading reading;
    CsvReader reader(separator, [&reading](const Record& record) {
        std::string line = std::to_string(record.line) + ":";
        char gap = ' ';
        for (const std::string_view field : record.fields) {
            line.append(1, gap).append(field);
            gap = '|';
        }
        reading.records.push_back(line);
    });
    for (std::size_t i = 0; i < text.size(); i += pieceSize)
        reader.feed(text.substr(i, pieceSize));
    reading.complete = reader.finish();
    return reading;
}

using Records = std::vector<std::string>;

TEST(CsvReader, SplitsRecordsAndFields) {
    EXPECT_EQ(readInPieces("a,b\n1,2\n", 100).records, (Records{"1: a|b", "2: 1|2"}));
}

TEST(CsvReader, TheLastLineNeedsNoEnd) {
    EXPECT_EQ(readInPieces("a,b\n1,2", 100).records, (Records{"1: a|b", "2: 1|2"}));
}

TEST(CsvReader, PiecesOfAnySizeGiveTheSameRecords) {
    const std::string text = "a,\"b,\"\"c\nd\"\r\n1,2\r\n\r\n\"x\",\r\n";
    const Records expected = {"1: a|b,\"c\nd", "3: 1|2", "5: x|"};
    for (std::size_t size = 1; size <= text.size(); ++size)
        EXPECT_EQ(readInPieces(text, size).records, expected) << size;
}

TEST(CsvReader, LinesWithAndWithoutQuotesMayTakeTurns) {
    const std::string text = "a, b\n\n  \n1,2 \r\n\"x\ny\",3\n4,5\r6,7\n\t8,\n\"\",\n9, 1 0";
    const Records expected = {"1: a|b", "4: 1|2", "5: x\ny|3", "7: 4|5",
                              "8: 6|7", "9: 8|",  "10: |",     "11: 9|1 0"};
    for (std::size_t size = 1; size <= text.size(); ++size)
        EXPECT_EQ(readInPieces(text, size).records, expected) << size;
}

TEST(CsvReader, QuotedFieldsHoldSeparatorsQuotesAndLineEnds) {
    EXPECT_EQ(readInPieces("\"a,b\",\"say \"\"hi\"\"\",\"two\nlines\"\n7\n", 100).records,
              (Records{"1: a,b|say \"hi\"|two\nlines", "3: 7"}));
}

TEST(CsvReader, LinesAreCountedWhateverEndsThem) {
    const Records expected = {"1: a|b", "3: 1|2"};
    EXPECT_EQ(readInPieces("a,b\n\n1,2\n", 100).records, expected);
    EXPECT_EQ(readInPieces("a,b\r\n\r\n1,2\r\n", 100).records, expected);
    EXPECT_EQ(readInPieces("a,b\r\r1,2\r", 100).records, expected);
}

TEST(CsvReader, EmptyFieldsAreFields) {
    EXPECT_EQ(readInPieces(",1,\n,,\n", 100).records, (Records{"1: |1|", "2: ||"}));
}

TEST(CsvReader, WhiteSpaceAroundPlainFieldsIsLeftOut) {
    EXPECT_EQ(readInPieces(" a , b\n", 100).records, (Records{"1: a|b"}));
}

TEST(CsvReader, TabsSeparateEmptyFieldsToo) {
    EXPECT_EQ(readInPieces("a\t\tb\n", 100, '\t').records, (Records{"1: a||b"}));
}

TEST(CsvReader, QuotesInsidePlainFieldsAreCharacters) {
    const Reading reading = readInPieces("5\" pipe,1\nb,2\n", 100);
    EXPECT_EQ(reading.records, (Records{"1: 5\" pipe|1", "2: b|2"}));
    EXPECT_TRUE(reading.complete);
}

TEST(CsvReader, AQuoteThatIsNeverClosedIsTold) {
    EXPECT_FALSE(readInPieces("a,b\n1,\"2\n3,4\n", 100).complete);
    EXPECT_TRUE(readInPieces("a,b\n1,\"2\"", 100).complete);
}

} // namespace
} // namespace viewer
