// SPDX-License-Identifier: MIT
#include <zembra/series/Series.h>

#include <cmath>
#include <utility>

namespace zembra {

struct Series::Private {
    std::string name;
    bool visible = true;
    int xAxis = 2;
    int yAxis = 0;
    std::optional<Color> color;
    std::uint64_t revision = 0;
};

Series::Series() : d(std::make_unique<Private>()) {}

Series::~Series() = default;

void Series::setName(std::string name) {
    d->name = std::move(name);
    changed();
}

const std::string& Series::name() const {
    return d->name;
}

void Series::setVisible(bool on) {
    d->visible = on;
    changed();
}

bool Series::isVisible() const {
    return d->visible;
}

bool Series::setAxes(int xAxis, int yAxis) {
    if ((xAxis != 2 && xAxis != 3) || (yAxis != 0 && yAxis != 1))
        return false;
    d->xAxis = xAxis;
    d->yAxis = yAxis;
    changed();
    return true;
}

int Series::xAxis() const {
    return d->xAxis;
}

int Series::yAxis() const {
    return d->yAxis;
}

void Series::setColor(std::optional<Color> color) {
    d->color = color;
    changed();
}

std::optional<Color> Series::color() const {
    return d->color;
}

std::optional<NearestSample> Series::nearest(const Point& pixel, const ScaleMap& x,
                                             const ScaleMap& y) const {
    if (!isVisible() || !std::isfinite(pixel.x) || !std::isfinite(pixel.y))
        return std::nullopt;
    return findNearest(pixel, x, y);
}

std::optional<NearestSample> Series::findNearest(const Point&, const ScaleMap&,
                                                 const ScaleMap&) const {
    return std::nullopt;
}

bool Series::takesCycleColor() const {
    return true;
}

const ColorScale* Series::colorScale() const {
    return nullptr;
}

std::uint64_t Series::revision() const {
    return d->revision;
}

void Series::changed() {
    ++d->revision;
}

} // namespace zembra
