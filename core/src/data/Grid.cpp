// SPDX-License-Identifier: MIT
#include <zembra/data/Grid.h>

#include <algorithm>
#include <array>
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
    const auto all = values.first(columnCount * rowCount);
    if (scale.isLinear()) {
        // Infinities show in the result, and a comparison with NaN is false.
        std::array<Interval, 8> lanes;
        std::size_t i = 0;
        for (; i + lanes.size() <= all.size(); i += lanes.size())
            for (std::size_t lane = 0; lane < lanes.size(); ++lane) {
                const double v = all[i + lane];
                lanes[lane].min = v < lanes[lane].min ? v : lanes[lane].min;
                lanes[lane].max = v > lanes[lane].max ? v : lanes[lane].max;
            }
        for (; i < all.size(); ++i)
            if (!std::isnan(all[i]))
                lanes[0].include(all[i]);
        for (const Interval& lane : lanes) {
            range.min = std::min(range.min, lane.min);
            range.max = std::max(range.max, lane.max);
        }
        if (range.isEmpty() || (std::isfinite(range.min) && std::isfinite(range.max)))
            return range;
        range = {};
    }
    for (const double value : all)
        if (scale.contains(value))
            range.include(value);
    return range;
}

} // namespace zembra
