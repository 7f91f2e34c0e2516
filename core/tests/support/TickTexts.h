// SPDX-License-Identifier: MIT
#pragma once

#include <zembra/scale/Scale.h>

#include <sstream>
#include <string>

namespace zembra::test {

inline TickRequest most(int maxMajor) {
    TickRequest request;
    request.maxMajor = maxMajor;
    return request;
}

/// The labels of all ticks between spaces, then the common part, if there is one.
inline std::string labelLine(const TickSet& set) {
    std::string text;
    for (const Tick& tick : set.major)
        text += (text.empty() ? "" : " ") + tick.label;
    return text + (set.offset.empty() ? "" : " (" + set.offset + ")");
}

/// The minor ticks between spaces, with six digits.
inline std::string minorLine(const TickSet& set) {
    std::ostringstream text;
    for (const double value : set.minor)
        text << (text.tellp() > 0 ? " " : "") << value;
    return text.str();
}

} // namespace zembra::test
