// SPDX-License-Identifier: MIT
#include "TimeLabels.h"

#include "Calendar.h"

#include <fmt/format.h>

#include <array>
#include <cstdlib>

namespace zembra {

namespace {

using Unit = CalendarStep::Unit;

constexpr std::array<const char*, 12> monthNames = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                    "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};

const char* monthName(const CivilDate& date) {
    return monthNames[static_cast<std::size_t>(date.month - 1)];
}

std::string yearText(std::int64_t year) {
    return fmt::format("{}{}", year < 0 ? minusSign : "", std::abs(year));
}

std::string dateText(const CivilDate& date) {
    return fmt::format("{} {} {}", monthName(date), date.day, yearText(date.year));
}

struct LocalTime {
    CivilDate date;
    int hour = 0;
    int minute = 0;
    int second = 0;
};

LocalTime localTime(std::int64_t instant, const ZoneTable& zone) {
    const std::int64_t local = zone.toLocal(instant);
    const std::int64_t days = floorDiv(local, secondsPerDay);
    const auto seconds = static_cast<int>(local - days * secondsPerDay);
    return {civilFromDays(days), seconds / 3600, seconds / 60 % 60, seconds % 60};
}

std::string tagged(const std::string& text, const std::string& tag) {
    return tag.empty() ? text : text + ' ' + tag;
}

// `value` × 10^-`decimals`, such as "15.250".
std::string fixedText(std::int64_t value, int decimals) {
    const std::int64_t unit = integerPower10(decimals);
    return decimals == 0 ? fmt::format("{}", value)
                         : fmt::format("{}.{:0{}}", value / unit, value % unit, decimals);
}

} // namespace

Tick calendarTick(std::int64_t instant, const CalendarStep& step, const ZoneTable& zone) {
    const LocalTime time = localTime(instant, zone);
    Tick tick;
    tick.value = static_cast<double>(instant);
    switch (step.unit) {
    case Unit::Year:
        tick.label = yearText(time.date.year);
        return tick;
    case Unit::Month:
        tick.label = monthName(time.date);
        tick.group = yearText(time.date.year);
        return tick;
    case Unit::HalfMonth:
    case Unit::Week:
    case Unit::Day:
        tick.label = fmt::format("{} {}", monthName(time.date), time.date.day);
        tick.group = yearText(time.date.year);
        return tick;
    case Unit::Second:
        break;
    }
    tick.label = step.count % 60 == 0
                     ? fmt::format("{:02}:{:02}", time.hour, time.minute)
                     : fmt::format("{:02}:{:02}:{:02}", time.hour, time.minute, time.second);
    tick.label = tagged(tick.label, zone.repeatedHourTag(instant));
    tick.group = dateText(time.date);
    return tick;
}

Tick fractionTick(Decimal instant, int place, const ZoneTable& zone) {
    const std::int64_t perSecond = integerPower10(-place);
    const std::int64_t count = instant.digits * integerPower10(instant.exponent - place);
    const std::int64_t seconds = floorDiv(count, perSecond);
    const std::int64_t fraction = count - seconds * perSecond;
    const LocalTime time = localTime(seconds, zone);
    const std::string date = dateText(time.date);
    Tick tick;
    tick.value = instant.toDouble();
    // The label counts from the last whole minute, second or millisecond.
    if (place >= -3) {
        tick.label = fixedText(time.second * perSecond + fraction, -place) + " s";
        tick.group = fmt::format("{} {:02}:{:02}", date, time.hour, time.minute);
    } else if (place >= -6) {
        tick.label = fixedText(fraction, -place - 3) + " ms";
        tick.group = fmt::format("{} {:02}:{:02}:{:02}", date, time.hour, time.minute, time.second);
    } else {
        const std::int64_t perMilli = integerPower10(-place - 3);
        tick.label = fixedText(fraction % perMilli, -place - 6) + " \u00b5s";
        tick.group = fmt::format("{} {:02}:{:02}:{:02}.{:03}", date, time.hour, time.minute,
                                 time.second, fraction / perMilli);
    }
    tick.group = tagged(tick.group, zone.repeatedHourTag(seconds));
    return tick;
}

} // namespace zembra
