// SPDX-License-Identifier: MIT
#include "MainWindow.h"

#include <zembra/series/LineSeries.h>

#include <QAction>
#include <QLocale>
#include <QMenuBar>
#include <QStatusBar>
#include <QToolBar>

#include <cmath>

using zembra::InteractionMode;
using zembra::ZembraGraphicsView;

namespace {

std::shared_ptr<zembra::Plot> decayingOscillation() {
    auto plot = std::make_shared<zembra::Plot>();
    std::vector<double> time;
    std::vector<double> deflection;
    for (int i = 0; i <= 2000; ++i) {
        time.push_back(i / 200.0);
        deflection.push_back(std::exp(-0.3 * time.back()) * std::cos(8.0 * time.back()));
    }
    plot->setTitle("Decaying oscillation");
    plot->axis(2).setTitle("Time (s)");
    plot->axis(0).setTitle("Deflection (mm)");
    plot->add<zembra::LineSeries>(time, deflection);
    return plot;
}

} // namespace

MainWindow::MainWindow(QWidget* parent)
    : QMainWindow(parent),
      chart(new ZembraGraphicsView(this)),
      mode(new QLabel(this)),
      ranges(new QLabel(this)) {
    setWindowTitle(tr("Chart in a main window"));
    chart->setPlot(decayingOscillation());
    setCentralWidget(chart);

    // The view's own actions: wherever one is triggered, all places follow.
    QMenu* menu = menuBar()->addMenu(tr("&Chart"));
    menu->addActions(chart->navigationActions());
    QToolBar* toolBar = addToolBar(tr("Chart"));
    toolBar->addActions(chart->navigationActions());
    // A right click opens them, too.
    chart->setContextMenuPolicy(Qt::ActionsContextMenu);

    statusBar()->addWidget(mode);
    statusBar()->addPermanentWidget(ranges);
    connect(chart, &ZembraGraphicsView::interactionModeChanged, this, &MainWindow::showMode);
    connect(chart, &ZembraGraphicsView::navigationAxisRangeApplied, this, &MainWindow::showRanges);
    connect(chart, &ZembraGraphicsView::viewResetToDataApplied, this, &MainWindow::showRanges);
    showMode(chart->interactionMode());
    showRanges();
}

void MainWindow::showMode(InteractionMode current) {
    mode->setText(current == InteractionMode::BoxZoom ? tr("Drag a box to zoom into it")
                                                      : tr("Drag to pan"));
}

void MainWindow::showRanges() {
    const zembra::ScaleMap x = chart->plot()->scaleMap(2);
    const zembra::ScaleMap y = chart->plot()->scaleMap(0);
    const QLocale locale;
    ranges->setText(tr("Time %1 to %2, deflection %3 to %4")
                        .arg(locale.toString(x.s1(), 'f', 3), locale.toString(x.s2(), 'f', 3),
                             locale.toString(y.s1(), 'f', 3), locale.toString(y.s2(), 'f', 3)));
}
