// SPDX-License-Identifier: MIT
#include "LiveTable.h"

#include "Failure.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

namespace viewer {
namespace {

using testing::HasSubstr;

const zembra::Samples& samplesOf(const LiveTable& table, std::size_t series) {
    return dynamic_cast<const zembra::LineSeries&>(*table.plot()->series()[series]).samples();
}

TEST(LiveTable, PiecesOfAnySizeBecomeTheSameRows) {
    const std::string text = "t;a;w;b\n1;2,5;x;\"3\"\n2;4;y;5\n3;;z;7\n4;oops\n";
    for (std::size_t size = 1; size <= text.size(); ++size) {
        LiveTable table("data.csv", {});
        for (std::size_t i = 0; i < text.size(); i += size)
            table.feed(std::string_view(text).substr(i, size));
        ASSERT_TRUE(table.plot());
        EXPECT_EQ(table.rows(), 4U);
        ASSERT_EQ(table.plot()->series().size(), 2U);
        const zembra::Samples& a = samplesOf(table, 0);
        ASSERT_EQ(a.size(), 4U) << size;
        EXPECT_EQ(a.x(3), 4.0);
        EXPECT_EQ(a.y(0), 2.5);
        EXPECT_TRUE(std::isnan(a.y(2)));
        EXPECT_TRUE(std::isnan(a.y(3)));
        EXPECT_EQ(samplesOf(table, 1).y(2), 7.0);
        EXPECT_TRUE(std::isnan(samplesOf(table, 1).y(3)));
    }
}

TEST(LiveTable, TheChartBeginsWithTheFirstRow) {
    LiveTable table("data.csv", {});
    EXPECT_FALSE(table.feed("# a comment\nt,a\n1,"));
    EXPECT_FALSE(table.plot());
    EXPECT_TRUE(table.feed("2\n3,4"));
    ASSERT_TRUE(table.plot());
    EXPECT_EQ(table.rows(), 1U);
    EXPECT_FALSE(table.feed("5"));
    EXPECT_TRUE(table.feed("\n"));
    EXPECT_EQ(samplesOf(table, 0).y(1), 45.0);
}

TEST(LiveTable, OnlyTheNewestRowsAreKept) {
    Options options;
    options.last = 3;
    LiveTable table("data.csv", options);
    table.feed("a\n");
    for (int i = 1; i <= 10; ++i)
        table.feed(std::to_string(i * 10) + "\n");
    EXPECT_EQ(table.rows(), 10U);
    ASSERT_EQ(samplesOf(table, 0).size(), 3U);
    EXPECT_EQ(samplesOf(table, 0).x(0), 8.0);
    EXPECT_EQ(samplesOf(table, 0).y(2), 100.0);
}

TEST(LiveTable, ARestartReadsTheHeaderAgain) {
    LiveTable table("data.csv", {});
    table.feed("t,a\n1,2\n2,3\n3,");
    table.restart();
    table.feed("# new\nt,a\n7,8\n");
    ASSERT_EQ(samplesOf(table, 0).size(), 1U);
    EXPECT_EQ(samplesOf(table, 0).x(0), 7.0);
    EXPECT_EQ(table.rows(), 1U);
}

TEST(LiveTable, RepeatedTimesAndGridsAreNotGuessedAt) {
    LiveTable table("data.csv", {});
    table.feed("name,time,v\na,2001-01-01,1\nb,2001-01-01,2\na,2001-01-02,1\nb,2001-01-02,2\n");
    EXPECT_EQ(table.plot()->series().size(), 1U);
}

TEST(LiveTable, AColumnThatIsNotThereIsTold) {
    Options options;
    options.y = {"q"};
    LiveTable table("data.csv", options);
    try {
        table.feed("t,a\n1,2\n");
        FAIL() << "there is no q";
    } catch (const Failure& failure) {
        EXPECT_THAT(failure.what(), HasSubstr("data.csv:1: --y: no column is called \"q\""));
    }
}

} // namespace
} // namespace viewer
