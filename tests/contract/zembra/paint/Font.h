// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace zembra {

enum class FontFamily : std::uint8_t {
    LatoRegular,
    LatoBold,
    LatoItalic,
    LatoBoldItalic,
    DejaVuSerif,
    DejaVuSerifBold,
    DejaVuSerifOblique,
    DejaVuSerifBoldOblique,
    Custom,
};

class Font {
public:
    Font();
    explicit Font(double size);
    Font(const std::vector<std::uint8_t>& ttf, double size, const std::string& familyName);
    static Font defaultFont(FontFamily family, double size);

    FontFamily family() const { return face; }
    std::string familyName() const { return name; }
    bool bold() const { return isBold; }
    bool italic() const { return isItalic; }
    double pixelSize() const { return size; }
    const std::vector<std::uint8_t>& ttfData() const { return *bytes; }

#ifndef ZEMBRA_CONTRACT_ONLY
    void setBold(bool on) {
        isBold = on;
    }
    void setItalic(bool on) {
        isItalic = on;
    }
    friend bool operator==(const Font&, const Font&) = default;
#endif

private:
    std::shared_ptr<const std::vector<std::uint8_t>> bytes;
    std::string name;
    double size = 10.0;
    FontFamily face = FontFamily::LatoRegular;
    bool isBold = false;
    bool isItalic = false;
};

} // namespace zembra
