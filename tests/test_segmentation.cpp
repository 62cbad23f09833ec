// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "literalsegmentation.h"
#include "segmentation.h"

#include <QtTest>

#include <random>

namespace {

constexpr float threshold = 0.5F;

/// A picture whose snapshot is its number, and which counts the large pictures alive.
class NumberedPicture : public ClipPicture {
public:
    explicit NumberedPicture(int number)
        : number(number) {
        ++largeAlive;
    }
    ~NumberedPicture() override { shrinkOnce(); }

    QImage snapshot() override {
        ++snapshots;
        shrinkOnce();
        QImage image(1, 1, QImage::Format_RGB32);
        image.setPixel(0, 0, QRgb(number));
        return image;
    }

    void shrink() override { shrinkOnce(); }

    static int largeAlive;
    static int snapshots;

private:
    void shrinkOnce() {
        if (isLarge)
            --largeAlive;
        isLarge = false;
    }

    int number;
    bool isLarge = true;
};

int NumberedPicture::largeAlive = 0;
int NumberedPicture::snapshots = 0;

int shownFrame(const DetectedClip& clip) {
    return int(clip.snapshot.pixel(0, 0) & 0xFFFFFF);
}

struct Run {
    QVector<DetectedClip> clips;
    MotionSeries series;
    int mostLargePictures = 0;
};

/// What the segmenter makes of `frames`.
/// `forgetEvery`: so many frames; 0: nothing is forgotten.
Run segment(const QVector<TestFrame>& frames, const SegmentationOptions& options,
            int forgetEvery = 0) {
    Run run;
    NumberedPicture::snapshots = 0;
    const double origin = frames.first().time;
    ClipSegmenter segmenter(options, origin, origin, std::make_shared<NumberedPicture>(0));
    for (int number = 1; number < frames.size(); ++number) {
        const auto clip = segmenter.addFrame({frames[number].motion}, frames[number].time,
                                             std::make_shared<NumberedPicture>(number));
        if (clip)
            run.clips.append(*clip);
        if (forgetEvery > 0 && number % forgetEvery == 0)
            segmenter.forgetOld();
        run.mostLargePictures = qMax(run.mostLargePictures, NumberedPicture::largeAlive);
    }
    if (const auto clip = segmenter.finish())
        run.clips.append(*clip);
    run.series = segmenter.motionSeries();
    return run;
}

/// The first difference between what was found and what the literal model finds; empty if none.
QString difference(const QVector<DetectedClip>& found, const QVector<LiteralClip>& expected) {
    if (found.size() != expected.size())
        return QStringLiteral("%1 clips instead of %2").arg(found.size()).arg(expected.size());
    for (int i = 0; i < found.size(); ++i) {
        const DetectedClip& clip = found[i];
        const LiteralClip& model = expected[i];
        if (clip.index != model.index || clip.start != model.start || clip.end != model.end ||
            clip.snapshotTime != model.snapshotTime || shownFrame(clip) != model.snapshotFrame)
            return QStringLiteral("clip %1: %2 - %3 showing %4 instead of %5 - %6 showing %7")
                .arg(i)
                .arg(clip.start)
                .arg(clip.end)
                .arg(shownFrame(clip))
                .arg(model.start)
                .arg(model.end)
                .arg(model.snapshotFrame);
    }
    return {};
}

SegmentationOptions margins(double prerecord, double postrecord, double minimum) {
    return {prerecord, postrecord, minimum, {threshold}};
}

/// Frames at 25 per second from `firstTime` on; motion 1 from second `from` to second `to`.
QVector<TestFrame> burst(double seconds, double from, double to, double firstTime = 0.0) {
    QVector<TestFrame> frames;
    for (int i = 0; i <= int(seconds * 25.0); ++i) {
        const double time = i / 25.0;
        frames.append({firstTime + time, time >= from && time < to ? 1.0F : 0.0F});
    }
    return frames;
}

QVector<TestFrame> flickering(int count, unsigned seed) {
    std::mt19937 random(seed);
    QVector<TestFrame> frames;
    double time = 0.0;
    for (int i = 0; i < count; ++i) {
        const bool isBusy = int(random() % 400) < 200 + 180 * ((i / 100) % 2);
        frames.append({time, isBusy ? float(1 + random() % 9) : 0.0F});
        time += random() % 50 == 0 ? 3.0 : 0.04;
    }
    return frames;
}

} // namespace

class TestSegmentation : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void quietRecordingHasNoClip();
    void burstBecomesOneClip();
    void listsGrowByOneEntryPerFrame();
    void whatIsForgottenChangesNoClip();
    void fewerThanSixFramesGiveNoClip();
    void sixthFrameOpensTheFirstClip();
    void minimumOfZeroNeverOpens();
    void startIsClampedToZeroOfTheStream();
    void clampedStartCanBeNegative();
    void motionToTheEndEndsAtTheLastFrame();
    void valueAtTheThresholdOpensButDoesNotKeepOpen();
    void postrecordIsExceededStrictly();
    void burstsCloseTogetherOverlap();
    void indicesCountUp();
    void snapshotIsThePictureBeforeTheStrongestMotion();
    void newestOfEqualValuesIsShown();
    void strongerMotionInsideTheClipIsShown();
    void snapshotIsMadeOncePerClip();
    void equalsTheLiteralModelOnEverySmallSequence();
    void equalsTheLiteralModelOnRandomRecordings_data();
    void equalsTheLiteralModelOnRandomRecordings();
    void largePicturesStayFew_data();
    void largePicturesStayFew();
};

void TestSegmentation::quietRecordingHasNoClip() {
    QVERIFY(segment(burst(20, 30, 40), margins(1, 1, 5)).clips.isEmpty());
}

void TestSegmentation::burstBecomesOneClip() {
    // Motion from second 10 to 16, minimum 4: half of the window is filled 2 s later, give or take
    // a frame; the clip starts 4 + 1 s before that and ends a good 3 s after the motion.
    const Run run = segment(burst(30, 10, 16), margins(1, 3, 4));
    QCOMPARE(run.clips.size(), 1);
    const DetectedClip& clip = run.clips.first();
    QCOMPARE(clip.index, 0);
    QVERIFY2(qAbs(clip.start - 7.0) <= 0.1, qPrintable(QString::number(clip.start)));
    QVERIFY2(clip.end > 18.9 && clip.end <= 19.1, qPrintable(QString::number(clip.end)));
    QVERIFY(clip.snapshotTime >= 9.9 && clip.snapshotTime < 16.0);
}

void TestSegmentation::listsGrowByOneEntryPerFrame() {
    const QVector<TestFrame> frames = burst(1, 0, 1);
    const Run run = segment(frames, margins(1, 1, 5));
    QCOMPARE(run.series.scores.size(), frames.size() - 1);
    QCOMPARE(run.series.times.size(), frames.size() - 1);
    QCOMPARE(run.series.times.first(), frames[1].time);
    QCOMPARE(run.series.scores.last().value, frames.last().motion);
}

void TestSegmentation::whatIsForgottenChangesNoClip() {
    for (unsigned seed = 0; seed < 20; ++seed) {
        const QVector<TestFrame> frames = flickering(2000, seed);
        const Run whole = segment(frames, margins(1.0, 0.2, 2.0));
        for (const int every : {1, 7, 500}) {
            const Run run = segment(frames, margins(1.0, 0.2, 2.0), every);
            QCOMPARE(run.clips.size(), whole.clips.size());
            for (int i = 0; i < run.clips.size(); ++i) {
                QCOMPARE(run.clips[i].start, whole.clips[i].start);
                QCOMPARE(run.clips[i].end, whole.clips[i].end);
                QCOMPARE(shownFrame(run.clips[i]), shownFrame(whole.clips[i]));
            }
            QVERIFY(run.series.times.size() < 200 + every); // of a hundred or so within 2 s
        }
        QVERIFY(whole.clips.size() > 3);
    }
}

void TestSegmentation::fewerThanSixFramesGiveNoClip() {
    QVector<TestFrame> frames;
    for (int i = 0; i < 5; ++i)
        frames.append({i * 0.04, 9.0F});
    QVERIFY(segment(frames, margins(1, 1, 1)).clips.isEmpty());
}

void TestSegmentation::sixthFrameOpensTheFirstClip() {
    QVector<TestFrame> frames;
    for (int i = 0; i < 6; ++i)
        frames.append({i * 0.04, 9.0F});
    const Run run = segment(frames, margins(1, 1, 1));
    QCOMPARE(run.clips.size(), 1);
    QCOMPARE(run.clips.first().start, 0.0);
    QCOMPARE(run.clips.first().end, 0.2);
}

void TestSegmentation::minimumOfZeroNeverOpens() {
    QVERIFY(segment(burst(20, 0, 20), margins(1, 1, 0)).clips.isEmpty());
}

void TestSegmentation::startIsClampedToZeroOfTheStream() {
    const Run run = segment(burst(10, 0, 3), margins(1, 3, 5));
    QCOMPARE(run.clips.size(), 1);
    QCOMPARE(run.clips.first().index, 0);
    QCOMPARE(run.clips.first().start, 0.0);
}

void TestSegmentation::clampedStartCanBeNegative() {
    const Run run = segment(burst(10, 0, 3, 2.5), margins(1, 3, 5));
    QCOMPARE(run.clips.size(), 1);
    QCOMPARE(run.clips.first().start, -2.5);
}

void TestSegmentation::motionToTheEndEndsAtTheLastFrame() {
    const Run run = segment(burst(20, 10, 30), margins(1, 600, 5));
    QCOMPARE(run.clips.size(), 1);
    QCOMPARE(run.clips.first().end, 20.0);
}

void TestSegmentation::valueAtTheThresholdOpensButDoesNotKeepOpen() {
    QVector<TestFrame> frames;
    for (int i = 0; i <= 100; ++i)
        frames.append({i * 0.1, threshold});
    // It opens on the sixth frame, at 0.5 s, and is quiet from then on: it closes on the first
    // frame more than 2 s later. From there on the game repeats.
    const Run run = segment(frames, margins(1, 2, 1));
    QVERIFY(run.clips.size() > 1);
    QCOMPARE(run.clips.first().start, 0.0);
    QVERIFY(run.clips.first().end > 2.5);
    QVERIFY(run.clips.first().end < 2.65);
}

void TestSegmentation::postrecordIsExceededStrictly() {
    QVector<TestFrame> frames;
    for (int i = 0; i <= 20; ++i)
        frames.append({double(i), i <= 8 ? 1.0F : 0.0F});
    // Last motion at 8; at 10 the quiet has lasted exactly 2 s, at 11 longer.
    const Run run = segment(frames, margins(1, 2, 3));
    QVERIFY(!run.clips.isEmpty());
    QCOMPARE(run.clips.first().end, 11.0);
}

void TestSegmentation::burstsCloseTogetherOverlap() {
    QVector<TestFrame> frames = burst(40, 10, 14);
    for (TestFrame& frame : frames) {
        if (frame.time >= 16.5 && frame.time < 20.5)
            frame.motion = 1.0F;
    }
    const Run run = segment(frames, margins(1, 1, 4));
    QVERIFY(run.clips.size() >= 2);
    QVERIFY(run.clips[1].start < run.clips[0].end);
}

void TestSegmentation::indicesCountUp() {
    QVector<TestFrame> frames = burst(200, 0, 0);
    for (TestFrame& frame : frames) {
        if (int(frame.time) % 40 >= 20 && int(frame.time) % 40 < 28)
            frame.motion = 1.0F;
    }
    const Run run = segment(frames, margins(1, 3, 4));
    QVERIFY(run.clips.size() >= 5);
    for (int i = 0; i < run.clips.size(); ++i)
        QCOMPARE(run.clips[i].index, i);
}

void TestSegmentation::snapshotIsThePictureBeforeTheStrongestMotion() {
    QVector<TestFrame> frames = burst(20, 10, 13);
    frames[270].motion = 5.0F; // at 10.8 s, before the clip opens
    const Run run = segment(frames, margins(1, 3, 4));
    QCOMPARE(run.clips.size(), 1);
    QCOMPARE(shownFrame(run.clips.first()), 269);
    QCOMPARE(run.clips.first().snapshotTime, frames[269].time);
}

void TestSegmentation::newestOfEqualValuesIsShown() {
    QVector<TestFrame> frames = burst(20, 10, 13);
    frames[260].motion = 5.0F;
    frames[270].motion = 5.0F;
    frames[265].motion = 4.0F;
    const Run run = segment(frames, margins(1, 3, 4));
    QCOMPARE(run.clips.size(), 1);
    QCOMPARE(shownFrame(run.clips.first()), 269);
}

void TestSegmentation::strongerMotionInsideTheClipIsShown() {
    QVector<TestFrame> frames = burst(20, 10, 15);
    frames[360].motion = 5.0F; // at 14.4 s, inside the clip
    frames[365].motion = 5.0F; // not stronger
    const Run run = segment(frames, margins(1, 3, 4));
    QCOMPARE(run.clips.size(), 1);
    QCOMPARE(shownFrame(run.clips.first()), 360);
}

void TestSegmentation::snapshotIsMadeOncePerClip() {
    QVector<TestFrame> frames = burst(20, 10, 18);
    for (int i = 0; i < frames.size(); ++i)
        frames[i].motion *= float(1 + i); // every frame beats the one before it
    const Run run = segment(frames, margins(1, 3, 4));
    QCOMPARE(run.clips.size(), 1);
    QCOMPARE(NumberedPicture::snapshots, 1);
}

void TestSegmentation::equalsTheLiteralModelOnEverySmallSequence() {
    // Every sequence of 11 values of {quiet, at the threshold, motion}, one a second.
    const float levels[] = {0.0F, threshold, 1.0F};
    constexpr int length = 11;
    QVector<TestFrame> frames(length + 1);
    int clips = 0;
    for (int code = 0; code < 177147; ++code) {
        int rest = code;
        for (int i = 1; i <= length; ++i, rest /= 3)
            frames[i] = {double(i), levels[rest % 3]};
        const SegmentationOptions options = margins(1, 1 + code % 2, 2 + code % 3);
        const QVector<LiteralClip> expected = literalClips(frames, options);
        const QString found = difference(segment(frames, options).clips, expected);
        QVERIFY2(found.isEmpty(), qPrintable(QStringLiteral("%1: %2").arg(code).arg(found)));
        clips += expected.size();
    }
    QVERIFY(clips > 100000);
}

void TestSegmentation::equalsTheLiteralModelOnRandomRecordings_data() {
    QTest::addColumn<double>("minimum");
    QTest::addColumn<double>("backwards"); // share of frames whose time steps back
    for (const double minimum : {0.5, 1.0, 5.0, 60.0}) {
        for (const double backwards : {0.0, 0.02, 0.3})
            QTest::addRow("minimum %g, %g backwards", minimum, backwards) << minimum << backwards;
    }
}

void TestSegmentation::equalsTheLiteralModelOnRandomRecordings() {
    QFETCH(double, minimum);
    QFETCH(double, backwards);
    std::mt19937 random(4);
    std::uniform_real_distribution<double> share(0.0, 1.0);
    for (int run = 0; run < 60; ++run) {
        // Values wander between quiet and motion, and are rounded so that equals are common.
        QVector<TestFrame> frames;
        double time = share(random) < 0.5 ? 0.0 : 50.0 * share(random);
        double level = 0.0;
        for (int i = 0; i < 600; ++i) {
            frames.append({time, float(int(level * 8.0)) / 8.0F});
            level = qBound(0.0, level + 0.8 * (share(random) - 0.5), 2.0);
            time += share(random) < backwards ? -2.0 * share(random)
                                              : 0.02 * int(1 + 3 * share(random));
        }
        const SegmentationOptions options = margins(share(random) * 3, share(random) * 2, minimum);
        const QString found =
            difference(segment(frames, options).clips, literalClips(frames, options));
        QVERIFY2(found.isEmpty(), qPrintable(QStringLiteral("run %1: %2").arg(run).arg(found)));
    }
}

void TestSegmentation::largePicturesStayFew_data() {
    QTest::addColumn<int>("shape");
    QTest::newRow("values that only fall") << 0;
    QTest::newRow("values that only rise") << 1;
    QTest::newRow("noise") << 2;
}

void TestSegmentation::largePicturesStayFew() {
    QFETCH(int, shape);
    std::mt19937 random(9);
    std::uniform_real_distribution<float> share(0.0F, 1.0F);
    QVector<TestFrame> frames;
    for (int i = 0; i < 5000; ++i) {
        const float motion = shape == 2 ? share(random) : float(shape == 0 ? 5000 - i : i);
        frames.append({i / 25.0, motion});
    }
    const Run run = segment(frames, margins(1, 1, 3600));
    QVERIFY(!run.clips.isEmpty());
    QVERIFY2(run.mostLargePictures <= 8, qPrintable(QString::number(run.mostLargePictures)));
    QCOMPARE(NumberedPicture::largeAlive, 0);
}

QTEST_GUILESS_MAIN(TestSegmentation)
#include "test_segmentation.moc"
