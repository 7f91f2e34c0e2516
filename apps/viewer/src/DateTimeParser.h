// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string_view>

namespace viewer {

/// The ways of writing a date that are understood. A column uses one of them throughout.
enum class DateOrder {
    /// 2015-01-31, 2015/01/31, 2015-01
    YearMonthDay,
    /// Jan 31 2015, January 31, 2015, 31 Jan 2015, Jan 2015
    MonthName,
    /// 01/31/2015
    MonthDayYear,
    /// 31/01/2015, 31.01.2015
    DayMonthYear,
    /// 2015
    Year,
};

/// Reads a date, with or without a time of day (12:30, 12:30:15.25, 1:30 pm) and a zone offset (Z,
/// +01:00, -0500); without one the time is UTC.
///
/// Units: seconds since the Unix epoch (UTC).
/// Errors: none for text that is not wholly such a date, and for days that no calendar has.
std::optional<double> parseDateTime(std::string_view text, DateOrder order);

} // namespace viewer
