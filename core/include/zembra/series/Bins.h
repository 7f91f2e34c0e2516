// SPDX-License-Identifier: MIT
#pragma once

#include <zembra/zembra_export.h>

#include <cstddef>
#include <vector>

namespace zembra {

/// How many bins of equal width, or how wide ones, a histogram has.
enum class BinRule : int {
    /// ⌈log₂ n⌉ + 1 bins; for few samples of bell-shaped data.
    /// Source: H. A. Sturges, "The Choice of a Class Interval", 1926.
    Sturges,
    /// Bins 3.49 s n^(-1/3) wide, s being the standard deviation.
    /// Source: D. W. Scott, "On optimal and data-based histograms", 1979.
    Scott,
    /// Bins 2 IQR n^(-1/3) wide; hardly moved by outliers.
    /// Source: D. Freedman, P. Diaconis, "On the Histogram as a Density Estimator: L2 Theory",
    /// 1981.
    FreedmanDiaconis,
};

/// How samples are put into bins. No histogram has more than `maxBins` bins.
class ZEMBRA_EXPORT Bins {
public:
    static constexpr std::size_t maxBins = 100'000;

    /// Freedman and Diaconis' rule.
    Bins() = default;
    /// By a rule, over the range of the samples. A rule that finds no width, as where half of the
    /// samples are equal, leaves it to the rule before it.
    static Bins byRule(BinRule rule);
    /// That many bins of equal width over the range of the samples. Range: 1..maxBins, else
    /// clamped.
    static Bins ofCount(std::size_t count);
    /// Bins of that width that begin at `origin` plus whole widths. Units: data units. A width that
    /// is not above 0 and finite means the default rule, and so does one that makes too many bins.
    static Bins ofWidth(double width, double origin = 0.0);
    /// Bins between these edges, which are sorted; samples outside are left out. What is not
    /// finite, equal to another edge or beyond `maxBins` is ignored; fewer than two edges mean the
    /// default rule.
    static Bins withEdges(std::vector<double> edges);

    /// The edges for some finite samples; empty without samples.
    std::vector<double> edgesFor(const std::vector<double>& samples) const;

private:
    BinRule rule = BinRule::FreedmanDiaconis;
    std::size_t count = 0;
    double width = 0.0;
    double origin = 0.0;
    std::vector<double> edges;
};

} // namespace zembra
