// SPDX-License-Identifier: MIT
#pragma once

#include "Exporter.h"
#include "PlotColors.h"

#include <QDialog>

#include <optional>

class QComboBox;
class QLabel;
class QPushButton;
class QSpinBox;

namespace viewer {

/// Asks for size, resolution and ground of a picture. Remembers the resolution.
class ExportDialog : public QDialog {
    Q_OBJECT

public:
    enum class Purpose { Save, Copy };

    /// `shown` is the size that the chart has on screen, in logical pixels.
    ExportDialog(Purpose purpose, QSize shown, QWidget* parent = nullptr);

    PictureSize size() const;
    /// None keeps the ground that the chart has on screen.
    std::optional<Ground> ground() const;

    QSpinBox* widthBox() const { return width; }
    QSpinBox* heightBox() const { return height; }
    QSpinBox* resolutionBox() const { return resolution; }
    QComboBox* groundBox() const { return grounds; }

    void accept() override;

private:
    void showPixels();

    QSpinBox* width;
    QSpinBox* height;
    QSpinBox* resolution;
    QComboBox* grounds;
    QLabel* pixels;
    QPushButton* go = nullptr;
};

} // namespace viewer
