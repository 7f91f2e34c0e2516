// SPDX-License-Identifier: MIT
// Fonts made of any bytes, and of damaged TrueType files, as far as a measured and drawn text.
#include "Bytes.h"

#include <QtRenderSurface.h>

#include <QFontDatabase>
#include <QGuiApplication>

#include <algorithm>

using zembra::Color;
using zembra::Font;
using zembra::FontFamily;

// What the system's font library keeps of fonts that it no longer has.
extern "C" const char* __lsan_default_suppressions() {
    return "leak:libfontconfig";
}

namespace {

QGuiApplication& application() {
    static int count = 1;
    static char name[] = "fuzz_FontBytes";
    static char* names[] = {name, nullptr};
    // Outlives the statics of the fonts: left to the end of the process.
    static auto* const made = [] {
        setenv("QT_QPA_PLATFORM", "offscreen", 0);
        return new QGuiApplication(count, names);
    }();
    return *made;
}

std::vector<std::uint8_t> damaged(fuzz::Bytes& bytes) {
    std::vector<std::uint8_t> file =
        Font::defaultFont(static_cast<FontFamily>(bytes.choice(8)), 12.0).ttfData();
    for (int i = bytes.choice(16); i > 0; --i) {
        // Mostly in the tables at the beginning, which lead to everything else.
        const std::size_t at = bytes.byte() * std::size_t{256} + bytes.byte();
        file[(bytes.flag() ? at % 512 : at) % file.size()] = bytes.byte();
    }
    if (bytes.choice(4) == 0)
        file.resize(std::min(file.size(), bytes.byte() * std::size_t{1024}));
    return file;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    application();
    fuzz::Bytes bytes(data, size);
    // A name of its own every time: what is known by name is not looked at again.
    static int number = 0;
    const std::string family = "Fuzz " + std::to_string(++number) + bytes.text();
    const double pixels = std::clamp(1.0 + bytes.byte(), 1.0, 64.0);
    const bool isDamaged = bytes.flag();
    std::string rest;
    const std::vector<std::uint8_t> file = isDamaged ? damaged(bytes) : std::vector<std::uint8_t>();
    rest = isDamaged ? std::string() : bytes.rest();
    const Font font(isDamaged ? file : std::vector<std::uint8_t>(rest.begin(), rest.end()), pixels,
                    family);
    zembra::QtRenderSurface surface;
    surface.create(64, 32);
    const zembra::TextExtent extent = surface.painter()->measureText("Ägypten 1,5·10⁶", font);
    fuzz::require(std::isfinite(extent.width) && extent.height == pixels, "a finite extent");
    surface.painter()->drawText(2.0, 20.0, "Ägypten 1,5·10⁶", font, Color(0, 0, 0));
    surface.painter()->drawRotatedText(2.0, 20.0, 1.0, "fi", font, Color(0, 0, 0));
    fuzz::require(surface.getImageData(64, 32).size() == std::size_t{64} * 32 * 4, "a picture");
    QFontDatabase::removeAllApplicationFonts();
    return 0;
}
