// SPDX-License-Identifier: MIT
#include <zembra/series/Bins.h>

#include <zembra/series/Quantile.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <utility>

namespace zembra {

namespace {

// Divided by the span first: squares of large numbers would overflow.
double standardDeviation(const std::vector<double>& samples, double min, double max) {
    const double halfSpan = 0.5 * max - 0.5 * min;
    const double middle = 0.5 * max + 0.5 * min;
    const auto n = static_cast<double>(samples.size());
    double sum = 0.0;
    double squares = 0.0;
    for (const double sample : samples) {
        const double even = (sample - middle) / halfSpan;
        sum += even;
        squares += even * even;
    }
    const double variance = (squares - sum * sum / n) / std::max(n - 1.0, 1.0);
    return halfSpan * std::sqrt(std::max(variance, 0.0));
}

double interquartileRange(std::vector<double> samples) {
    std::sort(samples.begin(), samples.end());
    return quantile(samples, 0.75) - quantile(samples, 0.25);
}

double countBySturges(std::size_t n) {
    return std::ceil(std::log2(static_cast<double>(n))) + 1.0;
}

// Halves: the whole span of the samples may be beyond the largest double.
double countForWidth(double width, double min, double max) {
    return std::ceil((0.5 * max - 0.5 * min) / (0.5 * width));
}

double countByRule(BinRule rule, const std::vector<double>& samples, double min, double max) {
    const double shrinking = 1.0 / std::cbrt(static_cast<double>(samples.size()));
    const auto usable = [](double count) { return std::isfinite(count) && count >= 1.0; };
    if (rule == BinRule::FreedmanDiaconis) {
        const double count = countForWidth(2.0 * interquartileRange(samples) * shrinking, min, max);
        if (usable(count))
            return count;
        rule = BinRule::Scott;
    }
    if (rule == BinRule::Scott) {
        const double count =
            countForWidth(3.49 * standardDeviation(samples, min, max) * shrinking, min, max);
        if (usable(count))
            return count;
    }
    return countBySturges(samples.size());
}

std::vector<double> evenEdges(double min, double max, std::size_t count) {
    std::vector<double> edges;
    edges.reserve(count + 1);
    for (std::size_t i = 0; i <= count; ++i)
        edges.push_back(std::lerp(min, max, static_cast<double>(i) / static_cast<double>(count)));
    // Where the bins are finer than doubles, neighbouring edges are equal.
    edges.erase(std::unique(edges.begin(), edges.end()), edges.end());
    return edges;
}

std::vector<double> edgesAround(double value) {
    const double half = std::max(0.5, std::abs(value) * 1e-12);
    if (!std::isfinite(value - half) || !std::isfinite(value + half))
        return value > 0.0 ? std::vector{value * (1.0 - 1e-12), value}
                           : std::vector{value, value * (1.0 - 1e-12)};
    return {value - half, value + half};
}

// Empty where the width suits neither the samples nor the cap.
std::vector<double> edgesOfWidth(double width, double origin, double min, double max) {
    const double first = std::floor((min - origin) / width);
    const double last = std::floor((max - origin) / width) + 1.0;
    const double count = last - first;
    if (!(count >= 1.0) || count > static_cast<double>(Bins::maxBins))
        return {};
    std::vector<double> edges;
    edges.reserve(static_cast<std::size_t>(count) + 1);
    for (double i = 0.0; i <= count; i += 1.0)
        edges.push_back(origin + (first + i) * width);
    const bool rising =
        std::adjacent_find(edges.begin(), edges.end(), std::greater_equal<>()) == edges.end();
    if (!rising || !std::isfinite(edges.front()) || !std::isfinite(edges.back()))
        return {};
    // Rounding may leave the greatest sample on the last edge, or the least one below the first.
    if (edges.front() > min || edges.back() < max)
        return {};
    return edges;
}

} // namespace

Bins Bins::byRule(BinRule rule) {
    Bins bins;
    bins.rule = rule;
    return bins;
}

Bins Bins::ofCount(std::size_t count) {
    Bins bins;
    bins.count = std::clamp<std::size_t>(count, 1, maxBins);
    return bins;
}

Bins Bins::ofWidth(double width, double origin) {
    Bins bins;
    if (std::isfinite(width) && width > 0.0 && std::isfinite(origin)) {
        bins.width = width;
        bins.origin = origin;
    }
    return bins;
}

Bins Bins::withEdges(std::vector<double> edges) {
    std::erase_if(edges, [](double edge) { return !std::isfinite(edge); });
    std::sort(edges.begin(), edges.end());
    edges.erase(std::unique(edges.begin(), edges.end()), edges.end());
    edges.resize(std::min(edges.size(), maxBins + 1));
    Bins bins;
    if (edges.size() >= 2)
        bins.edges = std::move(edges);
    return bins;
}

std::vector<double> Bins::edgesFor(const std::vector<double>& samples) const {
    if (samples.empty())
        return {};
    if (!edges.empty())
        return edges;
    const auto [least, greatest] = std::minmax_element(samples.begin(), samples.end());
    const double min = *least;
    const double max = *greatest;
    if (width > 0.0) {
        auto result = edgesOfWidth(width, origin, min, max);
        if (!result.empty())
            return result;
    }
    if (min == max)
        return edgesAround(min);
    const double wanted =
        count > 0 ? static_cast<double>(count) : countByRule(rule, samples, min, max);
    return evenEdges(
        min, max, static_cast<std::size_t>(std::clamp(wanted, 1.0, static_cast<double>(maxBins))));
}

} // namespace zembra
