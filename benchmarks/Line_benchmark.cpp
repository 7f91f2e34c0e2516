// SPDX-License-Identifier: MIT
#include "Stage.h"

#include <QtGui/QGuiApplication>

#include <cstdlib>
#include <new>

using namespace zembra;
using namespace zembra::benchmarks;

namespace {

void useRange(Stage& stage) {
    stage.plot.setAxisScale(2, 0.1, 0.9);
    stage.plot.setAxisScale(0, -1.05, 1.05);
}

// Counts what is taken from the heap while it lives.
class AllocationCount {
public:
    AllocationCount() : before(taken) {}
    std::size_t now() const { return taken - before; }

    static inline std::size_t taken = 0;

private:
    std::size_t before;
};

// What every frame costs before there is a line in it.
void axesAlone(benchmark::State& state) {
    Stage stage;
    useRange(stage);
    for (auto _ : state)
        stage.pan(0.1, 0.9);
}
BENCHMARK(axesAlone)->Unit(benchmark::kMillisecond);

template <class Make>
void panFrames(benchmark::State& state, Make make, double width, Color color = Color(0, 90, 180),
               PenStyle style = PenStyle::Solid) {
    const auto count = static_cast<std::size_t>(state.range(0));
    Stage stage;
    const auto line = stage.plot.add<LineSeries>(rising(count), make(count));
    line->setWidth(width);
    line->setColor(color);
    line->setStyle(style);
    useRange(stage);
    stage.draw();
    for (auto _ : state)
        stage.pan(0.1, 0.9);
}

void panNoise(benchmark::State& state) {
    panFrames(state, noise, 1.0);
}
BENCHMARK(panNoise)->RangeMultiplier(10)->Range(1000, 100000000)->Unit(benchmark::kMillisecond);

void panWave(benchmark::State& state) {
    panFrames(state, wave, 1.0);
}
BENCHMARK(panWave)->RangeMultiplier(10)->Range(1000, 10000000)->Unit(benchmark::kMillisecond);

void penWidthDense(benchmark::State& state) {
    panFrames(state, noise, static_cast<double>(state.range(1)));
}
BENCHMARK(penWidthDense)->ArgsProduct({{1000000}, {1, 2, 3, 5}})->Unit(benchmark::kMillisecond);

void penWidthSparse(benchmark::State& state) {
    panFrames(state, state.range(0) == 100 ? noise : wave, static_cast<double>(state.range(1)));
}
BENCHMARK(penWidthSparse)
    ->ArgsProduct({{100, 300, 1000, 1000000}, {1, 2, 3, 5}})
    ->Unit(benchmark::kMillisecond);

void penTranslucent(benchmark::State& state) {
    panFrames(state, state.range(1) ? noise : wave, 2.0, Color(0, 90, 180, 128));
}
BENCHMARK(penTranslucent)
    ->ArgsProduct({{300, 1000, 1000000}, {0, 1}})
    ->Unit(benchmark::kMillisecond);

void penDashed(benchmark::State& state) {
    panFrames(state, state.range(1) ? noise : wave, 2.0, Color(0, 90, 180), PenStyle::Dash);
}
BENCHMARK(penDashed)
    ->ArgsProduct({{100, 300, 1000, 1000000}, {0, 1}})
    ->Unit(benchmark::kMillisecond);

// One pass over the samples' memory, the measure for the first frame.
void memoryPass(benchmark::State& state) {
    const auto values = noise(static_cast<std::size_t>(state.range(0)));
    const auto xs = rising(values.size());
    for (auto _ : state) {
        for (const auto* row : {&xs, &values}) {
            double sum[8] = {};
            for (std::size_t i = 0; i + 8 <= row->size(); i += 8)
                for (std::size_t k = 0; k < 8; ++k)
                    sum[k] += (*row)[i + k];
            benchmark::DoNotOptimize(sum);
        }
    }
}
BENCHMARK(memoryPass)->Arg(100000000)->Unit(benchmark::kMillisecond);

void firstFrame(benchmark::State& state) {
    const auto values = noise(static_cast<std::size_t>(state.range(0)));
    const auto xs = rising(values.size());
    double bytes = 0.0;
    for (auto _ : state) {
        Stage stage;
        const Samples samples = Samples::borrowed(xs, values);
        stage.plot.add<LineSeries>(samples)->setWidth(1.0);
        stage.draw();
        bytes = static_cast<double>(samples.indexBytes());
    }
    state.counters["index_bytes_per_sample"] = bytes / static_cast<double>(values.size());
}
// Two doubles a sample are borrowed; what is held beside them is the index.
BENCHMARK(firstFrame)->Arg(100000000)->Unit(benchmark::kMillisecond);

void streaming(benchmark::State& state) {
    const auto added = static_cast<std::size_t>(state.range(0));
    Samples ring = Samples::streamed(1000000);
    std::vector<double> x(1000000);
    auto y = noise(x.size());
    for (std::size_t i = 0; i < x.size(); ++i)
        x[i] = static_cast<double>(i);
    ring.append(x, y);
    Stage stage;
    stage.plot.add<LineSeries>(ring)->setWidth(1.0);
    stage.plot.setAxisScale(0, -1.05, 1.05);
    x.resize(added);
    y.resize(added);
    double end = 1000000.0;
    stage.draw();
    std::size_t allocations = 0;
    for (auto _ : state) {
        const AllocationCount count;
        for (double& v : x)
            v = end++;
        ring.append(x, y);
        allocations = count.now();
        stage.plot.setAxisScale(2, end - 1000000.0, end);
        stage.draw();
    }
    // Of the append alone; what a painter allocates is its own.
    state.counters["allocations"] = static_cast<double>(allocations);
}
BENCHMARK(streaming)->Arg(0)->Arg(10000)->Unit(benchmark::kMillisecond);

void manySeries(benchmark::State& state) {
    const auto count = static_cast<std::size_t>(state.range(1));
    Stage stage;
    for (int i = 0; i < state.range(0); ++i) {
        auto y = noise(count);
        for (double& v : y)
            v = 0.02 * v + static_cast<double>(i) / static_cast<double>(state.range(0));
        stage.plot.add<LineSeries>(rising(count), std::move(y))->setWidth(1.0);
    }
    stage.plot.setAxisScale(0, 0.0, 1.0);
    for (auto _ : state)
        stage.pan(0.1, 0.9);
}
BENCHMARK(manySeries)
    ->Args({10, 10000})
    ->Args({100, 10000})
    ->Args({100, 1000})
    ->Args({1000, 1000})
    ->Unit(benchmark::kMillisecond);

void unsorted(benchmark::State& state) {
    const auto count = static_cast<std::size_t>(state.range(0));
    std::vector<double> x(count);
    std::vector<double> y(count);
    std::vector<double> jitter = noise(count);
    for (std::size_t i = 0; i < count; ++i) {
        const double t = 400.0 * static_cast<double>(i) / static_cast<double>(count);
        if (state.range(1) == 0) {
            x[i] = std::sin(3.0 * t);
            y[i] = std::sin(3.1 * t);
        } else {
            x[i] = jitter[i];
            y[i] = jitter[(i * 7 + 3) % count];
        }
    }
    Stage stage;
    stage.plot.add<LineSeries>(std::move(x), std::move(y))->setWidth(1.0);
    stage.plot.setAxisScale(0, -1.05, 1.05);
    for (auto _ : state)
        stage.pan(-1.0, 1.0);
}
BENCHMARK(unsorted)->Args({1000000, 0})->Args({1000000, 1})->Unit(benchmark::kMillisecond);

} // namespace

void* operator new(std::size_t size) {
    ++AllocationCount::taken;
    if (void* memory = std::malloc(size > 0 ? size : 1))
        return memory;
    throw std::bad_alloc();
}

void operator delete(void* memory) noexcept {
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}

int main(int argc, char** argv) {
    const QGuiApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
