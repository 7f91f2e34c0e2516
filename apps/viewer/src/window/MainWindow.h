// SPDX-License-Identifier: MIT
#pragma once

#include "Options.h"
#include "Source.h"
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
class PasteAction;
struct Openable;

/// The window of zembra-view: charts in tabs, opened by dialog, dropped, pasted or opened by
/// the program. A single chart shows without a tab bar.
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
    /// Draws a text that is a table.
    void openText(const QString& text);
    /// Opens what is on the clipboard.
    void paste();
    void closeTab(int index);

    /// Shows the hint about the controls beside the strip of the first chart that there is, unless
    /// the user has asked not to see it again.
    void offerHint();

    /// The page in front; null without charts and while it is being read.
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
    LoadingPage* newTab(const Source& source, const Options& options, const QString& name);
    void replaceTab(QWidget* old, QWidget* page);
    void showLoaded(LoadingPage* loading);
    void redraw(ChartPage* page, const Source& source, const Options& options);
    void open(const Openable& openable);
    void showLive(LiveSource* source);
    void showFailure(const QString& title, const QString& message);
    void updateTitle();
    void rememberHint(bool dontShowAgain);

    QTabWidget* tabs;
    PasteAction* pasteAction;
    bool hintWaits = false;
};

} // namespace viewer
