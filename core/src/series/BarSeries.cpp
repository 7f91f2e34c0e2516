// SPDX-License-Identifier: MIT
#include <zembra/series/BarSeries.h>

#include "SideView.h"
#include "SortedRows.h"

#include <zembra/data/Samples.h>
#include <zembra/series/Canvas.h>

#include <cassert>
#include <limits>
#include <utility>

namespace zembra {

namespace {

// Units: logical pixels. The ends of narrower bars keep their fractions, so that many of them make
// a smooth outline.
constexpr double crispFrom = 4.0;
constexpr double gapBesideFrom = 8.0;

} // namespace

/// Series that share their positions. A slot is a stack; slots stand side by side.
struct BarSeries::Group {
    std::vector<std::vector<const BarSeries*>> slots;
    BarStyle style;
    // What members had counted before they left, so that the sum only grows.
    std::uint64_t pastRevisions = 0;

    std::uint64_t revision() const {
        std::uint64_t sum = pastRevisions;
        for (const auto& slot : slots)
            for (const BarSeries* member : slot)
                sum += member->Series::revision();
        return sum;
    }

    std::size_t slotOf(const BarSeries* series) const {
        const auto found = std::find_if(slots.begin(), slots.end(), [&](const auto& slot) {
            return std::find(slot.begin(), slot.end(), series) != slot.end();
        });
        assert(found != slots.end());
        return static_cast<std::size_t>(found - slots.begin());
    }

    void remove(const BarSeries* series) {
        pastRevisions += series->Series::revision() + 1;
        for (auto& slot : slots)
            std::erase(slot, series);
        std::erase_if(slots, [](const auto& slot) { return slot.empty(); });
    }
};

namespace {

// The ends of the bars. Bars on a stack have a beginning of their own.
struct Ends {
    std::uint64_t revision = 0;
    bool stacked = false;
    std::vector<double> from;
    std::vector<double> to;
    Samples fromRow;
    Samples toRow;
    std::size_t slot = 0;
    std::size_t slotCount = 1;
};

} // namespace

struct BarSeries::Private {
    // In order of the positions; without samples that are not finite.
    std::vector<double> positions;
    std::vector<double> values;
    std::vector<std::size_t> order;
    std::shared_ptr<Group> group;

    // Following the group.
    mutable std::optional<Ends> ends;
    struct Step {
        std::uint64_t revision;
        Scale scale;
        double even;
    };
    mutable std::optional<Step> step;
    mutable BoundsCache boundsCache;

    const Ends& currentEnds(const BarSeries* self) const;
    void stack(const std::vector<const BarSeries*>& below, Ends& result) const;
    double currentStep(const Scale& scale) const;

    double from(const Ends& e, std::size_t i) const {
        return e.stacked ? e.from[i] : group->style.baseline;
    }
    double to(const Ends& e, std::size_t i) const { return e.stacked ? e.to[i] : values[i]; }
};

// Adds up what stands below each position, by one merge for each series below.
void BarSeries::Private::stack(const std::vector<const BarSeries*>& below, Ends& result) const {
    std::vector<double> up(positions.size(), 0.0);
    std::vector<double> down(positions.size(), 0.0);
    for (const BarSeries* series : below) {
        const Private& other = *series->d;
        std::size_t k = 0;
        for (std::size_t i = 0; i < positions.size(); ++i) {
            while (k < other.positions.size() && other.positions[k] < positions[i])
                ++k;
            double highest = 0.0;
            double lowest = 0.0;
            for (std::size_t e = k;
                 e < other.positions.size() && other.positions[e] == positions[i]; ++e) {
                highest = std::max(highest, other.values[e]);
                lowest = std::min(lowest, other.values[e]);
            }
            up[i] += highest;
            down[i] += lowest;
        }
    }
    // Sums stay finite, so that a bar always has a place.
    const auto held = [](double sum) {
        return std::clamp(sum, std::numeric_limits<double>::lowest(),
                          std::numeric_limits<double>::max());
    };
    result.stacked = true;
    result.from.reserve(positions.size());
    result.to.reserve(positions.size());
    for (std::size_t i = 0; i < positions.size(); ++i) {
        const double from = held(values[i] < 0.0 ? down[i] : up[i]);
        result.from.push_back(from);
        result.to.push_back(held(from + values[i]));
    }
    result.fromRow = Samples::borrowed(positions, result.from);
    result.toRow = Samples::borrowed(positions, result.to);
}

const Ends& BarSeries::Private::currentEnds(const BarSeries* self) const {
    const std::uint64_t revision = group->revision();
    if (ends && ends->revision == revision)
        return *ends;
    Ends& result = ends.emplace();
    result.revision = revision;
    const std::size_t own = group->slotOf(self);
    // A hidden series keeps the place that it would have.
    const auto counts = [&](const BarSeries* m) { return m == self || m->isVisible(); };
    result.slotCount = 0;
    for (std::size_t s = 0; s < group->slots.size(); ++s) {
        if (s == own)
            result.slot = result.slotCount;
        if (std::any_of(group->slots[s].begin(), group->slots[s].end(), counts))
            ++result.slotCount;
    }
    std::vector<const BarSeries*> below;
    for (const BarSeries* member : group->slots[own]) {
        if (member == self)
            break;
        if (counts(member))
            below.push_back(member);
    }
    if (group->slots[own].size() > 1)
        stack(below, result);
    else
        result.toRow = Samples::borrowed(positions, values);
    return result;
}

double BarSeries::Private::currentStep(const Scale& scale) const {
    const std::uint64_t revision = group->revision();
    if (step && step->revision == revision && step->scale == scale)
        return step->even;
    double closest = std::numeric_limits<double>::infinity();
    for (const auto& slot : group->slots) {
        for (const BarSeries* member : slot) {
            if (member->isVisible() && member->d->positions.size() > 1)
                closest = std::min(closest, closestStep(member->d->positions, scale));
        }
    }
    step = Step{revision, scale, std::isfinite(closest) ? closest : closestStep(positions, scale)};
    return step->even;
}

namespace {

/// Where the bars of one series lie across their positions.
class BarPlaces {
public:
    /// `pitch` is the room of one position in pixels.
    BarPlaces(const SideView& view, double pitch, double share, std::size_t slot,
              std::size_t slotCount)
        : view(view),
          pitch(pitch),
          groupLength(pitch * share),
          slotLength(groupLength / static_cast<double>(slotCount)),
          slot(slot),
          isCrisp(slotLength >= crispFrom),
          gap(slotCount > 1 && slotLength >= gapBesideFrom ? 1.0 : 0.0) {
        // Gaps finer than pixels would come and go, or shimmer.
        if (pitch - groupLength < 1.0) {
            groupLength = pitch;
            slotLength = pitch / static_cast<double>(slotCount);
            touches = true;
        }
    }

    double reach() const { return 0.5 * pitch + 1.0; }

    /// From edge to edge of a bar whose group is centred on a pixel.
    PixelSpan across(double centre) const {
        const double start = centre - 0.5 * groupLength;
        const auto edge = [&](std::size_t i) {
            const double offset = slotLength * static_cast<double>(i);
            // Bars that touch share their edges, others are all equally wide.
            return touches ? std::round(start + offset) : std::round(start) + std::round(offset);
        };
        const double low = edge(slot);
        // Never too thin to be seen.
        return {low, std::max(edge(slot + 1) - gap, low + 1.0)};
    }

    /// The bar's rectangle; nothing where a scale cannot place it. A bar that stands on others
    /// leaves them a hair's breadth.
    std::optional<Rect> rect(double position, double from, double to, bool stands) const {
        const double centre = view.position(position);
        double end = view.value(to);
        if (std::isnan(centre) || std::isnan(end))
            return std::nullopt;
        double begin = view.valueOrEnd(from);
        if (isCrisp) {
            begin = std::round(begin);
            end = std::round(end);
            if (stands && std::abs(end - begin) >= crispFrom)
                begin += end > begin ? 1.0 : -1.0;
        }
        const PixelSpan span = across(centre);
        return view.rect(span.low, span.high, begin, end);
    }

private:
    const SideView& view;
    double pitch;
    double groupLength;
    double slotLength;
    std::size_t slot;
    bool isCrisp;
    double gap;
    bool touches = false;
};

} // namespace

BarSeries::BarSeries() : d(std::make_unique<Private>()) {
    d->group = std::make_shared<Group>();
    d->group->slots = {{this}};
}

BarSeries::BarSeries(std::vector<double> positions, std::vector<double> values, std::string name)
    : BarSeries() {
    setSamples(std::move(positions), std::move(values));
    setName(std::move(name));
}

BarSeries::~BarSeries() {
    d->group->remove(this);
}

void BarSeries::setSamples(std::vector<double> positions, std::vector<double> values) {
    const std::size_t count = std::min(positions.size(), values.size());
    d->order = ascendingOrder(std::span(positions).first(count),
                              [&](std::size_t i) { return std::isfinite(values[i]); });
    d->positions = gathered(positions, d->order);
    d->values = gathered(values, d->order);
    changed();
}

bool BarSeries::setStyle(const BarStyle& style) {
    if (!(style.share > 0.0 && style.share <= 1.0) || !std::isfinite(style.baseline))
        return false;
    d->group->style = style;
    changed();
    return true;
}

const BarStyle& BarSeries::style() const {
    return d->group->style;
}

bool BarSeries::stackOn(BarSeries& other) {
    if (&other == this)
        return false;
    const std::shared_ptr<Group> left = d->group;
    left->remove(this);
    d->group = other.d->group;
    d->group->pastRevisions += left->revision() + 1;
    d->group->slots[d->group->slotOf(&other)].push_back(this);
    changed();
    return true;
}

bool BarSeries::standBeside(BarSeries& other) {
    if (&other == this)
        return false;
    const std::shared_ptr<Group> left = d->group;
    left->remove(this);
    d->group = other.d->group;
    d->group->pastRevisions += left->revision() + 1;
    auto& slots = d->group->slots;
    slots.insert(slots.begin() + static_cast<std::ptrdiff_t>(d->group->slotOf(&other)) + 1, {this});
    changed();
    return true;
}

void BarSeries::standAlone() {
    const std::shared_ptr<Group> left = d->group;
    left->remove(this);
    d->group = std::make_shared<Group>();
    d->group->style = left->style;
    d->group->pastRevisions = left->revision() + 1;
    d->group->slots = {{this}};
    changed();
}

std::uint64_t BarSeries::revision() const {
    return d->group->revision();
}

Bounds BarSeries::bounds(const Scale& x, const Scale& y) const {
    const BarStyle& style = d->group->style;
    const bool lies = style.orientation == Orientation::Horizontal;
    return d->boundsCache.get(revision(), x, y, [&] {
        const Scale& positionScale = lies ? y : x;
        const Scale& valueScale = lies ? x : y;
        const Ends& ends = d->currentEnds(this);
        Interval positions;
        Interval values;
        for (std::size_t i = 0; i < d->positions.size(); ++i) {
            const double to = d->to(ends, i);
            if (!positionScale.contains(d->positions[i]) || !valueScale.contains(to))
                continue;
            positions.include(d->positions[i]);
            values.include(to);
            if (valueScale.contains(d->from(ends, i)))
                values.include(d->from(ends, i));
        }
        if (positions.isEmpty())
            return Bounds();
        const double width = style.share * d->currentStep(positionScale);
        Interval covered = widened(positions.min, width, positionScale);
        covered.include(widened(positions.max, width, positionScale));
        const bool fromZero = ends.stacked || style.baseline == 0.0;
        return turnedBounds(covered, values, fromZero, style.orientation);
    });
}

void BarSeries::draw(Canvas& canvas) const {
    const BarStyle& style = d->group->style;
    const SideView view(canvas, style.orientation);
    const Ends& ends = d->currentEnds(this);
    const double pitch = view.positionLength(d->currentStep(view.positions().scale()));
    const BarPlaces places(view, pitch, style.share, ends.slot, ends.slotCount);
    const Color color = canvas.look().color;
    const PixelSpan span = view.positionSpan();
    const SampleRange seen = rangeBetween(d->positions, view.positions(), span.low - places.reach(),
                                          span.high + places.reach());
    if (static_cast<double>(seen.count()) <= span.length()) {
        for (std::size_t i = seen.first; i < seen.last; ++i) {
            const double from = d->from(ends, i);
            const auto rect =
                places.rect(d->positions[i], from, d->to(ends, i), ends.stacked && from != 0.0);
            if (rect)
                canvas.fillRect(*rect, color);
        }
    } else {
        forEachColumn(d->positions, view.positions(), span.low, span.high,
                      [&](double column, const SampleRange& range) {
                          Interval covered = ends.toRow.yExtent(range.first, range.last);
                          if (ends.stacked)
                              covered.include(ends.fromRow.yExtent(range.first, range.last));
                          else
                              covered.include(style.baseline);
                          // Wider than a column where many positions are equal.
                          const PixelSpan across = pitch < 1.0 ? PixelSpan{column, column + 1.0}
                                                               : places.across(column + 0.5);
                          canvas.fillRect(view.rect(across.low, across.high,
                                                    view.valueOrEnd(covered.min),
                                                    view.valueOrEnd(covered.max)),
                                          color);
                      });
    }
    drawBaseline(canvas, view, ends.stacked ? 0.0 : style.baseline);
}

void BarSeries::drawLegendKey(Canvas& canvas, const Rect& area) const {
    canvas.fillRect(area, canvas.look().color);
}

std::optional<NearestSample> BarSeries::findNearest(const Point& pixel, const ScaleMap& x,
                                                    const ScaleMap& y) const {
    const BarStyle& style = d->group->style;
    const SideView view(x, y, style.orientation);
    const Ends& ends = d->currentEnds(this);
    const double pitch = view.positionLength(d->currentStep(view.positions().scale()));
    const BarPlaces places(view, pitch, style.share, ends.slot, ends.slotCount);
    const PixelSpan span = view.positionSpan();
    const SampleRange seen = rangeBetween(d->positions, view.positions(), span.low - places.reach(),
                                          span.high + places.reach());
    const double along = view.isHorizontal() ? pixel.y : pixel.x;
    const auto gap = [&](std::size_t i) {
        return std::abs(view.position(d->positions[i]) - along) - places.reach();
    };
    const auto distance = [&](std::size_t i) {
        const auto rect = places.rect(d->positions[i], d->from(ends, i), d->to(ends, i), false);
        return rect && meets(*rect, view.area()) ? distanceTo(*rect, pixel)
                                                 : std::numeric_limits<double>::quiet_NaN();
    };
    const auto start = std::lower_bound(d->positions.begin(), d->positions.end(),
                                        view.positions().invTransform(along));
    const auto found =
        nearestAround(static_cast<std::size_t>(start - d->positions.begin()), seen, gap, distance);
    if (!found)
        return std::nullopt;
    return nearestSample(d->order[found->index], d->positions[found->index],
                         d->values[found->index], found->distance, style.orientation);
}

} // namespace zembra
