// SPDX-License-Identifier: MIT
#pragma once

#include <zembra/data/Samples.h>
#include <zembra/series/ColorScale.h>
#include <zembra/series/Marker.h>
#include <zembra/series/Series.h>

#include <vector>

namespace zembra {

/// A marker at every sample, later ones on top. Samples that are not finite are left out.
///
/// Markers are discs of one size and colour at first. Sizes, colours and values for colours can be
/// given for each sample; they belong to samples by their place in the row, and samples without one
/// take what the series has for all.
///
/// Up to a few thousand visible markers are drawn one by one; more become one picture, in which
/// they lie at quarters of a pixel and those that nobody could see are left out.
class ZEMBRA_EXPORT ScatterSeries : public Series {
public:
    ScatterSeries();
    /// Samples that are moved in. Shape: where one is longer, its excess is ignored.
    ScatterSeries(std::vector<double> x, std::vector<double> y, std::string name = {});
    explicit ScatterSeries(Samples samples, std::string name = {});
    ~ScatterSeries() override;

    void setSamples(std::vector<double> x, std::vector<double> y);
    void setSamples(Samples samples);
    const Samples& samples() const;

    /// Circles at first.
    void setMarkerShape(MarkerShape shape);
    MarkerShape markerShape() const;
    /// Units: logical pixels; 6 at first. Sizes that are not finite or not above 0 are ignored.
    void setMarkerSize(double size);
    double markerSize() const;

    /// A size for each sample. One that is not finite or not above 0 leaves its sample out.
    /// Units: logical pixels. To show amounts by area, make sizes grow with their square roots.
    void setMarkerSizes(std::vector<double> sizes);
    const std::vector<double>& markerSizes() const;
    /// A colour for each sample.
    void setMarkerColors(std::vector<Color> colors);
    const std::vector<Color>& markerColors() const;
    /// A value for each sample, turned into its colour by the colour scale, before any other
    /// colour; a value that is not finite, or missing, has the scale's colour for that. None at
    /// all, as at first, ends it. Complexity: O(values).
    void setColorValues(std::vector<double> values);
    const std::vector<double>& colorValues() const;
    /// Viridis over the range of the colour values at first.
    void setColorScale(ColorScale scale);
    /// Null where there are no colour values.
    const ColorScale* colorScale() const override;

    /// Of all samples, with a visible marker or not.
    Bounds bounds(const Scale& x, const Scale& y) const override;
    void draw(Canvas& canvas) const override;
    void drawLegendKey(Canvas& canvas, const Rect& area) const override;
    std::uint64_t revision() const override;

protected:
    /// The sample within the axes whose marker has its centre nearest to `pixel`.
    /// Complexity: O(log² n) as a rule where samples are in order of x, O(n) where they are not.
    std::optional<NearestSample> findNearest(const Point& pixel, const ScaleMap& x,
                                             const ScaleMap& y) const override;

private:
    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace zembra
