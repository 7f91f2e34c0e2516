// SPDX-License-Identifier: MIT
#include "PlotPrivate.h"

#include "paint/WideRegisters.h"
#include "series/Stroke.h"

#include <zembra/series/Canvas.h>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace zembra {

namespace {

// Units: logical pixels.
constexpr double minorTickLength = 3.0;
constexpr double upwards = -0.5 * std::numbers::pi;

// A line one pixel wide is crisp when it runs through pixel centres.
double crisp(double position) {
    return std::floor(position) + 0.5;
}

struct LabelSpan {
    double from;
    double to;
};

/// Where an axis stands.
struct AxisPlace {
    const AxisLayout& axis;
    /// Where its line runs, and the way from there to its labels: -1 to the left and up, 1 to the
    /// right and down.
    double edge;
    double outward;
};

class PlotDrawing {
public:
    PlotDrawing(Painter& painter, const PlotLayout& layout, const Theme& theme,
                TextMeasure& measure)
        : painter(painter), layout(layout), theme(theme), measure(measure) {}

    void drawBackground();
    void drawGrid(const AxisLayout& axis);
    void maskOverhang();
    AxisPlace placeOf(int id) const;
    void drawAxis(const AxisPlace& place, const std::string& title);
    void drawColorBar(const ColorBar& bar);
    void drawTexts();
    void drawLegendFrame();

private:
    void drawTick(const AxisPlace& place, double value, double length);
    void drawText(double x, double y, const std::string& text, const Font& font,
                  const Color& color);
    void drawHorizontalLabels(const AxisLayout& axis, double baseline, double groupBaseline);
    void drawVerticalLabels(const AxisPlace& place);
    void drawGroups(const AxisLayout& axis, double baseline);
    void drawOffset(const AxisPlace& place, double baseline);
    void drawAxisTitle(const AxisLayout& axis, const std::string& title, double baseline);
    void drawBlock(const TextBlock& block, const Font& font, const Color& color);

    Painter& painter;
    const PlotLayout& layout;
    const Theme& theme;
    TextMeasure& measure;
};

void PlotDrawing::drawText(double x, double y, const std::string& text, const Font& font,
                           const Color& color) {
    if (!text.empty())
        painter.drawText(x, y, text, font, color);
}

void PlotDrawing::drawBackground() {
    painter.fillRect({0.0, 0.0, layout.width, layout.height}, theme.background);
    if (theme.canvas != theme.background && !layout.canvas.isEmpty())
        painter.fillRect(layout.canvas, theme.canvas);
}

void PlotDrawing::drawGrid(const AxisLayout& axis) {
    usePen(painter, Pen(theme.gridLine, theme.gridLineWidth));
    for (const Tick& tick : axis.ticks.major) {
        const double p = crisp(axis.map.transform(tick.value));
        if (axis.horizontal)
            painter.drawLine(p, layout.canvas.top(), p, layout.canvas.bottom());
        else
            painter.drawLine(layout.canvas.left(), p, layout.canvas.right(), p);
    }
}

// What the caps of strokes let out of the canvas where clipping is ignored.
void PlotDrawing::maskOverhang() {
    if (theme.background.alpha() < 255)
        return;
    const Rect& c = layout.canvas;
    painter.fillRect({0.0, 0.0, layout.width, c.top()}, theme.background);
    painter.fillRect({0.0, c.bottom(), layout.width, layout.height - c.bottom()}, theme.background);
    painter.fillRect({0.0, c.top(), c.left(), c.height}, theme.background);
    painter.fillRect({c.right(), c.top(), layout.width - c.right(), c.height}, theme.background);
}

void PlotDrawing::drawTick(const AxisPlace& place, double value, double length) {
    const double p = crisp(place.axis.map.transform(value));
    const double end = place.edge + place.outward * length;
    if (place.axis.horizontal)
        painter.drawLine(p, place.edge, p, end);
    else
        painter.drawLine(place.edge, p, end, p);
}

AxisPlace PlotDrawing::placeOf(int id) const {
    const Rect& c = layout.canvas;
    // The line runs just outside the canvas, so that it covers no data.
    const double edge = id == 0   ? c.left() - 0.5
                        : id == 1 ? c.right() + 0.5
                        : id == 2 ? c.bottom() + 0.5
                                  : c.top() - 0.5;
    return {*layout.axes[static_cast<std::size_t>(id)], edge, id == 0 || id == 3 ? -1.0 : 1.0};
}

void PlotDrawing::drawAxis(const AxisPlace& place, const std::string& title) {
    const AxisLayout& axis = place.axis;
    const double edge = place.edge;
    const double outward = place.outward;
    const Rect& c = layout.canvas;
    usePen(painter, Pen(theme.axisLine, theme.axisLineWidth));
    if (axis.horizontal)
        painter.drawLine(c.left() - 0.5, edge, c.right() + 0.5, edge);
    else
        painter.drawLine(edge, c.top() - 0.5, edge, c.bottom() + 0.5);
    if (!layout.hasTickLabels)
        return;
    for (const Tick& tick : axis.ticks.major)
        drawTick(place, tick.value, tickLength);
    for (const double value : axis.ticks.minor)
        drawTick(place, value, minorTickLength);

    const double line = lineHeight(theme.tickFont);
    const double below = baselineBelowMiddle(theme.tickFont);
    const double titleBelow = baselineBelowMiddle(theme.axisTitleFont);
    if (axis.horizontal) {
        // Named anew, because not every compiler captures structured bindings.
        const auto lineMiddle = [&, edge = edge, outward = outward](double index) {
            return edge + outward * (tickLength + labelGap + (index + 0.5) * line);
        };
        const double second = std::round(lineMiddle(1.0) + below);
        drawHorizontalLabels(axis, std::round(lineMiddle(0.0) + below), second);
        const double titleMiddle =
            edge +
            outward * (tickLength + labelGap + line * (axis.map.scale().hasGroups() ? 2.0 : 1.0) +
                       titleGap + 0.5 * lineHeight(theme.axisTitleFont));
        const bool hasTitle = !title.empty();
        drawOffset(place, hasTitle ? std::round(titleMiddle + below) : second);
        if (hasTitle)
            drawAxisTitle(axis, title, std::round(titleMiddle + titleBelow));
    } else {
        drawVerticalLabels(place);
        drawOffset(place, c.top() - 0.75 * line + below);
        if (!title.empty()) {
            const double titleMiddle =
                edge + outward * (tickLength + labelGap + axis.labelRoom + titleGap +
                                  0.5 * lineHeight(theme.axisTitleFont));
            drawAxisTitle(axis, title, std::round(titleMiddle + titleBelow));
        }
    }
}

// Labels stay inside the picture, and one that would touch its neighbour is left out.
void PlotDrawing::drawHorizontalLabels(const AxisLayout& axis, double baseline,
                                       double groupBaseline) {
    const double gap = 0.4 * theme.tickFont.pixelSize();
    std::vector<LabelSpan> taken;
    for (std::size_t i = 0; i < axis.ticks.major.size(); ++i) {
        const Tick& tick = axis.ticks.major[i];
        const double width = axis.labelWidths[i];
        if (tick.label.empty() || width > layout.width)
            continue;
        const double x = std::clamp(axis.map.transform(tick.value) - 0.5 * width, 1.0,
                                    std::max(layout.width - width - 1.0, 1.0));
        const bool collides = std::any_of(taken.begin(), taken.end(), [&](const LabelSpan& other) {
            return x < other.to + gap && x + width + gap > other.from;
        });
        if (collides)
            continue;
        taken.push_back({x, x + width});
        drawText(x, baseline, tick.label, theme.tickFont, theme.text);
    }
    if (axis.hasGroups)
        drawGroups(axis, groupBaseline);
}

// Every run of equal groups is named once, at its first tick; the one that begins before the canvas
// is named at its edge, so that the name does not wander while the user pans.
void PlotDrawing::drawGroups(const AxisLayout& axis, double baseline) {
    struct Run {
        std::string text;
        double pixel;
    };
    std::vector<Run> runs;
    const bool reversed = axis.map.s1() > axis.map.s2();
    const auto& major = axis.ticks.major;
    for (std::size_t i = 0; i < major.size(); ++i)
        if (!major[i].group.empty() && (i == 0 || major[i].group != major[i - 1].group))
            runs.push_back({major[i].group, axis.map.transform(major[i].value)});
    const double gap = 0.8 * theme.tickFont.pixelSize();
    double free = 0.0;
    for (std::size_t i = 0; i < runs.size(); ++i) {
        const double width = measure.width(runs[i].text, theme.tickFont);
        double x = runs[i].pixel - 0.5 * width;
        if (reversed) {
            drawText(std::clamp(x, 1.0, std::max(layout.width - width - 1.0, 1.0)), baseline,
                     runs[i].text, theme.tickFont, theme.mutedText);
            continue;
        }
        if (i == 0)
            x = std::min(x, layout.canvas.left());
        x = std::clamp(std::max(x, free), 1.0, std::max(layout.width - width - 1.0, 1.0));
        if (x < free)
            continue;
        free = x + width + gap;
        drawText(x, baseline, runs[i].text, theme.tickFont, theme.mutedText);
    }
}

void PlotDrawing::drawVerticalLabels(const AxisPlace& place) {
    const AxisLayout& axis = place.axis;
    const double line = lineHeight(theme.tickFont);
    const double below = baselineBelowMiddle(theme.tickFont);
    const double near = place.edge + place.outward * (tickLength + labelGap + 0.5);
    std::vector<LabelSpan> taken;
    for (std::size_t i = 0; i < axis.ticks.major.size(); ++i) {
        const Tick& tick = axis.ticks.major[i];
        const bool startsGroup =
            !tick.group.empty() && (i == 0 || axis.ticks.major[i - 1].group != tick.group);
        const double height = line * (startsGroup ? 2.0 : 1.0);
        if (tick.label.empty())
            continue;
        const double middle = std::clamp(axis.map.transform(tick.value), 0.5 * height,
                                         std::max(layout.height - 0.5 * height, 0.5 * height));
        const double from = middle - 0.5 * height;
        const bool collides = std::any_of(taken.begin(), taken.end(), [&](const LabelSpan& other) {
            return from < other.to && from + height > other.from;
        });
        if (collides)
            continue;
        taken.push_back({from, from + height});
        const auto put = [&](const std::string& text, double width, double at, const Color& color) {
            drawText(place.outward < 0.0 ? near - width : near, at + below, text, theme.tickFont,
                     color);
        };
        put(tick.label, axis.labelWidths[i], from + 0.5 * line, theme.text);
        if (startsGroup)
            put(tick.group, measure.width(tick.group, theme.tickFont), from + 1.5 * line,
                theme.mutedText);
    }
}

void PlotDrawing::drawOffset(const AxisPlace& place, double baseline) {
    const std::string& text = place.axis.ticks.offset;
    if (text.empty())
        return;
    const double width = measure.width(text, theme.tickFont);
    const double near = place.edge + place.outward * (tickLength + labelGap + 0.5);
    double x = layout.canvas.right() - width;
    if (!place.axis.horizontal)
        x = place.outward < 0.0 ? near - width : near;
    x = std::clamp(x, 1.0, std::max(layout.width - width - 1.0, 1.0));
    drawText(x, baseline, text, theme.tickFont, theme.mutedText);
}

void PlotDrawing::drawAxisTitle(const AxisLayout& axis, const std::string& title, double baseline) {
    const Rect& c = layout.canvas;
    double room = axis.horizontal ? c.width : layout.height - 2.0;
    // The offset shares the title's line, at its right end.
    if (axis.horizontal && !axis.ticks.offset.empty())
        room -= 2.0 * (measure.width(axis.ticks.offset, theme.tickFont) + 8.0);
    const std::string text = measure.elided(title, theme.axisTitleFont, room);
    const double width = measure.width(text, theme.axisTitleFont);
    if (text.empty())
        return;
    if (axis.horizontal) {
        drawText(c.x + 0.5 * (c.width - width), baseline, text, theme.axisTitleFont, theme.text);
        return;
    }
    const double y = std::clamp(c.y + 0.5 * (c.height + width), width + 1.0,
                                std::max(layout.height - 1.0, width + 1.0));
    painter.drawRotatedText(baseline, y, upwards, text, theme.axisTitleFont, theme.text);
}

void PlotDrawing::drawBlock(const TextBlock& block, const Font& font, const Color& color) {
    double y = block.y;
    for (const std::string& line : block.lines) {
        drawText(block.x, y, line, font, color);
        y += lineHeight(font);
    }
}

// Rows of pixels, those of one colour together. Each reaches below the next one, which hides the
// seam that targets of another resolution would show between them.
void PlotDrawing::drawColorBar(const ColorBar& bar) {
    const Rect& strip = bar.strip;
    const auto colorAt = [&](double y) {
        return bar.colors->color(bar.axis.map.invTransform(y + 0.5));
    };
    double from = strip.top();
    while (from < strip.bottom()) {
        const Color color = colorAt(from);
        double to = from + 1.0;
        while (to < strip.bottom() && colorAt(to) == color)
            to += 1.0;
        const double end = color.alpha() == 255 ? std::min(to + 1.0, strip.bottom()) : to;
        painter.fillRect({strip.x, from, strip.width, end - from}, color);
        from = to;
    }
    usePen(painter, Pen(theme.axisLine, theme.axisLineWidth));
    painter.drawRect({strip.x - 0.5, strip.y - 0.5, strip.width + 1.0, strip.height + 1.0});
    drawAxis({bar.axis, strip.right() + 0.5, 1.0}, bar.colors->title());
}

void PlotDrawing::drawLegendFrame() {
    const LegendLayout& legend = layout.legend;
    if (legend.entries.empty() || layout.legendPosition == LegendPosition::OutsideRight ||
        layout.legendPosition == LegendPosition::OutsideTop)
        return;
    const Rect box{layout.legendCorner.x, layout.legendCorner.y, legend.width, legend.height};
    painter.fillRect(box, theme.legendBackground);
    painter.setPen(Pen(theme.legendFrame));
    painter.drawRect({box.x + 0.5, box.y + 0.5, box.width - 1.0, box.height - 1.0});
}

void PlotDrawing::drawTexts() {
    drawBlock(layout.title, theme.titleFont, theme.text);
    drawBlock(layout.subtitle, theme.subtitleFont, theme.mutedText);
}

} // namespace

SeriesLook Plot::Private::lookOf(std::size_t index) const {
    const auto end = series.begin() + static_cast<std::ptrdiff_t>(index);
    const auto before =
        std::count_if(series.begin(), end, [](const auto& s) { return s->takesCycleColor(); });
    const Color fallback = theme.cycle.empty()
                               ? theme.text
                               : theme.cycle[static_cast<std::size_t>(before) % theme.cycle.size()];
    return {series[index]->color().value_or(fallback), theme.text, theme.canvas, theme.tickFont};
}

void Plot::Private::drawSeries(Painter& painter, const PlotLayout& layout, FrameBuffers& buffers) {
    for (std::size_t i = 0; i < series.size(); ++i) {
        const Series& s = *series[i];
        if (!s.isVisible())
            continue;
        Canvas canvas(painter, layout.canvas, mapOver(s.xAxis(), layout.canvas),
                      mapOver(s.yAxis(), layout.canvas), lookOf(i), buffers);
        canvas.setPixelRatio(pixelRatio);
        canvas.setRuler([this](const std::string& text, const Font& font) {
            return measure.extent(text, font);
        });
        releaseWideRegisters();
        s.draw(canvas);
    }
}

void Plot::Private::draw(Painter& painter, const PlotLayout& layout) {
    PlotDrawing drawing(painter, layout, theme, measure);
    drawing.drawBackground();
    for (int id = 0; id < axisCount; ++id)
        if (layout.axes[static_cast<std::size_t>(id)] && axis(id).gridVisible)
            drawing.drawGrid(*layout.axes[static_cast<std::size_t>(id)]);
    FrameBuffers buffers;
    if (!layout.canvas.isEmpty()) {
        painter.setClipRect(layout.canvas);
        try {
            drawSeries(painter, layout, buffers);
        } catch (...) {
            painter.clearClip();
            throw;
        }
        painter.clearClip();
        drawing.maskOverhang();
    }
    for (int id = 0; id < axisCount; ++id)
        if (layout.axes[static_cast<std::size_t>(id)])
            drawing.drawAxis(drawing.placeOf(id), layout.hasAxisTitles ? axis(id).title : "");
    for (const ColorBar& bar : layout.colorBars)
        drawing.drawColorBar(bar);
    drawing.drawTexts();
    drawing.drawLegendFrame();
    for (const LegendEntry& entry : layout.legend.entries) {
        const Point& corner = layout.legendCorner;
        painter.drawText(corner.x + entry.baseline.x, corner.y + entry.baseline.y, entry.text,
                         theme.legendFont, theme.text);
        if (entry.series >= series.size())
            continue;
        const Rect key{corner.x + entry.key.x, corner.y + entry.key.y, entry.key.width,
                       entry.key.height};
        Canvas keyCanvas(painter, key, {}, {}, lookOf(entry.series), buffers);
        // Wider ones would reach the names beside their ends.
        keyCanvas.setWidestPen(0.5 * key.height);
        series[entry.series]->drawLegendKey(keyCanvas, key);
    }
}

} // namespace zembra
