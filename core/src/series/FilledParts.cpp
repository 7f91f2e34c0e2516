// SPDX-License-Identifier: MIT
#include "FilledParts.h"

#include <algorithm>
#include <numeric>

namespace zembra {

namespace {

using Word = PointMask::Word;

constexpr int side = PointMask::tileSide;
// So few missing points of a column are below the shades that a picture has.
constexpr unsigned mostMissing = PointMask::tileRows * PointMask::across / 128;

// How many points are missing in each column of a tile.
class ColumnGaps {
public:
    explicit ColumnGaps(const Word* tile) {
        // A byte holds what eight rows can miss, and double that holds what all can.
        constexpr int together = 8;
        constexpr Word everyOther = 0x00FF00FF00FF00FF;
        for (int begin = 0; begin < PointMask::tileRows; begin += together) {
            Word missing = 0;
            for (int row = begin; row < begin + together; ++row)
                missing += missingPoints(tile[row]);
            even += missing & everyOther;
            odd += missing >> 8 & everyOther;
        }
    }

    unsigned operator[](int column) const {
        const Word counts = column % 2 == 0 ? even : odd;
        return static_cast<unsigned>(counts >> (column / 2 * 16) & 0xFFFF);
    }

private:
    Word even = 0;
    Word odd = 0;
};

// The byte of a column of pixels in the words of its tile.
Word columnOf(int column) {
    return Word{0xFF} << (column % side * PointMask::across);
}

// Whether so few points may be missing in one of some columns of a tile, told by their bytes.
bool isHopeful(const Word* tile, Word columns) {
    Word everywhere = ~Word{0};
    for (int row = 0; row < PointMask::tileRows; ++row)
        everywhere &= tile[row];
    // In bytes, a count above the limit reaches the highest bit.
    constexpr Word ones = 0x0101010101010101;
    const Word highest = 0x80 * ones & columns;
    return ((missingPoints(everywhere) + (0x7F - mostMissing) * ones) & highest) != highest;
}

} // namespace

void FilledParts::begin(const PointMask& mask) {
    columns = mask.columns();
    rows = mask.rows();
    bands = mask.tilesDown();
    openInBand.resize(static_cast<std::size_t>(bands) * static_cast<std::size_t>(columns));
    for (int band = 0; band < bands; ++band)
        std::iota(nextOpen(band), nextOpen(band) + columns, 0);
    longestRuns.assign(static_cast<std::size_t>(bands), {});
    openColumns = columns * bands;
    largest = {};
    work = 0;
    patience = leastPatience();
}

bool FilledParts::hides(int band, double low, double high) const {
    const double last = columns - 1;
    if (!(high >= 0.0 && low <= columns))
        return true;
    const auto first = static_cast<std::size_t>(std::clamp(low, 0.0, last));
    return nextOpen(band)[first] > static_cast<int>(std::min(high, last));
}

bool FilledParts::hides(const Rect& part) const {
    const auto bandAt = [](double y) { return static_cast<int>(y) / side; };
    const int last = std::min(bands - 1, bandAt(part.bottom()));
    for (int band = std::max(0, bandAt(part.top())); band <= last; ++band)
        if (!hides(band, part.left(), part.right()))
            return false;
    return true;
}

// Many times what a look costs, most of which goes into open columns.
int FilledParts::leastPatience() const {
    return 24 * openColumns + columns * bands / 4;
}

void FilledParts::lookAtAll(PointMask& mask) {
    work = 0;
    const int openBefore = openColumns;
    openColumns = 0;
    for (int band = 0; band < bands; ++band) {
        openColumns += closeColumns(mask, band);
        longestRuns[static_cast<std::size_t>(band)] = longestRun(band);
    }
    lookForCore();
    patience = openColumns > openBefore - openBefore / 32 ? 2 * patience : leastPatience();
}

// Fills columns that are all but full; how many remain.
int FilledParts::closeColumns(PointMask& mask, int band) {
    std::int32_t* next = nextOpen(band);
    int count = 0;
    // From the right, so that a column knows the next one that is open.
    int open = columns;
    for (int column = mask.tilesAcross() - 1; column >= 0; --column) {
        const int first = column * side;
        const int end = std::min(first + side, columns);
        if (next[first] >= end) {
            std::fill(next + first, next + end, open);
            continue;
        }
        Word* tile = mask.tile(column, band);
        Word closed = 0;
        for (int i = first; i < end; ++i)
            if (next[i] != i)
                closed |= columnOf(i);
        if (isHopeful(tile, ~closed)) {
            const ColumnGaps missing(tile);
            for (int i = first; i < end; ++i)
                if (missing[i % side] <= mostMissing)
                    closed |= columnOf(i);
            for (int row = 0; row < PointMask::tileRows; ++row)
                tile[row] |= closed;
        }
        for (int i = end - 1; i >= first; --i) {
            if ((closed & columnOf(i)) == 0) {
                open = i;
                ++count;
            }
            next[i] = open;
        }
    }
    return count;
}

FilledParts::Run FilledParts::longestRun(int band) const {
    Run longest;
    const std::int32_t* next = nextOpen(band);
    for (int i = 0; i < columns; i = next[i] + 1)
        if (next[i] - i > longest.end - longest.begin)
            longest = {i, next[i]};
    return longest;
}

// Of the longest full part of each band, what several bands in a row have in common.
void FilledParts::lookForCore() {
    Run across;
    Run down;
    int most = 0;
    for (int first = 0; first < bands; ++first) {
        Run common{0, columns};
        for (int last = first; last < bands; ++last) {
            const Run& run = longestRuns[static_cast<std::size_t>(last)];
            common = {std::max(common.begin, run.begin), std::min(common.end, run.end)};
            const int width = common.end - common.begin;
            if (width <= 0)
                break;
            const Run high{first * side, std::min((last + 1) * side, rows)};
            if (width * (high.end - high.begin) > most) {
                most = width * (high.end - high.begin);
                across = common;
                down = high;
            }
        }
    }
    constexpr double far = 1e6;
    const double left = across.begin > 0 ? across.begin : -far;
    const double right = across.end < columns ? across.end : far;
    const double top = down.begin > 0 ? down.begin : -far;
    const double bottom = down.end < rows ? down.end : far;
    if (most > 0)
        largest = {left, top, right - left, bottom - top};
}

} // namespace zembra
