// SPDX-License-Identifier: MIT
#pragma once

#include "LinearScale.h"
#include "ZoneTable.h"

#include <memory>
#include <mutex>
#include <string>

namespace zembra {

/// Even spacing of seconds since the Unix epoch, told by the calendar of a zone.
class TimeScale : public LinearScale {
public:
    explicit TimeScale(std::string zoneName) : zoneName(std::move(zoneName)) {}
    bool hasGroups() const override { return true; }
    Interval defaultRange() const override;
    Interval rangeAround(double value) const override;
    TickSet ticks(double min, double max, const TickRequest& request) const override;

private:
    // Read when ticks are first asked for: many scales never are.
    const ZoneTable& zone() const;

    std::string zoneName;
    mutable std::once_flag loadOnce;
    mutable std::shared_ptr<const ZoneTable> table;
};

} // namespace zembra
