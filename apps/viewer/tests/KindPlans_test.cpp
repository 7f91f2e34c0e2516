// SPDX-License-Identifier: MIT
#include "Workspace.h"

#include "ChartPlan.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace viewer {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

struct Told {
    std::string x;
    std::vector<std::string> y;
    std::string by;
    std::string value;
    ChartPlan plan;
};

Told planOf(const std::string& text, const Options& options) {
    const Table table = tableOf(text, {options.by, options.kind == ChartKind::HeatMap});
    Told told;
    told.plan = planChart(table, options);
    if (told.plan.x)
        told.x = table.columns[*told.plan.x].name;
    for (const DrawnColumn& drawn : told.plan.y)
        told.y.push_back(table.columns[drawn.column].name);
    if (told.plan.grouping != Grouping::None)
        told.by = table.columns[told.plan.by].name;
    if (told.plan.value)
        told.value = table.columns[*told.plan.value].name;
    return told;
}

Options kind(ChartKind kind) {
    Options options;
    options.kind = kind;
    return options;
}

std::string refusal(const std::string& text, const Options& options) {
    return failureOf([&] { planOf(text, options); });
}

TEST(BarPlan, BarsStandAtNamesDatesOrNumbers) {
    const Options bars = kind(ChartKind::Bar);
    EXPECT_EQ(planOf("city,a,b\nBern,1,2\nZug,3,4\n", bars).x, "city");
    EXPECT_EQ(planOf("id,city,a\n1,Bern,2\n2,Zug,4\n", bars).x, "city");
    EXPECT_EQ(planOf("day,city,a\n2001-02-03,Bern,2\n2001-02-04,Zug,4\n", bars).x, "day");
    EXPECT_EQ(planOf("n,a\n1,2\n2,4\n", bars).x, "n");
    Options named = bars;
    named.x = "city";
    EXPECT_EQ(planOf("day,city,a\n2001-02-03,Bern,2\n2001-02-04,Zug,4\n", named).x, "city");
}

TEST(BarPlan, BarsOnEachOtherAreRefused) {
    const std::string text = "city,year,a\nBern,2001,2\nZug,2001,4\nBern,2002,3\nZug,2002,5\n";
    Options options = kind(ChartKind::Bar);
    options.x = "city";
    options.y = {"a"};
    EXPECT_EQ(refusal(text, options),
              "data.csv:2: --kind bar: column 1 (city) holds a value more than once; --by NAME "
              "draws one series for each value of a column");
    options.by = "year";
    const Told told = planOf(text, options);
    EXPECT_EQ(told.x, "city");
    EXPECT_EQ(told.by, "year");
    options.logX = true;
    EXPECT_EQ(refusal(text, options), "data.csv:2: --log-x: column 1 (city) holds words");
}

TEST(LinePlan, LinesThatAreAskedForAreLines) {
    const std::string zigzag = "x,y\n1,1\n9,2\n2,3\n8,4\n3,5\n7,6\n";
    EXPECT_EQ(planOf(zigzag, kind(ChartKind::Line)).plan.kind, ChartKind::Line);
    EXPECT_THAT(planOf(zigzag, kind(ChartKind::Line)).plan.notes, IsEmpty());
}

TEST(LinePlan, AFileOfPricesIsToldAboutCandles) {
    const std::string text = "date,Open,High,Low,Close\n2001-02-03,1,3,0,2\n2001-02-04,2,4,1,3\n";
    EXPECT_THAT(planOf(text, {}).plan.notes, Contains(HasSubstr("--kind candle")));
    EXPECT_THAT(planOf(text, kind(ChartKind::Line)).plan.notes, IsEmpty());
}

TEST(HistogramPlan, EveryColumnOfNumbersOfOneMagnitudeIsCounted) {
    const Told told =
        planOf("a,w,b,big,none\n1,x,2,5000000,\n2,y,3,6000000,\n", kind(ChartKind::Histogram));
    EXPECT_THAT(told.y, ElementsAre("a", "b"));
    EXPECT_EQ(told.x, "");
    EXPECT_THAT(
        told.plan.notes,
        ElementsAre("data.csv: column 4 (big) has another magnitude; left out, --y draws it",
                    "data.csv: column 5 (none) is empty; left out"));
}

TEST(HistogramPlan, NamedColumnsAndGroupsAreTaken) {
    Options options = kind(ChartKind::Histogram);
    options.y = {"b"};
    options.by = "w";
    const Told told = planOf("a,w,b\n1,x,2\n2,y,3\n3,x,4\n", options);
    EXPECT_THAT(told.y, ElementsAre("b"));
    EXPECT_EQ(told.by, "w");
    options.logX = true;
    EXPECT_EQ(refusal("a,w,b\n1,x,-2\n2,y,0\n", options),
              "data.csv:2: --log-x: column 3 (b) has no value above 0");
    EXPECT_EQ(refusal("w,v\nx,y\n", kind(ChartKind::Histogram)),
              "data.csv:1: no column of numbers");
}

TEST(BoxPlan, ABoxForEachColumnOrForEachName) {
    EXPECT_THAT(planOf("a,b\n1,2\n2,3\n", kind(ChartKind::Box)).y, ElementsAre("a", "b"));
    const Told told = planOf("w,a\nx,1\ny,2\nx,3\ny,4\n", kind(ChartKind::Box));
    EXPECT_EQ(told.by, "w");
    EXPECT_THAT(told.plan.notes, ElementsAre("data.csv: one box for each value of column 1 (w)"));
    EXPECT_EQ(planOf("w,a,b\nx,1,1\ny,2,1\nx,3,1\ny,4,1\n", kind(ChartKind::Box)).by, "");
}

TEST(HeatPlan, AMatrixIsTakenWhole) {
    const Told told = planOf("1990,2000\n2010,2020\n2030,2040\n", kind(ChartKind::HeatMap));
    EXPECT_THAT(told.y, ElementsAre("column 1", "column 2"));
    EXPECT_FALSE(told.plan.value);
}

TEST(HeatPlan, PositionsHaveAValueEach) {
    const std::string text = "x,y,dir,speed\n0,0,1,2\n1,0,3,4\n0,1,5,6\n1,1,7,8\n";
    Told told = planOf(text, kind(ChartKind::HeatMap));
    EXPECT_EQ(told.x, "x");
    EXPECT_THAT(told.y, ElementsAre("y"));
    EXPECT_EQ(told.value, "speed");
    Options options = kind(ChartKind::HeatMap);
    options.by = "dir";
    told = planOf(text, options);
    EXPECT_EQ(told.value, "dir");
    // Without a header three columns may be either.
    std::string grid;
    for (int i = 0; i < 9; ++i)
        grid +=
            std::to_string(i % 3) + "," + std::to_string(i / 3) + "," + std::to_string(i) + "\n";
    EXPECT_EQ(planOf(grid, kind(ChartKind::HeatMap)).value, "column 3");
    EXPECT_EQ(planOf("1,2,3\n4,5,6\n", kind(ChartKind::HeatMap)).value, "");
}

TEST(HeatPlan, OtherTablesAreRefused) {
    const Options heat = kind(ChartKind::HeatMap);
    EXPECT_THAT(refusal("a,b\n1,2\n2,3\n", heat),
                StartsWith("data.csv:1: --kind heat takes three columns of numbers"));
    EXPECT_THAT(
        refusal("x,y,v\n0,0,1\n1,1,2\n1.3,2,3\n", heat),
        StartsWith("data.csv:2: --kind heat: column 1 (x) and column 2 (y) are not evenly"));
    EXPECT_EQ(refusal("1,2\n3,oops\n4,5\n6,7\n", heat),
              "data.csv:2: column 2: \"oops\" is not a number");
    Options options = heat;
    options.y = {"y", "v"};
    EXPECT_THAT(refusal("x,y,v\n0,0,1\n1,0,2\n0,1,3\n", options), HasSubstr("and no other"));
}

TEST(CandlePlan, ColumnsAreFoundByNameInEitherCase) {
    const Told told = planOf("volume,CLOSE,Low,High,Open,date\n1,2,0,3,1,2001-02-03\n",
                             kind(ChartKind::Candlestick));
    EXPECT_EQ(told.x, "date");
    EXPECT_THAT(told.y, ElementsAre("Open", "High", "Low", "CLOSE"));
    EXPECT_EQ(planOf("day,open,high,low,close\n1,1,3,0,2\n", kind(ChartKind::Candlestick)).x,
              "day");
    EXPECT_EQ(planOf("open,high,low,close\n1,3,0,2\n", kind(ChartKind::Candlestick)).x, "");
}

TEST(CandlePlan, AMissingOrBadColumnIsNamed) {
    const Options candles = kind(ChartKind::Candlestick);
    EXPECT_EQ(refusal("date,open,high,low\n2001-02-03,1,3,0\n", candles),
              "data.csv:1: --kind candle: no column is called \"close\"; there are date, open, "
              "high, low");
    EXPECT_EQ(refusal("open,high,low,close\na,3,0,2\n", candles),
              "data.csv:2: --kind candle: column 1 (open) holds words, not numbers");
    EXPECT_EQ(refusal("open,high,low,close\n1,3,0,2\n1,3,?,2\n1,3,0,2\n", candles),
              "data.csv:3: column 3 (low): \"?\" is not a number");
}

TEST(HeatPlan, ChosenColumnsWithoutXAreAMatrix) {
    Options options = kind(ChartKind::HeatMap);
    options.guesses = false;
    options.y = {"c", "a"};
    Told told = planOf("a,b,c\n1,2,3\n4,oops,6\n7,8,9\n", options);
    EXPECT_THAT(told.y, ElementsAre("c", "a"));
    EXPECT_EQ(told.x, "");
    EXPECT_EQ(told.value, "");
    options.by = "b";
    EXPECT_THAT(refusal("a,b,c\n1,2,3\n4,5,6\n", options),
                HasSubstr("--by has no meaning without --x"));
}

TEST(CandlePlan, ChosenCandlesCountRowsWithoutX) {
    Options options = kind(ChartKind::Candlestick);
    const std::string text = "date,open,high,low,close\n2000-01-01,1,3,0,2\n2000-01-02,2,4,1,3\n";
    EXPECT_EQ(planOf(text, options).x, "date");
    options.guesses = false;
    const Told told = planOf(text, options);
    EXPECT_EQ(told.x, "");
    EXPECT_THAT(told.plan.notes, IsEmpty());
}

} // namespace
} // namespace viewer
