// SPDX-License-Identifier: MIT
#include "TimeScale.h"

#include "Calendar.h"
#include "CalendarSteps.h"
#include "LinearTicks.h"
#include "TimeLabels.h"

#include <algorithm>
#include <cmath>

namespace zembra {

namespace {

// Beyond some thirty million years, the calendar has nothing to tell.
constexpr double calendarEnd = 1e15;
constexpr int finestPlace = -9;

std::size_t firstFittingStep(double span, int maxMajor) {
    const auto& steps = calendarSteps();
    std::size_t i = 0;
    while (i + 1 < steps.size() && !(steps[i].mostTicks(span * spanSlack) < maxMajor + 1.0))
        ++i;
    return i;
}

TickSet calendarTicks(double min, double max, const TickRequest& request, const ZoneTable& zone) {
    const auto& steps = calendarSteps();
    const auto maxMajor = static_cast<std::size_t>(request.maxMajor);
    std::size_t chosen = firstFittingStep(max - min, request.maxMajor);
    auto instants = instantsOf(steps[chosen], min, max, zone);
    // The clocks may have gone back more than once.
    while (instants.size() > maxMajor && chosen + 1 < steps.size())
        instants = instantsOf(steps[++chosen], min, max, zone);
    // So few ticks were wanted that the range may lie between two of them.
    while (instants.empty() && chosen > 0 && steps[chosen - 1].mostTicks(max - min) < majorCap)
        instants = instantsOf(steps[--chosen], min, max, zone);
    if (instants.size() > maxMajor)
        instants.resize(maxMajor);

    TickSet set;
    set.major.reserve(instants.size());
    for (const std::int64_t instant : instants)
        set.major.push_back(calendarTick(instant, steps[chosen], zone));
    const auto finer = steps[chosen].finer();
    if (!request.minor || instants.empty())
        return set;
    if (finer && finer->mostTicks(max - min) < minorCap) {
        for (const std::int64_t instant : instantsOf(*finer, min, max, zone))
            set.minor.push_back(static_cast<double>(instant));
    } else if (!finer) {
        const TickGrid grid = gridOver(min, max, minorStep({steps[chosen].count, 0}));
        for (std::int64_t i = 0; i < std::min<std::int64_t>(grid.count, minorCap + majorCap); ++i)
            set.minor.push_back(grid.value(i));
    }
    dropMajors(set.minor, set.major);
    return set;
}

TickSet fractionTicks(double min, double max, Decimal step, const TickRequest& request,
                      const ZoneTable& zone) {
    TickSet set;
    const TickGrid grid = gridOver(min, max, step);
    const auto count = std::min<std::int64_t>(grid.count, request.maxMajor);
    set.major.reserve(static_cast<std::size_t>(count));
    for (std::int64_t i = 0; i < count; ++i) {
        const Decimal instant{grid.digits(i), step.exponent};
        if (set.major.empty() || instant.toDouble() > set.major.back().value)
            set.major.push_back(fractionTick(instant, step.exponent, zone));
    }
    const double spacing = std::nextafter(std::max(-min, max), 2.0 * calendarEnd) - max;
    const Decimal fine = minorStep(step);
    if (!request.minor || !(fine.toDouble() > 2.0 * spacing))
        return set;
    const TickGrid minor = gridOver(min, max, fine);
    for (std::int64_t i = 0; i < std::min<std::int64_t>(minor.count, minorCap + majorCap); ++i)
        set.minor.push_back(minor.value(i));
    dropMajors(set.minor, set.major);
    return set;
}

} // namespace

Interval TimeScale::defaultRange() const {
    return {0.0, static_cast<double>(secondsPerDay)};
}

Interval TimeScale::rangeAround(double value) const {
    const double half = 0.5 * static_cast<double>(secondsPerDay);
    return {value - half, value + half};
}

TickSet TimeScale::ticks(double min, double max, const TickRequest& request) const {
    if (min < -calendarEnd || max > calendarEnd)
        return linearTicks(min, max, request);
    TickRequest capped = request;
    capped.maxMajor = std::clamp(request.maxMajor, 1, majorCap);
    capped.step = 0.0;
    Decimal step = niceStep(min, max, capped.maxMajor);
    TickSet set;
    if (step.exponent >= 0)
        set = calendarTicks(min, max, capped, zone());
    for (int i = 0; i < 6 && set.major.empty() && step.exponent >= finestPlace; ++i) {
        if (step.exponent < 0)
            set = fractionTicks(min, max, step, capped, zone());
        step = nextStepBelow(step);
    }
    return set.major.empty() ? linearTicks(min, max, capped) : set;
}

const ZoneTable& TimeScale::zone() const {
    std::call_once(loadOnce, [this] { table = ZoneTable::of(zoneName); });
    return *table;
}

} // namespace zembra
