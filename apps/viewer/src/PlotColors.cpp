// SPDX-License-Identifier: MIT
#include "PlotColors.h"

#include <algorithm>

namespace viewer {

void setGround(zembra::Plot& plot, Ground ground) {
    const std::vector<zembra::Color> before = plot.theme().cycle;
    plot.setTheme(ground == Ground::Dark ? zembra::Theme::dark() : zembra::Theme::light());
    const std::vector<zembra::Color>& after = plot.theme().cycle;
    for (const auto& series : plot.series()) {
        const std::optional<zembra::Color> color = series->color();
        if (!color)
            continue;
        const auto place = std::ranges::find(before, color->withAlpha(255));
        const auto index = static_cast<std::size_t>(place - before.begin());
        if (place != before.end() && index < after.size())
            series->setColor(after[index].withAlpha(color->alpha()));
    }
}

} // namespace viewer
