// SPDX-License-Identifier: MIT
#pragma once

#include <ZembraNavigationDefinitions.h>
#include <qzembra_export.h>

#include <zembra/chart/Plot.h>

#include <QGraphicsView>
#include <QList>

#include <memory>

class QAction;

namespace zembra {

class ZembraNavigationController;

/// Shows one plot and turns mouse, wheel and keys into zoom and pan.
///
/// Scene coordinates are the plot's pixel coordinates and, since the plot always fills the
/// viewport, the viewport's too. Only the primary axes are zoomed and panned, the horizontal one
/// (2) before the vertical one (0). Shares the plot with the host and owns everything else;
/// without a plot it is a white area. GUI thread only; any slot may delete the view, exchange its
/// plot or change its mode.
class QZEMBRA_EXPORT ZembraGraphicsView : public QGraphicsView {
    Q_OBJECT

public:
    /// The values at the two pixel bounds of an axis, in that order: on an inverted axis `first` is
    /// the greater one. Units: data units.
    struct AxisRange {
        double first = 0.0;
        double second = 1.0;
    };

    explicit ZembraGraphicsView(QWidget* parent = nullptr);
    ~ZembraGraphicsView() override;

    /// Shows another plot, or none for null. Ends a drag; the axes stay as they are.
    void setPlot(std::shared_ptr<Plot> plot);
    /// Paints again after the host has changed the plot.
    void replot();
    /// Makes the plot fill the viewport, pixel for pixel. Done by itself after a resize; only a
    /// host that has moved the view's transform or alignment has to ask.
    void updateItemSize();

    /// Makes `mode` the current one and ends a drag, also when the mode stays the same.
    void setInteractionMode(InteractionMode mode);
    /// Whether the wheel zooms while the modifier of the navigation definitions is held.
    void setWheelZoomEnabled(bool enabled);
    /// The modifier that a drag needs to pan; `Qt::NoModifier` lets every drag pan.
    void setPanModifier(Qt::KeyboardModifier modifier);

    /// One zoom step about the centre of the canvas.
    void zoomIn();
    void zoomOut();
    /// Lets all four axes follow the data again.
    void resetZoom();

    /// Zooms both primary axes about a point and asks for one repaint. Units: `scenePos` logical
    /// pixels; a `factor` below 1 zooms in, it is the share of the span that is left.
    /// Errors: returns false, with nothing announced, when no axis changed.
    bool zoomAt(const QPointF& scenePos, double factor);
    /// Zooms both primary axes to what lies in a rectangle, or neither, and asks for one repaint.
    /// An axis that is not shown is left alone. Units: logical pixels.
    /// Errors: returns false, with nothing changed, for an empty rectangle, for one that an axis
    /// cannot map, and for one that changes no axis.
    bool applyBoxZoom(const QRectF& sceneRect);
    /// Zooms one axis about a pixel, which keeps its value. The caller asks for the repaint.
    ///
    /// Units: `anchorPixel` logical pixels; `factor` as for `zoomAt`.
    /// Errors: returns false, with nothing changed, where there is no plot, the axis is not shown,
    /// the input is not finite, the factor is not above 0 or the range would not change.
    bool zoomAxis(int axisId, double anchorPixel, double factor);
    /// Moves the values of one axis by a distance. The caller asks for the repaint.
    ///
    /// Units: logical pixels, positive rightward and downward.
    /// Errors: as for `zoomAxis`.
    bool panAxis(int axisId, double pixelDelta);

    std::shared_ptr<Plot> plot() const;
    /// The plot's data area as it was last laid out; null without a plot or a layout.
    QRectF canvasSceneRect() const;
    /// Finds the values of an axis at two pixels.
    ///
    /// Errors: returns false without a plot, for an axis that is not shown and for pixels that are
    /// not finite; also, with `range` set all the same, where the values are not finite or equal.
    bool mappedAxisRange(int axisId, double firstPixel, double secondPixel, AxisRange& range) const;

    InteractionMode interactionMode() const;
    bool wheelZoomEnabled() const;
    Qt::KeyboardModifier panModifier() const;
    /// Owned by the view and never null.
    ZembraNavigationController* navigationController() const;
    /// The controller's actions: zoom in, zoom out, reset, box zoom.
    QList<QAction*> navigationActions() const;

Q_SIGNALS:
    /// After each zoom, pan or reset that changed the plot.
    void plotUpdated();
    /// For each axis that an interaction gave a range, right after it was set.
    void navigationAxisRangeApplied(int axisId, double first, double second);
    void viewResetToDataApplied();
    void interactionModeChanged(zembra::InteractionMode mode);
    /// On every press of the left button, before anything is done with it.
    void clicked();

protected:
    // QGraphicsView declares this one as a slot; here it is none.
    void setupViewport(QWidget* viewport) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    bool event(QEvent* event) override;
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    void createRubberBand();
    void createNavigationController();
    void configureNavigationViewport(QWidget* viewport);
    bool handleNavigationKeyPress(QKeyEvent* event);
    void cancelActiveInteraction();
    void updateInteractionCursor();
    void updateRubberBand(const QRectF& sceneRect);
    QRectF clampedSelectionRect(const QPointF& scenePos) const;
    bool leavesInteractionMode(const QKeyEvent& event) const;
    bool overridesShortcut(const QKeyEvent& event) const;

    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace zembra
