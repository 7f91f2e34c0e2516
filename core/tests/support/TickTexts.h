// SPDX-License-Identifier: MIT
#pragma once

#include <zembra/scale/Scale.h>

#include <cstdint>
#include <cstdlib>
#include <sstream>
#include <string>
#include <vector>

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

/// The places of the major ticks.
inline std::vector<double> valuesOf(const TickSet& set) {
    std::vector<double> values;
    for (const Tick& tick : set.major)
        values.push_back(tick.value);
    return values;
}

/// `digits` × 10^`exponent`, as a reader of the text gets it.
inline double decimal(std::int64_t digits, int exponent) {
    return std::strtod((std::to_string(digits) + "e" + std::to_string(exponent)).c_str(), nullptr);
}

} // namespace zembra::test
