// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

// What is remarked of recordings without clips, and of those that are nothing but clips.

#include "motionremark.h"

#include <QtTest>

namespace {

ScanOptions meanOptions() {
    return {};
}

ScanOptions cellsOptions() {
    ScanOptions options;
    options.detection.detector = Detector::Cells;
    options.detection.segmentation.motionThreshold.value = 0.7F;
    options.detection.segmentation.minimum = 2.0;
    return options;
}

/// A picture a second, all of one value but the seventh.
SeenMotion seenOf(int seconds, float value, float seventh, MotionThreshold threshold) {
    SeenMotion seen;
    for (int i = 1; i <= seconds; ++i)
        seen.add(i, {i == 7 ? seventh : value}, threshold);
    return seen;
}

DetectedClip clipOf(double start, double end) {
    DetectedClip clip;
    clip.start = start;
    clip.end = end;
    return clip;
}

} // namespace

class TestMotionRemark : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void nearnessIsTold_data();
    void nearnessIsTold();
    void clipsAreCountedOnce();
    void motionThroughoutIsTold();
    void othersHaveNoRemark();
};

void TestMotionRemark::nearnessIsTold_data() {
    QTest::addColumn<bool>("areCells");
    QTest::addColumn<float>("strongest");
    QTest::addColumn<QString>("otherwise");
    QTest::addColumn<QString>("remark");
    const QString none;
    QTest::newRow("below") << false << 0.31F << none
                           << "strongest motion 0.31 at 0:00:07, below 0.5; --detector cells may "
                              "find more";
    QTest::newRow("nearly") << false << 0.4999F << none
                            << "strongest motion 0.49 at 0:00:07, below 0.5; --detector cells may "
                               "find more";
    QTest::newRow("hardly any") << false << 0.00123F << none
                                << "strongest motion 0.00123 at 0:00:07, below 0.5; --detector "
                                   "cells may find more";
    QTest::newRow("none") << false << 0.0F << none
                          << "no motion at all; --detector cells may find more";
    QTest::newRow("too short") << false << 0.5F << none
                               << "strongest motion 0.5 at 0:00:07, but never in half of 5 s; "
                                  "--detector cells may find more";
    QTest::newRow("known") << false << 0.31F << "--detector cells finds 3 clips"
                           << "strongest motion 0.31 at 0:00:07, below 0.5; --detector cells finds "
                              "3 clips";
    QTest::newRow("cells below") << true << 0.25F << none
                                 << "strongest motion 0.25 % at 0:00:07, below 0.7 %; a higher "
                                    "--sensitivity may find more";
    QTest::newRow("cells too short")
        << true << 1.5F << none
        << "strongest motion 1.5 % at 0:00:07, but never in half of 2 s; a higher --sensitivity "
           "may find more";
}

void TestMotionRemark::nearnessIsTold() {
    QFETCH(bool, areCells);
    QFETCH(float, strongest);
    QFETCH(QString, otherwise);
    const ScanOptions options = areCells ? cellsOptions() : meanOptions();
    const SeenMotion seen =
        seenOf(30, 0.0F, strongest, options.detection.segmentation.motionThreshold);
    QTEST(remarkOn(seen, 30.0, options, otherwise), "remark");
}

void TestMotionRemark::clipsAreCountedOnce() {
    SeenMotion seen;
    seen.addClip(clipOf(-2.0, 10.0));
    seen.addClip(clipOf(8.0, 9.0)); // inside the first
    seen.addClip(clipOf(9.0, 12.0));
    seen.addClip(clipOf(20.0, 25.0));
    QCOMPARE(seen.clips, 4);
    QCOMPARE(seen.inClips, 17.0);
}

void TestMotionRemark::motionThroughoutIsTold() {
    const ScanOptions options = meanOptions();
    SeenMotion seen = seenOf(100, 1.0F, 0.1F, options.detection.segmentation.motionThreshold);
    seen.addClip(clipOf(1.0, 98.0));
    QCOMPARE(
        remarkOn(seen, 100.0, options, {}),
        QString("motion throughout: 97 % of it is clips, and 99 % of its pictures have motion, "
                "which may as well be noise, rain or a shaking camera; a higher "
                "--threshold-value or --detector cells may tell them apart"));
    QVERIFY(remarkOn(seen, 100.0, options, "--detector cells finds 2 clips")
                .endsWith("; --detector cells finds 2 clips"));
    ScanOptions cells = cellsOptions();
    QVERIFY(remarkOn(seen, 100.0, cells, {})
                .endsWith("; a lower --sensitivity or --ignore-restless may tell them apart"));
    cells.detection.cells.isRestlessIgnored = true;
    QVERIFY(
        remarkOn(seen, 100.0, cells, {}).endsWith("; a lower --sensitivity may tell them apart"));
}

void TestMotionRemark::othersHaveNoRemark() {
    const ScanOptions options = meanOptions();
    const MotionThreshold threshold = options.detection.segmentation.motionThreshold;
    QVERIFY(!isRemarkable(SeenMotion(), 0.0)); // of no picture
    SeenMotion oneVisit = seenOf(15, 1.0F, 1.0F, threshold);
    oneVisit.addClip(clipOf(0.0, 15.0)); // too short to tell
    QVERIFY(!isRemarkable(oneVisit, 15.0));
    SeenMotion visits = seenOf(100, 0.1F, 1.0F, threshold);
    visits.addClip(clipOf(0.0, 100.0)); // mostly quiet
    QVERIFY(!isRemarkable(visits, 100.0));
    SeenMotion half = seenOf(100, 1.0F, 1.0F, threshold);
    half.addClip(clipOf(0.0, 60.0));
    QCOMPARE(remarkOn(half, 100.0, options, {}), QString());
}

QTEST_GUILESS_MAIN(TestMotionRemark)
#include "test_motionremark.moc"
