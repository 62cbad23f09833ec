// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "shortestdigits.h"

#include <QtTest>

#include <cmath>

class TestShortestDigits : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void floatsSayNoMoreThanTheyKnow_data();
    void floatsSayNoMoreThanTheyKnow();
    void floatsReadBack();
    void doublesReadBack();
};

void TestShortestDigits::floatsSayNoMoreThanTheyKnow_data() {
    QTest::addColumn<float>("value");
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("none") << 0.0F << QByteArray("0");
    QTest::newRow("a tenth") << 0.1F << QByteArray("0.1");
    QTest::newRow("whole") << 100.0F << QByteArray("100");
    QTest::newRow("a third") << 1.0F / 3.0F << QByteArray("0.33333334");
    QTest::newRow("small") << 1.5e-7F << QByteArray("1.5e-07");
}

void TestShortestDigits::floatsSayNoMoreThanTheyKnow() {
    QFETCH(float, value);
    QTEST(shortestDigits(value), "text");
}

void TestShortestDigits::floatsReadBack() {
    for (int exponent = -126; exponent < 20; ++exponent) {
        const float value = std::ldexp(1.2345678F, exponent);
        QCOMPARE(shortestDigits(value).toFloat(), value);
    }
}

void TestShortestDigits::doublesReadBack() {
    QCOMPARE(shortestDigits(0.04), QByteArray("0.04"));
    for (int exponent = -30; exponent < 30; ++exponent) {
        const double value = std::ldexp(1.2345678901234567, exponent);
        QCOMPARE(shortestDigits(value).toDouble(), value);
    }
}

QTEST_GUILESS_MAIN(TestShortestDigits)
#include "test_shortestdigits.moc"
