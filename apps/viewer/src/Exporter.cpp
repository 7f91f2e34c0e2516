// SPDX-License-Identifier: MIT
#include "Exporter.h"

#include "Failure.h"
#include "PictureKind.h"

#include <QtPainter.h>
#include <QtRenderSurface.h>
#include <QtSvgRenderSurface.h>

#include <QBuffer>
#include <QFile>
#include <QMarginsF>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QSaveFile>

#include <algorithm>
#include <filesystem>
#include <memory>
#include <system_error>

namespace viewer {

namespace {

// A pixel of the screen is 1/96 inch; PDF coordinates are finer so that nothing is rounded to one.
constexpr int pixelsPerInch = 96;
constexpr int pdfUnitsPerInch = 1200;

QByteArray pngBytes(zembra::Plot& plot, const PictureSize& size) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    return plotImage(plot, size).save(&buffer, "PNG") ? bytes : QByteArray();
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

QByteArray pictureBytes(zembra::Plot& plot, PictureKind kind, const PictureSize& size) {
    switch (kind) {
    case PictureKind::Png:
        return pngBytes(plot, size);
    case PictureKind::Svg:
        return svgBytes(plot, size.width, size.height);
    case PictureKind::Pdf:
        return pdfBytes(plot, size.width, size.height);
    }
    return {};
}

[[noreturn]] void fail(const std::string& path, const std::string& reason) {
    throw Failure(path + ": cannot be written: " + reason, Failure::Kind::CannotWrite);
}

// Pipes and devices take what they get; renaming something over them would destroy them.
bool isPipeOrDevice(const std::string& path) {
    std::error_code error;
    const std::filesystem::file_status status = std::filesystem::status(path, error);
    return std::filesystem::is_other(status);
}

// Opened before the picture is drawn, which takes longer than to find out that it is in vain.
class Target {
public:
    explicit Target(const std::string& path) : path(path) {
        const QString name = QString::fromStdString(path);
        if (isPipeOrDevice(path))
            file = std::make_unique<QFile>(name);
        else
            file = std::make_unique<QSaveFile>(name);
        if (!file->open(QIODevice::WriteOnly | QIODevice::Unbuffered))
            fail(path, file->errorString().toStdString());
    }

    void write(const QByteArray& bytes) {
        if (bytes.isEmpty())
            fail(path, "the picture could not be made");
        auto* const saved = qobject_cast<QSaveFile*>(file.get());
        if (!writeAll(bytes) || (saved && !saved->commit()))
            fail(path, file->errorString().toStdString());
    }

private:
    // A full disk takes a part first and tells why only at the next attempt.
    bool writeAll(const QByteArray& bytes) {
        qint64 done = 0;
        while (done < bytes.size()) {
            const qint64 count = file->write(bytes.constData() + done, bytes.size() - done);
            if (count <= 0)
                return false;
            done += count;
        }
        return true;
    }

    std::string path;
    std::unique_ptr<QFileDevice> file;
};

} // namespace

int PictureSize::inPixels(int side) const {
    return std::clamp(qRound(double(side) * resolution / pixelsPerInch), 1, largestPictureSide);
}

QImage plotImage(zembra::Plot& plot, const PictureSize& size) {
    zembra::QtRenderSurface surface;
    surface.create(size.pixelWidth(), size.pixelHeight());
    surface.scale(double(size.pixelWidth()) / size.width, double(size.pixelHeight()) / size.height);
    plot.renderInto(*surface.painter(), size.width, size.height);
    const std::vector<std::uint8_t> pixels =
        surface.getImageData(size.pixelWidth(), size.pixelHeight());
    QImage image = QImage(pixels.data(), size.pixelWidth(), size.pixelHeight(),
                          qsizetype(4) * size.pixelWidth(), QImage::Format_RGBA8888)
                       .copy();
    const int dotsPerMeter = qRound(size.resolution / 0.0254);
    image.setDotsPerMeterX(dotsPerMeter);
    image.setDotsPerMeterY(dotsPerMeter);
    return image;
}

void exportPlot(zembra::Plot& plot, const std::string& path, const PictureSize& size) {
    const std::optional<PictureKind> kind = pictureKind(path);
    if (!kind)
        fail(path, "the file name has to end in .png, .svg or .pdf");
    Target target(path);
    target.write(pictureBytes(plot, *kind, size));
}

} // namespace viewer
