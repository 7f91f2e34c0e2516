// SPDX-License-Identifier: MIT
#include "PointMask.h"

namespace zembra {

void PointMask::begin(int columns, int rows) {
    columnCount = columns;
    rowCount = rows;
    tileCount = (columns + tileSide - 1) / tileSide;
    // A tile more, because what ends in the last one looks beyond it.
    tiles.assign(tileOffset(1, tilesDown()) / tileRows, Tile{});
    const auto beside = static_cast<unsigned>(columns * across);
    for (int pointRow = 0; pointRow < tilesDown() * tileRows; ++pointRow)
        fill(row(pointRow), pointRow < pointRows() ? beside : 0,
             static_cast<unsigned>(tileCount) * wordSize);
}

void PointMask::fillMany(Word* row, unsigned first, unsigned end) {
    constexpr Word all = ~Word{0};
    const std::size_t last = (end - 1) / wordSize;
    std::size_t i = first / wordSize;
    row[i * tileRows] |= all << (first % wordSize);
    for (++i; i < last; ++i)
        row[i * tileRows] = all;
    row[last * tileRows] |= all >> (wordSize - 1 - (end - 1) % wordSize);
}

} // namespace zembra
