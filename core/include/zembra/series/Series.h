// SPDX-License-Identifier: MIT
#pragma once

#include <zembra/paint/Color.h>
#include <zembra/paint/Geometry.h>
#include <zembra/scale/Interval.h>
#include <zembra/scale/ScaleMap.h>
#include <zembra/zembra_export.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace zembra {

class Canvas;
class ColorScale;

/// What part of the data plane something covers.
struct Bounds {
    Interval x;
    Interval y;
    /// The values stand on zero, as bars do: an automatic range begins exactly there.
    bool xFromZero = false;
    bool yFromZero = false;
    /// The values fill their area to its edges, as cells do: an automatic range ends exactly there.
    bool xFlush = false;
    bool yFlush = false;

    void include(const Bounds& other) {
        x.include(other.x);
        y.include(other.y);
        xFromZero = xFromZero || other.xFromZero;
        yFromZero = yFromZero || other.yFromZero;
        xFlush = xFlush || other.xFlush;
        yFlush = yFlush || other.yFlush;
    }
};

/// The sample of a series that lies nearest to a pixel.
struct NearestSample {
    std::size_t index = 0;
    /// Data units.
    double x = 0.0;
    double y = 0.0;
    /// Logical pixels.
    double distance = 0.0;
};

/// Something that draws itself into the canvas of a plot from data, along two of its axes.
///
/// Owned by its plots through `std::shared_ptr`; touched by one thread, the one that paints. After
/// a change the host asks its view to paint again.
class ZEMBRA_EXPORT Series {
public:
    Series();
    virtual ~Series();
    Series(const Series&) = delete;
    Series& operator=(const Series&) = delete;

    /// The name shown in the legend, UTF-8; a series without one has no entry there.
    void setName(std::string name);
    const std::string& name() const;

    /// A hidden series is not drawn and has no part in automatic ranges.
    void setVisible(bool on);
    bool isVisible() const;

    /// Chooses the axes: `xAxis` 2 or 3, `yAxis` 0 or 1; at first 2 and 0.
    /// Errors: other numbers change nothing and return false.
    bool setAxes(int xAxis, int yAxis);
    int xAxis() const;
    int yAxis() const;

    /// The series' own colour; none (as at first) takes the next of the theme's cycle.
    void setColor(std::optional<Color> color);
    std::optional<Color> color() const;
    /// Whether the series takes up a colour of the cycle, its own set or not, so that setting one
    /// changes no other series. True at first; false for kinds that are drawn in other colours.
    virtual bool takesCycleColor() const;

    /// What the samples cover that the two scales can place. Hidden or not.
    virtual Bounds bounds(const Scale& x, const Scale& y) const = 0;
    virtual void draw(Canvas& canvas) const = 0;
    /// Draws the legend's picture of the series into `area`, which is the canvas' rectangle too.
    virtual void drawLegendKey(Canvas& canvas, const Rect& area) const = 0;
    /// The sample nearest to `pixel` among those in view; for cursors and tool tips. A hidden
    /// series has none, and a pixel that is not finite is near to nothing.
    std::optional<NearestSample> nearest(const Point& pixel, const ScaleMap& x,
                                         const ScaleMap& y) const;

    /// How the series turns values into colours, for a colour bar beside the canvas; null, as at
    /// first, where it does not. Lives as long as the series.
    virtual const ColorScale* colorScale() const;

    /// Counts changes: another number means that bounds or looks may differ.
    virtual std::uint64_t revision() const;

protected:
    /// What `nearest` finds in a series that is not hidden; nothing where a kind has no samples.
    /// Requires: a finite `pixel`.
    virtual std::optional<NearestSample> findNearest(const Point& pixel, const ScaleMap& x,
                                                     const ScaleMap& y) const;
    /// To be called by a kind after any change of its own.
    void changed();

private:
    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace zembra
