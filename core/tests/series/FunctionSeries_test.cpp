// SPDX-License-Identifier: MIT
#include <zembra/series/FunctionSeries.h>

#include "support/HostileNumbers.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <stdexcept>
#include <string>
#include <vector>

using namespace zembra;
using namespace zembra::test;

namespace {

// Keeps the polylines as they are.
class CurvePainter : public RecordingPainter {
public:
    void drawPolyline(const std::vector<Point>& points) override {
        runs.push_back(points);
        RecordingPainter::drawPolyline(points);
    }
    std::vector<std::vector<Point>> runs;
};

std::vector<std::vector<Point>> curves(FunctionSeries& series, const ScaleMap& x,
                                       const ScaleMap& y) {
    // Wider pens are handed over in chunks.
    series.setWidth(1.0);
    CurvePainter painter;
    FrameBuffers buffers;
    Canvas canvas(painter, {0.0, 0.0, 100.0, 100.0}, x, y, {}, buffers);
    series.draw(canvas);
    return painter.runs;
}

std::vector<std::vector<Point>> curves(FunctionSeries&& series, const ScaleMap& x,
                                       const ScaleMap& y) {
    return curves(series, x, y);
}

ScaleMap across(double first, double second) {
    return {Scale::linear(), 0.0, 100.0, first, second};
}

ScaleMap upwards(double first, double second) {
    return {Scale::linear(), 100.0, 0.0, first, second};
}

// Up or down, or sideways where that is nearer: the curve runs through both ends of a segment.
double farthestFromCurve(const std::vector<std::vector<Point>>& runs, const ScaleMap& x,
                         const ScaleMap& y, double (*function)(double)) {
    double worst = 0.0;
    for (const auto& run : runs)
        for (std::size_t i = 1; i < run.size(); ++i)
            for (double share : {0.25, 0.5, 0.75}) {
                const double column = std::lerp(run[i - 1].x, run[i].x, share);
                const double row = std::lerp(run[i - 1].y, run[i].y, share);
                const double off = std::abs(y.transform(function(x.invTransform(column))) - row);
                worst = std::max(worst, std::min(off, run[i].x - run[i - 1].x));
            }
    return worst;
}

} // namespace

TEST(FunctionSeries, IsRightToAFractionOfAPixel) {
    const struct {
        double (*function)(double);
        double x1, x2, y1, y2;
    } rows[] = {
        {[](double v) { return std::sin(v); }, 0.0, 10.0, -1.5, 1.5},
        {[](double v) { return std::sin(1.5 * v); }, 0.0, 5.0, -1.5, 1.5},
        {[](double v) { return v * v * v; }, -2.0, 2.0, -8.0, 8.0},
        {[](double v) { return std::abs(v - 0.123); }, -1.0, 1.0, -1.0, 1.0},
        {[](double v) { return std::exp(-v * v * 400.0); }, -5.0, 5.0, 0.0, 1.1},
    };
    for (const auto& row : rows) {
        const ScaleMap x = across(row.x1, row.x2);
        const ScaleMap y = upwards(row.y1, row.y2);
        const auto runs = curves(FunctionSeries(row.function), x, y);
        ASSERT_EQ(runs.size(), 1u) << (&row - rows);
        EXPECT_LE(farthestFromCurve(runs, x, y, row.function), 0.5) << (&row - rows);
    }
}

TEST(FunctionSeries, AStraightLineTakesFewCalls) {
    int calls = 0;
    FunctionSeries series([&calls](double v) {
        ++calls;
        return v;
    });
    EXPECT_EQ(curves(series, across(0.0, 10.0), upwards(0.0, 10.0)).size(), 1u);
    EXPECT_LE(calls, 200);
}

TEST(FunctionSeries, WildFunctionsTakeABoundedNumberOfCalls) {
    int calls = 0;
    FunctionSeries series([&calls](double v) {
        ++calls;
        return std::sin(1e6 * v);
    });
    curves(series, across(0.0, 10.0), upwards(-1.0, 1.0));
    EXPECT_LE(calls, 64 * 110 + 200);
}

TEST(FunctionSeries, PolesAreGaps) {
    FunctionSeries tangent([](double v) { return std::tan(v); });
    const ScaleMap x = across(0.0, 10.0);
    // Poles at π/2, 3π/2 and 5π/2.
    const auto runs = curves(tangent, x, upwards(-5.0, 5.0));
    ASSERT_EQ(runs.size(), 4u);
    for (const auto& run : runs)
        for (std::size_t i = 1; i < run.size(); ++i)
            EXPECT_LE(run[i].y, run[i - 1].y + 1e-9) << "a line runs down through a pole";
    EXPECT_EQ(curves(FunctionSeries([](double v) { return 1.0 / v; }), across(-1.0, 1.0),
                     upwards(-10.0, 10.0))
                  .size(),
              2u);
}

TEST(FunctionSeries, JumpsAreGapsAndSteepFlanksAreNot) {
    const auto steps = curves(FunctionSeries([](double v) { return std::floor(v); }),
                              across(0.5, 3.5), upwards(-1.0, 4.0));
    EXPECT_EQ(steps.size(), 4u);
    const auto flank = curves(FunctionSeries([](double v) { return std::tanh(1e5 * v); }),
                              across(-1.0, 1.0), upwards(-2.0, 2.0));
    EXPECT_EQ(flank.size(), 1u);
}

TEST(FunctionSeries, PlacesWithoutAValueAreGaps) {
    const auto root = curves(FunctionSeries([](double v) { return std::sqrt(v); }),
                             across(-5.0, 5.0), upwards(-1.0, 3.0));
    ASSERT_EQ(root.size(), 1u);
    // The curve begins where the values do, not a column later.
    EXPECT_NEAR(root[0].front().x, 50.0, 0.1);
    const auto thrown = curves(FunctionSeries([](double v) -> double {
                                   if (v > 4.0 && v < 6.0)
                                       throw std::domain_error("none");
                                   return v;
                               }),
                               across(0.0, 10.0), upwards(0.0, 10.0));
    EXPECT_EQ(thrown.size(), 2u);
    EXPECT_TRUE(curves(FunctionSeries([](double) { return notANumber; }), across(0.0, 1.0),
                       upwards(0.0, 1.0))
                    .empty());
    EXPECT_TRUE(curves(FunctionSeries(), across(0.0, 1.0), upwards(0.0, 1.0)).empty());
}

TEST(FunctionSeries, IsDrawnInItsDomainOnly) {
    FunctionSeries series([](double v) { return v; });
    ASSERT_TRUE(series.setDomain(6.0, 2.0));
    for (const ScaleMap& x : {across(0.0, 10.0), across(10.0, 0.0)}) {
        const auto runs = curves(series, x, upwards(0.0, 10.0));
        ASSERT_EQ(runs.size(), 1u);
        EXPECT_NEAR(runs[0].front().x, std::min(x.transform(2.0), x.transform(6.0)), 1e-9);
        EXPECT_NEAR(runs[0].back().x, std::max(x.transform(2.0), x.transform(6.0)), 1e-9);
    }
    EXPECT_FALSE(series.setDomain(3.0, 3.0));
    EXPECT_FALSE(series.setDomain(notANumber, 3.0));
    EXPECT_EQ(series.domain(), (Interval{2.0, 6.0}));
    series.clearDomain();
    EXPECT_FALSE(series.domain());
}

TEST(FunctionSeries, BoundsCoverTheDomainAndItsValues) {
    FunctionSeries series([](double v) { return v * v; });
    EXPECT_TRUE(series.bounds(Scale::linear(), Scale::linear()).x.isEmpty());
    series.setDomain(-3.0, 5.0);
    const Bounds bounds = series.bounds(Scale::linear(), Scale::linear());
    EXPECT_EQ(bounds.x, (Interval{-3.0, 5.0}));
    EXPECT_NEAR(bounds.y.min, 0.0, 1e-3);
    EXPECT_DOUBLE_EQ(bounds.y.max, 25.0);
    EXPECT_GT(series.bounds(Scale::log(), Scale::linear()).x.min, 0.0);
}

TEST(FunctionSeries, PolesDoNotBlowUpTheBoundsAndNarrowPeaksStay) {
    FunctionSeries pole([](double v) { return 1.0 / (v - 0.501); });
    pole.setDomain(-1.0, 2.0);
    const Bounds bounds = pole.bounds(Scale::linear(), Scale::linear());
    EXPECT_LT(bounds.y.max, 100.0);
    EXPECT_GT(bounds.y.min, -100.0);
    FunctionSeries peak([](double v) { return 50.0 * std::exp(-v * v * 1e4); });
    peak.setDomain(-1.0, 1.0);
    EXPECT_GT(peak.bounds(Scale::linear(), Scale::linear()).y.max, 45.0);
}

TEST(FunctionSeries, NearestIsOnTheCurve) {
    const FunctionSeries series([](double v) { return v; });
    const Stage stage;
    const auto found = stage.nearest(series, {50.0, 60.0});
    ASSERT_TRUE(found);
    EXPECT_NEAR(found->x, 4.5, 1e-9);
    EXPECT_NEAR(found->y, 4.5, 1e-9);
    EXPECT_NEAR(found->distance, std::hypot(5.0, 5.0), 1e-9);
    EXPECT_FALSE(stage.nearest(FunctionSeries(), {50.0, 60.0}));
}

TEST(FunctionSeries, TheLegendKeyIsALineInItsPen) {
    FunctionSeries series([](double v) { return v; });
    series.setWidth(2.0);
    series.setWidth(-1.0);
    series.setWidth(notANumber);
    EXPECT_EQ(series.width(), 2.0);
    Stage stage;
    const std::string key = stage.drawKey(series);
    EXPECT_NE(key.find("drawPolyline 0,5 20,5"), std::string::npos) << key;
}

TEST(FunctionSeries, HasNoBoundsWithoutAFunctionOrADomain) {
    FunctionSeries none;
    ASSERT_TRUE(none.setDomain(1.0, 2.0));
    EXPECT_TRUE(none.bounds(Scale(), Scale()).x.isEmpty());
    const FunctionSeries endless([](double v) { return v; });
    EXPECT_TRUE(endless.bounds(Scale(), Scale()).x.isEmpty());
}

TEST(FunctionSeries, HostileNumbersAreHarmless) {
    for (const HostileRow& row : hostileRows()) {
        if (row.values.empty())
            continue;
        FunctionSeries series([&row](double v) {
            const double place = std::abs(std::isfinite(v) ? std::fmod(v, 100.0) : 0.0);
            return row.values[static_cast<std::size_t>(place * 7.0) % row.values.size()];
        });
        expectHarmless(series, row.name);
        for (std::size_t i = 1; i < std::min<std::size_t>(row.values.size(), 6); ++i)
            if (series.setDomain(row.values[i - 1], row.values[i]))
                expectHarmless(series, row.name + " as a domain");
    }
}
