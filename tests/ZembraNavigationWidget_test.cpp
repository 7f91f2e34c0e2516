// SPDX-License-Identifier: MIT
#include <ZembraGraphicsView.h>
#include <ZembraNavigationController.h>
#include <ZembraNavigationWidget.h>

#include "support/ContextTranslator.h"
#include "support/MetaObjectText.h"
#include "support/NavigationChrome.h"
#include "support/OffscreenScreens.h"
#include "support/Strict.h"

#include <QAction>
#include <QPointer>
#include <QProxyStyle>
#include <QShortcut>
#include <QSignalSpy>
#include <QStyleFactory>
#include <QVBoxLayout>

using zembra::InteractionMode;
using zembra::NavigationControlProfile;
using zembra::ZembraGraphicsView;
using zembra::ZembraNavigationController;
using zembra::ZembraNavigationWidget;

namespace {

// A style whose widgets are larger than usual.
class RoomyStyle : public QProxyStyle {
public:
    RoomyStyle() : QProxyStyle(QStringLiteral("Windows")) {}
    int pixelMetric(PixelMetric metric, const QStyleOption* option,
                    const QWidget* widget) const override {
        const int value = QProxyStyle::pixelMetric(metric, option, widget);
        switch (metric) {
        case PM_LayoutLeftMargin:
        case PM_LayoutTopMargin:
        case PM_LayoutRightMargin:
        case PM_LayoutBottomMargin:
        case PM_LayoutVerticalSpacing:
        case PM_ButtonMargin:
            return value * 2 + 1;
        default:
            return value;
        }
    }
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                           const QWidget* widget) const override {
        return QProxyStyle::sizeFromContents(type, option, size, widget) + QSize(9, 5);
    }
};

// A strip whose change handler can be called without the event's other effects.
class OpenStrip : public ZembraNavigationWidget {
public:
    using ZembraNavigationWidget::changeEvent;
    using ZembraNavigationWidget::ZembraNavigationWidget;
};

// A window with a strip above a view, as a host lays them out.
struct HostWindow {
    HostWindow() {
        auto* layout = new QVBoxLayout(&window);
        strip = new OpenStrip;
        view = new ZembraGraphicsView(&window);
        layout->addWidget(strip);
        layout->addWidget(view, 1);
        strip->setGraphicsView(view);
        window.setGeometry(200, 100, 400, 300);
    }
    NavigationChrome chrome() const { return NavigationChrome(*strip); }
    ZembraNavigationController* controller() const { return view->navigationController(); }
    [[nodiscard]] bool show() {
        window.show();
        return QTest::qWaitForWindowActive(&window);
    }

    QWidget window;
    OpenStrip* strip;
    ZembraGraphicsView* view;
};

// Counts the events of some types that one object receives.
class EventCounter : public QObject {
public:
    EventCounter(QObject* watched, QEvent::Type type) : type(type) {
        watched->installEventFilter(this);
    }
    bool eventFilter(QObject*, QEvent* event) override {
        count += event->type() == type;
        return false;
    }
    int count = 0;

private:
    QEvent::Type type;
};

// Sends a shortcut override as the platform does before a key press; tells whether it is accepted.
bool overridesShortcut(QWidget* widget, int key, Qt::KeyboardModifiers modifiers) {
    QKeyEvent event(QEvent::ShortcutOverride, key, modifiers);
    event.ignore();
    QCoreApplication::sendEvent(widget, &event);
    return event.isAccepted();
}

int shownRowCount(const NavigationChrome& chrome) {
    return static_cast<int>(chrome.popupTexts().size());
}

} // namespace

class ZembraNavigationWidgetTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { failOnAnyWarning(); }

    void metaObjectHoldsExactlyOneSignal() {
        const QMetaObject& meta = ZembraNavigationWidget::staticMetaObject;
        QCOMPARE(meta.className(), "zembra::ZembraNavigationWidget");
        QCOMPARE(meta.superClass(), &QWidget::staticMetaObject);
        QCOMPARE(metaObjectText(meta),
                 QStringList{QStringLiteral("signal coachDismissed(bool) dontShowAgain")});
    }

    void freshStripIsUnboundAndShowsOnlyItsButton() {
        const ZembraNavigationWidget strip;
        const NavigationChrome chrome(strip);
        QCOMPARE(strip.objectName(), QStringLiteral("zembraNavigationWidget"));
        QCOMPARE(strip.sizePolicy(), QSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed));
        QVERIFY(!strip.layout());
        QVERIFY(!strip.graphicsView());
        QVERIFY(!strip.navigationController());
        QVERIFY(!strip.isCoachMarkVisible());
        QCOMPARE(chrome.modeLabel()->parent(), &strip);
        QVERIFY(chrome.modeLabel()->isHidden());
        QCOMPARE(chrome.modeLabel()->text(), QStringLiteral("Box Zoom mode"));
        QCOMPARE(chrome.helpButton()->parent(), &strip);
        QCOMPARE(chrome.helpButton()->text(), QStringLiteral("?"));
        QCOMPARE(chrome.helpButton()->focusPolicy(), Qt::StrongFocus);
        QCOMPARE(chrome.helpButton()->accessibleName(), QStringLiteral("Chart controls"));
        QCOMPARE(chrome.helpButton()->toolTip(), QStringLiteral("Chart controls"));
    }

    void staticTextsAreThoseOfAPlainChart() {
        QCOMPARE(ZembraNavigationWidget::platformModifierText(), QStringLiteral("Alt"));
        const auto rows = ZembraNavigationWidget::controlRows();
        QCOMPARE(rows.size(), 6);
        QCOMPARE(rows.at(1).input, QStringLiteral("Left-button drag"));
        QCOMPARE(rows.at(1).description, QStringLiteral("Pan"));
    }

    void sizeHintCountsTheLabelOnlyWhileItIsShown() {
        ZembraNavigationController controller;
        ZembraNavigationWidget strip;
        const NavigationChrome chrome(strip);
        strip.setContentsMargins(3, 5, 7, 11);
        strip.setNavigationController(&controller);
        const QSize button = chrome.helpButton()->sizeHint();
        QCOMPARE(strip.sizeHint(), QSize(button.width() - 1 + 10, button.height() + 16));
        QCOMPARE(strip.minimumSizeHint(), strip.sizeHint());

        controller.setInteractionMode(InteractionMode::BoxZoom);
        const QSize label = chrome.modeLabel()->sizeHint();
        QCOMPARE(strip.sizeHint(), QSize(button.width() + label.width() + 10,
                                         qMax(button.height(), label.height()) + 16));
        QCOMPARE(strip.minimumSizeHint(), strip.sizeHint());
    }

    void minimumSizeHintIsTheSizeHintOfASubclass() {
        class Taller : public ZembraNavigationWidget {
        public:
            QSize sizeHint() const override { return {123, 45}; }
        };
        QCOMPARE(Taller().minimumSizeHint(), QSize(123, 45));
    }

    void childrenAreLaidOutByHand_data() {
        QTest::addColumn<QString>("style");
        QTest::addColumn<bool>("boxZoom");
        QTest::addColumn<Qt::LayoutDirection>("direction");
        for (const char* style : {"Fusion", "Windows", "Roomy"})
            for (bool boxZoom : {false, true})
                for (Qt::LayoutDirection direction : {Qt::LeftToRight, Qt::RightToLeft})
                    QTest::addRow("%s %s %s", style, boxZoom ? "box zoom" : "pan",
                                  direction == Qt::LeftToRight ? "left to right" : "right to left")
                        << QString::fromLatin1(style) << boxZoom << direction;
    }
    void childrenAreLaidOutByHand() {
        QFETCH(QString, style);
        QFETCH(bool, boxZoom);
        QFETCH(Qt::LayoutDirection, direction);
        const std::unique_ptr<QStyle> used(
            style == QStringLiteral("Roomy") ? new RoomyStyle : QStyleFactory::create(style));
        ZembraNavigationController controller;
        ZembraNavigationWidget strip;
        const NavigationChrome chrome(strip);
        for (QWidget* widget :
             {static_cast<QWidget*>(&strip), static_cast<QWidget*>(chrome.helpButton()),
              static_cast<QWidget*>(chrome.modeLabel())})
            widget->setStyle(used.get());
        strip.setLayoutDirection(direction);
        strip.setNavigationController(&controller);
        if (boxZoom)
            controller.setInteractionMode(InteractionMode::BoxZoom);
        const QSize button = chrome.helpButton()->sizeHint();
        const QSize label = chrome.modeLabel()->sizeHint();
        strip.show();
        for (const QMargins& margins :
             {QMargins(), QMargins(2, 4, 8, 16), QMargins(50, 0, 50, 0)}) {
            strip.setContentsMargins(margins);
            for (int width : {1, 5, 60, button.width() + label.width() + 10, 300}) {
                for (int height : {1, 10, button.height() + 20, button.height() + 21,
                                   button.height() + 22, 100}) {
                    // A step of its own, so that the last one is a resize in every case.
                    strip.resize(width + 1, height + 1);
                    strip.resize(width, height);
                    const QRect area = QRect(0, 0, width, height).marginsRemoved(margins);
                    if (area.width() < 0 || area.height() < 0) {
                        QVERIFY(chrome.helpButton()->size().isEmpty());
                        continue;
                    }
                    const auto top = [&](int h) {
                        const int spare = area.height() - h;
                        return spare < 2 ? area.y() : area.y() + spare / 2;
                    };
                    const int bw = qMin(area.width(), button.width());
                    const int bh = qMin(area.height(), button.height());
                    QCOMPARE(chrome.helpButton()->geometry(),
                             QRect(qMax(area.x() + area.width() - bw, area.x()), top(bh), bw, bh));
                    if (!boxZoom) {
                        QVERIFY(chrome.modeLabel()->isHidden());
                        continue;
                    }
                    const int lw = qMin(qMax(area.width() - bw, 0), label.width());
                    const int lh = qMin(area.height(), label.height());
                    QCOMPARE(chrome.modeLabel()->geometry(), QRect(area.x(), top(lh), lw, lh));
                }
            }
        }
    }

    void stripNarrowerThanItsButtonGivesItAllAndTheLabelNothing() {
        ZembraNavigationController controller;
        ZembraNavigationWidget strip;
        const NavigationChrome chrome(strip);
        strip.setNavigationController(&controller);
        controller.setInteractionMode(InteractionMode::BoxZoom);
        strip.resize(7, 30);
        strip.show();
        QCOMPARE(strip.width(), 7);
        QCOMPARE(chrome.helpButton()->width(), 7);
        QCOMPARE(chrome.helpButton()->x(), 0);
        QCOMPARE(chrome.modeLabel()->width(), 0);
    }

    void labelIsShownWhileBoxZoomIsOn() {
        HostWindow host;
        QVERIFY(host.show());
        const NavigationChrome chrome = host.chrome();
        const QSize before = host.strip->sizeHint();
        host.controller()->setInteractionMode(InteractionMode::BoxZoom);
        QVERIFY(chrome.modeLabel()->isVisible());
        QCOMPARE(chrome.modeLabel()->x(), 0);
        QCOMPARE(chrome.modeLabel()->size(), chrome.modeLabel()->sizeHint());
        QVERIFY(host.strip->sizeHint().width() > before.width());
        host.controller()->setInteractionMode(InteractionMode::Pan);
        QVERIFY(chrome.modeLabel()->isHidden());
        QCOMPARE(host.strip->sizeHint(), before);
    }

    void bindingAViewBindsItsController() {
        ZembraGraphicsView view;
        ZembraNavigationWidget strip;
        view.setInteractionMode(InteractionMode::BoxZoom);
        strip.setGraphicsView(&view);
        QCOMPARE(strip.graphicsView(), &view);
        QCOMPARE(strip.navigationController(), view.navigationController());
        QVERIFY(!NavigationChrome(strip).modeLabel()->isHidden());
        strip.setGraphicsView(nullptr);
        QVERIFY(!strip.graphicsView());
        QVERIFY(!strip.navigationController());
        QVERIFY(NavigationChrome(strip).modeLabel()->isHidden());
    }

    void bindingAControllerForgetsTheView() {
        auto view = std::make_unique<ZembraGraphicsView>();
        ZembraNavigationController controller;
        ZembraNavigationWidget strip;
        strip.setGraphicsView(view.get());
        strip.setNavigationController(&controller);
        QVERIFY(!strip.graphicsView());
        QCOMPARE(strip.navigationController(), &controller);
        // The end of the forgotten view is of no concern any more.
        view.reset();
        QCOMPARE(strip.navigationController(), &controller);
        strip.setNavigationController(nullptr);
        QVERIFY(!strip.navigationController());
    }

    void formerPartnersAreNotFollowed() {
        ZembraNavigationController former;
        ZembraNavigationController current;
        ZembraNavigationWidget strip;
        const NavigationChrome chrome(strip);
        strip.setNavigationController(&former);
        strip.setNavigationController(&current);
        former.setInteractionMode(InteractionMode::BoxZoom);
        former.setControlProfile(NavigationControlProfile::ControlPointEditing);
        QVERIFY(chrome.modeLabel()->isHidden());
        QCOMPARE(shownRowCount(chrome), 6);
        current.setInteractionMode(InteractionMode::BoxZoom);
        current.setControlProfile(NavigationControlProfile::ControlPointEditing);
        QVERIFY(!chrome.modeLabel()->isHidden());
        QCOMPARE(shownRowCount(chrome), 7);
    }

    void bindingTheSameViewTwiceIsHarmless() {
        auto view = std::make_unique<ZembraGraphicsView>();
        ZembraNavigationWidget strip;
        strip.setGraphicsView(view.get());
        strip.setGraphicsView(view.get());
        view->setInteractionMode(InteractionMode::BoxZoom);
        QVERIFY(!NavigationChrome(strip).modeLabel()->isHidden());
        view.reset();
        QVERIFY(!strip.graphicsView());
        QVERIFY(!strip.navigationController());
    }

    void deletingTheViewUnbindsBoth() {
        auto view = std::make_unique<ZembraGraphicsView>();
        ZembraNavigationWidget strip;
        const NavigationChrome chrome(strip);
        strip.setGraphicsView(view.get());
        view->setInteractionMode(InteractionMode::BoxZoom);
        view->navigationController()->setControlProfile(
            NavigationControlProfile::ControlPointEditing);
        QCOMPARE(shownRowCount(chrome), 7);
        view.reset();
        QVERIFY(!strip.graphicsView());
        QVERIFY(!strip.navigationController());
        QVERIFY(chrome.modeLabel()->isHidden());
        QCOMPARE(shownRowCount(chrome), 6);
    }

    void deletingTheControllerAloneKeepsTheView() {
        auto controller = std::make_unique<ZembraNavigationController>();
        ZembraGraphicsView view;
        ZembraNavigationWidget strip;
        const NavigationChrome chrome(strip);
        strip.setGraphicsView(&view);
        view.navigationController()->setControlProfile(
            NavigationControlProfile::ControlPointEditing);
        view.setInteractionMode(InteractionMode::BoxZoom);
        // Nothing but the view's own end destroys its controller; here somebody is rude. The view
        // itself is not used after this.
        delete view.navigationController();
        QCOMPARE(strip.graphicsView(), &view);
        QVERIFY(!strip.navigationController());
        QVERIFY(chrome.modeLabel()->isHidden());
        QCOMPARE(shownRowCount(chrome), 6);
    }

    void zoomKeysOnTheButtonReachTheController_data() {
        QTest::addColumn<int>("key");
        QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
        QTest::addColumn<QString>("expected");
        using Modifiers = Qt::KeyboardModifiers;
        const QString in = QStringLiteral("in");
        const QString out = QStringLiteral("out");
        const QString box = QStringLiteral("box");
        const QString none;
        QTest::newRow("Ctrl+=") << int(Qt::Key_Equal) << Modifiers(Qt::ControlModifier) << in;
        QTest::newRow("Ctrl++") << int(Qt::Key_Plus) << Modifiers(Qt::ControlModifier) << in;
        QTest::newRow("Ctrl+Shift++")
            << int(Qt::Key_Plus) << Modifiers(Qt::ControlModifier | Qt::ShiftModifier) << in;
        QTest::newRow("Ctrl+-") << int(Qt::Key_Minus) << Modifiers(Qt::ControlModifier) << out;
        QTest::newRow("Z") << int(Qt::Key_Z) << Modifiers(Qt::NoModifier) << box;
        QTest::newRow("Shift+Z") << int(Qt::Key_Z) << Modifiers(Qt::ShiftModifier) << none;
        QTest::newRow("Ctrl+Z") << int(Qt::Key_Z) << Modifiers(Qt::ControlModifier) << none;
        QTest::newRow("=") << int(Qt::Key_Equal) << Modifiers(Qt::NoModifier) << none;
        QTest::newRow("Ctrl+Alt+=")
            << int(Qt::Key_Equal) << Modifiers(Qt::ControlModifier | Qt::AltModifier) << none;
    }
    void zoomKeysOnTheButtonReachTheController() {
        QFETCH(int, key);
        QFETCH(Qt::KeyboardModifiers, modifiers);
        QFETCH(QString, expected);
        HostWindow host;
        // The actions of the view would answer too; a controller of its own tells more.
        ZembraNavigationController controller;
        host.strip->setNavigationController(&controller);
        // A shortcut of the window for the same key has to stand back.
        const QKeySequence sequence(QKeyCombination(modifiers, Qt::Key(key)));
        QShortcut rival(sequence, &host.window);
        QSignalSpy rivalActivated(&rival, &QShortcut::activated);
        QSignalSpy in(&controller, &ZembraNavigationController::zoomInRequested);
        QSignalSpy out(&controller, &ZembraNavigationController::zoomOutRequested);
        QSignalSpy reset(&controller, &ZembraNavigationController::resetViewToDataRequested);
        QVERIFY(host.show());
        QToolButton* button = host.chrome().helpButton();
        button->setFocus();
        QTRY_VERIFY(button->hasFocus());

        QCOMPARE(overridesShortcut(button, key, modifiers), !expected.isEmpty());
        QCOMPARE(in.count() + out.count(), 0);
        QCOMPARE(controller.interactionMode(), InteractionMode::Pan);
        QTest::keyClick(button, Qt::Key(key), modifiers);
        QCOMPARE(rivalActivated.count(), expected.isEmpty() ? 1 : 0);
        QCOMPARE(in.count(), expected == QStringLiteral("in") ? 1 : 0);
        QCOMPARE(out.count(), expected == QStringLiteral("out") ? 1 : 0);
        QCOMPARE(reset.count(), 0);
        QCOMPARE(controller.interactionMode(), expected == QStringLiteral("box")
                                                   ? InteractionMode::BoxZoom
                                                   : InteractionMode::Pan);
    }

    void withoutAControllerTheButtonLeavesTheZoomKeysAlone() {
        HostWindow host;
        host.strip->setGraphicsView(nullptr);
        QToolButton* button = host.chrome().helpButton();
        QVERIFY(!overridesShortcut(button, Qt::Key_Z, Qt::NoModifier));
        QVERIFY(!overridesShortcut(button, Qt::Key_Equal, Qt::ControlModifier));
    }

    void zoomKeysOnOtherWidgetsOfTheWindowAreNotTaken() {
        HostWindow host;
        QWidget other(&host.window);
        QVERIFY(!overridesShortcut(&other, Qt::Key_Z, Qt::NoModifier));
        QTest::keyClick(host.strip, Qt::Key_Z);
        QCOMPARE(host.view->interactionMode(), InteractionMode::Pan);
    }

    void popupFollowsItsWindow() {
        HostWindow host;
        QVERIFY(host.show());
        const NavigationChrome chrome = host.chrome();
        chrome.helpButton()->click();
        QVERIFY(chrome.popup()->isVisible());
        QCOMPARE(chrome.popup()->geometry(), chrome.expectedPopupRect());
        const QRect first = chrome.popup()->geometry();
        host.window.move(260, 130);
        QTRY_COMPARE(chrome.popup()->geometry(), chrome.expectedPopupRect());
        QVERIFY(chrome.popup()->geometry() != first);
        host.window.resize(500, 350);
        QTRY_COMPARE(chrome.popup()->geometry(), chrome.expectedPopupRect());
        host.window.layout()->setContentsMargins(30, 40, 50, 60);
        QTRY_COMPARE(host.strip->x(), 30);
        QTRY_COMPARE(chrome.popup()->geometry(), chrome.expectedPopupRect());
    }

    void burstOfMovesRepositionsOnce() {
        HostWindow host;
        QVERIFY(host.show());
        const NavigationChrome chrome = host.chrome();
        chrome.helpButton()->click();
        QCoreApplication::processEvents();
        EventCounter moves(chrome.popup(), QEvent::Move);
        QMoveEvent event({}, {});
        for (int i = 0; i < 10; ++i) {
            // The button moves by hand, so that each repositioning would be seen.
            chrome.helpButton()->move(chrome.helpButton()->x() - 3, chrome.helpButton()->y());
            QCoreApplication::sendEvent(&host.window, &event);
        }
        QCOMPARE(moves.count, 0);
        const QRect expected = chrome.expectedPopupRect();
        QTRY_COMPARE(chrome.popup()->geometry(), expected);
        QCoreApplication::processEvents();
        QCOMPARE(moves.count, 1);
    }

    void windowEventsRepositionAPopup_data() {
        QTest::addColumn<int>("type");
        QTest::addColumn<bool>("repositions");
        QTest::newRow("move") << int(QEvent::Move) << true;
        QTest::newRow("resize") << int(QEvent::Resize) << true;
        QTest::newRow("window state") << int(QEvent::WindowStateChange) << true;
        QTest::newRow("screen") << int(QEvent::ScreenChangeInternal) << true;
        QTest::newRow("activation") << int(QEvent::ActivationChange) << false;
    }
    void windowEventsRepositionAPopup() {
        QFETCH(int, type);
        QFETCH(bool, repositions);
        // Qt gives no name to the number of the screen's event in its documentation.
        QCOMPARE(int(QEvent::ScreenChangeInternal), 216);
        HostWindow host;
        QVERIFY(host.show());
        const NavigationChrome chrome = host.chrome();
        for (QFrame* floating : {chrome.popup(), chrome.coach()}) {
            if (floating == chrome.popup())
                chrome.helpButton()->click();
            else
                host.strip->showCoachMark();
            QTRY_VERIFY(floating->isVisible());
            QCoreApplication::processEvents();
            const QPoint place = floating->pos();
            for (QWidget* watched : {&host.window, static_cast<QWidget*>(host.strip)}) {
                floating->move(place + QPoint(5, 5));
                QCoreApplication::processEvents();
                QCOMPARE(floating->pos(), place + QPoint(5, 5));
                // Only the filters are to see the event.
                const std::unique_ptr<QEvent> event(
                    type == QEvent::Move     ? new QMoveEvent(QPoint(), QPoint())
                    : type == QEvent::Resize ? new QResizeEvent(watched->size(), watched->size())
                    : type == QEvent::WindowStateChange
                        ? new QWindowStateChangeEvent(watched->windowState())
                        : new QEvent(QEvent::Type(type)));
                QCoreApplication::sendEvent(watched, event.get());
                QCOMPARE(floating->pos(), place + QPoint(5, 5));
                QCoreApplication::processEvents();
                QCOMPARE(floating->pos(), repositions ? place : place + QPoint(5, 5));
            }
        }
    }

    void hidingTheStripHidesBothWindows() {
        HostWindow host;
        QVERIFY(host.show());
        const NavigationChrome chrome = host.chrome();
        QSignalSpy dismissed(host.strip, &ZembraNavigationWidget::coachDismissed);
        chrome.helpButton()->click();
        QVERIFY(chrome.popup()->isVisible());
        host.strip->hide();
        QVERIFY(!chrome.popup()->isVisible());
        host.strip->show();
        QCoreApplication::processEvents();
        QVERIFY(!chrome.popup()->isVisible());

        host.strip->showCoachMark();
        QVERIFY(host.strip->isCoachMarkVisible());
        host.window.hide();
        QVERIFY(!host.strip->isCoachMarkVisible());
        host.window.show();
        QCoreApplication::processEvents();
        // It does not come back by itself.
        QVERIFY(!host.strip->isCoachMarkVisible());
        QCOMPARE(dismissed.count(), 0);
    }

    void stripInAnotherWindowFollowsThatOne() {
        HostWindow host;
        QVERIFY(host.show());
        QWidget other;
        other.setGeometry(50, 40, 300, 200);
        auto* layout = new QVBoxLayout(&other);
        layout->addWidget(host.strip);
        layout->addStretch();
        other.show();
        QVERIFY(QTest::qWaitForWindowExposed(&other));
        const NavigationChrome chrome = host.chrome();
        chrome.helpButton()->click();
        QVERIFY(chrome.popup()->isVisible());
        QCoreApplication::processEvents();

        EventCounter moves(chrome.popup(), QEvent::Move);
        const QPoint place = chrome.popup()->pos();
        chrome.popup()->move(place + QPoint(5, 5));
        QMoveEvent event({}, {});
        QCoreApplication::sendEvent(&host.window, &event);
        QCoreApplication::processEvents();
        QCOMPARE(chrome.popup()->pos(), place + QPoint(5, 5));
        other.move(90, 70);
        QTRY_COMPARE(chrome.popup()->geometry(), chrome.expectedPopupRect());
        QVERIFY(chrome.popup()->pos() != place);
        host.strip->setParent(nullptr);
    }

    void stripThatWasAWindowStillFollowsItsOwnMoves() {
        QWidget window;
        window.setGeometry(200, 100, 400, 300);
        auto* strip = new ZembraNavigationWidget;
        strip->setGeometry(20, 20, 200, 40);
        strip->show();
        QVERIFY(QTest::qWaitForWindowExposed(strip));
        const NavigationChrome chrome(*strip);
        chrome.helpButton()->click();
        QCOMPARE(chrome.popup()->geometry(), chrome.expectedPopupRect());
        strip->move(150, 160);
        QTRY_COMPARE(chrome.popup()->geometry(), chrome.expectedPopupRect());

        strip->setParent(&window);
        strip->setGeometry(0, 0, 200, 40);
        strip->show();
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        strip->showCoachMark();
        QTRY_COMPARE(chrome.coach()->geometry(), chrome.expectedCoachRect());
        // Nothing that was queued is left to follow the next move by chance.
        QCoreApplication::processEvents();
        strip->move(60, 50);
        QTRY_COMPARE(chrome.coach()->geometry(), chrome.expectedCoachRect());
        delete strip;
    }

    void languageChangeTranslatesEveryText() {
        HostWindow host;
        QVERIFY(host.show());
        const NavigationChrome chrome = host.chrome();
        host.strip->showCoachMark();
        const auto widgetText = [](const char* text) {
            return ContextTranslator::widgetText(QString::fromUtf8(text));
        };
        const auto definitionText = [](const char* text) {
            return ContextTranslator::definitionText(QString::fromUtf8(text));
        };
        {
            ContextTranslator translator;
            QCoreApplication::installTranslator(&translator);
            QTRY_COMPARE(chrome.modeLabel()->text(), widgetText("Box Zoom mode"));
            const QString title = widgetText("Chart controls");
            QCOMPARE(chrome.helpButton()->text(), QStringLiteral("?"));
            QCOMPARE(chrome.helpButton()->accessibleName(), title);
            QCOMPARE(chrome.helpButton()->toolTip(), title);
            QCOMPARE(chrome.popup()->accessibleName(), title);
            QCOMPARE(chrome.popupTitle()->text(), title);
            QCOMPARE(chrome.coach()->windowTitle(), title);
            QCOMPARE(chrome.part<QLabel>(QStringLiteral("CoachTitle"))->text(), title);
            QCOMPARE(chrome.part<QLabel>(QStringLiteral("CoachIntroduction"))->text(),
                     widgetText("Charts are interactive. Use these controls to navigate:"));
            QCOMPARE(chrome.dontShowAgain()->text(), widgetText("Don't show again"));
            QCOMPARE(chrome.gotIt()->text(), widgetText("Got it"));
            QCOMPARE(chrome.pointer()->accessibleName(),
                     widgetText("Points to the Chart controls button above"));
            const QString wheel = QStringLiteral("D{D{Alt} + wheel}");
            const QString zoom = definitionText("Zoom in or out around the pointer");
            QCOMPARE(chrome.popupRow(0)->text(), QStringLiteral("W{%1: %2}").arg(wheel, zoom));
            QCOMPARE(chrome.coachInput(0)->text(), wheel);
            QCOMPARE(chrome.coachResult(0)->text(), zoom);
            QCOMPARE(chrome.popupRow(5)->text(),
                     QStringLiteral("W{D{Escape}: D{Leave Box Zoom and restore Pan mode}}"));
            QCOMPARE(host.controller()->navigationActions().at(3)->text(),
                     definitionText("Box Zoom Mode"));
            QCOMPARE(ZembraNavigationWidget::platformModifierText(), definitionText("Alt"));
            // The longer texts need more room at once.
            QTRY_COMPARE(chrome.coach()->geometry(), chrome.expectedCoachRect());
        }
        QTRY_COMPARE(chrome.modeLabel()->text(), QStringLiteral("Box Zoom mode"));
        QCOMPARE(chrome.popupRow(0)->text(),
                 QStringLiteral("Alt + wheel: Zoom in or out around the pointer"));
        QCOMPARE(host.controller()->navigationActions().at(3)->text(),
                 QStringLiteral("Box Zoom Mode"));
        QTRY_COMPARE(chrome.coach()->geometry(), chrome.expectedCoachRect());
    }

    void languageChangeOfTheStripReachesAControllerWithoutAParent() {
        ZembraNavigationController controller;
        ZembraNavigationWidget strip;
        strip.setNavigationController(&controller);
        ContextTranslator translator;
        // The strip is alone with the event, as it would be in a window that others translate.
        QCoreApplication::installTranslator(&translator);
        QEvent event(QEvent::LanguageChange);
        QCoreApplication::sendEvent(&strip, &event);
        QCOMPARE(controller.navigationActions().at(0)->text(), QStringLiteral("D{Zoom In}"));
        QCoreApplication::removeTranslator(&translator);
    }

    void pointerIsNamedByItsSideAlsoInAnotherLanguage() {
        HostWindow host;
        host.window.setGeometry(300, QGuiApplication::primaryScreen()->geometry().bottom() - 100,
                                300, 90);
        QVERIFY(host.show());
        const NavigationChrome chrome = host.chrome();
        host.strip->showCoachMark();
        QCOMPARE(chrome.pointer()->text(), QStringLiteral("▼"));
        // Hidden, so that nothing but the language change itself sets the name.
        host.strip->hideCoachMark();
        ContextTranslator translator;
        QCoreApplication::installTranslator(&translator);
        QTRY_COMPARE(chrome.pointer()->accessibleName(),
                     QStringLiteral("W{Points to the Chart controls button below}"));
        QCoreApplication::removeTranslator(&translator);
        QTRY_COMPARE(chrome.pointer()->accessibleName(),
                     QStringLiteral("Points to the Chart controls button below"));
    }

    void largerFontOfTheApplicationReachesStripAndWindows() {
        const QFont usual = QApplication::font();
        QFont large = usual;
        large.setPointSize(24);
        HostWindow host;
        QVERIFY(host.show());
        const NavigationChrome chrome = host.chrome();
        host.controller()->setInteractionMode(InteractionMode::BoxZoom);
        for (bool coach : {false, true}) {
            const QSize before = host.strip->sizeHint();
            if (coach)
                host.strip->showCoachMark();
            else
                chrome.helpButton()->click();
            const auto geometry = [&] {
                return coach ? chrome.coach()->geometry() : chrome.popup()->geometry();
            };
            const auto expected = [&] {
                return coach ? chrome.expectedCoachRect() : chrome.expectedPopupRect();
            };
            QTRY_COMPARE(geometry(), expected());
            const QSize usualSize = geometry().size();
            QApplication::setFont(large);
            QTRY_VERIFY(host.strip->sizeHint().height() > before.height());
            QTRY_COMPARE(chrome.modeLabel()->size(), chrome.modeLabel()->sizeHint());
            QTRY_COMPARE(geometry(), expected());
            QVERIFY(geometry().height() > usualSize.height());
            QApplication::setFont(usual);
            QTRY_COMPARE(host.strip->sizeHint(), before);
            QTRY_COMPARE(geometry(), expected());
            QTRY_COMPARE(geometry().size(), usualSize);
        }
    }

    void changesOfTheStripRepositionAtOnce_data() {
        QTest::addColumn<int>("type");
        QTest::addColumn<bool>("repositions");
        QTest::newRow("application font") << int(QEvent::ApplicationFontChange) << true;
        QTest::newRow("font") << int(QEvent::FontChange) << true;
        QTest::newRow("style") << int(QEvent::StyleChange) << true;
        QTest::newRow("direction") << int(QEvent::LayoutDirectionChange) << true;
        QTest::newRow("language") << int(QEvent::LanguageChange) << true;
        QTest::newRow("palette") << int(QEvent::PaletteChange) << false;
    }
    void changesOfTheStripRepositionAtOnce() {
        QFETCH(int, type);
        QFETCH(bool, repositions);
        HostWindow host;
        QVERIFY(host.show());
        const NavigationChrome chrome = host.chrome();
        chrome.helpButton()->click();
        const QPoint place = chrome.popup()->pos();
        const QRect buttonPlace = chrome.helpButton()->geometry();
        chrome.popup()->move(place + QPoint(5, 5));
        chrome.helpButton()->resize(3, 3);
        QEvent event{QEvent::Type(type)};
        host.strip->changeEvent(&event);
        QCOMPARE(chrome.helpButton()->geometry() == buttonPlace, repositions);
        QCOMPARE(chrome.popup()->pos() == place, repositions);
    }

    void rightToLeftKeepsTheButtonOnTheRight() {
        HostWindow host;
        host.window.setLayoutDirection(Qt::RightToLeft);
        QVERIFY(host.show());
        const NavigationChrome chrome = host.chrome();
        QCOMPARE(chrome.helpButton()->geometry().right(), host.strip->width() - 1);
        chrome.helpButton()->click();
        QTRY_COMPARE(chrome.popup()->geometry(), chrome.expectedPopupRect());
        QCOMPARE(chrome.popup()->geometry().right(), chrome.buttonRect().right());
    }

    void partnersMayGoWhileTheWindowsAreOpen() {
        for (bool coach : {false, true}) {
            HostWindow host;
            QVERIFY(host.show());
            if (coach)
                host.strip->showCoachMark();
            else
                host.chrome().helpButton()->click();
            delete host.view;
            QVERIFY(!host.strip->navigationController());
            QCoreApplication::processEvents();
            QMoveEvent event({}, {});
            QCoreApplication::sendEvent(&host.window, &event);
            delete host.strip;
            QCoreApplication::processEvents();
        }
    }

    void waitingWorkIsDroppedWithTheStrip() {
        HostWindow host;
        host.strip->showCoachMark();
        host.window.show();
        delete host.strip;
        QCoreApplication::processEvents();

        HostWindow second;
        QVERIFY(second.show());
        second.strip->showCoachMark();
        second.window.move(220, 140);
        delete second.strip;
        QCoreApplication::processEvents();
        // The window is not watched any more.
        second.window.move(200, 100);
        QCoreApplication::processEvents();
    }

    void partnersMayBeChildrenOfTheStrip() {
        auto* strip = new ZembraNavigationWidget;
        auto* view = new ZembraGraphicsView(strip);
        strip->setGraphicsView(view);
        view->setInteractionMode(InteractionMode::BoxZoom);
        delete strip;
        strip = new ZembraNavigationWidget;
        auto* controller = new ZembraNavigationController(strip);
        strip->setNavigationController(controller);
        controller->setInteractionMode(InteractionMode::BoxZoom);
        delete strip;
    }

    void stripMayBeAChildOfItsView() {
        auto* view = new ZembraGraphicsView;
        auto* strip = new ZembraNavigationWidget(view);
        strip->setGraphicsView(view);
        view->show();
        QVERIFY(QTest::qWaitForWindowExposed(view));
        strip->showCoachMark();
        delete view;
        QCoreApplication::processEvents();
    }

    void everythingMayBeDeletedInsideAnySignal_data() {
        QTest::addColumn<QString>("signal");
        QTest::addColumn<QString>("victim");
        for (const char* signal : {"dismissed by button", "dismissed by key", "zoom in", "mode",
                                   "mode before the strip", "profile", "view mode", "view signal"})
            for (const char* victim : {"strip", "view", "window", "controller of the strip"})
                QTest::addRow("%s in %s", victim, signal)
                    << QString::fromLatin1(signal) << QString::fromLatin1(victim);
    }
    void everythingMayBeDeletedInsideAnySignal() {
        QFETCH(QString, signal);
        QFETCH(QString, victim);
        auto* window = new QWidget;
        auto* strip = new ZembraNavigationWidget(window);
        auto* view = new ZembraGraphicsView(window);
        // A controller that its view does not own may be deleted without the view.
        auto* own = victim == QStringLiteral("controller of the strip")
                        ? new ZembraNavigationController(window)
                        : nullptr;
        const QPointer<ZembraNavigationController> controller =
            own ? own : view->navigationController();
        QObject* target = own;
        if (victim == QStringLiteral("strip"))
            target = strip;
        else if (victim == QStringLiteral("view"))
            target = view;
        else if (victim == QStringLiteral("window"))
            target = window;
        const QPointer<QObject> guard = target;
        const QPointer<QWidget> windowGuard = window;
        const QPointer<ZembraNavigationWidget> stripGuard = strip;
        int calls = 0;
        const auto kill = [&] {
            ++calls;
            delete guard.data();
        };
        const bool early = signal == QStringLiteral("mode before the strip");
        if (early)
            connect(controller, &ZembraNavigationController::interactionModeChanged, this, kill);
        if (own)
            strip->setNavigationController(own);
        else
            strip->setGraphicsView(view);
        window->resize(300, 200);
        strip->resize(300, 40);
        view->setGeometry(0, 50, 300, 150);
        window->show();
        QVERIFY(QTest::qWaitForWindowActive(window));
        const NavigationChrome chrome(*strip);

        if (signal.startsWith(QStringLiteral("dismissed"))) {
            connect(strip, &ZembraNavigationWidget::coachDismissed, this, kill);
            strip->showCoachMark();
            if (signal.endsWith(QStringLiteral("key")))
                QTest::keyClick(chrome.dontShowAgain(), Qt::Key_Escape);
            else
                chrome.gotIt()->click();
        } else if (signal == QStringLiteral("zoom in")) {
            connect(controller, &ZembraNavigationController::zoomInRequested, this, kill);
            QTest::keyClick(chrome.helpButton(), Qt::Key_Equal, Qt::ControlModifier);
        } else if (signal == QStringLiteral("profile")) {
            connect(controller, &ZembraNavigationController::controlProfileChanged, this, kill);
            chrome.helpButton()->click();
            controller->setControlProfile(NavigationControlProfile::ControlPointEditing);
        } else if (signal == QStringLiteral("view mode")) {
            connect(view, &ZembraGraphicsView::interactionModeChanged, this, kill);
            chrome.helpButton()->click();
            view->setInteractionMode(InteractionMode::BoxZoom);
        } else if (signal == QStringLiteral("view signal")) {
            connect(view, &ZembraGraphicsView::clicked, this, kill);
            QTest::mouseClick(window->windowHandle(), Qt::LeftButton, {},
                              view->geometry().center());
        } else {
            if (!early)
                connect(controller, &ZembraNavigationController::interactionModeChanged, this,
                        kill);
            strip->showCoachMark();
            QTest::keyClick(chrome.helpButton(), Qt::Key_Z);
        }
        QVERIFY(calls > 0);
        QVERIFY(!guard);
        QCoreApplication::processEvents();
        if (stripGuard) {
            QCOMPARE(stripGuard->navigationController(), controller.data());
            stripGuard->showCoachMark();
            NavigationChrome(*stripGuard).helpButton()->click();
            QCoreApplication::processEvents();
        }
        delete windowGuard.data();
        QCoreApplication::processEvents();
    }
};

int main(int argc, char** argv) {
    return runOnOneScreen<ZembraNavigationWidgetTest>(argc, argv);
}
#include "ZembraNavigationWidget_test.moc"
