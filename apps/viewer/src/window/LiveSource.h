// SPDX-License-Identifier: MIT
#pragma once

#include "LiveTable.h"

#include <QFile>
#include <QObject>
#include <QTimer>

#include <memory>
#include <string>

class QSocketNotifier;

namespace viewer {

/// Feeds a live table from a growing file, or from standard input for "-". GUI thread only.
///
/// A file that is cut short or replaced is read from its beginning again; one that vanishes may
/// come back. What is there already is read in slices, so that the window stays alive.
class LiveSource : public QObject {
    Q_OBJECT

public:
    LiveSource(const std::string& path, const Options& options, QObject* parent = nullptr);
    ~LiveSource() override;

    void start();
    LiveTable& table() { return live; }
    const std::string& path() const { return file; }

Q_SIGNALS:
    /// The table has a plot now.
    void started();
    /// Rows have come; at most thirty times a second.
    void grown();
    /// Nothing can be drawn; reading has ended.
    void failed(const QString& message);
    /// Standard input has come to its end.
    void ended();

private:
    void readFile();
    void readStandardInput();
    bool isReplaced() const;
    void take(std::string_view bytes);

    std::string file;
    LiveTable live;
    QFile input;
    QTimer poll;
    QTimer frame;
    std::unique_ptr<QSocketNotifier> notifier;
    std::string buffer;
    bool isStopped = false;
};

} // namespace viewer
