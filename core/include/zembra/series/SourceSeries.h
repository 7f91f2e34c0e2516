// SPDX-License-Identifier: MIT
#pragma once

#include <zembra/data/SampleSource.h>
#include <zembra/series/Series.h>

#include <memory>

namespace zembra {

/// A line through samples that lie elsewhere and are reduced there.
///
/// Each frame asks the source for the extents of the canvas' columns and draws its answer where the
/// samples belong, so that an answer for an older view is shown until the next one comes. Requests
/// begin and end at whole columns counted from zero, so that pans ask for what overlaps. On axes
/// that are not linear the columns are even in data units.
/// Complexity: O(columns of the answer).
class ZEMBRA_EXPORT SourceSeries : public Series {
public:
    SourceSeries();
    explicit SourceSeries(std::shared_ptr<SampleSource> source, std::string name = {});
    ~SourceSeries() override;

    void setSource(std::shared_ptr<SampleSource> source);
    const std::shared_ptr<SampleSource>& source() const;

    /// Units: logical pixels; 1.5 at first. Negative and non-finite widths are ignored; 0 is the
    /// thinnest line the target has.
    void setWidth(double width);
    double width() const;

    Bounds bounds(const Scale& x, const Scale& y) const override;
    void draw(Canvas& canvas) const override;
    void drawLegendKey(Canvas& canvas, const Rect& area) const override;
    std::uint64_t revision() const override;

private:
    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace zembra
