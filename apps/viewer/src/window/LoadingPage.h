// SPDX-License-Identifier: MIT
#pragma once

#include "LoadJob.h"

#include <QWidget>

class QLabel;
class QProgressBar;
class QPushButton;

namespace viewer {

/// Stands in the tab of a chart that is being read, with a progress bar and a way to give up.
/// Owns the job.
class LoadingPage : public QWidget {
    Q_OBJECT

public:
    LoadingPage(const Source& source, const Options& options, QWidget* parent = nullptr);

    LoadJob* job() const { return loadJob; }
    QProgressBar* progressBar() const { return bar; }
    QPushButton* cancelButton() const { return cancel; }

protected:
    void changeEvent(QEvent* event) override;

private:
    void showProgress(qint64 bytes, qint64 size, qint64 rows);
    void retranslate();

    LoadJob* loadJob;
    QLabel* title;
    QLabel* rowCount;
    QProgressBar* bar;
    QPushButton* cancel;
    qint64 rowsSoFar = 0;
};

} // namespace viewer
