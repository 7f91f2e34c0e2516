// SPDX-License-Identifier: MIT
#include <zembra/series/AreaSeries.h>

#include "AreaStack.h"
#include "BandFill.h"
#include "NearestPoint.h"
#include "SideView.h"

#include <zembra/series/Canvas.h>

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

namespace zembra {

/// The areas of a stack, the lowest first.
struct AreaSeries::Group {
    std::vector<const AreaSeries*> members;
    // What members had counted before they left, so that the sum only grows.
    std::uint64_t pastRevisions = 0;

    std::uint64_t revision() const {
        std::uint64_t sum = pastRevisions;
        for (const AreaSeries* member : members)
            sum += member->ownRevision();
        return sum;
    }

    void remove(const AreaSeries* series) {
        pastRevisions += series->ownRevision() + 1;
        std::erase(members, series);
    }
};

struct AreaSeries::Private {
    Samples samples;
    // The revisions of the samples before these, so that the sum only grows.
    std::uint64_t pastRevisions = 0;
    AreaStyle style;
    std::shared_ptr<Group> group;

    struct Row {
        std::uint64_t revision;
        StackRow row;
    };
    struct Edges {
        std::uint64_t revision;
        bool isLowest;
        StackEdges stack;
    };
    // Following the samples and the group.
    mutable std::optional<Row> row;
    mutable std::optional<Edges> edges;

    bool isStacked() const { return group->members.size() > 1; }
    const StackRow& currentRow(const AreaSeries* self) const;
    const Edges& currentEdges(const AreaSeries* self) const;
};

const StackRow& AreaSeries::Private::currentRow(const AreaSeries* self) const {
    const std::uint64_t revision = self->ownRevision();
    if (!row || row->revision != revision)
        row = Row{revision, stackRow(samples)};
    return row->row;
}

const AreaSeries::Private::Edges& AreaSeries::Private::currentEdges(const AreaSeries* self) const {
    const std::uint64_t revision = group->revision();
    if (edges && edges->revision == revision)
        return *edges;
    std::vector<const StackRow*> below;
    for (const AreaSeries* member : group->members) {
        if (member == self)
            break;
        if (member->isVisible())
            below.push_back(&member->d->currentRow(member));
    }
    edges = Edges{revision, below.empty(), stackEdges(below, currentRow(self))};
    return *edges;
}

AreaSeries::AreaSeries() : d(std::make_unique<Private>()) {
    d->group = std::make_shared<Group>();
    d->group->members = {this};
}

AreaSeries::AreaSeries(std::vector<double> x, std::vector<double> y, std::string name)
    : AreaSeries(Samples(std::move(x), std::move(y)), std::move(name)) {}

AreaSeries::AreaSeries(Samples samples, std::string name) : AreaSeries() {
    setSamples(std::move(samples));
    setName(std::move(name));
}

AreaSeries::~AreaSeries() {
    d->group->remove(this);
}

void AreaSeries::setSamples(std::vector<double> x, std::vector<double> y) {
    setSamples(Samples(std::move(x), std::move(y)));
}

void AreaSeries::setSamples(Samples samples) {
    d->pastRevisions += d->samples.revision();
    d->samples = std::move(samples);
    changed();
}

const Samples& AreaSeries::samples() const {
    return d->samples;
}

bool AreaSeries::setStyle(const AreaStyle& style) {
    if (!std::isfinite(style.baseline) || !std::isfinite(style.lineWidth) ||
        style.lineWidth < 0.0 || !(style.opacity >= 0.0 && style.opacity <= 1.0))
        return false;
    d->style = style;
    changed();
    return true;
}

const AreaStyle& AreaSeries::style() const {
    return d->style;
}

void AreaSeries::join(std::shared_ptr<Group> group) {
    const std::shared_ptr<Group> left = d->group;
    left->remove(this);
    d->group = std::move(group);
    d->group->pastRevisions += left->revision() + 1;
    d->group->members.push_back(this);
    changed();
}

bool AreaSeries::stackOn(AreaSeries& other) {
    if (&other == this)
        return false;
    join(other.d->group);
    return true;
}

void AreaSeries::standAlone() {
    join(std::make_shared<Group>());
}

Bounds AreaSeries::bounds(const Scale& x, const Scale& y) const {
    const bool stacked = d->isStacked();
    const double baseline = stacked ? 0.0 : d->style.baseline;
    const SampleBounds covered =
        stacked ? d->currentEdges(this).stack.upper.bounds(x, y) : d->samples.bounds(x, y);
    Bounds bounds{covered.x, covered.y};
    if (stacked && !covered.x.isEmpty())
        bounds.y.include(d->currentEdges(this).stack.lower.bounds(x, y).y);
    if (covered.x.isEmpty() || !y.contains(baseline))
        return bounds;
    bounds.y.include(baseline);
    bounds.yFromZero = baseline == 0.0;
    return bounds;
}

void AreaSeries::draw(Canvas& canvas) const {
    const Color fill = thinned(canvas.look().color, d->style.opacity);
    if (!d->isStacked()) {
        fillBetween(canvas, d->samples, d->style.baseline, fill);
        drawBaseline(canvas, SideView(canvas, Orientation::Vertical), d->style.baseline);
        drawThrough(canvas, d->samples, d->style.lineWidth);
        return;
    }
    const Private::Edges& edges = d->currentEdges(this);
    // The lowest area reaches the axis where a scale has no zero.
    if (edges.isLowest) {
        fillBetween(canvas, edges.stack.upper, 0.0, fill);
        drawBaseline(canvas, SideView(canvas, Orientation::Vertical), 0.0);
    } else {
        fillBetween(canvas, edges.stack.upper, edges.stack.lower, fill);
    }
    drawThrough(canvas, edges.stack.upper, d->style.lineWidth);
}

void AreaSeries::drawLegendKey(Canvas& canvas, const Rect& area) const {
    canvas.fillRect(area, thinned(canvas.look().color, d->style.opacity));
    if (d->style.lineWidth > 0.0) {
        const double width = std::min(d->style.lineWidth, area.height);
        canvas.fillRect({area.x, area.y, area.width, width}, canvas.look().color);
    }
}

std::optional<NearestSample> AreaSeries::findNearest(const Point& pixel, const ScaleMap& x,
                                                     const ScaleMap& y) const {
    if (!d->isStacked())
        return nearestPoint(d->samples, pixel, x, y);
    auto found = nearestPoint(d->currentEdges(this).stack.tops, pixel, x, y);
    if (found) {
        found->index = d->currentRow(this).order[found->index];
        found->y = d->samples.y(found->index);
    }
    return found;
}

std::uint64_t AreaSeries::revision() const {
    return d->group->revision();
}

std::uint64_t AreaSeries::ownRevision() const {
    return Series::revision() + d->pastRevisions + d->samples.revision();
}

} // namespace zembra
