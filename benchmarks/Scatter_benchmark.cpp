// SPDX-License-Identifier: MIT
#include "Stage.h"

#include <QtSvgRenderSurface.h>

#include <zembra/series/ScatterSeries.h>

#include <QtGui/QGuiApplication>

using namespace zembra;
using namespace zembra::benchmarks;

namespace {

std::pair<std::vector<double>, std::vector<double>> cloud(std::size_t count) {
    std::minstd_rand generator(1);
    std::normal_distribution<double> normal;
    std::pair<std::vector<double>, std::vector<double>> points;
    for (std::size_t i = 0; i < count; ++i) {
        points.first.push_back(normal(generator));
        points.second.push_back(normal(generator));
    }
    return points;
}

void scatter(benchmark::State& state) {
    auto [x, y] = cloud(static_cast<std::size_t>(state.range(0)));
    Stage stage;
    const auto series = stage.plot.add<ScatterSeries>(std::move(x), std::move(y));
    series->setMarkerSize(5.0);
    series->setColor(Color(0, 90, 180, static_cast<int>(state.range(1))));
    stage.plot.setAxisScale(0, -3.0, 3.0);
    for (auto _ : state)
        stage.pan(-3.0, 3.0);
}
BENCHMARK(scatter)
    ->ArgsProduct({{2000, 100000, 1000000}, {255, 100}})
    ->Unit(benchmark::kMillisecond);

// The size of a vector file, in bytes, as a counter.
void svgSize(benchmark::State& state) {
    Plot plot;
    const auto count = static_cast<std::size_t>(state.range(0));
    if (state.range(1)) {
        auto [x, y] = cloud(count);
        plot.add<ScatterSeries>(std::move(x), std::move(y));
    } else {
        plot.add<LineSeries>(rising(count), noise(count));
    }
    std::size_t bytes = 0;
    for (auto _ : state) {
        QtSvgRenderSurface surface;
        surface.create(Stage::width, Stage::height);
        plot.renderInto(*surface.painter(), Stage::width, Stage::height);
        surface.finalize();
        bytes = static_cast<std::size_t>(surface.svgData().size());
    }
    state.counters["bytes"] = static_cast<double>(bytes);
}
BENCHMARK(svgSize)->Args({1000000, 0})->Args({1000000, 1})->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv) {
    const QGuiApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
