// SPDX-License-Identifier: MIT
#include <zembra/series/HeatMapSeries.h>

#include "CellPainter.h"
#include "CellProbes.h"
#include "Clip.h"
#include "GridCells.h"

#include <zembra/series/Canvas.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <memory>
#include <optional>
#include <utility>

namespace zembra {

namespace {

// The whole pixels between two positions. Canvases are never wider than painters can bear.
PixelRun wholePixels(double low, double high) {
    const int first = static_cast<int>(std::ceil(std::clamp(low, -farthest, farthest)));
    const int last = static_cast<int>(std::floor(std::clamp(high, -farthest, farthest)));
    return {first, std::max(last - first, 0)};
}

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

// Fine cells are drawn up to half a pixel off, so that an edge of the grid falls between two
// pixels. A pan then moves the pixels and keeps what each of them shows: colours do not flicker,
// and only what comes into view is painted.
ScaleMap snapped(const ScaleMap& map, const GridSpan& span, std::size_t cells) {
    if (!areFine(span, cells, map))
        return map;
    const double first = map.transform(span.first);
    const double shift = (std::round(first) - first) / (map.p2() - map.p1());
    const double offset = shift * (map.s2() - map.s1());
    return {map.scale(), map.p1(), map.p2(), map.s1() - offset, map.s2() - offset};
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
    using Pixels = std::shared_ptr<std::vector<std::uint8_t>>;

    Grid grid;
    ColorScale colors;
    HeatMapSampling sampling = HeatMapSampling::Mean;

    // The last picture and what it shows.
    Pixels picture;
    // The one before, for its memory.
    Pixels spare;
    std::uint64_t revision = 0;
    Rect area;
    ScaleMap x;
    ScaleMap y;
    PixelRun columns;
    PixelRun rows;
    // The view for which all of it was painted, and how far it has moved since: from there, so that
    // no errors add up.
    View base;
    PixelShift moved;

    void followData();
    void paint(const PixelRun& across, const PixelRun& down,
               std::vector<std::uint8_t>& pixels) const;
    std::size_t offsetOf(int column, int row) const;
    // Memory for a picture, with anything in it.
    Pixels newPixels();
    void replacePicture(Pixels pixels);
    void paintAll(const Rect& canvas);
    void moveTo(const PixelShift& place);
};

// A pass over all values, which a fixed range does not need.
void HeatMapSeries::Private::followData() {
    if (colors.isAutoRange())
        colors.setDataRange(grid.valueRange(colors.scale()));
}

void HeatMapSeries::Private::paint(const PixelRun& across, const PixelRun& down,
                                   std::vector<std::uint8_t>& pixels) const {
    const auto columnProbes = probes(across, x, grid.x(), grid.columns(), sampling);
    const auto rowProbes = probes(down, y, grid.y(), grid.rows(), sampling);
    CellPainter painter(grid, colors, columnProbes);
    for (int k = 0; k < down.count; ++k) {
        const Probes& row = rowProbes[static_cast<std::size_t>(k)];
        std::uint8_t* target = pixels.data() + offsetOf(across.first, down.first + k);
        if (row.count == 0)
            std::memset(target, 0, columnProbes.size() * 4);
        else if (k > 0 && row == rowProbes[static_cast<std::size_t>(k - 1)])
            std::memcpy(target, target - static_cast<std::size_t>(columns.count) * 4,
                        columnProbes.size() * 4);
        else
            painter.paint(row, rowProbes[static_cast<std::size_t>(std::min(k + 1, down.count - 1))],
                          target);
    }
}

std::size_t HeatMapSeries::Private::offsetOf(int column, int row) const {
    return (static_cast<std::size_t>(row - rows.first) * static_cast<std::size_t>(columns.count) +
            static_cast<std::size_t>(column - columns.first)) *
           4;
}

HeatMapSeries::Private::Pixels HeatMapSeries::Private::newPixels() {
    const std::size_t bytes =
        static_cast<std::size_t>(columns.count) * static_cast<std::size_t>(rows.count) * 4;
    if (!spare || spare.use_count() > 1 || spare->capacity() < bytes)
        return std::make_shared<std::vector<std::uint8_t>>(bytes);
    spare->resize(bytes);
    return std::move(spare);
}

// The old picture is kept, so that the two differ in address.
void HeatMapSeries::Private::replacePicture(Pixels pixels) {
    spare = std::exchange(picture, std::move(pixels));
}

void HeatMapSeries::Private::paintAll(const Rect& canvas) {
    area = canvas;
    base = {x, y};
    moved = {};
    columns = wholePixels(area.left(), area.right());
    rows = wholePixels(area.top(), area.bottom());
    Pixels pixels = newPixels();
    paint(columns, rows, *pixels);
    replacePicture(std::move(pixels));
}

// Moves what the picture shows already, and paints what comes into view.
void HeatMapSeries::Private::moveTo(const PixelShift& place) {
    const int dx = place.x - moved.x;
    const int dy = place.y - moved.y;
    if (dx == 0 && dy == 0)
        return;
    moved = place;
    Pixels pixels = newPixels();
    const int keptColumns = columns.count - std::abs(dx);
    const int keptRows = rows.count - std::abs(dy);
    const int left = columns.first + std::max(dx, 0);
    const int top = rows.first + std::max(dy, 0);
    for (int row = top; row < top + keptRows; ++row)
        std::memcpy(pixels->data() + offsetOf(left, row),
                    picture->data() + offsetOf(left - dx, row - dy),
                    static_cast<std::size_t>(keptColumns) * 4);
    const PixelRun newRows{dy > 0 ? rows.first : top + keptRows, std::abs(dy)};
    const PixelRun newColumns{dx > 0 ? columns.first : left + keptColumns, std::abs(dx)};
    paint(columns, newRows, *pixels);
    paint(newColumns, {top, keptRows}, *pixels);
    replacePicture(std::move(pixels));
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
    const View view{snapped(canvas.x(), d->grid.x(), d->grid.columns()),
                    snapped(canvas.y(), d->grid.y(), d->grid.rows())};
    if (!current || !sameView(d->x, view.x) || !sameView(d->y, view.y)) {
        d->revision = revision();
        d->x = view.x;
        d->y = view.y;
        const auto right = wholeShift(d->base.x, d->x);
        const auto down = wholeShift(d->base.y, d->y);
        if (current && right && down && std::abs(*right - d->moved.x) < d->columns.count &&
            std::abs(*down - d->moved.y) < d->rows.count)
            d->moveTo({*right, *down});
        else
            d->paintAll(canvas.rect());
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
