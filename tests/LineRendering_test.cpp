// SPDX-License-Identifier: MIT
#include <QtPainter.h>

#include <zembra/series/Canvas.h>
#include <zembra/series/LineSeries.h>

#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <QtGui/QPolygonF>
#include <QtTest/QTest>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <numbers>
#include <random>

using namespace zembra;

namespace {

constexpr int imageWidth = 200;
constexpr int imageHeight = 120;
// The reference looks at this many points of a pixel: columns and rows of them.
constexpr int across = 40;
constexpr int down = 12;

struct Data {
    std::vector<double> x;
    std::vector<double> y;
};

Data samplesOf(const QString& kind, std::size_t count) {
    std::mt19937 generator(7);
    std::uniform_real_distribution<double> noise(-1.0, 1.0);
    Data data;
    double walk = 0.0;
    for (std::size_t i = 0; i < count; ++i) {
        const double t = static_cast<double>(i) / static_cast<double>(count - 1);
        const double wave = std::sin(2.0 * std::numbers::pi * 3.0 * t);
        double y = 0.0;
        if (kind == QStringLiteral("noise"))
            y = noise(generator);
        else if (kind == QStringLiteral("walk"))
            y = walk += noise(generator) * 2.0 / std::sqrt(static_cast<double>(count));
        else if (kind == QStringLiteral("wave"))
            y = 0.9 * wave;
        else if (kind == QStringLiteral("noisy wave"))
            y = 0.8 * wave + 0.1 * noise(generator);
        else if (kind == QStringLiteral("spikes"))
            y = i % (count / 23) == count / 46 ? 0.9 : -0.5;
        else if (kind == QStringLiteral("mixed"))
            y = 0.6 * wave + (t > 0.3 && t < 0.5 ? 0.3 * noise(generator) : 0.0);
        data.x.push_back(t);
        data.y.push_back(y);
    }
    return data;
}

// Samples whose x goes to and fro.
Data unsortedSamplesOf(const QString& kind, std::size_t count) {
    std::mt19937 generator(7);
    std::uniform_real_distribution<double> share(0.0, 1.0);
    Data data;
    for (std::size_t i = 0; i < count; ++i) {
        const double t = 60.0 * static_cast<double>(i) / static_cast<double>(count);
        const bool scribble = kind == QStringLiteral("scribble");
        data.x.push_back(scribble ? share(generator) : 0.5 + 0.5 * std::sin(3.0 * t));
        data.y.push_back(scribble ? 1.9 * share(generator) - 0.95 : 0.95 * std::sin(3.1 * t));
    }
    return data;
}

ScaleMap mapX(double first, double last) {
    return ScaleMap(Scale::linear(), 0.0, imageWidth, first, last);
}

const ScaleMap mapY(Scale::linear(), imageHeight, 0.0, -1.0, 1.0);

QImage drawn(const LineSeries& series, const ScaleMap& x, const Color& color) {
    QImage image(imageWidth, imageHeight, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    QPainter painter(&image);
    QtPainter target(painter);
    FrameBuffers buffers;
    SeriesLook look;
    look.color = color;
    Canvas canvas(target, {0.0, 0.0, imageWidth, imageHeight}, x, mapY, look, buffers);
    series.draw(canvas);
    return image;
}

// The stroke of all samples, without any reduction: every segment and every bevel is a polygon, and
// a pixel is as dark as the share of its points that lie in one of them.
class ExactStroke {
public:
    ExactStroke(const Data& data, const ScaleMap& x, double width) : half(0.5 * width) {
        std::vector<QPointF> points;
        for (std::size_t i = 0; i < data.x.size(); ++i)
            points.emplace_back(x.transform(data.x[i]), mapY.transform(data.y[i]));
        for (std::size_t i = 1; i < points.size(); ++i) {
            QPointF from = points[i - 1];
            QPointF to = points[i];
            const QPointF n = normal(from, to);
            const QPointF along(n.y(), -n.x());
            if (i > 1) {
                const QPointF m = normal(points[i - 2], from);
                fill(std::array{from, from + m, from + n});
                fill(std::array{from, from - m, from - n});
            } else {
                from -= along;
            }
            if (i + 1 == points.size())
                to += along;
            fill(std::array{from + n, to + n, to - n, from - n});
        }
    }

    int shade(int column, int row) const {
        int hits = 0;
        for (int i = 0; i < across; ++i)
            for (int k = 0; k < down; ++k)
                hits += inked[index(column * across + i, row * down + k)];
        return 255 - qRound(255.0 * hits / (across * down));
    }

private:
    static std::size_t index(int column, int row) {
        return static_cast<std::size_t>(row) * imageWidth * across +
               static_cast<std::size_t>(column);
    }

    QPointF normal(const QPointF& a, const QPointF& b) const {
        const QPointF way = b - a;
        const double length = std::hypot(way.x(), way.y());
        return length > 0.0 ? QPointF(-way.y(), way.x()) * (half / length) : QPointF();
    }

    // Convex polygons only: a row of points lies inside from one edge to another.
    template <std::size_t n>
    void fill(const std::array<QPointF, n>& polygon) {
        const auto [highest, lowest] =
            std::minmax_element(polygon.begin(), polygon.end(),
                                [](const QPointF& a, const QPointF& b) { return a.y() < b.y(); });
        const int first = rowAfter(highest->y());
        const int last = rowAfter(lowest->y());
        std::fill(lefts.begin() + first, lefts.begin() + last, 1e9);
        std::fill(rights.begin() + first, rights.begin() + last, -1e9);
        for (std::size_t i = 0; i < n; ++i) {
            const auto [a, b] = std::minmax(
                polygon[i], polygon[(i + 1) % n],
                [](const QPointF& one, const QPointF& other) { return one.y() < other.y(); });
            const double slope = (b.x() - a.x()) / (b.y() - a.y());
            const int end = rowAfter(b.y());
            for (int row = rowAfter(a.y()); row < end; ++row) {
                const double x = a.x() + ((row + 0.5) / down - a.y()) * slope;
                const auto r = static_cast<std::size_t>(row);
                lefts[r] = std::min(lefts[r], x);
                rights[r] = std::max(rights[r], x);
            }
        }
        for (int row = first; row < last; ++row) {
            const auto r = static_cast<std::size_t>(row);
            const int begin = std::max(0, static_cast<int>(std::ceil(lefts[r] * across - 0.5)));
            const int end = std::min(imageWidth * across,
                                     static_cast<int>(std::floor(rights[r] * across - 0.5)) + 1);
            if (begin < end)
                std::memset(&inked[index(begin, row)], 1, static_cast<std::size_t>(end - begin));
        }
    }

    // The first row of points below y.
    static int rowAfter(double y) {
        return std::clamp(static_cast<int>(std::floor(y * down - 0.5)) + 1, 0, imageHeight * down);
    }

    double half;
    std::vector<char> inked =
        std::vector<char>(static_cast<std::size_t>(imageWidth * imageHeight * across * down));
    // Where the polygon that is being filled begins and ends in each row of points.
    std::array<double, imageHeight * down> lefts{};
    std::array<double, imageHeight * down> rights{};
};

// The stroke of all samples as the painter itself draws it.
QImage painted(const Data& data, const ScaleMap& x, double width) {
    QImage image(imageWidth, imageHeight, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    QPolygonF line;
    for (std::size_t i = 0; i < data.x.size(); ++i)
        line << QPointF(x.transform(data.x[i]), mapY.transform(data.y[i]));
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(Qt::black, width));
    painter.drawPolyline(line);
    return image;
}

// The mean difference of shades, over the pixels that either line touches.
template <class Shade>
double meanError(const QImage& image, Shade shade) {
    double sum = 0.0;
    int touched = 0;
    for (int row = 0; row < imageHeight; ++row) {
        for (int column = 0; column < imageWidth; ++column) {
            const int expected = shade(column, row);
            const int actual = qRed(image.pixel(column, row));
            if (expected == 255 && actual == 255)
                continue;
            ++touched;
            sum += std::abs(expected - actual) / 255.0;
        }
    }
    return touched > 0 ? sum / touched : 0.0;
}

/// How far the picture of a line is from the exact stroke of all its samples.
double errorOfLine(const Data& data, const ScaleMap& x, double width) {
    LineSeries series(data.x, data.y);
    series.setWidth(width);
    const ExactStroke exact(data, x, width);
    return meanError(drawn(series, x, Color()),
                     [&exact](int column, int row) { return exact.shade(column, row); });
}

} // namespace

class LineRendering : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void aDenseLineLooksLikeTheStrokeOfAllSamples_data();
    void aDenseLineLooksLikeTheStrokeOfAllSamples();
    void aDensePathThatGoesToAndFroLooksLikeTheStrokeOfAllSamples_data();
    void aDensePathThatGoesToAndFroLooksLikeTheStrokeOfAllSamples();
    void aSimpleLineIsThePaintersOwnStroke_data();
    void aSimpleLineIsThePaintersOwnStroke();
    void aSmoothLineOfManySamplesIsNoWorseThanThePaintersStrokeOfFew();
};

void LineRendering::init() {
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".?")));
}

void LineRendering::aDenseLineLooksLikeTheStrokeOfAllSamples_data() {
    QTest::addColumn<QString>("kind");
    QTest::addColumn<int>("count");
    QTest::addColumn<double>("width");
    for (const char* kind : {"noise", "noisy wave", "mixed"})
        for (int count : {1000, 5000, 30000, 200000, 500000})
            for (double width : {1.0, 2.0})
                QTest::addRow("%s, %d samples, %g px", kind, count, width)
                    << QString::fromLatin1(kind) << count << width;
}

void LineRendering::aDenseLineLooksLikeTheStrokeOfAllSamples() {
    QFETCH(QString, kind);
    QFETCH(int, count);
    QFETCH(double, width);
    const Data data = samplesOf(kind, static_cast<std::size_t>(count));
    const double error = errorOfLine(data, mapX(-0.01, 1.01), width);
    QVERIFY2(error < (width > 1.0 ? 0.02 : 0.01), qPrintable(QString::number(100.0 * error)));
}

void LineRendering::aDensePathThatGoesToAndFroLooksLikeTheStrokeOfAllSamples_data() {
    QTest::addColumn<QString>("kind");
    QTest::addColumn<int>("count");
    QTest::addColumn<double>("width");
    for (const char* kind : {"scribble", "Lissajous curve"})
        for (int count : {300, 3000, 30000})
            for (double width : {1.0, 2.0, 6.0})
                QTest::addRow("%s, %d samples, %g px", kind, count, width)
                    << QString::fromLatin1(kind) << count << width;
}

void LineRendering::aDensePathThatGoesToAndFroLooksLikeTheStrokeOfAllSamples() {
    QFETCH(QString, kind);
    QFETCH(int, count);
    QFETCH(double, width);
    const Data data = unsortedSamplesOf(kind, static_cast<std::size_t>(count));
    // A part of the path lies beside the picture.
    const double error = errorOfLine(data, mapX(0.05, 1.1), width);
    // Thirty-two points of each pixel are looked at.
    QVERIFY2(error < 0.02, qPrintable(QString::number(100.0 * error)));
}

void LineRendering::aSimpleLineIsThePaintersOwnStroke_data() {
    QTest::addColumn<QString>("kind");
    QTest::addColumn<int>("count");
    QTest::addColumn<double>("width");
    for (const char* kind : {"wave", "noise"})
        for (int count : {30, 100})
            for (double width : {1.0, 2.0})
                QTest::addRow("%s, %d samples, %g px", kind, count, width)
                    << QString::fromLatin1(kind) << count << width;
}

void LineRendering::aSimpleLineIsThePaintersOwnStroke() {
    QFETCH(QString, kind);
    QFETCH(int, count);
    QFETCH(double, width);
    const Data data = samplesOf(kind, static_cast<std::size_t>(count));
    LineSeries series(data.x, data.y);
    series.setWidth(width);
    const ScaleMap x = mapX(-0.01, 1.01);
    const QImage expected = painted(data, x, width);
    const double error = meanError(drawn(series, x, Color()), [&expected](int column, int row) {
        return qRed(expected.pixel(column, row));
    });
    QVERIFY2(error < (width > 1.0 ? 0.02 : 0.01), qPrintable(QString::number(100.0 * error)));
}

void LineRendering::aSmoothLineOfManySamplesIsNoWorseThanThePaintersStrokeOfFew() {
    const Data few = samplesOf(QStringLiteral("wave"), 1000);
    const Data many = samplesOf(QStringLiteral("wave"), 100000);
    const ScaleMap x = mapX(-0.01, 1.01);
    LineSeries series(many.x, many.y);
    series.setWidth(1.0);
    const ExactStroke exact(many, x, 1.0);
    const auto shade = [&exact](int column, int row) { return exact.shade(column, row); };
    QVERIFY(meanError(drawn(series, x, Color()), shade) < meanError(painted(few, x, 1.0), shade));
}

QTEST_MAIN(LineRendering)
#include "LineRendering_test.moc"
