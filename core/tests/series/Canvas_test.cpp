// SPDX-License-Identifier: MIT
#include "support/HostileNumbers.h"
#include "support/StrictPainter.h"

#include <zembra/series/Canvas.h>

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <memory>
#include <string>
#include <vector>

using namespace zembra;
using namespace zembra::test;

namespace {

const Rect area{10.0, 10.0, 4.0, 4.0};
const Color ink(1, 2, 3);

// Draws on a canvas of 4 × 4 pixels, and keeps what the painter is given of images.
class Bench : public RecordingPainter {
public:
    explicit Bench(const Rect& rect = area)
        : canvas(*this, rect, ScaleMap(Scale::linear(), rect.left(), rect.right(), 0.0, 1.0),
                 ScaleMap(Scale::linear(), rect.bottom(), rect.top(), 0.0, 1.0), {}, buffers) {}

    void drawImage(const unsigned char* rgba, int w, int h, double cx, double cy) override {
        RecordingPainter::drawImage(rgba, w, h, cx, cy);
        reds.clear();
        for (int i = 0; i < w * h; ++i)
            reds.push_back(rgba[4 * i]);
    }

    FrameBuffers buffers;
    std::vector<int> reds;
    Canvas canvas;
};

// Its reds count up from 0.
std::shared_ptr<const std::vector<std::uint8_t>> picture(int width, int height) {
    auto rgba = std::make_shared<std::vector<std::uint8_t>>();
    for (int i = 0; i < width * height; ++i)
        rgba->insert(rgba->end(), {static_cast<std::uint8_t>(i), 0, 0, 255});
    return rgba;
}

} // namespace

TEST(Canvas, AnImageInsideIsDrawnAsItIsAndKeptForTheFrame) {
    Bench bench;
    const auto rgba = picture(2, 2);
    bench.canvas.drawImage(rgba, 2, 2, {11.0, 12.0});
    EXPECT_EQ(bench.text(), "drawImage 2x2 12,13\n");
    ASSERT_EQ(bench.buffers.size(), 1u);
    EXPECT_EQ(bench.buffers[0], rgba);
}

TEST(Canvas, AnImageIsCutToTheWholePixelsInside) {
    const struct {
        Point corner;
        const char* call;
        std::vector<int> reds;
    } cases[] = {
        {{9.0, 10.0}, "drawImage 2x2 11,11\n", {1, 2, 4, 5}},
        {{10.0, 9.0}, "drawImage 3x1 11.5,10.5\n", {3, 4, 5}},
        {{13.0, 10.0}, "drawImage 1x2 13.5,11\n", {0, 3}},
        {{11.0, 13.0}, "drawImage 3x1 12.5,13.5\n", {0, 1, 2}},
        // Kept where its centre lies inside.
        {{9.5, 10.0}, "drawImage 3x2 11,11\n", {0, 1, 2, 3, 4, 5}},
        {{9.25, 10.0}, "drawImage 2x2 11.25,11\n", {1, 2, 4, 5}},
        // No centre of a pixel lies inside.
        {{7.25, 10.0}, "", {}},
        {{13.75, 10.0}, "", {}},
        {{11.0, 8.25}, "", {}},
        {{11.0, 13.75}, "", {}},
        {{20.0, 10.0}, "", {}},
        {{10.0, 20.0}, "", {}},
    };
    for (const auto& c : cases) {
        Bench bench;
        bench.canvas.drawImage(picture(3, 2), 3, 2, c.corner);
        EXPECT_EQ(bench.text(), c.call) << c.corner.x << " " << c.corner.y;
        EXPECT_EQ(bench.reds, c.reds) << c.corner.x << " " << c.corner.y;
        EXPECT_EQ(bench.buffers.size(), c.reds.empty() ? 0u : 1u);
    }
}

TEST(Canvas, WhatIsNoImageIsNotDrawn) {
    Bench bench;
    bench.canvas.drawImage(nullptr, 2, 2, {11.0, 11.0});
    bench.canvas.drawImage(picture(2, 2), 0, 2, {11.0, 11.0});
    bench.canvas.drawImage(picture(2, 2), 2, -1, {11.0, 11.0});
    bench.canvas.drawImage(picture(2, 2), 2, 1, {11.0, 11.0});
    bench.canvas.drawImage(picture(2, 2), 2, 2, {notANumber, 11.0});
    bench.canvas.drawImage(picture(2, 2), 2, 2, {11.0, HUGE_VAL});
    EXPECT_EQ(bench.text(), "");
}

TEST(Canvas, DiscsWithoutARadiusAreNotDrawn) {
    for (const double radius : {0.0, -2.0, notANumber}) {
        Bench bench;
        bench.canvas.fillDiscs(
            [](std::vector<Point>& centres) {
                centres = {{12.0, 12.0}};
                return false;
            },
            radius, ink);
        int calls = 0;
        bench.canvas.fillDiscs(
            [&calls](std::vector<Point>& centres) {
                centres = {{12.0, 12.0}};
                return calls++ == 0;
            },
            radius, ink);
        EXPECT_EQ(bench.text(), "") << radius;
    }
}

TEST(Canvas, MarkersWithoutSizeOrColourAreNotDrawn) {
    Bench bench;
    for (const double size : {0.0, -1.0, notANumber, HUGE_VAL})
        bench.canvas.fillMarker(MarkerShape::Square, {{12.0, 12.0}, size, ink});
    bench.canvas.fillMarker(MarkerShape::Square, {{12.0, 12.0}, 2.0, ink.withAlpha(0)});
    EXPECT_EQ(bench.text(), "");
    bench.canvas.fillMarker(MarkerShape::Circle, {{12.0, 12.0}, 2.0, ink});
    EXPECT_EQ(bench.text(), "fillEllipse 12,12 1x1 #010203\n");
}

TEST(Canvas, MarkersInAPictureAreThoseThatWouldBeDrawnAlone) {
    const Rect wide{0.0, 0.0, 300.0, 300.0};
    // Without size or colour, outside to every side, far too large, and one in the middle.
    const std::vector<Marker> some = {
        {{150.0, 150.0}, 0.0, ink},        {{150.0, 150.0}, -1.0, ink},
        {{150.0, 150.0}, notANumber, ink}, {{150.0, 150.0}, 9.0, ink.withAlpha(0)},
        {{-20.0, 150.0}, 9.0, ink},        {{320.0, 150.0}, 9.0, ink},
        {{150.0, -20.0}, 9.0, ink},        {{150.0, 320.0}, 9.0, ink},
        {{notANumber, 150.0}, 9.0, ink},   {{150.0, notANumber}, 9.0, ink},
    };
    const auto draw = [&](const std::vector<Marker>& extra) {
        Bench bench(wide);
        int calls = 0;
        bench.canvas.fillMarkers(MarkerShape::Square, [&](std::vector<Marker>& markers) {
            markers.clear();
            for (int i = 0; i < 300; ++i)
                markers.insert(markers.end(), some.begin(), some.end());
            markers.insert(markers.end(), extra.begin(), extra.end());
            return calls++ == 0;
        });
        return bench.text();
    };
    EXPECT_EQ(draw({}), "");
    EXPECT_EQ(draw({{{150.5, 150.5}, 2.0, ink}}).substr(0, 9), "drawImage");
    // Each edge shows what reaches over it.
    for (const Point& centre :
         {Point{-2.0, 150.0}, Point{302.0, 150.0}, Point{150.0, -2.0}, Point{150.0, 302.0}})
        EXPECT_EQ(draw({{centre, 20.0, ink}}).substr(0, 9), "drawImage");
    EXPECT_EQ(draw({{{150.0, 150.0}, 250.0, ink}}).substr(0, 9), "drawImage");
}

TEST(Canvas, TextsAreDrawnWhereAllOfThemFits) {
    const Rect wide{0.0, 0.0, 100.0, 100.0};
    const Font font;
    const struct {
        Point baseline;
        std::string text;
        bool drawn;
    } cases[] = {
        {{10.0, 50.0}, "text", true},        {{10.0, 50.0}, "", false},
        {{notANumber, 50.0}, "text", false}, {{10.0, HUGE_VAL}, "text", false},
        {{-1.0, 50.0}, "text", false},       {{90.0, 50.0}, "text", false},
        {{10.0, 2.0}, "text", false},        {{10.0, 101.0}, "text", false},
    };
    for (const auto& c : cases) {
        Bench bench(wide);
        bench.canvas.drawText(c.baseline, c.text, font, ink);
        EXPECT_EQ(bench.count("drawText"), c.drawn ? 1u : 0u)
            << c.baseline.x << " " << c.baseline.y << " " << c.text;
    }
}

TEST(Canvas, ARulerMeasuresInPlaceOfThePainter) {
    Bench bench;
    bench.canvas.setRuler([](const std::string&, const Font&) { return TextExtent{7.0, 8.0}; });
    EXPECT_EQ(bench.canvas.measureText("any", Font()).width, 7.0);
    EXPECT_EQ(bench.measurements(), 0u);
}

TEST(Canvas, PolygonsAreCutAtTheEdgesOfTheCanvas) {
    const struct {
        const char* what;
        std::vector<Point> corners;
        const char* drawn;
    } cases[] = {
        {"inside", {{11, 11}, {13, 11}, {12, 13}}, "11,11 13,11 12,13"},
        {"right at the edges", {{10, 10}, {14, 10}, {14, 14}}, "10,10 14,10 14,14"},
        {"left", {{8, 11}, {12, 11}, {12, 13}, {8, 13}}, "10,11 12,11 12,13 10,13"},
        {"right", {{12, 11}, {16, 11}, {16, 13}, {12, 13}}, "12,11 14,11 14,13 12,13"},
        {"top", {{11, 8}, {13, 8}, {13, 12}, {11, 12}}, "13,10 13,12 11,12 11,10"},
        {"bottom", {{11, 12}, {13, 12}, {13, 16}, {11, 16}}, "11,12 13,12 13,14 11,14"},
        {"not half-way", {{9, 11}, {13, 11}, {13, 13}}, "10,11 13,11 13,13 10,11.5"},
        {"all around", {{0, 0}, {40, 0}, {40, 40}, {0, 40}}, "14,10 14,14 10,14 10,10"},
        {"outside", {{0, 11}, {9, 11}, {9, 13}}, nullptr},
        {"beyond a corner", {{0, 13}, {9, 20}, {0, 20}}, nullptr},
        {"two corners", {{11, 11}, {13, 13}}, nullptr},
        {"none", {}, nullptr},
    };
    for (const auto& c : cases) {
        Bench bench;
        bench.canvas.fillPolygon(c.corners, ink);
        std::vector<std::string> drawn = bench.linesOf("fillPolygon");
        EXPECT_EQ(drawn.empty(), c.drawn == nullptr) << c.what;
        if (c.drawn && !drawn.empty()) {
            EXPECT_EQ(drawn[0], std::string("fillPolygon #010203 ") + c.drawn) << c.what;
        }
    }
}

TEST(Canvas, RectanglesAreCutAtTheEdgesOfTheCanvas) {
    const struct {
        Rect rect;
        const char* call;
    } cases[] = {
        {{11.0, 12.0, 2.0, 1.0}, "fillRect 11,12 2x1 #010203\n"},
        {{8.0, 11.0, 3.0, 1.0}, "fillRect 10,11 1x1 #010203\n"},
        {{12.0, 11.0, 9.0, 1.0}, "fillRect 12,11 2x1 #010203\n"},
        {{11.0, 8.0, 1.0, 3.0}, "fillRect 11,10 1x1 #010203\n"},
        {{11.0, 12.0, 1.0, 9.0}, "fillRect 11,12 1x2 #010203\n"},
        {{0.0, 0.0, 40.0, 40.0}, "fillRect 10,10 4x4 #010203\n"},
        {{0.0, 11.0, 10.0, 1.0}, ""},
        {{14.0, 11.0, 2.0, 1.0}, ""},
        {{11.0, 0.0, 1.0, 10.0}, ""},
        {{11.0, 14.0, 1.0, 2.0}, ""},
        {{0.0, 20.0, 9.0, 9.0}, ""},
    };
    for (const auto& c : cases) {
        Bench bench;
        bench.canvas.fillRect(c.rect, ink);
        EXPECT_EQ(bench.text(), c.call) << c.rect.x << " " << c.rect.y;
    }
}

TEST(Canvas, ShapesWithoutFiniteCornersAreNotDrawn) {
    Bench bench;
    for (const double bad : {notANumber, HUGE_VAL}) {
        for (const Rect& rect : {Rect{bad, 11.0, 1.0, 1.0}, Rect{11.0, bad, 1.0, 1.0},
                                 Rect{11.0, 11.0, bad, 1.0}, Rect{11.0, 11.0, 1.0, bad}}) {
            bench.canvas.fillRect(rect, ink);
            bench.canvas.drawRect(rect, Pen(ink));
        }
        bench.canvas.fillEllipse({bad, 12.0}, 1.0, 1.0, ink);
        bench.canvas.drawEllipse({12.0, 12.0}, 1.0, bad, Pen(ink));
        bench.canvas.fillPolygon({{11.0, 11.0}, {12.0, bad}, {13.0, 11.0}}, ink);
    }
    EXPECT_EQ(bench.count("fillRect") + bench.count("drawRect") + bench.count("fillEllipse") +
                  bench.count("drawEllipse") + bench.count("fillPolygon") +
                  bench.count("drawPolyline"),
              0u)
        << bench.text();
}

TEST(Canvas, ADashedPathOfManyPointsIsOnePictureOfItsOwnSize) {
    Bench bench({0.0, 0.0, 400.0, 300.0});
    std::vector<Point> path;
    for (int i = 0; i < 100; ++i)
        path.push_back({100.0 + i, i % 2 == 0 ? 50.0 : 150.0});
    Pen pen(ink, 2.0);
    pen.setStyle(PenStyle::Dash);
    bench.canvas.drawPolyline(path, pen);
    EXPECT_EQ(bench.text(), "drawImage 103x104 149.5,100\n");
}

TEST(Canvas, PensOfAnyNumbersReachThePainterAsOnesItCanDraw) {
    const Rect wide{10.0, 10.0, 300.0, 200.0};
    std::vector<Point> dense;
    for (int i = 0; i < 30000; ++i)
        dense.push_back({10.0 + 0.01 * i, i % 2 ? 20.0 : 200.0});
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double infinity = std::numeric_limits<double>::infinity();
    const std::vector<std::vector<double>> patterns{
        {}, {3.0, 2.0}, {3.0}, {nan, 1.0}, {1.0, infinity}, {-3.0, 1.0}, {0.0, 0.0}};
    for (const double width : {2.0, 1e5, 1e9, 1e300, infinity, nan, -1.0}) {
        for (const auto& dashes : patterns) {
            for (const int alpha : {255, 100}) {
                StrictPainter painter;
                FrameBuffers buffers;
                const ScaleMap map(Scale::linear(), 10.0, 300.0, 0.0, 1.0);
                Canvas canvas(painter, wide, map, map, {}, buffers);
                Pen pen(Color(1, 2, 3, alpha), width);
                pen.setDashPattern(dashes);
                canvas.drawRect({20.0, 20.0, 30.0, 30.0}, pen);
                canvas.drawEllipse({60.0, 60.0}, 20.0, 10.0, pen);
                canvas.drawLine({20.0, 20.0}, {90.0, 80.0}, pen);
                canvas.drawPolyline(dense, pen);
                EXPECT_EQ(painter.fault(), "") << width << ' ' << dashes.size() << ' ' << alpha;
            }
        }
    }
}

TEST(Canvas, PolygonsAndLinesWithCornersOfAnyDistanceStayInside) {
    const Rect wide{10.0, 10.0, 300.0, 200.0};
    for (const double far : {1e5, 1e17, 1e300, std::numeric_limits<double>::max()}) {
        StrictPainter painter;
        FrameBuffers buffers;
        const ScaleMap map(Scale::linear(), 10.0, 300.0, 0.0, 1.0);
        Canvas canvas(painter, wide, map, map, {}, buffers);
        canvas.fillPolygon({{-far, 0.3 * far}, {0.7 * far, far}, {0.1 * far, -far}}, ink);
        canvas.fillEllipse({160.0, 110.0}, far, 0.3 * far, ink);
        canvas.drawEllipse({160.0, 110.0}, far, 0.3 * far, Pen(ink, 2.0));
        for (const Point& from : {Point{-far, -far}, {160.0, -far}, {-far, 110.0}, {-far, far}})
            canvas.drawPolyline({from, {-from.x, -from.y}, {160.0, 110.0}, from}, Pen(ink, 2.0));
        EXPECT_EQ(painter.fault(), "") << far;
    }
}

TEST(Canvas, RectanglesOfNegativeSizeAreNotDrawn) {
    Bench bench;
    for (const Rect& rect : {Rect{13.0, 11.0, -1.0, 2.0}, {1e300, 1e300, -2e300, -2e300}})
        bench.canvas.drawRect(rect, Pen(ink, 2.0));
    EXPECT_EQ(bench.text(), "");
}

TEST(Canvas, DashesThatCannotBeDrawnAreALine) {
    Bench bench;
    Pen pen(ink, 2.0);
    pen.setStyle(PenStyle::None);
    pen.setDashPattern({3.0, HUGE_VAL});
    bench.canvas.drawRect({11.0, 11.0, 2.0, 2.0}, pen);
    Bench solid;
    solid.canvas.drawRect({11.0, 11.0, 2.0, 2.0}, Pen(ink, 2.0));
    EXPECT_EQ(bench.text(), solid.text());
}

// Qt's painter would warn of it each time.
TEST(Canvas, PaintersGetAGapAfterTheLastDash) {
    const auto drawn = [](const std::vector<double>& dashes) {
        Pen pen(ink, 2.0);
        pen.setDashPattern(dashes);
        Bench bench({0.0, 0.0, 400.0, 300.0});
        bench.canvas.drawRect({20.0, 60.0, 300.0, 60.0}, pen);
        bench.canvas.drawEllipse({200.0, 200.0}, 90.0, 60.0, pen);
        bench.canvas.drawLine({20.0, 40.0}, {380.0, 40.0}, pen);
        return bench.text();
    };
    EXPECT_EQ(drawn({4.0, 2.0, 1.0}), drawn({4.0, 2.0, 1.0, 1.0}));
    EXPECT_NE(drawn({4.0, 2.0, 1.0}), drawn({4.0, 2.0}));
}

// Painters take seconds for them, or minutes with a wide pen.
TEST(Canvas, MoreDashesThanAPainterDrawsInTimeAreOnePicture) {
    const auto draw = [](Bench& bench, const Pen& pen) {
        bench.canvas.drawLine({20.0, 40.0}, {380.0, 40.0}, pen);
        bench.canvas.drawRect({20.0, 60.0, 300.0, 60.0}, pen);
        bench.canvas.drawEllipse({200.0, 200.0}, 90.0, 60.0, pen);
    };
    for (const double width : {0.0, 3.0, 30.0}) {
        Pen pen(ink, width);
        pen.setDashPattern({0.02, 0.02});
        Bench bench({0.0, 0.0, 400.0, 300.0});
        draw(bench, pen);
        EXPECT_EQ(bench.count("drawImage"), 3) << width << '\n' << bench.text();
        EXPECT_EQ(bench.count("drawPolyline") + bench.count("drawRect") + bench.count("drawLine") +
                      bench.count("drawEllipse"),
                  0)
            << width << '\n'
            << bench.text();
    }
    Pen dotted(ink, 1.0);
    dotted.setStyle(PenStyle::Dot);
    Bench bench({0.0, 0.0, 400.0, 300.0});
    draw(bench, dotted);
    EXPECT_EQ(bench.count("drawImage"), 0) << bench.text();
}
