// SPDX-License-Identifier: MIT
#include <zembra/series/ScatterSeries.h>

#include "support/HostileNumbers.h"
#include "support/PicturePainter.h"

#include <zembra/series/Canvas.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <utility>

using namespace zembra;
using namespace zembra::test;

namespace {

const Rect sheet{10.0, 20.0, 300.0, 200.0};
const ScaleMap acrossArea(Scale::linear(), 10.0, 310.0, 0.0, 300.0);
const ScaleMap upArea(Scale::linear(), 220.0, 20.0, 0.0, 200.0);

void draw(const ScatterSeries& series, RecordingPainter& painter) {
    FrameBuffers buffers;
    SeriesLook look;
    look.color = Color(1, 2, 3);
    Canvas canvas(painter, sheet, acrossArea, upArea, look, buffers);
    series.draw(canvas);
}

} // namespace

TEST(ScatterSeries, DrawsFewDiscsAsEllipsesAndLeavesOutWhatHasNoPlace) {
    const double missing = std::numeric_limits<double>::quiet_NaN();
    const ScatterSeries series({50.0, 10.0, missing, 60.0, 900.0},
                               {50.0, 100.0, 5.0, missing, 5.0});
    RecordingPainter painter;
    draw(series, painter);
    EXPECT_EQ(painter.text(), "fillEllipse 60,170 3x3 #010203\n"
                              "fillEllipse 20,120 3x3 #010203\n");
}

TEST(ScatterSeries, CutsDiscsAtTheEdgeOfTheCanvas) {
    const ScatterSeries series({0.0}, {100.0});
    RecordingPainter painter;
    draw(series, painter);
    EXPECT_EQ(painter.count("fillEllipse"), 0u);
    EXPECT_EQ(painter.count("fillPolygon"), 1u);
}

TEST(ScatterSeries, DrawsManyDiscsAsOnePicture) {
    std::mt19937 generator(1);
    std::uniform_real_distribution<double> uniform(-50.0, 350.0);
    for (std::size_t count : {10000u, 100000u}) {
        std::vector<double> x(count);
        std::vector<double> y(count);
        for (std::size_t i = 0; i < count; ++i) {
            x[i] = uniform(generator);
            y[i] = uniform(generator);
        }
        RecordingPainter painter;
        draw(ScatterSeries(x, y), painter);
        EXPECT_EQ(painter.text(), "drawImage 300x200 160,120\n");
    }
}

TEST(ScatterSeries, FewVisibleDiscsOfManySamplesStayEllipses) {
    std::vector<double> x(100000);
    for (std::size_t i = 0; i < x.size(); ++i)
        x[i] = static_cast<double>(i);
    RecordingPainter painter;
    draw(ScatterSeries(x, std::vector<double>(x.size(), 100.0)), painter);
    EXPECT_EQ(painter.count("drawImage"), 0u);
    EXPECT_GE(painter.count("fillEllipse"), 290u);
}

TEST(ScatterSeries, DrawsEightShapesOfEqualWeight) {
    const struct {
        MarkerShape shape;
        const char* expected;
    } cases[] = {
        {MarkerShape::Circle, "fillEllipse 50,50 5x5 #0072b2\n"},
        {MarkerShape::Square,
         "fillPolygon #0072b2 45.57,45.57 54.43,45.57 54.43,54.43 45.57,54.43\n"},
        {MarkerShape::Diamond, "fillPolygon #0072b2 50,43.73 56.27,50 50,56.27 43.73,50\n"},
        {MarkerShape::TriangleUp, "fillPolygon #0072b2 50,43.1 55.98,53.45 44.02,53.45\n"},
        {MarkerShape::TriangleDown, "fillPolygon #0072b2 50,56.9 44.02,46.55 55.98,46.55\n"},
        {MarkerShape::Plus,
         "fillPolygon #0072b2 48.7,44 51.3,44 51.3,48.7 56,48.7 56,51.3 51.3,51.3 "
         "51.3,56 48.7,56 48.7,51.3 44,51.3 44,48.7 48.7,48.7\n"},
        {MarkerShape::Cross,
         "fillPolygon #0072b2 53.32,44.84 55.16,46.68 51.84,50 55.16,53.32 53.32,55.16 50,51.84 "
         "46.68,55.16 44.84,53.32 48.16,50 44.84,46.68 46.68,44.84 50,48.16\n"},
        {MarkerShape::Star,
         "fillPolygon #0072b2 50,43 51.73,47.62 56.66,47.84 52.8,50.91 54.11,55.66 50,52.94 "
         "45.89,55.66 47.2,50.91 43.34,47.84 48.27,47.62\n"},
    };
    for (const auto& c : cases) {
        Stage stage;
        ScatterSeries series({5.0}, {5.0});
        series.setMarkerSize(10.0);
        series.setMarkerShape(c.shape);
        EXPECT_EQ(stage.draw(series), c.expected);
    }
}

TEST(ScatterSeries, TakesSizeAndColourOfEachSampleWhereItHasThem) {
    Stage stage;
    ScatterSeries series({1.0, 2.0, 3.0, 4.0}, {5.0, 5.0, 5.0, 5.0});
    series.setMarkerSizes({4.0, notANumber, 8.0});
    series.setMarkerColors({Color(255, 0, 0), Color(0, 255, 0)});
    EXPECT_EQ(stage.draw(series), "fillEllipse 10,50 2x2 #ff0000\n"
                                  "fillEllipse 30,50 4x4 #0072b2\n"
                                  "fillEllipse 40,50 3x3 #0072b2\n");
}

TEST(ScatterSeries, ColoursByValueAndTellsItsColourScale) {
    Stage stage;
    ScatterSeries series({1.0, 2.0, 3.0, 4.0}, {5.0, 5.0, 5.0, 5.0});
    EXPECT_EQ(series.colorScale(), nullptr);
    series.setColorScale(ColorScale(ColorMap({Color(0, 0, 0), Color(255, 255, 255)})));
    series.setColorValues({10.0, notANumber, 20.0});
    ASSERT_NE(series.colorScale(), nullptr);
    EXPECT_EQ(series.colorScale()->range(), (Interval{10.0, 20.0}));
    EXPECT_EQ(stage.draw(series), "fillEllipse 10,50 3x3 #000000\n"
                                  "fillEllipse 30,50 3x3 #ffffff\n");
    ColorScale scale = *series.colorScale();
    scale.setNanColor(Color(255, 0, 0));
    series.setColorScale(scale);
    EXPECT_EQ(stage.draw(series), "fillEllipse 10,50 3x3 #000000\n"
                                  "fillEllipse 20,50 3x3 #ff0000\n"
                                  "fillEllipse 30,50 3x3 #ffffff\n"
                                  "fillEllipse 40,50 3x3 #ff0000\n");
    EXPECT_EQ(stage.drawKey(series), "fillEllipse 3.33,5 2.5x2.5 #000000\n"
                                     "fillEllipse 10,5 2.5x2.5 #808080\n"
                                     "fillEllipse 16.67,5 2.5x2.5 #ffffff\n");
    series.setColorValues({});
    EXPECT_EQ(series.colorScale(), nullptr);
}

TEST(ScatterSeries, DrawsManyMarkersOfAnyKindAsOnePictureThatLooksLikeThemAlone) {
    for (const MarkerShape shape :
         {MarkerShape::Circle, MarkerShape::Square, MarkerShape::TriangleUp, MarkerShape::Star}) {
        // One marker that can be seen below thousands that cannot.
        std::vector<double> x(3000, 2.5125);
        std::vector<double> y(3000, 2.5125);
        std::vector<Color> colors(3000, Color(0, 0, 200));
        x[0] = y[0] = 7.5125;
        colors.back() = Color(200, 0, 0);
        ScatterSeries series(x, y);
        series.setMarkerShape(shape);
        series.setMarkerSize(12.0);
        series.setMarkerColors(colors);
        Stage stage;
        PicturePainter painter;
        FrameBuffers buffers;
        Canvas canvas(painter, {0.0, 0.0, 100.0, 100.0}, stage.x(), stage.y(), {}, buffers);
        series.draw(canvas);
        ASSERT_EQ(painter.count("drawImage"), 1u);
        EXPECT_EQ(painter.count(), 1u);
        EXPECT_EQ(painter.at(25, 74), Color(200, 0, 0));
        EXPECT_EQ(painter.at(75, 24), Color(0, 0, 200));
        EXPECT_EQ(painter.at(50, 50).alpha(), 0);
        // The covered area is that of the outline.
        double covered = 0.0;
        for (int row = 0; row < 50; ++row)
            for (int column = 50; column < 100; ++column)
                covered += painter.at(column, row).alpha() / 255.0;
        const double expected = shape == MarkerShape::Circle       ? 113.1
                                : shape == MarkerShape::Square     ? 113.0
                                : shape == MarkerShape::TriangleUp ? 89.06
                                                                   : 87.09;
        EXPECT_NEAR(covered, expected, 1.5);
    }
}

TEST(ScatterSeries, BlendsTranslucentMarkersOverEachOther) {
    std::vector<double> x(3000, 20.0);
    x[10] = x[20] = 5.0;
    x[30] = -1.0;
    std::vector<Color> colors(3000, Color(0, 0, 0));
    colors[10] = Color(255, 0, 0, 128);
    colors[20] = Color(0, 0, 255, 128);
    x[40] = 8.0;
    ScatterSeries series(x, std::vector<double>(3000, 5.0));
    series.setMarkerColors(colors);
    series.setMarkerSizes(std::vector<double>(3000, 20.0));
    PicturePainter painter;
    FrameBuffers buffers;
    const ScaleMap wide(Scale(), 0.0, 100.0, 0.0, 21.0);
    const ScaleMap up(Scale(), 100.0, 0.0, 0.0, 10.0);
    Canvas canvas(painter, {0.0, 0.0, 100.0, 100.0}, wide, up, {}, buffers);
    series.draw(canvas);
    ASSERT_EQ(painter.count("drawImage"), 1u);
    const Color both = painter.at(20, 50);
    EXPECT_NEAR(both.alpha(), 192, 1);
    EXPECT_NEAR(both.red(), 85, 2);
    EXPECT_NEAR(both.blue(), 170, 2);
}

TEST(ScatterSeries, FindsTheNearestMarkerThatIsShown) {
    Stage stage;
    ScatterSeries series({5.0, 5.2, 1.0, 50.0}, {5.0, 5.0, 1.0, 5.0});
    const auto found = stage.nearest(series, {53.0, 50.0});
    ASSERT_TRUE(found);
    EXPECT_EQ(found->index, 1u);
    EXPECT_NEAR(found->distance, 1.0, 1e-9);
    series.setMarkerSizes({6.0, 0.0});
    EXPECT_EQ(stage.nearest(series, {53.0, 50.0})->index, 0u);
    series.setColorValues({notANumber, 1.0, 1.0, 1.0});
    EXPECT_EQ(stage.nearest(series, {53.0, 50.0})->index, 2u);
    EXPECT_FALSE(stage.nearest(ScatterSeries(), {53.0, 50.0}));
}

TEST(ScatterSeries, LooksTheSameHoweverItsSamplesAreHeld) {
    std::vector<double> x;
    std::vector<double> y;
    for (int i = 0; i < 40; ++i) {
        x.push_back(0.5 * i - 1.0);
        y.push_back(i % 7 == 3 ? notANumber : i % 11 + 0.25);
    }
    const std::vector<float> xf(x.begin(), x.end());
    const std::vector<float> yf(y.begin(), y.end());
    Samples ring = Samples::streamed(x.size());
    ring.append(-3.0, 7.0);
    ring.append(x, y);
    const Samples others[] = {Samples::owned(xf, yf), Samples::evenlySpaced(-1.0, 0.5, y),
                              Samples::evenlySpaced(-1.0, 0.5, yf), ring};
    for (const auto shape : {MarkerShape::Circle, MarkerShape::Square}) {
        ScatterSeries series(x, y);
        series.setMarkerShape(shape);
        Stage stage;
        const std::string expected = stage.draw(series);
        EXPECT_NE(expected, "");
        for (const Samples& samples : others) {
            series.setSamples(samples);
            EXPECT_EQ(stage.draw(series), expected);
        }
    }
}

TEST(ScatterSeries, KeepsItsSizeWhereAnotherMakesNoSense) {
    ScatterSeries series({5.0}, {5.0});
    series.setMarkerSize(8.0);
    for (const double bad : {0.0, -1.0, notANumber, HUGE_VAL})
        series.setMarkerSize(bad);
    EXPECT_EQ(series.markerSize(), 8.0);
}

TEST(ScatterSeries, TellsWhatItWasGiven) {
    ScatterSeries series;
    series.setSamples({1.0, 2.0}, {3.0, 4.0});
    EXPECT_EQ(series.samples().size(), 2u);
    EXPECT_EQ(series.samples().y(1), 4.0);
    series.setMarkerShape(MarkerShape::Star);
    EXPECT_EQ(series.markerShape(), MarkerShape::Star);
    series.setMarkerSizes({4.0, 5.0});
    EXPECT_EQ(series.markerSizes(), (std::vector{4.0, 5.0}));
    series.setMarkerColors({Color(1, 2, 3)});
    EXPECT_EQ(series.markerColors(), (std::vector{Color(1, 2, 3)}));
    series.setColorValues({7.0});
    EXPECT_EQ(series.colorValues(), std::vector{7.0});
}

TEST(ScatterSeries, ItsRevisionGrowsWithEveryChangeAndItsSamples) {
    Samples ring = Samples::streamed(10);
    ring.append(1.0, 1.0);
    ring.append(2.0, 1.0);
    ScatterSeries series(ring, "");
    std::uint64_t before = series.revision();
    const auto grows = [&] {
        const std::uint64_t now = series.revision();
        return now > std::exchange(before, now);
    };
    ring.append(3.0, 1.0);
    EXPECT_TRUE(grows());
    series.setMarkerSize(9.0);
    EXPECT_TRUE(grows());
    series.setSamples({1.0}, {1.0});
    EXPECT_TRUE(grows());
}

TEST(ScatterSeries, DrawsDiscsTooLargeForAPictureOneByOne) {
    std::vector<double> x;
    for (int i = 0; i < 3000; ++i)
        x.push_back(0.1 * i);
    ScatterSeries series(x, std::vector<double>(x.size(), 100.0));
    series.setMarkerSize(180.0);
    RecordingPainter painter;
    draw(series, painter);
    EXPECT_EQ(painter.count("drawImage"), 0u);
    EXPECT_EQ(painter.count("fillEllipse") + painter.count("fillPolygon"), 3000u);
}

TEST(ScatterSeries, WithstandsHostileNumbers) {
    expectHarmlessForAll([](const std::vector<double>& x, const std::vector<double>& y) {
        return std::make_shared<ScatterSeries>(x, y);
    });
    for (const MarkerShape shape : {MarkerShape::Circle, MarkerShape::Star}) {
        expectHarmlessForAll([&](const std::vector<double>& a, const std::vector<double>& b) {
            auto series = std::make_shared<ScatterSeries>(a, b);
            series->setMarkerShape(shape);
            series->setMarkerSizes(b);
            series->setColorValues(a);
            return series;
        });
    }
}
