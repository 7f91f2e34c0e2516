// SPDX-License-Identifier: MIT
#include "LegendLayout.h"

#include "AxisLayout.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

namespace zembra {

namespace {

constexpr double keyWidth = 22.0;
constexpr double keyGap = 6.0;
constexpr double padding = 7.0;
constexpr double entryGap = 16.0;

std::string moreText(std::size_t count) {
    return fmt::format("+ {} more", count);
}

LegendEntry entryAt(double x, double y, double height, std::size_t series, std::string text,
                    const Font& font) {
    return {series,
            std::move(text),
            {x, y + 2.0, keyWidth, height - 4.0},
            {x + keyWidth + keyGap, std::round(y + 0.5 * height + baselineBelowMiddle(font))}};
}

} // namespace

LegendLayout layoutLegendColumn(const std::vector<LegendName>& names, double width, double height,
                                const Theme& theme, TextMeasure& measure) {
    const Font& font = theme.legendFont;
    const double line = lineHeight(font);
    const double room = width - 2.0 * padding - keyWidth - keyGap;
    const auto mostLines = static_cast<std::size_t>(std::max((height - 2.0 * padding) / line, 0.0));
    LegendLayout layout;
    if (mostLines == 0 || room < 2.0 * font.pixelSize())
        return layout;
    const std::size_t shown = names.size() <= mostLines ? names.size() : mostLines - 1;
    double widest = 0.0;
    for (std::size_t i = 0; i < std::min(names.size(), mostLines); ++i) {
        const bool counts = i == shown;
        std::string text = counts ? moreText(names.size() - shown) : names[i].name;
        text = measure.elided(text, font, room);
        widest = std::max(widest, measure.width(text, font));
        layout.entries.push_back(entryAt(padding, padding + static_cast<double>(i) * line, line,
                                         counts ? std::string::npos : names[i].series,
                                         std::move(text), font));
    }
    layout.width = std::ceil(2.0 * padding + keyWidth + keyGap + widest);
    layout.height = 2.0 * padding + line * static_cast<double>(layout.entries.size());
    return layout;
}

LegendLayout layoutLegendRows(const std::vector<LegendName>& names, double width, int mostRows,
                              const Theme& theme, TextMeasure& measure) {
    const Font& font = theme.legendFont;
    const double line = lineHeight(font);
    const double room = width - keyWidth - keyGap;
    LegendLayout layout;
    if (room < 2.0 * font.pixelSize())
        return layout;
    const auto textOf = [&](std::size_t i) { return measure.elided(names[i].name, font, room); };
    const auto extentOf = [&](const std::string& text) {
        return keyWidth + keyGap + measure.width(text, font);
    };
    double x = 0.0;
    int row = 0;
    for (std::size_t i = 0; i < names.size(); ++i) {
        std::string text = textOf(i);
        const double extent = extentOf(text);
        if (x > 0.0 && x + extent > width && row + 1 < mostRows) {
            ++row;
            x = 0.0;
        }
        // Beside a name of the last row, there has to be room for the one after it or for a count.
        const std::size_t left = names.size() - i;
        const bool counts =
            row + 1 == mostRows && left > 1 &&
            x + extent + entryGap + extentOf(left == 2 ? textOf(i + 1) : moreText(names.size())) >
                width;
        if (counts)
            text = measure.elided(moreText(left), font, room);
        layout.entries.push_back(entryAt(x, row * line, line,
                                         counts ? std::string::npos : names[i].series,
                                         std::move(text), font));
        if (counts)
            break;
        x += extent + entryGap;
    }
    layout.height = line * (row + 1);
    return layout;
}

} // namespace zembra
