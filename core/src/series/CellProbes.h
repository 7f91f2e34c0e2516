// SPDX-License-Identifier: MIT
#pragma once

#include <zembra/data/Grid.h>
#include <zembra/scale/ScaleMap.h>
#include <zembra/series/HeatMapSeries.h>

#include <array>
#include <cstddef>
#include <vector>

namespace zembra {

/// How many cells in a row a pixel looks at where it covers more.
constexpr std::size_t mostProbes = 4;

/// The cells that one column or row of pixels shows; none beside the grid.
struct Probes {
    std::array<std::size_t, mostProbes> cells = {};
    std::size_t count = 0;

    bool operator==(const Probes&) const = default;
};

/// Whole pixels side by side.
struct PixelRun {
    int first = 0;
    int count = 0;
};

/// Whether cells are smaller than pixels, and all of one size.
bool areFine(const GridSpan& span, std::size_t cells, const ScaleMap& map);

/// What each of the pixels shows of the cells along a span.
std::vector<Probes> probes(const PixelRun& pixels, const ScaleMap& map, const GridSpan& span,
                           std::size_t cells, HeatMapSampling sampling);

} // namespace zembra
