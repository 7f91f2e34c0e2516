// SPDX-License-Identifier: MIT
#include "LinearTicks.h"

#include "NumberText.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace zembra {

namespace {

double spacingAt(double value) {
    const double magnitude = std::abs(value);
    return magnitude >= std::numeric_limits<double>::max()
               ? magnitude - std::nextafter(magnitude, 0.0)
               : std::nextafter(magnitude, std::numeric_limits<double>::infinity()) - magnitude;
}

double largestMagnitude(double min, double max) {
    return std::max(std::abs(min), std::abs(max));
}

// `value` / `step`, also where the step has lost its precision to being subnormal.
double quotient(double value, Decimal step) {
    constexpr int lift = 40;
    return step.exponent < -280
               ? value * 1e40 / Decimal{step.digits, step.exponent + lift}.toDouble()
               : value / step.toDouble();
}

// The span in steps, also where the span itself overflows.
double spanInSteps(double min, double max, Decimal step) {
    const double span = max - min;
    return std::isfinite(span) ? quotient(span, step) : 2.0 * quotient(0.5 * max - 0.5 * min, step);
}

struct Ladder {
    std::vector<std::int64_t> digits;
    TickSet set;
};

// The ticks of a grid; values that round to the same double are made once.
Ladder climb(const TickGrid& grid) {
    Ladder ladder;
    ladder.set.major.reserve(static_cast<std::size_t>(grid.count));
    ladder.digits.reserve(static_cast<std::size_t>(grid.count));
    for (std::int64_t i = 0; i < grid.count; ++i) {
        const double value = grid.value(i);
        if (!ladder.set.major.empty() && !(value > ladder.set.major.back().value))
            continue;
        ladder.set.major.push_back({value, {}, {}});
        ladder.digits.push_back(grid.digits(i));
    }
    return ladder;
}

// The host's own step, where it makes as many ticks as are wanted.
TickGrid gridOfOwnStep(double min, double max, double step, int maxMajor) {
    const Decimal own = Decimal::shortest(step);
    // A span of as many steps has one tick more only where ticks lie on its ends.
    if (!(spanInSteps(min, max, own) < maxMajor + 1))
        return {};
    const TickGrid grid = gridOver(min, max, own);
    return grid.count <= maxMajor ? grid : TickGrid{};
}

} // namespace

TickGrid gridOver(double min, double max, Decimal step) {
    const double unit = quotient(largestMagnitude(min, max), {1, step.exponent});
    // Everything that is counted has to fit an integer.
    if (step.digits <= 0 || !(unit < 4e18))
        return {};
    TickGrid grid{step, 0, 0};
    const auto value = [&grid](std::int64_t index) {
        return Decimal{index * grid.step.digits, grid.step.exponent}.toDouble();
    };
    // The quotients are off by a few units at most.
    constexpr std::int64_t few = 3;
    auto first = static_cast<std::int64_t>(std::ceil(quotient(min, step))) - few;
    auto last = static_cast<std::int64_t>(std::floor(quotient(max, step))) + few;
    while (value(first) < min)
        ++first;
    while (value(last) > max)
        --last;
    grid.first = first;
    grid.count = std::max(last - first + 1, std::int64_t{0});
    return grid;
}

Decimal nextStepBelow(Decimal step) {
    return step.digits == 1   ? Decimal{5, step.exponent - 1}
           : step.digits == 2 ? Decimal{1, step.exponent}
                              : Decimal{2, step.exponent};
}

Decimal nextStepAbove(Decimal step) {
    return step.digits == 1   ? Decimal{2, step.exponent}
           : step.digits == 2 ? Decimal{5, step.exponent}
                              : Decimal{1, step.exponent + 1};
}

Decimal minorStep(Decimal step) {
    return step.digits == 1   ? Decimal{2, step.exponent - 1}
           : step.digits == 2 ? Decimal{5, step.exponent - 1}
                              : Decimal{1, step.exponent};
}

Decimal niceStep(double min, double max, int maxMajor) {
    const double rough = 0.5 * max / maxMajor - 0.5 * min / maxMajor;
    const int magnitude = rough > 0.0 ? static_cast<int>(std::floor(std::log10(rough))) : -324;
    // Below three quarters of the spacing of doubles, multiples begin to fall together.
    const double least = 0.75 * spacingAt(largestMagnitude(min, max));
    Decimal step{1, std::max(magnitude, -324)};
    while (!(spanInSteps(min, max, step) * spanSlack < maxMajor) || !(quotient(least, step) <= 1.0))
        step = nextStepAbove(step);
    return step;
}

TickSet linearTicksThinned(double min, double max, double crowding, const TickRequest& request) {
    const int most = std::min(request.maxMajor, majorCap);
    TickRequest fewer = request;
    fewer.maxMajor = most;
    if (crowding > 1.0 && crowding < majorCap)
        fewer.maxMajor = std::min(std::max(2, static_cast<int>(most / crowding)), most);
    TickSet set = linearTicks(min, max, fewer);
    // A single tick does not tell a scale.
    while (set.major.size() < 2 && fewer.maxMajor < most) {
        ++fewer.maxMajor;
        set = linearTicks(min, max, fewer);
    }
    return set;
}

const NumberFormat& formatOf(const TickRequest& request) {
    static const NumberFormat automatic;
    return request.format ? *request.format : automatic;
}

void dropMajors(std::vector<double>& minor, const std::vector<Tick>& major) {
    auto next = major.begin();
    std::erase_if(minor, [&](double value) {
        while (next != major.end() && next->value < value)
            ++next;
        return next != major.end() && next->value == value;
    });
}

TickSet linearTicks(double min, double max, const TickRequest& request) {
    const int maxMajor = std::clamp(request.maxMajor, 1, majorCap);
    TickGrid grid;
    Decimal minor;
    if (request.step > 0.0 && std::isfinite(request.step))
        grid = gridOfOwnStep(min, max, request.step, maxMajor);
    Ladder ladder = climb(grid);
    if (ladder.digits.empty()) {
        Decimal step = niceStep(min, max, maxMajor);
        ladder = climb(gridOver(min, max, step));
        // Near the spacing of doubles, rounding may bring in a tick from right outside.
        while (static_cast<int>(ladder.digits.size()) > maxMajor) {
            step = nextStepAbove(step);
            ladder = climb(gridOver(min, max, step));
        }
        // So few ticks were wanted that the range may lie between two of them.
        for (int i = 0; i < 12 && ladder.digits.empty(); ++i) {
            step = nextStepBelow(step);
            grid = gridOver(min, max, step);
            grid.count = std::min<std::int64_t>(grid.count, maxMajor);
            ladder = climb(grid);
        }
        grid.step = step;
        minor = minorStep(step);
    }
    TickSet set = std::move(ladder.set);
    labelNumbers(set, ladder.digits, grid.step.exponent, formatOf(request));
    if (!request.minor || minor.digits == 0 ||
        !(quotient(spacingAt(largestMagnitude(min, max)), minor) <= 1.0))
        return set;
    const TickGrid fine = gridOver(min, max, minor);
    if (fine.count > minorCap + majorCap)
        return set;
    set.minor.reserve(static_cast<std::size_t>(fine.count));
    for (std::int64_t i = 0; i < fine.count; ++i) {
        const double value = fine.value(i);
        if (set.minor.empty() || value > set.minor.back())
            set.minor.push_back(value);
    }
    dropMajors(set.minor, set.major);
    if (static_cast<int>(set.minor.size()) > minorCap)
        set.minor.clear();
    return set;
}

} // namespace zembra
