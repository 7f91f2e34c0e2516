// SPDX-License-Identifier: MIT
#pragma once

#include <zembra/data/Samples.h>
#include <zembra/paint/Pen.h>
#include <zembra/series/Series.h>

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

/// A line through samples in their order. A sample that is not finite, or that a scale cannot
/// place, is a gap; a sample between two gaps is a dot.
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
    /// Alternating dash and gap lengths in line widths, before `style` when not empty.
    void setDashPattern(std::vector<double> pattern);
    const std::vector<double>& dashPattern() const;
    void setSteps(LineSteps steps);
    LineSteps steps() const;

    Bounds bounds(const Scale& x, const Scale& y) const override;
    void draw(Canvas& canvas) const override;
    void drawLegendKey(Canvas& canvas, const Rect& area) const override;
    std::uint64_t revision() const override;

private:
    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace zembra
