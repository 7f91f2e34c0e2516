// SPDX-License-Identifier: MIT
// Two uses of the right axis. Above it tells the values of the left one in another unit and follows
// every pan and zoom; below it stands for itself and carries a series of its own.
#include <ZembraGraphicsView.h>
#include <zembra/zembra.h>

#include <QApplication>
#include <QVBoxLayout>
#include <QWidget>

namespace {

const std::vector<std::string> months = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                         "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
const std::vector<double> numbers = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11};
const std::vector<double> celsius = {0.8,  2.1,  6.0,  9.7,  14.1, 17.6,
                                     19.6, 19.0, 14.9, 10.2, 4.6,  1.5};
const std::vector<double> rain = {63, 58, 71, 80, 127, 126, 124, 119, 95, 84, 77, 83};

std::shared_ptr<zembra::Plot> celsiusAndFahrenheit() {
    auto plot = std::make_shared<zembra::Plot>();
    plot->setTitle("One axis in two units");
    plot->axis(2).setScale(zembra::Scale::categorical(months));
    plot->axis(0).setTitle("Temperature (°C)");
    plot->add<zembra::LineSeries>(numbers, celsius);
    plot->axis(1).setEnabled(true);
    plot->axis(1).setTitle("Temperature (°F)");
    plot->axis(1).setDerived([](double c) { return c * 1.8 + 32.0; },
                             [](double f) { return (f - 32.0) / 1.8; });
    return plot;
}

std::shared_ptr<zembra::Plot> temperatureAndRain() {
    auto plot = std::make_shared<zembra::Plot>();
    plot->setTitle("Two axes");
    plot->axis(2).setScale(zembra::Scale::categorical(months));
    plot->axis(0).setTitle("Temperature (°C)");
    plot->axis(1).setEnabled(true);
    plot->axis(1).setTitle("Rain (mm)");
    plot->legend().setPosition(zembra::LegendPosition::OutsideTop);
    auto bars = plot->add<zembra::BarSeries>(numbers, rain, "Rain");
    bars->setAxes(2, 1);
    bars->setColor(zembra::Color(150, 190, 225));
    plot->add<zembra::LineSeries>(numbers, celsius, "Temperature")->setWidth(2.0);
    return plot;
}

} // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    QWidget window;
    auto* layout = new QVBoxLayout(&window);
    for (const auto& plot : {celsiusAndFahrenheit(), temperatureAndRain()}) {
        auto* view = new zembra::ZembraGraphicsView;
        view->setPlot(plot);
        layout->addWidget(view);
    }
    window.setWindowTitle(QStringLiteral("Two axes"));
    window.resize(800, 720);
    window.show();
    return QApplication::exec();
}
