// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "keptdetection.h"
#include "missingpicture.h"
#include "refinement.h"

#include <QtTest>

#include <algorithm>
#include <cmath>

class TestRefinement : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void stretchesReachOverTheGap_data();
    void stretchesReachOverTheGap();
    void stretchesEndWithTheRange();
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

/// From the first clip's start to the last one's end.
class AllClips : public DetectionClient {
public:
    bool isCancelled() override { return false; }
    void opened(const QByteArray&, double) override {}
    void frameProcessed(const FrameReport&) override {}
    void positionChanged(qint64) override {}
    void endReached() override {}
    void clipFound(const DetectedClip& clip) override {
        from = std::min(from, clip.start);
        to = std::max(to, clip.end);
    }

    double from = HUGE_VAL;
    double to = 0.0;
};

SegmentationOptions margins() {
    SegmentationOptions segmentation;
    segmentation.prerecord = 1.0;
    segmentation.postrecord = 2.0;
    segmentation.minimum = 30.0;
    segmentation.fewestCompared = 2;
    return segmentation;
}

} // namespace

void TestRefinement::stretchesReachOverTheGap_data() {
    QTest::addColumn<double>("gap");
    QTest::newRow("a second") << 1.0;
    QTest::newRow("ten seconds") << 10.0;
}

/// What begins to move right behind a key frame shows in the next one only: motion may begin a gap
/// before the clip that key frames give, and end a gap behind it.
void TestRefinement::stretchesReachOverTheGap() {
    QFETCH(double, gap);
    const Measurement looked = keyFrames(gap);
    AllClips found;
    QVERIFY(decideAgain(looked, margins(), noPicture, found));
    const QVector<TimeRange> stretches = rangesToRefine(looked, margins(), {});
    QCOMPARE(stretches.size(), 1);
    const double ofAClip = 1.0 + 2.0 + 30.0;
    QCOMPARE(stretches[0].from, found.from - ofAClip - gap);
    QCOMPARE(stretches[0].to, found.to + ofAClip + gap);
}

void TestRefinement::stretchesEndWithTheRange() {
    const QVector<TimeRange> stretches = rangesToRefine(keyFrames(10.0), margins(), {590.0, 650.0});
    QCOMPARE(stretches.size(), 1);
    QCOMPARE(stretches[0].from, 590.0);
    QCOMPARE(stretches[0].to, 650.0);
}

QTEST_GUILESS_MAIN(TestRefinement)
#include "test_refinement.moc"
