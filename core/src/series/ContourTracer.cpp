// SPDX-License-Identifier: MIT
#include "ContourTracer.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace zembra {

namespace {

constexpr std::size_t noEdge = std::numeric_limits<std::size_t>::max();

} // namespace

// Nodes are counted in a lattice with the frame around it, so node (0, 0) is one of the frame.
ContourTracer::ContourTracer(const Lattice& lattice)
    : lattice(lattice),
      neighbours((lattice.columns() + 2) * (lattice.rows() + 2) * 2, {noEdge, noEdge}) {}

const std::vector<std::vector<Point>>& ContourTracer::lines(double value) {
    level = value;
    closed = false;
    trace();
    return found;
}

std::vector<Point> ContourTracer::area(double value) {
    level = value;
    closed = true;
    trace();
    std::vector<Point> polygon;
    for (const auto& ring : found)
        polygon.insert(polygon.end(), ring.begin(), ring.end());
    // The lines from each ring to the next, which is near, are cancelled on the way back.
    for (std::size_t i = found.size(); i-- > 0;)
        polygon.push_back(found[i].front());
    return polygon;
}

double ContourTracer::at(std::size_t column, std::size_t row) const {
    const bool inside =
        column > 0 && row > 0 && column <= lattice.columns() && row <= lattice.rows();
    return inside ? lattice.value(column - 1, row - 1) : std::numeric_limits<double>::quiet_NaN();
}

bool ContourTracer::isAbove(std::size_t column, std::size_t row) const {
    // False for missing values.
    return at(column, row) >= level;
}

Point ContourTracer::crossing(Edge edge) const {
    const std::size_t stride = lattice.columns() + 2;
    const bool down = edge % 2 == 1;
    const std::size_t column = edge / 2 % stride;
    const std::size_t row = edge / 2 / stride;
    const std::size_t nextColumn = down ? column : column + 1;
    const std::size_t nextRow = down ? row + 1 : row;
    const double a = at(column, row);
    const double b = at(nextColumn, nextRow);
    const auto place = [this](std::size_t c, std::size_t r) {
        return Point{lattice.x[c - 1], lattice.y[r - 1]};
    };
    // Next to nothing, an area ends at its last value.
    if (std::isnan(a))
        return place(nextColumn, nextRow);
    if (std::isnan(b))
        return place(column, row);
    const Point from = place(column, row);
    const Point to = place(nextColumn, nextRow);
    const double share = (0.5 * level - 0.5 * a) / (0.5 * b - 0.5 * a);
    return {std::lerp(from.x, to.x, share), std::lerp(from.y, to.y, share)};
}

void ContourTracer::join(Edge a, Edge b) {
    const auto link = [this](Edge from, Edge to) {
        auto& slots = neighbours[from];
        if (slots[0] == noEdge && slots[1] == noEdge)
            touched.push_back(from);
        (slots[0] == noEdge ? slots[0] : slots[1]) = to;
    };
    link(a, b);
    link(b, a);
}

void ContourTracer::march(std::size_t column, std::size_t row) {
    const std::size_t stride = lattice.columns() + 2;
    const std::array corners = {isAbove(column, row), isAbove(column + 1, row),
                                isAbove(column + 1, row + 1), isAbove(column, row + 1)};
    const auto count = std::count(corners.begin(), corners.end(), true);
    if (count == 0 || count == 4)
        return;
    const std::array values = {at(column, row), at(column + 1, row), at(column + 1, row + 1),
                               at(column, row + 1)};
    const bool whole =
        std::none_of(values.begin(), values.end(), [](double value) { return std::isnan(value); });
    if (!closed && !whole)
        return;
    const Edge node = (row * stride + column) * 2;
    // Top, right, bottom and left.
    const std::array<Edge, 4> edges = {node, node + 3, node + 2 * stride, node + 1};
    std::array<Edge, 4> crossed = {};
    std::size_t crossings = 0;
    for (std::size_t i = 0; i < 4; ++i)
        if (corners[i] != corners[(i + 1) % 4])
            crossed[crossings++] = edges[i];
    if (crossings == 2) {
        join(crossed[0], crossed[1]);
        return;
    }
    // A saddle. Its middle tells which corners are connected; without a value it is below.
    const double mean = 0.25 * values[0] + 0.25 * values[1] + 0.25 * values[2] + 0.25 * values[3];
    const bool middle = whole && mean >= level;
    if (middle == corners[0]) {
        join(edges[0], edges[1]);
        join(edges[2], edges[3]);
    } else {
        join(edges[0], edges[3]);
        join(edges[1], edges[2]);
    }
}

std::vector<Point> ContourTracer::follow(Edge start) {
    std::vector<Point> line = {crossing(start)};
    Edge current = start;
    while (true) {
        auto& slots = neighbours[current];
        const Edge next = slots[0] != noEdge ? slots[0] : slots[1];
        if (next == noEdge)
            return line;
        (slots[0] != noEdge ? slots[0] : slots[1]) = noEdge;
        auto& back = neighbours[next];
        (back[0] == current ? back[0] : back[1]) = noEdge;
        current = next;
        line.push_back(crossing(current));
    }
}

void ContourTracer::trace() {
    found.clear();
    touched.clear();
    if (lattice.columns() == 0 || lattice.rows() == 0)
        return;
    const std::size_t frame = closed ? 0 : 1;
    for (std::size_t row = frame; row + frame <= lattice.rows(); ++row)
        for (std::size_t column = frame; column + frame <= lattice.columns(); ++column)
            march(column, row);
    // Open lines first, from their ends; what is left are rings.
    for (const Edge edge : touched)
        if ((neighbours[edge][0] == noEdge) != (neighbours[edge][1] == noEdge))
            found.push_back(follow(edge));
    for (const Edge edge : touched)
        if (neighbours[edge][0] != noEdge)
            found.push_back(follow(edge));
}

} // namespace zembra
