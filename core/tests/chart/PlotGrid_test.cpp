// SPDX-License-Identifier: MIT
#include "support/TextBoxPainter.h"

#include <zembra/chart/PlotGrid.h>
#include <zembra/series/LineSeries.h>

#include <gtest/gtest.h>

using namespace zembra;
using zembra::test::RecordingPainter;

namespace {

std::shared_ptr<Plot> plotWith(double top, const char* title) {
    auto plot = std::make_shared<Plot>();
    plot->add<LineSeries>(std::vector{0.0, 1.0}, std::vector{0.0, top});
    plot->setTitle(title);
    return plot;
}

} // namespace

TEST(PlotGrid, CellsTileThePicture) {
    PlotGrid grid(3, 2);
    double area = 0.0;
    for (int row = 0; row < 3; ++row)
        for (int column = 0; column < 2; ++column) {
            const Rect cell = grid.cellRect(row, column, 641, 479);
            area += cell.width * cell.height;
        }
    EXPECT_EQ(area, 641.0 * 479.0);
    EXPECT_TRUE(grid.cellRect(3, 0, 641, 479).isEmpty());
    EXPECT_TRUE(grid.cellRect(0, 0, 0, 479).isEmpty());
}

TEST(PlotGrid, CanvasesLineUpAlongRowsAndColumns) {
    PlotGrid grid(2, 2);
    ASSERT_TRUE(grid.setPlot(0, 0, plotWith(1.0, "")));
    ASSERT_TRUE(grid.setPlot(0, 1, plotWith(1.0, "A title")));
    auto wide = plotWith(1.0, "");
    wide->axis(0).setTitle("A vertical title");
    ASSERT_TRUE(grid.setPlot(1, 0, wide));
    EXPECT_FALSE(grid.setPlot(2, 0, wide));
    EXPECT_EQ(grid.plot(1, 1), nullptr);
    RecordingPainter painter;
    grid.renderInto(painter, 800, 600);
    EXPECT_EQ(grid.plot(0, 0)->canvasRect().left(), wide->canvasRect().left());
    EXPECT_EQ(grid.plot(0, 0)->canvasRect().top(), grid.plot(0, 1)->canvasRect().top());
    EXPECT_EQ(painter.count("translate"), 3u);
    EXPECT_EQ(painter.count("save"), painter.count("restore"));
}

TEST(PlotGrid, EmptyGridsAndSizesDrawNothing) {
    PlotGrid grid(0, -3);
    EXPECT_EQ(grid.rows(), 1);
    EXPECT_EQ(grid.columns(), 1);
    RecordingPainter painter;
    grid.renderInto(painter, 100, 100);
    ASSERT_TRUE(grid.setPlot(0, 0, plotWith(1.0, "")));
    RecordingPainter second;
    grid.renderInto(second, 0, 100);
    EXPECT_EQ(painter.count(), 0u);
    EXPECT_EQ(second.count(), 0u);
}

TEST(PlotGrid, PlacesOutsideHoldNothing) {
    PlotGrid grid(2, 3);
    for (const auto& [row, column] : {std::pair{-1, 0}, {2, 0}, {0, -1}, {0, 3}}) {
        EXPECT_FALSE(grid.setPlot(row, column, plotWith(1.0, ""))) << row << " " << column;
        EXPECT_EQ(grid.plot(row, column), nullptr);
        EXPECT_TRUE(grid.cellRect(row, column, 600, 400).isEmpty());
    }
    EXPECT_TRUE(grid.cellRect(0, 0, 600, 0).isEmpty());
    ASSERT_TRUE(grid.setPlot(1, 2, plotWith(1.0, "")));
    RecordingPainter painter;
    grid.renderInto(painter, 600, 0);
    EXPECT_EQ(painter.count(), 0u);
}
