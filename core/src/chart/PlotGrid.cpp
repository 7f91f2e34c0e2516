// SPDX-License-Identifier: MIT
#include <zembra/chart/PlotGrid.h>

#include "PlotPrivate.h"

#include <algorithm>

namespace zembra {

struct PlotGrid::Private {
    int rows = 1;
    int columns = 1;
    std::vector<std::shared_ptr<Plot>> plots;

    bool has(int row, int column) const {
        return row >= 0 && row < rows && column >= 0 && column < columns;
    }
    std::size_t index(int row, int column) const {
        return static_cast<std::size_t>(row) * static_cast<std::size_t>(columns) +
               static_cast<std::size_t>(column);
    }
};

PlotGrid::PlotGrid(int rows, int columns) : d(std::make_unique<Private>()) {
    d->rows = std::max(rows, 1);
    d->columns = std::max(columns, 1);
    d->plots.resize(static_cast<std::size_t>(d->rows) * static_cast<std::size_t>(d->columns));
}

PlotGrid::~PlotGrid() = default;

int PlotGrid::rows() const {
    return d->rows;
}

int PlotGrid::columns() const {
    return d->columns;
}

bool PlotGrid::setPlot(int row, int column, std::shared_ptr<Plot> plot) {
    if (!d->has(row, column))
        return false;
    d->plots[d->index(row, column)] = std::move(plot);
    return true;
}

std::shared_ptr<Plot> PlotGrid::plot(int row, int column) const {
    return d->has(row, column) ? d->plots[d->index(row, column)] : nullptr;
}

Rect PlotGrid::cellRect(int row, int column, int width, int height) const {
    if (!d->has(row, column) || width <= 0 || height <= 0)
        return {};
    // Whole pixels, the same ones for the end of one cell and the start of the next.
    const auto edge = [](int length, int index, int count) {
        const long long pixels = static_cast<long long>(length) * index / count;
        return static_cast<double>(pixels);
    };
    const double left = edge(width, column, d->columns);
    const double top = edge(height, row, d->rows);
    return {left, top, edge(width, column + 1, d->columns) - left,
            edge(height, row + 1, d->rows) - top};
}

void PlotGrid::renderInto(Painter& painter, int width, int height) {
    if (width <= 0 || height <= 0)
        return;
    const auto forEachPlot = [&](auto&& action) {
        for (int row = 0; row < d->rows; ++row)
            for (int column = 0; column < d->columns; ++column)
                if (const auto& plot = d->plots[d->index(row, column)])
                    action(*plot, row, column, cellRect(row, column, width, height));
    };
    // Each column has the widest margins of its plots, and so has each row.
    std::vector<Margins> margins(d->plots.size());
    forEachPlot([&](Plot& plot, int row, int column, const Rect& cell) {
        plot.d->measure.setPainter(painter);
        const Rect canvas =
            plot.d->settledLayout(painter, cell.width, cell.height, plot.d->leastMargins).canvas;
        const Margins own{canvas.left(), canvas.top(), cell.width - canvas.right(),
                          cell.height - canvas.bottom()};
        for (int other = 0; other < d->rows; ++other) {
            Margins& m = margins[d->index(other, column)];
            m.left = std::max(m.left, own.left);
            m.right = std::max(m.right, own.right);
        }
        for (int other = 0; other < d->columns; ++other) {
            Margins& m = margins[d->index(row, other)];
            m.top = std::max(m.top, own.top);
            m.bottom = std::max(m.bottom, own.bottom);
        }
    });
    forEachPlot([&](Plot& plot, int row, int column, const Rect& cell) {
        const PlotLayout layout =
            plot.d->layOut(cell.width, cell.height, margins[d->index(row, column)]);
        plot.d->canvas = layout.canvas;
        painter.save();
        try {
            painter.translate(cell.x, cell.y);
            plot.d->draw(painter, layout);
        } catch (...) {
            painter.restore();
            throw;
        }
        painter.restore();
    });
}

} // namespace zembra
