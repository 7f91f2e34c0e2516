// SPDX-License-Identifier: MIT
#include <zembra/paint/Painter.h>

#include "Slots.h"

#include <gtest/gtest.h>

#include <memory>
#include <new>
#include <type_traits>

using namespace zembra;

namespace {

/// Notes which operation was reached, and looks at no argument.
class NamingPainter : public Painter {
public:
    explicit NamingPainter(std::vector<std::string>& names) : names(names) {}
    ~NamingPainter() override { names.emplace_back("destructor"); }

    void save() override { names.emplace_back("save"); }
    void restore() override { names.emplace_back("restore"); }
    void setPen(const Pen&) override { names.emplace_back("setPen"); }
    void setBrush(const Brush&) override { names.emplace_back("setBrush"); }
    void setFont(const Font&) override { names.emplace_back("setFont"); }
    void drawLine(double, double, double, double) override { names.emplace_back("drawLine"); }
    void drawRect(const Rect&) override { names.emplace_back("drawRect"); }
    void fillRect(const Rect&, const Color&) override { names.emplace_back("fillRect"); }
    void drawPolyline(const std::vector<Point>&) override { names.emplace_back("drawPolyline"); }
    void fillPolygon(const std::vector<Point>&, const Color&) override {
        names.emplace_back("fillPolygon");
    }
    void fillEllipse(double, double, double, double, const Color&) override {
        names.emplace_back("fillEllipse");
    }
    void drawEllipse(double, double, double, double) override { names.emplace_back("drawEllipse"); }
    void drawImage(const unsigned char*, int, int, double, double) override {
        names.emplace_back("drawImage");
    }
    void drawText(double, double, const std::string&, const Font&, const Color&) override {
        names.emplace_back("drawText");
    }
    void drawRotatedText(double, double, double, const std::string&, const Font&,
                         const Color&) override {
        names.emplace_back("drawRotatedText");
    }
    TextExtent measureText(const std::string&, const Font&) override {
        names.emplace_back("measureText");
        return {};
    }
    void translate(double, double) override { names.emplace_back("translate"); }
    void rotate(double) override { names.emplace_back("rotate"); }
    void setClipRect(const Rect&) override { names.emplace_back("setClipRect"); }
    void clearClip() override { names.emplace_back("clearClip"); }

private:
    std::vector<std::string>& names;
};

} // namespace

TEST(Painter, VirtualTableHasTheOperationsInTheirAgreedOrder) {
    std::vector<std::string> names;
    NamingPainter painter(names);
    const Slots slots(painter);
    const std::vector<std::string> expected = {
        "save",        "restore",     "setPen",    "setBrush",     "setFont",
        "drawLine",    "drawRect",    "fillRect",  "drawPolyline", "fillPolygon",
        "fillEllipse", "drawEllipse", "drawImage", "drawText",     "drawRotatedText",
        "measureText", "translate",   "rotate",    "setClipRect",  "clearClip",
    };
    for (std::size_t i = 0; i < expected.size(); ++i)
        slots.call(static_cast<int>(i) + 2, painter);
    EXPECT_EQ(names, expected);
}

TEST(Painter, VirtualTableBeginsWithTheDestructor) {
    std::vector<std::string> names;
    alignas(NamingPainter) unsigned char room[sizeof(NamingPainter)];
    auto* inPlace = new (room) NamingPainter(names);
    Slots(*inPlace).call(0, *inPlace);
    EXPECT_EQ(names, (std::vector<std::string>{"destructor"}));
    auto* onHeap = new NamingPainter(names);
    Slots(*onHeap).call(1, *onHeap);
    EXPECT_EQ(names, (std::vector<std::string>{"destructor", "destructor"}));
}

TEST(Painter, IsDestroyedThroughItsBase) {
    std::vector<std::string> names;
    std::unique_ptr<Painter> painter = std::make_unique<NamingPainter>(names);
    painter.reset();
    EXPECT_EQ(names, (std::vector<std::string>{"destructor"}));
}

// The parts of a signature that a table of addresses does not show.
static_assert(sizeof(Painter) == sizeof(void*), "no base class and no data");
static_assert(std::is_abstract_v<Painter> && std::has_virtual_destructor_v<Painter>);
static_assert(std::is_same_v<decltype(&Painter::save), void (Painter::*)()>);
static_assert(std::is_same_v<decltype(&Painter::restore), void (Painter::*)()>);
static_assert(std::is_same_v<decltype(&Painter::setPen), void (Painter::*)(const Pen&)>);
static_assert(std::is_same_v<decltype(&Painter::setBrush), void (Painter::*)(const Brush&)>);
static_assert(std::is_same_v<decltype(&Painter::setFont), void (Painter::*)(const Font&)>);
static_assert(std::is_same_v<decltype(&Painter::drawLine),
                             void (Painter::*)(double, double, double, double)>);
static_assert(std::is_same_v<decltype(&Painter::drawRect), void (Painter::*)(const Rect&)>);
static_assert(
    std::is_same_v<decltype(&Painter::fillRect), void (Painter::*)(const Rect&, const Color&)>);
static_assert(
    std::is_same_v<decltype(&Painter::drawPolyline), void (Painter::*)(const std::vector<Point>&)>);
static_assert(std::is_same_v<decltype(&Painter::fillPolygon),
                             void (Painter::*)(const std::vector<Point>&, const Color&)>);
static_assert(std::is_same_v<decltype(&Painter::fillEllipse),
                             void (Painter::*)(double, double, double, double, const Color&)>);
static_assert(std::is_same_v<decltype(&Painter::drawEllipse),
                             void (Painter::*)(double, double, double, double)>);
static_assert(std::is_same_v<decltype(&Painter::drawImage),
                             void (Painter::*)(const unsigned char*, int, int, double, double)>);
static_assert(std::is_same_v<decltype(&Painter::drawText),
                             void (Painter::*)(double, double, const std::string&, const Font&,
                                               const Color&)>);
static_assert(std::is_same_v<decltype(&Painter::drawRotatedText),
                             void (Painter::*)(double, double, double, const std::string&,
                                               const Font&, const Color&)>);
static_assert(std::is_same_v<decltype(&Painter::measureText),
                             TextExtent (Painter::*)(const std::string&, const Font&)>);
static_assert(std::is_same_v<decltype(&Painter::translate), void (Painter::*)(double, double)>);
static_assert(std::is_same_v<decltype(&Painter::rotate), void (Painter::*)(double)>);
static_assert(std::is_same_v<decltype(&Painter::setClipRect), void (Painter::*)(const Rect&)>);
static_assert(std::is_same_v<decltype(&Painter::clearClip), void (Painter::*)()>);
