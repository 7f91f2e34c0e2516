// SPDX-License-Identifier: MIT
#include "CellPainter.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>

namespace zembra {

namespace {

// Has memory fetched that will be read soon.
void fetch([[maybe_unused]] const double* values) {
#if defined(__GNUC__)
    __builtin_prefetch(values);
#endif
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

bool isBeside(const Probes& probes) {
    return probes.count == 0;
}

} // namespace

CellPainter::CellPainter(const Grid& grid, const ColorScale& colors,
                         const std::vector<Probes>& columns)
    : grid(grid),
      probes(columns),
      colorOf(colors),
      someBeside(std::any_of(columns.begin(), columns.end(), isBeside)),
      columns(columns.size()) {
    constexpr std::ptrdiff_t most = blockPixels;
    auto from = std::find_if_not(probes.begin(), probes.end(), isBeside);
    while (from != probes.end()) {
        const auto to = std::find_if(from, from + std::min(most, probes.end() - from), isBeside);
        addBlock(static_cast<std::size_t>(from - probes.begin()),
                 static_cast<std::size_t>(to - from));
        from = std::find_if_not(to, probes.end(), isBeside);
    }
}

void CellPainter::addBlock(std::size_t firstPixel, std::size_t pixels) {
    std::size_t low = std::numeric_limits<std::size_t>::max();
    std::size_t high = 0;
    std::size_t looked = 0;
    for (std::size_t i = firstPixel; i < firstPixel + pixels; ++i) {
        for (std::size_t c = 0; c < probes[i].count; ++c) {
            low = std::min(low, probes[i].cells[c]);
            high = std::max(high, probes[i].cells[c]);
        }
        looked += probes[i].count;
    }
    Block block{firstPixel, pixels, low, high - low + 1, false};
    if (block.cells > worthwhile * looked)
        block = {firstPixel, pixels, listed.size(), looked, true};
    for (std::size_t i = firstPixel; i < firstPixel + pixels; ++i) {
        Column& column = columns[i];
        column.count = static_cast<std::uint16_t>(probes[i].count);
        column.places.fill(mostCells);
        for (std::size_t c = 0; c < probes[i].count; ++c) {
            const std::size_t cell = block.scattered ? listed.size() : probes[i].cells[c];
            column.places[c] = static_cast<std::uint16_t>(cell - block.firstCell);
            if (block.scattered)
                listed.push_back(probes[i].cells[c]);
        }
    }
    blocks.push_back(block);
}

CellPainter::Rows CellPainter::valuesOf(const Probes& row) const {
    Rows values{};
    for (std::size_t r = 0; r < row.count; ++r)
        values[r] = grid.row(row.cells[r]).data();
    return values;
}

template <class Sum>
void CellPainter::sumUpEach(const Block& block, Sum sum) {
    if (block.scattered) {
        for (std::size_t i = 0; i < block.cells; ++i)
            sums[i] = sum(listed[block.firstCell + i]);
    } else {
        for (std::size_t i = 0; i < block.cells; ++i)
            sums[i] = sum(block.firstCell + i);
    }
}

// All rows in one pass, which memory serves best.
void CellPainter::sumUp(const Block& block, const Probes& row, const Rows& values) {
    const double* const a = values[0];
    const double* const b = values[1];
    const double* const c = values[2];
    const double* const d = values[3];
    switch (row.count) {
    case 1:
        return sumUpEach(block, [=](std::size_t i) { return a[i]; });
    case 2:
        return sumUpEach(block, [=](std::size_t i) { return a[i] + b[i]; });
    case 3:
        return sumUpEach(block, [=](std::size_t i) { return a[i] + b[i] + c[i]; });
    default:
        return sumUpEach(block, [=](std::size_t i) { return a[i] + b[i] + (c[i] + d[i]); });
    }
}

double CellPainter::sumOf(const Column& column) const {
    const auto& places = column.places;
    return sums[places[0]] + sums[places[1]] + (sums[places[2]] + sums[places[3]]);
}

void CellPainter::paint(const Probes& row, const Probes& next, std::uint8_t* pixels) {
    const Rows values = valuesOf(row);
    const Rows nextValues = valuesOf(next);
    std::array<double, mostProbes + 1> weights{};
    for (std::size_t count = 1; count < weights.size(); ++count)
        weights[count] = 1.0 / static_cast<double>(row.count * count);
    if (someBeside)
        std::memset(pixels, 0, 4 * columns.size());
    for (const Block& block : blocks) {
        sumUp(block, row, values);
        for (std::size_t i = 0; i < block.pixels; ++i) {
            const std::size_t at = block.firstPixel + i;
            const Column& column = columns[at];
            // The cells of two pixels are about what a line of the cache holds.
            if (i % 2 == 0 && !block.scattered)
                for (std::size_t r = 0; r < next.count; ++r)
                    fetch(nextValues[r] + block.firstCell + column.places[0]);
            const double value = sumOf(column) * weights[column.count];
            std::uint32_t pixel = 0;
            // Missing values and overflows show in the sum.
            if (!colorOf.find(value, pixel))
                pixel = colorOf(std::isfinite(value) ? value : mean(grid, probes[at], row));
            std::memcpy(pixels + 4 * at, &pixel, 4);
        }
    }
}

} // namespace zembra
