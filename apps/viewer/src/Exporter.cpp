// SPDX-License-Identifier: MIT
#include "Exporter.h"

#include "Failure.h"
#include "PictureKind.h"

#include <QtPainter.h>
#include <QtRenderSurface.h>
#include <QtSvgRenderSurface.h>

#include <QBuffer>
#include <QImage>
#include <QMarginsF>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QSaveFile>

namespace viewer {

namespace {

// A pixel of the screen is 1/96 inch; PDF coordinates are finer so that nothing is rounded to one.
constexpr int pixelsPerInch = 96;
constexpr int pdfUnitsPerInch = 1200;

QByteArray pngBytes(zembra::Plot& plot, int width, int height) {
    zembra::QtRenderSurface surface;
    surface.create(width, height);
    plot.renderInto(*surface.painter(), width, height);
    const std::vector<std::uint8_t> pixels = surface.getImageData(width, height);
    const QImage image(pixels.data(), width, height, qsizetype(4) * width, QImage::Format_RGBA8888);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    return image.save(&buffer, "PNG") ? bytes : QByteArray();
}

QByteArray svgBytes(zembra::Plot& plot, int width, int height) {
    zembra::QtSvgRenderSurface surface;
    surface.create(width, height);
    plot.renderInto(*surface.painter(), width, height);
    return QByteArray::fromStdString(surface.svgData());
}

QByteArray pdfBytes(zembra::Plot& plot, int width, int height) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    {
        QPdfWriter writer(&buffer);
        constexpr double pointsPerPixel = 72.0 / pixelsPerInch;
        writer.setPageSize(QPageSize(QSizeF(width * pointsPerPixel, height * pointsPerPixel),
                                     QPageSize::Point, QString(), QPageSize::ExactMatch));
        writer.setPageMargins(QMarginsF());
        writer.setResolution(pdfUnitsPerInch);
        writer.setTitle(QString::fromStdString(plot.title()));
        QPainter painter(&writer);
        constexpr double unitsPerPixel = double(pdfUnitsPerInch) / pixelsPerInch;
        painter.scale(unitsPerPixel, unitsPerPixel);
        zembra::QtPainter target(painter);
        plot.renderInto(target, width, height);
    }
    return bytes;
}

QByteArray pictureBytes(zembra::Plot& plot, PictureKind kind, int width, int height) {
    switch (kind) {
    case PictureKind::Png:
        return pngBytes(plot, width, height);
    case PictureKind::Svg:
        return svgBytes(plot, width, height);
    case PictureKind::Pdf:
        return pdfBytes(plot, width, height);
    }
    return {};
}

[[noreturn]] void fail(const std::string& path, const std::string& reason) {
    throw Failure(path + ": cannot be written: " + reason, Failure::Kind::CannotWrite);
}

} // namespace

void exportPlot(zembra::Plot& plot, const std::string& path, int width, int height) {
    const std::optional<PictureKind> kind = pictureKind(path);
    if (!kind)
        fail(path, "the file name has to end in .png, .svg or .pdf");
    // Asked before drawing, which takes longer.
    QSaveFile file(QString::fromStdString(path));
    if (!file.open(QIODevice::WriteOnly))
        fail(path, file.errorString().toStdString());
    const QByteArray bytes = pictureBytes(plot, *kind, width, height);
    if (bytes.isEmpty())
        fail(path, "the picture could not be made");
    if (file.write(bytes) != bytes.size() || !file.commit())
        fail(path, file.errorString().toStdString());
}

} // namespace viewer
