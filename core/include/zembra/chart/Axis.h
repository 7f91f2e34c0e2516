// SPDX-License-Identifier: MIT
#pragma once

#include <zembra/scale/NumberFormat.h>
#include <zembra/scale/Scale.h>
#include <zembra/zembra_export.h>

#include <functional>
#include <memory>
#include <string>
#include <utility>

namespace zembra {

/// One of the four axes of a plot. Owned by its plot; as long-lived as that.
class ZEMBRA_EXPORT Axis {
public:
    Axis();
    ~Axis();
    Axis(const Axis&) = delete;
    Axis& operator=(const Axis&) = delete;

    /// Whether the axis is shown; series may lie on it either way.
    void setEnabled(bool on);
    bool isEnabled() const;

    /// UTF-8; an empty title takes no room.
    void setTitle(std::string title);
    const std::string& title() const;

    /// How values are spread. A fixed range that the new scale cannot place becomes automatic.
    void setScale(const Scale& scale);
    const Scale& scale() const;

    /// Fixes the range. Units: data units. `first` is the value at the left or lower end, so a pair
    /// with `first > second` runs the other way. `step` is the distance of the ticks, 0 for an
    /// automatic one.
    /// Errors: returns false and changes nothing where the ends are equal, not finite or outside
    /// the scale's domain; a step that is negative or not finite counts as 0.
    bool setRange(double first, double second, double step = 0.0);
    /// The current range, the value at the left or lower end first.
    std::pair<double, double> range() const;
    /// With true, the range follows the data again; with false, it stays as it is now.
    void setAutoScale(bool on);
    bool isAutoScale() const;

    /// Whether automatic ranges run from right to left, or from top to bottom. Turns a fixed range
    /// around if it runs the other way.
    void setInverted(bool on);
    bool isInverted() const;

    /// Lets axis 1 or 3 tell the values of axis 0 or 2 in a unit of its own, as Fahrenheit beside
    /// Celsius: it reads `forward(value)` where its primary axis reads `value`. It then has neither
    /// scale nor range of its own: what is set here goes to the primary axis, a scale waits until
    /// the axis stands for itself again. `inverse` undoes `forward`; both are strictly monotone.
    /// Empty functions end it.
    /// Errors: returns false and changes nothing for an axis without a primary one.
    bool setDerived(std::function<double(double)> forward, std::function<double(double)> inverse);
    bool isDerived() const;

    /// Shares one range with `other` from now on, and takes over its scale: they pan and zoom
    /// together, and an automatic range covers the data on all of them. The other axis may belong
    /// to another plot, and either may go away first. Derived axes cannot be linked.
    void linkTo(Axis& other);
    /// Goes on alone with the range as it is.
    void unlink();
    bool isLinkedTo(const Axis& other) const;

    /// How the numbers at the ticks are told; at first by itself, as short as their distance
    /// allows.
    void setNumberFormat(const NumberFormat& format);
    const NumberFormat& numberFormat() const;

    /// Grid lines run from the major ticks; at first those of the axes 0 and 2.
    void setGridVisible(bool on);
    bool isGridVisible() const;

private:
    friend class Plot;
    friend struct AxisRange;
    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace zembra
