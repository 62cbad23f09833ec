// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "encoderarguments.h"

#include <QtTest>

#include <limits>

class TestBitrate : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void bitsPerSecond_data();
    void bitsPerSecond();
};

void TestBitrate::bitsPerSecond_data() {
    using Limits = std::numeric_limits<double>;
    QTest::addColumn<double>("megabits");
    QTest::addColumn<int>("bits");
    QTest::newRow("default") << 2.0 << 2097152;
    QTest::newRow("half") << 0.5 << 524288;
    QTest::newRow("fraction dropped") << 1.0000009 << 1048576;
    QTest::newRow("dialog's maximum") << 50.0 << 52428800;

    QTest::newRow("zero") << 0.0 << 10240;
    QTest::newRow("below the lowest") << 10239.0 / 1048576.0 << 10240;
    QTest::newRow("lowest") << 10240.0 / 1048576.0 << 10240;
    QTest::newRow("above the lowest") << 10241.0 / 1048576.0 << 10241;
    QTest::newRow("below the highest") << 104857599.0 / 1048576.0 << 104857599;
    QTest::newRow("highest") << 100.0 << 104857600;
    QTest::newRow("above the highest") << 100.5 << 104857600;
    QTest::newRow("largest that fits 32 bits") << 2147483647.0 / 1048576.0 << 104857600;
    QTest::newRow("too large for 32 bits") << 2048.0 << 10240;
    QTest::newRow("negative") << -1.0 << 10240;
    QTest::newRow("smallest that fits 32 bits") << -2048.0 << 10240;
    QTest::newRow("too small for 32 bits") << -2049.0 << 10240;
    QTest::newRow("largest number") << Limits::max() << 10240;
    QTest::newRow("infinite") << Limits::infinity() << 10240;
    QTest::newRow("not a number") << Limits::quiet_NaN() << 10240;
}

void TestBitrate::bitsPerSecond() {
    QFETCH(double, megabits);
    QFETCH(int, bits);
    QCOMPARE(::bitsPerSecond(megabits), bits);
}

QTEST_GUILESS_MAIN(TestBitrate)
#include "test_bitrate.moc"
