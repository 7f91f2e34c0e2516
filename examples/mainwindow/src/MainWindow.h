// SPDX-License-Identifier: MIT
#pragma once

#include <ZembraGraphicsView.h>

#include <QLabel>
#include <QMainWindow>

/// A window around a chart: its actions in the menu, the tool bar and a context menu, and its mode
/// and ranges in the status bar.
class MainWindow : public QMainWindow {
    Q_OBJECT

public:
    explicit MainWindow(QWidget* parent = nullptr);

    zembra::ZembraGraphicsView& view() const { return *chart; }
    QString modeText() const { return mode->text(); }
    QString rangeText() const { return ranges->text(); }

private:
    void showMode(zembra::InteractionMode current);
    void showRanges();

    zembra::ZembraGraphicsView* chart;
    QLabel* mode;
    QLabel* ranges;
};
