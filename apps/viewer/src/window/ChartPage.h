// SPDX-License-Identifier: MIT
#pragma once

#include "ColumnChoice.h"
#include "Exporter.h"
#include "PlotColors.h"

#include <zembra/zembra.h>

#include <QString>
#include <QWidget>

#include <memory>
#include <optional>

class QAction;
class QMenu;

namespace zembra {
class ZembraGraphicsView;
class ZembraNavigationWidget;
} // namespace zembra

namespace viewer {

/// One chart with its navigation strip above it and a context menu of all chart actions. Light or
/// dark as the palette is. Owns its widgets and shares the plot.
class ChartPage : public QWidget {
    Q_OBJECT

public:
    explicit ChartPage(std::shared_ptr<zembra::Plot> plot, QWidget* parent = nullptr);

    /// Asks for size and file name and writes the chart there.
    void savePicture();
    /// Puts the chart on the clipboard as it is on screen.
    void copyPicture();
    /// Asks for the size and puts the chart on the clipboard.
    void copyPictureAs();
    /// Asks for a printer and prints the chart.
    void print();

    /// Writes the chart; none keeps the ground it has on screen. Errors: tells the user, returns
    /// false.
    bool writePicture(const QString& path, const PictureSize& size, std::optional<Ground> ground);
    /// Puts the chart on the clipboard in a size of its own.
    void copyPicture(const PictureSize& size, std::optional<Ground> ground);

    /// What the chart shows of its table; none where nothing can be chosen.
    void setChoice(std::optional<ColumnChoice> choice);
    /// Asks what to draw; `redrawWanted` follows. Nothing happens without a choice.
    void chooseColumns();
    /// The action that does so; disabled without a choice.
    QAction* columnsAction() const { return columns; }

    /// Adds all actions of the chart to a menu.
    void fillMenu(QMenu& menu);

    /// The name that a picture of the chart gets, without suffix.
    void setFileName(const QString& name) { fileName = name; }

    zembra::ZembraGraphicsView* view() const { return chartView; }
    zembra::ZembraNavigationWidget* strip() const { return navigationStrip; }

Q_SIGNALS:
    /// The user has chosen what to draw instead.
    void redrawWanted(const viewer::Options& options);

protected:
    void contextMenuEvent(QContextMenuEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void retranslate();
    void followPalette();
    template <class Draw>
    void drawApart(std::optional<Ground> ground, Draw draw);

    zembra::ZembraNavigationWidget* navigationStrip;
    zembra::ZembraGraphicsView* chartView;
    QAction* columns;
    std::optional<ColumnChoice> choice;
    QString fileName = QStringLiteral("chart");
};

} // namespace viewer
