// SPDX-License-Identifier: MIT
// Hosts that ask at the wrong time: of objects that show nothing, cannot be seen, are switched off
// or half destroyed. Nothing changes then, nothing is announced and nothing painted.
#include <QtRenderSurface.h>
#include <QtSvgRenderSurface.h>
#include <ZembraGraphicsItem.h>
#include <ZembraGraphicsView.h>
#include <ZembraNavigationController.h>
#include <ZembraNavigationWidget.h>

#include "support/Input.h"
#include "support/ShownView.h"

#include <QAbstractButton>
#include <QGraphicsScene>

#include <functional>
#include <limits>

using zembra::InteractionMode;
using zembra::Plot;
using zembra::ZembraGraphicsItem;
using zembra::ZembraGraphicsView;
using zembra::ZembraNavigationController;
using zembra::ZembraNavigationWidget;

namespace {

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();

class PaintCounter : public QObject {
public:
    explicit PaintCounter(QWidget& widget) { widget.installEventFilter(this); }
    int paints = 0;

protected:
    bool eventFilter(QObject*, QEvent* event) override {
        paints += event->type() == QEvent::Paint;
        return false;
    }
};

struct Call {
    const char* name;
    // Returns whether the view says that it did something.
    std::function<bool(ZembraGraphicsView&)> make;
};

const QList<Call>& calls() {
    static const QRectF box(10, 10, 50, 40);
    static const QList<Call> all{
        {"zoomIn", [](auto& view) { return view.zoomIn(), false; }},
        {"zoomOut", [](auto& view) { return view.zoomOut(), false; }},
        {"zoomAt", [](auto& view) { return view.zoomAt(QPointF(20, 20), 0.5); }},
        {"applyBoxZoom", [](auto& view) { return view.applyBoxZoom(box); }},
        {"zoomAxis 2", [](auto& view) { return view.zoomAxis(2, 20.0, 0.5); }},
        {"zoomAxis 0", [](auto& view) { return view.zoomAxis(0, 20.0, 0.5); }},
        {"panAxis 2", [](auto& view) { return view.panAxis(2, 5.0); }},
        {"panAxis 0", [](auto& view) { return view.panAxis(0, 5.0); }},
        {"mappedAxisRange",
         [](auto& view) {
             ZembraGraphicsView::AxisRange range;
             return view.mappedAxisRange(2, 1.0, 2.0, range);
         }},
        {"wheel", [](auto& view) { return input::wheel(view, QPointF(20, 20), QPoint(0, 120)); }},
        {"drag",
         [](auto& view) {
             input::press(view, QPointF(20, 20));
             input::move(view, QPointF(30, 30));
             input::release(view, QPointF(30, 30));
             return false;
         }},
        {"zoom in action",
         [](auto& view) { return view.navigationActions()[0]->trigger(), false; }},
        {"zoom out action",
         [](auto& view) { return view.navigationActions()[1]->trigger(), false; }},
        {"key",
         [](auto& view) {
             input::key(view, QEvent::KeyPress, Qt::Key_Plus, Qt::ControlModifier);
             return false;
         }},
    };
    return all;
}

struct Condition {
    const char* name;
    std::function<void(ZembraGraphicsView&, const std::shared_ptr<Plot>&)> bring;
};

const QList<Condition>& conditions() {
    static const QList<Condition> all{
        {"without a plot", [](auto& view, const auto&) { view.setPlot(nullptr); }},
        {"with a plot that was never laid out",
         [](auto& view, const auto& plot) {
             view.hide();
             view.setPlot(plot);
         }},
        {"with a plot of which no axis is shown",
         [](auto& view, const auto& plot) {
             view.setPlot(plot);
             view.grab();
             plot->setAxisEnabled(0, false);
             plot->setAxisEnabled(2, false);
         }},
        {"without area",
         [](auto& view, const auto& plot) {
             view.resize(0, 0);
             view.setPlot(plot);
         }},
    };
    return all;
}

QList<double> rangesOf(const Plot& plot) {
    QList<double> ranges;
    for (int axis = 0; axis < 4; ++axis)
        ranges << plot.scaleMap(axis).s1() << plot.scaleMap(axis).s2();
    return ranges;
}

} // namespace

class HostileHostsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { failOnAnyWarning(); }

    void aViewThatShowsNothingDoesNothing_data() {
        QTest::addColumn<qsizetype>("condition");
        QTest::addColumn<qsizetype>("call");
        for (qsizetype i = 0; i < conditions().size(); ++i)
            for (qsizetype j = 0; j < calls().size(); ++j)
                QTest::addRow("%s: %s", conditions().at(i).name, calls().at(j).name) << i << j;
    }
    void aViewThatShowsNothingDoesNothing() {
        QFETCH(qsizetype, condition);
        QFETCH(qsizetype, call);
        const auto plot = makePlot();
        ZembraGraphicsView view;
        view.resize(200, 150);
        view.show();
        conditions().at(condition).bring(view, plot);
        QCoreApplication::processEvents();
        const QList<double> before = rangesOf(*plot);
        SignalLog log(view);
        PaintCounter counter(*view.viewport());
        QVERIFY(!calls().at(call).make(view));
        QCoreApplication::processEvents();
        // A press is told before anything is done with it.
        QStringList told = log.take();
        told.removeAll(QStringLiteral("clicked"));
        QCOMPARE(told, QStringList());
        QCOMPARE(rangesOf(*plot), before);
        QCOMPARE(view.interactionMode(), InteractionMode::Pan);
        QCOMPARE(counter.paints, 0);
    }

    void aDisabledViewLeavesThePointerAlone() {
        ShownView shown;
        shown.view.setEnabled(false);
        QCoreApplication::processEvents();
        shown.log.take();
        const auto before = rangesOf(*shown.plot);
        PaintCounter counter(*shown.view.viewport());
        for (const auto button : {Qt::LeftButton, Qt::RightButton}) {
            input::press(shown.view, shown.center(), Qt::NoModifier, button);
            input::move(shown.view, shown.center() + QPointF(20, 20));
            input::release(shown.view, shown.center() + QPointF(20, 20), Qt::NoModifier, button);
            input::doubleClick(shown.view, shown.center(), button);
        }
        input::wheelThroughParents(shown.view, shown.center(), QPoint(0, 120));
        QCoreApplication::processEvents();
        QCOMPARE(shown.log.take(), QStringList());
        QCOMPARE(rangesOf(*shown.plot), before);
        QCOMPARE(counter.paints, 0);
    }

    void numbersThatAreNoneAreRefused_data() {
        QTest::addColumn<double>("number");
        QTest::newRow("NaN") << notANumber;
        QTest::newRow("infinity") << infinity;
        QTest::newRow("minus infinity") << -infinity;
    }
    void numbersThatAreNoneAreRefused() {
        QFETCH(double, number);
        ShownView shown;
        shown.log.take();
        const auto before = rangesOf(*shown.plot);
        const QPointF center = shown.center();
        PaintCounter counter(*shown.view.viewport());
        QVERIFY(!shown.view.zoomAt(center, number));
        QVERIFY(!shown.view.zoomAt(QPointF(number, number), 0.5));
        for (const int axis : {-1, 0, 1, 2, 3, 4}) {
            QVERIFY(!shown.view.zoomAxis(axis, number, 0.5));
            QVERIFY(!shown.view.zoomAxis(axis, 10.0, number));
            QVERIFY(!shown.view.panAxis(axis, number));
        }
        QVERIFY(!shown.view.applyBoxZoom(QRectF(number, 10.0, 20.0, 20.0)));
        QVERIFY(!shown.view.applyBoxZoom(QRectF(10.0, 10.0, number, 20.0)));
        QVERIFY(!shown.view.applyBoxZoom(QRectF(10.0, 10.0, 20.0, number)));
        QCoreApplication::processEvents();
        QCOMPARE(shown.log.take(), QStringList());
        QCOMPARE(rangesOf(*shown.plot), before);
        QCOMPARE(counter.paints, 0);
    }

    void hiddenViewsAreOperatedLikeOthersAndPaintNothing() {
        ShownView shown;
        shown.view.hide();
        QCoreApplication::processEvents();
        shown.log.take();
        PaintCounter counter(*shown.view.viewport());
        QVERIFY(shown.view.zoomAt(shown.center(), 0.5));
        shown.view.resetZoom();
        shown.view.replot();
        QCoreApplication::processEvents();
        QCOMPARE(shown.log.take(),
                 (QStringList{QStringLiteral("axis 2"), QStringLiteral("axis 0"),
                              QStringLiteral("updated"), QStringLiteral("updated"),
                              QStringLiteral("reset")}));
        QCOMPARE(counter.paints, 0);
    }

    void hostsMayAskWhileAViewIsDestroyed() {
        // When it lets go of the focus. Later, while its base class deletes the children, the
        // view's own part is gone and guarded pointers are not empty yet: nobody can answer then.
        for (const bool inWindow : {false, true}) {
            auto* window = inWindow ? new QWidget : nullptr;
            auto* view = new ZembraGraphicsView(window);
            const QPointer<ZembraGraphicsView> guard = view;
            view->setPlot(makePlot());
            view->resize(200, 150);
            (inWindow ? window : view)->show();
            view->setFocus();
            QCoreApplication::processEvents();
            int asked = 0;
            const auto ask = [&] {
                ++asked;
                if (!guard)
                    return;
                guard->zoomIn();
                guard->setInteractionMode(InteractionMode::BoxZoom);
                guard->setPlot(nullptr);
            };
            connect(qApp, &QApplication::focusChanged, this, ask);
            delete (window ? window : static_cast<QWidget*>(view));
            disconnect(qApp, nullptr, this, nullptr);
            QVERIFY(!guard);
            QVERIFY(asked > 0);
        }
    }

    void hostsMayAskWhileAStripIsDestroyed() {
        QWidget window;
        auto* other = new QWidget(&window);
        other->setFocusPolicy(Qt::StrongFocus);
        auto* strip = new ZembraNavigationWidget(&window);
        const QPointer<ZembraNavigationWidget> guard = strip;
        window.resize(300, 200);
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        strip->findChild<QAbstractButton*>()->setFocus();
        QVERIFY(strip->isAncestorOf(QApplication::focusWidget()));
        int asked = 0;
        const auto ask = [&] {
            ++asked;
            if (!guard)
                return;
            QVERIFY(!guard->isCoachMarkVisible());
            QVERIFY(!guard->graphicsView());
            guard->hideCoachMark();
            guard->setNavigationController(nullptr);
        };
        connect(qApp, &QApplication::focusChanged, this, ask);
        delete strip;
        disconnect(qApp, nullptr, this, nullptr);
        QVERIFY(asked > 0);
    }

    void anItemThatShowsNothingPaintsNothing() {
        QGraphicsScene scene;
        auto* item = new ZembraGraphicsItem;
        scene.addItem(item);
        int updates = 0;
        connect(item, &ZembraGraphicsItem::plotUpdated, this, [&] { ++updates; });
        QImage image(50, 50, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        const QImage blank = image;
        QPainter painter(&image);
        for (const QSize size : {QSize(0, 0), QSize(-5, 20), QSize(20, -5)}) {
            item->setSize(size.width(), size.height());
            item->setPlot(makePlot());
            item->paint(&painter, nullptr, nullptr);
            item->setPlot(nullptr);
            item->resetZoom();
            item->paint(&painter, nullptr, nullptr);
        }
        painter.end();
        QCOMPARE(image, blank);
        QCOMPARE(updates, 0);
    }

    void anItemMayBeDeletedByItsOwnSignal() {
        QGraphicsScene scene;
        const QPointer<ZembraGraphicsItem> item = new ZembraGraphicsItem;
        scene.addItem(item);
        item->setPlot(makePlot());
        connect(item, &ZembraGraphicsItem::plotUpdated, this, [&] { delete item.data(); });
        item->resetZoom();
        QVERIFY(!item);
    }

    void aStripThatIsNowhereDoesNothing() {
        ZembraNavigationWidget strip;
        int told = 0;
        connect(&strip, &ZembraNavigationWidget::coachDismissed, this, [&] { ++told; });
        for (const bool enabled : {true, false}) {
            strip.setEnabled(enabled);
            strip.resize(0, 0);
            for (int twice = 0; twice < 2; ++twice) {
                strip.setGraphicsView(nullptr);
                strip.setNavigationController(nullptr);
                strip.hideCoachMark();
            }
            QCOMPARE(strip.graphicsView(), nullptr);
            QCOMPARE(strip.navigationController(), nullptr);
            QVERIFY(!strip.isCoachMarkVisible());
            QVERIFY(!strip.isVisible());
        }
        QCoreApplication::processEvents();
        QCOMPARE(told, 0);
        for (const QWidget* widget : QApplication::topLevelWidgets())
            QVERIFY2(!widget->isVisible(), widget->metaObject()->className());
    }

    void aControllerRepeatsNothing() {
        ZembraNavigationController controller;
        int told = 0;
        connect(&controller, &ZembraNavigationController::interactionModeChanged, this,
                [&] { ++told; });
        connect(&controller, &ZembraNavigationController::controlProfileChanged, this,
                [&] { ++told; });
        controller.setInteractionMode(controller.interactionMode());
        controller.setControlProfile(controller.controlProfile());
        controller.retranslate();
        QCOMPARE(told, 0);
    }

    void surfacesWithoutATargetAnswerAllTheSame() {
        zembra::QtRenderSurface pixels;
        pixels.scale(2.0, 2.0);
        QVERIFY(!pixels.painter());
        QCOMPARE(pixels.getImageData(2, 2), std::vector<std::uint8_t>(16, 0));
        QVERIFY(!pixels.painter());
        zembra::QtSvgRenderSurface document;
        document.scale(2.0, 2.0);
        QVERIFY(!document.painter());
        document.finalize();
        QVERIFY(document.svgData().empty());
        QVERIFY(!document.saveToFile("/nowhere/at/all.svg"));
        QVERIFY(document.getImageData(2, 2).empty());
    }
};

QTEST_MAIN(HostileHostsTest)
#include "HostileHosts_test.moc"
