// SPDX-License-Identifier: MIT
#include "SymLogTicks.h"

#include "Decimal.h"
#include "LinearTicks.h"
#include "LogTicks.h"
#include "NumberText.h"
#include "SymLogScale.h"

#include <algorithm>
#include <cmath>

namespace zembra {

namespace {

// Below this many linear widths the scale is still so even that linear ticks serve better.
constexpr double mostlyLinear = 10.0;
// From this many linear widths on the scale is logarithmic to the eye.
constexpr double mostlyLog = 3.0;
// Room for 1, 2, 5 and 10, in decades.
constexpr double gapOfTwo = 0.3;
constexpr int largestStep = 1'000'000;

// The powers of the base from the linear width to the larger end of the range.
struct Powers {
    int lowest = 0;
    int highest = -1;
};

Powers powersBetween(double width, double top, double base) {
    const double log = std::log(base);
    const double lowest = std::ceil(std::log(width) / log - 1e-9);
    const double highest = std::floor(std::log(top) / log + 1e-9);
    // Bases close to one have more powers in all of double than an int can count.
    if (!(std::abs(lowest) < 1e8 && std::abs(highest) < 1e8))
        return {};
    return {static_cast<int>(lowest), static_cast<int>(highest)};
}

// The ticks above zero that no part of the range can crowd; the ones below zero mirror them.
std::vector<LogStep> stepsAboveZero(const SymLogScale& scale, const Powers& powers, int step,
                                    double room) {
    std::vector<LogStep> steps;
    const bool withMultiples = scale.base() == 10.0 && step == 1 && room < gapOfTwo;
    const auto begin = -floorDiv(-std::int64_t{powers.lowest}, step) * step;
    for (std::int64_t power = begin; power <= powers.highest; power += step) {
        for (const int factor : {1, 2, 5}) {
            const LogStep next{scale.base(), factor, static_cast<int>(power)};
            // The first decade is still half linear, which brings its multiples together.
            if (factor != 1 && (!withMultiples || power == powers.lowest))
                continue;
            const double value = next.value();
            if (std::isfinite(value) && scale.transform(value) >= room &&
                (steps.empty() || value > steps.back().value()))
                steps.push_back(next);
        }
    }
    return steps;
}

void addMajors(TickSet& set, const std::vector<LogStep>& steps, double min, double max,
               PowerForm form, const TickRequest& request) {
    for (auto step = steps.rbegin(); step != steps.rend(); ++step) {
        const double value = -step->value();
        if (value >= min && value <= max)
            set.major.push_back({value, logLabel(*step, Side::Negative, form, request), {}});
    }
    if (min <= 0.0 && max >= 0.0)
        set.major.push_back({0.0, numberText({}, 0, formatOf(request)), {}});
    for (const LogStep& step : steps) {
        const double value = step.value();
        if (value >= min && value <= max)
            set.major.push_back({value, logLabel(step, Side::Positive, form, request), {}});
    }
}

void addMinors(TickSet& set, const Powers& powers, double min, double max) {
    std::vector<double> values;
    for (int power = powers.lowest; power <= powers.highest; ++power) {
        for (int factor = 1; factor < 10; ++factor)
            values.push_back(Decimal{factor, power}.toDouble());
    }
    for (auto value = values.rbegin(); value != values.rend(); ++value) {
        if (-*value >= min && -*value <= max)
            set.minor.push_back(-*value);
    }
    for (const double value : values) {
        if (value >= min && value <= max)
            set.minor.push_back(value);
    }
    dropMajors(set.minor, set.major);
    if (static_cast<int>(set.minor.size()) > minorCap)
        set.minor.clear();
}

TickSet linearNearZero(const SymLogScale& scale, double min, double max,
                       const TickRequest& request) {
    // Far from zero, they stand closest.
    const double top = std::max(-min, max);
    const double average =
        (scale.transform(max) - scale.transform(min)) / (0.5 * max - 0.5 * min) * 0.5;
    const double crowding = average * (scale.linearWidth() + top) * std::log(scale.base());
    return linearTicksThinned(min, max, crowding, request);
}

} // namespace

TickSet symLogTicks(const SymLogScale& scale, double min, double max, const TickRequest& request) {
    const double width = scale.linearWidth();
    if (min >= mostlyLog * width)
        return logTicks(min, max, scale.base(), request);
    if (max <= -mostlyLog * width)
        return logTicks(-max, -min, scale.base(), request, Side::Negative);

    const double top = std::max(-min, max);
    const int maxMajor = std::clamp(request.maxMajor, 1, majorCap);
    TickSet set;
    if (top / width > mostlyLinear) {
        const double span = scale.transform(max) - scale.transform(min);
        const double room = span / maxMajor;
        const PowerForm form = powerForm(span * std::log10(scale.base()));
        const Powers powers = powersBetween(width, top, scale.base());
        int step = niceCount(room * spanSlack);
        addMajors(set, stepsAboveZero(scale, powers, step, room), min, max, form, request);
        while (static_cast<int>(set.major.size()) > maxMajor && step < largestStep) {
            step = niceCount(step + 1.0);
            set.major.clear();
            addMajors(set, stepsAboveZero(scale, powers, step, room), min, max, form, request);
        }
        // Zero and one power may remain where a single tick is wanted.
        if (static_cast<int>(set.major.size()) > maxMajor)
            set.major.resize(static_cast<std::size_t>(maxMajor));
        if (request.minor && scale.base() == 10.0 && step == 1)
            addMinors(set, powers, min, max);
    }
    if (static_cast<int>(set.major.size()) < std::min(maxMajor, 2)) {
        TickSet linear = linearNearZero(scale, min, max, request);
        if (linear.major.size() >= set.major.size())
            return linear;
    }
    return set;
}

} // namespace zembra
