// SPDX-License-Identifier: MIT
#include "Chart.h"
#include "GalleryWindow.h"
#include "PictureDifference.h"
#include "TextBoxes.h"
#include "Writer.h"

#include <QtRenderSurface.h>
#include <ZembraGraphicsView.h>

#include <QDir>
#include <QProcess>
#include <QRegularExpression>
#include <QSet>
#include <QTemporaryDir>
#include <QTest>
#include <QTreeWidget>
#include <QXmlStreamReader>

using namespace gallery;

namespace {

const QString goldens = QStringLiteral(GALLERY_GOLDENS);
const QString program = QStringLiteral(GALLERY_PROGRAM);

QString idOf(const Chart& chart) {
    return QString::fromUtf8(chart.id);
}

QList<Chart> allCharts() {
    QList<Chart> charts;
    for (const Chapter& chapter : chapters())
        for (const Chart& chart : chapter.charts)
            charts.append(chart);
    return charts;
}

QList<QPolygonF> textBoxes(zembra::Plot& plot) {
    zembra::QtRenderSurface surface;
    surface.create(goldenWidth, goldenHeight);
    TextBoxes boxes(*surface.painter());
    plot.renderInto(boxes, goldenWidth, goldenHeight);
    return boxes.boxes();
}

QByteArray described(const PictureDifference& d, const QString& id) {
    if (!d.sameSize)
        return (id + QStringLiteral(": another size")).toUtf8();
    return QStringLiteral("%1: %2 pixels are off by up to %3, the first at (%4, %5)")
        .arg(id)
        .arg(d.count)
        .arg(d.worst)
        .arg(d.first.x())
        .arg(d.first.y())
        .toUtf8();
}

QImage damaged(QImage picture, const QPoint& where, int by) {
    QColor color = picture.pixelColor(where);
    color.setGreen(color.green() >= by ? color.green() - by : color.green() + by);
    picture.setPixelColor(where, color);
    return picture;
}

} // namespace

class GalleryTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        QTest::failOnWarning(
            QRegularExpression(QStringLiteral("^(?!This plugin does not support )")));
    }

    void everyChartLooksLikeItsGoldenPicture_data() {
        QTest::addColumn<int>("index");
        const auto charts = allCharts();
        for (int i = 0; i < charts.size(); ++i)
            QTest::newRow(charts[i].id) << i;
    }

    void everyChartLooksLikeItsGoldenPicture() {
        QFETCH(int, index);
        const Chart chart = allCharts()[index];
        const QString file = QDir(goldens).filePath(idOf(chart) + QStringLiteral(".png"));
        QVERIFY2(QFile::exists(file),
                 "no golden picture; tools/rebaseline-goldens makes one, look at it");
        const auto plot = chart.make();
        const QImage actual = rendered(*plot, goldenWidth, goldenHeight);
        const auto d = difference(actual, QImage(file), textBoxes(*plot));
        if (!d.isEmpty()) {
            QDir().mkpath(QStringLiteral("golden-differences"));
            actual.save(QStringLiteral("golden-differences/%1.png").arg(idOf(chart)));
        }
        QVERIFY2(d.isEmpty(), described(d, idOf(chart)));
    }

    void everyGoldenPictureBelongsToAChart() {
        QSet<QString> ids;
        for (const Chart& chart : allCharts())
            ids.insert(idOf(chart));
        const auto files = QDir(goldens).entryInfoList({QStringLiteral("*.png")}, QDir::Files);
        for (const QFileInfo& file : files)
            QVERIFY2(ids.contains(file.completeBaseName()), qPrintable(file.fileName()));
    }

    void everyChartHasAnIdOfItsOwnThatNamesAFile() {
        QSet<QString> ids;
        const QRegularExpression valid(QStringLiteral("^[a-z0-9]+(-[a-z0-9]+)*$"));
        for (const Chart& chart : allCharts()) {
            QVERIFY2(valid.match(idOf(chart)).hasMatch(), chart.id);
            QVERIFY2(!ids.contains(idOf(chart)), chart.id);
            ids.insert(idOf(chart));
        }
    }

    void aChartIsDrawnTheSameTwice() {
        for (const Chart& chart : allCharts()) {
            const QImage first = rendered(*chart.make(), goldenWidth, goldenHeight);
            QVERIFY2(first == rendered(*chart.make(), goldenWidth, goldenHeight), chart.id);
        }
    }

    void damageToOnePixelIsFound_data() {
        QTest::addColumn<QPoint>("where");
        QTest::newRow("first") << QPoint(0, 0);
        QTest::newRow("last") << QPoint(goldenWidth - 1, goldenHeight - 1);
        QTest::newRow("canvas") << QPoint(240, 200);
        QTest::newRow("edge") << QPoint(goldenWidth - 1, 150);
    }

    void damageToOnePixelIsFound() {
        QFETCH(QPoint, where);
        const auto plot = allCharts().front().make();
        const auto texts = textBoxes(*plot);
        for (const QPolygonF& text : texts)
            QVERIFY(!text.containsPoint(where, Qt::OddEvenFill));
        const QImage picture = rendered(*plot, goldenWidth, goldenHeight);
        QVERIFY(difference(picture, picture, texts).isEmpty());
        QVERIFY(difference(damaged(picture, where, tolerance), picture, texts).isEmpty());
        const auto d = difference(damaged(picture, where, tolerance + 1), picture, texts);
        QCOMPARE(d.count, 1);
        QCOMPARE(d.first, where);
        QCOMPARE(d.worst, tolerance + 1);
    }

    void damageToOnePixelOfATextIsFoundBeyondItsTolerance() {
        const auto plot = allCharts().front().make();
        const auto texts = textBoxes(*plot);
        QVERIFY(!texts.isEmpty());
        const QImage picture = rendered(*plot, goldenWidth, goldenHeight);
        for (const QPolygonF& text : texts) {
            const QPoint where = text.boundingRect().center().toPoint();
            QVERIFY(difference(damaged(picture, where, textTolerance), picture, texts).isEmpty());
            QCOMPARE(difference(damaged(picture, where, textTolerance + 1), picture, texts).count,
                     1);
        }
    }

    void aPictureOfAnotherSizeIsDifferent() {
        const QImage picture(10, 10, QImage::Format_RGB32);
        QVERIFY(!difference(picture, QImage(10, 9, QImage::Format_RGB32), {}).isEmpty());
        QVERIFY(!difference(picture, QImage(), {}).isEmpty());
    }

    void textsTakeLittleOfAPicture() {
        // Where the loose tolerance held everywhere, nothing would be tested.
        for (const Chart& chart : allCharts()) {
            double area = 0.0;
            for (const QPolygonF& text : textBoxes(*chart.make())) {
                const QRectF box = text.boundingRect();
                area += box.width() * box.height();
            }
            QVERIFY2(area < 0.25 * goldenWidth * goldenHeight, chart.id);
        }
    }

    void theProgramWritesAllFilesAndAnIndexOfThem() {
        const QTemporaryDir dir;
        QProcess process;
        process.start(program, {QStringLiteral("--write"), dir.path()});
        QVERIFY(process.waitForFinished(120000));
        QCOMPARE(process.exitCode(), 0);
        QFile index(dir.filePath(QStringLiteral("index.html")));
        QVERIFY(index.open(QIODevice::ReadOnly));
        const QString html = QString::fromUtf8(index.readAll());
        for (const Chart& chart : allCharts()) {
            const QString png = idOf(chart) + QStringLiteral(".png");
            const QString svg = idOf(chart) + QStringLiteral(".svg");
            QVERIFY2(html.contains(png) && html.contains(svg), chart.id);
            QVERIFY2(!QImage(dir.filePath(png)).isNull(), chart.id);
            QFile file(dir.filePath(svg));
            QVERIFY2(file.open(QIODevice::ReadOnly), chart.id);
            QXmlStreamReader reader(&file);
            while (!reader.atEnd())
                reader.readNext();
            QVERIFY2(!reader.hasError(), chart.id);
        }
    }

    void withoutADisplayTheProgramWritesToOutAndSaysWhere() {
        const QTemporaryDir dir;
        QProcess process;
        auto environment = QProcessEnvironment::systemEnvironment();
        for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
            environment.remove(QString::fromLatin1(name));
        process.setProcessEnvironment(environment);
        process.setWorkingDirectory(dir.path());
        process.start(program, QStringList());
        QVERIFY(process.waitForFinished(120000));
        QCOMPARE(process.exitCode(), 0);
        const QString index = QString::fromUtf8(process.readAllStandardOutput()).trimmed();
        QVERIFY(QFile::exists(index));
        QCOMPARE(QFileInfo(index).canonicalFilePath(),
                 QFileInfo(dir.filePath(QStringLiteral("out/index.html"))).canonicalFilePath());
    }

    void aFolderThatCannotBeWrittenIsAnError() {
        const QTemporaryDir dir;
        QFile file(dir.filePath(QStringLiteral("file")));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QVERIFY(!writeGallery(file.fileName()));
        QVERIFY(!writeGoldens(file.fileName()));
        QProcess process;
        process.start(program, {QStringLiteral("--write"), file.fileName()});
        QVERIFY(process.waitForFinished(120000));
        QCOMPARE(process.exitCode(), 1);
        QVERIFY(process.readAllStandardError().contains("cannot write"));
    }

    void theWindowShowsTheChosenChart() {
        GalleryWindow window;
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QVERIFY(window.view()->plot());
        QSet<zembra::Plot*> seen;
        QTreeWidget& list = *window.list();
        QList<std::shared_ptr<zembra::Plot>> plots;
        for (int i = 0; i < list.topLevelItemCount(); ++i)
            for (int k = 0; k < list.topLevelItem(i)->childCount(); ++k) {
                QTreeWidgetItem* item = list.topLevelItem(i)->child(k);
                list.setCurrentItem(item);
                plots.append(window.view()->plot());
                QVERIFY(window.windowTitle().startsWith(item->text(0)));
                QVERIFY(!window.view()->grab().isNull());
            }
        QCOMPARE(plots.size(), allCharts().size());
        for (const auto& plot : plots)
            seen.insert(plot.get());
        QCOMPARE(seen.size(), plots.size());
    }
};

QTEST_MAIN(GalleryTest)

#include "gallery_test.moc"
