// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "encodertimes.h"

#include <QtTest>

#include <limits>

class TestCutRange : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void canBeCut_data();
    void canBeCut();
};

void TestCutRange::canBeCut_data() {
    using Limits = std::numeric_limits<double>;
    QTest::addColumn<double>("start");
    QTest::addColumn<double>("end");
    QTest::addColumn<bool>("isPossible");
    QTest::newRow("anywhere") << 3.5 << 17.25 << true;
    QTest::newRow("from the first picture on") << 0.0 << 5.0 << true;
    QTest::newRow("start before the first picture") << -1.4 << 5.0 << true;
    QTest::newRow("shorter than a second") << 1.0 << 1.9 << true;
    QTest::newRow("after ten years") << 3.2e8 << 3.2e8 + 10.0 << true;

    QTest::newRow("no length") << 5.0 << 5.0 << false;
    QTest::newRow("end before start") << 5.0 << 4.9 << false;
    QTest::newRow("all before the first picture") << -20.0 << -10.0 << false;
    QTest::newRow("up to the first picture") << -20.0 << 0.0 << false;
    // The largest int is 2147483647.
    QTest::newRow("last second") << 2147483640.0 << 2147483646.9 << true;
    QTest::newRow("past the last second") << 2147483640.0 << 2147483647.0 << false;
    QTest::newRow("longest") << -1000000.0 << 2146483646.9 << true;
    QTest::newRow("too long") << -1000000.0 << 2146483647.0 << false;
    // The smallest 64-bit number, which stands for a missing time, in units of 1/90000 s.
    QTest::newRow("counted from a missing time") << 102481911520608.0 << 102481911520620.0 << false;

    QTest::newRow("endless") << 0.0 << Limits::infinity() << false;
    QTest::newRow("without a beginning") << -Limits::infinity() << 5.0 << false;
    QTest::newRow("start is not a number") << Limits::quiet_NaN() << 5.0 << false;
    QTest::newRow("end is not a number") << 0.0 << Limits::quiet_NaN() << false;
}

void TestCutRange::canBeCut() {
    QFETCH(double, start);
    QFETCH(double, end);
    QTEST(::canBeCut(start, end), "isPossible");
}

QTEST_GUILESS_MAIN(TestCutRange)
#include "test_cutrange.moc"
