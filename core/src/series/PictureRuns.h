// SPDX-License-Identifier: MIT
#pragma once

#include "Picture.h"

#include <cstddef>

namespace zembra {

/// Draws a picture of one colour, made at `ratio` pixels to a logical pixel, as upright rectangles
/// of nearly equal shade: painters draw pictures at natural size only, and enlarge them where a
/// screen is finer.
///
/// Shades within a rectangle differ by at most an eighth, and by less where that is cheap.
/// Errors: returns false and draws nothing where that would take more than `most` rectangles.
bool drawRuns(Painter& painter, const Picture& picture, const Color& color, double ratio,
              std::size_t most);

} // namespace zembra
