// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "encoderchatter.h"

#include <QtTest>

class TestEncoderChatter : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void reason_data();
    void reason();
    void lastFiveLines();
    void linesInPieces();
    void longLineLosesItsMiddle();
    void holdsLittleOfMuch();
};

void TestEncoderChatter::reason_data() {
    QTest::addColumn<QByteArray>("chatter");
    QTest::addColumn<QString>("reason");
    QTest::newRow("nothing") << QByteArray() << "";
    QTest::newRow("one line") << QByteArray("told to stop\n") << "told to stop";
    QTest::newRow("missing recording")
        << QByteArray("ffmpeg version 5\n  configuration: --enable-error\n"
                      "a.mp4: No such file or directory\n")
        << "a.mp4: No such file or directory";
    QTest::newRow("above the last line")
        << QByteArray("[avi @ 0x1] Could not find tag\nError initializing output stream 0:1 -- \n"
                      "Conversion failed!\n")
        << "Could not find tag";
    QTest::newRow("said by parts of it")
        << QByteArray("[out#0/mp4 @ 0x55d0c7a2b9c0] [mp4 @ 0x55D0C7A2] Invalid codec\n")
        << "Invalid codec";
    QTest::newRow("said by a part of it, in the last lines")
        << QByteArray("[libx264 @ 0x1] frame I:1\n[x @ y] told to stop\n")
        << "frame I:1\n[x @ y] told to stop";
    QTest::newRow("file named like a part")
        << QByteArray("[yard @ 0xfeed].mp4: No such file or directory\n")
        << "[yard @ 0xfeed].mp4: No such file or directory";
    QTest::newRow("an error of the system before all others")
        << QByteArray("[h264 @ 0x1] error while decoding MB 3 4\n[h264 @ 0x1] Invalid NAL unit\n"
                      "av_interleaved_write_frame(): No space left on device\n"
                      "Error writing trailer of a.avi: Input/output error\nConversion failed!\n")
        << "av_interleaved_write_frame(): No space left on device";
    QTest::newRow("files with odd names")
        << QByteArray("Input #0, avi, from 'No such file or directory.avi':\n"
                      "  Metadata:\n    title           : fatal error\n"
                      "Output #0, avi, to 'error.avi':\nmoov atom not found\n")
        << "moov atom not found";
    QTest::newRow("nothing but that it failed")
        << QByteArray("Stream mapping:\nConversion failed!\n")
        << "Stream mapping:\nConversion failed!";
}

void TestEncoderChatter::reason() {
    QFETCH(QByteArray, chatter);
    QFETCH(QString, reason);
    EncoderChatter messages;
    messages.append(chatter);
    QCOMPARE(messages.reason(), reason);
}

void TestEncoderChatter::lastFiveLines() {
    EncoderChatter messages;
    messages.append("1\n2\n\n3\r\n4\n5\n6\n7");
    QCOMPARE(messages.reason(), QString("3\n4\n5\n6\n7"));
}

void TestEncoderChatter::linesInPieces() {
    EncoderChatter messages;
    for (const char sign : QByteArray("all well\nDisk quota exceeded\nall well\n"))
        messages.append(QByteArray(1, sign));
    QCOMPARE(messages.reason(), QString("Disk quota exceeded"));
}

void TestEncoderChatter::longLineLosesItsMiddle() {
    EncoderChatter messages;
    messages.append('/' + QByteArray(4000, 'a'));
    messages.append(QByteArray(4000, 'b') + "/0000.avi: Permission denied\n");
    const QString reason = messages.reason();
    QVERIFY(reason.size() < 500);
    QVERIFY2(reason.startsWith("/aaa") && reason.contains("aaa...bbb"), qPrintable(reason));
    QVERIFY2(reason.endsWith("bbb/0000.avi: Permission denied"), qPrintable(reason));
}

void TestEncoderChatter::holdsLittleOfMuch() {
    EncoderChatter messages;
    const QByteArray endless(65536, 'x');
    for (int i = 0; i < 500; ++i)
        messages.append(endless);
    QVERIFY(messages.reason().size() < 500);
    messages.append("\n");
    for (int i = 0; i < 500; ++i)
        messages.append(QByteArray(1000, char('a' + i % 26)) + '\n');
    const QStringList lines = messages.reason().split('\n');
    QCOMPARE(lines.size(), 5);
    QVERIFY(messages.reason().size() <= 2048);
    // 499 = 19 * 26 + 5
    QVERIFY2(lines.last().startsWith("ffff"), qPrintable(lines.last()));
}

QTEST_GUILESS_MAIN(TestEncoderChatter)
#include "test_encoderchatter.moc"
