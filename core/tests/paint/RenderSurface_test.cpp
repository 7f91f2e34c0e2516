// SPDX-License-Identifier: MIT
#include <zembra/paint/RenderSurface.h>

#include "Slots.h"

#include <gtest/gtest.h>

#include <new>
#include <type_traits>

using namespace zembra;

namespace {

/// Notes which operation was reached, and looks at no argument.
class NamingSurface : public RenderSurface {
public:
    explicit NamingSurface(std::vector<std::string>& names) : names(names) {}
    ~NamingSurface() override { names.emplace_back("destructor"); }

    void create(int, int) override { names.emplace_back("create"); }
    void scale(double, double) override { names.emplace_back("scale"); }
    Painter* painter() override {
        names.emplace_back("painter");
        return nullptr;
    }
    std::vector<std::uint8_t> getImageData(int, int) override {
        names.emplace_back("getImageData");
        return {};
    }

private:
    std::vector<std::string>& names;
};

} // namespace

TEST(RenderSurface, VirtualTableHasTheOperationsInTheirAgreedOrder) {
    std::vector<std::string> names;
    NamingSurface surface(names);
    const Slots slots(surface);
    for (int slot = 2; slot < 5; ++slot)
        slots.call(slot, surface);
    // A result that does not fit into registers has its place passed along: this one is called as
    // it is.
    slots.call<std::vector<std::uint8_t>>(5, surface, 3, 2);
    EXPECT_EQ(names, (std::vector<std::string>{"create", "scale", "painter", "getImageData"}));
}

TEST(RenderSurface, VirtualTableBeginsWithTheDestructor) {
    std::vector<std::string> names;
    alignas(NamingSurface) unsigned char room[sizeof(NamingSurface)];
    auto* inPlace = new (room) NamingSurface(names);
    Slots(*inPlace).call(0, *inPlace);
    EXPECT_EQ(names, (std::vector<std::string>{"destructor"}));
    auto* onHeap = new NamingSurface(names);
    Slots(*onHeap).call(1, *onHeap);
    EXPECT_EQ(names, (std::vector<std::string>{"destructor", "destructor"}));
}

static_assert(sizeof(RenderSurface) == sizeof(void*), "no base class and no data");
static_assert(std::is_abstract_v<RenderSurface> && std::has_virtual_destructor_v<RenderSurface>);
static_assert(std::is_same_v<decltype(&RenderSurface::create), void (RenderSurface::*)(int, int)>);
static_assert(
    std::is_same_v<decltype(&RenderSurface::scale), void (RenderSurface::*)(double, double)>);
static_assert(std::is_same_v<decltype(&RenderSurface::painter), Painter* (RenderSurface::*)()>);
static_assert(std::is_same_v<decltype(&RenderSurface::getImageData),
                             std::vector<std::uint8_t> (RenderSurface::*)(int, int)>);
