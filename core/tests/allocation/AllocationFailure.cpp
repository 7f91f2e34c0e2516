// SPDX-License-Identifier: MIT
// Every allocation of the core fails once. What was asked for is then not done, with everything as
// it was before, nothing lost, and the next attempt a full success.
#include "FailingAllocator.h"

#include "support/RecordingPainter.h"
#include "support/StrictPainter.h"

#include <zembra/zembra.h>

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <new>
#include <numeric>
#include <string>
#include <vector>

using namespace zembra;
using namespace zembra::test;

namespace {

constexpr int width = 240;
constexpr int height = 160;

std::vector<double> ramp(std::size_t count) {
    std::vector<double> list(count);
    std::iota(list.begin(), list.end(), 0.0);
    return list;
}

std::vector<double> wave(std::size_t count) {
    std::vector<double> list = ramp(count);
    for (double& each : list)
        each = std::sin(each * 0.7) * 5.0;
    return list;
}

std::string picture(Plot& plot) {
    RecordingPainter painter;
    plot.renderInto(painter, width, height);
    return painter.text();
}

// Runs `action` until no allocation is left to fail, and `undo` after each time it was done.
// `unchanged` tells whether all is as it was before.
void failEverywhere(
    const std::function<void()>& action, const std::function<bool()>& unchanged,
    const std::function<void()>& undo = [] {}) {
    bool failed = true;
    std::size_t number = 0;
    for (; failed; ++number) {
        bool threw = false;
        allocator::failAt(number);
        try {
            action();
        } catch (const std::bad_alloc&) {
            threw = true;
        }
        failed = allocator::stopFailing();
        ASSERT_TRUE(failed || !threw);
        // Where no exception tells of the failure, the core has found another way.
        if (!threw)
            undo();
        ASSERT_TRUE(unchanged()) << "after allocation " << number;
    }
    EXPECT_GT(number, 1U) << "nothing was allocated";
}

struct Kind {
    const char* name;
    std::function<std::shared_ptr<Series>()> make;
};

const std::vector<Kind>& kinds() {
    static const Grid grid(wave(30), 6, {0.0, 6.0}, {0.0, 5.0});
    static const std::vector<Kind> all{
        {"line", [] { return std::make_shared<LineSeries>(ramp(9), wave(9), "a line"); }},
        {"line of many samples",
         [] { return std::make_shared<LineSeries>(ramp(3000), wave(3000)); }},
        {"ring",
         [] {
             Samples ring = Samples::streamed(50);
             ring.append(ramp(70), wave(70));
             return std::make_shared<LineSeries>(ring);
         }},
        {"scatter", [] { return std::make_shared<ScatterSeries>(ramp(9), wave(9)); }},
        {"scatter of many samples",
         [] { return std::make_shared<ScatterSeries>(ramp(6000), wave(6000)); }},
        {"area", [] { return std::make_shared<AreaSeries>(ramp(9), wave(9)); }},
        {"band", [] { return std::make_shared<BandSeries>(ramp(9), wave(9), ramp(9)); }},
        {"bars", [] { return std::make_shared<BarSeries>(ramp(5), wave(5), "bars"); }},
        {"histogram", [] { return std::make_shared<HistogramSeries>(wave(40)); }},
        {"boxes",
         [] {
             return std::make_shared<BoxPlotSeries>(
                 std::vector<std::vector<double>>{wave(9), wave(20)});
         }},
        {"candles",
         [] {
             return std::make_shared<CandlestickSeries>(
                 CandleRows{ramp(5), wave(5), ramp(5), wave(5), ramp(5)});
         }},
        {"error bars",
         [] {
             auto series = std::make_shared<ErrorBarSeries>(ramp(5), wave(5));
             series->setXErrors({0.5, 0.5, 0.5, 0.5, 0.5});
             series->setYErrors(ramp(5), ramp(5));
             return series;
         }},
        {"stems", [] { return std::make_shared<StemSeries>(ramp(5), wave(5)); }},
        {"function",
         [] { return std::make_shared<FunctionSeries>([](double x) { return std::sin(x); }); }},
        {"heat map", [] { return std::make_shared<HeatMapSeries>(grid, "heat"); }},
        {"contours", [] { return std::make_shared<ContourSeries>(grid); }},
        {"filled contours",
         [] {
             auto series = std::make_shared<ContourSeries>(grid);
             series->setStyle(ContourStyle::FilledWithLines);
             return series;
         }},
        {"line annotation",
         [] { return std::make_shared<LineAnnotation>(AcrossCanvas::Vertical, 0.5, "here"); }},
        {"span annotation",
         [] { return std::make_shared<SpanAnnotation>(AcrossCanvas::Vertical, 0.2, 0.5, "span"); }},
        {"text annotation",
         [] {
             return std::make_shared<TextAnnotation>(Position{0.5, 0.5}, "a text of some length");
         }},
        {"arrow",
         [] {
             return std::make_shared<ArrowAnnotation>(Position{0.1, 0.1}, Position{0.5, 0.9});
         }},
        {"shape",
         [] {
             return std::make_shared<ShapeAnnotation>(
                 AnnotationShape::Polygon,
                 std::vector<Position>{{0.1, 0.1}, {0.9, 0.2}, {0.5, 0.7}});
         }},
    };
    return all;
}

// Long enough to be allocated.
const std::string longText = "A text that is too long for the room inside a string";

} // namespace

class AllocationFailureOfSeries : public testing::TestWithParam<std::size_t> {
protected:
    const Kind& kind() const { return kinds().at(GetParam()); }
};

TEST_P(AllocationFailureOfSeries, MakingAddingAndDrawingIsDoneWhollyOrNotAtAll) {
    // What is made once and kept for good is no loss.
    {
        Plot first;
        first.addSeries(kind().make());
        picture(first);
    }
    const std::size_t before = allocator::live();
    {
        Plot plot;
        failEverywhere(
            [&] {
                const auto series = kind().make();
                plot.addSeries(series);
                plot.removeSeries(series);
            },
            [&] { return plot.series().empty(); });
        plot.addSeries(kind().make());
        const std::string expected = picture(plot);
        const Rect canvas = plot.canvasRect();
        const auto range = plot.axis(0).range();
        for (std::size_t number = 0;; ++number) {
            // Another one every time: nothing is remembered from the frame that failed.
            Plot fresh;
            fresh.addSeries(kind().make());
            StrictPainter painter;
            allocator::failAt(number);
            bool threw = false;
            try {
                fresh.renderInto(painter, width, height);
            } catch (const std::bad_alloc&) {
                threw = true;
            }
            const bool failed = allocator::stopFailing();
            ASSERT_TRUE(painter.isBalanced()) << "after allocation " << number;
            ASSERT_EQ(painter.fault(), "");
            ASSERT_EQ(picture(fresh), expected) << "after allocation " << number;
            ASSERT_EQ(fresh.canvasRect(), canvas);
            ASSERT_EQ(fresh.axis(0).range(), range);
            if (!failed) {
                ASSERT_FALSE(threw);
                break;
            }
        }
    }
    EXPECT_EQ(allocator::live(), before) << "something was lost";
}

INSTANTIATE_TEST_SUITE_P(Kinds, AllocationFailureOfSeries,
                         testing::Range(std::size_t{0}, kinds().size()), [](const auto& info) {
                             std::string name = kinds().at(info.param).name;
                             for (char& each : name)
                                 each = each == ' ' ? '_' : each;
                             return name;
                         });

TEST(AllocationFailure, PlotsAreMadeWhollyOrNotAtAll) {
    { const Plot first; }
    const std::size_t before = allocator::live();
    failEverywhere([] { const Plot plot; }, [&] { return allocator::live() == before; });
    failEverywhere([] { const PlotGrid grid(2, 2); }, [&] { return allocator::live() == before; });
    EXPECT_EQ(allocator::live(), before);
}

TEST(AllocationFailure, SettersOfPlotAndAxesLeaveWhatTheyCannotReplace) {
    Plot plot;
    Plot other;
    plot.add<LineSeries>(ramp(9), wave(9), "line");
    plot.axis(1).setEnabled(true);
    const std::string expected = picture(plot);
    picture(other);
    const auto unchanged = [&] { return picture(plot) == expected; };
    const auto tried = [&](const char* what, const std::function<void()>& action,
                           const std::function<void()>& undo) {
        SCOPED_TRACE(what);
        failEverywhere(action, unchanged, undo);
    };
    tried(
        "title", [&] { plot.setTitle(longText); }, [&] { plot.setTitle({}); });
    tried(
        "subtitle", [&] { plot.setSubtitle(longText); }, [&] { plot.setSubtitle({}); });
    tried(
        "axis title", [&] { plot.axis(0).setTitle(longText); }, [&] { plot.axis(0).setTitle({}); });
    tried(
        "theme", [&] { plot.setTheme(Theme::dark()); }, [&] { plot.setTheme(Theme::light()); });
    tried(
        "scale", [&] { plot.axis(0).setScale(Scale::symLog(2.0)); },
        [&] { plot.axis(0).setScale(Scale::linear()); });
    tried(
        "format", [&] { plot.axis(0).setNumberFormat(NumberFormat::currency(longText, longText)); },
        [&] { plot.axis(0).setNumberFormat({}); });
    tried(
        "link", [&] { plot.axis(0).linkTo(other.axis(0)); },
        [&] {
            plot.axis(0).unlink();
            plot.axis(0).setAutoScale(true);
        });
    tried(
        "derivation",
        [&] {
            plot.axis(1).setDerived([](double v) { return 2.0 * v; },
                                    [](double v) { return 0.5 * v; });
        },
        [&] { plot.axis(1).setDerived({}, {}); });
}

TEST(AllocationFailure, CalendarAxesKeepTheirZone) {
    const auto draw = [](Plot& plot, Painter& painter) {
        plot.axis(2).setScale(Scale::time("America/St_Johns"));
        plot.setAxisScale(2, 1.7e9, 1.7e9 + 86400.0);
        plot.renderInto(painter, width, height);
    };
    std::size_t number = 0;
    for (bool failed = true; failed; ++number) {
        Plot plot;
        StrictPainter painter;
        allocator::failAt(number);
        try {
            draw(plot, painter);
        } catch (const std::bad_alloc&) {
            ASSERT_TRUE(painter.isBalanced());
        }
        failed = allocator::stopFailing();
        RecordingPainter second;
        draw(plot, second);
        // Midnight there is half past three in UTC, where the tick would stand at 81.
        ASSERT_NE(second.text().find("drawLine 102.5,115.5 102.5,120.5"), std::string::npos)
            << second.text();
    }
    EXPECT_GT(number, 20U);
}

TEST(AllocationFailure, RingsKeepEverySampleTheyHad) {
    Samples ring = Samples::streamed(1000);
    ring.append(ramp(500), wave(500));
    ring.yExtent(0, 500);
    failEverywhere([&] { const Samples another = Samples::streamed(1000); }, [] { return true; });
    EXPECT_EQ(ring.size(), 500U);
}

TEST(AllocationFailure, GridsOfPlotsStayPairedAndDrawAgain) {
    PlotGrid grid(1, 2);
    for (int column = 0; column < 2; ++column) {
        const auto plot = std::make_shared<Plot>();
        plot->add<LineSeries>(ramp(9), wave(9));
        grid.setPlot(0, column, plot);
    }
    RecordingPainter first;
    grid.renderInto(first, width, height);
    bool failed = true;
    for (std::size_t number = 0; failed; ++number) {
        StrictPainter painter;
        allocator::failAt(number);
        try {
            grid.renderInto(painter, width, height);
        } catch (const std::bad_alloc&) {
        }
        failed = allocator::stopFailing();
        ASSERT_TRUE(painter.isBalanced()) << "after allocation " << number;
        RecordingPainter second;
        grid.renderInto(second, width, height);
        ASSERT_EQ(second.text(), first.text());
    }
}
