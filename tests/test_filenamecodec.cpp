// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "filenamecodec.h"

#include <QDirIterator>
#include <QFile>
#include <QProcess>
#include <QSettings>
#include <QTemporaryDir>
#include <QtTest>

#include <algorithm>
#include <random>

namespace {

/// What once was Latin-1, ends in the middle of a character, and is too long a form of '/'.
const QByteArrayList oddNames = {"caf\xe9.mp4", "half\xc3", "\xc0\xaf", "g\xc3\xa4rten\xff.mp4"};

} // namespace

class TestFileNameCodec : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { installFileNameCodec(); }
    void textIsUtf8();
    void otherBytesComeBack_data();
    void otherBytesComeBack();
    void anyBytesComeBack();
    void undecodedBytes();
    void filesAreListedAndOpened();
    void processesGetTheBytes();
    void settingsKeepThem();
};

void TestFileNameCodec::textIsUtf8() {
    for (uint code = 1; code <= 0x10ffff; ++code) {
        if (QChar::isSurrogate(code))
            continue;
        // A letter before it keeps fromUtf8 from taking it for a byte order mark.
        QString text = "a";
        if (QChar::requiresSurrogates(code))
            text += QString(QChar(QChar::highSurrogate(code))) + QChar(QChar::lowSurrogate(code));
        else
            text += QChar(ushort(code));
        if (QFile::encodeName(text) != text.toUtf8() || QFile::decodeName(text.toUtf8()) != text)
            QFAIL(qPrintable(QString::number(code, 16)));
    }
    QCOMPARE(QFile::decodeName("\xef\xbb\xbf.mp4"), QString(QChar(0xfeff)) + ".mp4");
}

void TestFileNameCodec::otherBytesComeBack_data() {
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("name");
    const auto escaped = [](const QByteArray& bytes) {
        QString name;
        for (const char byte : bytes)
            name += QChar(0xdc00 + uchar(byte));
        return name;
    };
    QTest::newRow("Latin-1") << QByteArray("caf\xe9.mp4") << "caf" + escaped("\xe9") + ".mp4";
    QTest::newRow("cut off") << QByteArray("half\xe2\x82") << "half" + escaped("\xe2\x82");
    QTest::newRow("too long a form") << QByteArray("\xc0\xaf") << escaped("\xc0\xaf");
    QTest::newRow("too long, three") << QByteArray("\xe0\x9f\xbf") << escaped("\xe0\x9f\xbf");
    QTest::newRow("too long, four")
        << QByteArray("\xf0\x8f\xbf\xbf") << escaped("\xf0\x8f\xbf\xbf");
    QTest::newRow("surrogate") << QByteArray("\xed\xb2\x80") << escaped("\xed\xb2\x80");
    QTest::newRow("no such character")
        << QByteArray("\xf4\x90\x80\x80") << escaped("\xf4\x90\x80\x80");
    QTest::newRow("behind a character of two halves")
        << QByteArray("\xf0\x9f\x8e\xa5\xa5")
        << QString::fromUtf8("\xf0\x9f\x8e\xa5") + escaped("\xa5");
}

void TestFileNameCodec::otherBytesComeBack() {
    QFETCH(QByteArray, bytes);
    QFETCH(QString, name);
    QCOMPARE(QFile::decodeName(bytes), name);
    QCOMPARE(QFile::encodeName(name), bytes);
}

void TestFileNameCodec::anyBytesComeBack() {
    std::mt19937 random(1);
    std::uniform_int_distribution<int> anyByte(1, 255);
    for (int i = 0; i < 100000; ++i) {
        QByteArray bytes(5, '\0');
        std::generate(bytes.begin(), bytes.end(), [&] { return char(anyByte(random)); });
        if (QFile::encodeName(QFile::decodeName(bytes)) != bytes)
            QFAIL(bytes.toHex().constData());
    }
}

void TestFileNameCodec::undecodedBytes() {
    QCOMPARE(int(undecodedByte(QFile::decodeName("\xff")[0])), 0xff);
    QCOMPARE(int(undecodedByte(QFile::decodeName("\x80")[0])), 0x80);
    QCOMPARE(int(undecodedByte(QChar(0xdc7f))), 0);
    QCOMPARE(int(undecodedByte(QChar(0xdd00))), 0);
    QCOMPARE(int(undecodedByte('a')), 0);
}

void TestFileNameCodec::filesAreListedAndOpened() {
    const QTemporaryDir folder;
    QByteArrayList expected;
    for (const QByteArray& name : oddNames) {
        QFile file(folder.filePath(QFile::decodeName(name)));
        QVERIFY2(file.open(QIODevice::WriteOnly), qPrintable(file.errorString()));
        expected.append(name);
    }
    QByteArrayList names;
    QDirIterator iterator(folder.path(), QDir::Files);
    while (iterator.hasNext()) {
        QVERIFY(QFileInfo::exists(iterator.next()));
        names.append(QFile::encodeName(iterator.fileName()));
    }
    std::sort(names.begin(), names.end());
    std::sort(expected.begin(), expected.end());
    QCOMPARE(names, expected);
}

void TestFileNameCodec::processesGetTheBytes() {
    for (const QByteArray& name : oddNames) {
        QProcess process;
        process.start("printf", {"%s", QFile::decodeName(name)});
        QVERIFY(process.waitForFinished());
        QCOMPARE(process.readAllStandardOutput(), name);
    }
}

void TestFileNameCodec::settingsKeepThem() {
    const QTemporaryDir folder;
    const QString name = QFile::decodeName(oddNames.join('/'));
    QSettings(folder.filePath("store.ini"), QSettings::IniFormat).setValue("last_dir", name);
    const QSettings store(folder.filePath("store.ini"), QSettings::IniFormat);
    QCOMPARE(store.value("last_dir").toString(), name);
}

QTEST_GUILESS_MAIN(TestFileNameCodec)
#include "test_filenamecodec.moc"
