// SPDX-License-Identifier: MIT
#include "Chart.h"
#include "Synthetic.h"

#include <zembra/zembra.h>

#include <cmath>
#include <limits>

using namespace zembra;

namespace gallery {

namespace {

std::shared_ptr<Plot> line() {
    auto plot = std::make_shared<Plot>();
    plot->setTitle("Damped oscillation");
    plot->setSubtitle("Three dampers on one spring");
    plot->axis(2).setTitle("Time (s)");
    plot->axis(0).setTitle("Deflection (mm)");
    const auto t = spaced(0.0, 12.0, 600);
    const auto swing = [](double damping) {
        return [damping](double x) { return 40.0 * std::exp(-damping * x) * std::cos(2.2 * x); };
    };
    plot->add<LineSeries>(t, mapped(t, swing(0.08)), "soft");
    plot->add<LineSeries>(t, mapped(t, swing(0.25)), "medium");
    plot->add<LineSeries>(t, mapped(t, swing(0.7)), "hard");
    return plot;
}

std::shared_ptr<Plot> scatter() {
    auto plot = std::make_shared<Plot>();
    plot->setTitle("Petals of three species");
    plot->axis(2).setTitle("Length (cm)");
    plot->axis(0).setTitle("Width (cm)");
    Noise noise(11);
    const auto cluster = [&](double length, double width, double slope, const char* name) {
        std::vector<double> x;
        std::vector<double> y;
        for (int i = 0; i < 60; ++i) {
            const double along = noise.normal();
            x.push_back(length + 0.45 * along);
            y.push_back(width + slope * along + 0.12 * noise.normal());
        }
        plot->add<ScatterSeries>(x, y, name);
    };
    cluster(1.6, 0.4, 0.03, "setosa");
    cluster(4.2, 1.35, 0.14, "versicolor");
    cluster(5.7, 2.1, 0.11, "virginica");
    return plot;
}

std::shared_ptr<Plot> manyLines() {
    auto plot = std::make_shared<Plot>();
    plot->setTitle("Two hundred forecasts and what came");
    plot->axis(2).setTitle("Day");
    plot->axis(0).setTitle("Level (m)");
    const auto day = spaced(0.0, 90.0, 181);
    for (std::uint64_t i = 0; i < 200; ++i) {
        auto level = walk(0.0, 0.16, 181, 100 + i);
        for (std::size_t k = 0; k < level.size(); ++k)
            level[k] += 3.0 + std::sin(day[k] / 14.0);
        const auto series = plot->add<LineSeries>(day, level);
        series->setColor(Color(120, 150, 190, 70));
        series->setWidth(1.0);
    }
    auto real = walk(0.0, 0.1, 181, 7);
    for (std::size_t k = 0; k < real.size(); ++k)
        real[k] += 3.0 + std::sin(day[k] / 14.0);
    const auto series = plot->add<LineSeries>(day, real, "measured");
    series->setColor(Color(170, 30, 30));
    series->setWidth(2.0);
    plot->legend().setVisible(true);
    return plot;
}

std::shared_ptr<Plot> gaps() {
    auto plot = std::make_shared<Plot>();
    plot->setTitle("A sensor that falls silent");
    plot->axis(2).setTitle("Hour");
    plot->axis(0).setTitle("Temperature (°C)");
    const auto hour = spaced(0.0, 48.0, 289);
    const auto air = [](double t) { return 14.0 - 5.0 * std::cos(t * 0.2617993878); };
    auto measured = mapped(hour, air);
    Noise noise(3);
    for (std::size_t i = 0; i < measured.size(); ++i) {
        measured[i] += 0.35 * noise.normal();
        const double t = hour[i];
        if ((t > 9.0 && t < 14.0) || (t > 27.0 && t < 29.0) || (t > 38.0 && t < 38.8))
            measured[i] = std::numeric_limits<double>::quiet_NaN();
    }
    const auto model = plot->add<LineSeries>(hour, mapped(hour, air), "model");
    model->setStyle(PenStyle::Dash);
    plot->add<LineSeries>(hour, measured, "measured");
    plot->legend().setPosition(LegendPosition::OutsideTop);
    return plot;
}

std::shared_ptr<Plot> functions() {
    auto plot = std::make_shared<Plot>();
    plot->setTitle("Functions with poles, jumps and edges");
    plot->axis(2).setTitle("x");
    plot->axis(2).setRange(-6.5, 6.5);
    plot->axis(0).setRange(-4.0, 4.0);
    plot->add<FunctionSeries>([](double x) { return std::tan(x); }, "tan x");
    plot->add<FunctionSeries>([](double x) { return std::floor(x) / 2.0; }, "⌊x⌋ / 2");
    plot->add<FunctionSeries>([](double x) { return std::sqrt(x) - 3.5; }, "√x − 3.5");
    plot->add<FunctionSeries>([](double x) { return 3.0 + 0.8 * std::sin(6.0 / x); },
                              "3 + 0.8 sin(6 / x)");
    plot->legend().setPosition(LegendPosition::OutsideTop);
    return plot;
}

} // namespace

Chapter lineCharts() {
    return {"Lines and points",
            {
                {"line", "Lines", line},
                {"scatter", "Scatter", scatter},
                {"many-lines", "Many lines", manyLines},
                {"function", "Functions", functions},
                {"gaps", "Gaps where a sample is missing", gaps},
            }};
}

} // namespace gallery
