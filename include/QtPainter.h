// SPDX-License-Identifier: MIT
#pragma once

#include <qzembra_export.h>

#include <zembra/paint/Painter.h>

#include <QtGlobal>

#include <memory>

QT_BEGIN_NAMESPACE
class QPainter;
QT_END_NAMESPACE

namespace zembra {

/// Draws the core's primitives with a `QPainter` that somebody else owns.
///
/// Made for one round of painting, on the thread of the `QPainter`; not copyable. It converts and
/// forwards and never tidies up: a primitive leaves the pen, brush and font of the `QPainter` as it
/// needed them. Outlines apply the last pen that was set here before they draw, so neither fills
/// and text nor `restore` and `clearClip` change the pen of a later outline.
class QZEMBRA_EXPORT QtPainter : public Painter {
public:
    /// Switches on anti-aliasing of shapes and text; they stay on.
    ///
    /// Requires: `painter` is active and outlives this object.
    explicit QtPainter(QPainter& painter);
    ~QtPainter() override;
    QtPainter(const QtPainter&) = delete;
    QtPainter& operator=(const QtPainter&) = delete;

    void save() override;
    void restore() override;

    void setPen(const Pen& pen) override;
    void setBrush(const Brush& brush) override;
    void setFont(const Font& font) override;

    void drawLine(double x1, double y1, double x2, double y2) override;
    void drawRect(const Rect& rect) override;
    void fillRect(const Rect& rect, const Color& color) override;
    void drawPolyline(const std::vector<Point>& points) override;
    void fillPolygon(const std::vector<Point>& points, const Color& color) override;
    void fillEllipse(double cx, double cy, double rx, double ry, const Color& color) override;
    void drawEllipse(double cx, double cy, double rx, double ry) override;
    /// A picture at natural size, centred on (cx, cy); null or without area draws nothing.
    ///
    /// The bytes are read during the call only. The last picture is remembered by pointer and size,
    /// never by content: changed pixels need another buffer. Requires the GUI thread.
    void drawImage(const unsigned char* rgba, int width, int height, double cx, double cy) override;
    void drawText(double x, double y, const std::string& text, const Font& font,
                  const Color& color) override;
    void drawRotatedText(double x, double y, double angle, const std::string& text,
                         const Font& font, const Color& color) override;
    TextExtent measureText(const std::string& text, const Font& font) override;

    void translate(double dx, double dy) override;
    void rotate(double angle) override;

    /// Saves the state of the `QPainter` and replaces its clip.
    void setClipRect(const Rect& rect) override;
    /// Restores what the last `setClipRect` saved.
    void clearClip() override;

private:
    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace zembra
