// SPDX-License-Identifier: MIT
#include <zembra/series/ScatterSeries.h>

#include "support/RecordingPainter.h"

#include <zembra/series/Canvas.h>

#include <gtest/gtest.h>

#include <limits>
#include <random>

using namespace zembra;
using zembra::test::RecordingPainter;

namespace {

const Rect area{10.0, 20.0, 300.0, 200.0};
const ScaleMap acrossArea(Scale::linear(), 10.0, 310.0, 0.0, 300.0);
const ScaleMap upArea(Scale::linear(), 220.0, 20.0, 0.0, 200.0);

void draw(const ScatterSeries& series, RecordingPainter& painter) {
    FrameBuffers buffers;
    SeriesLook look;
    look.color = Color(1, 2, 3);
    Canvas canvas(painter, area, acrossArea, upArea, look, buffers);
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
