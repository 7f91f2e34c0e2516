// SPDX-License-Identifier: MIT
#pragma once

#include "CalendarSteps.h"
#include "Decimal.h"
#include "ZoneTable.h"

#include <zembra/scale/Tick.h>

namespace zembra {

/// The tick at an instant that a calendar step begins at, told in the clocks of the zone.
Tick calendarTick(std::int64_t instant, const CalendarStep& step, const ZoneTable& zone);

/// A tick at a decimal fraction of a second; `place` is the power of ten of the last digit told.
/// Requires: `place` is -1 to -9 and not above the exponent of `instant`.
Tick fractionTick(Decimal instant, int place, const ZoneTable& zone);

} // namespace zembra
