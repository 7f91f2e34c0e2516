// SPDX-License-Identifier: MIT
#pragma once

#include <zembra/scale/Tick.h>

#include <string>

namespace zembra {

enum class Side { Positive, Negative };

/// Ticks at powers of the base, thinned by whole powers where there are many, joined by 2 and 5
/// times powers of ten where there are few; linear ticks well within a decade.
///
/// Units: the range is one of magnitudes; ticks on the negative side are its mirror image.
/// Requires: `0 < min < max`.
TickSet logTicks(double min, double max, double base, const TickRequest& request,
                 Side side = Side::Positive);

/// The smallest of 1, 2, 3, 5, 10, 20, 30, 50 and so on that is not below `least`.
int niceCount(double least);

/// `factor` times a power of the base; a power of ten wherever the factor is not 1.
struct LogStep {
    double base = 10.0;
    int factor = 1;
    int power = 0;

    double value() const;
};

/// Whether all labels of an axis are powers, or short numbers stand in plain digits.
enum class PowerForm { Always, WhereLong };
/// Depends on the span alone, so that a tick keeps its label wherever the axis goes.
PowerForm powerForm(double decades);

/// "1000" or "10³", "2×10⁶", "2⁻¹⁷".
std::string logLabel(const LogStep& step, Side side, PowerForm form, const TickRequest& request);

} // namespace zembra
