// SPDX-License-Identifier: MIT
#pragma once

#include "support/RecordingPainter.h"

#include <string>
#include <vector>

namespace zembra::test {

/// A recording painter that also keeps the boxes of level texts, to see whether they collide.
class TextBoxPainter : public RecordingPainter {
public:
    struct Box {
        std::string text;
        Rect rect;
    };

    const std::vector<Box>& boxes() const { return kept; }

    void drawText(double x, double y, const std::string& text, const Font& font,
                  const Color& color) override {
        RecordingPainter::drawText(x, y, text, font, color);
        // From the capitals' top to the baseline: what a reader sees of most labels.
        const double height = 0.72 * font.pixelSize();
        kept.push_back({text, {x, y - height, measureText(text, font).width, height}});
    }

private:
    std::vector<Box> kept;
};

inline bool overlap(const Rect& a, const Rect& b) {
    return a.left() < b.right() && b.left() < a.right() && a.top() < b.bottom() &&
           b.top() < a.bottom();
}

} // namespace zembra::test
