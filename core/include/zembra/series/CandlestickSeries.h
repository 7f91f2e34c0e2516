// SPDX-License-Identifier: MIT
#pragma once

#include <zembra/series/Series.h>

#include <optional>
#include <vector>

namespace zembra {

/// The shape of a candle.
enum class CandleShape : int {
    /// A body from open to close on a wick from low to high.
    Candle,
    /// A line from low to high, with open to its left and close to its right.
    OpenHighLowClose,
};

/// How candles look.
struct CandleStyle {
    CandleShape shape = CandleShape::Candle;
    /// The share of the distance between neighbouring positions that a candle takes.
    /// Range: above 0, at most 1.
    double share = 0.7;
    /// For a close above the open, and below it; none (as at first) are a blue and an orange that
    /// suit the background and differ for colour-blind readers, too.
    std::optional<Color> up = std::nullopt;
    std::optional<Color> down = std::nullopt;
};

/// The rows of numbers behind candles.
/// Shape: the excess of the longer ones is ignored.
struct CandleRows {
    /// Such as seconds since the Unix epoch on a time scale.
    std::vector<double> x;
    std::vector<double> open;
    std::vector<double> high;
    std::vector<double> low;
    std::vector<double> close;
};

/// Open, high, low and close over time: candles or bars.
///
/// Rows may come in any order. One with a number that is not finite is left out; a high or low that
/// does not enclose the other three is moved there; of a close equal to its open the body is a
/// line. A candle that the y scale cannot place whole is left out.
///
/// Once there are more candles than pixels, those of each column of pixels are merged into one: the
/// first open, the highest high, the lowest low and the last close, at a cost of columns instead of
/// samples.
class ZEMBRA_EXPORT CandlestickSeries : public Series {
public:
    CandlestickSeries();
    explicit CandlestickSeries(CandleRows rows, std::string name = {});
    ~CandlestickSeries() override;

    void setSamples(CandleRows rows);

    /// Errors: returns false and changes nothing where the share is out of its range.
    bool setStyle(const CandleStyle& style);
    const CandleStyle& style() const;

    bool takesCycleColor() const override;
    Bounds bounds(const Scale& x, const Scale& y) const override;
    void draw(Canvas& canvas) const override;
    void drawLegendKey(Canvas& canvas, const Rect& area) const override;

protected:
    /// The candle nearest to `pixel`, at no distance between its high and low; `y` is its close.
    std::optional<NearestSample> findNearest(const Point& pixel, const ScaleMap& x,
                                             const ScaleMap& y) const override;

private:
    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace zembra
