// SPDX-License-Identifier: MIT
#include "QtPainter.h"

#include "QtFontUtilsPrivate.h"

#include <QBrush>
#include <QColor>
#include <QFontMetricsF>
#include <QImage>
#include <QLineF>
#include <QList>
#include <QPainter>
#include <QPen>
#include <QPixmap>
#include <QPointF>
#include <QRectF>
#include <QString>

#include <numbers>

namespace zembra {

namespace {

QColor toQColor(const Color& color) {
    return {color.red(), color.green(), color.blue(), color.alpha()};
}

QBrush toQBrush(const Color& color) {
    return {toQColor(color), Qt::SolidPattern};
}

QPen toQPen(const Pen& pen) {
    QPen result(toQColor(pen.color()));
    result.setWidthF(pen.widthF());
    const std::vector<double> dashes = pen.dashPattern();
    if (!dashes.empty()) {
        result.setDashPattern(QList<double>(dashes.begin(), dashes.end()));
        return result;
    }
    const int style = static_cast<int>(pen.style());
    if (style >= Qt::NoPen && style <= Qt::DashDotDotLine)
        result.setStyle(static_cast<Qt::PenStyle>(style));
    return result;
}

QRectF toQRectF(const Rect& rect) {
    return {rect.x, rect.y, rect.width, rect.height};
}

QRectF ellipseBox(double cx, double cy, double rx, double ry) {
    return {cx - rx, cy - ry, 2.0 * rx, 2.0 * ry};
}

QList<QPointF> toQPoints(const std::vector<Point>& points) {
    QList<QPointF> result;
    result.reserve(static_cast<qsizetype>(points.size()));
    for (const Point& p : points)
        result.append(QPointF(p.x, p.y));
    return result;
}

} // namespace

struct QtPainter::Private {
    QPainter& painter;
    Pen pen = {};
    Brush brush = {};
    Font font = {};
    const unsigned char* cachedImageData = nullptr;
    int cachedImageWidth = 0;
    int cachedImageHeight = 0;
    QPixmap cachedPixmap = {};
};

QtPainter::QtPainter(QPainter& painter) : d(new Private{painter}) {
    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.setRenderHint(QPainter::TextAntialiasing, true);
}

QtPainter::~QtPainter() = default;

void QtPainter::save() {
    d->painter.save();
}

void QtPainter::restore() {
    d->painter.restore();
}

void QtPainter::setPen(const Pen& pen) {
    d->pen = pen;
    d->painter.setPen(toQPen(pen));
}

void QtPainter::setBrush(const Brush& brush) {
    d->brush = brush;
    d->painter.setBrush(toQBrush(brush.color()));
}

void QtPainter::setFont(const Font& font) {
    d->font = font;
    d->painter.setFont(toQFont(font));
}

void QtPainter::drawLine(double x1, double y1, double x2, double y2) {
    d->painter.setPen(toQPen(d->pen));
    d->painter.drawLine(QLineF(x1, y1, x2, y2));
}

void QtPainter::drawRect(const Rect& rect) {
    d->painter.setPen(toQPen(d->pen));
    d->painter.setBrush(Qt::NoBrush);
    d->painter.drawRect(toQRectF(rect));
}

void QtPainter::fillRect(const Rect& rect, const Color& color) {
    d->painter.fillRect(toQRectF(rect), toQColor(color));
}

void QtPainter::drawPolyline(const std::vector<Point>& points) {
    if (points.size() < 2)
        return;
    d->painter.setPen(toQPen(d->pen));
    const QList<QPointF> vertices = toQPoints(points);
    d->painter.drawPolyline(vertices.data(), static_cast<int>(vertices.size()));
}

void QtPainter::fillPolygon(const std::vector<Point>& points, const Color& color) {
    if (points.size() < 3)
        return;
    const QList<QPointF> vertices = toQPoints(points);
    d->painter.setPen(Qt::NoPen);
    d->painter.setBrush(toQBrush(color));
    d->painter.drawPolygon(vertices.data(), static_cast<int>(vertices.size()), Qt::OddEvenFill);
}

void QtPainter::fillEllipse(double cx, double cy, double rx, double ry, const Color& color) {
    d->painter.setPen(Qt::NoPen);
    d->painter.setBrush(toQBrush(color));
    d->painter.drawEllipse(ellipseBox(cx, cy, rx, ry));
}

void QtPainter::drawEllipse(double cx, double cy, double rx, double ry) {
    d->painter.setPen(toQPen(d->pen));
    d->painter.setBrush(Qt::NoBrush);
    d->painter.drawEllipse(ellipseBox(cx, cy, rx, ry));
}

void QtPainter::drawImage(const unsigned char* rgba, int width, int height, double cx, double cy) {
    if (width <= 0 || height <= 0 || !rgba)
        return;
    const bool isCached = rgba == d->cachedImageData && width == d->cachedImageWidth &&
                          height == d->cachedImageHeight;
    if (!isCached) {
        const QImage image(rgba, width, height, qsizetype{width} * 4, QImage::Format_RGBA8888);
        d->cachedPixmap = QPixmap::fromImage(image, Qt::AutoColor);
        d->cachedImageData = rgba;
        d->cachedImageWidth = width;
        d->cachedImageHeight = height;
    }
    d->painter.drawPixmap(QPointF(cx - width * 0.5, cy - height * 0.5), d->cachedPixmap);
}

void QtPainter::drawText(double x, double y, const std::string& text, const Font& font,
                         const Color& color) {
    d->painter.setFont(toQFont(font));
    d->painter.setPen(toQColor(color));
    d->painter.drawText(QPointF(x, y), QString::fromStdString(text));
}

void QtPainter::drawRotatedText(double x, double y, double angle, const std::string& text,
                                const Font& font, const Color& color) {
    save();
    translate(x, y);
    rotate(angle);
    drawText(0.0, 0.0, text, font, color);
    restore();
}

TextExtent QtPainter::measureText(const std::string& text, const Font& font) {
    const QFontMetricsF metrics(toQFont(font));
    return {metrics.horizontalAdvance(QString::fromStdString(text)), font.pixelSize()};
}

void QtPainter::translate(double dx, double dy) {
    d->painter.translate(QPointF(dx, dy));
}

void QtPainter::rotate(double angle) {
    d->painter.rotate(angle * 180.0 / std::numbers::pi);
}

void QtPainter::setClipRect(const Rect& rect) {
    d->painter.save();
    d->painter.setClipRect(toQRectF(rect), Qt::ReplaceClip);
}

void QtPainter::clearClip() {
    d->painter.restore();
}

} // namespace zembra
