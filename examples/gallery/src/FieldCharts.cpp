// SPDX-License-Identifier: MIT
#include "Chart.h"
#include "Synthetic.h"

#include <zembra/zembra.h>

#include <cmath>
#include <complex>
#include <limits>
#include <numbers>
#include <utility>

using namespace zembra;

namespace gallery {

namespace {

/// `function(x, y)` at the centres of `columns` × `rows` cells.
template <class Function>
Grid sampled(std::size_t columns, std::size_t rows, GridSpan x, GridSpan y, Function function) {
    std::vector<double> values;
    values.reserve(columns * rows);
    const auto center = [](const GridSpan& span, std::size_t i, std::size_t count) {
        return span.first + (span.last - span.first) * (static_cast<double>(i) + 0.5) /
                                static_cast<double>(count);
    };
    for (std::size_t row = 0; row < rows; ++row)
        for (std::size_t column = 0; column < columns; ++column)
            values.push_back(function(center(x, column, columns), center(y, row, rows)));
    return Grid(std::move(values), columns, x, y);
}

ColorScale colored(ColorMap map, const char* title, const Scale& scale = Scale::linear()) {
    ColorScale colors(std::move(map), scale);
    colors.setTitle(title);
    return colors;
}

/// A heat map that fills the canvas to its edges.
std::shared_ptr<HeatMapSeries> addHeatMap(Plot& plot, const Grid& grid, const ColorScale& colors) {
    const auto series = plot.add<HeatMapSeries>(grid);
    series->setColorScale(colors);
    plot.axis(2).setRange(grid.x().first, grid.x().last);
    plot.axis(0).setRange(grid.y().first, grid.y().last);
    return series;
}

/// Hills of an island; metres above the sea over kilometres.
double height(double x, double y) {
    const auto hill = [&](double cx, double cy, double width, double top) {
        const double dx = (x - cx) / width;
        const double dy = (y - cy) / width;
        return top * std::exp(-(dx * dx + dy * dy));
    };
    return hill(3.0, 2.6, 1.5, 820.0) + hill(6.4, 4.0, 1.9, 560.0) + hill(5.0, 1.2, 0.8, 240.0) +
           hill(8.6, 2.2, 0.9, 310.0) + 14.0 * std::sin(3.1 * x) * std::cos(2.7 * y);
}

std::shared_ptr<Plot> heatMap() {
    auto plot = std::make_shared<Plot>();
    plot->setTitle("Hills of an island");
    plot->axis(2).setTitle("East (km)");
    plot->axis(0).setTitle("North (km)");
    addHeatMap(*plot, sampled(200, 120, {0.0, 10.0}, {0.0, 6.0}, height),
               colored(ColorMap::viridis(), "Height (m)"));
    return plot;
}

std::shared_ptr<Plot> contourLines() {
    auto plot = std::make_shared<Plot>();
    plot->setTitle("The same hills in steps of fifty metres");
    plot->axis(2).setTitle("East (km)");
    plot->axis(0).setTitle("North (km)");
    plot->axis(2).setRange(0.0, 10.0);
    plot->axis(0).setRange(0.0, 6.0);
    const auto series =
        plot->add<ContourSeries>(sampled(200, 120, {0.0, 10.0}, {0.0, 6.0}, height));
    std::vector<double> levels;
    for (int level = 50; level <= 900; level += 50)
        levels.push_back(level);
    series->setLevels(levels);
    // Without the lightest colours, which thin lines on white would be lost in.
    ColorScale colors = colored(ColorMap::viridis(), "Height (m)");
    colors.setRange(0.0, 1100.0);
    series->setColorScale(colors);
    return plot;
}

std::shared_ptr<Plot> filledContours() {
    auto plot = std::make_shared<Plot>();
    plot->setTitle("Field of two charges and a plate");
    plot->setSubtitle("The plate is left out");
    plot->axis(2).setTitle("x (cm)");
    plot->axis(0).setTitle("y (cm)");
    plot->axis(2).setRange(-6.0, 6.0);
    plot->axis(0).setRange(-4.0, 4.0);
    const auto potential = [](double x, double y) {
        if (std::abs(x - 0.4) < 0.35 && std::abs(y + 1.2) < 1.6)
            return std::numeric_limits<double>::quiet_NaN();
        return 8.0 / (0.9 + std::hypot(x + 2.5, y - 0.8)) -
               8.0 / (0.9 + std::hypot(x - 3.0, y + 0.5)) + 0.35 * y;
    };
    const auto series =
        plot->add<ContourSeries>(sampled(260, 180, {-6.2, 6.2}, {-4.2, 4.2}, potential));
    ColorScale colors = colored(ColorMap::coolWarm(), "Potential (V)");
    colors.setCenter(0.0);
    series->setColorScale(colors);
    series->setStyle(ContourStyle::FilledWithLines);
    return plot;
}

std::shared_ptr<Plot> spectrogram() {
    auto plot = std::make_shared<Plot>();
    plot->setTitle("A motor runs up");
    plot->setSubtitle("Power of its sound, four decades");
    plot->axis(2).setTitle("Time (s)");
    plot->axis(0).setTitle("Frequency (Hz)");
    Noise noise(9);
    const auto power = [&](double t, double f) {
        const double base = 40.0 + 150.0 / (1.0 + std::exp(4.0 - 1.1 * t));
        double sum = 2e-4 * (1.5 + noise.normal() * 0.2);
        for (int harmonic = 1; harmonic <= 6; ++harmonic) {
            const double off = (f - harmonic * base) / (4.0 + harmonic);
            sum += std::exp(-off * off) / (harmonic * harmonic);
        }
        return sum + 0.01 * std::exp(-std::pow((f - 500.0) / 25.0, 2.0));
    };
    addHeatMap(*plot, sampled(240, 200, {0.0, 8.0}, {0.0, 1000.0}, power),
               colored(ColorMap::magma(), "Power", Scale::log()));
    return plot;
}

std::shared_ptr<Plot> diverging() {
    auto plot = std::make_shared<Plot>();
    plot->setTitle("Two waves meet a pillar");
    plot->setSubtitle("Above and below the level at rest; the pillar has no water");
    plot->axis(2).setTitle("x (m)");
    plot->axis(0).setTitle("y (m)");
    const auto level = [](double x, double y) {
        if (std::hypot(x - 1.0, y + 0.5) < 0.7)
            return std::numeric_limits<double>::quiet_NaN();
        const double a = std::hypot(x + 3.0, y - 1.0);
        const double b = std::hypot(x + 1.5, y + 2.6);
        return 0.32 * (std::cos(4.5 * a) / (1.0 + 0.6 * a) + std::cos(4.5 * b) / (1.0 + 0.6 * b));
    };
    ColorScale colors = colored(ColorMap::coolWarm(), "Level (m)");
    colors.setCenter(0.0);
    colors.setNanColor({90, 90, 90});
    addHeatMap(*plot, sampled(480, 320, {-6.0, 6.0}, {-4.0, 4.0}, level), colors);
    return plot;
}

std::shared_ptr<Plot> phase() {
    auto plot = std::make_shared<Plot>();
    plot->setTitle("Phase of (z² − 1)(z − 2 − i)² / (z² + 2 + 2i)");
    plot->axis(2).setTitle("Real part");
    plot->axis(0).setTitle("Imaginary part");
    const auto argument = [](double x, double y) {
        const std::complex<double> z(x, y);
        const std::complex<double> i(0.0, 1.0);
        const auto shifted = z - 2.0 - i;
        return std::arg((z * z - 1.0) * shifted * shifted / (z * z + 2.0 + 2.0 * i));
    };
    ColorScale colors = colored(ColorMap::tides(), "Phase (rad)");
    colors.setRange(-std::numbers::pi, std::numbers::pi);
    addHeatMap(*plot, sampled(600, 400, {-3.0, 3.0}, {-2.0, 2.0}, argument), colors)
        ->setSampling(HeatMapSampling::Nearest);
    return plot;
}

} // namespace

Chapter fieldCharts() {
    return {"Fields",
            {
                {"heat-map", "Heat map", heatMap},
                {"heat-map-log", "Heat map with logarithmic colours", spectrogram},
                {"heat-map-diverging", "Heat map about a centre", diverging},
                {"heat-map-cyclic", "Heat map of angles", phase},
                {"contours", "Contour lines", contourLines},
                {"contours-filled", "Filled contours", filledContours},
            }};
}

} // namespace gallery
