// SPDX-License-Identifier: MIT
#include "window/Printing.h"

#include <QtPainter.h>

#include <QPainter>
#include <QPrinter>

#include <algorithm>

namespace viewer {

bool printPlot(zembra::Plot& plot, QSize shown, QPrinter& printer) {
    QPainter painter;
    if (shown.isEmpty() || !painter.begin(&printer))
        return false;
    const QRectF page = printer.pageLayout().paintRectPixels(printer.resolution());
    const double scale = std::min(page.width() / shown.width(), page.height() / shown.height());
    // The painter's origin is the corner of what can be printed.
    painter.translate((page.width() - scale * shown.width()) / 2.0, 0.0);
    painter.scale(scale, scale);
    zembra::QtPainter target(painter);
    plot.renderInto(target, shown.width(), shown.height());
    return painter.end();
}

} // namespace viewer
