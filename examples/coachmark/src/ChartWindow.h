// SPDX-License-Identifier: MIT
#pragma once

#include <QMainWindow>

class QSettings;

namespace coachmark {

/// A chart below its navigation strip. The first window that is shown explains the chart's
/// controls; the user's answer is kept in `settings`, and the Help menu explains them again.
class ChartWindow : public QMainWindow {
public:
    /// Requires: `settings` outlives the window.
    explicit ChartWindow(QSettings& settings, QWidget* parent = nullptr);
};

} // namespace coachmark
