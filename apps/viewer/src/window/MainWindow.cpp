// SPDX-License-Identifier: MIT
#include "window/MainWindow.h"

#include "window/ChartPage.h"
#include "window/LoadingPage.h"
#include "window/RecentFiles.h"

#include <ZembraGraphicsView.h>
#include <ZembraNavigationWidget.h>

#include <QAction>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QKeySequence>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QSettings>
#include <QTabWidget>
#include <QUrl>

#include <utility>

namespace viewer {

namespace {

QString hintKey() {
    return QStringLiteral("navigation/hideHint");
}

QList<QString> localFiles(const QMimeData& data) {
    QList<QString> files;
    for (const QUrl& url : data.urls()) {
        if (url.isLocalFile())
            files.append(url.toLocalFile());
    }
    return files;
}

} // namespace

MainWindow::MainWindow(QWidget* parent) : QMainWindow(parent), tabs(new QTabWidget(this)) {
    tabs->setDocumentMode(true);
    tabs->setTabBarAutoHide(true);
    tabs->setTabsClosable(true);
    tabs->setMovable(true);
    setCentralWidget(tabs);
    setAcceptDrops(true);
    connect(tabs, &QTabWidget::tabCloseRequested, this, &MainWindow::closeTab);
    connect(tabs, &QTabWidget::currentChanged, this, &MainWindow::updateTitle);
    createMenus();
    updateTitle();
}

void MainWindow::createMenus() {
    menuBar()->clear();
    createFileMenu();
    const auto onPage = [this](auto function) {
        return [this, function] {
            if (ChartPage* const page = currentPage())
                function(*page);
        };
    };
    QMenu* const edit = menuBar()->addMenu(tr("&Edit"));
    QAction* const copy = edit->addAction(tr("&Copy Picture"), this,
                                          onPage([](ChartPage& page) { page.copyPicture(); }));
    copy->setShortcut(QKeySequence::Copy);
    edit->addAction(tr("Copy Picture &As…"), this,
                    onPage([](ChartPage& page) { page.copyPictureAs(); }));

    // The chart in front brings its own actions.
    QMenu* const view = menuBar()->addMenu(tr("&View"));
    connect(view, &QMenu::aboutToShow, this, [this, view] {
        view->clear();
        if (const ChartPage* const page = currentPage())
            view->addActions(page->view()->navigationActions());
    });

    QMenu* const help = menuBar()->addMenu(tr("&Help"));
    help->addAction(tr("Show &Hint"), this,
                    onPage([](ChartPage& page) { page.strip()->showCoachMark(); }));
}

void MainWindow::createFileMenu() {
    QMenu* const file = menuBar()->addMenu(tr("&File"));
    file->addAction(tr("&Open…"), this, &MainWindow::openByDialog)->setShortcut(QKeySequence::Open);
    QMenu* const recent = file->addMenu(tr("Open &Recent"));
    connect(recent, &QMenu::aboutToShow, this, [this, recent] { fillRecentMenu(recent); });
    file->addAction(tr("&Close"), this, [this] { closeTab(tabs->currentIndex()); })
        ->setShortcut(QKeySequence::Close);
    file->addSeparator();
    file->addAction(tr("&Save Picture As…"), this,
                    [this] {
                        if (ChartPage* const page = currentPage())
                            page->savePicture();
                    })
        ->setShortcut(QKeySequence::Save);
    file->addAction(tr("&Print…"), this,
                    [this] {
                        if (ChartPage* const page = currentPage())
                            page->print();
                    })
        ->setShortcut(QKeySequence::Print);
    file->addSeparator();
    file->addAction(tr("&Quit"), this, &QWidget::close)->setShortcut(QKeySequence::Quit);
}

void MainWindow::fillRecentMenu(QMenu* menu) {
    menu->clear();
    for (const QString& path : recentFiles())
        menu->addAction(path, this, [this, path] { openFile(path); });
    if (menu->isEmpty())
        menu->addAction(tr("No files yet"))->setEnabled(false);
    else
        menu->addSeparator();
    menu->addAction(tr("&Forget All"), this, &forgetFiles)->setEnabled(!recentFiles().isEmpty());
}

ChartPage* MainWindow::newPage(std::shared_ptr<zembra::Plot> plot) {
    auto* const page = new ChartPage(std::move(plot));
    connect(page->strip(), &zembra::ZembraNavigationWidget::coachDismissed, this,
            &MainWindow::rememberHint);
    return page;
}

void MainWindow::addChart(const QString& name, std::shared_ptr<zembra::Plot> plot) {
    ChartPage* const page = newPage(std::move(plot));
    page->setFileName(name);
    tabs->addTab(page, name);
    if (tabs->count() == 1)
        page->setFocus();
    updateTitle();
}

void MainWindow::openFile(const QString& path, const Options& options) {
    auto* const page = new LoadingPage({path.toStdString()}, options);
    tabs->setCurrentIndex(tabs->addTab(page, QFileInfo(path).completeBaseName()));
    LoadJob* const job = page->job();
    connect(job, &LoadJob::loaded, this, [this, page] { showLoaded(page); });
    connect(job, &LoadJob::cancelled, this, [this, page] { closeTab(tabs->indexOf(page)); });
    connect(job, &LoadJob::failed, this, [this, page](const QString& message) {
        closeTab(tabs->indexOf(page));
        tellFailure(message);
    });
    job->start();
}

void MainWindow::showLoaded(LoadingPage* page) {
    const Chart chart = page->job()->takeChart();
    const QString path = QString::fromStdString(page->job()->source().name);
    replaceTab(page, newPage(chart.plot), QString::fromStdString(chart.name));
    if (path != QStringLiteral("-"))
        rememberFile(path);
    for (const std::string& note : chart.notes)
        Q_EMIT noted(QString::fromStdString(note));
    Q_EMIT fileOpened(path);
}

void MainWindow::replaceTab(QWidget* old, ChartPage* page, const QString& name) {
    const int index = tabs->indexOf(old);
    const bool wasCurrent = tabs->currentIndex() == index;
    page->setFileName(name);
    tabs->insertTab(index, page, name);
    if (wasCurrent)
        tabs->setCurrentIndex(index);
    tabs->removeTab(tabs->indexOf(old));
    // A signal of its own job may have led here.
    old->deleteLater();
    if (wasCurrent)
        page->setFocus();
    updateTitle();
    if (hintWaits)
        offerHint();
}

void MainWindow::openLive(const QString& path, const Options& options) {
    auto* const source = new LiveSource(path.toStdString(), options, this);
    connect(source, &LiveSource::started, this, [this, source] { showLive(source); });
    connect(source, &LiveSource::failed, this, [this, source](const QString& message) {
        source->deleteLater();
        tellFailure(message);
    });
    source->start();
}

void MainWindow::showLive(LiveSource* source) {
    const QString path = QString::fromStdString(source->path());
    const bool isStream = path == QStringLiteral("-");
    ChartPage* const page = newPage(source->table().plot());
    const QString name = isStream ? tr("Standard input") : QFileInfo(path).completeBaseName();
    page->setFileName(name);
    // Reading ends with the page.
    source->setParent(page);
    connect(source, &LiveSource::grown, page, [page] { page->view()->replot(); });
    tabs->setCurrentIndex(tabs->addTab(page, name));
    page->setFocus();
    if (!isStream)
        rememberFile(path);
    for (const std::string& note : source->table().notes())
        Q_EMIT noted(QString::fromStdString(note));
    if (hintWaits)
        offerHint();
    Q_EMIT fileOpened(path);
}

void MainWindow::openByDialog() {
    const QStringList paths = QFileDialog::getOpenFileNames(
        this, tr("Open"), QString(),
        tr("Tables and grids (*.csv *.tsv *.txt *.dat *.json);;All files (*)"));
    for (const QString& path : paths)
        openFile(path);
}

void MainWindow::closeTab(int index) {
    QWidget* const page = tabs->widget(index);
    if (!page)
        return;
    tabs->removeTab(index);
    page->deleteLater();
    updateTitle();
}

void MainWindow::tellFailure(const QString& message) {
    if (tabs->count() > 0) {
        auto* const box =
            new QMessageBox(QMessageBox::Warning, tr("Open"), message, QMessageBox::Ok, this);
        box->setAttribute(Qt::WA_DeleteOnClose);
        box->open();
    }
    Q_EMIT openFailed(message);
}

void MainWindow::offerHint() {
    const ChartPage* const page = currentPage();
    hintWaits = !page;
    if (page && !QSettings().value(hintKey(), false).toBool())
        page->strip()->showCoachMark();
}

ChartPage* MainWindow::currentPage() const {
    return qobject_cast<ChartPage*>(tabs->currentWidget());
}

void MainWindow::updateTitle() {
    const QString program = QStringLiteral("zembra-view");
    const QString name = tabs->tabText(tabs->currentIndex());
    setWindowTitle(name.isEmpty() ? program : name + QStringLiteral(" – ") + program);
}

void MainWindow::rememberHint(bool dontShowAgain) {
    QSettings().setValue(hintKey(), dontShowAgain);
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
    if (!localFiles(*event->mimeData()).isEmpty())
        event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent* event) {
    const QList<QString> files = localFiles(*event->mimeData());
    if (files.isEmpty())
        return;
    event->acceptProposedAction();
    for (const QString& file : files)
        openFile(file);
}

void MainWindow::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        createMenus();
}

} // namespace viewer
