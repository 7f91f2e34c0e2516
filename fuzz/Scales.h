// SPDX-License-Identifier: MIT
#pragma once

#include "Bytes.h"

#include <zembra/scale/NumberFormat.h>
#include <zembra/scale/Scale.h>

namespace fuzz {

inline constexpr std::array<const char*, 4> zones{"UTC", "Europe/Zurich", "America/St_Johns",
                                                  "Nowhere/At_All"};

inline zembra::Scale anyScale(Bytes& bytes) {
    using zembra::Scale;
    switch (bytes.choice(7)) {
    case 0:
        return Scale::linear();
    case 1:
        return Scale::log(bytes.number());
    case 2:
        return Scale::time(zones.at(bytes.byte() % zones.size()));
    case 3: {
        const double linearWidth = bytes.number();
        return Scale::symLog(linearWidth, bytes.number());
    }
    case 4: {
        std::vector<std::string> names(bytes.byte() % 12);
        for (std::string& name : names)
            name = bytes.text();
        return Scale::categorical(std::move(names));
    }
    case 5:
        return Scale::custom([](double v) { return v * v * v; },
                             [](double v) { return std::cbrt(v); },
                             {bytes.number(), bytes.number()});
    default: {
        // Neither rising nor the inverse of anything.
        const double a = bytes.number();
        const double b = bytes.number();
        return Scale::custom([a](double v) { return std::sin(v) * a; },
                             [b](double v) { return v + b; });
    }
    }
}

inline zembra::NumberFormat anyFormat(Bytes& bytes) {
    using zembra::NumberFormat;
    NumberFormat format;
    switch (bytes.choice(9)) {
    case 1:
        format = NumberFormat::fixed(bytes.integer());
        break;
    case 2:
        format = NumberFormat::exponent();
        break;
    case 3:
        format = NumberFormat::engineering();
        break;
    case 4:
        format = NumberFormat::siPrefix(bytes.text());
        break;
    case 5:
        format = NumberFormat::percent(bytes.integer());
        break;
    case 6:
        format = NumberFormat::degrees(bytes.integer());
        break;
    case 7: {
        const std::string prefix = bytes.text();
        const std::string suffix = bytes.text();
        format = NumberFormat::currency(prefix, suffix, bytes.integer());
        break;
    }
    case 8:
        format = NumberFormat::custom([](double v) { return std::string(v > 0.0 ? 3 : 1, 'x'); });
        break;
    default:
        break;
    }
    const int more = bytes.choice(32);
    if (more & 1)
        format.setPrefix(bytes.text());
    if (more & 2)
        format.setSuffix(bytes.text());
    if (more & 4)
        format.setDecimals(bytes.integer());
    if (more & 8)
        format.setDecimalPoint(bytes.text());
    if (more & 16)
        format.setGroupSeparator(bytes.text());
    return format;
}

} // namespace fuzz
