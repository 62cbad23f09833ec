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

QTEST_GUILESS_MAIN(TestRefinement)
#include "test_refinement.moc"
