// SPDX-License-Identifier: MIT
#include "window/MainWindow.h"

#include "window/ChartPage.h"
#include "window/LoadingPage.h"
#include "window/Openable.h"
#include "window/PasteAction.h"
#include "window/RecentFiles.h"

#include <ZembraGraphicsView.h>
#include <ZembraNavigationWidget.h>

#include <QAction>
#include <QClipboard>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QEvent>
#include <QFileDialog>
#include <QGuiApplication>
#include <QKeySequence>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QSettings>
#include <QTabWidget>

#include <filesystem>
#include <utility>

namespace viewer {

namespace {

QString hintKey() {
    return QStringLiteral("navigation/hideHint");
}

QString tabName(const QString& path) {
    return path == QStringLiteral("-")
               ? MainWindow::tr("Standard input")
               : QString::fromStdString(std::filesystem::path(path.toStdString()).stem().string());
}

} // namespace

MainWindow::MainWindow(QWidget* parent)
    : QMainWindow(parent), tabs(new QTabWidget(this)), pasteAction(new PasteAction(this)) {
    tabs->setDocumentMode(true);
    tabs->setTabBarAutoHide(true);
    tabs->setTabsClosable(true);
    tabs->setMovable(true);
    setCentralWidget(tabs);
    setAcceptDrops(true);
    connect(tabs, &QTabWidget::tabCloseRequested, this, &MainWindow::closeTab);
    connect(tabs, &QTabWidget::currentChanged, this, &MainWindow::updateTitle);
    connect(pasteAction, &QAction::triggered, this, &MainWindow::paste);
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
    edit->addSeparator();
    pasteAction->setText(tr("&Paste"));
    edit->addAction(pasteAction);

    // The chart in front brings its own actions.
    QMenu* const view = menuBar()->addMenu(tr("&View"));
    connect(view, &QMenu::aboutToShow, this, [this, view] {
        view->clear();
        if (const ChartPage* const page = currentPage()) {
            view->addActions(page->view()->navigationActions());
            view->addSeparator();
            view->addAction(page->columnsAction());
        }
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

LoadingPage* MainWindow::newTab(const Source& source, const Options& options, const QString& name) {
    auto* const page = new LoadingPage(source, options);
    tabs->setCurrentIndex(tabs->addTab(page, name));
    connect(page->job(), &LoadJob::cancelled, this,
            [this, page] { closeTab(tabs->indexOf(page)); });
    return page;
}

void MainWindow::openFile(const QString& path, const Options& options) {
    LoadingPage* const page = newTab({path.toStdString()}, options, tabName(path));
    connect(page->job(), &LoadJob::loaded, this, [this, page, path] {
        showLoaded(page);
        if (path != QStringLiteral("-"))
            rememberFile(path);
        Q_EMIT fileOpened(path);
    });
    connect(page->job(), &LoadJob::failed, this, [this, page](const QString& message) {
        closeTab(tabs->indexOf(page));
        // Without another chart the window may be about to go.
        if (tabs->count() > 0)
            showFailure(tr("Open"), message);
        Q_EMIT openFailed(message);
    });
    page->job()->start();
}

void MainWindow::openText(const QString& text) {
    const QString name = tr("Clipboard");
    Options options;
    options.title = name.toStdString();
    const Source source{"clipboard", std::make_shared<const std::string>(text.toStdString())};
    LoadingPage* const page = newTab(source, options, name);
    connect(page->job(), &LoadJob::loaded, this, [this, page] { showLoaded(page); });
    connect(page->job(), &LoadJob::failed, this, [this, page](const QString& message) {
        closeTab(tabs->indexOf(page));
        showFailure(tr("Open"), message);
    });
    page->job()->start();
}

// The tab keeps its name. What it showed is the caller's from then on.
void MainWindow::replaceTab(QWidget* old, QWidget* page) {
    const int index = tabs->indexOf(old);
    const bool wasCurrent = tabs->currentIndex() == index;
    tabs->insertTab(index, page, tabs->tabText(index));
    if (wasCurrent)
        tabs->setCurrentIndex(index);
    tabs->removeTab(tabs->indexOf(old));
    if (wasCurrent)
        page->setFocus();
    updateTitle();
}

void MainWindow::showLoaded(LoadingPage* loading) {
    Chart chart = loading->job()->takeChart();
    const Source source = loading->job()->source();
    ChartPage* const page = newPage(chart.plot);
    page->setFileName(tabs->tabText(tabs->indexOf(loading)));
    // What came through standard input does not come again.
    if (source.name != "-")
        page->setChoice(std::move(chart.choice));
    connect(page, &ChartPage::redrawWanted, this,
            [this, page, source](const Options& options) { redraw(page, source, options); });
    replaceTab(loading, page);
    // A signal of its own job has led here.
    loading->deleteLater();
    if (hintWaits)
        offerHint();
    for (const std::string& note : chart.notes)
        Q_EMIT noted(QString::fromStdString(note));
}

// The old page waits, hidden, in the one that takes its place: it goes with it, or comes back where
// there is no other chart.
void MainWindow::redraw(ChartPage* page, const Source& source, const Options& options) {
    auto* const loading = new LoadingPage(source, options);
    replaceTab(page, loading);
    page->setParent(loading);
    const auto comeBack = [this, page, loading] {
        replaceTab(loading, page);
        loading->deleteLater();
    };
    connect(loading->job(), &LoadJob::loaded, this, [this, loading] { showLoaded(loading); });
    connect(loading->job(), &LoadJob::cancelled, this, comeBack);
    connect(loading->job(), &LoadJob::failed, this, [this, comeBack](const QString& message) {
        comeBack();
        showFailure(tr("Choose Columns"), message);
    });
    loading->job()->start();
}

void MainWindow::openLive(const QString& path, const Options& options) {
    auto* const source = new LiveSource(path.toStdString(), options, this);
    connect(source, &LiveSource::started, this, [this, source] { showLive(source); });
    connect(source, &LiveSource::failed, this, [this, source](const QString& message) {
        source->deleteLater();
        if (tabs->count() > 0)
            showFailure(tr("Open"), message);
        Q_EMIT openFailed(message);
    });
    source->start();
}

void MainWindow::showLive(LiveSource* source) {
    const QString path = QString::fromStdString(source->path());
    const bool isStream = path == QStringLiteral("-");
    ChartPage* const page = newPage(source->table().plot());
    const QString name = tabName(path);
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

void MainWindow::showFailure(const QString& title, const QString& message) {
    auto* const box = new QMessageBox(QMessageBox::Warning, title, message, QMessageBox::Ok, this);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->open();
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

void MainWindow::paste() {
    open(Openable(QGuiApplication::clipboard()->mimeData()));
}

void MainWindow::open(const Openable& openable) {
    for (const QString& file : openable.files)
        openFile(file);
    if (!openable.text.isEmpty())
        openText(openable.text);
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
    if (!Openable(event->mimeData()).isEmpty())
        event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent* event) {
    const Openable dropped(event->mimeData());
    if (dropped.isEmpty())
        return;
    event->acceptProposedAction();
    open(dropped);
}

void MainWindow::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        createMenus();
}

} // namespace viewer
