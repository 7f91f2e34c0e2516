// SPDX-License-Identifier: MIT
#include "window/ChartPage.h"

#include "Failure.h"
#include "PictureKind.h"
#include "window/ColumnDialog.h"
#include "window/ExportDialog.h"
#include "window/Printing.h"

#include <ZembraGraphicsView.h>
#include <ZembraNavigationWidget.h>

#include <QAction>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QEvent>
#include <QFileDialog>
#include <QGuiApplication>
#include <QMenu>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPrinter>
#include <QVBoxLayout>

#include <utility>

namespace viewer {

namespace {

Ground groundOf(const QPalette& palette) {
    const QColor window = palette.color(QPalette::Window);
    const QColor text = palette.color(QPalette::WindowText);
    return text.lightness() > window.lightness() ? Ground::Dark : Ground::Light;
}

} // namespace

ChartPage::ChartPage(std::shared_ptr<zembra::Plot> plot, QWidget* parent)
    : QWidget(parent),
      navigationStrip(new zembra::ZembraNavigationWidget(this)),
      chartView(new zembra::ZembraGraphicsView(this)),
      columns(new QAction(this)) {
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
    columns->setEnabled(false);
    connect(columns, &QAction::triggered, this, &ChartPage::chooseColumns);
    retranslate();
    followPalette();
}

// Draws with another ground or size and has the view lay the plot out anew.
template <class Draw>
void ChartPage::drawApart(std::optional<Ground> ground, Draw draw) {
    const std::shared_ptr<zembra::Plot> plot = chartView->plot();
    if (!plot)
        return;
    if (ground)
        setGround(*plot, *ground);
    draw(*plot);
    followPalette();
}

void ChartPage::savePicture() {
    ExportDialog dialog(ExportDialog::Purpose::Save, chartView->viewport()->size(), this);
    if (dialog.exec() != QDialog::Accepted)
        return;
    const QString path =
        QFileDialog::getSaveFileName(this, tr("Save Picture"), fileName + QStringLiteral(".png"),
                                     tr("Pictures (*.png *.svg *.pdf)"));
    if (path.isEmpty())
        return;
    const bool hasSuffix = pictureKind(path.toStdString()).has_value();
    writePicture(hasSuffix ? path : path + QStringLiteral(".png"), dialog.size(), dialog.ground());
}

bool ChartPage::writePicture(const QString& path, const PictureSize& size,
                             std::optional<Ground> ground) {
    QString problem;
    drawApart(ground, [&](zembra::Plot& plot) {
        try {
            exportPlot(plot, path.toStdString(), size);
        } catch (const Failure& failure) {
            problem = QString::fromUtf8(failure.what());
        }
    });
    if (problem.isEmpty())
        return true;
    auto* const box =
        new QMessageBox(QMessageBox::Warning, tr("Save Picture"), problem, QMessageBox::Ok, this);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->open();
    return false;
}

void ChartPage::copyPicture() {
    QGuiApplication::clipboard()->setPixmap(chartView->viewport()->grab());
}

void ChartPage::copyPicture(const PictureSize& size, std::optional<Ground> ground) {
    drawApart(ground, [&](zembra::Plot& plot) {
        QGuiApplication::clipboard()->setImage(plotImage(plot, size));
    });
}

void ChartPage::copyPictureAs() {
    ExportDialog dialog(ExportDialog::Purpose::Copy, chartView->viewport()->size(), this);
    if (dialog.exec() == QDialog::Accepted)
        copyPicture(dialog.size(), dialog.ground());
}

void ChartPage::print() {
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(fileName);
    printer.setPageOrientation(QPageLayout::Landscape);
    QPrintDialog dialog(&printer, this);
    if (dialog.exec() != QDialog::Accepted)
        return;
    bool isPrinted = false;
    // Paper is light.
    drawApart(Ground::Light, [&](zembra::Plot& plot) {
        isPrinted = printPlot(plot, chartView->viewport()->size(), printer);
    });
    if (!isPrinted)
        QMessageBox::warning(this, tr("Print"), tr("The chart could not be printed."));
}

void ChartPage::setChoice(std::optional<ColumnChoice> newChoice) {
    choice = std::move(newChoice);
    columns->setEnabled(choice.has_value());
}

void ChartPage::chooseColumns() {
    if (!choice)
        return;
    auto* const dialog = new ColumnDialog(*choice, this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, &ColumnDialog::accepted, this,
            [this, dialog] { Q_EMIT redrawWanted(dialog->options()); });
    dialog->open();
}

void ChartPage::fillMenu(QMenu& menu) {
    menu.addActions(chartView->navigationActions());
    menu.addSeparator();
    menu.addAction(columns);
    menu.addSeparator();
    menu.addAction(tr("Copy Picture"), this, [this] { copyPicture(); });
    menu.addAction(tr("Copy Picture As…"), this, &ChartPage::copyPictureAs);
    menu.addAction(tr("Save Picture As…"), this, &ChartPage::savePicture);
    menu.addAction(tr("Print…"), this, &ChartPage::print);
}

void ChartPage::contextMenuEvent(QContextMenuEvent* event) {
    QMenu menu(this);
    fillMenu(menu);
    menu.exec(event->globalPos());
    event->accept();
}

void ChartPage::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        followPalette();
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}

void ChartPage::retranslate() {
    columns->setText(tr("Choose &Columns…"));
}

void ChartPage::followPalette() {
    if (const std::shared_ptr<zembra::Plot> plot = chartView->plot())
        setGround(*plot, groundOf(palette()));
    chartView->replot();
}

} // namespace viewer
