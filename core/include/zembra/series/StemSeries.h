// SPDX-License-Identifier: MIT
#pragma once

#include <zembra/series/Series.h>

#include <vector>

namespace zembra {

/// How stems look.
struct StemStyle {
    /// Where stems begin, in data units. A scale that cannot place it, as a logarithmic one cannot
    /// place 0, has stems begin at its low end.
    double baseline = 0.0;
    /// Units: logical pixels.
    double lineWidth = 1.5;
    /// Diameter of the heads. Units: logical pixels; 0 draws none.
    double headSize = 7.0;
};

/// A thin line from a baseline to each sample, with a head: for signals at single moments.
///
/// Samples may come in any order; one that is not finite has no stem. Once there are more stems
/// than pixels, each column of pixels shows the range of its stems, without heads, at a cost of
/// columns instead of samples.
class ZEMBRA_EXPORT StemSeries : public Series {
public:
    StemSeries();
    /// Samples that are moved in. Shape: where one is longer, its excess is ignored.
    StemSeries(std::vector<double> x, std::vector<double> y, std::string name = {});
    ~StemSeries() override;

    void setSamples(std::vector<double> x, std::vector<double> y);

    /// Errors: returns false and changes nothing where a number is not finite or below 0, the
    /// baseline apart.
    bool setStyle(const StemStyle& style);
    const StemStyle& style() const;

    /// With the baseline, where the y scale can place it.
    Bounds bounds(const Scale& x, const Scale& y) const override;
    void draw(Canvas& canvas) const override;
    void drawLegendKey(Canvas& canvas, const Rect& area) const override;

protected:
    /// The sample within the axes whose head is nearest to `pixel`.
    std::optional<NearestSample> findNearest(const Point& pixel, const ScaleMap& x,
                                             const ScaleMap& y) const override;

private:
    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace zembra
