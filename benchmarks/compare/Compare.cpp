// SPDX-License-Identifier: MIT
//
// One case with one library, as JSON: `compare` runs them all and sets them against each other.
// Usage: compare_LIBRARY line|discs|map-pan|map-change|svg|start SAMPLES [PEN WIDTH] [fast]
#include "Chart.h"

#include <QtCore/QEvent>
#include <QtCore/QTimer>
#include <QtWidgets/QApplication>
#include <QtWidgets/QWidget>

#include <time.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <random>
#include <string>

using namespace zembra::compare;

namespace {

constexpr int width = 1280;
constexpr int height = 720;

// Of all threads, so that nothing is hidden in them.
double processorMilliseconds() {
    timespec now{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) * 1e-6;
}

struct Data {
    std::vector<double> x;
    std::vector<double> y;
};

Data noise(std::size_t count) {
    std::minstd_rand generator(1);
    Data data;
    for (std::size_t i = 0; i < count; ++i) {
        data.x.push_back(static_cast<double>(i) / static_cast<double>(count));
        data.y.push_back(2.0 * static_cast<double>(generator()) / 2147483647.0 - 1.0);
    }
    return data;
}

Data cloud(std::size_t count) {
    std::minstd_rand generator(1);
    std::normal_distribution<double> normal(0.5, 1.0 / 6.0);
    Data data;
    for (std::size_t i = 0; i < count; ++i) {
        data.x.push_back(normal(generator));
        data.y.push_back(6.0 * normal(generator) - 3.0);
    }
    return data;
}

std::vector<double> field(std::size_t side) {
    std::vector<double> values(side * side);
    for (std::size_t row = 0; row < side; ++row)
        for (std::size_t column = 0; column < side; ++column)
            values[row * side + column] = std::sin(0.004 * static_cast<double>(column)) *
                                          std::cos(0.005 * static_cast<double>(row));
    return values;
}

// Counts the frames of a widget, and waits for them.
class Frames : public QObject {
public:
    explicit Frames(QWidget& canvas) { canvas.installEventFilter(this); }

    int count() const { return painted; }
    // Makes a change and waits for its frame, which may come at once.
    template <class Change>
    void after(Change change) {
        const int before = painted;
        change();
        while (painted == before)
            QApplication::processEvents();
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Paint)
            ++painted;
        return QObject::eventFilter(watched, event);
    }

private:
    int painted = 0;
};

struct View {
    double left = 0.1;
    double right = 0.9;
    double bottom = -1.05;
    double top = 1.05;
};

// The median time of a frame, from a change to the painted widget.
template <class Change>
int measureFrames(Chart& chart, const View& view, Change change) {
    chart.window().resize(width, height);
    chart.window().show();
    Frames frames(chart.canvas());
    double begin = processorMilliseconds();
    frames.after([&] { chart.show(view.left, view.right, view.bottom, view.top); });
    const double first = processorMilliseconds() - begin;
    std::vector<double> times;
    const int before = frames.count();
    double total = 0.0;
    const double enough = 1500.0;
    while (times.size() < 3 || (times.size() < 50 && total < enough)) {
        const int step = static_cast<int>(times.size());
        begin = processorMilliseconds();
        frames.after([&] { change(step); });
        times.push_back(processorMilliseconds() - begin);
        total += times.back();
        // Nobody waits for this one.
        if (total > 10.0 * enough)
            break;
    }
    const double perChange =
        static_cast<double>(frames.count() - before) / static_cast<double>(times.size());
    std::nth_element(times.begin(), times.begin() + std::ssize(times) / 2, times.end());
    std::printf("{\"ms\": %.3f, \"first_ms\": %.3f, \"frames_per_change\": %.2f}\n",
                times[times.size() / 2], first, perChange);
    return 0;
}

int measurePan(Chart& chart, const View& view) {
    return measureFrames(chart, view, [&](int step) {
        const double shift = (view.right - view.left) * 0.0011 * (step % 64 + 1);
        chart.show(view.left + shift, view.right + shift, view.bottom, view.top);
    });
}

int measureSvg(Chart& chart) {
    chart.window().resize(width, height);
    chart.window().show();
    // Some lay out nothing before they are seen.
    Frames frames(chart.canvas());
    frames.after([&] { chart.show(0.1, 0.9, -1.05, 1.05); });
    const double begin = processorMilliseconds();
    const qsizetype bytes = chart.svg(width, height).size();
    std::printf("{\"ms\": %.3f, \"bytes\": %lld}\n", processorMilliseconds() - begin,
                static_cast<long long>(bytes));
    return 0;
}

// Ends with the first frame.
class EndAfterPaint : public QObject {
protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Paint)
            QTimer::singleShot(0, qApp, &QApplication::quit);
        return QObject::eventFilter(watched, event);
    }
};

int start(Chart& chart) {
    EndAfterPaint end;
    chart.canvas().installEventFilter(&end);
    chart.window().resize(width, height);
    chart.show(0.0, 1.0, -1.05, 1.05);
    chart.window().show();
    return QApplication::exec();
}

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    const std::string kind = argc > 1 ? argv[1] : "";
    const auto count = static_cast<std::size_t>(argc > 2 ? std::atof(argv[2]) : 1000.0);
    const double pen = argc > 3 ? std::atof(argv[3]) : 1.0;
    const bool fast = argc > 4 && std::strcmp(argv[4], "fast") == 0;
    const auto chart = makeChart(fast);
    if (!chart) {
        std::puts("{\"none\": true}");
        return 0;
    }
    if (kind == "line" || kind == "svg" || kind == "start") {
        const Data data = noise(count);
        chart->addLine(data.x, data.y, pen);
        return kind == "line"  ? measurePan(*chart, {})
               : kind == "svg" ? measureSvg(*chart)
                               : start(*chart);
    }
    if (kind == "discs") {
        const Data data = cloud(count);
        chart->addDiscs(data.x, data.y, 5.0);
        return measurePan(*chart, {0.0, 1.0, -3.0, 3.0});
    }
    if (kind == "map-pan" || kind == "map-change") {
        if (!chart->addMap(field(count), count)) {
            std::puts("{\"none\": true}");
            return 0;
        }
        const View view{0.0, 1.0, 0.0, 1.0};
        if (kind == "map-pan")
            return measurePan(*chart, view);
        return measureFrames(*chart, view, [&](int) {
            chart->changeMap();
            chart->show(view.left, view.right, view.bottom, view.top);
        });
    }
    return 2;
}
