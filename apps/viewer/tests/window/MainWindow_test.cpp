// SPDX-License-Identifier: MIT
#include "window/MainWindow.h"

#include "Samples.h"
#include "window/ChartPage.h"
#include "window/ColumnDialog.h"
#include "window/LoadingPage.h"
#include "window/RecentFiles.h"
#include "window/Translations.h"

#include <ZembraGraphicsView.h>
#include <ZembraNavigationWidget.h>

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFile>
#include <QLocale>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QProgressBar>
#include <QPushButton>
#include <QRegularExpression>
#include <QSettings>
#include <QSignalSpy>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QTranslator>
#include <QTreeWidget>
#include <QUrl>

#include <array>

namespace {

using viewer::ChartPage;
using viewer::LoadingPage;
using viewer::MainWindow;

std::shared_ptr<zembra::Plot> somePlot() {
    return viewer::sampleCharts().front().plot;
}

} // namespace

class MainWindowTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        // Any warning but what the offscreen platform says of itself.
        QTest::failOnWarning(
            QRegularExpression(QStringLiteral("^(?!This plugin does not support)")));
        QCoreApplication::setOrganizationName(QStringLiteral("zembra-test"));
        QCoreApplication::setApplicationName(QStringLiteral("zembra-view-test"));
        QSettings::setDefaultFormat(QSettings::IniFormat);
        QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, settings.path());
        QSettings().clear();
    }

    void TheChartFillsThePageBelowTheStrip() {
        MainWindow window;
        window.addChart(QStringLiteral("one"), somePlot());
        window.resize(700, 500);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        const ChartPage* const page = window.currentPage();
        QVERIFY(page);
        QCOMPARE(page->strip()->graphicsView(), page->view());
        QCOMPARE(page->strip()->geometry().bottom() + 1, page->view()->geometry().top());
        QCOMPARE(page->view()->geometry().bottom() + 1, page->height());
        QTRY_VERIFY(page->view()->hasFocus());
    }

    void EveryChartHasAPage() {
        MainWindow window;
        for (const viewer::Sample& sample : viewer::sampleCharts())
            window.addChart(QString::fromStdString(sample.name), sample.plot);
        QCOMPARE(window.findChildren<ChartPage*>().size(), qsizetype(4));
        QCOMPARE(window.currentPage()->view()->plot()->title(), somePlot()->title());
    }

    void ARightClickOpensTheContextMenu() {
        ChartPage page(somePlot());
        page.resize(400, 300);
        page.show();
        QVERIFY(QTest::qWaitForWindowExposed(&page));
        QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(50, 50),
                                page.view()->viewport()->mapToGlobal(QPoint(50, 50)));
        bool opened = false;
        // The menu runs an event loop of its own until it is closed.
        QTimer timer;
        connect(&timer, &QTimer::timeout, this, [&opened] {
            if (QWidget* const popup = QApplication::activePopupWidget()) {
                opened = qobject_cast<QMenu*>(popup) != nullptr;
                popup->close();
            }
        });
        timer.start(0);
        QApplication::sendEvent(page.view()->viewport(), &event);
        QVERIFY(opened);
    }

    void TheChartCanBeCopied() {
        ChartPage page(somePlot());
        page.resize(400, 300);
        page.show();
        QVERIFY(QTest::qWaitForWindowExposed(&page));
        page.copyPicture();
        QCOMPARE(QApplication::clipboard()->image().size(), page.view()->viewport()->size());
    }

    void AFileIsReadInATabOfItsOwn() {
        MainWindow window;
        const QSignalSpy opened(&window, &MainWindow::fileOpened);
        window.openFile(write("one.csv", "t,a\n1,2\n2,3\n"));
        window.openFile(write("two.csv", "t,a\n1,2\n2,3\n"));
        QCOMPARE(window.tabWidget()->count(), 2);
        QTRY_COMPARE(opened.size(), 2);
        QCOMPARE(window.tabWidget()->count(), 2);
        QCOMPARE(window.tabWidget()->tabText(0), QStringLiteral("one"));
        QCOMPARE(window.tabWidget()->tabText(1), QStringLiteral("two"));
        QCOMPARE(window.windowTitle(), QStringLiteral("two – zembra-view"));
        QCOMPARE(window.currentPage()->view()->plot()->title(), "two");
        QCOMPARE(viewer::recentFiles().size(), 2);
        window.closeTab(1);
        QCOMPARE(window.windowTitle(), QStringLiteral("one – zembra-view"));
    }

    void AFileThatCannotBeDrawnLeavesNoTab() {
        MainWindow window;
        const QSignalSpy failed(&window, &MainWindow::openFailed);
        window.openFile(write("bad.csv", "a,b\nx,y\n"));
        window.openFile(folder.filePath(QStringLiteral("none.csv")));
        QTRY_COMPARE(failed.size(), 2);
        QCOMPARE(window.tabWidget()->count(), 0);
        QVERIFY(viewer::recentFiles().isEmpty());
    }

    void ReadingABigFileCanBeCancelled() {
        QByteArray text = "t,a\n";
        for (int i = 0; i < 1000000; ++i)
            text += "1234567.125,7654321.5\n";
        MainWindow window;
        window.openFile(write("big.csv", text));
        const auto* const page = window.findChild<LoadingPage*>();
        QVERIFY(page);
        QVERIFY(!window.currentPage());
        page->cancelButton()->click();
        QTRY_COMPARE(window.tabWidget()->count(), 0);
    }

    void AWindowMayGoWhileItReads() {
        QByteArray text = "t,a\n";
        for (int i = 0; i < 300000; ++i)
            text += "1234567.125,7654321.5\n";
        const QString path = write("big.csv", text);
        auto window = std::make_unique<MainWindow>();
        window->openFile(path);
        window.reset();
        QCoreApplication::processEvents();
    }

    void ProgressIsTold() {
        QByteArray text = "t,a\n";
        for (int i = 0; i < 1000000; ++i)
            text += "1234567.125,7654321.5\n";
        LoadingPage page({write("big.csv", text).toStdString()}, {});
        const QSignalSpy progressed(page.job(), &viewer::LoadJob::progressed);
        const QSignalSpy loaded(page.job(), &viewer::LoadJob::loaded);
        page.job()->start();
        QTRY_VERIFY_WITH_TIMEOUT(loaded.size() == 1, 30000);
        QVERIFY(progressed.size() >= 1);
        QVERIFY(page.progressBar()->maximum() > 0);
        QVERIFY(page.progressBar()->value() > 0);
        QCOMPARE(page.job()->takeChart().plot->series().size(), std::size_t{1});
    }

    void DroppedFilesAreOpened() {
        MainWindow window;
        window.show();
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(write("one.csv", "t,a\n1,2\n2,3\n")),
                      QUrl(QStringLiteral("https://example.org/two.csv"))});
        QDragEnterEvent enter(QPoint(9, 9), Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(&window, &enter);
        QVERIFY(enter.isAccepted());
        QDropEvent drop(QPointF(9, 9), Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(&window, &drop);
        QTRY_VERIFY(window.currentPage());
        QCOMPARE(window.tabWidget()->count(), 1);

        QMimeData text;
        text.setText(QStringLiteral("1,2"));
        QDragEnterEvent other(QPoint(9, 9), Qt::CopyAction, &text, Qt::LeftButton, {});
        other.ignore();
        QApplication::sendEvent(&window, &other);
        QVERIFY(!other.isAccepted());
    }

    void ADroppedTableIsDrawn() {
        MainWindow window;
        window.show();
        QMimeData data;
        data.setText(QStringLiteral("t\ta\n1\t2\n2\t3\n"));
        QDragEnterEvent enter(QPoint(9, 9), Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(&window, &enter);
        QVERIFY(enter.isAccepted());
        QDropEvent drop(QPointF(9, 9), Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(&window, &drop);
        QTRY_VERIFY(window.currentPage());
        QCOMPARE(window.tabWidget()->tabText(0), QStringLiteral("Clipboard"));
    }

    void ACopiedTableIsPastedIntoATabOfItsOwn() {
        MainWindow window;
        const QSignalSpy opened(&window, &MainWindow::fileOpened);
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        QApplication::clipboard()->setText(QStringLiteral("t\tgröße\n1\t2,5\n2\t3,5\n"));
        QTRY_VERIFY(pasteOf(window)->isEnabled());
        QTest::keySequence(&window, QKeySequence::Paste);
        QTRY_VERIFY(window.currentPage());
        QCOMPARE(window.tabWidget()->tabText(0), QStringLiteral("Clipboard"));
        const auto plot = window.currentPage()->view()->plot();
        QCOMPARE(plot->title(), "Clipboard");
        QCOMPARE(plot->axis(0).title(), "größe");
        QCOMPARE(plot->series().size(), std::size_t{1});
        // It is no file.
        QVERIFY(viewer::recentFiles().isEmpty());
        QCOMPARE(opened.size(), 0);
    }

    void CopiedFilesArePasted() {
        MainWindow window;
        auto* const data = new QMimeData;
        data->setUrls({QUrl::fromLocalFile(write("one.csv", "t,a\n1,2\n2,3\n")),
                       QUrl::fromLocalFile(write("two.csv", "t,a\n1,2\n2,3\n"))});
        // A file manager brings the names along as text.
        data->setText(QStringLiteral("1\n2\n"));
        QApplication::clipboard()->setMimeData(data);
        window.paste();
        QTRY_VERIFY(window.currentPage());
        QCOMPARE(window.tabWidget()->count(), 2);
        QCOMPARE(window.tabWidget()->tabText(1), QStringLiteral("two"));
        QTRY_COMPARE(viewer::recentFiles().size(), 2);
    }

    void OnlyWhatCanBeOpenedCanBePasted() {
        MainWindow window;
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        const QAction* const paste = pasteOf(window);
        QApplication::clipboard()->setText(QStringLiteral("a,b\n1,2\n"));
        QTRY_VERIFY(paste->isEnabled());
        QApplication::clipboard()->setText(QStringLiteral("Dear reader, here is no table."));
        QTRY_VERIFY(!paste->isEnabled());
        auto* const data = new QMimeData;
        data->setUrls({QUrl::fromLocalFile(QStringLiteral("/one.csv"))});
        QApplication::clipboard()->setMimeData(data);
        QTRY_VERIFY(paste->isEnabled());
        auto* const link = new QMimeData;
        link->setUrls({QUrl(QStringLiteral("https://example.org/two.csv"))});
        QApplication::clipboard()->setMimeData(link);
        QTRY_VERIFY(!paste->isEnabled());
        window.paste();
        QCOMPARE(window.tabWidget()->count(), 0);
    }

    void WhatWasCopiedMeanwhileIsLookedAtOnceTheWindowIsActive() {
        MainWindow window;
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        QApplication::clipboard()->setText(QStringLiteral("no table"));
        QTRY_VERIFY(!pasteOf(window)->isEnabled());
        QWidget other;
        other.show();
        other.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&other));
        QApplication::clipboard()->setText(QStringLiteral("a,b\n1,2\n"));
        QCoreApplication::processEvents();
        QVERIFY(!pasteOf(window)->isEnabled());
        window.activateWindow();
        QTRY_VERIFY(pasteOf(window)->isEnabled());
    }

    void ATextThatMakesNoChartIsTold() {
        MainWindow window;
        window.openText(QStringLiteral("a,b\n1,2\n3,oops\n4,5\n"));
        QTRY_VERIFY(window.findChild<QMessageBox*>());
        QCOMPARE(window.findChild<QMessageBox*>()->text(),
                 QStringLiteral("clipboard:3: column 2 (b): \"oops\" is not a number"));
        QCOMPARE(window.tabWidget()->count(), 0);
    }

    void OtherColumnsAreDrawnInTheSameTab() {
        MainWindow window;
        const QSignalSpy opened(&window, &MainWindow::fileOpened);
        window.openFile(write("one.csv", "t,a,b\n1,2,3\n2,3,4\n3,5,6\n"));
        window.openFile(write("two.csv", "t,a\n1,2\n2,3\n"));
        QTRY_COMPARE(opened.size(), 2);
        window.tabWidget()->setCurrentIndex(0);
        ChartPage* const page = window.currentPage();
        QVERIFY(page->columnsAction()->isEnabled());
        viewer::ColumnDialog* const dialog = askedFor(*page);
        dialog->kindBox()->setCurrentIndex(1);
        dialog->yList()->topLevelItem(1)->setCheckState(0, Qt::Unchecked);
        dialog->accept();
        QTRY_VERIFY(window.currentPage() && window.currentPage() != page);
        QCOMPARE(window.tabWidget()->count(), 2);
        QCOMPARE(window.tabWidget()->tabText(0), QStringLiteral("one"));
        QCOMPARE(window.tabWidget()->currentIndex(), 0);
        const auto plot = window.currentPage()->view()->plot();
        QCOMPARE(plot->series().size(), std::size_t{1});
        QVERIFY(std::dynamic_pointer_cast<zembra::ScatterSeries>(plot->series()[0]));
        QCOMPARE(plot->axis(0).title(), "b");
        // The next choice begins with this one, and the old page is gone.
        QCOMPARE(askedFor(*window.currentPage())->kindBox()->currentIndex(), 1);
        QTRY_COMPARE(window.findChildren<ChartPage*>().size(), qsizetype(2));
        QCOMPARE(opened.size(), 2);
    }

    void ColumnsOfACopiedTableAreChosenFromTheTextThatWasKept() {
        MainWindow window;
        window.openText(QStringLiteral("t,a,b\n1,2,3\n2,3,4\n"));
        QTRY_VERIFY(window.currentPage());
        ChartPage* const page = window.currentPage();
        viewer::ColumnDialog* const dialog = askedFor(*page);
        dialog->xBox()->setCurrentIndex(0);
        dialog->accept();
        QTRY_VERIFY(window.currentPage() && window.currentPage() != page);
        QCOMPARE(window.tabWidget()->tabText(0), QStringLiteral("Clipboard"));
        QCOMPARE(window.currentPage()->view()->plot()->axis(2).title(), "row");
    }

    void AChoiceThatMakesNoChartKeepsTheOldOne() {
        MainWindow window;
        const QSignalSpy failed(&window, &MainWindow::openFailed);
        window.openFile(write("one.csv", "t,a,w\n1,-2,x\n2,-3,y\n"));
        window.resize(500, 400);
        window.show();
        QTRY_VERIFY(window.currentPage());
        ChartPage* const page = window.currentPage();
        viewer::ColumnDialog* const dialog = askedFor(*page);
        dialog->logYBox()->setChecked(true);
        dialog->accept();
        QTRY_VERIFY(window.findChild<QMessageBox*>());
        QVERIFY(window.findChild<QMessageBox*>()->text().endsWith(
            QStringLiteral("one.csv:2: --log-y: column 2 (a) has no value above 0")));
        QCOMPARE(window.currentPage(), page);
        QVERIFY(page->isVisible());
        QCOMPARE(window.tabWidget()->count(), 1);
        QCOMPARE(window.tabWidget()->tabText(0), QStringLiteral("one"));
        QVERIFY(!askedFor(*page)->logYBox()->isChecked());
        QTRY_VERIFY(!window.findChild<LoadingPage*>());
        // A file is not opened twice, so it cannot fail to be.
        QCOMPARE(failed.size(), 0);
    }

    void GivingUpToDrawOtherColumnsKeepsTheChart() {
        QByteArray text = "t,a,b\n";
        for (int i = 0; i < 1000000; ++i)
            text += "1234567.125,7654321.5,1\n";
        MainWindow window;
        window.openFile(write("big.csv", text));
        QTRY_VERIFY_WITH_TIMEOUT(window.currentPage(), 30000);
        ChartPage* const page = window.currentPage();
        QTRY_VERIFY(!window.findChild<LoadingPage*>());
        askedFor(*page)->accept();
        const auto* const loading = window.findChild<LoadingPage*>();
        QVERIFY(loading && !window.currentPage());
        loading->cancelButton()->click();
        QTRY_COMPARE(window.currentPage(), page);
        // Closing the tab while it reads takes the waiting chart along.
        QTRY_VERIFY(!window.findChild<LoadingPage*>());
        askedFor(*page)->accept();
        window.closeTab(0);
        QTRY_VERIFY(!window.findChild<ChartPage*>());
        QCOMPARE(window.tabWidget()->count(), 0);
    }

    void ChartsWithoutATableHaveNoColumnsToChoose() {
        MainWindow window;
        window.addChart(QStringLiteral("sample"), somePlot());
        QVERIFY(!window.currentPage()->columnsAction()->isEnabled());
        window.currentPage()->chooseColumns();
        QVERIFY(!window.findChild<viewer::ColumnDialog*>());
        window.openFile(write("grid.json", R"({"width": 2, "height": 2, "values": [1, 2, 3, 4]})"));
        QTRY_VERIFY(window.currentPage());
        QVERIFY(!window.currentPage()->columnsAction()->isEnabled());
        viewer::Options options;
        options.follow = true;
        window.openLive(write("live.csv", "t,a\n1,2\n2,3\n"), options);
        QTRY_COMPARE(window.tabWidget()->count(), 3);
        QVERIFY(!window.currentPage()->columnsAction()->isEnabled());
    }

    void RecentFilesAreTheNewestFirstAndEachOnce() {
        for (int i = 0; i < 12; ++i)
            viewer::rememberFile(QStringLiteral("/%1.csv").arg(i));
        viewer::rememberFile(QStringLiteral("/5.csv"));
        QCOMPARE(viewer::recentFiles().size(), 10);
        QCOMPARE(viewer::recentFiles().mid(0, 2),
                 QStringList({QStringLiteral("/5.csv"), QStringLiteral("/11.csv")}));
        QCOMPARE(viewer::recentFiles().count(QStringLiteral("/5.csv")), 1);
        viewer::forgetFiles();
        QVERIFY(viewer::recentFiles().isEmpty());
    }

    void AGrowingFileGrowsInItsTab() {
        const QString path = write("live.csv", "t,a\n1,2\n2,3\n");
        MainWindow window;
        viewer::Options options;
        options.follow = true;
        window.openLive(path, options);
        QTRY_VERIFY(window.currentPage());
        window.resize(500, 400);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        const auto plot = window.currentPage()->view()->plot();
        QTRY_VERIFY(plot->axis(2).range().second < 4.0);
        QFile file(path);
        QVERIFY(file.open(QIODevice::Append));
        file.write("50,60\n");
        file.close();
        QTRY_VERIFY(plot->axis(2).range().second >= 50.0);
    }

    void TheWindowSpeaksTheLanguageOfTheUser() {
        struct Case {
            QLocale locale;
            const char* file;
            const char* zoom;
        };
        const std::array cases = {
            Case{QLocale(QLocale::German, QLocale::Switzerland), "&Datei", "Vergrößern"},
            Case{QLocale(QLocale::French, QLocale::Canada), "&Fichier", "Zoom avant"},
            Case{QLocale(QLocale::Spanish, QLocale::Mexico), "&Archivo", "Acercar"},
            Case{QLocale(QLocale::Chinese, QLocale::China), "文件(&F)", "放大"}};
        MainWindow window;
        window.addChart(QStringLiteral("one"), somePlot());
        for (const Case& one : cases) {
            QVERIFY(viewer::installTranslations(one.locale));
            QCoreApplication::processEvents();
            QCOMPARE(window.menuBar()->actions().front()->text(), QString::fromUtf8(one.file));
            QCOMPARE(window.currentPage()->view()->navigationActions().front()->text(),
                     QString::fromUtf8(one.zoom));
            qDeleteAll(QCoreApplication::instance()->findChildren<QTranslator*>());
        }
        QVERIFY(!viewer::installTranslations(QLocale(QLocale::Finnish)));
        QCoreApplication::processEvents();
        QCOMPARE(window.menuBar()->actions().front()->text(), QStringLiteral("&File"));
    }

    void TheHintComesBackUntilTheUserHasSeenEnough() {
        {
            MainWindow window;
            window.addChart(QStringLiteral("one"), somePlot());
            window.show();
            QVERIFY(QTest::qWaitForWindowExposed(&window));
            window.offerHint();
            QTRY_VERIFY(window.currentPage()->strip()->isCoachMarkVisible());
            Q_EMIT window.currentPage()->strip()->coachDismissed(false);
        }
        {
            MainWindow window;
            window.addChart(QStringLiteral("one"), somePlot());
            window.show();
            QVERIFY(QTest::qWaitForWindowExposed(&window));
            window.offerHint();
            QTRY_VERIFY(window.currentPage()->strip()->isCoachMarkVisible());
            Q_EMIT window.currentPage()->strip()->coachDismissed(true);
        }
        MainWindow window;
        window.addChart(QStringLiteral("one"), somePlot());
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        window.offerHint();
        QVERIFY(!window.currentPage()->strip()->isCoachMarkVisible());
        QCoreApplication::processEvents();
        QVERIFY(!window.currentPage()->strip()->isCoachMarkVisible());
    }

private:
    static QAction* pasteOf(const MainWindow& window) {
        for (QAction* const action : window.findChildren<QAction*>()) {
            if (action->shortcut() == QKeySequence(QKeySequence::Paste))
                return action;
        }
        return nullptr;
    }

    // The dialog that the action of the page opens.
    static viewer::ColumnDialog* askedFor(ChartPage& page) {
        const auto before = page.findChildren<viewer::ColumnDialog*>();
        page.columnsAction()->trigger();
        for (viewer::ColumnDialog* const dialog : page.findChildren<viewer::ColumnDialog*>()) {
            if (!before.contains(dialog))
                return dialog;
        }
        return nullptr;
    }

    QString write(const char* name, const QByteArray& text) const {
        QFile file(folder.filePath(QString::fromLatin1(name)));
        if (file.open(QIODevice::WriteOnly))
            file.write(text);
        return file.fileName();
    }

    QTemporaryDir folder;
    QTemporaryDir settings;
};

QTEST_MAIN(MainWindowTest)
#include "MainWindow_test.moc"
