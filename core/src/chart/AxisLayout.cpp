// SPDX-License-Identifier: MIT
#include "AxisLayout.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace zembra {

namespace {

// Distances between labels along an axis, in font sizes; ticks are asked for a little farther
// apart.
constexpr double leastLabelDistance = 0.8;
constexpr double horizontalTickDistance = 5.0;
constexpr double verticalTickDistance = 3.0;
constexpr int fewestTicks = 3;
// Numbers are written in no more room than this takes, so that the canvas never moves for them.
constexpr const char* widestNumber = "−0.00000";
// Room for longer labels comes in steps, so that it seldom changes.
constexpr double roomStep = 16.0;

int mostTicks(double length, double fontSize, bool horizontal, bool isCategorical) {
    double distance = fontSize * (horizontal ? horizontalTickDistance : verticalTickDistance);
    // As many names as there may be room for.
    if (isCategorical)
        distance = fontSize;
    return std::clamp(static_cast<int>(length / std::max(distance, 1.0)) + 1, fewestTicks,
                      isCategorical ? 200 : 60);
}

// Whether neighbouring labels keep their distance.
bool fits(const AxisLayout& layout, const Font& font) {
    const double gap = leastLabelDistance * font.pixelSize();
    const double height = lineHeight(font) * (layout.hasGroups ? 2.0 : 1.0);
    double previousPixel = -std::numeric_limits<double>::infinity();
    double previousExtent = 0.0;
    for (std::size_t i = 0; i < layout.ticks.major.size(); ++i) {
        const Tick& tick = layout.ticks.major[i];
        if (tick.label.empty())
            continue;
        const double pixel = layout.map.transform(tick.value);
        const double extent = layout.horizontal ? layout.labelWidths[i] + gap : height;
        if (std::abs(pixel - previousPixel) < 0.5 * (extent + previousExtent))
            return false;
        previousPixel = pixel;
        previousExtent = extent;
    }
    return true;
}

std::ptrdiff_t labelCount(const TickSet& ticks) {
    return std::count_if(ticks.major.begin(), ticks.major.end(),
                         [](const Tick& tick) { return !tick.label.empty(); });
}

double evenSpan(const ScaleMap& map) {
    return std::abs(map.scale().transform(map.s2()) - map.scale().transform(map.s1()));
}

bool isSameSpan(double before, double now) {
    return std::abs(now - before) <= 1e-6 * before;
}

void measureLabels(AxisLayout& layout, const Font& font, TextMeasure& measure) {
    layout.labelWidths.clear();
    layout.hasGroups = false;
    for (const Tick& tick : layout.ticks.major) {
        layout.labelWidths.push_back(measure.width(tick.label, font));
        layout.hasGroups = layout.hasGroups || !tick.group.empty();
    }
}

} // namespace

double lineHeight(const Font& font) {
    return std::ceil(1.3 * font.pixelSize());
}

double baselineBelowMiddle(const Font& font) {
    return 0.36 * font.pixelSize();
}

AxisLayout layoutAxis(const AxisRequest& axis, const ScaleMap& map, bool horizontal,
                      const Theme& theme, TextMeasure& measure, AxisMemory& memory) {
    const Font& font = theme.tickFont;
    const double length = std::abs(map.p2() - map.p1());
    if (memory.revision != axis.revision || memory.length != length ||
        memory.fontSize != font.pixelSize())
        memory = {.revision = axis.revision, .length = length, .fontSize = font.pixelSize()};

    AxisLayout layout;
    layout.horizontal = horizontal;
    layout.map = map;
    TickRequest request;
    request.step = axis.step;
    request.format = axis.format;
    request.maxMajor = mostTicks(length, font.pixelSize(), horizontal, map.scale().isCategorical());
    if (memory.maxMajor > 0 && isSameSpan(memory.span, evenSpan(map)))
        request.maxMajor = memory.maxMajor;
    const auto ask = [&](int maxMajor) {
        request.maxMajor = maxMajor;
        layout.ticks = map.scale().ticks(map.s1(), map.s2(), request);
        measureLabels(layout, font, measure);
        return fits(layout, font);
    };
    while (!ask(request.maxMajor) && request.maxMajor > 1)
        request.maxMajor = request.maxMajor * 3 / 4;
    // One label alone tells no scale: a finer step may bring a second one that still fits.
    if (const int found = request.maxMajor; labelCount(layout.ticks) < 2) {
        int finer = found;
        while (finer < found + 2 * fewestTicks && ask(++finer) && labelCount(layout.ticks) < 2) {
        }
        if (labelCount(layout.ticks) < 2 || !fits(layout, font))
            ask(found);
    }
    memory.maxMajor = request.maxMajor;
    memory.span = evenSpan(map);

    double needed = lineHeight(font);
    if (!horizontal) {
        needed = axis.isSteady ? measure.width(widestNumber, font) : 0.0;
        for (const Tick& tick : layout.ticks.major) {
            const double room =
                std::max(measure.width(tick.label, font), measure.width(tick.group, font));
            if (room > needed)
                needed = axis.isSteady ? roomStep * std::ceil(room / roomStep) : room;
        }
    }
    memory.labelRoom = std::max(memory.labelRoom, std::ceil(needed));
    layout.labelRoom = memory.labelRoom;
    return layout;
}

} // namespace zembra
