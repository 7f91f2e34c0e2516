// SPDX-License-Identifier: MIT
#include "Samples.h"

#include <array>
#include <cmath>
#include <cstdint>
#include <numbers>

namespace viewer {

namespace {

using std::numbers::pi;

// The same numbers on every system, which the distributions of the standard library do not promise.
class Noise {
public:
    explicit Noise(std::uint64_t seed) : state(seed) {}

    // Even in (0, 1). Source: Steele, Lea, Flood: Fast splittable pseudorandom number generators,
    // 2014.
    double even() {
        state += 0x9E3779B97F4A7C15U;
        std::uint64_t z = state;
        z = (z ^ (z >> 30U)) * 0xBF58476D1CE4E5B9U;
        z = (z ^ (z >> 27U)) * 0x94D049BB133111EBU;
        z ^= z >> 31U;
        return (static_cast<double>(z >> 11U) + 0.5) / 9007199254740992.0;
    }
    // Normal with mean 0 and deviation 1. Source: Box, Muller: A note on the generation of random
    // normal deviates, 1958.
    double normal() {
        const double radius = std::sqrt(-2.0 * std::log(even()));
        return radius * std::cos(2.0 * pi * even());
    }

private:
    std::uint64_t state;
};

std::shared_ptr<zembra::Plot> newPlot(const char* title, const char* x, const char* y) {
    auto plot = std::make_shared<zembra::Plot>();
    plot->setTitle(title);
    plot->axis(2).setTitle(x);
    plot->axis(0).setTitle(y);
    return plot;
}

std::shared_ptr<zembra::Plot> signals() {
    auto plot = newPlot("Damped oscillation", "time (ms)", "voltage (V)");
    constexpr std::size_t count = 2000;
    constexpr double milliseconds = 40.0;
    struct Circuit {
        const char* name;
        double decay;
    };
    for (const Circuit circuit : {Circuit{"weak damping", 14.0}, Circuit{"medium damping", 6.0},
                                  Circuit{"strong damping", 2.5}}) {
        std::vector<double> x;
        std::vector<double> y;
        for (std::size_t i = 0; i < count; ++i) {
            const double t = milliseconds * static_cast<double>(i) / (count - 1);
            x.push_back(t);
            y.push_back(5.0 * std::exp(-t / circuit.decay) * std::cos(2.0 * pi * t / 5.0));
        }
        plot->add<zembra::LineSeries>(std::move(x), std::move(y), circuit.name);
    }
    return plot;
}

std::shared_ptr<zembra::Plot> timeSeries() {
    auto plot = newPlot("Air temperature at three stations", "", "temperature (°C)");
    plot->axis(2).setScale(zembra::Scale::time());
    constexpr double firstDay = 1672531200.0; // 2023-01-01
    constexpr double secondsPerDay = 86400.0;
    constexpr int days = 3 * 365 + 1;
    struct Station {
        const char* name;
        double mean;
        double swing;
        std::uint64_t seed;
    };
    for (const Station station : {Station{"valley", 11.5, 10.5, 1}, Station{"hill", 7.0, 8.5, 2},
                                  Station{"summit", -1.5, 7.0, 3}}) {
        Noise noise(station.seed);
        std::vector<double> x;
        std::vector<double> y;
        // Weather lasts: each day keeps a part of the one before.
        double weather = 0.0;
        for (int day = 0; day < days; ++day) {
            weather = 0.8 * weather + 1.5 * noise.normal();
            x.push_back(firstDay + secondsPerDay * day);
            y.push_back(station.mean - station.swing * std::cos(2.0 * pi * (day - 20) / 365.25) +
                        weather);
        }
        auto line = plot->add<zembra::LineSeries>(std::move(x), std::move(y), station.name);
        line->setWidth(1.0);
    }
    return plot;
}

std::shared_ptr<zembra::Plot> logarithmic() {
    auto plot = newPlot("Low-pass filters", "frequency (Hz)", "gain");
    plot->axis(2).setScale(zembra::Scale::log());
    plot->axis(0).setScale(zembra::Scale::log());
    constexpr int count = 600;
    constexpr double corner = 1000.0;
    const std::array names = {"first order", "second order", "third order", "fourth order"};
    for (std::size_t order = 1; order <= names.size(); ++order) {
        std::vector<double> x;
        std::vector<double> y;
        for (int i = 0; i < count; ++i) {
            const double frequency = std::pow(10.0, 1.0 + 4.0 * i / (count - 1.0));
            x.push_back(frequency);
            const double ratio = std::pow(frequency / corner, 2.0 * static_cast<double>(order));
            y.push_back(1.0 / std::sqrt(1.0 + ratio));
        }
        plot->add<zembra::LineSeries>(std::move(x), std::move(y), names[order - 1]);
    }
    return plot;
}

std::shared_ptr<zembra::Plot> clusters() {
    auto plot = newPlot("Three kinds of seeds", "length (mm)", "width (mm)");
    struct Kind {
        const char* name;
        double length;
        double width;
        double slope;
        double spread;
    };
    Noise noise(7);
    for (const Kind kind : {Kind{"round", 6.2, 5.4, 0.8, 0.35}, Kind{"oval", 9.0, 4.6, 0.35, 0.6},
                            Kind{"slender", 12.4, 3.1, 0.15, 0.75}}) {
        std::vector<double> x;
        std::vector<double> y;
        for (int i = 0; i < 220; ++i) {
            const double deviation = kind.spread * noise.normal();
            x.push_back(kind.length + deviation);
            y.push_back(kind.width + kind.slope * deviation + 0.22 * noise.normal());
        }
        plot->add<zembra::ScatterSeries>(std::move(x), std::move(y), kind.name);
    }
    return plot;
}

} // namespace

std::vector<Sample> sampleCharts() {
    return {{"signals", signals()},
            {"time-series", timeSeries()},
            {"logarithmic", logarithmic()},
            {"scatter", clusters()}};
}

} // namespace viewer
