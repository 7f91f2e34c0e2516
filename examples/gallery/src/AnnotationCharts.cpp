// SPDX-License-Identifier: MIT
#include "Chart.h"
#include "Synthetic.h"

#include <zembra/zembra.h>

#include <cmath>

using namespace zembra;

namespace gallery {

namespace {

std::shared_ptr<Plot> annotations() {
    auto plot = std::make_shared<Plot>();
    plot->setTitle("A furnace over one day");
    plot->axis(2).setTitle("Hour");
    plot->axis(2).setRange(0.0, 24.0, 4.0);
    plot->axis(0).setTitle("Temperature (°C)");
    plot->axis(0).setRange(0.0, 1400.0);
    const auto temperature = [](double t) {
        const double rise = 1.0 / (1.0 + std::exp(3.2 - 0.95 * t));
        const double fall = 1.0 / (1.0 + std::exp(1.1 * (t - 17.5)));
        return 40.0 + 900.0 * rise * fall + 190.0 * std::exp(-std::pow((t - 9.0) / 0.9, 2.0));
    };
    const auto hour = spaced(0.0, 24.0, 289);
    Noise noise(17);
    plot->add<SpanAnnotation>(AcrossCanvas::Vertical, 6.0, 14.0, "early shift");
    plot->add<SpanAnnotation>(AcrossCanvas::Vertical, 14.0, 22.0, "late shift")
        ->setColor(Color(0, 114, 178, 22));
    const auto curve = plot->add<LineSeries>(
        hour, mapped(hour, [&](double t) { return temperature(t) + 7.0 * noise.normal(); }));
    curve->setColor(plot->theme().cycle.front());
    const Color alarm(190, 40, 30);
    plot->add<LineAnnotation>(AcrossCanvas::Horizontal, 1050.0, "alarm at 1050 °C")
        ->setColor(alarm);
    const auto peak = plot->add<TextAnnotation>(Position{9.0, temperature(9.0)}, "door jammed");
    peak->setOffset({64.0, -8.0});
    plot->add<ShapeAnnotation>(AnnotationShape::Ellipse,
                               std::vector<Position>{{15.4, 250.0}, {20.4, 860.0}})
        ->setColor(Color(0, 130, 95));
    const auto cooling = plot->add<TextAnnotation>(Position{20.2, 640.0}, "cooling");
    cooling->setOffset({24.0, -34.0});
    plot->add<ArrowAnnotation>(Position{1.2, 420.0}, Position{3.0, 420.0});
    plot->add<TextAnnotation>(Position{2.0, 470.0}, "heating")->setOffset({-2.0, -8.0});
    return plot;
}

} // namespace

Chapter annotationCharts() {
    return {"Annotations",
            {{"annotations", "Lines, spans, texts, arrows and shapes", annotations}}};
}

} // namespace gallery
