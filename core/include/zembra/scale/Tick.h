// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace zembra {

class NumberFormat;

/// One labelled position on an axis.
struct Tick {
    double value = 0.0;
    /// UTF-8; empty when the tick is drawn without a text.
    std::string label;
    /// The coarser unit that contains this tick ("Jan 5 2024" for "06:00"), always told in full;
    /// ticks in a row with the same group show it once. Empty where labels stand for themselves.
    /// No two ticks of a set have the same label and group, except where both are empty.
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
    /// No engine returns more major ticks than this, and none ever exceeds its own fixed cap of 200
    /// major and 800 minor ticks. Below 1 there are none.
    int maxMajor = 10;
    bool minor = true;
    /// The distance between major ticks that the host asks for, in data units; 0 leaves it to the
    /// engine, and so does one that would make no tick or more than `maxMajor`. Only linear ticks
    /// follow it.
    double step = 0.0;
    /// How numbers are told; null for the automatic format. Not owned, and not kept. Calendar
    /// labels and names of categories ignore it.
    const NumberFormat* format = nullptr;
};

} // namespace zembra
