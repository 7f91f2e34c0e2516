// SPDX-License-Identifier: MIT
#include "support/TextBoxPainter.h"

#include <zembra/chart/Plot.h>
#include <zembra/series/ContourSeries.h>
#include <zembra/series/HeatMapSeries.h>
#include <zembra/series/LineSeries.h>

#include <gtest/gtest.h>

#include <cstdio>

using namespace zembra;
using zembra::test::overlap;
using zembra::test::TextBoxPainter;

namespace {

ColorScale titled(const std::string& title, double max) {
    ColorScale colors;
    colors.setRange(0.0, max);
    colors.setTitle(title);
    return colors;
}

std::shared_ptr<HeatMapSeries> addMap(Plot& plot, const ColorScale& colors) {
    auto map = plot.add<HeatMapSeries>(Grid({0.0, 1.0, 2.0, 3.0}, 2, {0.0, 10.0}, {0.0, 10.0}));
    map->setColorScale(colors);
    return map;
}

bool shows(const TextBoxPainter& painter, const std::string& text) {
    return painter.text().find('"' + text + '"') != std::string::npos;
}

} // namespace

TEST(ColorBar, StandsBesideTheCanvasOfASeriesThatTurnsValuesIntoColors) {
    Plot plot;
    auto map = addMap(plot, titled("Height", 0.007));
    TextBoxPainter painter;
    plot.renderInto(painter, 640, 480);
    EXPECT_TRUE(shows(painter, "Height"));
    EXPECT_TRUE(shows(painter, "0.007"));
    const double right = plot.canvasRect().right();
    map->setVisible(false);
    TextBoxPainter without;
    plot.renderInto(without, 640, 480);
    EXPECT_FALSE(shows(without, "Height"));
    EXPECT_GT(plot.canvasRect().right(), right);
}

TEST(ColorBar, RunsFromTheColorOfTheSmallestValueUpToThatOfTheLargest) {
    Plot plot;
    addMap(plot, titled("", 3.0));
    TextBoxPainter painter;
    plot.renderInto(painter, 640, 480);
    const std::string text = painter.text();
    const ColorScale colors = titled("", 3.0);
    const auto fillOf = [&](double value) {
        const Color c = colors.color(value);
        char name[16];
        std::snprintf(name, sizeof name, "#%02x%02x%02x", c.red(), c.green(), c.blue());
        return text.find(name);
    };
    ASSERT_NE(fillOf(3.0), std::string::npos);
    ASSERT_NE(fillOf(0.0), std::string::npos);
    EXPECT_LT(fillOf(3.0), fillOf(1.5));
    EXPECT_LT(fillOf(1.5), fillOf(0.0));
}

TEST(ColorBar, TextsKeepApartBesideASecondAxisALegendAndAnotherBar) {
    Plot plot;
    plot.setAxisEnabled(1, true);
    plot.axis(1).setTitle("Second axis");
    plot.legend().setPosition(LegendPosition::OutsideRight);
    addMap(plot, titled("First", 3000.0))->setName("one");
    addMap(plot, titled("Second", 0.03))->setName("two");
    TextBoxPainter painter;
    plot.renderInto(painter, 900, 480);
    EXPECT_TRUE(shows(painter, "First"));
    EXPECT_TRUE(shows(painter, "Second"));
    const auto& boxes = painter.boxes();
    for (std::size_t i = 0; i < boxes.size(); ++i) {
        EXPECT_LE(boxes[i].rect.right(), 900.0) << boxes[i].text;
        for (std::size_t j = 0; j < i; ++j)
            EXPECT_FALSE(overlap(boxes[i].rect, boxes[j].rect))
                << boxes[i].text << " and " << boxes[j].text;
    }
}

TEST(ColorBar, IsLeftOutWhereRoomIsShort) {
    Plot plot;
    addMap(plot, titled("Height", 3.0));
    TextBoxPainter painter;
    plot.renderInto(painter, 150, 120);
    EXPECT_FALSE(shows(painter, "Height"));
    EXPECT_GT(plot.canvasRect().width, 50.0);
}

TEST(ColorBar, AutomaticRangesEndWhereTheCellsEnd) {
    Plot plot;
    auto map = plot.add<HeatMapSeries>(Grid({0.0, 1.0, 2.0, 3.0}, 2, {0.0, 10.0}, {0.0, 10.0}));
    const Bounds bounds = map->bounds(Scale(), Scale());
    EXPECT_EQ(plot.axis(2).range(), std::pair(bounds.x.min, bounds.x.max));
    EXPECT_EQ(plot.axis(0).range(), std::pair(bounds.y.min, bounds.y.max));
    // What reaches beyond the cells has air around it again, on its side.
    plot.add<LineSeries>(std::vector{0.0, 20.0}, std::vector{0.0, 5.0});
    EXPECT_EQ(plot.axis(2).range().first, bounds.x.min);
    EXPECT_GT(plot.axis(2).range().second, 20.0);
    EXPECT_EQ(plot.axis(0).range().second, bounds.y.max);
}

TEST(ColorBar, SeriesWithoutAColorOfTheCycleTakeNoneUp) {
    const auto firstLine = [](bool withMap) {
        Plot plot;
        if (withMap)
            addMap(plot, titled("", 3.0));
        plot.add<LineSeries>(std::vector{0.0, 1.0}, std::vector{0.0, 1.0});
        TextBoxPainter painter;
        plot.renderInto(painter, 640, 480);
        const std::string text = painter.text();
        return std::pair(text.find("setPen #0072b2") != std::string::npos, text);
    };
    EXPECT_TRUE(firstLine(false).first) << firstLine(false).second;
    EXPECT_TRUE(firstLine(true).first);
}

TEST(ColorBar, TranslucentColoursLieSideBySide) {
    Plot plot;
    addMap(plot, ColorScale(ColorMap({Color(0, 0, 255, 100), Color(255, 0, 0, 100)})));
    TextBoxPainter painter;
    plot.renderInto(painter, 640, 480);
    double end = 0.0;
    int rows = 0;
    for (const std::string& line : painter.linesOf("fillRect")) {
        double x = 0.0;
        double y = 0.0;
        double w = 0.0;
        double h = 0.0;
        if (line.substr(line.size() - 2) != "64" ||
            std::sscanf(line.c_str(), "fillRect %lf,%lf %lfx%lf", &x, &y, &w, &h) != 4 ||
            x < plot.canvasRect().right())
            continue;
        const double begin = rows++ > 0 ? end : y;
        EXPECT_NEAR(y, begin, 0.011);
        end = y + h;
    }
    EXPECT_GT(rows, 50);
}
