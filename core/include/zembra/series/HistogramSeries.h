// SPDX-License-Identifier: MIT
#pragma once

#include <zembra/series/Bins.h>
#include <zembra/series/Orientation.h>
#include <zembra/series/Series.h>

#include <cstddef>
#include <vector>

namespace zembra {

/// What the height of a bin tells.
enum class HistogramHeight : int {
    /// The number of samples.
    Count,
    /// The share of all samples for each data unit, so that the areas of all bins add up to 1.
    Density,
};

/// How a histogram looks.
struct HistogramStyle {
    Orientation orientation = Orientation::Vertical;
    HistogramHeight height = HistogramHeight::Count;
};

/// Counts samples by bins and draws a bar for each bin. A bin holds its lower edge; the last bin
/// holds its upper edge, too. Samples that are not finite are left out.
///
/// Equal samples make a single bin around their value. Where there are more bins than pixels, each
/// column of pixels shows its highest bin.
class ZEMBRA_EXPORT HistogramSeries : public Series {
public:
    HistogramSeries();
    /// Raw samples in any order.
    explicit HistogramSeries(std::vector<double> samples, std::string name = {});
    ~HistogramSeries() override;

    void setSamples(std::vector<double> samples);
    void setBins(const Bins& bins);
    const Bins& bins() const;
    void setStyle(const HistogramStyle& style);
    const HistogramStyle& style() const;

    /// One more than there are bins; empty without samples. Rising.
    const std::vector<double>& edges() const;
    const std::vector<std::size_t>& counts() const;
    /// Heights as they are drawn.
    const std::vector<double>& heights() const;

    Bounds bounds(const Scale& x, const Scale& y) const override;
    void draw(Canvas& canvas) const override;
    void drawLegendKey(Canvas& canvas, const Rect& area) const override;

protected:
    /// The bin nearest to `pixel`, at no distance inside its bar: the middle of the bin and its
    /// height, `index` counting bins.
    std::optional<NearestSample> findNearest(const Point& pixel, const ScaleMap& x,
                                             const ScaleMap& y) const override;

private:
    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace zembra
