// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

class QTreeWidget;
class QTreeWidgetItem;

namespace zembra {
class ZembraGraphicsView;
}

namespace gallery {

/// The list of all charts, and the chosen one in an interactive view below its navigation strip.
class GalleryWindow : public QWidget {
public:
    explicit GalleryWindow(QWidget* parent = nullptr);

    QTreeWidget* list() const { return charts; }
    zembra::ZembraGraphicsView* view() const { return graphicsView; }

private:
    void showChart(const QTreeWidgetItem* item);

    QTreeWidget* charts;
    zembra::ZembraGraphicsView* graphicsView;
};

} // namespace gallery
