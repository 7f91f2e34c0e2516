// SPDX-License-Identifier: MIT
#pragma once

#include <zembra/paint/Color.h>
#include <zembra/paint/Font.h>
#include <zembra/zembra_export.h>

#include <vector>

namespace zembra {

/// Colours, fonts and line widths of a plot. A plain value: take a ready one and change any field.
struct ZEMBRA_EXPORT Theme {
    Color background = Color(255, 255, 255);
    Color canvas = Color(255, 255, 255);
    Color text = Color(38, 38, 38);
    Color mutedText = Color(95, 95, 95);
    Color axisLine = Color(110, 110, 110);
    Color gridLine = Color(228, 228, 228);
    Color legendBackground = Color(255, 255, 255, 225);
    Color legendFrame = Color(210, 210, 210);
    /// Taken in turn by the series; distinct for colour-blind readers too.
    std::vector<Color> cycle;

    Font titleFont = Font::defaultFont(FontFamily::LatoBold, 17.0);
    Font subtitleFont = Font::defaultFont(FontFamily::LatoRegular, 13.0);
    Font axisTitleFont = Font::defaultFont(FontFamily::LatoRegular, 13.0);
    Font tickFont = Font::defaultFont(FontFamily::LatoRegular, 12.0);
    Font legendFont = Font::defaultFont(FontFamily::LatoRegular, 12.0);

    /// Units: logical pixels. Widths that are not above 0 are drawn as the thinnest line there is.
    double axisLineWidth = 1.0;
    double gridLineWidth = 1.0;

    /// Dark ink on white.
    static Theme light();
    /// Light ink on a dark ground.
    static Theme dark();
    /// Black serif text on white paper; the cycle keeps apart in grey too.
    static Theme print();
};

} // namespace zembra
