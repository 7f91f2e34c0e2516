// SPDX-License-Identifier: MIT
#include "support/HostileNumbers.h"

#include <zembra/series/CandlestickSeries.h>

#include <gtest/gtest.h>

using namespace zembra;
using namespace zembra::test;

namespace {

CandleRows twoCandles() {
    return {{2.0, 4.0}, {3.0, 6.0}, {8.0, 7.0}, {1.0, 2.0}, {6.0, 4.0}};
}

} // namespace

TEST(CandlestickSeries, DrawsBodiesOnWicks) {
    Stage stage;
    CandlestickSeries candles(twoCandles());
    candles.setStyle({.share = 0.45});
    // Nine pixels: the wick and four on either side. Rising is blue, falling orange.
    EXPECT_EQ(stage.draw(candles), "fillRect 20,20 1x70 #0072b2\n"
                                   "fillRect 16,40 9x30 #0072b2\n"
                                   "fillRect 40,30 1x50 #d55e00\n"
                                   "fillRect 36,40 9x20 #d55e00\n");
}

TEST(CandlestickSeries, DrawsBarsWithOpenAndClose) {
    Stage stage;
    CandlestickSeries candles(twoCandles());
    candles.setStyle({CandleShape::OpenHighLowClose, 0.45, Color(1, 2, 3), Color(4, 5, 6)});
    EXPECT_EQ(stage.draw(candles), "fillRect 20,20 1x70 #010203\n"
                                   "fillRect 16,69.5 4x1 #010203\n"
                                   "fillRect 21,39.5 4x1 #010203\n"
                                   "fillRect 40,30 1x50 #040506\n"
                                   "fillRect 36,39.5 4x1 #040506\n"
                                   "fillRect 41,59.5 4x1 #040506\n");
}

TEST(CandlestickSeries, IsMirroredByReversedAxes) {
    Stage stage(Scale(), 10.0, 0.0, Scale(), 10.0, 0.0);
    CandlestickSeries candles(twoCandles());
    candles.setStyle({.share = 0.45});
    EXPECT_EQ(stage.draw(candles), "fillRect 80,10 1x70 #0072b2\n"
                                   "fillRect 76,30 9x30 #0072b2\n"
                                   "fillRect 60,20 1x50 #d55e00\n"
                                   "fillRect 56,40 9x20 #d55e00\n");
}

TEST(CandlestickSeries, MendsRowsAndLeavesOutBrokenOnes) {
    Stage stage;
    // High and low exchanged; not a number; close equal to open.
    CandlestickSeries candles({{6.0, 4.0, 2.0},
                               {3.0, 3.0, 5.0},
                               {1.0, notANumber, 5.0},
                               {8.0, 1.0, 5.0},
                               {6.0, 6.0, 5.0}});
    candles.setStyle({.share = 0.225});
    EXPECT_EQ(stage.draw(candles), "fillRect 20,50 1x1 #0072b2\n"
                                   "fillRect 16,50 9x1 #0072b2\n"
                                   "fillRect 60,20 1x70 #0072b2\n"
                                   "fillRect 56,40 9x30 #0072b2\n");
    const Bounds bounds = candles.bounds(Scale(), Scale());
    EXPECT_NEAR(bounds.x.min, 1.55, 1e-12);
    EXPECT_NEAR(bounds.x.max, 6.45, 1e-12);
    EXPECT_EQ(bounds.y, (Interval{1.0, 8.0}));
}

TEST(CandlestickSeries, LeavesOutWhatALogarithmicScaleCannotPlace) {
    Stage stage(Scale(), 0.0, 10.0, Scale::log(), 1.0, 100.0);
    CandlestickSeries candles({{2.0, 4.0}, {10.0, 1.0}, {10.0, 10.0}, {10.0, -1.0}, {10.0, 2.0}});
    candles.setStyle({.share = 0.05});
    EXPECT_EQ(stage.draw(candles), "fillRect 20,50 1x1 #0072b2\n");
    EXPECT_EQ(candles.bounds(Scale(), Scale::log()).y, (Interval{10.0, 10.0}));
    EXPECT_TRUE(CandlestickSeries().bounds(Scale(), Scale()).x.isEmpty());
}

TEST(CandlestickSeries, RefusesAShareOutOfRange) {
    CandlestickSeries candles;
    for (const double share : {0.0, -1.0, 1.1, notANumber})
        EXPECT_FALSE(candles.setStyle({.share = share})) << share;
    EXPECT_EQ(candles.style().share, 0.7);
}

TEST(CandlestickSeries, FindsTheCandleUnderOrNearestToAPixel) {
    Stage stage;
    CandlestickSeries candles({{4.0, 2.0}, {6.0, 3.0}, {7.0, 8.0}, {2.0, 1.0}, {4.0, 6.0}});
    const auto found = stage.nearest(candles, {20.0, 15.0});
    ASSERT_TRUE(found);
    EXPECT_EQ(found->index, 1u);
    EXPECT_EQ(found->x, 2.0);
    EXPECT_EQ(found->y, 6.0);
    EXPECT_NEAR(found->distance, 5.0, 1e-9);
    EXPECT_EQ(stage.nearest(candles, {45.0, 50.0})->index, 0u);
    EXPECT_EQ(stage.nearest(candles, {45.0, 50.0})->distance, 0.0);
    EXPECT_FALSE(stage.nearest(CandlestickSeries(), {45.0, 50.0}));
}

TEST(CandlestickSeries, MergesTheCandlesOfAColumn) {
    CandleRows rows;
    for (int i = 0; i < 1'000'000; ++i) {
        rows.x.push_back(1e-5 * (i + 0.5));
        rows.open.push_back(i == 230'000 ? 7.0 : 5.0);
        rows.high.push_back(i == 234'567 ? 9.0 : 8.0);
        rows.low.push_back(i == 236'789 ? 1.0 : 4.0);
        rows.close.push_back(i == 239'999 ? 6.0 : 5.0);
    }
    Stage stage;
    stage.draw(CandlestickSeries(std::move(rows)));
    EXPECT_EQ(stage.painter().count(), 100u);
    // First open 7, last close 6: falling; from the highest high to the lowest low.
    EXPECT_EQ(stage.painter().lines()[22], "fillRect 22,20 1x40 #0072b2");
    EXPECT_EQ(stage.painter().lines()[23], "fillRect 23,10 1x80 #d55e00");
}

TEST(CandlestickSeries, ShowsBothWaysInItsKey) {
    Stage stage;
    EXPECT_EQ(stage.drawKey(CandlestickSeries()), "fillRect 4,0 1x10 #0072b2\n"
                                                  "fillRect 1,2 7x6 #0072b2\n"
                                                  "fillRect 14,0 1x10 #d55e00\n"
                                                  "fillRect 11,2 7x6 #d55e00\n");
}

TEST(CandlestickSeries, ShowsBarsInItsKeyTooEvenWhereBothWaysHaveOneColour) {
    Stage stage;
    CandlestickSeries candles;
    candles.setStyle({CandleShape::OpenHighLowClose, 0.7, Color(1, 2, 3), Color(1, 2, 3)});
    EXPECT_EQ(stage.drawKey(candles), "fillRect 4,0 1x10 #010203\n"
                                      "fillRect 1,8 3x1 #010203\n"
                                      "fillRect 5,3 3x1 #010203\n"
                                      "fillRect 14,0 1x10 #010203\n"
                                      "fillRect 11,3 3x1 #010203\n"
                                      "fillRect 15,8 3x1 #010203\n");
    EXPECT_FALSE(candles.takesCycleColor());
}

TEST(CandlestickSeries, IsLighterOnDarkGrounds) {
    RecordingPainter painter;
    FrameBuffers buffers;
    SeriesLook look;
    look.background = Color(20, 20, 20);
    Stage stage;
    Canvas canvas(painter, {0.0, 0.0, 100.0, 100.0}, stage.x(), stage.y(), look, buffers);
    CandlestickSeries(twoCandles()).drawLegendKey(canvas, {0.0, 0.0, 20.0, 10.0});
    EXPECT_EQ(painter.lines().front(), "fillRect 4,0 1x10 #5cacee");
    EXPECT_EQ(painter.lines().back(), "fillRect 11,2 7x6 #ff924a");
}

TEST(CandlestickSeries, LeavesOutRowsWithoutANumber) {
    for (auto column : {&CandleRows::x, &CandleRows::open, &CandleRows::high, &CandleRows::low,
                        &CandleRows::close}) {
        CandleRows rows = twoCandles();
        (rows.*column)[0] = notANumber;
        Stage stage;
        const std::string text = stage.draw(CandlestickSeries(rows));
        EXPECT_EQ(text.find("#0072b2"), std::string::npos) << text;
        EXPECT_NE(text.find("#d55e00"), std::string::npos) << text;
    }
}

TEST(CandlestickSeries, LeavesOutWhatReachesOverTheEndOfAScale) {
    const auto same = [](double v) { return v; };
    const Scale upToTen = Scale::custom(same, same, {0.0, 10.0});
    Stage stage(Scale(), 0.0, 10.0, upToTen, 0.0, 10.0);
    // The first one's wick ends where the scale does not.
    CandlestickSeries candles({{2.0, 4.0}, {3.0, 6.0}, {12.0, 7.0}, {1.0, 2.0}, {6.0, 4.0}});
    candles.setStyle({.share = 0.45});
    EXPECT_EQ(stage.draw(candles), "fillRect 40,30 1x50 #d55e00\n"
                                   "fillRect 36,40 9x20 #d55e00\n");
    EXPECT_EQ(candles.bounds(Scale(), upToTen).y, (Interval{2.0, 7.0}));
}

TEST(CandlestickSeries, WithstandsHostileNumbers) {
    expectHarmlessForAll([](const std::vector<double>& x, const std::vector<double>& y) {
        auto candles = std::make_shared<CandlestickSeries>(CandleRows{x, y, x, y, x});
        if (x.size() % 2 == 1)
            candles->setStyle({.shape = CandleShape::OpenHighLowClose});
        return candles;
    });
}
