// SPDX-License-Identifier: MIT
#include <zembra/series/BoxPlotSeries.h>
#include <zembra/series/Quantile.h>

#include <algorithm>
#include <cmath>

namespace zembra {

BoxStatistics boxStatistics(std::vector<double> samples, double whiskerReach) {
    std::erase_if(samples, [](double sample) { return !std::isfinite(sample); });
    std::sort(samples.begin(), samples.end());
    BoxStatistics result;
    result.count = samples.size();
    if (samples.empty())
        return result;
    result.lowerQuartile = quantile(samples, 0.25);
    result.median = quantile(samples, 0.5);
    result.upperQuartile = quantile(samples, 0.75);
    // One by one, since the sum of large numbers may be beyond the largest double.
    const auto n = static_cast<double>(samples.size());
    for (const double sample : samples)
        result.mean += sample / n;
    const double distance = result.upperQuartile - result.lowerQuartile;
    // Without a distance, infinite whiskers still reach nowhere but to the samples.
    const double reach =
        distance > 0.0 || !std::isinf(whiskerReach) ? whiskerReach * distance : whiskerReach;
    const auto first =
        std::lower_bound(samples.begin(), samples.end(), result.lowerQuartile - reach);
    const auto last = std::upper_bound(first, samples.end(), result.upperQuartile + reach);
    // Quartiles between samples may leave a whisker inside of its box, where it would point
    // inwards.
    result.lowerWhisker = std::min(*first, result.lowerQuartile);
    result.upperWhisker = std::max(*std::prev(last), result.upperQuartile);
    result.outliers.assign(samples.begin(), first);
    result.outliers.insert(result.outliers.end(), last, samples.end());
    return result;
}

} // namespace zembra
