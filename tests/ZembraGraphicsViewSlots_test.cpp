// SPDX-License-Identifier: MIT
// What slots may do to a view from inside its signals. Memory errors show in a sanitizer build.
#include <ZembraGraphicsItem.h>
#include <ZembraGraphicsView.h>

#include "support/Input.h"
#include "support/ShownView.h"

#include <QGraphicsScene>

#include <functional>

using zembra::InteractionMode;
using zembra::Plot;
using zembra::ZembraGraphicsItem;
using zembra::ZembraGraphicsView;
using zembra::ZembraNavigationController;

namespace {

using View = QPointer<ZembraGraphicsView>;

struct Gesture {
    const char* name;
    std::function<void(ZembraGraphicsView&, const QPointF&)> make;
};

struct Deed {
    const char* name;
    std::function<void(const View&)> act;
    bool deletes = false;
};

// Calls back whenever the signal of that name is emitted by the view, its controller or item.
struct Source {
    const char* name;
    std::function<void(ZembraGraphicsView&, QObject* context, std::function<void()>)> connect;
};

template <class Sender, class Signal>
auto source(const char* name, Sender find, Signal signal) {
    return Source{name, [=](ZembraGraphicsView& view, QObject* context, std::function<void()> act) {
                      QObject::connect(find(view), signal, context, [act] { act(); });
                  }};
}

ZembraGraphicsItem* itemOf(const ZembraGraphicsView& view) {
    return static_cast<ZembraGraphicsItem*>(view.scene()->items().first()->toGraphicsObject());
}

void enterBoxZoom(ZembraGraphicsView& view) {
    view.setInteractionMode(InteractionMode::BoxZoom);
}

// Each step of a gesture looks whether the view is still there.
void drag(ZembraGraphicsView& dragged, const QPointF& from, const QPointF& by) {
    const View view = &dragged;
    input::press(*view, from);
    if (view)
        input::move(*view, from + by / 2);
    if (view)
        input::move(*view, from + by);
    if (view)
        input::release(*view, from + by);
}

const QList<Gesture>& gestures() {
    static const QList<Gesture> all{
        {"pan", [](auto& view, const QPointF& at) { drag(view, at, QPointF(30, 40)); }},
        {"box zoom",
         [](auto& view, const QPointF& at) {
             const View guarded = &view;
             enterBoxZoom(view);
             if (guarded)
                 drag(view, at, QPointF(80, 60));
         }},
        {"wheel", [](auto& view, const QPointF& at) { input::wheel(view, at, QPoint(0, 120)); }},
        {"double click", [](auto& view, const QPointF& at) { input::doubleClick(view, at); }},
        {"key on the view",
         [](auto& view, const QPointF&) {
             input::key(view, QEvent::KeyPress, Qt::Key_Plus, Qt::ControlModifier);
         }},
        {"key on the viewport",
         [](auto& view, const QPointF&) {
             input::key(*view.viewport(), QEvent::KeyPress, Qt::Key_Minus, Qt::ControlModifier);
         }},
        {"shortcut",
         [](auto& view, const QPointF&) {
             view.activateWindow();
             view.setFocus();
             QTest::keyClick(&view, Qt::Key_Z);
         }},
        {"leave key on the view",
         [](auto& view, const QPointF&) {
             const View guarded = &view;
             enterBoxZoom(view);
             if (guarded)
                 input::key(view, QEvent::KeyPress, Qt::Key_Escape);
         }},
        {"leave key on the viewport",
         [](auto& view, const QPointF&) {
             const View guarded = &view;
             enterBoxZoom(view);
             if (guarded)
                 input::key(*view.viewport(), QEvent::KeyPress, Qt::Key_Escape);
         }},
        {"zoom in action",
         [](auto& view, const QPointF&) { view.navigationActions().at(0)->trigger(); }},
        {"zoom out action",
         [](auto& view, const QPointF&) { view.navigationActions().at(1)->trigger(); }},
        {"reset action",
         [](auto& view, const QPointF&) { view.navigationActions().at(2)->trigger(); }},
        {"box zoom action",
         [](auto& view, const QPointF&) { view.navigationActions().at(3)->trigger(); }},
        {"reset", [](auto& view, const QPointF&) { view.resetZoom(); }},
        {"box",
         [](auto& view, const QPointF&) {
             view.applyBoxZoom(view.canvasSceneRect().adjusted(20, 20, -20, -20));
         }},
        {"mode", [](auto& view, const QPointF&) { enterBoxZoom(view); }},
        {"profile",
         [](auto& view, const QPointF&) {
             view.navigationController()->setControlProfile(
                 zembra::NavigationControlProfile::ControlPointEditing);
         }},
    };
    return all;
}

const QList<Deed>& deeds() {
    static const QList<Deed> all{
        {"deletes the view", [](const View& view) { delete view.data(); }, true},
        {"deletes the window",
         [](const View& view) {
             auto* window = new QWidget;
             view->setParent(window);
             delete window;
         },
         true},
        {"zooms", [](const View& view) { view->zoomIn(); }},
        {"resets", [](const View& view) { view->resetZoom(); }},
        {"drags", [](const View& view) { drag(*view, QPointF(150, 120), QPointF(30, 20)); }},
        {"runs the event loop", [](const View&) { QCoreApplication::processEvents(); }},
        {"sets another plot", [](const View& view) { view->setPlot(makePlot()); }},
        {"takes the plot away", [](const View& view) { view->setPlot(nullptr); }},
        {"changes the mode",
         [](const View& view) {
             view->setInteractionMode(view->interactionMode() == InteractionMode::Pan
                                          ? InteractionMode::BoxZoom
                                          : InteractionMode::Pan);
         }},
        {"sets the mode again",
         [](const View& view) { view->setInteractionMode(view->interactionMode()); }},
        {"replaces the viewport", [](const View& view) { view->setViewport(new QWidget); }},
        {"resizes the view", [](const View& view) { view->resize(view->size() + QSize(7, 5)); }},
        {"hides the axes",
         [](const View& view) {
             if (!view->plot())
                 return;
             view->plot()->setAxisEnabled(0, false);
             view->plot()->setAxisEnabled(2, false);
         }},
    };
    return all;
}

const QList<Source>& sources() {
    const auto itself = [](ZembraGraphicsView& view) { return &view; };
    const auto controller = [](ZembraGraphicsView& view) { return view.navigationController(); };
    const auto item = [](ZembraGraphicsView& view) { return itemOf(view); };
    using Controller = ZembraNavigationController;
    static const QList<Source> all{
        source("plotUpdated", itself, &ZembraGraphicsView::plotUpdated),
        source("navigationAxisRangeApplied", itself,
               &ZembraGraphicsView::navigationAxisRangeApplied),
        source("viewResetToDataApplied", itself, &ZembraGraphicsView::viewResetToDataApplied),
        source("interactionModeChanged", itself, &ZembraGraphicsView::interactionModeChanged),
        source("clicked", itself, &ZembraGraphicsView::clicked),
        source("controller zoomInRequested", controller, &Controller::zoomInRequested),
        source("controller zoomOutRequested", controller, &Controller::zoomOutRequested),
        source("controller resetViewToDataRequested", controller,
               &Controller::resetViewToDataRequested),
        source("controller interactionModeChanged", controller,
               &Controller::interactionModeChanged),
        source("controller controlProfileChanged", controller, &Controller::controlProfileChanged),
        source("item plotUpdated", item, &ZembraGraphicsItem::plotUpdated),
    };
    return all;
}

// A view of its own on the heap, so that a slot can delete it.
View makeView() {
    const View view = new ZembraGraphicsView;
    const auto plot = makePlot();
    plot->setAxisScale(2, 0.0, 10.0);
    plot->setAxisScale(0, 0.0, 100.0);
    view->resize(400, 300);
    view->setPlot(plot);
    view->show();
    view->grab();
    return view;
}

} // namespace

class ZembraGraphicsViewSlotsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { failOnAnyWarning(); }

    void slotsMayDoAnythingInsideAnySignal_data() {
        QTest::addColumn<qsizetype>("source");
        QTest::addColumn<qsizetype>("deed");
        for (qsizetype s = 0; s < sources().size(); ++s)
            for (qsizetype d = 0; d < deeds().size(); ++d)
                QTest::addRow("%s: %s", sources().at(s).name, deeds().at(d).name) << s << d;
    }
    void slotsMayDoAnythingInsideAnySignal() {
        QFETCH(qsizetype, source);
        QFETCH(qsizetype, deed);
        int hits = 0;
        for (const Gesture& gesture : gestures()) {
            const View view = makeView();
            bool acted = false;
            auto connected = std::make_unique<QObject>();
            sources().at(source).connect(*view, connected.get(), [&] {
                // Once only: a mode that is changed in answer to each change never settles.
                if (std::exchange(acted, true))
                    return;
                ++hits;
                deeds().at(deed).act(view);
            });
            gesture.make(*view, view->canvasSceneRect().center().toPoint());
            connected.reset();
            QCOMPARE(!view, acted && deeds().at(deed).deletes);
            if (!view)
                continue;
            // Whatever happened, the view goes on working.
            view->setPlot(makePlot());
            view->setInteractionMode(InteractionMode::Pan);
            view->grab();
            SignalLog log(*view);
            input::wheel(*view, view->canvasSceneRect().center(), QPoint(0, 120));
            QCOMPARE(log.take(), (QStringList{QStringLiteral("axis 2"), QStringLiteral("axis 0"),
                                              QStringLiteral("updated")}));
            QCOMPARE(view->cursor().shape(), Qt::ArrowCursor);
            delete view.data();
        }
        QVERIFY2(hits > 0, "no gesture emits this signal");
    }

    // What the copies of the plot pointer are for: the plot lives, and the operation completes on
    // it, although a slot has taken away the last share of it.

    void boxZoomCompletesOnThePlotThatItBeganWith() {
        const View view = makeView();
        const std::weak_ptr<Plot> plot = view->plot();
        QList<int> axes;
        connect(view, &ZembraGraphicsView::navigationAxisRangeApplied, this,
                [&](int axis, double first, double second) {
                    axes << axis;
                    view->setPlot(nullptr);
                    const auto alive = plot.lock();
                    QVERIFY(alive);
                    QCOMPARE(alive->scaleMap(axis).s1(), first);
                    QCOMPARE(alive->scaleMap(axis).s2(), second);
                });
        SignalLog log(*view);
        QVERIFY(view->applyBoxZoom(view->canvasSceneRect().adjusted(20, 20, -20, -20)));
        QCOMPARE(axes, (QList<int>{2, 0}));
        QCOMPARE(log.take().last(), QStringLiteral("updated"));
        QVERIFY(plot.expired());
        delete view.data();
    }

    void boxZoomCompletesWhenASlotDeletesTheView() {
        const View view = makeView();
        const std::shared_ptr<Plot> plot = view->plot();
        const double before = plot->scaleMap(0).s1();
        connect(view, &ZembraGraphicsView::navigationAxisRangeApplied, this,
                [&] { delete view.data(); });
        QVERIFY(view->applyBoxZoom(view->canvasSceneRect().adjusted(20, 20, -20, -20)));
        QVERIFY(!view);
        // Both axes or none, also for the other views of the plot.
        QVERIFY(plot->scaleMap(0).s1() != before);
    }

    void zoomOutlivesThePlot() {
        const View view = makeView();
        const std::weak_ptr<Plot> plot = view->plot();
        connect(view, &ZembraGraphicsView::navigationAxisRangeApplied, this, [&] {
            view->setPlot(nullptr);
            QVERIFY(!plot.expired());
        });
        SignalLog log(*view);
        QVERIFY(view->zoomAt(view->canvasSceneRect().center(), 0.8));
        QCOMPARE(log.take(), (QStringList{QStringLiteral("axis 2"), QStringLiteral("updated")}));
        QVERIFY(plot.expired());
        delete view.data();
    }

    void singleAxesOutliveThePlot_data() {
        QTest::addColumn<bool>("pans");
        QTest::newRow("zoom") << false;
        QTest::newRow("pan") << true;
    }
    void singleAxesOutliveThePlot() {
        QFETCH(bool, pans);
        const View view = makeView();
        const std::weak_ptr<Plot> plot = view->plot();
        connect(view, &ZembraGraphicsView::navigationAxisRangeApplied, this, [&] {
            view->setPlot(nullptr);
            QVERIFY(!plot.expired());
        });
        QVERIFY(pans ? view->panAxis(2, 10.0) : view->zoomAxis(2, 100.0, 0.8));
        QVERIFY(plot.expired());
        delete view.data();
    }

    void resetIsAnnouncedInFullAlthoughThePlotWasTakenAway() {
        const View view = makeView();
        const std::weak_ptr<Plot> plot = view->plot();
        SignalLog log(*view);
        connect(view, &ZembraGraphicsView::plotUpdated, this, [&] {
            view->setPlot(nullptr);
            QVERIFY(!plot.expired());
        });
        view->resetZoom();
        QCOMPARE(log.take(), (QStringList{QStringLiteral("updated"), QStringLiteral("reset")}));
        QVERIFY(plot.expired());
        delete view.data();
    }

    void pressThatChangesTheModeDragsInTheNewMode() {
        const View view = makeView();
        connect(view, &ZembraGraphicsView::clicked, this, [&] { enterBoxZoom(*view); });
        input::press(*view, view->canvasSceneRect().center());
        QVERIFY(view->findChildren<QRubberBand*>().first()->isVisible());
        QCOMPARE(view->cursor().shape(), Qt::CrossCursor);
        delete view.data();
    }
};

QTEST_MAIN(ZembraGraphicsViewSlotsTest)
#include "ZembraGraphicsViewSlots_test.moc"
