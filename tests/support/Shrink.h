// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstddef>
#include <functional>
#include <vector>

/// Removes what it can from a failing sequence while it goes on failing, first large pieces, then
/// small ones, until no single step can be spared.
///
/// Source: A. Zeller, R. Hildebrandt, "Simplifying and Isolating Failure-Inducing Input" (2002),
/// without its complement tests.
template <class Step>
std::vector<Step> shrunk(std::vector<Step> sequence,
                         const std::function<bool(const std::vector<Step>&)>& fails) {
    std::size_t piece = std::max<std::size_t>(sequence.size() / 2, 1);
    while (!sequence.empty()) {
        bool removedAny = false;
        for (std::size_t start = 0; start < sequence.size();) {
            std::vector<Step> shorter = sequence;
            const auto first = shorter.begin() + static_cast<std::ptrdiff_t>(start);
            shorter.erase(first, first + static_cast<std::ptrdiff_t>(
                                             std::min(piece, sequence.size() - start)));
            if (fails(shorter)) {
                sequence = std::move(shorter);
                removedAny = true;
            } else {
                start += piece;
            }
        }
        if (piece == 1 && !removedAny)
            break;
        piece = std::max<std::size_t>(piece / 2, 1);
    }
    return sequence;
}
