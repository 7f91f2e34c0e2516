// SPDX-License-Identifier: MIT
#pragma once

#include <zembra/chart/Plot.h>
#include <zembra/zembra_export.h>

#include <memory>
#include <string>

namespace zembra {

/// Several plots in rows and columns whose canvases line up.
///
/// Shares its plots with the host; touched by the thread that paints. Link their axes with
/// `Axis::linkTo` to let them share ranges.
class ZEMBRA_EXPORT PlotGrid {
public:
    /// Range: fewer than one row or column counts as one.
    PlotGrid(int rows, int columns);
    ~PlotGrid();
    PlotGrid(const PlotGrid&) = delete;
    PlotGrid& operator=(const PlotGrid&) = delete;

    int rows() const;
    int columns() const;

    /// Puts a plot into a cell, or none for null.
    /// Errors: returns false where there is no such cell.
    bool setPlot(int row, int column, std::shared_ptr<Plot> plot);
    std::shared_ptr<Plot> plot(int row, int column) const;

    /// Where a cell lies in a picture of `width` × `height` logical pixels; empty where there is no
    /// such cell. A plot's own coordinates count from the top-left corner of its cell.
    Rect cellRect(int row, int column, int width, int height) const;

    /// Lays all plots out and draws them; sizes not above 0 draw nothing.
    void renderInto(Painter& painter, int width, int height);

private:
    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace zembra
