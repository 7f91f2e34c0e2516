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

std::shared_ptr<Plot> markers() {
    auto plot = std::make_shared<Plot>();
    plot->setTitle("What cold does to a battery");
    plot->setSubtitle("Capacity left after full cycles");
    plot->axis(2).setTitle("Cycles");
    plot->axis(0).setTitle("Capacity (%)");
    Noise noise(12);
    const auto cycles = spaced(0.0, 1200.0, 13);
    const auto add = [&](const char* name, double loss, double knee, MarkerShape shape) {
        const auto capacity = mapped(cycles, [&](double n) {
            const double late = std::exp((n - knee) / 180.0);
            return 100.0 - loss * std::sqrt(n / 100.0) - late +
                   (n > 0.0 ? 0.25 * noise.normal() : std::exp(-knee / 180.0));
        });
        const auto series = plot->add<LineSeries>(cycles, capacity, name);
        series->setMarkerShape(shape);
        series->setMarkerSize(7.5);
    };
    add("25 °C", 2.0, 1100.0, MarkerShape::Circle);
    add("5 °C", 3.4, 880.0, MarkerShape::Square);
    add("−15 °C", 5.2, 640.0, MarkerShape::TriangleUp);
    plot->legend().setPosition(LegendPosition::BottomLeft);
    return plot;
}

std::shared_ptr<Plot> steps() {
    auto plot = std::make_shared<Plot>();
    plot->setTitle("A windy Sunday");
    plot->setSubtitle("Price of electricity by the hour, below zero at noon");
    plot->axis(2).setScale(Scale::time());
    plot->axis(0).setTitle("Price (€/MWh)");
    const double midnight = 1714262400.0;
    const double day = 86400.0;
    plot->axis(2).setRange(midnight, midnight + day);
    const auto series = plot->add<LineSeries>(
        spaced(midnight, midnight + day, 25),
        std::vector<double>{42,  38,  35, 33, 31, 34, 41, 48, 45, 31, 12, -6, -18,
                            -25, -21, -9, 8,  36, 67, 88, 94, 81, 66, 53, 53});
    series->setSteps(LineSteps::After);
    series->setFill(LineFill{});
    series->setWidth(2.0);
    return plot;
}

std::shared_ptr<Plot> manyLines() {
    auto plot = std::make_shared<Plot>();
    plot->setTitle("Two hundred forecasts and what came");
    plot->setSubtitle("Each thin line is one of them");
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
    plot->axis(2).setScale(Scale::time());
    plot->axis(0).setTitle("Temperature (°C)");
    const auto hour = spaced(0.0, 48.0, 289);
    const auto time = mapped(hour, [](double h) { return 1714521600.0 + 3600.0 * h; });
    const auto air = [](double h) { return 14.0 - 5.0 * std::cos((h - 3.0) * 0.2617993878); };
    auto measured = mapped(hour, air);
    Noise noise(3);
    for (std::size_t i = 0; i < measured.size(); ++i) {
        measured[i] += 0.35 * noise.normal();
        const double h = hour[i];
        if ((h > 9.0 && h < 14.0) || (h > 27.0 && h < 29.0) || (h > 38.0 && h < 38.8))
            measured[i] = std::numeric_limits<double>::quiet_NaN();
    }
    const auto model = plot->add<LineSeries>(time, mapped(hour, air), "model");
    model->setStyle(PenStyle::Dash);
    plot->add<LineSeries>(time, measured, "measured");
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
    return {"Lines",
            {
                {"line", "Lines", line},
                {"line-markers", "Lines with markers", markers},
                {"line-steps", "Steps with a fill", steps},
                {"many-lines", "Many lines", manyLines},
                {"function", "Functions", functions},
                {"gaps", "Gaps where a sample is missing", gaps},
            }};
}

} // namespace gallery
