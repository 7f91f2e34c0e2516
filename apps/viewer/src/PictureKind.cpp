// SPDX-License-Identifier: MIT
#include "PictureKind.h"

#include "Ascii.h"

#include <filesystem>

namespace viewer {

std::optional<PictureKind> pictureKind(const std::string& path) {
    const std::string suffix = std::filesystem::path(path).extension().string();
    if (equalIgnoringCase(suffix, ".png"))
        return PictureKind::Png;
    if (equalIgnoringCase(suffix, ".svg"))
        return PictureKind::Svg;
    if (equalIgnoringCase(suffix, ".pdf"))
        return PictureKind::Pdf;
    return std::nullopt;
}

} // namespace viewer
