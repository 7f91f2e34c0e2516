// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>

namespace viewer {

enum class PictureKind { Png, Svg, Pdf };

/// The kind that the suffix of a file name asks for, in either case; none for other suffixes.
std::optional<PictureKind> pictureKind(const std::string& path);

} // namespace viewer
