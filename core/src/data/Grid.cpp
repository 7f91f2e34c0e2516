// SPDX-License-Identifier: MIT
#include <zembra/data/Grid.h>

#include <cmath>
#include <utility>

namespace zembra {

namespace {

bool hasLength(const GridSpan& span) {
    return std::isfinite(span.first) && std::isfinite(span.last) && span.first != span.last;
}

double center(const GridSpan& span, std::size_t index, std::size_t count) {
    return std::lerp(span.first, span.last,
                     (static_cast<double>(index) + 0.5) / static_cast<double>(count));
}

} // namespace

Grid::Grid() = default;

Grid::Grid(std::vector<double> values, std::size_t columns, GridSpan x, GridSpan y) {
    auto moved = std::make_shared<const std::vector<double>>(std::move(values));
    const std::span<const double> all = *moved;
    *this = Grid(std::move(moved), all, columns, x, y);
}

Grid::Grid(std::shared_ptr<const std::vector<double>> owner, std::span<const double> values,
           std::size_t columns, GridSpan x, GridSpan y)
    : owner(std::move(owner)), values(values), xSpan(x), ySpan(y) {
    if (columns == 0 || !hasLength(x) || !hasLength(y))
        return;
    columnCount = columns;
    rowCount = values.size() / columns;
}

Grid Grid::borrowed(std::span<const double> values, std::size_t columns, GridSpan x, GridSpan y) {
    return Grid(nullptr, values, columns, x, y);
}

double Grid::xCenter(std::size_t column) const {
    return center(xSpan, column, columnCount);
}

double Grid::yCenter(std::size_t row) const {
    return center(ySpan, row, rowCount);
}

Interval Grid::valueRange(const Scale& scale) const {
    Interval range;
    for (const double value : values.first(columnCount * rowCount))
        if (scale.contains(value))
            range.include(value);
    return range;
}

} // namespace zembra
