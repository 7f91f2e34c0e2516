// SPDX-License-Identifier: MIT
#include "LoadJob.h"

#include "Workspace.h"

#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>

#include <array>
#include <memory>
#include <string>

using viewer::LoadJob;

namespace {

/// Long enough to be in the midst of it when something else happens.
std::string manyRows() {
    std::string text = "t,a\n";
    for (int i = 0; i < 200000; ++i)
        text += "1234567.125,7654321.5\n";
    return text;
}

} // namespace

/// Apart from the windows, so that it can be built quickly with a Qt of another kind.
class LoadJobTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".?"))); }

    void TheChartIsHandedOverOnce() {
        LoadJob job({folder.write("few.csv", "t,a\n1,2\n2,3\n")}, {});
        const QSignalSpy loaded(&job, &LoadJob::loaded);
        job.start();
        QTRY_COMPARE(loaded.size(), 1);
        const viewer::Chart chart = job.takeChart();
        QCOMPARE(chart.name, std::string("few"));
        QCOMPARE(chart.plot->series().size(), std::size_t{1});
        QVERIFY(!job.takeChart().plot);
    }

    void ProgressIsToldWhileItReads() {
        LoadJob job({folder.write("many.csv", manyRows())}, {});
        const QSignalSpy progressed(&job, &LoadJob::progressed);
        const QSignalSpy loaded(&job, &LoadJob::loaded);
        job.start();
        QTRY_COMPARE_WITH_TIMEOUT(loaded.size(), 1, 60000);
        QVERIFY(progressed.size() >= 1);
        QVERIFY(progressed.back().at(0).toLongLong() > 0);
    }

    void CancelledItTellsSoAndHasNoChart() {
        LoadJob job({folder.write("many.csv", manyRows())}, {});
        const QSignalSpy loaded(&job, &LoadJob::loaded);
        const QSignalSpy cancelled(&job, &LoadJob::cancelled);
        job.start();
        job.cancel();
        QTRY_COMPARE_WITH_TIMEOUT(cancelled.size(), 1, 60000);
        QCOMPARE(loaded.size(), 0);
        QVERIFY(!job.takeChart().plot);
    }

    void AFileThatIsNotThereIsTold() {
        LoadJob job({folder.path("none.csv")}, {});
        const QSignalSpy failed(&job, &LoadJob::failed);
        job.start();
        QTRY_COMPARE(failed.size(), 1);
        QVERIFY(failed.front().front().toString().contains(QStringLiteral("none.csv")));
    }

    void ItMayGoWhileItReads() {
        auto job = std::make_unique<LoadJob>(viewer::Source{folder.write("many.csv", manyRows())},
                                             viewer::Options{});
        const QSignalSpy loaded(job.get(), &LoadJob::loaded);
        job->start();
        job.reset();
        QCoreApplication::processEvents();
        QCOMPARE(loaded.size(), 0);
    }

    void SeveralReadAtOnce() {
        const std::string path = folder.write("many.csv", manyRows());
        std::array<std::unique_ptr<LoadJob>, 3> jobs;
        int done = 0;
        for (auto& job : jobs) {
            job = std::make_unique<LoadJob>(viewer::Source{path}, viewer::Options{});
            connect(job.get(), &LoadJob::loaded, this, [&done] { ++done; });
            job->start();
        }
        QTRY_COMPARE_WITH_TIMEOUT(done, 3, 60000);
        for (const auto& job : jobs)
            QCOMPARE(job->takeChart().plot->series().size(), std::size_t{1});
    }

private:
    viewer::Workspace folder;
};

QTEST_GUILESS_MAIN(LoadJobTest)
#include "LoadJob_test.moc"
