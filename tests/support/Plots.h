// SPDX-License-Identifier: MIT
#pragma once

#include <zembra/chart/Plot.h>
#include <zembra/series/LineSeries.h>

#include <cmath>
#include <memory>
#include <vector>

/// A plot of one wave: x from 0 to 10, y from -100 to 100.
inline std::shared_ptr<zembra::Plot> makePlot() {
    auto plot = std::make_shared<zembra::Plot>();
    std::vector<double> x;
    std::vector<double> y;
    for (int i = 0; i <= 200; ++i) {
        x.push_back(i / 20.0);
        y.push_back(100.0 * std::sin(i / 20.0));
    }
    plot->add<zembra::LineSeries>(x, y, "wave");
    return plot;
}

/// A plot that leaves its corners as they are.
inline std::shared_ptr<zembra::Plot> makeBarePlot() {
    auto plot = std::make_shared<zembra::Plot>();
    zembra::Theme bare = plot->theme();
    bare.background = zembra::Color(0, 0, 0, 0);
    bare.canvas = zembra::Color(0, 0, 0, 0);
    plot->setTheme(bare);
    plot->setAxisEnabled(0, false);
    plot->setAxisEnabled(2, false);
    return plot;
}
