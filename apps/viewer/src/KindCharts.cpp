// SPDX-License-Identifier: MIT
#include "KindCharts.h"

#include "EvenGrid.h"
#include "Groups.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>
#include <utility>

namespace viewer {

namespace {

// More bins than this are no shape any more.
constexpr std::size_t mostBins = 200;
constexpr std::size_t mostNamesInside = 8;
constexpr int opacityOfOverlaps = 150;

struct NamedSamples {
    std::string name;
    std::vector<double> values;
};

class KindPainter {
public:
    KindPainter(zembra::Plot& plot, const Table& table, const ChartPlan& plan,
                const Options& options)
        : plot(plot), table(table), plan(plan), options(options) {}

    void histogram() {
        std::vector<NamedSamples> all = samples();
        if (options.logX)
            plot.axis(2).setScale(zembra::Scale::log());
        if (options.logY)
            plot.axis(0).setScale(zembra::Scale::log());
        const zembra::Bins bins = commonBins(all);
        const std::vector<zembra::Color> cycle = plot.theme().cycle;
        const bool overlap = all.size() > 1;
        for (std::size_t i = 0; i < all.size(); ++i) {
            const auto series = plot.add<zembra::HistogramSeries>(
                std::move(all[i].values), overlap ? all[i].name : std::string());
            series->setBins(bins);
            if (overlap && !cycle.empty())
                series->setColor(cycle[i % cycle.size()].withAlpha(opacityOfOverlaps));
        }
        plot.axis(2).setTitle(commonTitle(all));
        plot.axis(0).setTitle("count");
        placeLegend();
    }

    void boxes() {
        std::vector<NamedSamples> all = samples();
        std::vector<std::string> names;
        std::vector<std::vector<double>> groups;
        for (NamedSamples& one : all) {
            names.push_back(std::move(one.name));
            groups.push_back(std::move(one.values));
        }
        plot.axis(2).setScale(zembra::Scale::categorical(std::move(names)));
        plot.axis(2).setGridVisible(false);
        if (options.logY)
            plot.axis(0).setScale(zembra::Scale::log());
        if (plan.grouping != Grouping::None)
            plot.axis(2).setTitle(table.columns[plan.by].name);
        if (plan.y.size() == 1)
            plot.axis(0).setTitle(name(0));
        plot.add<zembra::BoxPlotSeries>(std::move(groups));
    }

    void heatMap() {
        if (plan.value)
            positions();
        else
            matrix();
    }

    void candles() {
        zembra::CandleRows rows;
        rows.x = plan.x ? table.columns[*plan.x].values : std::vector<double>(table.rows);
        if (!plan.x)
            std::iota(rows.x.begin(), rows.x.end(), 1.0);
        rows.open = values(0);
        rows.high = values(1);
        rows.low = values(2);
        rows.close = values(3);
        const bool isTime = plan.x && table.columns[*plan.x].type.kind == ColumnKind::Time;
        if (isTime)
            plot.axis(2).setScale(zembra::Scale::time());
        else
            plot.axis(2).setTitle(plan.x ? table.columns[*plan.x].name : std::string("row"));
        if (options.logX && !isTime)
            plot.axis(2).setScale(zembra::Scale::log());
        if (options.logY)
            plot.axis(0).setScale(zembra::Scale::log());
        plot.axis(0).setTitle(name(3));
        plot.add<zembra::CandlestickSeries>(std::move(rows));
    }

private:
    const std::string& name(std::size_t drawn) const {
        return table.columns[plan.y[drawn].column].name;
    }
    const std::vector<double>& values(std::size_t drawn) const {
        return table.columns[plan.y[drawn].column].values;
    }

    std::vector<NamedSamples> samples() const {
        std::vector<NamedSamples> all;
        const std::vector<Group> groups = groupsOf(table, plan);
        for (std::size_t i = 0; i < plan.y.size(); ++i) {
            if (plan.grouping == Grouping::None)
                all.push_back({name(i), values(i)});
            for (const Group& group : groups)
                all.push_back({plan.y.size() > 1 ? group.name + ", " + name(i) : group.name,
                               pick(values(i), group.rows)});
        }
        return all;
    }

    // Only bars over the same bins can be compared.
    zembra::Bins commonBins(const std::vector<NamedSamples>& all) const {
        const auto bend = [this](double value) { return options.logX ? std::log10(value) : value; };
        std::vector<double> bent;
        for (const NamedSamples& one : all) {
            for (const double value : one.values) {
                if (std::isfinite(value) && (!options.logX || value > 0.0))
                    bent.push_back(bend(value));
            }
        }
        std::vector<double> edges = zembra::Bins().edgesFor(bent);
        if (edges.size() > mostBins + 1)
            edges = zembra::Bins::ofCount(mostBins).edgesFor(bent);
        if (options.logX)
            std::ranges::transform(edges, edges.begin(),
                                   [](double edge) { return std::pow(10.0, edge); });
        return zembra::Bins::withEdges(std::move(edges));
    }

    std::string commonTitle(const std::vector<NamedSamples>& all) const {
        if (plan.y.size() == 1)
            return name(0);
        return all.size() == 1 ? all.front().name : std::string();
    }

    void placeLegend() {
        if (plot.series().size() > mostNamesInside)
            plot.legend().setPosition(zembra::LegendPosition::OutsideRight);
        if (plan.grouping == Grouping::Classes)
            plot.setSubtitle("colours: " + table.columns[plan.by].name);
    }

    void matrix() {
        std::vector<double> cells(table.rows * plan.y.size());
        for (std::size_t c = 0; c < plan.y.size(); ++c) {
            for (std::size_t row = 0; row < table.rows; ++row)
                cells[row * plan.y.size() + c] = values(c)[row];
        }
        drawMatrix(plot, std::move(cells), plan.y.size());
    }

    void positions() {
        const Column& x = table.columns[*plan.x];
        const Column& y = table.columns[plan.y.front().column];
        const Column& value = table.columns[*plan.value];
        const EvenGrid grid = findEvenGrid(x.values, y.values, table.rows);
        std::vector<double> cells(grid.x.count * grid.y.count,
                                  std::numeric_limits<double>::quiet_NaN());
        for (std::size_t row = 0; row < table.rows; ++row) {
            if (std::isfinite(x.values[row]) && std::isfinite(y.values[row]))
                cells[grid.y.indexOf(y.values[row]) * grid.x.count +
                      grid.x.indexOf(x.values[row])] = value.values[row];
        }
        const auto span = [](const EvenSteps& steps) {
            return zembra::GridSpan{steps.first - steps.step / 2.0,
                                    steps.first +
                                        steps.step * (static_cast<double>(steps.count) - 0.5)};
        };
        const auto series = plot.add<zembra::HeatMapSeries>(
            zembra::Grid(std::move(cells), grid.x.count, span(grid.x), span(grid.y)));
        zembra::ColorScale colors;
        colors.setTitle(value.name);
        series->setColorScale(std::move(colors));
        plot.axis(2).setRange(series->grid().x().first, series->grid().x().last);
        plot.axis(0).setRange(series->grid().y().first, series->grid().y().last);
        plot.axis(2).setTitle(x.name);
        plot.axis(0).setTitle(y.name);
    }

    zembra::Plot& plot;
    const Table& table;
    const ChartPlan& plan;
    const Options& options;
};

} // namespace

bool drawKind(zembra::Plot& plot, const Table& table, const ChartPlan& plan,
              const Options& options) {
    KindPainter painter(plot, table, plan, options);
    switch (plan.kind) {
    case ChartKind::Histogram:
        painter.histogram();
        return true;
    case ChartKind::Box:
        painter.boxes();
        return true;
    case ChartKind::HeatMap:
        painter.heatMap();
        return true;
    case ChartKind::Candlestick:
        painter.candles();
        return true;
    case ChartKind::Line:
    case ChartKind::Scatter:
    case ChartKind::Bar:
        break;
    }
    return false;
}

void drawMatrix(zembra::Plot& plot, std::vector<double> values, std::size_t columns) {
    const double width = static_cast<double>(columns);
    const std::size_t rows = values.size() / std::max<std::size_t>(columns, 1);
    const double height = static_cast<double>(rows);
    plot.add<zembra::HeatMapSeries>(
        zembra::Grid(std::move(values), columns, {0.5, width + 0.5}, {0.5, height + 0.5}));
    plot.axis(2).setRange(0.5, width + 0.5);
    plot.axis(0).setInverted(true);
    plot.axis(0).setRange(height + 0.5, 0.5);
    plot.axis(2).setTitle("column");
    plot.axis(0).setTitle("row");
}

} // namespace viewer
