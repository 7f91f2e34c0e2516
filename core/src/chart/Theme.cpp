// SPDX-License-Identifier: MIT
#include <zembra/chart/Theme.h>

namespace zembra {

Theme Theme::light() {
    Theme theme;
    // Source: M. Okabe, K. Ito, "Color Universal Design", 2008; its yellow, which white paper
    // swallows, darkened to brown.
    theme.cycle = {{0, 114, 178}, {213, 94, 0},   {0, 158, 115}, {204, 121, 167},
                   {230, 159, 0}, {86, 180, 233}, {110, 84, 0},  {70, 70, 70}};
    return theme;
}

Theme Theme::dark() {
    Theme theme;
    theme.background = {27, 30, 36};
    theme.canvas = {27, 30, 36};
    theme.text = {224, 226, 230};
    theme.mutedText = {160, 166, 176};
    theme.axisLine = {130, 136, 146};
    theme.gridLine = {52, 57, 66};
    theme.legendBackground = {27, 30, 36, 225};
    theme.legendFrame = {70, 76, 86};
    // The same hues as on white, lightened until each stands clear of the dark ground.
    theme.cycle = {{92, 172, 238}, {255, 146, 74},  {52, 199, 152}, {230, 150, 196},
                   {250, 215, 90}, {170, 225, 255}, {160, 140, 40}, {205, 208, 214}};
    return theme;
}

Theme Theme::print() {
    Theme theme = light();
    theme.text = {0, 0, 0};
    theme.mutedText = {0, 0, 0};
    theme.axisLine = {0, 0, 0};
    theme.gridLine = {215, 215, 215};
    theme.legendBackground = {255, 255, 255};
    theme.legendFrame = {0, 0, 0};
    // Lightness falls and rises in turn, so that neighbours differ without colour too.
    theme.cycle = {{0, 60, 110}, {230, 120, 30}, {0, 110, 80}, {214, 140, 180},
                   {110, 60, 0}, {90, 175, 225}, {45, 45, 45}, {198, 188, 80}};
    const FontFamily regular = FontFamily::DejaVuSerif;
    theme.titleFont = Font::defaultFont(FontFamily::DejaVuSerifBold, 15.0);
    theme.subtitleFont = Font::defaultFont(regular, 12.0);
    theme.axisTitleFont = Font::defaultFont(regular, 12.0);
    theme.tickFont = Font::defaultFont(regular, 11.0);
    theme.legendFont = Font::defaultFont(regular, 11.0);
    return theme;
}

} // namespace zembra
