// SPDX-License-Identifier: MIT
#pragma once

#include <zembra/zembra_export.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace zembra {

/// The built-in faces, and `Custom` for everything else.
enum class FontFamily : int {
    LatoRegular = 0,
    LatoBold = 1,
    LatoItalic = 2,
    LatoBoldItalic = 3,
    DejaVuSerif = 4,
    DejaVuSerifBold = 5,
    DejaVuSerifOblique = 6,
    DejaVuSerifBoldOblique = 7,
    Custom = 8,
};

/// A font request: a face, a size, and optionally the TrueType file that draws it.
///
/// A copyable value; copies share their bytes. Sizes are in logical pixels.
class ZEMBRA_EXPORT Font {
public:
    /// The default face (Lato, regular) at 12 pixels.
    Font();
    /// The default face at `size` pixels.
    explicit Font(double size);
    /// A font that brings its own TrueType file, to be known under `familyName` (UTF-8).
    /// With empty `ttf` it names a font that is installed on the system.
    Font(const std::vector<std::uint8_t>& ttf, double size, const std::string& familyName);

    /// The built-in face `family` at `size` pixels, carrying its complete TrueType file. A value
    /// that is no built-in face gives the default face.
    static Font defaultFont(FontFamily family, double size);

    FontFamily family() const { return face; }
    /// The family name as UTF-8: of a built-in face its name, otherwise as given.
    const std::string& familyName() const { return name; }

    bool bold() const { return isBold; }
    void setBold(bool on) { isBold = on; }
    bool italic() const { return isItalic; }
    void setItalic(bool on) { isItalic = on; }

    double pixelSize() const { return size; }
    void setPixelSize(double pixels) { size = pixels; }

    /// The TrueType file; empty when the font only names a system family.
    const std::vector<std::uint8_t>& ttfData() const;

    /// Whether both ask for the same face, size and style; the bytes are compared by identity.
    friend bool operator==(const Font&, const Font&) = default;

private:
    FontFamily face = FontFamily::LatoRegular;
    std::string name;
    double size = 12.0;
    bool isBold = false;
    bool isItalic = false;
    /// Null for the built-in faces, whose bytes live in the library.
    std::shared_ptr<const std::vector<std::uint8_t>> customData;
};

} // namespace zembra
