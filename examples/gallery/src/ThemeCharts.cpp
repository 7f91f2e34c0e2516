// SPDX-License-Identifier: MIT
#include "Chart.h"
#include "Synthetic.h"

#include <zembra/zembra.h>

#include <cmath>

using namespace zembra;

namespace gallery {

namespace {

/// The same chart in every theme: all colours of the cycle, points and a legend.
std::shared_ptr<Plot> themed(const Theme& theme) {
    auto plot = std::make_shared<Plot>();
    plot->setTheme(theme);
    plot->setTitle("Growth under eight lamps");
    plot->setSubtitle("Mean height of twenty seedlings");
    plot->axis(2).setTitle("Week");
    plot->axis(0).setTitle("Height (cm)");
    plot->legend().setPosition(LegendPosition::OutsideRight);
    const auto week = spaced(0.0, 10.0, 101);
    for (int i = 0; i < 8; ++i) {
        const double limit = 34.0 - 3.4 * i;
        const double half = 3.0 + 0.35 * i;
        const auto height = [=](double t) { return limit / (1.0 + std::exp(half - 1.1 * t)); };
        plot->add<LineSeries>(week, mapped(week, height), "lamp " + std::to_string(i + 1));
    }
    Noise noise(21);
    const auto days = spaced(0.5, 9.5, 19);
    const auto points = plot->add<ScatterSeries>(
        days,
        mapped(days,
               [&](double t) {
                   return 34.0 / (1.0 + std::exp(3.0 - 1.1 * t)) + 0.8 * noise.normal();
               }),
        "one seedling");
    points->setColor(theme.cycle.front());
    return plot;
}

std::shared_ptr<Plot> light() {
    return themed(Theme::light());
}

std::shared_ptr<Plot> dark() {
    return themed(Theme::dark());
}

std::shared_ptr<Plot> print() {
    return themed(Theme::print());
}

} // namespace

Chapter themeCharts() {
    return {"Themes",
            {
                {"theme-light", "Light", light},
                {"theme-dark", "Dark", dark},
                {"theme-print", "Print", print},
            }};
}

} // namespace gallery
