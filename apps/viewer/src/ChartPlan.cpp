// SPDX-License-Identifier: MIT
#include "ChartPlan.h"

#include "ColumnChooser.h"
#include "KindPlans.h"
#include "Statistics.h"

#include <algorithm>
#include <cmath>

namespace viewer {

namespace {

// More lines than this nobody tells apart, so they are only drawn when asked for.
constexpr std::size_t mostGuessedSeries = 50;

// For the kinds that draw y over x.
class Planner : private ColumnChooser {
public:
    Planner(const Table& table, const Options& options)
        : ColumnChooser(table), table(table), options(options) {
        result.kind = options.kind.value_or(ChartKind::Line);
    }

    ChartPlan plan() {
        if (options.by)
            by = named("--by", *options.by);
        chooseX();
        chooseY();
        requireCleanCells();
        chooseGrouping();
        choosePositions();
        chooseMarkers();
        requireOneBarAtAPlace();
        requirePositiveForLogarithms();
        chooseAxes();
        suggestCandles();
        return result;
    }

private:
    bool isBars() const { return result.kind == ChartKind::Bar; }
    bool isScatter() const { return result.kind == ChartKind::Scatter; }
    bool isBy(std::size_t index) const { return by && *by == index; }
    void note(const std::string& text) { result.notes.push_back(table.file + ": " + text); }

    void chooseNamedX(const std::string& name) {
        result.x = named("--x", name);
        if (isBars() && kind(*result.x) == ColumnKind::Word)
            requireNames("--x", *result.x);
        else
            require("--x", *result.x, Wanted::NumbersOrTimes);
    }

    // Bars stand at names where there are any that can tell them apart.
    std::optional<std::size_t> wordsForBars() const {
        if (!isBars() || firstOf(ColumnKind::Time, by))
            return std::nullopt;
        const std::optional<std::size_t> words = firstOf(ColumnKind::Word, by);
        if (!words || column(*words).tooManyWords)
            return std::nullopt;
        const std::vector<std::uint32_t>& codes = column(*words).codes;
        const std::vector<double> places(codes.begin(), codes.end());
        return isUniqueWithin(groupCodes(), places) ? words : std::nullopt;
    }

    // The group of each row, all 0 without groups.
    std::vector<std::uint32_t> groupCodes() const {
        std::vector<std::uint32_t> codes(table.rows);
        if (!by)
            return codes;
        const Column& names = column(*by);
        if (names.type.kind == ColumnKind::Word)
            return names.tooManyWords ? codes : names.codes;
        const std::vector<double> distinct = fewDistinct(names.values, mostNumberGroups);
        for (std::size_t row = 0; row < codes.size() && !distinct.empty(); ++row) {
            const auto place = std::ranges::lower_bound(distinct, names.values[row]);
            codes[row] = static_cast<std::uint32_t>(place - distinct.begin());
        }
        return codes;
    }

    void chooseX() {
        if (options.x) {
            chooseNamedX(*options.x);
            return;
        }
        if (!options.guesses)
            return;
        result.x = wordsForBars();
        if (result.x)
            return;
        const std::size_t numbers = countOf(ColumnKind::Number, by);
        if (kind(0) == ColumnKind::Time && !isBy(0)) {
            result.x = 0;
        } else if (kind(0) == ColumnKind::Number && !isBy(0)) {
            const std::optional<std::size_t> time = firstOf(ColumnKind::Time, by);
            if (time && isRowNumber(0)) {
                result.x = time;
                skipped = 0;
            } else if (numbers > 1 || !options.y.empty()) {
                result.x = 0;
            }
        } else if (const std::optional<std::size_t> time = firstOf(ColumnKind::Time, by)) {
            result.x = time;
        } else if (numbers > 1 && (options.by || hasRepeatedWords(0))) {
            result.x = firstOf(ColumnKind::Number, by);
        }
        if (!result.x)
            note("no column gives x; the rows are numbered");
    }

    void chooseY() {
        for (const std::string& name : options.y) {
            const std::size_t index = named("--y", name);
            require("--y", index, Wanted::Numbers);
            result.y.push_back({index});
        }
        if (!result.y.empty())
            return;
        for (std::size_t c = 0; c < table.columns.size(); ++c) {
            if ((result.x && c == *result.x) || isBy(c) || (skipped && c == *skipped) ||
                kind(c) != ColumnKind::Number)
                continue;
            if (column(c).filledCells > 0)
                result.y.push_back({c});
            else
                note(describe(c) + " is empty; left out");
        }
        if (result.y.empty())
            fail(1, result.x ? "no column of numbers besides " + describe(*result.x)
                             : std::string("no column of numbers"));
    }

    void requireCleanCells() const {
        // A row that goes wrong while others come is a gap.
        if (options.follow)
            return;
        if (result.x && kind(*result.x) != ColumnKind::Word)
            requireClean(*result.x);
        for (const DrawnColumn& drawn : result.y)
            requireClean(drawn.column);
        if (by && kind(*by) == ColumnKind::Number)
            requireClean(*by);
    }

    void groupBy(std::size_t index, Grouping grouping) {
        by = index;
        result.by = index;
        result.grouping = grouping;
    }

    void chooseGrouping() {
        if (by) {
            groupByNamed(*by);
        } else if (options.x == std::nullopt || result.x) {
            guessGrouping();
        }
        if (!options.y.empty())
            return;
        for (std::size_t c = 0; c < table.columns.size(); ++c) {
            const bool used = isBy(c) || (result.x && c == *result.x);
            if (!used && kind(c) != ColumnKind::Number)
                note(describe(c) + " holds " + (kind(c) == ColumnKind::Word ? "words" : "dates") +
                     "; left out");
        }
    }

    void groupByNamed(std::size_t index) {
        const Column& names = column(index);
        if (names.type.kind == ColumnKind::Number) {
            const bool few = !fewDistinct(names.values, mostNumberGroups).empty();
            groupBy(index, few ? Grouping::Values : Grouping::Classes);
            return;
        }
        requireNames("--by", index);
        groupBy(index, Grouping::Values);
    }

    // Long form: the same x comes back for another word, and only once for each.
    void guessGrouping() {
        // What repeats so far tells nothing about the rows to come.
        if (options.follow || !options.guesses)
            return;
        if (!result.x || kind(*result.x) == ColumnKind::Word ||
            isStrictlyIncreasing(column(*result.x).values))
            return;
        const std::vector<double>& x = column(*result.x).values;
        std::optional<std::size_t> best;
        bool anyNames = false;
        for (std::size_t c = 0; c < table.columns.size(); ++c) {
            if (!hasRepeatedWords(c) || column(c).words.size() < 2)
                continue;
            anyNames = true;
            if (column(c).words.size() > mostGuessedSeries ||
                (best && column(c).words.size() >= column(*best).words.size()))
                continue;
            if (isRepeated(x) && isUniqueWithin(column(c).codes, x))
                best = c;
        }
        if (best) {
            groupBy(*best, Grouping::Values);
            note("one series for each value of " + describe(*best));
        } else if (anyNames && isRepeated(x) && kind(*result.x) == ColumnKind::Time) {
            note(describe(*result.x) +
                 " repeats; --by NAME draws one series for each value of a column");
        }
    }

    static bool isRepeated(const std::vector<double>& values) {
        return !isUniqueWithin(std::vector<std::uint32_t>(values.size()), values);
    }

    // A grid of positions with values: a map says more than lines over one of its sides.
    void choosePositions() {
        if (options.kind || options.follow || options.x || options.by || !options.y.empty() ||
            result.grouping != Grouping::None || !result.x ||
            kind(*result.x) != ColumnKind::Number || result.y.size() < 2)
            return;
        const std::size_t vertical = result.y.front().column;
        if (!isZigzag(column(*result.x).values) ||
            !isGrid(column(*result.x).values, column(vertical).values))
            return;
        const std::size_t value = result.y.back().column;
        result.y.resize(1);
        groupByNamed(value);
        result.kind = ChartKind::Scatter;
        note("positions: " + column(vertical).name + " over " + column(*result.x).name +
             ", colours by " + column(value).name + "; --by NAME takes another column");
    }

    void chooseMarkers() {
        if (options.kind)
            return;
        if (result.grouping == Grouping::Classes)
            result.kind = ChartKind::Scatter;
        // Rows of a time axis are put into order instead.
        if (isScatter() || !result.x || kind(*result.x) == ColumnKind::Time)
            return;
        const std::vector<double>& x = column(*result.x).values;
        if (result.grouping == Grouping::None ? !isZigzag(x) : !isZigzagWithinGroups(x))
            return;
        result.kind = ChartKind::Scatter;
        note(describe(*result.x) + " is in no order; drawn as markers");
    }

    // Of bars at one place only the last would be seen.
    void requireOneBarAtAPlace() const {
        if (!isBars() || !result.x || result.grouping == Grouping::Classes)
            return;
        const Column& x = column(*result.x);
        const std::vector<double> codes(x.codes.begin(), x.codes.end());
        if (isUniqueWithin(groupCodes(), x.type.kind == ColumnKind::Word ? codes : x.values))
            return;
        failInData("--kind bar: " + describe(*result.x) + " holds a value more than once; " +
                   (by ? "--x NAME takes another column"
                       : "--by NAME draws one series for each value of a column"));
    }

    bool isZigzagWithinGroups(const std::vector<double>& x) const {
        const Column& names = column(result.by);
        if (names.type.kind != ColumnKind::Word)
            return isZigzag(x);
        std::vector<std::vector<double>> groups(names.words.size());
        for (std::size_t i = 0; i < x.size(); ++i)
            groups[names.codes[i]].push_back(x[i]);
        return std::ranges::any_of(groups, isZigzag);
    }

    void requirePositiveForLogarithms() const {
        if (options.logX && result.x) {
            if (kind(*result.x) != ColumnKind::Number)
                failInData("--log-x: " + describe(*result.x) + " holds " +
                           (kind(*result.x) == ColumnKind::Time ? "dates" : "words"));
            requirePositive("--log-x", *result.x);
        }
        for (const DrawnColumn& drawn : result.y) {
            if (options.logY)
                requirePositive("--log-y", drawn.column);
        }
    }

    void suggestCandles() {
        const bool hasAll = std::ranges::all_of(priceColumns, [this](const char* name) {
            return findPriceColumn(table, name).has_value();
        });
        if (hasAll && !options.kind && options.y.empty() && !options.by)
            note("open, high, low and close; --kind candle draws candles");
    }

    // Where the magnitudes fall into two camps more than two orders apart, each gets an axis.
    void chooseAxes() {
        if (options.logY || result.grouping != Grouping::None)
            return;
        std::vector<double> orders;
        for (const DrawnColumn& drawn : result.y) {
            if (const double size = magnitude(column(drawn.column).values); size > 0.0)
                orders.push_back(std::log10(size));
        }
        std::ranges::sort(orders);
        double widest = 0.0;
        double border = 0.0;
        for (std::size_t i = 1; i < orders.size(); ++i) {
            if (orders[i] - orders[i - 1] > widest) {
                widest = orders[i] - orders[i - 1];
                border = orders[i];
            }
        }
        if (widest <= 2.0)
            return;
        const auto isLarge = [this, border](const DrawnColumn& drawn) {
            const double size = magnitude(column(drawn.column).values);
            return size > 0.0 && std::log10(size) >= border;
        };
        const bool firstIsLarge = isLarge(result.y.front());
        for (DrawnColumn& drawn : result.y)
            drawn.onRightAxis = isLarge(drawn) != firstIsLarge;
    }

    const Table& table;
    const Options& options;
    ChartPlan result;
    std::optional<std::size_t> by;
    std::optional<std::size_t> skipped;
};

} // namespace

ChartPlan planChart(const Table& table, const Options& options) {
    switch (options.kind.value_or(ChartKind::Line)) {
    case ChartKind::Histogram:
        return planHistogram(table, options);
    case ChartKind::Box:
        return planBoxes(table, options);
    case ChartKind::HeatMap:
        return planHeatMap(table, options);
    case ChartKind::Candlestick:
        return planCandles(table, options);
    case ChartKind::Line:
    case ChartKind::Scatter:
    case ChartKind::Bar:
        break;
    }
    return Planner(table, options).plan();
}

} // namespace viewer
