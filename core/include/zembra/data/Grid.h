// SPDX-License-Identifier: MIT
#pragma once

#include <zembra/scale/Interval.h>
#include <zembra/scale/Scale.h>
#include <zembra/zembra_export.h>

#include <cstddef>
#include <memory>
#include <span>
#include <vector>

namespace zembra {

/// Where the cells of a grid begin and end along one direction; `first` may be the greater one.
/// Units: data units.
struct GridSpan {
    double first = 0.0;
    double last = 1.0;
};

/// Values in rows and columns over a rectangle of the data plane, owned or borrowed.
///
/// The rectangle is divided into cells of equal size in data units; a value stands for its cell and
/// lies at its centre. Row 0 is at `y.first`, column 0 at `x.first`. Values that are not finite are
/// missing. A cheap value: copies share their storage.
class ZEMBRA_EXPORT Grid {
public:
    /// No values.
    Grid();
    /// Values row by row, moved in. Shape: `columns` values to a row; an incomplete last row is
    /// ignored. No columns, and spans that are not finite or without length, give an empty grid.
    Grid(std::vector<double> values, std::size_t columns, GridSpan x, GridSpan y);
    /// Values that stay with the host. Requires: they live, and do not change, until the last copy
    /// of the result is gone; for other values make another `Grid`.
    static Grid borrowed(std::span<const double> values, std::size_t columns, GridSpan x,
                         GridSpan y);

    std::size_t columns() const { return columnCount; }
    std::size_t rows() const { return rowCount; }
    bool isEmpty() const { return columnCount == 0 || rowCount == 0; }
    GridSpan x() const { return xSpan; }
    GridSpan y() const { return ySpan; }

    /// Requires: `column` and `row` are below `columns()` and `rows()`.
    double value(std::size_t column, std::size_t row) const {
        return values[row * columnCount + column];
    }
    /// The values of a row, in the order of the columns. Requires: `row` is below `rows()`.
    std::span<const double> row(std::size_t row) const {
        return values.subspan(row * columnCount, columnCount);
    }
    /// The centre of a column or row of cells.
    double xCenter(std::size_t column) const;
    double yCenter(std::size_t row) const;

    /// The least and greatest of the values that `scale` can place. Complexity: O(values).
    Interval valueRange(const Scale& scale) const;

private:
    Grid(std::shared_ptr<const std::vector<double>> owner, std::span<const double> values,
         std::size_t columns, GridSpan x, GridSpan y);

    std::shared_ptr<const std::vector<double>> owner;
    std::span<const double> values;
    std::size_t columnCount = 0;
    std::size_t rowCount = 0;
    GridSpan xSpan;
    GridSpan ySpan;
};

} // namespace zembra
