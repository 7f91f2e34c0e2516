// SPDX-License-Identifier: MIT
#include "ChartLoader.h"

#include "ChartBuilder.h"
#include "ChartPlan.h"
#include "Failure.h"
#include "GridReader.h"
#include "KindCharts.h"

#include <filesystem>
#include <new>
#include <utility>

namespace viewer {

namespace {

// A grid has no columns that could be named.
void requireNoColumns(const std::string& path, const Options& options) {
    const ChartKind kind = options.kind.value_or(ChartKind::HeatMap);
    if (kind != ChartKind::HeatMap)
        throw Failure(path + ": a grid is drawn by --kind heat, not by --kind " +
                      chartKindName(kind));
    const char* const option = options.x            ? "--x"
                               : !options.y.empty() ? "--y"
                               : options.by         ? "--by"
                               : options.logX       ? "--log-x"
                               : options.logY       ? "--log-y"
                                                    : nullptr;
    if (option)
        throw Failure(path + ": " + option + " has no meaning with a grid");
}

} // namespace

Chart loadChart(const Source& source, const Options& options, const ReadProgress& progress) try {
    const std::string& path = source.name;
    Chart chart;
    chart.name = path == "-" ? "standard input" : std::filesystem::path(path).stem().string();
    if (!source.text && isGridFile(path)) {
        requireNoColumns(path, options);
        ValueGrid grid = readGrid(path);
        chart.plot = std::make_shared<zembra::Plot>();
        chart.plot->setTitle(options.title.value_or(chart.name));
        drawMatrix(*chart.plot, std::move(grid.values), grid.columns);
        return chart;
    }
    const ReadRequest request{options.by, options.kind == ChartKind::HeatMap};
    const auto table = std::make_shared<const Table>(
        source.text ? parseTable(*source.text, path, request, progress)
                    : readTable(path, request, progress));
    ChartPlan plan = planChart(*table, options);
    chart.plot = buildChart(table, plan, options);
    if (!options.title)
        chart.plot->setTitle(chart.name);
    chart.choice = choiceOf(*table, plan, options);
    chart.notes = std::move(plan.notes);
    return chart;
} catch (const std::bad_alloc&) {
    throw Failure(source.name + ": there is not enough memory", Failure::Kind::NoMemory);
}

} // namespace viewer
