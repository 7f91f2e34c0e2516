// SPDX-License-Identifier: MIT
#pragma once

#include <zembra/scale/Interval.h>
#include <zembra/scale/Scale.h>
#include <zembra/zembra_export.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

namespace zembra {

/// What a run of samples covers in both directions.
struct SampleBounds {
    Interval x;
    Interval y;
};

/// A row of (x, y) samples: owned, borrowed, evenly spaced or streamed.
///
/// A cheap value: copies share their storage, and what `append` adds through one is seen by all.
/// Touched by one thread at a time. A NaN or infinity in x or y is a gap. Sortedness, bounds and
/// an index of extents are found out on first use, each in one pass, and remembered; the index
/// takes less than a third of a byte per sample.
/// Shape: where x and y differ in length, the excess is ignored.
class ZEMBRA_EXPORT Samples {
public:
    /// No samples.
    Samples();
    /// Samples that are moved in.
    Samples(std::vector<double> x, std::vector<double> y);
    /// As above, in single precision.
    static Samples owned(std::vector<float> x, std::vector<float> y);

    /// Samples that stay with the host. Requires: they live, and do not change, until the last copy
    /// of the result is gone; for other values make another `Samples`.
    static Samples borrowed(std::span<const double> x, std::span<const double> y);
    static Samples borrowed(std::span<const float> x, std::span<const float> y);

    /// Samples at `start`, `start + step`, … No x is stored. A step that is not above 0, or ends
    /// that are not finite, are allowed but cost the speed of sorted samples.
    static Samples evenlySpaced(double start, double step, std::vector<double> y);
    static Samples evenlySpaced(double start, double step, std::vector<float> y);
    /// As above, with y staying with the host.
    static Samples borrowedEvenlySpaced(double start, double step, std::span<const double> y);
    static Samples borrowedEvenlySpaced(double start, double step, std::span<const float> y);

    /// A ring of at most `capacity` samples, empty at first and fed by `append`. All memory is
    /// taken here and on first use.
    static Samples streamed(std::size_t capacity);

    /// Adds samples to a ring; the oldest ones make room. Sortedness, bounds and index are kept up.
    /// Errors: returns false where the samples are no ring.
    /// Complexity: O(samples added).
    bool append(double x, double y);
    bool append(std::span<const double> x, std::span<const double> y);
    /// Empties a ring. Errors: returns false where the samples are no ring.
    bool clear();

    std::size_t size() const;
    bool isEmpty() const { return size() == 0; }
    /// Requires: `index` is below `size()`.
    double x(std::size_t index) const;
    double y(std::size_t index) const;

    /// Whether no x is below its predecessor or NaN, so that a range of x is a range of samples.
    bool isSorted() const;
    /// The first sample whose x is not below `value`; `size()` where there is none.
    /// Requires: `isSorted()`. Complexity: O(log n).
    std::size_t lowerBound(double value) const;
    /// The least and greatest finite y of the samples from `first` to before `last`.
    /// Complexity: O(log n) after the first call.
    Interval yExtent(std::size_t first, std::size_t last) const;
    /// What the samples cover that both scales can place. Complexity: O(1) after the first call
    /// for each pair of domains.
    SampleBounds bounds(const Scale& x, const Scale& y) const;

    /// Counts `append` and `clear`.
    std::uint64_t revision() const;
    /// Bytes held beyond the samples themselves.
    std::size_t indexBytes() const;

    /// The storage, for the library's own series.
    struct Store;
    const Store& store() const { return *data; }

private:
    explicit Samples(std::shared_ptr<Store> store);
    std::shared_ptr<Store> data;
};

} // namespace zembra
