// SPDX-License-Identifier: MIT
#pragma once

#include <zembra/paint/Font.h>

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace zembra {

class Color {
public:
    explicit Color(int red, int green, int blue, int alpha = 255)
        : bits(static_cast<std::uint32_t>(red) << 24 | static_cast<std::uint32_t>(green) << 16 |
               static_cast<std::uint32_t>(blue) << 8 | static_cast<std::uint32_t>(alpha)) {}

    std::uint8_t red() const { return static_cast<std::uint8_t>(bits >> 24); }
    std::uint8_t green() const { return static_cast<std::uint8_t>(bits >> 16); }
    std::uint8_t blue() const { return static_cast<std::uint8_t>(bits >> 8); }
    std::uint8_t alpha() const { return static_cast<std::uint8_t>(bits); }

#ifndef ZEMBRA_CONTRACT_ONLY
    Color withAlpha(int alpha) const {
        return Color(red(), green(), blue(), alpha);
    }
#endif

private:
    std::uint32_t bits;
};

enum class PenStyle : int { Solid = 1 };

class Pen {
public:
    Pen() = default;
    Color color() const { return ink; }
    double widthF() const { return width; }
    PenStyle style() const { return lineStyle; }
    std::vector<double> dashPattern() const { return dashes; }

#ifndef ZEMBRA_CONTRACT_ONLY
    Pen(const Color& color, double widthF = 1.0) : ink(color), width(widthF) {}
    void setStyle(PenStyle style) {
        lineStyle = style;
    }
    void setDashPattern(std::vector<double> pattern) {
        dashes = std::move(pattern);
    }
#endif

private:
    Color ink{0, 0, 0};
    double width = 1.0;
    PenStyle lineStyle = PenStyle::Solid;
    std::vector<double> dashes;
};

class Brush {
public:
    Brush() = default;
    Color color() const { return ink; }

#ifndef ZEMBRA_CONTRACT_ONLY
    explicit Brush(const Color& color) : ink(color) {}
#endif

private:
    Color ink{0, 0, 0};
};

struct Point {
    double x;
    double y;
};

struct Rect {
    double x;
    double y;
    double width;
    double height;
};

struct TextExtent {
    double width;
    double height;

#ifndef ZEMBRA_CONTRACT_ONLY
    friend bool operator==(const TextExtent&, const TextExtent&) = default;
#endif
};

class Painter {
public:
    virtual ~Painter() = default;
    virtual void save() = 0;
    virtual void restore() = 0;
    virtual void setPen(const Pen& pen) = 0;
    virtual void setBrush(const Brush& brush) = 0;
    virtual void setFont(const Font& font) = 0;
    virtual void drawLine(double x1, double y1, double x2, double y2) = 0;
    virtual void drawRect(const Rect& rect) = 0;
    virtual void fillRect(const Rect& rect, const Color& color) = 0;
    virtual void drawPolyline(const std::vector<Point>& points) = 0;
    virtual void fillPolygon(const std::vector<Point>& points, const Color& color) = 0;
    virtual void fillEllipse(double cx, double cy, double rx, double ry, const Color& color) = 0;
    virtual void drawEllipse(double cx, double cy, double rx, double ry) = 0;
    virtual void drawImage(const unsigned char* rgba, int width, int height, double cx,
                           double cy) = 0;
    virtual void drawText(double x, double y, const std::string& text, const Font& font,
                          const Color& color) = 0;
    virtual void drawRotatedText(double x, double y, double angle, const std::string& text,
                                 const Font& font, const Color& color) = 0;
    virtual TextExtent measureText(const std::string& text, const Font& font) = 0;
    virtual void translate(double dx, double dy) = 0;
    virtual void rotate(double angle) = 0;
    virtual void setClipRect(const Rect& rect) = 0;
    virtual void clearClip() = 0;
};

} // namespace zembra
