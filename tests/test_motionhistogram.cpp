// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "motionhistogram.h"

#include <QtTest>

#include <cmath>
#include <random>

class TestMotionHistogram : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void thresholdsAreRoundNumbers();
    void histogramKnowsTheTimeAboveEachThreshold();
    void cellsHaveSharesUpToAll();
    void histogramsAddUp();
};

void TestMotionHistogram::thresholdsAreRoundNumbers() {
    const QVector<double>& steps = thresholdSteps();
    QCOMPARE(steps.first(), 0.0);
    QCOMPARE(steps.last(), 10.0); // the range of --threshold-motion
    QVERIFY(steps.contains(0.5));
    for (int i = 1; i < steps.size(); ++i) {
        QVERIFY(steps[i] > steps[i - 1]);
        QVERIFY(QByteArray::number(steps[i], 'g', 10).size() <= 5);
    }
}

void TestMotionHistogram::histogramKnowsTheTimeAboveEachThreshold() {
    std::mt19937 random(1);
    std::exponential_distribution<double> anyValue(1.5);
    std::uniform_real_distribution<double> anyGap(0.01, 3.0);
    MotionHistogram histogram;
    QVector<double> gaps;
    QVector<float> values;
    double time = 0.0;
    for (int i = 0; i < 20000; ++i) {
        gaps.append(anyGap(random));
        values.append(i % 50 == 0 ? 0.5F : float(anyValue(random)));
        time += gaps.last();
        histogram.add(time, values.last());
    }
    // Exact, also for values that are the threshold itself.
    for (const int step : {0, 1, 50, 100, 180, 181, 280, 400, thresholdSteps().size() - 1}) {
        double expected = 0.0;
        for (int i = 0; i < values.size(); ++i)
            expected += values[i] >= float(thresholdSteps()[step]) ? gaps[i] : 0.0;
        double seconds = 0.0;
        for (int i = step; i < histogram.seconds().size(); ++i)
            seconds += histogram.seconds()[i];
        QVERIFY2(std::abs(seconds - expected) < 1e-6, QByteArray::number(step).constData());
    }
}

void TestMotionHistogram::cellsHaveSharesUpToAll() {
    const QVector<double>& steps = thresholdSteps(Detector::Cells);
    QVERIFY(std::is_sorted(steps.cbegin(), steps.cend()));
    QCOMPARE(steps.mid(0, thresholdSteps().size()), thresholdSteps());
    QCOMPARE(steps.last(), 100.0);
    MotionHistogram histogram(Detector::Cells);
    histogram.add(1.0, 40.0F);
    histogram.add(3.0, 100.0F);
    QCOMPARE(histogram.seconds().size(), steps.size());
    QCOMPARE(histogram.seconds()[steps.indexOf(40.0)], 1.0);
    QCOMPARE(histogram.seconds().last(), 2.0);
    MotionHistogram all(Detector::Cells);
    all.add(histogram);
    QCOMPARE(all.seconds(), histogram.seconds());
}

void TestMotionHistogram::histogramsAddUp() {
    MotionHistogram one;
    one.add(2.0, 0.0F);
    MotionHistogram other;
    other.add(1.0, 0.0F);
    other.add(4.0, 99.0F);
    one.add(other);
    QCOMPARE(one.seconds().first(), 3.0);
    QCOMPARE(one.seconds().last(), 3.0);
    MotionHistogram none;
    none.add(MotionHistogram());
    QVERIFY(none.seconds().isEmpty());
}

QTEST_GUILESS_MAIN(TestMotionHistogram)
#include "test_motionhistogram.moc"
