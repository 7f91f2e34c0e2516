// SPDX-License-Identifier: MIT
#include "CellProbes.h"

#include "GridCells.h"

#include <algorithm>
#include <cmath>

namespace zembra {

bool areFine(const GridSpan& span, std::size_t cells, const ScaleMap& map) {
    const double length = map.transform(span.last) - map.transform(span.first);
    return map.scale().isLinear() && std::abs(length) < static_cast<double>(cells);
}

std::vector<Probes> probes(const PixelRun& pixels, const ScaleMap& map, const GridSpan& span,
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

} // namespace zembra
