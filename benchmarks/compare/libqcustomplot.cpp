// SPDX-License-Identifier: MIT
#include "Chart.h"

#include <QtCore/QBuffer>
#include <QtSvg/QSvgGenerator>

#include <qcustomplot.h>

namespace zembra::compare {

namespace {

QVector<double> listOf(const std::vector<double>& values) {
    return QVector<double>(values.begin(), values.end());
}

class Other : public Chart {
public:
    explicit Other(bool fast) { plot.setPlottingHint(QCP::phFastPolylines, fast); }

    QWidget& window() override { return plot; }
    QWidget& canvas() override { return plot; }

    void addLine(const std::vector<double>& x, const std::vector<double>& y,
                 double width) override {
        QCPGraph* graph = plot.addGraph();
        graph->setData(listOf(x), listOf(y), true);
        graph->setPen(QPen(ink, width));
        graph->setAntialiased(true);
        graph->setAdaptiveSampling(true);
    }

    void addDiscs(const std::vector<double>& x, const std::vector<double>& y,
                  double size) override {
        QCPGraph* graph = plot.addGraph();
        graph->setData(listOf(x), listOf(y), false);
        graph->setLineStyle(QCPGraph::lsNone);
        graph->setScatterStyle(QCPScatterStyle(QCPScatterStyle::ssDisc, ink, size));
        graph->setAntialiasedScatters(true);
        graph->setAdaptiveSampling(true);
    }

    bool addMap(const std::vector<double>& values, std::size_t side) override {
        map = new QCPColorMap(plot.xAxis, plot.yAxis);
        const int cells = static_cast<int>(side);
        map->data()->setSize(cells, cells);
        map->data()->setRange(QCPRange(0.0, 1.0), QCPRange(0.0, 1.0));
        for (int row = 0; row < cells; ++row)
            for (int column = 0; column < cells; ++column)
                map->data()->setCell(column, row,
                                     values[static_cast<std::size_t>(row) * side +
                                            static_cast<std::size_t>(column)]);
        map->setGradient(QCPColorGradient(QCPColorGradient::gpThermal));
        map->setDataRange(QCPRange(-1.0, 1.0));
        return true;
    }

    // One cell is enough to have it look at all of them, and spares it the time of filling them.
    void changeMap() override {
        odd = !odd;
        map->data()->setCell(0, 0, odd ? 1.0 : -1.0);
    }

    void show(double left, double right, double bottom, double top) override {
        plot.xAxis->setRange(left, right);
        plot.yAxis->setRange(bottom, top);
        plot.replot();
    }

    QByteArray svg(int width, int height) override {
        QBuffer buffer;
        QSvgGenerator generator;
        generator.setOutputDevice(&buffer);
        generator.setSize({width, height});
        generator.setViewBox(QRect(0, 0, width, height));
        QCPPainter painter;
        painter.begin(&generator);
        plot.toPainter(&painter, width, height);
        painter.end();
        return buffer.data();
    }

private:
    QCustomPlot plot;
    QCPColorMap* map = nullptr;
    bool odd = false;
};

} // namespace

std::unique_ptr<Chart> makeChart(bool fast) {
    return std::make_unique<Other>(fast);
}

} // namespace zembra::compare
