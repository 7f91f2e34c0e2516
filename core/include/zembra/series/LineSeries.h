// SPDX-License-Identifier: MIT
#pragma once

#include <zembra/data/Samples.h>
#include <zembra/paint/Pen.h>
#include <zembra/series/Marker.h>
#include <zembra/series/Series.h>

#include <optional>
#include <vector>

namespace zembra {

/// How a line goes from one sample to the next.
enum class LineSteps {
    /// Straight.
    None,
    /// The value of a sample holds until the next one.
    After,
    /// The value of a sample holds from the one before.
    Before,
    /// The value of a sample holds to half-way on either side.
    Mid,
};

/// What lies between a line and a baseline.
struct LineFill {
    /// Where the fill ends, in data units; none, or one that the scale cannot place, lets it end at
    /// the edge of the canvas where the axis has its least values.
    std::optional<double> baseline = 0.0;
    /// Of the line's colour. Range: 0..1.
    double opacity = 0.25;
};

/// A line through samples in their order. A sample that is not finite, or that a scale cannot
/// place, is a gap; a sample between two gaps is a dot.
///
/// Markers, where there are any, lie on the samples themselves. So that they stay apart, no more
/// are drawn than fit side by side across the canvas, or around it where samples are not in order
/// of x: beyond that, only every second, fourth, eighth … sample has one.
///
/// Samples in order of x cost as much as the canvas has columns, however many there are; others are
/// all looked at for each frame.
class ZEMBRA_EXPORT LineSeries : public Series {
public:
    LineSeries();
    /// Samples that are moved in. Shape: where one is longer, its excess is ignored.
    LineSeries(std::vector<double> x, std::vector<double> y, std::string name = {});
    explicit LineSeries(Samples samples, std::string name = {});
    ~LineSeries() override;

    void setSamples(std::vector<double> x, std::vector<double> y);
    void setSamples(Samples samples);
    const Samples& samples() const;

    /// Units: logical pixels; 1.5 at first. Negative and non-finite widths are ignored; 0 is the
    /// thinnest line the target has.
    void setWidth(double width);
    double width() const;
    /// Solid at first. Where samples are too dense for dashes to show, the line is solid.
    void setStyle(PenStyle style);
    PenStyle style() const;
    /// Alternating dash and gap lengths in line widths, before `style` when not empty; a last gap
    /// that is missing is 1. Ignored where a length is negative or not finite, or all of them are
    /// 0.
    void setDashPattern(std::vector<double> pattern);
    const std::vector<double>& dashPattern() const;
    void setSteps(LineSteps steps);
    LineSteps steps() const;

    /// Marks the samples with a shape, as large as `markerSize`; none at first.
    void setMarkerShape(std::optional<MarkerShape> shape);
    std::optional<MarkerShape> markerShape() const;
    /// Units: logical pixels; 6 at first. Sizes that are not finite or not above 0 are ignored.
    void setMarkerSize(double size);
    double markerSize() const;

    /// Fills between the line and a baseline; none at first.
    /// Errors: returns false and changes nothing where a number is not finite or out of its range.
    bool setFill(const std::optional<LineFill>& fill);
    const std::optional<LineFill>& fill() const;

    /// With the fill's baseline, where there is one that the y scale can place.
    Bounds bounds(const Scale& x, const Scale& y) const override;
    void draw(Canvas& canvas) const override;
    void drawLegendKey(Canvas& canvas, const Rect& area) const override;
    std::uint64_t revision() const override;

protected:
    /// The sample within the axes that is nearest to `pixel`, whatever way the line takes.
    /// Complexity: O(log² n) as a rule where samples are in order of x, O(n) where they are not.
    std::optional<NearestSample> findNearest(const Point& pixel, const ScaleMap& x,
                                             const ScaleMap& y) const override;

private:
    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace zembra
