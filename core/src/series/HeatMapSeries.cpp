// SPDX-License-Identifier: MIT
#include <zembra/series/HeatMapSeries.h>

#include "GridCells.h"
#include "Picture.h"

#include <zembra/series/Canvas.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <optional>
#include <utility>

namespace zembra {

namespace {

// How many cells in a row a pixel looks at where it covers more.
constexpr std::size_t mostProbes = 4;

// The cells that one column or row of pixels shows.
struct Probes {
    std::array<std::size_t, mostProbes> cells = {};
    std::size_t count = 0;
};

// The whole pixels between two positions. Canvases are never wider than painters can bear.
struct PixelSpan {
    int first = 0;
    int count = 0;
};

PixelSpan wholePixels(double low, double high) {
    constexpr double most = 16000.0;
    const int first = static_cast<int>(std::ceil(std::clamp(low, -most, most)));
    const int last = static_cast<int>(std::floor(std::clamp(high, -most, most)));
    return {first, std::max(last - first, 0)};
}

std::vector<Probes> probes(const PixelSpan& pixels, const ScaleMap& map, const GridSpan& span,
                           std::size_t cells, HeatMapSampling sampling) {
    std::vector<Probes> result(static_cast<std::size_t>(pixels.count));
    for (int i = 0; i < pixels.count; ++i) {
        Probes& probes = result[static_cast<std::size_t>(i)];
        const double pixel = pixels.first + i;
        const auto middle = cellAt(span, cells, map.invTransform(pixel + 0.5));
        if (!middle)
            continue;
        const std::size_t one = cellAt(span, cells, map.invTransform(pixel)).value_or(*middle);
        const std::size_t other =
            cellAt(span, cells, map.invTransform(pixel + 1.0)).value_or(*middle);
        const std::size_t low = std::min(one, other);
        const std::size_t covered = std::max(one, other) - low + 1;
        // Two cells that share a pixel are told apart by its centre, so that edges stay sharp.
        if (covered <= 2 || sampling == HeatMapSampling::Nearest) {
            probes.cells[0] = *middle;
            probes.count = 1;
            continue;
        }
        probes.count = std::min(covered, mostProbes);
        for (std::size_t k = 0; k < probes.count; ++k)
            probes.cells[k] = low + (2 * k + 1) * covered / (2 * probes.count);
    }
    return result;
}

double mean(const Grid& grid, const Probes& columns, const Probes& rows) {
    if (columns.count == 1 && rows.count == 1)
        return grid.value(columns.cells[0], rows.cells[0]);
    double mean = 0.0;
    int count = 0;
    for (std::size_t r = 0; r < rows.count; ++r)
        for (std::size_t c = 0; c < columns.count; ++c) {
            const double value = grid.value(columns.cells[c], rows.cells[r]);
            if (std::isfinite(value))
                mean = std::lerp(mean, value, 1.0 / ++count);
        }
    return count > 0 ? mean : std::numeric_limits<double>::quiet_NaN();
}

// The sums of the cells below a row of pixels, by columns of cells.
class RowSums {
public:
    RowSums(const Grid& grid, const std::vector<Probes>& columns) : grid(grid) {
        for (const Probes& probes : columns)
            looked.insert(looked.end(), probes.cells.begin(),
                          probes.cells.begin() + static_cast<std::ptrdiff_t>(probes.count));
        std::sort(looked.begin(), looked.end());
        looked.erase(std::unique(looked.begin(), looked.end()), looked.end());
        if (looked.empty())
            return;
        first = looked.front();
        sums.resize(looked.back() + 1 - first);
        // Cells in a row are summed up faster than half of them one by one.
        unbroken = sums.size() <= 2 * looked.size();
    }

    void assign(const Probes& rows) {
        if (looked.empty())
            return;
        std::array<const double*, mostProbes> values{};
        for (std::size_t r = 0; r < rows.count; ++r)
            values[r] = grid.row(rows.cells[r]).data() + first;
        // All rows in one pass, which memory serves best.
        switch (rows.count) {
        case 1:
            return assignEach([&](std::size_t i) { return values[0][i]; });
        case 2:
            return assignEach([&](std::size_t i) { return values[0][i] + values[1][i]; });
        case 3:
            return assignEach(
                [&](std::size_t i) { return values[0][i] + values[1][i] + values[2][i]; });
        default:
            return assignEach([&](std::size_t i) {
                return values[0][i] + values[1][i] + (values[2][i] + values[3][i]);
            });
        }
    }

    double of(const Probes& probes) const {
        double sum = 0.0;
        for (std::size_t c = 0; c < probes.count; ++c)
            sum += sums[probes.cells[c] - first];
        return sum;
    }

private:
    template <class Sum>
    void assignEach(Sum sum) {
        if (unbroken) {
            for (std::size_t i = 0; i < sums.size(); ++i)
                sums[i] = sum(i);
        } else {
            for (const std::size_t cell : looked)
                sums[cell - first] = sum(cell - first);
        }
    }

    const Grid& grid;
    std::vector<std::size_t> looked;
    std::size_t first = 0;
    bool unbroken = false;
    std::vector<double> sums;
};

std::uint32_t packed(const Color& color) {
    return packedPixel(color, color.alpha());
}

// A colour scale for loops over many values: where it is linear, a table and a straight line.
class PixelColors {
public:
    explicit PixelColors(const ColorScale& colors) : colors(colors) {
        const Interval& range = colors.range();
        const double first = colors.share(range.min);
        slope = (colors.share(range.max) - first) / (range.max - range.min) * last;
        offset = first * last + 0.5 - range.min * slope;
        linear = colors.scale().isLinear() && std::isfinite(slope) && std::isfinite(offset);
        for (std::size_t i = 0; linear && i < table.size(); ++i)
            table[i] = packed(colors.map().at(static_cast<double>(i) / last));
    }

    std::uint32_t operator()(double value) const {
        const double place = value * slope + offset;
        if (!linear || !std::isfinite(place))
            return packed(colors.color(value));
        return table[static_cast<std::size_t>(std::clamp(place, 0.0, last))];
    }

private:
    static constexpr double last = 255.0;

    const ColorScale& colors;
    double slope = 0.0;
    double offset = 0.0;
    bool linear = false;
    std::array<std::uint32_t, 256> table{};
};

bool sameView(const ScaleMap& a, const ScaleMap& b) {
    return a.p1() == b.p1() && a.p2() == b.p2() && a.s1() == b.s1() && a.s2() == b.s2() &&
           a.scale() == b.scale();
}

// By how many whole pixels values lie further right or down in the new view than in the old one,
// if that is all the difference.
std::optional<int> wholeShift(const ScaleMap& before, const ScaleMap& now) {
    if (before.p1() != now.p1() || before.p2() != now.p2() || !(before.scale() == now.scale()) ||
        !now.scale().isLinear())
        return std::nullopt;
    constexpr double closeness = 1e-4;
    const double first = now.transform(before.s1()) - now.p1();
    const double last = now.transform(before.s2()) - now.p2();
    const double shift = std::round(first);
    if (!(std::abs(first - shift) < closeness && std::abs(last - shift) < closeness) ||
        std::abs(shift) > std::abs(now.p2() - now.p1()))
        return std::nullopt;
    return static_cast<int>(shift);
}

struct View {
    ScaleMap x;
    ScaleMap y;
};

struct PixelShift {
    int x = 0;
    int y = 0;
};

} // namespace

struct HeatMapSeries::Private {
    using Pixels = std::shared_ptr<const std::vector<std::uint8_t>>;

    Grid grid;
    ColorScale colors;
    HeatMapSampling sampling = HeatMapSampling::Mean;

    // The last picture and what it shows.
    Pixels picture;
    std::uint64_t revision = 0;
    Rect area;
    ScaleMap x;
    ScaleMap y;
    PixelSpan columns;
    PixelSpan rows;
    // The view for which all of it was painted, and how far it has moved since: from there, so that
    // no errors add up.
    View base;
    PixelShift moved;

    void followData();
    void paint(const PixelSpan& across, const PixelSpan& down,
               std::vector<std::uint8_t>& pixels) const;
    std::size_t offsetOf(int column, int row) const;
    void paintAll(const Canvas& canvas);
    void moveTo(const PixelShift& place);
};

// A pass over all values, which a fixed range does not need.
void HeatMapSeries::Private::followData() {
    if (colors.isAutoRange())
        colors.setDataRange(grid.valueRange(colors.scale()));
}

void HeatMapSeries::Private::paint(const PixelSpan& across, const PixelSpan& down,
                                   std::vector<std::uint8_t>& pixels) const {
    const auto columnProbes = probes(across, x, grid.x(), grid.columns(), sampling);
    const auto rowProbes = probes(down, y, grid.y(), grid.rows(), sampling);
    const PixelColors colorOf(colors);
    RowSums sums(grid, columnProbes);
    for (int k = 0; k < down.count; ++k) {
        const Probes& row = rowProbes[static_cast<std::size_t>(k)];
        if (row.count == 0)
            continue;
        sums.assign(row);
        std::uint8_t* target = pixels.data() + offsetOf(across.first, down.first + k);
        for (std::size_t i = 0; i < columnProbes.size(); ++i) {
            const Probes& column = columnProbes[i];
            if (column.count == 0)
                continue;
            double value = sums.of(column) / static_cast<double>(row.count * column.count);
            // Missing values and overflows show in the sum.
            if (!std::isfinite(value))
                value = mean(grid, column, row);
            const std::uint32_t pixel = colorOf(value);
            std::memcpy(target + 4 * i, &pixel, 4);
        }
    }
}

std::size_t HeatMapSeries::Private::offsetOf(int column, int row) const {
    return (static_cast<std::size_t>(row - rows.first) * static_cast<std::size_t>(columns.count) +
            static_cast<std::size_t>(column - columns.first)) *
           4;
}

void HeatMapSeries::Private::paintAll(const Canvas& canvas) {
    area = canvas.rect();
    base = {canvas.x(), canvas.y()};
    moved = {};
    columns = wholePixels(area.left(), area.right());
    rows = wholePixels(area.top(), area.bottom());
    auto pixels = std::make_shared<std::vector<std::uint8_t>>(
        static_cast<std::size_t>(columns.count) * static_cast<std::size_t>(rows.count) * 4);
    paint(columns, rows, *pixels);
    // The old picture lives until the new one is there, so that the two differ in address.
    picture = std::move(pixels);
}

// Moves what the picture shows already, and paints what comes into view.
void HeatMapSeries::Private::moveTo(const PixelShift& place) {
    const int dx = place.x - moved.x;
    const int dy = place.y - moved.y;
    moved = place;
    auto pixels = std::make_shared<std::vector<std::uint8_t>>(picture->size());
    const int keptColumns = columns.count - std::abs(dx);
    const int keptRows = rows.count - std::abs(dy);
    const int left = columns.first + std::max(dx, 0);
    const int top = rows.first + std::max(dy, 0);
    for (int row = top; row < top + keptRows; ++row)
        std::memcpy(pixels->data() + offsetOf(left, row),
                    picture->data() + offsetOf(left - dx, row - dy),
                    static_cast<std::size_t>(keptColumns) * 4);
    const PixelSpan newRows{dy > 0 ? rows.first : top + keptRows, std::abs(dy)};
    const PixelSpan newColumns{dx > 0 ? columns.first : left + keptColumns, std::abs(dx)};
    paint(columns, newRows, *pixels);
    paint(newColumns, {top, keptRows}, *pixels);
    picture = std::move(pixels);
}

HeatMapSeries::HeatMapSeries() : d(std::make_unique<Private>()) {}

HeatMapSeries::HeatMapSeries(Grid grid, std::string name) : HeatMapSeries() {
    setGrid(std::move(grid));
    setName(std::move(name));
}

HeatMapSeries::~HeatMapSeries() = default;

void HeatMapSeries::setGrid(Grid grid) {
    d->grid = std::move(grid);
    d->followData();
    changed();
}

const Grid& HeatMapSeries::grid() const {
    return d->grid;
}

void HeatMapSeries::setColorScale(ColorScale scale) {
    d->colors = std::move(scale);
    d->followData();
    changed();
}

const ColorScale* HeatMapSeries::colorScale() const {
    return &d->colors;
}

void HeatMapSeries::setSampling(HeatMapSampling sampling) {
    d->sampling = sampling;
    changed();
}

HeatMapSampling HeatMapSeries::sampling() const {
    return d->sampling;
}

bool HeatMapSeries::takesCycleColor() const {
    return false;
}

Bounds HeatMapSeries::bounds(const Scale& x, const Scale& y) const {
    Bounds bounds;
    if (d->grid.isEmpty())
        return bounds;
    bounds.x = placedPart(d->grid.x(), d->grid.columns(), x);
    bounds.y = placedPart(d->grid.y(), d->grid.rows(), y);
    bounds.xFlush = true;
    bounds.yFlush = true;
    return bounds;
}

void HeatMapSeries::draw(Canvas& canvas) const {
    if (d->grid.isEmpty())
        return;
    const bool current = d->picture && d->revision == revision() && d->area == canvas.rect();
    if (!current || !sameView(d->x, canvas.x()) || !sameView(d->y, canvas.y())) {
        d->revision = revision();
        d->x = canvas.x();
        d->y = canvas.y();
        const auto right = wholeShift(d->base.x, d->x);
        const auto down = wholeShift(d->base.y, d->y);
        if (current && right && down && std::abs(*right - d->moved.x) < d->columns.count &&
            std::abs(*down - d->moved.y) < d->rows.count)
            d->moveTo({*right, *down});
        else
            d->paintAll(canvas);
    }
    canvas.drawImage(d->picture, d->columns.count, d->rows.count,
                     {static_cast<double>(d->columns.first), static_cast<double>(d->rows.first)});
}

void HeatMapSeries::drawLegendKey(Canvas& canvas, const Rect& area) const {
    constexpr int steps = 5;
    for (int i = 0; i < steps; ++i)
        canvas.fillRect({area.x + area.width * i / steps, area.y, area.width / steps, area.height},
                        d->colors.map().at(static_cast<double>(i) / (steps - 1)));
}

std::optional<NearestSample> HeatMapSeries::findNearest(const Point& pixel, const ScaleMap& x,
                                                        const ScaleMap& y) const {
    return cellBelow(d->grid, pixel, x, y);
}

} // namespace zembra
