// SPDX-License-Identifier: MIT
// A chart as a picture, as a drawing, as a document and on paper. The plot draws itself onto
// anything that a QPainter can paint on; nothing has to be shown for it.
#include <QtPainter.h>
#include <QtRenderSurface.h>
#include <QtSvgRenderSurface.h>
#include <ZembraGraphicsView.h>
#include <zembra/zembra.h>

#include <QApplication>
#include <QFileDialog>
#include <QImage>
#include <QMainWindow>
#include <QPainter>
#include <QPdfWriter>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QStatusBar>
#include <QToolBar>

#include <cmath>

namespace {

constexpr int width = 800;
constexpr int height = 500;

/// Text and lines keep their sizes; `scale` pixels stand for one, as on a finer screen.
bool writePng(zembra::Plot& plot, const QString& path, int scale) {
    zembra::QtRenderSurface surface;
    surface.create(width * scale, height * scale);
    surface.scale(scale, scale);
    plot.renderInto(*surface.painter(), width, height);
    const auto bytes = surface.getImageData(width * scale, height * scale);
    return QImage(bytes.data(), width * scale, height * scale, QImage::Format_RGBA8888).save(path);
}

bool writeSvg(zembra::Plot& plot, const QString& path) {
    zembra::QtSvgRenderSurface surface;
    surface.create(width, height);
    plot.renderInto(*surface.painter(), width, height);
    return surface.saveToFile(path.toStdString());
}

/// Fills the page of a printer or a document.
bool paintPage(zembra::Plot& plot, QPagedPaintDevice& device, int resolution) {
    QPainter painter;
    if (!painter.begin(&device))
        return false;
    // The plot is laid out in pixels of 1/96 inch and drawn with the dots of the device.
    const double dotsPerPixel = resolution / 96.0;
    const QRectF page = painter.viewport();
    painter.scale(dotsPerPixel, dotsPerPixel);
    zembra::QtPainter target(painter);
    plot.renderInto(target, static_cast<int>(page.width() / dotsPerPixel),
                    static_cast<int>(page.height() / dotsPerPixel));
    return true;
}

bool writePdf(zembra::Plot& plot, const QString& path) {
    QPdfWriter writer(path);
    writer.setPageSize(QPageSize(QPageSize::A5));
    writer.setPageOrientation(QPageLayout::Landscape);
    return paintPage(plot, writer, writer.resolution());
}

void previewPrint(zembra::Plot& plot, QWidget* parent) {
    QPrinter printer(QPrinter::HighResolution);
    printer.setPageOrientation(QPageLayout::Landscape);
    QPrintPreviewDialog preview(&printer, parent);
    QObject::connect(&preview, &QPrintPreviewDialog::paintRequested, parent,
                     [&](QPrinter* target) { paintPage(plot, *target, target->resolution()); });
    preview.exec();
}

std::shared_ptr<zembra::Plot> resonance() {
    auto plot = std::make_shared<zembra::Plot>();
    plot->setTitle("Resonance");
    plot->axis(2).setTitle("Frequency (Hz)");
    plot->axis(0).setTitle("Amplitude");
    for (const double damping : {0.05, 0.1, 0.2}) {
        const auto amplitude = [damping](double f) {
            return 1.0 / std::hypot(1.0 - f * f, 2.0 * damping * f);
        };
        const std::string name = "Damping " + zembra::NumberFormat::percent().text(damping);
        plot->add<zembra::FunctionSeries>(amplitude, name)->setDomain(0.0, 2.0);
    }
    return plot;
}

} // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    const auto plot = resonance();
    QMainWindow window;
    auto* view = new zembra::ZembraGraphicsView;
    view->setPlot(plot);
    window.setCentralWidget(view);

    QToolBar* toolBar = window.addToolBar(QStringLiteral("Export"));
    const auto offer = [&](const QString& kind, auto write) {
        QObject::connect(toolBar->addAction(kind), &QAction::triggered, &window, [&, kind, write] {
            const QString path = QFileDialog::getSaveFileName(
                &window, kind, QStringLiteral("chart.") + kind.toLower());
            if (path.isEmpty())
                return;
            const bool isWritten = write(path);
            window.statusBar()->showMessage(isWritten ? path
                                                      : QStringLiteral("Not written: ") + path);
            // Laid out for the file, the plot is laid out for the window again.
            view->replot();
        });
    };
    offer(QStringLiteral("PNG"), [&](const QString& path) { return writePng(*plot, path, 2); });
    offer(QStringLiteral("SVG"), [&](const QString& path) { return writeSvg(*plot, path); });
    offer(QStringLiteral("PDF"), [&](const QString& path) { return writePdf(*plot, path); });
    QObject::connect(toolBar->addAction(QStringLiteral("Print…")), &QAction::triggered, &window,
                     [&] {
                         previewPrint(*plot, &window);
                         view->replot();
                     });

    window.setWindowTitle(QStringLiteral("Export"));
    window.resize(width, height + 60);
    window.show();
    return QApplication::exec();
}
