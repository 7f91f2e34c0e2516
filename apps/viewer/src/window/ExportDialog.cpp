// SPDX-License-Identifier: MIT
#include "window/ExportDialog.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QPushButton>
#include <QSettings>
#include <QSpinBox>

#include <algorithm>

namespace viewer {

namespace {

constexpr int smallestSide = 16;
constexpr int defaultResolution = 192;
constexpr int leastResolution = 24;
constexpr int mostResolution = 2400;

QString resolutionKey() {
    return QStringLiteral("export/resolution");
}

QSpinBox* sideBox(int value, QWidget* parent) {
    auto* const box = new QSpinBox(parent);
    box->setRange(smallestSide, largestPictureSide);
    box->setValue(value);
    return box;
}

} // namespace

ExportDialog::ExportDialog(Purpose purpose, QSize shown, QWidget* parent)
    : QDialog(parent),
      width(sideBox(shown.width(), this)),
      height(sideBox(shown.height(), this)),
      resolution(new QSpinBox(this)),
      grounds(new QComboBox(this)),
      pixels(new QLabel(this)) {
    const bool saves = purpose == Purpose::Save;
    setWindowTitle(saves ? tr("Save Picture") : tr("Copy Picture"));
    width->setSuffix(tr(" px"));
    height->setSuffix(tr(" px"));
    resolution->setRange(leastResolution, mostResolution);
    resolution->setSingleStep(24);
    resolution->setSuffix(tr(" dpi"));
    resolution->setValue(QSettings().value(resolutionKey(), defaultResolution).toInt());
    resolution->setToolTip(
        tr("Pixels per inch; 96 are as many as on a plain screen. Drawings (SVG, "
           "PDF) are sharp at any resolution."));
    grounds->addItem(tr("As on screen"));
    grounds->addItem(tr("Light"), static_cast<int>(Ground::Light));
    grounds->addItem(tr("Dark"), static_cast<int>(Ground::Dark));

    auto* const form = new QFormLayout(this);
    form->addRow(tr("&Width:"), width);
    form->addRow(tr("&Height:"), height);
    form->addRow(tr("&Resolution:"), resolution);
    form->addRow(tr("&Colors:"), grounds);
    form->addRow(QString(), pixels);
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Cancel, this);
    go = buttons->addButton(saves ? tr("&Save…") : tr("C&opy"), QDialogButtonBox::AcceptRole);
    go->setDefault(true);
    form->addRow(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &ExportDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &ExportDialog::reject);
    for (const QSpinBox* const box : {width, height, resolution})
        connect(box, &QSpinBox::valueChanged, this, &ExportDialog::showPixels);
    showPixels();
}

PictureSize ExportDialog::size() const {
    return {width->value(), height->value(), resolution->value()};
}

std::optional<Ground> ExportDialog::ground() const {
    const QVariant chosen = grounds->currentData();
    return chosen.isValid() ? std::optional(static_cast<Ground>(chosen.toInt())) : std::nullopt;
}

void ExportDialog::accept() {
    QSettings().setValue(resolutionKey(), resolution->value());
    QDialog::accept();
}

void ExportDialog::showPixels() {
    const PictureSize chosen = size();
    const double largest = std::max(chosen.width, chosen.height) * chosen.resolution / 96.0;
    const bool fits = largest <= largestPictureSide;
    pixels->setText(fits ? tr("%1 × %2 pixels").arg(chosen.pixelWidth()).arg(chosen.pixelHeight())
                         : tr("Too large: at most %1 pixels to a side").arg(largestPictureSide));
    go->setEnabled(fits);
}

} // namespace viewer
