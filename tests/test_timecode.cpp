// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "timecode.h"

#include <QtTest>

class TestTimecode : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ratesThatCanBeCounted_data();
    void ratesThatCanBeCounted();
    void framesAreNearest();
    void textCountsFrames_data();
    void textCountsFrames();
};

void TestTimecode::ratesThatCanBeCounted_data() {
    QTest::addColumn<double>("pictures");
    QTest::addColumn<double>("frames");
    QTest::addColumn<int>("base");
    QTest::newRow("PAL") << 25.0 << 25.0 << 25;
    QTest::newRow("NTSC") << 30000.0 / 1001 << 30000.0 / 1001 << 30;
    QTest::newRow("NTSC in short") << 29.97 << 29.97 << 30;
    QTest::newRow("film on NTSC") << 24000.0 / 1001 << 24000.0 / 1001 << 24;
    QTest::newRow("slow camera") << 10.0 << 10.0 << 10;
    QTest::newRow("one a second") << 1.0 << 1.0 << 1;
    QTest::newRow("doubled") << 12.5 << 25.0 << 25;
    QTest::newRow("doubled NTSC") << 15000.0 / 1001 << 15000.0 / 1001 << 15;
    QTest::newRow("threefold") << 25.0 / 3 << 25.0 << 25;
    QTest::newRow("eightfold") << 3.125 << 25.0 << 25;
    QTest::newRow("one in five seconds") << 0.2 << 1.0 << 1;
    QTest::newRow("one in a minute") << 1.0 / 60 << 1.0 << 1;
    QTest::newRow("of no kind") << 17.317 << 17.0 << 17;
    QTest::newRow("highest") << 99.0 << 99.0 << 99;
    QTest::newRow("too high for two digits") << 120.0 << 60.0 << 60;
    // Halved to 62.5, which is of no kind, and twice as much has three digits.
    QTest::newRow("far too high") << 1000.0 << 63.0 << 63;
}

void TestTimecode::ratesThatCanBeCounted() {
    QFETCH(double, pictures);
    QFETCH(double, frames);
    QFETCH(int, base);
    const Timecode timecode(pictures);
    QCOMPARE(timecode.frameAt(1e5), qRound64(1e5 * frames));
    QCOMPARE(timecode.text(base), QByteArray("00:00:01:00"));
    QCOMPARE(timecode.text(base - 1),
             "00:00:00:" + QByteArray::number(base - 1).rightJustified(2, '0'));
}

void TestTimecode::framesAreNearest() {
    const Timecode pal(25.0);
    QCOMPARE(pal.frameAt(0.0), 0LL);
    QCOMPARE(pal.frameAt(2.4), 60LL);
    QCOMPARE(pal.frameAt(0.0199), 0LL);
    QCOMPARE(pal.frameAt(0.0201), 1LL);
    // An hour of NTSC has 107892 frames.
    QCOMPARE(Timecode(30000.0 / 1001).frameAt(3600.0), 107892LL);
}

void TestTimecode::textCountsFrames_data() {
    QTest::addColumn<double>("rate");
    QTest::addColumn<qint64>("frame");
    QTest::addColumn<QByteArray>("text");
    const auto row = [](double rate, qint64 frame, const char* text) {
        QTest::newRow(text) << rate << frame << QByteArray(text);
    };
    row(25.0, 0, "00:00:00:00");
    row(25.0, 24, "00:00:00:24");
    row(25.0, 25, "00:00:01:00");
    row(25.0, 25 * 3600 * 10 + 25 * 61 + 7, "10:01:01:07");
    row(30000.0 / 1001, 107892, "00:59:56:12"); // non-drop: 3.6 s behind after an hour
    row(60.0, 59, "00:00:00:59");
    row(25.0, 25 * 3600 * 100, "100:00:00:00");
}

void TestTimecode::textCountsFrames() {
    QFETCH(double, rate);
    QFETCH(qint64, frame);
    QTEST(Timecode(rate).text(frame), "text");
}

QTEST_GUILESS_MAIN(TestTimecode)
#include "test_timecode.moc"
