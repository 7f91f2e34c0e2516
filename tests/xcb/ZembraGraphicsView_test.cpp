// SPDX-License-Identifier: MIT
// What only a real window system shows: the cursor on the screen, focus between windows, and the
// pointer beyond the window while a button is held.
#include <ZembraGraphicsView.h>

#include "support/ShownView.h"

#include <QApplication>
#include <QLineEdit>
#include <QMenu>
#include <QProcess>
#include <QVBoxLayout>
#include <QWindow>

#include "xcb/ScreenCursor.h"

using zembra::InteractionMode;
using zembra::ZembraGraphicsView;

namespace {

// Moves the real pointer and presses real keys.
bool xdotool(const QStringList& arguments) {
    QProcess process;
    process.start(QStringLiteral("xdotool"), arguments);
    return process.waitForFinished() && process.exitCode() == 0;
}

bool movePointer(const QPoint& global) {
    return xdotool(
        {QStringLiteral("mousemove"), QString::number(global.x()), QString::number(global.y())});
}

bool pointer(const char* what, const char* button = "1") {
    return xdotool({QString::fromLatin1(what), QString::fromLatin1(button)});
}

bool key(const char* keys) {
    return xdotool({QStringLiteral("key"), QString::fromLatin1(keys)});
}

} // namespace

class ZembraGraphicsViewScreenTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        failOnAnyWarning();
        ++tests;
        // Out of the way of the window to come.
        QVERIFY2(movePointer(QPoint(1270, 790)), "xdotool is needed");
        shown = std::make_unique<ShownView>();
        // Where a move puts the window depends on whether its frame is known yet.
        QTRY_VERIFY(!shown->view.windowHandle()->frameMargins().isNull());
        shown->view.move(100, 100);
        shown->view.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&shown->view));
        shown->view.setFocus();
        QTRY_VERIFY(shown->view.hasFocus());
        // The pointer is moved by Qt's account of the window's place.
        const QMargins frame = shown->view.windowHandle()->frameMargins();
        QTRY_COMPARE(screenOrigin(shown->view.winId()),
                     QPoint(100 + frame.left(), 100 + frame.top()));
        QTRY_COMPARE(screenOrigin(shown->view.winId()), shown->view.mapToGlobal(QPoint(0, 0)));
        shown->settle();
        shown->log.take();
    }
    void cleanup() {
        // Whatever a failed test still holds.
        pointer("mouseup");
        xdotool({QStringLiteral("keyup"), QStringLiteral("alt")});
        shown.reset();
    }

    void cursorOnTheScreenFollowsModeAndDrag() {
        QVERIFY(movePointer(global(start())));
        QTRY_VERIFY(shown->view.viewport()->underMouse());
        const QByteArray arrow = screenCursor();
        QVERIFY(!arrow.isEmpty());

        QVERIFY(key("z"));
        QTRY_COMPARE(shown->view.interactionMode(), InteractionMode::BoxZoom);
        QTRY_VERIFY(screenCursor() != arrow);
        const QByteArray cross = screenCursor();

        QVERIFY(key("Escape"));
        QTRY_COMPARE(shown->view.interactionMode(), InteractionMode::Pan);
        QTRY_COMPARE(screenCursor(), arrow);

        QVERIFY(pointer("mousedown"));
        QTRY_COMPARE(shown->cursor(), Qt::ClosedHandCursor);
        QTRY_VERIFY(screenCursor() != arrow);
        QVERIFY(screenCursor() != cross);
        QVERIFY(pointer("mouseup"));
        QTRY_COMPARE(screenCursor(), arrow);
    }

    void keysReachTheFocusedWindowOnly() {
        QWidget other;
        QLineEdit field(&other);
        other.setGeometry(800, 100, 200, 100);
        other.show();
        other.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&other));
        field.setFocus();
        QTRY_VERIFY(field.hasFocus());
        QVERIFY(key("z"));
        QTRY_COMPARE(field.text(), QStringLiteral("z"));
        QCOMPARE(shown->view.interactionMode(), InteractionMode::Pan);

        shown->view.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&shown->view));
        QTRY_VERIFY(shown->view.hasFocus());
        for (const char* keys : {"ctrl+plus", "ctrl+equal", "ctrl+minus", "ctrl+KP_Add"}) {
            QVERIFY(key(keys));
            QTRY_COMPARE(shown->log.lines.size(), 3);
            shown->log.take();
        }
        QCOMPARE(field.text(), QStringLiteral("z"));
    }

    void dragEndsWhenAnotherWindowTakesTheFocus_data() {
        QTest::addColumn<InteractionMode>("mode");
        QTest::newRow("pan") << InteractionMode::Pan;
        QTest::newRow("box zoom") << InteractionMode::BoxZoom;
    }
    void dragEndsWhenAnotherWindowTakesTheFocus() {
        QFETCH(InteractionMode, mode);
        shown->view.setInteractionMode(mode);
        const Qt::CursorShape idle = shown->cursor();
        QVERIFY(movePointer(global(start())));
        QVERIFY(pointer("mousedown"));
        QTRY_VERIFY(shown->log.lines.contains(QStringLiteral("clicked")));
        QVERIFY(movePointer(global(start() + QPointF(40, 40))));
        if (mode == InteractionMode::Pan)
            QTRY_VERIFY(shown->log.lines.contains(QStringLiteral("updated")));
        else
            QTRY_VERIFY(shown->band()->height() > 30);

        QWidget other;
        other.setGeometry(800, 100, 200, 100);
        other.show();
        other.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&other));
        QTRY_VERIFY(!shown->view.hasFocus());
        QVERIFY(!shown->isSelecting());
        QCOMPARE(shown->cursor(), idle);
        QCOMPARE(shown->view.interactionMode(), mode);
        shown->log.take();
        QVERIFY(movePointer(global(start() + QPointF(80, 80))));
        QVERIFY(pointer("mouseup"));
        QTRY_VERIFY(QGuiApplication::mouseButtons() == Qt::NoButton);
        QCOMPARE(shown->log.take(), QStringList());
    }

    void panGoesOnBeyondTheWindowUntilTheRelease() {
        const QPointF from = start();
        const double value = shown->valueAt(2, from.x());
        QVERIFY(movePointer(global(from)));
        QVERIFY(pointer("mousedown"));
        QTRY_COMPARE(shown->cursor(), Qt::ClosedHandCursor);
        const QPointF beyond(shown->view.viewport()->width() + 150.0, from.y() + 20.0);
        QVERIFY(movePointer(global(beyond)));
        QTRY_VERIFY(std::abs(shown->valueAt(2, beyond.x()) - value) < 1e-9);
        QVERIFY(pointer("mouseup"));
        QTRY_COMPARE(shown->cursor(), Qt::ArrowCursor);
        shown->log.take();
        QVERIFY(movePointer(global(from)));
        QTRY_VERIFY(shown->view.viewport()->underMouse());
        QCOMPARE(shown->log.take(), QStringList());
    }

    void boxGoesOnBeyondTheWindowAndEndsAtTheCanvas() {
        shown->view.setInteractionMode(InteractionMode::BoxZoom);
        const QPoint from = start().toPoint();
        const double left = shown->valueAt(2, from.x());
        const double right = shown->second(2);
        QVERIFY(movePointer(global(from)));
        QVERIFY(pointer("mousedown"));
        QTRY_VERIFY(shown->isSelecting());
        QVERIFY(movePointer(global(QPointF(900, 600))));
        QTRY_COMPARE(shown->band()->geometry(),
                     QRect(from, shown->view.mapFromScene(shown->canvas().bottomRight())));
        QVERIFY(pointer("mouseup"));
        QTRY_COMPARE(shown->view.interactionMode(), InteractionMode::Pan);
        QVERIFY(std::abs(shown->first(2) - left) < 1e-9);
        QVERIFY(std::abs(shown->second(2) - right) < 1e-9);
    }

    void menuThatGrabsThePointerEndsADrag() {
        QVERIFY(movePointer(global(start())));
        QVERIFY(pointer("mousedown"));
        QTRY_COMPARE(shown->cursor(), Qt::ClosedHandCursor);
        QMenu menu;
        menu.addActions(shown->view.navigationActions());
        menu.popup(global(QPointF(20, 20)));
        QTRY_VERIFY(menu.isVisible());
        QTRY_COMPARE(shown->cursor(), Qt::ArrowCursor);
        shown->log.take();
        QVERIFY(pointer("mouseup"));
        QTRY_VERIFY(QGuiApplication::mouseButtons() == Qt::NoButton);
        QVERIFY(key("Escape"));
        QTRY_VERIFY(!menu.isVisible());
        QCOMPARE(shown->log.take(), QStringList());
    }

    void altAndTheWheelZoomAboutThePointer() {
        // The window manager keeps this chord for itself on the windows that it manages.
        shown->view.hide();
        QTRY_VERIFY(!isFramed(shown->view.winId()));
        shown->view.setWindowFlag(Qt::X11BypassWindowManagerHint);
        shown->view.show();
        QVERIFY(QTest::qWaitForWindowExposed(&shown->view));
        QTRY_COMPARE(screenOrigin(shown->view.winId()), shown->view.mapToGlobal(QPoint(0, 0)));
        shown->settle();
        const QPointF point = start() + QPointF(60, 40);
        const double x = shown->valueAt(2, point.x());
        const double y = shown->valueAt(0, point.y());
        QVERIFY(movePointer(global(point)));
        // Without the modifier nothing happens; the notch with it follows in the same queue.
        QVERIFY(pointer("click", "4"));
        QVERIFY(xdotool({QStringLiteral("keydown"), QStringLiteral("alt"), QStringLiteral("click"),
                         QStringLiteral("4"), QStringLiteral("keyup"), QStringLiteral("alt")}));
        QTRY_COMPARE(shown->log.lines,
                     (QStringList{QStringLiteral("axis 2"), QStringLiteral("axis 0"),
                                  QStringLiteral("updated")}));
        QVERIFY(std::abs(shown->second(2) - shown->first(2) - 8.0) < 1e-9);
        QVERIFY(std::abs(shown->valueAt(2, point.x()) - x) < 1e-9);
        QVERIFY(std::abs(shown->valueAt(0, point.y()) - y) < 1e-9);
    }

    void realDoubleClickResets() {
        QVERIFY(movePointer(global(start())));
        QVERIFY(xdotool({QStringLiteral("click"), QStringLiteral("--repeat"), QStringLiteral("2"),
                         QStringLiteral("--delay"), QStringLiteral("20"), QStringLiteral("1")}));
        QTRY_COMPARE(shown->log.lines,
                     (QStringList{QStringLiteral("clicked"), QStringLiteral("updated"),
                                  QStringLiteral("reset")}));
        QCOMPARE(shown->cursor(), Qt::ArrowCursor);
    }

private:
    // Elsewhere for each test: a press soon after one at the same place is a double click.
    QPointF start() const { return shown->center() + QPointF(15.0 * (tests % 8), 0.0); }

    QPoint global(const QPointF& position) const {
        return shown->view.viewport()->mapToGlobal(position.toPoint());
    }

    std::unique_ptr<ShownView> shown;
    int tests = 0;
};

QTEST_MAIN(ZembraGraphicsViewScreenTest)
#include "ZembraGraphicsView_test.moc"
