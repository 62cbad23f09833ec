// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "encodertimes.h"

#include <QtTest>

class TestOverlayFilter : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void reachesTheEncoderWithSingleBackslashes();
    void dayHasNoPadding();
    void negativeSecondKeepsItsSign();
    void namesAreEnglishInEveryLocale();
};

void TestOverlayFilter::reachesTheEncoderWithSingleBackslashes() {
    QCOMPARE(overlayFilter(QDate(2026, 11, 16), 32703),
             QString("drawtext=fontfile=DejaVuSansMono.ttf:text='Mon Nov 16 2026 "
                     "%{pts\\:hms\\:32703}':x=10:y=10:fontcolor=white:box=1:boxborderw=3:"
                     "boxcolor=0x00000000@1"));
}

void TestOverlayFilter::dayHasNoPadding() {
    QVERIFY(overlayFilter(QDate(2026, 3, 1), 0).contains("text='Sun Mar 1 2026 %{pts\\:hms\\:0}'"));
}

void TestOverlayFilter::negativeSecondKeepsItsSign() {
    QVERIFY(overlayFilter(QDate(2026, 3, 1), -5).contains("%{pts\\:hms\\:-5}"));
}

void TestOverlayFilter::namesAreEnglishInEveryLocale() {
    QCOMPARE(QLocale::system().language(), QLocale::Japanese);
    QVERIFY(!QDate(2026, 10, 14).toString(Qt::TextDate).contains("Oct"));
    QVERIFY(overlayFilter(QDate(2026, 10, 14), 0).contains("text='Wed Oct 14 2026 "));
}

int main(int argc, char* argv[]) {
    qputenv("LC_ALL", "ja_JP.UTF-8"); // Qt reads it once
    QTEST_SET_MAIN_SOURCE_PATH
    TestOverlayFilter test;
    return QTest::qExec(&test, argc, argv);
}
#include "test_overlayfilter.moc"
