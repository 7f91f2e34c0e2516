// SPDX-License-Identifier: MIT
#include "HostileNumbers.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>
#include <utility>

namespace zembra::test {

namespace {

using Limits = std::numeric_limits<double>;

constexpr double size = 100.0;

const SeriesLook look{Color(0, 114, 178), Color(0, 0, 0), Color(255, 255, 255), Font(12.0)};

ScaleMap across(const HostileAxis& axis) {
    return {axis.scale, 0.0, size, axis.first, axis.second};
}

ScaleMap upwards(const HostileAxis& axis) {
    return {axis.scale, size, 0.0, axis.first, axis.second};
}

// Neighbours of 1: a span of a few units in the last place.
std::vector<double> neighbours() {
    std::vector<double> values;
    for (double value = 1.0; values.size() < 5; value = std::nextafter(value, 2.0))
        values.push_back(value);
    return values;
}

std::vector<double> ramp(double first, double step, std::size_t count) {
    std::vector<double> values;
    for (std::size_t i = 0; i < count; ++i)
        values.push_back(first + step * static_cast<double>(i));
    return values;
}

std::vector<double> noise(std::size_t count) {
    std::vector<double> values;
    for (std::size_t i = 0; i < count; ++i)
        values.push_back(i % 97 == 5 ? notANumber : 10.0 * std::sin(static_cast<double>(i * i)));
    return values;
}

void expectPlaced(const Interval& covered, const Scale& scale, const std::string& what) {
    if (covered.isEmpty())
        return;
    EXPECT_TRUE(scale.contains(covered.min)) << what << ": least value " << covered.min;
    EXPECT_TRUE(scale.contains(covered.max)) << what << ": greatest value " << covered.max;
}

void expectHarmlessOn(const Series& series, const HostileAxis& xAxis, const HostileAxis& yAxis,
                      const std::string& what) {
    RecordingPainter painter;
    FrameBuffers buffers;
    const ScaleMap x = across(xAxis);
    const ScaleMap y = upwards(yAxis);
    Canvas canvas(painter, {0.0, 0.0, size, size}, x, y, look, buffers);
    series.draw(canvas);
    EXPECT_FALSE(painter.sawWildNumber()) << what << '\n' << painter.text().substr(0, 2000);
    constexpr std::array<Point, 3> pixels = {Point{50.0, 50.0}, Point{0.0, 100.0},
                                             Point{-30.0, 1e6}};
    for (const Point& pixel : pixels) {
        const auto found = series.nearest(pixel, x, y);
        if (!found)
            continue;
        EXPECT_TRUE(std::isfinite(found->x) && std::isfinite(found->y) && found->distance >= 0.0 &&
                    std::isfinite(found->distance))
            << what << ": nearest " << found->x << ' ' << found->y << ' ' << found->distance;
    }
}

} // namespace

Stage::Stage() : Stage(Scale::linear(), 0.0, 10.0, Scale::linear(), 0.0, 10.0) {}

Stage::Stage(const Scale& xScale, double x1, double x2, const Scale& yScale, double y1, double y2)
    : xMap(xScale, 0.0, size, x1, x2), yMap(yScale, size, 0.0, y1, y2) {}

std::string Stage::draw(const Series& series) {
    recorder.clear();
    Canvas canvas(recorder, {0.0, 0.0, size, size}, xMap, yMap, look, buffers);
    series.draw(canvas);
    return recorder.text();
}

std::string Stage::drawKey(const Series& series) {
    recorder.clear();
    const Rect area{0.0, 0.0, 20.0, 10.0};
    Canvas canvas(recorder, area, {}, {}, look, buffers);
    series.drawLegendKey(canvas, area);
    return recorder.text();
}

std::optional<NearestSample> Stage::nearest(const Series& series, const Point& pixel) const {
    return series.nearest(pixel, xMap, yMap);
}

const std::vector<HostileRow>& hostileRows() {
    static const std::vector<HostileRow> rows = {
        {"empty", {}},
        {"one", {3.0}},
        {"equal", {4.0, 4.0, 4.0, 4.0}},
        {"reversed", {9.0, 7.0, 5.0, 1.0, -2.0}},
        {"not a number", {1.0, notANumber, 3.0, notANumber, notANumber, 6.0}},
        {"only not a number", {notANumber, notANumber, notANumber}},
        {"infinite", {1.0, infinity, 2.0, -infinity, 3.0}},
        {"only infinite", {-infinity, infinity}},
        {"both zeros", {0.0, -0.0, 0.0}},
        {"subnormal", {Limits::denorm_min(), 3.0 * Limits::denorm_min(), 1e-310, -1e-310}},
        {"the ends of double", {-1e308, 1.0, 1e308, Limits::max(), Limits::lowest()}},
        {"neighbouring doubles", neighbours()},
        {"all magnitudes", {1e-300, 1e-100, 1.0, 1e100, 1e300}},
        {"around zero", {-2.0, -1.0, 0.0, 1.0, 2.0}},
        {"long ramp", ramp(0.0, 0.01, 1000)},
        {"long noise", noise(1000)},
    };
    return rows;
}

const std::vector<HostileAxis>& hostileAxes() {
    static const std::vector<HostileAxis> axes = {
        {"linear", Scale::linear(), 0.0, 10.0},
        {"linear reversed", Scale::linear(), 10.0, -10.0},
        {"linear huge", Scale::linear(), Limits::lowest(), Limits::max()},
        {"linear tiny", Scale::linear(), 1.0, 1.0 + 4.0 * Limits::epsilon()},
        {"linear subnormal", Scale::linear(), 0.0, 1e-310},
        {"log", Scale::log(), 0.1, 100.0},
        {"log reversed", Scale::log(), 1e300, 1e-300},
        {"time", Scale::time(), 0.0, 86400.0},
    };
    return axes;
}

void expectHarmless(const Series& series, const std::string& what) {
    for (const HostileAxis& x : hostileAxes())
        for (const HostileAxis& y : hostileAxes())
            expectHarmlessOn(series, x, y, what + " on " + x.name + " / " + y.name);
    const std::array scales = {Scale::linear(), Scale::log()};
    for (const Scale& xScale : scales) {
        for (const Scale& yScale : scales) {
            const Bounds bounds = series.bounds(xScale, yScale);
            const std::string where = what + (xScale.isLinear() ? ", linear" : ", log") +
                                      (yScale.isLinear() ? " / linear" : " / log");
            expectPlaced(bounds.x, xScale, where + " x");
            expectPlaced(bounds.y, yScale, where + " y");
            const Interval x = xScale.autoRange(bounds.x, 0.04);
            const Interval y = yScale.autoRange(bounds.y, 0.04);
            expectHarmlessOn(series, {"", xScale, x.min, x.max}, {"", yScale, y.max, y.min},
                             where + " on its own range");
        }
    }
}

} // namespace zembra::test
