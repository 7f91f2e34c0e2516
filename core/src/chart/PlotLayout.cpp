// SPDX-License-Identifier: MIT
#include "CoveragePainter.h"
#include "PlotPrivate.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>
#include <utility>
#include <vector>

namespace zembra {

namespace {

// Units: logical pixels.
constexpr double pad = 12.0;
constexpr double tickLength = 5.0;
constexpr double labelGap = 4.0;
constexpr double titleGap = 4.0;
constexpr double smallestCanvas = 28.0;
constexpr double colorBarGap = 14.0;
constexpr double colorBarWidth = 14.0;
// Colour bars that would take a larger share of the picture's width are left out.
constexpr double mostForColorBars = 0.4;
// A legend that would hide more of the data goes outside.
constexpr double mostCovered = 0.03;
constexpr double legendMargin = 8.0;

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

double colorBarRoom(const ColorBar& bar, const Theme& theme) {
    return colorBarGap + colorBarWidth +
           verticalAxisRoom(bar.axis, !bar.colors->title().empty(), theme);
}

// The colour scales of the series, each one once.
std::vector<const ColorScale*> colorScales(const std::vector<std::shared_ptr<Series>>& series) {
    std::vector<const ColorScale*> found;
    for (const auto& s : series)
        if (const ColorScale* scale = s->isVisible() ? s->colorScale() : nullptr;
            scale && std::find(found.begin(), found.end(), scale) == found.end())
            found.push_back(scale);
    return found;
}

ScaleMap mapOf(const ColorScale& colors, const Rect& area) {
    return {colors.scale(), area.bottom(), area.top(), colors.range().min, colors.range().max};
}

// Where a legend inside the canvas has its corner.
Point cornerOf(LegendPosition position, const PlotLayout& layout) {
    const Rect room = layout.canvas.grown(-legendMargin);
    const bool left = position == LegendPosition::TopLeft || position == LegendPosition::BottomLeft;
    const bool top = position == LegendPosition::TopLeft || position == LegendPosition::TopRight;
    return {std::round(left ? room.left() : room.right() - layout.legend.width),
            std::round(top ? room.top() : room.bottom() - layout.legend.height)};
}

// The corner of the canvas where the legend hides least, in the order in which equal ones are
// preferred, or a place outside where it would hide too much everywhere.
LegendPosition placeOfLegend(const CoveragePainter& coverage, const PlotLayout& layout) {
    constexpr std::array corners = {LegendPosition::TopRight, LegendPosition::TopLeft,
                                    LegendPosition::BottomRight, LegendPosition::BottomLeft};
    LegendPosition best = LegendPosition::OutsideTop;
    double least = mostCovered;
    for (const LegendPosition corner : corners) {
        const Point p = cornerOf(corner, layout);
        const double covered =
            coverage.covered({p.x, p.y, layout.legend.width, layout.legend.height});
        if (covered < least) {
            least = covered;
            best = corner;
        }
    }
    return best;
}

AxisRequest requestOf(const auto& axis) {
    return {axis.revision, axis.range->step, &axis.numberFormat, true};
}

} // namespace

PlotLayout Plot::Private::layOut(double width, double height, const Margins& least) {
    if (memory.width != width || memory.height != height)
        memory = {width, height, {}, {}, std::nullopt};
    const LegendPosition position =
        legend.position() == LegendPosition::Automatic && memory.legendPosition
            ? *memory.legendPosition
            : legend.position();

    PlotLayout layout;
    for (const Detail detail :
         {Detail::Full, Detail::TitleOnly, Detail::NoTitles, Detail::NoLabels}) {
        layout = PlotLayout();
        layout.width = width;
        layout.height = height;
        layout.hasAxisTitles = detail == Detail::Full;
        layout.hasTickLabels = detail != Detail::NoLabels;
        layout.legendPosition = position;
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
        if (hasLegend && position == LegendPosition::OutsideTop) {
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
        const Rect provisional = inside(margins, width, height);
        if (detail == Detail::Full)
            layout.colorBars = layOutColorBars(provisional, mostForColorBars * width);
        for (const ColorBar& bar : layout.colorBars)
            margins.right += colorBarRoom(bar, theme);
        if (hasLegend && position == LegendPosition::OutsideRight) {
            layout.legend =
                layoutLegendColumn(names, 0.35 * width, provisional.height, theme, measure);
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

        if (hasLegend && position == LegendPosition::OutsideTop)
            layout.legendCorner = {pad, std::round(legendTop)};
        else if (hasLegend && position == LegendPosition::OutsideRight)
            layout.legendCorner = {width - titleGap - layout.legend.width, layout.canvas.top()};
        else if (hasLegend) {
            layout.legend = layoutLegendColumn(names, 0.6 * layout.canvas.width,
                                               0.8 * layout.canvas.height, theme, measure);
            layout.legendCorner = cornerOf(position, layout);
        }
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
    double x = layout.canvas.right();
    if (layout.hasTickLabels && axis(1).enabled)
        x += verticalAxisRoom(*layout.axes[1], layout.hasAxisTitles && !axis(1).title.empty(),
                              theme);
    for (ColorBar& bar : layout.colorBars) {
        bar.strip = {std::ceil(x + colorBarGap), layout.canvas.top(), colorBarWidth,
                     layout.canvas.height};
        bar.axis.map = mapOf(*bar.colors, bar.strip);
        x += colorBarRoom(bar, theme);
    }
    return layout;
}

std::vector<ColorBar> Plot::Private::layOutColorBars(const Rect& area, double room) {
    std::vector<ColorBar> bars;
    const auto scales = colorScales(series);
    memory.colorBars.resize(scales.size());
    for (std::size_t i = 0; i < scales.size(); ++i) {
        const AxisRequest request{1, 0.0, nullptr, false};
        ColorBar bar{scales[i],
                     layoutAxis(request, mapOf(*scales[i], area), false, theme, measure,
                                memory.colorBars[i]),
                     {}};
        room -= colorBarRoom(bar, theme);
        if (room < 0.0)
            break;
        bars.push_back(std::move(bar));
    }
    return bars;
}

PlotLayout Plot::Private::settledLayout(Painter& painter, double width, double height,
                                        const Margins& least) {
    PlotLayout layout = layOut(width, height, least);
    if (layout.legend.entries.empty() || layout.legendPosition != LegendPosition::Automatic)
        return layout;
    CoveragePainter coverage(painter, layout.canvas);
    FrameBuffers buffers;
    drawSeries(coverage, layout, buffers);
    memory.legendPosition = placeOfLegend(coverage, layout);
    return layOut(width, height, least);
}

} // namespace zembra
