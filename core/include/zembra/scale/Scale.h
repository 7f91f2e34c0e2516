// SPDX-License-Identifier: MIT
#pragma once

#include <zembra/scale/Interval.h>
#include <zembra/scale/Tick.h>
#include <zembra/zembra_export.h>

#include <functional>
#include <limits>
#include <memory>
#include <string>
#include <vector>

namespace zembra {

class ScaleEngine;

/// How data values are spread along an axis: linear, logarithmic, by time.
///
/// A small immutable value; copies share their engine. Direction and range are not the scale's:
/// they belong to the `ScaleMap` that carries it.
class ZEMBRA_EXPORT Scale {
public:
    /// The linear scale.
    Scale();
    /// A scale of one's own kind. Requires: `engine` is not null.
    explicit Scale(std::shared_ptr<const ScaleEngine> engine);

    static Scale linear();
    /// Logarithmic. Range: values above 0. A base that is not finite or not above 1 means 10.
    static Scale log(double base = 10.0);
    /// Calendar time. Units: seconds since the Unix epoch (UTC). `zone` is an IANA name such as
    /// "Europe/Zurich" in which ticks and labels are told; an unknown one means UTC.
    static Scale time(const std::string& zone = "UTC");
    /// Linear around zero, logarithmic far from it, over all numbers: sign(v) log(1 + |v| / w).
    /// `linearWidth` is the w within which values lie about evenly; one that is not finite or not
    /// above 0 means 1. A base that is not finite or not above 1 means 10.
    ///
    /// Source: J. Beau W. Webber, "A bi-symmetric log transformation for wide-range data", 2013.
    static Scale symLog(double linearWidth = 1.0, double base = 10.0);
    /// Names at 0, 1, 2 and so on, one tick each.
    static Scale categorical(std::vector<std::string> names);
    /// A scale of one's own: `forward` is continuous and strictly monotone over `domain`, and
    /// `inverse` undoes it. A falling `forward` is turned around; direction is the axis's.
    ///
    /// Errors: where a function is empty or throws, values cannot be placed (NaN).
    static Scale custom(std::function<double(double)> forward,
                        std::function<double(double)> inverse, const Interval& domain = allReals());

    /// Every finite number.
    static constexpr Interval allReals() {
        return {std::numeric_limits<double>::lowest(), std::numeric_limits<double>::max()};
    }

    /// Where a value lies on the even (linear) measure behind the axis; NaN outside the domain.
    double transform(double value) const;
    /// The inverse of `transform`.
    double invTransform(double position) const;
    /// Whether the value can be placed on the scale: finite and within the domain.
    bool contains(double value) const;
    /// Whether `transform` is the identity, so that callers may take a faster road.
    bool isLinear() const;
    /// Whether ticks may tell a coarser unit in their groups, which takes a line of its own.
    bool hasGroups() const;
    /// Whether ticks name single values, so that each one left out is missed.
    bool isCategorical() const;
    /// The smallest and the largest value that can be placed.
    Interval domain() const;

    /// The range an axis takes by itself for data over `data`: padded by `share` of the span at
    /// both ends as the scale spreads it (a logarithmic one by decades, a categorical one by half a
    /// step), widened where the data is a single value, a default range where it is empty.
    /// `keepMin` and `keepMax` leave that end exactly where the data ends.
    ///
    /// Range: always finite, `min < max`, within the domain. Data outside the domain is left out.
    Interval autoRange(const Interval& data, double share, bool keepMin = false,
                       bool keepMax = false) const;

    /// Ticks over the range between `first` and `second`, in either order.
    ///
    /// Errors: none for a range that is not finite, collapsed or outside the domain.
    TickSet ticks(double first, double second, const TickRequest& request) const;

    friend bool operator==(const Scale& a, const Scale& b) { return a.engine == b.engine; }

private:
    std::shared_ptr<const ScaleEngine> engine;
};

/// What a kind of scale has to know; derive from it to bring a scale of one's own.
///
/// `transform` is continuous and strictly increasing over the domain. Engines are immutable and
/// shared between copies of a scale.
class ZEMBRA_EXPORT ScaleEngine {
public:
    virtual ~ScaleEngine();
    virtual double transform(double value) const = 0;
    virtual double invTransform(double position) const = 0;
    virtual bool contains(double value) const = 0;
    virtual bool isLinear() const { return false; }
    virtual bool hasGroups() const { return false; }
    virtual bool isCategorical() const { return false; }
    /// The smallest and the largest value that can be placed.
    virtual Interval domain() const { return Scale::allReals(); }
    /// The range for empty data.
    virtual Interval defaultRange() const { return {0.0, 1.0}; }
    /// The range around a single value. Need not care for the domain or for overflow.
    virtual Interval rangeAround(double value) const = 0;
    /// The range for data over more than one value; by default padded on the even measure. Need
    /// not care for the domain or for overflow.
    virtual Interval rangeOver(const Interval& data, double share) const;
    /// See `Scale::ticks`; called with a valid range, `min < max`.
    virtual TickSet ticks(double min, double max, const TickRequest& request) const = 0;
};

} // namespace zembra
