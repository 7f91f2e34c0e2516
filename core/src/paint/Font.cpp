// SPDX-License-Identifier: MIT
#include <zembra/paint/Font.h>

#include "BuiltInFaces.h"

namespace zembra {

namespace {

constexpr double defaultPixelSize = 12.0;

} // namespace

Font::Font() : Font(defaultPixelSize) {}

Font::Font(double size) : name(builtInFaceName(FontFamily::LatoRegular)), size(size) {}

Font::Font(const std::vector<std::uint8_t>& ttf, double size, const std::string& familyName)
    : face(FontFamily::Custom),
      name(familyName),
      size(size),
      customData(std::make_shared<const std::vector<std::uint8_t>>(ttf)) {}

Font Font::defaultFont(FontFamily family, double size) {
    Font font(size);
    if (isBuiltInFace(family)) {
        font.face = family;
        font.name = builtInFaceName(family);
    }
    return font;
}

const std::vector<std::uint8_t>& Font::ttfData() const {
    return customData ? *customData : builtInFaceData(face);
}

} // namespace zembra
