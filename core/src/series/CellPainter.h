// SPDX-License-Identifier: MIT
#pragma once

#include "CellProbes.h"
#include "PixelColors.h"

#include <zembra/data/Grid.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace zembra {

/// Paints rows of pixels in the colours of the cells below them.
///
/// Cells are summed up in blocks that stay in the nearest cache until they have become colours.
/// Meanwhile those of the next row are on their way, so that memory and arithmetic do not wait for
/// each other.
class CellPainter {
public:
    /// `columns` tells what each pixel of a row looks at. Requires: all of them outlive the result.
    CellPainter(const Grid& grid, const ColorScale& colors, const std::vector<Probes>& columns);

    /// Paints a row of pixels, those beside the grid transparent. `next` should be what is painted
    /// after it. Requires: `row` looks at cells.
    void paint(const Probes& row, const Probes& next, std::uint8_t* pixels);

private:
    static constexpr std::size_t blockPixels = 64;
    // Cells in a row are summed up faster than half of them one by one.
    static constexpr std::size_t worthwhile = 2;
    static constexpr std::size_t mostCells = worthwhile * blockPixels * mostProbes;

    // Neighbouring pixels that look at cells.
    struct Block {
        std::size_t firstPixel = 0;
        std::size_t pixels = 0;
        // In a row of the grid; in `listed` where the cells are scattered.
        std::size_t firstCell = 0;
        std::size_t cells = 0;
        bool scattered = false;
    };

    // Where in the sums of its block a pixel finds its cells. Where they are fewer, the others are
    // the last place, which is always nothing, so that all pixels take the same way.
    struct Column {
        std::array<std::uint16_t, mostProbes> places{};
        std::uint16_t count = 0;
    };

    // The values of the rows that a pixel looks at, from their first column on.
    using Rows = std::array<const double*, mostProbes>;

    void addBlock(std::size_t firstPixel, std::size_t pixels);
    Rows valuesOf(const Probes& row) const;
    template <class Sum>
    void sumUpEach(const Block& block, Sum sum);
    void sumUp(const Block& block, const Probes& row, const Rows& values);
    // Requires: the pixel looks at a cell.
    double sumOf(const Column& column) const;

    const Grid& grid;
    const std::vector<Probes>& probes;
    PixelColors colorOf;
    bool someBeside = false;
    std::vector<Block> blocks;
    std::vector<Column> columns;
    std::vector<std::size_t> listed;
    std::array<double, mostCells + 1> sums{};
};

} // namespace zembra
