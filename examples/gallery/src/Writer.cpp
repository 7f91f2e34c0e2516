// SPDX-License-Identifier: MIT
#include "Writer.h"

#include <QtRenderSurface.h>
#include <QtSvgRenderSurface.h>

#include <QDir>
#include <QFile>

#include <algorithm>

namespace gallery {

namespace {

constexpr int pictureWidth = 720;
constexpr int pictureHeight = 480;
// Crisp on screens with a pixel ratio of 2.
constexpr int pictureRatio = 2;

bool writeSvg(zembra::Plot& plot, const QString& path) {
    zembra::QtSvgRenderSurface surface;
    surface.create(pictureWidth, pictureHeight);
    plot.renderInto(*surface.painter(), pictureWidth, pictureHeight);
    return surface.saveToFile(path.toStdString());
}

QString figure(const Chart& chart) {
    const QString id = QString::fromUtf8(chart.id);
    const QString title = QString::fromUtf8(chart.title).toHtmlEscaped();
    return QStringLiteral("<figure id=\"%1\"><a href=\"%1.png\"><img src=\"%1.png\" alt=\"%2\" "
                          "width=\"%3\" height=\"%4\" loading=\"lazy\"></a>"
                          "<figcaption>%2 <a href=\"%1.svg\">SVG</a></figcaption></figure>\n")
        .arg(id, title, QString::number(pictureWidth), QString::number(pictureHeight));
}

const QString& indexHead() {
    static const QString head = QStringLiteral(
        "<!doctype html>\n<html lang=\"en\">\n<meta charset=\"utf-8\">\n"
        "<meta name=\"viewport\" content=\"width=device-width\">\n<title>Gallery</title>\n"
        "<style>\n"
        "body { font: 15px/1.4 Lato, sans-serif; color: #262626; background: #f3f3f4;"
        " max-width: 1180px; margin: 2rem auto; padding: 0 1rem }\n"
        "section { display: grid; gap: 1.2rem;"
        " grid-template-columns: repeat(auto-fill, minmax(340px, 1fr)) }\n"
        "h2 { margin: 2rem 0 .8rem; font-size: 1.15rem }\n"
        "figure { margin: 0; background: #fff; border: 1px solid #dcdce0; border-radius: 4px;"
        " overflow: hidden }\n"
        "img { display: block; width: 100%; height: auto }\n"
        "figcaption { padding: .5rem .8rem; border-top: 1px solid #ececef }\n"
        "figcaption a { float: right; color: #0072b2; text-decoration: none }\n"
        "</style>\n<h1>Gallery</h1>\n");
    return head;
}

} // namespace

QImage rendered(zembra::Plot& plot, int width, int height, int ratio) {
    zembra::QtRenderSurface surface;
    surface.create(width * ratio, height * ratio);
    surface.scale(ratio, ratio);
    plot.renderInto(*surface.painter(), width, height);
    const auto bytes = surface.getImageData(width * ratio, height * ratio);
    QImage image(width * ratio, height * ratio, QImage::Format_RGBA8888);
    for (int row = 0; row < image.height(); ++row) {
        const auto begin = bytes.begin() + static_cast<std::ptrdiff_t>(row) * image.width() * 4;
        std::copy_n(begin, image.width() * 4, image.scanLine(row));
    }
    return image;
}

bool writeGallery(const QString& folder) {
    const QDir dir(folder);
    if (!dir.mkpath(QStringLiteral(".")))
        return false;
    QString index = indexHead();
    for (const Chapter& chapter : chapters()) {
        index += QStringLiteral("<h2>%1</h2>\n<section>\n")
                     .arg(QString::fromUtf8(chapter.title).toHtmlEscaped());
        for (const Chart& chart : chapter.charts) {
            const auto plot = chart.make();
            const QString base = dir.filePath(QString::fromUtf8(chart.id));
            const QImage image = rendered(*plot, pictureWidth, pictureHeight, pictureRatio);
            if (!image.save(base + QStringLiteral(".png")) ||
                !writeSvg(*plot, base + QStringLiteral(".svg")))
                return false;
            index += figure(chart);
        }
        index += QStringLiteral("</section>\n");
    }
    QFile file(dir.filePath(QStringLiteral("index.html")));
    const QByteArray bytes = index.toUtf8();
    return file.open(QIODevice::WriteOnly | QIODevice::Truncate) &&
           file.write(bytes) == bytes.size() && file.flush();
}

bool writeGoldens(const QString& folder) {
    const QDir dir(folder);
    if (!dir.mkpath(QStringLiteral(".")))
        return false;
    for (const Chapter& chapter : chapters()) {
        for (const Chart& chart : chapter.charts) {
            const QImage image = rendered(*chart.make(), goldenWidth, goldenHeight);
            // Without transparency and at the best compression the files stay small.
            if (!image.convertToFormat(QImage::Format_RGB888)
                     .save(dir.filePath(QString::fromUtf8(chart.id) + QStringLiteral(".png")),
                           "PNG", 0))
                return false;
        }
    }
    return true;
}

} // namespace gallery
