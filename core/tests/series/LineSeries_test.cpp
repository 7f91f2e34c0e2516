// SPDX-License-Identifier: MIT
#include <zembra/series/LineSeries.h>

#include "support/RecordingPainter.h"

#include <zembra/series/Canvas.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>

using namespace zembra;
using zembra::test::RecordingPainter;

namespace {

constexpr double missing = std::numeric_limits<double>::quiet_NaN();
constexpr double width = 400.0;
constexpr double height = 200.0;
const Rect area{0.0, 0.0, width, height};

ScaleMap xOver(double first, double last, const Scale& scale = {}) {
    return ScaleMap(scale, 0.0, width, first, last);
}

ScaleMap yOver(double first, double last, const Scale& scale = {}) {
    return ScaleMap(scale, height, 0.0, first, last);
}

// Keeps the alpha of the last picture too.
class PicturePainter : public RecordingPainter {
public:
    void drawImage(const unsigned char* rgba, int w, int h, double cx, double cy) override {
        RecordingPainter::drawImage(rgba, w, h, cx, cy);
        left = static_cast<int>(std::lround(cx - 0.5 * w));
        top = static_cast<int>(std::lround(cy - 0.5 * h));
        columns = w;
        rows = h;
        pixels.assign(rgba, rgba + static_cast<std::ptrdiff_t>(w) * h * 4);
    }

    int alpha(int x, int y) const {
        if (x < left || y < top || x >= left + columns || y >= top + rows)
            return 0;
        return pixels[static_cast<std::size_t>(((y - top) * columns + x - left) * 4 + 3)];
    }

    int left = 0;
    int top = 0;
    int columns = 0;
    int rows = 0;
    std::vector<unsigned char> pixels;
};

void draw(const LineSeries& series, RecordingPainter& painter, const ScaleMap& x, const ScaleMap& y,
          const Color& color = Color()) {
    FrameBuffers buffers;
    SeriesLook look;
    look.color = color;
    Canvas canvas(painter, area, x, y, look, buffers);
    series.draw(canvas);
}

std::vector<double> noise(std::size_t count) {
    std::mt19937 generator(1);
    std::uniform_real_distribution<double> uniform(-1.0, 1.0);
    std::vector<double> values(count);
    for (double& v : values)
        v = uniform(generator);
    return values;
}

Samples evenly(std::vector<double> y) {
    const double step = 1.0 / static_cast<double>(y.size());
    return Samples::evenlySpaced(0.0, step, std::move(y));
}

} // namespace

TEST(LineSeries, DrawsFewSamplesAsOnePolyline) {
    LineSeries series({0.0, 1.0, 2.0, 4.0}, {0.0, 10.0, 0.0, 5.0});
    series.setWidth(1.0);
    RecordingPainter painter;
    draw(series, painter, xOver(0.0, 4.0), yOver(0.0, 10.0));
    EXPECT_EQ(painter.text(), "setPen #000000 1\n"
                              "drawPolyline 0,200 100,0 200,200 400,100\n");
}

TEST(LineSeries, LeavesAGapWhereASampleIsMissingAndADotBetweenTwoGaps) {
    LineSeries series({0.0, 1.0, 2.0, 3.0, 4.0, missing, 4.0},
                      {0.0, 0.0, missing, 5.0, missing, 5.0, 7.0});
    series.setWidth(1.0);
    RecordingPainter painter;
    draw(series, painter, xOver(0.0, 8.0), yOver(0.0, 10.0));
    EXPECT_EQ(painter.text(), "setPen #000000 1\n"
                              "drawPolyline 0,200 50,200\n"
                              "fillRect 149.5,99.5 1x1 #000000\n"
                              "fillRect 199.5,59.5 1x1 #000000\n");
}

TEST(LineSeries, GoesInStepsBeforeAfterAndBetweenSamples) {
    const struct {
        LineSteps steps;
        const char* expected;
    } cases[] = {
        {LineSteps::After, "drawPolyline 0,200 200,200 200,100 400,100\n"},
        {LineSteps::Before, "drawPolyline 0,200 0,100 400,100\n"},
        {LineSteps::Mid, "drawPolyline 0,200 100,200 100,100 400,100\n"},
    };
    for (const auto& c : cases) {
        LineSeries series({0.0, 2.0, 4.0}, {0.0, 5.0, 5.0});
        series.setWidth(1.0);
        series.setSteps(c.steps);
        RecordingPainter painter;
        draw(series, painter, xOver(0.0, 4.0), yOver(0.0, 10.0));
        EXPECT_EQ(painter.text(), std::string("setPen #000000 1\n") + c.expected);
    }
}

TEST(LineSeries, CostsAsMuchAsTheCanvasHasColumnsHoweverManySamplesThereAre) {
    for (std::size_t count : {1000u, 10000u, 100000u, 1000000u, 10000000u}) {
        for (double pen : {1.0, 3.0}) {
            LineSeries rough(evenly(noise(count)));
            rough.setWidth(pen);
            RecordingPainter painter;
            draw(rough, painter, xOver(0.0, 1.0), yOver(-1.0, 1.0));
            EXPECT_LE(painter.count(), 3u) << count;
            EXPECT_LE(painter.vertices(), 4.0 * width) << count;

            std::vector<double> values(count);
            for (std::size_t i = 0; i < count; ++i)
                values[i] = std::sin(20.0 * static_cast<double>(i) / static_cast<double>(count));
            LineSeries smooth(evenly(values));
            smooth.setWidth(pen);
            painter.clear();
            draw(smooth, painter, xOver(0.0, 1.0), yOver(-1.0, 1.0));
            EXPECT_LE(painter.count(), width / 8.0) << count;
            EXPECT_LE(painter.vertices(), 2.0 * width) << count;
            EXPECT_GE(painter.count("drawPolyline"), 1u) << count;
        }
    }
}

TEST(LineSeries, ShowsEachIsolatedSpikeAtEveryZoom) {
    constexpr std::size_t count = 1000000;
    constexpr std::size_t spike = 612345;
    std::vector<double> values = noise(count);
    for (double& v : values)
        v *= 0.2;
    values[spike] = 0.95;
    LineSeries series(evenly(values));
    series.setWidth(1.0);
    const double at = static_cast<double>(spike) / static_cast<double>(count);
    for (double span = 1.0; span > 1e-4; span *= 0.37) {
        PicturePainter painter;
        draw(series, painter, xOver(at - 0.4 * span, at + 0.6 * span), yOver(-1.0, 1.0));
        // The picture's topmost row is where the spike ends.
        if (painter.count("drawImage") == 0)
            continue;
        EXPECT_NEAR(painter.top, 5, 1) << span;
        EXPECT_GE(painter.alpha(160, 20) + painter.alpha(159, 20) + painter.alpha(161, 20), 150)
            << span;
    }
}

TEST(LineSeries, BlendsEachPixelOnceWhenTranslucent) {
    LineSeries series(evenly(noise(100000)));
    series.setWidth(3.0);
    PicturePainter painter;
    draw(series, painter, xOver(0.0, 1.0), yOver(-1.0, 1.0), Color(10, 20, 30, 100));
    ASSERT_EQ(painter.count("drawImage"), 1u);
    EXPECT_EQ(painter.alpha(200, 100), 100);
    for (std::size_t i = 3; i < painter.pixels.size(); i += 4)
        ASSERT_LE(painter.pixels[i], 100);
}

TEST(LineSeries, MovesByWholePixelsWithoutChangingWhatItShows) {
    LineSeries series(evenly(noise(200000)));
    series.setWidth(1.0);
    PicturePainter before;
    draw(series, before, xOver(0.25, 0.75), yOver(-1.0, 1.0));
    PicturePainter after;
    const double shift = 7.0 * 0.5 / width;
    draw(series, after, xOver(0.25 + shift, 0.75 + shift), yOver(-1.0, 1.0));
    int different = 0;
    for (int y = 0; y < static_cast<int>(height); ++y)
        for (int x = 10; x < static_cast<int>(width) - 20; ++x)
            different += std::abs(before.alpha(x + 7, y) - after.alpha(x, y)) > 8 ? 1 : 0;
    // A sample on the very edge of a strip may fall to either side.
    EXPECT_LE(different, 80);
    EXPECT_GT(before.alpha(100, 100), 250);
}

TEST(LineSeries, DrawsReversedAndLogarithmicAxesAsTheirMirrorAndTheirMap) {
    std::vector<double> x;
    std::vector<double> y;
    for (int i = 0; i < 200000; ++i) {
        x.push_back(std::exp(i * 1e-4));
        y.push_back(i % 1000 == 0 ? -1.0 : std::exp(std::sin(i * 1e-4) * (i % 100) * 0.03));
    }
    LineSeries series(x, y);
    series.setWidth(1.0);
    PicturePainter forward;
    draw(series, forward, xOver(x.front(), x.back(), Scale::log()),
         yOver(0.01, 100.0, Scale::log()));
    PicturePainter backward;
    draw(series, backward, xOver(x.back(), x.front(), Scale::log()),
         yOver(0.01, 100.0, Scale::log()));
    ASSERT_EQ(forward.count("drawImage"), 1u);
    ASSERT_EQ(backward.count("drawImage"), 1u);
    std::vector<double> logX;
    std::vector<double> logY;
    for (std::size_t i = 0; i < x.size(); ++i) {
        logX.push_back(std::log(x[i]));
        logY.push_back(std::log(y[i]));
    }
    LineSeries mapped(logX, logY);
    mapped.setWidth(1.0);
    PicturePainter linear;
    draw(mapped, linear, xOver(logX.front(), logX.back()), yOver(std::log(0.01), std::log(100.0)));
    int touched = 0;
    int mirrored = 0;
    int like = 0;
    for (int py = 0; py < static_cast<int>(height); ++py) {
        for (int px = 0; px < static_cast<int>(width); ++px) {
            const int a = forward.alpha(px, py);
            const int b = backward.alpha(static_cast<int>(width) - 1 - px, py);
            touched += a > 0 ? 1 : 0;
            mirrored += std::abs(a - b);
            like += std::abs(a - linear.alpha(px, py));
        }
    }
    EXPECT_GT(touched, 2000);
    EXPECT_LT(mirrored, touched * 2.55);
    EXPECT_LT(like, touched * 2.55);
}

TEST(LineSeries, NeverHandsOverWildNumbers) {
    const double huge = std::numeric_limits<double>::max();
    LineSeries series({-huge, 0.0, 1.0, 2.0, 3.0, huge}, {0.0, huge, -huge, 1e300, 5.0, 1.0});
    for (double pen : {0.0, 1.0, 40.0}) {
        series.setWidth(pen);
        RecordingPainter painter;
        draw(series, painter, xOver(0.0, 4.0), yOver(0.0, 10.0));
        EXPECT_FALSE(painter.sawWildNumber());
        EXPECT_GT(painter.count(), 1u);
    }
}

TEST(LineSeries, DrawsLongUnsortedCurvesInAFewCalls) {
    std::vector<double> x;
    std::vector<double> y;
    for (int i = 0; i < 300000; ++i) {
        x.push_back(std::sin(i * 3e-3));
        y.push_back(std::sin(i * 3.1e-3));
    }
    LineSeries series(x, y);
    PicturePainter painter;
    draw(series, painter, xOver(-1.1, 1.1), yOver(-1.1, 1.1), Color(0, 0, 0, 90));
    EXPECT_LE(painter.count(), 2u);
    ASSERT_EQ(painter.count("drawImage"), 1u);
    EXPECT_EQ(*std::max_element(painter.pixels.begin(), painter.pixels.end()), 90);
}

TEST(LineSeries, KeepsItsDashesWhereTheyBecomeAPicture) {
    std::vector<double> values(2000);
    for (std::size_t i = 0; i < values.size(); ++i)
        values[i] = std::sin(0.03 * static_cast<double>(i));
    LineSeries series(evenly(values));
    series.setWidth(2.0);
    series.setDashPattern({5.0, 5.0});
    PicturePainter painter;
    draw(series, painter, xOver(0.0, 1.0), yOver(-1.0, 1.0));
    ASSERT_EQ(painter.count("drawImage"), 1u);
    const auto inked = [&painter] {
        return std::count_if(painter.pixels.begin(), painter.pixels.end(),
                             [](unsigned char byte) { return byte > 127; });
    };
    const auto dashed = inked();
    series.setDashPattern({5.0, 0.0});
    painter.clear();
    draw(series, painter, xOver(0.0, 1.0), yOver(-1.0, 1.0));
    const auto solid = inked();
    // Square ends make each dash longer by the pen's width: 6 of 10.
    EXPECT_NEAR(static_cast<double>(dashed) / static_cast<double>(solid), 0.6, 0.05);
}

TEST(LineSeries, ItsRevisionOnlyGrows) {
    Samples ring = Samples::streamed(10);
    LineSeries series(ring);
    std::uint64_t last = series.revision();
    const auto grown = [&] {
        const std::uint64_t now = series.revision();
        const bool more = now > last;
        last = now;
        return more;
    };
    for (int i = 0; i < 5; ++i)
        ring.append(i, i);
    EXPECT_TRUE(grown());
    series.setSamples({1.0}, {2.0});
    EXPECT_TRUE(grown());
    series.setWidth(4.0);
    EXPECT_TRUE(grown());
    series.setWidth(-4.0);
    EXPECT_FALSE(grown());
    EXPECT_EQ(series.width(), 4.0);
}
