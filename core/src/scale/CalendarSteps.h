// SPDX-License-Identifier: MIT
#pragma once

#include "ZoneTable.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace zembra {

/// A distance of ticks by the calendar and the clocks of a zone.
struct CalendarStep {
    enum class Unit { Second, Day, Week, HalfMonth, Month, Year };

    Unit unit = Unit::Second;
    std::int64_t count = 1;

    /// The mean distance. Units: seconds.
    double length() const;
    /// The most ticks that a range of this span can have, wherever it lies, as a real number to be
    /// rounded down.
    double mostTicks(double span) const;
    /// A finer step that divides this one, for minor ticks; nothing where that is below a second.
    std::optional<CalendarStep> finer() const;

    friend bool operator==(const CalendarStep&, const CalendarStep&) = default;
};

/// Every step from a second to fifty million years, in increasing order.
const std::vector<CalendarStep>& calendarSteps();

/// The instants within a range at which a step begins, in increasing order; whole seconds.
///
/// Days that the clocks leap over have none; a day whose midnight they leap over begins with its
/// first second. Steps of hours and less appear twice where the clocks go back.
/// Requires: the range has few enough of them (see `mostTicks`).
std::vector<std::int64_t> instantsOf(const CalendarStep& step, double min, double max,
                                     const ZoneTable& zone);

} // namespace zembra
