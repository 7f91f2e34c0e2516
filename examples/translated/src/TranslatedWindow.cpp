// SPDX-License-Identifier: MIT
#include "TranslatedWindow.h"

#include <zembra/series/LineSeries.h>

#include <QAction>
#include <QCoreApplication>
#include <QEvent>
#include <QMenuBar>
#include <QVBoxLayout>

using zembra::ZembraGraphicsView;
using zembra::ZembraNavigationWidget;

namespace {

constexpr const char* sourceLanguage = "en";

} // namespace

TranslatedWindow::TranslatedWindow(QWidget* parent)
    : QMainWindow(parent),
      chart(new ZembraGraphicsView(this)),
      strip(new ZembraNavigationWidget(this)),
      languages(menuBar()->addMenu(QString())) {
    auto plot = std::make_shared<zembra::Plot>();
    plot->add<zembra::LineSeries>(std::vector{0.0, 1.0, 2.0, 3.0, 4.0},
                                  std::vector{3.0, 4.5, 4.0, 6.5, 7.0});
    chart->setPlot(plot);
    chart->setContextMenuPolicy(Qt::ActionsContextMenu);
    strip->setGraphicsView(chart);

    auto* column = new QWidget(this);
    auto* layout = new QVBoxLayout(column);
    layout->addWidget(strip);
    layout->addWidget(chart, 1);
    setCentralWidget(column);

    // Each language in its own words, so that everybody finds theirs.
    const auto offer = [this](const QString& name, const QString& language) {
        QAction* action = languages->addAction(name);
        action->setObjectName(QStringLiteral("language ") + language);
        connect(action, &QAction::triggered, this, [this, language] { setLanguage(language); });
    };
    offer(QStringLiteral("English"), QString::fromLatin1(sourceLanguage));
    offer(QStringLiteral("Deutsch"), QStringLiteral("de"));
    retranslate();
}

TranslatedWindow::~TranslatedWindow() {
    QCoreApplication::removeTranslator(&translator);
}

bool TranslatedWindow::setLanguage(const QString& language) {
    const bool isSource = language == QLatin1String(sourceLanguage);
    const QString file = QStringLiteral(":/i18n/translated_%1.qm").arg(language);
    // Probed first: a translator that fails to load has lost what it held before.
    if (!isSource && !QTranslator().load(file))
        return false;
    QCoreApplication::removeTranslator(&translator);
    if (isSource)
        return true;
    return translator.load(file) && QCoreApplication::installTranslator(&translator);
}

void TranslatedWindow::changeEvent(QEvent* event) {
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QMainWindow::changeEvent(event);
}

void TranslatedWindow::retranslate() {
    setWindowTitle(tr("Translated chart"));
    languages->setTitle(tr("&Language"));
    // The plot is no widget: its texts are set, and then painted, by its host.
    chart->plot()->setTitle(tr("Sales since the opening").toStdString());
    chart->plot()->axis(2).setTitle(tr("Years").toStdString());
    chart->plot()->axis(0).setTitle(tr("Millions").toStdString());
    chart->replot();
}
