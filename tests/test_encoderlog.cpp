// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "encoderlog.h"

#include <QtTest>

class TestEncoderLog : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void reason_data();
    void reason();
    void lastFiveLines();
    void linesInPieces();
    void longLineLosesItsMiddle();
    void holdsLittleOfMuch();
};

void TestEncoderLog::reason_data() {
    QTest::addColumn<QByteArray>("log");
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

void TestEncoderLog::reason() {
    QFETCH(QByteArray, log);
    QFETCH(QString, reason);
    EncoderLog encoderLog;
    encoderLog.append(log);
    QCOMPARE(encoderLog.reason(), reason);
}

void TestEncoderLog::lastFiveLines() {
    EncoderLog encoderLog;
    encoderLog.append("1\n2\n\n3\r\n4\n5\n6\n7");
    QCOMPARE(encoderLog.reason(), QString("3\n4\n5\n6\n7"));
}

void TestEncoderLog::linesInPieces() {
    EncoderLog encoderLog;
    for (const char sign : QByteArray("all well\nDisk quota exceeded\nall well\n"))
        encoderLog.append(QByteArray(1, sign));
    QCOMPARE(encoderLog.reason(), QString("Disk quota exceeded"));
}

void TestEncoderLog::longLineLosesItsMiddle() {
    EncoderLog encoderLog;
    encoderLog.append('/' + QByteArray(4000, 'a'));
    encoderLog.append(QByteArray(4000, 'b') + "/0000.avi: Permission denied\n");
    const QString reason = encoderLog.reason();
    QVERIFY(reason.size() < 500);
    QVERIFY2(reason.startsWith("/aaa") && reason.contains("aaa...bbb"), qPrintable(reason));
    QVERIFY2(reason.endsWith("bbb/0000.avi: Permission denied"), qPrintable(reason));
}

void TestEncoderLog::holdsLittleOfMuch() {
    EncoderLog encoderLog;
    const QByteArray endless(65536, 'x');
    for (int i = 0; i < 500; ++i)
        encoderLog.append(endless);
    QVERIFY(encoderLog.reason().size() < 500);
    encoderLog.append("\n");
    for (int i = 0; i < 500; ++i)
        encoderLog.append(QByteArray(1000, char('a' + i % 26)) + '\n');
    const QStringList lines = encoderLog.reason().split('\n');
    QCOMPARE(lines.size(), 5);
    QVERIFY(encoderLog.reason().size() <= 2048);
    // 499 = 19 * 26 + 5
    QVERIFY2(lines.last().startsWith("ffff"), qPrintable(lines.last()));
}

QTEST_GUILESS_MAIN(TestEncoderLog)
#include "test_encoderlog.moc"
