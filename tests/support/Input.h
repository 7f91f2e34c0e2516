// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractScrollArea>
#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QTest>
#include <QWheelEvent>

/// Input events, delivered at once to a widget, without a window system in between. Positions are
/// in the pixels of the viewport and may have fractions. Each returns whether somebody accepted the
/// event; the receiver may be gone by then.
namespace input {

// As if from the window system: such events go on to parents, and such keys are not looked up as
// shortcuts once more.
inline void deliver(QObject& receiver, QEvent& event) {
    QSpontaneKeyEvent::setSpontaneous(&event);
    QCoreApplication::instance()->notify(&receiver, &event);
}

inline bool mouse(QAbstractScrollArea& area, QEvent::Type type, const QPointF& position,
                  Qt::KeyboardModifiers modifiers = Qt::NoModifier,
                  Qt::MouseButton button = Qt::LeftButton) {
    const bool moves = type == QEvent::MouseMove;
    const bool ends = type == QEvent::MouseButtonRelease;
    QMouseEvent event(type, position, area.viewport()->mapToGlobal(position),
                      moves ? Qt::NoButton : button, ends ? Qt::NoButton : button, modifiers);
    deliver(*area.viewport(), event);
    return event.isAccepted();
}

inline bool press(QAbstractScrollArea& area, const QPointF& position,
                  Qt::KeyboardModifiers modifiers = Qt::NoModifier,
                  Qt::MouseButton button = Qt::LeftButton) {
    return mouse(area, QEvent::MouseButtonPress, position, modifiers, button);
}

inline bool move(QAbstractScrollArea& area, const QPointF& position,
                 Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    return mouse(area, QEvent::MouseMove, position, modifiers);
}

inline bool release(QAbstractScrollArea& area, const QPointF& position,
                    Qt::KeyboardModifiers modifiers = Qt::NoModifier,
                    Qt::MouseButton button = Qt::LeftButton) {
    return mouse(area, QEvent::MouseButtonRelease, position, modifiers, button);
}

inline bool doubleClick(QAbstractScrollArea& area, const QPointF& position,
                        Qt::MouseButton button = Qt::LeftButton) {
    return mouse(area, QEvent::MouseButtonDblClick, position, Qt::NoModifier, button);
}

inline QWheelEvent wheelEvent(QAbstractScrollArea& area, const QPointF& position,
                              const QPoint& angleDelta, Qt::KeyboardModifiers modifiers) {
    return QWheelEvent(position, area.viewport()->mapToGlobal(position), QPoint(), angleDelta,
                       Qt::NoButton, modifiers, Qt::NoScrollPhase, false);
}

/// One turn of the wheel, for the area alone: not sent by the window system, it does not go on to a
/// parent. Units: eighths of a degree; a notch is 120.
inline bool wheel(QAbstractScrollArea& area, const QPointF& position, const QPoint& angleDelta,
                  Qt::KeyboardModifiers modifiers = Qt::AltModifier) {
    QWheelEvent event = wheelEvent(area, position, angleDelta, modifiers);
    QCoreApplication::sendEvent(area.viewport(), &event);
    return event.isAccepted();
}

/// One turn of the wheel that goes on to the parents while nobody accepts it.
inline void wheelThroughParents(QAbstractScrollArea& area, const QPointF& position,
                                const QPoint& angleDelta,
                                Qt::KeyboardModifiers modifiers = Qt::AltModifier) {
    QWheelEvent event = wheelEvent(area, position, angleDelta, modifiers);
    deliver(*area.viewport(), event);
}

/// One key event of that type, sent to one object without looking for shortcuts.
inline bool key(QObject& receiver, QEvent::Type type, int code,
                Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QKeyEvent event(type, code, modifiers);
    event.setAccepted(false);
    deliver(receiver, event);
    return event.isAccepted();
}

} // namespace input
