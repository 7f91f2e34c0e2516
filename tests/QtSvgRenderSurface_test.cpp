// SPDX-License-Identifier: MIT
#include <QtRenderSurface.h>
#include <QtSvgRenderSurface.h>

#include <zembra/chart/Plot.h>
#include <zembra/series/LineSeries.h>
#include <zembra/series/ScatterSeries.h>

#include <QImage>
#include <QPainter>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>
#include <QTransform>
#include <QXmlStreamReader>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <functional>
#include <memory>
#include <type_traits>

using namespace zembra;

namespace {

const Color black(0, 0, 0);
const Color lineColor(1, 2, 3);
const Color discColor(4, 5, 6);

static_assert(!std::is_copy_constructible_v<QtSvgRenderSurface>);
static_assert(!std::is_copy_assignable_v<QtSvgRenderSurface>);
static_assert(std::is_base_of_v<RenderSurface, QtSvgRenderSurface>);

/// A shape of a document: where it lies in the document's units, and its colours.
struct Shape {
    QString element;
    QRectF box;
    QString stroke;
    QString fill;
};

/// What a document says, as far as the tests want to know.
struct Document {
    bool isComplete = false;
    QString viewBox;
    QString title;
    QStringList texts;
    QList<Shape> shapes;
};

QTransform toTransform(const QString& text) {
    static const QRegularExpression matrix(QStringLiteral("^matrix\\(([^)]*)\\)$"));
    const QStringList n = matrix.match(text).captured(1).split(QLatin1Char(','));
    if (n.size() != 6)
        return {};
    return {n[0].toDouble(), n[1].toDouble(), n[2].toDouble(),
            n[3].toDouble(), n[4].toDouble(), n[5].toDouble()};
}

QRectF boxOfNumbers(const QString& text) {
    static const QRegularExpression pair(QStringLiteral("(-?[0-9.]+(?:e[-+]?[0-9]+)?),"
                                                        "(-?[0-9.]+(?:e[-+]?[0-9]+)?)"));
    QPolygonF points;
    for (auto it = pair.globalMatch(text); it.hasNext();) {
        const auto match = it.next();
        points << QPointF(match.captured(1).toDouble(), match.captured(2).toDouble());
    }
    return points.boundingRect();
}

QRectF boxOf(const QString& element, const QXmlStreamAttributes& a) {
    const auto number = [&](const char* name) { return a.value(QLatin1String(name)).toDouble(); };
    if (element == QLatin1String("polyline") || element == QLatin1String("polygon"))
        return boxOfNumbers(a.value(QLatin1String("points")).toString());
    if (element == QLatin1String("path"))
        return boxOfNumbers(a.value(QLatin1String("d")).toString());
    if (element == QLatin1String("rect"))
        return {number("x"), number("y"), number("width"), number("height")};
    const double rx = number("rx") + number("r");
    const double ry = number("ry") + number("r");
    return {number("cx") - rx, number("cy") - ry, 2.0 * rx, 2.0 * ry};
}

Document read(const std::string& svg) {
    static const QStringList shapeElements = {
        QStringLiteral("polyline"), QStringLiteral("polygon"), QStringLiteral("path"),
        QStringLiteral("rect"),     QStringLiteral("circle"),  QStringLiteral("ellipse")};
    Document document;
    QXmlStreamReader xml(QByteArray::fromStdString(svg));
    Shape group;
    QTransform transform;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        const QString element = xml.name().toString();
        const QXmlStreamAttributes a = xml.attributes();
        if (element == QLatin1String("svg")) {
            document.viewBox = a.value(QLatin1String("viewBox")).toString();
        } else if (element == QLatin1String("g")) {
            group.stroke = a.value(QLatin1String("stroke")).toString();
            group.fill = a.value(QLatin1String("fill")).toString();
            transform = toTransform(a.value(QLatin1String("transform")).toString());
        } else if (element == QLatin1String("title")) {
            document.title = xml.readElementText();
        } else if (element == QLatin1String("text")) {
            document.texts.append(xml.readElementText());
        } else if (shapeElements.contains(element)) {
            document.shapes.append(
                {element, transform.mapRect(boxOf(element, a)), group.stroke, group.fill});
        }
    }
    document.isComplete = !xml.hasError();
    return document;
}

/// Far zoomed in, so that most of the data lie outside the canvas. Without names, so that no
/// legend shows the colours outside it.
void fillWithZoomedData(Plot& plot) {
    std::vector<double> x, y;
    for (int i = 0; i < 400; ++i) {
        x.push_back(i * 0.05);
        y.push_back(100.0 * std::sin(i * 0.3));
    }
    plot.setTitle("Zoomed plot");
    const auto line = plot.add<LineSeries>(x, y);
    line->setColor(lineColor);
    line->setWidth(3.0);
    for (double& value : y)
        value *= 0.01;
    const auto discs = plot.add<ScatterSeries>(x, y);
    discs->setColor(discColor);
    discs->setMarkerSize(9.0);
    plot.setAxisScale(2, 3.02, 9.01);
    plot.setAxisScale(0, -0.503, 0.497);
}

/// Whether a box, which may be flat, lies in a rectangle widened by `margin`.
bool isWithin(const QRectF& box, const Rect& rect, double margin) {
    // The numbers of a document have six digits.
    const Rect room = rect.grown(margin + 0.01);
    return room.contains({box.left(), box.top()}) && room.contains({box.right(), box.bottom()});
}

/// What another program makes of a document.
QImage converted(const std::string& svg, int width, int height) {
    QProcess converter;
    converter.start(QStandardPaths::findExecutable(QStringLiteral("rsvg-convert")),
                    {QStringLiteral("--width"), QString::number(width), QStringLiteral("--height"),
                     QString::number(height)});
    converter.write(QByteArray::fromStdString(svg));
    converter.closeWriteChannel();
    if (!converter.waitForFinished() || converter.exitCode() != 0)
        return {};
    return QImage::fromData(converter.readAllStandardOutput(), "PNG")
        .convertToFormat(QImage::Format_RGBA8888);
}

QImage toImage(const std::vector<std::uint8_t>& rgba, int width, int height) {
    return QImage(rgba.data(), width, height, width * 4, QImage::Format_RGBA8888).copy();
}

QImage onWhite(const QImage& image) {
    QImage result(image.size(), QImage::Format_RGB32);
    result.fill(Qt::white);
    QPainter(&result).drawImage(0, 0, image);
    return result;
}

QRect inkOf(const QImage& image) {
    QRect box;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (qAlpha(image.pixel(x, y)) > 100)
                box |= QRect(x, y, 1, 1);
    return box;
}

using Draw = std::function<void(Painter&)>;

} // namespace

Q_DECLARE_METATYPE(Draw)

class QtSvgRenderSurfaceTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".?"))); }

    void anEmptyDocumentIsCompleteAndHasSizeAndTitle() {
        QtSvgRenderSurface surface;
        surface.create(200, 100);
        const Document document = read(surface.svgData());
        QVERIFY(document.isComplete);
        QCOMPARE(document.viewBox, QStringLiteral("0 0 200 100"));
        QCOMPARE(document.title, QStringLiteral("Zembra SVG"));
        QVERIFY(document.shapes.isEmpty());
        QVERIFY(document.texts.isEmpty());
    }

    void hasNoPixelsWhateverWasDrawn() {
        QtSvgRenderSurface surface;
        QVERIFY(surface.getImageData(100, 100).empty());
        surface.create(100, 100);
        surface.painter()->fillRect({10.0, 20.0, 30.0, 40.0}, black);
        QVERIFY(surface.getImageData(100, 100).empty());
        QVERIFY(surface.getImageData(-1, 5).empty());
        // It is no way to end painting either.
        QVERIFY(surface.painter());
        QCOMPARE(read(surface.svgData()).shapes.size(), 1);
        QVERIFY(surface.getImageData(100, 100).empty());
    }

    void drawingIsInThePixelsOfTheSurface() {
        QtSvgRenderSurface surface;
        surface.create(200, 100);
        surface.painter()->fillRect({10.0, 20.0, 30.0, 40.0}, Color(255, 0, 0));
        surface.painter()->setPen(Pen(lineColor, 2.0));
        surface.painter()->drawPolyline({{1.5, 2.5}, {50.0, 60.0}, {70.25, 3.0}});
        surface.scale(2.0, 3.0);
        surface.scale(1.0, 0.5);
        surface.painter()->fillRect({10.0, 20.0, 30.0, 40.0}, Color(0, 255, 0));
        const Document document = read(surface.svgData());
        QVERIFY(document.isComplete);
        QCOMPARE(document.shapes.size(), 3);
        QCOMPARE(document.shapes[0].box, QRectF(10.0, 20.0, 30.0, 40.0));
        QCOMPARE(document.shapes[0].fill, QStringLiteral("#ff0000"));
        QCOMPARE(document.shapes[1].box, QRectF(QPointF(1.5, 2.5), QPointF(70.25, 60.0)));
        QCOMPARE(document.shapes[1].stroke, QStringLiteral("#010203"));
        QCOMPARE(document.shapes[2].box, QRectF(20.0, 30.0, 60.0, 60.0));
    }

    void textStaysText() {
        QtSvgRenderSurface surface;
        surface.create(200, 100);
        surface.painter()->drawText(10.0, 20.0, "a < b & \"µ\" – Größe", Font(12.0), black);
        const std::string svg = surface.svgData();
        const Document document = read(svg);
        QVERIFY(document.isComplete);
        QCOMPARE(document.texts, QStringList(QString::fromUtf8("a < b & \"µ\" – Größe")));
        QVERIFY(svg.find("font-family=\"Lato\"") != std::string::npos);
        QVERIFY(svg.find("font-size=\"12\"") != std::string::npos);
    }

    void thereIsAPainterFromCreateToTheEndOfPainting_data() {
        QTest::addColumn<int>("end");
        QTest::newRow("finalize") << 0;
        QTest::newRow("svgData") << 1;
        QTest::newRow("saveToFile") << 2;
        QTest::newRow("saveToFile that fails") << 3;
    }

    void thereIsAPainterFromCreateToTheEndOfPainting() {
        QFETCH(const int, end);
        QtSvgRenderSurface surface;
        QVERIFY(!surface.painter());
        surface.create(20, 10);
        QVERIFY(surface.painter());
        QCOMPARE(surface.painter(), surface.painter());
        if (end == 0)
            surface.finalize();
        else if (end == 1)
            surface.svgData();
        else
            QCOMPARE(surface.saveToFile(path(end == 2 ? "ok.svg" : "no/such/folder.svg")),
                     end == 2);
        QVERIFY(!surface.painter());
        surface.finalize();
        QVERIFY(read(surface.svgData()).isComplete);
        surface.create(20, 10);
        QVERIFY(surface.painter());
    }

    void theDocumentMayBeTakenRepeatedly() {
        QtSvgRenderSurface surface;
        surface.create(20, 10);
        surface.painter()->fillRect({1.0, 2.0, 3.0, 4.0}, black);
        const std::string first = surface.svgData();
        QVERIFY(surface.saveToFile(path("first.svg")));
        QVERIFY(surface.saveToFile(path("second.svg")));
        QCOMPARE(surface.svgData(), first);
        QCOMPARE(fileContent("first.svg"), first);
        QCOMPARE(fileContent("second.svg"), first);
    }

    void savingReplacesAFileAndTakesUtf8Names() {
        {
            QFile file(QString::fromStdString(path("Größe.svg")));
            QVERIFY(file.open(QIODevice::WriteOnly));
            file.write(QByteArray(100000, 'x'));
        }
        QtSvgRenderSurface surface;
        surface.create(20, 10);
        QVERIFY(surface.saveToFile(path("Größe.svg")));
        QCOMPARE(fileContent("Größe.svg"), surface.svgData());
        QVERIFY(read(fileContent("Größe.svg")).isComplete);
    }

    void savingWhereNoFileCanBeOpenedFailsAndKeepsTheDocument() {
        QtSvgRenderSurface surface;
        surface.create(20, 10);
        surface.painter()->fillRect({1.0, 2.0, 3.0, 4.0}, black);
        QVERIFY(!surface.saveToFile(path("no/such/folder.svg")));
        QVERIFY(!surface.painter());
        QCOMPARE(read(surface.svgData()).shapes.size(), 1);
        QVERIFY(read(surface.svgData()).isComplete);
    }

    // Opening a full device succeeds; that writing to it falls short is not looked at.
    void aWriteThatFallsShortIsNotAFailure() {
        if (!QFile::exists(QStringLiteral("/dev/full")))
            QSKIP("there is no /dev/full here");
        QtSvgRenderSurface surface;
        surface.create(20, 10);
        QVERIFY(surface.saveToFile("/dev/full"));
    }

    void createStartsAfreshInEveryState() {
        QtSvgRenderSurface surface;
        surface.create(20, 10);
        surface.painter()->fillRect({1.0, 2.0, 3.0, 4.0}, black);
        surface.scale(5.0, 5.0);
        surface.create(30, 40);
        surface.painter()->fillRect({1.0, 2.0, 5.0, 6.0}, black);
        Document document = read(surface.svgData());
        QVERIFY(document.isComplete);
        QCOMPARE(document.viewBox, QStringLiteral("0 0 30 40"));
        QCOMPARE(document.shapes.size(), 1);
        QCOMPARE(document.shapes[0].box, QRectF(1.0, 2.0, 5.0, 6.0));
        surface.create(50, 60);
        document = read(surface.svgData());
        QVERIFY(document.isComplete);
        QCOMPARE(document.viewBox, QStringLiteral("0 0 50 60"));
        QVERIFY(document.shapes.isEmpty());
    }

    void beforeCreateNothingHappens() {
        QtSvgRenderSurface surface;
        surface.scale(2.0, 2.0);
        surface.finalize();
        QCOMPARE(surface.svgData(), std::string());
        QVERIFY(!surface.saveToFile(path("never.svg")));
        QVERIFY(!QFile::exists(QString::fromStdString(path("never.svg"))));
        QVERIFY(!surface.painter());
    }

    void scalingAFinishedDocumentDoesNothing() {
        QtSvgRenderSurface surface;
        surface.create(20, 10);
        const std::string svg = surface.svgData();
        surface.scale(2.0, 2.0);
        QCOMPARE(surface.svgData(), svg);
    }

    // Also while painting: ending it writes into the buffer, which has to be there still.
    void mayBeDestroyedInEveryState() {
        for (const int steps : {0, 1, 2}) {
            auto surface = std::make_unique<QtSvgRenderSurface>();
            if (steps > 0) {
                surface->create(20, 10);
                surface->painter()->drawText(1.0, 9.0, "x", Font(8.0), black);
            }
            if (steps > 1)
                surface->finalize();
            QCOMPARE(surface->painter() != nullptr, steps == 1);
            const std::unique_ptr<RenderSurface> base = std::move(surface);
        }
    }

    void aZoomedPlotHasNoCoordinatesOutsideItsCanvas() {
        Plot plot;
        fillWithZoomedData(plot);
        QtSvgRenderSurface surface;
        surface.create(400, 300);
        plot.renderInto(*surface.painter(), 400, 300);
        const Document document = read(surface.svgData());
        QVERIFY(document.isComplete);
        const Rect canvas = plot.canvasRect();
        int lines = 0;
        int discs = 0;
        for (const Shape& shape : document.shapes) {
            const QByteArray where = QDebug::toString(shape.box).toUtf8();
            QVERIFY2(isWithin(shape.box, {0.0, 0.0, 400.0, 300.0}, 1.0), where);
            if (shape.stroke == QLatin1String("#010203")) {
                QVERIFY2(isWithin(shape.box, canvas, 3.0), where);
                ++lines;
            } else if (shape.fill == QLatin1String("#040506")) {
                QVERIFY2(isWithin(shape.box, canvas, 0.0), where);
                ++discs;
            }
        }
        QVERIFY(lines >= 1);
        QVERIFY(discs >= 10);
        QVERIFY(document.texts.contains(QStringLiteral("Zoomed plot")));
    }

    void anotherProgramPutsTextWhereThePixelsHaveIt_data() {
        QTest::addColumn<int>("face");
        QTest::addColumn<double>("size");
        QTest::addColumn<double>("angle");
        QTest::newRow("Lato") << 0 << 12.0 << 0.0;
        QTest::newRow("Lato Bold") << 1 << 24.0 << 0.0;
        QTest::newRow("Lato Italic, upwards") << 2 << 16.0 << -M_PI_2;
        QTest::newRow("DejaVu Serif") << 4 << 15.0 << 0.0;
        QTest::newRow("DejaVu Serif Bold, askew") << 5 << 15.0 << 0.5;
    }

    void anotherProgramPutsTextWhereThePixelsHaveIt() {
        QFETCH(const int, face);
        QFETCH(const double, size);
        QFETCH(const double, angle);
        if (!hasConverter())
            QSKIP("rsvg-convert is not installed");
        const Font font = Font::defaultFont(static_cast<FontFamily>(face), size);
        const auto draw = [&](Painter& painter) {
            painter.drawRotatedText(150.0, 150.0, angle, "Hamburg 1,234.5", font, black);
        };
        QtRenderSurface raster;
        raster.create(300, 300);
        draw(*raster.painter());
        QtSvgRenderSurface vector;
        vector.create(300, 300);
        draw(*vector.painter());
        const QRect expected = inkOf(toImage(raster.getImageData(300, 300), 300, 300));
        const QRect actual = inkOf(converted(vector.svgData(), 300, 300));
        QVERIFY(expected.width() > 10 && expected.height() > 6);
        const QByteArray boxes = (QDebug::toString(expected) + QDebug::toString(actual)).toUtf8();
        QVERIFY2(std::abs(actual.left() - expected.left()) <= 2, boxes);
        QVERIFY2(std::abs(actual.right() - expected.right()) <= 2, boxes);
        QVERIFY2(std::abs(actual.top() - expected.top()) <= 2, boxes);
        QVERIFY2(std::abs(actual.bottom() - expected.bottom()) <= 2, boxes);
    }

    void anotherProgramShowsWhatThePixelsShow_data() {
        QTest::addColumn<Draw>("draw");
        const auto row = [](const char* name, Draw draw) { QTest::newRow(name) << draw; };
        row("lines", [](Painter& p) {
            Pen pen(Color(200, 0, 0), 5.0);
            p.setPen(pen);
            p.drawLine(20.0, 20.0, 280.0, 60.0);
            pen.setStyle(PenStyle::DashDot);
            p.setPen(pen);
            p.drawLine(20.0, 60.0, 280.0, 60.0);
            pen.setDashPattern({5.0, 3.0, 1.0, 3.0});
            p.setPen(pen);
            p.drawPolyline({{20.0, 90.0}, {200.0, 100.0}, {150.0, 180.0}, {280.0, 190.0}});
            pen.setDashPattern({});
            pen.setStyle(PenStyle::None);
            p.setPen(pen);
            p.drawLine(20.0, 80.0, 280.0, 80.0);
        });
        row("outlines", [](Painter& p) {
            p.setPen(Pen(Color(0, 0, 200, 160), 8.0));
            p.setBrush(Brush(Color(0, 200, 0)));
            p.drawRect({20.0, 20.0, 100.5, 60.25});
            p.drawEllipse(200.0, 60.0, 50.0, 30.0);
        });
        row("fills", [](Painter& p) {
            p.fillRect({20.0, 20.0, 100.5, 60.25}, Color(0, 200, 0, 100));
            p.fillEllipse(120.0, 60.0, 50.0, 30.0, Color(0, 0, 200, 100));
            p.fillPolygon(
                {{224.0, 20.0}, {280.0, 188.0}, {140.0, 80.0}, {308.0, 80.0}, {168.0, 188.0}},
                Color(200, 0, 0));
        });
        row("pictures", [](Painter& p) {
            std::vector<std::uint8_t> pixels;
            for (int i = 0; i < 60 * 40; ++i)
                for (const int component : {i / 60 * 6, 0, i % 60 * 4, i % 3 ? 255 : 60})
                    pixels.push_back(static_cast<std::uint8_t>(component));
            p.drawImage(pixels.data(), 60, 40, 150.0, 100.0);
        });
        row("moved and turned", [](Painter& p) {
            p.translate(150.0, 100.0);
            p.rotate(0.7);
            p.save();
            p.translate(20.0, 10.0);
            p.fillRect({-40.0, -20.0, 80.0, 40.0}, Color(200, 0, 0));
            p.restore();
            p.setPen(Pen(black, 4.0));
            p.drawRect({-40.0, -20.0, 80.0, 40.0});
        });
        row("zoomed plot", [](Painter& p) {
            Plot plot;
            fillWithZoomedData(plot);
            plot.renderInto(p, 640, 400);
        });
    }

    void anotherProgramShowsWhatThePixelsShow() {
        QFETCH(const Draw, draw);
        if (!hasConverter())
            QSKIP("rsvg-convert is not installed");
        constexpr int width = 640;
        constexpr int height = 400;
        QtRenderSurface raster;
        raster.create(width, height);
        draw(*raster.painter());
        QtSvgRenderSurface vector;
        vector.create(width, height);
        draw(*vector.painter());
        const QImage expected = onWhite(toImage(raster.getImageData(width, height), width, height));
        const QImage actual = onWhite(converted(vector.svgData(), width, height));
        QCOMPARE(actual.size(), expected.size());
        int ink = 0;
        int different = 0;
        for (int y = 0; y < height; ++y) {
            for (int x = 0; x < width; ++x) {
                const QColor a = actual.pixelColor(x, y);
                const QColor e = expected.pixelColor(x, y);
                ink += std::min({e.red(), e.green(), e.blue()}) < 200;
                different += std::max({std::abs(a.red() - e.red()), std::abs(a.green() - e.green()),
                                       std::abs(a.blue() - e.blue())}) > 80;
            }
        }
        QVERIFY(ink > 1000);
        // Edges are smoothed in two ways.
        QVERIFY2(different * 200 < ink,
                 qPrintable(QStringLiteral("%1 pixels of %2 differ").arg(different).arg(ink)));
    }

private:
    static bool hasConverter() {
        return !QStandardPaths::findExecutable(QStringLiteral("rsvg-convert")).isEmpty();
    }

    std::string path(const char* name) const {
        return folder.filePath(QString::fromUtf8(name)).toStdString();
    }

    std::string fileContent(const char* name) const {
        QFile file(QString::fromStdString(path(name)));
        return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : std::string();
    }

    QTemporaryDir folder;
};

QTEST_MAIN(QtSvgRenderSurfaceTest)
#include "QtSvgRenderSurface_test.moc"
