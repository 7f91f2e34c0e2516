// SPDX-License-Identifier: MIT
#include "ChartKind.h"

#include <array>
#include <utility>

namespace viewer {

namespace {

constexpr std::array<std::pair<ChartKind, std::string_view>, 7> names = {{
    {ChartKind::Line, "line"},
    {ChartKind::Scatter, "scatter"},
    {ChartKind::Bar, "bar"},
    {ChartKind::Histogram, "hist"},
    {ChartKind::Box, "box"},
    {ChartKind::HeatMap, "heat"},
    {ChartKind::Candlestick, "candle"},
}};

} // namespace

std::optional<ChartKind> chartKind(std::string_view name) {
    for (const auto& [kind, known] : names) {
        if (known == name)
            return kind;
    }
    return std::nullopt;
}

KindChoices choicesOf(ChartKind kind) {
    switch (kind) {
    case ChartKind::Histogram:
        return {.x = false};
    case ChartKind::Box:
        return {.x = false, .logX = false};
    case ChartKind::HeatMap:
        return {.logX = false, .logY = false};
    case ChartKind::Candlestick:
        return {.y = false, .by = false};
    case ChartKind::Line:
    case ChartKind::Scatter:
    case ChartKind::Bar:
        break;
    }
    return {};
}

std::string chartKindName(ChartKind kind) {
    for (const auto& [known, name] : names) {
        if (known == kind)
            return std::string(name);
    }
    return {};
}

} // namespace viewer
