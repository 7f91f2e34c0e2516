// SPDX-License-Identifier: MIT
#pragma once

#include "Numbers.h"
#include "RecordingPainter.h"

#include <zembra/series/Canvas.h>
#include <zembra/series/Series.h>

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace zembra::test {

/// Everything a series needs to be drawn without a plot: a canvas of 100 × 100 pixels at (0, 0),
/// two scales with their ranges, and a painter that writes down what it is told.
///
/// The series' colour is #0072b2, the foreground black, the background white.
class Stage {
public:
    /// Both axes linear from 0 to 10, the x axis to the right and the y axis upwards.
    Stage();
    Stage(const Scale& xScale, double x1, double x2, const Scale& yScale, double y1, double y2);

    const ScaleMap& x() const { return xMap; }
    const ScaleMap& y() const { return yMap; }
    RecordingPainter& painter() { return recorder; }

    /// What drawing the series writes.
    std::string draw(const Series& series);
    /// What its key in the legend writes, in an area of 20 × 10 pixels at (0, 0).
    std::string drawKey(const Series& series);
    std::optional<NearestSample> nearest(const Series& series, const Point& pixel) const;

private:
    ScaleMap xMap;
    ScaleMap yMap;
    RecordingPainter recorder;
    FrameBuffers buffers;
};

/// Numbers that break careless code.
struct HostileRow {
    std::string name;
    std::vector<double> values;
};

/// Empty, one, equal, reversed, NaN, infinities, both zeros, subnormals, the ends of double, a few
/// neighbouring doubles, zero and negatives for logarithms …; two rows are longer than a canvas is
/// wide.
const std::vector<HostileRow>& hostileRows();

/// A scale and a range over it.
struct HostileAxis {
    std::string name;
    Scale scale;
    double first;
    double second;
};

/// Linear, logarithmic and time axes in both directions, with ranges of ordinary, huge, tiny and
/// hardly different numbers.
const std::vector<HostileAxis>& hostileAxes();

/// Draws a series on every pair of hostile axes and on the ranges it asks for itself. Fails where
/// a wild number reaches the painter, where the bounds hold what a scale cannot place, or where the
/// nearest sample is not made of finite numbers.
void expectHarmless(const Series& series, const std::string& what);

/// Calls `make(a, b)`, which gives a `std::shared_ptr` to a series, for every pair of hostile rows.
template <class Make>
void expectHarmlessForAll(Make make) {
    for (const HostileRow& a : hostileRows())
        for (const HostileRow& b : hostileRows())
            expectHarmless(*make(a.values, b.values), a.name + " / " + b.name);
}

} // namespace zembra::test
