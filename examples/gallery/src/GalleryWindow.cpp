// SPDX-License-Identifier: MIT
#include "GalleryWindow.h"

#include "Chart.h"

#include <ZembraGraphicsView.h>
#include <ZembraNavigationWidget.h>

#include <QSplitter>
#include <QTreeWidget>
#include <QVBoxLayout>

using zembra::ZembraGraphicsView;
using zembra::ZembraNavigationWidget;

namespace gallery {

namespace {

using Maker = std::shared_ptr<zembra::Plot> (*)();

constexpr int makerRole = Qt::UserRole;

} // namespace

GalleryWindow::GalleryWindow(QWidget* parent)
    : QWidget(parent), charts(new QTreeWidget), graphicsView(new ZembraGraphicsView) {
    setWindowTitle(tr("Gallery"));
    charts->setHeaderHidden(true);
    charts->setRootIsDecorated(false);
    for (const Chapter& chapter : chapters()) {
        auto* heading = new QTreeWidgetItem(charts, {QString::fromUtf8(chapter.title)});
        heading->setFlags(Qt::ItemIsEnabled);
        for (const Chart& chart : chapter.charts) {
            auto* item = new QTreeWidgetItem(heading, {QString::fromUtf8(chart.title)});
            item->setData(0, makerRole,
                          QVariant::fromValue(reinterpret_cast<quintptr>(chart.make)));
        }
    }
    charts->expandAll();

    auto* strip = new ZembraNavigationWidget;
    strip->setGraphicsView(graphicsView);
    auto* page = new QWidget;
    auto* column = new QVBoxLayout(page);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(strip);
    column->addWidget(graphicsView, 1);

    auto* splitter = new QSplitter;
    splitter->addWidget(charts);
    splitter->addWidget(page);
    splitter->setStretchFactor(1, 1);
    splitter->setSizes({220, 820});
    auto* row = new QVBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(splitter);
    resize(1040, 640);

    connect(charts, &QTreeWidget::currentItemChanged, this,
            [this](const QTreeWidgetItem* item) { showChart(item); });
    charts->setCurrentItem(charts->topLevelItem(0)->child(0));
}

void GalleryWindow::showChart(const QTreeWidgetItem* item) {
    if (!item || !item->parent())
        return;
    const auto make = reinterpret_cast<Maker>(item->data(0, makerRole).value<quintptr>());
    graphicsView->setPlot(make());
    setWindowTitle(tr("%1 – Gallery").arg(item->text(0)));
}

} // namespace gallery
