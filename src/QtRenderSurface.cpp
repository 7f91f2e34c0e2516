// SPDX-License-Identifier: MIT
#include "QtRenderSurface.h"

#include "QtPainter.h"

#include <QImage>
#include <QPainter>

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <stdexcept>

namespace zembra {

struct QtRenderSurface::Private {
    // In this order, so that painting ends before the image goes.
    std::unique_ptr<QImage> image;
    std::unique_ptr<QPainter> qpainter;
    std::unique_ptr<QtPainter> painterAdapter;

    void endPainting() {
        painterAdapter.reset();
        qpainter.reset();
    }
};

QtRenderSurface::QtRenderSurface() : d(std::make_unique<Private>()) {}

QtRenderSurface::~QtRenderSurface() = default;

void QtRenderSurface::create(int width, int height) {
    d->endPainting();
    d->image = std::make_unique<QImage>(width, height, QImage::Format_ARGB32_Premultiplied);
    d->image->fill(Qt::transparent);
    d->qpainter = std::make_unique<QPainter>(d->image.get());
    d->qpainter->setRenderHint(QPainter::Antialiasing);
    d->qpainter->setRenderHint(QPainter::TextAntialiasing);
    d->qpainter->setRenderHint(QPainter::SmoothPixmapTransform);
    d->painterAdapter = std::make_unique<QtPainter>(*d->qpainter);
}

void QtRenderSurface::scale(double sx, double sy) {
    if (d->qpainter)
        d->qpainter->scale(sx, sy);
}

Painter* QtRenderSurface::painter() {
    return d->painterAdapter.get();
}

std::vector<std::uint8_t> QtRenderSurface::getImageData(int width, int height) {
    d->endPainting();
    const QImage pixels = d->image ? d->image->convertToFormat(QImage::Format_RGBA8888) : QImage();
    if ((width < 0 && height > 0) || (width > 0 && height < 0))
        throw std::length_error("QtRenderSurface: pixels of a negative area");
    const std::size_t stride = static_cast<std::size_t>(width) * 4;
    std::vector<std::uint8_t> result(stride * static_cast<std::size_t>(height));
    const int rows = std::min(height, pixels.height());
    if (width <= 0 || rows <= 0)
        return result;
    const std::size_t rowBytes = std::min(stride, static_cast<std::size_t>(pixels.bytesPerLine()));
    for (int row = 0; row < rows; ++row)
        std::memcpy(result.data() + static_cast<std::size_t>(row) * stride,
                    pixels.constScanLine(row), rowBytes);
    return result;
}

} // namespace zembra
