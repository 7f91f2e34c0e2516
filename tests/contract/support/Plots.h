// SPDX-License-Identifier: MIT
#pragma once

#include <zembra/chart/Plot.h>

#include <memory>

/// A plot of one wave: x from 0 to 10, y from -100 to 100.
inline std::shared_ptr<zembra::Plot> makePlot() {
    return std::make_shared<zembra::Plot>();
}

/// A plot that leaves its corners as they are.
inline std::shared_ptr<zembra::Plot> makeBarePlot() {
    auto plot = std::make_shared<zembra::Plot>();
    plot->setBare(true);
    return plot;
}
