// SPDX-License-Identifier: MIT
#pragma once

#include "support/Strict.h"

#include <ZembraGraphicsView.h>
#include <ZembraNavigationController.h>
#include <support/Plots.h>

#include <QAction>
#include <QRubberBand>
#include <QSignalSpy>

#include <memory>
#include <utility>

/// Writes down which signals of a view were emitted, in order: "clicked", "mode 1",
/// "axis 2", "updated", "reset".
class SignalLog : public QObject {
public:
    explicit SignalLog(zembra::ZembraGraphicsView& view) {
        using View = zembra::ZembraGraphicsView;
        connect(&view, &View::plotUpdated, this, [this] { note(QStringLiteral("updated")); });
        connect(&view, &View::viewResetToDataApplied, this,
                [this] { note(QStringLiteral("reset")); });
        connect(&view, &View::clicked, this, [this] { note(QStringLiteral("clicked")); });
        connect(&view, &View::interactionModeChanged, this, [this](zembra::InteractionMode mode) {
            note(QStringLiteral("mode %1").arg(static_cast<int>(mode)));
        });
        connect(&view, &View::navigationAxisRangeApplied, this,
                [this](int axis, double first, double second) {
                    ranges.append({first, second});
                    note(QStringLiteral("axis %1").arg(axis));
                });
    }

    /// What was noted since the last call.
    QStringList take() {
        ranges.clear();
        return std::exchange(lines, {});
    }

    QStringList lines;
    QList<zembra::ZembraGraphicsView::AxisRange> ranges;

private:
    void note(const QString& line) { lines << line; }
};

/// A view on the screen, with a plot that is laid out over axis 2 from 0 to 10 and axis 0 from 0
/// to 100.
struct ShownView {
    explicit ShownView(std::shared_ptr<zembra::Plot> shownPlot = makePlot())
        : plot(std::move(shownPlot)) {
        if (plot) {
            plot->setAxisScale(2, 0.0, 10.0);
            plot->setAxisScale(0, 0.0, 100.0);
        }
        view.resize(640, 480);
        view.setPlot(plot);
        view.show();
        settle();
    }

    /// Lays the plot out anew by painting it.
    void settle() {
        QCoreApplication::processEvents();
        view.grab();
    }

    QRectF canvas() const { return view.canvasSceneRect(); }
    QPointF center() const { return canvas().center().toPoint(); }
    double first(int axis) const { return plot->scaleMap(axis).s1(); }
    double second(int axis) const { return plot->scaleMap(axis).s2(); }
    QPair<double, double> range(int axis) const { return {first(axis), second(axis)}; }
    /// The value of an axis under a pixel.
    double valueAt(int axis, double pixel) const {
        return plot->scaleMap(axis).invTransform(pixel);
    }

    QRubberBand* band() const {
        const auto bands = view.viewport()->findChildren<QRubberBand*>();
        return bands.size() == 1 ? bands.first() : nullptr;
    }
    bool isSelecting() const { return band() && band()->isVisible(); }
    Qt::CursorShape cursor() const { return view.cursor().shape(); }

    std::shared_ptr<zembra::Plot> plot;
    zembra::ZembraGraphicsView view;
    SignalLog log{view};
};
