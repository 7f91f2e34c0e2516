// SPDX-License-Identifier: MIT
#pragma once

#include <zembra/scale/Scale.h>

#include <cstdint>
#include <optional>
#include <random>
#include <string>

namespace zembra::test {

/// What a reader expects of any set of ticks, told as the first fault found; empty for none.
///
/// Ticks lie inside the range in strictly increasing order, no more than were asked for, and no two
/// read alike.
std::string orderFault(const TickSet& set, double first, double second, const TickRequest& request);

/// Besides, every number reads back as its value within half of the last digit shown.
std::string tickFault(const TickSet& set, double first, double second, const TickRequest& request);
std::string tickFault(const Scale& scale, double first, double second, const TickRequest& request);

/// The same for calendar ticks in UTC: every text reads back as its instant.
std::string timeTickFault(const TickSet& set, double first, double second,
                          const TickRequest& request);
std::string timeTickFault(const Scale& scale, double first, double second,
                          const TickRequest& request);

/// The instant that a calendar tick tells in UTC, and what its last digit counts. Units: seconds.
struct ToldTime {
    double instant = 0.0;
    double lastDigit = 0.0;
};
std::optional<ToldTime> readTime(const Tick& tick);

/// How many random ranges a test tries: fewer where nothing is optimised, since the checks, not the
/// ticks, would take minutes.
#ifdef NDEBUG
inline constexpr int randomRangeCount = 200'000;
#else
inline constexpr int randomRangeCount = 20'000;
#endif

/// Ranges of every magnitude, span and position, the same ones in every run.
class RandomRanges {
public:
    struct Range {
        double first = 0.0;
        double second = 0.0;
    };

    Range any();
    Range positive();
    Range nearZero(double width);
    /// From ten nanoseconds to fifty thousand years, between the years -9000 and 20000.
    Range time();

private:
    double uniform(double from, double to);

    std::mt19937_64 engine{20240229};
};

} // namespace zembra::test
