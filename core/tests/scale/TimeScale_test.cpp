// SPDX-License-Identifier: MIT
#include <zembra/scale/Scale.h>

#include "support/TickChecks.h"
#include "support/TickTexts.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <map>
#include <set>

using namespace zembra;
using namespace zembra::test;

namespace {

constexpr double hour = 3600.0;
constexpr double day = 86400.0;

double utc(int year, unsigned month, unsigned dayOfMonth, double hours = 0.0) {
    const std::chrono::sys_days date =
        std::chrono::year(year) / std::chrono::month(month) / std::chrono::day(dayOfMonth);
    return static_cast<double>(date.time_since_epoch().count()) * day + hours * hour;
}

// Labels, with each group in front of its first one.
std::string line(const TickSet& set) {
    std::string text;
    std::string group;
    for (const Tick& tick : set.major) {
        text += text.empty() ? "" : " | ";
        if (tick.group != group)
            text += "[" + tick.group + "] ";
        group = tick.group;
        text += tick.label;
    }
    return text;
}

std::string line(const char* zone, double from, double to, int maxMajor = 8) {
    return line(Scale::time(zone).ticks(from, to, most(maxMajor)));
}

} // namespace

TEST(TimeScale, TicksFollowTheCalendarAtEveryZoom) {
    const double t = utc(2024, 1, 1);
    struct Case {
        double from, to;
        const char* labels;
    };
    const Case cases[] = {
        {utc(1900, 1, 1), utc(2100, 1, 1), "1900 | 1950 | 2000 | 2050 | 2100"},
        {utc(2015, 6, 1), utc(2024, 6, 1), "2016 | 2018 | 2020 | 2022 | 2024"},
        {utc(2022, 6, 1), utc(2024, 8, 1), "[2022] Jul | [2023] Jan | Jul | [2024] Jan | Jul"},
        {utc(2023, 10, 2), utc(2024, 4, 3), "[2023] Nov | Dec | [2024] Jan | Feb | Mar | Apr"},
        {utc(2023, 12, 10), utc(2024, 2, 28),
         "[2023] Dec 16 | [2024] Jan 1 | Jan 16 | Feb 1 | Feb 16"},
        {utc(2023, 12, 17), utc(2024, 1, 23),
         "[2023] Dec 18 | Dec 25 | [2024] Jan 1 | Jan 8 | Jan 15 | Jan 22"},
        {utc(2024, 2, 25), utc(2024, 3, 6),
         "[2024] Feb 25 | Feb 27 | Feb 29 | Mar 2 | Mar 4 | Mar 6"},
        {t - day, t + 3 * day, "[2023] Dec 31 | [2024] Jan 1 | Jan 2 | Jan 3 | Jan 4"},
        {t - 7 * hour, t + 11 * hour,
         "[Dec 31 2023] 18:00 | 21:00 | [Jan 1 2024] 00:00 | 03:00 | 06:00 | 09:00"},
        {t, t + hour, "[Jan 1 2024] 00:00 | 00:10 | 00:20 | 00:30 | 00:40 | 00:50 | 01:00"},
        {t, t + 60,
         "[Jan 1 2024] 00:00:00 | 00:00:10 | 00:00:20 | 00:00:30 | 00:00:40 | "
         "00:00:50 | 00:01:00"},
        {t - 1.0, t + 1.0,
         "[Dec 31 2023 23:59] 59.0 s | 59.5 s | [Jan 1 2024 00:00] 0.0 s | 0.5 s | 1.0 s"},
        {t - 1e-5, t + 1e-5,
         "[Dec 31 2023 23:59:59] 999.990 ms | 999.995 ms | "
         "[Jan 1 2024 00:00:00] 0.000 ms | 0.005 ms | 0.010 ms"},
        {0.0, 4e-9,
         "[Jan 1 1970 00:00:00.000] 0.000 µs | 0.001 µs | 0.002 µs | 0.003 µs | "
         "0.004 µs"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(line("UTC", c.from, c.to, 7), c.labels);
}

TEST(TimeScale, MinorTicksAreTheNextFinerUnit) {
    constexpr double minute = 60.0;
    struct Case {
        double step, minor;
    };
    const Case cases[] = {{12 * hour, 3 * hour},
                          {6 * hour, hour},
                          {3 * hour, hour},
                          {2 * hour, 30 * minute},
                          {hour, 15 * minute},
                          {30 * minute, 5 * minute},
                          {15 * minute, 5 * minute},
                          {10 * minute, 2 * minute},
                          {5 * minute, minute},
                          {2 * minute, 30},
                          {minute, 15},
                          {30, 5},
                          {15, 5},
                          {10, 2},
                          {5, 1},
                          {day, 6 * hour},
                          {7 * day, day}};
    const double begin = utc(2024, 1, 1);
    for (const Case& c : cases) {
        const TickSet set = Scale::time("UTC").ticks(begin, begin + 4 * c.step, most(5));
        ASSERT_EQ(set.major.size(), 5u) << c.step;
        std::vector<double> expected;
        for (int i = 0; i * c.minor < 4 * c.step; ++i)
            if (std::fmod(i * c.minor, c.step) != 0.0)
                expected.push_back(begin + i * c.minor);
        EXPECT_EQ(set.minor, expected) << c.step;
    }
    EXPECT_EQ(Scale::time("UTC").ticks(begin, utc(2024, 4, 1), most(4)).minor,
              (std::vector{utc(2024, 1, 16), utc(2024, 2, 16), utc(2024, 3, 16)}));
}

TEST(TimeScale, MinorTicksBelowASecondFillTheRange) {
    std::vector<double> expected;
    for (int i = 1; i <= 49; ++i)
        if (i % 5 != 0)
            expected.push_back(2.0 * i / 100.0);
    EXPECT_EQ(Scale::time("UTC").ticks(0.02, 0.98, most(10)).minor, expected);
}

TEST(TimeScale, ClocksOfFarYearsChangeOnTheSundaysOfTheRule) {
    struct Case {
        const char* zone;
        unsigned month, sunday;
        int hours;
    };
    // Second and first, last, and first Sundays, all of 2040.
    const Case cases[] = {
        {"America/New_York", 3, 11, 23}, {"America/New_York", 11, 4, 25},
        {"Europe/Paris", 3, 25, 23},     {"Europe/Paris", 10, 28, 25},
        {"Australia/Sydney", 10, 7, 23}, {"Australia/Sydney", 4, 1, 25},
    };
    for (const Case& c : cases) {
        // The first midnights of the weeks around the change, as the zone's clocks show them.
        const double around = utc(2040, c.month, c.sunday, 12.0);
        std::vector<double> midnights;
        for (const Tick& tick :
             Scale::time(c.zone).ticks(around - 5 * day, around + 5 * day, most(11)).major)
            midnights.push_back(tick.value);
        ASSERT_GE(midnights.size(), 10u) << c.zone;
        int others = 0;
        for (std::size_t i = 1; i < midnights.size(); ++i) {
            const double hours = (midnights[i] - midnights[i - 1]) / hour;
            const double since = std::abs(midnights[i - 1] - utc(2040, c.month, c.sunday));
            if (since <= 15 * hour && hours != 24.0)
                EXPECT_EQ(hours, c.hours) << c.zone << " " << c.month;
            else
                EXPECT_EQ(hours, 24.0) << c.zone << " " << c.month;
            others += hours != 24.0 ? 1 : 0;
        }
        EXPECT_EQ(others, 1) << c.zone << " " << c.month;
    }
}

TEST(TimeScale, EveryFourthYearHasALeapDayButThreeCenturiesInFour) {
    for (int year = 1500; year <= 2500; ++year) {
        const bool leap = std::chrono::year(year).is_leap();
        const std::string text = "[" + std::to_string(year) + "] Feb 27 | Feb 28 | " +
                                 (leap ? "Feb 29 | Mar 1" : "Mar 1 | Mar 2");
        EXPECT_EQ(line("UTC", utc(year, 2, 27), utc(year, 2, 27) + 3 * day, 4), text);
    }
}

TEST(TimeScale, YearsRunOnBothWaysWithoutEnd) {
    EXPECT_EQ(line("UTC", utc(9999, 6, 1), utc(10000, 6, 1), 5), "[9999] Jul | Oct | "
                                                                 "[10000] Jan | Apr");
    EXPECT_EQ(line("UTC", utc(-2, 1, 1), utc(2, 1, 1), 5), "−2 | −1 | 0 | 1 | 2");
    EXPECT_EQ(line("UTC", utc(1, 1, 1), utc(20000, 1, 1), 5), "5000 | 10000 | 15000 | 20000");
    EXPECT_EQ(line("UTC", utc(1969, 12, 31, 18), utc(1970, 1, 1, 6), 5),
              "[Dec 31 1969] 18:00 | 21:00 | [Jan 1 1970] 00:00 | 03:00 | 06:00");
    EXPECT_EQ(line("UTC", utc(1, 1, 1), utc(1, 3, 1), 4), "[1] Jan | Feb | Mar");
}

TEST(TimeScale, BeyondTheCalendarTimesAreNumbers) {
    const Scale scale = Scale::time();
    EXPECT_EQ(tickFault(scale, 1e15, 2e15, most(8)), "");
    EXPECT_EQ(tickFault(scale, -1e300, 1e300, most(8)), "");
    EXPECT_FALSE(scale.ticks(1e15, 2e15, most(8)).major.empty());
}

TEST(TimeScale, DaysOfDaylightSavingHaveEveryHourOnce) {
    struct Case {
        const char* zone;
        double from, to;
        const char* labels;
    };
    const Case cases[] = {
        {"Europe/Zurich", utc(2024, 3, 31, -1), utc(2024, 3, 31, 4),
         "[Mar 31 2024] 00:00 | 01:00 | 03:00 | 04:00 | 05:00 | 06:00"},
        {"Europe/Zurich", utc(2024, 10, 26, 22), utc(2024, 10, 27, 4),
         "[Oct 27 2024] 00:00 | 01:00 | 02:00 CEST | 02:00 CET | 03:00 | 04:00 | 05:00"},
        {"Europe/Zurich", utc(2024, 10, 27, 0), utc(2024, 10, 27, 2),
         "[Oct 27 2024] 02:00 CEST | 02:30 CEST | 02:00 CET | 02:30 CET | 03:00"},
        {"America/New_York", utc(2024, 3, 10, 5), utc(2024, 3, 10, 9),
         "[Mar 10 2024] 00:00 | 01:00 | 03:00 | 04:00 | 05:00"},
        {"America/New_York", utc(2024, 11, 3, 4), utc(2024, 11, 3, 8),
         "[Nov 3 2024] 00:00 | 01:00 EDT | 01:00 EST | 02:00 | 03:00"},
        {"Australia/Lord_Howe", utc(2024, 4, 6, 14), utc(2024, 4, 6, 16.5),
         "[Apr 7 2024] 01:00 | 01:30 +11 | 01:30 +1030 | 02:00 | 02:30 | 03:00"},
        {"Australia/Lord_Howe", utc(2024, 10, 5, 15), utc(2024, 10, 5, 17),
         "[Oct 6 2024] 01:30 | 02:30 | 03:00 | 03:30 | 04:00"},
        {"Asia/Kathmandu", utc(2024, 1, 1), utc(2024, 1, 1, 4),
         "[Jan 1 2024] 06:00 | 07:00 | 08:00 | 09:00"},
        // The abbreviation stays MSK while the clocks go back for good.
        {"Europe/Moscow", utc(2014, 10, 25, 20), utc(2014, 10, 26, 0),
         "[Oct 26 2014] 00:00 | 01:00 UTC+4 | 01:00 UTC+3 | 02:00 | 03:00"},
        {"Asia/Pyongyang", utc(2015, 8, 14, 13.5), utc(2015, 8, 14, 16),
         "[Aug 14 2015] 22:30 | 23:00 | 23:30 UTC+9 | 23:30 UTC+8:30 | [Aug 15 2015] 00:00 | "
         "00:30"},
        // Clocks by the sun, which went back by a minute and 22 seconds.
        {"Africa/Monrovia", -1604359012.0 - 90.0, -1604359012.0 + 90.0,
         "[Feb 28 1919] 23:58:30 | 23:59:00 UTC−0:43:08 | 23:59:30 UTC−0:43:08 | "
         "23:59:00 UTC−0:44:30 | 23:59:30 UTC−0:44:30 | [Mar 1 1919] 00:00:00"},
        // Midnight of the first day of daylight saving does not exist.
        {"America/Sao_Paulo", utc(2018, 11, 2, 12), utc(2018, 11, 6, 12),
         "[2018] Nov 3 | Nov 4 | Nov 5 | Nov 6"},
        // Samoa left out the 30th of December 2011.
        {"Pacific/Apia", utc(2011, 12, 28, 12), utc(2012, 1, 1, 12),
         "[2011] Dec 29 | Dec 31 | [2012] Jan 1 | Jan 2"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(line(c.zone, c.from, c.to, 7), c.labels) << c.zone;
}

TEST(TimeScale, DaylightSavingGoesOnWhereTheSystemsDataEnds) {
    // The last Sunday of March 2050 is the 27th; the second Sunday of March 2061 is the 13th.
    EXPECT_EQ(line("Europe/Zurich", utc(2050, 3, 26, 23), utc(2050, 3, 27, 3), 7),
              "[Mar 27 2050] 00:00 | 01:00 | 03:00 | 04:00 | 05:00");
    EXPECT_EQ(line("America/New_York", utc(2061, 3, 13, 5), utc(2061, 3, 13, 9), 7),
              "[Mar 13 2061] 00:00 | 01:00 | 03:00 | 04:00 | 05:00");
    // The last Sunday of October 2199 is the 27th.
    EXPECT_EQ(line("Europe/Zurich", utc(2199, 10, 26, 22), utc(2199, 10, 27, 2), 7),
              "[Oct 27 2199] 00:00 | 01:00 | 02:00 CEST | 02:00 CET | 03:00");
}

TEST(TimeScale, AnUnknownZoneMeansUtc) {
    for (const char* zone : {"", "Mars/Olympus", "../../etc/passwd", "europe", "Zürich"})
        EXPECT_EQ(line(zone, 0, day, 5), line("UTC", 0, day, 5)) << zone;
}

TEST(TimeScale, ASingleInstantGetsTheDayAroundIt) {
    const Interval range = Scale::time().autoRange({1000.0, 1000.0}, 0.05);
    EXPECT_EQ(range.min, 1000.0 - day / 2);
    EXPECT_EQ(range.max, 1000.0 + day / 2);
}

TEST(TimeScale, NoTextComesTwiceInAnyZone) {
    RandomRanges ranges;
    const Scale zones[] = {Scale::time("Europe/Zurich"),       Scale::time("America/New_York"),
                           Scale::time("Australia/Lord_Howe"), Scale::time("Asia/Kathmandu"),
                           Scale::time("Africa/Casablanca"),   Scale::time("Pacific/Apia"),
                           Scale::time("America/Sitka"),       Scale::time("Europe/Dublin")};
    for (int i = 0; i < randomRangeCount / 2; ++i) {
        auto range = ranges.time();
        // Most of them where clocks change.
        if (i % 4 != 0) {
            const double shift = std::fmod(std::abs(range.first), 2.6e9) - 1.6e9 - range.first;
            range = {range.first + shift, range.second + shift};
        }
        const TickSet set = zones[i % 8].ticks(range.first, range.second, most(1 + i % 20));
        std::set<std::pair<std::string, std::string>> texts;
        ASSERT_LE(static_cast<int>(set.major.size()), 1 + i % 20);
        for (std::size_t j = 0; j < set.major.size(); ++j) {
            const Tick& tick = set.major[j];
            ASSERT_TRUE(texts.insert({tick.label, tick.group}).second)
                << tick.label << " " << tick.group << " twice in zone " << i % 8;
            ASSERT_TRUE(tick.value >= range.first && tick.value <= range.second);
            ASSERT_TRUE(j == 0 || tick.value > set.major[j - 1].value);
        }
    }
}

TEST(TimeScale, TicksOfRandomRangesReadBackAsTheirInstants) {
    RandomRanges ranges;
    const Scale scale = Scale::time();
    for (int i = 0; i < randomRangeCount; ++i) {
        const auto range = ranges.time();
        if (range.second - range.first < 1e-8 || range.second - range.first < 1e-15 * 9e11)
            continue;
        ASSERT_EQ(timeTickFault(scale, range.first, range.second, most(3 + i % 14)), "");
    }
}

TEST(TimeScale, AnAxisHasATickEvenWhereFewAreWanted) {
    RandomRanges ranges;
    const Scale scale = Scale::time("Europe/Zurich");
    for (int i = 0; i < randomRangeCount / 10; ++i) {
        const auto range = ranges.time();
        if (!(range.first < range.second))
            continue;
        for (const int count : {1, 2, 3})
            ASSERT_FALSE(scale.ticks(range.first, range.second, most(count)).major.empty())
                << range.first << " " << range.second << " " << count;
    }
}

TEST(TimeScale, ASingleTickBetweenEvenSecondsStandsOnTheSecond) {
    EXPECT_EQ(valuesOf(Scale::time("UTC").ticks(0.5, 1.6, most(1))), (std::vector{1.0}));
}

TEST(TimeScale, LabelsHoldStillWhilePanning) {
    const Scale scale = Scale::time("Europe/Zurich");
    const double start = utc(2024, 10, 20);
    for (const double span :
         {20 * 365 * day, 400 * day, 60 * day, 9 * day, 2 * day, 5 * hour, hour, 60.0, 2.0, 1e-2}) {
        std::map<double, std::string> seen;
        for (int i = 0; i < 1000; ++i) {
            const double from = start + i * span * 0.01;
            for (const Tick& tick : scale.ticks(from, from + span, most(8)).major) {
                const std::string text = tick.label + " " + tick.group;
                const auto [at, isNew] = seen.insert({tick.value, text});
                ASSERT_TRUE(isNew || at->second == text) << at->second << " became " << text;
            }
        }
    }
}

namespace {

// The instants in UTC, from `from` to `to`, at which a step of the calendar begins.
std::vector<double> instantsOf(const std::string& unit, int count, double from, double to) {
    using namespace std::chrono;
    std::vector<double> instants;
    const auto add = [&](double instant) {
        if (instant >= from && instant <= to)
            instants.push_back(instant);
    };
    if (unit == "second" || unit == "day" || unit == "week") {
        const double size = count * (unit == "second" ? 1.0 : unit == "day" ? day : 7.0 * day);
        // Weeks begin on Mondays, and the epoch was a Thursday.
        const double shift = unit == "week" ? 4.0 * day : 0.0;
        for (double i = std::floor((from - shift) / size); i * size + shift <= to; ++i)
            add(i * size + shift);
        return instants;
    }
    const auto yearOf = [](double instant) {
        const sys_days date{days(static_cast<int>(std::floor(instant / day)))};
        return int(year_month_day(date).year());
    };
    for (int y = yearOf(from); y <= yearOf(to); ++y) {
        if (unit == "year") {
            if (y % count == 0)
                add(utc(y, 1, 1));
            continue;
        }
        for (int month = 0; month < 12; ++month) {
            if (unit == "half month") {
                add(utc(y, static_cast<unsigned>(month + 1), 1));
                add(utc(y, static_cast<unsigned>(month + 1), 16));
            } else if (month % count == 0) {
                add(utc(y, static_cast<unsigned>(month + 1), 1));
            }
        }
    }
    return instants;
}

struct CalendarCase {
    std::string unit;
    int count;
    // The step of the minor ticks.
    std::string minorUnit;
    int minorCount;
};

const std::vector<CalendarCase>& calendarCases() {
    constexpr int m = 60;
    constexpr int h = 3600;
    static const std::vector<CalendarCase> all = {
        {"second", 2, "", 0},
        {"second", 5, "second", 1},
        {"second", 10, "second", 2},
        {"second", 15, "second", 5},
        {"second", 30, "second", 5},
        {"second", m, "second", 15},
        {"second", 2 * m, "second", 30},
        {"second", 5 * m, "second", m},
        {"second", 10 * m, "second", 2 * m},
        {"second", 15 * m, "second", 5 * m},
        {"second", 30 * m, "second", 5 * m},
        {"second", h, "second", 15 * m},
        {"second", 2 * h, "second", 30 * m},
        {"second", 3 * h, "second", h},
        {"second", 6 * h, "second", h},
        {"second", 12 * h, "second", 3 * h},
        {"day", 1, "second", 6 * h},
        {"day", 2, "day", 1},
        {"week", 1, "day", 1},
        {"half month", 1, "day", 1},
        {"month", 1, "half month", 1},
        {"month", 2, "month", 1},
        {"month", 3, "month", 1},
        {"month", 6, "month", 1},
        {"year", 1, "month", 3},
        {"year", 2, "year", 1},
        {"year", 5, "year", 1},
        {"year", 10, "year", 2},
        {"year", 20, "year", 5},
        {"year", 50, "year", 10},
        {"year", 100, "year", 20},
        {"year", 200, "year", 50},
        {"year", 500, "year", 100},
        {"year", 1000, "year", 200},
        {"year", 2000, "year", 500},
        {"year", 5000, "year", 1000},
        {"year", 10000, "year", 2000},
    };
    return all;
}

// The first step that begins at just these instants of a range, or the end.
std::vector<CalendarCase>::const_iterator stepOf(const std::vector<double>& major, double from,
                                                 double to) {
    return std::find_if(calendarCases().begin(), calendarCases().end(), [&](const CalendarCase& s) {
        const double unit = s.unit == "second"       ? 1.0
                            : s.unit == "day"        ? day
                            : s.unit == "week"       ? 7.0 * day
                            : s.unit == "half month" ? 15.0 * day
                            : s.unit == "month"      ? 30.0 * day
                                                     : 365.0 * day;
        return to - from < 300.0 * s.count * unit && instantsOf(s.unit, s.count, from, to) == major;
    });
}

} // namespace

TEST(TimeScale, EveryBeginningOfTheFinestStepThatFitsHasATickAndItsPartsHaveMinorOnes) {
    // How many seconds a range may be longer than its number of steps tells: months differ.
    constexpr double slack = 4.0 * day;
    std::size_t last = 0;
    int told = 0;
    for (double span = 12.0; span < 20'000 * 365.0 * day; span *= 1.17) {
        for (const int maxMajor : {3, 6, 11}) {
            const double from = std::floor(utc(2023, 10, 9) - 0.41 * span);
            const double to = std::floor(from + span);
            const TickSet set = Scale::time("UTC").ticks(from, to, most(maxMajor));
            const std::vector<double> major = valuesOf(set);
            // Steps of which each divides the next look alike where only one tick is left.
            if (major.size() < 2)
                continue;
            const auto step = stepOf(major, from, to);
            ASSERT_NE(step, calendarCases().end()) << from << " to " << to << ": " << maxMajor;
            ++told;
            last = std::max(last, static_cast<std::size_t>(step - calendarCases().begin()));
            if (step != calendarCases().begin()) {
                const CalendarCase& finer = *(step - 1);
                const bool isEven = step->unit == "second" && step->count <= 3600;
                EXPECT_GE(instantsOf(finer.unit, finer.count, from - (isEven ? 0.0 : slack),
                                     to + (isEven ? 0.0 : slack))
                              .size(),
                          static_cast<std::size_t>(maxMajor))
                    << from << " to " << to << ": " << maxMajor;
            }
            if (step->minorCount == 0)
                continue;
            std::vector<double> minor = instantsOf(step->minorUnit, step->minorCount, from, to);
            std::erase_if(minor, [&](double t) {
                return std::find(major.begin(), major.end(), t) != major.end();
            });
            EXPECT_EQ(set.minor, minor) << from << " to " << to << ": " << maxMajor;
        }
    }
    EXPECT_GT(told, 350);
    EXPECT_GE(last, calendarCases().size() - 2);
}

TEST(TimeScale, RangesBeyondTheLongestStepHaveTicksToo) {
    for (const double end : {3e14, 9.9e14}) {
        const TickSet set = Scale::time("UTC").ticks(-end, end, most(6));
        EXPECT_GE(set.major.size(), 2u) << end;
        EXPECT_LE(set.major.size(), 6u) << end;
        EXPECT_EQ(set.major[set.major.size() / 2].label.find("s"), std::string::npos);
    }
    EXPECT_EQ(line("UTC", utc(-20000, 1, 1), utc(30000, 1, 1), 6),
              "−20000 | −10000 | 0 | 10000 | 20000 | 30000");
}

TEST(TimeScale, TicksAreNeverMoreThanAnyEngineMayReturn) {
    for (const double span :
         {1e-3, 0.3, 199.0, 995.0, 30.0 * 199, 6 * hour * 199, day * 199, 3.2e9}) {
        const TickSet set = Scale::time("UTC").ticks(1e9, 1e9 + span, most(5000));
        EXPECT_LE(set.major.size(), 200u) << span;
        EXPECT_GE(set.major.size(), 60u) << span;
        EXPECT_LE(set.minor.size(), 800u) << span;
    }
    TickRequest bare = most(6);
    bare.minor = false;
    for (const double span : {0.3, 100.0, 1e6})
        EXPECT_TRUE(Scale::time("UTC").ticks(1e9, 1e9 + span, bare).minor.empty()) << span;
}

TEST(TimeScale, TheStepDependsOnTheSpanAloneWhereverTheRangeLies) {
    for (double span = 40.0 * day; span < 60 * 365.0 * day; span *= 1.037) {
        std::set<std::size_t> seen;
        for (int i = 0; i < 12; ++i) {
            const double from = std::floor(utc(1990, 1, 1) + i * 0.37 * span + i * 3.7 * day);
            const double to = from + std::floor(span);
            const auto major = valuesOf(Scale::time("UTC").ticks(from, to, most(7)));
            ASSERT_LE(major.size(), 7u);
            if (major.size() > 3)
                seen.insert(
                    static_cast<std::size_t>(stepOf(major, from, to) - calendarCases().begin()));
        }
        EXPECT_LE(seen.size(), 1u) << span / day;
    }
}

TEST(TimeScale, StepsChangeAtSpansThatShortYearsMonthsAndDaysLeaveRoomFor) {
    // The longest span at which as many ticks fit wherever the range lies: six steps of their mean
    // length, less what some of them are shorter and a millionth, and the step on either side.
    constexpr double year = 365.2425 * day;
    struct Row {
        double longest;
        const char* below;
        const char* above;
    };
    for (const Row& row : {Row{6.0 * year - 2.0 * day, "year 1", "year 2"},
                           {6.0 * year / 12.0 - 3.0 * day, "month 1", "month 2"},
                           {6.0 * year / 24.0 - 3.5 * day, "half month 1", "month 1"},
                           {6.0 * day - hour, "day 1", "day 2"},
                           {12.0 * hour - hour, "second 7200", "second 10800"},
                           {6.0 * hour, "second 3600", "second 7200"}}) {
        for (const bool isBelow : {true, false}) {
            const double from = utc(2021, 3, 1);
            const double to = from + row.longest / 1.000001 + (isBelow ? -0.4 : 0.4);
            const auto step =
                stepOf(valuesOf(Scale::time("UTC").ticks(from, to, most(6))), from, to);
            ASSERT_NE(step, calendarCases().end());
            EXPECT_EQ(std::string(step->unit) + " " + std::to_string(step->count),
                      isBelow ? row.below : row.above)
                << row.longest;
        }
    }
}

TEST(TimeScale, PartsOfASecondAreToldAsSuchWhereOneTickIsEnough) {
    for (const double from : {0.21, 1.31, 59.71, 100.13}) {
        for (const int maxMajor : {1, 2}) {
            const TickSet set = Scale::time("UTC").ticks(from, from + 0.17, most(maxMajor));
            ASSERT_FALSE(set.major.empty());
            EXPECT_TRUE(set.major[0].label.ends_with(" s")) << set.major[0].label;
        }
    }
}

TEST(TimeScale, SingleSecondsAreTheFinestStepOfTheCalendar) {
    const TickSet set = Scale::time("UTC").ticks(1e9, 1e9 + 5.0, most(7));
    EXPECT_EQ(valuesOf(set), (std::vector{1e9, 1e9 + 1, 1e9 + 2, 1e9 + 3, 1e9 + 4, 1e9 + 5}));
    EXPECT_EQ(set.minor.size(), 20u);
    EXPECT_EQ(set.major[1].label, "01:46:41");
}
