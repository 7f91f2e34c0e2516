// SPDX-License-Identifier: MIT
#include <zembra/paint/Font.h>

#include <gtest/gtest.h>

using namespace zembra;

TEST(Font, CopiesShareTheirBytes) {
    const Font custom({1, 2, 3}, 10.0, "Mine");
    const Font copy = custom;
    EXPECT_EQ(&copy.ttfData(), &custom.ttfData());
    const Font builtIn = Font::defaultFont(FontFamily::DejaVuSerif, 12.0);
    const Font other = Font::defaultFont(FontFamily::DejaVuSerif, 20.0);
    EXPECT_EQ(&builtIn.ttfData(), &other.ttfData());
}

TEST(Font, EveryBuiltInFaceCarriesATrueTypeFileAndItsName) {
    const char* names[] = {
        "Lato",         "Lato Bold",         "Lato Italic",          "Lato Bold Italic",
        "DejaVu Serif", "DejaVu Serif Bold", "DejaVu Serif Oblique", "DejaVu Serif Bold Oblique",
    };
    for (int i = 0; i < 8; ++i) {
        const auto family = static_cast<FontFamily>(i);
        const Font font = Font::defaultFont(family, 14.5);
        EXPECT_EQ(font.family(), family);
        EXPECT_EQ(font.familyName(), names[i]);
        EXPECT_EQ(font.pixelSize(), 14.5);
        ASSERT_GT(font.ttfData().size(), 100000u);
        const std::vector<std::uint8_t> magic(font.ttfData().begin(), font.ttfData().begin() + 4);
        EXPECT_EQ(magic, (std::vector<std::uint8_t>{0, 1, 0, 0}));
    }
}

TEST(Font, AFamilyWithoutABuiltInFaceGivesTheDefaultFace) {
    for (int family : {-1, 8, 9, 1000})
        EXPECT_EQ(Font::defaultFont(static_cast<FontFamily>(family), 12.0), Font(12.0));
}

TEST(Font, ACustomFontKeepsItsNameAndNeverPassesForABuiltInFace) {
    const Font font({}, 9.0, "Lato");
    EXPECT_EQ(font.familyName(), "Lato");
    EXPECT_EQ(font.family(), FontFamily::Custom);
    EXPECT_TRUE(font.ttfData().empty());
}
