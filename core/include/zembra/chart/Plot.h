// SPDX-License-Identifier: MIT
#pragma once

#include <zembra/chart/Axis.h>
#include <zembra/chart/Legend.h>
#include <zembra/chart/Theme.h>
#include <zembra/paint/Painter.h>
#include <zembra/scale/ScaleMap.h>
#include <zembra/series/Series.h>
#include <zembra/zembra_export.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace zembra {

/// Room between the canvas and the edges of the picture. Units: logical pixels.
struct Margins {
    double left = 0.0;
    double top = 0.0;
    double right = 0.0;
    double bottom = 0.0;
};

/// A chart: four axes around a canvas, series inside, title and legend.
///
/// Axes are numbered 0 left (the primary vertical), 1 right, 2 bottom (the primary horizontal) and
/// 3 top; 0 and 2 are shown at first. Shared between the host and its views through
/// `std::shared_ptr`; touched by one thread, the one that paints. After a change the host asks its
/// views to paint again.
class ZEMBRA_EXPORT Plot {
public:
    Plot();
    ~Plot();
    Plot(const Plot&) = delete;
    Plot& operator=(const Plot&) = delete;

    /// Lays the plot out in `width` × `height` logical pixels and draws it with its top-left corner
    /// at (0, 0). Sizes not above 0 draw nothing.
    void renderInto(Painter& painter, int width, int height);

    /// The data area of the last layout, in the pixel coordinates of `renderInto`.
    Rect canvasRect() const;
    /// Maps between an axis' *current* range and the pixel ends of the last layout.
    ScaleMap scaleMap(int axis) const;

    bool axisEnabled(int axis) const;
    void setAxisEnabled(int axis, bool on);
    /// Fixes the range of an axis, see `Axis::setRange`; other axis numbers change nothing.
    void setAxisScale(int axis, double min, double max, double step = 0.0);
    /// See `Axis::setAutoScale`; other axis numbers change nothing.
    void setAxisAutoScale(int axis, bool on);

    /// The axis with that number. Other numbers give a spare axis that is never drawn.
    Axis& axis(int axis);
    const Axis& axis(int axis) const;

    /// Fixes how long a unit on axis 0 is, in units on axis 2: with 1 circles are round. The range
    /// of the axis that has room to spare is widened about its middle. Only for linear axes.
    /// Errors: ratios that are not above 0 and finite set the aspect free, as it is at first.
    void setAspectRatio(double ratio);
    double aspectRatio() const;

    /// UTF-8; an empty title takes no room.
    void setTitle(std::string title);
    const std::string& title() const;

    /// UTF-8; an empty subtitle takes no room.
    void setSubtitle(std::string subtitle);
    const std::string& subtitle() const;

    Legend& legend();
    const Legend& legend() const;

    /// Errors: a font of less than half a pixel, or of no finite size, takes its size from a new
    /// `Theme`.
    void setTheme(const Theme& theme);
    const Theme& theme() const;

    /// How many pixels the target has to a logical one: painters do not tell. Lines too dense for
    /// strokers are then as sharp as the others, at the cost of more operations; best left at 1, as
    /// at first, for vector files.
    /// Errors: values that are not above 0 and at most 4 change nothing and return false.
    bool setPixelRatio(double ratio);
    double pixelRatio() const;

    /// Makes a series of a kind and adds it: `plot.add<LineSeries>(x, y, "name")`.
    template <class Kind, class... Arguments>
    std::shared_ptr<Kind> add(Arguments&&... arguments) {
        auto series = std::make_shared<Kind>(std::forward<Arguments>(arguments)...);
        addSeries(series);
        return series;
    }
    /// Adds a series on top of the others; null or one that is here already changes nothing.
    void addSeries(std::shared_ptr<Series> series);
    /// Errors: returns false when the series is not here.
    bool removeSeries(const std::shared_ptr<Series>& series);
    const std::vector<std::shared_ptr<Series>>& series() const;

private:
    friend class PlotGrid;
    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace zembra
