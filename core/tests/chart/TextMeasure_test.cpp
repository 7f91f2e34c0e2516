// SPDX-License-Identifier: MIT
#include "support/RecordingPainter.h"

#include <zembra/chart/Plot.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <string>

using namespace zembra;
using namespace zembra::test;

namespace {

// Nothing but a title, drawn; how often the painter measured a text for it.
std::size_t measurementsFor(Plot& plot, RecordingPainter& painter, const std::string& title) {
    const std::size_t before = painter.measurements();
    plot.setTitle(title);
    plot.renderInto(painter, 200, 100);
    return painter.measurements() - before;
}

} // namespace

TEST(TextMeasure, TextsAreMeasuredOnceUntilSoManyHaveComeThatTheMemoryStartsAnew) {
    Plot plot;
    plot.setAxisEnabled(0, false);
    plot.setAxisEnabled(2, false);
    RecordingPainter painter;
    EXPECT_GT(measurementsFor(plot, painter, "first"), 0u);
    EXPECT_GT(measurementsFor(plot, painter, "second"), 0u);
    EXPECT_EQ(measurementsFor(plot, painter, "first"), 0u);
    for (int i = 0; i < 4096; ++i)
        measurementsFor(plot, painter, std::to_string(i));
    EXPECT_GT(measurementsFor(plot, painter, "first"), 0u);
    EXPECT_EQ(measurementsFor(plot, painter, "first"), 0u);
}
