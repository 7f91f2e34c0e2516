// SPDX-License-Identifier: MIT
// Sizes that no picture has, on more samples than a canvas has columns.
#include "support/StrictPainter.h"

#include <zembra/chart/Plot.h>
#include <zembra/series/AreaSeries.h>
#include <zembra/series/BandSeries.h>
#include <zembra/series/BoxPlotSeries.h>
#include <zembra/series/ErrorBarSeries.h>
#include <zembra/series/FunctionSeries.h>
#include <zembra/series/LineSeries.h>
#include <zembra/series/ScatterSeries.h>
#include <zembra/series/StemSeries.h>

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <memory>
#include <string>
#include <vector>

using namespace zembra;
using namespace zembra::test;

namespace {

using Values = std::vector<double>;

struct Wave {
    explicit Wave(std::size_t count) : x(count), y(count), more(count) {
        for (std::size_t i = 0; i < count; ++i) {
            x[i] = static_cast<double>(i);
            y[i] = std::sin(1.7 * x[i]);
            more[i] = y[i] + 1.0;
        }
    }
    Values x, y, more;
};

std::vector<std::shared_ptr<Series>> everySized(const Wave& wave, double size) {
    auto line = std::make_shared<LineSeries>(wave.x, wave.y);
    line->setWidth(size);
    auto stepped = std::make_shared<LineSeries>(wave.x, wave.y);
    stepped->setWidth(size);
    stepped->setSteps(LineSteps::Before);
    stepped->setStyle(PenStyle::Dash);
    auto unsorted = std::make_shared<LineSeries>(wave.y, wave.more);
    unsorted->setWidth(size);
    auto marked = std::make_shared<LineSeries>(wave.x, wave.y);
    marked->setMarkerShape(MarkerShape::Diamond);
    marked->setMarkerSize(size);
    auto function = std::make_shared<FunctionSeries>([](double x) { return std::sin(x); });
    function->setWidth(size);
    auto area = std::make_shared<AreaSeries>();
    area->setSamples(wave.x, wave.y);
    AreaStyle areaStyle;
    areaStyle.lineWidth = size;
    area->setStyle(areaStyle);
    auto band = std::make_shared<BandSeries>();
    band->setSamples(wave.x, wave.y, wave.more);
    BandStyle bandStyle;
    bandStyle.lineWidth = size;
    band->setStyle(bandStyle);
    auto stems = std::make_shared<StemSeries>();
    stems->setSamples(wave.x, wave.y);
    StemStyle stemStyle;
    stemStyle.lineWidth = size;
    stemStyle.headSize = size;
    stems->setStyle(stemStyle);
    auto errors = std::make_shared<ErrorBarSeries>();
    errors->setSamples(wave.x, wave.y);
    errors->setYErrors(wave.more);
    ErrorBarStyle errorStyle;
    errorStyle.lineWidth = size;
    errorStyle.capLength = size;
    errorStyle.markerSize = size;
    errors->setStyle(errorStyle);
    auto points = std::make_shared<ScatterSeries>();
    points->setSamples(wave.x, wave.y);
    points->setMarkerSize(size);
    auto boxes = std::make_shared<BoxPlotSeries>();
    boxes->setSamples({1.0, 2.0}, {wave.y, wave.more});
    BoxPlotStyle boxStyle;
    boxStyle.lineWidth = size;
    boxStyle.outlierSize = size;
    boxes->setStyle(boxStyle);
    return {line, stepped, unsorted, marked, function, area, band, stems, errors, points, boxes};
}

} // namespace

TEST(WildStyles, SizesOfAnyLengthAreDrawnInNumbersThatPaintersTake) {
    const Wave wave(20000);
    for (const double size : {300.0, 1e5, 1e9, 1e20, 1e300}) {
        std::size_t kind = 0;
        for (const auto& series : everySized(wave, size)) {
            Plot plot;
            series->setName("all that");
            plot.addSeries(series);
            plot.legend().setVisible(true);
            StrictPainter painter;
            plot.renderInto(painter, 400, 300);
            EXPECT_EQ(painter.fault(), "") << kind << " of size " << size;
            ++kind;
        }
    }
}
