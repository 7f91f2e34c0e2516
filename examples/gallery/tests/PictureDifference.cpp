// SPDX-License-Identifier: MIT
#include "PictureDifference.h"

#include <QPainter>

#include <algorithm>
#include <cstdlib>

namespace gallery {

namespace {

QImage maskOf(const QSize& size, const QList<QPolygonF>& texts) {
    QImage mask(size, QImage::Format_RGB32);
    mask.fill(Qt::black);
    QPainter painter(&mask);
    painter.setBrush(Qt::white);
    painter.setPen(Qt::white);
    for (const QPolygonF& text : texts)
        painter.drawPolygon(text);
    return mask;
}

} // namespace

PictureDifference difference(const QImage& actual, const QImage& golden,
                             const QList<QPolygonF>& texts) {
    PictureDifference result;
    result.sameSize = actual.size() == golden.size();
    if (!result.sameSize)
        return result;
    const QImage mask = maskOf(actual.size(), texts);
    for (int y = 0; y < actual.height(); ++y)
        for (int x = 0; x < actual.width(); ++x) {
            const QRgb a = actual.pixel(x, y);
            const QRgb g = golden.pixel(x, y);
            const int off =
                std::max({std::abs(qRed(a) - qRed(g)), std::abs(qGreen(a) - qGreen(g)),
                          std::abs(qBlue(a) - qBlue(g)), std::abs(qAlpha(a) - qAlpha(g))});
            const bool isText = qRed(mask.pixel(x, y)) > 0;
            if (off <= (isText ? textTolerance : tolerance))
                continue;
            if (result.count++ == 0)
                result.first = {x, y};
            result.worst = std::max(result.worst, off);
        }
    return result;
}

} // namespace gallery
