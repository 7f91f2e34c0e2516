// SPDX-License-Identifier: MIT
#include <QtFontUtils.h>
#include <QtPainter.h>

#include <QFontDatabase>
#include <QFontInfo>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QRawFont>
#include <QTemporaryDir>
#include <QTest>

#include <cstdint>
#include <limits>

using namespace zembra;

namespace {

using Bytes = std::vector<std::uint8_t>;

Font builtIn(int face, double size = 12.0) {
    return Font::defaultFont(static_cast<FontFamily>(face), size);
}

const Bytes& builtInData(int face) {
    // The bytes of a built-in face live as long as the program.
    return builtIn(face).ttfData();
}

QByteArray toQByteArray(const Bytes& bytes) {
    return {reinterpret_cast<const char*>(bytes.data()), static_cast<qsizetype>(bytes.size())};
}

/// The Qt font that a font of the core becomes: what a painter is given by `setFont`.
QFont resolved(const Font& font) {
    QImage image(8, 8, QImage::Format_ARGB32_Premultiplied);
    QPainter qpainter(&image);
    QtPainter(qpainter).setFont(font);
    return qpainter.font();
}

QImage inkOf(const Font& font) {
    QImage image(240, 60, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    QPainter qpainter(&image);
    QtPainter(qpainter).drawText(5.0, 45.0, "Hamburg 27", font, Color(0, 0, 0));
    return image;
}

/// How many font files were handed to Qt since the last call: Qt numbers them.
int registrationsSinceLastCall() {
    static int last = -1;
    const int id = QFontDatabase::addApplicationFontFromData(toQByteArray(builtInData(0)));
    const int between = id - last - 1;
    last = id;
    return between;
}

QString writeFile(const QTemporaryDir& folder, const QString& name, const QByteArray& content) {
    QFile file(folder.filePath(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("cannot write a test file");
    return file.fileName();
}

const QByteArray noFont("this is not a TrueType file");
const Bytes noFontBytes(noFont.begin(), noFont.end());

} // namespace

class QtFontUtilsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { QTest::failOnWarning(QRegularExpression(QStringLiteral(".?"))); }

    // First of all, because families are registered once in the life of a process.
    void eachBuiltInFamilyIsRegisteredWholeAndOnceWhenAFaceOfItIsUsed() {
        QVERIFY(!QFontDatabase::hasFamily(QStringLiteral("Lato")));
        registrationsSinceLastCall();
        resolved(builtIn(2));
        QCOMPARE(registrationsSinceLastCall(), 4);
        for (const int face : {0, 1, 2, 3})
            resolved(builtIn(face));
        QCOMPARE(registrationsSinceLastCall(), 0);
        QVERIFY(!QFontDatabase::hasFamily(QStringLiteral("DejaVu Serif")));
        resolved(builtIn(7));
        QCOMPARE(registrationsSinceLastCall(), 4);
        for (const int face : {4, 5, 6, 7, 0, 3})
            resolved(builtIn(face));
        QCOMPARE(registrationsSinceLastCall(), 0);
        QVERIFY(QFontDatabase::hasFamily(QStringLiteral("DejaVu Serif")));
    }

    void builtInFacesAreFamilyWeightAndSlant_data() {
        QTest::addColumn<int>("face");
        QTest::addColumn<QString>("family");
        QTest::addColumn<int>("weight");
        QTest::addColumn<int>("style");
        const QString lato = QStringLiteral("Lato");
        const QString dejaVu = QStringLiteral("DejaVu Serif");
        const auto row = [](const char* name, int face, const QString& family, int weight,
                            QFont::Style style) {
            QTest::newRow(name) << face << family << weight << static_cast<int>(style);
        };
        row("Lato", 0, lato, 400, QFont::StyleNormal);
        row("Lato Bold", 1, lato, 700, QFont::StyleNormal);
        row("Lato Italic", 2, lato, 400, QFont::StyleItalic);
        row("Lato Bold Italic", 3, lato, 700, QFont::StyleItalic);
        row("DejaVu Serif", 4, dejaVu, 400, QFont::StyleNormal);
        row("DejaVu Serif Bold", 5, dejaVu, 700, QFont::StyleNormal);
        row("DejaVu Serif Oblique", 6, dejaVu, 400, QFont::StyleItalic);
        row("DejaVu Serif Bold Oblique", 7, dejaVu, 700, QFont::StyleItalic);
    }

    void builtInFacesAreFamilyWeightAndSlant() {
        QFETCH(const int, face);
        QFETCH(const QString, family);
        QFETCH(const int, weight);
        QFETCH(const int, style);
        for (const bool bold : {false, true}) {
            for (const bool italic : {false, true}) {
                Font font = builtIn(face, 19.0);
                font.setBold(bold);
                font.setItalic(italic);
                const QFont actual = resolved(font);
                QCOMPARE(actual.families(), QStringList(family));
                QCOMPARE(static_cast<int>(actual.weight()), bold ? 700 : weight);
                QCOMPARE(static_cast<int>(actual.style()),
                         italic ? static_cast<int>(QFont::StyleItalic) : style);
                QCOMPARE(actual.pixelSize(), 19);
                QCOMPARE(actual.styleStrategy(), QFont::PreferAntialias);
                QCOMPARE(actual.hintingPreference(), QFont::PreferNoHinting);
            }
        }
    }

    void builtInFacesAreDrawnFromTheirOwnData() {
        for (int face = 0; face < 8; ++face) {
            const QRawFont used = QRawFont::fromFont(resolved(builtIn(face, 24.0)));
            const QRawFont own(toQByteArray(builtInData(face)), 24.0);
            QVERIFY(own.isValid());
            for (const char* table : {"head", "name"}) {
                QVERIFY(!own.fontTable(table).isEmpty());
                QCOMPARE(used.fontTable(table), own.fontTable(table));
            }
        }
    }

    void theInkOfATextChangesWithItsFace() {
        for (int a = 0; a < 8; ++a) {
            for (int b = 0; b < a; ++b)
                QVERIFY2(inkOf(builtIn(a, 30.0)) != inkOf(builtIn(b, 30.0)),
                         qPrintable(QStringLiteral("%1 %2").arg(a).arg(b)));
            QCOMPARE(inkOf(builtIn(a, 30.0)), inkOf(builtIn(a, 30.0)));
        }
        Font bold = builtIn(0, 30.0);
        bold.setBold(true);
        QCOMPARE(inkOf(bold), inkOf(builtIn(1, 30.0)));
        bold.setItalic(true);
        QCOMPARE(inkOf(bold), inkOf(builtIn(3, 30.0)));
    }

    void theFaceDecidesWhereABuiltInNameContradictsIt_data() {
        QTest::addColumn<QString>("name");
        for (const char* name :
             {"Lato", "Lato Bold", "Lato Italic", "Lato Bold Italic", "DejaVu Serif",
              "DejaVu Serif Bold", "DejaVu Serif Oblique", "DejaVu Serif Bold Oblique"})
            QTest::newRow(name) << QString::fromLatin1(name);
    }

    // A custom font may bear a built-in name; its face is none of the eight, so it gets Qt's
    // default family, and its data are not looked at.
    void theFaceDecidesWhereABuiltInNameContradictsIt() {
        QFETCH(const QString, name);
        registrationsSinceLastCall();
        Font font(builtInData(5), 14.6, name.toStdString());
        font.setBold(true);
        const QFont actual = resolved(font);
        QCOMPARE(actual.families(), QFont().families());
        QCOMPARE(static_cast<int>(actual.weight()), 700);
        QCOMPARE(actual.pixelSize(), 15);
        QCOMPARE(actual.styleStrategy(), QFont::PreferAntialias);
        QCOMPARE(actual.hintingPreference(), QFont::PreferNoHinting);
        QCOMPARE(registrationsSinceLastCall(), 0);
    }

    void otherNamesAreSystemFamiliesAndCaseMatters_data() {
        QTest::addColumn<QString>("name");
        for (const char* name : {"lato", "LATO", "Lato ", "DejaVu Serif Italic", "DejaVu Sans",
                                 "Größe", "No Such Family"})
            QTest::newRow(name) << QString::fromUtf8(name);
    }

    void otherNamesAreSystemFamiliesAndCaseMatters() {
        QFETCH(const QString, name);
        Font font({}, 20.0, name.toStdString());
        QFont actual = resolved(font);
        QCOMPARE(actual.family(), name);
        QCOMPARE(static_cast<int>(actual.weight()), 400);
        QCOMPARE(actual.style(), QFont::StyleNormal);
        QCOMPARE(actual.pixelSize(), 20);
        QCOMPARE(actual.styleStrategy(), QFont::PreferAntialias);
        QCOMPARE(actual.hintingPreference(), QFont::PreferNoHinting);
        font.setBold(true);
        font.setItalic(true);
        actual = resolved(font);
        QCOMPARE(static_cast<int>(actual.weight()), 700);
        QCOMPARE(actual.style(), QFont::StyleItalic);
    }

    void customDataAreRegisteredOnceUnderTheirName() {
        registrationsSinceLastCall();
        const Font font(builtInData(4), 30.0, "House face");
        QCOMPARE(resolved(font).families(), QStringList(QStringLiteral("DejaVu Serif")));
        QCOMPARE(registrationsSinceLastCall(), 1);
        resolved(font);
        QCOMPARE(inkOf(font), inkOf(builtIn(4, 30.0)));
        QCOMPARE(registrationsSinceLastCall(), 0);
    }

    void theFirstDataOfANameDecide() {
        registrationsSinceLastCall();
        const Font first(builtInData(0), 12.0, "Contested");
        const Font second(builtInData(4), 12.0, "Contested");
        const Font bare({}, 12.0, "Contested");
        for (const Font& font : {first, second, bare, first})
            QCOMPARE(resolved(font).families(), QStringList(QStringLiteral("Lato")));
        QCOMPARE(registrationsSinceLastCall(), 1);
    }

    void aNameUsedWithoutDataMayGetThemLater() {
        QCOMPARE(resolved(Font({}, 12.0, "Late")).family(), QStringLiteral("Late"));
        QCOMPARE(resolved(Font(builtInData(4), 12.0, "Late")).family(),
                 QStringLiteral("DejaVu Serif"));
    }

    void rejectedDataLeaveTheNameForGood() {
        registrationsSinceLastCall();
        const QString name = QString::fromUtf8("Kaputt ß");
        QCOMPARE(resolved(Font(noFontBytes, 12.0, name.toStdString())).family(), name);
        QCOMPARE(resolved(Font(builtInData(0), 12.0, name.toStdString())).family(), name);
        QCOMPARE(registrationsSinceLastCall(), 0);
    }

    void sizesAreRoundedToWholePixels_data() {
        QTest::addColumn<double>("size");
        QTest::addColumn<int>("pixels");
        QTest::newRow("half up") << 10.5 << 11;
        QTest::newRow("below half") << 10.49 << 10;
        QTest::newRow("even half up") << 11.5 << 12;
        QTest::newRow("next to half") << 0.5 << 1;
        QTest::newRow("whole") << 12.0 << 12;
        QTest::newRow("large") << 1000.4 << 1000;
    }

    void sizesAreRoundedToWholePixels() {
        QFETCH(const double, size);
        QFETCH(const int, pixels);
        for (const Font& font : {builtIn(0, size), Font({}, size, "Some Family")}) {
            QCOMPARE(resolved(font).pixelSize(), pixels);
            QCOMPARE(resolved(font).pointSize(), -1);
        }
    }

    void sizesBelowHalfAPixelKeepTheDefaultSize_data() {
        QTest::addColumn<double>("size");
        QTest::addColumn<int>("pixels");
        QTest::newRow("0.4") << 0.4 << 0;
        QTest::newRow("largest below half") << 0.49999999999999994 << 0;
        QTest::newRow("0") << 0.0 << 0;
        QTest::newRow("negative half") << -0.5 << -1;
        QTest::newRow("not a number") << std::numeric_limits<double>::quiet_NaN() << 0;
        QTest::newRow("negative infinity")
            << -std::numeric_limits<double>::infinity() << -std::numeric_limits<int>::max();
    }

    void sizesBelowHalfAPixelKeepTheDefaultSize() {
        QFETCH(const double, size);
        QFETCH(const int, pixels);
        const QString warning =
            QStringLiteral("QFont::setPixelSize: Pixel size <= 0 (%1)").arg(pixels);
        QTest::ignoreMessage(QtWarningMsg, qPrintable(warning));
        const QFont actual = resolved(builtIn(0, size));
        QCOMPARE(actual.pixelSize(), QFont().pixelSize());
        QCOMPARE(actual.pointSizeF(), QFont().pointSizeF());
        QCOMPARE(actual.hintingPreference(), QFont::PreferNoHinting);
    }

    void anUnreadableFontFileGivesTheDefaultFont_data() {
        QTest::addColumn<QString>("path");
        QTest::newRow("missing file") << QStringLiteral("/no/such/folder/Face.ttf");
        QTest::newRow("missing resource") << QStringLiteral(":/no/such/Face.ttf");
        QTest::newRow("folder") << QDir::tempPath();
        QTest::newRow("no name") << QString();
        QTest::newRow("empty file") << writeFile(folder, QStringLiteral("Empty.ttf"), {});
    }

    void anUnreadableFontFileGivesTheDefaultFont() {
        QFETCH(const QString, path);
        // Qt has a word of its own to say about a file without a name.
        if (path.isEmpty())
            QTest::ignoreMessage(QtWarningMsg, "QFSFileEngine::open: No file name specified");
        QCOMPARE(loadFontFromResource(path, 17.5, QStringLiteral("Named")), Font(17.5));
    }

    void aFontFileComesWithItsBytesAndTheGivenName() {
        const QString path =
            writeFile(folder, QStringLiteral("Some.ttf"), toQByteArray(builtInData(1)));
        registrationsSinceLastCall();
        const Font font = loadFontFromResource(path, 17.5, QString::fromUtf8("Größe"));
        QCOMPARE(registrationsSinceLastCall(), 0);
        QCOMPARE(QString::fromStdString(font.familyName()), QString::fromUtf8("Größe"));
        QCOMPARE(font.family(), FontFamily::Custom);
        QCOMPARE(font.pixelSize(), 17.5);
        QVERIFY(font.ttfData() == builtInData(1));
        QVERIFY(!font.bold() && !font.italic());
    }

    void aFontFileWithoutAGivenNameHasThatOfItsFamily() {
        // A renamed copy, so that the name can come from nowhere but the file.
        QByteArray renamed = toQByteArray(builtInData(4));
        renamed.replace(QByteArray("\0D\0e\0j\0a\0V\0u\0 \0S\0e\0r\0i\0f", 24),
                        QByteArray("\0A\0b\0c\0d\0e\0f\0 \0S\0e\0r\0i\0f", 24));
        renamed.replace("DejaVu Serif", "Abcdef Serif");
        const QString path = writeFile(folder, QStringLiteral("Other.name.ttf"), renamed);
        registrationsSinceLastCall();
        const Font font = loadFontFromResource(path, 30.0);
        QCOMPARE(registrationsSinceLastCall(), 1);
        QCOMPARE(QString::fromStdString(font.familyName()), QStringLiteral("Abcdef Serif"));
        QVERIFY(toQByteArray(font.ttfData()) == renamed);
        // Known under that name, it is registered once more.
        QCOMPARE(resolved(font).families(), QStringList(QStringLiteral("Abcdef Serif")));
        QCOMPARE(registrationsSinceLastCall(), 1);
        QCOMPARE(inkOf(font), inkOf(builtIn(4, 30.0)));
    }

    void aFileThatIsNoFontIsNamedAfterItsFile_data() {
        QTest::addColumn<QString>("fileName");
        QTest::addColumn<QString>("name");
        QTest::newRow("plain") << QStringLiteral("MyFace-Regular.ttf")
                               << QStringLiteral("MyFace-Regular");
        QTest::newRow("two suffixes")
            << QStringLiteral("MyFace.v2.ttf") << QStringLiteral("MyFace");
        QTest::newRow("no suffix") << QString::fromUtf8("Größe") << QString::fromUtf8("Größe");
    }

    void aFileThatIsNoFontIsNamedAfterItsFile() {
        QFETCH(const QString, fileName);
        QFETCH(const QString, name);
        const QString path = writeFile(folder, fileName, noFont);
        const Font font = loadFontFromResource(path, 12.0, {});
        QCOMPARE(QString::fromStdString(font.familyName()), name);
        QVERIFY(font.ttfData() == noFontBytes);
        const Font named = loadFontFromResource(path, 12.0, QStringLiteral("Given"));
        QCOMPARE(named.familyName(), std::string("Given"));
    }

private:
    QTemporaryDir folder;
};

// The faces come from the core, not from the machine: the fonts installed here are hidden.
int main(int argc, char** argv) {
    const QTemporaryDir folder;
    const QString configuration =
        writeFile(folder, QStringLiteral("fonts.conf"),
                  "<?xml version=\"1.0\"?><!DOCTYPE fontconfig SYSTEM \"fonts.dtd\">"
                  "<fontconfig><cachedir prefix=\"xdg\">fontconfig</cachedir></fontconfig>");
    qputenv("FONTCONFIG_FILE", QFile::encodeName(configuration));
    qputenv("XDG_CACHE_HOME", QFile::encodeName(folder.path()));
    QGuiApplication application(argc, argv);
    QtFontUtilsTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "QtFontUtils_test.moc"
