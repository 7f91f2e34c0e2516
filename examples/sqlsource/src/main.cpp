// SPDX-License-Identifier: MIT
//
// Usage: sqlsource [FILE] [ROWS]. FILE is made and filled where it does not exist.
#include "SqlSource.h"

#include <ZembraGraphicsView.h>

#include <zembra/chart/Plot.h>
#include <zembra/series/SourceSeries.h>

#include <QApplication>
#include <QDir>
#include <QLabel>
#include <QMainWindow>
#include <QStatusBar>

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    const QString file =
        arguments.value(1, QDir::temp().filePath(QStringLiteral("samples.sqlite")));
    const qint64 rows = arguments.value(2, QStringLiteral("10000000")).toLongLong();
    const auto source = std::make_shared<SqlSource>(file, rows);

    auto plot = std::make_shared<zembra::Plot>();
    plot->setTitle("Ten million rows, reduced by the database");
    plot->axis(2).setScale(zembra::Scale::time());
    plot->add<zembra::SourceSeries>(source)->setWidth(1.0);

    QMainWindow window;
    auto* view = new zembra::ZembraGraphicsView(&window);
    view->setPlot(plot);
    window.setCentralWidget(view);
    auto* state = new QLabel(&window);
    window.statusBar()->addWidget(state);
    QObject::connect(source.get(), &SqlSource::progressed, state,
                     [state](double share, bool isFilling) {
                         state->setText((isFilling ? QObject::tr("Filling the table: %1 %")
                                                   : QObject::tr("Reducing: %1 %"))
                                            .arg(100.0 * share, 0, 'f', 0));
                     });
    QObject::connect(source.get(), &SqlSource::failed, state, &QLabel::setText);
    QObject::connect(source.get(), &SqlSource::answered, view, [view, state] {
        state->clear();
        view->viewport()->update();
    });
    window.resize(1000, 640);
    window.show();
    return QApplication::exec();
}
