// SPDX-License-Identifier: MIT
#include <zembra/series/HeatMapSeries.h>

#include "GridCells.h"

#include <zembra/series/Canvas.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <limits>
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

bool sameView(const ScaleMap& a, const ScaleMap& b) {
    return a.p1() == b.p1() && a.p2() == b.p2() && a.s1() == b.s1() && a.s2() == b.s2() &&
           a.scale() == b.scale();
}

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

    Pixels render() const;
};

HeatMapSeries::Private::Pixels HeatMapSeries::Private::render() const {
    auto pixels = std::make_shared<std::vector<std::uint8_t>>();
    pixels->reserve(static_cast<std::size_t>(columns.count) * static_cast<std::size_t>(rows.count) *
                    4);
    const auto across = probes(columns, x, grid.x(), grid.columns(), sampling);
    const auto down = probes(rows, y, grid.y(), grid.rows(), sampling);
    for (const Probes& row : down)
        for (const Probes& column : across) {
            Color color(0, 0, 0, 0);
            if (row.count > 0 && column.count > 0)
                color = colors.color(mean(grid, column, row));
            pixels->insert(pixels->end(),
                           {color.red(), color.green(), color.blue(), color.alpha()});
        }
    return pixels;
}

HeatMapSeries::HeatMapSeries() : d(std::make_unique<Private>()) {}

HeatMapSeries::HeatMapSeries(Grid grid, std::string name) : HeatMapSeries() {
    setGrid(std::move(grid));
    setName(std::move(name));
}

HeatMapSeries::~HeatMapSeries() = default;

void HeatMapSeries::setGrid(Grid grid) {
    d->grid = std::move(grid);
    d->colors.setDataRange(d->grid.valueRange(d->colors.scale()));
    changed();
}

const Grid& HeatMapSeries::grid() const {
    return d->grid;
}

void HeatMapSeries::setColorScale(ColorScale scale) {
    d->colors = std::move(scale);
    d->colors.setDataRange(d->grid.valueRange(d->colors.scale()));
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

Bounds HeatMapSeries::bounds(const Scale& x, const Scale& y) const {
    Bounds bounds;
    if (d->grid.isEmpty())
        return bounds;
    bounds.x = placedPart(d->grid.x(), d->grid.columns(), x);
    bounds.y = placedPart(d->grid.y(), d->grid.rows(), y);
    return bounds;
}

void HeatMapSeries::draw(Canvas& canvas) const {
    const Rect& area = canvas.rect();
    const bool fresh = d->picture && d->revision == revision() && d->area == area &&
                       sameView(d->x, canvas.x()) && sameView(d->y, canvas.y());
    if (!fresh) {
        d->revision = revision();
        d->area = area;
        d->x = canvas.x();
        d->y = canvas.y();
        d->columns = wholePixels(area.left(), area.right());
        d->rows = wholePixels(area.top(), area.bottom());
        // The old picture lives until the new one is there, so that the two differ in address.
        d->picture = d->grid.isEmpty() ? nullptr : d->render();
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
