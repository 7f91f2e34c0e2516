// SPDX-License-Identifier: MIT
#pragma once

#include <zembra/series/Series.h>

#include <vector>

namespace zembra {

/// How error bars look. Units: logical pixels.
struct ErrorBarStyle {
    double lineWidth = 1.25;
    /// The length of the strokes across the ends; 0 draws none.
    double capLength = 7.0;
    /// Diameter of the disc at each sample; 0 draws none.
    double markerSize = 6.0;
};

/// Samples with the range that each of them is uncertain by, in x, in y or in both.
///
/// Errors are distances from the sample, without regard to their sign; one that is not finite, or
/// missing, draws no bar on its side. A sample that is not finite, or that a scale cannot place, is
/// left out. A bar whose end a scale cannot place, as below 0 on a logarithmic one, runs to the end
/// of the axis without a cap.
///
/// Samples may come in any order. Once there are more than pixels and none has an error in x, each
/// column of pixels shows the range of its bars, at a cost of columns instead of samples.
class ZEMBRA_EXPORT ErrorBarSeries : public Series {
public:
    ErrorBarSeries();
    /// Samples that are moved in. Shape: where one is longer, its excess is ignored.
    ErrorBarSeries(std::vector<double> x, std::vector<double> y, std::string name = {});
    ~ErrorBarSeries() override;

    /// Replaces the samples and drops all errors.
    void setSamples(std::vector<double> x, std::vector<double> y);
    /// The same error on either side of each sample.
    void setXErrors(const std::vector<double>& errors);
    void setYErrors(const std::vector<double>& errors);
    /// Errors towards lower and towards higher values.
    void setXErrors(const std::vector<double>& lower, const std::vector<double>& upper);
    void setYErrors(const std::vector<double>& lower, const std::vector<double>& upper);

    /// Errors: returns false and changes nothing where a number is not finite or below 0.
    bool setStyle(const ErrorBarStyle& style);
    const ErrorBarStyle& style() const;

    /// With the ends of the bars, as far as the scales can place them.
    Bounds bounds(const Scale& x, const Scale& y) const override;
    void draw(Canvas& canvas) const override;
    void drawLegendKey(Canvas& canvas, const Rect& area) const override;

protected:
    /// The sample within the axes that is nearest to `pixel`.
    std::optional<NearestSample> findNearest(const Point& pixel, const ScaleMap& x,
                                             const ScaleMap& y) const override;

private:
    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace zembra
