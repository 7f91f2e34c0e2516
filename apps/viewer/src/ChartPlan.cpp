// SPDX-License-Identifier: MIT
#include "ChartPlan.h"

#include "Failure.h"
#include "Statistics.h"

#include <algorithm>
#include <cmath>

namespace viewer {

namespace {

// More lines than this nobody tells apart, so they are only drawn when asked for.
constexpr std::size_t mostGuessedSeries = 50;
constexpr std::size_t mostSeries = 1000;
// Columns of numbers with more different values are divided into classes.
constexpr std::size_t mostNumberGroups = 20;

[[noreturn]] void fail(const Table& table, std::size_t line, const std::string& what) {
    throw Failure(table.file + ":" + std::to_string(line) + ": " + what);
}

class Planner {
public:
    Planner(const Table& table, const Options& options) : table(table), options(options) {}

    ChartPlan plan() {
        if (options.by)
            by = named("--by", *options.by);
        chooseX();
        chooseY();
        requireCleanCells();
        chooseGrouping();
        choosePositions();
        chooseMarkers();
        requirePositive();
        chooseAxes();
        return result;
    }

private:
    const Column& column(std::size_t index) const { return table.columns[index]; }
    ColumnKind kind(std::size_t index) const { return column(index).type.kind; }
    bool isBy(std::size_t index) const { return by && *by == index; }
    void note(const std::string& text) { result.notes.push_back(table.file + ": " + text); }

    std::size_t named(const std::string& option, const std::string& name) const {
        if (const std::optional<std::size_t> found = table.findColumn(name))
            return *found;
        std::string known;
        for (std::size_t c = 0; c < table.columns.size() && c < 12; ++c)
            known += (c > 0 ? ", " : "") + column(c).name;
        if (table.columns.size() > 12)
            known += " and more";
        fail(table, 1, option + ": no column is called \"" + name + "\"; there are " + known);
    }

    // Ends with a message where a column that the user named holds something else.
    void require(const std::string& option, std::size_t index, bool timesToo) const {
        const Column& wanted = column(index);
        if (wanted.type.kind == ColumnKind::Number ||
            (timesToo && wanted.type.kind == ColumnKind::Time))
            return;
        const std::size_t line = wanted.firstBadCell ? wanted.firstBadCell->line
                                 : table.hasHeader   ? 2
                                                     : 1;
        const bool words = wanted.type.kind == ColumnKind::Word;
        fail(table, line,
             option + ": " + describeColumn(table, index) + " holds " +
                 (words ? "words" : "dates") + ", not numbers" + (timesToo ? " or dates" : ""));
    }

    std::optional<std::size_t> firstOf(ColumnKind wanted) const {
        for (std::size_t c = 0; c < table.columns.size(); ++c) {
            if (kind(c) == wanted && !isBy(c))
                return c;
        }
        return std::nullopt;
    }

    std::size_t countOf(ColumnKind wanted) const {
        std::size_t count = 0;
        for (std::size_t c = 0; c < table.columns.size(); ++c)
            count += kind(c) == wanted && !isBy(c) ? 1 : 0;
        return count;
    }

    // A nameless first column that counts rows, as some programs write it.
    bool isRowNumber(std::size_t index) const {
        const Column& counter = column(index);
        if (!table.hasHeader || counter.type.kind != ColumnKind::Number ||
            counter.name != "column " + std::to_string(index + 1) || counter.values.empty())
            return false;
        for (std::size_t i = 1; i < counter.values.size(); ++i) {
            if (counter.values[i] != counter.values[i - 1] + 1.0)
                return false;
        }
        return counter.values.front() == 0.0 || counter.values.front() == 1.0;
    }

    // Words that come back again and again, as names of groups do.
    bool hasRepeatedWords(std::size_t index) const {
        const Column& names = column(index);
        return names.type.kind == ColumnKind::Word && !names.tooManyWords &&
               names.words.size() * 2 <= table.rows;
    }

    void chooseX() {
        if (options.x) {
            result.x = named("--x", *options.x);
            require("--x", *result.x, true);
            return;
        }
        const std::size_t numbers = countOf(ColumnKind::Number);
        if (kind(0) == ColumnKind::Time && !isBy(0)) {
            result.x = 0;
        } else if (kind(0) == ColumnKind::Number && !isBy(0)) {
            const std::optional<std::size_t> time = firstOf(ColumnKind::Time);
            if (time && isRowNumber(0)) {
                result.x = time;
                skipped = 0;
            } else if (numbers > 1 || !options.y.empty()) {
                result.x = 0;
            }
        } else if (const std::optional<std::size_t> time = firstOf(ColumnKind::Time)) {
            result.x = time;
        } else if (numbers > 1 && (options.by || hasRepeatedWords(0))) {
            result.x = firstOf(ColumnKind::Number);
        }
        if (!result.x)
            note("no column gives x; the rows are numbered");
    }

    void chooseY() {
        for (const std::string& name : options.y) {
            const std::size_t index = named("--y", name);
            require("--y", index, false);
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
                note(describeColumn(table, c) + " is empty; left out");
        }
        if (result.y.empty())
            fail(table, 1,
                 result.x ? "no column of numbers besides " + describeColumn(table, *result.x)
                          : std::string("no column of numbers"));
    }

    void requireClean(std::size_t index) const {
        const Column& used = column(index);
        if (!used.firstBadCell)
            return;
        fail(table, used.firstBadCell->line,
             describeColumn(table, index) + ": \"" + used.firstBadCell->text + "\" is not a " +
                 (used.type.kind == ColumnKind::Time ? "date like the others" : "number"));
    }

    void requireCleanCells() const {
        if (result.x)
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
                note(describeColumn(table, c) + " holds " +
                     (kind(c) == ColumnKind::Word ? "words" : "dates") + "; left out");
        }
    }

    void groupByNamed(std::size_t index) {
        const Column& names = column(index);
        if (names.type.kind == ColumnKind::Number) {
            const bool few = !fewDistinct(names.values, mostNumberGroups).empty();
            groupBy(index, few ? Grouping::Values : Grouping::Classes);
            return;
        }
        if (names.firstBadCell)
            fail(table, names.firstBadCell->line,
                 "--by: " + describeColumn(table, index) + " mixes numbers and words");
        if (names.tooManyWords || names.words.size() > mostSeries)
            fail(table, table.hasHeader ? 2 : 1,
                 "--by: " + describeColumn(table, index) + " has more than " +
                     std::to_string(mostSeries) + " different values");
        groupBy(index, Grouping::Values);
    }

    // Long form: the same x comes back for another word, and only once for each.
    void guessGrouping() {
        if (!result.x || isStrictlyIncreasing(column(*result.x).values))
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
            note("one series for each value of " + describeColumn(table, *best));
        } else if (anyNames && isRepeated(x) && kind(*result.x) == ColumnKind::Time) {
            note(describeColumn(table, *result.x) +
                 " repeats; --by NAME draws one series for each value of a column");
        }
    }

    static bool isRepeated(const std::vector<double>& values) {
        return !isUniqueWithin(std::vector<std::uint32_t>(values.size()), values);
    }

    // A grid of positions with values: a map says more than lines over one of its sides.
    void choosePositions() {
        if (options.x || options.by || !options.y.empty() || result.grouping != Grouping::None ||
            !result.x || kind(*result.x) != ColumnKind::Number || result.y.size() < 2)
            return;
        const std::size_t vertical = result.y.front().column;
        if (!isZigzag(column(*result.x).values) ||
            !isGrid(column(*result.x).values, column(vertical).values))
            return;
        const std::size_t value = result.y.back().column;
        result.y.resize(1);
        groupByNamed(value);
        result.scatter = true;
        note("positions: " + column(vertical).name + " over " + column(*result.x).name +
             ", colours by " + column(value).name + "; --by NAME takes another column");
    }

    void chooseMarkers() {
        result.scatter = result.scatter || options.scatter || result.grouping == Grouping::Classes;
        // Rows of a time axis are put into order instead.
        if (result.scatter || !result.x || kind(*result.x) == ColumnKind::Time)
            return;
        const std::vector<double>& x = column(*result.x).values;
        if (result.grouping == Grouping::None)
            result.scatter = isZigzag(x);
        else
            result.scatter = isZigzagWithinGroups(x);
        if (result.scatter)
            note(describeColumn(table, *result.x) + " is in no order; drawn as markers");
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

    void requirePositive() const {
        const auto check = [this](const std::string& option, std::size_t index) {
            const std::vector<double>& values = column(index).values;
            if (std::ranges::none_of(values, [](double value) { return value > 0.0; }))
                fail(table, table.hasHeader ? 2 : 1,
                     option + ": " + describeColumn(table, index) + " has no value above 0");
        };
        if (options.logX && result.x) {
            if (kind(*result.x) == ColumnKind::Time)
                fail(table, table.hasHeader ? 2 : 1,
                     "--log-x: " + describeColumn(table, *result.x) + " holds dates");
            check("--log-x", *result.x);
        }
        if (options.logY) {
            for (const DrawnColumn& drawn : result.y)
                check("--log-y", drawn.column);
        }
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
    return Planner(table, options).plan();
}

} // namespace viewer
