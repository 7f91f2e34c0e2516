// SPDX-License-Identifier: MIT
#pragma once

#include <zembra/zembra.h>

namespace viewer {

enum class Ground { Light, Dark };

/// Gives a plot the theme for a light or a dark ground. Series whose colour comes from the theme
/// take its counterpart in the new one, as transparent as before.
void setGround(zembra::Plot& plot, Ground ground);

} // namespace viewer
