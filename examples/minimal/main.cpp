// SPDX-License-Identifier: MIT
#include <QApplication>
#include <ZembraGraphicsView.h>
#include <zembra/series/LineSeries.h>

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    auto plot = std::make_shared<zembra::Plot>();
    plot->add<zembra::LineSeries>(std::vector{0.0, 1.0, 2.0, 3.0}, std::vector{0.0, 1.0, 4.0, 9.0});
    zembra::ZembraGraphicsView view;
    view.setPlot(plot);
    view.resize(800, 600);
    view.show();
    return application.exec();
}
