// SPDX-License-Identifier: MIT
#pragma once

#include <zembra/data/Samples.h>
#include <zembra/zembra_export.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace zembra {

/// What a line needs to know of the samples in one column of pixels.
struct ColumnExtent {
    double firstX = 0.0;
    double firstY = 0.0;
    double lastX = 0.0;
    double lastY = 0.0;
    double minY = 0.0;
    double maxY = 0.0;
    /// Whether the line is interrupted before this column.
    bool afterGap = false;
};

/// What a view asks for: the samples with `begin <= x < end`, in columns of equal width.
/// Units: data units.
struct ColumnRequest {
    double begin = 0.0;
    double end = 1.0;
    std::size_t columns = 1;

    friend bool operator==(const ColumnRequest&, const ColumnRequest&) = default;
};

/// Columns in order of x, without the empty ones. Shape: any number of columns.
using ColumnExtents = std::vector<ColumnExtent>;

/// Samples that lie elsewhere, such as in a database, and are reduced there.
///
/// A host derives from it. It is asked by the thread that paints, and must not make it wait: it
/// answers with what it has, at any resolution and of any range, and fetches what it lacks. When
/// more has come, it asks its views to paint again.
/// Source: U. Jugel, Z. Jerzak, G. Hackenbroich, V. Markl, "M4: A Visualization-Oriented Time
/// Series Data Aggregation", VLDB 2014.
class ZEMBRA_EXPORT SampleSource {
public:
    virtual ~SampleSource();

    /// What all samples cover, as far as it is known.
    virtual SampleBounds bounds() const = 0;
    /// The best answer at hand; null where there is none yet. An answer does not change any more.
    virtual std::shared_ptr<const ColumnExtents> extents(const ColumnRequest& request) = 0;
    /// Counts changes of `bounds` and of answers.
    virtual std::uint64_t revision() const = 0;
};

} // namespace zembra
