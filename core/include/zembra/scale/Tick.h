// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace zembra {

/// One labelled position on an axis.
struct Tick {
    double value = 0.0;
    /// UTF-8; empty when the tick is drawn without a text.
    std::string label;
    /// The coarser unit that begins at or contains this tick ("Jan 5" for "06:00"); ticks in a row
    /// with the same group show it once. Empty where labels stand for themselves.
    std::string group;
};

/// The ticks of one axis over one range, in strictly increasing order of their values.
struct TickSet {
    std::vector<Tick> major;
    std::vector<double> minor;
    /// What every label leaves out: a common factor or part, such as "×10⁶" or "+1.25"; shown once
    /// at the end of the axis. UTF-8, usually empty.
    std::string offset;
};

/// What an axis asks of a tick engine.
struct TickRequest {
    /// No engine returns more major ticks than this, and none ever exceeds its own fixed cap.
    int maxMajor = 10;
    bool minor = true;
    /// The distance between major ticks that the host asks for, in data units; 0 leaves it to the
    /// engine, and so does one that would make more than `maxMajor` ticks.
    double step = 0.0;
};

} // namespace zembra
