// SPDX-License-Identifier: MIT
#include <QtRenderSurface.h>
#include <ZembraGraphicsItem.h>

#include <support/Plots.h>

#include <QGraphicsScene>
#include <QPainter>
#include <QSignalSpy>
#include <QTest>

#include <cstdint>

using namespace zembra;

namespace {

QImage blank(int width, int height) {
    QImage image(width, height, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    return image;
}

void paintItem(ZembraGraphicsItem& item, QPainter& painter) {
    item.paint(&painter, nullptr, nullptr);
}

constexpr auto everyHint =
    QPainter::Antialiasing | QPainter::TextAntialiasing | QPainter::SmoothPixmapTransform;

} // namespace

class ZembraGraphicsItemTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".?"))); }

    void aNewItemIsEmptyAndHas800By600Pixels() {
        ZembraGraphicsItem item;
        QVERIFY(!item.plot());
        QCOMPARE(item.plotWidth(), 800);
        QCOMPARE(item.plotHeight(), 600);
        QCOMPARE(item.boundingRect(), QRectF(0, 0, 800, 600));
        QVERIFY(!item.parentItem());
        QCOMPARE(item.flags(), QGraphicsItem::GraphicsItemFlags());
        QVERIFY(!item.acceptHoverEvents());
    }

    void takesItsParentItem() {
        ZembraGraphicsItem parent;
        auto* child = new ZembraGraphicsItem(&parent);
        QCOMPARE(child->parentItem(), &parent);
    }

    void hasOneSignalAndNoOtherMetaMember() {
        const QMetaObject& meta = ZembraGraphicsItem::staticMetaObject;
        QCOMPARE(meta.methodCount() - meta.methodOffset(), 1);
        const QMetaMethod method = meta.method(meta.methodOffset());
        QCOMPARE(method.methodType(), QMetaMethod::Signal);
        QCOMPARE(method.methodSignature(), QByteArray("plotUpdated()"));
        QCOMPARE(meta.propertyCount(), meta.propertyOffset());
        QCOMPARE(meta.enumeratorCount(), meta.enumeratorOffset());
        QCOMPARE(meta.constructorCount(), 0);
    }

    void isKnownToTheMetaTypeSystemByItsFullName() {
        const ZembraGraphicsItem item;
        const QMetaType type = QMetaType::fromName("zembra::ZembraGraphicsItem");
        QVERIFY(type.isValid());
        QCOMPARE(type, QMetaType::fromType<ZembraGraphicsItem>());
    }

    void keepsAnySize_data() {
        QTest::addColumn<int>("width");
        QTest::addColumn<int>("height");
        QTest::newRow("ordinary") << 320 << 200;
        QTest::newRow("nothing") << 0 << 0;
        QTest::newRow("negative") << -5 << -7;
    }

    void keepsAnySize() {
        QFETCH(const int, width);
        QFETCH(const int, height);
        ZembraGraphicsItem item;
        item.setSize(width, height);
        QCOMPARE(item.plotWidth(), width);
        QCOMPARE(item.plotHeight(), height);
        QCOMPARE(item.boundingRect(), QRectF(0, 0, width, height));
        QCOMPARE(item.boundingRect().isEmpty(), width <= 0);
    }

    void thePlotIsAskedToRenderEvenWithoutArea() {
        ZembraGraphicsItem item;
        const auto plot = makePlot();
        item.setPlot(plot);
        QImage image = blank(800, 600);
        QPainter painter(&image);
        paintItem(item, painter);
        QVERIFY(plot->canvasRect().width > 400.0);
        item.setSize(0, 0);
        paintItem(item, painter);
        QCOMPARE(plot->canvasRect().width, 0.0);
        QCOMPARE(plot->canvasRect().height, 0.0);
        QCOMPARE(painter.renderHints(), everyHint);
    }

    void takesOverThePlotItIsGiven() {
        ZembraGraphicsItem item;
        QSignalSpy updates(&item, &ZembraGraphicsItem::plotUpdated);
        auto plot = makePlot();
        const Plot* address = plot.get();
        item.setSize(300, 200);
        item.setPlot(std::move(plot));
        QVERIFY(!plot);
        QCOMPARE(item.plot().get(), address);
        QCOMPARE(item.plot().use_count(), 2L);
        QCOMPARE(item.boundingRect(), QRectF(0, 0, 300, 200));
        QCOMPARE(updates.size(), 0);
    }

    void sharesThePlotUntilItGetsAnotherOrGoes() {
        auto plot = makePlot();
        const std::weak_ptr<Plot> watched = plot;
        {
            ZembraGraphicsItem item;
            item.setPlot(plot);
            QCOMPARE(watched.use_count(), 2L);
            item.setPlot(makePlot());
            QCOMPARE(watched.use_count(), 1L);
            item.setPlot(plot);
            item.setPlot(nullptr);
            QVERIFY(!item.plot());
            QCOMPARE(watched.use_count(), 1L);
            item.setPlot(std::move(plot));
            QCOMPARE(watched.use_count(), 1L);
        }
        QVERIFY(watched.expired());
    }

    void resetZoomFreesAllAxesAndThenTellsOnce() {
        ZembraGraphicsItem item;
        const auto plot = makePlot();
        item.setPlot(plot);
        for (int axis = 0; axis < 4; ++axis) {
            plot->setAxisScale(axis, 1.0, 2.0);
            QVERIFY(!plot->axis(axis).isAutoScale());
        }
        int freedWhenTold = 0;
        int told = 0;
        connect(&item, &ZembraGraphicsItem::plotUpdated, this, [&] {
            ++told;
            for (int axis = 0; axis < 4; ++axis)
                freedWhenTold += plot->axis(axis).isAutoScale();
        });
        item.resetZoom();
        QCOMPARE(told, 1);
        QCOMPARE(freedWhenTold, 4);
    }

    void resetZoomWithoutAPlotTellsNothing() {
        ZembraGraphicsItem item;
        QSignalSpy updates(&item, &ZembraGraphicsItem::plotUpdated);
        item.resetZoom();
        QCOMPARE(updates.size(), 0);
        item.setPlot(makePlot());
        item.resetZoom();
        QCOMPARE(updates.size(), 1);
    }

    void thePlotMayBeTakenAwayWhileItsUpdateIsTold() {
        ZembraGraphicsItem item;
        item.setPlot(makePlot());
        connect(&item, &ZembraGraphicsItem::plotUpdated, this, [&] { item.setPlot(nullptr); });
        item.resetZoom();
        QVERIFY(!item.plot());
    }

    void paintingWithoutAPlotTouchesNothing() {
        ZembraGraphicsItem item;
        QImage image = blank(40, 30);
        QPainter painter(&image);
        const QPainter::RenderHints before = painter.renderHints();
        QVERIFY(before != everyHint);
        paintItem(item, painter);
        QCOMPARE(painter.renderHints(), before);
        QCOMPARE(image, blank(40, 30));
    }

    void paintingAPlotLeavesAllThreeHintsOnAndNoStateSaved() {
        ZembraGraphicsItem item;
        item.setSize(200, 150);
        item.setPlot(makePlot());
        QImage image = blank(200, 150);
        {
            QPainter painter(&image);
            for (const auto hint : {QPainter::Antialiasing, QPainter::TextAntialiasing,
                                    QPainter::SmoothPixmapTransform})
                painter.setRenderHint(hint, false);
            paintItem(item, painter);
            QCOMPARE(painter.renderHints(), everyHint);
            QVERIFY(painter.isActive());
            QVERIFY(!painter.hasClipping());
            // Ending a painter with saved states gives a warning, which fails the test.
        }
        QVERIFY(image != blank(200, 150));
    }

    void drawsNothingOfItsOwnAroundThePlot() {
        // What the plot leaves out stays as the scene has it.
        const auto plot = makeBarePlot();
        ZembraGraphicsItem item;
        item.setPlot(plot);
        item.setSize(200, 150);
        QtRenderSurface surface;
        surface.create(200, 150);
        plot->renderInto(*surface.painter(), 200, 150);
        QImage image = blank(200, 150);
        QPainter painter(&image);
        paintItem(item, painter);
        painter.end();
        const QImage pixels = image.convertToFormat(QImage::Format_RGBA8888);
        const auto expected = surface.getImageData(200, 150);
        QVERIFY(std::equal(expected.begin(), expected.end(), pixels.constBits()));
        QCOMPARE(qAlpha(image.pixel(0, 0)), 0);
    }

    void aSceneShowsTheSamePixelsAsASurface_data() {
        QTest::addColumn<bool>("zoomed");
        QTest::newRow("whole") << false;
        QTest::newRow("zoomed") << true;
    }

    void aSceneShowsTheSamePixelsAsASurface() {
        QFETCH(const bool, zoomed);
        constexpr int width = 503;
        constexpr int height = 311;
        const auto plot = makePlot();
        if (zoomed) {
            plot->setAxisScale(2, 3.0, 9.0);
            plot->setAxisScale(0, -40.0, 70.0);
        }
        QtRenderSurface surface;
        surface.create(width, height);
        plot->renderInto(*surface.painter(), width, height);
        const std::vector<std::uint8_t> expected = surface.getImageData(width, height);

        QGraphicsScene scene;
        auto* item = new ZembraGraphicsItem;
        item->setSize(width, height);
        item->setPlot(plot);
        scene.addItem(item);
        QImage image = blank(width, height);
        QPainter painter(&image);
        scene.render(&painter, image.rect(), QRectF(0, 0, width, height));
        painter.end();
        const QImage pixels = image.convertToFormat(QImage::Format_RGBA8888);
        const std::vector<std::uint8_t> actual(pixels.constBits(),
                                               pixels.constBits() + pixels.sizeInBytes());
        QCOMPARE(actual.size(), expected.size());
        QVERIFY(actual == expected);
        QVERIFY(actual != std::vector<std::uint8_t>(actual.size(), actual[0]));
    }

    void everyChangeAsksForTheWholeItemToBePainted_data() {
        QTest::addColumn<int>("change");
        QTest::newRow("plot") << 0;
        QTest::newRow("size") << 1;
        QTest::newRow("zoom") << 2;
    }

    void everyChangeAsksForTheWholeItemToBePainted() {
        QFETCH(const int, change);
        QGraphicsScene scene(0, 0, 2000, 2000);
        auto* item = new ZembraGraphicsItem;
        item->setPlot(makePlot());
        scene.addItem(item);
        QRectF changed;
        connect(&scene, &QGraphicsScene::changed, this, [&](const QList<QRectF>& regions) {
            for (const QRectF& region : regions)
                changed |= region;
        });
        QTRY_VERIFY(changed.contains(item->boundingRect()));
        // Paint it, so that the next change is told again.
        QImage image = blank(10, 10);
        QPainter painter(&image);
        scene.render(&painter);
        QCoreApplication::processEvents();
        changed = QRectF();
        const QRectF before = item->boundingRect();
        if (change == 0)
            item->setPlot(makePlot());
        else if (change == 1)
            item->setSize(400, 900);
        else
            item->resetZoom();
        QTRY_VERIFY(changed.contains(item->boundingRect()));
        // What it covered until now has to be painted over too.
        QVERIFY(changed.contains(before));
    }

    void theSceneFindsItWhereItHasGrown() {
        QGraphicsScene scene(0, 0, 2000, 2000);
        auto* item = new ZembraGraphicsItem;
        scene.addItem(item);
        QVERIFY(scene.items(QPointF(900, 700)).isEmpty());
        QVERIFY(!scene.items(QPointF(790, 590)).isEmpty());
        item->setSize(1000, 800);
        QVERIFY(!scene.items(QPointF(900, 700)).isEmpty());
        item->setSize(100, 80);
        QVERIFY(scene.items(QPointF(790, 590)).isEmpty());
    }
};

QTEST_MAIN(ZembraGraphicsItemTest)
#include "ZembraGraphicsItem_test.moc"
