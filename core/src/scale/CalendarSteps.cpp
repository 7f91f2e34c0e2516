// SPDX-License-Identifier: MIT
#include "CalendarSteps.h"

#include "Calendar.h"
#include "Decimal.h"

#include <algorithm>
#include <cmath>

namespace zembra {

namespace {

using Unit = CalendarStep::Unit;

constexpr std::int64_t minute = 60;
constexpr std::int64_t hour = 3600;
constexpr double day = 86400.0;
constexpr double year = 365.2425 * day;
constexpr double month = year / 12.0;
// The first Monday after the epoch.
constexpr std::int64_t someMonday = 4;

std::vector<CalendarStep> makeSteps() {
    std::vector<CalendarStep> steps;
    for (const std::int64_t unit : {std::int64_t{1}, minute}) {
        for (const int count : {1, 2, 5, 10, 15, 30})
            steps.push_back({Unit::Second, count * unit});
    }
    for (const int count : {1, 2, 3, 6, 12})
        steps.push_back({Unit::Second, count * hour});
    steps.push_back({Unit::Day, 1});
    steps.push_back({Unit::Day, 2});
    steps.push_back({Unit::Week, 1});
    steps.push_back({Unit::HalfMonth, 1});
    for (const int count : {1, 2, 3, 6})
        steps.push_back({Unit::Month, count});
    for (std::int64_t power = 1; power <= 10'000'000; power *= 10) {
        for (const int count : {1, 2, 5})
            steps.push_back({Unit::Year, count * power});
    }
    return steps;
}

std::int64_t monthIndex(const CivilDate& date) {
    return date.year * 12 + date.month - 1;
}

CivilDate firstOfMonth(std::int64_t index) {
    return {floorDiv(index, 12), static_cast<int>(floorMod(index, 12)) + 1, 1};
}

// The number of the step that contains a local day.
std::int64_t indexOf(const CalendarStep& step, std::int64_t localDay) {
    const CivilDate date = civilFromDays(localDay);
    switch (step.unit) {
    case Unit::Year:
        return floorDiv(date.year, step.count);
    case Unit::Month:
        return floorDiv(monthIndex(date), step.count);
    case Unit::HalfMonth:
        return monthIndex(date) * 2 + (date.day >= 16 ? 1 : 0);
    case Unit::Week:
        return floorDiv(localDay - someMonday, 7);
    case Unit::Day:
    case Unit::Second:
        break;
    }
    // Counted on through the months: ticks at even distances tell more than one on each first.
    return floorDiv(localDay, step.count);
}

// The local day at which a step begins.
std::int64_t dayOf(const CalendarStep& step, std::int64_t index) {
    switch (step.unit) {
    case Unit::Year:
        return daysFromCivil({index * step.count, 1, 1});
    case Unit::Month:
        return daysFromCivil(firstOfMonth(index * step.count));
    case Unit::HalfMonth: {
        CivilDate date = firstOfMonth(floorDiv(index, 2));
        date.day = floorMod(index, 2) == 0 ? 1 : 16;
        return daysFromCivil(date);
    }
    case Unit::Week:
        return someMonday + 7 * index;
    case Unit::Day:
    case Unit::Second:
        break;
    }
    return index * step.count;
}

void addDays(std::vector<std::int64_t>& instants, const CalendarStep& step, std::int64_t first,
             std::int64_t last, const ZoneTable& zone) {
    const auto localDay = [&zone](std::int64_t instant) {
        return floorDiv(zone.toLocal(instant), secondsPerDay);
    };
    // A day early, for clocks that go back across midnight.
    const std::int64_t begin = indexOf(step, localDay(first) - 1);
    const std::int64_t end = indexOf(step, localDay(last) + 1);
    for (std::int64_t index = begin; index <= end; ++index) {
        const std::int64_t wanted = dayOf(step, index);
        const std::int64_t instant = zone.toInstant(wanted * secondsPerDay);
        if (instant >= first && instant <= last && localDay(instant) == wanted)
            instants.push_back(instant);
    }
}

void addSeconds(std::vector<std::int64_t>& instants, std::int64_t count, std::int64_t first,
                std::int64_t last, const ZoneTable& zone) {
    for (std::int64_t from = first; from <= last;) {
        const ZoneSpan& span = zone.spanAt(from);
        const std::int64_t to = std::min(last, span.end - 1);
        const std::int64_t begin = -floorDiv(-(from + span.offset), count) * count - span.offset;
        for (std::int64_t instant = begin; instant <= to; instant += count)
            instants.push_back(instant);
        from = to + 1;
    }
}

} // namespace

double CalendarStep::length() const {
    const auto n = static_cast<double>(count);
    switch (unit) {
    case Unit::Year:
        return n * year;
    case Unit::Month:
        return n * month;
    case Unit::HalfMonth:
        return month / 2.0;
    case Unit::Week:
        return n * 7.0 * day;
    case Unit::Day:
        return n * day;
    case Unit::Second:
        break;
    }
    return n;
}

double CalendarStep::mostTicks(double span) const {
    // What short months, leap years and days of 23 hours take from the mean distance.
    const double slack = unit == Unit::Year                     ? 2.0 * day
                         : unit == Unit::Month                  ? 3.0 * day
                         : unit == Unit::HalfMonth              ? 3.5 * day
                         : unit != Unit::Second || count > hour ? 3600.0
                                                                : 0.0;
    return (span + slack) / length() + 1.0;
}

std::optional<CalendarStep> CalendarStep::finer() const {
    switch (unit) {
    case Unit::Year: {
        const auto lead = static_cast<int>(count / integerPower10(digitCount(count) - 1));
        if (count == 1)
            return CalendarStep{Unit::Month, 3};
        if (count == 2)
            return CalendarStep{Unit::Year, 1};
        return CalendarStep{Unit::Year, lead == 1 ? count / 5 : lead == 2 ? count / 4 : count / 5};
    }
    case Unit::Month:
        return count == 1 ? CalendarStep{Unit::HalfMonth, 1} : CalendarStep{Unit::Month, 1};
    case Unit::HalfMonth:
    case Unit::Week:
        return CalendarStep{Unit::Day, 1};
    case Unit::Day:
        return count == 1 ? CalendarStep{Unit::Second, 6 * hour} : CalendarStep{Unit::Day, 1};
    case Unit::Second:
        break;
    }
    switch (count) {
    case 12 * hour:
        return CalendarStep{Unit::Second, 3 * hour};
    case 6 * hour:
    case 3 * hour:
        return CalendarStep{Unit::Second, hour};
    case 2 * hour:
        return CalendarStep{Unit::Second, 30 * minute};
    case hour:
        return CalendarStep{Unit::Second, 15 * minute};
    case 30 * minute:
    case 15 * minute:
        return CalendarStep{Unit::Second, 5 * minute};
    case 10 * minute:
        return CalendarStep{Unit::Second, 2 * minute};
    case 5 * minute:
        return CalendarStep{Unit::Second, minute};
    case 2 * minute:
        return CalendarStep{Unit::Second, 30};
    case minute:
        return CalendarStep{Unit::Second, 15};
    case 30:
    case 15:
        return CalendarStep{Unit::Second, 5};
    case 10:
        return CalendarStep{Unit::Second, 2};
    case 5:
        return CalendarStep{Unit::Second, 1};
    default:
        return std::nullopt;
    }
}

const std::vector<CalendarStep>& calendarSteps() {
    static const std::vector<CalendarStep> steps = makeSteps();
    return steps;
}

std::vector<std::int64_t> instantsOf(const CalendarStep& step, double min, double max,
                                     const ZoneTable& zone) {
    std::vector<std::int64_t> instants;
    const auto first = static_cast<std::int64_t>(std::ceil(min));
    const auto last = static_cast<std::int64_t>(std::floor(max));
    if (first > last)
        return instants;
    if (step.unit == CalendarStep::Unit::Second)
        addSeconds(instants, step.count, first, last, zone);
    else
        addDays(instants, step, first, last, zone);
    return instants;
}

} // namespace zembra
