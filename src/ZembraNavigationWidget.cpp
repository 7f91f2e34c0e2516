// SPDX-License-Identifier: MIT
#include <ZembraNavigationWidget.h>

#include <ZembraGraphicsView.h>
#include <ZembraNavigationController.h>

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QCursor>
#include <QGridLayout>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>
#include <QWindow>

#include <algorithm>

namespace zembra {

namespace {

QRect globalRect(const QWidget& widget) {
    return {widget.mapToGlobal(QPoint(0, 0)), widget.size()};
}

QScreen* screenFor(QPoint globalPosition) {
    QScreen* screen = QGuiApplication::screenAt(globalPosition);
    return screen ? screen : QGuiApplication::primaryScreen();
}

// Where something of that length starts, as near to `wanted` as the range from `first` to `last`
// lets it; when it is longer than the range, the first end wins.
int clampedStart(int wanted, int length, int first, int last) {
    return std::max(first, std::min(wanted, last - length + 1));
}

QPoint clampedTopLeft(QPoint wanted, QSize size, const QRect& area) {
    return {clampedStart(wanted.x(), size.width(), area.left(), area.right()),
            clampedStart(wanted.y(), size.height(), area.top(), area.bottom())};
}

// Gives a window the size that its layout asks for, up to `limit`. QWidget::adjustSize() would do,
// but for stopping at two thirds of the screen, where a text would be cut that still has room.
void takeNaturalSize(QWidget& window, QSize limit) {
    window.ensurePolished();
    QLayout* layout = window.layout();
    layout->activate();
    QSize size = layout->totalSizeHint();
    if (layout->hasHeightForWidth())
        size.setHeight(layout->totalHeightForWidth(size.width()));
    // The same least size as that of adjustSize().
    const Qt::Orientations expanding = layout->expandingDirections();
    if (expanding & Qt::Horizontal)
        size.setWidth(std::max(size.width(), 200));
    if (expanding & Qt::Vertical)
        size.setHeight(std::max(size.height(), 100));
    window.setMaximumSize(limit);
    window.resize(size.boundedTo(limit));
}

const QSize noLimit(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);

// The "?" button. A popup that closes on a press outside itself has the press replayed to whatever
// lies below; where that is this button, the press has done its work by closing the popup.
class NavigationHelpButton : public QToolButton {
public:
    explicit NavigationHelpButton(QWidget* parent) : QToolButton(parent) {
        // The press may be replayed as a posted event, and a queued call made when the popup hid
        // would be dispatched before it. A timer, even one without delay, fires only after the
        // events that were posted.
        endOfSuppression.setSingleShot(true);
        connect(&endOfSuppression, &QTimer::timeout, this, [this] {
            suppressPress = false;
            suppressRelease = false;
        });
    }

    void suppressReplayedClick() {
        suppressPress = true;
        endOfSuppression.start(0);
    }

protected:
    void mousePressEvent(QMouseEvent* event) override {
        if (!suppressPress) {
            QToolButton::mousePressEvent(event);
            return;
        }
        suppressPress = false;
        suppressRelease = true;
        event->accept();
    }

    void mouseReleaseEvent(QMouseEvent* event) override {
        if (!suppressRelease) {
            QToolButton::mouseReleaseEvent(event);
            return;
        }
        suppressRelease = false;
        event->accept();
    }

private:
    bool suppressPress = false;
    bool suppressRelease = false;
    QTimer endOfSuppression;
};

// Lists the controls; gives the focus back to the button that opened it.
class NavigationHelpPopup : public QFrame {
public:
    explicit NavigationHelpPopup(NavigationHelpButton* button)
        : QFrame(button, Qt::Popup), anchorButton(button) {}

protected:
    bool event(QEvent* event) override {
        if (event->type() == QEvent::ShortcutOverride &&
            static_cast<QKeyEvent*>(event)->key() ==
                ZembraNavigationDefinitions::leaveInteractionModeKey()) {
            event->accept();
            return true;
        }
        return QFrame::event(event);
    }

    void keyPressEvent(QKeyEvent* event) override {
        if (event->key() != ZembraNavigationDefinitions::leaveInteractionModeKey()) {
            QWidget::keyPressEvent(event);
            return;
        }
        hide();
        event->accept();
    }

    void hideEvent(QHideEvent* event) override {
        QFrame::hideEvent(event);
        if (!anchorButton || !anchorButton->isVisible())
            return;
        if (QGuiApplication::mouseButtons().testFlag(Qt::LeftButton) &&
            globalRect(*anchorButton).contains(QCursor::pos()))
            anchorButton->suppressReplayedClick();
        anchorButton->setFocus(Qt::PopupFocusReason);
    }

private:
    QPointer<NavigationHelpButton> anchorButton;
};

// The row of the coach mark in which the arrow slides sideways.
class CoachPointerRow : public QWidget {
public:
    CoachPointerRow(QLabel* label, QWidget* parent) : QWidget(parent), pointerLabel(label) {
        label->setParent(this);
    }

    void pointAt(int x) {
        pointerX = x;
        placePointer();
    }

    QSize sizeHint() const override { return pointerLabel->sizeHint(); }

protected:
    void resizeEvent(QResizeEvent* event) override {
        QWidget::resizeEvent(event);
        placePointer();
    }

private:
    void placePointer() {
        const QSize hint = pointerLabel->sizeHint();
        const int x = clampedStart(pointerX - hint.width() / 2, hint.width(), 0, width() - 1);
        pointerLabel->setGeometry(x, 0, hint.width(), hint.height());
    }

    QLabel* pointerLabel;
    int pointerX = 0;
};

// A label that a screen reader's user can step to.
QLabel* newHelpLabel(QWidget* popup, const QString& name) {
    auto* label = new QLabel(popup);
    label->setObjectName(name);
    label->setFocusPolicy(Qt::TabFocus);
    popup->layout()->addWidget(label);
    return label;
}

// The labels are made once, for the profile with most rows.
qsizetype longestRowCount() {
    return ZembraNavigationDefinitions::controlRows(NavigationControlProfile::ControlPointEditing)
        .size();
}

} // namespace

struct ZembraNavigationWidget::Private {
    QPointer<ZembraGraphicsView> view;
    QPointer<ZembraNavigationController> controller;
    QPointer<QWidget> observedWindow;
    QMetaObject::Connection modeChangedConnection;
    QMetaObject::Connection profileChangedConnection;
    QMetaObject::Connection controllerDestroyedConnection;
    QMetaObject::Connection viewDestroyedConnection;
    QLabel* modeLabel = nullptr;
    NavigationHelpButton* helpButton = nullptr;
    NavigationHelpPopup* helpPopup = nullptr;
    QLabel* helpTitleLabel = nullptr;
    QLabel* firstHelpRowLabel = nullptr;
    QList<QLabel*> helpRowLabels;
    QFrame* coachMark = nullptr;
    CoachPointerRow* coachPointerRow = nullptr;
    QLabel* coachPointerLabel = nullptr;
    QVBoxLayout* coachLayout = nullptr;
    QVBoxLayout* coachContentLayout = nullptr;
    QLabel* coachTitleLabel = nullptr;
    QLabel* coachIntroductionLabel = nullptr;
    QList<QLabel*> coachInputLabels;
    QList<QLabel*> coachResultLabels;
    QCheckBox* dontShowAgainCheckBox = nullptr;
    QPushButton* gotItButton = nullptr;
    bool coachPending = false;
    bool repositionScheduled = false;
};

ZembraNavigationWidget::ZembraNavigationWidget(QWidget* parent)
    : QWidget(parent), d(std::make_unique<Private>()) {
    setObjectName(QStringLiteral("zembraNavigationWidget"));
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    d->modeLabel = new QLabel(this);
    d->modeLabel->setObjectName(QStringLiteral("zembraNavigationModeLabel"));
    d->modeLabel->hide();
    d->helpButton = new NavigationHelpButton(this);
    d->helpButton->setObjectName(QStringLiteral("zembraNavigationHelpButton"));
    d->helpButton->setText(QStringLiteral("?"));
    d->helpButton->setFocusPolicy(Qt::StrongFocus);
    d->helpButton->installEventFilter(this);
    createHelpPopup();
    createCoachMark();
    retranslateUi();
    layoutChrome();
    installEventFilter(this);
}

ZembraNavigationWidget::~ZembraNavigationWidget() {
    // Otherwise a child lets go of the focus, and tells hosts of it whose guarded pointers still
    // lead to the strip, when there is no strip any more.
    QWidget* const focused = QApplication::focusWidget();
    for (const QWidget* widget = focused; widget; widget = widget->parentWidget()) {
        if (widget == this) {
            focused->clearFocus();
            break;
        }
    }
    // A view or controller that is a child of the strip outlives this destructor's body.
    disconnect(d->modeChangedConnection);
    disconnect(d->profileChangedConnection);
    disconnect(d->controllerDestroyedConnection);
    disconnect(d->viewDestroyedConnection);
    if (d->observedWindow)
        d->observedWindow->removeEventFilter(this);
}

void ZembraNavigationWidget::setGraphicsView(ZembraGraphicsView* view) {
    disconnect(d->viewDestroyedConnection);
    d->viewDestroyedConnection = {};
    d->view = view;
    if (view) {
        d->viewDestroyedConnection = connect(view, &QObject::destroyed, this, [this] {
            d->view.clear();
            d->viewDestroyedConnection = {};
            bindNavigationController(nullptr);
        });
    }
    bindNavigationController(view ? view->navigationController() : nullptr);
}

void ZembraNavigationWidget::setNavigationController(ZembraNavigationController* controller) {
    disconnect(d->viewDestroyedConnection);
    d->viewDestroyedConnection = {};
    d->view.clear();
    bindNavigationController(controller);
}

void ZembraNavigationWidget::bindNavigationController(ZembraNavigationController* controller) {
    for (QMetaObject::Connection* connection :
         {&d->modeChangedConnection, &d->profileChangedConnection,
          &d->controllerDestroyedConnection}) {
        disconnect(*connection);
        *connection = {};
    }
    d->controller = controller;
    if (controller) {
        d->modeChangedConnection =
            connect(controller, &ZembraNavigationController::interactionModeChanged, this,
                    [this] { updateModeLabel(); });
        d->profileChangedConnection =
            connect(controller, &ZembraNavigationController::controlProfileChanged, this,
                    [this] { updateHelpContent(); });
        d->controllerDestroyedConnection = connect(controller, &QObject::destroyed, this, [this] {
            d->controller.clear();
            d->modeChangedConnection = {};
            d->profileChangedConnection = {};
            d->controllerDestroyedConnection = {};
            updateModeLabel();
            updateHelpContent();
        });
    }
    updateModeLabel();
    updateHelpContent();
}

ZembraGraphicsView* ZembraNavigationWidget::graphicsView() const {
    return d->view;
}

ZembraNavigationController* ZembraNavigationWidget::navigationController() const {
    return d->controller;
}

bool ZembraNavigationWidget::isCoachMarkVisible() const {
    return d->coachMark->isVisible();
}

QString ZembraNavigationWidget::platformModifierText() {
    return ZembraNavigationDefinitions::wheelZoomModifierText();
}

QList<ZembraNavigationDefinitions::ControlRow> ZembraNavigationWidget::controlRows() {
    return ZembraNavigationDefinitions::controlRows(NavigationControlProfile::Default);
}

QSize ZembraNavigationWidget::sizeHint() const {
    const QSize button = d->helpButton->sizeHint();
    const QSize label = d->modeLabel->isHidden() ? QSize() : d->modeLabel->sizeHint();
    const QMargins margins = contentsMargins();
    return {button.width() + label.width() + margins.left() + margins.right(),
            std::max(button.height(), label.height()) + margins.top() + margins.bottom()};
}

QSize ZembraNavigationWidget::minimumSizeHint() const {
    return sizeHint();
}

void ZembraNavigationWidget::layoutChrome() {
    const QRect area = contentsRect();
    const auto centredTop = [&area](int height) {
        const int spare = area.height() - height;
        return spare < 2 ? area.top() : area.top() + spare / 2;
    };

    const QSize button = d->helpButton->sizeHint().boundedTo(area.size());
    d->helpButton->setGeometry(std::max(area.right() - button.width() + 1, area.left()),
                               centredTop(button.height()), button.width(), button.height());
    if (d->modeLabel->isHidden())
        return;
    const QSize freeSize(std::max(area.width() - button.width(), 0), area.height());
    const QSize label = d->modeLabel->sizeHint().boundedTo(freeSize);
    d->modeLabel->setGeometry(area.left(), centredTop(label.height()), label.width(),
                              label.height());
}

void ZembraNavigationWidget::updateModeLabel() {
    d->modeLabel->setVisible(d->controller &&
                             d->controller->interactionMode() == InteractionMode::BoxZoom);
    updateGeometry();
    layoutChrome();
}

void ZembraNavigationWidget::retranslateUi() {
    d->modeLabel->setText(tr("Box Zoom mode"));
    const QString title = tr("Chart controls");
    d->helpButton->setAccessibleName(title);
    d->helpButton->setToolTip(title);
    d->helpPopup->setAccessibleName(title);
    d->helpTitleLabel->setText(title);
    d->coachMark->setWindowTitle(title);
    d->coachTitleLabel->setText(title);
    d->coachIntroductionLabel->setText(
        tr("Charts are interactive. Use these controls to navigate:"));
    d->dontShowAgainCheckBox->setText(tr("Don't show again"));
    d->gotItButton->setText(tr("Got it"));
    d->coachPointerLabel->setAccessibleName(d->coachLayout->indexOf(d->coachPointerRow) != 0
                                                ? tr("Points to the Chart controls button below")
                                                : tr("Points to the Chart controls button above"));
    if (d->controller)
        d->controller->retranslate();
    updateHelpContent();
}

void ZembraNavigationWidget::observeContainingWindow() {
    QWidget* containing = window();
    if (d->observedWindow == containing)
        return;
    // The strip watches itself in any case, so it stays its own filter when it was its own window.
    if (d->observedWindow && d->observedWindow != this)
        d->observedWindow->removeEventFilter(this);
    d->observedWindow = containing;
    if (containing != this)
        containing->installEventFilter(this);
}

void ZembraNavigationWidget::repositionVisiblePopups() {
    if (d->helpPopup->isVisible())
        positionPopup(d->helpPopup);
    if (d->coachMark->isVisible())
        positionCoachMark();
}

// Until the first resize of a window that was just shown, Qt adds up the places of widgets without
// asking the screens; where they are scaled, a window that reaches to another one is then mistaken.
// The widget hears of that resize only where its size changes, its native window always does.
void ZembraNavigationWidget::observeNativeWindow() {
    if (QWindow* native = window()->windowHandle())
        native->installEventFilter(this);
}

// Folds a burst of moves into one repositioning.
void ZembraNavigationWidget::scheduleRepositioning() {
    if (d->repositionScheduled)
        return;
    d->repositionScheduled = true;
    QTimer::singleShot(0, this, [this] {
        d->repositionScheduled = false;
        repositionVisiblePopups();
    });
}

// Lets the zoom keys work while the button has the focus. Accepting the shortcut override brings
// the key itself here instead of to a shortcut.
bool ZembraNavigationWidget::handleHelpButtonKey(QEvent* event) {
    const auto& key = *static_cast<QKeyEvent*>(event);
    qsizetype index = -1;
    if (ZembraNavigationDefinitions::matchesZoomIn(key))
        index = 0;
    else if (ZembraNavigationDefinitions::matchesZoomOut(key))
        index = 1;
    else if (key.key() == ZembraNavigationDefinitions::boxZoomKey() &&
             key.modifiers() == Qt::NoModifier)
        index = 3;
    const QList<QAction*> actions = d->controller->navigationActions();
    if (index < 0 || index >= actions.size())
        return false;
    // Whatever answers the action may delete the strip.
    if (event->type() == QEvent::KeyPress)
        actions[index]->activate(QAction::Trigger);
    event->accept();
    return true;
}

bool ZembraNavigationWidget::eventFilter(QObject* watched, QEvent* event) {
    const QEvent::Type type = event->type();
    if (watched == d->helpButton && d->controller &&
        (type == QEvent::KeyPress || type == QEvent::ShortcutOverride) &&
        handleHelpButtonKey(event))
        return true;

    if (type == QEvent::KeyPress && watched->isWidgetType()) {
        auto* widget = static_cast<QWidget*>(watched);
        if ((widget == d->coachMark || d->coachMark->isAncestorOf(widget)) &&
            static_cast<QKeyEvent*>(event)->key() ==
                ZembraNavigationDefinitions::leaveInteractionModeKey()) {
            dismissCoachMark();
            return true;
        }
    }

    if ((watched == this || watched == d->observedWindow || watched == window()->windowHandle()) &&
        (d->helpPopup->isVisible() || d->coachMark->isVisible()) &&
        (type == QEvent::Move || type == QEvent::Resize || type == QEvent::WindowStateChange ||
         type == QEvent::ScreenChangeInternal))
        scheduleRepositioning();
    return QWidget::eventFilter(watched, event);
}

void ZembraNavigationWidget::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    layoutChrome();
}

void ZembraNavigationWidget::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    observeContainingWindow();
    if (!d->coachPending)
        return;
    QTimer::singleShot(0, this, [this] {
        // The host may have called it off in the meantime.
        if (d->coachPending)
            showCoachMark();
    });
}

void ZembraNavigationWidget::hideEvent(QHideEvent* event) {
    d->helpPopup->hide();
    d->coachMark->hide();
    QWidget::hideEvent(event);
}

void ZembraNavigationWidget::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    const QEvent::Type type = event->type();
    if (type == QEvent::LanguageChange)
        retranslateUi();
    if (type == QEvent::ApplicationFontChange || type == QEvent::LanguageChange ||
        type == QEvent::LayoutDirectionChange || type == QEvent::FontChange ||
        type == QEvent::StyleChange) {
        updateGeometry();
        layoutChrome();
        repositionVisiblePopups();
    }
}

void ZembraNavigationWidget::createHelpPopup() {
    d->helpPopup = new NavigationHelpPopup(d->helpButton);
    d->helpPopup->setObjectName(QStringLiteral("zembraNavigationHelpPopup"));
    auto* layout = new QVBoxLayout(d->helpPopup);
    // On a small screen the screen has the last word, not the least size of the texts.
    layout->setSizeConstraint(QLayout::SetNoConstraint);
    d->helpTitleLabel = newHelpLabel(d->helpPopup, QStringLiteral("zembraNavigationHelpTitle"));
    const qsizetype rowCount = longestRowCount();
    for (qsizetype i = 0; i < rowCount; ++i) {
        QLabel* label =
            newHelpLabel(d->helpPopup, QStringLiteral("zembraNavigationHelpRow%1").arg(i));
        label->setWordWrap(true);
        d->helpRowLabels.append(label);
    }
    d->firstHelpRowLabel = d->helpRowLabels.first();

    connect(d->helpButton, &QToolButton::clicked, this, [this] {
        if (d->helpPopup->isVisible())
            d->helpPopup->hide();
        else
            showHelpPopup();
    });
    const struct {
        Qt::Key key;
        QString name;
    } shortcuts[] = {
        {Qt::Key_Return, QStringLiteral("zembraNavigationHelpReturnShortcut")},
        {Qt::Key_Enter, QStringLiteral("zembraNavigationHelpEnterShortcut")},
    };
    for (const auto& [key, name] : shortcuts) {
        auto* shortcut = new QShortcut(QKeySequence(key), d->helpButton);
        shortcut->setContext(Qt::WidgetShortcut);
        shortcut->setObjectName(name);
        connect(shortcut, &QShortcut::activated, d->helpButton, &QAbstractButton::click);
    }
}

void ZembraNavigationWidget::updateHelpContent() {
    const auto rows = ZembraNavigationDefinitions::controlRows(
        d->controller ? d->controller->controlProfile() : NavigationControlProfile::Default);
    for (qsizetype i = 0; i < d->helpRowLabels.size(); ++i) {
        const bool visible = i < rows.size();
        d->helpRowLabels[i]->setVisible(visible);
        d->coachInputLabels[i]->setVisible(visible);
        d->coachResultLabels[i]->setVisible(visible);
        if (!visible)
            continue;
        const auto& [input, description] = rows[i];
        d->helpRowLabels[i]->setText(tr("%1: %2").arg(input, description));
        d->coachInputLabels[i]->setText(input);
        d->coachResultLabels[i]->setText(description);
    }
    repositionVisiblePopups();
}

void ZembraNavigationWidget::positionPopup(QFrame* popup) {
    const QPoint anchor = d->helpButton->mapToGlobal(d->helpButton->rect().bottomRight());
    const QScreen* screen = screenFor(anchor);
    if (!screen) {
        takeNaturalSize(*popup, noLimit);
        popup->move(anchor);
        return;
    }
    const QRect area = screen->availableGeometry();
    takeNaturalSize(*popup, area.size());
    const QPoint wanted(anchor.x() - popup->width() + 1, anchor.y() + 1);
    popup->move(clampedTopLeft(wanted, popup->size(), area));
}

void ZembraNavigationWidget::showHelpPopup() {
    hideCoachMark();
    observeNativeWindow();
    positionPopup(d->helpPopup);
    d->helpPopup->show();
    d->helpPopup->raise();
    d->helpPopup->activateWindow();
    d->firstHelpRowLabel->setFocus(Qt::PopupFocusReason);
}

void ZembraNavigationWidget::createCoachMark() {
    d->coachMark = new QFrame(this, Qt::Tool | Qt::FramelessWindowHint);
    d->coachMark->setObjectName(QStringLiteral("zembraNavigationCoach"));
    d->coachMark->setWindowModality(Qt::NonModal);

    // The arrow's row spans the frame from edge to edge, so that the arrow can reach a button near
    // the edge of the screen; the rest keeps the margins of the style.
    d->coachLayout = new QVBoxLayout(d->coachMark);
    d->coachLayout->setSizeConstraint(QLayout::SetNoConstraint);
    d->coachContentLayout = new QVBoxLayout;
    d->coachContentLayout->setContentsMargins(d->coachLayout->contentsMargins());
    d->coachLayout->setContentsMargins(0, 0, 0, 0);

    d->coachPointerLabel = new QLabel(QStringLiteral("▲"), d->coachMark);
    d->coachPointerLabel->setObjectName(QStringLiteral("zembraNavigationCoachPointer"));
    d->coachPointerLabel->setAccessibleName(tr("Points to the Chart controls button above"));
    d->coachPointerRow = new CoachPointerRow(d->coachPointerLabel, d->coachMark);
    d->coachPointerRow->setObjectName(QStringLiteral("zembraNavigationCoachPointerRow"));
    d->coachLayout->addWidget(d->coachPointerRow);
    d->coachLayout->addLayout(d->coachContentLayout);

    d->coachTitleLabel = new QLabel(d->coachMark);
    d->coachTitleLabel->setObjectName(QStringLiteral("zembraNavigationCoachTitle"));
    d->coachContentLayout->addWidget(d->coachTitleLabel);
    d->coachIntroductionLabel = new QLabel(d->coachMark);
    d->coachIntroductionLabel->setObjectName(QStringLiteral("zembraNavigationCoachIntroduction"));
    d->coachIntroductionLabel->setWordWrap(true);
    d->coachContentLayout->addWidget(d->coachIntroductionLabel);
    createCoachControls();
    d->dontShowAgainCheckBox = new QCheckBox(d->coachMark);
    d->dontShowAgainCheckBox->setObjectName(QStringLiteral("zembraNavigationCoachDontShowAgain"));
    d->dontShowAgainCheckBox->setChecked(true);
    d->coachContentLayout->addWidget(d->dontShowAgainCheckBox);
    d->gotItButton = new QPushButton(d->coachMark);
    d->gotItButton->setObjectName(QStringLiteral("zembraNavigationCoachGotItButton"));
    d->gotItButton->setDefault(true);
    d->coachContentLayout->addWidget(d->gotItButton);
    connect(d->gotItButton, &QPushButton::clicked, this, [this] { dismissCoachMark(); });

    // Escape is told from wherever in the coach mark the focus is.
    d->coachMark->installEventFilter(this);
    const QList<QWidget*> descendants = d->coachMark->findChildren<QWidget*>();
    for (QWidget* descendant : descendants)
        descendant->installEventFilter(this);
}

void ZembraNavigationWidget::createCoachControls() {
    auto* controls = new QWidget(d->coachMark);
    controls->setObjectName(QStringLiteral("zembraNavigationCoachControls"));
    auto* grid = new QGridLayout(controls);
    const int rowCount = static_cast<int>(longestRowCount());
    for (int i = 0; i < rowCount; ++i) {
        auto* input = new QLabel(controls);
        input->setObjectName(QStringLiteral("zembraNavigationCoachInput%1").arg(i));
        grid->addWidget(input, i, 0);
        d->coachInputLabels.append(input);
        auto* result = new QLabel(controls);
        result->setObjectName(QStringLiteral("zembraNavigationCoachResult%1").arg(i));
        result->setWordWrap(true);
        grid->addWidget(result, i, 1);
        d->coachResultLabels.append(result);
    }
    grid->setColumnStretch(1, 1);
    d->coachContentLayout->addWidget(controls);
}

void ZembraNavigationWidget::positionCoachMark() {
    const QRect button = globalRect(*d->helpButton);
    const QPoint center = button.center();
    const QScreen* screen = screenFor(center);
    // The rows have a layout of their own, which would hand on a new size only in the next pass.
    d->coachInputLabels.first()->parentWidget()->layout()->activate();
    if (!screen) {
        takeNaturalSize(*d->coachMark, noLimit);
        d->coachMark->move(button.bottomRight());
        return;
    }
    const QRect area = screen->availableGeometry();
    takeNaturalSize(*d->coachMark, area.size());
    const QSize size = d->coachMark->size();

    const bool fitsBelow = button.bottom() + size.height() <= area.bottom();
    const bool fitsAbove = button.top() - size.height() >= area.top();
    const bool below = fitsBelow || !fitsAbove;
    placeCoachPointerRow(below);
    const QPoint wanted(center.x() - size.width() / 2,
                        below ? button.bottom() + 1 : button.top() - size.height());
    d->coachMark->move(clampedTopLeft(wanted, size, area));
    d->coachPointerRow->pointAt(d->coachPointerRow->mapFromGlobal(center).x());
}

// Puts the arrow's row on the side of the coach mark where the button is, and in its final place.
void ZembraNavigationWidget::placeCoachPointerRow(bool coachIsBelow) {
    d->coachLayout->removeWidget(d->coachPointerRow);
    d->coachLayout->insertWidget(coachIsBelow ? 0 : -1, d->coachPointerRow);
    d->coachPointerLabel->setText(coachIsBelow ? QStringLiteral("▲") : QStringLiteral("▼"));
    d->coachPointerLabel->setAccessibleName(coachIsBelow
                                                ? tr("Points to the Chart controls button above")
                                                : tr("Points to the Chart controls button below"));
    d->coachLayout->invalidate();
    d->coachLayout->setGeometry(d->coachMark->contentsRect());
}

void ZembraNavigationWidget::showCoachMark() {
    if (!isVisible() || !d->helpButton->isVisible()) {
        d->coachPending = true;
        return;
    }
    d->coachPending = false;
    d->helpPopup->hide();
    observeNativeWindow();
    // The first pass sizes a hidden window, the second uses the one that is shown, and the third
    // serves window managers that settle the geometry a little later.
    positionCoachMark();
    d->coachMark->show();
    positionCoachMark();
    QTimer::singleShot(0, this, [this] {
        if (d->coachMark->isVisible())
            positionCoachMark();
    });
    d->coachMark->raise();
    d->coachMark->activateWindow();
    d->gotItButton->setFocus(Qt::OtherFocusReason);
}

void ZembraNavigationWidget::hideCoachMark() {
    d->coachPending = false;
    d->coachMark->hide();
}

void ZembraNavigationWidget::dismissCoachMark() {
    const bool dontShowAgain = d->dontShowAgainCheckBox->isChecked();
    hideCoachMark();
    d->helpButton->setFocus(Qt::OtherFocusReason);
    Q_EMIT coachDismissed(dontShowAgain);
}

} // namespace zembra
