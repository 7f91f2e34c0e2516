// SPDX-License-Identifier: MIT
#include "FilledParts.h"

#include <algorithm>
#include <array>
#include <bit>

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

// The byte of a column of a tile in its words.
Word columnOf(int column) {
    return Word{0xFF} << (column * PointMask::across);
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
    bitsAcross = static_cast<std::size_t>(columns + bitsSize - 1) / bitsSize;
    full.assign(static_cast<std::size_t>(bands) * bitsAcross, 0);
    if (columns % bitsSize != 0)
        for (int band = 0; band < bands; ++band)
            fullIn(band)[bitsAcross - 1] = ~Bits{0} << (columns % bitsSize);
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
    const auto end = static_cast<std::size_t>(std::min(high, last));
    if (end < first)
        return true;
    const Bits* bits = fullIn(band);
    const Bits fromFirst = ~Bits{0} << (first % bitsSize);
    const Bits toEnd = ~Bits{0} >> (bitsSize - 1 - end % bitsSize);
    std::size_t i = first / bitsSize;
    const std::size_t lastBits = end / bitsSize;
    if (i == lastBits)
        return (~bits[i] & fromFirst & toEnd) == 0;
    if ((~bits[i] & fromFirst) != 0)
        return false;
    for (++i; i < lastBits; ++i)
        if (~bits[i] != 0)
            return false;
    return (~bits[i] & toEnd) == 0;
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
std::int64_t FilledParts::leastPatience() const {
    return std::int64_t{24} * openColumns + std::int64_t{columns} * bands / 4;
}

void FilledParts::lookAtAll(PointMask& mask) {
    work = 0;
    const int openBefore = openColumns;
    openColumns = 0;
    for (int band = 0; band < bands; ++band) {
        openColumns += closeColumns(mask, band);
        longestRuns[static_cast<std::size_t>(band)] = longestRun(band);
    }
    lookForCore(mask);
    patience = openColumns > openBefore - openBefore / 32 ? 2 * patience : leastPatience();
}

// Fills columns that are all but full; how many remain.
int FilledParts::closeColumns(PointMask& mask, int band) {
    int count = 0;
    for (int column = 0; column < mask.tilesAcross(); ++column) {
        const int first = column * side;
        Bits& bits = fullIn(band)[first / bitsSize];
        const int place = first % bitsSize;
        const unsigned before = static_cast<unsigned>(bits >> place) & 0xFF;
        if (before == 0xFF)
            continue;
        Word* tile = mask.tile(column, band);
        Word closed = 0;
        for (int i = 0; i < side; ++i)
            if ((before >> i & 1) != 0)
                closed |= columnOf(i);
        unsigned now = before;
        if (isHopeful(tile, ~closed)) {
            const ColumnGaps missing(tile);
            for (int i = 0; i < side; ++i) {
                if (missing[i] > mostMissing)
                    continue;
                now |= 1U << i;
                closed |= columnOf(i);
            }
            for (int row = 0; row < PointMask::tileRows; ++row)
                tile[row] |= closed;
            bits |= Bits{now} << place;
        }
        count += side - std::popcount(now);
    }
    return count;
}

// The first column from one on that is full, or that is not; at most the one beside the picture.
int FilledParts::nextColumn(int band, int from, bool isFull) const {
    const Bits* bits = fullIn(band);
    const Bits others = isFull ? 0 : ~Bits{0};
    auto i = static_cast<std::size_t>(from) / bitsSize;
    if (i >= bitsAcross)
        return columns;
    Bits found = (bits[i] ^ others) & (~Bits{0} << (from % bitsSize));
    while (found == 0 && ++i < bitsAcross)
        found = bits[i] ^ others;
    if (found == 0)
        return columns;
    return std::min(columns, static_cast<int>(i) * bitsSize + std::countr_zero(found));
}

FilledParts::Run FilledParts::longestRun(int band) const {
    Run longest;
    for (int begin = 0; begin < columns;) {
        begin = nextColumn(band, begin, true);
        const int end = nextColumn(band, begin, false);
        if (end - begin > longest.end - longest.begin)
            longest = {begin, end};
        begin = end;
    }
    return longest;
}

// The rows of pixels that are full within some columns, from the top and the bottom of a band on.
FilledParts::Rows FilledParts::fullRows(const PointMask& mask, const Run& part, int band) {
    std::array<Word, PointMask::tileRows> common;
    common.fill(~Word{0});
    for (int column = part.begin / side; column * side < part.end; ++column) {
        Word beside = 0;
        for (int i = 0; i < side; ++i)
            if (column * side + i < part.begin || column * side + i >= part.end)
                beside |= columnOf(i);
        const Word* tile = mask.tile(column, band);
        for (std::size_t row = 0; row < common.size(); ++row)
            common[row] &= tile[row] | beside;
    }
    const auto isOpen = [](Word word) { return word != ~Word{0}; };
    const auto above = std::find_if(common.begin(), common.end(), isOpen) - common.begin();
    const auto below = std::find_if(common.rbegin(), common.rend(), isOpen) - common.rbegin();
    return {static_cast<int>(above) / PointMask::down, static_cast<int>(below) / PointMask::down};
}

// Of the longest full part of each band, what several bands in a row have in common.
void FilledParts::lookForCore(const PointMask& mask) {
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
    if (most == 0)
        return;
    // Bands at its ends may be full in part.
    if (down.begin > 0)
        down.begin -= fullRows(mask, across, down.begin / side - 1).below;
    if (down.end < rows)
        down.end = std::min(rows, down.end + fullRows(mask, across, down.end / side).above);
    constexpr double far = 1e6;
    const double left = across.begin > 0 ? across.begin : -far;
    const double right = across.end < columns ? across.end : far;
    const double top = down.begin > 0 ? down.begin : -far;
    const double bottom = down.end < rows ? down.end : far;
    largest = {left, top, right - left, bottom - top};
}

} // namespace zembra
