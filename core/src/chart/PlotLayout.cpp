// SPDX-License-Identifier: MIT
#include "PlotPrivate.h"

#include <algorithm>
#include <cmath>

namespace zembra {

namespace {

// Units: logical pixels.
constexpr double pad = 12.0;
constexpr double tickLength = 5.0;
constexpr double labelGap = 4.0;
constexpr double titleGap = 4.0;
constexpr double smallestCanvas = 28.0;

/// What is left out, step by step, where room is short.
enum class Detail { Full, TitleOnly, NoTitles, NoLabels };

Rect inside(const Margins& m, double width, double height) {
    return {m.left, m.top, std::max(width - m.left - m.right, 0.0),
            std::max(height - m.top - m.bottom, 0.0)};
}

TextBlock block(const std::string& text, const Font& font, double width, std::size_t mostLines,
                double& y, TextMeasure& measure) {
    TextBlock result;
    result.lines = measure.wrapped(text, font, width - 2.0 * pad, mostLines);
    result.x = pad;
    result.y = std::round(y + 0.5 * lineHeight(font) + baselineBelowMiddle(font));
    y += lineHeight(font) * static_cast<double>(result.lines.size());
    return result;
}

// Room across a vertical axis: ticks, labels, title.
double verticalAxisRoom(const AxisLayout& axis, bool hasTitle, const Theme& theme) {
    return tickLength + labelGap + axis.labelRoom +
           (hasTitle ? titleGap + lineHeight(theme.axisTitleFont) : 0.0) + titleGap;
}

// Room across a horizontal axis: ticks, labels, a line for groups, one for the title or the offset.
double horizontalAxisRoom(const Scale& scale, bool hasTitle, const Theme& theme) {
    const double line = lineHeight(theme.tickFont);
    const double lastLine = hasTitle ? lineHeight(theme.axisTitleFont) + titleGap : line;
    return tickLength + labelGap + line + (scale.hasGroups() && hasTitle ? line : 0.0) + lastLine +
           titleGap;
}

AxisRequest requestOf(const auto& axis) {
    return {axis.revision, axis.range->step, &axis.numberFormat};
}

} // namespace

PlotLayout Plot::Private::layOut(double width, double height, const Margins& least) {
    if (memory.width != width || memory.height != height)
        memory = {width, height, {}, std::nullopt};

    PlotLayout layout;
    for (const Detail detail :
         {Detail::Full, Detail::TitleOnly, Detail::NoTitles, Detail::NoLabels}) {
        layout = PlotLayout();
        layout.width = width;
        layout.height = height;
        layout.hasAxisTitles = detail == Detail::Full;
        layout.hasTickLabels = detail != Detail::NoLabels;
        const auto hasTitle = [&](int id) {
            return layout.hasAxisTitles && !axis(id).title.empty();
        };
        const auto enabled = [&](int id) { return layout.hasTickLabels && axis(id).enabled; };

        Margins margins{pad, pad, pad, pad};
        if (!layout.hasTickLabels)
            margins = {std::min(2.0, 0.25 * width), std::min(2.0, 0.25 * height),
                       std::min(2.0, 0.25 * width), std::min(2.0, 0.25 * height)};
        if (detail <= Detail::TitleOnly && !title.empty()) {
            layout.title = block(title, theme.titleFont, width, detail == Detail::Full ? 3 : 1,
                                 margins.top, measure);
            margins.top += 0.25 * theme.titleFont.pixelSize();
        }
        if (detail == Detail::Full && !subtitle.empty())
            layout.subtitle = block(subtitle, theme.subtitleFont, width, 2, margins.top, measure);
        const auto names = legendNames();
        const bool hasLegend =
            detail == Detail::Full && legend.isVisibleFor(static_cast<int>(names.size()));
        double legendTop = 0.0;
        if (hasLegend && legend.position() == LegendPosition::OutsideTop) {
            layout.legend = layoutLegendRows(names, width - 2.0 * pad, 3, theme, measure);
            legendTop = margins.top + 0.25 * theme.legendFont.pixelSize();
            margins.top = legendTop + layout.legend.height;
        }
        // The uppermost label of a vertical axis reaches over the canvas, as does its offset.
        if (enabled(0) || enabled(1))
            margins.top += lineHeight(theme.tickFont) + 2.0;
        for (const int id : {2, 3})
            if (enabled(id))
                (id == 2 ? margins.bottom : margins.top) =
                    (id == 2 ? 0.0 : margins.top) +
                    horizontalAxisRoom(axis(id).currentScale(), hasTitle(id), theme);

        for (const int id : {0, 1}) {
            if (!enabled(id))
                continue;
            auto& made = layout.axes[static_cast<std::size_t>(id)];
            made = layoutAxis(requestOf(axis(id)), mapOver(id, inside(margins, width, height)),
                              false, theme, measure, memory.axes[static_cast<std::size_t>(id)]);
            (id == 0 ? margins.left : margins.right) = verticalAxisRoom(*made, hasTitle(id), theme);
        }
        // Half of the outermost label of a horizontal axis reaches over the canvas.
        if ((enabled(2) || enabled(3)) && !enabled(1))
            margins.right += theme.tickFont.pixelSize();
        if ((enabled(2) || enabled(3)) && !enabled(0))
            margins.left += theme.tickFont.pixelSize();
        if (hasLegend && legend.position() == LegendPosition::OutsideRight) {
            const double room = 0.35 * width;
            layout.legend = layoutLegendColumn(names, room, inside(margins, width, height).height,
                                               theme, measure);
            if (!layout.legend.entries.empty())
                margins.right += layout.legend.width + titleGap;
        }

        margins = {std::max(margins.left, least.left), std::max(margins.top, least.top),
                   std::max(margins.right, least.right), std::max(margins.bottom, least.bottom)};
        // Whole pixels keep the canvas' edges crisp.
        const double left = std::min(std::ceil(margins.left), width);
        const double top = std::min(std::ceil(margins.top), height);
        layout.canvas = {left, top, std::max(width - left - std::ceil(margins.right), 0.0),
                         std::max(height - top - std::ceil(margins.bottom), 0.0)};
        if (detail != Detail::NoLabels &&
            std::min(layout.canvas.width, layout.canvas.height) < smallestCanvas)
            continue;

        if (hasLegend && legend.position() == LegendPosition::OutsideTop)
            layout.legendCorner = {pad, std::round(legendTop)};
        else if (hasLegend && legend.position() == LegendPosition::OutsideRight)
            layout.legendCorner = {width - titleGap - layout.legend.width, layout.canvas.top()};
        else if (hasLegend)
            layout.legend = layoutLegendColumn(names, 0.6 * layout.canvas.width,
                                               0.8 * layout.canvas.height, theme, measure);
        break;
    }

    for (int id = 0; id < axisCount; ++id) {
        if (!axis(id).enabled)
            continue;
        const auto index = static_cast<std::size_t>(id);
        if (isHorizontalAxis(id) || !layout.axes[index])
            layout.axes[index] =
                layoutAxis(requestOf(axis(id)), mapOver(id, layout.canvas), isHorizontalAxis(id),
                           theme, measure, memory.axes[index]);
        else
            layout.axes[index]->map = mapOver(id, layout.canvas);
    }
    return layout;
}

} // namespace zembra
