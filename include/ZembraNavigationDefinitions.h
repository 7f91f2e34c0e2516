// SPDX-License-Identifier: MIT
#pragma once

#include <qzembra_export.h>

#include <QKeySequence>
#include <QList>
#include <QMetaType>
#include <QString>

class QKeyEvent;
class QPoint;

namespace zembra {

/// What a drag with the left button does in a view.
enum class InteractionMode : int {
    /// It pans; the mode of every new view.
    Pan = 0,
    /// It draws the rectangle to zoom into.
    BoxZoom = 1,
};

/// Which controls the help of a chart describes.
enum class NavigationControlProfile : int {
    /// A plain chart: a drag pans, a double click resets the view.
    Default = 0,
    /// A chart whose curves have control points that are dragged, and edited by a double click.
    ControlPointEditing = 1,
};

/// The vocabulary of navigation: texts, keys, factors and help rows, each settled here once.
///
/// Texts are translated in the context "ZembraNavigationDefinitions" each time they are asked for,
/// so whoever shows one asks again on `QEvent::LanguageChange`. GUI thread only.
namespace ZembraNavigationDefinitions {

/// One line of a table of controls; both texts are translated.
struct ControlRow {
    /// What the user does, such as "Alt + wheel".
    QString input;
    /// What happens then, such as "Zoom in or out around the pointer".
    QString description;
};

QZEMBRA_EXPORT QString zoomInActionText();
QZEMBRA_EXPORT QString zoomOutActionText();
QZEMBRA_EXPORT QString resetViewActionText();
QZEMBRA_EXPORT QString boxZoomActionText();

/// Whether the key asks to zoom in: the platform's own keys, or Ctrl with = or +, with or without
/// Shift and from the keypad too.
QZEMBRA_EXPORT bool matchesZoomIn(const QKeyEvent& event);
/// Whether the key asks to zoom out: the platform's own keys, or Ctrl with -.
QZEMBRA_EXPORT bool matchesZoomOut(const QKeyEvent& event);

/// The share of the visible span that is left after one step in.
QZEMBRA_EXPORT double zoomInFactor();
/// The exact inverse of `zoomInFactor()`.
QZEMBRA_EXPORT double zoomOutFactor();

/// The modifier without which the wheel does not zoom.
QZEMBRA_EXPORT Qt::KeyboardModifier wheelZoomModifier();
QZEMBRA_EXPORT QString wheelZoomModifierText();
/// The part of a wheel's turn that counts: the vertical one, or the horizontal one where that is 0
/// (some platforms turn the wheel sideways while Alt is held).
QZEMBRA_EXPORT int wheelZoomDelta(const QPoint& angleDelta);

/// The key that switches box zoom on and off.
QZEMBRA_EXPORT Qt::Key boxZoomKey();
/// The key that leaves box zoom.
QZEMBRA_EXPORT Qt::Key leaveInteractionModeKey();

/// The platform's zoom-in keys, and Ctrl+=, each once.
QZEMBRA_EXPORT QList<QKeySequence> zoomInShortcuts();
/// The platform's zoom-out keys, and Ctrl+-, each once.
QZEMBRA_EXPORT QList<QKeySequence> zoomOutShortcuts();

/// The controls of a chart of that kind, in the order in which a help shows them.
///
/// Range: a value that is no enumerator is told like `Default`.
QZEMBRA_EXPORT QList<ControlRow> controlRows(NavigationControlProfile profile);

} // namespace ZembraNavigationDefinitions

} // namespace zembra

Q_DECLARE_METATYPE(zembra::InteractionMode)
Q_DECLARE_METATYPE(zembra::NavigationControlProfile)
