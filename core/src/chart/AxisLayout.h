// SPDX-License-Identifier: MIT
#pragma once

#include "TextMeasure.h"

#include <zembra/chart/Theme.h>
#include <zembra/scale/NumberFormat.h>
#include <zembra/scale/ScaleMap.h>

#include <cstdint>
#include <vector>

namespace zembra {

/// What an axis keeps from one layout to the next, so that nothing trembles while a user pans.
struct AxisMemory {
    /// The state these hold for; anything else starts anew.
    std::uint64_t revision = 0;
    double length = 0.0;
    double fontSize = 0.0;
    /// The room given to labels; it grows when it must and never shrinks.
    double labelRoom = 0.0;
    /// The density of ticks found to fit, and the span on the even measure that it was found for.
    double span = 0.0;
    int maxMajor = 0;
};

/// One axis made ready for drawing.
struct AxisLayout {
    bool horizontal = false;
    ScaleMap map;
    TickSet ticks;
    /// Whether ticks tell a coarser unit in a line of their own.
    bool hasGroups = false;
    /// Widths of the labels of `ticks.major`.
    std::vector<double> labelWidths;
    /// The room that labels take across the axis, ticks and gaps not included.
    double labelRoom = 0.0;
};

/// What a layout has to know about an axis besides its map.
struct AxisRequest {
    /// Another number means that remembered room and density no longer hold.
    std::uint64_t revision = 0;
    /// The host's own distance of ticks, 0 for none.
    double step = 0.0;
    const NumberFormat* format = nullptr;
    /// Labels that may change at any time take their room at once, so that the canvas stays.
    bool isSteady = true;
};

/// Chooses ticks whose labels do not overlap along an axis.
///
/// The number of ticks depends on the span, never on the position, unless labels grow too long; a
/// number once lowered stays low while the span is the same.
AxisLayout layoutAxis(const AxisRequest& axis, const ScaleMap& map, bool horizontal,
                      const Theme& theme, TextMeasure& measure, AxisMemory& memory);

/// The height of a line of text, and how far below a middle line its baseline lies.
double lineHeight(const Font& font);
double baselineBelowMiddle(const Font& font);

} // namespace zembra
