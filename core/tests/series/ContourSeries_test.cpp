// SPDX-License-Identifier: MIT
#include <zembra/series/ContourSeries.h>

#include "support/HostileNumbers.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <string>
#include <vector>

using namespace zembra;
using namespace zembra::test;

namespace {

// Keeps lines and areas as they are.
class ContourPainter : public RecordingPainter {
public:
    void drawPolyline(const std::vector<Point>& points) override {
        lines.push_back(points);
        RecordingPainter::drawPolyline(points);
    }
    void fillPolygon(const std::vector<Point>& points, const Color& color) override {
        areas.push_back({points, color});
        RecordingPainter::fillPolygon(points, color);
    }
    struct Area {
        std::vector<Point> points;
        Color color;
    };
    std::vector<std::vector<Point>> lines;
    std::vector<Area> areas;
};

ContourPainter drawn(const ContourSeries& series,
                     const ScaleMap& x = {Scale::linear(), 0.0, 100.0, 0.0, 10.0},
                     const ScaleMap& y = {Scale::linear(), 100.0, 0.0, 0.0, 10.0}) {
    ContourPainter painter;
    FrameBuffers buffers;
    Canvas canvas(painter, {0.0, 0.0, 100.0, 100.0}, x, y, {}, buffers);
    series.draw(canvas);
    return painter;
}

// Odd-even rule.
bool covers(const std::vector<Point>& polygon, const Point& p) {
    bool inside = false;
    for (std::size_t i = 0; i < polygon.size(); ++i) {
        const Point& a = polygon[i];
        const Point& b = polygon[(i + 1) % polygon.size()];
        if ((a.y > p.y) != (b.y > p.y) && p.x < a.x + (p.y - a.y) / (b.y - a.y) * (b.x - a.x))
            inside = !inside;
    }
    return inside;
}

// The colour that is seen at a point.
Color seen(const ContourPainter& painter, const Point& p) {
    Color color(0, 0, 0, 0);
    for (const auto& area : painter.areas)
        if (covers(area.points, p))
            color = area.color;
    return color;
}

template <class Function>
Grid sampled(std::size_t count, Function function) {
    std::vector<double> values;
    const double step = 10.0 / static_cast<double>(count);
    for (std::size_t row = 0; row < count; ++row)
        for (std::size_t column = 0; column < count; ++column)
            values.push_back(function(step * (static_cast<double>(column) + 0.5),
                                      step * (static_cast<double>(row) + 0.5)));
    return Grid(values, count, {0.0, 10.0}, {0.0, 10.0});
}

// Two by two values with the centres at 0 and 10: the canvas is the square between them.
Grid square(double bottomLeft, double bottomRight, double topLeft, double topRight) {
    return Grid({bottomLeft, bottomRight, topLeft, topRight}, 2, {-5.0, 15.0}, {-5.0, 15.0});
}

std::string text(const std::vector<std::vector<Point>>& lines) {
    std::vector<std::string> sorted;
    for (auto line : lines) {
        if (line.size() > 1 &&
            (line.back().x < line.front().x ||
             (line.back().x == line.front().x && line.back().y < line.front().y)))
            std::reverse(line.begin(), line.end());
        std::string one;
        for (const Point& p : line)
            one += std::to_string(std::lround(p.x)) + ',' + std::to_string(std::lround(p.y)) + ' ';
        sorted.push_back(one);
    }
    std::sort(sorted.begin(), sorted.end());
    std::string all;
    for (const auto& one : sorted)
        all += one + "| ";
    return all;
}

} // namespace

TEST(ContourSeries, EverySquareIsCutWhereItsEdgesCrossTheLevel) {
    // Corners: bottom left, bottom right, top left, top right; level 1 lies in the middle.
    const struct {
        double corners[4];
        const char* lines;
    } rows[] = {
        {{0, 0, 0, 0}, ""},
        {{2, 0, 0, 0}, "0,50 50,100 | "},
        {{0, 2, 0, 0}, "50,100 100,50 | "},
        {{2, 2, 0, 0}, "0,50 100,50 | "},
        {{0, 0, 2, 0}, "0,50 50,0 | "},
        {{2, 0, 2, 0}, "50,0 50,100 | "},
        {{2, 2, 2, 0}, "50,0 100,50 | "},
        {{0, 0, 0, 2}, "50,0 100,50 | "},
        {{0, 2, 0, 2}, "50,0 50,100 | "},
        {{2, 2, 0, 2}, "0,50 50,0 | "},
        {{0, 0, 2, 2}, "0,50 100,50 | "},
        {{2, 0, 2, 2}, "50,100 100,50 | "},
        {{0, 2, 2, 2}, "0,50 50,100 | "},
        {{2, 2, 2, 2}, ""},
        {{4, 0, 0, 0}, "0,25 75,100 | "},
        // Saddles: the mean is 1.25 and 0.75, so the high and the low corners are connected.
        {{2, 0.5, 0.5, 2}, "0,33 33,0 | 67,100 100,67 | "},
        {{1.5, 0, 0, 1.5}, "0,67 33,100 | 67,0 100,33 | "},
        {{0.5, 2, 2, 0.5}, "0,67 33,100 | 67,0 100,33 | "},
        {{0, 1.5, 1.5, 0}, "0,33 33,0 | 67,100 100,67 | "},
        {{2, notANumber, 0, 0}, ""},
    };
    for (const auto& row : rows) {
        const auto& c = row.corners;
        ContourSeries series(square(c[0], c[1], c[2], c[3]));
        series.setLevels({1.0});
        series.setWidth(1.0);
        EXPECT_EQ(text(drawn(series).lines), row.lines) << (&row - rows);
    }
}

TEST(ContourSeries, LinesOfAConeAreClosedCircles) {
    ContourSeries series(
        sampled(80, [](double x, double y) { return std::hypot(x - 5.0, y - 5.0); }));
    series.setLevels({1.0, 2.0, 4.0});
    series.setWidth(1.0);
    const auto lines = drawn(series).lines;
    ASSERT_EQ(lines.size(), 3u);
    const double radii[] = {10.0, 20.0, 40.0};
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_EQ(lines[i].front(), lines[i].back());
        for (const Point& p : lines[i])
            EXPECT_NEAR(std::hypot(p.x - 50.0, p.y - 50.0), radii[i], 0.2);
    }
}

TEST(ContourSeries, LinesHaveTheColorOfTheirLevel) {
    Stage stage;
    ContourSeries series(square(0.0, 1.0, 0.0, 1.0));
    series.setLevels({0.25, 0.5});
    series.setWidth(1.0);
    const std::string text = stage.draw(series);
    const Color quarter = ColorMap::viridis().at(0.25);
    const Color half = ColorMap::viridis().at(0.5);
    const auto pen = [](const Color& c) {
        char hex[32];
        std::snprintf(hex, sizeof hex, "setPen #%02x%02x%02x", c.red(), c.green(), c.blue());
        return std::string(hex);
    };
    EXPECT_NE(text.find(pen(quarter)), std::string::npos) << text;
    EXPECT_NE(text.find(pen(half)), std::string::npos) << text;
    EXPECT_NE(text.find("25,"), std::string::npos) << text;
}

TEST(ContourSeries, AreasAreThoseBetweenTheLevelsWithHolesAndIslands) {
    // A ring of hills around a hollow with an island in it.
    const auto height = [](double x, double y) {
        const double r = std::hypot(x - 5.0, y - 5.0);
        return std::cos(2.2 * r);
    };
    ContourSeries series(sampled(100, height));
    series.setStyle(ContourStyle::Filled);
    series.setLevels({-0.5, 0.0, 0.5});
    const auto painter = drawn(series);
    EXPECT_EQ(painter.areas.size(), 4u);
    EXPECT_TRUE(painter.lines.empty());
    const ColorMap map = ColorMap::viridis();
    const Interval range = series.colorScale()->range();
    const auto bandColor = [&](double low, double high) {
        const auto share = [&](double v) { return (v - range.min) / (range.max - range.min); };
        return map.at(0.5 * (share(low) + share(high)));
    };
    int tested = 0;
    for (double px = 2.3; px < 98.0; px += 3.7)
        for (double py = 2.1; py < 98.0; py += 3.3) {
            const double value = height(px / 10.0, (100.0 - py) / 10.0);
            const double edges[] = {-0.5, 0.0, 0.5};
            if (std::any_of(std::begin(edges), std::end(edges),
                            [&](double e) { return std::abs(value - e) < 0.03; }))
                continue;
            const Color expected = value < -0.5  ? bandColor(range.min, -0.5)
                                   : value < 0.0 ? bandColor(-0.5, 0.0)
                                   : value < 0.5 ? bandColor(0.0, 0.5)
                                                 : bandColor(0.5, range.max);
            EXPECT_EQ(seen(painter, {px, py}), expected) << px << ' ' << py;
            ++tested;
        }
    EXPECT_GT(tested, 600);
}

TEST(ContourSeries, MissingValuesAreHolesInLinesAndAreas) {
    ContourSeries series(sampled(50, [](double x, double y) {
        return std::hypot(x - 5.0, y - 5.0) < 2.0 ? notANumber : x;
    }));
    series.setLevels({5.0});
    series.setStyle(ContourStyle::FilledWithLines);
    const auto painter = drawn(series);
    EXPECT_EQ(seen(painter, {50.5, 50.5}), Color(0, 0, 0, 0));
    EXPECT_EQ(seen(painter, {40.5, 52.5}), Color(0, 0, 0, 0));
    EXPECT_NE(seen(painter, {20.5, 50.5}), Color(0, 0, 0, 0));
    EXPECT_NE(seen(painter, {90.5, 50.5}), seen(painter, {10.5, 50.5}));
    for (const auto& line : painter.lines)
        for (const Point& p : line)
            EXPECT_GT(std::hypot(p.x - 50.0, p.y - 50.0), 18.0);
}

TEST(ContourSeries, LevelsAreRoundNumbersUnlessGiven) {
    ContourSeries series(sampled(20, [](double x, double) { return 100.0 * x; }));
    ASSERT_GE(series.levels().size(), 3u);
    EXPECT_LE(series.levels().size(), 20u);
    EXPECT_TRUE(std::is_sorted(series.levels().begin(), series.levels().end()));
    for (const double level : series.levels())
        EXPECT_NEAR(std::remainder(level, 50.0), 0.0, 1e-9);
    series.setLevels({3.0, 1.0, notANumber, 3.0, HUGE_VAL});
    EXPECT_EQ(series.levels(), (std::vector{1.0, 3.0}));
    series.setLevels({});
    EXPECT_GE(series.levels().size(), 3u);
}

TEST(ContourSeries, FollowsReversedAndLogarithmicAxes) {
    ContourSeries series(sampled(200, [](double x, double) { return x; }));
    series.setLevels({4.0});
    series.setWidth(1.0);
    const ScaleMap up(Scale::linear(), 100.0, 0.0, 0.0, 10.0);
    const auto turned = drawn(series, {Scale::linear(), 0.0, 100.0, 10.0, 0.0}, up).lines;
    const auto bent = drawn(series, {Scale::log(), 0.0, 100.0, 1.0, 10.0}, up).lines;
    ASSERT_EQ(turned.size(), 1u);
    ASSERT_EQ(bent.size(), 1u);
    for (const Point& p : turned[0])
        EXPECT_NEAR(p.x, 60.0, 0.1);
    for (const Point& p : bent[0])
        EXPECT_NEAR(p.x, 100.0 * std::log10(4.0), 0.1);
}

TEST(ContourSeries, AZoomedViewStillFillsTheCanvas) {
    ContourSeries series(sampled(10, [](double x, double) { return x; }));
    series.setStyle(ContourStyle::Filled);
    const auto painter = drawn(series, {Scale::linear(), 0.0, 100.0, 5.1, 5.2},
                               {Scale::linear(), 100.0, 0.0, 5.1, 5.2});
    for (const Point p : {Point{0.5, 0.5}, Point{99.5, 99.5}, Point{50.0, 50.0}})
        EXPECT_EQ(seen(painter, p).alpha(), 255);
}

TEST(ContourSeries, AFineGridCostsNoMoreThanThePixels) {
    const auto wave = [](double x, double y) { return std::sin(x) * std::cos(y); };
    ContourSeries coarse(sampled(100, wave));
    ContourSeries fine(sampled(1000, wave));
    for (ContourSeries* series : {&coarse, &fine})
        series->setLevels({-0.5, 0.0, 0.5});
    EXPECT_LT(drawn(fine).vertices(), 2 * drawn(coarse).vertices() + 100);
}

TEST(ContourSeries, EmptyGridsAndSingleValuesHaveNoContours) {
    Stage stage;
    EXPECT_EQ(stage.draw(ContourSeries()), "");
    const ContourSeries one(Grid({3.0}, 1, {0.0, 10.0}, {0.0, 10.0}));
    EXPECT_EQ(drawn(one).lines.size(), 0u);
    EXPECT_EQ(one.bounds(Scale::linear(), Scale::linear()).x, (Interval{5.0, 5.0}));
    const ContourSeries equal(sampled(5, [](double, double) { return 2.0; }));
    EXPECT_EQ(drawn(equal).lines.size(), 0u);
}

TEST(ContourSeries, BoundsReachFromCenterToCenter) {
    const ContourSeries series(sampled(10, [](double x, double) { return x; }));
    EXPECT_EQ(series.bounds(Scale::linear(), Scale::linear()).x, (Interval{0.5, 9.5}));
    const ContourSeries turned(Grid({1.0, 2.0}, 2, {10.0, -10.0}, {0.0, 1.0}));
    EXPECT_EQ(turned.bounds(Scale::linear(), Scale::linear()).x, (Interval{-5.0, 5.0}));
    EXPECT_EQ(turned.bounds(Scale::log(), Scale::linear()).x, (Interval{5.0, 5.0}));
}

TEST(ContourSeries, NearestIsTheCellBelowThePixel) {
    const ContourSeries series(sampled(10, [](double x, double) { return x; }));
    const auto found = Stage().nearest(series, {32.0, 68.0});
    ASSERT_TRUE(found);
    EXPECT_EQ(found->index, 33u);
    EXPECT_DOUBLE_EQ(found->x, 3.5);
}

TEST(ContourSeries, TheLegendKeyShowsLinesOrAreas) {
    ContourSeries series;
    Stage stage;
    EXPECT_NE(stage.drawKey(series).find("drawPolyline"), std::string::npos);
    series.setStyle(ContourStyle::Filled);
    EXPECT_NE(stage.drawKey(series).find("fillRect"), std::string::npos);
}

TEST(ContourSeries, KeepsItsWidthWhereAnotherMakesNoSense) {
    ContourSeries series;
    series.setWidth(3.0);
    for (const double bad : {-1.0, notANumber, HUGE_VAL})
        series.setWidth(bad);
    EXPECT_EQ(series.width(), 3.0);
}

TEST(ContourSeries, HostileNumbersAreHarmless) {
    for (const HostileRow& spans : hostileRows()) {
        const auto& s = spans.values;
        const GridSpan span = s.size() < 2 ? GridSpan{} : GridSpan{s[0], s[1]};
        for (const HostileRow& row : hostileRows()) {
            ContourSeries series(Grid(row.values, 2, span, {0.0, 10.0}));
            series.setStyle(ContourStyle::FilledWithLines);
            expectHarmless(series, spans.name + " / " + row.name);
        }
    }
}
