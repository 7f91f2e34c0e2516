// SPDX-License-Identifier: MIT
//
// A process that ends with its first frame: a bare window with the argument "bare", else one with a
// chart. `measure-startup` compares the two.
#include "Stage.h"

#include <ZembraGraphicsView.h>

#include <QtCore/QTimer>
#include <QtWidgets/QApplication>

#include <cstring>

namespace {

class Bare : public QWidget {
protected:
    void paintEvent(QPaintEvent*) override { QTimer::singleShot(0, qApp, &QApplication::quit); }
};

class Chart : public zembra::ZembraGraphicsView {
protected:
    void paintEvent(QPaintEvent* event) override {
        ZembraGraphicsView::paintEvent(event);
        QTimer::singleShot(0, qApp, &QApplication::quit);
    }
};

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    if (argc > 1 && std::strcmp(argv[1], "bare") == 0) {
        Bare window;
        window.resize(640, 480);
        window.show();
        return QApplication::exec();
    }
    const auto plot = std::make_shared<zembra::Plot>();
    plot->setTitle("First frame");
    plot->add<zembra::LineSeries>(zembra::benchmarks::rising(1000), zembra::benchmarks::wave(1000),
                                  "wave");
    Chart window;
    window.setPlot(plot);
    window.resize(640, 480);
    window.show();
    return QApplication::exec();
}
