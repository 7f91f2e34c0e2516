// SPDX-License-Identifier: MIT
#pragma once

#include <zembra/zembra.h>

#include <QWidget>

#include <memory>

class QMenu;

namespace zembra {
class ZembraGraphicsView;
class ZembraNavigationWidget;
} // namespace zembra

namespace viewer {

/// One chart with its navigation strip above it and a context menu of all chart actions. Owns its
/// widgets and shares the plot.
class ChartPage : public QWidget {
    Q_OBJECT

public:
    explicit ChartPage(std::shared_ptr<zembra::Plot> plot, QWidget* parent = nullptr);

    /// Asks for a file name and writes the chart there, in the size it has on screen.
    void savePicture();
    /// Puts the chart on the clipboard as a picture.
    void copyPicture();

    /// Adds all actions of the chart to a menu.
    void fillMenu(QMenu& menu);

    zembra::ZembraGraphicsView* view() const { return chartView; }
    zembra::ZembraNavigationWidget* strip() const { return navigationStrip; }

protected:
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    zembra::ZembraNavigationWidget* navigationStrip;
    zembra::ZembraGraphicsView* chartView;
};

} // namespace viewer
