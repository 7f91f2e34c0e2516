// SPDX-License-Identifier: MIT
#include <ZembraItemModelSamples.h>

#include <QtGui/QStandardItemModel>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

#include <cmath>
#include <limits>

using namespace zembra;

namespace {

void appendRow(QStandardItemModel& model, const QVariant& x, const QVariant& y) {
    auto* first = new QStandardItem;
    auto* second = new QStandardItem;
    first->setData(x, Qt::DisplayRole);
    second->setData(y, Qt::DisplayRole);
    model.appendRow({first, second});
}

// "x,y" of all samples, with "-" for gaps.
QString textOf(const Samples& samples) {
    QStringList texts;
    const auto number = [](double v) {
        return std::isnan(v) ? QStringLiteral("-") : QString::number(v, 'g', 12);
    };
    for (std::size_t i = 0; i < samples.size(); ++i)
        texts << number(samples.x(i)) + QLatin1Char(',') + number(samples.y(i));
    return texts.join(QLatin1Char(' '));
}

} // namespace

class ItemModelSamples : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void aSeriesIsFedWithTwoColumnsOfAModel();
    void itemsAreNumbersTextsDatesOrGaps_data();
    void itemsAreNumbersTextsDatesOrGaps();
    void everyChangeOfTheModelReachesTheSeries();
    void changesOfOneTurnReachTheSeriesTogether();
    void aSeriesThatIsSetBetweenChangesIsFedWithThemOnce();
    void rowsAreCountedWhereNoColumnHoldsX();
    void whatLiesBelowTheTopLevelOrInOtherColumnsAndRolesChangesNothing();
    void aColumnThatIsNotThereGivesGaps();
    void aModelThatIsGoneOrReplacedFeedsNoMore();
    void theSeriesMayBeReplacedOrTakenAway();
};

void ItemModelSamples::init() {
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".?")));
}

void ItemModelSamples::aSeriesIsFedWithTwoColumnsOfAModel() {
    QStandardItemModel model;
    appendRow(model, 1, 10);
    appendRow(model, 2, 20.5);
    const auto series = std::make_shared<LineSeries>();
    ZembraItemModelSamples feeder;
    feeder.setSeries(series);
    feeder.setModel(&model);
    QTRY_COMPARE(textOf(series->samples()), QStringLiteral("1,10 2,20.5"));
    feeder.setColumns(1, 0);
    QTRY_COMPARE(textOf(series->samples()), QStringLiteral("10,1 20.5,2"));
    QCOMPARE(textOf(feeder.samples()), textOf(series->samples()));
    QCOMPARE(feeder.xColumn(), 1);
    QCOMPARE(feeder.yColumn(), 0);
    QCOMPARE(feeder.model(), &model);
}

void ItemModelSamples::itemsAreNumbersTextsDatesOrGaps_data() {
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<double>("expected");
    const double gap = std::numeric_limits<double>::quiet_NaN();
    QTest::newRow("integer") << QVariant(-3) << -3.0;
    QTest::newRow("large integer") << QVariant(Q_INT64_C(1234567890123)) << 1234567890123.0;
    QTest::newRow("float") << QVariant(0.25f) << 0.25;
    QTest::newRow("text") << QVariant(QStringLiteral("1.5e3")) << 1500.0;
    QTest::newRow("other text") << QVariant(QStringLiteral("n/a")) << gap;
    QTest::newRow("nothing") << QVariant() << gap;
    QTest::newRow("time") << QVariant(QDateTime::fromMSecsSinceEpoch(1500, Qt::UTC)) << 1.5;
    QTest::newRow("time elsewhere")
        << QVariant(QDateTime::fromString(QStringLiteral("1970-01-01T02:00:00+01:00"), Qt::ISODate))
        << 3600.0;
    QTest::newRow("date") << QVariant(QDate(1970, 1, 2)) << 86400.0;
    QTest::newRow("no date") << QVariant(QDate()) << gap;
}

void ItemModelSamples::itemsAreNumbersTextsDatesOrGaps() {
    QFETCH(QVariant, value);
    QFETCH(double, expected);
    QStandardItemModel model;
    appendRow(model, 0, value);
    ZembraItemModelSamples feeder;
    feeder.setModel(&model);
    QTRY_COMPARE(feeder.samples().size(), std::size_t{1});
    const double actual = feeder.samples().y(0);
    QVERIFY2(std::isnan(expected) ? std::isnan(actual) : actual == expected,
             qPrintable(QString::number(actual)));
}

void ItemModelSamples::everyChangeOfTheModelReachesTheSeries() {
    QStandardItemModel model;
    const auto series = std::make_shared<ScatterSeries>();
    ZembraItemModelSamples feeder;
    feeder.setModel(&model);
    feeder.setSeries(series);
    const auto shown = [&series] { return textOf(series->samples()); };
    appendRow(model, 1, 10);
    appendRow(model, 2, 20);
    appendRow(model, 3, 30);
    QTRY_COMPARE(shown(), QStringLiteral("1,10 2,20 3,30"));
    model.item(1, 1)->setData(25, Qt::DisplayRole);
    QTRY_COMPARE(shown(), QStringLiteral("1,10 2,25 3,30"));
    model.insertRow(
        1, {new QStandardItem(QStringLiteral("1.5")), new QStandardItem(QStringLiteral("15"))});
    QTRY_COMPARE(shown(), QStringLiteral("1,10 1.5,15 2,25 3,30"));
    model.removeRows(0, 2);
    QTRY_COMPARE(shown(), QStringLiteral("2,25 3,30"));
    model.sort(0, Qt::DescendingOrder);
    QTRY_COMPARE(shown(), QStringLiteral("3,30 2,25"));
    model.insertColumn(0);
    QTRY_COMPARE(shown(), QStringLiteral("-,3 -,2"));
    model.removeColumns(0, 1);
    QTRY_COMPARE(shown(), QStringLiteral("3,30 2,25"));
    model.clear();
    QTRY_COMPARE(shown(), QString());
}

void ItemModelSamples::changesOfOneTurnReachTheSeriesTogether() {
    QStandardItemModel model;
    ZembraItemModelSamples feeder;
    feeder.setModel(&model);
    QSignalSpy spy(&feeder, &ZembraItemModelSamples::samplesChanged);
    QVERIFY(spy.wait());
    spy.clear();
    for (int i = 0; i < 100; ++i)
        appendRow(model, i, i);
    QCOMPARE(spy.count(), 0);
    QVERIFY(spy.wait());
    QCOMPARE(spy.count(), 1);
    QCOMPARE(feeder.samples().size(), std::size_t{100});
}

void ItemModelSamples::aSeriesThatIsSetBetweenChangesIsFedWithThemOnce() {
    QStandardItemModel model;
    ZembraItemModelSamples feeder;
    feeder.setModel(&model);
    appendRow(model, 1, 10);
    feeder.setSeries(std::make_shared<LineSeries>());
    QSignalSpy spy(&feeder, &ZembraItemModelSamples::samplesChanged);
    QCoreApplication::sendPostedEvents();
    QCOMPARE(spy.count(), 0);
    appendRow(model, 2, 20);
    feeder.setSeries(std::make_shared<LineSeries>());
    appendRow(model, 3, 30);
    spy.clear();
    QCoreApplication::sendPostedEvents();
    QCOMPARE(spy.count(), 1);
    QCOMPARE(feeder.samples().size(), std::size_t{3});
}

void ItemModelSamples::rowsAreCountedWhereNoColumnHoldsX() {
    QStandardItemModel model;
    for (int i = 0; i < 4; ++i)
        appendRow(model, 10 * i, i);
    ZembraItemModelSamples feeder;
    feeder.setModel(&model);
    feeder.setColumns(-1, 0);
    QTRY_COMPARE(textOf(feeder.samples()), QStringLiteral("0,0 1,10 2,20 3,30"));
    model.removeRow(1);
    QTRY_COMPARE(textOf(feeder.samples()), QStringLiteral("0,0 1,20 2,30"));
    model.insertRow(0, new QStandardItem(QStringLiteral("7")));
    QTRY_COMPARE(textOf(feeder.samples()), QStringLiteral("0,7 1,0 2,20 3,30"));
}

void ItemModelSamples::whatLiesBelowTheTopLevelOrInOtherColumnsAndRolesChangesNothing() {
    QStandardItemModel model;
    appendRow(model, 1, 10);
    model.setColumnCount(3);
    ZembraItemModelSamples feeder;
    feeder.setModel(&model);
    QSignalSpy spy(&feeder, &ZembraItemModelSamples::samplesChanged);
    QVERIFY(spy.wait());
    spy.clear();
    model.item(0, 0)->appendRow(new QStandardItem(QStringLiteral("5")));
    model.setData(model.index(0, 2), 99);
    model.item(0, 1)->setToolTip(QStringLiteral("ten"));
    // Comes after whatever the changes above have called for.
    feeder.setRole(Qt::EditRole);
    QVERIFY(spy.wait());
    QCOMPARE(spy.count(), 1);
    QCOMPARE(feeder.role(), static_cast<int>(Qt::EditRole));
    QCOMPARE(textOf(feeder.samples()), QStringLiteral("1,10"));
}

void ItemModelSamples::aColumnThatIsNotThereGivesGaps() {
    QStandardItemModel model;
    appendRow(model, 1, 10);
    ZembraItemModelSamples feeder;
    feeder.setModel(&model);
    feeder.setColumns(0, 7);
    QTRY_COMPARE(textOf(feeder.samples()), QStringLiteral("1,-"));
    // Rows are counted for x alone.
    feeder.setColumns(-1, -1);
    QTRY_COMPARE(textOf(feeder.samples()), QStringLiteral("0,-"));
}

void ItemModelSamples::aModelThatIsGoneOrReplacedFeedsNoMore() {
    auto first = std::make_unique<QStandardItemModel>();
    QStandardItemModel second;
    appendRow(*first, 1, 10);
    appendRow(second, 2, 20);
    ZembraItemModelSamples feeder;
    feeder.setModel(first.get());
    QTRY_COMPARE(textOf(feeder.samples()), QStringLiteral("1,10"));
    feeder.setModel(&second);
    QTRY_COMPARE(textOf(feeder.samples()), QStringLiteral("2,20"));
    QSignalSpy spy(&feeder, &ZembraItemModelSamples::samplesChanged);
    appendRow(*first, 3, 30);
    appendRow(second, 4, 40);
    QVERIFY(spy.wait());
    QCOMPARE(textOf(feeder.samples()), QStringLiteral("2,20 4,40"));
    feeder.setModel(first.get());
    QTRY_COMPARE(textOf(feeder.samples()), QStringLiteral("1,10 3,30"));
    first.reset();
    QTRY_COMPARE(feeder.samples().size(), std::size_t{0});
    QCOMPARE(feeder.model(), nullptr);
}

void ItemModelSamples::theSeriesMayBeReplacedOrTakenAway() {
    QStandardItemModel model;
    appendRow(model, 1, 10);
    ZembraItemModelSamples feeder;
    feeder.setModel(&model);
    QTRY_COMPARE(feeder.samples().size(), std::size_t{1});
    const auto line = std::make_shared<LineSeries>();
    const auto dots = std::make_shared<ScatterSeries>();
    feeder.setSeries(line);
    QCOMPARE(line->samples().size(), std::size_t{1});
    feeder.setSeries(dots);
    appendRow(model, 2, 20);
    QTRY_COMPARE(dots->samples().size(), std::size_t{2});
    QCOMPARE(line->samples().size(), std::size_t{1});
    feeder.setSeries(std::shared_ptr<LineSeries>());
    appendRow(model, 3, 30);
    QTRY_COMPARE(feeder.samples().size(), std::size_t{3});
    QCOMPARE(dots->samples().size(), std::size_t{2});
}

QTEST_MAIN(ItemModelSamples)
#include "ZembraItemModelSamples_test.moc"
