// SPDX-License-Identifier: MIT
// A second core, as small as it can be: what the Qt layer may ask of a core, and nothing else.
#include <zembra/chart/Plot.h>
#include <zembra/paint/RenderSurface.h>

#include <cmath>
#include <fstream>
#include <iterator>

namespace zembra {

namespace {

struct Face {
    const char* name;
    const char* file;
};

constexpr std::array<Face, 8> faces{{
    {"Lato", ZEMBRA_FACE_0},
    {"Lato Bold", ZEMBRA_FACE_1},
    {"Lato Italic", ZEMBRA_FACE_2},
    {"Lato Bold Italic", ZEMBRA_FACE_3},
    {"DejaVu Serif", ZEMBRA_FACE_4},
    {"DejaVu Serif Bold", ZEMBRA_FACE_5},
    {"DejaVu Serif Oblique", ZEMBRA_FACE_6},
    {"DejaVu Serif Bold Oblique", ZEMBRA_FACE_7},
}};

using Bytes = std::shared_ptr<const std::vector<std::uint8_t>>;

Bytes faceBytes(std::size_t face) {
    static std::array<Bytes, faces.size()> read;
    if (!read.at(face)) {
        std::ifstream file(faces.at(face).file, std::ios::binary);
        read.at(face) = std::make_shared<std::vector<std::uint8_t>>(
            std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
    }
    return read.at(face);
}

// Powers that are too small to be told from 0 lie outside a logarithmic scale.
double valueAt(double first, double second, bool isLog, double share) {
    if (!isLog)
        return first * (1.0 - share) + second * share;
    const double value = first * std::pow(second / first, share);
    return value > 0.0 ? value : std::nan("");
}

double shareOf(double first, double second, bool isLog, double value) {
    return isLog ? std::log(value / first) / std::log(second / first)
                 : (value - first) / (second - first);
}

constexpr double left = 48.0;
constexpr double top = 16.0;
constexpr double right = 16.0;
constexpr double bottom = 32.0;

} // namespace

Font::Font() : Font(10.0) {}

Font::Font(double pixels) {
    *this = defaultFont(FontFamily::LatoRegular, pixels);
}

Font::Font(const std::vector<std::uint8_t>& ttf, double pixels, const std::string& familyName)
    : bytes(std::make_shared<std::vector<std::uint8_t>>(ttf)),
      name(familyName),
      size(pixels),
      face(FontFamily::Custom) {}

Font Font::defaultFont(FontFamily family, double pixels) {
    auto number = static_cast<std::size_t>(family);
    number = number < faces.size() ? number : 0;
    Font font({}, pixels, faces.at(number).name);
    font.bytes = faceBytes(number);
    font.face = static_cast<FontFamily>(number);
    return font;
}

double ScaleMap::invTransform(double pixel) const {
    // The ends exactly, and without a difference that is beyond the largest double.
    if (pixel == pixel1)
        return value1;
    if (pixel == pixel2)
        return value2;
    return valueAt(value1, value2, isLog, (pixel - pixel1) / (pixel2 - pixel1));
}

Rect Plot::canvasRect() const {
    const double width = laidOutWidth - left - right;
    const double height = laidOutHeight - top - bottom;
    return width > 0.0 && height > 0.0 ? Rect{left, top, width, height} : Rect{0.0, 0.0, 0.0, 0.0};
}

ScaleMap Plot::scaleMap(int axis) const {
    const AxisState& state = axes.at(static_cast<std::size_t>(axis));
    const Rect canvas = canvasRect();
    ScaleMap map;
    map.pixel1 = axis < 2 ? canvas.y + canvas.height : canvas.x;
    map.pixel2 = axis < 2 ? canvas.y : canvas.x + canvas.width;
    map.value1 = state.first;
    map.value2 = state.second;
    map.isLog = state.isLog;
    return map;
}

bool Plot::axisEnabled(int axis) const {
    return axis >= 0 && axis < 4 && axes.at(static_cast<std::size_t>(axis)).isShown;
}

void Plot::setAxisScale(int axis, double min, double max, double /*step*/) {
    AxisState& state = axes.at(static_cast<std::size_t>(axis));
    if (!std::isfinite(min) || !std::isfinite(max) || min == max)
        return;
    state.first = min;
    state.second = max;
    state.isAuto = false;
}

void Plot::setAxisAutoScale(int axis, bool on) {
    AxisState& state = axes.at(static_cast<std::size_t>(axis));
    state.isAuto = on;
    if (on) {
        state.first = axis < 2 ? -100.0 : 0.0;
        state.second = axis < 2 ? 100.0 : 10.0;
    }
}

void Plot::renderInto(Painter& painter, int width, int height) {
    laidOutWidth = width;
    laidOutHeight = height;
    const Rect canvas = canvasRect();
    if (isBare || canvas.width <= 0.0)
        return;
    const Color ink(20, 40, 90);
    painter.fillRect({0.0, 0.0, 1.0 * width, 1.0 * height}, Color(255, 255, 255));
    painter.save();
    painter.setPen(Pen());
    painter.drawRect(canvas);
    const Font font(12.0);
    for (const int axis : {0, 2}) {
        const AxisState& state = axes.at(static_cast<std::size_t>(axis));
        if (!state.isShown)
            continue;
        const std::string text = std::to_string(state.first) + " " + std::to_string(state.second);
        const TextExtent extent = painter.measureText(text.substr(0, 12), font);
        if (axis == 2)
            painter.drawText(canvas.x, canvas.y + canvas.height + extent.height, text.substr(0, 12),
                             font, ink);
        else
            painter.drawRotatedText(canvas.x - 4.0, canvas.y + canvas.height, -1.5707963267948966,
                                    text.substr(0, 12), font, ink);
    }
    painter.setClipRect(canvas);
    std::vector<Point> curve;
    const ScaleMap map = scaleMap(2);
    const AxisState& y = axes.at(0);
    for (double pixel = canvas.x; pixel <= canvas.x + canvas.width; pixel += 1.0) {
        const double value = 100.0 * std::sin(map.invTransform(pixel));
        const double share = shareOf(y.first, y.second, y.isLog, value);
        if (std::abs(share) < 4.0)
            curve.push_back({pixel, canvas.y + canvas.height * (1.0 - share)});
    }
    painter.drawPolyline(curve);
    painter.clearClip();
    painter.restore();
}

} // namespace zembra
