// SPDX-License-Identifier: MIT
#include "ZembraGraphicsItem.h"

#include "QtPainter.h"

#include <QMetaType>
#include <QPainter>

#include <utility>

namespace zembra {

struct ZembraGraphicsItem::Private {
    std::shared_ptr<Plot> plot;
    int width = 800;
    int height = 600;
};

ZembraGraphicsItem::ZembraGraphicsItem(QGraphicsItem* parent)
    : QGraphicsObject(parent), d(std::make_unique<Private>()) {
    // Only a type whose id was asked for is found by its name.
    staticMetaObject.metaType().id();
}

ZembraGraphicsItem::~ZembraGraphicsItem() = default;

void ZembraGraphicsItem::setPlot(std::shared_ptr<Plot> plot) {
    d->plot = std::move(plot);
    update();
}

void ZembraGraphicsItem::setSize(int width, int height) {
    prepareGeometryChange();
    d->width = width;
    d->height = height;
    update();
}

void ZembraGraphicsItem::resetZoom() {
    const std::shared_ptr<Plot> plot = d->plot;
    if (!plot)
        return;
    for (const int axis : {2, 3, 0, 1})
        plot->setAxisAutoScale(axis, true);
    update();
    Q_EMIT plotUpdated();
}

std::shared_ptr<Plot> ZembraGraphicsItem::plot() const {
    return d->plot;
}

int ZembraGraphicsItem::plotWidth() const {
    return d->width;
}

int ZembraGraphicsItem::plotHeight() const {
    return d->height;
}

QRectF ZembraGraphicsItem::boundingRect() const {
    return QRectF(0, 0, d->width, d->height);
}

void ZembraGraphicsItem::paint(QPainter* painter, const QStyleOptionGraphicsItem* /*option*/,
                               QWidget* /*widget*/) {
    const std::shared_ptr<Plot> plot = d->plot;
    if (!plot)
        return;
    painter->setRenderHint(QPainter::Antialiasing, true);
    painter->setRenderHint(QPainter::TextAntialiasing, true);
    painter->setRenderHint(QPainter::SmoothPixmapTransform, true);
    QtPainter target(*painter);
    plot->renderInto(target, d->width, d->height);
}

} // namespace zembra
