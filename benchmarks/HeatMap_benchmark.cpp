// SPDX-License-Identifier: MIT
#include "Stage.h"

#include <zembra/series/HeatMapSeries.h>

#include <QtGui/QGuiApplication>

using namespace zembra;
using namespace zembra::benchmarks;

namespace {

constexpr std::size_t side = 4000;

std::vector<double> field(double phase) {
    std::vector<double> values(side * side);
    for (std::size_t row = 0; row < side; ++row)
        for (std::size_t column = 0; column < side; ++column)
            values[row * side + column] = std::sin(0.004 * static_cast<double>(column) + phase) *
                                          std::cos(0.005 * static_cast<double>(row));
    return values;
}

Grid gridOf(const std::vector<double>& values) {
    return Grid::borrowed(values, side, {0.0, 1.0}, {0.0, 1.0});
}

ColorScale fixedColors() {
    ColorScale colors;
    colors.setRange(-1.0, 1.0);
    return colors;
}

// Other values for every frame, with a range that is known, or found out from them.
void heatMapChanging(benchmark::State& state) {
    const auto one = field(0.0);
    const auto other = field(0.5);
    Stage stage;
    const auto series = stage.plot.add<HeatMapSeries>(gridOf(one));
    if (state.range(0))
        series->setColorScale(fixedColors());
    bool odd = false;
    for (auto _ : state) {
        odd = !odd;
        series->setGrid(gridOf(odd ? other : one));
        stage.draw();
    }
    state.SetLabel(state.range(0) ? "fixed range" : "range of the values");
}
BENCHMARK(heatMapChanging)->Arg(1)->Arg(0)->Unit(benchmark::kMillisecond);

// By whole pixels, as pointers do, and by parts of pixels.
void heatMapPanning(benchmark::State& state) {
    const auto values = field(0.0);
    Stage stage;
    const auto series = stage.plot.add<HeatMapSeries>(gridOf(values));
    series->setColorScale(fixedColors());
    stage.draw();
    const double pixel = 1.0 / stage.plot.canvasRect().width;
    const double step = state.range(0) ? 3.0 * pixel : 3.3 * pixel;
    int i = 0;
    for (auto _ : state) {
        i = (i + 1) % 64;
        stage.plot.setAxisScale(2, i * step, 1.0 + i * step);
        stage.draw();
    }
    state.SetLabel(state.range(0) ? "whole pixels" : "parts of pixels");
}
BENCHMARK(heatMapPanning)->Arg(1)->Arg(0)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv) {
    const QGuiApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
