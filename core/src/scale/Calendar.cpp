// SPDX-License-Identifier: MIT
#include "Calendar.h"

#include "Decimal.h"

namespace zembra {

namespace {

constexpr std::int64_t daysPerEra = 146097;
constexpr std::int64_t yearsPerEra = 400;
// From 0000-03-01, where eras begin so that leap days come last, to 1970-01-01.
constexpr std::int64_t daysToEpoch = 719468;

} // namespace

std::int64_t daysFromCivil(const CivilDate& date) {
    const std::int64_t year = date.month <= 2 ? date.year - 1 : date.year;
    const std::int64_t era = floorDiv(year, yearsPerEra);
    const std::int64_t yearOfEra = year - era * yearsPerEra;
    const std::int64_t monthFromMarch = (date.month + 9) % 12;
    const std::int64_t dayOfYear = (153 * monthFromMarch + 2) / 5 + date.day - 1;
    const std::int64_t dayOfEra = yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear;
    return era * daysPerEra + dayOfEra - daysToEpoch;
}

CivilDate civilFromDays(std::int64_t days) {
    const std::int64_t shifted = days + daysToEpoch;
    const std::int64_t era = floorDiv(shifted, daysPerEra);
    const std::int64_t dayOfEra = shifted - era * daysPerEra;
    const std::int64_t yearOfEra =
        (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / 146096) / 365;
    const std::int64_t dayOfYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
    const std::int64_t monthFromMarch = (5 * dayOfYear + 2) / 153;
    CivilDate date;
    date.day = static_cast<int>(dayOfYear - (153 * monthFromMarch + 2) / 5 + 1);
    date.month = static_cast<int>(monthFromMarch < 10 ? monthFromMarch + 3 : monthFromMarch - 9);
    date.year = yearOfEra + era * yearsPerEra + (date.month <= 2 ? 1 : 0);
    return date;
}

int weekdayOf(std::int64_t days) {
    // 1970-01-01 was a Thursday.
    return static_cast<int>(floorMod(days + 4, 7));
}

int daysInMonth(std::int64_t year, int month) {
    const CivilDate next = month == 12 ? CivilDate{year + 1, 1, 1} : CivilDate{year, month + 1, 1};
    return static_cast<int>(daysFromCivil(next) - daysFromCivil({year, month, 1}));
}

} // namespace zembra
