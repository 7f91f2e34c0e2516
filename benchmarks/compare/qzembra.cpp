// SPDX-License-Identifier: MIT
#include "Chart.h"

#include <QtSvgRenderSurface.h>
#include <ZembraGraphicsView.h>

#include <zembra/chart/Plot.h>
#include <zembra/series/HeatMapSeries.h>
#include <zembra/series/LineSeries.h>
#include <zembra/series/ScatterSeries.h>

#include <utility>

namespace zembra::compare {

namespace {

const Color color(ink.red(), ink.green(), ink.blue());

class Own : public Chart {
public:
    Own() { view.setPlot(plot); }

    QWidget& window() override { return view; }
    QWidget& canvas() override { return *view.viewport(); }

    void addLine(const std::vector<double>& x, const std::vector<double>& y,
                 double width) override {
        const auto line = plot->add<LineSeries>(x, y);
        line->setWidth(width);
        line->setColor(color);
    }

    void addDiscs(const std::vector<double>& x, const std::vector<double>& y,
                  double size) override {
        const auto discs = plot->add<ScatterSeries>(x, y);
        discs->setMarkerSize(size);
        discs->setColor(color);
    }

    bool addMap(const std::vector<double>& values, std::size_t side) override {
        grid = Grid(values, side, {0.0, 1.0}, {0.0, 1.0});
        map = plot->add<HeatMapSeries>(grid);
        ColorScale colors;
        colors.setRange(-1.0, 1.0);
        map->setColorScale(colors);
        return true;
    }

    void changeMap() override { map->setGrid(grid); }

    void show(double left, double right, double bottom, double top) override {
        plot->setAxisScale(2, left, right);
        plot->setAxisScale(0, bottom, top);
        view.replot();
    }

    QByteArray svg(int width, int height) override {
        QtSvgRenderSurface surface;
        surface.create(width, height);
        plot->renderInto(*surface.painter(), width, height);
        surface.finalize();
        return QByteArray::fromStdString(surface.svgData());
    }

private:
    std::shared_ptr<Plot> plot = std::make_shared<Plot>();
    ZembraGraphicsView view;
    Grid grid;
    std::shared_ptr<HeatMapSeries> map;
};

} // namespace

// It needs no hints.
std::unique_ptr<Chart> makeChart(bool fast) {
    return fast ? nullptr : std::make_unique<Own>();
}

} // namespace zembra::compare
