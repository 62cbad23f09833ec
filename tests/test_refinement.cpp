// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "keptdetection.h"
#include "refinement.h"

#include <QtTest>

class TestRefinement : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void rangesReachOverTheGap_data();
    void rangesReachOverTheGap();
    void rangesEndWithTheRange();
    void likeliestPartsAreSomeOfIt();
    void rangesAreJoined();
};

namespace {

/// Key frames `gap` seconds apart for half an hour, with motion from 600 to 660 s.
Measurement keyFrames(double gap) {
    Measurement looked;
    looked.hasPictures = true;
    for (int i = 1; i * gap <= 1800.0; ++i) {
        const double time = i * gap;
        looked.series.times.append(time);
        looked.series.scores.append(MotionScore{time >= 600.0 && time <= 660.0 ? 5.0F : 0.0F});
    }
    return looked;
}

SegmentationOptions margins() {
    SegmentationOptions segmentation;
    segmentation.prerecord = 1.0;
    segmentation.postrecord = 2.0;
    segmentation.minimum = 30.0;
    segmentation.fewestCompared = 2;
    return segmentation;
}

} // namespace

void TestRefinement::rangesReachOverTheGap_data() {
    QTest::addColumn<double>("gap");
    QTest::newRow("a second") << 1.0;
    QTest::newRow("ten seconds") << 10.0;
}

/// What begins to move right behind a key frame shows in the next one only: motion may begin a gap
/// before the clip that key frames give, and end a gap behind it.
void TestRefinement::rangesReachOverTheGap() {
    QFETCH(double, gap);
    const Measurement looked = keyFrames(gap);
    const QVector<DetectedClip> clips = clipsOf(looked, margins());
    QVERIFY(!clips.isEmpty());
    const QVector<TimeRange> ranges = rangesToRefine(looked, margins(), {});
    QCOMPARE(ranges.size(), 1);
    const double ofAClip = 1.0 + 2.0 + 30.0;
    QCOMPARE(ranges[0].from, clips.first().start - ofAClip - gap);
    QCOMPARE(ranges[0].to, clips.last().end + ofAClip + gap);
}

void TestRefinement::rangesEndWithTheRange() {
    const QVector<TimeRange> ranges = rangesToRefine(keyFrames(10.0), margins(), {590.0, 650.0});
    QCOMPARE(ranges.size(), 1);
    QCOMPARE(ranges[0].from, 590.0);
    QCOMPARE(ranges[0].to, 650.0);
}

/// Of twenty parts of ten seconds one is a twentieth; one that is no likelier than others is none.
void TestRefinement::likeliestPartsAreSomeOfIt() {
    ScoutedRecording scouted;
    scouted.partSeconds.fill(10.0, 20);
    QVERIFY(likeliestRanges(scouted).isEmpty());
    scouted.promises.fill({}, 20);
    scouted.promises[7] = {2.0F, 2.0F};
    const QVector<TimeRange> ranges = likeliestRanges(scouted);
    QCOMPARE(ranges.size(), 1);
    QCOMPARE(ranges[0].from, 70.0);
    QCOMPARE(ranges[0].to, 80.0);
}

void TestRefinement::rangesAreJoined() {
    const QVector<TimeRange> joined =
        joinedRanges({{50.0, 60.0}, {10.0, 20.0}}, {{61.0, 70.0}, {100.0, 120.0}, {0.0, 4.0}}, 2.0,
                     {5.0, 110.0});
    QCOMPARE(joined.size(), 3);
    QCOMPARE(joined[0].from, 10.0);
    QCOMPARE(joined[1].from, 50.0);
    QCOMPARE(joined[1].to, 70.0);
    QCOMPARE(joined[2].to, 110.0);
}

QTEST_GUILESS_MAIN(TestRefinement)
#include "test_refinement.moc"
