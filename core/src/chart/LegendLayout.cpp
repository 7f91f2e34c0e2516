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
    if (names.empty() || mostLines == 0 || room < 2.0 * font.pixelSize())
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
    if (names.empty() || room < 2.0 * font.pixelSize())
        return layout;
    double x = 0.0;
    int row = 0;
    for (std::size_t i = 0; i < names.size(); ++i) {
        std::string text = measure.elided(names[i].name, font, room);
        double extent = keyWidth + keyGap + measure.width(text, font);
        const double reserve =
            i + 1 < names.size()
                ? entryGap + keyWidth + keyGap + measure.width(moreText(names.size()), font)
                : 0.0;
        if (x > 0.0 && x + extent > width) {
            ++row;
            x = 0.0;
        }
        const bool counts = row + 1 == mostRows && x > 0.0 && x + extent + reserve > width;
        if (counts) {
            text = moreText(names.size() - i);
            extent = width;
        }
        layout.entries.push_back(entryAt(x, row * line, line,
                                         counts ? std::string::npos : names[i].series,
                                         std::move(text), font));
        layout.width = std::max(layout.width, std::min(x + extent, width));
        if (counts)
            break;
        x += extent + entryGap;
    }
    layout.height = line * (row + 1);
    return layout;
}

} // namespace zembra
