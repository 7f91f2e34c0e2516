// SPDX-License-Identifier: MIT
#pragma once

#include <zembra/series/Orientation.h>
#include <zembra/series/Series.h>

#include <vector>

namespace zembra {

/// How bars stand.
struct BarStyle {
    Orientation orientation = Orientation::Vertical;
    /// The share of the distance between neighbouring positions that the bars there take together.
    /// Range: above 0, at most 1.
    double share = 0.8;
    /// Where bars begin, in data units. Stacks begin at 0. A scale that cannot place it, as a
    /// logarithmic one cannot place 0, has bars begin at its low end.
    double baseline = 0.0;
};

/// A bar from a baseline to each value. Several series stand beside each other or on each other
/// when they are joined:
///
///     auto a = plot.add<BarSeries>(x, first, "first");
///     auto b = plot.add<BarSeries>(x, second, "second");
///     b->standBeside(*a); // or b->stackOn(*a)
///
/// Joined series share one style. Hidden ones give up their room. A series may be destroyed at any
/// time; those joined to it close up.
///
/// Bars are as wide as the closest two positions allow. Samples may come in any order; one that is
/// not finite has no bar, and of equal positions the later bar covers the earlier one. Once there
/// are more bars than pixels, each column of pixels shows the range of its bars, at a cost of
/// columns instead of samples.
class ZEMBRA_EXPORT BarSeries : public Series {
public:
    BarSeries();
    /// Samples that are moved in. Shape: where one is longer, its excess is ignored.
    BarSeries(std::vector<double> positions, std::vector<double> values, std::string name = {});
    ~BarSeries() override;

    void setSamples(std::vector<double> positions, std::vector<double> values);

    /// For this series and all that are joined to it.
    /// Errors: returns false and changes nothing where a number is not finite or out of its range.
    bool setStyle(const BarStyle& style);
    const BarStyle& style() const;

    /// Stacks the bars on those of `other`: positive values upwards from 0, negative ones
    /// downwards. Values meet where their positions are equal. Joins one series only, not those
    /// joined to it. Errors: returns false for the series itself.
    bool stackOn(BarSeries& other);
    /// Puts the bars to the right of those of `other`, or above them when they lie.
    /// Errors: returns false for the series itself.
    bool standBeside(BarSeries& other);
    /// Leaves the series it was joined to, keeping their style.
    void standAlone();

    Bounds bounds(const Scale& x, const Scale& y) const override;
    void draw(Canvas& canvas) const override;
    void drawLegendKey(Canvas& canvas, const Rect& area) const override;
    /// Counts the changes of joined series, too.
    std::uint64_t revision() const override;

protected:
    /// The bar nearest to `pixel`, at no distance inside; `x` and `y` are its own position and
    /// value.
    std::optional<NearestSample> findNearest(const Point& pixel, const ScaleMap& x,
                                             const ScaleMap& y) const override;

private:
    struct Group;
    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace zembra
