// SPDX-License-Identifier: MIT
#include "Database.h"
#include "SqlSource.h"

#include <QtRenderSurface.h>

#include <zembra/chart/Plot.h>
#include <zembra/series/SourceSeries.h>

#include <QtCore/QTemporaryDir>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

#include <algorithm>

using namespace zembra;

namespace {

const auto always = [](double) { return true; };

} // namespace

class SqlSourceTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void theDatabaseReducesAColumnToItsEndsAndExtremes();
    void reducingStopsWhenItIsNotWantedAnyMore();
    void framesAreDrawnWhileTheDatabaseWorks();
    void aFileThatCannotBeOpenedIsTold();

private:
    QString fileIn(const QTemporaryDir& folder) const {
        return folder.filePath(QStringLiteral("samples.sqlite"));
    }
};

void SqlSourceTest::init() {
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".?")));
}

void SqlSourceTest::theDatabaseReducesAColumnToItsEndsAndExtremes() {
    const QTemporaryDir folder;
    Database database(fileIn(folder));
    QVERIFY(database.fill(1000, always));
    QCOMPARE(database.rowCount(), qint64{1000});
    const Interval x = database.xRange();
    QCOMPARE(x.max - x.min, 999.0);
    const auto single = database.reduce({x.min, x.max + 1.0, 1000}, always);
    const auto whole = database.reduce({x.min - 500.0, x.max + 1.0, 3}, always);
    QVERIFY(single && whole);
    QCOMPARE(single->size(), std::size_t{1000});
    // Nothing lies in the first column.
    QCOMPARE(whole->size(), std::size_t{2});
    const auto& column = whole->back();
    QCOMPARE(column.firstX, x.min + 500.0);
    QCOMPARE(column.lastX, x.max);
    QCOMPARE(column.firstY, (*single)[500].firstY);
    QCOMPARE(column.lastY, single->back().lastY);
    const auto [low, high] =
        std::minmax_element(single->begin() + 500, single->end(),
                            [](const auto& a, const auto& b) { return a.minY < b.minY; });
    QCOMPARE(column.minY, low->minY);
    QCOMPARE(column.maxY, high->maxY);
}

void SqlSourceTest::reducingStopsWhenItIsNotWantedAnyMore() {
    const QTemporaryDir folder;
    Database database(fileIn(folder));
    QVERIFY(database.fill(100, always));
    int asked = 0;
    QVERIFY(!database.reduce({0.0, 100.0, 50}, [&asked](double) { return ++asked < 10; }));
    QCOMPARE(asked, 10);
    QVERIFY(!database.fill(100, [](double) { return false; }));
}

void SqlSourceTest::framesAreDrawnWhileTheDatabaseWorks() {
    const QTemporaryDir folder;
    constexpr qint64 rows = 300000;
    const auto source = std::make_shared<SqlSource>(fileIn(folder), rows);
    Plot plot;
    plot.add<SourceSeries>(source);
    // Frames while the table is filled, and until the overview is there.
    qint64 slowest = 0;
    const auto draw = [&] {
        QElapsedTimer timer;
        timer.start();
        QtRenderSurface surface;
        surface.create(600, 400);
        plot.renderInto(*surface.painter(), 600, 400);
        slowest = std::max(slowest, timer.elapsed());
    };
    int frames = 0;
    QTRY_VERIFY_WITH_TIMEOUT((draw(), ++frames, !source->bounds().y.isEmpty()), 60000);
    QVERIFY(frames > 1);
    QTRY_VERIFY_WITH_TIMEOUT((draw(), !source->isBusy()), 60000);
    // A closer look is drawn from the overview until its own answer comes.
    const Interval x = source->bounds().x;
    QCOMPARE(x.max - x.min, static_cast<double>(rows - 1));
    plot.setAxisScale(2, x.min + 1000.0, x.min + 2000.0);
    const ColumnRequest closer{x.min + 1000.0, x.min + 2000.0, 500};
    const auto before = source->extents(closer);
    QVERIFY(before);
    QSignalSpy answered(source.get(), &SqlSource::answered);
    QVERIFY(answered.wait());
    const auto after = source->extents(closer);
    QVERIFY(after->size() > before->size());
    QVERIFY(std::is_sorted(after->begin(), after->end(),
                           [](const auto& a, const auto& b) { return a.firstX < b.firstX; }));
    // Generous, since machines that test are busy; painting never waits for the database.
    QVERIFY2(slowest < 1000, qPrintable(QString::number(slowest)));
}

void SqlSourceTest::aFileThatCannotBeOpenedIsTold() {
    SqlSource source(QStringLiteral("/no/such/folder/samples.sqlite"), 10);
    QSignalSpy failed(&source, &SqlSource::failed);
    QVERIFY(failed.wait());
    QTRY_VERIFY(!source.isBusy());
    QVERIFY(!source.extents({0.0, 1.0, 10}));
}

QTEST_MAIN(SqlSourceTest)
#include "SqlSource_test.moc"
