// SPDX-License-Identifier: MIT
#include "KindPlans.h"

#include "Ascii.h"
#include "ColumnChooser.h"
#include "EvenGrid.h"
#include "Statistics.h"

#include <algorithm>
#include <cmath>

namespace viewer {

namespace {

// Values of other magnitudes have no place on the same axis.
constexpr double largestRatio = 1000.0;

class KindPlanner : private ColumnChooser {
public:
    KindPlanner(const Table& table, const Options& options, ChartKind kind)
        : ColumnChooser(table), table(table), options(options) {
        result.kind = kind;
        if (options.by)
            by = named("--by", *options.by);
    }

    ChartPlan histogram() {
        chooseValues();
        groupByNamed();
        for (const DrawnColumn& drawn : result.y) {
            if (options.logX)
                requirePositive("--log-x", drawn.column);
        }
        return result;
    }

    ChartPlan boxes() {
        chooseValues();
        if (!by && options.guesses)
            guessGroups();
        groupByNamed();
        for (const DrawnColumn& drawn : result.y) {
            if (options.logY)
                requirePositive("--log-y", drawn.column);
        }
        return result;
    }

    ChartPlan heatMap() {
        if (!options.guesses && !options.x)
            return namedMatrix();
        if (isMatrix())
            return matrix();
        choosePositions();
        const std::size_t vertical = result.y.front().column;
        const EvenGrid grid =
            findEvenGrid(column(*result.x).values, column(vertical).values, table.rows);
        if (!grid.problem.empty())
            failInData("--kind heat: " + describe(*result.x) + " and " + describe(vertical) + " " +
                       grid.problem);
        if (options.guesses)
            note(column(*result.value).name + " over " + column(*result.x).name + " and " +
                 column(vertical).name + "; --x, --y and --by name other columns");
        return result;
    }

    ChartPlan candles() {
        for (const char* const name : priceColumns) {
            const std::optional<std::size_t> found = findPriceColumn(table, name);
            if (!found)
                named("--kind candle", name);
            require("--kind candle", *found, Wanted::Numbers);
            requireClean(*found);
            if (options.logY)
                requirePositive("--log-y", *found);
            result.y.push_back({*found});
        }
        chooseCandleX();
        return result;
    }

private:
    void note(const std::string& text) { result.notes.push_back(table.file + ": " + text); }
    bool isBy(std::size_t index) const { return by && *by == index; }

    // The columns of numbers that are named, or all that share an order of magnitude.
    void chooseValues() {
        for (const std::string& name : options.y) {
            const std::size_t index = named("--y", name);
            require("--y", index, Wanted::Numbers);
            result.y.push_back({index});
        }
        for (std::size_t c = 0; options.y.empty() && c < table.columns.size(); ++c) {
            if (kind(c) == ColumnKind::Number && !isBy(c) && !(c == 0 && isRowNumber(c)))
                addIfItFits(c);
        }
        if (result.y.empty())
            fail(1, "no column of numbers");
        for (const DrawnColumn& drawn : result.y)
            requireClean(drawn.column);
    }

    void addIfItFits(std::size_t index) {
        if (column(index).filledCells == 0) {
            note(describe(index) + " is empty; left out");
            return;
        }
        if (!result.y.empty()) {
            const double first = magnitude(column(result.y.front().column).values);
            const double size = magnitude(column(index).values);
            const bool fits = size == 0.0 || first == 0.0 ||
                              (size < first * largestRatio && first < size * largestRatio);
            if (!fits) {
                note(describe(index) + " has another magnitude; left out, --y draws it");
                return;
            }
        }
        result.y.push_back({index});
    }

    void groupByNamed() {
        if (!by)
            return;
        result.by = *by;
        result.grouping = Grouping::Values;
        if (kind(*by) != ColumnKind::Number) {
            requireNames("--by", *by);
            return;
        }
        requireClean(*by);
        if (fewDistinct(column(*by).values, mostNumberGroups).empty())
            result.grouping = Grouping::Classes;
    }

    // A single column of numbers beside names: the names tell more than one box would.
    void guessGroups() {
        if (result.y.size() != 1 || !options.y.empty())
            return;
        for (std::size_t c = 0; c < table.columns.size() && !by; ++c) {
            if (hasRepeatedWords(c) && column(c).words.size() > 1)
                by = c;
        }
        if (by)
            note("one box for each value of " + describe(*by));
    }

    bool isMatrix() const {
        if (options.x || options.by || !options.y.empty() || table.hasHeader)
            return false;
        for (std::size_t c = 0; c < table.columns.size(); ++c) {
            if (kind(c) != ColumnKind::Number)
                return false;
        }
        return !isPositions();
    }

    // Three columns may be positions with a value each, or a narrow matrix.
    bool isPositions() const {
        return table.columns.size() == 3 && isGrid(column(0).values, column(1).values) &&
               findEvenGrid(column(0).values, column(1).values, table.rows).problem.empty();
    }

    // Every row is one of the map's, header or not.
    ChartPlan namedMatrix() {
        if (by)
            failInData("--kind heat: --by has no meaning without --x");
        for (const std::string& name : options.y) {
            const std::size_t index = named("--y", name);
            require("--y", index, Wanted::Numbers);
            requireClean(index);
            result.y.push_back({index});
        }
        if (result.y.empty())
            fail(1, "no column of numbers");
        return result;
    }

    ChartPlan matrix() {
        for (std::size_t c = 0; c < table.columns.size(); ++c) {
            requireClean(c);
            result.y.push_back({c});
        }
        return result;
    }

    std::optional<std::size_t> nextNumbers(std::size_t from) const {
        for (std::size_t c = from; c < table.columns.size(); ++c) {
            if (kind(c) == ColumnKind::Number && !isBy(c))
                return c;
        }
        return std::nullopt;
    }

    void choosePositions() {
        if (options.y.size() > 1)
            failInData("--kind heat: --y names the vertical column and no other");
        result.x = options.x ? std::optional(named("--x", *options.x)) : nextNumbers(0);
        std::optional<std::size_t> vertical;
        if (!options.y.empty())
            vertical = named("--y", options.y.front());
        else if (result.x)
            vertical = nextNumbers(options.x ? (*result.x == 0 ? 1 : 0) : *result.x + 1);
        result.value = by;
        // The last of the columns of numbers, as the result of a measurement at a position.
        for (std::size_t c = table.columns.size(); c > 0 && !result.value; --c) {
            if (kind(c - 1) == ColumnKind::Number && c - 1 != result.x && c - 1 != vertical)
                result.value = c - 1;
        }
        if (!result.x || !vertical || !result.value)
            fail(1, "--kind heat takes three columns of numbers (x, y and value), or a matrix of "
                    "numbers without a header");
        require("--x", *result.x, Wanted::Numbers);
        require("--y", *vertical, Wanted::Numbers);
        require("--by", *result.value, Wanted::Numbers);
        for (const std::size_t c : {*result.x, *vertical, *result.value})
            requireClean(c);
        result.y.push_back({*vertical});
    }

    void chooseCandleX() {
        if (options.x) {
            result.x = named("--x", *options.x);
            require("--x", *result.x, Wanted::NumbersOrTimes);
        } else if (options.guesses) {
            result.x = firstOf(ColumnKind::Time, std::nullopt);
            const bool isPrice = std::ranges::any_of(
                result.y, [](const DrawnColumn& drawn) { return drawn.column == 0; });
            if (!result.x && kind(0) == ColumnKind::Number && !isPrice)
                result.x = 0;
        }
        if (!result.x && !options.guesses)
            return;
        if (!result.x) {
            note("no column gives x; the rows are numbered");
            return;
        }
        requireClean(*result.x);
        if (options.logX && kind(*result.x) == ColumnKind::Time)
            failInData("--log-x: " + describe(*result.x) + " holds dates");
        if (options.logX)
            requirePositive("--log-x", *result.x);
    }

    const Table& table;
    const Options& options;
    ChartPlan result;
    std::optional<std::size_t> by;
};

} // namespace

ChartPlan planHistogram(const Table& table, const Options& options) {
    return KindPlanner(table, options, ChartKind::Histogram).histogram();
}

ChartPlan planBoxes(const Table& table, const Options& options) {
    return KindPlanner(table, options, ChartKind::Box).boxes();
}

ChartPlan planHeatMap(const Table& table, const Options& options) {
    return KindPlanner(table, options, ChartKind::HeatMap).heatMap();
}

ChartPlan planCandles(const Table& table, const Options& options) {
    return KindPlanner(table, options, ChartKind::Candlestick).candles();
}

std::optional<std::size_t> findPriceColumn(const Table& table, std::string_view name) {
    for (std::size_t c = 0; c < table.columns.size(); ++c) {
        if (equalIgnoringCase(table.columns[c].name, name))
            return c;
    }
    return std::nullopt;
}

} // namespace viewer
