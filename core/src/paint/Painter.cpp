// SPDX-License-Identifier: MIT
#include <zembra/paint/Painter.h>

namespace zembra {

// Out of line, so that the virtual table has one home.
Painter::~Painter() = default;

} // namespace zembra
