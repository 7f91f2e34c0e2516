// SPDX-License-Identifier: MIT
#pragma once

#include "Options.h"
#include "window/LiveSource.h"

#include <zembra/zembra.h>

#include <QMainWindow>
#include <QString>

#include <memory>

class QMenu;
class QTabWidget;

namespace viewer {

class ChartPage;
class LoadingPage;

/// The window of zembra-view: charts in tabs, opened by dialog, by dropping files or by the
/// program. A single chart shows without a tab bar.
class MainWindow : public QMainWindow {
    Q_OBJECT

public:
    explicit MainWindow(QWidget* parent = nullptr);

    void addChart(const QString& name, std::shared_ptr<zembra::Plot> plot);
    /// Reads a file in a tab of its own, which shows how far it is and then the chart.
    void openFile(const QString& path, const Options& options = {});
    /// Draws a growing file, or standard input for "-".
    void openLive(const QString& path, const Options& options);
    /// Asks for files and opens them.
    void openByDialog();
    void closeTab(int index);

    /// Shows the hint about the controls beside the strip of the first chart that there is, unless
    /// the user has asked not to see it again.
    void offerHint();

    /// The page in front; null without charts and while its file is being read.
    ChartPage* currentPage() const;
    QTabWidget* tabWidget() const { return tabs; }

Q_SIGNALS:
    /// Once for each file that was opened and has a chart now.
    void fileOpened(const QString& path);
    /// Once for each file that was not, in words for the user. They are shown to the user where
    /// another chart is open.
    void openFailed(const QString& message);
    /// What the user should know about a chart.
    void noted(const QString& text);

protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void createMenus();
    void createFileMenu();
    void fillRecentMenu(QMenu* menu);
    ChartPage* newPage(std::shared_ptr<zembra::Plot> plot);
    void replaceTab(QWidget* old, ChartPage* page, const QString& name);
    void showLoaded(LoadingPage* page);
    void showLive(LiveSource* source);
    void tellFailure(const QString& message);
    void updateTitle();
    void rememberHint(bool dontShowAgain);

    QTabWidget* tabs;
    bool hintWaits = false;
};

} // namespace viewer
