// SPDX-License-Identifier: MIT
// A chart in the colours of its application. When the palette changes, because the desktop turns
// dark or, here, because a button is pressed, the chart changes with it.
#include <ZembraGraphicsView.h>
#include <zembra/zembra.h>

#include <QApplication>
#include <QEvent>
#include <QMainWindow>
#include <QStyleFactory>
#include <QToolBar>

#include <cmath>

namespace {

zembra::Color toColor(const QColor& color) {
    return {color.red(), color.green(), color.blue(), color.alpha()};
}

/// The theme for dark or light ground, with the palette's own colours where it has some.
zembra::Theme themeOf(const QPalette& palette) {
    const zembra::Color ground = toColor(palette.color(QPalette::Base));
    const zembra::Color text = toColor(palette.color(QPalette::Text));
    const bool isDark = palette.color(QPalette::Base).lightness() < 128;
    zembra::Theme theme = isDark ? zembra::Theme::dark() : zembra::Theme::light();
    theme.background = ground;
    theme.canvas = ground;
    theme.text = text;
    theme.mutedText = mix(text, ground, 0.25);
    theme.axisLine = mix(text, ground, 0.4);
    theme.gridLine = mix(text, ground, 0.85);
    theme.legendBackground = ground.withAlpha(225);
    theme.legendFrame = theme.gridLine;
    return theme;
}

/// A view that follows the palette.
class ThemedView : public zembra::ZembraGraphicsView {
public:
    explicit ThemedView(std::shared_ptr<zembra::Plot> plot) {
        setPlot(std::move(plot));
        followPalette();
    }

protected:
    void changeEvent(QEvent* event) override {
        ZembraGraphicsView::changeEvent(event);
        if (event->type() == QEvent::PaletteChange)
            followPalette();
    }

private:
    void followPalette() {
        plot()->setTheme(themeOf(palette()));
        replot();
    }
};

QPalette paletteOf(const QColor& window, const QColor& base, const QColor& text) {
    QPalette palette(window);
    palette.setColor(QPalette::Base, base);
    for (const auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText})
        palette.setColor(role, text);
    return palette;
}

std::shared_ptr<zembra::Plot> waves() {
    auto plot = std::make_shared<zembra::Plot>();
    plot->setTitle("Waves");
    for (int i = 1; i <= 4; ++i) {
        const auto wave = [i](double x) { return std::sin(x + i) * i; };
        plot->add<zembra::FunctionSeries>(wave, "Wave " + std::to_string(i))->setDomain(0.0, 10.0);
    }
    return plot;
}

} // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    const QPalette own = QApplication::palette();

    QMainWindow window;
    window.setCentralWidget(new ThemedView(waves()));
    QToolBar* toolBar = window.addToolBar(QStringLiteral("Palette"));
    const auto offer = [&](const QString& text, const QPalette& palette) {
        QObject::connect(toolBar->addAction(text), &QAction::triggered, &window,
                         [palette] { QApplication::setPalette(palette); });
    };
    const QPalette night = paletteOf(QColor(45, 48, 52), QColor(30, 32, 36), QColor(225, 225, 225));
    offer(QStringLiteral("&Desktop"), own);
    offer(QStringLiteral("&Light"), paletteOf(QColor(235, 235, 235), Qt::white, Qt::black));
    offer(QStringLiteral("D&ark"), night);
    offer(QStringLiteral("&Sepia"),
          paletteOf(QColor(225, 210, 185), QColor(248, 240, 222), QColor(75, 55, 35)));
    QApplication::setPalette(night);

    window.setWindowTitle(QStringLiteral("Theming"));
    window.resize(800, 520);
    window.show();
    return QApplication::exec();
}
