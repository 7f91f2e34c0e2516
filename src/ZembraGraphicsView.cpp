// SPDX-License-Identifier: MIT
#include "ZembraGraphicsView.h"

#include "ZembraGraphicsItem.h"
#include "ZembraNavigationController.h"

#include <QAction>
#include <QGraphicsScene>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>
#include <QRubberBand>
#include <QWheelEvent>

#include <cmath>
#include <limits>
#include <utility>
#include <vector>

namespace zembra {

namespace {

// The only axes that a pointer or key moves.
constexpr int horizontalAxis = 2;
constexpr int verticalAxis = 0;

// Where the zoom actions stand among the controller's actions.
constexpr int zoomInIndex = 0;
constexpr int zoomOutIndex = 1;

// A box of fewer pixels than this between its edges is a click, not a selection.
constexpr int smallestBox = 4;

bool isFinite(double value) {
    return std::abs(value) <= std::numeric_limits<double>::max();
}

// Whether a range is the one that the axis has already. Without this test a gesture that cannot
// move an axis any further would be announced over and over.
bool isUnchanged(const ScaleMap& map, const ZembraGraphicsView::AxisRange& range) {
    // Halves, because the span of a range may be beyond the largest double.
    const double tolerance = std::abs(0.5 * map.s2() - 0.5 * map.s1()) * 2e-12;
    return std::abs(range.first - map.s1()) <= tolerance &&
           std::abs(range.second - map.s2()) <= tolerance;
}

} // namespace

struct ZembraGraphicsView::Private {
    QGraphicsScene* scene = nullptr;
    ZembraGraphicsItem* item = nullptr;
    // A child of the viewport, and gone with it.
    QPointer<QRubberBand> rubberBand;
    ZembraNavigationController* controller = nullptr;
    bool panning = false;
    bool boxSelecting = false;
    bool wheelZoomEnabled = true;
    Qt::KeyboardModifier panModifier = Qt::NoModifier;
    QPointF lastPanScenePos;
    QPointF selectionOrigin;

    struct PendingAxisRange {
        int axisId = 0;
        AxisRange range;
    };

    static QPointF scenePosition(const QGraphicsView& view, const QSinglePointEvent& event) {
        return view.mapToScene(event.position().toPoint());
    }
    static QRect viewportRect(const QGraphicsView& view, const QRectF& sceneRect) {
        return QRect(view.mapFromScene(sceneRect.topLeft()),
                     view.mapFromScene(sceneRect.bottomRight()))
            .normalized();
    }
};

ZembraGraphicsView::ZembraGraphicsView(QWidget* parent)
    : QGraphicsView(parent), d(std::make_unique<Private>()) {
    d->scene = new QGraphicsScene(this);
    setScene(d->scene);
    d->item = new ZembraGraphicsItem(nullptr);
    d->scene->addItem(d->item);
    setRenderHint(QPainter::Antialiasing, true);
    setRenderHint(QPainter::TextAntialiasing, true);
    setRenderHint(QPainter::SmoothPixmapTransform, true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setViewportUpdateMode(QGraphicsView::FullViewportUpdate);
    setBackgroundBrush(QBrush(Qt::white, Qt::SolidPattern));
    createRubberBand();
    createNavigationController();
    configureNavigationViewport(viewport());
    updateInteractionCursor();
    connect(d->item, &ZembraGraphicsItem::plotUpdated, this, &ZembraGraphicsView::plotUpdated);
}

ZembraGraphicsView::~ZembraGraphicsView() {
    // Otherwise the base class lets go of the focus, and tells hosts of it whose guarded pointers
    // still lead to the view, when there is no view any more.
    clearFocus();
}

void ZembraGraphicsView::createRubberBand() {
    delete d->rubberBand.data();
    if (viewport())
        d->rubberBand = new QRubberBand(QRubberBand::Rectangle, viewport());
}

void ZembraGraphicsView::createNavigationController() {
    d->controller = new ZembraNavigationController(this);
    addActions(d->controller->navigationActions());
    connect(d->controller, &ZembraNavigationController::zoomInRequested, this,
            &ZembraGraphicsView::zoomIn);
    connect(d->controller, &ZembraNavigationController::zoomOutRequested, this,
            &ZembraGraphicsView::zoomOut);
    connect(d->controller, &ZembraNavigationController::resetViewToDataRequested, this,
            &ZembraGraphicsView::resetZoom);
    connect(d->controller, &ZembraNavigationController::interactionModeChanged, this,
            [this](InteractionMode mode) {
                cancelActiveInteraction();
                updateInteractionCursor();
                Q_EMIT interactionModeChanged(mode);
            });
}

void ZembraGraphicsView::configureNavigationViewport(QWidget* viewport) {
    if (!viewport)
        return;
    // A host may give the focus to the viewport itself: keys work there as well.
    viewport->installEventFilter(this);
    viewport->addActions(navigationActions());
}

void ZembraGraphicsView::setupViewport(QWidget* viewport) {
    cancelActiveInteraction();
    // The old viewport is deleted after this. It passes its focus on to the view, and would take
    // the view's focus along: keys must go on working.
    QWidget* old = d->rubberBand ? d->rubberBand->parentWidget() : nullptr;
    if (old && old != viewport && old->focusProxy() == this)
        old->setFocusProxy(nullptr);
    QGraphicsView::setupViewport(viewport);
    createRubberBand();
    configureNavigationViewport(viewport);
    updateInteractionCursor();
}

void ZembraGraphicsView::setPlot(std::shared_ptr<Plot> plot) {
    cancelActiveInteraction();
    updateInteractionCursor();
    d->item->setPlot(std::move(plot));
    updateItemSize();
}

void ZembraGraphicsView::replot() {
    d->item->update();
}

void ZembraGraphicsView::updateItemSize() {
    const int width = viewport()->width();
    const int height = viewport()->height();
    d->item->setSize(width, height);
    const QRectF rect(0, 0, width, height);
    d->scene->setSceneRect(rect);
    // Scene and viewport have the same size now, so there is nothing to fit. QGraphicsView's own
    // fitting would keep a margin of two pixels and scale by 0.99.
    setTransform(QTransform());
    // QGraphicsView aligns to the right and bottom one pixel too far; one pixel less to align
    // makes up for it.
    const QRectF aligned = rect.adjusted(0, 0, alignment().testFlag(Qt::AlignRight) ? -1 : 0,
                                         alignment().testFlag(Qt::AlignBottom) ? -1 : 0);
    setSceneRect(aligned == rect ? QRectF() : aligned);
}

void ZembraGraphicsView::resizeEvent(QResizeEvent* event) {
    QGraphicsView::resizeEvent(event);
    updateItemSize();
}

void ZembraGraphicsView::setInteractionMode(InteractionMode mode) {
    const bool changes = interactionMode() != mode;
    d->controller->setInteractionMode(mode);
    // A change has come back from the controller by now and ended the drag; a slot may have
    // deleted the view.
    if (changes)
        return;
    cancelActiveInteraction();
    updateInteractionCursor();
}

void ZembraGraphicsView::setWheelZoomEnabled(bool enabled) {
    d->wheelZoomEnabled = enabled;
}

void ZembraGraphicsView::setPanModifier(Qt::KeyboardModifier modifier) {
    d->panModifier = modifier;
}

void ZembraGraphicsView::zoomIn() {
    const QRectF canvas = canvasSceneRect();
    if (canvas.width() > 0.0 && canvas.height() > 0.0)
        zoomAt(canvas.center(), ZembraNavigationDefinitions::zoomInFactor());
}

void ZembraGraphicsView::zoomOut() {
    const QRectF canvas = canvasSceneRect();
    if (canvas.width() > 0.0 && canvas.height() > 0.0)
        zoomAt(canvas.center(), ZembraNavigationDefinitions::zoomOutFactor());
}

void ZembraGraphicsView::resetZoom() {
    const std::shared_ptr<Plot> plot = this->plot();
    if (!plot)
        return;
    const QPointer<ZembraGraphicsView> self = this;
    d->item->resetZoom();
    if (!self)
        return;
    updateItemSize();
    Q_EMIT viewResetToDataApplied();
}

bool ZembraGraphicsView::zoomAt(const QPointF& scenePos, double factor) {
    const std::shared_ptr<Plot> plot = this->plot();
    if (!plot)
        return false;
    const QPointer<ZembraGraphicsView> self = this;
    const Rect canvas = plot->canvasRect();
    const bool changedX = plot->axisEnabled(horizontalAxis) && canvas.width > 0.0 &&
                          zoomAxis(horizontalAxis, scenePos.x(), factor);
    if (!self)
        return changedX;
    const bool changedY = plot->axisEnabled(verticalAxis) && canvas.height > 0.0 &&
                          zoomAxis(verticalAxis, scenePos.y(), factor);
    if (!changedX && !changedY)
        return false;
    if (!self)
        return true;
    d->item->update();
    Q_EMIT plotUpdated();
    return true;
}

bool ZembraGraphicsView::applyBoxZoom(const QRectF& sceneRect) {
    const std::shared_ptr<Plot> plot = this->plot();
    if (!plot || sceneRect.width() <= 0.0 || sceneRect.height() <= 0.0)
        return false;

    // Both axes are settled before one is touched: all or nothing.
    std::vector<Private::PendingAxisRange> pending;
    const auto settle = [&](int axisId, double low, double high) {
        if (!plot->axisEnabled(axisId))
            return true;
        const ScaleMap map = plot->scaleMap(axisId);
        // The pixel nearer to p1 gives the first value, so that the axis keeps its direction.
        if (!(map.p2() >= map.p1()))
            std::swap(low, high);
        AxisRange range;
        if (!mappedAxisRange(axisId, low, high, range))
            return false;
        if (!isUnchanged(map, range))
            pending.push_back({axisId, range});
        return true;
    };
    if (!settle(horizontalAxis, sceneRect.x(), sceneRect.x() + sceneRect.width()) ||
        !settle(verticalAxis, sceneRect.y(), sceneRect.y() + sceneRect.height()) || pending.empty())
        return false;

    const QPointer<ZembraGraphicsView> self = this;
    for (const auto& [axisId, range] : pending) {
        // Also for a view that a slot has deleted: the plot may be shown elsewhere.
        plot->setAxisScale(axisId, range.first, range.second, 0.0);
        if (self)
            Q_EMIT navigationAxisRangeApplied(axisId, range.first, range.second);
    }
    if (!self)
        return true;
    d->item->update();
    Q_EMIT plotUpdated();
    return true;
}

bool ZembraGraphicsView::zoomAxis(int axisId, double anchorPixel, double factor) {
    const std::shared_ptr<Plot> plot = this->plot();
    if (!plot || !plot->axisEnabled(axisId) || !isFinite(anchorPixel) || !isFinite(factor) ||
        factor <= 0.0)
        return false;
    const ScaleMap map = plot->scaleMap(axisId);
    AxisRange range;
    if (!mappedAxisRange(axisId, (map.p1() - anchorPixel) * factor + anchorPixel,
                         (map.p2() - anchorPixel) * factor + anchorPixel, range) ||
        isUnchanged(map, range))
        return false;
    plot->setAxisScale(axisId, range.first, range.second, 0.0);
    Q_EMIT navigationAxisRangeApplied(axisId, range.first, range.second);
    return true;
}

bool ZembraGraphicsView::panAxis(int axisId, double pixelDelta) {
    const std::shared_ptr<Plot> plot = this->plot();
    if (!plot || !plot->axisEnabled(axisId) || !isFinite(pixelDelta))
        return false;
    const ScaleMap map = plot->scaleMap(axisId);
    AxisRange range;
    if (!mappedAxisRange(axisId, map.p1() - pixelDelta, map.p2() - pixelDelta, range) ||
        isUnchanged(map, range))
        return false;
    plot->setAxisScale(axisId, range.first, range.second, 0.0);
    Q_EMIT navigationAxisRangeApplied(axisId, range.first, range.second);
    return true;
}

std::shared_ptr<Plot> ZembraGraphicsView::plot() const {
    return d->item->plot();
}

QRectF ZembraGraphicsView::canvasSceneRect() const {
    const std::shared_ptr<Plot> plot = this->plot();
    if (!plot)
        return {};
    const Rect canvas = plot->canvasRect();
    if (!isFinite(canvas.x) || !isFinite(canvas.y) || !isFinite(canvas.width) ||
        !isFinite(canvas.height) || canvas.width <= 0.0 || canvas.height <= 0.0)
        return {};
    return {canvas.x, canvas.y, canvas.width, canvas.height};
}

bool ZembraGraphicsView::mappedAxisRange(int axisId, double firstPixel, double secondPixel,
                                         AxisRange& range) const {
    const std::shared_ptr<Plot> plot = this->plot();
    if (!plot || !plot->axisEnabled(axisId) || !isFinite(firstPixel) || !isFinite(secondPixel))
        return false;
    const ScaleMap map = plot->scaleMap(axisId);
    range.first = map.invTransform(firstPixel);
    range.second = map.invTransform(secondPixel);
    return isFinite(range.first) && isFinite(range.second) && range.first != range.second;
}

InteractionMode ZembraGraphicsView::interactionMode() const {
    return d->controller->interactionMode();
}

bool ZembraGraphicsView::wheelZoomEnabled() const {
    return d->wheelZoomEnabled;
}

Qt::KeyboardModifier ZembraGraphicsView::panModifier() const {
    return d->panModifier;
}

ZembraNavigationController* ZembraGraphicsView::navigationController() const {
    return d->controller;
}

QList<QAction*> ZembraGraphicsView::navigationActions() const {
    return d->controller->navigationActions();
}

void ZembraGraphicsView::cancelActiveInteraction() {
    d->panning = false;
    d->boxSelecting = false;
    if (d->rubberBand)
        d->rubberBand->hide();
}

void ZembraGraphicsView::updateInteractionCursor() {
    setCursor(
        QCursor(interactionMode() == InteractionMode::BoxZoom ? Qt::CrossCursor : Qt::ArrowCursor));
}

void ZembraGraphicsView::updateRubberBand(const QRectF& sceneRect) {
    if (d->rubberBand)
        d->rubberBand->setGeometry(Private::viewportRect(*this, sceneRect));
}

QRectF ZembraGraphicsView::clampedSelectionRect(const QPointF& scenePos) const {
    const QPointF span = scenePos - d->selectionOrigin;
    return QRectF(d->selectionOrigin, QSizeF(span.x(), span.y())).normalized() & canvasSceneRect();
}

void ZembraGraphicsView::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) {
        QGraphicsView::mousePressEvent(event);
        return;
    }
    event->accept();
    // Slots, and whoever loses the focus, may delete the view.
    const QPointer<ZembraGraphicsView> self = this;
    Q_EMIT clicked();
    if (!self)
        return;
    setFocus(Qt::MouseFocusReason);
    if (!self)
        return;

    const QPointF position = Private::scenePosition(*this, *event);
    if (interactionMode() == InteractionMode::BoxZoom) {
        if (!canvasSceneRect().contains(position))
            return;
        d->boxSelecting = true;
        d->selectionOrigin = position;
        updateRubberBand(QRectF(position, QSizeF(0, 0)));
        if (d->rubberBand)
            d->rubberBand->show();
    } else if (interactionMode() == InteractionMode::Pan) {
        if (d->panModifier != Qt::NoModifier && !(event->modifiers() & d->panModifier))
            return;
        d->panning = true;
        d->lastPanScenePos = position;
        setCursor(QCursor(Qt::ClosedHandCursor));
    }
}

void ZembraGraphicsView::mouseMoveEvent(QMouseEvent* event) {
    if (d->boxSelecting) {
        updateRubberBand(clampedSelectionRect(Private::scenePosition(*this, *event)));
        event->accept();
    } else if (d->panning) {
        event->accept();
        const QPointer<ZembraGraphicsView> self = this;
        const QPointF position = Private::scenePosition(*this, *event);
        const QPointF delta = position - d->lastPanScenePos;
        d->lastPanScenePos = position;
        const bool changedX = panAxis(horizontalAxis, delta.x());
        if (!self)
            return;
        const bool changedY = panAxis(verticalAxis, delta.y());
        if (!self || (!changedX && !changedY))
            return;
        d->item->update();
        Q_EMIT plotUpdated();
    } else {
        QGraphicsView::mouseMoveEvent(event);
    }
}

void ZembraGraphicsView::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && d->boxSelecting) {
        event->accept();
        const QRectF selection = clampedSelectionRect(Private::scenePosition(*this, *event));
        d->boxSelecting = false;
        if (d->rubberBand)
            d->rubberBand->hide();
        const QRect box = Private::viewportRect(*this, selection);
        if (box.right() - box.left() < smallestBox || box.bottom() - box.top() < smallestBox)
            return;
        const QPointer<ZembraGraphicsView> self = this;
        if (applyBoxZoom(selection) && self)
            setInteractionMode(InteractionMode::Pan);
    } else if (event->button() == Qt::LeftButton && d->panning) {
        event->accept();
        d->panning = false;
        updateInteractionCursor();
    } else {
        QGraphicsView::mouseReleaseEvent(event);
    }
}

void ZembraGraphicsView::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) {
        QGraphicsView::mouseDoubleClickEvent(event);
        return;
    }
    event->accept();
    resetZoom();
}

void ZembraGraphicsView::wheelEvent(QWheelEvent* event) {
    const int delta = ZembraNavigationDefinitions::wheelZoomDelta(event->angleDelta());
    // What the view has no use for goes on to its parent, which may scroll.
    if (!d->wheelZoomEnabled ||
        !(event->modifiers() & ZembraNavigationDefinitions::wheelZoomModifier()) || !plot() ||
        delta == 0) {
        event->ignore();
        return;
    }
    const double factor = delta > 0 ? ZembraNavigationDefinitions::zoomInFactor()
                                    : ZembraNavigationDefinitions::zoomOutFactor();
    event->setAccepted(zoomAt(Private::scenePosition(*this, *event), factor));
}

bool ZembraGraphicsView::handleNavigationKeyPress(QKeyEvent* event) {
    const bool zoomsIn = ZembraNavigationDefinitions::matchesZoomIn(*event);
    if (!zoomsIn && !ZembraNavigationDefinitions::matchesZoomOut(*event))
        return false;
    event->accept();
    navigationActions().at(zoomsIn ? zoomInIndex : zoomOutIndex)->activate(QAction::Trigger);
    return true;
}

bool ZembraGraphicsView::leavesInteractionMode(const QKeyEvent& event) const {
    return event.key() == ZembraNavigationDefinitions::leaveInteractionModeKey() &&
           interactionMode() == InteractionMode::BoxZoom;
}

bool ZembraGraphicsView::overridesShortcut(const QKeyEvent& event) const {
    return ZembraNavigationDefinitions::matchesZoomIn(event) ||
           ZembraNavigationDefinitions::matchesZoomOut(event) || leavesInteractionMode(event);
}

void ZembraGraphicsView::keyPressEvent(QKeyEvent* event) {
    if (handleNavigationKeyPress(event))
        return;
    if (leavesInteractionMode(*event)) {
        event->accept();
        setInteractionMode(InteractionMode::Pan);
        return;
    }
    QGraphicsView::keyPressEvent(event);
}

void ZembraGraphicsView::focusOutEvent(QFocusEvent* event) {
    cancelActiveInteraction();
    updateInteractionCursor();
    QGraphicsView::focusOutEvent(event);
}

bool ZembraGraphicsView::event(QEvent* event) {
    // Claimed here, a key arrives as a key press instead of firing a shortcut of the window.
    if (event->type() == QEvent::ShortcutOverride &&
        overridesShortcut(*static_cast<QKeyEvent*>(event))) {
        event->accept();
        return true;
    }
    return QGraphicsView::event(event);
}

bool ZembraGraphicsView::eventFilter(QObject* object, QEvent* event) {
    if (object == viewport() && event->type() == QEvent::ShortcutOverride) {
        if (overridesShortcut(*static_cast<QKeyEvent*>(event))) {
            event->accept();
            return true;
        }
    } else if (object == viewport() && event->type() == QEvent::KeyPress) {
        auto* key = static_cast<QKeyEvent*>(event);
        const bool leaves = leavesInteractionMode(*key);
        const QPointer<ZembraGraphicsView> self = this;
        const bool handled = handleNavigationKeyPress(key);
        if (!self)
            return true;
        if (handled || leaves) {
            event->accept();
            if (leaves)
                setInteractionMode(InteractionMode::Pan);
            return true;
        }
    }
    return QAbstractScrollArea::eventFilter(object, event);
}

} // namespace zembra
