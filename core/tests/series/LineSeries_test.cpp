// SPDX-License-Identifier: MIT
#include <zembra/series/LineSeries.h>

#include "support/HostileNumbers.h"
#include "support/PicturePainter.h"

#include <zembra/series/Canvas.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <limits>
#include <numbers>
#include <random>

using namespace zembra;
using namespace zembra::test;

namespace {

constexpr double width = 400.0;
constexpr double height = 200.0;
const Rect wide{0.0, 0.0, width, height};

ScaleMap xOver(double first, double last, const Scale& scale = {}) {
    return ScaleMap(scale, 0.0, width, first, last);
}

ScaleMap yOver(double first, double last, const Scale& scale = {}) {
    return ScaleMap(scale, height, 0.0, first, last);
}

void draw(const LineSeries& series, RecordingPainter& painter, const ScaleMap& x, const ScaleMap& y,
          const Color& color = Color()) {
    FrameBuffers buffers;
    SeriesLook look;
    look.color = color;
    Canvas canvas(painter, wide, x, y, look, buffers);
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
    LineSeries series({0.0, 1.0, 2.0, 3.0, 4.0, notANumber, 4.0},
                      {0.0, 0.0, notANumber, 5.0, notANumber, 5.0, 7.0});
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

TEST(LineSeries, StepsOfUnsortedSamplesStopAtGaps) {
    for (const LineSteps steps : {LineSteps::After, LineSteps::Before, LineSteps::Mid}) {
        LineSeries series({0.0, 4.0, 8.0, 6.0, 10.0}, {2.0, 2.0, notANumber, 6.0, 6.0});
        series.setWidth(1.0);
        series.setSteps(steps);
        RecordingPainter painter;
        draw(series, painter, xOver(0.0, 10.0), yOver(0.0, 10.0));
        EXPECT_EQ(painter.text(), "setPen #000000 1\n"
                                  "drawPolyline 0,160 160,160\n"
                                  "drawPolyline 240,80 400,80\n");
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
        EXPECT_GE(painter.at(160, 20).alpha() + painter.at(159, 20).alpha() +
                      painter.at(161, 20).alpha(),
                  150)
            << span;
    }
}

TEST(LineSeries, CoversWhatAWidePenCoversAlongADenseWave) {
    std::vector<double> y(1600);
    std::vector<Point> path(y.size());
    for (std::size_t i = 0; i < y.size(); ++i) {
        const double x = static_cast<double>(i) / static_cast<double>(y.size());
        y[i] = std::sin(2.0 * std::numbers::pi * 40.0 * x);
        path[i] = {width * x, 75.0 - 6.25 * y[i]};
    }
    // The stroke of each line is a rectangle, and a triangle on either side fills each corner.
    constexpr double half = 45.0;
    const auto cross = [](const Point& a, const Point& b) { return a.x * b.y - a.y * b.x; };
    struct Line {
        Point to;
        Point along;
        double length;
        Point side;
    };
    std::vector<Line> lines;
    for (std::size_t i = 1; i < path.size(); ++i) {
        const Point span{path[i].x - path[i - 1].x, path[i].y - path[i - 1].y};
        const double length = std::hypot(span.x, span.y);
        const Point along{span.x / length, span.y / length};
        lines.push_back({path[i], along, length, {-along.y * half, along.x * half}});
    }
    const auto isCovered = [&](const Point& p) {
        for (std::size_t i = 0; i + 1 < lines.size(); ++i) {
            const auto& [end, along, length, n] = lines[i];
            const Point to{p.x - end.x, p.y - end.y};
            const double behind = -(to.x * along.x + to.y * along.y);
            if (behind >= 0.0 && behind <= length && std::abs(cross(along, to)) <= half)
                return true;
            const Point& m = lines[i + 1].side;
            const double turn = cross(n, m);
            const double u = cross(to, m) / turn;
            const double v = cross(n, to) / turn;
            if ((u >= 0.0 && v >= 0.0 && u + v <= 1.0) || (u <= 0.0 && v <= 0.0 && u + v >= -1.0))
                return true;
        }
        return false;
    };
    LineSeries series(evenly(y));
    series.setWidth(2.0 * half);
    PicturePainter painter;
    draw(series, painter, xOver(0.0, 1.0), yOver(-20.0, 12.0));
    ASSERT_EQ(painter.count("drawImage"), 1u);
    std::size_t compared = 0;
    for (int row = 20; row < 132; ++row) {
        for (int column = 200; column < 210; column += 3) {
            int covered = 0;
            for (const Point& part :
                 {Point{0.0, 0.0}, {1.0, 0.0}, {0.5, 0.5}, {0.0, 1.0}, {1.0, 1.0}})
                covered += isCovered({column + part.x, row + part.y}) ? 1 : 0;
            if (covered != 0 && covered != 5)
                continue;
            ++compared;
            EXPECT_EQ(painter.at(column, row).alpha(), covered == 5 ? 255 : 0)
                << column << ' ' << row;
        }
    }
    EXPECT_GT(compared, 400u);
}

TEST(LineSeries, BlendsEachPixelOnceWhenTranslucent) {
    LineSeries series(evenly(noise(100000)));
    series.setWidth(3.0);
    PicturePainter painter;
    draw(series, painter, xOver(0.0, 1.0), yOver(-1.0, 1.0), Color(10, 20, 30, 100));
    ASSERT_EQ(painter.count("drawImage"), 1u);
    EXPECT_EQ(painter.at(200, 100).alpha(), 100);
    for (std::size_t i = 3; i < painter.bytes.size(); i += 4)
        ASSERT_LE(painter.bytes[i], 100);
}

TEST(LineSeries, CutsALargeOpaqueMiddleOutOfItsPictureWithoutATrace) {
    // All that was drawn, one over the other.
    class Sheet : public RecordingPainter {
    public:
        void drawImage(const unsigned char* rgba, int w, int h, double cx, double cy) override {
            RecordingPainter::drawImage(rgba, w, h, cx, cy);
            const int left = static_cast<int>(std::lround(cx - 0.5 * w));
            const int top = static_cast<int>(std::lround(cy - 0.5 * h));
            for (int y = 0; y < h; ++y)
                for (int x = 0; x < w; ++x)
                    blend(left + x, top + y, rgba[(y * w + x) * 4 + 3]);
        }
        void fillRect(const Rect& rect, const Color& color) override {
            RecordingPainter::fillRect(rect, color);
            for (int y = static_cast<int>(rect.top()); y < static_cast<int>(rect.bottom()); ++y)
                for (int x = static_cast<int>(rect.left()); x < static_cast<int>(rect.right()); ++x)
                    blend(x, y, color.alpha());
        }
        std::vector<int> alphas = std::vector<int>(std::size_t{1000} * 300);

    private:
        void blend(int x, int y, int alpha) {
            int& below = alphas[static_cast<std::size_t>(y * 1000 + x)];
            below += (255 - below) * alpha / 255;
        }
    };
    LineSeries series(evenly(noise(300000)));
    series.setWidth(1.0);
    const auto drawn = [&series](Sheet& sheet, int alpha) {
        FrameBuffers buffers;
        SeriesLook look;
        look.color = Color(0, 0, 0, alpha);
        Canvas canvas(sheet, {0.0, 0.0, 1000.0, 300.0}, ScaleMap({}, 0.0, 1000.0, 0.1, 0.9),
                      ScaleMap({}, 300.0, 0.0, -1.05, 1.05), look, buffers);
        series.draw(canvas);
    };
    Sheet opaque;
    drawn(opaque, 255);
    EXPECT_EQ(opaque.count("fillRect"), 1u);
    EXPECT_EQ(opaque.count("drawImage"), 2u);
    Sheet whole;
    drawn(whole, 254);
    EXPECT_EQ(whole.count("fillRect"), 0u);
    EXPECT_EQ(whole.count("drawImage"), 1u);
    for (std::size_t i = 0; i < opaque.alphas.size(); ++i)
        ASSERT_NEAR(opaque.alphas[i], whole.alphas[i], 2) << i % 1000 << ", " << i / 1000;
}

TEST(LineSeries, GoesFarFromTheLastOfManySamplesAndNotFromAnExtreme) {
    // As many as fill blocks of the index, and one more beyond.
    for (const std::size_t count : {100u * 64u, 1000u * 64u, 1000u * 64u + 31u}) {
        std::vector<double> y = noise(count);
        std::vector<double> x(count);
        for (std::size_t i = 0; i < count; ++i)
            x[i] = 0.5 * static_cast<double>(i) / static_cast<double>(count);
        y[count - 1] = 0.0;
        x.push_back(1.0);
        y.push_back(0.0);
        LineSeries series(x, y);
        series.setWidth(1.0);
        PicturePainter painter;
        draw(series, painter, xOver(0.0, 1.0), yOver(-1.0, 1.0));
        ASSERT_EQ(painter.count("drawImage"), 1u) << count;
        for (int column = 220; column < 380; column += 40) {
            EXPECT_GE(painter.at(column, 99).alpha() + painter.at(column, 100).alpha(), 250)
                << count;
            EXPECT_EQ(painter.at(column, 97).alpha() + painter.at(column, 102).alpha(), 0) << count;
        }
    }
}

TEST(LineSeries, LooksTheSameHoweverItsManySamplesAreHeld) {
    // Reduced by strips of pixels, and by blocks of the index.
    for (const std::size_t count : {16384u, 65536u}) {
        const double step = 1.0 / static_cast<double>(count);
        const std::vector<double> rough = noise(count);
        const std::vector<float> yf(rough.begin(), rough.end());
        const std::vector<double> y(yf.begin(), yf.end());
        std::vector<double> x(count);
        for (std::size_t i = 0; i < count; ++i)
            x[i] = static_cast<double>(i) * step;
        const std::vector<float> xf(x.begin(), x.end());
        LineSeries series(x, y);
        PicturePainter expected;
        draw(series, expected, xOver(0.0, 1.0), yOver(-1.0, 1.0));
        ASSERT_FALSE(expected.bytes.empty());
        for (const Samples& samples :
             {Samples::owned(xf, yf), Samples::borrowed(x, y), Samples::evenlySpaced(0.0, step, y),
              Samples::evenlySpaced(0.0, step, yf)}) {
            series.setSamples(samples);
            PicturePainter painter;
            draw(series, painter, xOver(0.0, 1.0), yOver(-1.0, 1.0));
            EXPECT_EQ(painter.text(), expected.text());
            EXPECT_TRUE(painter.bytes == expected.bytes);
        }
    }
}

TEST(LineSeries, ShowsSamplesThatAreSuddenlyFarApartWhereTheyAre) {
    // Most samples lie in the left quarter; to its right stand peaks eight pixels apart, with some
    // more samples on the ground close together.
    std::vector<double> x;
    std::vector<double> y;
    constexpr int dense = 500000;
    for (int i = 0; i < dense; ++i) {
        x.push_back(100.0 * i / dense);
        y.push_back(0.1 * (i % 3));
    }
    std::vector<int> peaks;
    for (int peak = 110; peak < 390; peak += 8) {
        for (int i = 0; i < 3 * (peak % 5); ++i) {
            x.push_back(peak - 5.0 + 0.01 * i);
            y.push_back(0.0);
        }
        x.insert(x.end(), {peak - 1.0, peak + 0.0, peak + 1.0});
        y.insert(y.end(), {0.0, 10.0, 0.0});
        peaks.push_back(peak);
    }
    PicturePainter painter;
    draw(LineSeries(x, y), painter, xOver(0.0, width), yOver(0.0, 10.0));
    ASSERT_FALSE(painter.bytes.empty());
    for (const int peak : peaks) {
        EXPECT_GT(painter.at(peak, 10).alpha() + painter.at(peak - 1, 10).alpha(), 0) << peak;
        for (int beside = peak + 2; beside < peak + 6; ++beside)
            EXPECT_EQ(painter.at(beside, 150).alpha(), 0) << peak << " " << beside;
    }
}

TEST(LineSeries, LeavesAGapWhereAScaleOfTheHostCannotPlaceManySamples) {
    const auto same = [](double v) { return v; };
    std::vector<double> y(20000, 1.0);
    std::fill(y.begin() + 8000, y.begin() + 12000, 100.0);
    for (std::size_t i = 0; i < y.size(); i += 2)
        y[i] += 1.0;
    PicturePainter painter;
    draw(LineSeries(evenly(y), ""), painter, xOver(0.0, 1.0),
         yOver(0.0, 4.0, Scale::custom(same, same, {0.0, 5.0})));
    ASSERT_FALSE(painter.bytes.empty());
    for (int column = 2; column < 398; ++column) {
        if (column >= 158 && column <= 162)
            continue;
        if (column >= 238 && column <= 242)
            continue;
        int inked = 0;
        for (int row = 0; row < 200; ++row)
            inked += painter.at(column, row).alpha() > 0 ? 1 : 0;
        const bool isGap = column > 162 && column < 238;
        EXPECT_EQ(inked > 0, !isGap) << column;
    }
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
            different += std::abs(before.at(x + 7, y).alpha() - after.at(x, y).alpha()) > 8 ? 1 : 0;
    // A sample on the very edge of a strip may fall to either side.
    EXPECT_LE(different, 80);
    EXPECT_GT(before.at(100, 100).alpha(), 250);
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
            const int a = forward.at(px, py).alpha();
            const int b = backward.at(static_cast<int>(width) - 1 - px, py).alpha();
            touched += a > 0 ? 1 : 0;
            mirrored += std::abs(a - b);
            like += std::abs(a - linear.at(px, py).alpha());
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
    EXPECT_EQ(*std::max_element(painter.bytes.begin(), painter.bytes.end()), 90);
}

TEST(LineSeries, DrawsSteepZigzagsOfWidePensAsLinesOfTheirOwn) {
    for (double pen : {2.0, 3.0, 5.0}) {
        LineSeries series(evenly(noise(40)));
        series.setWidth(pen);
        RecordingPainter painter;
        draw(series, painter, xOver(0.0, 1.0), yOver(-1.0, 1.0));
        // A polyline costs a painter by the rows that it meets, again and again.
        EXPECT_EQ(painter.count("drawImage"), 0u);
        EXPECT_GE(painter.count("drawLine"), 15u);
        EXPECT_LE(painter.count(), 100u);
    }
}

TEST(LineSeries, IsDrawnInThePixelsOfFinerTargetsWhereItIsDense) {
    LineSeries series(evenly(noise(100000)));
    series.setWidth(1.0);
    const auto rowsOf = [&series](double ratio, RecordingPainter& painter) {
        FrameBuffers buffers;
        Canvas canvas(painter, wide, xOver(0.0, 1.0), yOver(-1.0, 1.0), {}, buffers);
        canvas.setPixelRatio(ratio);
        series.draw(canvas);
    };
    RecordingPainter coarse;
    rowsOf(1.0, coarse);
    EXPECT_EQ(coarse.count("drawImage"), 1u);
    RecordingPainter fine;
    rowsOf(2.0, fine);
    EXPECT_EQ(fine.count("drawImage"), 0u);
    EXPECT_GE(fine.count("fillRect"), 2 * 400u);
    EXPECT_LE(fine.count("fillRect"), 30000u);
    EXPECT_NE(fine.text().find(" 0.5x"), std::string::npos);
}

TEST(LineSeries, CrossesTheWholeCanvasAnyNumberOfTimesWithinAPicture) {
    const std::vector<double> x = noise(300000);
    std::vector<double> y = noise(300000);
    std::rotate(y.begin(), y.begin() + 12345, y.end());
    LineSeries series(x, y);
    series.setWidth(1.0);
    PicturePainter painter;
    // Beyond the samples some room is never reached.
    draw(series, painter, xOver(-1.1, 1.1), yOver(-1.1, 1.1));
    ASSERT_EQ(painter.count("drawImage"), 1u);
    EXPECT_EQ(painter.count(), 1u);
    EXPECT_EQ(painter.at(200, 100).alpha(), 255);
    EXPECT_EQ(painter.at(40, 30).alpha(), 255);
    EXPECT_EQ(painter.at(5, 100).alpha(), 0);
    EXPECT_EQ(painter.at(200, 196).alpha(), 0);
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
        return std::count_if(painter.bytes.begin(), painter.bytes.end(),
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

TEST(LineSeries, DrawsTheDashesOfEveryStyleWhereTheyBecomeAPicture) {
    std::vector<double> values(2000);
    for (std::size_t i = 0; i < values.size(); ++i)
        values[i] = std::sin(0.03 * static_cast<double>(i));
    LineSeries series(evenly(values));
    series.setWidth(2.0);
    const auto inked = [&series] {
        PicturePainter painter;
        draw(series, painter, xOver(0.0, 1.0), yOver(-1.0, 1.0));
        EXPECT_EQ(painter.count("drawImage"), 1u);
        return static_cast<double>(std::count_if(painter.bytes.begin(), painter.bytes.end(),
                                                 [](unsigned char byte) { return byte > 127; }));
    };
    series.setDashPattern({5.0, 0.0});
    const double solid = inked();
    series.setDashPattern({});
    // Square ends make each dash longer by the pen's width.
    const struct {
        PenStyle style;
        double share;
    } cases[] = {
        {PenStyle::Dash, 5.0 / 6.0},
        {PenStyle::Dot, 2.0 / 3.0},
        {PenStyle::DashDot, 7.0 / 9.0},
        {PenStyle::DashDotDot, 9.0 / 12.0},
    };
    for (const auto& c : cases) {
        series.setStyle(c.style);
        EXPECT_EQ(series.style(), c.style);
        EXPECT_NEAR(inked() / solid, c.share, 0.05) << static_cast<int>(c.style);
    }
    // A gap that is missing is as long as the pen is wide, and filled by the ends of the dashes.
    series.setDashPattern({5.0});
    EXPECT_NEAR(inked() / solid, 1.0, 0.01);
    series.setDashPattern({1.0, 4.0, 1.0});
    EXPECT_NEAR(inked() / solid, 4.0 / 7.0, 0.03);
    series.setStyle(PenStyle::None);
    series.setDashPattern({});
    RecordingPainter painter;
    draw(series, painter, xOver(0.0, 1.0), yOver(-1.0, 1.0));
    EXPECT_EQ(painter.text(), "");
}

TEST(LineSeries, APenWiderThanTheCanvasIsLargeFillsItAtOnce) {
    std::vector<double> values(100000);
    for (std::size_t i = 0; i < values.size(); ++i)
        values[i] = std::sin(17.0 * static_cast<double>(i));
    LineSeries series(evenly(values));
    for (const double width : {300.0, 2000.0, 1e300}) {
        series.setWidth(width);
        PicturePainter painter;
        draw(series, painter, xOver(0.0, 1.0), yOver(-1.0, 1.0));
        EXPECT_EQ(painter.count("drawImage"), width < 1000.0 ? 1u : 0u) << width;
        EXPECT_EQ(painter.count("fillRect"), width < 1000.0 ? 0u : 1u) << width;
    }
}

TEST(LineSeries, DashesThatCannotBeDrawnAreIgnored) {
    LineSeries series(evenly({1.0, 2.0}));
    const std::vector<double> before{4.0, 2.0};
    series.setDashPattern(before);
    const auto revision = series.revision();
    const double nan = std::numeric_limits<double>::quiet_NaN();
    for (const auto& pattern : std::vector<std::vector<double>>{
             {nan, 1.0}, {6.0, HUGE_VAL}, {-3.0, 1.0}, {3.0, -1e-300}, {0.0}, {0.0, 0.0}}) {
        series.setDashPattern(pattern);
        EXPECT_EQ(series.dashPattern(), before);
        EXPECT_EQ(series.revision(), revision);
    }
    series.setDashPattern({0.0, 3.0});
    EXPECT_EQ(series.dashPattern(), (std::vector<double>{0.0, 3.0}));
    series.setDashPattern({});
    EXPECT_TRUE(series.dashPattern().empty());
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

TEST(LineSeries, MarksEverySampleInViewWithTheShapeAsked) {
    Stage stage;
    LineSeries series({-5.0, 2.0, notANumber, 5.0, 5.0}, {5.0, 5.0, 5.0, notANumber, 8.0});
    series.setMarkerShape(MarkerShape::Square);
    series.setMarkerSize(10.0);
    series.setStyle(PenStyle::None);
    EXPECT_EQ(stage.draw(series),
              "fillPolygon #0072b2 15.57,45.57 24.43,45.57 24.43,54.43 15.57,54.43\n"
              "fillPolygon #0072b2 45.57,15.57 54.43,15.57 54.43,24.43 45.57,24.43\n");
    series.setMarkerSize(-1.0);
    EXPECT_EQ(series.markerSize(), 10.0);
    series.setMarkerShape(std::nullopt);
    EXPECT_EQ(stage.draw(series), "");
}

TEST(LineSeries, ThinsItsMarkersByPowersOfTwoWhereTheyWouldNotFitSideBySide) {
    // Markers of 5 pixels have room for 13 on a canvas of 100 pixels.
    const struct {
        int samples;
        std::size_t markers;
    } cases[] = {{1, 1}, {2, 2}, {13, 13}, {14, 7}, {26, 13}, {28, 7}, {1'000'000, 8}};
    for (const auto& c : cases) {
        std::vector<double> x;
        for (int i = 0; i < c.samples; ++i)
            x.push_back(10.0 * (i + 0.5) / c.samples);
        LineSeries series(x, std::vector<double>(x.size(), 5.0));
        series.setStyle(PenStyle::None);
        series.setMarkerShape(MarkerShape::Circle);
        series.setMarkerSize(5.0);
        Stage stage;
        stage.draw(series);
        EXPECT_EQ(stage.painter().count(), c.markers) << c.samples;
    }
}

TEST(LineSeries, MarksTheSameSamplesOfARingWhileItRuns) {
    Samples ring = Samples::streamed(64);
    for (int i = 0; i < 100; ++i)
        ring.append(i, 5.0);
    LineSeries series(ring);
    series.setMarkerShape(MarkerShape::Circle);
    series.setMarkerSize(5.0);
    const auto marked = [&] {
        Stage stage(Scale(), 60.0, 160.0, Scale(), 0.0, 10.0);
        stage.draw(series);
        return stage.painter().linesOf("fillEllipse");
    };
    const auto before = marked();
    ring.append(100.0, 5.0);
    auto after = marked();
    // The new sample has one, too.
    ASSERT_EQ(after.size(), before.size() + 1);
    after.pop_back();
    EXPECT_EQ(after, before);
}

TEST(LineSeries, KeepsFewMarkersOnCurvesWhoseSamplesAreInNoOrder) {
    std::vector<double> x;
    std::vector<double> y;
    for (int i = 0; i < 100'000; ++i) {
        x.push_back(5.0 + 4.0 * std::cos(i));
        y.push_back(5.0 + 4.0 * std::sin(i));
    }
    LineSeries series(x, y);
    series.setStyle(PenStyle::None);
    series.setMarkerShape(MarkerShape::Circle);
    Stage stage;
    stage.draw(series);
    EXPECT_LE(stage.painter().count(), 45u);
    EXPECT_GE(stage.painter().count(), 20u);
}

TEST(LineSeries, FillsToABaselineAlongItsSteps) {
    LineSeries series({0.0, 4.0, 8.0}, {2.0, 6.0, 4.0});
    series.setStyle(PenStyle::None);
    const struct {
        LineSteps steps;
        const char* expected;
    } cases[] = {
        {LineSteps::None, "0,80 40,40 80,60 80,90 40,90 0,90\n"},
        {LineSteps::After, "0,80 40,80 40,40 40,40 80,40 80,60 80,60 80,90 80,90 80,90 40,90 40,90 "
                           "40,90 0,90\n"},
        {LineSteps::Before, "0,80 0,80 0,40 40,40 40,40 40,60 80,60 80,90 40,90 40,90 40,90 0,90 "
                            "0,90 0,90\n"},
        {LineSteps::Mid, "0,80 20,80 20,40 40,40 60,40 60,60 80,60 80,90 60,90 60,90 40,90 20,90 "
                         "20,90 0,90\n"},
    };
    EXPECT_TRUE(series.setFill(LineFill{.baseline = 1.0, .opacity = 1.0}));
    for (const auto& c : cases) {
        Stage stage;
        series.setSteps(c.steps);
        EXPECT_EQ(stage.draw(series), std::string("fillPolygon #0072b2 ") + c.expected +
                                          "fillRect 0,90 100x1 #666666\n");
    }
}

TEST(LineSeries, FillsToTheEdgeOfTheCanvasWithoutABaseline) {
    LineSeries series({0.0, 10.0}, {5.0, 8.0});
    series.setStyle(PenStyle::None);
    EXPECT_TRUE(series.setFill(LineFill{.baseline = std::nullopt, .opacity = 1.0}));
    Stage stage(Scale(), 0.0, 10.0, Scale(), 3.0, 13.0);
    EXPECT_EQ(stage.draw(series), "fillPolygon #0072b2 0,80 100,50 100,100 0,100\n");
    Stage reversed(Scale(), 0.0, 10.0, Scale(), 13.0, 3.0);
    EXPECT_EQ(reversed.draw(series), "fillPolygon #0072b2 0,20 100,50 100,0 0,0\n");
    EXPECT_EQ(series.bounds(Scale(), Scale()).y, (Interval{5.0, 8.0}));
}

TEST(LineSeries, CoversTheBaselineOfItsFill) {
    LineSeries series({1.0, 2.0}, {5.0, 8.0});
    EXPECT_EQ(series.bounds(Scale(), Scale()).y, (Interval{5.0, 8.0}));
    EXPECT_TRUE(series.setFill(LineFill{}));
    EXPECT_EQ(series.bounds(Scale(), Scale()).y, (Interval{0.0, 8.0}));
    EXPECT_TRUE(series.bounds(Scale(), Scale()).yFromZero);
    EXPECT_EQ(series.bounds(Scale(), Scale::log()).y, (Interval{5.0, 8.0}));
    EXPECT_TRUE(LineSeries().bounds(Scale(), Scale()).y.isEmpty());
    EXPECT_FALSE(series.setFill(LineFill{.baseline = notANumber}));
    EXPECT_FALSE(series.setFill(LineFill{.opacity = 1.5}));
    EXPECT_EQ(series.fill()->opacity, 0.25);
}

TEST(LineSeries, ShowsFillLineAndMarkerInItsKey) {
    Stage stage;
    LineSeries series;
    series.setFill(LineFill{.opacity = 0.5});
    series.setMarkerShape(MarkerShape::Circle);
    EXPECT_EQ(stage.drawKey(series), "fillRect 0,5 20x5 #0072b280\n"
                                     "setPen #0072b2 1.5\n"
                                     "drawPolyline 0,5 20,5\n"
                                     "fillEllipse 10,5 3x3 #0072b2\n");
}

TEST(LineSeries, FindsTheNearestSampleAsALookAtEachWould) {
    std::mt19937 generator(5);
    std::uniform_real_distribution<double> uniform(-2.0, 12.0);
    for (const std::size_t count : {1u, 7u, 64u, 65u, 1000u, 20000u}) {
        std::vector<double> x(count);
        std::vector<double> y(count);
        for (std::size_t i = 0; i < count; ++i) {
            x[i] = std::round(50.0 * uniform(generator)) / 50.0;
            y[i] = i % 17 == 3 ? notANumber : uniform(generator);
        }
        std::vector<double> ascending = x;
        std::sort(ascending.begin(), ascending.end());
        const LineSeries inOrder(ascending, y);
        std::vector<double> backX(ascending.rbegin(), ascending.rend());
        std::vector<double> backY(y.rbegin(), y.rend());
        const LineSeries backwards(backX, backY);
        const Stage stages[] = {Stage(), Stage(Scale(), 9.0, 1.0, Scale(), 8.0, -3.0),
                                Stage(Scale::log(), 0.5, 12.0, Scale::log(), 0.1, 20.0)};
        for (const Stage& stage : stages) {
            for (int i = 0; i < 40; ++i) {
                const Point pixel{10.0 * uniform(generator), 10.0 * uniform(generator)};
                const auto found = stage.nearest(inOrder, pixel);
                const auto expected = stage.nearest(backwards, pixel);
                ASSERT_EQ(found.has_value(), expected.has_value()) << count;
                if (found) {
                    EXPECT_DOUBLE_EQ(found->distance, expected->distance) << count;
                }
            }
        }
    }
}

TEST(LineSeries, LooksAtFewSamplesForTheNearestOfTenMillion) {
    constexpr std::size_t count = 10'000'000;
    std::vector<double> values = noise(count);
    values[7'654'321] = 5.0;
    const LineSeries series(Samples::evenlySpaced(0.0, 10.0 / count, std::move(values)));
    Stage stage;
    // The first call builds the index.
    ASSERT_TRUE(stage.nearest(series, {50.0, 50.0}));
    const auto begin = std::chrono::steady_clock::now();
    for (int i = 0; i < 100; ++i)
        EXPECT_EQ(stage.nearest(series, {76.5 + 0.001 * i, 51.0})->index, 7'654'321u);
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - begin;
    // A look at each takes a hundred times as long.
    EXPECT_LT(taken.count(), 1.0);
}

TEST(LineSeries, RefusesNumbersThatMakeNoSense) {
    LineSeries series({0.0, 1.0}, {0.0, 1.0});
    series.setWidth(2.0);
    series.setMarkerSize(7.0);
    ASSERT_TRUE(series.setFill(LineFill{}));
    for (const double bad : {-1.0, notANumber, HUGE_VAL}) {
        series.setWidth(bad);
        series.setMarkerSize(bad);
        LineFill fill;
        fill.opacity = bad;
        EXPECT_FALSE(series.setFill(fill)) << bad;
    }
    series.setMarkerSize(0.0);
    for (const double bad : {notANumber, HUGE_VAL}) {
        LineFill fill;
        fill.baseline = bad;
        EXPECT_FALSE(series.setFill(fill)) << bad;
    }
    EXPECT_EQ(series.width(), 2.0);
    EXPECT_EQ(series.markerSize(), 7.0);
}

TEST(LineSeries, WithstandsHostileNumbersWithMarkersAndFill) {
    for (const LineSteps steps : {LineSteps::None, LineSteps::Mid}) {
        expectHarmlessForAll([&](const std::vector<double>& x, const std::vector<double>& y) {
            auto series = std::make_shared<LineSeries>(x, y);
            series->setMarkerShape(MarkerShape::Star);
            series->setSteps(steps);
            series->setFill(LineFill{});
            return series;
        });
    }
}
