// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "encodertimes.h"

#include <QtTest>

#include <limits>

class TestTimeOfDay : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void withoutVideoStart_data();
    void withoutVideoStart();
    void withVideoStart_data();
    void withVideoStart();
};

void TestTimeOfDay::withoutVideoStart_data() {
    using Limits = std::numeric_limits<double>;
    QTest::addColumn<double>("start");
    QTest::addColumn<int>("second");
    QTest::newRow("first frame") << 0.0 << 0;
    QTest::newRow("fraction dropped") << 3725.9 << 3725;
    QTest::newRow("folded into one day") << 90000.0 << 3600;
    QTest::newRow("exactly one day") << 86400.0 << 0;

    QTest::newRow("negative, toward zero") << -0.9 << 0;
    QTest::newRow("negative keeps its sign") << -86405.0 << -5;
    // 2147483647 = 24855 days and 11647 s
    QTest::newRow("too late for 32 bits") << 1e300 << 11647;
    QTest::newRow("too early for 32 bits") << -1e300 << -11648;
    QTest::newRow("infinite") << Limits::infinity() << 11647;
    QTest::newRow("not a number") << Limits::quiet_NaN() << 0;
}

void TestTimeOfDay::withoutVideoStart() {
    QFETCH(double, start);
    QFETCH(int, second);
    QCOMPARE(secondOfDay(start, nullptr), second);
}

void TestTimeOfDay::withVideoStart_data() {
    QTest::addColumn<QDateTime>("videoStart");
    QTest::addColumn<double>("start");
    QTest::addColumn<int>("second");
    const auto utc = [](int year, int month, int day, const QTime& time) {
        return QDateTime(QDate(year, month, day), time, Qt::UTC);
    };
    QTest::newRow("wall clock") << utc(2026, 11, 16, {9, 0, 0}) << 303.7 << 9 * 3600 + 303;
    QTest::newRow("past midnight") << utc(2026, 11, 16, {23, 59, 50}) << 15.0 << 5;
    QTest::newRow("epoch") << utc(1970, 1, 1, {0, 0, 0}) << 7.0 << 7;

    // 2038-01-19 03:14:08 is second 2^31: read as 32 bits it is -2^31, and -2^31 s are
    // -24855 days and -11648 s.
    QTest::newRow("wraps at 32 bits") << utc(2038, 1, 19, {3, 14, 8}) << 0.0 << -11648;
    QTest::newRow("sum wraps at 32 bits") << utc(2038, 1, 19, {3, 14, 7}) << 1.0 << -11648;
    // Dates before 1970 have no such count and stand for -1.
    QTest::newRow("before 1970") << utc(1899, 12, 31, {0, 0, 0}) << 10.0 << 9;
    QTest::newRow("no date") << QDateTime() << 0.0 << -1;
}

void TestTimeOfDay::withVideoStart() {
    QFETCH(QDateTime, videoStart);
    QFETCH(double, start);
    QFETCH(int, second);
    QCOMPARE(secondOfDay(start, &videoStart), second);
}

QTEST_GUILESS_MAIN(TestTimeOfDay)
#include "test_timeofday.moc"
