// SPDX-License-Identifier: MIT
#include "RecordingPainter.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace zembra::test {

namespace {

std::string color(const Color& c) {
    char text[16];
    std::snprintf(text, sizeof text, c.alpha() == 255 ? "#%02x%02x%02x" : "#%02x%02x%02x%02x",
                  c.red(), c.green(), c.blue(), c.alpha());
    return text;
}

std::string quoted(const std::string& text) {
    return '"' + text + '"';
}

} // namespace

std::string RecordingPainter::number(double value) {
    if (!std::isfinite(value) || std::abs(value) > 16000.0)
        wild = true;
    char text[400];
    std::snprintf(text, sizeof text, "%.2f", value);
    std::string result = text;
    if (result.find('.') != std::string::npos) {
        result.erase(result.find_last_not_of('0') + 1);
        if (result.back() == '.')
            result.pop_back();
    }
    return result == "-0" ? "0" : result;
}

std::string RecordingPainter::point(const Point& p) {
    ++vertexCount;
    return number(p.x) + ',' + number(p.y);
}

std::string RecordingPainter::rect(const Rect& r) {
    vertexCount += 4;
    return number(r.x) + ',' + number(r.y) + ' ' + number(r.width) + 'x' + number(r.height);
}

std::string RecordingPainter::points(const std::vector<Point>& list) {
    std::string result;
    for (const Point& p : list)
        result += ' ' + point(p);
    return result;
}

std::string RecordingPainter::font(const Font& f) {
    std::string result = quoted(f.familyName()) + ' ' + number(f.pixelSize());
    if (f.bold())
        result += " bold";
    if (f.italic())
        result += " italic";
    return result;
}

std::string RecordingPainter::text() const {
    std::string result;
    for (const std::string& line : written)
        result += line + '\n';
    return result;
}

std::vector<std::string> RecordingPainter::linesOf(std::string_view operation) const {
    std::vector<std::string> result;
    std::copy_if(written.begin(), written.end(), std::back_inserter(result),
                 [operation](const std::string& line) {
                     return std::string_view(line).substr(0, line.find(' ')) == operation;
                 });
    return result;
}

std::size_t RecordingPainter::count(std::string_view operation) const {
    return operation.empty() ? written.size() : linesOf(operation).size();
}

void RecordingPainter::clear() {
    written.clear();
    vertexCount = 0;
    measureCount = 0;
    wild = false;
}

void RecordingPainter::save() {
    written.push_back("save");
}

void RecordingPainter::restore() {
    written.push_back("restore");
}

void RecordingPainter::setPen(const Pen& pen) {
    std::string line = "setPen " + color(pen.color()) + ' ' + number(pen.widthF());
    if (!pen.dashPattern().empty()) {
        line += " dashes";
        for (double length : pen.dashPattern())
            line += ' ' + number(length);
    } else if (pen.style() != PenStyle::Solid) {
        line += " style " + std::to_string(static_cast<int>(pen.style()));
    }
    written.push_back(line);
}

void RecordingPainter::setBrush(const Brush& brush) {
    written.push_back("setBrush " + color(brush.color()));
}

void RecordingPainter::setFont(const Font& f) {
    written.push_back("setFont " + font(f));
}

void RecordingPainter::drawLine(double x1, double y1, double x2, double y2) {
    written.push_back("drawLine " + point({x1, y1}) + ' ' + point({x2, y2}));
}

void RecordingPainter::drawRect(const Rect& r) {
    written.push_back("drawRect " + rect(r));
}

void RecordingPainter::fillRect(const Rect& r, const Color& c) {
    written.push_back("fillRect " + rect(r) + ' ' + color(c));
}

void RecordingPainter::drawPolyline(const std::vector<Point>& list) {
    written.push_back("drawPolyline" + points(list));
}

void RecordingPainter::fillPolygon(const std::vector<Point>& list, const Color& c) {
    written.push_back("fillPolygon " + color(c) + points(list));
}

void RecordingPainter::fillEllipse(double cx, double cy, double rx, double ry, const Color& c) {
    written.push_back("fillEllipse " + point({cx, cy}) + ' ' + number(rx) + 'x' + number(ry) + ' ' +
                      color(c));
}

void RecordingPainter::drawEllipse(double cx, double cy, double rx, double ry) {
    written.push_back("drawEllipse " + point({cx, cy}) + ' ' + number(rx) + 'x' + number(ry));
}

void RecordingPainter::drawImage(const unsigned char*, int width, int height, double cx,
                                 double cy) {
    written.push_back("drawImage " + std::to_string(width) + 'x' + std::to_string(height) + ' ' +
                      point({cx, cy}));
}

void RecordingPainter::drawText(double x, double y, const std::string& text, const Font& f,
                                const Color& c) {
    written.push_back("drawText " + point({x, y}) + ' ' + quoted(text) + ' ' + font(f) + ' ' +
                      color(c));
}

void RecordingPainter::drawRotatedText(double x, double y, double angle, const std::string& text,
                                       const Font& f, const Color& c) {
    written.push_back("drawRotatedText " + point({x, y}) + " angle " + number(angle) + ' ' +
                      quoted(text) + ' ' + font(f) + ' ' + color(c));
}

TextExtent RecordingPainter::measureText(const std::string& text, const Font& f) {
    ++measureCount;
    const auto codePoints = std::count_if(text.begin(), text.end(), [](char byte) {
        return (static_cast<unsigned char>(byte) & 0xC0u) != 0x80u;
    });
    return {0.6 * f.pixelSize() * static_cast<double>(codePoints), f.pixelSize()};
}

void RecordingPainter::translate(double dx, double dy) {
    written.push_back("translate " + number(dx) + ' ' + number(dy));
}

void RecordingPainter::rotate(double angle) {
    written.push_back("rotate " + number(angle));
}

void RecordingPainter::setClipRect(const Rect& r) {
    written.push_back("setClipRect " + rect(r));
}

void RecordingPainter::clearClip() {
    written.push_back("clearClip");
}

} // namespace zembra::test
