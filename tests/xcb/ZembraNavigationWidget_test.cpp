// SPDX-License-Identifier: MIT
#include <ZembraGraphicsView.h>
#include <ZembraNavigationController.h>
#include <ZembraNavigationWidget.h>

#include "support/NavigationChrome.h"
#include "support/Strict.h"

#include <QApplication>
#include <QProcess>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>
#include <QWindow>

using zembra::InteractionMode;
using zembra::ZembraGraphicsView;
using zembra::ZembraNavigationWidget;

namespace {

// A decorated window with a strip above a view.
struct HostWindow {
    HostWindow() : chrome(strip) {
        auto* layout = new QVBoxLayout(&window);
        layout->addWidget(&strip);
        layout->addWidget(&view, 1);
        strip.setGraphicsView(&view);
        window.setGeometry(300, 150, 400, 300);
    }
    [[nodiscard]] bool show() {
        window.show();
        return QTest::qWaitForWindowActive(&window);
    }
    QPoint buttonCenter() const { return chrome.buttonRect().center(); }

    QWidget window;
    ZembraGraphicsView view{&window};
    ZembraNavigationWidget strip{&window};
    NavigationChrome chrome;
};

// The real pointer and keyboard of the X server, moved by xdotool.
void xdotool(const QStringList& arguments) {
    QProcess process;
    process.start(QStringLiteral("xdotool"), arguments);
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.exitCode(), 0);
}

void movePointer(QPoint place) {
    xdotool({QStringLiteral("mousemove"), QString::number(place.x()), QString::number(place.y())});
    QTRY_COMPARE(QCursor::pos(), place);
}

void click() {
    xdotool({QStringLiteral("click"), QStringLiteral("1")});
}

void pressKey(const char* key) {
    xdotool({QStringLiteral("key"), QString::fromLatin1(key)});
}

// The windows that the window manager stacks, from the bottom to the top.
QList<WId> stackedWindows() {
    QProcess process;
    process.start(QStringLiteral("xprop"),
                  {QStringLiteral("-root"), QStringLiteral("_NET_CLIENT_LIST_STACKING")});
    QList<WId> ids;
    if (!process.waitForFinished())
        return ids;
    static const QRegularExpression number(QStringLiteral("0x[0-9a-f]+"));
    auto matches = number.globalMatch(QString::fromLatin1(process.readAllStandardOutput()));
    while (matches.hasNext())
        ids << matches.next().captured().toULongLong(nullptr, 16);
    return ids;
}

} // namespace

class ZembraNavigationWidgetXcbTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        failOnAnyWarning();
        QCOMPARE(QGuiApplication::platformName(), QStringLiteral("xcb"));
        movePointer(QPoint(5, 5));
    }

    void pressThatClosesThePopupDoesNotReopenIt() {
        HostWindow host;
        QVERIFY(host.show());
        movePointer(host.buttonCenter());
        QTRY_VERIFY(host.chrome.helpButton()->underMouse());
        QSignalSpy clicked(host.chrome.helpButton(), &QToolButton::clicked);
        for (int round = 0; round < 3; ++round) {
            click();
            QTRY_VERIFY(host.chrome.popup()->isVisible());
            QVERIFY(QTest::qWaitForWindowExposed(host.chrome.popup()));
            QTRY_COMPARE(host.chrome.popup()->geometry(), host.chrome.expectedPopupRect());
            QCOMPARE(clicked.count(), round + 1);

            click();
            QTRY_VERIFY(!host.chrome.popup()->isVisible());
            // A press that gets through would have opened it by the time that a key arrives,
            // which the X server sends after it.
            QTRY_COMPARE(QApplication::focusWidget(), host.chrome.helpButton());
            QTRY_VERIFY(host.window.isActiveWindow());
            const InteractionMode before = host.view.interactionMode();
            pressKey("z");
            QTRY_VERIFY(host.view.interactionMode() != before);
            QVERIFY(!host.chrome.popup()->isVisible());
            QVERIFY(!host.chrome.helpButton()->isDown());
            QCOMPARE(clicked.count(), round + 1);
        }
    }

    void pressElsewhereClosesThePopup() {
        HostWindow host;
        QVERIFY(host.show());
        host.chrome.helpButton()->click();
        QVERIFY(QTest::qWaitForWindowExposed(host.chrome.popup()));
        movePointer(host.view.mapToGlobal(QPoint(20, host.view.height() - 20)));
        click();
        QTRY_VERIFY(!host.chrome.popup()->isVisible());
        QTRY_COMPARE(QApplication::focusWidget(), host.chrome.helpButton());
    }

    void escapeClosesThePopupAndReturnsToTheButton() {
        HostWindow host;
        QVERIFY(host.show());
        host.view.setFocus();
        host.chrome.helpButton()->click();
        QVERIFY(QTest::qWaitForWindowExposed(host.chrome.popup()));
        QTRY_COMPARE(QApplication::focusWidget(), host.chrome.popupRow(0));
        pressKey("Tab");
        QTRY_COMPARE(QApplication::focusWidget(), host.chrome.popupRow(1));
        pressKey("Escape");
        QTRY_VERIFY(!host.chrome.popup()->isVisible());
        QTRY_COMPARE(QApplication::focusWidget(), host.chrome.helpButton());
        pressKey("Return");
        QTRY_VERIFY(host.chrome.popup()->isVisible());
        pressKey("Escape");
        QTRY_VERIFY(!host.chrome.popup()->isVisible());
    }

    void coachMarkTakesTheFocusAndGivesItBack() {
        HostWindow host;
        QVERIFY(host.show());
        QSignalSpy dismissed(&host.strip, &ZembraNavigationWidget::coachDismissed);
        host.strip.showCoachMark();
        QVERIFY(QTest::qWaitForWindowActive(host.chrome.coach()));
        QTRY_COMPARE(QApplication::focusWidget(), host.chrome.gotIt());
        pressKey("shift+Tab");
        QTRY_COMPARE(QApplication::focusWidget(), host.chrome.dontShowAgain());
        pressKey("space");
        QTRY_VERIFY(!host.chrome.dontShowAgain()->isChecked());
        pressKey("Escape");
        QTRY_COMPARE(dismissed.count(), 1);
        QCOMPARE(dismissed.at(0).at(0).toBool(), false);
        QVERIFY(!host.strip.isCoachMarkVisible());
        QTRY_VERIFY(host.window.isActiveWindow());
        QTRY_COMPARE(QApplication::focusWidget(), host.chrome.helpButton());
    }

    void gotItIsClickedWithTheMouse() {
        HostWindow host;
        QVERIFY(host.show());
        QSignalSpy dismissed(&host.strip, &ZembraNavigationWidget::coachDismissed);
        host.strip.showCoachMark();
        QVERIFY(QTest::qWaitForWindowActive(host.chrome.coach()));
        QTRY_COMPARE(host.chrome.coach()->geometry(), host.chrome.expectedCoachRect());
        movePointer(host.chrome.gotIt()->mapToGlobal(host.chrome.gotIt()->rect().center()));
        // The window system may still be about to move the coach mark there.
        QTRY_VERIFY(host.chrome.gotIt()->underMouse());
        click();
        QTRY_COMPARE(dismissed.count(), 1);
        QCOMPARE(dismissed.at(0).at(0).toBool(), true);
    }

    void coachMarkFollowsAMovedWindow() {
        HostWindow host;
        QVERIFY(host.show());
        host.strip.showCoachMark();
        QVERIFY(QTest::qWaitForWindowExposed(host.chrome.coach()));
        QTRY_COMPARE(host.chrome.coach()->geometry(), host.chrome.expectedCoachRect());
        // Up, where the mark fits below the button, and down, where it fits only above.
        for (QPoint place : {QPoint(100, 60), QPoint(600, 450), QPoint(820, 200)}) {
            const QPoint before = host.window.pos();
            // The window manager moves it, as when a user drags its title bar.
            xdotool({QStringLiteral("windowmove"), QString::number(host.window.winId()),
                     QString::number(place.x()), QString::number(place.y())});
            QTRY_VERIFY(host.window.pos() != before);
            QTRY_COMPARE(host.chrome.coach()->geometry(), host.chrome.expectedCoachRect());
            QTRY_COMPARE(host.chrome.pointer()->x(), host.chrome.expectedPointerX());
            const QPoint arrow =
                host.chrome.pointer()->mapToGlobal(host.chrome.pointer()->rect().center());
            QVERIFY(qAbs(arrow.x() - host.buttonCenter().x()) <= 1);
        }
    }

    void coachMarkFollowsAMaximizedWindow() {
        HostWindow host;
        QVERIFY(host.show());
        host.strip.showCoachMark();
        QVERIFY(QTest::qWaitForWindowExposed(host.chrome.coach()));
        const int width = host.window.width();
        host.window.showMaximized();
        QTRY_VERIFY(host.window.width() > width);
        QTRY_COMPARE(host.chrome.coach()->geometry(), host.chrome.expectedCoachRect());
        host.window.showNormal();
        QTRY_COMPARE(host.window.width(), width);
        QTRY_COMPARE(host.chrome.coach()->geometry(), host.chrome.expectedCoachRect());
    }

    void coachMarkStaysAboveItsWindow() {
        HostWindow host;
        QVERIFY(host.show());
        host.strip.showCoachMark();
        QVERIFY(QTest::qWaitForWindowActive(host.chrome.coach()));
        QCOMPARE(host.chrome.coach()->windowHandle()->transientParent(),
                 host.window.windowHandle());
        host.window.raise();
        host.window.activateWindow();
        QTRY_VERIFY(host.window.isActiveWindow());
        QTRY_VERIFY(stackedWindows().contains(host.chrome.coach()->winId()));
        QTRY_VERIFY(stackedWindows().indexOf(host.chrome.coach()->winId()) >
                    stackedWindows().indexOf(host.window.winId()));
        QVERIFY(host.strip.isCoachMarkVisible());
        // It is seen, too.
        QTRY_COMPARE(QApplication::topLevelAt(host.chrome.coach()->geometry().center()),
                     host.chrome.coach());
    }

    void minimizedWindowTakesTheMarkAlong() {
        HostWindow host;
        QVERIFY(host.show());
        QSignalSpy dismissed(&host.strip, &ZembraNavigationWidget::coachDismissed);
        host.strip.showCoachMark();
        QVERIFY(QTest::qWaitForWindowExposed(host.chrome.coach()));
        host.window.showMinimized();
        QTRY_VERIFY(!host.strip.isCoachMarkVisible());
        host.window.showNormal();
        QVERIFY(QTest::qWaitForWindowExposed(&host.window));
        QVERIFY(!host.strip.isCoachMarkVisible());
        QCOMPARE(dismissed.count(), 0);
    }

    void zoomKeysWorkWithTheFocusOnTheButton() {
        HostWindow host;
        QVERIFY(host.show());
        host.chrome.helpButton()->setFocus();
        QTRY_COMPARE(QApplication::focusWidget(), host.chrome.helpButton());
        pressKey("z");
        QTRY_COMPARE(host.view.interactionMode(), InteractionMode::BoxZoom);
        QVERIFY(host.chrome.modeLabel()->isVisible());
        QSignalSpy in(host.view.navigationController(),
                      &zembra::ZembraNavigationController::zoomInRequested);
        pressKey("ctrl+equal");
        QTRY_COMPARE(in.count(), 1);
    }
};

QTEST_MAIN(ZembraNavigationWidgetXcbTest)
#include "ZembraNavigationWidget_test.moc"
