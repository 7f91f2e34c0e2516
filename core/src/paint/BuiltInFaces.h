// SPDX-License-Identifier: MIT
#pragma once

#include <zembra/paint/Font.h>

#include <cstdint>
#include <vector>

namespace zembra {

/// Whether `family` is one of the eight faces the library carries.
bool isBuiltInFace(FontFamily family);

/// The name under which a built-in face is known.
const char* builtInFaceName(FontFamily family);

/// The TrueType file of a built-in face; copied out of the library's image on first use, then kept.
const std::vector<std::uint8_t>& builtInFaceData(FontFamily family);

} // namespace zembra
