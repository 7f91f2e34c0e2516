// SPDX-License-Identifier: MIT
#pragma once

#include <zembra/chart/Axis.h>
#include <zembra/scale/NumberFormat.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace zembra {

/// What the data on an axis covers.
struct DataCover {
    Interval values;
    /// The values stand on zero.
    bool fromZero = false;
    /// An automatic range ends exactly where the values end.
    bool flushMin = false;
    bool flushMax = false;

    void include(const DataCover& other);
};

/// The range of one axis, or of several that are linked.
struct AxisRange {
    bool autoScale = true;
    double first = 0.0;
    double second = 1.0;
    double step = 0.0;
    /// The axes that follow this range; their data is what an automatic range covers.
    std::vector<Axis::Private*> axes;
};

/// How an axis tells the values of its primary one in a unit of its own.
struct AxisDerivation {
    AxisDerivation(std::function<double(double)> forward, std::function<double(double)> inverse,
                   const Scale& primary);
    /// The scale on which a value lies beside its equal on `primary`.
    const Scale& scaleBeside(const Scale& primary);

    std::function<double(double)> forward;
    std::function<double(double)> inverse;

private:
    Scale from;
    Scale scale;
};

struct Axis::Private {
    Private();
    ~Private();
    Private(const Private&) = delete;
    Private& operator=(const Private&) = delete;

    /// Leaves the axes it is linked with and follows `other`.
    void follow(const std::shared_ptr<AxisRange>& other);
    /// The scale in force, a derived one included.
    const Scale& currentScale() const;
    /// The current range, first end first.
    std::pair<double, double> currentRange() const;

    /// Counts what a layout has to start anew for; ranges are not among it.
    std::uint64_t revision = 1;
    bool enabled = false;
    std::string title;
    Scale scale;
    std::shared_ptr<AxisRange> range;
    bool inverted = false;
    bool gridVisible = true;
    NumberFormat numberFormat;
    /// The axis 0 or 2 that runs along the same way; null where there is none.
    Axis* primary = nullptr;
    /// Refreshed when the primary axis has taken another scale.
    mutable std::optional<AxisDerivation> derivation;
    /// What the series of the axis' plot cover along it.
    std::function<DataCover()> cover;
};

} // namespace zembra
