// SPDX-License-Identifier: MIT
#include "QtSvgRenderSurface.h"

#include "QtPainter.h"

#include <QBuffer>
#include <QByteArray>
#include <QFile>
#include <QPainter>
#include <QSvgGenerator>

namespace zembra {

struct QtSvgRenderSurface::Private {
    // In this order: when painting ends, the rest of the document goes through the generator and
    // the buffer into the bytes.
    std::unique_ptr<QByteArray> svgBytes;
    std::unique_ptr<QBuffer> buffer;
    std::unique_ptr<QSvgGenerator> generator;
    std::unique_ptr<QPainter> qpainter;
    std::unique_ptr<QtPainter> painterAdapter;

    void endPainting() {
        painterAdapter.reset();
        qpainter.reset();
    }
};

QtSvgRenderSurface::QtSvgRenderSurface() : d(std::make_unique<Private>()) {}

QtSvgRenderSurface::~QtSvgRenderSurface() = default;

void QtSvgRenderSurface::create(int width, int height) {
    d->endPainting();
    d->generator.reset();
    d->buffer.reset();
    d->svgBytes = std::make_unique<QByteArray>();
    d->buffer = std::make_unique<QBuffer>(d->svgBytes.get());
    d->buffer->open(QIODevice::WriteOnly);
    d->generator = std::make_unique<QSvgGenerator>();
    d->generator->setOutputDevice(d->buffer.get());
    d->generator->setSize(QSize(width, height));
    d->generator->setViewBox(QRect(0, 0, width, height));
    d->generator->setTitle(QStringLiteral("Zembra SVG"));
    d->qpainter = std::make_unique<QPainter>(d->generator.get());
    d->qpainter->setRenderHint(QPainter::Antialiasing);
    d->qpainter->setRenderHint(QPainter::TextAntialiasing);
    d->qpainter->setRenderHint(QPainter::SmoothPixmapTransform);
    d->painterAdapter = std::make_unique<QtPainter>(*d->qpainter);
}

void QtSvgRenderSurface::scale(double sx, double sy) {
    if (d->qpainter)
        d->qpainter->scale(sx, sy);
}

Painter* QtSvgRenderSurface::painter() {
    return d->painterAdapter.get();
}

std::vector<std::uint8_t> QtSvgRenderSurface::getImageData(int /*width*/, int /*height*/) {
    return {};
}

void QtSvgRenderSurface::finalize() {
    d->endPainting();
}

std::string QtSvgRenderSurface::svgData() {
    finalize();
    return d->svgBytes ? d->svgBytes->toStdString() : std::string();
}

bool QtSvgRenderSurface::saveToFile(const std::string& path) {
    finalize();
    if (!d->svgBytes)
        return false;
    QFile file(QString::fromStdString(path));
    const bool isOpen = file.open(QIODevice::WriteOnly);
    if (isOpen)
        file.write(*d->svgBytes);
    return isOpen;
}

} // namespace zembra
