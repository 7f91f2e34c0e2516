// SPDX-License-Identifier: MIT
#include "ZoneTable.h"

#include "Decimal.h"
#include "ZoneRules.h"

#include <date/tz.h>
#include <fmt/format.h>

#include <algorithm>
#include <limits>
#include <map>
#include <mutex>
#include <new>

namespace zembra {

namespace {

constexpr std::int64_t forever = std::numeric_limits<std::int64_t>::max();
// No zone is further from UTC than this.
constexpr std::int64_t largestOffset = std::int64_t{2} * 86400;

std::vector<ZoneSpan> utcSpans() {
    return {{-forever, forever, 0, "UTC"}};
}

std::vector<ZoneSpan> readSpans(const std::string& name) {
    using date::sys_seconds;
    const date::time_zone* zone = date::locate_zone(name);
    // Older than any recorded change, and still a year that the library can tell.
    const sys_seconds start{std::chrono::seconds{-500'000'000'000}};
    std::vector<ZoneSpan> spans;
    for (date::sys_info info = zone->get_info(start);; info = zone->get_info(info.end)) {
        spans.push_back({info.begin.time_since_epoch().count(), info.end.time_since_epoch().count(),
                         info.offset.count(), info.abbrev});
        const bool isLast = info.end.time_since_epoch() > std::chrono::seconds{500'000'000'000};
        if (isLast || info.end <= info.begin)
            break;
    }
    spans.front().begin = -forever;
    spans.back().end = forever;
    extendByRules(spans);
    return spans;
}

} // namespace

std::shared_ptr<const ZoneTable> ZoneTable::of(const std::string& name) {
    static std::mutex mutex;
    static std::map<std::string, std::shared_ptr<const ZoneTable>> known;
    const std::lock_guard lock(mutex);
    auto& table = known[name];
    if (table)
        return table;
    try {
        table = std::make_shared<ZoneTable>(name == "UTC" ? utcSpans() : readSpans(name));
    } catch (const std::bad_alloc&) {
        // Nothing wrong with the name: it may go better the next time.
        throw;
    } catch (...) {
        table = std::make_shared<ZoneTable>(utcSpans());
    }
    return table;
}

std::size_t ZoneTable::indexAt(std::int64_t instant) const {
    const auto after = std::upper_bound(
        spans.begin(), spans.end(), instant,
        [](std::int64_t value, const ZoneSpan& span) { return value < span.begin; });
    return after == spans.begin() ? 0 : static_cast<std::size_t>(after - spans.begin()) - 1;
}

std::int64_t ZoneTable::toInstant(std::int64_t local) const {
    for (std::size_t i = indexAt(local - largestOffset);; ++i) {
        const std::int64_t instant = std::max(local - spans[i].offset, spans[i].begin);
        if (instant < spans[i].end || i + 1 == spans.size())
            return instant;
    }
}

std::string ZoneTable::repeatedHourTag(std::int64_t instant) const {
    const std::size_t i = indexAt(instant);
    const ZoneSpan& span = spans[i];
    const ZoneSpan* other = nullptr;
    if (i > 0 && instant < span.begin + (spans[i - 1].offset - span.offset))
        other = &spans[i - 1];
    else if (i + 1 < spans.size() && instant >= span.end - (span.offset - spans[i + 1].offset))
        other = &spans[i + 1];
    if (!other)
        return {};
    if (other->abbreviation != span.abbreviation && !span.abbreviation.empty())
        return span.abbreviation;
    const std::int64_t seconds = span.offset < 0 ? -span.offset : span.offset;
    std::string text = fmt::format("UTC{}{}", span.offset < 0 ? minusSign : "+", seconds / 3600);
    if (seconds % 3600 != 0)
        text += fmt::format(":{:02}", seconds / 60 % 60);
    if (seconds % 60 != 0)
        text += fmt::format(":{:02}", seconds % 60);
    return text;
}

} // namespace zembra
