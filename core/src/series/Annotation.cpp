// SPDX-License-Identifier: MIT
#include <zembra/series/Annotation.h>

#include <zembra/series/Canvas.h>

namespace zembra {

Coordinate Coordinate::canvas(double share) {
    Coordinate coordinate(share);
    coordinate.data = false;
    return coordinate;
}

double Coordinate::pixel(const ScaleMap& map, double low, double high) const {
    return data ? map.transform(number) : low + number * (high - low);
}

bool Annotation::takesCycleColor() const {
    return false;
}

Bounds Annotation::bounds(const Scale&, const Scale&) const {
    return {};
}

Color Annotation::ink(const Canvas& canvas) const {
    return color().value_or(canvas.look().foreground);
}

Point Annotation::place(const Canvas& canvas, const Position& position) {
    return {column(canvas, position.x), row(canvas, position.y)};
}

double Annotation::column(const Canvas& canvas, const Coordinate& x) {
    return x.pixel(canvas.x(), canvas.rect().left(), canvas.rect().right());
}

double Annotation::row(const Canvas& canvas, const Coordinate& y) {
    return y.pixel(canvas.y(), canvas.rect().bottom(), canvas.rect().top());
}

} // namespace zembra
