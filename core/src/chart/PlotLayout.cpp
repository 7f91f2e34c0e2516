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

} // namespace

/// One try at a layout with a certain detail: takes room for one thing after the other from the
/// edges of the picture, and leaves the rest to the canvas.
class Plot::Private::LayoutAttempt {
public:
    LayoutAttempt(Plot::Private& plot, Detail detail, double width, double height);

    void placeTitles();
    void placeLegendAbove();
    void placeAxes();
    void placeColorBars();
    void placeLegendBeside();
    /// What is left, with margins of at least `least`.
    void placeCanvas(const Margins& least);
    void placeLegendInside();
    /// Gives everything along the canvas its final extent.
    void finish();

    PlotLayout layout;

private:
    bool hasLabels(int id) const { return layout.hasTickLabels && plot.axis(id).enabled; }
    bool hasTitle(int id) const { return layout.hasAxisTitles && !plot.axis(id).title.empty(); }
    bool hasLegendAt(LegendPosition position) const {
        return hasLegend && layout.legendPosition == position;
    }
    Rect rest() const;
    AxisLayout axisOver(int id, const Rect& area);

    Plot::Private& plot;
    const Theme& theme;
    TextMeasure& measure;
    const Detail detail;
    Margins margins{pad, pad, pad, pad};
    std::vector<LegendName> names;
    bool hasLegend = false;
};

Plot::Private::LayoutAttempt::LayoutAttempt(Plot::Private& plot, Detail detail, double width,
                                            double height)
    : plot(plot), theme(plot.theme), measure(plot.measure), detail(detail) {
    layout.width = width;
    layout.height = height;
    layout.hasAxisTitles = detail == Detail::Full;
    layout.hasTickLabels = detail != Detail::NoLabels;
    layout.legendPosition = plot.legend.position();
    if (layout.legendPosition == LegendPosition::Automatic && plot.memory.legendPosition)
        layout.legendPosition = *plot.memory.legendPosition;
    names = plot.legendNames();
    hasLegend = detail == Detail::Full && plot.legend.isVisibleFor(static_cast<int>(names.size()));
    if (!layout.hasTickLabels) {
        const double x = std::min(2.0, 0.25 * width);
        const double y = std::min(2.0, 0.25 * height);
        margins = {x, y, x, y};
    }
}

Rect Plot::Private::LayoutAttempt::rest() const {
    return {margins.left, margins.top, std::max(layout.width - margins.left - margins.right, 0.0),
            std::max(layout.height - margins.top - margins.bottom, 0.0)};
}

AxisLayout Plot::Private::LayoutAttempt::axisOver(int id, const Rect& area) {
    const Axis::Private& axis = plot.axis(id);
    return layoutAxis({axis.revision, axis.range->step, &axis.numberFormat, true},
                      plot.mapOver(id, area), isHorizontalAxis(id), theme, measure,
                      plot.memory.axes[static_cast<std::size_t>(id)]);
}

void Plot::Private::LayoutAttempt::placeTitles() {
    if (detail <= Detail::TitleOnly && !plot.title.empty()) {
        layout.title = block(plot.title, theme.titleFont, layout.width,
                             detail == Detail::Full ? 3 : 1, margins.top, measure);
        margins.top += 0.25 * theme.titleFont.pixelSize();
    }
    if (detail == Detail::Full && !plot.subtitle.empty())
        layout.subtitle =
            block(plot.subtitle, theme.subtitleFont, layout.width, 2, margins.top, measure);
}

void Plot::Private::LayoutAttempt::placeLegendAbove() {
    if (!hasLegendAt(LegendPosition::OutsideTop))
        return;
    layout.legend = layoutLegendRows(names, layout.width - 2.0 * pad, 3, theme, measure);
    const double top = margins.top + 0.25 * theme.legendFont.pixelSize();
    layout.legendCorner = {pad, std::round(top)};
    margins.top = top + layout.legend.height;
}

void Plot::Private::LayoutAttempt::placeAxes() {
    // The uppermost label of a vertical axis reaches over the canvas, as does its offset.
    if (hasLabels(0) || hasLabels(1))
        margins.top += lineHeight(theme.tickFont) + 2.0;
    const auto roomOf = [&](int id) {
        return horizontalAxisRoom(plot.axis(id).currentScale(), hasTitle(id), theme);
    };
    if (hasLabels(2))
        margins.bottom = roomOf(2);
    if (hasLabels(3))
        margins.top += roomOf(3);
    for (const int id : {0, 1}) {
        if (!hasLabels(id))
            continue;
        auto& axis = layout.axes[static_cast<std::size_t>(id)];
        const Rect& known = plot.memory.canvas;
        axis = axisOver(id, plot.aspect > 0.0 && !known.isEmpty() ? known : rest());
        (id == 0 ? margins.left : margins.right) = verticalAxisRoom(*axis, hasTitle(id), theme);
    }
    // Half of the outermost label of a horizontal axis reaches over the canvas.
    if ((hasLabels(2) || hasLabels(3)) && !hasLabels(1))
        margins.right += theme.tickFont.pixelSize();
    if ((hasLabels(2) || hasLabels(3)) && !hasLabels(0))
        margins.left += theme.tickFont.pixelSize();
}

void Plot::Private::LayoutAttempt::placeColorBars() {
    if (detail != Detail::Full)
        return;
    layout.colorBars = plot.layOutColorBars(rest(), mostForColorBars * layout.width);
    for (const ColorBar& bar : layout.colorBars)
        margins.right += colorBarRoom(bar, theme);
}

void Plot::Private::LayoutAttempt::placeLegendBeside() {
    if (!hasLegendAt(LegendPosition::OutsideRight))
        return;
    layout.legend = layoutLegendColumn(names, 0.35 * layout.width, rest().height, theme, measure);
    if (!layout.legend.entries.empty())
        margins.right += layout.legend.width + titleGap;
}

void Plot::Private::LayoutAttempt::placeCanvas(const Margins& least) {
    margins = {std::max(margins.left, least.left), std::max(margins.top, least.top),
               std::max(margins.right, least.right), std::max(margins.bottom, least.bottom)};
    // Whole pixels keep the canvas' edges crisp.
    const double left = std::min(std::ceil(margins.left), layout.width);
    const double top = std::min(std::ceil(margins.top), layout.height);
    layout.canvas = {left, top, std::max(layout.width - left - std::ceil(margins.right), 0.0),
                     std::max(layout.height - top - std::ceil(margins.bottom), 0.0)};
    if (hasLegendAt(LegendPosition::OutsideRight))
        layout.legendCorner = {layout.width - titleGap - layout.legend.width, top};
}

void Plot::Private::LayoutAttempt::placeLegendInside() {
    if (!hasLegend || hasLegendAt(LegendPosition::OutsideRight) ||
        hasLegendAt(LegendPosition::OutsideTop))
        return;
    layout.legend = layoutLegendColumn(names, 0.6 * layout.canvas.width, 0.8 * layout.canvas.height,
                                       theme, measure);
    layout.legendCorner = cornerOf(layout.legendPosition, layout);
}

void Plot::Private::LayoutAttempt::finish() {
    for (int id = 0; id < axisCount; ++id) {
        if (!plot.axis(id).enabled)
            continue;
        auto& axis = layout.axes[static_cast<std::size_t>(id)];
        const ScaleMap map = plot.mapOver(id, layout.canvas);
        const bool isSettled = axis && axis->map.s1() == map.s1() && axis->map.s2() == map.s2();
        if (isHorizontalAxis(id) || !isSettled)
            axis = axisOver(id, layout.canvas);
        else
            axis->map = map;
    }
    double x = layout.canvas.right();
    if (hasLabels(1))
        x += verticalAxisRoom(*layout.axes[1], hasTitle(1), theme);
    for (ColorBar& bar : layout.colorBars) {
        bar.strip = {std::ceil(x + colorBarGap), layout.canvas.top(), colorBarWidth,
                     layout.canvas.height};
        bar.axis.map = mapOf(*bar.colors, bar.strip);
        x += colorBarRoom(bar, theme);
    }
}

PlotLayout Plot::Private::layOut(double width, double height, const Margins& least) {
    if (memory.width != width || memory.height != height)
        memory = {width, height, {}, {}, std::nullopt, {}};
    PlotLayout layout = layOutOnce(width, height, least);
    // With a fixed aspect ratio the range of a vertical axis depends on the canvas, and the canvas
    // on the room for its labels: while nothing changes, both are known from the frame before.
    constexpr int mostTries = 4;
    for (int i = 1; i < mostTries && aspect > 0.0 && layout.canvas != memory.canvas; ++i) {
        memory.canvas = layout.canvas;
        layout = layOutOnce(width, height, least);
    }
    return layout;
}

PlotLayout Plot::Private::layOutOnce(double width, double height, const Margins& least) {
    for (const Detail detail : {Detail::Full, Detail::TitleOnly, Detail::NoTitles}) {
        LayoutAttempt attempt(*this, detail, width, height);
        attempt.placeTitles();
        attempt.placeLegendAbove();
        attempt.placeAxes();
        attempt.placeColorBars();
        attempt.placeLegendBeside();
        attempt.placeCanvas(least);
        const Rect& canvas = attempt.layout.canvas;
        if (std::min(canvas.width, canvas.height) < smallestCanvas)
            continue;
        attempt.placeLegendInside();
        attempt.finish();
        return attempt.layout;
    }
    LayoutAttempt bare(*this, Detail::NoLabels, width, height);
    bare.placeCanvas(least);
    bare.finish();
    return bare.layout;
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
