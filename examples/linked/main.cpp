// SPDX-License-Identifier: MIT
// Above, two views whose time axes are linked: pan or zoom one, and the other goes along. Below, a
// grid of small charts that share both axes and whose canvases line up.
#include <QtPainter.h>
#include <ZembraGraphicsView.h>
#include <zembra/zembra.h>

#include <QApplication>
#include <QHBoxLayout>
#include <QPainter>
#include <QWidget>

#include <cmath>

namespace {

std::shared_ptr<zembra::Plot> wave(const std::string& title, double frequency, double decay) {
    std::vector<double> values;
    for (int i = 0; i <= 2000; ++i)
        values.push_back(std::exp(-decay * i * 0.01) * std::sin(frequency * i * 0.01));
    auto plot = std::make_shared<zembra::Plot>();
    plot->setTitle(title);
    plot->axis(2).setTitle("Time (s)");
    plot->add<zembra::LineSeries>(zembra::Samples::evenlySpaced(0.0, 0.01, std::move(values)));
    return plot;
}

/// Shows a grid of plots. What a grid is drawn on is up to the host: here it is a widget.
class GridWidget : public QWidget {
public:
    explicit GridWidget(zembra::PlotGrid& plots) : grid(plots) { setMinimumHeight(240); }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        zembra::QtPainter target(painter);
        grid.renderInto(target, width(), height());
    }

private:
    zembra::PlotGrid& grid;
};

} // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);

    const auto left = wave("Deflection", 3.0, 0.1);
    const auto right = wave("Current", 7.0, 0.2);
    right->axis(2).linkTo(left->axis(2));
    auto* leftView = new zembra::ZembraGraphicsView;
    auto* rightView = new zembra::ZembraGraphicsView;
    leftView->setPlot(left);
    rightView->setPlot(right);
    // The range is shared at once; each view only has to be told to paint again.
    QObject::connect(leftView, &zembra::ZembraGraphicsView::plotUpdated, rightView,
                     &zembra::ZembraGraphicsView::replot);
    QObject::connect(rightView, &zembra::ZembraGraphicsView::plotUpdated, leftView,
                     &zembra::ZembraGraphicsView::replot);

    zembra::PlotGrid grid(1, 3);
    for (int column = 0; column < 3; ++column) {
        const auto plot = wave("Decay " + std::to_string(column + 1), 4.0, 0.1 * (column + 1));
        if (column > 0) {
            plot->axis(0).linkTo(grid.plot(0, 0)->axis(0));
            plot->axis(2).linkTo(grid.plot(0, 0)->axis(2));
        }
        grid.setPlot(0, column, plot);
    }

    QWidget window;
    auto* layout = new QVBoxLayout(&window);
    auto* views = new QHBoxLayout;
    views->addWidget(leftView);
    views->addWidget(rightView);
    layout->addLayout(views, 3);
    layout->addWidget(new GridWidget(grid), 2);
    window.setWindowTitle(QStringLiteral("Linked charts"));
    window.resize(1000, 680);
    window.show();
    return QApplication::exec();
}
