// SPDX-License-Identifier: MIT
#include <QtRenderSurface.h>

#include <QTest>

#include <cstdint>
#include <limits>
#include <memory>
#include <stdexcept>
#include <type_traits>

using namespace zembra;

namespace {

using Bytes = std::vector<std::uint8_t>;

const Color red(255, 0, 0);

/// The four bytes of a pixel.
Bytes pixel(const Bytes& bytes, int width, int x, int y) {
    const auto first = bytes.begin() + (y * width + x) * 4;
    return {first, first + 4};
}

Bytes repeated(int count, const Bytes& pixel) {
    Bytes result;
    for (int i = 0; i < count; ++i)
        result.insert(result.end(), pixel.begin(), pixel.end());
    return result;
}

const Bytes opaqueRed = {255, 0, 0, 255};
const Bytes nothing = {0, 0, 0, 0};

static_assert(!std::is_copy_constructible_v<QtRenderSurface>);
static_assert(!std::is_copy_assignable_v<QtRenderSurface>);
static_assert(std::is_base_of_v<RenderSurface, QtRenderSurface>);

} // namespace

class QtRenderSurfaceTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".?"))); }

    void aNewPictureIsTransparent() {
        QtRenderSurface surface;
        surface.create(3, 2);
        QCOMPARE(surface.getImageData(3, 2), Bytes(24, 0));
    }

    void aLargerRequestIsFilledUpWithTransparentPixels() {
        QtRenderSurface surface;
        surface.create(2, 2);
        surface.painter()->fillRect({0.0, 0.0, 2.0, 2.0}, red);
        const Bytes wide = surface.getImageData(4, 1);
        QCOMPARE(wide.size(), std::size_t{16});
        for (const int x : {0, 1})
            QCOMPARE(pixel(wide, 4, x, 0), opaqueRed);
        for (const int x : {2, 3})
            QCOMPARE(pixel(wide, 4, x, 0), nothing);
        const Bytes high = surface.getImageData(1, 3);
        QCOMPARE(high.size(), std::size_t{12});
        for (const int y : {0, 1})
            QCOMPARE(pixel(high, 1, 0, y), opaqueRed);
        QCOMPARE(pixel(high, 1, 0, 2), nothing);
    }

    void aSmallerRequestCropsAtTheRightAndTheBottom() {
        QtRenderSurface surface;
        surface.create(5, 4);
        surface.painter()->fillRect({0.0, 0.0, 2.0, 2.0}, red);
        surface.painter()->fillRect({2.0, 0.0, 3.0, 4.0}, Color(0, 255, 0));
        QCOMPARE(surface.getImageData(2, 2), repeated(4, opaqueRed));
        const Bytes three = surface.getImageData(3, 1);
        QCOMPARE(pixel(three, 3, 2, 0), (Bytes{0, 255, 0, 255}));
    }

    void pixelsAreRowsOfRedGreenBlueAlphaFromTheTop() {
        QtRenderSurface surface;
        surface.create(3, 2);
        surface.painter()->fillRect({0.0, 0.0, 1.0, 1.0}, Color(1, 2, 3));
        surface.painter()->fillRect({2.0, 0.0, 1.0, 1.0}, Color(4, 5, 6));
        surface.painter()->fillRect({1.0, 1.0, 1.0, 1.0}, Color(7, 8, 9));
        QCOMPARE(surface.getImageData(3, 2), (Bytes{1, 2, 3, 255, 0, 0, 0, 0,   4, 5, 6, 255, //
                                                    0, 0, 0, 0,   7, 8, 9, 255, 0, 0, 0, 0}));
    }

    void translucentPixelsAreNotPremultiplied() {
        QtRenderSurface surface;
        surface.create(1, 1);
        surface.painter()->fillRect({0.0, 0.0, 1.0, 1.0}, red.withAlpha(128));
        const Bytes actual = surface.getImageData(1, 1);
        QVERIFY(actual[0] >= 253);
        QCOMPARE(actual[1], std::uint8_t{0});
        QCOMPARE(actual[2], std::uint8_t{0});
        QVERIFY(std::abs(actual[3] - 128) <= 1);
    }

    void thereIsAPainterFromCreateToGetImageData() {
        QtRenderSurface surface;
        QVERIFY(!surface.painter());
        surface.create(2, 2);
        Painter* painter = surface.painter();
        QVERIFY(painter);
        QCOMPARE(surface.painter(), painter);
        surface.getImageData(2, 2);
        QVERIFY(!surface.painter());
        surface.create(2, 2);
        QVERIFY(surface.painter());
    }

    void thePixelsMayBeTakenRepeatedly() {
        QtRenderSurface surface;
        surface.create(3, 3);
        surface.painter()->drawText(0.0, 3.0, "x", Font(5.0), red);
        const Bytes first = surface.getImageData(3, 3);
        QVERIFY(first != Bytes(36, 0));
        QCOMPARE(surface.getImageData(3, 3), first);
    }

    void createStartsAfreshInEveryState() {
        QtRenderSurface surface;
        surface.create(2, 2);
        surface.painter()->fillRect({0.0, 0.0, 2.0, 2.0}, red);
        surface.scale(2.0, 2.0);
        surface.create(3, 1);
        QCOMPARE(surface.getImageData(3, 1), Bytes(12, 0));
        surface.create(2, 2);
        // Of the scale nothing is left either.
        surface.painter()->fillRect({0.0, 0.0, 1.0, 1.0}, red);
        const Bytes pixels = surface.getImageData(2, 2);
        QCOMPARE(pixel(pixels, 2, 0, 0), opaqueRed);
        QCOMPARE(pixel(pixels, 2, 1, 1), nothing);
    }

    void scaleMultipliesAllLaterDrawing() {
        QtRenderSurface surface;
        surface.create(12, 12);
        surface.painter()->fillRect({11.0, 0.0, 1.0, 1.0}, red);
        surface.scale(2.0, 3.0);
        surface.scale(2.0, 1.0);
        surface.painter()->fillRect({1.0, 1.0, 1.0, 2.0}, red);
        const Bytes pixels = surface.getImageData(12, 12);
        for (int y = 0; y < 12; ++y)
            for (int x = 0; x < 12; ++x)
                QCOMPARE(pixel(pixels, 12, x, y) == opaqueRed,
                         (x == 11 && y == 0) || (x >= 4 && x < 8 && y >= 3 && y < 9));
    }

    void shapesTextAndScaledPicturesAreSmooth() {
        QtRenderSurface surface;
        surface.create(40, 40);
        surface.painter()->drawLine(0.0, 0.0, 40.0, 13.0);
        const Bytes line = surface.getImageData(40, 40);
        surface.create(40, 40);
        surface.painter()->drawText(2.0, 30.0, "SO", Font(20.0), red);
        const Bytes text = surface.getImageData(40, 40);
        surface.create(40, 40);
        surface.scale(10.0, 10.0);
        const Bytes twoPixels = {255, 255, 255, 255, 0, 0, 0, 255};
        surface.painter()->drawImage(twoPixels.data(), 2, 1, 2.0, 2.0);
        const Bytes picture = surface.getImageData(40, 40);
        const auto partlyCovered = [](const Bytes& bytes) {
            int count = 0;
            for (std::size_t i = 3; i < bytes.size(); i += 4)
                count += bytes[i] > 0 && bytes[i] < 255;
            return count;
        };
        QVERIFY(partlyCovered(line) > 20);
        QVERIFY(partlyCovered(text) > 20);
        int grey = 0;
        for (std::size_t i = 0; i < picture.size(); i += 4)
            grey += picture[i] > 40 && picture[i] < 215 && picture[i + 3] == 255;
        QVERIFY(grey > 20);
    }

    void theShapeOfTheResultIsTheRequestedOne_data() {
        QTest::addColumn<int>("width");
        QTest::addColumn<int>("height");
        QTest::addColumn<int>("bytes");
        QTest::newRow("as created") << 2 << 2 << 16;
        QTest::newRow("no width") << 0 << 5 << 0;
        QTest::newRow("no height") << 5 << 0 << 0;
        QTest::newRow("negative width, no height") << -5 << 0 << 0;
        QTest::newRow("negative height, no width") << 0 << -5 << 0;
        QTest::newRow("both negative") << -3 << -2 << 24;
    }

    void theShapeOfTheResultIsTheRequestedOne() {
        QFETCH(const int, width);
        QFETCH(const int, height);
        QFETCH(const int, bytes);
        QtRenderSurface surface;
        surface.create(2, 2);
        surface.painter()->fillRect({0.0, 0.0, 2.0, 2.0}, red);
        const Bytes pixels = surface.getImageData(width, height);
        QCOMPARE(pixels.size(), static_cast<std::size_t>(bytes));
        if (height <= 0)
            QCOMPARE(pixels, Bytes(pixels.size(), 0));
        QVERIFY(!surface.painter());
    }

    void aNegativeAreaIsALengthError_data() {
        QTest::addColumn<int>("width");
        QTest::addColumn<int>("height");
        constexpr int most = std::numeric_limits<int>::max();
        constexpr int least = std::numeric_limits<int>::min();
        QTest::newRow("width") << -1 << 1;
        QTest::newRow("height") << 1 << -1;
        QTest::newRow("smallest width") << least << most;
        QTest::newRow("smallest height") << most << least;
    }

    void aNegativeAreaIsALengthError() {
        QFETCH(const int, width);
        QFETCH(const int, height);
        QtRenderSurface surface;
        surface.create(2, 2);
        QVERIFY_EXCEPTION_THROWN(surface.getImageData(width, height), std::length_error);
        QVERIFY(!surface.painter());
        QCOMPARE(surface.getImageData(2, 2), Bytes(16, 0));
    }

    void withoutAPainterScaleDoesNothing() {
        QtRenderSurface surface;
        surface.scale(2.0, 2.0);
        QVERIFY(!surface.painter());
        surface.create(2, 2);
        surface.painter()->fillRect({0.0, 0.0, 1.0, 2.0}, red);
        const Bytes pixels = surface.getImageData(2, 2);
        QCOMPARE(pixel(pixels, 2, 0, 0), opaqueRed);
        QCOMPARE(pixel(pixels, 2, 1, 0), nothing);
        surface.scale(2.0, 2.0);
        QCOMPARE(surface.getImageData(2, 2), pixels);
    }

    void beforeCreateEveryPixelIsTransparent() {
        QtRenderSurface surface;
        QCOMPARE(surface.getImageData(2, 3), Bytes(24, 0));
    }

    // Also while painting, or Qt would complain about an image that goes before its painter.
    void mayBeDestroyedInEveryState() {
        for (const int steps : {0, 1, 2}) {
            std::unique_ptr<RenderSurface> surface = std::make_unique<QtRenderSurface>();
            if (steps > 0)
                surface->create(4, 4);
            if (steps > 1)
                surface->getImageData(4, 4);
            QCOMPARE(surface->painter() != nullptr, steps == 1);
        }
    }
};

QTEST_MAIN(QtRenderSurfaceTest)
#include "QtRenderSurface_test.moc"
