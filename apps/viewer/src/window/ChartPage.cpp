// SPDX-License-Identifier: MIT
#include "window/ChartPage.h"

#include "Exporter.h"
#include "Failure.h"

#include <ZembraGraphicsView.h>
#include <ZembraNavigationWidget.h>

#include <QAction>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QFileDialog>
#include <QGuiApplication>
#include <QMenu>
#include <QMessageBox>
#include <QVBoxLayout>

namespace viewer {

ChartPage::ChartPage(std::shared_ptr<zembra::Plot> plot, QWidget* parent)
    : QWidget(parent),
      navigationStrip(new zembra::ZembraNavigationWidget(this)),
      chartView(new zembra::ZembraGraphicsView(this)) {
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(navigationStrip);
    layout->addWidget(chartView, 1);

    chartView->setFrameShape(QFrame::NoFrame);
    chartView->setPlot(std::move(plot));
    navigationStrip->setGraphicsView(chartView);
    // Keys zoom at once, without a click into the chart first.
    setFocusProxy(chartView);
}

void ChartPage::savePicture() {
    const QString path = QFileDialog::getSaveFileName(
        this, tr("Save Picture"), QStringLiteral("chart.png"),
        tr("PNG picture (*.png);;SVG drawing (*.svg);;PDF document (*.pdf)"));
    if (path.isEmpty() || !chartView->plot())
        return;
    try {
        const QSize size = chartView->viewport()->size();
        exportPlot(*chartView->plot(), path.toStdString(), {size.width(), size.height()});
    } catch (const Failure& failure) {
        QMessageBox::warning(this, tr("Save Picture"), QString::fromUtf8(failure.what()));
    }
    // The export laid the plot out anew.
    chartView->replot();
}

void ChartPage::copyPicture() {
    QGuiApplication::clipboard()->setPixmap(chartView->viewport()->grab());
}

void ChartPage::fillMenu(QMenu& menu) {
    menu.addActions(chartView->navigationActions());
    menu.addSeparator();
    menu.addAction(tr("Copy Picture"), this, &ChartPage::copyPicture);
    menu.addAction(tr("Save Picture As…"), this, &ChartPage::savePicture);
}

void ChartPage::contextMenuEvent(QContextMenuEvent* event) {
    QMenu menu(this);
    fillMenu(menu);
    menu.exec(event->globalPos());
    event->accept();
}

} // namespace viewer
