// SPDX-License-Identifier: MIT
#include <ZembraNavigationController.h>
#include <ZembraNavigationWidget.h>

#include "support/NavigationChrome.h"
#include "support/OffscreenScreens.h"
#include "support/Strict.h"

#include <QStyleFactory>
#include <QVBoxLayout>
#include <QWindow>

using zembra::NavigationControlProfile;
using zembra::ZembraNavigationController;
using zembra::ZembraNavigationWidget;

namespace {

// The primary screen, one to the left of it and higher up, and one below that is too small for the
// popup. With a scale factor the screens keep their origins and shrink, so that gaps open between
// them: positions that are on no screen.
constexpr char screens[] = R"(
    {"name": "primary", "x": 0, "y": 0, "width": 1280, "height": 1024},
    {"name": "left", "x": -1000, "y": -150, "width": 1000, "height": 900},
    {"name": "small", "x": 100, "y": 1024, "width": 320, "height": 160})";

QScreen* screenNamed(const QString& name) {
    for (QScreen* screen : QGuiApplication::screens())
        if (screen->name() == name)
            return screen;
    return nullptr;
}

struct HostWindow {
    HostWindow() : chrome(strip) {
        // The window manager of a real screen would let no window be above its upper edge.
        window.setWindowFlag(Qt::FramelessWindowHint);
        auto* layout = new QVBoxLayout(&window);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->addWidget(&strip);
        layout->addStretch();
        window.resize(120, 50);
        strip.setNavigationController(&controller);
    }

    QWidget window;
    ZembraNavigationController controller;
    ZembraNavigationWidget strip{&window};
    NavigationChrome chrome;
};

} // namespace

class ZembraNavigationPlacementTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { failOnAnyWarning(); }
    void cleanup() {
        QApplication::setFont(usualFont);
        QApplication::setLayoutDirection(Qt::LeftToRight);
    }
    void cleanupTestCase() { QApplication::setStyle(QStringLiteral("Fusion")); }

    void screensAreThoseOfTheLayout() {
        QCOMPARE(QGuiApplication::screens().size(), 3);
        const qreal scale = qEnvironmentVariable("QT_SCALE_FACTOR", QStringLiteral("1")).toDouble();
        QCOMPARE(screenNamed(QStringLiteral("left"))->devicePixelRatio(), scale);
        QCOMPARE(screenNamed(QStringLiteral("left"))->geometry().topLeft(), QPoint(-1000, -150));
        QCOMPARE(screenNamed(QStringLiteral("small"))->geometry().width(), qRound(320 / scale));
    }

    void windowsStandWhereTheRulesPutThem_data() {
        QTest::addColumn<QString>("screen");
        QTest::addColumn<QString>("style");
        QTest::addColumn<int>("pointSize");
        QTest::addColumn<Qt::LayoutDirection>("direction");
        for (const char* screen : {"primary", "left", "small"})
            for (const char* style : {"Fusion", "Windows"})
                for (int pointSize : {0, 24})
                    for (Qt::LayoutDirection direction : {Qt::LeftToRight, Qt::RightToLeft})
                        QTest::addRow(
                            "%s, %s, %s, %s", screen, style, pointSize ? "24 points" : "usual font",
                            direction == Qt::LeftToRight ? "left to right" : "right to left")
                            << QString::fromLatin1(screen) << QString::fromLatin1(style)
                            << pointSize << direction;
    }
    void windowsStandWhereTheRulesPutThem() {
        QFETCH(QString, screen);
        QFETCH(QString, style);
        QFETCH(int, pointSize);
        QFETCH(Qt::LayoutDirection, direction);
        QApplication::setStyle(style);
        QApplication::setLayoutDirection(direction);
        if (pointSize) {
            QFont font = usualFont;
            font.setPointSize(pointSize);
            QApplication::setFont(font);
        }
        HostWindow host;
        host.window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&host.window));
        const QRect area = screenNamed(screen)->availableGeometry();
        // From beyond one edge, across the screen, to beyond the other.
        for (int column = 0; column <= 6; ++column) {
            for (int row = 0; row <= 6; ++row) {
                const QPoint place(area.left() - 100 + (area.width() + 60) * column / 6,
                                   area.top() - 30 + (area.height() + 40) * row / 6);
                host.window.move(place);
                host.controller.setControlProfile(NavigationControlProfile((column + row) % 2));
                QCoreApplication::processEvents();

                host.chrome.helpButton()->click();
                QTRY_COMPARE(host.chrome.popup()->geometry(), host.chrome.expectedPopupRect());
                checkIsInside(*host.chrome.popup(),
                              host.chrome.helpButton()->mapToGlobal(
                                  host.chrome.helpButton()->rect().bottomRight()));

                host.strip.showCoachMark();
                QTRY_COMPARE(host.chrome.coach()->geometry(), host.chrome.expectedCoachRect());
                QCOMPARE(host.chrome.pointer()->text(), host.chrome.expectedCoachIsBelow()
                                                            ? QStringLiteral("▲")
                                                            : QStringLiteral("▼"));
                QTRY_COMPARE(host.chrome.pointer()->x(), host.chrome.expectedPointerX());
                checkIsInside(*host.chrome.coach(), host.chrome.buttonRect().center());
                host.strip.hideCoachMark();
                if (QTest::currentTestFailed())
                    return;
            }
        }
    }

    void windowsFollowFromScreenToScreen() {
        HostWindow host;
        host.window.move(screenNamed(QStringLiteral("primary"))->geometry().center());
        host.window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&host.window));
        host.strip.showCoachMark();
        for (const char* name : {"left", "small", "primary", "left"}) {
            QScreen* screen = screenNamed(QString::fromLatin1(name));
            host.window.move(screen->geometry().topLeft() + QPoint(10, 20));
            QTRY_COMPARE(host.chrome.coach()->geometry(), host.chrome.expectedCoachRect());
            QVERIFY(screen->geometry().contains(host.chrome.coach()->geometry()));
            QTRY_COMPARE(host.chrome.pointer()->x(), host.chrome.expectedPointerX());
        }
    }

    // Shown in the same turn as the host's window, they are placed before Qt knows which screen the
    // window reaches to.
    void windowsShownTogetherWithTheHostStandBesideTheButton_data() {
        QTest::addColumn<bool>("isCoachMark");
        QTest::newRow("popup") << false;
        QTest::newRow("coach mark") << true;
    }
    void windowsShownTogetherWithTheHostStandBesideTheButton() {
        QFETCH(bool, isCoachMark);
        const QRect left = screenNamed(QStringLiteral("left"))->geometry();
        for (int beyond = -120; beyond <= 120; beyond += 40) {
            HostWindow host;
            host.window.move(left.topLeft());
            host.window.winId();
            host.window.move(left.bottomRight() + QPoint(beyond, -100));
            host.window.show();
            if (isCoachMark)
                host.strip.showCoachMark();
            else
                host.chrome.helpButton()->click();
            QVERIFY(QTest::qWaitForWindowExposed(&host.window));
            if (isCoachMark)
                QTRY_COMPARE(host.chrome.coach()->geometry(), host.chrome.expectedCoachRect());
            else
                QTRY_COMPARE(host.chrome.popup()->geometry(), host.chrome.expectedPopupRect());
        }
    }

    void popupLargerThanItsScreenTakesAllOfIt() {
        HostWindow host;
        const QRect area = screenNamed(QStringLiteral("small"))->availableGeometry();
        host.window.move(area.topLeft() + QPoint(5, 3));
        host.window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&host.window));
        QFont font = usualFont;
        font.setPointSize(24);
        QApplication::setFont(font);
        QCoreApplication::processEvents();
        const QSize popup = NavigationChrome::naturalSize(*host.chrome.popup());
        const QSize coach = NavigationChrome::naturalSize(*host.chrome.coach());
        QVERIFY(popup.width() > area.width() && popup.height() > area.height());
        QVERIFY(coach.width() > area.width() && coach.height() > area.height());
        host.chrome.helpButton()->click();
        QTRY_COMPARE(host.chrome.popup()->geometry(), area);
        host.strip.showCoachMark();
        QTRY_COMPARE(host.chrome.coach()->geometry(), area);

        // On a larger screen they have their natural size again.
        host.window.move(QPoint(0, 0));
        QTRY_COMPARE(host.chrome.coach()->size(),
                     coach.boundedTo(screenNamed(QStringLiteral("primary"))->size()));
        host.chrome.helpButton()->click();
        QTRY_COMPARE(host.chrome.popup()->size(),
                     popup.boundedTo(screenNamed(QStringLiteral("primary"))->size()));
    }

private:
    // A window lies within the screen of its anchor and belongs to it.
    static void checkIsInside(const QWidget& window, QPoint anchor) {
        QScreen* at = QGuiApplication::screenAt(anchor);
        if (!at)
            at = QGuiApplication::primaryScreen();
        QVERIFY(at->availableGeometry().contains(window.geometry()));
        QTRY_COMPARE(window.windowHandle()->screen(), at);
    }

    const QFont usualFont = QApplication::font();
};

int main(int argc, char** argv) {
    return runOnScreens<ZembraNavigationPlacementTest>(screens, argc, argv);
}
#include "ZembraNavigationPlacement_test.moc"
