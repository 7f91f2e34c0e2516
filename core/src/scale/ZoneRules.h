// SPDX-License-Identifier: MIT
#pragma once

#include "ZoneTable.h"

namespace zembra {

/// Carries daylight-saving time on where the system's data ends.
///
/// The compiled data lists the changes up to 2037 one by one. Where the last years repeat one rule
/// ("the last Sunday of March at 01:00 UTC"), it goes on to the year 2200; from then on standard
/// time is kept.
void extendByRules(std::vector<ZoneSpan>& spans);

} // namespace zembra
