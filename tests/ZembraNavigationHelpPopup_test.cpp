// SPDX-License-Identifier: MIT
#include <ZembraNavigationController.h>
#include <ZembraNavigationWidget.h>

#include "support/ContextTranslator.h"
#include "support/NavigationChrome.h"
#include "support/OffscreenScreens.h"
#include "support/Strict.h"

#include <QCursor>
#include <QLineEdit>
#include <QShortcut>
#include <QSignalSpy>
#include <QTimer>
#include <QVBoxLayout>

using zembra::NavigationControlProfile;
using zembra::ZembraNavigationController;
using zembra::ZembraNavigationWidget;

namespace {

const QStringList plainRows{
    QStringLiteral("Alt + wheel: Zoom in or out around the pointer"),
    QStringLiteral("Left-button drag: Pan"),
    QStringLiteral("Double-click: Reset view to data"),
    QStringLiteral("Right-click: Open all chart actions"),
    QStringLiteral("Z: Toggle Box Zoom mode"),
    QStringLiteral("Escape: Leave Box Zoom and restore Pan mode"),
};
const QStringList editingRows{
    QStringLiteral("Alt + wheel: Zoom in or out around the pointer"),
    QStringLiteral("Left-button drag: Pan empty chart space"),
    QStringLiteral("Drag control-point handles: Edit control points"),
    QStringLiteral("Double-click: Edit or add a control point"),
    QStringLiteral("Right-click: Open all chart actions"),
    QStringLiteral("Z: Toggle Box Zoom mode"),
    QStringLiteral("Escape: Leave Box Zoom and restore Pan mode"),
};

// A window with a strip at its top and a field below it.
struct HostWindow {
    HostWindow() : chrome(strip) {
        auto* layout = new QVBoxLayout(&window);
        layout->addWidget(&strip);
        layout->addWidget(&field);
        layout->addStretch();
        window.setGeometry(300, 200, 400, 300);
        strip.setNavigationController(&controller);
    }
    [[nodiscard]] bool show() {
        window.show();
        return QTest::qWaitForWindowActive(&window);
    }
    void press(QWidget& widget) const { send(widget, QEvent::MouseButtonPress, Qt::LeftButton); }
    void release(QWidget& widget) const { send(widget, QEvent::MouseButtonRelease, Qt::NoButton); }
    static QMouseEvent* newMouseEvent(const QWidget& widget, QEvent::Type type,
                                      Qt::MouseButtons buttons) {
        const QPointF center = widget.rect().center();
        return new QMouseEvent(type, center, widget.mapToGlobal(center), Qt::LeftButton, buttons,
                               Qt::NoModifier);
    }

    QWidget window;
    ZembraNavigationController controller;
    ZembraNavigationWidget strip{&window};
    QLineEdit field{&window};
    NavigationChrome chrome;

private:
    static void send(QWidget& widget, QEvent::Type type, Qt::MouseButtons buttons) {
        const std::unique_ptr<QMouseEvent> event(newMouseEvent(widget, type, buttons));
        QCoreApplication::sendEvent(&widget, event.get());
    }
};

// Holds the left button down, as the window system tells it, in an empty corner of a window.
class HeldLeftButton {
public:
    explicit HeldLeftButton(QWidget& window) : window(window) {
        QTest::mousePress(window.windowHandle(), Qt::LeftButton, {}, corner());
    }
    ~HeldLeftButton() { QTest::mouseRelease(window.windowHandle(), Qt::LeftButton, {}, corner()); }

private:
    QPoint corner() const { return window.rect().bottomLeft() + QPoint(2, -2); }
    QWidget& window;
};

} // namespace

class ZembraNavigationHelpPopupTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        failOnAnyWarning();
        QCursor::setPos(0, 0);
    }
    void cleanup() { QApplication::setFont(usualFont); }

    void popupIsMadeOfATitleAndSevenRows() {
        const ZembraNavigationWidget strip;
        const NavigationChrome chrome(strip);
        const QFrame* popup = chrome.popup();
        QCOMPARE(popup->parent(), chrome.helpButton());
        QCOMPARE(popup->windowType(), Qt::Popup);
        QCOMPARE(popup->frameShape(), QFrame::NoFrame);
        QVERIFY(popup->isHidden());
        QVERIFY(popup->styleSheet().isEmpty());
        const auto* layout = qobject_cast<QVBoxLayout*>(popup->layout());
        QVERIFY(layout);
        QWidget usual;
        const QVBoxLayout usualLayout(&usual);
        QCOMPARE(layout->contentsMargins(), usualLayout.contentsMargins());
        QCOMPARE(layout->spacing(), usualLayout.spacing());
        QCOMPARE(layout->count(), 8);
        QCOMPARE(layout->itemAt(0)->widget(), chrome.popupTitle());
        QCOMPARE(chrome.popupTitle()->text(), QStringLiteral("Chart controls"));
        QCOMPARE(chrome.popupTitle()->focusPolicy(), Qt::TabFocus);
        QVERIFY(!chrome.popupTitle()->wordWrap());
        for (int i = 0; i < 7; ++i) {
            QCOMPARE(layout->itemAt(i + 1)->widget(), chrome.popupRow(i));
            QCOMPARE(chrome.popupRow(i)->focusPolicy(), Qt::TabFocus);
            QVERIFY(chrome.popupRow(i)->wordWrap());
        }
        QVERIFY(!chrome.popupRow(7));
    }

    void returnAndEnterHaveShortcutsOnTheButton() {
        const ZembraNavigationWidget strip;
        const QToolButton* button = NavigationChrome(strip).helpButton();
        const QList<QShortcut*> shortcuts =
            button->findChildren<QShortcut*>(QString(), Qt::FindDirectChildrenOnly);
        QCOMPARE(shortcuts.size(), 2);
        QCOMPARE(shortcuts.at(0)->objectName(),
                 QStringLiteral("zembraNavigationHelpReturnShortcut"));
        QCOMPARE(shortcuts.at(0)->key(), QKeySequence(Qt::Key_Return));
        QCOMPARE(shortcuts.at(0)->context(), Qt::WidgetShortcut);
        QCOMPARE(shortcuts.at(1)->objectName(),
                 QStringLiteral("zembraNavigationHelpEnterShortcut"));
        QCOMPARE(shortcuts.at(1)->key(), QKeySequence(Qt::Key_Enter));
        QCOMPARE(shortcuts.at(1)->context(), Qt::WidgetShortcut);
    }

    void rowsDescribeTheProfileOfTheController() {
        HostWindow host;
        QCOMPARE(host.chrome.popupTexts(), plainRows);
        QVERIFY(host.chrome.popupRow(6)->isHidden());
        host.controller.setControlProfile(NavigationControlProfile::ControlPointEditing);
        QCOMPARE(host.chrome.popupTexts(), editingRows);
        host.controller.setControlProfile(NavigationControlProfile::Default);
        QCOMPARE(host.chrome.popupTexts(), plainRows);
        // The row that is not needed keeps what it said.
        QCOMPARE(host.chrome.popupRow(6)->text(), editingRows.at(6));
        host.controller.setControlProfile(NavigationControlProfile::ControlPointEditing);
        host.strip.setNavigationController(nullptr);
        QCOMPARE(host.chrome.popupTexts(), plainRows);
    }

    void profileChangeResizesAnOpenPopup() {
        HostWindow host;
        QVERIFY(host.show());
        host.chrome.helpButton()->click();
        QCOMPARE(host.chrome.popup()->geometry(), host.chrome.expectedPopupRect());
        const int height = host.chrome.popup()->height();
        host.controller.setControlProfile(NavigationControlProfile::ControlPointEditing);
        QVERIFY(host.chrome.popup()->height() > height);
        QCOMPARE(host.chrome.popup()->geometry(), host.chrome.expectedPopupRect());
        host.controller.setControlProfile(NavigationControlProfile::Default);
        QCOMPARE(host.chrome.popup()->height(), height);
        QCoreApplication::processEvents();
        QCOMPARE(host.chrome.popup()->geometry(), host.chrome.expectedPopupRect());
    }

    void placeholderInATranslatedInputIsNotFilled() {
        class Translator : public ContextTranslator {
        public:
            QString translate(const char* context, const char* source, const char* disambiguation,
                              int n) const override {
                if (QByteArrayView(source) == "Z")
                    return QStringLiteral("%2%1");
                return ContextTranslator::translate(context, source, disambiguation, n);
            }
        };
        const Translator translator;
        QCoreApplication::installTranslator(const_cast<Translator*>(&translator));
        const ZembraNavigationWidget strip;
        QCOMPARE(NavigationChrome(strip).popupRow(4)->text(),
                 QStringLiteral("W{%2%1: D{Toggle Box Zoom mode}}"));
    }

    void everyTextOfThePopupHasTheRoomItAsksFor() {
        HostWindow host;
        QVERIFY(host.show());
        host.controller.setControlProfile(NavigationControlProfile::ControlPointEditing);
        host.chrome.helpButton()->click();
        QCoreApplication::processEvents();
        for (int i = 0; i < 7; ++i) {
            const QLabel* row = host.chrome.popupRow(i);
            QVERIFY(row->height() >= row->heightForWidth(row->width()));
        }
    }

    void clickOpensAndAnotherCloses() {
        HostWindow host;
        QVERIFY(host.show());
        host.chrome.helpButton()->click();
        QVERIFY(host.chrome.popup()->isVisible());
        QCOMPARE(QApplication::focusWidget(), host.chrome.popupRow(0));
        host.chrome.helpButton()->click();
        QVERIFY(!host.chrome.popup()->isVisible());
    }

    void keysOnTheFocusedButtonOpenThePopup_data() {
        QTest::addColumn<int>("key");
        QTest::newRow("Return") << int(Qt::Key_Return);
        QTest::newRow("Enter") << int(Qt::Key_Enter);
        QTest::newRow("Space") << int(Qt::Key_Space);
    }
    void keysOnTheFocusedButtonOpenThePopup() {
        QFETCH(int, key);
        HostWindow host;
        QVERIFY(host.show());
        host.field.setFocus();
        QTRY_VERIFY(host.field.hasFocus());
        QTest::keyClick(&host.field, Qt::Key(key));
        QVERIFY(!host.chrome.popup()->isVisible());
        host.chrome.helpButton()->setFocus();
        QTest::keyClick(host.chrome.helpButton(), Qt::Key(key));
        QVERIFY(host.chrome.popup()->isVisible());
    }

    void tabStepsThroughTheRows() {
        HostWindow host;
        QVERIFY(host.show());
        host.chrome.helpButton()->click();
        QVERIFY(host.chrome.popupRow(0)->hasFocus());
        for (int i = 1; i < 6; ++i) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            QCOMPARE(QApplication::focusWidget(), host.chrome.popupRow(i));
        }
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget(), host.chrome.popupTitle());
        QVERIFY(host.chrome.popup()->isVisible());
    }

    void escapeClosesThePopupAndReturnsToTheButton() {
        HostWindow host;
        QShortcut rival(QKeySequence(Qt::Key_Escape), &host.window);
        rival.setContext(Qt::ApplicationShortcut);
        QSignalSpy rivalActivated(&rival, &QShortcut::activated);
        QVERIFY(host.show());
        for (int row : {0, 3}) {
            host.field.setFocus();
            host.chrome.helpButton()->click();
            host.chrome.popupRow(row)->setFocus();
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
            QVERIFY(!host.chrome.popup()->isVisible());
            QTRY_COMPARE(QApplication::focusWidget(), host.chrome.helpButton());
        }
        QCOMPARE(rivalActivated.count(), 0);
    }

    void otherKeysLeaveThePopupOpen() {
        HostWindow host;
        QVERIFY(host.show());
        host.chrome.helpButton()->click();
        QKeyEvent override(QEvent::ShortcutOverride, Qt::Key_A, Qt::NoModifier);
        override.ignore();
        QCoreApplication::sendEvent(host.chrome.popup(), &override);
        QVERIFY(!override.isAccepted());
        QTest::keyClick(host.chrome.popup(), Qt::Key_A);
        QVERIFY(host.chrome.popup()->isVisible());
    }

    void openingThePopupHidesTheCoachMarkSilently() {
        HostWindow host;
        QVERIFY(host.show());
        QSignalSpy dismissed(&host.strip, &ZembraNavigationWidget::coachDismissed);
        host.strip.showCoachMark();
        QVERIFY(host.strip.isCoachMarkVisible());
        host.chrome.helpButton()->click();
        QVERIFY(host.chrome.popup()->isVisible());
        QVERIFY(!host.strip.isCoachMarkVisible());
        QCOMPARE(dismissed.count(), 0);
        host.strip.showCoachMark();
        QVERIFY(!host.chrome.popup()->isVisible());
        QVERIFY(host.strip.isCoachMarkVisible());
    }

    void secondClickWithTheMouseClosesForGood() {
        HostWindow host;
        QVERIFY(host.show());
        QWindow* window = host.window.windowHandle();
        const QPoint onButton = host.chrome.helpButton()->mapTo(
            &host.window, host.chrome.helpButton()->rect().center());
        QCursor::setPos(host.window.mapToGlobal(onButton));
        for (int round = 0; round < 3; ++round) {
            QTest::mouseClick(window, Qt::LeftButton, {}, onButton);
            QVERIFY(host.chrome.popup()->isVisible());
            // The popup receives what is pressed outside it; the platform replays the press.
            QTest::mousePress(host.chrome.popup()->windowHandle(), Qt::LeftButton, {},
                              host.chrome.popup()->mapFromGlobal(QCursor::pos()));
            QVERIFY(!host.chrome.popup()->isVisible());
            QTest::mouseRelease(window, Qt::LeftButton, {}, onButton);
            QCoreApplication::processEvents();
            QVERIFY(!host.chrome.popup()->isVisible());
            QVERIFY(!host.chrome.helpButton()->isDown());
        }
    }

    // A press that is sent while the popup hides, one that is posted then, and one that is posted
    // by a call that had been queued.
    void replayedPressNeverReopens_data() {
        QTest::addColumn<QString>("way");
        QTest::newRow("sent at once") << QStringLiteral("sent");
        QTest::newRow("posted") << QStringLiteral("posted");
        QTest::newRow("posted by a queued call") << QStringLiteral("queued");
    }
    void replayedPressNeverReopens() {
        QFETCH(QString, way);
        HostWindow host;
        QVERIFY(host.show());
        QToolButton& button = *host.chrome.helpButton();
        for (int round = 0; round < 3; ++round) {
            {
                const HeldLeftButton held(host.window);
                button.click();
                QVERIFY(host.chrome.popup()->isVisible());
                QCursor::setPos(button.mapToGlobal(button.rect().center()));
                host.chrome.popup()->close();
                const auto post = [&] {
                    QCoreApplication::postEvent(
                        &button, HostWindow::newMouseEvent(button, QEvent::MouseButtonPress,
                                                           Qt::LeftButton));
                };
                if (way == QStringLiteral("sent")) {
                    host.press(button);
                } else {
                    if (way == QStringLiteral("posted"))
                        post();
                    else
                        QTimer::singleShot(0, &button, post);
                    QCoreApplication::sendPostedEvents();
                }
                QVERIFY(!button.isDown());
                host.release(button);
                QCoreApplication::processEvents();
                QVERIFY(!host.chrome.popup()->isVisible());
            }
            // The next click is an ordinary one.
            host.press(button);
            QVERIFY(button.isDown());
            host.release(button);
            QVERIFY(host.chrome.popup()->isVisible());
            host.chrome.popup()->hide();
            QCoreApplication::processEvents();
        }
    }

    void releaseThatComesLaterDoesNotOpen() {
        HostWindow host;
        QVERIFY(host.show());
        QToolButton& button = *host.chrome.helpButton();
        const HeldLeftButton held(host.window);
        button.click();
        QCursor::setPos(button.mapToGlobal(button.rect().center()));
        host.chrome.popup()->close();
        host.press(button);
        // By now nothing is suppressed any more.
        QCoreApplication::processEvents();
        host.release(button);
        QVERIFY(!host.chrome.popup()->isVisible());
        host.press(button);
        host.release(button);
        QVERIFY(host.chrome.popup()->isVisible());
    }

    void withoutAReplayTheNextPassTakesPressesAgain() {
        HostWindow host;
        QVERIFY(host.show());
        QToolButton& button = *host.chrome.helpButton();
        const HeldLeftButton held(host.window);
        button.click();
        QCursor::setPos(button.mapToGlobal(button.rect().center()));
        host.chrome.popup()->close();
        QCoreApplication::processEvents();
        host.press(button);
        QVERIFY(button.isDown());
        host.release(button);
        QVERIFY(host.chrome.popup()->isVisible());
    }

    void pressIsTakenWhenThePopupClosedOtherwise_data() {
        QTest::addColumn<bool>("held");
        QTest::addColumn<QPoint>("cursorFromTopLeft");
        QTest::newRow("no button held") << false << QPoint(3, 3);
        QTest::newRow("pointer elsewhere") << true << QPoint(-1, 0);
    }
    void pressIsTakenWhenThePopupClosedOtherwise() {
        QFETCH(bool, held);
        QFETCH(QPoint, cursorFromTopLeft);
        HostWindow host;
        QVERIFY(host.show());
        QToolButton& button = *host.chrome.helpButton();
        const std::unique_ptr<HeldLeftButton> left(held ? new HeldLeftButton(host.window)
                                                        : nullptr);
        button.click();
        QCursor::setPos(button.mapToGlobal(cursorFromTopLeft));
        host.chrome.popup()->close();
        host.press(button);
        QVERIFY(button.isDown());
        host.release(button);
        QVERIFY(host.chrome.popup()->isVisible());
    }

    void clickElsewhereClosesAndGivesTheButtonTheFocus() {
        HostWindow host;
        QVERIFY(host.show());
        host.chrome.helpButton()->click();
        const QPoint outside = host.window.mapToGlobal(QPoint(5, 290));
        QCursor::setPos(outside);
        QTest::mousePress(host.chrome.popup()->windowHandle(), Qt::LeftButton, {},
                          host.chrome.popup()->mapFromGlobal(outside));
        QVERIFY(!host.chrome.popup()->isVisible());
        QTest::mouseRelease(host.window.windowHandle(), Qt::LeftButton, {},
                            host.window.mapFromGlobal(outside));
        QCOMPARE(host.window.focusWidget(), host.chrome.helpButton());
        // Here no window manager gives the window its activity back.
        host.window.activateWindow();
        QTRY_COMPARE(QApplication::focusWidget(), host.chrome.helpButton());
    }

    void buttonInTheCornerOfTheScreenKeepsThePopupInside() {
        HostWindow host;
        QVERIFY(host.show());
        const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
        host.window.layout()->setContentsMargins(0, 0, 0, 0);
        host.window.resize(300, host.window.minimumSizeHint().height());
        host.window.move(screen.bottomRight() -
                         QPoint(host.window.width() - 1, host.strip.height() - 1));
        QCoreApplication::processEvents();
        host.chrome.helpButton()->click();
        QCOMPARE(host.chrome.popup()->geometry().bottomRight(), screen.bottomRight());
        QCOMPARE(host.chrome.popup()->geometry(), host.chrome.expectedPopupRect());
    }

    void popupBelowTheButtonIsAlignedWithItsRightEdge() {
        HostWindow host;
        QVERIFY(host.show());
        host.chrome.helpButton()->click();
        const QRect button = host.chrome.buttonRect();
        QCOMPARE(host.chrome.popup()->geometry().topRight(), button.bottomRight() + QPoint(0, 1));
    }

    void popupOverTwoThirdsOfTheScreenIsNotCut() {
        QFont large = usualFont;
        // So large that the rows need more than two thirds of the height and fit all the same.
        const int screenHeight = QGuiApplication::primaryScreen()->availableGeometry().height();
        HostWindow host;
        QVERIFY(host.show());
        host.controller.setControlProfile(NavigationControlProfile::ControlPointEditing);
        for (int pointSize = 10; pointSize < 60; ++pointSize) {
            large.setPointSize(pointSize);
            QApplication::setFont(large);
            QCoreApplication::processEvents();
            if (NavigationChrome::naturalSize(*host.chrome.popup()).height() > screenHeight * 3 / 4)
                break;
        }
        const QSize natural = NavigationChrome::naturalSize(*host.chrome.popup());
        QVERIFY(natural.height() > screenHeight * 2 / 3);
        QVERIFY(natural.height() < screenHeight);
        host.chrome.helpButton()->click();
        QCOMPARE(host.chrome.popup()->size(), natural);
    }

private:
    const QFont usualFont = QApplication::font();
};

int main(int argc, char** argv) {
    return runOnOneScreen<ZembraNavigationHelpPopupTest>(argc, argv);
}
#include "ZembraNavigationHelpPopup_test.moc"
