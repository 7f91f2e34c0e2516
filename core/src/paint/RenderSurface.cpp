// SPDX-License-Identifier: MIT
#include <zembra/paint/RenderSurface.h>

namespace zembra {

// Out of line, so that the virtual table has one home.
RenderSurface::~RenderSurface() = default;

} // namespace zembra
