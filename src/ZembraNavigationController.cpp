// SPDX-License-Identifier: MIT
#include "ZembraNavigationController.h"

#include <QAction>
#include <QEvent>
#include <QPointer>

namespace zembra {

struct ZembraNavigationController::Private {
    QAction* zoomInAction = nullptr;
    QAction* zoomOutAction = nullptr;
    QAction* resetViewAction = nullptr;
    QAction* boxZoomAction = nullptr;
    InteractionMode currentInteractionMode = InteractionMode::Pan;
    NavigationControlProfile currentControlProfile = NavigationControlProfile::Default;
};

ZembraNavigationController::ZembraNavigationController(QObject* parent)
    : QObject(parent), d(std::make_unique<Private>()) {
    d->zoomInAction = new QAction(this);
    d->zoomInAction->setShortcuts(ZembraNavigationDefinitions::zoomInShortcuts());
    d->zoomOutAction = new QAction(this);
    d->zoomOutAction->setShortcuts(ZembraNavigationDefinitions::zoomOutShortcuts());
    d->resetViewAction = new QAction(this);
    d->boxZoomAction = new QAction(this);
    d->boxZoomAction->setCheckable(true);
    d->boxZoomAction->setShortcut(QKeySequence(ZembraNavigationDefinitions::boxZoomKey()));
    retranslate();
    // A bare Z must not be taken from a text field in the same window.
    for (QAction* action : navigationActions())
        action->setShortcutContext(Qt::WidgetShortcut);

    connect(d->zoomInAction, &QAction::triggered, this,
            &ZembraNavigationController::zoomInRequested);
    connect(d->zoomOutAction, &QAction::triggered, this,
            &ZembraNavigationController::zoomOutRequested);
    connect(d->resetViewAction, &QAction::triggered, this,
            &ZembraNavigationController::resetViewToDataRequested);
    connect(d->boxZoomAction, &QAction::toggled, this, [this](bool checked) {
        setInteractionMode(checked ? InteractionMode::BoxZoom : InteractionMode::Pan);
    });
    if (parent)
        parent->installEventFilter(this);
}

ZembraNavigationController::~ZembraNavigationController() = default;

void ZembraNavigationController::setInteractionMode(InteractionMode mode) {
    // Blocked by hand: a tool button that shows the action answers to its change at once, and a
    // host that deletes the controller from there must not leave a blocker on a dead action.
    const QPointer<QAction> action = d->boxZoomAction;
    const bool wasBlocked = action->blockSignals(true);
    action->setChecked(mode == InteractionMode::BoxZoom);
    if (!action)
        return;
    action->blockSignals(wasBlocked);

    if (mode == d->currentInteractionMode)
        return;
    d->currentInteractionMode = mode;
    Q_EMIT interactionModeChanged(mode);
}

void ZembraNavigationController::setControlProfile(NavigationControlProfile profile) {
    if (profile == d->currentControlProfile)
        return;
    d->currentControlProfile = profile;
    Q_EMIT controlProfileChanged(profile);
}

void ZembraNavigationController::retranslate() {
    d->zoomInAction->setText(ZembraNavigationDefinitions::zoomInActionText());
    d->zoomOutAction->setText(ZembraNavigationDefinitions::zoomOutActionText());
    d->resetViewAction->setText(ZembraNavigationDefinitions::resetViewActionText());
    d->boxZoomAction->setText(ZembraNavigationDefinitions::boxZoomActionText());
}

QList<QAction*> ZembraNavigationController::navigationActions() const {
    return {d->zoomInAction, d->zoomOutAction, d->resetViewAction, d->boxZoomAction};
}

InteractionMode ZembraNavigationController::interactionMode() const {
    return d->currentInteractionMode;
}

NavigationControlProfile ZembraNavigationController::controlProfile() const {
    return d->currentControlProfile;
}

bool ZembraNavigationController::eventFilter(QObject* watched, QEvent* event) {
    if (watched == parent() && event->type() == QEvent::LanguageChange)
        retranslate();
    return QObject::eventFilter(watched, event);
}

} // namespace zembra
