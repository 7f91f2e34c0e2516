// SPDX-License-Identifier: MIT
#include "ChartBuilder.h"

#include "Workspace.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace viewer {
namespace {

using testing::ElementsAre;

std::shared_ptr<zembra::Plot> chartOf(const std::string& text, const Options& options = {}) {
    const Table table = tableOf(text, options.by);
    return buildChart(table, planChart(table, options), options);
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
    options.scatter = true;
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

} // namespace
} // namespace viewer
