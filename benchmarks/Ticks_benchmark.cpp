// SPDX-License-Identifier: MIT
//
// Asks every tick engine for ticks over millions of random ranges, checks each set of them and
// prints how long a call takes.
// Usage: Ticks_benchmark [ranges per engine, 10 million by default [engine ...]]
#include <zembra/scale/Scale.h>

#include "support/TickChecks.h"

#include <time.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

using namespace zembra;
using namespace zembra::test;

namespace {

constexpr double targetMicroseconds = 50.0;

using Range = RandomRanges::Range;

struct Engine {
    const char* name;
    Scale scale;
    Range (*next)(RandomRanges&);
    std::string (*fault)(const TickSet&, double, double, const TickRequest&);
};

// Of this thread alone, so that whatever else runs on the machine does not count.
double processorMicroseconds() {
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) * 1e6 + static_cast<double>(now.tv_nsec) * 1e-3;
}

// Whether no range is at fault and the calls are fast enough.
bool run(const Engine& engine, std::int64_t count) {
    RandomRanges ranges;
    std::vector<float> times;
    times.reserve(static_cast<std::size_t>(count));
    std::int64_t ticks = 0;
    for (std::int64_t i = 0; i < count; ++i) {
        const Range range = engine.next(ranges);
        TickRequest request;
        request.maxMajor = static_cast<int>(3 + i % 14);
        const double begin = processorMicroseconds();
        const TickSet set = engine.scale.ticks(range.first, range.second, request);
        times.push_back(static_cast<float>(processorMicroseconds() - begin));
        ticks += static_cast<std::int64_t>(set.major.size());
        const std::string fault = engine.fault(set, range.first, range.second, request);
        if (!fault.empty()) {
            std::printf("%-14s %s\n", engine.name, fault.c_str());
            return false;
        }
    }
    const auto at = [&times](double share) {
        const auto index = static_cast<std::ptrdiff_t>(share * static_cast<double>(times.size()));
        const auto place = times.begin() + std::min<std::ptrdiff_t>(index, std::ssize(times) - 1);
        std::nth_element(times.begin(), place, times.end());
        return static_cast<double>(*place);
    };
    const double late = at(0.999);
    std::printf(
        "%-14s %10lld ranges  %4.1f ticks  median %6.2f us  99%% %6.2f us  99.9%% %6.2f us\n",
        engine.name, static_cast<long long>(count),
        static_cast<double>(ticks) / static_cast<double>(count), at(0.5), at(0.99), late);
    return late < targetMicroseconds;
}

} // namespace

int main(int argc, char** argv) {
    const std::int64_t count = argc > 1 ? std::atoll(argv[1]) : 10'000'000;
    if (count < 1)
        return 2;
    const auto any = [](RandomRanges& r) { return r.any(); };
    const auto positive = [](RandomRanges& r) { return r.positive(); };
    const auto nearZero = [](RandomRanges& r) { return r.nearZero(1.0); };
    // Wide enough for its texts to tell it exactly.
    const auto time = [](RandomRanges& r) {
        Range range = r.time();
        while (range.second - range.first < 1e-3)
            range = r.time();
        return range;
    };
    const Engine engines[] = {
        {"linear", Scale(), any, tickFault},
        {"log", Scale::log(), positive, tickFault},
        {"log 2", Scale::log(2.0), positive, tickFault},
        {"symlog", Scale::symLog(), nearZero, tickFault},
        {"time UTC", Scale::time(), time, timeTickFault},
        {"time Zurich", Scale::time("Europe/Zurich"), time, orderFault},
    };
    const std::vector<std::string> chosen(argv + std::min(argc, 2), argv + argc);
    bool good = true;
    for (const Engine& engine : engines) {
        if (chosen.empty() || std::find(chosen.begin(), chosen.end(), engine.name) != chosen.end())
            good = run(engine, count) && good;
    }
    return good ? 0 : 1;
}
