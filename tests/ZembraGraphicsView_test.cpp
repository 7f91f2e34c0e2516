// SPDX-License-Identifier: MIT
#include <ZembraGraphicsItem.h>
#include <ZembraGraphicsView.h>
#include <ZembraNavigationController.h>

#include "support/Input.h"
#include "support/MetaObjectText.h"
#include "support/ShownView.h"

#include <QBoxLayout>
#include <QGraphicsScene>
#include <QLineEdit>
#include <QScrollBar>

using zembra::InteractionMode;
using zembra::ZembraGraphicsItem;
using zembra::ZembraGraphicsView;

namespace {

ZembraGraphicsItem* itemOf(const ZembraGraphicsView& view) {
    for (QGraphicsItem* item : view.scene()->items())
        if (auto* plotItem = qobject_cast<ZembraGraphicsItem*>(item->toGraphicsObject()))
            return plotItem;
    return nullptr;
}

// Empty while pixel and scene coordinates are the same all over the viewport, else what differs.
QString differenceFromIdentity(const ZembraGraphicsView& view) {
    const QSize size = view.viewport()->size();
    if (!view.transform().isIdentity())
        return QStringLiteral("transform scales by %1, %2")
            .arg(view.transform().m11())
            .arg(view.transform().m22());
    if (view.scene()->sceneRect() != QRectF(QPointF(), QSizeF(size)))
        return QStringLiteral("scene is %1 by %2 for a viewport of %3 by %4")
            .arg(view.scene()->width())
            .arg(view.scene()->height())
            .arg(size.width())
            .arg(size.height());
    const ZembraGraphicsItem* item = itemOf(view);
    if (item->pos() != QPointF() || QSize(item->plotWidth(), item->plotHeight()) != size)
        return QStringLiteral("the plot does not fill the scene");
    for (const QPoint pixel :
         {QPoint(0, 0), QPoint(size.width() - 1, 0), QPoint(0, size.height() - 1),
          QPoint(size.width() - 1, size.height() - 1), QPoint(17, 23)}) {
        const QPointF scene = view.mapToScene(pixel);
        if (scene != QPointF(pixel) || view.mapFromScene(QPointF(pixel)) != pixel)
            return QStringLiteral("pixel %1, %2 is scene %3, %4")
                .arg(pixel.x())
                .arg(pixel.y())
                .arg(scene.x())
                .arg(scene.y());
    }
    return {};
}

// Shows exactly where the view painted its scene.
class PaintCounter : public QObject {
public:
    explicit PaintCounter(QWidget* watched) { watched->installEventFilter(this); }
    bool eventFilter(QObject*, QEvent* event) override {
        paints += event->type() == QEvent::Paint;
        return false;
    }
    int paints = 0;
};

} // namespace

class ZembraGraphicsViewTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { failOnAnyWarning(); }

    void metaObjectHoldsExactlyTheFiveSignals() {
        const QMetaObject& meta = ZembraGraphicsView::staticMetaObject;
        QCOMPARE(meta.className(), "zembra::ZembraGraphicsView");
        QCOMPARE(metaObjectText(meta),
                 (QStringList{
                     QStringLiteral("signal plotUpdated()"),
                     QStringLiteral("signal navigationAxisRangeApplied(int,double,double) "
                                    "axisId first second"),
                     QStringLiteral("signal viewResetToDataApplied()"),
                     QStringLiteral("signal interactionModeChanged(zembra::InteractionMode) mode"),
                     QStringLiteral("signal clicked()"),
                 }));
        QCOMPARE(meta.method(meta.methodOffset() + 3).parameterMetaType(0),
                 QMetaType::fromType<InteractionMode>());
    }

    void freshViewIsFullyWired() {
        ZembraGraphicsView view;
        QVERIFY(view.wheelZoomEnabled());
        QCOMPARE(view.panModifier(), Qt::NoModifier);
        QCOMPARE(view.interactionMode(), InteractionMode::Pan);
        QVERIFY(!view.plot());
        QCOMPARE(view.cursor().shape(), Qt::ArrowCursor);

        QCOMPARE(view.scene()->parent(), &view);
        QCOMPARE(view.scene()->items().size(), 1);
        QVERIFY(itemOf(view));
        QCOMPARE(itemOf(view)->parentItem(), static_cast<QGraphicsItem*>(nullptr));
        QCOMPARE(itemOf(view)->plotWidth(), 800);
        QCOMPARE(itemOf(view)->plotHeight(), 600);

        QVERIFY(view.navigationController());
        QCOMPARE(view.navigationController()->parent(), &view);
        QCOMPARE(view.navigationActions(), view.navigationController()->navigationActions());
        QCOMPARE(view.actions(), view.navigationActions());
        QCOMPARE(view.viewport()->actions(), view.navigationActions());

        const auto bands = view.findChildren<QRubberBand*>();
        QCOMPARE(bands.size(), 1);
        QCOMPARE(bands.first()->parentWidget(), view.viewport());
        QCOMPARE(bands.first()->shape(), QRubberBand::Rectangle);
        QVERIFY(bands.first()->isHidden());
    }

    void freshViewChangesOnlyTheDocumentedSettingsOfAGraphicsView() {
        const ZembraGraphicsView view;
        const QGraphicsView plain;
        QCOMPARE(view.renderHints(), QPainter::Antialiasing | QPainter::TextAntialiasing |
                                         QPainter::SmoothPixmapTransform);
        QCOMPARE(view.horizontalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
        QCOMPARE(view.verticalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
        QCOMPARE(view.viewportUpdateMode(), QGraphicsView::FullViewportUpdate);
        QCOMPARE(view.backgroundBrush(), QBrush(Qt::white, Qt::SolidPattern));
        QCOMPARE(view.frameStyle(), plain.frameStyle());
        QCOMPARE(view.alignment(), plain.alignment());
        QCOMPARE(view.dragMode(), plain.dragMode());
        QCOMPARE(view.focusPolicy(), plain.focusPolicy());
        QCOMPARE(view.hasMouseTracking(), plain.hasMouseTracking());
        QCOMPARE(view.viewport()->hasMouseTracking(), plain.viewport()->hasMouseTracking());
        QCOMPARE(view.transformationAnchor(), plain.transformationAnchor());
        QCOMPARE(view.resizeAnchor(), plain.resizeAnchor());
    }

    void settingsAreKeptAndAnnounceNothing() {
        ShownView shown;
        shown.view.setWheelZoomEnabled(false);
        QVERIFY(!shown.view.wheelZoomEnabled());
        shown.view.setPanModifier(Qt::ShiftModifier);
        QCOMPARE(shown.view.panModifier(), Qt::ShiftModifier);
        QCOMPARE(shown.log.take(), QStringList());
    }

    void sceneFillsTheViewportFromTheFirstShowOn() {
        ZembraGraphicsView view;
        view.setPlot(makePlot());
        view.resize(333, 221);
        view.show();
        QCOMPARE(differenceFromIdentity(view), QString());
        QVERIFY(!view.horizontalScrollBar()->isVisible());
        QVERIFY(!view.verticalScrollBar()->isVisible());
    }

    void pixelsAreSceneCoordinatesWhateverTheFrameAndAlignment_data() {
        QTest::addColumn<int>("frame");
        QTest::addColumn<int>("lineWidth");
        QTest::addColumn<Qt::Alignment>("alignment");
        QTest::addColumn<Qt::LayoutDirection>("direction");
        const QList<QPair<int, int>> frames{{QFrame::NoFrame, 0},
                                            {int(QFrame::StyledPanel) | int(QFrame::Sunken), 1},
                                            {int(QFrame::Box) | int(QFrame::Plain), 7}};
        const QList<Qt::Alignment> alignments{
            Qt::AlignCenter,
            Qt::AlignLeft | Qt::AlignTop,
            Qt::AlignRight | Qt::AlignBottom,
            Qt::AlignRight | Qt::AlignTop,
            Qt::AlignLeft | Qt::AlignVCenter,
            Qt::AlignHCenter | Qt::AlignBottom,
        };
        for (const auto& [frame, width] : frames)
            for (const Qt::Alignment alignment : alignments)
                for (const Qt::LayoutDirection direction : {Qt::LeftToRight, Qt::RightToLeft})
                    QTest::addRow("frame %d, alignment %x, direction %d", frame,
                                  static_cast<unsigned>(alignment), direction)
                        << frame << width << alignment << direction;
    }
    void pixelsAreSceneCoordinatesWhateverTheFrameAndAlignment() {
        QFETCH(int, frame);
        QFETCH(int, lineWidth);
        QFETCH(Qt::Alignment, alignment);
        QFETCH(Qt::LayoutDirection, direction);
        ZembraGraphicsView view;
        view.setFrameStyle(frame);
        view.setLineWidth(lineWidth);
        view.setAlignment(alignment);
        view.setLayoutDirection(direction);
        view.setPlot(makePlot());
        view.resize(400, 300);
        view.show();
        QCOMPARE(differenceFromIdentity(view), QString());
        for (const QSize size :
             {QSize(401, 301), QSize(250, 250), QSize(1201, 800), QSize(90, 61)}) {
            view.resize(size);
            QCOMPARE(differenceFromIdentity(view), QString());
        }
        view.setViewport(new QWidget);
        QCOMPARE(differenceFromIdentity(view), QString());
        view.resize(507, 404);
        QCOMPARE(differenceFromIdentity(view), QString());
        view.setFrameStyle(frame == QFrame::NoFrame ? QFrame::Box : QFrame::NoFrame);
        view.resize(508, 405);
        QCOMPARE(differenceFromIdentity(view), QString());
    }

    void askingForTheSizeUndoesAHostsTransform() {
        ShownView shown;
        shown.view.scale(2.0, 3.0);
        shown.view.setAlignment(Qt::AlignRight | Qt::AlignBottom);
        shown.view.updateItemSize();
        QCOMPARE(differenceFromIdentity(shown.view), QString());
        shown.view.setAlignment(Qt::AlignCenter);
        shown.view.updateItemSize();
        QCOMPARE(differenceFromIdentity(shown.view), QString());
    }

    void paintedPixelsAreThePlotsOwnPixels() {
        ShownView shown;
        auto image = shown.view.grab(shown.view.viewport()->geometry()).toImage();
        QImage expected(image.size(), image.format());
        expected.fill(Qt::white);
        QPainter painter(&expected);
        itemOf(shown.view)->paint(&painter, nullptr, nullptr);
        painter.end();
        QCOMPARE(image, expected);
    }

    void plotIsSharedAndSettingItAnnouncesNothing() {
        ShownView shown;
        const auto other = makePlot();
        other->setAxisScale(2, 3.0, 4.0);
        shown.view.setPlot(other);
        QCOMPARE(shown.view.plot(), other);
        QCOMPARE(itemOf(shown.view)->plot(), other);
        // The axes stay as the host set them.
        QCOMPARE(other->scaleMap(2).s1(), 3.0);
        shown.view.setPlot(nullptr);
        QVERIFY(!shown.view.plot());
        QCOMPARE(shown.log.take(), QStringList());
    }

    void viewWithoutAPlotIsWhite() {
        ShownView shown(nullptr);
        const QImage image = shown.view.grab(shown.view.viewport()->geometry()).toImage();
        QImage white(image.size(), image.format());
        white.fill(Qt::white);
        QCOMPARE(image, white);
    }

    void settingAPlotEndsADrag_data() {
        QTest::addColumn<InteractionMode>("mode");
        QTest::newRow("pan") << InteractionMode::Pan;
        QTest::newRow("box zoom") << InteractionMode::BoxZoom;
    }
    void settingAPlotEndsADrag() {
        QFETCH(InteractionMode, mode);
        ShownView shown;
        shown.view.setInteractionMode(mode);
        const Qt::CursorShape idle = shown.cursor();
        input::press(shown.view, shown.center());
        input::move(shown.view, shown.center() + QPointF(20, 20));
        QCOMPARE(shown.isSelecting(), mode == InteractionMode::BoxZoom);
        shown.log.take();
        shown.view.setPlot(makePlot());
        QCOMPARE(shown.log.take(), QStringList());
        QVERIFY(!shown.isSelecting());
        QCOMPARE(shown.cursor(), idle);
        QCOMPARE(shown.view.interactionMode(), mode);
        input::move(shown.view, shown.center() + QPointF(40, 40));
        input::release(shown.view, shown.center() + QPointF(60, 60));
        QCOMPARE(shown.log.take(), QStringList());
    }

    void resetOfTheItemIsForwarded() {
        ShownView shown;
        itemOf(shown.view)->resetZoom();
        QCOMPARE(shown.log.take(), QStringList{QStringLiteral("updated")});
    }

    void replotPaintsOnceAndAnnouncesNothing() {
        ShownView shown;
        QCoreApplication::processEvents();
        PaintCounter counter(shown.view.viewport());
        shown.view.replot();
        QCoreApplication::processEvents();
        QTRY_COMPARE(counter.paints, 1);
        QCOMPARE(shown.log.take(), QStringList());
    }

    void requestsOfTheControllerReachTheView() {
        ShownView shown;
        const QList<QAction*> actions = shown.view.navigationActions();
        actions.at(0)->trigger();
        QCOMPARE(shown.log.take(), (QStringList{QStringLiteral("axis 2"), QStringLiteral("axis 0"),
                                                QStringLiteral("updated")}));
        QVERIFY(shown.second(2) - shown.first(2) < 10.0);
        actions.at(1)->trigger();
        QCOMPARE(shown.log.take(), (QStringList{QStringLiteral("axis 2"), QStringLiteral("axis 0"),
                                                QStringLiteral("updated")}));
        actions.at(2)->trigger();
        QCOMPARE(shown.log.take(),
                 (QStringList{QStringLiteral("updated"), QStringLiteral("reset")}));
        actions.at(3)->trigger();
        QCOMPARE(shown.log.take(), QStringList{QStringLiteral("mode 1")});
        QCOMPARE(shown.view.interactionMode(), InteractionMode::BoxZoom);
    }

    void modeIsAnnouncedAfterTheDragHasEndedAndTheCursorChanged() {
        ShownView shown;
        input::press(shown.view, shown.center());
        QCOMPARE(shown.cursor(), Qt::ClosedHandCursor);
        Qt::CursorShape seen = Qt::BlankCursor;
        connect(&shown.view, &ZembraGraphicsView::interactionModeChanged, this, [&] {
            seen = shown.cursor();
            // The pan is over: a move announces nothing.
            shown.log.take();
            input::move(shown.view, shown.center() + QPointF(30, 30));
        });
        shown.view.setInteractionMode(InteractionMode::BoxZoom);
        QCOMPARE(seen, Qt::CrossCursor);
        QCOMPARE(shown.log.take(), QStringList());
    }

    void replacedViewportHasTheOnlyRubberBandAndTheActions() {
        ShownView shown;
        shown.view.setInteractionMode(InteractionMode::BoxZoom);
        input::press(shown.view, shown.center());
        QVERIFY(shown.isSelecting());
        const QPointer<QRubberBand> old = shown.band();

        shown.view.setViewport(new QWidget);
        QVERIFY(!old);
        const auto bands = shown.view.findChildren<QRubberBand*>();
        QCOMPARE(bands.size(), 1);
        QCOMPARE(bands.first()->parentWidget(), shown.view.viewport());
        QVERIFY(bands.first()->isHidden());
        QCOMPARE(shown.view.viewport()->actions(), shown.view.navigationActions());
        // The drag has ended and the mode has not.
        shown.log.take();
        input::release(shown.view, shown.center() + QPointF(50, 50));
        QCOMPARE(shown.log.take(), QStringList());
        QCOMPARE(shown.view.interactionMode(), InteractionMode::BoxZoom);
        QCOMPARE(shown.cursor(), Qt::CrossCursor);
    }

    void viewGoesWithItsParentAndTakesEverythingAlong() {
        auto parent = std::make_unique<QWidget>();
        auto* view = new ZembraGraphicsView(parent.get());
        const QPointer<QObject> scene = view->scene();
        const QPointer<QObject> item = itemOf(*view);
        const QPointer<QObject> controller = view->navigationController();
        const QPointer<QObject> band = view->findChildren<QRubberBand*>().first();
        const std::weak_ptr<zembra::Plot> plot = [&] {
            auto made = makePlot();
            view->setPlot(made);
            return made;
        }();
        QVERIFY(!plot.expired());
        parent.reset();
        QVERIFY(!scene && !item && !controller && !band);
        QVERIFY(plot.expired());
    }
};

QTEST_MAIN(ZembraGraphicsViewTest)
#include "ZembraGraphicsView_test.moc"
