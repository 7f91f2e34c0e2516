// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QByteArray>
#include <QtGui/QColor>

#include <memory>
#include <vector>

class QWidget;

namespace zembra::compare {

/// What a chart library is asked to do: each one implements it with its own widget, and
/// `makeChart`.
class Chart {
public:
    Chart() = default;
    Chart(const Chart&) = delete;
    Chart& operator=(const Chart&) = delete;
    virtual ~Chart() = default;

    virtual QWidget& window() = 0;
    /// The widget whose paint events are its frames.
    virtual QWidget& canvas() = 0;

    virtual void addLine(const std::vector<double>& x, const std::vector<double>& y,
                         double width) = 0;
    virtual void addDiscs(const std::vector<double>& x, const std::vector<double>& y,
                          double size) = 0;
    /// A heat map over the unit square, `side` × `side` values from -1 to 1, row by row; false if
    /// there is no such thing.
    virtual bool addMap(const std::vector<double>& values, std::size_t side) = 0;
    /// Makes the next frame show other values of the map.
    virtual void changeMap() = 0;

    /// Shows this part, and asks for a frame.
    virtual void show(double left, double right, double bottom, double top) = 0;
    virtual QByteArray svg(int width, int height) = 0;
};

/// With whatever the library's documents recommend for speed where `fast` is set and there is such
/// a thing that keeps anti-aliasing, else null.
std::unique_ptr<Chart> makeChart(bool fast);

inline const QColor ink(0, 90, 180);

} // namespace zembra::compare
