// SPDX-License-Identifier: MIT
#pragma once

#include "TextMeasure.h"

#include <zembra/chart/Theme.h>
#include <zembra/paint/Geometry.h>

#include <string>
#include <vector>

namespace zembra {

/// One line of a legend, relative to the legend's top-left corner.
struct LegendEntry {
    /// Which of the series; past the last one for the line that counts those left out.
    std::size_t series = 0;
    std::string text;
    Rect key;
    Point baseline;
};

/// A legend made ready for drawing, wherever it will stand.
struct LegendLayout {
    double width = 0.0;
    double height = 0.0;
    std::vector<LegendEntry> entries;
};

/// A name to show, and the series it belongs to.
struct LegendName {
    std::size_t series = 0;
    std::string name;
};

/// A column of one name or more that is at most `width` × `height`; names are elided, and lines
/// that find no room are counted in the last one. Empty where not even one line fits.
LegendLayout layoutLegendColumn(const std::vector<LegendName>& names, double width, double height,
                                const Theme& theme, TextMeasure& measure);

/// Rows of one name or more, filled from the left, at most `width` wide and `mostRows` high; names
/// are elided, and those that find no room are counted at the end. Their own width stays untold.
LegendLayout layoutLegendRows(const std::vector<LegendName>& names, double width, int mostRows,
                              const Theme& theme, TextMeasure& measure);

} // namespace zembra
