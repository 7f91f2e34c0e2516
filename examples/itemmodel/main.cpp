// SPDX-License-Identifier: MIT
// A chart beside the table that it shows. Edit a cell, add rows or remove some: the chart follows.
#include <ZembraGraphicsView.h>
#include <ZembraItemModelSamples.h>
#include <zembra/zembra.h>

#include <QAction>
#include <QApplication>
#include <QHeaderView>
#include <QMainWindow>
#include <QSplitter>
#include <QStandardItemModel>
#include <QTableView>
#include <QToolBar>

#include <cmath>

namespace {

QStandardItem* number(double value) {
    auto* item = new QStandardItem;
    item->setData(value, Qt::DisplayRole);
    return item;
}

void addMeasurement(QStandardItemModel& model) {
    const int load = 50 * model.rowCount();
    // A spring that stiffens, to have something to look at.
    const double deflection = 12.0 * std::tanh(load / 400.0);
    model.appendRow({number(load), number(std::round(deflection * 100.0) / 100.0)});
}

} // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);

    QStandardItemModel model;
    model.setHorizontalHeaderLabels(
        {QStringLiteral("Load (N)"), QStringLiteral("Deflection (mm)")});
    for (int i = 0; i < 12; ++i)
        addMeasurement(model);

    auto plot = std::make_shared<zembra::Plot>();
    plot->setTitle("Deflection of a spring");
    plot->axis(2).setTitle("Load (N)");
    plot->axis(0).setTitle("Deflection (mm)");
    auto line = plot->add<zembra::LineSeries>();
    line->setMarkerShape(zembra::MarkerShape::Circle);

    auto* view = new zembra::ZembraGraphicsView;
    view->setPlot(plot);
    // Takes the first column as x and the second as y.
    zembra::ZembraItemModelSamples samples;
    samples.setSeries(line);
    samples.setModel(&model);
    QObject::connect(&samples, &zembra::ZembraItemModelSamples::samplesChanged, view,
                     &zembra::ZembraGraphicsView::replot);

    auto* table = new QTableView;
    table->setModel(&model);
    table->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);

    QMainWindow window;
    auto* splitter = new QSplitter;
    splitter->addWidget(table);
    splitter->addWidget(view);
    splitter->setStretchFactor(1, 1);
    splitter->setSizes({260, 640});
    window.setCentralWidget(splitter);
    QToolBar* toolBar = window.addToolBar(QStringLiteral("Table"));
    QObject::connect(toolBar->addAction(QStringLiteral("&Add row")), &QAction::triggered, &model,
                     [&model] { addMeasurement(model); });
    QObject::connect(toolBar->addAction(QStringLiteral("&Remove row")), &QAction::triggered, &model,
                     [&model, table] {
                         const QModelIndex current = table->currentIndex();
                         model.removeRow(current.isValid() ? current.row() : model.rowCount() - 1);
                     });
    window.setWindowTitle(QStringLiteral("Item model"));
    window.resize(900, 460);
    window.show();
    return QApplication::exec();
}
