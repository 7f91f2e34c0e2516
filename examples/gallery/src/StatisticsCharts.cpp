// SPDX-License-Identifier: MIT
#include "Chart.h"
#include "Synthetic.h"

#include <zembra/zembra.h>

#include <cmath>

using namespace zembra;

namespace gallery {

namespace {

std::shared_ptr<Plot> histogram() {
    auto plot = std::make_shared<Plot>();
    plot->setTitle("Time between two eruptions of a geyser");
    plot->axis(2).setTitle("Minutes");
    plot->axis(0).setTitle("Eruptions");
    Noise noise(8);
    std::vector<double> minutes;
    for (int i = 0; i < 1800; ++i)
        minutes.push_back(noise.even() < 0.36 ? 54.5 + 6.0 * noise.normal()
                                              : 80.0 + 6.5 * noise.normal());
    plot->add<HistogramSeries>(minutes);
    return plot;
}

std::shared_ptr<Plot> densities() {
    auto plot = std::make_shared<Plot>();
    plot->setTitle("Heights of two stands of trees");
    plot->axis(2).setTitle("Height (m)");
    plot->axis(0).setTitle("Density (1/m)");
    Noise noise(9);
    const auto heights = [&](double mean, double spread, int count) {
        std::vector<double> values;
        for (int i = 0; i < count; ++i)
            values.push_back(mean + spread * noise.normal());
        return values;
    };
    const auto add = [&](std::vector<double> samples, const char* name, const Color& color) {
        const auto series = plot->add<HistogramSeries>(std::move(samples), name);
        series->setBins(Bins::ofWidth(0.5));
        series->setStyle({.height = HistogramHeight::Density});
        series->setColor(color.withAlpha(150));
    };
    add(heights(14.0, 2.2, 3000), "1500 m", plot->theme().cycle[0]);
    add(heights(19.5, 3.0, 900), "900 m", plot->theme().cycle[1]);
    return plot;
}

std::shared_ptr<Plot> errorBars() {
    auto plot = std::make_shared<Plot>();
    plot->setTitle("Decay of a sample");
    plot->setSubtitle("Counts with their standard errors, and the law they follow");
    plot->axis(2).setTitle("Time (min)");
    plot->axis(0).setTitle("Counts per minute");
    plot->axis(0).setScale(Scale::log());
    const auto law = [](double t) { return 820.0 * std::exp(-0.19 * t); };
    Noise noise(14);
    const auto minute = spaced(1.0, 24.0, 16);
    std::vector<double> counts;
    std::vector<double> errors;
    for (const double t : minute) {
        counts.push_back(std::max(law(t) + std::sqrt(law(t)) * noise.normal(), 2.0));
        errors.push_back(std::sqrt(counts.back()));
    }
    const auto fine = spaced(0.0, 25.0, 100);
    plot->add<LineSeries>(fine, mapped(fine, law), "law")->setColor(plot->theme().cycle[1]);
    const auto bars = plot->add<ErrorBarSeries>(minute, counts, "measured");
    bars->setColor(plot->theme().cycle[0]);
    bars->setXErrors(std::vector<double>(minute.size(), 0.5));
    bars->setYErrors(errors);
    return plot;
}

std::shared_ptr<Plot> boxPlot() {
    auto plot = std::make_shared<Plot>();
    plot->setTitle("Reaction time after hours awake");
    plot->axis(2).setScale(Scale::categorical({"8 h", "12 h", "16 h", "20 h", "24 h", "28 h"}));
    plot->axis(2).setGridVisible(false);
    plot->axis(2).setTitle("Awake");
    plot->axis(0).setTitle("Time (ms)");
    Noise noise(17);
    std::vector<std::vector<double>> groups;
    for (int group = 0; group < 6; ++group) {
        std::vector<double> times;
        for (int i = 0; i < 120; ++i) {
            const double spread = 0.11 + 0.022 * group;
            times.push_back((238.0 + 3.2 * group * group) * std::exp(spread * noise.normal()));
        }
        groups.push_back(times);
    }
    plot->add<BoxPlotSeries>(groups)->setStyle({.showsMean = true});
    return plot;
}

} // namespace

Chapter statisticsCharts() {
    return {"Statistics",
            {
                {"histogram", "Histogram", histogram},
                {"histogram-density", "Histograms of densities", densities},
                {"error-bars", "Error bars", errorBars},
                {"box-plot", "Box plot", boxPlot},
            }};
}

} // namespace gallery
