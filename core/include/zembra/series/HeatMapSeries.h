// SPDX-License-Identifier: MIT
#pragma once

#include <zembra/data/Grid.h>
#include <zembra/series/ColorScale.h>
#include <zembra/series/Series.h>

namespace zembra {

/// What a pixel shows that covers several cells.
enum class HeatMapSampling {
    /// The mean of up to 4 × 4 of them at even distances, without the missing ones.
    Mean,
    /// The one at its centre; for values that have no mean, such as angles and classes.
    Nearest,
};

/// The values of a grid as colours.
///
/// Drawn as one picture in canvas pixels, made again only when data, colours or view have changed.
/// A pixel takes the value at its centre, or what the sampling says where it covers more than two
/// cells in a direction. Cells smaller than pixels are drawn up to half a pixel off, so that they
/// keep their colours while they are panned.
/// Complexity: O(canvas pixels) for a new view, however many cells there are; what comes into view
/// for a pan.
/// Missing values have the colour that the colour scale says. On a logarithmic axis the part
/// of the grid beyond its domain is left out.
class ZEMBRA_EXPORT HeatMapSeries : public Series {
public:
    HeatMapSeries();
    explicit HeatMapSeries(Grid grid, std::string name = {});
    ~HeatMapSeries() override;

    void setGrid(Grid grid);
    const Grid& grid() const;

    /// Viridis over the range of the values at first. Complexity: O(values).
    void setColorScale(ColorScale scale);
    const ColorScale* colorScale() const override;

    /// Mean at first.
    void setSampling(HeatMapSampling sampling);
    HeatMapSampling sampling() const;

    bool takesCycleColor() const override;
    Bounds bounds(const Scale& x, const Scale& y) const override;
    void draw(Canvas& canvas) const override;
    void drawLegendKey(Canvas& canvas, const Rect& area) const override;

protected:
    /// The cell below the pixel, told by its centre; its index counts row by row. None where the
    /// value is missing or the pixel is beside the grid.
    std::optional<NearestSample> findNearest(const Point& pixel, const ScaleMap& x,
                                             const ScaleMap& y) const override;

private:
    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace zembra
