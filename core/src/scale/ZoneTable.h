// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace zembra {

/// A time during which a zone keeps one offset. Units: seconds.
struct ZoneSpan {
    /// The first second that belongs to it, and the first that no longer does, since the Unix
    /// epoch.
    std::int64_t begin = 0;
    std::int64_t end = 0;
    /// Local time minus UTC.
    std::int64_t offset = 0;
    std::string abbreviation;
};

/// The offsets of one time zone through all time, read once and then asked without locks.
///
/// Units: instants are seconds since the Unix epoch (UTC); local times are seconds since
/// 1970-01-01 00:00 by the clocks of the zone. Immutable; any thread may ask.
class ZoneTable {
public:
    /// The table of an IANA zone, from the time zone data of the system on first use and from
    /// memory afterwards. An unknown zone, or missing data, gives UTC.
    static std::shared_ptr<const ZoneTable> of(const std::string& name);
    explicit ZoneTable(std::vector<ZoneSpan> spans) : spans(std::move(spans)) {}

    const ZoneSpan& spanAt(std::int64_t instant) const { return spans[indexAt(instant)]; }
    std::int64_t toLocal(std::int64_t instant) const { return instant + spanAt(instant).offset; }
    /// The first instant at which the clocks show `local`, or, where they leap over it, a later
    /// time.
    std::int64_t toInstant(std::int64_t local) const;
    /// What tells an instant from the other one at which the clocks show the same: "CEST", or
    /// "UTC+3" where the abbreviation does not change. Empty where there is no other.
    std::string repeatedHourTag(std::int64_t instant) const;

private:
    std::size_t indexAt(std::int64_t instant) const;

    std::vector<ZoneSpan> spans;
};

} // namespace zembra
