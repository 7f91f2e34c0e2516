// SPDX-License-Identifier: MIT
// Scales and their ticks over any range: finite, inside, strictly increasing, never too many.
#include "Scales.h"

#include <algorithm>

using zembra::Interval;
using zembra::Scale;
using zembra::TickRequest;
using zembra::TickSet;

namespace {

void checkTicks(const Scale& scale, double first, double second, const TickRequest& request) {
    const TickSet set = scale.ticks(first, second, request);
    fuzz::require(set.major.size() <= 200 && set.minor.size() <= 800, "ticks within their caps");
    fuzz::require(set.major.empty() || static_cast<int>(set.major.size()) <= request.maxMajor,
                  "no more ticks than asked for");
    const double low = std::min(first, second);
    const double high = std::max(first, second);
    double before = -std::numeric_limits<double>::infinity();
    for (const zembra::Tick& tick : set.major) {
        fuzz::require(tick.value > before, "strictly increasing ticks");
        fuzz::require(tick.value >= low && tick.value <= high, "ticks inside the range");
        before = tick.value;
    }
    for (const double value : set.minor)
        fuzz::require(value >= low && value <= high, "minor ticks inside the range");
}

void run(fuzz::Bytes bytes) {
    const fuzz::Stopwatch stopwatch;
    const Scale scale = fuzz::anyScale(bytes);
    const zembra::NumberFormat format = fuzz::anyFormat(bytes);
    TickRequest request;
    request.maxMajor = bytes.integer();
    request.minor = bytes.flag();
    request.step = bytes.number();
    request.format = bytes.flag() ? &format : nullptr;
    const double first = bytes.number();
    const double second = bytes.flag() ? std::nextafter(first, bytes.number()) : bytes.number();
    checkTicks(scale, first, second, request);

    const double share = bytes.number();
    const bool keepMin = bytes.flag();
    const Interval range = scale.autoRange({std::min(first, second), std::max(first, second)},
                                           share, keepMin, bytes.flag());
    fuzz::require(std::isfinite(range.min) && std::isfinite(range.max) && range.min < range.max,
                  "automatic ranges that are finite and have a length");
    checkTicks(scale, range.min, range.max, request);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Stopwatch::attend([&] { run({data, size}); });
    return 0;
}
