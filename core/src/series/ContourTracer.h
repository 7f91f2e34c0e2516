// SPDX-License-Identifier: MIT
#pragma once

#include <zembra/paint/Geometry.h>

#include <array>
#include <cstddef>
#include <vector>

namespace zembra {

/// Values at the crossings of vertical and horizontal lines, by pixel position.
struct Lattice {
    std::vector<double> x;
    std::vector<double> y;
    /// Row by row; NaN where missing.
    std::vector<double> values;

    std::size_t columns() const { return x.size(); }
    std::size_t rows() const { return y.size(); }
    double value(std::size_t column, std::size_t row) const {
        return values[row * columns() + column];
    }
};

/// Finds where a lattice's values cross a level, by marching squares.
class ContourTracer {
public:
    /// Requires: `lattice` outlives this.
    explicit ContourTracer(const Lattice& lattice);

    /// The lines along `level`; closed ones end where they begin. Squares with a missing corner
    /// have none.
    const std::vector<std::vector<Point>>& lines(double level);
    /// The edges of the area at or above `level` as one odd-even polygon, holes and islands
    /// included; of all that is there for minus infinity. Empty where there is none.
    std::vector<Point> area(double level);

private:
    // An edge of the lattice is named by its first node, and whether it runs down from there.
    using Edge = std::size_t;

    bool isAbove(std::size_t column, std::size_t row) const;
    double at(std::size_t column, std::size_t row) const;
    Point crossing(Edge edge) const;
    void march(std::size_t column, std::size_t row);
    void join(Edge a, Edge b);
    void trace();
    std::vector<Point> follow(Edge start);

    const Lattice& lattice;
    double level = 0.0;
    // Areas are closed by a frame of nothing around the lattice, which counts as a missing value.
    bool closed = false;
    std::vector<std::array<Edge, 2>> neighbours;
    std::vector<Edge> touched;
    std::vector<std::vector<Point>> found;
};

} // namespace zembra
