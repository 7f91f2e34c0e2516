// SPDX-License-Identifier: MIT
#include "ChartBuilder.h"

#include "Workspace.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <numeric>

namespace viewer {
namespace {

using testing::ElementsAre;

std::shared_ptr<zembra::Plot> chartOf(const std::string& text, const Options& options = {}) {
    const auto table = std::make_shared<const Table>(
        tableOf(text, {options.by, options.kind == ChartKind::HeatMap}));
    return buildChart(table, planChart(*table, options), options);
}

std::vector<std::string> namesOf(const zembra::Plot& plot) {
    std::vector<std::string> names;
    for (const auto& series : plot.series())
        names.push_back(series->name());
    return names;
}

zembra::Bounds boundsOf(const zembra::Plot& plot, std::size_t series) {
    return plot.series()[series]->bounds(plot.axis(2).scale(), plot.axis(0).scale());
}

template <class Kind>
bool isAll(const zembra::Plot& plot) {
    return std::ranges::all_of(plot.series(), [](const auto& series) {
        return std::dynamic_pointer_cast<Kind>(series) != nullptr;
    });
}

TEST(ChartBuilder, ColumnsBecomeNamedLines) {
    const auto plot = chartOf("t,a,b\n1,2,3\n2,8,4\n");
    EXPECT_THAT(namesOf(*plot), ElementsAre("a", "b"));
    EXPECT_TRUE(isAll<zembra::LineSeries>(*plot));
    EXPECT_EQ(plot->title(), "data");
    EXPECT_EQ(plot->axis(2).title(), "t");
    EXPECT_EQ(plot->axis(0).title(), "");
    EXPECT_EQ(boundsOf(*plot, 0).y.max, 8.0);
    EXPECT_EQ(boundsOf(*plot, 1).x.min, 1.0);
}

TEST(ChartBuilder, ASingleSeriesIsNamedByItsAxis) {
    const auto plot = chartOf("t,a\n1,2\n2,8\n");
    EXPECT_THAT(namesOf(*plot), ElementsAre(""));
    EXPECT_EQ(plot->axis(0).title(), "a");
}

TEST(ChartBuilder, DatesMakeATimeAxisWithoutATitle) {
    const auto plot = chartOf("date,a\n2000-01-01,2\n2000-01-02,8\n");
    EXPECT_EQ(plot->axis(2).title(), "");
    EXPECT_EQ(boundsOf(*plot, 0).x.min, 946684800.0);
}

TEST(ChartBuilder, OptionsReachTheChart) {
    Options options;
    options.title = "A title";
    options.kind = ChartKind::Scatter;
    options.logX = true;
    options.logY = true;
    const auto plot = chartOf("t,a\n1,2\n2,8\n", options);
    EXPECT_EQ(plot->title(), "A title");
    EXPECT_TRUE(isAll<zembra::ScatterSeries>(*plot));
    EXPECT_FALSE(plot->axis(2).scale().contains(-1.0));
    EXPECT_FALSE(plot->axis(0).scale().contains(-1.0));
}

TEST(ChartBuilder, TheSecondAxisIsTitledAndItsSeriesLieBehind) {
    const auto plot = chartOf("t,open,volume\n1,14,9318000\n2,15,10090000\n");
    EXPECT_TRUE(plot->axisEnabled(1));
    EXPECT_EQ(plot->axis(0).title(), "open");
    EXPECT_EQ(plot->axis(1).title(), "volume");
    EXPECT_THAT(namesOf(*plot), ElementsAre("volume", "open"));
    EXPECT_EQ(plot->series()[0]->yAxis(), 1);
    EXPECT_EQ(plot->series()[1]->yAxis(), 0);
}

TEST(ChartBuilder, GroupsBecomeSeriesWithTheirRows) {
    Options options;
    options.by = "w";
    const auto plot = chartOf("w,t,v\nA,1,5\nB,1,6\nA,2,7\nB,3,9\n,4,99\n", options);
    EXPECT_THAT(namesOf(*plot), ElementsAre("A", "B"));
    EXPECT_EQ(boundsOf(*plot, 0).x, (zembra::Interval{1.0, 2.0}));
    EXPECT_EQ(boundsOf(*plot, 0).y, (zembra::Interval{5.0, 7.0}));
    EXPECT_EQ(boundsOf(*plot, 1).y, (zembra::Interval{6.0, 9.0}));
}

TEST(ChartBuilder, GroupsOfNumbersAreNamedWithTheirColumn) {
    Options options;
    options.by = "n";
    const auto plot = chartOf("n,t,v\n2,1,5\n10,1,6\n2,2,7\n10,3,9\n", options);
    EXPECT_THAT(namesOf(*plot), ElementsAre("n 2", "n 10"));
}

TEST(ChartBuilder, ManyNumbersBecomeClasses) {
    Options options;
    options.by = "n";
    std::string text = "t,v,n\n";
    for (int i = 0; i <= 60; ++i)
        text += std::to_string(i) + ",1," + std::to_string(i) + "\n";
    const auto plot = chartOf(text, options);
    EXPECT_THAT(namesOf(*plot),
                ElementsAre("0 – 10", "10 – 20", "20 – 30", "30 – 40", "40 – 50", "50 – 60"));
    // The last class holds its upper border too.
    EXPECT_EQ(boundsOf(*plot, 5).x, (zembra::Interval{50.0, 60.0}));
    EXPECT_EQ(boundsOf(*plot, 0).x, (zembra::Interval{0.0, 9.0}));
    EXPECT_TRUE(isAll<zembra::ScatterSeries>(*plot));
}

TEST(ChartBuilder, WithoutXTheRowsAreNumberedFromOne) {
    const auto plot = chartOf("a\n5\n6\n7\n");
    EXPECT_EQ(boundsOf(*plot, 0).x, (zembra::Interval{1.0, 3.0}));
    EXPECT_EQ(plot->axis(2).title(), "row");
}

template <class Kind>
std::shared_ptr<Kind> only(const zembra::Plot& plot) {
    EXPECT_EQ(plot.series().size(), 1U);
    return std::dynamic_pointer_cast<Kind>(plot.series().front());
}

Options kind(ChartKind kind) {
    Options options;
    options.kind = kind;
    return options;
}

TEST(ChartBuilder, ThePlotKeepsTheTableInsteadOfACopy) {
    auto table = std::make_shared<const Table>(tableOf("t,a,b\n1,2,3\n2,8,4\n"));
    const std::weak_ptr<const Table> watched = table;
    auto plot = buildChart(table, planChart(*table, {}), {});
    table.reset();
    ASSERT_FALSE(watched.expired());
    EXPECT_EQ(boundsOf(*plot, 0).y.max, 8.0);
    plot.reset();
    EXPECT_TRUE(watched.expired());
}

TEST(ChartBuilder, BarsOfSeveralColumnsStandBesideEachOther) {
    const auto plot = chartOf("city,a,b\nBern,1,2\nZug,3,4\n", kind(ChartKind::Bar));
    ASSERT_TRUE(isAll<zembra::BarSeries>(*plot));
    EXPECT_EQ(plot->series().size(), 2U);
    const auto below = [&plot](std::size_t series, double x) {
        const zembra::ScaleMap across(zembra::Scale::linear(), 0.0, 200.0, -0.5, 1.5);
        const zembra::ScaleMap up(zembra::Scale::linear(), 100.0, 0.0, 0.0, 4.0);
        return plot->series()[series]->nearest({x, 99.0}, across, up)->distance;
    };
    // The first name is at pixel 50; its bars reach 40 pixels to either side.
    EXPECT_EQ(below(0, 30.0), 0.0);
    EXPECT_GT(below(0, 70.0), 0.0);
    EXPECT_GT(below(1, 30.0), 0.0);
    EXPECT_EQ(below(1, 70.0), 0.0);
    EXPECT_EQ(plot->axis(2).scale().ticks(-0.5, 1.5, {}).major.size(), 2U);
}

TEST(ChartBuilder, HistogramsOfSeveralColumnsShareTheirBins) {
    const auto plot = chartOf("a,b\n1,5\n2,6\n3,9\n4,\n", kind(ChartKind::Histogram));
    ASSERT_TRUE(isAll<zembra::HistogramSeries>(*plot));
    const auto a = std::dynamic_pointer_cast<zembra::HistogramSeries>(plot->series()[0]);
    const auto b = std::dynamic_pointer_cast<zembra::HistogramSeries>(plot->series()[1]);
    EXPECT_EQ(a->edges(), b->edges());
    EXPECT_EQ(std::accumulate(a->counts().begin(), a->counts().end(), std::size_t{0}), 4U);
    EXPECT_EQ(std::accumulate(b->counts().begin(), b->counts().end(), std::size_t{0}), 3U);
    EXPECT_EQ(plot->axis(0).title(), "count");
}

TEST(ChartBuilder, LogarithmicHistogramsHaveBinsOfEqualRatio) {
    Options options = kind(ChartKind::Histogram);
    options.logX = true;
    const auto plot = chartOf("a\n1\n10\n100\n1000\n10000\n-5\n", options);
    const std::vector<double>& edges = only<zembra::HistogramSeries>(*plot)->edges();
    ASSERT_GE(edges.size(), 3U);
    EXPECT_NEAR(edges[1] / edges[0], edges[2] / edges[1], 1e-9);
}

TEST(ChartBuilder, BoxesAreNamedByTheirGroups) {
    Options options = kind(ChartKind::Box);
    options.by = "w";
    const auto plot = chartOf("w,a\nx,1\ny,10\nx,3\nx,2\n", options);
    const auto boxes = only<zembra::BoxPlotSeries>(*plot);
    ASSERT_EQ(boxes->statistics().size(), 2U);
    EXPECT_EQ(boxes->statistics()[0].median, 2.0);
    EXPECT_EQ(boxes->statistics()[1].count, 1U);
    EXPECT_EQ(plot->axis(2).title(), "w");
    EXPECT_EQ(plot->axis(0).title(), "a");
}

TEST(ChartBuilder, AMatrixBeginsAtTheTop) {
    const auto plot = chartOf("1,2,3\n4,5,6\n", kind(ChartKind::HeatMap));
    const zembra::Grid& grid = only<zembra::HeatMapSeries>(*plot)->grid();
    EXPECT_EQ(grid.columns(), 3U);
    EXPECT_EQ(grid.value(2, 0), 3.0);
    EXPECT_EQ(grid.yCenter(0), 1.0);
    EXPECT_EQ(plot->axis(0).range(), std::pair(2.5, 0.5));
}

TEST(ChartBuilder, PositionsWithoutAValueStayFree) {
    const auto plot = chartOf("x,y,v\n10,0,1\n20,0,2\n10,5,3\n", kind(ChartKind::HeatMap));
    const zembra::Grid& grid = only<zembra::HeatMapSeries>(*plot)->grid();
    EXPECT_EQ(grid.x().first, 5.0);
    EXPECT_EQ(grid.x().last, 25.0);
    EXPECT_EQ(grid.value(0, 1), 3.0);
    EXPECT_TRUE(std::isnan(grid.value(1, 1)));
}

TEST(ChartBuilder, CandlesLieOnATimeAxis) {
    const auto plot = chartOf("date,open,high,low,close\n2001-02-03,1,3,0,2\n2001-02-04,2,4,1,3\n",
                              kind(ChartKind::Candlestick));
    ASSERT_TRUE(isAll<zembra::CandlestickSeries>(*plot));
    EXPECT_EQ(boundsOf(*plot, 0).y.max, 4.0);
    EXPECT_EQ(boundsOf(*plot, 0).y.min, 0.0);
    EXPECT_EQ(plot->axis(0).title(), "close");
}

} // namespace
} // namespace viewer
