// SPDX-License-Identifier: MIT
#include "ZembraNavigationDefinitions.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QPoint>

namespace zembra {

namespace {

// Keyboard layouts differ in how a plus or minus is typed, so the platform's own binding alone
// would miss Ctrl+= on many of them.
QList<QKeySequence> shortcutsWithAlias(QKeySequence::StandardKey standardKey, Qt::Key aliasKey) {
    QList<QKeySequence> shortcuts = QKeySequence::keyBindings(standardKey);
    const QKeySequence alias(Qt::ControlModifier | aliasKey);
    if (!shortcuts.contains(alias))
        shortcuts.append(alias);
    return shortcuts;
}

// Ctrl, and neither Alt nor Meta. Shift and the keypad do not matter: on many keyboards a plus
// needs one of them.
bool hasZoomModifiers(const QKeyEvent& event) {
    const Qt::KeyboardModifiers modifiers = event.modifiers();
    return modifiers.testFlag(Qt::ControlModifier) &&
           !(modifiers & (Qt::AltModifier | Qt::MetaModifier));
}

} // namespace

QString ZembraNavigationDefinitions::zoomInActionText() {
    return QCoreApplication::translate("ZembraNavigationDefinitions", "Zoom In");
}

QString ZembraNavigationDefinitions::zoomOutActionText() {
    return QCoreApplication::translate("ZembraNavigationDefinitions", "Zoom Out");
}

QString ZembraNavigationDefinitions::resetViewActionText() {
    return QCoreApplication::translate("ZembraNavigationDefinitions", "Reset View to Data");
}

QString ZembraNavigationDefinitions::boxZoomActionText() {
    return QCoreApplication::translate("ZembraNavigationDefinitions", "Box Zoom Mode");
}

bool ZembraNavigationDefinitions::matchesZoomIn(const QKeyEvent& event) {
    if (event.matches(QKeySequence::ZoomIn))
        return true;
    return hasZoomModifiers(event) && (event.key() == Qt::Key_Equal || event.key() == Qt::Key_Plus);
}

bool ZembraNavigationDefinitions::matchesZoomOut(const QKeyEvent& event) {
    if (event.matches(QKeySequence::ZoomOut))
        return true;
    return hasZoomModifiers(event) && event.key() == Qt::Key_Minus;
}

double ZembraNavigationDefinitions::zoomInFactor() {
    return 0.8;
}

double ZembraNavigationDefinitions::zoomOutFactor() {
    return 1.25;
}

Qt::KeyboardModifier ZembraNavigationDefinitions::wheelZoomModifier() {
    return Qt::AltModifier;
}

QString ZembraNavigationDefinitions::wheelZoomModifierText() {
    return QCoreApplication::translate("ZembraNavigationDefinitions", "Alt");
}

int ZembraNavigationDefinitions::wheelZoomDelta(const QPoint& angleDelta) {
    return angleDelta.y() != 0 ? angleDelta.y() : angleDelta.x();
}

Qt::Key ZembraNavigationDefinitions::boxZoomKey() {
    return Qt::Key_Z;
}

Qt::Key ZembraNavigationDefinitions::leaveInteractionModeKey() {
    return Qt::Key_Escape;
}

QList<QKeySequence> ZembraNavigationDefinitions::zoomInShortcuts() {
    return shortcutsWithAlias(QKeySequence::ZoomIn, Qt::Key_Equal);
}

QList<QKeySequence> ZembraNavigationDefinitions::zoomOutShortcuts() {
    return shortcutsWithAlias(QKeySequence::ZoomOut, Qt::Key_Minus);
}

QList<ZembraNavigationDefinitions::ControlRow>
ZembraNavigationDefinitions::controlRows(NavigationControlProfile profile) {
    const auto text = [](const char* source) {
        return QCoreApplication::translate("ZembraNavigationDefinitions", source);
    };
    // Marked apart from the call, so that the translation tools find every source text.
    QList<ControlRow> rows;
    rows.append({text(QT_TRANSLATE_NOOP("ZembraNavigationDefinitions", "%1 + wheel"))
                     .arg(wheelZoomModifierText()),
                 text(QT_TRANSLATE_NOOP("ZembraNavigationDefinitions",
                                        "Zoom in or out around the pointer"))});
    if (profile == NavigationControlProfile::ControlPointEditing) {
        rows.append(
            {text(QT_TRANSLATE_NOOP("ZembraNavigationDefinitions", "Left-button drag")),
             text(QT_TRANSLATE_NOOP("ZembraNavigationDefinitions", "Pan empty chart space"))});
        rows.append(
            {text(QT_TRANSLATE_NOOP("ZembraNavigationDefinitions", "Drag control-point handles")),
             text(QT_TRANSLATE_NOOP("ZembraNavigationDefinitions", "Edit control points"))});
        rows.append({text(QT_TRANSLATE_NOOP("ZembraNavigationDefinitions", "Double-click")),
                     text(QT_TRANSLATE_NOOP("ZembraNavigationDefinitions",
                                            "Edit or add a control point"))});
    } else {
        rows.append({text(QT_TRANSLATE_NOOP("ZembraNavigationDefinitions", "Left-button drag")),
                     text(QT_TRANSLATE_NOOP("ZembraNavigationDefinitions", "Pan"))});
        rows.append({text(QT_TRANSLATE_NOOP("ZembraNavigationDefinitions", "Double-click")),
                     text(QT_TRANSLATE_NOOP("ZembraNavigationDefinitions", "Reset view to data"))});
    }
    rows.append({text(QT_TRANSLATE_NOOP("ZembraNavigationDefinitions", "Right-click")),
                 text(QT_TRANSLATE_NOOP("ZembraNavigationDefinitions", "Open all chart actions"))});
    rows.append({text(QT_TRANSLATE_NOOP("ZembraNavigationDefinitions", "Z")),
                 text(QT_TRANSLATE_NOOP("ZembraNavigationDefinitions", "Toggle Box Zoom mode"))});
    rows.append({text(QT_TRANSLATE_NOOP("ZembraNavigationDefinitions", "Escape")),
                 text(QT_TRANSLATE_NOOP("ZembraNavigationDefinitions",
                                        "Leave Box Zoom and restore Pan mode"))});
    return rows;
}

} // namespace zembra
