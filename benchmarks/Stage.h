// SPDX-License-Identifier: MIT
#pragma once

#include <QtPainter.h>

#include <zembra/chart/Plot.h>
#include <zembra/series/LineSeries.h>

#include <QtGui/QImage>
#include <QtGui/QPainter>

#include <benchmark/benchmark.h>

#include <cmath>
#include <memory>
#include <random>
#include <utility>
#include <vector>

namespace zembra::benchmarks {

/// A plot on a raster picture of a common screen, drawn anew for each frame.
class Stage {
public:
    static constexpr int width = 1280;
    static constexpr int height = 720;

    Plot plot;

    void draw() {
        QPainter painter(&image);
        QtPainter target(painter);
        plot.renderInto(target, width, height);
    }

    /// Moves the view by a fraction of a pixel and more, and draws.
    void pan(double first, double last) {
        step = (step + 1) % 64;
        const double shift = (last - first) * 0.0011 * step;
        plot.setAxisScale(2, first + shift, last + shift);
        draw();
    }

private:
    QImage image{width, height, QImage::Format_ARGB32_Premultiplied};
    int step = 0;
};

/// Noise that fills the canvas; the same for a given number of samples.
inline std::vector<double> noise(std::size_t count) {
    std::minstd_rand generator(1);
    std::vector<double> values(count);
    for (double& v : values)
        v = 2.0 * static_cast<double>(generator()) / 2147483647.0 - 1.0;
    return values;
}

inline std::vector<double> wave(std::size_t count) {
    std::vector<double> values(count);
    for (std::size_t i = 0; i < count; ++i)
        values[i] = std::sin(12.0 * static_cast<double>(i) / static_cast<double>(count));
    return values;
}

inline std::vector<double> rising(std::size_t count) {
    std::vector<double> values(count);
    for (std::size_t i = 0; i < count; ++i)
        values[i] = static_cast<double>(i) / static_cast<double>(count);
    return values;
}

} // namespace zembra::benchmarks
