// SPDX-License-Identifier: MIT
#include "ZoneRules.h"

#include "Calendar.h"
#include "Decimal.h"

#include <array>
#include <optional>

namespace zembra {

namespace {

constexpr std::int64_t lastListedYear = 2037;
constexpr std::int64_t firstChecked = 2031;
constexpr std::int64_t lastExtended = 2200;

// A change at the nth weekday of a month, by the clocks before it.
struct YearlyChange {
    int month = 1;
    int weekday = 0;
    int nth = 1;
    bool isLast = false;
    std::int64_t timeOfDay = 0;

    std::int64_t localIn(std::int64_t year) const {
        const std::int64_t first = daysFromCivil({year, month, 1});
        std::int64_t day =
            first + (weekday - weekdayOf(first) + 7) % 7 + std::int64_t{7} * (nth - 1);
        const int length = daysInMonth(year, month);
        while (isLast && day + 7 < first + length)
            day += 7;
        return day * secondsPerDay + timeOfDay;
    }
};

std::int64_t localBegin(const std::vector<ZoneSpan>& spans, std::size_t i) {
    return spans[i].begin + spans[i - 1].offset;
}

// The rule that the changes `last`, `last - 2`, `last - 4` and so on follow, if they do and the
// last one is in the last year listed.
std::optional<YearlyChange> ruleOf(const std::vector<ZoneSpan>& spans, std::size_t last) {
    const std::int64_t local = localBegin(spans, last);
    const std::int64_t days = floorDiv(local, secondsPerDay);
    const CivilDate date = civilFromDays(days);
    YearlyChange change{date.month, weekdayOf(days), (date.day - 1) / 7 + 1, false,
                        floorMod(local, secondsPerDay)};
    for (const bool isLast : {false, true}) {
        change.isLast = isLast;
        bool fits = true;
        for (std::int64_t year = lastListedYear; year >= firstChecked && fits; --year) {
            const auto back = static_cast<std::size_t>(2 * (lastListedYear - year));
            fits = back < last && spans[last - back].offset == spans[last].offset &&
                   localBegin(spans, last - back) == change.localIn(year);
        }
        if (fits)
            return change;
        // Counted from the first, a weekday that is always the last one is the fourth or fifth.
        change.nth = 1;
    }
    return std::nullopt;
}

} // namespace

void extendByRules(std::vector<ZoneSpan>& spans) {
    const std::size_t count = spans.size();
    if (count < 3)
        return;
    const auto first = ruleOf(spans, count - 2);
    const auto second = ruleOf(spans, count - 1);
    if (!first || !second)
        return;
    const std::array<ZoneSpan, 2> kept = {spans[count - 2], spans[count - 1]};
    for (std::int64_t year = lastListedYear + 1; year <= lastExtended; ++year) {
        for (const std::size_t i : {0u, 1u}) {
            ZoneSpan next = kept[i];
            next.begin = (i == 0 ? first : second)->localIn(year) - spans.back().offset;
            next.end = spans.back().end;
            spans.back().end = next.begin;
            spans.push_back(next);
        }
    }
    // Close with standard time, in the southern half of the world, too.
    if (spans.back().offset > spans[spans.size() - 2].offset) {
        spans[spans.size() - 2].end = spans.back().end;
        spans.pop_back();
    }
}

} // namespace zembra
