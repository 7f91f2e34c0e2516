// SPDX-License-Identifier: MIT
#include "Stage.h"

#include <ZembraGraphicsView.h>
#include <ZembraNavigationDefinitions.h>

#include <QtGui/QWheelEvent>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>

using namespace zembra;
using namespace zembra::benchmarks;

namespace {

// From a wheel event to the painted view: the processor's time is what counts. Without a line, what
// a step costs anyhow.
void wheelStep(benchmark::State& state) {
    auto plot = std::make_shared<Plot>();
    const auto count = static_cast<std::size_t>(state.range(0));
    if (count > 0)
        plot->add<LineSeries>(rising(count), noise(count))
            ->setWidth(static_cast<double>(state.range(1)));
    ZembraGraphicsView view;
    view.resize(Stage::width, Stage::height);
    view.setPlot(plot);
    view.show();
    if (!QTest::qWaitForWindowExposed(&view)) {
        state.SkipWithError("no window");
        return;
    }
    const QPointF at(640.3, 360.4);
    int step = 0;
    for (auto _ : state) {
        const int delta = step++ % 16 < 8 ? 120 : -120;
        QWheelEvent wheel(at, view.viewport()->mapToGlobal(at), {}, {delta, 0}, Qt::NoButton,
                          ZembraNavigationDefinitions::wheelZoomModifier(), Qt::NoScrollPhase,
                          false);
        QApplication::sendEvent(view.viewport(), &wheel);
        QApplication::sendPostedEvents();
        QApplication::processEvents();
    }
}
BENCHMARK(wheelStep)
    ->Args({0, 1})
    ->ArgsProduct({{1000000}, {1, 2, 3, 5}})
    ->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
