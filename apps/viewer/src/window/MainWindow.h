// SPDX-License-Identifier: MIT
#pragma once

#include <zembra/zembra.h>

#include <QMainWindow>
#include <QString>

#include <memory>

class QTabWidget;

namespace viewer {

class ChartPage;

/// The window of zembra-view: charts in tabs. A single chart shows without a tab bar.
class MainWindow : public QMainWindow {
    Q_OBJECT

public:
    explicit MainWindow(QWidget* parent = nullptr);

    void addChart(const QString& name, std::shared_ptr<zembra::Plot> plot);
    /// Shows the hint about the controls beside the strip of the current chart, unless the user
    /// has asked not to see it again.
    void offerHint();

    /// The page in front; null without charts.
    ChartPage* currentPage() const;

private:
    void rememberHint(bool dontShowAgain);

    QTabWidget* tabs;
};

} // namespace viewer
