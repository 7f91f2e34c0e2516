// SPDX-License-Identifier: MIT
#include "TableReader.h"

#include "Workspace.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

namespace viewer {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsNan;
using testing::StartsWith;

TEST(TableReader, ReadsNumbersDatesAndWords) {
    const Table table = tableOf("date,v,w\n2000-01-01,1.5,sun\n2000-01-02,-2,rain\n");
    EXPECT_EQ(table.rows, 2U);
    ASSERT_EQ(table.columns.size(), 3U);
    EXPECT_EQ(table.columns[0].type.kind, ColumnKind::Time);
    EXPECT_THAT(table.columns[0].values, ElementsAre(946684800.0, 946771200.0));
    EXPECT_THAT(table.columns[1].values, ElementsAre(1.5, -2.0));
    EXPECT_THAT(table.columns[2].words, ElementsAre("sun", "rain"));
    EXPECT_THAT(table.columns[2].codes, ElementsAre(0U, 1U));
}

TEST(TableReader, AByteOrderMarkIsNoPartOfTheFirstName) {
    EXPECT_EQ(tableOf("\xEF\xBB\xBFx,y\n1,2\n").columns[0].name, "x");
}

TEST(TableReader, CarriageReturnsAreNoPartOfTheCells) {
    const Table table = tableOf("x,y\r\n1,2\r\n3,4\r\n");
    EXPECT_EQ(table.columns[1].name, "y");
    EXPECT_THAT(table.columns[1].values, ElementsAre(2.0, 4.0));
}

TEST(TableReader, EmptyAndAbsentCellsAreGaps) {
    const Table table = tableOf("x,y,z\n1,,3\n2,NA\n3,5,6\n");
    EXPECT_THAT(table.columns[1].values, ElementsAre(IsNan(), IsNan(), 5.0));
    EXPECT_THAT(table.columns[2].values, ElementsAre(3.0, IsNan(), 6.0));
    EXPECT_FALSE(table.columns[1].firstBadCell);
}

TEST(TableReader, WithoutAHeaderTheFirstLineIsData) {
    const Table table = tableOf("1;2,5\n2;3,5\n");
    EXPECT_FALSE(table.hasHeader);
    EXPECT_THAT(table.columns[1].values, ElementsAre(2.5, 3.5));
}

TEST(TableReader, AStrayWordKeepsItsLine) {
    const Table table = tableOf("x,y\n1,\"2\"\n2,abc\n3,4\n4,def\n5,6\n");
    EXPECT_EQ(table.columns[1].badCells, 2U);
    ASSERT_TRUE(table.columns[1].firstBadCell);
    EXPECT_EQ(table.columns[1].firstBadCell->line, 3U);
    EXPECT_EQ(table.columns[1].firstBadCell->text, "abc");
    EXPECT_THAT(table.columns[1].values, ElementsAre(2.0, IsNan(), 4.0, IsNan(), 6.0));
}

TEST(TableReader, ColumnsThatTurnIntoWordsAfterTheFirstChunkAreWords) {
    std::string text = "x,id\n";
    for (int i = 0; i < 40000; ++i)
        text += std::to_string(i) + (i < 15000 ? ",12345\n" : ",A12345\n");
    const Table table = tableOf(text);
    EXPECT_EQ(table.rows, 40000U);
    EXPECT_EQ(table.columns[1].type.kind, ColumnKind::Word);
    EXPECT_TRUE(table.columns[1].values.empty());
    ASSERT_TRUE(table.columns[1].firstBadCell);
    EXPECT_EQ(table.columns[1].firstBadCell->line, 15002U);
}

TEST(TableReader, LargeFilesKeepEveryRowAcrossChunks) {
    std::string text = "x;y\n";
    for (int i = 0; i < 200000; ++i)
        text += std::to_string(i) + ";" + std::to_string(i) + ",5\n";
    const Table table = tableOf(text);
    ASSERT_EQ(table.rows, 200000U);
    for (std::size_t i = 0; i < table.rows; ++i) {
        ASSERT_EQ(table.columns[0].values[i], static_cast<double>(i));
        ASSERT_EQ(table.columns[1].values[i], static_cast<double>(i) + 0.5);
    }
}

TEST(TableReader, ProgressReachesTheSizeOfTheFile) {
    const Workspace workspace;
    std::string text = "x,y\n";
    for (int i = 0; i < 100000; ++i)
        text += "1,2\n";
    std::int64_t last = 0;
    std::int64_t all = 0;
    readTable(workspace.write("data.csv", text), {},
              [&](std::int64_t bytes, std::int64_t size, std::size_t) {
                  EXPECT_GE(bytes, last);
                  last = bytes;
                  all = size;
                  return true;
              });
    EXPECT_EQ(last, static_cast<std::int64_t>(text.size()));
    EXPECT_EQ(all, last);
}

TEST(TableReader, TooManyDifferentWordsAreNotKept) {
    std::string text = "x,w\n";
    for (int i = 0; i < 10001; ++i)
        text += "1,w" + std::to_string(i) + "\n";
    const Table table = tableOf(text);
    EXPECT_TRUE(table.columns[1].tooManyWords);
    EXPECT_TRUE(table.columns[1].codes.empty());
}

TEST(TableReader, ANamedColumnOfDatesIsKeptAsWords) {
    const Table table = tableOf("d,v\n2000-01-01,1\n2000-01-02,2\n", {"d"});
    EXPECT_EQ(table.columns[0].type.kind, ColumnKind::Word);
    EXPECT_THAT(table.columns[0].words, ElementsAre("2000-01-01", "2000-01-02"));
}

TEST(TableReader, NamesThatAreNoUtf8AreLatin1) {
    EXPECT_EQ(tableOf("x,caf\xE9\n1,2\n").columns[1].name, "café");
    EXPECT_EQ(tableOf("x,café\n1,2\n").columns[1].name, "café");
}

TEST(TableReader, BadFilesAreNamedWithTheirLine) {
    using namespace std::string_view_literals;
    const std::vector<std::pair<std::string_view, std::string>> cases = {
        {"", "data.csv:1: the file is empty"},
        {"\n\n", "data.csv:3: the file is empty"},
        {"x,y\n", "data.csv:2: no rows follow the header"},
        {"x,y\n1,2\n1,2,7\n", "data.csv:3: column 3 (\"7\") is one too many, the header names 2"},
        {"x,y\n1,\"2\n3,4\n", "data.csv:2: column 2: the quote is never closed"},
        {"x,y\n1,2\n\0\0\0\n"sv, "data.csv:3: this is not a text file"},
        {"\xFF\xFEx\0,\0y\0"sv, "data.csv:1: the text is UTF-16; save it as UTF-8"},
    };
    for (const auto& [text, message] : cases)
        EXPECT_EQ(failureOf([&text = text] { tableOf(text); }), message);
}

TEST(TableReader, LinesOfCommentAtTheBeginningAreLeftOutButCounted) {
    const std::string text = "# made by a logger\n#\nx,y\n1,2\n2,3\n3,oops\n";
    const Table table = tableOf(text);
    EXPECT_EQ(table.columns[0].name, "x");
    ASSERT_TRUE(table.columns[1].firstBadCell);
    EXPECT_EQ(table.columns[1].firstBadCell->line, 6U);
}

TEST(TableReader, ReadingCanBeGivenUp) {
    const Workspace workspace;
    std::string text = "x,y\n";
    for (int i = 0; i < 200000; ++i)
        text += "1,2\n";
    const std::string path = workspace.write("data.csv", text);
    int calls = 0;
    const auto giveUp = [&calls](std::int64_t, std::int64_t, std::size_t) {
        ++calls;
        return false;
    };
    EXPECT_THROW(readTable(path, {}, giveUp), ReadingCancelled);
    EXPECT_EQ(calls, 1);
}

TEST(TableReader, SuperfluousSeparatorsAtTheEndAreFine) {
    EXPECT_EQ(tableOf("x,y\n1,2,\n3,4,,\n").rows, 2U);
}

TEST(TableReader, ATextIsReadAsAFileOfItWouldBe) {
    std::string text = "t;v;w\n";
    for (int i = 0; i < 60000; ++i)
        text += std::to_string(i) + ";1,5;\"a;b\"\n";
    std::int64_t last = 0;
    const Table read =
        parseTable(text, "clipboard", {}, [&](std::int64_t bytes, std::int64_t size, std::size_t) {
            EXPECT_EQ(size, static_cast<std::int64_t>(text.size()));
            last = bytes;
            return true;
        });
    const Table same = tableOf(text);
    EXPECT_EQ(last, static_cast<std::int64_t>(text.size()));
    EXPECT_EQ(read.file, "clipboard");
    EXPECT_EQ(read.rows, 60000U);
    EXPECT_TRUE(read.dialect == same.dialect);
    for (std::size_t c = 0; c < 3; ++c) {
        EXPECT_EQ(read.columns[c].values, same.columns[c].values);
        EXPECT_EQ(read.columns[c].codes, same.columns[c].codes);
    }
    EXPECT_EQ(failureOf([] { parseTable("x,y\n1,2\n1,2,7\n", "data.csv", {}); }),
              "data.csv:3: column 3 (\"7\") is one too many, the header names 2");
    EXPECT_THROW(parseTable(text, "clipboard", {},
                            [](std::int64_t, std::int64_t, std::size_t) { return false; }),
                 ReadingCancelled);
}

TEST(TableReader, ATableIsKnownByItsBeginning) {
    using namespace std::string_view_literals;
    for (const std::string_view text :
         {"t\ta\n1\t2\n"sv, "1,2\n3,4"sv, "1\n2\n"sv, "name;v\nx;1,5\n"sv, "# note\na,b\n1,2\n"sv,
          "\xEF\xBB\xBFx,y\r\n1,2\r\n"sv, "x,y\n1,2\n1,2,7\n"sv, "x,y\n1,2\n3,\"4\n5,6\n"sv})
        EXPECT_TRUE(looksLikeTable(text)) << text;
    for (const std::string_view text :
         {""sv, "\n \n"sv, "1,2"sv, "42\n"sv, "hello world"sv, "Dear all,\nno, not now,\nbye\n"sv,
          "a,b\nc,d\n"sv, ",,\n,,\n"sv, "# 1,2\n# 3,4\n"sv, "x,y\n1,2\n\0"sv,
          "https://example.org/two.csv\n"sv})
        EXPECT_FALSE(looksLikeTable(text)) << text;
}

TEST(TableReader, FilesThatCannotBeReadSayWhy) {
    const Workspace workspace;
    const auto read = [](const std::string& path) {
        return failureOf([&] {
            readTable(path, {}, [](std::int64_t, std::int64_t, std::size_t) { return true; });
        });
    };
    EXPECT_THAT(read(workspace.path("data.csv")), StartsWith("data.csv: cannot be read: No such"));
    EXPECT_THAT(read(workspace.path("")), HasSubstr("cannot be read: "));
}

} // namespace
} // namespace viewer
