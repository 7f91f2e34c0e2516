// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QtUiPlugin/QDesignerCustomWidgetCollectionInterface>

namespace zembra {

/// Offers the view and the navigation strip to Qt Designer and to `QUiLoader`. Made by Qt when it
/// loads the plugin.
class ZembraDesignerPlugin : public QObject, public QDesignerCustomWidgetCollectionInterface {
    Q_OBJECT
    Q_INTERFACES(QDesignerCustomWidgetCollectionInterface)
    Q_PLUGIN_METADATA(IID "org.qt-project.Qt.QDesignerCustomWidgetCollectionInterface")

public:
    explicit ZembraDesignerPlugin(QObject* parent = nullptr);
    ~ZembraDesignerPlugin() override;

    QList<QDesignerCustomWidgetInterface*> customWidgets() const override;

private:
    QList<QDesignerCustomWidgetInterface*> widgets;
};

} // namespace zembra
