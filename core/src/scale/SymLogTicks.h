// SPDX-License-Identifier: MIT
#pragma once

#include <zembra/scale/Tick.h>

namespace zembra {

class SymLogScale;

/// Zero and powers of the base on both sides, as on a logarithmic scale; linear ticks where the
/// range reaches little beyond the linear part.
///
/// Requires: `min < max`.
TickSet symLogTicks(const SymLogScale& scale, double min, double max, const TickRequest& request);

} // namespace zembra
