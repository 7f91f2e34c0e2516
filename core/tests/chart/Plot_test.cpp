// SPDX-License-Identifier: MIT
#include "support/HostileNumbers.h"
#include "support/StrictPainter.h"
#include "support/TextBoxPainter.h"

#include <zembra/chart/Plot.h>
#include <zembra/series/LineAnnotation.h>
#include <zembra/series/LineSeries.h>
#include <zembra/series/ScatterSeries.h>
#include <zembra/series/SpanAnnotation.h>
#include <zembra/series/TextAnnotation.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>
#include <string>

using namespace zembra;
using zembra::test::notANumber;
using zembra::test::RecordingPainter;
using zembra::test::TextBoxPainter;

namespace {

std::vector<double> counted(int n) {
    std::vector<double> values;
    for (int i = 0; i < n; ++i)
        values.push_back(i);
    return values;
}

} // namespace

TEST(Plot, ShowsItsPrimaryAxesAtFirst) {
    const Plot plot;
    EXPECT_TRUE(plot.axisEnabled(0));
    EXPECT_FALSE(plot.axisEnabled(1));
    EXPECT_TRUE(plot.axisEnabled(2));
    EXPECT_FALSE(plot.axisEnabled(3));
    EXPECT_TRUE(plot.canvasRect().isEmpty());
}

TEST(Plot, NumbersThatNameNoAxisChangeNothing) {
    Plot plot;
    for (int axis : {-1, 4, 1000, std::numeric_limits<int>::min()}) {
        plot.setAxisScale(axis, 1.0, 2.0);
        plot.setAxisAutoScale(axis, true);
        plot.setAxisEnabled(axis, true);
        EXPECT_FALSE(plot.axisEnabled(axis));
        EXPECT_EQ(plot.scaleMap(axis).p1(), plot.scaleMap(axis).p2());
    }
}

TEST(Plot, TheScaleMapTellsTheCurrentRangeOverTheLastLayout) {
    Plot plot;
    RecordingPainter painter;
    plot.renderInto(painter, 640, 480);
    const Rect canvas = plot.canvasRect();
    ASSERT_FALSE(canvas.isEmpty());
    plot.setAxisScale(2, 10.0, 20.0);
    plot.setAxisScale(0, 5.0, -5.0);
    const ScaleMap x = plot.scaleMap(2);
    EXPECT_EQ(x.p1(), canvas.left());
    EXPECT_EQ(x.p2(), canvas.right());
    EXPECT_EQ(x.s1(), 10.0);
    EXPECT_EQ(x.s2(), 20.0);
    const ScaleMap y = plot.scaleMap(0);
    EXPECT_EQ(y.p1(), canvas.bottom());
    EXPECT_EQ(y.p2(), canvas.top());
    EXPECT_EQ(y.s1(), 5.0);
    EXPECT_EQ(y.invTransform(canvas.top()), -5.0);
}

TEST(Plot, DrawsNothingWithoutASize) {
    Plot plot;
    plot.add<LineSeries>(counted(5), counted(5));
    for (auto [width, height] : {std::pair{0, 0}, {0, 100}, {100, 0}, {-5, 100}, {100, -5}}) {
        RecordingPainter painter;
        plot.renderInto(painter, width, height);
        EXPECT_EQ(painter.count(), 0u);
        EXPECT_TRUE(plot.canvasRect().isEmpty());
    }
}

TEST(Plot, LosesAxisTitlesThenItsTitleThenItsLabelsAsItShrinks) {
    Plot plot;
    plot.setTitle("title");
    plot.axis(2).setTitle("x");
    std::string seen;
    for (int size = 300; size > 20; --size) {
        RecordingPainter painter;
        plot.renderInto(painter, size, size);
        const std::string text = painter.text();
        const bool title = text.find("\"title\"") != std::string::npos;
        const bool axisTitle = text.find("\"x\"") != std::string::npos;
        const char state = title && axisTitle              ? 'A'
                           : title                         ? 'T'
                           : painter.count("drawText") > 0 ? 'L'
                                                           : '-';
        if (seen.empty() || seen.back() != state)
            seen += state;
    }
    EXPECT_EQ(seen, "ATL-");
    RecordingPainter painter;
    plot.renderInto(painter, 30, 20);
    EXPECT_EQ(plot.canvasRect(), (Rect{2.0, 2.0, 26.0, 16.0}));
    plot.renderInto(painter, 4, 4);
    EXPECT_EQ(plot.canvasRect(), (Rect{1.0, 1.0, 2.0, 2.0}));
}

TEST(Plot, EverySizeIsDrawnInsideThePicture) {
    Plot plot;
    plot.setTitle("A title that is too long for most of these pictures");
    plot.setSubtitle("and a subtitle");
    plot.axis(0).setTitle("Vertical title");
    plot.axis(2).setTitle("Horizontal title");
    plot.setAxisEnabled(1, true);
    plot.setAxisEnabled(3, true);
    plot.add<LineSeries>(counted(50), counted(50), "first");
    plot.add<LineSeries>(counted(50), counted(50), "second");
    for (auto [width, height] : {std::pair{1, 1},
                                 {2, 300},
                                 {300, 2},
                                 {40, 30},
                                 {90, 70},
                                 {200, 150},
                                 {640, 480},
                                 {4000, 3000}}) {
        TextBoxPainter painter;
        plot.renderInto(painter, width, height);
        EXPECT_FALSE(painter.sawWildNumber());
        const Rect canvas = plot.canvasRect();
        EXPECT_GE(canvas.left(), 0.0);
        EXPECT_GE(canvas.top(), 0.0);
        EXPECT_LE(canvas.right(), width);
        EXPECT_LE(canvas.bottom(), height);
        if (width < 200 || height < 150)
            continue;
        EXPECT_GE(painter.boxes().size(), 4u) << width << " x " << height;
        for (const auto& box : painter.boxes()) {
            EXPECT_GE(box.rect.left(), 0.0) << box.text;
            EXPECT_GE(box.rect.top(), 0.0) << box.text;
            EXPECT_LE(box.rect.right(), width) << box.text;
            EXPECT_LE(box.rect.bottom(), height) << box.text;
        }
    }
}

TEST(Plot, TextsNeverOverlapWhateverTheRange) {
    std::mt19937_64 random(20260);
    std::uniform_real_distribution<double> exponent(-12.0, 12.0);
    std::uniform_real_distribution<double> share(-1.0, 1.0);
    const Scale scales[] = {Scale::linear(), Scale::time(), Scale::time("Europe/Zurich")};
    for (int round = 0; round < 600; ++round) {
        Plot plot;
        plot.setTitle("Title");
        plot.axis(0).setTitle("Vertical");
        plot.axis(2).setTitle("Horizontal");
        plot.axis(2).setScale(scales[round % 3]);
        for (int axis : {0, 2}) {
            const double span = std::pow(10.0, exponent(random));
            const double middle = share(random) * std::pow(10.0, exponent(random));
            plot.setAxisScale(axis, middle - span, middle + span);
        }
        TextBoxPainter painter;
        plot.renderInto(painter, 640, 400);
        EXPECT_FALSE(painter.sawWildNumber());
        const auto& boxes = painter.boxes();
        for (std::size_t i = 0; i < boxes.size(); ++i) {
            EXPECT_GE(boxes[i].rect.left(), 0.0) << boxes[i].text;
            EXPECT_LE(boxes[i].rect.right(), 640.0) << boxes[i].text;
            for (std::size_t k = 0; k < i; ++k)
                EXPECT_FALSE(test::overlap(boxes[i].rect, boxes[k].rect))
                    << boxes[i].text << " over " << boxes[k].text << " in round " << round;
        }
    }
}

TEST(Plot, TheCanvasStaysWhileLabelsGrowAndShrink) {
    Plot plot;
    plot.axis(0).setTitle("Value");
    plot.setAxisScale(0, 0.0, 10.0);
    plot.setAxisScale(2, 0.0, 10.0);
    RecordingPainter painter;
    plot.renderInto(painter, 640, 480);
    const Rect canvas = plot.canvasRect();
    int changes = 0;
    for (int step = 0; step < 1000; ++step) {
        for (int axis : {0, 2}) {
            const ScaleMap map = plot.scaleMap(axis);
            // To and fro over zero, and from units to hundreds of thousands and back.
            const double pixels = (step % 200 < 100 ? 1.0 : -1.0) * (step % 7 + 1) * 13.7;
            const double factor = step % 400 < 200 ? 1.06 : 1.0 / 1.06;
            const double middle = 0.5 * (map.p1() + map.p2());
            plot.setAxisScale(axis,
                              map.invTransform(middle + (map.p1() - middle) * factor - pixels),
                              map.invTransform(middle + (map.p2() - middle) * factor - pixels));
        }
        painter.clear();
        plot.renderInto(painter, 640, 480);
        changes += plot.canvasRect() == canvas ? 0 : 1;
    }
    EXPECT_EQ(changes, 0);
}

TEST(Plot, LabelsKeepTheirPlaceAndFormWhilePanning) {
    Plot plot;
    plot.setAxisScale(0, 90.0, 105.0);
    plot.setAxisScale(2, -3.0, 7.0);
    std::size_t most = 0;
    std::size_t fewest = 1000;
    for (int step = 0; step < 1000; ++step) {
        for (int axis : {0, 2}) {
            const ScaleMap map = plot.scaleMap(axis);
            const double delta = (map.s2() - map.s1()) / 640.0;
            plot.setAxisScale(axis, map.s1() + delta, map.s2() + delta);
        }
        TextBoxPainter painter;
        plot.renderInto(painter, 640, 480);
        most = std::max(most, painter.boxes().size());
        fewest = std::min(fewest, painter.boxes().size());
    }
    // One label of each axis more or less comes and goes at the ends; a flicker would show more.
    EXPECT_LE(most - fewest, 2u);
}

TEST(Plot, TextIsMeasuredOnceNotInEveryFrame) {
    Plot plot;
    plot.setTitle("Title");
    plot.add<LineSeries>(counted(9), counted(9), "a");
    plot.add<LineSeries>(counted(9), counted(9), "b");
    RecordingPainter painter;
    plot.renderInto(painter, 640, 480);
    EXPECT_GT(painter.measurements(), 0u);
    const std::size_t before = painter.measurements();
    for (int i = 0; i < 10; ++i)
        plot.renderInto(painter, 640, 480);
    EXPECT_EQ(painter.measurements(), before);
}

TEST(Plot, TextsTooLongForTheirPlaceAndAnnotationsAreMeasuredOnceToo) {
    Plot plot;
    plot.setTitle(std::string(300, 'T'));
    plot.setSubtitle(std::string(100, 's') + " " + std::string(300, 's'));
    plot.axis(0).setTitle(std::string(200, 'y'));
    plot.axis(2).setTitle(std::string(200, 'x'));
    plot.add<LineSeries>(counted(9), counted(9), std::string(200, 'n'));
    plot.add<LineAnnotation>(AcrossCanvas::Horizontal, 3.0, "line");
    plot.add<SpanAnnotation>(AcrossCanvas::Vertical, 3.0, 5.0, "span");
    plot.add<TextAnnotation>(Position{4.0, 4.0}, "text");
    RecordingPainter painter;
    plot.renderInto(painter, 640, 480);
    const std::size_t before = painter.measurements();
    EXPECT_GT(before, 0u);
    for (int i = 0; i < 10; ++i)
        plot.renderInto(painter, 640, 480);
    EXPECT_EQ(painter.measurements(), before);
}

TEST(Plot, PanningToLabelsSeenBeforeMeasuresNoText) {
    Plot plot;
    plot.setTitle("Title");
    plot.add<LineSeries>(counted(9), counted(9), "a");
    plot.add<TextAnnotation>(Position{4.0, 4.0}, "text");
    RecordingPainter painter;
    const auto panThereAndBack = [&] {
        for (int step = 0; step <= 60; ++step) {
            const double shift = 0.05 * (step <= 30 ? step : 60 - step);
            plot.setAxisScale(2, shift, 8.0 + shift);
            plot.setAxisScale(0, -shift, 8.0 - shift);
            plot.renderInto(painter, 640, 480);
        }
    };
    panThereAndBack();
    const std::size_t before = painter.measurements();
    EXPECT_GT(before, 0u);
    panThereAndBack();
    EXPECT_EQ(painter.measurements(), before);
    // And a label that is new is measured.
    plot.setAxisScale(2, 1000.0, 1008.0);
    plot.renderInto(painter, 640, 480);
    EXPECT_GT(painter.measurements(), before);
}

TEST(Plot, ClipsAreTakenBackAndStatesBalanced) {
    Plot plot;
    plot.add<LineSeries>(counted(9), counted(9), "a");
    RecordingPainter painter;
    plot.renderInto(painter, 640, 480);
    EXPECT_EQ(painter.count("setClipRect"), painter.count("clearClip"));
    EXPECT_EQ(painter.count("save"), painter.count("restore"));
}

TEST(Plot, HiddenSeriesTakeNoPartInAutomaticRanges) {
    Plot plot;
    plot.add<LineSeries>(std::vector{0.0, 1.0}, std::vector{0.0, 1.0});
    auto wide = plot.add<LineSeries>(std::vector{0.0, 900.0}, std::vector{0.0, 900.0});
    EXPECT_GE(plot.axis(2).range().second, 900.0);
    wide->setVisible(false);
    EXPECT_LT(plot.axis(2).range().second, 2.0);
    EXPECT_TRUE(plot.removeSeries(wide));
    EXPECT_FALSE(plot.removeSeries(wide));
    plot.addSeries(nullptr);
    EXPECT_EQ(plot.series().size(), 1u);
}

TEST(Plot, SeriesMayLieOnTheOtherAxes) {
    Plot plot;
    auto line = plot.add<LineSeries>(std::vector{0.0, 1.0}, std::vector{1000.0, 3000.0});
    ASSERT_TRUE(line->setAxes(3, 1));
    EXPECT_FALSE(line->setAxes(0, 1));
    EXPECT_GE(plot.axis(1).range().second, 3000.0);
    EXPECT_EQ(plot.axis(0).range(), (std::pair{0.0, 1.0}));
}

TEST(Plot, AFixedAspectKeepsCirclesRound) {
    Plot plot;
    plot.setAspectRatio(1.0);
    plot.add<LineSeries>(std::vector{-1.0, 1.0}, std::vector{-1.0, 1.0});
    RecordingPainter painter;
    for (auto [width, height] : {std::pair{800, 300}, {300, 800}}) {
        plot.renderInto(painter, width, height);
        const ScaleMap x = plot.scaleMap(2);
        const ScaleMap y = plot.scaleMap(0);
        EXPECT_NEAR(x.transform(1.0) - x.transform(0.0), y.transform(0.0) - y.transform(1.0), 1e-9);
        EXPECT_LE(x.s1(), -1.0);
        EXPECT_LE(y.s1(), -1.0);
    }
    plot.setAspectRatio(notANumber);
    EXPECT_EQ(plot.aspectRatio(), 0.0);
}

TEST(Plot, AFixedAspectHasTicksAsFarAsItsAxesReach) {
    Plot plot;
    plot.setAspectRatio(1.0);
    plot.axis(0).setRange(100.0, 110.0, 2.0);
    plot.axis(2).setRange(0.0, 10.0);
    RecordingPainter painter;
    plot.renderInto(painter, 400, 900);
    const std::string first = painter.text();
    const ScaleMap y = plot.scaleMap(0);
    EXPECT_GT(y.s2() - y.s1(), 20.0);
    for (double value = 2.0 * std::ceil(0.5 * y.s1()); value <= y.s2(); value += 2.0)
        EXPECT_NE(first.find('"' + std::to_string(std::lround(value)) + '"'), std::string::npos)
            << value << " of " << y.s1() << " to " << y.s2();
    // And the second frame is the same.
    RecordingPainter again;
    plot.renderInto(again, 400, 900);
    EXPECT_EQ(again.text(), first);
}

// Where there is room for labels, double had an end; beside the labels it has none.
TEST(Plot, AFixedAspectAtTheEndOfDoubleHasNoTicksElsewhere) {
    Plot plot;
    plot.axis(2).setRange(-1.7e308, 1.0);
    for (double aspect = 1e-3; aspect < 1e3; aspect *= 1.01) {
        plot.setAspectRatio(aspect);
        zembra::test::StrictPainter painter;
        plot.renderInto(painter, 1652, 2080);
        ASSERT_EQ(painter.fault(), "") << aspect;
    }
}

TEST(Plot, HostileNumbersNeitherHangNorReachThePainter) {
    const double infinity = std::numeric_limits<double>::infinity();
    const double largest = std::numeric_limits<double>::max();
    const double smallest = std::numeric_limits<double>::denorm_min();
    const double hostile[] = {
        0.0,     -0.0,     1.0,      -1.0,      notANumber, infinity, -infinity,
        largest, -largest, smallest, -smallest, 1e300,      1e-300,   std::nextafter(1.0, 2.0),
        1e15,    1e15 + 1};
    const Scale scales[] = {Scale::linear(), Scale::log(),    Scale::log(2.0),
                            Scale::time(),   Scale::symLog(), Scale::categorical({"a", "b"})};
    for (const Scale& scale : scales)
        for (double a : hostile)
            for (double b : hostile) {
                Plot plot;
                plot.axis(0).setScale(scale);
                plot.axis(2).setScale(scale);
                plot.add<LineSeries>(std::vector{a, b, 1.0}, std::vector{b, a, b}, "line");
                plot.add<ScatterSeries>(std::vector{b, a}, std::vector{a, b}, "discs");
                RecordingPainter painter;
                plot.renderInto(painter, 320, 240);
                plot.setAxisScale(0, a, b);
                plot.setAxisScale(2, b, a, a);
                plot.renderInto(painter, 320, 240);
                EXPECT_FALSE(painter.sawWildNumber()) << a << ' ' << b;
                EXPECT_LT(painter.count(), 2000u) << a << ' ' << b;
                for (int axis : {0, 2}) {
                    const auto [first, second] = plot.axis(axis).range();
                    EXPECT_TRUE(std::isfinite(first) && std::isfinite(second) && first != second);
                }
            }
}

TEST(Plot, KeepsPixelRatiosThatMakeSense) {
    Plot plot;
    EXPECT_EQ(plot.pixelRatio(), 1.0);
    EXPECT_TRUE(plot.setPixelRatio(1.5));
    for (const double wrong : {0.0, -2.0, 4.5, std::nan("")})
        EXPECT_FALSE(plot.setPixelRatio(wrong));
    EXPECT_EQ(plot.pixelRatio(), 1.5);
}

TEST(Plot, EveryChoiceOfAxesFindsItsRoom) {
    for (unsigned choice = 0; choice < 16; ++choice) {
        Plot plot;
        plot.add<LineSeries>(std::vector{0.0, 1.0}, std::vector{0.0, 1000.0});
        for (int axis = 0; axis < 4; ++axis) {
            plot.setAxisEnabled(axis, (choice >> static_cast<unsigned>(axis) & 1U) != 0);
            plot.setAxisScale(axis, 1e6, 1e6 + 10.0);
        }
        TextBoxPainter painter;
        plot.renderInto(painter, 400, 300);
        EXPECT_FALSE(plot.canvasRect().isEmpty());
        EXPECT_EQ(painter.boxes().empty(), choice == 0) << choice;
        const auto& boxes = painter.boxes();
        for (std::size_t i = 0; i < boxes.size(); ++i) {
            EXPECT_GE(boxes[i].rect.left(), 0.0) << boxes[i].text << " in choice " << choice;
            EXPECT_LE(boxes[i].rect.right(), 400.0) << boxes[i].text << " in choice " << choice;
            EXPECT_GE(boxes[i].rect.top(), 0.0) << boxes[i].text << " in choice " << choice;
            EXPECT_LE(boxes[i].rect.bottom(), 300.0) << boxes[i].text << " in choice " << choice;
            for (std::size_t k = 0; k < i; ++k)
                EXPECT_FALSE(test::overlap(boxes[i].rect, boxes[k].rect))
                    << boxes[i].text << " over " << boxes[k].text << " in choice " << choice;
        }
    }
}

TEST(Plot, TimesKeepApartOnVerticalAxesOfAnyHeight) {
    for (const double span : {3600.0, 86400.0, 3e5, 3e6, 1e8}) {
        for (int height = 40; height < 500; height += 23) {
            Plot plot;
            plot.axis(0).setScale(Scale::time());
            plot.setAxisScale(0, 1.7e9, 1.7e9 + span);
            TextBoxPainter painter;
            plot.renderInto(painter, 300, height);
            const auto& boxes = painter.boxes();
            for (std::size_t i = 0; i < boxes.size(); ++i)
                for (std::size_t k = 0; k < i; ++k)
                    EXPECT_FALSE(test::overlap(boxes[i].rect, boxes[k].rect))
                        << boxes[i].text << " over " << boxes[k].text << " at " << height;
        }
    }
}

TEST(Plot, TicksWhoseTextIsEmptyOrHasNoRoomStandWithoutOne) {
    for (const std::size_t length : {0u, 500u}) {
        const NumberFormat format =
            NumberFormat::custom([length](double) { return std::string(length, 'm'); });
        Plot plot;
        for (const int axis : {0, 2}) {
            plot.axis(axis).setNumberFormat(format);
            plot.setAxisScale(axis, 0.0, 10.0);
        }
        plot.setAxisEnabled(0, length == 0);
        TextBoxPainter painter;
        plot.renderInto(painter, 400, 300);
        EXPECT_TRUE(painter.boxes().empty()) << length;
        EXPECT_GT(painter.count("drawLine"), 4u) << length;
    }
}

TEST(Plot, AFixedAspectIsForLinearPrimaryAxes) {
    RecordingPainter painter;
    for (const int logarithmic : {0, 2}) {
        Plot plot;
        plot.setAspectRatio(1.0);
        plot.axis(logarithmic).setScale(Scale::log());
        for (const int axis : {0, 1, 2, 3})
            plot.setAxisScale(axis, 1.0, axis + 10.0);
        plot.renderInto(painter, 800, 300);
        for (const int axis : {0, 1, 2, 3})
            EXPECT_EQ(plot.scaleMap(axis).s2(), axis + 10.0) << axis;
    }
    Plot plot;
    for (const double bad : {-1.0, 0.0, std::numeric_limits<double>::infinity()}) {
        plot.setAspectRatio(2.0);
        plot.setAspectRatio(bad);
        EXPECT_EQ(plot.aspectRatio(), 0.0);
    }
}

TEST(Plot, AFixedAspectGivesWayWhereDoubleEnds) {
    RecordingPainter painter;
    for (const double top : {0.8e308, 1.7e308}) {
        Plot plot;
        plot.setAspectRatio(100.0);
        plot.setAxisScale(0, -top, top);
        plot.setAxisScale(2, 0.0, 1000.0);
        plot.renderInto(painter, 200, 1000);
        EXPECT_EQ(plot.scaleMap(2).s1(), 0.0);
        EXPECT_EQ(plot.scaleMap(2).s2(), 1000.0);
    }
    EXPECT_FALSE(painter.sawWildNumber());
}

TEST(Plot, HoldsEverySeriesOnceAndNoneThatIsNone) {
    Plot plot;
    auto line = std::make_shared<LineSeries>(std::vector{0.0, 1.0}, std::vector{0.0, 1.0});
    plot.addSeries(line);
    plot.addSeries(line);
    plot.addSeries(nullptr);
    RecordingPainter painter;
    plot.renderInto(painter, 400, 300);
    EXPECT_EQ(painter.count("drawPolyline"), 1u);
    EXPECT_TRUE(plot.removeSeries(line));
    EXPECT_FALSE(plot.removeSeries(line));
}

TEST(Plot, SizesAndWidthsOfAThemeThatNoPainterCanDrawReachNone) {
    constexpr double infinity = std::numeric_limits<double>::infinity();
    const Theme ready;
    for (const double bad : {notANumber, infinity, -infinity, -5.0, 0.0, 0.49, 1e9}) {
        for (int field = 0; field < 7; ++field) {
            Theme theme;
            Font* const fonts[] = {&theme.titleFont, &theme.subtitleFont, &theme.axisTitleFont,
                                   &theme.tickFont, &theme.legendFont};
            if (field < 5)
                fonts[field]->setPixelSize(bad);
            else
                (field == 5 ? theme.axisLineWidth : theme.gridLineWidth) = bad;
            Plot plot;
            plot.setTitle("Title");
            plot.setSubtitle("Subtitle");
            plot.axis(0).setTitle("y");
            plot.axis(2).setTitle("x");
            for (const char* name : {"one", "two"})
                plot.add<LineSeries>(counted(3), counted(3), name);
            plot.setTheme(theme);
            zembra::test::StrictPainter painter;
            plot.renderInto(painter, 400, 300);
            EXPECT_EQ(painter.fault(), "") << field << ' ' << bad;
            EXPECT_FALSE(plot.canvasRect().isEmpty()) << field << ' ' << bad;
            if (bad != 1e9) {
                EXPECT_EQ(plot.theme().tickFont, ready.tickFont) << field << ' ' << bad;
            }
        }
    }
    Theme theme;
    theme.tickFont.setPixelSize(0.5);
    Plot plot;
    plot.setTheme(theme);
    EXPECT_EQ(plot.theme().tickFont.pixelSize(), 0.5);
}

TEST(Plot, ItsThemeMayColourTheCanvasAndLetTheGroundThrough) {
    Theme theme;
    theme.background = Color(10, 20, 30, 40);
    theme.canvas = Color(1, 2, 3);
    theme.cycle.clear();
    theme.text = Color(7, 8, 9);
    Plot plot;
    plot.setTheme(theme);
    plot.setTitle("Title");
    plot.setSubtitle("Subtitle");
    plot.add<LineSeries>(std::vector{0.0, 1.0}, std::vector{0.0, 1.0});
    const Plot& same = plot;
    EXPECT_EQ(same.theme().canvas, theme.canvas);
    EXPECT_EQ(same.title(), "Title");
    EXPECT_EQ(same.subtitle(), "Subtitle");
    EXPECT_EQ(&same.axis(2), &plot.axis(2));
    EXPECT_EQ(&same.axis(9), &plot.axis(9));
    RecordingPainter painter;
    plot.renderInto(painter, 400, 300);
    const auto fills = painter.linesOf("fillRect");
    const auto countOf = [&](const std::string& color) {
        return std::count_if(fills.begin(), fills.end(),
                             [&](const std::string& line) { return line.ends_with(color); });
    };
    // Laid on twice, it would be less translucent.
    EXPECT_EQ(countOf("#0a141e28"), 1);
    EXPECT_EQ(countOf("#010203"), 1);
    // Without colours of its own, a series takes the texts'.
    EXPECT_NE(painter.text().find("setPen #070809"), std::string::npos);
}
