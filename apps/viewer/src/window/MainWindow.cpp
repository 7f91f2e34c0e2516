// SPDX-License-Identifier: MIT
#include "window/MainWindow.h"

#include "window/ChartPage.h"

#include <ZembraGraphicsView.h>
#include <ZembraNavigationWidget.h>

#include <QAction>
#include <QCoreApplication>
#include <QKeySequence>
#include <QMenu>
#include <QMenuBar>
#include <QSettings>
#include <QTabWidget>

namespace viewer {

namespace {

QString hintKey() {
    return QStringLiteral("navigation/hideHint");
}

} // namespace

MainWindow::MainWindow(QWidget* parent) : QMainWindow(parent), tabs(new QTabWidget(this)) {
    tabs->setDocumentMode(true);
    tabs->setTabBarAutoHide(true);
    setCentralWidget(tabs);

    QMenu* const file = menuBar()->addMenu(tr("&File"));
    QAction* const save = file->addAction(tr("&Save Picture As…"), this, [this] {
        if (ChartPage* const page = currentPage())
            page->savePicture();
    });
    save->setShortcut(QKeySequence::Save);
    file->addSeparator();
    QAction* const quit = file->addAction(tr("&Quit"), this, &QWidget::close);
    quit->setShortcut(QKeySequence::Quit);

    QMenu* const edit = menuBar()->addMenu(tr("&Edit"));
    QAction* const copy = edit->addAction(tr("&Copy Picture"), this, [this] {
        if (ChartPage* const page = currentPage())
            page->copyPicture();
    });
    copy->setShortcut(QKeySequence::Copy);

    // The chart in front brings its own actions.
    QMenu* const view = menuBar()->addMenu(tr("&View"));
    connect(view, &QMenu::aboutToShow, this, [this, view] {
        view->clear();
        if (const ChartPage* const page = currentPage())
            view->addActions(page->view()->navigationActions());
    });

    QMenu* const help = menuBar()->addMenu(tr("&Help"));
    help->addAction(tr("Show &Hint"), this, [this] {
        if (const ChartPage* const page = currentPage())
            page->strip()->showCoachMark();
    });
}

void MainWindow::addChart(const QString& name, std::shared_ptr<zembra::Plot> plot) {
    auto* const page = new ChartPage(std::move(plot));
    connect(page->strip(), &zembra::ZembraNavigationWidget::coachDismissed, this,
            &MainWindow::rememberHint);
    tabs->addTab(page, name);
    if (tabs->count() == 1)
        page->setFocus();
}

void MainWindow::offerHint() {
    const ChartPage* const page = currentPage();
    if (page && !QSettings().value(hintKey(), false).toBool())
        page->strip()->showCoachMark();
}

ChartPage* MainWindow::currentPage() const {
    return qobject_cast<ChartPage*>(tabs->currentWidget());
}

void MainWindow::rememberHint(bool dontShowAgain) {
    QSettings().setValue(hintKey(), dontShowAgain);
}

} // namespace viewer
