// SPDX-License-Identifier: MIT
#pragma once

#include <zembra/zembra.h>

#include <QSize>

class QPrinter;

namespace viewer {

/// Prints a chart, laid out in `shown` logical pixels, as large as the page takes it, in the middle
/// of its upper edge. Returns whether the printer took it.
bool printPlot(zembra::Plot& plot, QSize shown, QPrinter& printer);

} // namespace viewer
