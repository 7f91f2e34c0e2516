// SPDX-License-Identifier: MIT
#pragma once

#include <zembra/paint/Pen.h>
#include <zembra/series/Series.h>

#include <vector>

namespace zembra {

/// A line through samples in their order. A sample that is not finite is a gap.
class ZEMBRA_EXPORT LineSeries : public Series {
public:
    LineSeries();
    /// Samples that are moved in. Shape: where one is longer, its excess is ignored.
    LineSeries(std::vector<double> x, std::vector<double> y, std::string name = {});
    ~LineSeries() override;

    void setSamples(std::vector<double> x, std::vector<double> y);

    /// Units: logical pixels; 1.5 at first. Negative and non-finite widths are ignored.
    void setWidth(double width);
    double width() const;

    Bounds bounds(const Scale& x, const Scale& y) const override;
    void draw(Canvas& canvas) const override;
    void drawLegendKey(Canvas& canvas, const Rect& area) const override;

private:
    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace zembra
