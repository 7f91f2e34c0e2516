// SPDX-License-Identifier: MIT
#include "window/MainWindow.h"

#include "Samples.h"
#include "window/ChartPage.h"

#include <ZembraGraphicsView.h>
#include <ZembraNavigationWidget.h>

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QMenu>
#include <QRegularExpression>
#include <QSettings>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

namespace {

using viewer::ChartPage;
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

    void TheContextMenuHoldsAllActionsOfTheChart() {
        ChartPage page(somePlot());
        QMenu menu;
        page.fillMenu(menu);
        for (QAction* const action : page.view()->navigationActions())
            QVERIFY(menu.actions().contains(action));
        QStringList texts;
        for (const QAction* const action : menu.actions())
            texts.append(action->text());
        QVERIFY(texts.contains(QStringLiteral("Copy Picture")));
        QVERIFY(texts.contains(QStringLiteral("Save Picture As…")));
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
    QTemporaryDir settings;
};

QTEST_MAIN(MainWindowTest)
#include "MainWindow_test.moc"
