// SPDX-License-Identifier: MIT
#pragma once

#include <qzembra_export.h>

#include <zembra/chart/Plot.h>

#include <QGraphicsObject>

#include <memory>

namespace zembra {

/// Shows one plot in a graphics scene, at a fixed size with its top-left corner at the origin.
///
/// It draws nothing of its own. Owned by its scene or parent item; GUI thread only. The plot is
/// shared with whoever else holds it; after changing it, the host calls `update`.
class QZEMBRA_EXPORT ZembraGraphicsItem : public QGraphicsObject {
    Q_OBJECT
public:
    /// Without a plot, 800 × 600 pixels.
    explicit ZembraGraphicsItem(QGraphicsItem* parent = nullptr);
    ~ZembraGraphicsItem() override;

    /// Shows another plot, or nothing when `plot` is null; the size stays.
    void setPlot(std::shared_ptr<Plot> plot);
    /// The size the plot is laid out in. Units: logical pixels.
    /// Range: every value is kept as it is; without area nothing is seen.
    void setSize(int width, int height);
    /// Returns all four axes to automatic ranges and emits `plotUpdated`; nothing without a plot.
    void resetZoom();
    /// Renders the whole plot. Leaves `painter` as the plot left it, with anti-aliasing and smooth
    /// pixmaps on.
    void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

    std::shared_ptr<Plot> plot() const;
    int plotWidth() const;
    int plotHeight() const;
    QRectF boundingRect() const override;

Q_SIGNALS:
    /// The item changed the plot.
    void plotUpdated();

private:
    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace zembra
