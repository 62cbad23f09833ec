// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "motionreport.h"

#include <QtTest>

#include <algorithm>
#include <cmath>
#include <numeric>
#include <random>

class TestMotionStrip : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void stripHasTheGreatestValueOfEachColumn_data();
    void stripHasTheGreatestValueOfEachColumn();
    void stripsStaySmall();
    void columnsWithoutPicturesAreFilled();
    void whatWasNotLookedAtHasNoValue();
    void timesThatMakeNoSense();
};

void TestMotionStrip::stripHasTheGreatestValueOfEachColumn_data() {
    QTest::addColumn<int>("pictures");
    QTest::addColumn<double>("perSecond");
    QTest::newRow("seconds") << 100 << 25.0;
    QTest::newRow("as many as there are columns") << 2048 << 64.0;
    QTest::newRow("one more") << 2049 << 64.0;
    QTest::newRow("minutes") << 7001 << 25.0;
    QTest::newRow("hours") << 300000 << 29.97;
}

void TestMotionStrip::stripHasTheGreatestValueOfEachColumn() {
    QFETCH(int, pictures);
    QFETCH(double, perSecond);
    std::mt19937 random(1);
    std::uniform_real_distribution<float> anyValue(0.0F, 9.0F);
    MotionStrip strip;
    QVector<double> times;
    QVector<float> values;
    for (int i = 1; i <= pictures; ++i) {
        times.append(i / perSecond);
        values.append(anyValue(random));
        strip.add(times.last(), values.last());
    }
    const double seconds = strip.columnSeconds();
    const QVector<float> columns = strip.columns();
    QVector<float> expected(int(std::floor(times.last() / seconds)) + 1, -1.0F);
    for (int i = 0; i < pictures; ++i) {
        float& column = expected[int(std::floor(times[i] / seconds))];
        column = std::max(column, values[i]);
    }
    QCOMPARE(columns.size(), expected.size());
    for (int i = 0; i < columns.size(); ++i) {
        if (expected[i] >= 0.0F)
            QCOMPARE(columns[i], expected[i]);
    }
    QCOMPARE(strip.greatest(), *std::max_element(values.cbegin(), values.cend()));
    const bool isLong = times.last() >= MotionStrip::mostColumns * MotionStrip::shortestColumn;
    QVERIFY(columns.size() <= MotionStrip::mostColumns);
    QVERIFY(!isLong || columns.size() > MotionStrip::mostColumns / 2 - 1);
}

void TestMotionStrip::stripsStaySmall() {
    ReportedRecording recording;
    for (int i = 1; i <= 1000000; ++i)
        recording.add(i / 25.0, {float(i % 7)});
    QVERIFY(recording.strip.columns().size() <= 2048);
    QCOMPARE(recording.histogram.seconds().size(), thresholdSteps().size());
    QCOMPARE(recording.seconds, 40000.0);
}

void TestMotionStrip::columnsWithoutPicturesAreFilled() {
    MotionStrip strip;
    strip.add(1.0, 2.0F);
    strip.add(2.0, 4.0F);
    const QVector<float> columns = strip.columns();
    QCOMPARE(columns.size(), 129); // 64 to the second, and one for the last picture
    QCOMPARE(columns.first(), 2.0F);
    QCOMPARE(columns[64], 2.0F);
    QCOMPARE(columns[65], 4.0F); // measured across the second between both
    QCOMPARE(columns.last(), 4.0F);
}

/// Neither that of the picture before nor that of the next, however coarse the columns become.
void TestMotionStrip::whatWasNotLookedAtHasNoValue() {
    for (const double longer : {1.0, 1000.0}) {
        ReportedRecording recording;
        recording.add(1.0 * longer, {0.5F});
        recording.leaveOut(6.0 * longer);
        recording.add(6.5 * longer, {3.0F});
        recording.leaveOut(2.0); // what was looked at stays so
        recording.leaveOut(9.0 * longer);
        const QVector<float> columns = recording.strip.columns();
        const auto at = [&](double time) {
            return columns.value(int(time * longer / recording.strip.columnSeconds()));
        };
        QCOMPARE(at(0.5), 0.5F);
        QVERIFY(at(1.5) < 0.0F && at(5.5) < 0.0F);
        QCOMPARE(at(6.3), 3.0F);
        QVERIFY(at(7.0) < 0.0F && at(8.9) < 0.0F);
        QCOMPARE(recording.seconds, 9.0 * longer);
        QCOMPARE(recording.strip.greatest(), 3.0F);
        const QVector<double> lengths = recording.histogram.seconds();
        const double looked = std::accumulate(lengths.cbegin(), lengths.cend(), 0.0);
        QVERIFY(std::abs(looked - 1.5 * longer) < 1e-6);
    }
    MotionStrip none;
    none.leaveOut(std::nan(""));
    none.leaveOut(8.0);
    QCOMPARE(none.greatest(), 0.0F);
}

void TestMotionStrip::timesThatMakeNoSense() {
    MotionStrip strip;
    MotionHistogram histogram;
    for (const double time : {-5.0, std::nan(""), HUGE_VAL, -HUGE_VAL, -1e300, 2.0, 1.0, 1e300}) {
        strip.add(time, 1.0F);
        histogram.add(time, 1.0F);
    }
    QVERIFY(strip.columns().size() <= MotionStrip::mostColumns);
    QCOMPARE(MotionStrip().columns().size(), 0);
    QCOMPARE(MotionStrip().greatest(), 0.0F);
}

QTEST_GUILESS_MAIN(TestMotionStrip)
#include "test_motionstrip.moc"
