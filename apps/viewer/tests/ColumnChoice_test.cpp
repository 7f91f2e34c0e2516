// SPDX-License-Identifier: MIT
#include "ColumnChoice.h"

#include "Workspace.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace viewer {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct Drawn {
    Table table;
    ChartPlan plan;
    ColumnChoice choice;
};

Drawn draw(const std::string& text, const Options& options) {
    Drawn drawn;
    drawn.table = tableOf(text, {options.by, options.kind == ChartKind::HeatMap});
    drawn.plan = planChart(drawn.table, options);
    drawn.choice = choiceOf(drawn.table, drawn.plan, options);
    return drawn;
}

std::string show(const Drawn& drawn) {
    const auto name = [](std::size_t column) { return std::to_string(column + 1); };
    const ChartPlan& plan = drawn.plan;
    std::string text = chartKindName(plan.kind);
    text += plan.x ? " x " + name(*plan.x) : " rows";
    for (const DrawnColumn& column : plan.y)
        text += (column.onRightAxis ? " right " : " y ") + name(column.column);
    if (plan.grouping != Grouping::None)
        text += (plan.grouping == Grouping::Values ? " by " : " classes of ") + name(plan.by);
    return text + (plan.value ? " value " + name(*plan.value) : std::string());
}

TEST(ColumnChoice, DrawsTheSameChartAgain) {
    std::string longForm = "date,symbol,price\n";
    std::string grid = "lon,lat,speed\n";
    for (int i = 0; i < 8; ++i) {
        const std::string number = std::to_string(i + 1);
        for (const char* const symbol : {"AA", "BB"})
            longForm += "2000-0" + number + "-01," + symbol + "," + number + "0\n";
        for (int column = 0; column < 9; ++column)
            grid += std::to_string(column) + "," + number + "," + number + ".5\n";
    }
    Options byDate;
    byDate.by = "d";
    byDate.kind = ChartKind::Box;
    Options scaled;
    scaled.logX = true;
    scaled.logY = true;
    Options heat;
    heat.kind = ChartKind::HeatMap;
    Options candles;
    candles.kind = ChartKind::Candlestick;
    Options histogram;
    histogram.kind = ChartKind::Histogram;
    const std::vector<std::tuple<std::string, Options, std::string>> cases = {
        {"t,a,b\n1,2,3\n2,3,4\n", {}, "line x 1 y 2 y 3"},
        {"a\n1\n2\n", {}, "line rows y 1"},
        {"t,a,b\n1,2,3000\n2,3,4000\n", {}, "line x 1 y 2 right 3"},
        {"t,a\n3,1\n1,2\n4,3\n1,2\n", {}, "scatter x 1 y 2"},
        {"t,a\n1,2\n2,3\n", scaled, "line x 1 y 2"},
        {longForm, {}, "line x 1 y 3 by 2"},
        {grid, {}, "scatter x 1 y 2 by 3"},
        {"d,v\n2000-01-01,1\n2000-01-02,2\n", byDate, "box rows y 2 by 1"},
        {"1990,2000\n2010,2020\n2030,2040\n", heat, "heat rows y 1 y 2"},
        {grid, heat, "heat x 1 y 2 value 3"},
        {"open,high,low,close\n1,3,0,2\n2,4,1,3\n", candles, "candle rows y 1 y 2 y 3 y 4"},
        {"a,b\n1,2\n2,3\n", histogram, "hist rows y 1 y 2"},
    };
    for (const auto& [text, options, told] : cases) {
        const Drawn first = draw(text, options);
        EXPECT_EQ(show(first), told);
        const Drawn again = draw(text, first.choice.options);
        EXPECT_EQ(show(again), told);
        EXPECT_THAT(again.plan.notes, IsEmpty()) << told;
        EXPECT_EQ(again.choice.options.logX, options.logX);
        EXPECT_EQ(again.choice.options.logY, options.logY);
    }
}

TEST(ColumnChoice, NamesThatColumnsShareAreToldApartByPlace) {
    // The second "a" is at place 2, which is the name of another column, as is 02.
    const std::string text = "a,a,2,02\n1,10,100,1000\n2,20,200,2000\n";
    const Drawn drawn = draw(text, {});
    std::vector<std::string> references;
    for (const ChoosableColumn& column : drawn.choice.columns)
        references.push_back(column.reference);
    EXPECT_THAT(references, ElementsAre("a", "002", "2", "02"));
    Options second = drawn.choice.options;
    second.y = {"002"};
    EXPECT_EQ(show(draw(text, second)), "line x 1 y 2");
}

TEST(ColumnChoice, CellsAreWhatTheyLookLikeHoweverTheyWereRead) {
    Options options;
    options.by = "d";
    const Drawn words = draw("t,d,v\n1,2000-01-01,2\n2,2000-01-02,3\n", options);
    EXPECT_EQ(words.table.columns[1].type.kind, ColumnKind::Word);
    EXPECT_EQ(words.choice.columns[1].cells.kind, ColumnKind::Time);
    Options heat;
    heat.kind = ChartKind::HeatMap;
    const Drawn years = draw("year,y,v\n2000,0,1\n2001,0,2\n2000,1,1\n2001,1,2\n", heat);
    EXPECT_EQ(years.table.columns[0].type.kind, ColumnKind::Number);
    EXPECT_EQ(years.choice.columns[0].cells.kind, ColumnKind::Time);
}

TEST(ColumnChoice, AColumnFitsWhereItsCellsDo) {
    const ChoosableColumn number{"n", "n", {ColumnKind::Number}};
    const ChoosableColumn date{"d", "d", {ColumnKind::Time, DateOrder::YearMonthDay}};
    const ChoosableColumn year{"y", "y", {ColumnKind::Time, DateOrder::Year}};
    const ChoosableColumn word{"w", "w", {ColumnKind::Word}};
    for (const ChartKind kind : {ChartKind::Line, ChartKind::Bar, ChartKind::HeatMap}) {
        EXPECT_TRUE(fitsX(number, kind) && fitsY(number, kind) && fitsBy(number, kind));
        EXPECT_FALSE(fitsY(word, kind) || fitsY(date, kind));
        const bool heat = kind == ChartKind::HeatMap;
        EXPECT_EQ(fitsY(year, kind), heat);
        EXPECT_EQ(fitsX(date, kind), !heat);
        EXPECT_EQ(fitsX(word, kind), kind == ChartKind::Bar);
        EXPECT_EQ(fitsBy(word, kind), !heat);
    }
}

} // namespace
} // namespace viewer
