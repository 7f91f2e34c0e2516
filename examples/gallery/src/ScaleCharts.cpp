// SPDX-License-Identifier: MIT
#include "Chart.h"
#include "Synthetic.h"

#include <zembra/zembra.h>

#include <cmath>

using namespace zembra;

namespace gallery {

namespace {

std::shared_ptr<Plot> timeAxis() {
    auto plot = std::make_shared<Plot>();
    plot->setTitle("Air temperature");
    plot->axis(2).setScale(Scale::time());
    plot->axis(0).setTitle("°C");
    // Five days from 27 February 2024, every ten minutes.
    const double start = 1708992000.0;
    const auto time = spaced(start, start + 5.0 * 86400.0, 721);
    Noise noise(5);
    double drift = 0.0;
    plot->add<LineSeries>(time, mapped(time, [&](double t) {
                              drift = 0.995 * drift + 0.12 * noise.normal();
                              const double day = (t - start) / 86400.0;
                              return 4.0 + 0.8 * day - 4.5 * std::cos((day - 0.12) * 6.283185307) +
                                     drift;
                          }));
    return plot;
}

std::shared_ptr<Plot> logAxes() {
    auto plot = std::make_shared<Plot>();
    plot->setTitle("Amplitude of resonant filters");
    plot->axis(2).setTitle("Frequency (Hz)");
    plot->axis(0).setTitle("Gain");
    plot->axis(2).setScale(Scale::log());
    plot->axis(0).setScale(Scale::log());
    const auto decades = spaced(0.0, 5.0, 500);
    const auto frequency = mapped(decades, [](double e) { return std::pow(10.0, e); });
    const auto filter = [&](double quality, const char* name) {
        plot->add<LineSeries>(frequency,
                              mapped(frequency,
                                     [quality](double f) {
                                         const double r = f / 1000.0;
                                         const double real = 1.0 - r * r;
                                         const double imaginary = r / quality;
                                         return 1.0 / std::hypot(real, imaginary);
                                     }),
                              name);
    };
    filter(20.0, "Q = 20");
    filter(3.0, "Q = 3");
    filter(0.7, "Q = 0.7");
    return plot;
}

std::shared_ptr<Plot> symLogAxis() {
    auto plot = std::make_shared<Plot>();
    plot->setTitle("Small and large swings in one picture");
    plot->setSubtitle("Even below 1, logarithmic beyond, to both sides of zero");
    plot->axis(2).setTitle("Time (s)");
    plot->axis(0).setTitle("Deviation");
    plot->axis(0).setScale(Scale::symLog(1.0));
    const auto time = spaced(0.0, 30.0, 900);
    plot->add<LineSeries>(
        time, mapped(time, [](double t) { return 0.05 * std::exp(0.35 * t) * std::sin(2.0 * t); }));
    return plot;
}

std::shared_ptr<Plot> customAxis() {
    auto plot = std::make_shared<Plot>();
    plot->setTitle("Reaction rate over temperature");
    plot->setSubtitle("An axis even in 1 / T makes the law of Arrhenius a line");
    plot->axis(2).setTitle("Temperature (K)");
    plot->axis(0).setTitle("Rate (1/s)");
    plot->axis(2).setScale(Scale::custom([](double kelvin) { return -1000.0 / kelvin; },
                                         [](double even) { return -1000.0 / even; },
                                         {1.0, 10000.0}));
    plot->axis(0).setScale(Scale::log());
    Noise noise(31);
    const auto inverse = spaced(1.0 / 300.0, 1.0 / 800.0, 24);
    const auto kelvin = mapped(inverse, [](double v) { return 1.0 / v; });
    const auto law = [](double t) { return 4.0e9 * std::exp(-7200.0 / t); };
    plot->add<LineSeries>(kelvin, mapped(kelvin, law), "law");
    plot->add<ScatterSeries>(
        kelvin, mapped(kelvin, [&](double t) { return law(t) * std::exp(0.25 * noise.normal()); }),
        "measured");
    return plot;
}

std::shared_ptr<Plot> depth() {
    auto plot = std::make_shared<Plot>();
    plot->setTitle("Sound in the sea");
    plot->axis(0).setTitle("Depth (m)");
    plot->axis(0).setInverted(true);
    plot->axis(3).setEnabled(true);
    plot->axis(2).setEnabled(false);
    plot->axis(3).setTitle("Speed (m/s)");
    const auto metres = spaced(0.0, 4000.0, 400);
    // Source: W. Munk, "Sound channel in an exponentially stratified ocean", 1974.
    const auto speed = mapped(metres, [](double z) {
        const double eta = 2.0 * (z - 1300.0) / 1300.0;
        return 1500.0 * (1.0 + 0.00737 * (eta - 1.0 + std::exp(-eta)));
    });
    const auto series = plot->add<LineSeries>(speed, metres);
    series->setAxes(3, 0);
    const auto channel =
        plot->add<LineAnnotation>(AcrossCanvas::Horizontal, 1300.0, "sound channel");
    channel->setAxes(3, 0);
    return plot;
}

std::shared_ptr<Plot> twoAxes() {
    auto plot = std::make_shared<Plot>();
    plot->setTitle("Pressure and flow of a pump");
    plot->axis(2).setTitle("Speed (rpm)");
    plot->axis(0).setTitle("Pressure (bar)");
    plot->axis(1).setTitle("Flow (l/min)");
    plot->axis(1).setEnabled(true);
    const auto speed = spaced(0.0, 3000.0, 200);
    plot->add<LineSeries>(speed, mapped(speed, [](double n) { return 6.2 * n * n / 9.0e6; }),
                          "pressure");
    const auto flow = plot->add<LineSeries>(
        speed, mapped(speed, [](double n) { return 450.0 * (1.0 - std::exp(-n / 900.0)); }),
        "flow (right)");
    flow->setAxes(2, 1);
    return plot;
}

} // namespace

Chapter scaleCharts() {
    return {"Scales and axes",
            {
                {"time-axis", "Calendar time", timeAxis},
                {"log-axes", "Logarithmic axes", logAxes},
                {"symlog-axis", "Logarithmic to both sides of zero", symLogAxis},
                {"custom-axis", "A scale of one's own", customAxis},
                {"inverted-axis", "Downwards, with the other axis above", depth},
                {"two-axes", "Two vertical axes", twoAxes},
            }};
}

} // namespace gallery
