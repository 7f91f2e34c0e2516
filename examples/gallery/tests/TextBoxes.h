// SPDX-License-Identifier: MIT
#pragma once

#include <zembra/paint/Painter.h>

#include <QList>
#include <QPolygonF>
#include <QTransform>

namespace gallery {

/// Passes everything on to another painter and keeps where texts were drawn.
class TextBoxes : public zembra::Painter {
public:
    /// Requires: `target` outlives this.
    explicit TextBoxes(zembra::Painter& target) : target(target) {}

    /// Around each text, its accents and descenders included.
    const QList<QPolygonF>& boxes() const { return found; }

    void save() override;
    void restore() override;
    void setPen(const zembra::Pen& pen) override { target.setPen(pen); }
    void setBrush(const zembra::Brush& brush) override { target.setBrush(brush); }
    void setFont(const zembra::Font& font) override { target.setFont(font); }
    void drawLine(double x1, double y1, double x2, double y2) override {
        target.drawLine(x1, y1, x2, y2);
    }
    void drawRect(const zembra::Rect& rect) override { target.drawRect(rect); }
    void fillRect(const zembra::Rect& rect, const zembra::Color& color) override {
        target.fillRect(rect, color);
    }
    void drawPolyline(const std::vector<zembra::Point>& points) override {
        target.drawPolyline(points);
    }
    void fillPolygon(const std::vector<zembra::Point>& points,
                     const zembra::Color& color) override {
        target.fillPolygon(points, color);
    }
    void fillEllipse(double cx, double cy, double rx, double ry,
                     const zembra::Color& color) override {
        target.fillEllipse(cx, cy, rx, ry, color);
    }
    void drawEllipse(double cx, double cy, double rx, double ry) override {
        target.drawEllipse(cx, cy, rx, ry);
    }
    void drawImage(const unsigned char* rgba, int width, int height, double cx,
                   double cy) override {
        target.drawImage(rgba, width, height, cx, cy);
    }
    void drawText(double x, double y, const std::string& text, const zembra::Font& font,
                  const zembra::Color& color) override;
    void drawRotatedText(double x, double y, double angle, const std::string& text,
                         const zembra::Font& font, const zembra::Color& color) override;
    zembra::TextExtent measureText(const std::string& text, const zembra::Font& font) override {
        return target.measureText(text, font);
    }
    void translate(double dx, double dy) override;
    void rotate(double angle) override;
    void setClipRect(const zembra::Rect& rect) override;
    void clearClip() override;

private:
    void keep(double x, double y, double angle, const std::string& text, const zembra::Font& font);

    zembra::Painter& target;
    QList<QPolygonF> found;
    QTransform transform;
    QList<QTransform> saved;
};

} // namespace gallery
