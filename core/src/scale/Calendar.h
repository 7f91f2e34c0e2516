// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace zembra {

inline constexpr std::int64_t secondsPerDay = 86400;

/// A day of the proleptic Gregorian calendar, with astronomical years: year 0 comes before year 1.
/// Wider than the calendar types of the standard library, which end at the year 32767.
struct CivilDate {
    std::int64_t year = 1970;
    int month = 1;
    int day = 1;

    friend bool operator==(const CivilDate&, const CivilDate&) = default;
};

/// Days since 1970-01-01. Source: Howard Hinnant, "chrono-Compatible Low-Level Date Algorithms",
/// 2013.
std::int64_t daysFromCivil(const CivilDate& date);
/// The inverse, from the same source.
CivilDate civilFromDays(std::int64_t days);

/// 0 for Sunday to 6 for Saturday.
int weekdayOf(std::int64_t days);
int daysInMonth(std::int64_t year, int month);

} // namespace zembra
