// SPDX-License-Identifier: MIT
#include "ui_chart.h"

#include <zembra/series/LineSeries.h>

#include <QFile>
#include <QImage>
#include <QPluginLoader>
#include <QRegularExpression>
#include <QTest>
#include <QUiLoader>
#include <QXmlStreamReader>
#include <QtUiPlugin/QDesignerCustomWidgetCollectionInterface>

using zembra::ZembraGraphicsView;
using zembra::ZembraNavigationWidget;

class PluginTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        // But for what the platform without a screen says of each window with a least size.
        QTest::failOnWarning(QRegularExpression(QStringLiteral("^(?!This plugin does not )")));
    }

    void aFormIsLoadedWithViewAndStrip() {
        QUiLoader loader;
        loader.clearPluginPaths();
        QVERIFY(!loader.availableWidgets().contains(QStringLiteral("zembra::ZembraGraphicsView")));
        loader.addPluginPath(QStringLiteral(PLUGIN_FOLDER));
        QFile file(QStringLiteral(FORM_FILE));
        QVERIFY(file.open(QIODevice::ReadOnly));
        const std::unique_ptr<QWidget> form(loader.load(&file));
        QVERIFY2(form != nullptr, qPrintable(loader.errorString()));

        auto* view = form->findChild<ZembraGraphicsView*>(QStringLiteral("chart"));
        auto* strip = form->findChild<ZembraNavigationWidget*>(QStringLiteral("strip"));
        QVERIFY(view);
        QVERIFY(strip);
        QCOMPARE(view->toolTip(), QStringLiteral("A chart from a form"));
        showsAChart(*form, *view, *strip);
    }

    void aCompiledFormHasThemToo() {
        QWidget form;
        Ui::ChartForm ui;
        ui.setupUi(&form);
        showsAChart(form, *ui.chart, *ui.strip);
    }

    void eachWidgetIsDescribedForTheDesigner() {
        const QDir folder(QStringLiteral(PLUGIN_FOLDER));
        const QStringList files = folder.entryList({QStringLiteral("*zembradesigner*")});
        QCOMPARE(files.size(), 1);
        QPluginLoader plugin(folder.filePath(files.first()));
        auto* collection =
            qobject_cast<QDesignerCustomWidgetCollectionInterface*>(plugin.instance());
        QVERIFY2(collection, qPrintable(plugin.errorString()));
        QStringList names;
        for (QDesignerCustomWidgetInterface* description : collection->customWidgets()) {
            names << description->name();
            const std::unique_ptr<QWidget> widget(description->createWidget(nullptr));
            QCOMPARE(QString::fromLatin1(widget->metaObject()->className()), description->name());
            QCOMPARE(description->includeFile(),
                     QLatin1Char('<') + description->name().section(QStringLiteral("::"), 1) +
                         QStringLiteral(".h>"));
            QXmlStreamReader xml(description->domXml());
            QStringList classes;
            while (!xml.atEnd())
                if (xml.readNext() == QXmlStreamReader::StartElement &&
                    xml.name() == QStringLiteral("widget"))
                    classes << xml.attributes().value(QStringLiteral("class")).toString();
            QVERIFY2(!xml.hasError(), qPrintable(xml.errorString()));
            QCOMPARE(classes, QStringList{description->name()});
        }
        QCOMPARE(names, (QStringList{QStringLiteral("zembra::ZembraGraphicsView"),
                                     QStringLiteral("zembra::ZembraNavigationWidget")}));
    }

private:
    static void showsAChart(QWidget& form, ZembraGraphicsView& view,
                            ZembraNavigationWidget& strip) {
        auto plot = std::make_shared<zembra::Plot>();
        auto line = plot->add<zembra::LineSeries>(std::vector{0.0, 1.0}, std::vector{0.0, 1.0});
        line->setColor(zembra::Color(255, 0, 0));
        line->setWidth(5.0);
        view.setPlot(plot);
        strip.setGraphicsView(&view);
        QCOMPARE(strip.navigationController(), view.navigationController());
        const QImage picture = form.grab().toImage();
        bool hasLine = false;
        for (int y = 0; y < picture.height() && !hasLine; ++y)
            for (int x = 0; x < picture.width() && !hasLine; ++x)
                hasLine = picture.pixelColor(x, y) == QColor(255, 0, 0);
        QVERIFY(hasLine);
    }
};

QTEST_MAIN(PluginTest)
#include "Plugin_test.moc"
