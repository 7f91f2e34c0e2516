// SPDX-License-Identifier: MIT
#include "AreaStack.h"

#include "SortedRows.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>
#include <utility>

namespace zembra {

namespace {

// The values of a row at other positions, in one walk; NaN where it has none.
std::vector<double> valuesAt(std::span<const double> positions, const StackRow& row) {
    std::vector<double> values;
    values.reserve(positions.size());
    std::size_t k = 0;
    for (const double x : positions) {
        while (k < row.x.size() && row.x[k] < x)
            ++k;
        double value = std::numeric_limits<double>::quiet_NaN();
        if (k < row.x.size() && row.x[k] == x)
            value = row.y[k];
        else if (k > 0 && k < row.x.size()) {
            // Halves keep the distances finite.
            const double share =
                (0.5 * x - 0.5 * row.x[k - 1]) / (0.5 * row.x[k] - 0.5 * row.x[k - 1]);
            value = std::lerp(row.y[k - 1], row.y[k], share);
        }
        values.push_back(value);
    }
    return values;
}

double held(double sum) {
    return std::clamp(sum, std::numeric_limits<double>::lowest(),
                      std::numeric_limits<double>::max());
}

} // namespace

StackRow stackRow(const Samples& samples) {
    std::vector<double> x(samples.size());
    for (std::size_t i = 0; i < x.size(); ++i)
        x[i] = samples.x(i);
    StackRow row;
    for (const std::size_t i : ascendingOrder(x, [](std::size_t) { return true; })) {
        if (!row.x.empty() && row.x.back() == x[i]) {
            row.x.pop_back();
            row.y.pop_back();
            row.order.pop_back();
        }
        row.x.push_back(x[i]);
        row.y.push_back(samples.y(i));
        row.order.push_back(i);
    }
    return row;
}

StackEdges stackEdges(std::span<const StackRow* const> below, const StackRow& area) {
    std::vector<double> x = area.x;
    for (const StackRow* row : below) {
        std::vector<double> both;
        both.reserve(x.size() + row->x.size());
        std::set_union(x.begin(), x.end(), row->x.begin(), row->x.end(), std::back_inserter(both));
        x = std::move(both);
    }
    std::vector<double> lower(x.size(), 0.0);
    for (const StackRow* row : below) {
        const std::vector<double> values = valuesAt(x, *row);
        for (std::size_t i = 0; i < x.size(); ++i)
            if (std::isfinite(values[i]))
                lower[i] = held(lower[i] + values[i]);
    }
    std::vector<double> upper = valuesAt(x, area);
    std::vector<double> tops;
    tops.reserve(area.x.size());
    for (std::size_t i = 0; i < x.size(); ++i) {
        if (std::isfinite(upper[i]))
            upper[i] = held(lower[i] + upper[i]);
        else
            lower[i] = upper[i] = std::numeric_limits<double>::quiet_NaN();
        if (tops.size() < area.x.size() && x[i] == area.x[tops.size()])
            tops.push_back(upper[i]);
    }
    return {Samples(x, std::move(lower)), Samples(x, std::move(upper)),
            Samples(area.x, std::move(tops))};
}

} // namespace zembra
