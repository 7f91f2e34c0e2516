// SPDX-License-Identifier: MIT
// Soak [FRAMES]: a small window streams, zooms, is resized and changes its language for as many
// frames, a million at first. Tells the heap in use and the time of a frame early and late, and
// ends with 1 where either has grown.
#include <ZembraGraphicsView.h>
#include <ZembraNavigationWidget.h>
#include <support/ContextTranslator.h>
#include <zembra/zembra.h>

#include <QApplication>
#include <QVBoxLayout>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <limits>
#include <malloc.h>
#include <random>
#include <vector>

namespace {

/// Bytes that the program has taken and not given back.
std::size_t heapInUse() {
    const struct mallinfo2 heap = mallinfo2();
    return heap.uordblks + heap.hblkhd;
}

double processorSeconds() {
    std::timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + 1e-9 * static_cast<double>(time.tv_nsec);
}

/// A window with a view and its strip, and what a busy user and a sensor do to it.
class Window {
public:
    Window() {
        auto* column = new QVBoxLayout(&top);
        column->addWidget(view);
        column->addWidget(strip);
        strip->setGraphicsView(view);
        plot->setTitle("Sensor");
        plot->axis(2).setTitle("Time (s)");
        plot->axis(0).setTitle("Voltage (V)");
        plot->add<zembra::LineSeries>(curve, "wave");
        plot->add<zembra::ScatterSeries>(points, "peaks");
        view->setPlot(plot);
        top.resize(320, 240);
        top.show();
    }

    void frame(long number) {
        stream();
        if (number % 4 == 0)
            zoom();
        if (number % 300 == 0)
            view->resetZoom();
        if (number % 40 == 0)
            top.resize(280 + static_cast<int>(random() % 80),
                       220 + static_cast<int>(random() % 40));
        if (number % 150 == 0)
            switchLanguage();
        if (number % 700 == 0)
            strip->showCoachMark();
        if (number % 700 == 30)
            strip->hideCoachMark();
        view->replot();
        QCoreApplication::processEvents();
        view->viewport()->repaint();
    }

private:
    void stream() {
        for (int i = 0; i < 20; ++i) {
            time += 1e-3;
            curve.append(time, std::sin(8.0 * time) * std::sin(0.7 * time) + noise(random));
        }
        points.append(time, 1.5 * noise(random));
    }
    void zoom() {
        const QRectF canvas = view->canvasSceneRect();
        const QPointF place(canvas.left() + canvas.width() * share(random),
                            canvas.top() + canvas.height() * share(random));
        if (random() % 2 == 0) {
            view->zoomAt(place, share(random) < 0.5 ? 0.8 : 1.25);
            return;
        }
        const int turn = random() % 2 == 0 ? 120 : -120;
        QWheelEvent wheel(place, view->viewport()->mapToGlobal(place), {}, {0, turn}, Qt::NoButton,
                          Qt::ControlModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(view->viewport(), &wheel);
    }
    void switchLanguage() {
        isTranslated = !isTranslated;
        if (isTranslated)
            QCoreApplication::installTranslator(&translator);
        else
            QCoreApplication::removeTranslator(&translator);
        plot->axis(2).setTitle(isTranslated ? "Zeit (s)" : "Time (s)");
    }

    std::mt19937 random;
    std::normal_distribution<double> noise = std::normal_distribution(0.0, 0.1);
    std::uniform_real_distribution<double> share;
    double time = 0.0;
    zembra::Samples curve = zembra::Samples::streamed(5000);
    zembra::Samples points = zembra::Samples::streamed(300);
    std::shared_ptr<zembra::Plot> plot = std::make_shared<zembra::Plot>();
    ContextTranslator translator;
    bool isTranslated = false;
    QWidget top;
    zembra::ZembraGraphicsView* view = new zembra::ZembraGraphicsView;
    zembra::ZembraNavigationWidget* strip = new zembra::ZembraNavigationWidget;
};

/// The offscreen platform says so at every popup.
void dropPlatformNotes(QtMsgType, const QMessageLogContext&, const QString& text) {
    if (!text.startsWith(QLatin1String("This plugin does not support")))
        std::fprintf(stderr, "%s\n", qPrintable(text));
}

double median(std::vector<float> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return static_cast<double>(*middle);
}

} // namespace

int main(int argc, char** argv) {
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    qInstallMessageHandler(dropPlatformNotes);
    const QApplication application(argc, argv);
    const long frames = argc > 1 ? std::atol(argv[1]) : 1'000'000;
    const long tenth = frames / 10;
    if (tenth < 1000) {
        std::fprintf(stderr, "usage: %s [FRAMES, at least 10000]\n", argv[0]);
        return 2;
    }

    std::vector<float> early(static_cast<std::size_t>(tenth));
    std::vector<float> late(static_cast<std::size_t>(tenth));
    // The most that was in use in each tenth. The first third is the warm-up: the memory of
    // measured texts alone takes thousands of labels to fill.
    std::size_t heap[10] = {};
    Window window;
    for (long i = 0; i < tenth * 10; ++i) {
        const double start = processorSeconds();
        window.frame(i);
        const auto seconds = static_cast<float>(processorSeconds() - start);
        const long part = i / tenth;
        if (part == 1)
            early[static_cast<std::size_t>(i - tenth)] = seconds;
        if (part == 9)
            late[static_cast<std::size_t>(i - 9 * tenth)] = seconds;
        if (i % 100 == 0)
            heap[part] = std::max(heap[part], heapInUse());
    }

    const double first = median(early) * 1e3;
    const double last = median(late) * 1e3;
    std::printf("%ld frames in %.0f s of processor time\n", tenth * 10, processorSeconds());
    for (int part = 0; part < 10; ++part)
        std::printf("heap in use, tenth %2d: at most %zu KiB\n", part + 1, heap[part] / 1024);
    std::printf("frame: %.3f ms in the second tenth, %.3f ms in the last\n", first, last);
    // From one tenth to the next it swings by some hundred KiB.
    const std::size_t before = *std::max_element(heap + 3, heap + 6);
    const std::size_t after = *std::max_element(heap + 7, heap + 10);
    const bool hasGrown = after > before + before / 100 + 65536;
    const bool isSlower = last > 1.25 * first;
    if (hasGrown)
        std::printf("the heap has grown\n");
    if (isSlower)
        std::printf("frames have become slower\n");
    return hasGrown || isSlower ? 1 : 0;
}
