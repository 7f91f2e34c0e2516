// SPDX-License-Identifier: MIT
#pragma once

#include <zembra/series/Orientation.h>
#include <zembra/series/Series.h>

#include <cstddef>
#include <vector>

namespace zembra {

/// What a box shows of some samples.
struct BoxStatistics {
    /// How many finite samples there are; without any, nothing else is set.
    std::size_t count = 0;
    double lowerQuartile = 0.0;
    double median = 0.0;
    double upperQuartile = 0.0;
    double mean = 0.0;
    /// The samples farthest out within the reach of the whiskers.
    double lowerWhisker = 0.0;
    double upperWhisker = 0.0;
    /// The samples beyond the whiskers, rising.
    std::vector<double> outliers;
};

/// The statistics of samples in any order, without those that are not finite.
///
/// Quartiles are told by `quantile`. Whiskers reach to the farthest sample within `whiskerReach`
/// times the distance of the quartiles from the box; infinity has them reach to the extremes.
/// Source: J. W. Tukey, "Exploratory Data Analysis", 1977.
ZEMBRA_EXPORT BoxStatistics boxStatistics(std::vector<double> samples, double whiskerReach = 1.5);

/// How boxes look.
struct BoxPlotStyle {
    Orientation orientation = Orientation::Vertical;
    /// The share of the distance between neighbouring positions that a box takes.
    /// Range: above 0, at most 1.
    double share = 0.5;
    /// See `boxStatistics`. Range: from 0.
    double whiskerReach = 1.5;
    /// Units: logical pixels.
    double lineWidth = 1.25;
    /// Diameter of the rings at outliers. Units: logical pixels; 0 draws none.
    double outlierSize = 5.0;
    /// Whether a diamond marks the mean.
    bool showsMean = false;
};

/// A box for each group of samples, from quartile to quartile, with the median, whiskers and
/// outliers.
///
/// Groups without finite samples, or at a position that is not finite, have no box; a group of
/// equal samples is a line. A box that a scale cannot place whole is left out.
class ZEMBRA_EXPORT BoxPlotSeries : public Series {
public:
    BoxPlotSeries();
    /// Groups at 0, 1, 2 …, as the names of a categorical scale.
    explicit BoxPlotSeries(std::vector<std::vector<double>> groups, std::string name = {});
    /// Groups at positions, in any order. Shape: where one is longer, its excess is ignored.
    BoxPlotSeries(std::vector<double> positions, std::vector<std::vector<double>> groups,
                  std::string name = {});
    ~BoxPlotSeries() override;

    void setSamples(std::vector<double> positions, std::vector<std::vector<double>> groups);

    /// Errors: returns false and changes nothing where a number is out of its range.
    bool setStyle(const BoxPlotStyle& style);
    const BoxPlotStyle& style() const;

    /// One for each group, in their order.
    const std::vector<BoxStatistics>& statistics() const;

    Bounds bounds(const Scale& x, const Scale& y) const override;
    void draw(Canvas& canvas) const override;
    void drawLegendKey(Canvas& canvas, const Rect& area) const override;

protected:
    /// The box nearest to `pixel`, whiskers included: its position and median.
    std::optional<NearestSample> findNearest(const Point& pixel, const ScaleMap& x,
                                             const ScaleMap& y) const override;

private:
    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace zembra
