// SPDX-License-Identifier: MIT
#pragma once

#include "Decimal.h"

#include <zembra/scale/NumberFormat.h>
#include <zembra/scale/Tick.h>

#include <vector>

namespace zembra {

/// The most major ticks that any engine returns, whatever it is asked for.
inline constexpr int majorCap = 200;
/// The most minor ticks that any engine returns; with the major ones, never above a thousand.
inline constexpr int minorCap = 800;

/// Spans that differ by rounding alone take the same step, also where they are a round number.
inline constexpr double spanSlack = 1.0 + 1e-6;

/// The multiples of a step that lie in a range, counted before they are made.
struct TickGrid {
    Decimal step;
    std::int64_t first = 0;
    std::int64_t count = 0;

    std::int64_t digits(std::int64_t i) const { return (first + i) * step.digits; }
    double value(std::int64_t i) const { return Decimal{digits(i), step.exponent}.toDouble(); }
};

/// Range: empty where the step is not above 0 or far below the spacing of doubles at the ends.
TickGrid gridOver(double min, double max, Decimal step);

/// The smallest of the steps 1, 2, 5 times a power of ten at which no range of this span has more
/// than `maxMajor` ticks, wherever it lies.
Decimal niceStep(double min, double max, int maxMajor);
/// The next smaller and the next larger step of that kind.
Decimal nextStepBelow(Decimal step);
Decimal nextStepAbove(Decimal step);
/// The step of the minor ticks below a major step of that kind.
Decimal minorStep(Decimal step);

/// Ticks at even distances.
///
/// Source: the steps 1, 2 and 5 times a power of ten are those of Paul Heckbert, "Nice Numbers for
/// Graph Labels", Graphics Gems, 1990; the number of ticks bounds the step from below here, so that
/// it depends on the span alone and stays the same while panning.
TickSet linearTicks(double min, double max, const TickRequest& request);

/// Linear ticks for a scale that is not linear: fewer, so that they have room at the end where they
/// stand `crowding` times as close as on average. At least two where as many were asked for.
TickSet linearTicksThinned(double min, double max, double crowding, const TickRequest& request);

/// The format of a request, or the automatic one.
const NumberFormat& formatOf(const TickRequest& request);

/// Keeps the values of `minor`, which is increasing, that are none of the major ticks.
void dropMajors(std::vector<double>& minor, const std::vector<Tick>& major);

} // namespace zembra
