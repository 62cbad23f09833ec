// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "escaping.h"

#include "filenamecodec.h"

#include <QFile>
#include <QtTest>

class TestPrintable : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { installFileNameCodec(); }
    void escapes_data();
    void escapes();
    void linesKeepTheirEnds_data();
    void linesKeepTheirEnds();
};

void TestPrintable::escapes_data() {
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QByteArray>("shown");
    QTest::newRow("ordinary") << QByteArray("garden 1 (%2).mp4") << QByteArray("garden 1 (%2).mp4");
    QTest::newRow("letters") << QByteArray("jard\xc3\xadn \xe9\x9b\xaa \xf0\x9f\x8e\xa5")
                             << QByteArray("jard\xc3\xadn \xe9\x9b\xaa \xf0\x9f\x8e\xa5");
    QTest::newRow("line break") << QByteArray("a\nb\r") << QByteArray("a\\nb\\r");
    QTest::newRow("tab") << QByteArray("a\tb") << QByteArray("a\\tb");
    QTest::newRow("escape") << QByteArray("\x1b]0;title\x07") << QByteArray("\\x1b]0;title\\x07");
    QTest::newRow("delete") << QByteArray("a\x7f") << QByteArray("a\\x7f");
    // One character that starts a control sequence, too.
    QTest::newRow("C1") << QByteArray("\xc2\x9b 2J") << QByteArray("\\xc2\\x9b 2J");
    QTest::newRow("line separator") << QByteArray("\xe2\x80\xa8") << QByteArray("\\xe2\\x80\\xa8");
    QTest::newRow("right to left") << QByteArray("a\xe2\x80\xae"
                                                 "4pm.exe")
                                   << QByteArray("a\\xe2\\x80\\xae"
                                                 "4pm.exe");
    QTest::newRow("isolate") << QByteArray("\xe2\x81\xa6\xe2\x81\xa9")
                             << QByteArray("\\xe2\\x81\\xa6\\xe2\\x81\\xa9");
    QTest::newRow("marks") << QByteArray("\xe2\x80\x8e\xe2\x80\x8f\xd8\x9c")
                           << QByteArray("\\xe2\\x80\\x8e\\xe2\\x80\\x8f\\xd8\\x9c");
    QTest::newRow("joiners, in a word and a face")
        << QByteArray(
               "\xd9\x85\xdb\x8c\xe2\x80\x8c\xd8\xae \xf0\x9f\x91\xa9\xe2\x80\x8d\xf0\x9f\x9a\x80")
        << QByteArray(
               "\xd9\x85\xdb\x8c\xe2\x80\x8c\xd8\xae \xf0\x9f\x91\xa9\xe2\x80\x8d\xf0\x9f\x9a\x80");
    QTest::newRow("byte that steers") << QByteArray("a\x9b"
                                                    "2J.mp4")
                                      << QByteArray("a\\x9b"
                                                    "2J.mp4");
    QTest::newRow("bytes that do not") << QByteArray("caf\xe9 \xf0\x9f\x92\x80 \xa0.mp4")
                                       << QByteArray("caf\xe9 \xf0\x9f\x92\x80 \xa0.mp4");
    QTest::newRow("second half that looks like a byte")
        << QByteArray("\xf0\x90\x92\x9b") << QByteArray("\xf0\x90\x92\x9b");
    QTest::newRow("backslash") << QByteArray("a\\n") << QByteArray("a\\\\n");
    QTest::newRow("empty") << QByteArray() << QByteArray();
}

void TestPrintable::escapes() {
    QFETCH(QByteArray, name);
    QFETCH(QByteArray, shown);
    QCOMPARE(QFile::encodeName(printable(QFile::decodeName(name))), shown);
}

void TestPrintable::linesKeepTheirEnds_data() {
    QTest::addColumn<QByteArray>("lines");
    QTest::addColumn<QByteArray>("shown");
    QTest::newRow("lines") << QByteArray("a\\b\r\nc\n") << QByteArray("a\\b\r\nc\n");
    QTest::newRow("overwritten line") << QByteArray("a\rb\n") << QByteArray("a\\rb\n");
    QTest::newRow("null bytes") << QByteArray("a\0b\0", 4) << QByteArray("a\\x00b\\x00");
    QTest::newRow("steering") << QByteArray("\x1b[2J\x9b,\xe2\x80\xae\n")
                              << QByteArray("\\x1b[2J\\x9b,\\xe2\\x80\\xae\n");
}

void TestPrintable::linesKeepTheirEnds() {
    QFETCH(QByteArray, lines);
    QTEST(printableLines(lines), "shown");
}

QTEST_GUILESS_MAIN(TestPrintable)
#include "test_printable.moc"
