// SPDX-License-Identifier: MIT
#pragma once

#include "AxisLayout.h"
#include "AxisPrivate.h"
#include "LegendLayout.h"

#include <zembra/chart/Legend.h>
#include <zembra/chart/Plot.h>
#include <zembra/series/Canvas.h>
#include <zembra/series/ColorScale.h>

#include <array>
#include <optional>
#include <utility>
#include <vector>

namespace zembra {

constexpr int axisCount = 4;

constexpr bool isAxis(int axis) {
    return axis >= 0 && axis < axisCount;
}
constexpr bool isHorizontalAxis(int axis) {
    return axis >= 2;
}

// What an axis needs beside the canvas, in logical pixels.
constexpr double tickLength = 5.0;
constexpr double labelGap = 4.0;
constexpr double titleGap = 4.0;

/// Lines of text that share a left edge.
struct TextBlock {
    std::vector<std::string> lines;
    double x = 0.0;
    /// Baseline of the first line.
    double y = 0.0;
};

/// A strip beside the canvas that tells which colour stands for which value.
struct ColorBar {
    const ColorScale* colors = nullptr;
    AxisLayout axis;
    Rect strip;
};

/// Everything that one frame needs to know about places.
struct PlotLayout {
    double width = 0.0;
    double height = 0.0;
    Rect canvas;
    TextBlock title;
    TextBlock subtitle;
    bool hasAxisTitles = true;
    bool hasTickLabels = true;
    /// Set for the axes that are shown.
    std::array<std::optional<AxisLayout>, axisCount> axes;
    std::vector<ColorBar> colorBars;
    LegendLayout legend;
    /// Never `Automatic`, unless no place has been chosen yet.
    LegendPosition legendPosition = LegendPosition::Automatic;
    /// The top-left corner of the legend.
    Point legendCorner;
};

/// What layouts hand on to the next one.
struct LayoutMemory {
    double width = 0.0;
    double height = 0.0;
    std::array<AxisMemory, axisCount> axes;
    std::vector<AxisMemory> colorBars;
    /// The place an automatic legend has settled in.
    std::optional<LegendPosition> legendPosition;
    /// With a fixed aspect ratio, on which the ranges of axes depend.
    Rect canvas;
};

/// The axis 0 or 2 along the same direction.
constexpr int primaryOf(int axis) {
    return axis / 2 * 2;
}

struct Plot::Private {
    class LayoutAttempt;

    Private();

    Axis::Private& axis(int id) { return *axes[static_cast<std::size_t>(id)].d; }
    const Axis::Private& axis(int id) const { return *axes[static_cast<std::size_t>(id)].d; }

    DataCover coverOf(int id) const;
    DataCover ownCoverOf(int id) const;
    /// The current range of an axis over `area`, first end first, widened where the aspect asks.
    std::pair<double, double> range(int id, const Rect& area) const;
    ScaleMap mapOver(int id, const Rect& area) const;
    std::vector<LegendName> legendNames() const;

    /// `least` are margins that the canvas keeps at the least.
    PlotLayout layOut(double width, double height, const Margins& least);
    PlotLayout layOutOnce(double width, double height, const Margins& least);
    /// The same after an automatic legend has chosen its place, for which the series are drawn once
    /// without a trace.
    PlotLayout settledLayout(Painter& painter, double width, double height, const Margins& least);
    /// Colour bars for an area, as many as find `room` beside it.
    std::vector<ColorBar> layOutColorBars(const Rect& area, double room);
    void draw(Painter& painter, const PlotLayout& layout);
    void drawSeries(Painter& painter, const PlotLayout& layout, FrameBuffers& buffers);
    SeriesLook lookOf(std::size_t index) const;

    // One more than there are: the spare one for numbers that name no axis.
    std::array<Axis, axisCount + 1> axes;
    std::string title;
    std::string subtitle;
    Theme theme = Theme::light();
    Legend legend;
    std::vector<std::shared_ptr<Series>> series;
    Rect canvas;
    /// Pixels of a unit on axis 0 for each pixel of a unit on axis 2; 0 where it is free.
    double aspect = 0.0;
    double pixelRatio = 1.0;
    Margins leastMargins;
    TextMeasure measure;
    LayoutMemory memory;
};

} // namespace zembra
