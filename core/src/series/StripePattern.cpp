// SPDX-License-Identifier: MIT
#include "StripePattern.h"

#include <algorithm>

namespace zembra {

void StripePattern::assign(Place newStep, Place newWidth) {
    if (step == newStep && width == newWidth)
        return;
    step = newStep;
    width = newWidth;
    constexpr Place one = Place{1} << fractionBits;
    constexpr Place widest = PointMask::wordSize;
    for (rowCount = most; rowCount >= most / 2; rowCount /= 2) {
        const Place way = (rowCount - 1) * step;
        const Place points = ((way < 0 ? -way : way) + width) / one + 2;
        lead = std::min<Place>(way, 0);
        extent = static_cast<unsigned>(std::min(points, widest));
        if (points <= widest)
            break;
    }
    if (rowCount < most / 2) {
        rowCount = 0;
        return;
    }
    for (std::size_t phase = 0; phase < phases.size(); ++phase) {
        // The leftmost row begins in the middle of the phase.
        Place from = (2 * static_cast<Place>(phase) + 1) * (one >> (phaseBits + 1)) - lead;
        for (int row = 0; row < rowCount; ++row, from += step) {
            const Place first = from >> fractionBits;
            const Place end = (from + width) >> fractionBits;
            phases[phase][static_cast<std::size_t>(row)] =
                ((PointMask::Word{1} << (end - first)) - 1) << first;
        }
    }
}

} // namespace zembra
