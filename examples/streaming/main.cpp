// SPDX-License-Identifier: MIT
// A sensor that delivers ten thousand samples a second. The chart shows the last ten seconds; a
// pause holds it still, to be zoomed and panned, while the sensor goes on.
#include <ZembraGraphicsView.h>
#include <zembra/zembra.h>

#include <QAction>
#include <QApplication>
#include <QElapsedTimer>
#include <QMainWindow>
#include <QTimer>
#include <QToolBar>

#include <cmath>
#include <random>

namespace {

constexpr double samplesPerSecond = 10'000.0;
constexpr std::size_t shownSamples = 100'000;

/// Stands for a driver that is asked from time to time for what has come in.
class Sensor {
public:
    Sensor() { clock.start(); }

    /// Hands all samples since the last call to `take(time, value)`. Units: seconds, volts.
    template <class Take>
    void read(Take take) {
        const auto due = static_cast<long long>(static_cast<double>(clock.nsecsElapsed()) * 1e-9 *
                                                samplesPerSecond);
        for (; delivered < due; ++delivered) {
            const double t = static_cast<double>(delivered) / samplesPerSecond;
            const double wave = std::sin(8.0 * t) * std::sin(0.7 * t);
            take(t, 2.0 * wave + noise(random));
        }
    }

private:
    QElapsedTimer clock;
    long long delivered = 0;
    std::mt19937 random;
    std::normal_distribution<double> noise = std::normal_distribution(0.0, 0.1);
};

} // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);

    // A ring takes its memory once; its oldest samples make room for new ones.
    zembra::Samples shown = zembra::Samples::streamed(shownSamples);
    zembra::Samples heldBack = zembra::Samples::streamed(shownSamples);
    auto plot = std::make_shared<zembra::Plot>();
    plot->setTitle("Sensor at 10 kHz");
    plot->axis(2).setTitle("Time (s)");
    plot->axis(0).setTitle("Voltage (V)");
    plot->setAxisScale(0, -3.0, 3.0);
    plot->add<zembra::LineSeries>(shown);

    QMainWindow window;
    auto* view = new zembra::ZembraGraphicsView;
    view->setPlot(plot);
    window.setCentralWidget(view);
    window.setWindowTitle(QStringLiteral("Streaming"));
    window.resize(900, 500);
    QToolBar* toolBar = window.addToolBar(QStringLiteral("Sensor"));
    QAction* pause = toolBar->addAction(QStringLiteral("&Pause"));
    pause->setCheckable(true);
    pause->setShortcut(Qt::CTRL | Qt::Key_P);

    Sensor sensor;
    QTimer frame;
    QObject::connect(&frame, &QTimer::timeout, view, [&] {
        if (pause->isChecked()) {
            sensor.read([&](double t, double volts) { heldBack.append(t, volts); });
            return;
        }
        for (std::size_t i = 0; i < heldBack.size(); ++i)
            shown.append(heldBack.x(i), heldBack.y(i));
        heldBack.clear();
        sensor.read([&](double t, double volts) { shown.append(t, volts); });
        view->replot();
    });
    // Sixty pictures a second; how many samples come between two of them does not matter.
    frame.start(1000 / 60);

    window.show();
    return QApplication::exec();
}
