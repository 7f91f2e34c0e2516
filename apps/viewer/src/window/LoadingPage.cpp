// SPDX-License-Identifier: MIT
#include "window/LoadingPage.h"

#include <QEvent>
#include <QFileInfo>
#include <QLabel>
#include <QLocale>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

namespace viewer {

namespace {

constexpr int steps = 1000;
constexpr int barWidth = 360;

} // namespace

LoadingPage::LoadingPage(const Source& source, const Options& options, QWidget* parent)
    : QWidget(parent),
      loadJob(new LoadJob(source, options, this)),
      title(new QLabel(this)),
      rowCount(new QLabel(this)),
      bar(new QProgressBar(this)),
      cancel(new QPushButton(this)) {
    auto* const layout = new QVBoxLayout(this);
    layout->addStretch();
    for (QWidget* const widget : {static_cast<QWidget*>(title), static_cast<QWidget*>(bar),
                                  static_cast<QWidget*>(rowCount), static_cast<QWidget*>(cancel)})
        layout->addWidget(widget, 0, Qt::AlignHCenter);
    layout->addStretch();
    bar->setFixedWidth(barWidth);
    // Busy until the first figures come.
    bar->setRange(0, 0);
    connect(cancel, &QPushButton::clicked, loadJob, &LoadJob::cancel);
    connect(loadJob, &LoadJob::progressed, this, &LoadingPage::showProgress);
    setFocusProxy(cancel);
    retranslate();
}

void LoadingPage::showProgress(qint64 bytes, qint64 size, qint64 rows) {
    if (size > 0) {
        bar->setRange(0, steps);
        bar->setValue(static_cast<int>(std::min(1.0, double(bytes) / double(size)) * steps));
    }
    rowsSoFar = rows;
    retranslate();
}

void LoadingPage::retranslate() {
    const QString name = QFileInfo(QString::fromStdString(loadJob->source().name)).fileName();
    title->setText(tr("Reading %1").arg(name));
    rowCount->setText(rowsSoFar > 0 ? tr("%1 rows").arg(QLocale().toString(rowsSoFar)) : QString());
    cancel->setText(tr("Cancel"));
}

void LoadingPage::changeEvent(QEvent* event) {
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QWidget::changeEvent(event);
}

} // namespace viewer
