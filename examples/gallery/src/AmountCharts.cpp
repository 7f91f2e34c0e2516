// SPDX-License-Identifier: MIT
#include "Chart.h"
#include "Synthetic.h"

#include <zembra/zembra.h>

#include <algorithm>
#include <cmath>

using namespace zembra;

namespace gallery {

namespace {

const std::vector<double> places = {0.0, 1.0, 2.0, 3.0, 4.0, 5.0};

std::shared_ptr<Plot> groupedBars() {
    auto plot = std::make_shared<Plot>();
    plot->setTitle("Bicycles counted at the bridge");
    plot->setSubtitle("Mean of a weekday, by season");
    plot->axis(2).setScale(
        Scale::categorical({"6–8 h", "8–10 h", "10–13 h", "13–16 h", "16–19 h", "19–22 h"}));
    plot->axis(2).setGridVisible(false);
    plot->axis(0).setTitle("Bicycles per hour");
    const std::vector<double> winter = {210.0, 480.0, 190.0, 230.0, 510.0, 120.0};
    const std::vector<double> spring = {340.0, 720.0, 360.0, 410.0, 830.0, 260.0};
    const std::vector<double> summer = {390.0, 790.0, 470.0, 520.0, 960.0, 450.0};
    const auto first = plot->add<BarSeries>(places, winter, "winter");
    const auto second = plot->add<BarSeries>(places, spring, "spring");
    const auto third = plot->add<BarSeries>(places, summer, "summer");
    second->standBeside(*first);
    third->standBeside(*second);
    return plot;
}

std::shared_ptr<Plot> stackedBars() {
    auto plot = std::make_shared<Plot>();
    plot->setTitle("Energy of a house with a battery");
    plot->setSubtitle("Bought and made upwards, sold downwards");
    plot->axis(2).setScale(Scale::categorical(
        {"Jan", "Feb", "Mar", "Apr", "May", "Jun", "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"}));
    plot->axis(2).setGridVisible(false);
    plot->axis(0).setTitle("Energy (kWh)");
    const auto month = spaced(0.0, 11.0, 12);
    const auto& colors = plot->theme().cycle;
    const auto bars = [&](std::vector<double> energy, const char* name, const Color& color) {
        const auto series = plot->add<BarSeries>(month, std::move(energy), name);
        series->setColor(color);
        return series;
    };
    // From top to bottom, as the legend should tell them.
    const auto battery = bars({8, 17, 44, 71, 88, 95, 97, 90, 66, 31, 11, 6}, "battery", colors[2]);
    const auto roof =
        bars({52, 88, 160, 205, 232, 246, 251, 228, 184, 118, 63, 44}, "roof", colors[4]);
    const auto grid =
        bars({415, 340, 245, 140, 75, 48, 52, 66, 120, 230, 350, 430}, "grid", colors[0]);
    const auto sold =
        bars({0, -6, -48, -121, -190, -232, -240, -181, -92, -24, -2, 0}, "sold", colors[3]);
    roof->stackOn(*grid);
    battery->stackOn(*roof);
    sold->stackOn(*battery);
    plot->legend().setPosition(LegendPosition::OutsideRight);
    return plot;
}

std::shared_ptr<Plot> lyingBars() {
    auto plot = std::make_shared<Plot>();
    plot->setTitle("Longest rivers of the continent");
    plot->axis(0).setScale(Scale::categorical(
        {"Arvel", "Lower Tamm", "Ostra", "Great Lune", "Sarn", "Vidda", "Nemer"}));
    plot->axis(0).setGridVisible(false);
    plot->axis(2).setTitle("Length (km)");
    const auto bars = plot->add<BarSeries>(
        spaced(0.0, 6.0, 7), std::vector{612.0, 688.0, 731.0, 1150.0, 1294.0, 2211.0, 2850.0});
    bars->setStyle({.orientation = Orientation::Horizontal, .share = 0.7});
    return plot;
}

std::shared_ptr<Plot> area() {
    auto plot = std::make_shared<Plot>();
    plot->setTitle("Runoff of a mountain stream");
    plot->axis(2).setScale(Scale::time());
    plot->axis(0).setTitle("Discharge (m³/s)");
    constexpr double day = 86400.0;
    constexpr double start = 1704067200.0;
    std::vector<double> time;
    std::vector<double> flow;
    Noise noise(31);
    double storm = 0.0;
    for (int i = 0; i <= 366; ++i) {
        if (noise.even() < 0.08)
            storm += 7.0 * noise.even() * noise.even();
        storm *= 0.7;
        const double melt = 7.5 * std::exp(-std::pow((i - 150.0) / 42.0, 2.0));
        time.push_back(start + i * day);
        flow.push_back(1.1 + melt * (1.0 + 0.08 * noise.normal()) + storm);
    }
    plot->add<AreaSeries>(time, flow)->setStyle({.lineWidth = 1.25});
    return plot;
}

std::shared_ptr<Plot> stackedAreas() {
    auto plot = std::make_shared<Plot>();
    plot->setTitle("Where a summer day's power comes from");
    plot->axis(2).setScale(Scale::time());
    plot->axis(0).setTitle("Power (GW)");
    const double midnight = 1720569600.0;
    const double day = 86400.0;
    plot->axis(2).setRange(midnight, midnight + day);
    const auto time = spaced(midnight, midnight + day, 97);
    const auto hour = spaced(0.0, 24.0, 97);
    const auto bump = [](double t, double middle, double width) {
        return std::exp(-std::pow((t - middle) / width, 2.0));
    };
    const auto sun = [](double t) {
        return 19.0 * std::pow(std::max(std::sin((t - 5.0) * 0.196349541), 0.0), 1.6);
    };
    const auto wind = [](double t) {
        return 6.5 + 2.4 * std::sin(t * 0.34 + 0.6) + 0.5 * std::sin(t * 1.3);
    };
    const auto water = [&](double t) {
        return 4.0 + 2.2 * bump(t, 7.5, 1.8) + 4.2 * bump(t, 20.0, 2.2);
    };
    const auto gas = [&](double t) {
        const double need =
            31.0 - 8.0 * bump(t, 3.0, 4.0) + 7.0 * bump(t, 12.0, 5.0) + 6.0 * bump(t, 19.5, 2.8);
        return std::max(need - 8.0 - sun(t) - wind(t) - water(t), 1.5);
    };
    const auto& colors = plot->theme().cycle;
    // From top to bottom, as the legend should tell them.
    const auto add = [&](const char* name, const Color& color, const auto& power) {
        const auto series = plot->add<AreaSeries>(time, mapped(hour, power), name);
        series->setStyle({.lineWidth = 1.0, .opacity = 0.75});
        series->setColor(color);
        return series;
    };
    const auto sunArea = add("sun", colors[4], sun);
    const auto windArea = add("wind", colors[5], wind);
    const auto gasArea = add("gas", colors[7], gas);
    const auto waterArea = add("water", colors[0], water);
    const auto woodArea = add("wood", colors[2], [](double) { return 8.0; });
    waterArea->stackOn(*woodArea);
    gasArea->stackOn(*waterArea);
    windArea->stackOn(*gasArea);
    sunArea->stackOn(*windArea);
    plot->legend().setPosition(LegendPosition::OutsideRight);
    return plot;
}

std::shared_ptr<Plot> band() {
    auto plot = std::make_shared<Plot>();
    plot->setTitle("Forecast of the lake's level");
    plot->setSubtitle("Median with ranges of 50 % and 90 %");
    plot->axis(2).setTitle("Days from now");
    plot->axis(0).setTitle("Level (cm)");
    const Color blue = plot->theme().cycle.front();
    const auto past = spaced(-30.0, 0.0, 61);
    const auto level = [](double t) { return 412.0 + 14.0 * std::sin(t / 9.0) - 0.25 * t; };
    auto measured = mapped(past, level);
    Noise noise(5);
    for (std::size_t i = 0; i + 1 < measured.size(); ++i)
        measured[i] += 1.2 * noise.normal();
    const auto ahead = spaced(0.0, 30.0, 61);
    const auto edge = [&](double width) {
        return mapped(ahead, [=](double t) { return level(t) + width * std::sqrt(t); });
    };
    const auto wide = plot->add<BandSeries>(ahead, edge(-6.0), edge(6.0), "90 %");
    wide->setStyle({.opacity = 0.18});
    wide->setColor(blue);
    const auto narrow = plot->add<BandSeries>(ahead, edge(-2.5), edge(2.5), "50 %");
    narrow->setColor(blue);
    const auto median = plot->add<LineSeries>(ahead, edge(0.0), "median");
    median->setColor(blue);
    median->setStyle(PenStyle::Dash);
    const auto line = plot->add<LineSeries>(past, measured, "measured");
    line->setColor(plot->theme().text);
    return plot;
}

std::shared_ptr<Plot> stem() {
    auto plot = std::make_shared<Plot>();
    plot->setTitle("A low-pass filter of 41 taps");
    plot->axis(2).setTitle("Tap");
    plot->axis(0).setTitle("Coefficient");
    const auto tap = spaced(-20.0, 20.0, 41);
    const auto coefficient = [](double n) {
        const double phase = 0.7 * n;
        const double sinc = n == 0.0 ? 1.0 : std::sin(phase) / phase;
        return 0.2228 * sinc * (0.54 + 0.46 * std::cos(n * 0.15708));
    };
    plot->add<StemSeries>(tap, mapped(tap, coefficient));
    return plot;
}

std::shared_ptr<Plot> candles(const CandleStyle& style) {
    auto plot = std::make_shared<Plot>();
    plot->setTitle("Shares of a cheese maker");
    plot->axis(2).setScale(Scale::time());
    plot->axis(0).setTitle("Price (fr.)");
    constexpr double day = 86400.0;
    constexpr double start = 1709510400.0;
    Noise noise(42);
    CandleRows rows;
    double price = 84.0;
    for (int i = 0; i < 68; ++i) {
        const bool isWeekend = i % 7 >= 5;
        if (isWeekend)
            continue;
        const double open = price + 0.25 * noise.normal();
        const double close = open + 1.1 * noise.normal() + 0.12;
        rows.x.push_back(start + i * day);
        rows.open.push_back(open);
        rows.close.push_back(close);
        rows.high.push_back(std::max(open, close) + 0.8 * noise.even());
        rows.low.push_back(std::min(open, close) - 0.8 * noise.even());
        price = close;
    }
    plot->add<CandlestickSeries>(rows)->setStyle(style);
    return plot;
}

std::shared_ptr<Plot> candlestick() {
    return candles({});
}

std::shared_ptr<Plot> openHighLowClose() {
    return candles({.shape = CandleShape::OpenHighLowClose});
}

} // namespace

Chapter amountCharts() {
    return {"Bars and areas",
            {
                {"bar-grouped", "Bars side by side", groupedBars},
                {"bar-stacked", "Bars on each other", stackedBars},
                {"bar-horizontal", "Lying bars", lyingBars},
                {"area", "Area", area},
                {"area-stacked", "Areas on each other", stackedAreas},
                {"band", "Bands around a line", band},
                {"stem", "Stems", stem},
                {"candlestick", "Candlesticks", candlestick},
                {"open-high-low-close", "Open, high, low and close", openHighLowClose},
            }};
}

} // namespace gallery
