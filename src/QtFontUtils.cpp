// SPDX-License-Identifier: MIT
#include "QtFontUtils.h"

#include "QtFontUtilsPrivate.h"

#include <QByteArray>
#include <QFile>
#include <QFileInfo>
#include <QFontDatabase>
#include <QStringList>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace zembra {

namespace {

bool isBuiltInFamilyName(const std::string& name) {
    static const std::set<std::string> names = {
        "Lato",         "Lato Bold",         "Lato Italic",          "Lato Bold Italic",
        "DejaVu Serif", "DejaVu Serif Bold", "DejaVu Serif Oblique", "DejaVu Serif Bold Oblique",
    };
    return names.contains(name);
}

/// The names of custom fonts whose data have been handed to Qt, with the families Qt found there.
std::map<std::string, QString>& registeredCustomFonts() {
    static std::map<std::string, QString> fonts;
    return fonts;
}

/// Hands a TrueType file to Qt and returns its first family; empty when Qt does not take it.
QString registerData(const QByteArray& ttf) {
    const int id = QFontDatabase::addApplicationFontFromData(ttf);
    return id < 0 ? QString() : QFontDatabase::applicationFontFamilies(id).value(0);
}

QByteArray toQByteArray(const std::vector<std::uint8_t>& bytes) {
    return {reinterpret_cast<const char*>(bytes.data()), static_cast<qsizetype>(bytes.size())};
}

void registerFaces(FontFamily first, FontFamily last) {
    for (int face = static_cast<int>(first); face <= static_cast<int>(last); ++face) {
        const Font font = Font::defaultFont(static_cast<FontFamily>(face), 12.0);
        if (!font.ttfData().empty())
            QFontDatabase::addApplicationFontFromData(toQByteArray(font.ttfData()));
    }
}

// The flags are set first: data that Qt does not take are not offered again.
void ensureLatoRegistered() {
    static bool registered = false;
    if (registered)
        return;
    registered = true;
    registerFaces(FontFamily::LatoRegular, FontFamily::LatoBoldItalic);
}

void ensureDejaVuRegistered() {
    static bool registered = false;
    if (registered)
        return;
    registered = true;
    registerFaces(FontFamily::DejaVuSerif, FontFamily::DejaVuSerifBoldOblique);
}

/// Asks for a built-in face by family, weight and slant, as Qt files it; never by its full name.
void selectBuiltInFace(QFont& font, FontFamily face) {
    const int number = static_cast<int>(face);
    if (number < static_cast<int>(FontFamily::LatoRegular) ||
        number > static_cast<int>(FontFamily::DejaVuSerifBoldOblique))
        return;
    if (number < static_cast<int>(FontFamily::DejaVuSerif)) {
        ensureLatoRegistered();
        font.setFamily(QStringLiteral("Lato"));
    } else {
        ensureDejaVuRegistered();
        font.setFamily(QStringLiteral("DejaVu Serif"));
    }
    // Both families come in the order regular, bold, slanted, bold and slanted.
    if (number % 2 == 1)
        font.setWeight(QFont::Bold);
    // The oblique faces too: Qt finds them under italic.
    if (number % 4 >= 2)
        font.setStyle(QFont::StyleItalic);
}

/// The family to ask Qt for where the font is not a built-in one.
QString customFamily(const Font& font) {
    const std::string& name = font.familyName();
    auto& known = registeredCustomFonts();
    const auto entry = known.find(name);
    if (entry != known.end())
        return entry->second;
    QString requested = QString::fromStdString(name);
    if (font.ttfData().empty())
        return requested;
    // A failure is remembered too, as the name itself: an installed font may bear it.
    const QString found = registerData(toQByteArray(font.ttfData()));
    return known.emplace(name, found.isEmpty() ? requested : found).first->second;
}

int toPixelSize(double size) {
    constexpr double limit = std::numeric_limits<int>::max();
    return std::isnan(size) ? 0 : static_cast<int>(std::clamp(std::round(size), -limit, limit));
}

} // namespace

QFont toQFont(const Font& font) {
    QFont result;
    if (isBuiltInFamilyName(font.familyName()))
        selectBuiltInFace(result, font.family());
    else
        result.setFamily(customFamily(font));
    if (font.bold())
        result.setWeight(QFont::Bold);
    if (font.italic())
        result.setStyle(QFont::StyleItalic);
    result.setPixelSize(toPixelSize(font.pixelSize()));
    result.setStyleStrategy(QFont::PreferAntialias);
    result.setHintingPreference(QFont::PreferNoHinting);
    return result;
}

Font loadFontFromResource(const QString& resourcePath, double size, const QString& familyName) {
    QFile file(resourcePath);
    if (!file.open(QIODevice::ReadOnly))
        return Font(size);
    const QByteArray bytes = file.readAll();
    if (bytes.isEmpty())
        return Font(size);
    QString name = familyName;
    if (name.isEmpty())
        name = registerData(bytes);
    if (name.isEmpty())
        name = QFileInfo(resourcePath).baseName();
    return {std::vector<std::uint8_t>(bytes.begin(), bytes.end()), size, name.toStdString()};
}

} // namespace zembra
