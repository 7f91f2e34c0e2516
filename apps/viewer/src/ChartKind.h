// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace viewer {

enum class ChartKind { Line, Scatter, Bar, Histogram, Box, HeatMap, Candlestick };

/// The kind that the command line calls "line", "scatter", "bar", "hist", "box", "heat" or
/// "candle"; none for other words.
std::optional<ChartKind> chartKind(std::string_view name);

/// Which choices have a meaning for a kind.
struct KindChoices {
    bool x = true;
    bool y = true;
    bool by = true;
    bool logX = true;
    bool logY = true;
};

KindChoices choicesOf(ChartKind kind);

/// What the command line calls a kind.
std::string chartKindName(ChartKind kind);

} // namespace viewer
