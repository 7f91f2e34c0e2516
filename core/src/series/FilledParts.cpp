// SPDX-License-Identifier: MIT
#include "FilledParts.h"

#include <algorithm>
#include <array>
#include <numeric>

namespace zembra {

namespace {

// So few missing points of a column are below the shades that a picture has.
constexpr int mostMissing = FilledParts::bandRows * pointsAcross / 128;

using Counts = std::array<std::uint8_t, maskTogether>;

// Keeps counts from growing where they are high already, and tells the least one.
std::uint8_t capped(Counts& counts) {
    constexpr std::uint8_t high = 64;
    std::uint8_t least = high;
    for (std::uint8_t& count : counts) {
        count = count < high ? count : high;
        least = count < least ? count : least;
    }
    return least;
}

// How many points are missing in some columns that begin at `points`, or in each of them too many.
Counts missingIn(const std::uint8_t* points, std::size_t stride, int pointRows) {
    Counts missing{};
    bool hopeful = true;
    for (int row = 0; row < pointRows && hopeful; ++row, points += stride) {
        for (std::size_t i = 0; i < missing.size(); ++i)
            missing[i] = static_cast<std::uint8_t>(missing[i] + missingPoints(points[i]));
        // Long before a byte runs over.
        if (row % 8 == 7)
            hopeful = capped(missing) <= mostMissing;
    }
    return missing;
}

} // namespace

void FilledParts::begin(int left, int top, int columns, int rows) {
    this->left = left;
    this->top = top;
    this->columns = columns;
    this->rows = rows;
    bands = (rows * pointsDown + bandRows - 1) / bandRows;
    openInBand.clear();
    largest = {};
    openColumns = static_cast<std::size_t>(bands) * static_cast<std::size_t>(columns);
    work = 0;
    patience = leastPatience();
}

bool FilledParts::hides(int band, double low, double high) const {
    const double limit = columns - 1;
    if (!(high >= left && low <= left + limit + 1.0))
        return true;
    if (openInBand.empty())
        return false;
    const auto first = static_cast<std::size_t>(std::clamp(low - left, 0.0, limit));
    const int last = static_cast<int>(std::min(high - left, limit));
    return openInBand[static_cast<std::size_t>(band) * static_cast<std::size_t>(columns) + first] >
           last;
}

bool FilledParts::hides(const Rect& part) const {
    const auto bandAt = [this](double y) {
        return static_cast<int>((y - top) * pointsDown) / bandRows;
    };
    const int last = std::min(bands - 1, bandAt(part.bottom()));
    for (int band = std::max(0, bandAt(part.top())); band <= last; ++band)
        if (!hides(band, part.left(), part.right()))
            return false;
    return true;
}

// A look costs about as much as passing by this many rows.
std::size_t FilledParts::leastPatience() const {
    return (static_cast<std::size_t>(columns) * static_cast<std::size_t>(rows * pointsDown) +
            maskTogether) /
               8 +
           1;
}

void FilledParts::look(PointMask& mask) {
    if (work <= patience)
        return;
    work = 0;
    const std::size_t openBefore = openColumns;
    openColumns = 0;
    if (openInBand.empty()) {
        openInBand.resize(static_cast<std::size_t>(bands) * static_cast<std::size_t>(columns));
        for (auto band = openInBand.begin(); band != openInBand.end(); band += columns)
            std::iota(band, band + columns, 0);
    }
    for (int band = 0; band < bands; ++band)
        lookAtBand(band, mask);
    lookForCore();
    patience = openColumns > openBefore - openBefore / 8 ? 2 * patience : leastPatience();
}

void FilledParts::lookAtBand(int band, PointMask& mask) {
    const auto stride = static_cast<std::size_t>(columns);
    std::int32_t* next = openInBand.data() + static_cast<std::size_t>(band) * stride;
    if (next[0] == columns)
        return;
    const int begin = band * bandRows;
    const int pointRows = std::min(bandRows, rows * pointsDown - begin);
    std::uint8_t* points = mask.data() + static_cast<std::size_t>(begin) * stride;
    // From the right, so that a column knows the next one that is open.
    std::int32_t open = columns;
    for (std::int32_t group = (columns - 1) / maskTogether * maskTogether; group >= 0;
         group -= maskTogether) {
        const std::int32_t last = std::min(group + maskTogether, columns);
        if (next[group] >= last) {
            std::fill(next + group, next + last, open);
            continue;
        }
        const Counts missing = missingIn(points + group, stride, pointRows);
        for (std::int32_t i = last - 1; i >= group; --i) {
            if (missing[static_cast<std::size_t>(i - group)] > mostMissing) {
                open = i;
                ++openColumns;
            } else if (next[i] == i) {
                for (int row = 0; row < pointRows; ++row)
                    points[static_cast<std::size_t>(row) * stride + static_cast<std::size_t>(i)] =
                        0xFF;
            }
            next[i] = open;
        }
    }
}

// Of the longest full part of each band, what several bands in a row have in common.
void FilledParts::lookForCore() {
    struct Run {
        std::int32_t begin = 0;
        std::int32_t end = 0;
    };
    std::vector<Run> longest(static_cast<std::size_t>(bands));
    for (std::size_t band = 0; band < longest.size(); ++band) {
        const std::int32_t* next = openInBand.data() + band * static_cast<std::size_t>(columns);
        for (std::int32_t i = 0; i < columns; i = next[i] + 1)
            if (next[i] - i > longest[band].end - longest[band].begin)
                longest[band] = {i, next[i]};
    }
    constexpr double bandHeight = static_cast<double>(bandRows) / pointsDown;
    double most = 0.0;
    for (int first = 0; first < bands; ++first) {
        Run common{0, columns};
        for (int band = first; band < bands; ++band) {
            const Run& run = longest[static_cast<std::size_t>(band)];
            common = {std::max(common.begin, run.begin), std::min(common.end, run.end)};
            const double width = common.end - common.begin;
            if (width <= 0.0)
                break;
            const double begin = first * bandHeight;
            const double height = std::min<double>((band + 1) * bandHeight, rows) - begin;
            if (width * height > most) {
                most = width * height;
                largest = {left + static_cast<double>(common.begin), top + begin, width, height};
            }
        }
    }
}

} // namespace zembra
