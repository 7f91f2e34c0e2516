// SPDX-License-Identifier: MIT
#include "ChartPlan.h"

#include "Workspace.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace viewer {
namespace {

using testing::AnyOf;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

// A plan for a text, told by column names.
struct Told {
    std::string x;
    std::vector<std::string> y;
    std::vector<std::string> right;
    std::string by;
    ChartPlan plan;
};

Told planOf(const std::string& text, const Options& options = {}) {
    const Table table = tableOf(text, {options.by, options.kind == ChartKind::HeatMap});
    Told told;
    told.plan = planChart(table, options);
    if (told.plan.x)
        told.x = table.columns[*told.plan.x].name;
    for (const DrawnColumn& drawn : told.plan.y)
        (drawn.onRightAxis ? told.right : told.y).push_back(table.columns[drawn.column].name);
    if (told.plan.grouping != Grouping::None)
        told.by = table.columns[told.plan.by].name;
    return told;
}

std::string refusal(const std::string& text, const Options& options = {}) {
    return failureOf([&] { planOf(text, options); });
}

std::string longForm() {
    std::string text = "symbol,date,price\n";
    for (const char* const symbol : {"AA", "BB", "CC"}) {
        for (int month = 1; month <= 9; ++month)
            text += std::string(symbol) + ",2000-0" + std::to_string(month) + "-01," +
                    std::to_string(month * 10) + "\n";
    }
    return text;
}

std::string grid() {
    std::string text = "lon,lat,speed\n";
    for (int row = 0; row < 8; ++row) {
        for (int column = 0; column < 10; ++column)
            text += std::to_string(column) + "," + std::to_string(row) + "," +
                    std::to_string(row * column) + ".5\n";
    }
    return text;
}

TEST(ChartPlan, TheFirstColumnGivesXAndTheOthersAreLines) {
    const Told told = planOf("t,a,b\n1,2,3\n2,3,4\n");
    EXPECT_EQ(told.x, "t");
    EXPECT_THAT(told.y, ElementsAre("a", "b"));
    EXPECT_EQ(told.plan.kind, ChartKind::Line);
    EXPECT_THAT(told.plan.notes, IsEmpty());
}

TEST(ChartPlan, WordColumnsAreLeftOutAndSaidSo) {
    const Told told = planOf("t,a,w\n1,2,sun\n2,3,rain\n");
    EXPECT_THAT(told.y, ElementsAre("a"));
    EXPECT_THAT(told.plan.notes, ElementsAre("data.csv: column 3 (w) holds words; left out"));
}

TEST(ChartPlan, ASingleColumnOfNumbersIsDrawnOverItsRows) {
    const Told told = planOf("a\n5\n6\n7\n");
    EXPECT_EQ(told.x, "");
    EXPECT_THAT(told.y, ElementsAre("a"));
    EXPECT_THAT(told.plan.notes, Contains(HasSubstr("the rows are numbered")));
}

TEST(ChartPlan, ANamelessRowNumberGivesWayToDates) {
    const Told told = planOf(",date,v\n0,2000-01-01,5\n1,2000-01-02,6\n2,2000-01-03,7\n");
    EXPECT_EQ(told.x, "date");
    EXPECT_THAT(told.y, ElementsAre("v"));
}

TEST(ChartPlan, EmptyColumnsAreLeftOut) {
    const Told told = planOf("t,a,b\n1,2,\n2,3,\n");
    EXPECT_THAT(told.y, ElementsAre("a"));
    EXPECT_THAT(told.plan.notes, ElementsAre("data.csv: column 3 (b) is empty; left out"));
}

TEST(ChartPlan, NamedColumnsAreTaken) {
    Options options;
    options.x = "b";
    options.y = {"a", "t"};
    const Told told = planOf("t,a,b\n1,2,3\n2,3,4\n", options);
    EXPECT_EQ(told.x, "b");
    EXPECT_THAT(told.y, ElementsAre("a", "t"));
}

TEST(ChartPlan, ColumnsCanBeNamedByTheirPlace) {
    Options options;
    options.y = {"3"};
    EXPECT_THAT(planOf("1,2,3\n2,3,4\n", options).y, ElementsAre("column 3"));
}

TEST(ChartPlan, LongFormGivesOneSeriesForEachWord) {
    const Told told = planOf(longForm());
    EXPECT_EQ(told.x, "date");
    EXPECT_THAT(told.y, ElementsAre("price"));
    EXPECT_EQ(told.by, "symbol");
    EXPECT_EQ(told.plan.kind, ChartKind::Line);
    EXPECT_THAT(told.plan.notes,
                ElementsAre("data.csv: one series for each value of column 1 (symbol)"));
}

TEST(ChartPlan, WordsBesideUniqueDatesAreNoLongForm) {
    std::string text = "date,v,weather\n";
    for (int day = 1; day <= 9; ++day)
        text += "2000-01-0" + std::to_string(day) + ",1," + (day % 2 == 0 ? "sun" : "rain") + "\n";
    EXPECT_EQ(planOf(text).plan.grouping, Grouping::None);
}

TEST(ChartPlan, ByTakesWordsDatesAndNumbers) {
    Options options;
    options.by = "symbol";
    EXPECT_EQ(planOf(longForm(), options).plan.grouping, Grouping::Values);
    const std::string text = "day,x,y,n\n2000-01-01,1,2,1\n2000-01-01,2,3,2\n2000-01-02,1,4,1\n";
    options.by = "day";
    EXPECT_EQ(planOf(text, options).x, "x");
    EXPECT_EQ(planOf(text, options).plan.grouping, Grouping::Values);
    options.by = "n";
    EXPECT_EQ(planOf(text, options).plan.grouping, Grouping::Values);
    EXPECT_THAT(planOf(text, options).y, ElementsAre("x", "y"));
}

TEST(ChartPlan, AGridOfPositionsIsAMap) {
    const Told told = planOf(grid());
    EXPECT_EQ(told.x, "lon");
    EXPECT_THAT(told.y, ElementsAre("lat"));
    EXPECT_EQ(told.by, "speed");
    EXPECT_EQ(told.plan.grouping, Grouping::Classes);
    EXPECT_EQ(told.plan.kind, ChartKind::Scatter);
}

TEST(ChartPlan, XInNoOrderGivesMarkers) {
    EXPECT_EQ(planOf("x,y\n1,1\n9,2\n2,3\n8,4\n3,5\n7,6\n").plan.kind, ChartKind::Scatter);
    EXPECT_EQ(planOf("x,y\n9,1\n8,2\n7,3\n6,4\n5,5\n4,6\n").plan.kind, ChartKind::Line);
    // Dates are put into order instead.
    EXPECT_EQ(planOf("x,y\n2000-01-01,1\n2000-01-09,2\n2000-01-02,3\n2000-01-08,4\n"
                     "2000-01-03,5\n")
                  .plan.kind,
              ChartKind::Line);
}

TEST(ChartPlan, VeryDifferentMagnitudesGetAnAxisEach) {
    const Told told =
        planOf("t,open,close,volume\n1,1400,1500,931800000\n2,1410,1490,1009000000\n");
    EXPECT_THAT(told.y, ElementsAre("open", "close"));
    EXPECT_THAT(told.right, ElementsAre("volume"));
}

TEST(ChartPlan, TheFirstColumnStaysOnTheLeft) {
    const Told told = planOf("t,volume,open\n1,931800000,1400\n2,1009000000,1410\n");
    EXPECT_THAT(told.y, ElementsAre("volume"));
    EXPECT_THAT(told.right, ElementsAre("open"));
}

TEST(ChartPlan, TwoOrdersOrLessShareAnAxisAndSoDoLogarithms) {
    EXPECT_THAT(planOf("t,a,b\n1,1,100\n2,1,99\n").right, IsEmpty());
    EXPECT_THAT(planOf("t,a,b,c\n1,1,50,2500\n2,1,50,2500\n").right, IsEmpty());
    EXPECT_THAT(planOf("t,a,b\n1,0,100\n2,0,99\n").right, IsEmpty());
    EXPECT_THAT(planOf("t,a,b\n1,1,101\n2,1,99\n").right, ElementsAre("b"));
    Options options;
    options.logY = true;
    EXPECT_THAT(planOf("t,a,b\n1,1,1e9\n2,1,1e9\n", options).right, IsEmpty());
}

TEST(ChartPlan, RefusalsNameFileLineAndColumn) {
    const std::string text = "t,a,w\n1,2,sun\n2,3,rain\n";
    const auto with = [](auto change) {
        Options options;
        change(options);
        return options;
    };
    EXPECT_EQ(refusal(text, with([](Options& o) { o.x = "q"; })),
              "data.csv:1: --x: no column is called \"q\"; there are t, a, w");
    EXPECT_EQ(refusal(text, with([](Options& o) {
                          o.y = {"a", "4"};
                      })),
              "data.csv:1: --y: no column is called \"4\"; there are t, a, w");
    EXPECT_EQ(refusal(text, with([](Options& o) { o.y = {"w"}; })),
              "data.csv:2: --y: column 3 (w) holds words, not numbers");
    EXPECT_EQ(refusal(text, with([](Options& o) { o.x = "w"; })),
              "data.csv:2: --x: column 3 (w) holds words, not numbers or dates");
    EXPECT_EQ(refusal("d,a\n2000-01-01,1\n", with([](Options& o) { o.y = {"d"}; })),
              "data.csv:2: --y: column 1 (d) holds dates, not numbers");
    EXPECT_EQ(refusal("d,a\n2000-01-01,1\n", with([](Options& o) { o.logX = true; })),
              "data.csv:2: --log-x: column 1 (d) holds dates");
    EXPECT_EQ(refusal("x,a\n1,-1\n2,0\n", with([](Options& o) { o.logY = true; })),
              "data.csv:2: --log-y: column 2 (a) has no value above 0");
    EXPECT_EQ(refusal("x,a\n1,2\n2,3\n3,oops\n"),
              "data.csv:4: column 2 (a): \"oops\" is not a number");
    EXPECT_EQ(refusal("d,a\n2000-01-01,2\n2000-01-02,3\n2000-02-30,3\n"),
              "data.csv:4: column 1 (d): \"2000-02-30\" is not a date like the others");
    EXPECT_EQ(refusal("a,b\nx,y\n"), "data.csv:1: no column of numbers");
    EXPECT_EQ(refusal("d,b\n2000-01-01,y\n"),
              "data.csv:1: no column of numbers besides column 1 (d)");
}

TEST(ChartPlan, StrayWordsInColumnsThatAreNotDrawnDoNotMatter) {
    Options options;
    options.y = {"b"};
    EXPECT_THAT(planOf("x,a,b\n1,2,3\n2,3,4\n3,oops,5\n", options).y, ElementsAre("b"));
}

TEST(ChartPlan, NothingIsGuessedWhereEverythingIsChosen) {
    Options options;
    options.guesses = false;
    options.kind = ChartKind::Line;
    options.y = {"price"};
    Told told = planOf(longForm(), options);
    EXPECT_EQ(told.x, "");
    EXPECT_EQ(told.by, "");
    EXPECT_THAT(told.plan.notes, IsEmpty());
    options.x = "date";
    told = planOf(longForm(), options);
    EXPECT_EQ(told.x, "date");
    EXPECT_EQ(told.by, "");
    options.kind = ChartKind::Bar;
    options.x.reset();
    EXPECT_EQ(planOf("name,price\na,1\nb,2\n", options).x, "");
}

} // namespace
} // namespace viewer
