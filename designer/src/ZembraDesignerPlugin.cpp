// SPDX-License-Identifier: MIT
#include "ZembraDesignerPlugin.h"

#include <ZembraGraphicsView.h>
#include <ZembraNavigationWidget.h>

#include <QIcon>

namespace zembra {

namespace {

/// One widget of the library in the terms of Qt Designer.
template <class Widget>
class WidgetDescription : public QDesignerCustomWidgetInterface {
public:
    WidgetDescription(QString header, QString objectName, const QSize& size, QString help)
        : headerName(std::move(header)),
          defaultName(std::move(objectName)),
          defaultSize(size),
          helpText(std::move(help)) {}

    QWidget* createWidget(QWidget* parent) override { return new Widget(parent); }
    QString name() const override {
        return QString::fromLatin1(Widget::staticMetaObject.className());
    }
    QString group() const override { return QStringLiteral("Zembra"); }
    QString includeFile() const override {
        return QLatin1Char('<') + headerName + QLatin1Char('>');
    }
    QString toolTip() const override { return helpText; }
    QString whatsThis() const override { return helpText; }
    QIcon icon() const override { return {}; }
    bool isContainer() const override { return false; }
    QString domXml() const override {
        return QStringLiteral("<ui language=\"c++\"><widget class=\"%1\" name=\"%2\">"
                              "<property name=\"geometry\"><rect><x>0</x><y>0</y>"
                              "<width>%3</width><height>%4</height></rect></property>"
                              "</widget></ui>")
            .arg(name(), defaultName)
            .arg(defaultSize.width())
            .arg(defaultSize.height());
    }

private:
    QString headerName;
    QString defaultName;
    QSize defaultSize;
    QString helpText;
};

} // namespace

ZembraDesignerPlugin::ZembraDesignerPlugin(QObject* parent)
    : QObject(parent),
      widgets{new WidgetDescription<ZembraGraphicsView>(
                  QStringLiteral("ZembraGraphicsView.h"), QStringLiteral("chartView"),
                  QSize(400, 300), tr("Shows a chart to zoom and pan")),
              new WidgetDescription<ZembraNavigationWidget>(
                  QStringLiteral("ZembraNavigationWidget.h"), QStringLiteral("navigationStrip"),
                  QSize(400, 28), tr("Tells about the controls of a chart"))} {}

ZembraDesignerPlugin::~ZembraDesignerPlugin() {
    qDeleteAll(widgets);
}

QList<QDesignerCustomWidgetInterface*> ZembraDesignerPlugin::customWidgets() const {
    return widgets;
}

} // namespace zembra
