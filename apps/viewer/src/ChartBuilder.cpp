// SPDX-License-Identifier: MIT
#include "ChartBuilder.h"

#include "Groups.h"
#include "KindCharts.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <filesystem>
#include <numeric>
#include <span>
#include <utility>

namespace viewer {

namespace {

constexpr std::size_t mostNamesInside = 8;
// Longer lists of names would run out of their axis.
constexpr std::size_t longestAxisTitle = 60;

class Builder {
public:
    Builder(const Table& table, const ChartPlan& plan, const Options& options, zembra::Plot& plot)
        : table(table), plan(plan), options(options), plot(&plot) {}

    void build() {
        const std::string stem = std::filesystem::path(table.file).stem().string();
        plot->setTitle(options.title.value_or(stem));
        if (drawKind(*plot, table, plan, options))
            return;
        setUpAxes();
        if (plan.grouping == Grouping::None)
            addColumns();
        else
            addGroups();
        placeLegend();
    }

private:
    const Column& column(std::size_t index) const { return table.columns[index]; }
    bool isTime() const { return plan.x && column(*plan.x).type.kind == ColumnKind::Time; }

    // A legend inside the canvas is the best one, unless it would cover data or fill the canvas.
    void placeLegend() {
        const std::size_t series = plot->series().size();
        if (plan.grouping == Grouping::Classes || series > mostNamesInside) {
            plot->legend().setPosition(zembra::LegendPosition::OutsideRight);
        } else if (isDense(table.rows)) {
            plot->legend().setPosition(zembra::LegendPosition::OutsideTop);
        }
        if (plan.grouping == Grouping::Classes)
            plot->setSubtitle("colours: " + column(plan.by).name);
    }

    // More samples than there are pixels across.
    bool isDense(std::size_t samples) const {
        return samples > static_cast<std::size_t>(options.size.width);
    }

    bool hasRightAxis() const { return std::ranges::any_of(plan.y, &DrawnColumn::onRightAxis); }

    void setUpAxes() {
        if (isTime())
            plot->axis(2).setScale(zembra::Scale::time());
        else if (plan.x && column(*plan.x).type.kind == ColumnKind::Word)
            setNames(column(*plan.x).words);
        else if (options.logX)
            plot->axis(2).setScale(zembra::Scale::log());
        // Dates explain themselves.
        if (!isTime())
            plot->axis(2).setTitle(plan.x ? column(*plan.x).name : std::string("row"));
        if (options.logY)
            plot->axis(0).setScale(zembra::Scale::log());

        plot->axis(0).setTitle(axisTitle(false));
        if (!hasRightAxis())
            return;
        plot->setAxisEnabled(1, true);
        plot->axis(1).setTitle(axisTitle(true));
        // Two grids over each other are none.
        plot->axis(1).setGridVisible(false);
    }

    void setNames(const std::vector<std::string>& names) {
        plot->axis(2).setScale(zembra::Scale::categorical(names));
        plot->axis(2).setGridVisible(false);
    }

    // The columns of an axis; none where the legend tells them and there is one axis only.
    std::string axisTitle(bool right) const {
        if (!hasRightAxis() && plan.y.size() > 1)
            return {};
        std::string title;
        for (const DrawnColumn& drawn : plan.y) {
            if (drawn.onRightAxis != right)
                continue;
            const std::string& name = column(drawn.column).name;
            if (!title.empty() && title.size() + name.size() > longestAxisTitle)
                return title + " …";
            title += (title.empty() ? "" : ", ") + name;
        }
        return title;
    }

    // Bars stand at the places of their names.
    std::vector<double> xValues() const {
        if (!plan.x)
            return rowNumbers();
        const Column& x = column(*plan.x);
        if (x.type.kind == ColumnKind::Word)
            return {x.codes.begin(), x.codes.end()};
        return x.values;
    }

    std::vector<double> rowNumbers() const {
        std::vector<double> numbers(table.rows);
        std::iota(numbers.begin(), numbers.end(), 1.0);
        return numbers;
    }

    // The rows in the order of time; empty where they are in order already, or need none.
    std::vector<std::uint32_t> rowsByTime() const {
        if (!isTime() || plan.kind != ChartKind::Line ||
            std::ranges::is_sorted(column(*plan.x).values))
            return {};
        const std::vector<double>& time = column(*plan.x).values;
        std::vector<std::uint32_t> rows(table.rows);
        std::iota(rows.begin(), rows.end(), 0U);
        // A row without a time has no place in the order, nor in the chart.
        std::erase_if(rows, [&time](std::uint32_t row) { return !std::isfinite(time[row]); });
        std::ranges::stable_sort(rows, {}, [&time](std::uint32_t row) { return time[row]; });
        return rows;
    }

    void addColumns() {
        const std::vector<std::uint32_t> order = rowsByTime();
        for (const std::size_t i : drawingOrder(plan)) {
            const DrawnColumn& drawn = plan.y[i];
            const Column& y = column(drawn.column);
            // A single series is named by its axis.
            const std::string name = plan.y.size() > 1 ? y.name : std::string();
            if (plan.kind == ChartKind::Bar)
                addBars(xValues(), y.values, name, drawn, columnColor(i));
            else
                addSamples(samplesOf(y, order), name, drawn, columnColor(i));
        }
    }

    zembra::Samples samplesOf(const Column& y, const std::vector<std::uint32_t>& order) const {
        if (!plan.x)
            return zembra::Samples::borrowedEvenlySpaced(1.0, 1.0, std::span(y.values));
        const std::vector<double>& x = column(*plan.x).values;
        if (order.empty())
            return zembra::Samples::borrowed(std::span(x), std::span(y.values));
        return {pick(x, order), pick(y.values, order)};
    }

    // Columns of the right axis are paler: two scales of equal weight would read as one.
    std::optional<zembra::Color> columnColor(std::size_t place) const {
        const std::vector<zembra::Color>& cycle = plot->theme().cycle;
        if (!hasRightAxis() || cycle.empty())
            return std::nullopt;
        const zembra::Color color = cycle[place % cycle.size()];
        return plan.y[place].onRightAxis ? color.withAlpha(150) : color;
    }

    void addGroups() {
        const std::vector<double> x = xValues();
        for (Group& group : groupsOf(table, plan)) {
            if (isTime() && plan.kind == ChartKind::Line) {
                std::erase_if(group.rows,
                              [&x](std::uint32_t row) { return !std::isfinite(x[row]); });
                std::ranges::stable_sort(group.rows, {},
                                         [&x](std::uint32_t row) { return x[row]; });
            }
            for (const DrawnColumn& drawn : plan.y) {
                const Column& y = column(drawn.column);
                const std::string name =
                    plan.y.size() > 1 ? group.name + ", " + y.name : group.name;
                if (plan.kind == ChartKind::Bar)
                    addBars(pick(x, group.rows), pick(y.values, group.rows), name, drawn,
                            group.color);
                else
                    addSamples({pick(x, group.rows), pick(y.values, group.rows)}, name, drawn,
                               group.color);
            }
        }
    }

    void addSamples(zembra::Samples samples, const std::string& name, const DrawnColumn& drawn,
                    const std::optional<zembra::Color>& color) {
        if (plan.kind == ChartKind::Scatter) {
            const auto markers = plot->add<zembra::ScatterSeries>(std::move(samples), name);
            markers->setMarkerSize(markerSize());
            place(*markers, drawn, color);
            return;
        }
        const bool dense = isDense(samples.size());
        const auto line = plot->add<zembra::LineSeries>(std::move(samples), name);
        if (dense)
            line->setWidth(1.0);
        place(*line, drawn, color);
    }

    void addBars(std::vector<double> x, std::vector<double> y, const std::string& name,
                 const DrawnColumn& drawn, const std::optional<zembra::Color>& color) {
        const auto bars = plot->add<zembra::BarSeries>(std::move(x), std::move(y), name);
        if (lastBars)
            bars->standBeside(*lastBars);
        lastBars = bars;
        place(*bars, drawn, color);
    }

    static void place(zembra::Series& series, const DrawnColumn& drawn,
                      const std::optional<zembra::Color>& color) {
        series.setColor(color);
        if (drawn.onRightAxis)
            series.setAxes(2, 1);
    }

    // Markers that hardly overlap if they lie evenly, as those of a grid do.
    double markerSize() const {
        const double area = 0.7 * options.size.width * options.size.height;
        const double distance =
            std::sqrt(area / static_cast<double>(std::max<std::size_t>(table.rows, 1)));
        const double largest = plan.grouping == Grouping::Classes ? 12.0 : 6.0;
        return std::clamp(0.9 * distance, 2.5, largest);
    }

    const Table& table;
    const ChartPlan& plan;
    const Options& options;
    zembra::Plot* plot;
    std::shared_ptr<zembra::BarSeries> lastBars;
};

// In the order in which they are made, so that the table goes last.
struct PlotOfTable {
    std::shared_ptr<const Table> table;
    zembra::Plot plot;
};

} // namespace

std::shared_ptr<zembra::Plot> buildChart(std::shared_ptr<const Table> table, const ChartPlan& plan,
                                         const Options& options) {
    const auto both = std::make_shared<PlotOfTable>();
    both->table = std::move(table);
    Builder(*both->table, plan, options, both->plot).build();
    return {both, &both->plot};
}

std::vector<std::size_t> drawingOrder(const ChartPlan& plan) {
    std::vector<std::size_t> places(plan.y.size());
    std::iota(places.begin(), places.end(), std::size_t{0});
    std::stable_partition(places.begin(), places.end(),
                          [&plan](std::size_t i) { return plan.y[i].onRightAxis; });
    return places;
}

} // namespace viewer
