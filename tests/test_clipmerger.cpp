// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "clipmerger.h"

#include <QtTest>

#include <random>

namespace {

using Clips = QVector<DetectedClip>;

/// The snapshot is told by its width, and by why there might be none.
DetectedClip clip(double start, double end, float motion = 1.0F, int picture = 1) {
    const QImage snapshot(picture, 1, QImage::Format_RGB32);
    return {0, snapshot, start, end, start + 0.5, {motion}, QString::number(picture)};
}

bool isSame(const DetectedClip& left, const DetectedClip& right) {
    return left.index == right.index && left.start == right.start && left.end == right.end &&
           left.snapshotTime == right.snapshotTime &&
           left.strongestMotion == right.strongestMotion &&
           left.snapshot.width() == right.snapshot.width() &&
           left.snapshotFlaw == right.snapshotFlaw;
}

bool areSame(const Clips& left, const Clips& right) {
    return left.size() == right.size() &&
           std::equal(left.begin(), left.end(), right.begin(), isSame);
}

void append(Clips& clips, const std::optional<DetectedClip>& clip) {
    if (clip)
        clips.append(*clip);
}

Clips merged(double gap, const Clips& found) {
    ClipMerger merger(gap);
    Clips clips;
    for (const DetectedClip& next : found)
        append(clips, merger.add(next));
    append(clips, merger.finish());
    return clips;
}

/// The same from the whole list at once: neighbours become one until no two can.
Clips naivelyMerged(double gap, Clips clips) {
    for (int i = 0; i + 1 < clips.size();) {
        const DetectedClip first = clips[i];
        const DetectedClip second = clips[i + 1];
        if (second.start > first.end + gap + 1e-6) {
            ++i;
            continue;
        }
        clips[i] = second.strongestMotion.value > first.strongestMotion.value ? second : first;
        clips[i].start = first.start;
        clips[i].end = second.end;
        clips.removeAt(i + 1);
    }
    for (int i = 0; i < clips.size(); ++i)
        clips[i].index = i;
    return clips;
}

/// Clips whose starts and ends rise, some with the same time.
Clips randomClips(std::mt19937& random) {
    std::uniform_int_distribution<int> steps(0, 12);
    Clips clips;
    double start = 0.0;
    double end = 0.0;
    for (int i = std::uniform_int_distribution<int>(0, 20)(random); i > 0; --i) {
        start += steps(random) / 4.0;
        end = qMax(end, start) + steps(random) / 8.0;
        clips.append(clip(start, end, float(steps(random)), i));
    }
    return clips;
}

class NoPicture : public ClipPicture {
public:
    QImage snapshot() override { return {}; }
    void shrink() override {}
};

/// What a segmenter finds in `values` (25 a second), as it is and merged picture by picture.
struct Found {
    Clips apart;
    Clips merged;
    Clips late; ///< passed on later than a clip that starts just then allowed
};

Found segmented(const QVector<float>& values, const SegmentationOptions& options, double gap,
                double firstTime) {
    Found found;
    ClipSegmenter segmenter(options, firstTime, firstTime, std::make_shared<NoPicture>());
    ClipMerger merger(gap);
    for (int i = 0; i < values.size(); ++i) {
        const double time = firstTime + (i + 1) / 25.0;
        const auto clip = segmenter.addFrame({values[i]}, time, std::make_shared<NoPicture>());
        if (clip) {
            found.apart.append(*clip);
            append(found.merged, merger.add(*clip));
        }
        const int before = found.merged.size();
        append(found.merged, merger.passBy(segmenter.earliestStart()));
        const double opensNow = qMax(0.0, time - options.minimum - options.prerecord) - firstTime;
        if (found.merged.size() > before && opensNow - 0.04 - 1e-6 > found.merged.last().end + gap)
            found.late.append(found.merged.last());
    }
    if (const auto clip = segmenter.finish()) {
        found.apart.append(*clip);
        append(found.merged, merger.add(*clip));
    }
    append(found.merged, merger.finish());
    return found;
}

} // namespace

class TestClipMerger : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void noClipGivesNone();
    void overlappingClipsBecomeOne();
    void gapIsIncluded_data();
    void gapIsIncluded();
    void chainsBecomeOne();
    void strongerSnapshotStays_data();
    void strongerSnapshotStays();
    void numbersAreNew();
    void comesOutAsSoonAsNoneCanJoin();
    void lateComersStayApart();
    void equalsTheMergeOfTheWholeList();
    void equalsTheMergeOfWhatASegmenterFinds();
};

void TestClipMerger::noClipGivesNone() {
    ClipMerger merger(1.0);
    QVERIFY(!merger.passBy(1e9));
    QVERIFY(!merger.finish());
}

void TestClipMerger::overlappingClipsBecomeOne() {
    const Clips clips = merged(0.0, {clip(2.0, 9.0), clip(6.0, 13.0)});
    QCOMPARE(clips.size(), 1);
    QCOMPARE(clips[0].start, 2.0);
    QCOMPARE(clips[0].end, 13.0);
}

void TestClipMerger::gapIsIncluded_data() {
    QTest::addColumn<double>("gap");
    QTest::addColumn<double>("end");
    QTest::addColumn<double>("start");
    QTest::addColumn<int>("clips");
    QTest::newRow("they touch") << 0.0 << 5.0 << 5.0 << 1;
    QTest::newRow("one picture apart") << 0.0 << 5.0 << 5.04 << 2;
    QTest::newRow("just as far") << 2.0 << 5.0 << 7.0 << 1;
    QTest::newRow("one picture too far") << 2.0 << 5.0 << 7.04 << 2;
    // 1.1 - 1.0 is more than 0.1 in binary digits.
    QTest::newRow("just as far, but for rounding") << 0.1 << 1.0 << 1.1 << 1;
}

void TestClipMerger::gapIsIncluded() {
    QFETCH(double, gap);
    QFETCH(double, end);
    QFETCH(double, start);
    const Clips clips = merged(gap, {clip(0.0, end), clip(start, start + 1.0)});
    QTEST(clips.size(), "clips");
}

void TestClipMerger::chainsBecomeOne() {
    const Clips clips = merged(1.0, {clip(0, 2), clip(3, 5), clip(4, 6), clip(7, 8), clip(20, 21)});
    QCOMPARE(clips.size(), 2);
    QCOMPARE(clips[0].end, 8.0);
    QCOMPARE(clips[1].start, 20.0);
}

void TestClipMerger::strongerSnapshotStays_data() {
    QTest::addColumn<float>("first");
    QTest::addColumn<float>("second");
    QTest::addColumn<int>("picture");
    QTest::newRow("the first") << 3.0F << 2.0F << 7;
    QTest::newRow("the second") << 2.0F << 3.0F << 8;
    QTest::newRow("of equals the first") << 2.0F << 2.0F << 7;
}

void TestClipMerger::strongerSnapshotStays() {
    QFETCH(float, first);
    QFETCH(float, second);
    QFETCH(int, picture);
    const Clips clips = merged(0.0, {clip(0.0, 4.0, first, 7), clip(2.0, 6.0, second, 8)});
    QCOMPARE(clips[0].snapshot.width(), picture);
    QCOMPARE(clips[0].snapshotFlaw, QString::number(picture));
    QCOMPARE(clips[0].snapshotTime, picture == 7 ? 0.5 : 2.5);
    QCOMPARE(clips[0].strongestMotion.value, qMax(first, second));
}

void TestClipMerger::numbersAreNew() {
    const Clips clips = merged(0.0, {clip(0, 2), clip(1, 3), clip(10, 12), clip(20, 22)});
    QCOMPARE(clips.size(), 3);
    for (int i = 0; i < 3; ++i)
        QCOMPARE(clips[i].index, i);
}

void TestClipMerger::comesOutAsSoonAsNoneCanJoin() {
    ClipMerger merger(2.0);
    QVERIFY(!merger.add(clip(0.0, 5.0)));
    QVERIFY(!merger.passBy(7.0));
    const auto out = merger.passBy(7.04);
    QVERIFY(out);
    QCOMPARE(out->end, 5.0);
    QVERIFY(!merger.passBy(8.0));
    QVERIFY(!merger.finish());
}

void TestClipMerger::lateComersStayApart() {
    ClipMerger merger(2.0);
    merger.add(clip(0.0, 5.0));
    QVERIFY(merger.passBy(9.0));
    QVERIFY(!merger.add(clip(4.0, 6.0)));
    const auto out = merger.finish();
    QVERIFY(out);
    QCOMPARE(out->index, 1);
    QCOMPARE(out->start, 4.0);
}

void TestClipMerger::equalsTheMergeOfTheWholeList() {
    std::mt19937 random(5);
    int joined = 0;
    for (int run = 0; run < 3000; ++run) {
        const Clips found = randomClips(random);
        const double gap = std::uniform_int_distribution<int>(0, 8)(random) / 4.0;
        const Clips expected = naivelyMerged(gap, found);
        QVERIFY2(areSame(merged(gap, found), expected), qPrintable(QString::number(run)));
        joined += found.size() - expected.size();
    }
    QVERIFY(joined > 1000);
}

void TestClipMerger::equalsTheMergeOfWhatASegmenterFinds() {
    std::mt19937 random(7);
    std::uniform_int_distribution<int> lengths(1, 200);
    int joined = 0;
    int left = 0;
    for (int run = 0; run < 300; ++run) {
        QVector<float> values;
        for (bool moves = false; values.size() < 2000; moves = !moves)
            values += QVector<float>(lengths(random), moves ? float(lengths(random)) : 0.0F);
        const double gap = std::uniform_int_distribution<int>(0, 12)(random) / 4.0;
        const double firstTime = run % 3 == 0 ? 2.5 : 0.0;
        const SegmentationOptions options{1.0, 1.0, 1.0 + run % 5, {0.5F}};
        const Found found = segmented(values, options, gap, firstTime);
        const Clips expected = naivelyMerged(gap, found.apart);
        QVERIFY2(areSame(found.merged, expected), qPrintable(QString::number(run)));
        QVERIFY2(found.late.isEmpty(), qPrintable(QString::number(run)));
        joined += found.apart.size() - expected.size();
        left += expected.size();
    }
    QVERIFY(joined > 300 && left > 300);
}

QTEST_GUILESS_MAIN(TestClipMerger)
#include "test_clipmerger.moc"
