// SPDX-License-Identifier: MIT
#include "TextMeasure.h"

#include <cstring>

namespace zembra {

namespace {

// Streaming labels never come back; beyond this many the memory starts anew.
constexpr std::size_t mostExtents = 4096;

std::string keyOf(const std::string& text, const Font& font) {
    const double size = font.pixelSize();
    char bytes[sizeof size];
    std::memcpy(bytes, &size, sizeof size);
    std::string key = text;
    key.push_back('\0');
    key.append(bytes, sizeof bytes);
    key.push_back(static_cast<char>(font.family()));
    key.push_back(static_cast<char>((font.bold() ? 1 : 0) + (font.italic() ? 2 : 0)));
    key += font.familyName();
    return key;
}

bool isContinuation(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

} // namespace

void TextMeasure::setPainter(Painter& target) {
    painter = &target;
    if (painterKind == typeid(target))
        return;
    painterKind = typeid(target);
    extents.clear();
}

TextExtent TextMeasure::extent(const std::string& text, const Font& font) {
    std::string key = keyOf(text, font);
    if (const auto found = extents.find(key); found != extents.end())
        return found->second;
    if (extents.size() >= mostExtents)
        extents.clear();
    return extents.emplace(std::move(key), painter->measureText(text, font)).first->second;
}

std::string TextMeasure::elided(const std::string& text, const Font& font, double room) {
    if (text.empty() || width(text, font) <= room)
        return text;
    // The width grows with the length, so the longest fitting beginning is found by halving.
    std::size_t fits = 0;
    std::size_t tooLong = text.size();
    const auto candidate = [&](std::size_t length) {
        while (length > 0 && isContinuation(text[length]))
            --length;
        while (length > 0 && text[length - 1] == ' ')
            --length;
        return text.substr(0, length) + "…";
    };
    while (tooLong - fits > 1) {
        const std::size_t middle = fits + (tooLong - fits) / 2;
        (width(candidate(middle), font) <= room ? fits : tooLong) = middle;
    }
    return fits == 0 ? std::string() : candidate(fits);
}

std::vector<std::string> TextMeasure::wrapped(const std::string& text, const Font& font,
                                              double room, std::size_t mostLines) {
    std::vector<std::string> lines;
    std::size_t begin = 0;
    while (begin < text.size() && lines.size() + 1 < mostLines) {
        if (width(text.substr(begin), font) <= room)
            break;
        std::size_t end = std::string::npos;
        for (std::size_t blank = text.find(' ', begin); blank != std::string::npos;
             blank = text.find(' ', blank + 1)) {
            if (width(text.substr(begin, blank - begin), font) > room)
                break;
            end = blank;
        }
        if (end == std::string::npos)
            break;
        lines.push_back(text.substr(begin, end - begin));
        begin = end + 1;
    }
    if (begin < text.size())
        lines.push_back(elided(text.substr(begin), font, room));
    return lines;
}

} // namespace zembra
