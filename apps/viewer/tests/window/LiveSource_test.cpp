// SPDX-License-Identifier: MIT
#include "window/LiveSource.h"

#include <QFile>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

using viewer::LiveSource;

class LiveSourceTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        QTest::failOnWarning(QRegularExpression(QStringLiteral(".?")));
        folder = std::make_unique<QTemporaryDir>();
    }

    void RowsThatAreAddedToAFileAreDrawn() {
        write("t,a\n1,2\n", QIODevice::WriteOnly);
        LiveSource source(path().toStdString(), {});
        const QSignalSpy started(&source, &LiveSource::started);
        const QSignalSpy grown(&source, &LiveSource::grown);
        source.start();
        QTRY_COMPARE(started.size(), 1);
        QCOMPARE(source.table().rows(), std::size_t{1});
        write("2,", QIODevice::Append);
        write("5\n3,4\n", QIODevice::Append);
        QTRY_COMPARE(source.table().rows(), std::size_t{3});
        QTRY_VERIFY(grown.size() >= 1);
        QCOMPARE(started.size(), 1);
    }

    void AFileThatIsCutShortIsReadAgain() {
        write("t,a\n1,2\n2,3\n3,4\n", QIODevice::WriteOnly);
        LiveSource source(path().toStdString(), {});
        source.start();
        QTRY_COMPARE(source.table().rows(), std::size_t{3});
        write("t,a\n8,9\n", QIODevice::WriteOnly);
        QTRY_COMPARE(source.table().rows(), std::size_t{1});
    }

    void AFileThatVanishesMayComeBack() {
        write("t,a\n1,2\n2,3\n", QIODevice::WriteOnly);
        LiveSource source(path().toStdString(), {});
        const QSignalSpy failed(&source, &LiveSource::failed);
        source.start();
        QTRY_COMPARE(source.table().rows(), std::size_t{2});
        QVERIFY(QFile::rename(path(), path() + QStringLiteral(".old")));
        write("t,a\n1,2\n2,3\n3,4\n4,5\n", QIODevice::WriteOnly);
        QTRY_COMPARE(source.table().rows(), std::size_t{4});
        QCOMPARE(failed.size(), 0);
    }

    void ManySlicesAreReadOneAfterTheOther() {
        QByteArray text = "t,a\n";
        for (int i = 0; i < 300000; ++i)
            text += QByteArray::number(i) + ",0.25\n";
        write(text, QIODevice::WriteOnly);
        LiveSource source(path().toStdString(), {});
        source.start();
        QTRY_COMPARE(source.table().rows(), std::size_t{300000});
    }

    void WhatCannotBeReadOrDrawnIsTold() {
        LiveSource missing(folder->filePath(QStringLiteral("none.csv")).toStdString(), {});
        const QSignalSpy failedToOpen(&missing, &LiveSource::failed);
        missing.start();
        QCOMPARE(failedToOpen.size(), 1);
        QVERIFY(failedToOpen[0][0].toString().contains(
            QStringLiteral("none.csv: cannot be read: No such file")));

        write("a,b\nx,y\n", QIODevice::WriteOnly);
        LiveSource words(path().toStdString(), {});
        const QSignalSpy failedToDraw(&words, &LiveSource::failed);
        words.start();
        QTRY_COMPARE(failedToDraw.size(), 1);
        QVERIFY(failedToDraw[0][0].toString().endsWith(QStringLiteral("no column of numbers")));
    }

private:
    QString path() const { return folder->filePath(QStringLiteral("data.csv")); }

    void write(const QByteArray& bytes, QIODevice::OpenMode mode) const {
        QFile file(path());
        QVERIFY(file.open(mode));
        QCOMPARE(file.write(bytes), qint64(bytes.size()));
    }

    std::unique_ptr<QTemporaryDir> folder;
};

QTEST_GUILESS_MAIN(LiveSourceTest)
#include "LiveSource_test.moc"
