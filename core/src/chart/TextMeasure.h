// SPDX-License-Identifier: MIT
#pragma once

#include <zembra/paint/Painter.h>

#include <string>
#include <typeindex>
#include <unordered_map>
#include <vector>

namespace zembra {

/// Remembers how large texts are: measuring costs more than anything else in a layout.
///
/// Extents are kept per text and font, and dropped when another kind of painter comes along, which
/// may know other fonts.
class TextMeasure {
public:
    /// Names the painter to ask; to be called at the start of every frame.
    void setPainter(Painter& target);
    TextExtent extent(const std::string& text, const Font& font);
    double width(const std::string& text, const Font& font) { return extent(text, font).width; }

    /// The longest beginning of `text` that fits into `room` with an ellipsis; `text` if it fits.
    std::string elided(const std::string& text, const Font& font, double room);
    /// `text` broken at blanks into at most `mostLines` lines of at most `room`, the last one
    /// elided.
    std::vector<std::string> wrapped(const std::string& text, const Font& font, double room,
                                     std::size_t mostLines);

private:
    Painter* painter = nullptr;
    std::type_index painterKind = typeid(void);
    std::unordered_map<std::string, TextExtent> extents;
};

} // namespace zembra
