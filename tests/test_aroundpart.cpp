// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

// What parts that were measured tell, and which others they make one look at.

#include "aroundpart.h"

#include <QtTest>

namespace {

constexpr int count = 6;
constexpr int rate = 5;    // pictures a second
constexpr int length = 30; // seconds, of each part
constexpr int own = rate * length;

/// Of part `index` of a recording in which something moves from second `begin` to `end`.
KeptValues valuesOf(int index, double begin, double end) {
    KeptValues values;
    values.part = RecordingPart{index + 1, count};
    values.partFacts.begin = index * own;
    values.partFacts.end = values.partFacts.begin + own;
    Measurement& measured = values.measurement;
    measured.hasPictures = true;
    measured.firstNumber = std::max(index * own - 1, 0);
    measured.firstTime = double(measured.firstNumber) / rate;
    for (int i = int(measured.firstNumber) + 1; i < (index + 1) * own; ++i) {
        const double time = double(i) / rate;
        measured.series.times.append(time);
        measured.series.scores.append(MotionScore{time >= begin && time < end ? 5.0F : 0.0F});
    }
    return values;
}

/// Of which nothing but the number of parts and their places counts here.
ScoutedRecording scouted() {
    ScoutedRecording all;
    for (int i = 0; i < count; ++i) {
        PlacedPart part;
        part.begin = i * own;
        part.end = part.begin + own;
        part.isToTheEnd = i + 1 == count;
        all.parts.append(part);
        all.partSeconds.append(length);
    }
    return all;
}

} // namespace

class TestAroundPart : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();

    void clipInTheMiddleIsTold();
    void clipAtABorderWaitsForTheOtherSide();
    void shareOfAVisitIsEnoughToLookAround_data();
    void shareOfAVisitIsEnoughToLookAround();
    void flickerAwayFromTheBordersIsNot();
    void theEndsOfTheRecordingAreNoBorders();

private:
    AroundPart after(int index, double begin, double end);

    Recording recording;
    std::unique_ptr<PartedRecording> parted;
};

void TestAroundPart::init() {
    recording.stamp.emplace();
    parted = std::make_unique<PartedRecording>(recording, scouted());
}

/// Once part `index` was measured, too.
AroundPart TestAroundPart::after(int index, double begin, double end) {
    ScanOptions options;
    options.mergeGap = 1.0;
    const bool isTaken = parted->take(index, valuesOf(index, begin, end));
    return isTaken ? decideAround(*parted, index, options) : AroundPart();
}

void TestAroundPart::clipInTheMiddleIsTold() {
    const AroundPart around = after(2, 73.0, 78.0);
    QCOMPARE(around.clips.size(), 1);
    QVERIFY(around.wanted.isEmpty());
}

void TestAroundPart::clipAtABorderWaitsForTheOtherSide() {
    const AroundPart first = after(2, 80.0, 95.0);
    QVERIFY(first.clips.isEmpty());
    QCOMPARE(first.wanted, QVector<int>{3});
    const AroundPart both = after(3, 80.0, 95.0);
    QCOMPARE(both.clips.size(), 1);
    QVERIFY(both.wanted.isEmpty());
}

/// Motion of so many seconds before and behind the border between two parts.
void TestAroundPart::shareOfAVisitIsEnoughToLookAround_data() {
    QTest::addColumn<int>("measured");
    QTest::addColumn<double>("begin");
    QTest::addColumn<double>("end");
    QTest::addColumn<QVector<int>>("wanted");
    QTest::newRow("its beginning") << 2 << 88.5 << 95.0 << QVector<int>{3};
    QTest::newRow("its end") << 3 << 83.0 << 91.5 << QVector<int>{2};
}

void TestAroundPart::shareOfAVisitIsEnoughToLookAround() {
    QFETCH(int, measured);
    QFETCH(double, begin);
    QFETCH(double, end);
    QFETCH(QVector<int>, wanted);
    const AroundPart first = after(measured, begin, end);
    QVERIFY(first.clips.isEmpty());
    QCOMPARE(first.wanted, wanted);
    QCOMPARE(after(wanted.first(), begin, end).clips.size(), 1);
}

/// Too short for a clip, and nothing can be added to it.
void TestAroundPart::flickerAwayFromTheBordersIsNot() {
    const AroundPart around = after(2, 73.0, 74.2);
    QVERIFY(around.clips.isEmpty());
    QVERIFY(around.wanted.isEmpty());
}

void TestAroundPart::theEndsOfTheRecordingAreNoBorders() {
    const AroundPart first = after(0, 0.0, 6.0);
    QCOMPARE(first.clips.size(), 1);
    QVERIFY(first.wanted.isEmpty());
    const AroundPart last = after(count - 1, 172.0, 180.0);
    QCOMPARE(last.clips.size(), 1);
    QVERIFY(last.wanted.isEmpty());
}

QTEST_GUILESS_MAIN(TestAroundPart)
#include "test_aroundpart.moc"
