// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "motionpyramid.h"

#include <QVector>
#include <QtTest>

#include <cmath>
#include <limits>
#include <random>

namespace {

/// A picture at the end of each stretch of time that it was measured across.
struct Picture {
    double time;
    float value;
};

/// What strongest() answers where each picture has a bucket of `bucket` seconds to itself.
float naiveStrongest(const QVector<Picture>& pictures, double from, double to, double bucket) {
    float greatest = 0.0F;
    double begin = 0.0;
    for (const Picture& picture : pictures) {
        const double end = picture.time + bucket;
        if (begin < to && end > from)
            greatest = std::max(greatest, picture.value);
        begin = end;
    }
    return greatest;
}

} // namespace

class TestMotionPyramid : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void nothing();
    void everyStretch_data();
    void everyStretch();
    void picturesOfOneBucket();
    void timesThatAreNone();
    void timesThatRunBackwards();
    void longRecordings();
    void eightHoursAreQuick();
};

void TestMotionPyramid::nothing() {
    const MotionPyramid pyramid;
    QCOMPARE(pyramid.strongest(), 0.0F);
    QCOMPARE(pyramid.strongest(-1.0, 1e9), 0.0F);
    QCOMPARE(pyramid.seconds(), 0.0);
}

void TestMotionPyramid::everyStretch_data() {
    QTest::addColumn<int>("pictures");
    QTest::addColumn<int>("apart");
    for (const int pictures : {1, 7, 8, 9, 63, 64, 65, 600})
        QTest::addRow("%d", pictures) << pictures << 1;
    QTest::addRow("with gaps") << 300 << 13;
}

/// Against a model that looks at all pictures.
void TestMotionPyramid::everyStretch() {
    QFETCH(int, pictures);
    QFETCH(int, apart);
    const double bucket = MotionPyramid::shortestBucket;
    std::mt19937 random(1);
    MotionPyramid pyramid;
    QVector<Picture> measured;
    int place = 0;
    for (int i = 0; i < pictures; ++i) {
        const Picture picture{place * bucket, float(random() % 1000)};
        measured.append(picture);
        pyramid.add(picture.time, picture.value);
        place += 1 + int(random() % unsigned(apart));
    }
    for (int i = 0; i < 2000; ++i) {
        const double from = double(random() % unsigned(place + 2)) * bucket;
        const double to = from + double(1 + random() % unsigned(place + 2)) * bucket;
        QCOMPARE(pyramid.strongest(from, to), naiveStrongest(measured, from, to, bucket));
    }
    QCOMPARE(pyramid.strongest(), naiveStrongest(measured, 0.0, 1e9, bucket));
    QCOMPARE(pyramid.seconds(), measured.last().time);
}

void TestMotionPyramid::picturesOfOneBucket() {
    MotionPyramid pyramid;
    pyramid.add(0.010, 1.0F);
    pyramid.add(0.020, 5.0F);
    pyramid.add(0.030, 2.0F);
    QCOMPARE(pyramid.strongest(0.0, 0.005), 5.0F);
}

void TestMotionPyramid::timesThatAreNone() {
    MotionPyramid pyramid;
    pyramid.add(std::nan(""), 9.0F);
    pyramid.add(std::numeric_limits<double>::infinity(), 9.0F);
    QCOMPARE(pyramid.strongest(), 0.0F);
    pyramid.add(-5.0, 3.0F);
    QCOMPARE(pyramid.strongest(0.0, 0.01), 3.0F);
    pyramid.add(1e300, 4.0F); // of a broken clock
    QCOMPARE(pyramid.strongest(), 4.0F);
    QCOMPARE(pyramid.strongest(0.0, 0.01), 3.0F);
    QCOMPARE(pyramid.strongest(1e9, 1e10), 4.0F); // it was measured across all of that
}

void TestMotionPyramid::timesThatRunBackwards() {
    MotionPyramid pyramid;
    pyramid.add(10.0, 1.0F);
    pyramid.add(2.0, 7.0F);
    pyramid.add(11.0, 1.0F);
    QCOMPARE(pyramid.strongest(2.0, 2.01), 7.0F);
    QCOMPARE(pyramid.strongest(3.0, 12.0), 1.0F);
    QCOMPARE(pyramid.seconds(), 11.0);
}

/// Buckets grow; what was measured is not lost, and is found within one bucket.
void TestMotionPyramid::longRecordings() {
    MotionPyramid pyramid;
    pyramid.add(0.0, 0.0F);
    pyramid.add(1000.0, 0.0F);
    pyramid.add(1000.5, 8.0F);
    pyramid.add(1001.0, 0.0F);
    pyramid.add(400000.0, 1.0F);
    const double bucket = pyramid.bucketSeconds();
    QVERIFY(400000.0 / bucket < MotionPyramid::mostBuckets);
    QVERIFY(bucket <= 2.0 * 400000.0 / MotionPyramid::mostBuckets);
    QCOMPARE(pyramid.strongest(1000.5, 1000.6), 8.0F);
    QCOMPARE(pyramid.strongest(0.0, 1000.0 - bucket), 0.0F);
    QCOMPARE(pyramid.strongest(1001.0 + bucket, 399000.0), 1.0F);
}

void TestMotionPyramid::eightHoursAreQuick() {
    MotionPyramid pyramid;
    for (int i = 0; i < 720000; ++i)
        pyramid.add(i * 0.04, float(i % 977));
    constexpr int columns = 4000; // of a screen with two pixels to one
    float sum = 0.0F;
    QElapsedTimer timer;
    timer.start();
    for (int i = 0; i < columns; ++i)
        sum += pyramid.strongest(i * 7.2, (i + 1) * 7.2);
    QVERIFY(sum > 0.0F);
    QVERIFY2(timer.elapsed() < 50, qPrintable(QString::number(timer.elapsed())));
}

QTEST_GUILESS_MAIN(TestMotionPyramid)
#include "test_motionpyramid.moc"
