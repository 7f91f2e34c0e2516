// SPDX-License-Identifier: MIT
#pragma once

#include "PointMask.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace zembra {

/// What a slanted stripe covers of some rows of a mask, ready to be put wherever it passes by: many
/// times faster than row by row. It is placed to a sixteenth of a point.
///
/// Units: points of a mask, with 32 bits for their fractions.
class StripePattern {
public:
    using Place = std::int64_t;
    static constexpr int fractionBits = 32;

    /// Prepares for a stripe of some width that moves right by `step` from row to row.
    void assign(Place step, Place width);
    /// How many rows are put at once: eight, or four where that would be too wide; none where they
    /// are as well.
    int rows() const { return rowCount; }
    /// Fills `rows()` rows from `row` on, the first word of the first of them; `from` is where the
    /// stripe begins there. Requires: they lie in one tile, and points beside the stripe belong to
    /// the mask.
    void fill(PointMask::Word* row, Place from) const {
        if (rowCount == most)
            fillRows<most>(row, from);
        else
            fillRows<most / 2>(row, from);
    }

private:
    static constexpr int most = 8;
    static constexpr int phaseBits = 3;

    template <int count>
    void fillRows(PointMask::Word* row, Place from) const;

    Place step = 0;
    Place width = 0;
    int rowCount = 0;
    // From the first row to the leftmost one.
    Place lead = 0;
    // Points from the leftmost to the rightmost one.
    unsigned extent = 0;
    std::array<std::array<PointMask::Word, most>, 1 << phaseBits> phases{};
};

template <int count>
void StripePattern::fillRows(PointMask::Word* row, Place from) const {
    using Word = PointMask::Word;
    const Place leftmost = from + lead;
    const auto first = static_cast<unsigned>(leftmost >> fractionBits);
    const auto phase = static_cast<std::size_t>(leftmost >> (fractionBits - phaseBits));
    const Word* points = phases[phase % phases.size()].data();
    const unsigned place = first % PointMask::wordSize;
    Word* words = row + std::size_t{first / PointMask::wordSize} * PointMask::tileRows;
    // Apart from the mask, so that they are moved together.
    std::array<Word, count> moved;
    for (std::size_t k = 0; k < count; ++k)
        moved[k] = points[k] << place;
    for (std::size_t k = 0; k < count; ++k)
        words[k] |= moved[k];
    if (place + extent <= PointMask::wordSize)
        return;
    words += PointMask::tileRows;
    for (std::size_t k = 0; k < count; ++k)
        moved[k] = points[k] >> (PointMask::wordSize - place);
    for (std::size_t k = 0; k < count; ++k)
        words[k] |= moved[k];
}

} // namespace zembra
