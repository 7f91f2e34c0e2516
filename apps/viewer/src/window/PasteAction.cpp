// SPDX-License-Identifier: MIT
#include "window/PasteAction.h"

#include "window/Openable.h"

#include <QClipboard>
#include <QEvent>
#include <QGuiApplication>
#include <QKeySequence>
#include <QWidget>

namespace viewer {

PasteAction::PasteAction(QWidget* window) : QAction(window), window(window) {
    setShortcut(QKeySequence::Paste);
    setEnabled(false);
    window->installEventFilter(this);
    connect(QGuiApplication::clipboard(), &QClipboard::dataChanged, this, [this] {
        isStale = true;
        lookIfActive();
    });
    lookIfActive();
}

bool PasteAction::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::WindowActivate)
        lookIfActive();
    return QAction::eventFilter(watched, event);
}

void PasteAction::lookIfActive() {
    if (!isStale || !window->isActiveWindow())
        return;
    isStale = false;
    setEnabled(!Openable(QGuiApplication::clipboard()->mimeData()).isEmpty());
}

} // namespace viewer
