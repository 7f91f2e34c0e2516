// SPDX-License-Identifier: MIT
#pragma once

#include <zembra/data/Samples.h>
#include <zembra/series/Series.h>

#include <vector>

namespace zembra {

/// How an area looks.
struct AreaStyle {
    /// Where the area ends, in data units. Stacks begin at 0. A scale that cannot place it, as a
    /// logarithmic one cannot place 0, has the area end at its low end.
    double baseline = 0.0;
    /// Units: logical pixels; 0 draws no line on top.
    double lineWidth = 1.5;
    /// Of the fill; the line is always as opaque as the series' colour. Range: 0..1.
    double opacity = 0.3;
};

/// Fills between the samples, in their order, and a baseline. A sample that is not finite, or that
/// a scale cannot place, is a gap.
///
/// Areas lie on each other when they are stacked:
///
///     auto a = plot.add<AreaSeries>(x, first, "first");
///     auto b = plot.add<AreaSeries>(x, second, "second");
///     b->stackOn(*a);
///
/// In a stack, samples are taken in order of x, and of equal x the last counts. Each area adds its
/// values to the sum of those below, negative ones too; between its samples it is straight, so that
/// the areas need not share their x. Beside its samples and in gaps an area adds nothing: those on
/// it come down. Hidden areas add nothing either. A series may be destroyed at any time; the stack
/// closes up.
///
/// Samples in order of x cost as much as the canvas has columns, however many there are; a stack is
/// added up again, at a cost of samples, after each change in it.
class ZEMBRA_EXPORT AreaSeries : public Series {
public:
    AreaSeries();
    /// Samples that are moved in. Shape: where one is longer, its excess is ignored.
    AreaSeries(std::vector<double> x, std::vector<double> y, std::string name = {});
    explicit AreaSeries(Samples samples, std::string name = {});
    ~AreaSeries() override;

    void setSamples(std::vector<double> x, std::vector<double> y);
    void setSamples(Samples samples);
    const Samples& samples() const;

    /// Errors: returns false and changes nothing where a number is not finite or out of its range.
    bool setStyle(const AreaStyle& style);
    const AreaStyle& style() const;

    /// Puts this area on top of the stack that `other` is in, leaving any other one.
    /// Errors: returns false for the series itself.
    bool stackOn(AreaSeries& other);
    /// Leaves the stack.
    void standAlone();

    /// With the baseline, where the y scale can place it.
    Bounds bounds(const Scale& x, const Scale& y) const override;
    void draw(Canvas& canvas) const override;
    void drawLegendKey(Canvas& canvas, const Rect& area) const override;
    /// Counts the changes of the whole stack, too.
    std::uint64_t revision() const override;

protected:
    /// The sample within the axes whose point on the edge is nearest to `pixel`; in a stack, too,
    /// `y` is the sample's own value.
    std::optional<NearestSample> findNearest(const Point& pixel, const ScaleMap& x,
                                             const ScaleMap& y) const override;

private:
    struct Group;
    struct Private;
    void join(std::shared_ptr<Group> group);
    std::uint64_t ownRevision() const;
    std::unique_ptr<Private> d;
};

} // namespace zembra
