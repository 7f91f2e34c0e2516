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

    bool operator==(const Probes&) const = default;
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

// Whether cells are smaller than pixels, and all of one size.
bool areFine(const GridSpan& span, std::size_t cells, const ScaleMap& map) {
    const double length = map.transform(span.last) - map.transform(span.first);
    return map.scale().isLinear() && std::abs(length) < static_cast<double>(cells);
}

std::vector<Probes> probes(const PixelSpan& pixels, const ScaleMap& map, const GridSpan& span,
                           std::size_t cells, HeatMapSampling sampling) {
    std::vector<Probes> result(static_cast<std::size_t>(pixels.count));
    // Where many edges of cells and pixels meet, errors of rounding must not decide: a cell begins
    // at its first edge.
    const double hair = areFine(span, cells, map) ? 1e-3 : 0.0;
    const bool forward = map.transform(span.last) > map.transform(span.first);
    for (int i = 0; i < pixels.count; ++i) {
        Probes& probes = result[static_cast<std::size_t>(i)];
        const double pixel = pixels.first + i;
        const auto at = [&](double place) {
            return cellAt(span, cells, map.invTransform(pixel + place));
        };
        const auto middle = at(forward ? 0.5 + hair : 0.5 - hair);
        if (!middle)
            continue;
        const std::size_t one = at(hair).value_or(*middle);
        const std::size_t other = at(1.0 - hair).value_or(*middle);
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

// The sums of the cells below a row of pixels, by columns of pixels.
class RowSums {
public:
    RowSums(const Grid& grid, const std::vector<Probes>& pixels) : grid(grid) {
        std::vector<std::size_t> looked;
        for (const Probes& probes : pixels)
            looked.insert(looked.end(), probes.cells.begin(),
                          probes.cells.begin() + static_cast<std::ptrdiff_t>(probes.count));
        std::sort(looked.begin(), looked.end());
        looked.erase(std::unique(looked.begin(), looked.end()), looked.end());
        if (looked.empty())
            return;
        first = looked.front();
        const std::size_t width = looked.back() + 1 - first;
        // Cells in a row are summed up faster than half of them one by one.
        if (width > 2 * looked.size())
            scattered = std::move(looked);
        sums.resize(width + 1);
        columns.reserve(pixels.size());
        for (const Probes& probes : pixels) {
            Column& column = columns.emplace_back();
            column.fill(width);
            for (std::size_t c = 0; c < probes.count; ++c)
                column[c] = probes.cells[c] - first;
        }
    }

    void assign(const Probes& rows) {
        if (columns.empty())
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

    // Requires: the pixel looks at a cell.
    double of(std::size_t pixel) const {
        const Column& cells = columns[pixel];
        return sums[cells[0]] + sums[cells[1]] + (sums[cells[2]] + sums[cells[3]]);
    }

private:
    // Places in the sums; the last one, which is always nothing, where there are fewer cells, so
    // that all pixels take the same way.
    using Column = std::array<std::size_t, mostProbes>;

    template <class Sum>
    void assignEach(Sum sum) {
        if (scattered.empty()) {
            for (std::size_t i = 0; i + 1 < sums.size(); ++i)
                sums[i] = sum(i);
        } else {
            for (const std::size_t cell : scattered)
                sums[cell - first] = sum(cell - first);
        }
    }

    const Grid& grid;
    std::vector<Column> columns;
    std::size_t first = 0;
    // The cells that are looked at, where they are few in a row.
    std::vector<std::size_t> scattered;
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
        const bool linear =
            colors.scale().isLinear() && std::isfinite(slope) && std::isfinite(offset);
        if (!linear)
            offset = std::numeric_limits<double>::quiet_NaN();
        for (std::size_t i = 0; linear && i < table.size(); ++i)
            table[i] = packed(colors.map().at(static_cast<double>(i) / last));
    }

    // The colour of a value, if there is a short way to it.
    bool find(double value, std::uint32_t& pixel) const {
        const double place = value * slope + offset;
        if (!std::isfinite(place))
            return false;
        pixel = table[static_cast<std::size_t>(static_cast<int>(std::clamp(place, 0.0, last)))];
        return true;
    }

    std::uint32_t operator()(double value) const {
        std::uint32_t pixel = 0;
        return find(value, pixel) ? pixel : packed(colors.color(value));
    }

private:
    static constexpr double last = 255.0;

    const ColorScale& colors;
    double slope = 0.0;
    // NaN where there is no straight line.
    double offset = 0.0;
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
    Pixels blankPixels();
    void replacePicture(Pixels pixels);
    void paintAll(const Rect& canvas);
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
        std::uint8_t* target = pixels.data() + offsetOf(across.first, down.first + k);
        if (k > 0 && row == rowProbes[static_cast<std::size_t>(k - 1)]) {
            std::memcpy(target, target - static_cast<std::size_t>(columns.count) * 4,
                        columnProbes.size() * 4);
            continue;
        }
        sums.assign(row);
        std::array<double, mostProbes + 1> weights{};
        for (std::size_t count = 1; count < weights.size(); ++count)
            weights[count] = 1.0 / static_cast<double>(row.count * count);
        for (std::size_t i = 0; i < columnProbes.size(); ++i) {
            const Probes& column = columnProbes[i];
            if (column.count == 0)
                continue;
            const double value = sums.of(i) * weights[column.count];
            std::uint32_t pixel = 0;
            // Missing values and overflows show in the sum.
            if (!colorOf.find(value, pixel))
                pixel = colorOf(std::isfinite(value) ? value : mean(grid, column, row));
            std::memcpy(target + 4 * i, &pixel, 4);
        }
    }
}

std::size_t HeatMapSeries::Private::offsetOf(int column, int row) const {
    return (static_cast<std::size_t>(row - rows.first) * static_cast<std::size_t>(columns.count) +
            static_cast<std::size_t>(column - columns.first)) *
           4;
}

HeatMapSeries::Private::Pixels HeatMapSeries::Private::blankPixels() {
    const std::size_t bytes =
        static_cast<std::size_t>(columns.count) * static_cast<std::size_t>(rows.count) * 4;
    if (!spare || spare.use_count() > 1 || spare->capacity() < bytes)
        return std::make_shared<std::vector<std::uint8_t>>(bytes);
    spare->assign(bytes, 0);
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
    Pixels pixels = blankPixels();
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
    Pixels pixels = blankPixels();
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
