// SPDX-License-Identifier: MIT
#include "ChartBuilder.h"

#include "Statistics.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <numeric>

namespace viewer {

namespace {

constexpr int wantedClasses = 6;
constexpr std::size_t mostNamesInside = 8;
// Longer lists of names would run out of their axis.
constexpr std::size_t longestAxisTitle = 60;

std::string shortNumber(double value) {
    std::array<char, 32> buffer{};
    std::snprintf(buffer.data(), buffer.size(), "%.6g", value);
    return buffer.data();
}

// A ramp from dark to light that stays in order in grey and for colour-blind readers.
zembra::Color rampColor(double share) {
    const std::array<zembra::Color, 5> stops = {
        zembra::Color(46, 38, 110), zembra::Color(42, 98, 150), zembra::Color(38, 148, 140),
        zembra::Color(120, 196, 92), zembra::Color(246, 214, 60)};
    const double place = std::clamp(share, 0.0, 1.0) * (stops.size() - 1);
    const auto index = std::min(static_cast<std::size_t>(place), stops.size() - 2);
    return zembra::mix(stops[index], stops[index + 1], place - static_cast<double>(index));
}

struct Group {
    std::string name;
    std::vector<std::uint32_t> rows;
    std::optional<zembra::Color> color;
};

std::vector<Group> groupsOfWords(const Column& by) {
    std::vector<Group> groups(by.words.size());
    for (std::size_t i = 0; i < groups.size(); ++i)
        groups[i].name = by.words[i];
    for (std::size_t row = 0; row < by.codes.size(); ++row)
        groups[by.codes[row]].rows.push_back(static_cast<std::uint32_t>(row));
    // A row without a word belongs to no series.
    std::erase_if(groups, [](const Group& group) { return group.name.empty(); });
    return groups;
}

std::vector<Group> groupsOfNumbers(const Column& by) {
    const std::vector<double> numbers = fewDistinct(by.values, by.values.size());
    std::vector<Group> groups(numbers.size());
    for (std::size_t i = 0; i < groups.size(); ++i)
        groups[i].name = by.name + " " + shortNumber(numbers[i]);
    for (std::size_t row = 0; row < by.values.size(); ++row) {
        if (!std::isfinite(by.values[row]))
            continue;
        const auto place = std::ranges::lower_bound(numbers, by.values[row]);
        groups[static_cast<std::size_t>(place - numbers.begin())].rows.push_back(
            static_cast<std::uint32_t>(row));
    }
    return groups;
}

std::vector<Group> groupsOfClasses(const Column& by) {
    const std::vector<double> borders = roundBorders(by.values, wantedClasses);
    std::vector<Group> groups(borders.size() > 1 ? borders.size() - 1 : 0);
    for (std::size_t i = 0; i < groups.size(); ++i) {
        groups[i].name = shortNumber(borders[i]) + " – " + shortNumber(borders[i + 1]);
        groups[i].color = rampColor(groups.size() > 1 ? static_cast<double>(i) /
                                                            static_cast<double>(groups.size() - 1)
                                                      : 0.5);
    }
    for (std::size_t row = 0; row < by.values.size(); ++row) {
        if (!std::isfinite(by.values[row]) || groups.empty())
            continue;
        const auto above = std::ranges::upper_bound(borders, by.values[row]);
        const auto place =
            std::clamp<std::ptrdiff_t>(above - borders.begin() - 1, 0, std::ssize(groups) - 1);
        groups[static_cast<std::size_t>(place)].rows.push_back(static_cast<std::uint32_t>(row));
    }
    std::erase_if(groups, [](const Group& group) { return group.rows.empty(); });
    return groups;
}

class Builder {
public:
    Builder(const Table& table, const ChartPlan& plan, const Options& options)
        : table(table), plan(plan), options(options), plot(std::make_shared<zembra::Plot>()) {}

    std::shared_ptr<zembra::Plot> build() {
        const std::string stem = std::filesystem::path(table.file).stem().string();
        plot->setTitle(options.title.value_or(stem));
        setUpAxes();
        if (plan.grouping == Grouping::None)
            addColumns();
        else
            addGroups();
        placeLegend();
        return plot;
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
        return samples > static_cast<std::size_t>(options.width);
    }

    bool hasRightAxis() const { return std::ranges::any_of(plan.y, &DrawnColumn::onRightAxis); }

    void setUpAxes() {
        if (isTime())
            plot->axis(2).setScale(zembra::Scale::time());
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

    std::vector<double> rowNumbers() const {
        std::vector<double> numbers(table.rows);
        std::iota(numbers.begin(), numbers.end(), 1.0);
        return numbers;
    }

    // The rows in the order of time; empty where they are in order already, or need none.
    std::vector<std::uint32_t> rowsByTime() const {
        if (!isTime() || plan.scatter || std::ranges::is_sorted(column(*plan.x).values))
            return {};
        const std::vector<double>& time = column(*plan.x).values;
        std::vector<std::uint32_t> rows(table.rows);
        std::iota(rows.begin(), rows.end(), 0U);
        // A row without a time has no place in the order, nor in the chart.
        std::erase_if(rows, [&time](std::uint32_t row) { return !std::isfinite(time[row]); });
        std::ranges::stable_sort(rows, {}, [&time](std::uint32_t row) { return time[row]; });
        return rows;
    }

    static std::vector<double> pick(const std::vector<double>& values,
                                    const std::vector<std::uint32_t>& rows) {
        std::vector<double> picked;
        picked.reserve(rows.size());
        for (const std::uint32_t row : rows)
            picked.push_back(values[row]);
        return picked;
    }

    void addColumns() {
        const std::vector<double> x = plan.x ? column(*plan.x).values : rowNumbers();
        const std::vector<std::uint32_t> order = rowsByTime();
        for (const std::size_t i : drawingOrder()) {
            const DrawnColumn& drawn = plan.y[i];
            const Column& y = column(drawn.column);
            // A single series is named by its axis.
            const std::string name = plan.y.size() > 1 ? y.name : std::string();
            if (order.empty())
                addSeries(x, y.values, name, drawn, columnColor(i));
            else
                addSeries(pick(x, order), pick(y.values, order), name, drawn, columnColor(i));
        }
    }

    // Columns of the right axis come first, so that they lie behind the others.
    std::vector<std::size_t> drawingOrder() const {
        std::vector<std::size_t> places(plan.y.size());
        std::iota(places.begin(), places.end(), std::size_t{0});
        std::stable_partition(places.begin(), places.end(),
                              [this](std::size_t i) { return plan.y[i].onRightAxis; });
        return places;
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
        const Column& by = column(plan.by);
        std::vector<Group> groups = plan.grouping == Grouping::Classes ? groupsOfClasses(by)
                                    : by.type.kind == ColumnKind::Word ? groupsOfWords(by)
                                                                       : groupsOfNumbers(by);
        const std::vector<double> x = plan.x ? column(*plan.x).values : rowNumbers();
        for (Group& group : groups) {
            if (isTime() && !plan.scatter) {
                std::erase_if(group.rows,
                              [&x](std::uint32_t row) { return !std::isfinite(x[row]); });
                std::ranges::stable_sort(group.rows, {},
                                         [&x](std::uint32_t row) { return x[row]; });
            }
            for (const DrawnColumn& drawn : plan.y) {
                const Column& y = column(drawn.column);
                const std::string name =
                    plan.y.size() > 1 ? group.name + ", " + y.name : group.name;
                addSeries(pick(x, group.rows), pick(y.values, group.rows), name, drawn,
                          group.color);
            }
        }
    }

    void addSeries(std::vector<double> x, std::vector<double> y, const std::string& name,
                   const DrawnColumn& drawn, const std::optional<zembra::Color>& color) {
        std::shared_ptr<zembra::Series> series;
        if (plan.scatter) {
            auto markers = plot->add<zembra::ScatterSeries>(std::move(x), std::move(y), name);
            markers->setMarkerSize(markerSize());
            series = markers;
        } else {
            const bool dense = isDense(x.size());
            auto line = plot->add<zembra::LineSeries>(std::move(x), std::move(y), name);
            if (dense)
                line->setWidth(1.0);
            series = line;
        }
        series->setColor(color);
        if (drawn.onRightAxis)
            series->setAxes(2, 1);
    }

    // Markers that hardly overlap if they lie evenly, as those of a grid do.
    double markerSize() const {
        const double area = 0.7 * options.width * options.height;
        const double distance =
            std::sqrt(area / static_cast<double>(std::max<std::size_t>(table.rows, 1)));
        const double largest = plan.grouping == Grouping::Classes ? 12.0 : 6.0;
        return std::clamp(0.9 * distance, 2.5, largest);
    }

    const Table& table;
    const ChartPlan& plan;
    const Options& options;
    std::shared_ptr<zembra::Plot> plot;
};

} // namespace

std::shared_ptr<zembra::Plot> buildChart(const Table& table, const ChartPlan& plan,
                                         const Options& options) {
    return Builder(table, plan, options).build();
}

} // namespace viewer
