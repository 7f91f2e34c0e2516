// SPDX-License-Identifier: MIT
#include <zembra/series/SourceSeries.h>

#include "support/RecordingPainter.h"

#include <zembra/series/Canvas.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <memory>
#include <utility>
#include <vector>

using namespace zembra;
using zembra::test::RecordingPainter;

namespace {

// Answers with whatever it was given, and remembers what it was asked for.
class FixedSource : public SampleSource {
public:
    SampleBounds bounds() const override { return all; }
    std::shared_ptr<const ColumnExtents> extents(const ColumnRequest& request) override {
        requests.push_back(request);
        return answer;
    }
    std::uint64_t revision() const override { return changes; }

    SampleBounds all;
    std::shared_ptr<const ColumnExtents> answer;
    std::vector<ColumnRequest> requests;
    std::uint64_t changes = 0;
};

void draw(const Series& series, RecordingPainter& painter, double first, double last,
          const Scale& scale = {}) {
    FrameBuffers buffers;
    Canvas canvas(painter, {0.0, 0.0, 100.0, 50.0}, ScaleMap(scale, 0.0, 100.0, first, last),
                  ScaleMap(Scale::linear(), 50.0, 0.0, 0.0, 5.0), {}, buffers);
    series.draw(canvas);
}

std::shared_ptr<const ColumnExtents> columns(ColumnExtents extents) {
    return std::make_shared<const ColumnExtents>(std::move(extents));
}

} // namespace

TEST(SourceSeries, AsksForTheColumnsOfTheCanvas) {
    const auto source = std::make_shared<FixedSource>();
    const SourceSeries series(source);
    RecordingPainter painter;
    draw(series, painter, 20.0, 220.0);
    ASSERT_EQ(source->requests.size(), 1u);
    EXPECT_EQ(source->requests[0], (ColumnRequest{20.0, 222.0, 101}));
    EXPECT_EQ(painter.count(), 0u);
    // Reversed axes and views between columns.
    draw(series, painter, 221.0, 21.0);
    EXPECT_EQ(source->requests[1], (ColumnRequest{20.0, 222.0, 101}));
}

TEST(SourceSeries, DrawsEachColumnsFirstExtremesAndLast) {
    const auto source = std::make_shared<FixedSource>();
    // Rising through both extremes, a single sample, and a fall without more than its ends.
    source->answer = columns({{0.0, 1.0, 4.0, 2.0, 0.0, 4.0},
                              {8.0, 3.0, 8.0, 3.0, 3.0, 3.0},
                              {20.0, 3.0, 40.0, 1.0, 1.0, 3.0, true}});
    SourceSeries series(source);
    series.setWidth(1.0);
    RecordingPainter painter;
    draw(series, painter, 0.0, 100.0);
    EXPECT_EQ(painter.text(), "setPen #000000 1\n"
                              "drawPolyline 0,40 1,50 3,10 4,30 8,20\n"
                              "drawPolyline 20,20 40,40\n");
}

TEST(SourceSeries, ShowsAnOlderAnswerWhereItsSamplesBelong) {
    const auto source = std::make_shared<FixedSource>();
    source->answer = columns({{0.0, 1.0, 0.0, 1.0, 1.0, 1.0}, {50.0, 2.0, 50.0, 2.0, 2.0, 2.0}});
    SourceSeries series(source);
    series.setWidth(1.0);
    RecordingPainter painter;
    draw(series, painter, -50.0, 50.0);
    EXPECT_EQ(painter.text(), "setPen #000000 1\ndrawPolyline 50,40 100,30\n");
}

TEST(SourceSeries, CoversWhatItsSourceKnowsAndTheScalesCanPlace) {
    const auto source = std::make_shared<FixedSource>();
    const SourceSeries series(source);
    EXPECT_TRUE(series.bounds({}, {}).x.isEmpty());
    source->all = {{-1.0, 4.0}, {2.0, 3.0}};
    EXPECT_EQ(series.bounds({}, {}).x, (Interval{-1.0, 4.0}));
    EXPECT_EQ(series.bounds(Scale::log(), {}).x, (Interval{4.0, 4.0}));
    EXPECT_TRUE(SourceSeries().bounds({}, {}).y.isEmpty());
}

TEST(SourceSeries, ItsRevisionFollowsItsSourceAndOnlyGrows) {
    const auto source = std::make_shared<FixedSource>();
    SourceSeries series(source);
    const std::uint64_t first = series.revision();
    source->changes = 5;
    const std::uint64_t second = series.revision();
    EXPECT_GT(second, first);
    series.setSource(nullptr);
    EXPECT_GT(series.revision(), second);
}

TEST(SourceSeries, WithstandsViewsAndAnswersOutOfAnyBounds) {
    const double huge = std::numeric_limits<double>::max();
    const auto source = std::make_shared<FixedSource>();
    source->answer = columns({{-huge, huge, huge, -huge, -huge, huge},
                              {std::nan(""), 1.0, 2.0, std::nan(""), 0.0, 1.0}});
    const SourceSeries series(source);
    RecordingPainter painter;
    for (const auto& [first, last] :
         {std::pair{-huge, huge}, std::pair{1e300, 1.0000001e300}, std::pair{0.0, 1e-300}})
        draw(series, painter, first, last);
    draw(series, painter, 1.0, 1e9, Scale::log());
    EXPECT_FALSE(painter.sawWildNumber());
    EXPECT_GE(source->requests.size(), 3u);
}

TEST(SourceSeries, DrawsNothingWithoutASourceOrAViewThatHasColumns) {
    RecordingPainter painter;
    draw(SourceSeries(), painter, 0.0, 10.0);
    const auto source = std::make_shared<FixedSource>();
    source->answer = columns({{1.0, 1.0, 2.0, 2.0, 1.0, 2.0, false}});
    const SourceSeries series(source);
    FrameBuffers buffers;
    // No width, no span, a span beyond double.
    for (const auto& [right, last] : {std::pair{0.0, 10.0}, {100.0, 0.0}}) {
        Canvas canvas(painter, {0.0, 0.0, right, 50.0},
                      ScaleMap(Scale::linear(), 0.0, right, 0.0, last),
                      ScaleMap(Scale::linear(), 50.0, 0.0, 0.0, 5.0), {}, buffers);
        series.draw(canvas);
    }
    draw(series, painter, -1.7e308, 1.7e308);
    EXPECT_EQ(source->requests.size(), 0u);
    EXPECT_EQ(painter.count(), 0u);
}

TEST(SourceSeries, KeepsItsWidthWhereAnotherMakesNoSenseAndShowsItInItsKey) {
    SourceSeries series(std::make_shared<FixedSource>());
    series.setWidth(2.0);
    for (const double bad : {-1.0, std::numeric_limits<double>::quiet_NaN(), HUGE_VAL})
        series.setWidth(bad);
    EXPECT_EQ(series.width(), 2.0);
    RecordingPainter painter;
    FrameBuffers buffers;
    Canvas canvas(painter, {0.0, 0.0, 100.0, 50.0}, ScaleMap(), ScaleMap(), {}, buffers);
    series.drawLegendKey(canvas, {0.0, 0.0, 20.0, 10.0});
    EXPECT_EQ(painter.text(), "setPen #000000 2\ndrawPolyline 0,5 20,5\n");
}
