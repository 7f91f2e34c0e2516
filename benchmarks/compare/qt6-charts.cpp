// SPDX-License-Identifier: MIT
#include "Chart.h"

#include <QtCharts/QChart>
#include <QtCharts/QChartView>
#include <QtCharts/QLegend>
#include <QtCharts/QLineSeries>
#include <QtCharts/QScatterSeries>
#include <QtCharts/QValueAxis>
#include <QtCore/QBuffer>
#include <QtSvg/QSvgGenerator>

namespace zembra::compare {

namespace {

QList<QPointF> listOf(const std::vector<double>& x, const std::vector<double>& y) {
    QList<QPointF> points;
    points.reserve(static_cast<qsizetype>(x.size()));
    for (std::size_t i = 0; i < x.size(); ++i)
        points.append(QPointF(x[i], y[i]));
    return points;
}

class Other : public Chart {
public:
    Other() {
        view.setRenderHint(QPainter::Antialiasing);
        chart = view.chart();
        chart->legend()->hide();
        chart->addAxis(x, Qt::AlignBottom);
        chart->addAxis(y, Qt::AlignLeft);
    }

    QWidget& window() override { return view; }
    QWidget& canvas() override { return *view.viewport(); }

    void addLine(const std::vector<double>& xs, const std::vector<double>& ys,
                 double width) override {
        auto* line = new QLineSeries;
        line->replace(listOf(xs, ys));
        line->setPen(QPen(ink, width));
        add(line);
    }

    void addDiscs(const std::vector<double>& xs, const std::vector<double>& ys,
                  double size) override {
        auto* discs = new QScatterSeries;
        discs->setMarkerShape(QScatterSeries::MarkerShapeCircle);
        discs->setMarkerSize(size);
        discs->setPen(Qt::NoPen);
        discs->setBrush(ink);
        discs->replace(listOf(xs, ys));
        add(discs);
    }

    bool addMap(const std::vector<double>&, std::size_t) override { return false; }
    void changeMap() override {}

    void show(double left, double right, double bottom, double top) override {
        x->setRange(left, right);
        y->setRange(bottom, top);
        view.viewport()->update();
    }

    QByteArray svg(int width, int height) override {
        QBuffer buffer;
        QSvgGenerator generator;
        generator.setOutputDevice(&buffer);
        generator.setSize({width, height});
        generator.setViewBox(QRect(0, 0, width, height));
        QPainter painter(&generator);
        view.render(&painter);
        painter.end();
        return buffer.data();
    }

private:
    void add(QXYSeries* series) {
        chart->addSeries(series);
        series->attachAxis(x);
        series->attachAxis(y);
    }

    QChartView view;
    QChart* chart = nullptr;
    QValueAxis* x = new QValueAxis;
    QValueAxis* y = new QValueAxis;
};

} // namespace

// What its documents recommend draws without anti-aliasing.
std::unique_ptr<Chart> makeChart(bool fast) {
    return fast ? nullptr : std::make_unique<Other>();
}

} // namespace zembra::compare
