// SPDX-License-Identifier: MIT
// The tasks of a project, shown by a series of the program's own kind.
#include "TaskSeries.h"

#include <ZembraGraphicsView.h>
#include <zembra/zembra.h>

#include <QApplication>

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    // 2024-01-08 00:00 UTC.
    constexpr double start = 1704672000.0;
    constexpr double day = 86400.0;
    auto plot = std::make_shared<zembra::Plot>();
    plot->setTitle("Plan");
    plot->axis(2).setScale(zembra::Scale::time());
    plot->axis(0).setScale(zembra::Scale::categorical({"Design", "Build", "Test", "Document"}));
    plot->axis(0).setInverted(true);
    plot->add<TaskSeries>(std::vector<Task>{{0, start, start + 9 * day},
                                            {1, start + 7 * day, start + 26 * day},
                                            {2, start + 14 * day, start + 33 * day},
                                            {3, start + 21 * day, start + 37 * day}},
                          "Planned");
    plot->add<TaskSeries>(
        std::vector<Task>{{0, start, start + 11 * day}, {1, start + 10 * day, start + 24 * day}},
        "Done");
    plot->legend().setPosition(zembra::LegendPosition::BottomLeft);

    zembra::ZembraGraphicsView view;
    view.setPlot(plot);
    view.setWindowTitle(QStringLiteral("A series of one's own"));
    view.resize(800, 400);
    view.show();
    return QApplication::exec();
}
