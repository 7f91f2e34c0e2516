// SPDX-License-Identifier: MIT
#pragma once

#include <zembra/paint/Pen.h>
#include <zembra/scale/Interval.h>
#include <zembra/series/Series.h>

#include <functional>
#include <optional>
#include <string>

namespace zembra {

/// The curve of a function, computed for the view it is drawn in.
///
/// The function is called at every second pixel and as often in between as it takes for the curve
/// to be right within a quarter of a pixel, at most 64 times a pixel column. Poles and jumps are
/// gaps, as are places where the value is not finite or the function throws.
class ZEMBRA_EXPORT FunctionSeries : public Series {
public:
    using Function = std::function<double(double)>;

    FunctionSeries();
    explicit FunctionSeries(Function function, std::string name = {});
    ~FunctionSeries() override;

    /// Called on the thread that paints. An empty one draws nothing.
    void setFunction(Function function);
    /// Where the function is drawn and what automatic ranges cover of x; none, as at first, draws
    /// it everywhere and leaves the ranges to others. Units: data units.
    /// Errors: returns false and changes nothing for ends that are equal or not finite.
    bool setDomain(double first, double last);
    void clearDomain();
    std::optional<Interval> domain() const;

    /// Units: logical pixels; 1.5 at first. Negative and non-finite widths are ignored.
    void setWidth(double width);
    double width() const;
    void setStyle(PenStyle style);
    PenStyle style() const;

    /// The domain and, from 500 places in it, the values; around poles only what is usual. Empty
    /// without a domain.
    Bounds bounds(const Scale& x, const Scale& y) const override;
    void draw(Canvas& canvas) const override;
    void drawLegendKey(Canvas& canvas, const Rect& area) const override;

protected:
    /// The nearest of the points that lie within 16 columns of the pixel; their index is 0.
    std::optional<NearestSample> findNearest(const Point& pixel, const ScaleMap& x,
                                             const ScaleMap& y) const override;

private:
    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace zembra
