// SPDX-License-Identifier: MIT
#include "TextBoxes.h"

namespace gallery {

void TextBoxes::save() {
    saved.append(transform);
    target.save();
}

void TextBoxes::restore() {
    transform = saved.takeLast();
    target.restore();
}

void TextBoxes::drawText(double x, double y, const std::string& text, const zembra::Font& font,
                         const zembra::Color& color) {
    keep(x, y, 0.0, text, font);
    target.drawText(x, y, text, font, color);
}

void TextBoxes::drawRotatedText(double x, double y, double angle, const std::string& text,
                                const zembra::Font& font, const zembra::Color& color) {
    keep(x, y, angle, text, font);
    target.drawRotatedText(x, y, angle, text, font, color);
}

void TextBoxes::translate(double dx, double dy) {
    transform.translate(dx, dy);
    target.translate(dx, dy);
}

void TextBoxes::rotate(double angle) {
    transform.rotateRadians(angle);
    target.rotate(angle);
}

void TextBoxes::setClipRect(const zembra::Rect& rect) {
    // Clearing the clip undoes every change since.
    saved.append(transform);
    target.setClipRect(rect);
}

void TextBoxes::clearClip() {
    transform = saved.takeLast();
    target.clearClip();
}

void TextBoxes::keep(double x, double y, double angle, const std::string& text,
                     const zembra::Font& font) {
    const zembra::TextExtent extent = target.measureText(text, font);
    QTransform placed = transform;
    placed.translate(x, y);
    placed.rotateRadians(angle);
    found.append(placed.map(
        QPolygonF(QRectF(-1.0, -extent.height, extent.width + 2.0, 1.35 * extent.height))));
}

} // namespace gallery
