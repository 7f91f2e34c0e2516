// SPDX-License-Identifier: MIT
#include "ChartWindow.h"

#include <ZembraGraphicsView.h>
#include <ZembraNavigationWidget.h>
#include <zembra/zembra.h>

#include <QMenu>
#include <QMenuBar>
#include <QSettings>
#include <QVBoxLayout>

#include <cmath>
#include <vector>

namespace coachmark {

namespace {

std::shared_ptr<zembra::Plot> dampedWave() {
    std::vector<double> x;
    std::vector<double> y;
    for (int i = 0; i <= 1000; ++i) {
        x.push_back(i * 0.02);
        y.push_back(std::exp(-0.15 * x.back()) * std::cos(2.5 * x.back()));
    }
    auto plot = std::make_shared<zembra::Plot>();
    plot->setTitle("Damped wave");
    plot->add<zembra::LineSeries>(std::move(x), std::move(y));
    return plot;
}

} // namespace

ChartWindow::ChartWindow(QSettings& settings, QWidget* parent) : QMainWindow(parent) {
    setWindowTitle(QStringLiteral("Coach mark"));
    resize(800, 500);
    auto* content = new QWidget;
    auto* layout = new QVBoxLayout(content);
    auto* strip = new zembra::ZembraNavigationWidget;
    auto* view = new zembra::ZembraGraphicsView(content);
    layout->addWidget(strip);
    layout->addWidget(view, 1);
    setCentralWidget(content);
    view->setPlot(dampedWave());
    strip->setGraphicsView(view);

    // The strip only shows the hint; whether it is due, and what the user answered, is kept here.
    const QString hideHint = QStringLiteral("hideChartHint");
    connect(
        strip, &zembra::ZembraNavigationWidget::coachDismissed, this,
        [&settings, hideHint](bool dontShowAgain) { settings.setValue(hideHint, dontShowAgain); });
    QMenu* help = menuBar()->addMenu(QStringLiteral("&Help"));
    help->addAction(QStringLiteral("Explain the &Chart Controls"), strip,
                    &zembra::ZembraNavigationWidget::showCoachMark);

    // The strip is not visible yet, so the hint waits until it is.
    if (!settings.value(hideHint, false).toBool())
        strip->showCoachMark();
}

} // namespace coachmark
