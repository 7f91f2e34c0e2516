// SPDX-License-Identifier: MIT
#pragma once

#include <zembra/series/Series.h>

#include <vector>

namespace zembra {

/// How a band looks.
struct BandStyle {
    /// Units: logical pixels; 0, as at first, draws no lines along the edges.
    double lineWidth = 0.0;
    /// Of the fill; lines are always as opaque as the series' colour. Range: 0..1.
    double opacity = 0.3;
};

/// Fills between two curves over the same x, such as a confidence band. The curves may cross.
///
/// Samples are taken in their order; where one of the three numbers is not finite, or a scale
/// cannot place it, both curves have a gap. Samples in order of x cost as much as the canvas has
/// columns, however many there are.
class ZEMBRA_EXPORT BandSeries : public Series {
public:
    BandSeries();
    /// Samples that are moved in. Shape: the excess of the longer ones is ignored.
    BandSeries(std::vector<double> x, std::vector<double> lower, std::vector<double> upper,
               std::string name = {});
    ~BandSeries() override;

    void setSamples(std::vector<double> x, std::vector<double> lower, std::vector<double> upper);

    /// Errors: returns false and changes nothing where a number is not finite or out of its range.
    bool setStyle(const BandStyle& style);
    const BandStyle& style() const;

    Bounds bounds(const Scale& x, const Scale& y) const override;
    void draw(Canvas& canvas) const override;
    void drawLegendKey(Canvas& canvas, const Rect& area) const override;

protected:
    /// The sample within the axes that is nearest to `pixel`, on either curve.
    std::optional<NearestSample> findNearest(const Point& pixel, const ScaleMap& x,
                                             const ScaleMap& y) const override;

private:
    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace zembra
