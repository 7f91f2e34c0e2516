// SPDX-License-Identifier: MIT
#include "Chart.h"
#include "Synthetic.h"

#include <zembra/zembra.h>

#include <algorithm>
#include <cmath>

using namespace zembra;

namespace gallery {

namespace {

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

std::shared_ptr<Plot> shapes() {
    auto plot = std::make_shared<Plot>();
    plot->setTitle("Grains that sink in water");
    plot->setSubtitle("Each shape one material");
    plot->axis(2).setTitle("Diameter (mm)");
    plot->axis(0).setTitle("Speed (mm/s)");
    plot->axis(2).setScale(Scale::log());
    plot->axis(0).setScale(Scale::log());
    plot->legend().setPosition(LegendPosition::OutsideRight);
    Noise noise(23);
    const auto exponents = spaced(-1.6, 0.6, 12);
    // Beginning with the heaviest. Density less that of water, in g/cm³.
    const auto add = [&](const char* name, double density, MarkerShape shape) {
        std::vector<double> diameter;
        std::vector<double> speed;
        for (const double e : exponents) {
            const double d = std::pow(10.0, e + 0.03 * noise.normal());
            // From laminar to turbulent flow.
            const double slow = 545.0 * density * d * d;
            const double fast = 180.0 * std::sqrt(density * d);
            diameter.push_back(d);
            speed.push_back(std::exp(0.09 * noise.normal()) / (1.0 / slow + 1.0 / fast));
        }
        const auto series = plot->add<ScatterSeries>(diameter, speed, name);
        series->setMarkerShape(shape);
        series->setMarkerSize(8.0);
    };
    add("gold", 18.3, MarkerShape::Star);
    add("lead", 10.3, MarkerShape::Square);
    add("magnetite", 4.2, MarkerShape::TriangleDown);
    add("quartz", 1.65, MarkerShape::Circle);
    add("coal", 0.4, MarkerShape::Diamond);
    add("amber", 0.07, MarkerShape::TriangleUp);
    add("resin", 0.02, MarkerShape::Cross);
    add("wax", 0.005, MarkerShape::Plus);
    return plot;
}

std::shared_ptr<Plot> bubbles() {
    auto plot = std::make_shared<Plot>();
    plot->setTitle("Earthquakes below an arc of islands");
    plot->setSubtitle("Larger discs are stronger; the plate dives to the east");
    plot->axis(2).setTitle("Longitude (° east)");
    plot->axis(0).setTitle("Latitude (° north)");
    Noise noise(77);
    struct Quake {
        double longitude;
        double latitude;
        double size;
        double depth;
    };
    std::vector<Quake> quakes;
    for (int i = 0; i < 340; ++i) {
        const double along = 12.0 * noise.even() - 6.0;
        const double inland = std::pow(noise.even(), 1.7);
        const double magnitude = 4.0 - std::log(1.0 - 0.985 * noise.even()) / 1.6;
        quakes.push_back({143.0 + 0.085 * along * along + 4.2 * inland + 0.22 * noise.normal(),
                          38.0 + along - 0.8 * inland + 0.15 * noise.normal(),
                          1.6 * std::pow(10.0, 0.36 * (magnitude - 3.6)) + 2.0,
                          std::max(620.0 * inland + 25.0 * noise.normal(), 4.0)});
    }
    // Small ones on top of large ones.
    std::sort(quakes.begin(), quakes.end(),
              [](const Quake& a, const Quake& b) { return a.size > b.size; });
    const auto column = [&](double Quake::*member) {
        return mapped(quakes, [=](const Quake& quake) { return quake.*member; });
    };
    const auto series =
        plot->add<ScatterSeries>(column(&Quake::longitude), column(&Quake::latitude));
    series->setMarkerSizes(column(&Quake::size));
    ColorScale colors(ColorMap::plasma());
    colors.setTitle("Depth (km)");
    series->setColorScale(colors);
    series->setColorValues(column(&Quake::depth));
    return plot;
}

std::shared_ptr<Plot> stars() {
    auto plot = std::make_shared<Plot>();
    plot->setTheme(Theme::dark());
    plot->setTitle("Twenty thousand stars");
    plot->axis(2).setTitle("Colour index (B − V)");
    plot->axis(0).setTitle("Absolute magnitude");
    plot->axis(0).setInverted(true);
    plot->axis(2).setGridVisible(false);
    plot->axis(0).setGridVisible(false);
    Noise noise(2);
    std::vector<double> index;
    std::vector<double> magnitude;
    for (int i = 0; i < 20000; ++i) {
        const double kind = noise.even();
        double color = 0.0;
        double light = 0.0;
        if (kind < 0.8) {
            color = 0.62 + 0.38 * noise.normal();
            color = color < -0.3 || color > 1.6 ? 0.7 : color;
            light = 1.2 + 6.4 * color - 1.1 * std::sin(3.6 * color) + 0.35 * noise.normal() -
                    (noise.even() < 0.2 ? 0.7 * noise.even() : 0.0);
        } else if (kind < 0.93) {
            color = 1.05 + 0.11 * noise.normal();
            light = 0.9 + 0.45 * noise.normal();
        } else if (kind < 0.98) {
            const double up = noise.even();
            color = 1.0 + 0.65 * up + 0.06 * noise.normal();
            light = 2.8 - 4.6 * up + 0.4 * noise.normal();
        } else {
            color = 0.35 * noise.normal() + 0.15;
            light = 11.6 + 3.2 * color + 0.4 * noise.normal();
        }
        index.push_back(color);
        magnitude.push_back(light);
    }
    const auto series = plot->add<ScatterSeries>(index, magnitude);
    series->setMarkerSize(2.5);
    // What a glowing body of that colour looks like.
    ColorScale colors(ColorMap({Color(155, 180, 255), Color(202, 216, 255), Color(255, 247, 240),
                                Color(255, 221, 170), Color(255, 180, 95), Color(240, 110, 60)}));
    colors.setRange(-0.3, 1.8);
    colors.setTitle("B − V");
    series->setColorScale(colors);
    series->setColorValues(index);
    return plot;
}

} // namespace

Chapter pointCharts() {
    return {"Points",
            {
                {"scatter", "Scatter", scatter},
                {"scatter-shapes", "Eight shapes", shapes},
                {"scatter-values", "Sizes and colours by value", bubbles},
                {"scatter-many", "More points than the eye can count", stars},
            }};
}

} // namespace gallery
