// SPDX-License-Identifier: MIT
#pragma once

#include <zembra/data/Grid.h>
#include <zembra/series/ColorScale.h>
#include <zembra/series/Series.h>

#include <vector>

namespace zembra {

/// What a contour series draws.
enum class ContourStyle {
    /// A line along every level in the colour of its value.
    Lines,
    /// The areas between neighbouring levels, and below the first and above the last.
    Filled,
    /// The areas, and thin lines between them.
    FilledWithLines,
};

/// Lines of equal value through a grid, and the areas between them.
///
/// Values are those of the cells' centres, and vary linearly along the edges between neighbours:
/// contours run between the outermost centres. Where they can be joined in two ways, at a saddle,
/// the mean of the four corners decides. Missing values, and those that an axis cannot place, leave
/// holes. A grid finer than the pixels is read at about one value a pixel.
/// Complexity: O(columns + rows + canvas pixels · levels) for each frame.
/// Source: W. Lorensen, H. Cline, "Marching cubes: a high resolution 3D surface construction
/// algorithm", 1987, in two dimensions.
class ZEMBRA_EXPORT ContourSeries : public Series {
public:
    ContourSeries();
    explicit ContourSeries(Grid grid, std::string name = {});
    ~ContourSeries() override;

    void setGrid(Grid grid);
    const Grid& grid() const;

    /// Fixes the levels, in any order; equal ones count once and those that are not finite not at
    /// all. None, as at first, takes round numbers within the range of the colour scale.
    void setLevels(std::vector<double> levels);
    /// The levels in use, in increasing order.
    const std::vector<double>& levels() const;

    /// Lines at first.
    void setStyle(ContourStyle style);
    ContourStyle style() const;
    /// Of the lines; those between areas are never wider than 1. Units: logical pixels; 1.25 at
    /// first. Negative and non-finite widths are ignored.
    void setWidth(double width);
    double width() const;

    /// Viridis over the range of the values at first. Complexity: O(values).
    void setColorScale(ColorScale scale);
    const ColorScale* colorScale() const override;

    bool takesCycleColor() const override;
    Bounds bounds(const Scale& x, const Scale& y) const override;
    void draw(Canvas& canvas) const override;
    void drawLegendKey(Canvas& canvas, const Rect& area) const override;

protected:
    /// The cell below the pixel, told by its centre; its index counts row by row.
    std::optional<NearestSample> findNearest(const Point& pixel, const ScaleMap& x,
                                             const ScaleMap& y) const override;

private:
    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace zembra
