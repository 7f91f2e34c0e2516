// SPDX-License-Identifier: MIT
#include <zembra/chart/Legend.h>

#include <optional>

namespace zembra {

struct Legend::Private {
    LegendPosition position = LegendPosition::Automatic;
    std::optional<bool> visible;
};

Legend::Legend() : d(std::make_unique<Private>()) {}

Legend::~Legend() = default;

void Legend::setPosition(LegendPosition position) {
    d->position = position;
}

LegendPosition Legend::position() const {
    return d->position;
}

void Legend::setVisible(bool on) {
    d->visible = on;
}

bool Legend::isVisibleFor(int entries) const {
    return entries > 0 && d->visible.value_or(entries > 1);
}

} // namespace zembra
