// SPDX-License-Identifier: MIT
#include <ZembraGraphicsView.h>

#include "support/Input.h"
#include "support/ShownView.h"

#include <QGraphicsScene>
#include <QLineEdit>
#include <QShortcut>
#include <QVBoxLayout>

#include <functional>

namespace definitions = zembra::ZembraNavigationDefinitions;
using zembra::InteractionMode;
using zembra::ZembraGraphicsView;

namespace {

const QStringList zoomed{QStringLiteral("axis 2"), QStringLiteral("axis 0"),
                         QStringLiteral("updated")};
const QStringList clickedOnly{QStringLiteral("clicked")};

// Counts the events of one type that reach an object, before the object sees them.
class EventCounter : public QObject {
public:
    EventCounter(QObject* watched, QEvent::Type type) : type(type) {
        watched->installEventFilter(this);
    }
    bool eventFilter(QObject*, QEvent* event) override {
        count += event->type() == type;
        return false;
    }
    QEvent::Type type;
    int count = 0;
};

// A widget that notes which events come up from its children.
class Parent : public QWidget {
public:
    using QWidget::QWidget;
    int wheels = 0;
    int keys = 0;

protected:
    void wheelEvent(QWheelEvent* event) override {
        ++wheels;
        event->accept();
    }
    void keyPressEvent(QKeyEvent* event) override {
        ++keys;
        event->accept();
    }
};

// A view in an active window, beside a text field and below whatever shortcuts a test adds.
struct ActiveWindow {
    ActiveWindow() {
        auto* layout = new QVBoxLayout(&window);
        layout->addWidget(&view);
        layout->addWidget(&field);
        view.setPlot(plot);
        window.resize(500, 400);
        window.show();
        window.activateWindow();
        isActive = QTest::qWaitForWindowActive(&window);
        view.grab();
        view.setFocus();
    }

    std::shared_ptr<zembra::Plot> plot = makePlot();
    Parent window;
    ZembraGraphicsView view{&window};
    QLineEdit field{&window};
    SignalLog log{view};
    bool isActive = false;
};

} // namespace

Q_DECLARE_METATYPE(std::function<void(ShownView&)>)

class ZembraGraphicsViewInputTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { failOnAnyWarning(); }

    // Pan drags.

    void clickInPanModeIsAnnouncedAndChangesNothing() {
        ShownView shown;
        const auto x = shown.range(2);
        QCOMPARE(shown.cursor(), Qt::ArrowCursor);
        QVERIFY(input::press(shown.view, shown.center()));
        QCOMPARE(shown.cursor(), Qt::ClosedHandCursor);
        QVERIFY(input::release(shown.view, shown.center()));
        QCOMPARE(shown.cursor(), Qt::ArrowCursor);
        QCOMPARE(shown.log.take(), clickedOnly);
        QCOMPARE(shown.range(2), x);
    }

    void dragPansByTheStepSinceThePreviousMove() {
        ShownView shown;
        const QPointF start = shown.center();
        const double x = shown.valueAt(2, start.x());
        const double y = shown.valueAt(0, start.y());
        input::press(shown.view, start);
        shown.log.take();
        QPointF point = start;
        for (const QPointF step : {QPointF(10, 0), QPointF(-3, 7), QPointF(40, -60)}) {
            point += step;
            QVERIFY(input::move(shown.view, point));
            QVERIFY(std::abs(shown.valueAt(2, point.x()) - x) < 1e-9);
            QVERIFY(std::abs(shown.valueAt(0, point.y()) - y) < 1e-9);
        }
        QCOMPARE(
            shown.log.take(),
            (QStringList{QStringLiteral("axis 2"), QStringLiteral("updated")} + zoomed + zoomed));
        // Moves come with or without the button: the release ends the drag.
        input::release(shown.view, point);
        input::move(shown.view, point + QPointF(20, 20));
        QCOMPARE(shown.log.take(), QStringList());
    }

    void dragAcrossAxesThatAreNotShownAnnouncesNothing() {
        ShownView shown;
        shown.plot->setAxisEnabled(0, false);
        shown.plot->setAxisEnabled(2, false);
        input::press(shown.view, shown.center());
        shown.log.take();
        QVERIFY(input::move(shown.view, shown.center() + QPointF(30, 30)));
        QCOMPARE(shown.log.take(), QStringList());
    }

    void panMayStartOutsideTheCanvas() {
        ShownView shown;
        QVERIFY(!shown.canvas().contains(QPointF(1, 1)));
        input::press(shown.view, QPointF(1, 1));
        QCOMPARE(shown.cursor(), Qt::ClosedHandCursor);
        input::move(shown.view, QPointF(11, 1));
        QCOMPARE(shown.log.take(), (QStringList{QStringLiteral("clicked"), QStringLiteral("axis 2"),
                                                QStringLiteral("updated")}));
    }

    void panModifierGuardsTheStartOfAPan_data() {
        QTest::addColumn<Qt::KeyboardModifiers>("held");
        QTest::addColumn<bool>("pans");
        QTest::newRow("nothing held") << Qt::KeyboardModifiers() << false;
        QTest::newRow("another held") << Qt::KeyboardModifiers(Qt::ControlModifier) << false;
        QTest::newRow("held") << Qt::KeyboardModifiers(Qt::ShiftModifier) << true;
        QTest::newRow("held with another") << (Qt::ShiftModifier | Qt::AltModifier) << true;
    }
    void panModifierGuardsTheStartOfAPan() {
        QFETCH(Qt::KeyboardModifiers, held);
        QFETCH(bool, pans);
        ShownView shown;
        shown.view.setPanModifier(Qt::ShiftModifier);
        shown.view.clearFocus();
        QVERIFY(input::press(shown.view, shown.center(), held));
        QCOMPARE(shown.cursor(), pans ? Qt::ClosedHandCursor : Qt::ArrowCursor);
        QCOMPARE(shown.log.take(), clickedOnly);
        input::move(shown.view, shown.center() + QPointF(10, 0), held);
        QCOMPARE(!shown.log.take().isEmpty(), pans);
    }

    void positionsAreRoundedWithHalvesAwayFromZero() {
        ShownView shown;
        shown.view.setInteractionMode(InteractionMode::BoxZoom);
        const QPoint corner = shown.center().toPoint();
        input::press(shown.view, corner + QPointF(0.5, -0.5));
        input::move(shown.view, corner + QPointF(50.4, 50.49));
        QCOMPARE(shown.band()->geometry(), QRect(corner + QPoint(1, 0), corner + QPoint(50, 50)));
        // A pan from above and left of the viewport begins at -3, not at -2.
        shown.view.setInteractionMode(InteractionMode::Pan);
        input::press(shown.view, QPointF(-2.5, 100));
        const double value = shown.valueAt(2, -3.0);
        input::move(shown.view, QPointF(7.0, 100));
        QVERIFY(std::abs(shown.valueAt(2, 7.0) - value) < 1e-9);
    }

    // Box drags.

    void boxDragZoomsToTheBoxAndReturnsToPan() {
        ShownView shown;
        shown.view.setInteractionMode(InteractionMode::BoxZoom);
        QCOMPARE(shown.cursor(), Qt::CrossCursor);
        shown.log.take();
        const QPoint from = shown.canvas().topLeft().toPoint() + QPoint(40, 30);
        const QPoint to = from + QPoint(200, 120);
        const double left = shown.valueAt(2, from.x());
        const double top = shown.valueAt(0, from.y());

        QVERIFY(input::press(shown.view, from));
        QVERIFY(shown.isSelecting());
        QCOMPARE(shown.cursor(), Qt::CrossCursor);
        QVERIFY(input::move(shown.view, to));
        QCOMPARE(shown.band()->geometry(), QRect(from, to));
        QVERIFY(input::release(shown.view, to));
        QVERIFY(!shown.isSelecting());
        QCOMPARE(shown.log.take(), clickedOnly + zoomed + QStringList{QStringLiteral("mode 0")});
        QCOMPARE(shown.view.interactionMode(), InteractionMode::Pan);
        QCOMPARE(shown.cursor(), Qt::ArrowCursor);
        QVERIFY(!shown.view.navigationActions().at(3)->isChecked());
        QVERIFY(std::abs(shown.first(2) - left) < 1e-9);
        QVERIFY(std::abs(shown.second(0) - top) < 1e-9);
    }

    void boxMayBeDrawnInEveryDirection_data() {
        QTest::addColumn<QPoint>("direction");
        QTest::newRow("right down") << QPoint(1, 1);
        QTest::newRow("left down") << QPoint(-1, 1);
        QTest::newRow("right up") << QPoint(1, -1);
        QTest::newRow("left up") << QPoint(-1, -1);
    }
    void boxMayBeDrawnInEveryDirection() {
        QFETCH(QPoint, direction);
        ShownView shown;
        shown.view.setInteractionMode(InteractionMode::BoxZoom);
        const QPoint from = shown.center().toPoint();
        const QPoint to = from + QPoint(direction.x() * 60, direction.y() * 40);
        const QRect box = QRect(QPoint(std::min(from.x(), to.x()), std::min(from.y(), to.y())),
                                QPoint(std::max(from.x(), to.x()), std::max(from.y(), to.y())));
        const double left = shown.valueAt(2, box.left());
        const double right = shown.valueAt(2, box.right());
        input::press(shown.view, from);
        input::move(shown.view, to);
        QCOMPARE(shown.band()->geometry(), box);
        input::release(shown.view, to);
        QVERIFY(std::abs(shown.first(2) - left) < 1e-9);
        QVERIFY(std::abs(shown.second(2) - right) < 1e-9);
    }

    void boxStartsInsideTheCanvasOnly() {
        ShownView shown;
        shown.view.setInteractionMode(InteractionMode::BoxZoom);
        shown.log.take();
        QVERIFY(input::press(shown.view, QPointF(1, 1)));
        QVERIFY(!shown.isSelecting());
        QCOMPARE(shown.cursor(), Qt::CrossCursor);
        input::move(shown.view, shown.center());
        input::release(shown.view, shown.center());
        QCOMPARE(shown.log.take(), clickedOnly);
        QCOMPARE(shown.view.interactionMode(), InteractionMode::BoxZoom);
    }

    void boxWithoutAPlotStartsNothing() {
        ShownView shown(nullptr);
        shown.view.setInteractionMode(InteractionMode::BoxZoom);
        shown.log.take();
        QVERIFY(input::press(shown.view, QPointF(100, 100)));
        QVERIFY(!shown.isSelecting());
        QCOMPARE(shown.log.take(), clickedOnly);
    }

    void boxIsClippedToTheCanvas() {
        ShownView shown;
        shown.view.setInteractionMode(InteractionMode::BoxZoom);
        const QPointF start = shown.center();
        input::press(shown.view, start);
        input::move(shown.view, QPointF(5000, 5000));
        const QRect band = shown.band()->geometry();
        QCOMPARE(band,
                 QRect(start.toPoint(), shown.view.mapFromScene(shown.canvas().bottomRight())));
        input::move(shown.view, QPointF(-5000, -5000));
        QCOMPARE(shown.band()->geometry(),
                 QRect(shown.view.mapFromScene(shown.canvas().topLeft()), start.toPoint()));
    }

    void boxOfFewerThanFourPixelsIsAClick_data() {
        QTest::addColumn<QPoint>("span");
        QTest::addColumn<bool>("zooms");
        QTest::newRow("no movement") << QPoint(0, 0) << false;
        QTest::newRow("3 by 3") << QPoint(3, 3) << false;
        QTest::newRow("3 by 100") << QPoint(3, 100) << false;
        QTest::newRow("100 by 3") << QPoint(100, 3) << false;
        QTest::newRow("3 by 100 to the left") << QPoint(-3, 100) << false;
        QTest::newRow("4 by 4") << QPoint(4, 4) << true;
        QTest::newRow("4 by 4 to the left and up") << QPoint(-4, -4) << true;
    }
    void boxOfFewerThanFourPixelsIsAClick() {
        QFETCH(QPoint, span);
        QFETCH(bool, zooms);
        ShownView shown;
        shown.view.setInteractionMode(InteractionMode::BoxZoom);
        shown.log.take();
        input::press(shown.view, shown.center());
        QVERIFY(input::release(shown.view, shown.center() + span));
        QVERIFY(!shown.isSelecting());
        if (zooms) {
            QCOMPARE(shown.log.take(),
                     clickedOnly + zoomed + QStringList{QStringLiteral("mode 0")});
        } else {
            QCOMPARE(shown.log.take(), clickedOnly);
            QCOMPARE(shown.view.interactionMode(), InteractionMode::BoxZoom);
            QCOMPARE(shown.cursor(), Qt::CrossCursor);
        }
    }

    void boxThatZoomsNothingKeepsTheMode() {
        ShownView shown;
        shown.plot->setAxisEnabled(0, false);
        shown.plot->setAxisEnabled(2, false);
        shown.settle();
        shown.view.setInteractionMode(InteractionMode::BoxZoom);
        shown.log.take();
        input::press(shown.view, shown.center());
        input::release(shown.view, shown.center() + QPointF(60, 60));
        QCOMPARE(shown.log.take(), clickedOnly);
        QCOMPARE(shown.view.interactionMode(), InteractionMode::BoxZoom);
    }

    // What ends a drag.

    void everyEndOfADragLeavesTheMode_data() {
        QTest::addColumn<InteractionMode>("mode");
        QTest::addColumn<std::function<void(ShownView&)>>("end");
        using Shown = std::function<void(ShownView&)>;
        const QList<QPair<const char*, Shown>> ends{
            {"focus lost",
             [](ShownView& shown) {
                 QFocusEvent event(QEvent::FocusOut);
                 QCoreApplication::sendEvent(&shown.view, &event);
             }},
            {"another plot", [](ShownView& shown) { shown.view.setPlot(makePlot()); }},
            {"another viewport", [](ShownView& shown) { shown.view.setViewport(new QWidget); }},
            {"the same mode",
             [](ShownView& shown) { shown.view.setInteractionMode(shown.view.interactionMode()); }},
        };
        for (const InteractionMode mode : {InteractionMode::Pan, InteractionMode::BoxZoom})
            for (const auto& [name, end] : ends)
                QTest::addRow("%s in mode %d", name, static_cast<int>(mode)) << mode << end;
    }
    void everyEndOfADragLeavesTheMode() {
        QFETCH(InteractionMode, mode);
        QFETCH(std::function<void(ShownView&)>, end);
        ShownView shown;
        shown.view.setInteractionMode(mode);
        input::press(shown.view, shown.center());
        input::move(shown.view, shown.center() + QPointF(10, 10));
        shown.log.take();
        end(shown);
        QVERIFY(!shown.isSelecting());
        QCOMPARE(shown.cursor(), mode == InteractionMode::Pan ? Qt::ArrowCursor : Qt::CrossCursor);
        QCOMPARE(shown.view.interactionMode(), mode);
        input::move(shown.view, shown.center() + QPointF(50, 50));
        input::release(shown.view, shown.center() + QPointF(50, 50));
        QCOMPARE(shown.log.take(), QStringList());
    }

    void changeOfTheModeEndsADragWhoeverMakesIt() {
        for (const InteractionMode mode : {InteractionMode::Pan, InteractionMode::BoxZoom}) {
            ShownView shown;
            shown.view.setInteractionMode(mode);
            input::press(shown.view, shown.center());
            shown.log.take();
            shown.view.navigationActions().at(3)->trigger();
            QCOMPARE(shown.log.take(),
                     QStringList{QStringLiteral("mode %1").arg(1 - static_cast<int>(mode))});
            QVERIFY(!shown.isSelecting());
            input::release(shown.view, shown.center() + QPointF(50, 50));
            QCOMPARE(shown.log.take(), QStringList());
        }
    }

    void modeIsAnnouncedOnlyWhenItChanges() {
        ShownView shown;
        shown.view.setInteractionMode(InteractionMode::Pan);
        QCOMPARE(shown.log.take(), QStringList());
        shown.view.setInteractionMode(InteractionMode::BoxZoom);
        shown.view.setInteractionMode(InteractionMode::BoxZoom);
        QCOMPARE(shown.log.take(), QStringList{QStringLiteral("mode 1")});
    }

    // Other buttons and clicks.

    void otherButtonsAreLeftToTheSceneAndToAPanUnderWay() {
        ShownView shown;
        EventCounter scene(shown.view.scene(), QEvent::GraphicsSceneMousePress);
        input::press(shown.view, shown.center(), Qt::NoModifier, Qt::RightButton);
        QCOMPARE(scene.count, 1);
        QCOMPARE(shown.log.take(), QStringList());
        QCOMPARE(shown.cursor(), Qt::ArrowCursor);
        input::release(shown.view, shown.center(), Qt::NoModifier, Qt::RightButton);

        input::press(shown.view, shown.center());
        QCOMPARE(scene.count, 1);
        input::release(shown.view, shown.center(), Qt::NoModifier, Qt::MiddleButton);
        QCOMPARE(shown.cursor(), Qt::ClosedHandCursor);
        input::doubleClick(shown.view, shown.center(), Qt::RightButton);
        QCOMPARE(shown.log.take(), clickedOnly);
    }

    void pressTakesTheFocus() {
        ActiveWindow active;
        QVERIFY(active.isActive);
        active.field.setFocus();
        QVERIFY(active.field.hasFocus());
        // Also where the press starts nothing.
        active.view.setPanModifier(Qt::ShiftModifier);
        input::press(active.view, QPointF(5, 5));
        QVERIFY(active.view.hasFocus());
        QVERIFY(!active.field.hasFocus());
    }

    void doubleClickResetsTheAxes() {
        ShownView shown;
        QVERIFY(input::doubleClick(shown.view, shown.center()));
        QCOMPARE(shown.log.take(),
                 (QStringList{QStringLiteral("updated"), QStringLiteral("reset")}));
        QVERIFY(shown.plot->axis(0).isAutoScale() && shown.plot->axis(2).isAutoScale());
    }

    void wholeDoubleClickIsAClickAndAReset() {
        ShownView shown;
        input::press(shown.view, shown.center());
        input::release(shown.view, shown.center());
        input::doubleClick(shown.view, shown.center());
        input::release(shown.view, shown.center());
        QCOMPARE(shown.log.take(),
                 (QStringList{QStringLiteral("clicked"), QStringLiteral("updated"),
                              QStringLiteral("reset")}));
        QCOMPARE(shown.cursor(), Qt::ArrowCursor);
    }

    void doubleClickWithoutAPlotIsAcceptedAndAnnouncesNothing() {
        ShownView shown(nullptr);
        QVERIFY(input::doubleClick(shown.view, QPointF(50, 50)));
        QCOMPARE(shown.log.take(), QStringList());
    }

    // The wheel.

    void wheelZoomsOneStepAboutThePointer_data() {
        QTest::addColumn<QPoint>("delta");
        QTest::addColumn<double>("factor");
        QTest::newRow("one notch up") << QPoint(0, 120) << definitions::zoomInFactor();
        QTest::newRow("one notch down") << QPoint(0, -120) << definitions::zoomOutFactor();
        QTest::newRow("a touch") << QPoint(0, 1) << definitions::zoomInFactor();
        QTest::newRow("ten notches") << QPoint(0, 1200) << definitions::zoomInFactor();
        QTest::newRow("sideways, as with Alt") << QPoint(120, 0) << definitions::zoomInFactor();
        QTest::newRow("vertical counts") << QPoint(120, -1) << definitions::zoomOutFactor();
    }
    void wheelZoomsOneStepAboutThePointer() {
        QFETCH(QPoint, delta);
        QFETCH(double, factor);
        ShownView shown;
        const QPointF point = shown.canvas().topLeft().toPoint() + QPointF(77, 55);
        const double x = shown.valueAt(2, point.x());
        const double y = shown.valueAt(0, point.y());
        QVERIFY(input::wheel(shown.view, point, delta));
        QCOMPARE(shown.log.take(), zoomed);
        QVERIFY(std::abs(shown.second(2) - shown.first(2) - 10.0 * factor) < 1e-9);
        QVERIFY(std::abs(shown.valueAt(2, point.x()) - x) < 1e-9);
        QVERIFY(std::abs(shown.valueAt(0, point.y()) - y) < 1e-9);
    }

    void wheelWithMoreModifiersZoomsToo() {
        ShownView shown;
        QVERIFY(input::wheel(shown.view, shown.center(), QPoint(0, 120),
                             Qt::AltModifier | Qt::ShiftModifier));
    }

    void wheelThatCannotZoomGoesToTheParent_data() {
        QTest::addColumn<QString>("reason");
        for (const char* reason : {"zooms", "disabled", "no modifier", "other modifier", "no plot",
                                   "no delta", "no axes"})
            QTest::newRow(reason) << QString::fromLatin1(reason);
    }
    void wheelThatCannotZoomGoesToTheParent() {
        QFETCH(QString, reason);
        ActiveWindow active;
        Qt::KeyboardModifiers modifiers = Qt::AltModifier;
        QPoint delta(0, 120);
        if (reason == QLatin1String("disabled"))
            active.view.setWheelZoomEnabled(false);
        if (reason == QLatin1String("no modifier"))
            modifiers = Qt::NoModifier;
        if (reason == QLatin1String("other modifier"))
            modifiers = Qt::ControlModifier;
        if (reason == QLatin1String("no plot"))
            active.view.setPlot(nullptr);
        if (reason == QLatin1String("no delta"))
            delta = QPoint();
        if (reason == QLatin1String("no axes")) {
            active.plot->setAxisEnabled(0, false);
            active.plot->setAxisEnabled(2, false);
        }
        const bool zooms = reason == QLatin1String("zooms");
        const QTransform before = active.view.viewportTransform();
        QCOMPARE(input::wheel(active.view, QPointF(100, 100), delta, modifiers), zooms);
        QCOMPARE(active.window.wheels, 0);
        active.log.take();
        input::wheelThroughParents(active.view, QPointF(100, 100), delta, modifiers);
        QCOMPARE(active.window.wheels, zooms ? 0 : 1);
        QCOMPARE(active.log.take(), zooms ? ::zoomed : QStringList());
        QCOMPARE(active.view.viewportTransform(), before);
    }

    // Keys.

    void zoomKeysPressedOnViewOrViewportZoom_data() {
        QTest::addColumn<int>("key");
        QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
        QTest::addColumn<double>("factor");
        const Qt::KeyboardModifiers ctrl = Qt::ControlModifier;
        QTest::newRow("Ctrl++") << int(Qt::Key_Plus) << ctrl << 0.8;
        QTest::newRow("Ctrl+=") << int(Qt::Key_Equal) << ctrl << 0.8;
        QTest::newRow("Ctrl+Shift++") << int(Qt::Key_Plus) << (ctrl | Qt::ShiftModifier) << 0.8;
        QTest::newRow("Ctrl+keypad plus")
            << int(Qt::Key_Plus) << (ctrl | Qt::KeypadModifier) << 0.8;
        QTest::newRow("Ctrl+-") << int(Qt::Key_Minus) << ctrl << 1.25;
    }
    void zoomKeysPressedOnViewOrViewportZoom() {
        QFETCH(int, key);
        QFETCH(Qt::KeyboardModifiers, modifiers);
        QFETCH(double, factor);
        ShownView shown;
        for (QWidget* receiver : {static_cast<QWidget*>(&shown.view), shown.view.viewport()}) {
            const double span = shown.second(2) - shown.first(2);
            QVERIFY(input::key(*receiver, QEvent::ShortcutOverride, key, modifiers));
            QCOMPARE(shown.log.take(), QStringList());
            QVERIFY(input::key(*receiver, QEvent::KeyPress, key, modifiers));
            QCOMPARE(shown.log.take(), zoomed);
            QVERIFY(std::abs(shown.second(2) - shown.first(2) - span * factor) < 1e-9);
        }
    }

    void disabledZoomActionStillTakesItsKey() {
        ShownView shown;
        shown.view.navigationActions().at(0)->setEnabled(false);
        QVERIFY(input::key(shown.view, QEvent::KeyPress, Qt::Key_Plus, Qt::ControlModifier));
        QCOMPARE(shown.log.take(), QStringList());
    }

    void leaveKeyLeavesBoxZoomAndIsOtherwiseNotTaken() {
        ShownView shown;
        for (QWidget* receiver : {static_cast<QWidget*>(&shown.view), shown.view.viewport()}) {
            QVERIFY(!input::key(*receiver, QEvent::ShortcutOverride, Qt::Key_Escape));
            QVERIFY(!input::key(*receiver, QEvent::KeyPress, Qt::Key_Escape));

            shown.view.setInteractionMode(InteractionMode::BoxZoom);
            input::press(shown.view, shown.center());
            QVERIFY(shown.isSelecting());
            shown.log.take();
            QVERIFY(input::key(*receiver, QEvent::ShortcutOverride, Qt::Key_Escape));
            QCOMPARE(shown.view.interactionMode(), InteractionMode::BoxZoom);
            QVERIFY(input::key(*receiver, QEvent::KeyPress, Qt::Key_Escape));
            QCOMPARE(shown.log.take(), QStringList{QStringLiteral("mode 0")});
            QVERIFY(!shown.isSelecting());
            QCOMPARE(shown.cursor(), Qt::ArrowCursor);
        }
    }

    void otherKeysAreNotTaken() {
        ShownView shown;
        shown.view.setInteractionMode(InteractionMode::BoxZoom);
        shown.log.take();
        for (QWidget* receiver : {static_cast<QWidget*>(&shown.view), shown.view.viewport()})
            for (const int key : {int(Qt::Key_A), int(Qt::Key_Equal), int(Qt::Key_Minus)}) {
                QVERIFY(!input::key(*receiver, QEvent::ShortcutOverride, key));
                QVERIFY(!input::key(*receiver, QEvent::KeyPress, key));
            }
        QCOMPARE(shown.log.take(), QStringList());
    }

    void filterActsOnTheCurrentViewportOnly() {
        ShownView shown;
        shown.view.setInteractionMode(InteractionMode::BoxZoom);
        QWidget other;
        other.installEventFilter(&shown.view);
        shown.log.take();
        QVERIFY(!input::key(other, QEvent::ShortcutOverride, Qt::Key_Escape));
        QVERIFY(!input::key(other, QEvent::KeyPress, Qt::Key_Escape));
        QVERIFY(!input::key(other, QEvent::KeyPress, Qt::Key_Plus, Qt::ControlModifier));
        QCOMPARE(shown.log.take(), QStringList());
        // Key releases are nobody's.
        QVERIFY(!input::key(*shown.view.viewport(), QEvent::KeyRelease, Qt::Key_Escape));
        QCOMPARE(shown.log.take(), QStringList());
    }

    void keysWorkWhereverTheFocusIs_data() {
        QTest::addColumn<bool>("replaced");
        QTest::addColumn<bool>("onViewport");
        QTest::newRow("view") << false << false;
        QTest::newRow("viewport") << false << true;
        QTest::newRow("view with another viewport") << true << false;
        QTest::newRow("another viewport") << true << true;
    }
    void keysWorkWhereverTheFocusIs() {
        QFETCH(bool, replaced);
        QFETCH(bool, onViewport);
        ActiveWindow active;
        QVERIFY(active.isActive);
        // The window wants all the same keys.
        int stolen = 0;
        for (const QKeySequence& keys : definitions::zoomInShortcuts() +
                                            definitions::zoomOutShortcuts() +
                                            QList<QKeySequence>{QKeySequence(Qt::Key_Escape)}) {
            auto* shortcut = new QShortcut(keys, &active.window);
            connect(shortcut, &QShortcut::activated, this, [&] { ++stolen; });
            connect(shortcut, &QShortcut::activatedAmbiguously, this, [&] { ++stolen; });
        }
        if (replaced)
            active.view.setViewport(new QWidget);
        QWidget* receiver = &active.view;
        if (onViewport) {
            receiver = active.view.viewport();
            receiver->setFocusProxy(nullptr);
            receiver->setFocusPolicy(Qt::StrongFocus);
            receiver->setFocus();
        }
        QCOMPARE(QApplication::focusWidget(), receiver);

        QTest::keyClick(receiver, Qt::Key_Plus, Qt::ControlModifier);
        QCOMPARE(active.log.take(), zoomed);
        QTest::keyClick(receiver, Qt::Key_Equal, Qt::ControlModifier);
        QCOMPARE(active.log.take(), zoomed);
        QTest::keyClick(receiver, Qt::Key_Minus, Qt::ControlModifier);
        QCOMPARE(active.log.take(), zoomed);
        QTest::keyClick(receiver, Qt::Key_Z);
        QCOMPARE(active.log.take(), QStringList{QStringLiteral("mode 1")});
        QTest::keyClick(receiver, Qt::Key_Escape);
        QCOMPARE(active.log.take(), QStringList{QStringLiteral("mode 0")});
        QCOMPARE(stolen, 0);
        // In pan mode Escape is the window's.
        QTest::keyClick(receiver, Qt::Key_Escape);
        QCOMPARE(stolen, 1);
        QCOMPARE(active.log.take(), QStringList());
    }

    void keysOfAnotherWidgetAreItsOwn() {
        ActiveWindow active;
        QVERIFY(active.isActive);
        active.field.setFocus();
        QTest::keyClick(&active.field, Qt::Key_Z);
        QTest::keyClick(&active.field, Qt::Key_Plus, Qt::ControlModifier);
        QCOMPARE(active.field.text(), QStringLiteral("z"));
        QCOMPARE(active.log.take(), QStringList());
        QCOMPARE(active.view.interactionMode(), InteractionMode::Pan);
    }

    void shortcutsOfTwoViewsInAWindowAreNotAmbiguous() {
        ActiveWindow active;
        QVERIFY(active.isActive);
        ZembraGraphicsView other(&active.window);
        active.window.layout()->addWidget(&other);
        other.show();
        SignalLog otherLog(other);
        QTest::keyClick(&active.view, Qt::Key_Z);
        QCOMPARE(active.log.take(), QStringList{QStringLiteral("mode 1")});
        QCOMPARE(otherLog.take(), QStringList());
        other.setFocus();
        QTest::keyClick(&other, Qt::Key_Z);
        QCOMPARE(otherLog.take(), QStringList{QStringLiteral("mode 1")});
        QCOMPARE(active.log.take(), QStringList());
    }

    // Repaints.

    void everyGestureRepaintsOnce_data() {
        QTest::addColumn<std::function<void(ShownView&)>>("gesture");
        using Gesture = std::function<void(ShownView&)>;
        const auto row = [](const char* name, const Gesture& gesture) {
            QTest::newRow(name) << gesture;
        };
        row("wheel",
            [](ShownView& shown) { input::wheel(shown.view, shown.center(), QPoint(0, 120)); });
        row("key", [](ShownView& shown) {
            input::key(shown.view, QEvent::KeyPress, Qt::Key_Plus, Qt::ControlModifier);
        });
        row("pan step", [](ShownView& shown) {
            input::press(shown.view, shown.center());
            input::move(shown.view, shown.center() + QPointF(20, 20));
        });
        row("many pan steps between two paints", [](ShownView& shown) {
            input::press(shown.view, shown.center());
            for (int i = 0; i < 20; ++i)
                input::move(shown.view, shown.center() + QPointF(i, i));
        });
        row("box", [](ShownView& shown) {
            QVERIFY(shown.view.applyBoxZoom(shown.canvas().adjusted(20, 20, -20, -20)));
        });
        row("reset", [](ShownView& shown) { input::doubleClick(shown.view, shown.center()); });
    }
    void everyGestureRepaintsOnce() {
        QFETCH(std::function<void(ShownView&)>, gesture);
        ShownView shown;
        QVERIFY(QTest::qWaitForWindowExposed(&shown.view));
        QCoreApplication::processEvents();
        EventCounter paints(shown.view.viewport(), QEvent::Paint);
        gesture(shown);
        QCOMPARE(paints.count, 0);
        QTRY_VERIFY(paints.count > 0);
        QCoreApplication::processEvents();
        QCOMPARE(paints.count, 1);
    }
};

QTEST_MAIN(ZembraGraphicsViewInputTest)
#include "ZembraGraphicsViewInput_test.moc"
