// SPDX-License-Identifier: MIT
#include <QtPainter.h>

#include <QFontMetricsF>
#include <QImage>
#include <QPainter>
#include <QTest>

#include <cmath>
#include <cstdint>
#include <functional>
#include <numbers>

using namespace zembra;

namespace {

constexpr int canvasSize = 48;
constexpr double pi = std::numbers::pi;

const Color red(255, 0, 0);
const Color halfBlue(0, 0, 255, 128);
const QColor redInQt(255, 0, 0);
const QColor halfBlueInQt(0, 0, 255, 128);

QImage paper() {
    QImage image(canvasSize, canvasSize, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    return image;
}

/// A white picture that is painted on while this lives.
struct Sheet {
    QImage image = paper();
    QPainter qpainter{&image};
    QtPainter painter{qpainter};

    /// What has been painted so far.
    QImage picture() const { return image.copy(); }
    bool isBlank() const { return image == paper(); }
    QColor at(int x, int y) const { return image.pixelColor(x, y); }
};

Font lato(double size) {
    return Font::defaultFont(FontFamily::LatoRegular, size);
}

QFont latoInQt(int size) {
    QFont font;
    font.setFamily(QStringLiteral("Lato"));
    font.setPixelSize(size);
    font.setStyleStrategy(QFont::PreferAntialias);
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

Pen styled(int style, std::vector<double> dashes = {}) {
    Pen pen(red, 2.0);
    pen.setStyle(static_cast<PenStyle>(style));
    pen.setDashPattern(std::move(dashes));
    return pen;
}

QBrush solid(const QColor& color) {
    return {color, Qt::SolidPattern};
}

std::vector<std::uint8_t> checkered(int width, int height, int first = 0) {
    std::vector<std::uint8_t> pixels;
    for (int i = 0; i < width * height; ++i)
        for (const int component : {first + 40 * i, 255 - 20 * i, 7 * i, 255 - i})
            pixels.push_back(static_cast<std::uint8_t>(component));
    return pixels;
}

/// Notes the order of the operations that `drawRotatedText` makes of itself.
class NotingPainter : public QtPainter {
public:
    using QtPainter::QtPainter;

    void save() override { note(QStringLiteral("save")); }
    void restore() override { note(QStringLiteral("restore")); }
    void translate(double dx, double dy) override {
        note(QStringLiteral("translate %1 %2").arg(dx).arg(dy));
    }
    void rotate(double angle) override { note(QStringLiteral("rotate %1").arg(angle)); }
    void drawText(double x, double y, const std::string& text, const Font& font,
                  const Color& color) override {
        note(QStringLiteral("drawText %1 %2 %3 %4 %5")
                 .arg(x)
                 .arg(y)
                 .arg(QString::fromStdString(text))
                 .arg(font.pixelSize())
                 .arg(color.red()));
    }

    QStringList notes;

private:
    void note(const QString& line) { notes.append(line); }
};

using PaintWithCore = std::function<void(QtPainter&)>;
using PaintWithQt = std::function<void(QPainter&)>;

} // namespace

Q_DECLARE_METATYPE(PaintWithCore)
Q_DECLARE_METATYPE(PaintWithQt)
Q_DECLARE_METATYPE(zembra::Pen)
Q_DECLARE_METATYPE(QPen)

class QtPainterTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".?"))); }

    void switchesOnAntialiasingAndTouchesNothingElse() {
        QImage image = paper();
        QPainter qpainter(&image);
        qpainter.setRenderHint(QPainter::TextAntialiasing, false);
        qpainter.setPen(QPen(Qt::green, 3.0, Qt::DotLine));
        qpainter.setBrush(Qt::yellow);
        qpainter.setFont(latoInQt(31));
        {
            QtPainter painter(qpainter);
            QCOMPARE(qpainter.renderHints(), QPainter::Antialiasing | QPainter::TextAntialiasing);
            QCOMPARE(qpainter.pen(), QPen(Qt::green, 3.0, Qt::DotLine));
            QCOMPARE(qpainter.brush(), QBrush(Qt::yellow));
            QCOMPARE(qpainter.font(), latoInQt(31));
        }
        QVERIFY(qpainter.isActive());
        QCOMPARE(qpainter.renderHints(), QPainter::Antialiasing | QPainter::TextAntialiasing);
    }

    void leavesSavedStatesToTheCaller() {
        QImage image = paper();
        QPainter qpainter(&image);
        qpainter.setOpacity(1.0);
        {
            QtPainter painter(qpainter);
            painter.save();
            qpainter.setOpacity(0.5);
        }
        QCOMPARE(qpainter.opacity(), 0.5);
        qpainter.restore();
        QCOMPARE(qpainter.opacity(), 1.0);
    }

    void convertsPens_data() {
        QTest::addColumn<zembra::Pen>("pen");
        QTest::addColumn<QPen>("expected");
        const auto row = [](const char* name, const Pen& pen, const QPen& expected) {
            QTest::newRow(name) << pen << expected;
        };
        const auto expected = [](Qt::PenStyle style) {
            return QPen(redInQt, 2.0, style, Qt::SquareCap, Qt::BevelJoin);
        };
        const auto dashed = [&](const QList<qreal>& pattern) {
            QPen pen = expected(Qt::CustomDashLine);
            pen.setDashPattern(pattern);
            return pen;
        };
        row("default", Pen(), QPen(Qt::black, 1.0));
        row("translucent", Pen(halfBlue, 0.25), QPen(halfBlueInQt, 0.25));
        row("width 0 stays 0", Pen(red, 0.0), QPen(redInQt, 0.0));
        row("style 0", styled(0), expected(Qt::NoPen));
        row("style 1", styled(1), expected(Qt::SolidLine));
        row("style 2", styled(2), expected(Qt::DashLine));
        row("style 3", styled(3), expected(Qt::DotLine));
        row("style 4", styled(4), expected(Qt::DashDotLine));
        row("style 5", styled(5), expected(Qt::DashDotDotLine));
        row("style 6 is solid", styled(6), expected(Qt::SolidLine));
        row("style -1 is solid", styled(-1), expected(Qt::SolidLine));
        row("dashes are in pen widths", styled(1, {4.0, 2.0}), dashed({4.0, 2.0}));
        row("dashes win over style 0", styled(0, {4.0, 2.0}), dashed({4.0, 2.0}));
        row("dashes win over style 3", styled(3, {1.0, 2.5, 3.0, 0.5}),
            dashed({1.0, 2.5, 3.0, 0.5}));
    }

    void convertsPens() {
        QFETCH(const zembra::Pen, pen);
        QFETCH(const QPen, expected);
        Sheet sheet;
        sheet.painter.setPen(pen);
        const QPen actual = sheet.qpainter.pen();
        QCOMPARE(actual, expected);
        QCOMPARE(actual.color().spec(), QColor::Rgb);
        QCOMPARE(actual.color(), expected.color());
        QCOMPARE(actual.isCosmetic(), pen.widthF() == 0.0);
        QCOMPARE(actual.capStyle(), Qt::SquareCap);
        QCOMPARE(actual.joinStyle(), Qt::BevelJoin);
    }

    void drawsInvalidPenStylesAsSolidLines() {
        Sheet solidLine;
        solidLine.painter.setPen(styled(1));
        solidLine.painter.drawLine(4.0, 20.0, 44.0, 20.0);
        for (const int style : {6, -1}) {
            Sheet sheet;
            sheet.painter.setPen(styled(style));
            sheet.painter.drawLine(4.0, 20.0, 44.0, 20.0);
            QCOMPARE(sheet.picture(), solidLine.picture());
        }
    }

    void drawsDashesInPenWidthsEvenWithStyleNone() {
        Sheet sheet;
        sheet.painter.setPen(styled(0, {4.0, 2.0}));
        sheet.painter.drawLine(4.0, 20.0, 40.0, 20.0);
        // 8 px of line and 4 px of gap, of which the square caps take a pen's half width each.
        QCOMPARE(sheet.at(8, 20), redInQt);
        QCOMPARE(sheet.at(14, 20), QColor(Qt::white));
        QCOMPARE(sheet.at(20, 20), redInQt);
        QCOMPARE(sheet.at(26, 20), QColor(Qt::white));
    }

    void convertsBrushes() {
        Sheet sheet;
        sheet.painter.setBrush(Brush(halfBlue));
        QCOMPARE(sheet.qpainter.brush(), solid(halfBlueInQt));
        QCOMPARE(sheet.qpainter.brush().color().alpha(), 128);
        sheet.painter.setBrush(Brush());
        QCOMPARE(sheet.qpainter.brush(), solid(Qt::black));
    }

    void convertsFonts() {
        Sheet sheet;
        sheet.painter.setFont(lato(17.4));
        QCOMPARE(sheet.qpainter.font(), latoInQt(17));
    }

    // Two ways, one picture: what each primitive does, said in Qt's own words. Both start from the
    // same stored pen and from a painter whose state says something else.
    void drawsWhatQtDraws_data() {
        QTest::addColumn<PaintWithCore>("core");
        QTest::addColumn<PaintWithQt>("qt");
        const auto row = [](const char* name, PaintWithCore core, PaintWithQt qt) {
            QTest::newRow(name) << std::move(core) << std::move(qt);
        };
        static const QPen pen(halfBlueInQt, 3.0);
        row(
            "drawLine", [](QtPainter& p) { p.drawLine(3.5, 4.0, 40.0, 30.25); },
            [](QPainter& q) {
                q.setPen(pen);
                q.drawLine(QLineF(3.5, 4.0, 40.0, 30.25));
            });
        row(
            "drawRect",
            [](QtPainter& p) {
                p.drawRect({3.5, 4.0, 20.0, 30.25});
            },
            [](QPainter& q) {
                q.setPen(pen);
                q.setBrush(Qt::NoBrush);
                q.drawRect(QRectF(3.5, 4.0, 20.0, 30.25));
            });
        row(
            "fillRect",
            [](QtPainter& p) {
                p.fillRect({3.5, 4.0, 20.0, 30.25}, halfBlue);
            },
            [](QPainter& q) { q.fillRect(QRectF(3.5, 4.0, 20.0, 30.25), halfBlueInQt); });
        row(
            "drawPolyline",
            [](QtPainter& p) {
                p.drawPolyline({{3.0, 3.0}, {40.0, 8.0}, {12.5, 42.0}});
            },
            [](QPainter& q) {
                const QPointF points[] = {{3.0, 3.0}, {40.0, 8.0}, {12.5, 42.0}};
                q.setPen(pen);
                q.drawPolyline(points, 3);
            });
        row(
            "drawPolyline of two",
            [](QtPainter& p) {
                p.drawPolyline({{3.0, 3.0}, {40.0, 8.0}});
            },
            [](QPainter& q) {
                const QPointF points[] = {{3.0, 3.0}, {40.0, 8.0}};
                q.setPen(pen);
                q.drawPolyline(points, 2);
            });
        row(
            "fillPolygon",
            [](QtPainter& p) {
                p.fillPolygon({{24.0, 2.0}, {38.0, 44.0}, {3.0, 17.0}, {45.0, 17.0}, {10.0, 44.0}},
                              halfBlue);
            },
            [](QPainter& q) {
                const QPointF points[] = {
                    {24.0, 2.0}, {38.0, 44.0}, {3.0, 17.0}, {45.0, 17.0}, {10.0, 44.0}};
                q.setPen(Qt::NoPen);
                q.setBrush(solid(halfBlueInQt));
                q.drawPolygon(points, 5, Qt::OddEvenFill);
            });
        row(
            "fillEllipse", [](QtPainter& p) { p.fillEllipse(20.0, 22.5, 10.25, 17.0, halfBlue); },
            [](QPainter& q) {
                q.setPen(Qt::NoPen);
                q.setBrush(solid(halfBlueInQt));
                q.drawEllipse(QRectF(9.75, 5.5, 20.5, 34.0));
            });
        row(
            "drawEllipse", [](QtPainter& p) { p.drawEllipse(20.0, 22.5, 10.25, 17.0); },
            [](QPainter& q) {
                q.setPen(pen);
                q.setBrush(Qt::NoBrush);
                q.drawEllipse(QRectF(9.75, 5.5, 20.5, 34.0));
            });
        row(
            "drawText",
            [](QtPainter& p) { p.drawText(2.5, 30.0, "Größe µ", lato(13.0), halfBlue); },
            [](QPainter& q) {
                q.setFont(latoInQt(13));
                q.setPen(halfBlueInQt);
                q.drawText(QPointF(2.5, 30.0), QString::fromUtf8("Größe µ"));
            });
        row(
            "drawRotatedText",
            [](QtPainter& p) { p.drawRotatedText(20.0, 40.0, -pi / 3.0, "Text", lato(15.0), red); },
            [](QPainter& q) {
                q.save();
                q.translate(QPointF(20.0, 40.0));
                q.rotate(-pi / 3.0 * 180.0 / pi);
                q.setFont(latoInQt(15));
                q.setPen(redInQt);
                q.drawText(QPointF(0.0, 0.0), QStringLiteral("Text"));
                q.restore();
            });
        row(
            "translate", [](QtPainter& p) { p.translate(2.5, -3.0); },
            [](QPainter& q) { q.translate(2.5, -3.0); });
        row(
            "rotate", [](QtPainter& p) { p.rotate(0.5); },
            [](QPainter& q) { q.rotate(0.5 * 180.0 / 3.141592653589793); });
        row(
            "setClipRect",
            [](QtPainter& p) {
                p.setClipRect({10.5, 3.0, 20.0, 12.0});
                p.fillRect({0.0, 0.0, 48.0, 48.0}, red);
            },
            [](QPainter& q) {
                q.save();
                q.setClipRect(QRectF(10.5, 3.0, 20.0, 12.0), Qt::ReplaceClip);
                q.fillRect(QRectF(0.0, 0.0, 48.0, 48.0), redInQt);
            });
    }

    void drawsWhatQtDraws() {
        QFETCH(const PaintWithCore, core);
        QFETCH(const PaintWithQt, qt);
        const auto unsettle = [](QPainter& q) {
            q.setPen(QPen(Qt::darkGreen, 5.0, Qt::DotLine));
            q.setBrush(Qt::yellow);
            q.setFont(latoInQt(9));
        };
        Sheet actual;
        actual.painter.setPen(Pen(halfBlue, 3.0));
        unsettle(actual.qpainter);
        core(actual.painter);
        Sheet expected;
        unsettle(expected.qpainter);
        qt(expected.qpainter);
        QCOMPARE(actual.picture(), expected.picture());
        QCOMPARE(actual.qpainter.pen(), expected.qpainter.pen());
        QCOMPARE(actual.qpainter.brush(), expected.qpainter.brush());
        QCOMPARE(actual.qpainter.font(), expected.qpainter.font());
        QCOMPARE(actual.qpainter.worldTransform(), expected.qpainter.worldTransform());
        QCOMPARE(actual.qpainter.hasClipping(), expected.qpainter.hasClipping());
        QCOMPARE(actual.qpainter.clipBoundingRect(), expected.qpainter.clipBoundingRect());
        QCOMPARE(actual.qpainter.renderHints(), expected.qpainter.renderHints());
        if (expected.qpainter.hasClipping()) {
            actual.painter.clearClip();
            expected.qpainter.restore();
        }
    }

    void tooFewPointsDrawNothingAndLeaveThePen() {
        Sheet sheet;
        sheet.painter.setPen(Pen(red, 4.0));
        sheet.qpainter.setPen(Qt::green);
        sheet.qpainter.setBrush(Qt::yellow);
        sheet.painter.drawPolyline({});
        sheet.painter.drawPolyline({{10.0, 10.0}});
        sheet.painter.fillPolygon({}, red);
        sheet.painter.fillPolygon({{10.0, 10.0}, {30.0, 30.0}}, red);
        QVERIFY(sheet.isBlank());
        QCOMPARE(sheet.qpainter.pen(), QPen(Qt::green));
        QCOMPARE(sheet.qpainter.brush(), QBrush(Qt::yellow));
    }

    void polygonsAreFilledByTheOddEvenRule() {
        Sheet sheet;
        // A pentagram: its middle lies inside twice.
        sheet.painter.fillPolygon(
            {{24.0, 2.0}, {38.0, 44.0}, {3.0, 17.0}, {45.0, 17.0}, {10.0, 44.0}}, red);
        QCOMPARE(sheet.at(24, 26), QColor(Qt::white));
        QCOMPARE(sheet.at(24, 10), redInQt);
    }

    void polylinesStayOpenAndUnfilled() {
        Sheet sheet;
        sheet.painter.setPen(Pen(red, 2.0));
        sheet.painter.setBrush(Brush(halfBlue));
        sheet.painter.drawPolyline({{4.0, 4.0}, {44.0, 4.0}, {44.0, 44.0}});
        QCOMPARE(sheet.at(20, 4), redInQt);
        QCOMPARE(sheet.at(24, 24), QColor(Qt::white));
        QCOMPARE(sheet.at(34, 14), QColor(Qt::white));
    }

    void outlinesAreNotFilledAndFillsHaveNoOutline() {
        Sheet outlines;
        outlines.painter.setPen(Pen(red, 2.0));
        outlines.painter.setBrush(Brush(halfBlue));
        outlines.painter.drawRect({4.0, 4.0, 16.0, 16.0});
        outlines.painter.setBrush(Brush(halfBlue));
        outlines.painter.drawEllipse(34.0, 34.0, 8.0, 8.0);
        QCOMPARE(outlines.at(12, 12), QColor(Qt::white));
        QCOMPARE(outlines.at(34, 34), QColor(Qt::white));
        QCOMPARE(outlines.at(12, 4), redInQt);
        Sheet fills;
        fills.painter.setPen(Pen(Color(0, 255, 0), 6.0));
        fills.painter.fillRect({10.0, 10.0, 10.0, 10.0}, red);
        fills.painter.fillEllipse(34.0, 34.0, 5.0, 5.0, red);
        fills.painter.fillPolygon({{30.0, 10.0}, {40.0, 10.0}, {40.0, 20.0}, {30.0, 20.0}}, red);
        for (int y = 0; y < canvasSize; ++y)
            for (int x = 0; x < canvasSize; ++x)
                QVERIFY(fills.at(x, y).green() == fills.at(x, y).blue());
        QCOMPARE(fills.at(15, 15), redInQt);
        QCOMPARE(fills.at(35, 15), redInQt);
        QCOMPARE(fills.at(34, 34), redInQt);
    }

    void outlinesUseTheStoredPenWhateverCameBefore() {
        const std::function<void(QtPainter&)> disturbances[] = {
            [](QtPainter& p) { p.fillEllipse(40.0, 8.0, 2.0, 2.0, halfBlue); },
            [](QtPainter& p) {
                p.fillPolygon({{40.0, 8.0}, {42.0, 8.0}, {41.0, 10.0}}, halfBlue);
            },
            [](QtPainter& p) { p.drawText(30.0, 12.0, "x", lato(10.0), halfBlue); },
        };
        const std::function<void(QtPainter&)> outlines[] = {
            [](QtPainter& p) { p.drawLine(4.0, 24.0, 24.0, 24.0); },
            [](QtPainter& p) {
                p.drawRect({4.0, 24.0, 20.0, 20.0});
            },
            [](QtPainter& p) { p.drawEllipse(14.0, 34.0, 10.0, 10.0); },
            [](QtPainter& p) {
                p.drawPolyline({{4.0, 24.0}, {24.0, 24.0}});
            },
        };
        for (const auto& disturb : disturbances) {
            for (const auto& outline : outlines) {
                Sheet sheet;
                sheet.painter.setPen(Pen(red, 4.0));
                disturb(sheet.painter);
                QVERIFY(sheet.qpainter.pen() != QPen(redInQt, 4.0));
                outline(sheet.painter);
                QCOMPARE(sheet.qpainter.pen(), QPen(redInQt, 4.0));
                QCOMPARE(sheet.at(14, 24), redInQt);
            }
        }
    }

    void thePenIsBlackAndOnePixelWideUntilItIsSet() {
        Sheet sheet;
        sheet.qpainter.setPen(Qt::green);
        sheet.painter.drawLine(4.0, 20.5, 44.0, 20.5);
        QCOMPARE(sheet.at(20, 20), QColor(Qt::black));
        QCOMPARE(sheet.at(20, 21), QColor(Qt::white));
    }

    void aPenSetBetweenSaveAndRestoreStaysInForce() {
        Sheet sheet;
        sheet.painter.setPen(Pen(Color(0, 255, 0), 4.0));
        sheet.painter.save();
        sheet.painter.setPen(Pen(red, 4.0));
        sheet.painter.restore();
        QCOMPARE(sheet.qpainter.pen().color(), QColor(0, 255, 0));
        sheet.painter.drawLine(4.0, 20.0, 44.0, 20.0);
        QCOMPARE(sheet.at(20, 20), redInQt);
    }

    void endingTheClipRestoresThePenOfTheQPainterOnly() {
        Sheet sheet;
        const QPen before(QColor(0, 255, 0), 4.0);
        sheet.qpainter.setPen(before);
        sheet.painter.setClipRect({0.0, 0.0, 10.0, 10.0});
        sheet.painter.setPen(Pen(red, 4.0));
        sheet.painter.clearClip();
        QCOMPARE(sheet.qpainter.pen(), before);
        QVERIFY(!sheet.qpainter.hasClipping());
        sheet.painter.drawLine(4.0, 20.0, 44.0, 20.0);
        QCOMPARE(sheet.at(20, 20), redInQt);
    }

    void endingTheClipUndoesBrushFontAndTransform() {
        Sheet sheet;
        sheet.painter.setBrush(Brush(halfBlue));
        sheet.painter.setFont(lato(11.0));
        sheet.painter.translate(1.0, 2.0);
        sheet.painter.setClipRect({0.0, 0.0, 10.0, 10.0});
        sheet.painter.setBrush(Brush(red));
        sheet.painter.setFont(lato(22.0));
        sheet.painter.rotate(1.0);
        sheet.painter.clearClip();
        QCOMPARE(sheet.qpainter.brush(), solid(halfBlueInQt));
        QCOMPARE(sheet.qpainter.font(), latoInQt(11));
        QCOMPARE(sheet.qpainter.worldTransform(), QTransform::fromTranslate(1.0, 2.0));
    }

    void anInnerClipReplacesTheOuterOne() {
        Sheet sheet;
        sheet.painter.setClipRect({0.0, 0.0, 10.0, 10.0});
        sheet.painter.setClipRect({20.0, 20.0, 10.0, 10.0});
        sheet.painter.fillRect({0.0, 0.0, 48.0, 48.0}, red);
        QCOMPARE(sheet.at(5, 5), QColor(Qt::white));
        QCOMPARE(sheet.at(25, 25), redInQt);
        sheet.painter.clearClip();
        sheet.painter.fillRect({0.0, 0.0, 48.0, 48.0}, red);
        QCOMPARE(sheet.at(5, 5), redInQt);
        QCOMPARE(sheet.at(12, 12), QColor(Qt::white));
        sheet.painter.clearClip();
        QVERIFY(!sheet.qpainter.hasClipping());
    }

    void theBrushIsLostToTheNextPrimitiveThatNeedsOne() {
        Sheet sheet;
        sheet.painter.setBrush(Brush(halfBlue));
        sheet.painter.drawLine(0.0, 0.0, 1.0, 1.0);
        sheet.painter.drawPolyline({{0.0, 0.0}, {1.0, 1.0}});
        sheet.painter.fillRect({0.0, 0.0, 1.0, 1.0}, red);
        sheet.painter.drawText(0.0, 0.0, "x", lato(10.0), red);
        QCOMPARE(sheet.qpainter.brush(), solid(halfBlueInQt));
        sheet.painter.drawRect({0.0, 0.0, 1.0, 1.0});
        QCOMPARE(sheet.qpainter.brush().style(), Qt::NoBrush);
        sheet.painter.fillEllipse(1.0, 1.0, 1.0, 1.0, red);
        QCOMPARE(sheet.qpainter.brush(), solid(redInQt));
        QCOMPARE(sheet.qpainter.pen().style(), Qt::NoPen);
    }

    void fillingARectangleLeavesPenAndBrush() {
        Sheet sheet;
        sheet.qpainter.setPen(QPen(Qt::green, 5.0));
        sheet.qpainter.setBrush(Qt::yellow);
        sheet.painter.fillRect({2.0, 2.0, 9.0, 9.0}, red);
        QCOMPARE(sheet.qpainter.pen(), QPen(Qt::green, 5.0));
        QCOMPARE(sheet.qpainter.brush(), QBrush(Qt::yellow));
    }

    void textLeavesItsPenAndItsFont() {
        Sheet sheet;
        sheet.painter.setPen(Pen(halfBlue, 7.0));
        sheet.painter.setFont(lato(9.0));
        sheet.painter.drawText(4.0, 30.0, "Ink", lato(20.0), red);
        QCOMPARE(sheet.qpainter.pen(), QPen(redInQt));
        QCOMPARE(sheet.qpainter.pen().widthF(), 1.0);
        QCOMPARE(sheet.qpainter.font(), latoInQt(20));
    }

    void textStandsOnItsBaselineAtItsLeftEnd() {
        Sheet sheet;
        sheet.painter.drawText(10.0, 30.0, "HHH", lato(14.0), Color(0, 0, 0));
        int left = canvasSize;
        int bottom = 0;
        for (int y = 0; y < canvasSize; ++y) {
            for (int x = 0; x < canvasSize; ++x) {
                if (sheet.at(x, y).red() < 128) {
                    left = std::min(left, x);
                    bottom = std::max(bottom, y);
                }
            }
        }
        QCOMPARE(bottom, 29);
        QVERIFY2(left >= 10 && left <= 12, qPrintable(QString::number(left)));
    }

    void textIsNeitherBrokenNorElided() {
        const TextExtent one = Sheet().painter.measureText("a b", lato(12.0));
        const TextExtent endless = Sheet().painter.measureText(std::string(400, 'm'), lato(12.0));
        QVERIFY(one.width > 10.0 && one.width < 30.0);
        QVERIFY(endless.width > 400.0 * 9.0);
    }

    void rotatedTextGoesThroughItsOwnOperations() {
        QImage image = paper();
        QPainter qpainter(&image);
        NotingPainter painter(qpainter);
        painter.drawRotatedText(3.0, 4.0, 1.5, "abc", lato(13.0), Color(77, 0, 0));
        QCOMPARE(
            painter.notes,
            QStringList({QStringLiteral("save"), QStringLiteral("translate 3 4"),
                         QStringLiteral("rotate 1.5"), QStringLiteral("drawText 0 0 abc 13 77"),
                         QStringLiteral("restore")}));
    }

    void positiveAnglesTurnTextClockwise() {
        Sheet sheet;
        sheet.painter.drawRotatedText(24.0, 4.0, pi / 2.0, "IIIIII", lato(14.0), Color(0, 0, 0));
        // The text runs downwards, and its letters stand to the right of the baseline.
        int right = 0;
        int leftInk = 0;
        int rightInk = 0;
        for (int y = 0; y < canvasSize; ++y) {
            for (int x = 0; x < canvasSize; ++x) {
                if (sheet.at(x, y).red() >= 128)
                    continue;
                QVERIFY(y >= 4);
                ++(x < 24 ? leftInk : rightInk);
                right = std::max(right, x);
            }
        }
        QCOMPARE(leftInk, 0);
        QVERIFY(rightInk > 20);
        QVERIFY(right < 24 + 14);
        QVERIFY(sheet.qpainter.worldTransform().isIdentity());
    }

    void measuresTheAdvanceAndTheRequestedSize_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<double>("size");
        QTest::newRow("empty") << QString() << 12.5;
        QTest::newRow("plain") << QStringLiteral("12,345.6") << 12.0;
        QTest::newRow("fractional size") << QStringLiteral("Title") << 17.3;
        QTest::newRow("beyond ASCII") << QString::fromUtf8("µ – Größe 日") << 20.0;
        QTest::newRow("trailing blank") << QStringLiteral("a ") << 10.0;
    }

    void measuresTheAdvanceAndTheRequestedSize() {
        QFETCH(const QString, text);
        QFETCH(const double, size);
        Sheet sheet;
        const TextExtent extent = sheet.painter.measureText(text.toStdString(), lato(size));
        const QFontMetricsF metrics(latoInQt(static_cast<int>(std::round(size))));
        QCOMPARE(extent.width, metrics.horizontalAdvance(text));
        QCOMPARE(extent.height, size);
        QCOMPARE(extent.width == 0.0, text.isEmpty());
    }

    void measuringLeavesThePainterAlone() {
        Sheet sheet;
        sheet.qpainter.setFont(latoInQt(9));
        sheet.qpainter.setPen(Qt::green);
        sheet.painter.measureText("abc", lato(20.0));
        QCOMPARE(sheet.qpainter.font(), latoInQt(9));
        QCOMPARE(sheet.qpainter.pen(), QPen(Qt::green));
        QVERIFY(sheet.isBlank());
    }

    void theFontThatWasSetHasNoPartInText() {
        Sheet plain;
        plain.painter.drawText(4.0, 30.0, "Ink", lato(14.0), red);
        Sheet sheet;
        sheet.painter.setFont(Font::defaultFont(FontFamily::DejaVuSerifBold, 30.0));
        QCOMPARE(sheet.painter.measureText("Ink", lato(14.0)),
                 plain.painter.measureText("Ink", lato(14.0)));
        sheet.painter.drawText(4.0, 30.0, "Ink", lato(14.0), red);
        QCOMPARE(sheet.picture(), plain.picture());
    }

    void turnsByRadians() {
        Sheet sheet;
        sheet.painter.rotate(3.141592653589793);
        QCOMPARE(sheet.qpainter.worldTransform(), QTransform().rotate(180.0));
        const QPointF turned = sheet.qpainter.worldTransform().map(QPointF(1.0, 0.0));
        QCOMPARE(turned.x(), -1.0);
    }

    void picturesAreCentredAtNaturalSize() {
        Sheet sheet;
        const auto pixels = std::vector<std::uint8_t>(3 * 2 * 4, 0xff);
        sheet.image.fill(Qt::black);
        sheet.painter.drawImage(pixels.data(), 3, 2, 10.0, 10.0);
        Sheet expected;
        expected.image.fill(Qt::black);
        expected.qpainter.drawPixmap(QPointF(8.5, 9.0), QPixmap::fromImage([] {
                                         QImage white(3, 2, QImage::Format_RGB32);
                                         white.fill(Qt::white);
                                         return white;
                                     }()));
        QCOMPARE(sheet.picture(), expected.picture());
        // The corners lie at (8.5, 9) and (11.5, 11): rows 9 and 10, and nothing beyond.
        QCOMPARE(sheet.at(10, 9), QColor(Qt::white));
        QCOMPARE(sheet.at(10, 10), QColor(Qt::white));
        for (int i = 0; i < canvasSize; ++i) {
            QCOMPARE(sheet.at(i, 8), QColor(Qt::black));
            QCOMPARE(sheet.at(i, 11), QColor(Qt::black));
            QCOMPARE(sheet.at(7, i), QColor(Qt::black));
            QCOMPARE(sheet.at(12, i), QColor(Qt::black));
        }
    }

    void picturesAreRowsOfRedGreenBlueAlpha() {
        Sheet sheet;
        const std::vector<std::uint8_t> pixels = {255, 0, 0,   255, 0,   255, 0,   255, //
                                                  0,   0, 255, 255, 255, 0,   255, 0};
        sheet.painter.drawImage(pixels.data(), 2, 2, 11.0, 21.0);
        QCOMPARE(sheet.at(10, 20), redInQt);
        QCOMPARE(sheet.at(11, 20), QColor(0, 255, 0));
        QCOMPARE(sheet.at(10, 21), QColor(0, 0, 255));
        QCOMPARE(sheet.at(11, 21), QColor(Qt::white));
        QCOMPARE(sheet.at(12, 20), QColor(Qt::white));
        const std::vector<std::uint8_t> half = {255, 0, 0, 128};
        sheet.painter.drawImage(half.data(), 1, 1, 30.5, 30.5);
        QVERIFY(std::abs(sheet.at(30, 30).green() - 127) <= 1);
        QCOMPARE(sheet.at(30, 30).red(), 255);
    }

    void rowsHaveNoPaddingAtAnyWidth() {
        for (int width = 1; width <= 5; ++width) {
            Sheet sheet;
            const auto pixels = checkered(width, 3);
            sheet.painter.drawImage(pixels.data(), width, 3, 20.0 + width * 0.5, 21.5);
            for (int y = 0; y < 3; ++y) {
                for (int x = 0; x < width; ++x) {
                    const std::uint8_t* p = pixels.data() + 4 * (y * width + x);
                    const double alpha = p[3] / 255.0;
                    const QColor actual = sheet.at(20 + x, 20 + y);
                    QVERIFY(std::abs(actual.red() - (p[0] * alpha + 255.0 * (1.0 - alpha))) <= 2.0);
                    QVERIFY(std::abs(actual.blue() - (p[2] * alpha + 255.0 * (1.0 - alpha))) <=
                            2.0);
                }
            }
        }
    }

    void aPictureIsRememberedByItsPointerAndSize() {
        Sheet sheet;
        std::vector<std::uint8_t> pixels(4 * 4 * 4, 0xff);
        const auto paint = [&](std::uint8_t green) {
            for (std::size_t i = 0; i < pixels.size(); i += 4) {
                pixels[i] = 0;
                pixels[i + 1] = green;
                pixels[i + 2] = 0;
            }
        };
        paint(200);
        sheet.painter.drawImage(pixels.data(), 4, 4, 10.0, 10.0);
        QCOMPARE(sheet.at(10, 10), QColor(0, 200, 0));
        paint(100);
        sheet.painter.drawImage(pixels.data(), 4, 4, 20.0, 10.0);
        QCOMPARE(sheet.at(20, 10), QColor(0, 200, 0));
        // Neither an empty request nor a null one makes it forget.
        sheet.painter.drawImage(nullptr, 4, 4, 20.0, 10.0);
        sheet.painter.drawImage(pixels.data(), 0, 4, 20.0, 10.0);
        sheet.painter.drawImage(pixels.data(), 4, 4, 30.0, 10.0);
        QCOMPARE(sheet.at(30, 10), QColor(0, 200, 0));
        sheet.painter.drawImage(pixels.data(), 2, 4, 10.0, 30.0);
        QCOMPARE(sheet.at(10, 30), QColor(0, 100, 0));
        paint(50);
        sheet.painter.drawImage(pixels.data(), 2, 3, 20.0, 30.0);
        QCOMPARE(sheet.at(20, 30), QColor(0, 50, 0));
        // Only the last picture is remembered.
        sheet.painter.drawImage(pixels.data(), 4, 4, 30.0, 30.0);
        QCOMPARE(sheet.at(30, 30), QColor(0, 50, 0));
        const std::vector<std::uint8_t> other = pixels;
        paint(25);
        sheet.painter.drawImage(other.data(), 4, 4, 40.0, 30.0);
        QCOMPARE(sheet.at(40, 30), QColor(0, 50, 0));
    }

    void aPictureIsReadDuringTheCallOnly() {
        Sheet sheet;
        auto pixels = std::make_unique<std::vector<std::uint8_t>>(checkered(4, 4));
        const unsigned char* address = pixels->data();
        sheet.painter.drawImage(address, 4, 4, 10.0, 10.0);
        const QImage first = sheet.image.copy(8, 8, 4, 4);
        // The remembered picture is drawn from its copy: the bytes are gone.
        pixels.reset();
        sheet.painter.drawImage(address, 4, 4, 30.0, 30.0);
        QCOMPARE(sheet.image.copy(28, 28, 4, 4), first);
    }

    void picturesWithoutAreaDrawNothing() {
        const auto pixels = checkered(4, 4);
        const struct {
            const unsigned char* data;
            int width;
            int height;
        } rows[] = {
            {nullptr, 4, 4},        {pixels.data(), 0, 4},  {pixels.data(), 4, 0},
            {pixels.data(), -1, 4}, {pixels.data(), 4, -1},
        };
        for (const auto& row : rows) {
            Sheet sheet;
            sheet.painter.drawImage(row.data, row.width, row.height, 10.0, 10.0);
            QVERIFY(sheet.isBlank());
        }
    }
};

QTEST_MAIN(QtPainterTest)
#include "QtPainter_test.moc"
