// SPDX-License-Identifier: MIT
// Samples are at seconds since the Unix epoch; the zone is only how the axis tells them. On the
// last Sunday of March the clocks of Zurich leave out an hour, those of Kolkata do not.
#include <ZembraGraphicsView.h>
#include <zembra/zembra.h>

#include <QApplication>
#include <QComboBox>
#include <QMainWindow>
#include <QToolBar>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace {

// 2024-03-30 00:00 UTC.
constexpr double start = 1711756800.0;

/// Sunlight every ten minutes, highest at noon in Zurich.
zembra::Samples sunlight() {
    std::vector<double> watts;
    for (int i = 0; i < 2 * 24 * 6; ++i) {
        const double hours = i / 6.0;
        const double height = std::sin((hours - 5.4) * std::numbers::pi / 12.0);
        watts.push_back(std::max(0.0, 700.0 * height));
    }
    return zembra::Samples::evenlySpaced(start, 600.0, std::move(watts));
}

} // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    auto plot = std::make_shared<zembra::Plot>();
    plot->setTitle("Sunlight in Zurich");
    plot->axis(0).setTitle("Power (W/m²)");
    plot->add<zembra::LineSeries>(sunlight());

    QMainWindow window;
    auto* view = new zembra::ZembraGraphicsView;
    view->setPlot(plot);
    window.setCentralWidget(view);
    window.setWindowTitle(QStringLiteral("Time zones"));
    window.resize(900, 500);

    auto* zones = new QComboBox;
    zones->addItems({QStringLiteral("Europe/Zurich"), QStringLiteral("UTC"),
                     QStringLiteral("America/New_York"), QStringLiteral("Asia/Kolkata"),
                     QStringLiteral("Asia/Tokyo"), QStringLiteral("Australia/Lord_Howe")});
    window.addToolBar(QStringLiteral("Time zone"))->addWidget(zones);
    const auto showZone = [&](const QString& zone) {
        // The range stays: the same stretch of time, told by other clocks.
        plot->axis(2).setScale(zembra::Scale::time(zone.toStdString()));
        plot->axis(2).setTitle("Time in " + zone.toStdString());
        view->replot();
    };
    QObject::connect(zones, &QComboBox::currentTextChanged, view, showZone);
    showZone(zones->currentText());

    window.show();
    return QApplication::exec();
}
