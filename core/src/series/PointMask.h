// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace zembra {

/// Which points of a picture a stroke has reached: eight by four of them for each pixel, a bit for
/// each.
///
/// Tiles of eight by eight pixels lie together in memory, so that strokes of any direction stay
/// within few lines of a cache.
class PointMask {
public:
    /// A row of points in a tile; the leftmost one is the lowest bit. A byte belongs to a pixel.
    using Word = std::uint64_t;

    /// Points of a pixel.
    static constexpr int across = 8;
    static constexpr int down = 4;
    /// Pixels of a tile in each direction, and its rows of points.
    static constexpr int tileSide = 8;
    static constexpr int tileRows = tileSide * down;
    /// Points in a row of a tile.
    static constexpr unsigned wordSize = tileSide * across;

    /// The first row of points whose middles lie at `y` or below, and the middle of a row.
    static int rowFrom(double y) { return static_cast<int>(std::ceil(y * down - 0.5)); }
    static double middleOf(int pointRow) { return (pointRow + 0.5) / down; }

    /// Begins a picture of as many pixels, none of which is reached; what tiles have beside it is.
    void begin(int columns, int rows);
    int columns() const { return columnCount; }
    int rows() const { return rowCount; }
    /// Rows of points.
    int pointRows() const { return rowCount * down; }
    int tilesAcross() const { return tileCount; }
    int tilesDown() const { return (rowCount + tileSide - 1) / tileSide; }

    /// The rows of a tile one after another; those of the next tile to the right follow.
    Word* tile(int column, int row) { return tiles.data()->rows.data() + tileOffset(column, row); }
    const Word* tile(int column, int row) const {
        return tiles.data()->rows.data() + tileOffset(column, row);
    }

    /// The first word of a row of points; that of the tile to the right is `tileRows` words on.
    Word* row(int pointRow) {
        const auto place = static_cast<unsigned>(pointRow);
        return tile(0, static_cast<int>(place / tileRows)) + place % tileRows;
    }

    /// Reaches the points of a row, given by its first word, from `first` to before `end`.
    /// Requires: they belong to the picture.
    static void fill(Word* row, unsigned first, unsigned end) {
        if (first >= end)
            return;
        const unsigned place = first % wordSize;
        const unsigned count = end - first;
        if (count >= wordSize) {
            fillMany(row, first, end);
            return;
        }
        // Where the points end is hard to guess; most often nothing is added to the second word.
        Word* word = row + std::size_t{first / wordSize} * tileRows;
        const Word points = (Word{1} << count) - 1;
        word[0] |= points << place;
        word[tileRows] |= points >> 1 >> (wordSize - 1 - place);
    }

private:
    // So that rows which are filled together share a line of the cache.
    struct alignas(64) Tile {
        std::array<Word, tileRows> rows{};
    };

    std::size_t tileOffset(int column, int row) const {
        return (static_cast<std::size_t>(row) * static_cast<std::size_t>(tileCount) +
                static_cast<std::size_t>(column)) *
               tileRows;
    }
    static void fillMany(Word* row, unsigned first, unsigned end);

    int columnCount = 0;
    int rowCount = 0;
    int tileCount = 0;
    std::vector<Tile> tiles;
};

/// How many points of each pixel of a word are not reached, in the byte of the pixel.
inline PointMask::Word missingPoints(PointMask::Word word) {
    word = ~word;
    word = (word & 0x5555555555555555) + (word >> 1 & 0x5555555555555555);
    word = (word & 0x3333333333333333) + (word >> 2 & 0x3333333333333333);
    return (word + (word >> 4)) & 0x0F0F0F0F0F0F0F0F;
}

} // namespace zembra
