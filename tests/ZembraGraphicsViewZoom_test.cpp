// SPDX-License-Identifier: MIT
#include <ZembraGraphicsItem.h>
#include <ZembraGraphicsView.h>

#include "support/Input.h"
#include "support/ShownView.h"

#include <QGraphicsScene>

#include <limits>

namespace definitions = zembra::ZembraNavigationDefinitions;
using AxisRange = zembra::ZembraGraphicsView::AxisRange;
using zembra::ZembraGraphicsView;

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
const double notANumber = std::numeric_limits<double>::quiet_NaN();

const QStringList bothAxes{QStringLiteral("axis 2"), QStringLiteral("axis 0"),
                           QStringLiteral("updated")};

// Both ranges of a plot, to be compared before and after.
struct Ranges {
    explicit Ranges(const ShownView& shown) : x(shown.range(2)), y(shown.range(0)) {}
    QPair<double, double> x;
    QPair<double, double> y;
    friend bool operator==(const Ranges&, const Ranges&) = default;
};

bool isClose(double value, double expected, double span) {
    return std::abs(value - expected) <= 1e-9 * std::abs(span);
}

// Empty where the range is the expected one, up to rounding.
QString difference(const QPair<double, double>& range, double first, double second) {
    const double span = second - first;
    if (isClose(range.first, first, span) && isClose(range.second, second, span))
        return {};
    return QStringLiteral("%1..%2 instead of %3..%4")
        .arg(range.first, 0, 'g', 17)
        .arg(range.second, 0, 'g', 17)
        .arg(first, 0, 'g', 17)
        .arg(second, 0, 'g', 17);
}

QString difference(const AxisRange& range, double first, double second) {
    return difference(QPair{range.first, range.second}, first, second);
}

} // namespace

class ZembraGraphicsViewZoomTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { failOnAnyWarning(); }

    void axisRangeStartsFromZeroToOne() {
        constexpr AxisRange range;
        static_assert(range.first == 0.0 && range.second == 1.0);
        static_assert(std::is_trivially_copyable_v<AxisRange>);
    }

    void pixelsMapToTheValuesOfAnAxis() {
        ShownView shown;
        const QRectF canvas = shown.canvas();
        AxisRange range;
        QVERIFY(shown.view.mappedAxisRange(2, canvas.left(), canvas.right(), range));
        QCOMPARE(difference(range, 0.0, 10.0), QString());
        QVERIFY(shown.view.mappedAxisRange(2, canvas.right(), canvas.left(), range));
        QCOMPARE(difference(range, 10.0, 0.0), QString());
        // Pixels run downward and values upward.
        QVERIFY(shown.view.mappedAxisRange(0, canvas.top(), canvas.bottom(), range));
        QCOMPARE(difference(range, 100.0, 0.0), QString());
        // Beyond the canvas values are extrapolated.
        QVERIFY(
            shown.view.mappedAxisRange(2, canvas.left() - canvas.width(), canvas.left(), range));
        QCOMPARE(difference(range, -10.0, 0.0), QString());
    }

    void whatCannotBeMappedIsRefused_data() {
        QTest::addColumn<int>("axis");
        QTest::addColumn<double>("firstPixel");
        QTest::addColumn<double>("secondPixel");
        QTest::newRow("axis that is not shown") << 3 << 100.0 << 200.0;
        QTest::newRow("axis that there is not") << 4 << 100.0 << 200.0;
        QTest::newRow("negative axis") << -1 << 100.0 << 200.0;
        QTest::newRow("first not a number") << 2 << notANumber << 200.0;
        QTest::newRow("second not a number") << 2 << 100.0 << notANumber;
        QTest::newRow("first infinite") << 2 << infinity << 200.0;
        QTest::newRow("second infinite") << 2 << 100.0 << -infinity;
    }
    void whatCannotBeMappedIsRefused() {
        QFETCH(int, axis);
        QFETCH(double, firstPixel);
        QFETCH(double, secondPixel);
        ShownView shown;
        AxisRange range{5.0, 6.0};
        QVERIFY(!shown.view.mappedAxisRange(axis, firstPixel, secondPixel, range));
        // Nothing was looked up, so nothing was stored.
        QCOMPARE(range.first, 5.0);
        QCOMPARE(range.second, 6.0);
    }

    void collapsedResultsAreStoredAndRefused() {
        ShownView shown;
        AxisRange range{5.0, 6.0};
        const double left = shown.canvas().left();
        QVERIFY(!shown.view.mappedAxisRange(2, left, left, range));
        QVERIFY(isClose(range.first, 0.0, 10.0));
        QCOMPARE(range.second, range.first);

        // Beyond the doubles every pixel has the same value.
        shown.plot->setAxisScale(2, 0.0, 1e308);
        const double width = shown.canvas().width();
        range = {5.0, 6.0};
        QVERIFY(!shown.view.mappedAxisRange(2, left + 5.0 * width, left + 6.0 * width, range));
        QCOMPARE(range.second, range.first);
        QVERIFY(range.first > 1e308);
    }

    void viewWithoutAPlotDoesNothing() {
        ShownView shown(nullptr);
        AxisRange range;
        QVERIFY(!shown.view.mappedAxisRange(2, 0.0, 10.0, range));
        QVERIFY(!shown.view.zoomAxis(2, 50.0, 0.5));
        QVERIFY(!shown.view.panAxis(2, 10.0));
        QVERIFY(!shown.view.zoomAt(QPointF(50, 50), 0.5));
        QVERIFY(!shown.view.applyBoxZoom(QRectF(10, 10, 50, 50)));
        QVERIFY(shown.view.canvasSceneRect().isNull());
        shown.view.zoomIn();
        shown.view.zoomOut();
        shown.view.resetZoom();
        QCOMPARE(shown.log.take(), QStringList());
    }

    void valueUnderTheAnchorStays_data() {
        QTest::addColumn<int>("axis");
        QTest::addColumn<double>("factor");
        for (const int axis : {2, 0})
            for (const double factor : {0.8, 1.25, 0.001, 100.0, 0.999999})
                QTest::addRow("axis %d by %g", axis, factor) << axis << factor;
    }
    void valueUnderTheAnchorStays() {
        QFETCH(int, axis);
        QFETCH(double, factor);
        ShownView shown;
        const double span = shown.second(axis) - shown.first(axis);
        for (const double anchor : {100.0, 123.456, 333.0, -40.0}) {
            shown.plot->setAxisScale(2, 0.0, 10.0);
            shown.plot->setAxisScale(0, 0.0, 100.0);
            shown.log.take();
            const double before = shown.valueAt(axis, anchor);
            QVERIFY(shown.view.zoomAxis(axis, anchor, factor));
            QCOMPARE(shown.log.lines, QStringList{QStringLiteral("axis %1").arg(axis)});
            QCOMPARE(shown.log.ranges.first().first, shown.first(axis));
            QCOMPARE(shown.log.ranges.first().second, shown.second(axis));
            const double newSpan = shown.second(axis) - shown.first(axis);
            QVERIFY(isClose(newSpan, span * factor, span * factor));
            QVERIFY(isClose(shown.valueAt(axis, anchor), before, newSpan));
            QVERIFY(!shown.plot->axis(axis).isAutoScale());
        }
    }

    void zoomThatCannotBeIsRefused_data() {
        QTest::addColumn<int>("axis");
        QTest::addColumn<double>("anchor");
        QTest::addColumn<double>("factor");
        QTest::newRow("factor 1 changes nothing") << 2 << 200.0 << 1.0;
        QTest::newRow("factor within the tolerance") << 2 << 200.0 << 1.0 + 1e-13;
        QTest::newRow("factor 0") << 2 << 200.0 << 0.0;
        QTest::newRow("negative factor") << 2 << 200.0 << -0.8;
        QTest::newRow("factor not a number") << 2 << 200.0 << notANumber;
        QTest::newRow("infinite factor") << 2 << 200.0 << infinity;
        QTest::newRow("anchor not a number") << 2 << notANumber << 0.8;
        QTest::newRow("infinite anchor") << 0 << -infinity << 0.8;
        QTest::newRow("factor beyond the doubles") << 2 << 200.0 << 1e308;
        QTest::newRow("factor that leaves no width") << 2 << 200.0 << 1e-320;
        QTest::newRow("axis 1 is not shown") << 1 << 200.0 << 0.8;
        QTest::newRow("axis 3 is not shown") << 3 << 200.0 << 0.8;
        QTest::newRow("axis 7 is none") << 7 << 200.0 << 0.8;
    }
    void zoomThatCannotBeIsRefused() {
        QFETCH(int, axis);
        QFETCH(double, anchor);
        QFETCH(double, factor);
        ShownView shown;
        const Ranges before(shown);
        QVERIFY(!shown.view.zoomAxis(axis, anchor, factor));
        QVERIFY(Ranges(shown) == before);
        QCOMPARE(shown.log.take(), QStringList());
    }

    void changesBeyondTheToleranceCount() {
        ShownView shown;
        QVERIFY(shown.view.zoomAxis(2, 200.0, 1.0 + 1e-10));
        QVERIFY(shown.view.panAxis(2, 1e-6));
        QCOMPARE(shown.log.take(),
                 (QStringList{QStringLiteral("axis 2"), QStringLiteral("axis 2")}));
    }

    void panMovesTheValuesWithThePointer() {
        ShownView shown;
        const QRectF canvas = shown.canvas();
        const double atLeft = shown.valueAt(2, canvas.left() - 50.0);
        const double atRight = shown.valueAt(2, canvas.right() - 50.0);
        QVERIFY(shown.view.panAxis(2, 50.0));
        QCOMPARE(difference(shown.range(2), atLeft, atRight), QString());
        const double atBottom = shown.valueAt(0, canvas.bottom() + 30.0);
        const double atTop = shown.valueAt(0, canvas.top() + 30.0);
        QVERIFY(shown.view.panAxis(0, -30.0));
        QCOMPARE(difference(shown.range(0), atBottom, atTop), QString());
        QCOMPARE(shown.log.take(),
                 (QStringList{QStringLiteral("axis 2"), QStringLiteral("axis 0")}));
    }

    void twoPansBetweenTwoPaintsBothCount() {
        ShownView shown;
        const double atLeft = shown.valueAt(2, shown.canvas().left() - 50.0);
        QVERIFY(shown.view.panAxis(2, 20.0));
        QVERIFY(shown.view.panAxis(2, 30.0));
        QVERIFY(isClose(shown.first(2), atLeft, 10.0));
    }

    void panThatCannotBeIsRefused_data() {
        QTest::addColumn<int>("axis");
        QTest::addColumn<double>("delta");
        QTest::newRow("nowhere") << 2 << 0.0;
        QTest::newRow("within the tolerance") << 2 << 1e-11;
        QTest::newRow("not a number") << 2 << notANumber;
        QTest::newRow("infinite") << 0 << infinity;
        QTest::newRow("beyond the doubles") << 2 << 1e308;
        QTest::newRow("axis 1 is not shown") << 1 << 5.0;
        QTest::newRow("axis 3 is not shown") << 3 << 5.0;
    }
    void panThatCannotBeIsRefused() {
        QFETCH(int, axis);
        QFETCH(double, delta);
        ShownView shown;
        // A span so wide that a huge step leaves the doubles.
        if (delta == 1e308)
            shown.plot->setAxisScale(2, 0.0, 1e6);
        const Ranges before(shown);
        QVERIFY(!shown.view.panAxis(axis, delta));
        QVERIFY(Ranges(shown) == before);
        QCOMPARE(shown.log.take(), QStringList());
    }

    void otherAxesAreZoomedOnRequestOnly() {
        ShownView shown;
        shown.plot->setAxisEnabled(1, true);
        shown.plot->setAxisEnabled(3, true);
        shown.plot->setAxisScale(1, 1.0, 2.0);
        shown.plot->setAxisScale(3, 1.0, 2.0);
        shown.settle();
        shown.view.zoomIn();
        QVERIFY(shown.view.applyBoxZoom(shown.canvas().adjusted(20, 20, -20, -20)));
        QCOMPARE(difference(shown.range(1), 1.0, 2.0), QString());
        QCOMPARE(difference(shown.range(3), 1.0, 2.0), QString());
        QVERIFY(shown.view.zoomAxis(1, 100.0, 0.5));
        QVERIFY(shown.view.panAxis(3, 10.0));
    }

    void zoomAtAnnouncesBothAxesAndThenTheUpdate() {
        ShownView shown;
        const QPointF point = shown.canvas().topLeft() + QPointF(100, 70);
        const double x = shown.valueAt(2, point.x());
        const double y = shown.valueAt(0, point.y());
        QVERIFY(shown.view.zoomAt(point, 0.8));
        QCOMPARE(shown.log.take(), bothAxes);
        QVERIFY(isClose(shown.valueAt(2, point.x()), x, 10.0));
        QVERIFY(isClose(shown.valueAt(0, point.y()), y, 100.0));
    }

    void zoomInAndOutWithReciprocalFactorsRestoresTheRange() {
        ShownView shown;
        shown.view.zoomIn();
        QCOMPARE(difference(shown.range(2), 1.0, 9.0), QString());
        QCOMPARE(difference(shown.range(0), 10.0, 90.0), QString());
        shown.view.zoomOut();
        QCOMPARE(difference(shown.range(2), 0.0, 10.0), QString());
        QCOMPARE(difference(shown.range(0), 0.0, 100.0), QString());
        QVERIFY(shown.view.zoomAt(shown.center(), definitions::zoomInFactor()));
        QVERIFY(shown.view.zoomAt(shown.center(), definitions::zoomOutFactor()));
        QCOMPARE(difference(shown.range(2), 0.0, 10.0), QString());
        QCOMPARE(difference(shown.range(0), 0.0, 100.0), QString());
    }

    void zoomAtTakesEachAxisByItself_data() {
        QTest::addColumn<bool>("horizontal");
        QTest::addColumn<bool>("vertical");
        QTest::newRow("both") << true << true;
        QTest::newRow("horizontal only") << true << false;
        QTest::newRow("vertical only") << false << true;
        QTest::newRow("none") << false << false;
    }
    void zoomAtTakesEachAxisByItself() {
        QFETCH(bool, horizontal);
        QFETCH(bool, vertical);
        ShownView shown;
        shown.plot->setAxisEnabled(2, horizontal);
        shown.plot->setAxisEnabled(0, vertical);
        QStringList expected;
        if (horizontal)
            expected << QStringLiteral("axis 2");
        if (vertical)
            expected << QStringLiteral("axis 0");
        if (!expected.isEmpty())
            expected << QStringLiteral("updated");
        QCOMPARE(shown.view.zoomAt(shown.center(), 0.8), horizontal || vertical);
        QCOMPARE(shown.log.take(), expected);
    }

    void zoomAtPointsThatAreNotFiniteTakesTheOtherAxis() {
        ShownView shown;
        QVERIFY(shown.view.zoomAt(QPointF(notANumber, 100.0), 0.8));
        QCOMPARE(shown.log.take(),
                 (QStringList{QStringLiteral("axis 0"), QStringLiteral("updated")}));
        QVERIFY(!shown.view.zoomAt(QPointF(notANumber, infinity), 0.8));
        QVERIFY(!shown.view.zoomAt(shown.center(), notANumber));
        QCOMPARE(shown.log.take(), QStringList());
    }

    void plotThatWasNeverLaidOutIsNotZoomed() {
        ZembraGraphicsView view;
        view.setPlot(makePlot());
        SignalLog log(view);
        QVERIFY(view.canvasSceneRect().isNull());
        view.zoomIn();
        view.zoomOut();
        QVERIFY(!view.zoomAt(QPointF(10, 10), 0.8));
        QCOMPARE(log.take(), QStringList());
    }

    void canvasWithoutAreaIsNotZoomed_data() {
        QTest::addColumn<QSize>("size");
        QTest::newRow("no width") << QSize(1, 300);
        QTest::newRow("no height") << QSize(300, 1);
    }
    void canvasWithoutAreaIsNotZoomed() {
        QFETCH(QSize, size);
        ShownView shown;
        // Too small for a canvas between the texts of the axes.
        QImage image(size, QImage::Format_ARGB32_Premultiplied);
        QPainter painter(&image);
        zembra::ZembraGraphicsItem item(nullptr);
        item.setPlot(shown.plot);
        item.setSize(size.width(), size.height());
        item.paint(&painter, nullptr, nullptr);
        const zembra::Rect canvas = shown.plot->canvasRect();
        QVERIFY(canvas.width <= 0.0 || canvas.height <= 0.0);

        QVERIFY(shown.view.canvasSceneRect().isNull());
        shown.view.zoomIn();
        shown.view.zoomOut();
        QCOMPARE(shown.log.take(), QStringList());
        // About a point, each axis is asked by itself.
        QCOMPARE(shown.view.zoomAt(QPointF(0, 0), 0.8), canvas.width > 0.0 || canvas.height > 0.0);
    }

    void canvasInSceneCoordinatesIsTheCanvasOfThePlot() {
        ShownView shown;
        const zembra::Rect canvas = shown.plot->canvasRect();
        QCOMPARE(shown.view.canvasSceneRect(),
                 QRectF(canvas.x, canvas.y, canvas.width, canvas.height));
    }

    void boxZoomShowsWhatTheBoxHeld() {
        ShownView shown;
        const QRectF canvas = shown.canvas();
        const QRectF box(canvas.left() + 30.0, canvas.top() + 10.0, 100.0, 40.0);
        const double left = shown.valueAt(2, box.left());
        const double right = shown.valueAt(2, box.right());
        const double low = shown.valueAt(0, box.bottom());
        const double high = shown.valueAt(0, box.top());
        QVERIFY(low < high);
        QVERIFY(shown.view.applyBoxZoom(box));
        QCOMPARE(difference(shown.range(2), left, right), QString());
        QCOMPARE(difference(shown.range(0), low, high), QString());
        QCOMPARE(shown.log.ranges.at(0).first, shown.first(2));
        QCOMPARE(shown.log.ranges.at(1).second, shown.second(0));
        QCOMPARE(shown.log.take(), bothAxes);
    }

    void boxZoomKeepsInvertedAxesInverted() {
        ShownView shown;
        shown.plot->setAxisScale(2, 10.0, 0.0);
        shown.plot->setAxisScale(0, 100.0, 0.0);
        shown.settle();
        const QRectF canvas = shown.canvas();
        const QRectF box(canvas.left() + 30.0, canvas.top() + 10.0, 100.0, 40.0);
        const double left = shown.valueAt(2, box.left());
        const double right = shown.valueAt(2, box.right());
        const double bottom = shown.valueAt(0, box.bottom());
        const double top = shown.valueAt(0, box.top());
        QVERIFY(shown.view.applyBoxZoom(box));
        QCOMPARE(difference(shown.range(2), left, right), QString());
        QCOMPARE(difference(shown.range(0), bottom, top), QString());
        QVERIFY(left > right && bottom > top);
    }

    void boxZoomIsAllOrNothing_data() {
        QTest::addColumn<bool>("verticalFails");
        QTest::newRow("vertical axis fails") << true;
        QTest::newRow("horizontal axis fails") << false;
    }
    void boxZoomIsAllOrNothing() {
        QFETCH(bool, verticalFails);
        ShownView shown;
        // So far out that the values of a box beyond the canvas are infinite.
        shown.plot->setAxisScale(verticalFails ? 0 : 2, 0.0, 1.7e308);
        const QRectF canvas = shown.canvas();
        const QRectF box = verticalFails
                               ? QRectF(canvas.left() + 10.0, canvas.top() - 9.0 * canvas.height(),
                                        50.0, canvas.height())
                               : QRectF(canvas.left() + 9.0 * canvas.width(), canvas.top() + 10.0,
                                        canvas.width(), 50.0);
        const Ranges before(shown);
        QVERIFY(!shown.view.applyBoxZoom(box));
        QVERIFY(Ranges(shown) == before);
        QCOMPARE(shown.log.take(), QStringList());
    }

    void boxZoomOverTheWholeCanvasChangesNothing() {
        ShownView shown;
        QVERIFY(!shown.view.applyBoxZoom(shown.canvas()));
        QCOMPARE(shown.log.take(), QStringList());
    }

    void boxZoomTakesOnlyTheAxesThatChange() {
        ShownView shown;
        QVERIFY(shown.view.applyBoxZoom(shown.canvas().adjusted(10.0, 0.0, -10.0, 0.0)));
        QCOMPARE(shown.log.take(),
                 (QStringList{QStringLiteral("axis 2"), QStringLiteral("updated")}));
        QVERIFY(shown.view.applyBoxZoom(shown.canvas().adjusted(0.0, 10.0, 0.0, -10.0)));
        QCOMPARE(shown.log.take(),
                 (QStringList{QStringLiteral("axis 0"), QStringLiteral("updated")}));
    }

    void axisThatIsNotShownNeverBlocksABoxZoom() {
        ShownView shown;
        shown.plot->setAxisEnabled(0, false);
        const auto y = shown.range(0);
        QVERIFY(shown.view.applyBoxZoom(shown.canvas().adjusted(30, 30, -30, -30)));
        QCOMPARE(shown.log.take(),
                 (QStringList{QStringLiteral("axis 2"), QStringLiteral("updated")}));
        QCOMPARE(shown.range(0), y);

        shown.plot->setAxisEnabled(2, false);
        QVERIFY(!shown.view.applyBoxZoom(shown.canvas().adjusted(30, 30, -30, -30)));
        QCOMPARE(shown.log.take(), QStringList());
    }

    void emptyBoxesAreRefused_data() {
        QTest::addColumn<QSizeF>("size");
        QTest::newRow("no width") << QSizeF(0.0, 20.0);
        QTest::newRow("no height") << QSizeF(20.0, 0.0);
        QTest::newRow("negative width") << QSizeF(-20.0, 20.0);
        QTest::newRow("negative height") << QSizeF(20.0, -20.0);
    }
    void emptyBoxesAreRefused() {
        QFETCH(QSizeF, size);
        ShownView shown;
        QVERIFY(!shown.view.applyBoxZoom(QRectF(shown.center(), size)));
        QCOMPARE(shown.log.take(), QStringList());
    }

    void logarithmicAxesZoomByDecades() {
        ShownView shown;
        shown.plot->axis(2).setScale(zembra::Scale::log());
        shown.plot->setAxisScale(2, 1.0, 1e10);
        shown.settle();
        QVERIFY(shown.view.zoomAxis(2, shown.canvas().center().x(), 0.8));
        QVERIFY(std::abs(std::log10(shown.first(2)) - 1.0) < 1e-9);
        QVERIFY(std::abs(std::log10(shown.second(2)) - 9.0) < 1e-9);
    }

    void rangesAtTheEdgeOfTheDoublesAreAnnouncedAsTheAxisTakesThem() {
        ShownView shown;
        shown.plot->axis(2).setScale(zembra::Scale::log());
        shown.plot->setAxisScale(2, 1e-300, 1.0);
        shown.settle();
        // The lower end would round to 0, which no logarithmic axis can show.
        for (int i = 0; i < 4; ++i) {
            const auto before = shown.range(2);
            const bool changed = shown.view.panAxis(2, shown.canvas().width());
            QCOMPARE(shown.range(2) != before, changed);
            QCOMPARE(shown.log.ranges.size(), changed ? 1 : 0);
            if (changed)
                QCOMPARE((QPair{shown.log.ranges.first().first, shown.log.ranges.first().second}),
                         shown.range(2));
            QVERIFY(shown.first(2) > 0.0);
            shown.log.take();
        }
    }

    void rangeThatFillsTheDoublesCanBeLeftAgain() {
        ShownView shown;
        shown.plot->setAxisScale(2, -1.7e308, 1.7e308);
        QVERIFY(shown.view.zoomAxis(2, shown.canvas().center().x(), 0.5));
        QCOMPARE(difference(QPair{shown.first(2) / 1e308, shown.second(2) / 1e308}, -0.85, 0.85),
                 QString());
    }

    void resetLetsAllAxesFollowTheDataAgain() {
        ShownView shown;
        for (const int axis : {0, 1, 2, 3})
            shown.plot->setAxisScale(axis, 3.0, 4.0);
        shown.view.resetZoom();
        QCOMPARE(shown.log.take(),
                 (QStringList{QStringLiteral("updated"), QStringLiteral("reset")}));
        for (const int axis : {0, 1, 2, 3})
            QVERIFY(shown.plot->axis(axis).isAutoScale());
        QVERIFY(shown.first(2) <= 0.0 && shown.second(2) >= 10.0);
    }

    void resetMakesThePlotFillTheViewAgain() {
        ShownView shown;
        shown.view.scale(2.0, 2.0);
        shown.view.resetZoom();
        QVERIFY(shown.view.transform().isIdentity());
    }
};

QTEST_MAIN(ZembraGraphicsViewZoomTest)
#include "ZembraGraphicsViewZoom_test.moc"
