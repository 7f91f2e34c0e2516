// SPDX-License-Identifier: MIT
#pragma once

#include <zembra/series/Annotation.h>

#include <string>

namespace zembra {

/// A line of text beside a place, tied to it by a thin line.
///
/// While the place is on the canvas the text is kept on it too, moved inwards where it would not
/// fit. Without a distance it is centred on the place, without a line.
class ZEMBRA_EXPORT TextAnnotation : public Annotation {
public:
    /// UTF-8. Text stands above and right of the place at first.
    TextAnnotation(Position place, std::string text);
    ~TextAnnotation() override;

    void setPlace(Position place);
    const Position& place() const;
    void setText(std::string text);
    const std::string& text() const;
    /// From the place to the centre of the text. Units: logical pixels, y pointing down; (40, -30)
    /// at first. Distances that are not finite are ignored.
    void setOffset(const Point& offset);
    const Point& offset() const;

    void draw(Canvas& canvas) const override;
    void drawLegendKey(Canvas& canvas, const Rect& area) const override;

private:
    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace zembra
