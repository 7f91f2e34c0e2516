// SPDX-License-Identifier: MIT
#include "window/ChartPage.h"

#include "Samples.h"
#include "window/ExportDialog.h"
#include "window/Printing.h"

#include <ZembraGraphicsView.h>

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QMenu>
#include <QMessageBox>
#include <QPrinter>
#include <QPushButton>
#include <QRegularExpression>
#include <QSettings>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QTest>

using viewer::ChartPage;
using viewer::ExportDialog;
using viewer::Ground;

namespace {

std::shared_ptr<zembra::Plot> somePlot() {
    return viewer::sampleCharts().front().plot;
}

QPalette paletteOf(const QColor& window, const QColor& text) {
    QPalette palette;
    palette.setColor(QPalette::Window, window);
    palette.setColor(QPalette::WindowText, text);
    return palette;
}

} // namespace

class ChartPageTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() {
        QCoreApplication::setOrganizationName(QStringLiteral("zembra-test"));
        QCoreApplication::setApplicationName(QStringLiteral("zembra-view-page-test"));
        QSettings::setDefaultFormat(QSettings::IniFormat);
        QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, folder.path());
    }

    void init() {
        QTest::failOnWarning(
            QRegularExpression(QStringLiteral("^(?!This plugin does not support)")));
        QSettings().clear();
    }

    void TheChartIsLightOrDarkAsThePalette() {
        ChartPage page(somePlot());
        page.setPalette(paletteOf(Qt::black, Qt::white));
        QCOMPARE(page.view()->plot()->theme().background, zembra::Theme::dark().background);
        page.setPalette(paletteOf(Qt::white, Qt::black));
        QCOMPARE(page.view()->plot()->theme().background, zembra::Theme::light().background);
    }

    void APictureHasTheSizeAndGroundThatWereChosen() {
        ChartPage page(somePlot());
        page.resize(500, 400);
        page.copyPicture({300, 200, 192}, Ground::Dark);
        const QImage copied = QApplication::clipboard()->image();
        QCOMPARE(copied.size(), QSize(600, 400));
        QVERIFY(copied.pixelColor(1, 1).lightness() < 100);
        // On screen nothing has changed.
        QCOMPARE(page.view()->plot()->theme().background, zembra::Theme::light().background);
    }

    void APictureThatCannotBeWrittenIsTold() {
        ChartPage page(somePlot());
        page.show();
        QVERIFY(QTest::qWaitForWindowExposed(&page));
        QVERIFY(!page.writePicture(folder.filePath(QStringLiteral("no/a.png")), {}, std::nullopt));
        const auto* const box = page.findChild<QMessageBox*>();
        QVERIFY(box && box->isVisible());
        QVERIFY(box->text().contains(QStringLiteral("a.png: cannot be written")));
        const QString good = folder.filePath(QStringLiteral("a.png"));
        QVERIFY(page.writePicture(good, {320, 200}, std::nullopt));
        QCOMPARE(QImage(good).size(), QSize(320, 200));
    }

    void TheDialogTellsHowManyPixelsThereWillBe() {
        ExportDialog dialog(ExportDialog::Purpose::Save, QSize(700, 400));
        dialog.resolutionBox()->setValue(96);
        QCOMPARE(dialog.size().pixelWidth(), 700);
        dialog.widthBox()->setValue(1000);
        dialog.resolutionBox()->setValue(288);
        QCOMPARE(dialog.size().pixelWidth(), 3000);
        QCOMPARE(dialog.size().pixelHeight(), 1200);
        QVERIFY(!dialog.ground());
        dialog.groundBox()->setCurrentIndex(2);
        QVERIFY(dialog.ground() == Ground::Dark);
    }

    void TheDialogRefusesPicturesThatAreTooLarge() {
        ExportDialog dialog(ExportDialog::Purpose::Copy, QSize(700, 400));
        dialog.widthBox()->setValue(10000);
        dialog.resolutionBox()->setValue(97);
        const auto accepting = [&dialog] {
            for (const QPushButton* const button : dialog.findChildren<QPushButton*>()) {
                if (button->isDefault())
                    return button->isEnabled();
            }
            return true;
        };
        QVERIFY(!accepting());
        dialog.resolutionBox()->setValue(96);
        QVERIFY(accepting());
    }

    void TheResolutionIsRemembered() {
        {
            ExportDialog dialog(ExportDialog::Purpose::Save, QSize(700, 400));
            dialog.resolutionBox()->setValue(300);
            dialog.accept();
        }
        QCOMPARE(ExportDialog(ExportDialog::Purpose::Copy, QSize(1, 1)).size().resolution, 300);
    }

    void AChartIsPrintedOntoAPage() {
        const QString path = folder.filePath(QStringLiteral("page.pdf"));
        QPrinter printer;
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(path);
        printer.setPageSize(QPageSize(QPageSize::A4));
        QVERIFY(viewer::printPlot(*somePlot(), QSize(800, 500), printer));
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QByteArray pdf = file.readAll();
        QVERIFY(pdf.startsWith("%PDF-"));
        QVERIFY(pdf.contains("/Count 1"));
        // The chart itself, not an empty page.
        QVERIFY(pdf.size() > 5000);
        QVERIFY(!viewer::printPlot(*somePlot(), QSize(), printer));
    }

    void TheContextMenuHoldsAllActionsOfTheChart() {
        ChartPage page(somePlot());
        QMenu menu;
        page.fillMenu(menu);
        for (QAction* const action : page.view()->navigationActions())
            QVERIFY(menu.actions().contains(action));
        QStringList texts;
        for (const QAction* const action : menu.actions())
            texts.append(action->text());
        for (const char* const text :
             {"Copy Picture", "Copy Picture As…", "Save Picture As…", "Print…", "Choose &Columns…"})
            QVERIFY2(texts.contains(QString::fromUtf8(text)), text);
    }

private:
    QTemporaryDir folder;
};

QTEST_MAIN(ChartPageTest)
#include "ChartPage_test.moc"
