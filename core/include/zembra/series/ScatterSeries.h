// SPDX-License-Identifier: MIT
#pragma once

#include <zembra/data/Samples.h>
#include <zembra/series/Series.h>

#include <vector>

namespace zembra {

/// A disc at every sample. Samples that are not finite are left out.
///
/// Up to a few thousand visible discs are drawn one by one; more become one picture, in which discs
/// lie at quarters of a pixel and those that nobody could see are left out.
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

    /// Diameter of the discs. Units: logical pixels; 6 at first. Sizes not above 0 are ignored.
    void setMarkerSize(double size);
    double markerSize() const;

    Bounds bounds(const Scale& x, const Scale& y) const override;
    void draw(Canvas& canvas) const override;
    void drawLegendKey(Canvas& canvas, const Rect& area) const override;
    std::uint64_t revision() const override;

private:
    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace zembra
