// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "clocktext.h"

#include <QtTest>

#include <cmath>

class TestClockText : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void wholeSeconds();
    void milliseconds_data();
    void milliseconds();
    void elapsedTimes_data();
    void elapsedTimes();
    void timesAreRead_data();
    void timesAreRead();
};

void TestClockText::wholeSeconds() {
    QCOMPARE(clockText(0), QString("0:00:00"));
    QCOMPARE(clockText(3725), QString("1:02:05"));
    QCOMPARE(clockText(100 * 3600 + 59), QString("100:00:59"));
}

void TestClockText::milliseconds_data() {
    QTest::addColumn<double>("seconds");
    QTest::addColumn<QString>("text");
    QTest::newRow("ordinary") << 3723.0456 << "1:02:03.046";
    QTest::newRow("rounded up to a minute") << 59.9996 << "0:01:00.000";
    QTest::newRow("before the first picture") << -61.5 << "-0:01:01.500";
    QTest::newRow("rounded to nothing") << -0.0004 << "0:00:00.000";
}

void TestClockText::milliseconds() {
    QFETCH(double, seconds);
    QTEST(preciseClockText(seconds), "text");
}

void TestClockText::elapsedTimes_data() {
    QTest::addColumn<double>("seconds");
    QTest::addColumn<QString>("text");
    QTest::newRow("ordinary") << 3723.9 << "1:02:03";
    QTest::newRow("before the first picture") << -61.5 << "-0:01:01";
    QTest::newRow("absurd") << 1e300 << "277777777:46:40";
    QTest::newRow("absurdly long ago") << -1e300 << "-277777777:46:40";
    QTest::newRow("endless") << HUGE_VAL << "277777777:46:40";
    QTest::newRow("no number") << std::nan("") << "0:00:00";
}

void TestClockText::elapsedTimes() {
    QFETCH(double, seconds);
    QTEST(elapsedText(seconds), "text");
}

void TestClockText::timesAreRead_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("seconds");
    QTest::newRow("seconds") << "75.25" << 75.25;
    QTest::newRow("minutes") << "1:15.25" << 75.25;
    QTest::newRow("hours") << "100:01:15" << 360075.0;
}

void TestClockText::timesAreRead() {
    QFETCH(QString, text);
    QFETCH(double, seconds);
    QCOMPARE(secondsOf(text), std::optional<double>(seconds));
    QCOMPARE(secondsOf(plainSeconds(seconds)), std::optional<double>(seconds));
    QCOMPARE(secondsOf(text + "x"), std::nullopt);
}

QTEST_GUILESS_MAIN(TestClockText)
#include "test_clocktext.moc"
