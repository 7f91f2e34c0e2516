// SPDX-License-Identifier: MIT
// Charts as items of a scene: moved with the mouse, turned, scaled and put beside anything else.
// Each is laid out at a size of its own and drawn afresh at every scale, so that it stays sharp.
#include <ZembraGraphicsItem.h>
#include <zembra/zembra.h>

#include <QApplication>
#include <QGraphicsScene>
#include <QGraphicsSimpleTextItem>
#include <QGraphicsView>

#include <cmath>

namespace {

zembra::ZembraGraphicsItem* addChart(QGraphicsScene& scene, const std::string& title,
                                     std::function<double(double)> function) {
    auto plot = std::make_shared<zembra::Plot>();
    plot->setTitle(title);
    plot->add<zembra::FunctionSeries>(std::move(function))->setDomain(-6.0, 6.0);
    auto* item = new zembra::ZembraGraphicsItem;
    item->setPlot(std::move(plot));
    item->setSize(360, 240);
    item->setFlag(QGraphicsItem::ItemIsMovable);
    scene.addItem(item);
    return item;
}

} // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    QGraphicsScene scene;
    scene.setBackgroundBrush(QColor(225, 230, 235));
    scene.addSimpleText(QStringLiteral("Three charts and a text: drag them."))->setPos(20.0, 5.0);

    addChart(scene, "Sine", [](double x) { return std::sin(x); })->setPos(20.0, 40.0);
    auto* turned = addChart(scene, "Turned", [](double x) { return x * x; });
    turned->setPos(430.0, 70.0);
    turned->setRotation(-8.0);
    auto* large = addChart(scene, "Scaled by 1.5", [](double x) { return std::cos(x * x / 2.0); });
    large->setPos(120.0, 330.0);
    large->setScale(1.5);

    QGraphicsView view(&scene);
    // A chart is drawn with lines that may be one pixel wide.
    view.setRenderHint(QPainter::Antialiasing);
    view.setWindowTitle(QStringLiteral("Charts in a scene"));
    view.resize(880, 740);
    view.show();
    return QApplication::exec();
}
