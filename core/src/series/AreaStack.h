// SPDX-License-Identifier: MIT
#pragma once

#include <zembra/data/Samples.h>

#include <cstddef>
#include <span>
#include <vector>

namespace zembra {

/// Samples at ascending positions, each one once; a value that is not finite is a gap.
struct StackRow {
    std::vector<double> x;
    std::vector<double> y;
    /// Where each of them comes from.
    std::vector<std::size_t> order;
};

/// In order of x, without those whose x is not finite; of equal ones the last counts.
StackRow stackRow(const Samples& samples);

/// The edges of an area that lies on others.
struct StackEdges {
    /// At the positions of the area and of all below it. Where the area has a gap, both do.
    Samples lower;
    Samples upper;
    /// The upper edge at the area's own samples alone.
    Samples tops;
};

/// Adds up what lies below an area and the area itself. Between samples a row is straight in data
/// units; beside them and in gaps it adds nothing. Sums are held within finite numbers.
/// Complexity: O(rows · samples).
StackEdges stackEdges(std::span<const StackRow* const> below, const StackRow& area);

} // namespace zembra
