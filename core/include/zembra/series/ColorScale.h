// SPDX-License-Identifier: MIT
#pragma once

#include <zembra/scale/Interval.h>
#include <zembra/scale/Scale.h>
#include <zembra/series/ColorMap.h>
#include <zembra/zembra_export.h>

#include <optional>
#include <string>

namespace zembra {

/// Turns values into colours: a colour map over a range, spread linearly or by any other scale.
///
/// A copyable value. A series keeps its own copy and tells it what its values cover.
class ZEMBRA_EXPORT ColorScale {
public:
    ColorScale();
    explicit ColorScale(ColorMap map, const Scale& scale = Scale::linear());

    void setMap(ColorMap map);
    const ColorMap& map() const { return colorMap; }
    void setScale(const Scale& scale);
    const Scale& scale() const { return valueScale; }

    /// Gives a value the middle of the map and equal distances from it, as the scale measures them,
    /// colours equally far from there; for diverging maps. An automatic range then reaches equally
    /// far to both sides. None, as at first, spreads the map from one end of the range to the
    /// other.
    void setCenter(std::optional<double> value);
    std::optional<double> center() const { return centerValue; }

    /// Fixes the range; values beyond take the colours of its ends.
    /// Errors: returns false and changes nothing unless the scale can place both and `min < max`.
    bool setRange(double min, double max);
    /// Lets the range follow the data, as at first.
    void setAutoRange();
    bool isAutoRange() const { return !fixedRange; }
    /// What an automatic range covers; called by the series that owns the colour scale.
    void setDataRange(const Interval& values);

    /// The range in force. Where data is missing or a single value, a default about it.
    const Interval& range() const { return currentRange; }

    /// For values that are not finite or that the scale cannot place; fully transparent at first.
    void setNanColor(const Color& color) { colorOfNan = color; }
    const Color& nanColor() const { return colorOfNan; }

    /// Shown along the colour bar, UTF-8.
    void setTitle(std::string title) { barTitle = std::move(title); }
    const std::string& title() const { return barTitle; }

    /// Where in the map a value lies, 0 to 1; NaN for values without a place.
    double share(double value) const;
    Color color(double value) const;

private:
    void update();
    Interval automaticRange() const;

    ColorMap colorMap;
    Scale valueScale;
    std::optional<double> centerValue;
    std::optional<Interval> fixedRange;
    Interval dataRange;
    // What follows from the above: the range, and on half the scale's even measure where the map
    // begins and how far it reaches.
    Interval currentRange;
    double begin = 0.0;
    double reach = 0.5;
    Color colorOfNan = Color(0, 0, 0, 0);
    std::string barTitle;
};

} // namespace zembra
