// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "detection.h"

#include "ffmpegmutex.h"
#include "files.h"
#include "firstframe.h"
#include "footage.h"
#include "frames.h"
#include "media.h"
#include "probe.h"
#include "videodecoder.h"

#include <opencv2/core.hpp>
#include <opencv2/imgproc.hpp>

#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QThread>
#include <QtTest>

#include <sys/stat.h>

#include <atomic>
#include <functional>

namespace {

const QStringList ffv1 = {"-c:v", "ffv1"};

/// Writes down what it is told and answers as it is asked to.
class Recorder : public DetectionProgress, public DetectionFindings {
public:
    bool isCancelled() override { return cancel && cancel(*this); }

    void opened(const StreamFacts& stream) override {
        isOpened = true;
        events.append("opened");
        codecName = stream.codecName;
        duration = stream.duration;
    }

    void frameProcessed(const FrameReport& frame) override {
        events.append(QStringLiteral("frame %1").arg(frame.number));
        frames.append(frame);
        framesSeen = frames.size();
    }

    void positionChanged(qint64 bytePosition, bool isAtEnd) override {
        if (isAtEnd)
            events.append("end");
        events.append("position");
        positions.append(bytePosition);
    }

    void clipFound(const DetectedClip& clip) override {
        events.append("clip");
        clips.append(clip);
    }

    // Asked on any thread, so it looks at these two only.
    std::function<bool(const Recorder&)> cancel;
    std::atomic<bool> isOpened{false};
    std::atomic<int> framesSeen{0};

    QStringList events;
    QVector<FrameReport> frames;
    QVector<qint64> positions;
    QVector<DetectedClip> clips;
    QByteArray codecName;
    double duration = -1.0;
};

/// One detection and all that came out of it.
struct Run {
    explicit Run(const QString& fileName, const DetectionOptions& options = {},
                 std::function<bool(const Recorder&)> cancel = {}) {
        recorder.cancel = std::move(cancel);
        Detection detection(options, recorder, &recorder);
        const MeasuringEnd end = detection.run(fileName);
        outcome = end.outcome;
        errorText = end.error;
        series = detection.measurement().series;
    }

    QVector<float> motion() const {
        QVector<float> values;
        for (const FrameReport& frame : recorder.frames)
            values.append(frame.motion.value);
        return values;
    }

    Recorder recorder;
    MotionSeries series;
    DetectionOutcome outcome{};
    QString errorText;
};

/// 50 pictures of quiet, 50 in which every pixel changes by 100 or more, 50 of quiet.
QList<QImage> burst() {
    QList<QImage> pictures;
    for (int i = 0; i < 150; ++i) {
        const bool moves = i >= 50 && i < 100;
        const int grey = moves ? (i % 2 == 0 ? 200 : 0) : 100;
        pictures.append(media::grey(64, 48, grey));
    }
    return pictures;
}

DetectionOptions oneSecond() {
    DetectionOptions options;
    options.segmentation.minimum = 1.0;
    return options;
}

QImage noise(quint32 seed) {
    QImage picture(64, 48, QImage::Format_Grayscale8);
    cv::Mat pixels(48, 64, CV_8UC1, picture.bits(), std::size_t(picture.bytesPerLine()));
    cv::RNG(seed).fill(pixels, cv::RNG::UNIFORM, 0, 256);
    return picture;
}

double plainValue(const QImage& before, const QImage& now) {
    const auto wrap = [](const QImage& picture) {
        return cv::Mat(picture.height(), picture.width(), CV_8UC1,
                       const_cast<uchar*>(picture.constBits()),
                       std::size_t(picture.bytesPerLine()));
    };
    cv::Mat difference;
    cv::absdiff(wrap(before), wrap(now), difference);
    cv::threshold(difference, difference, 35, 255, cv::THRESH_TOZERO);
    return float(cv::mean(difference)[0]);
}

/// The stride of a file's first picture.
int firstStride(const QString& fileName) {
    VideoDecoder decoder;
    if (!decoder.open(fileName.toUtf8().constData()))
        return 0;
    const FramePointer frame(decoder.readFrame(true));
    return frame ? frame->stride() : 0;
}

} // namespace

class TestDetection : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void measuresEveryPictureAgainstTheOneBefore();
    void tellsInOrder();
    void withoutFindingsItMeasuresAlone();
    void findsTheClip();
    void reportsTheClipBeforeTheFrame();
    void openClipEndsWithTheFile();
    void tellsCodecAndDuration();
    void positionsEndAtTheFileSize();
    void timesCountFromTheFirstPicture();
    void readsOnAfterASizeChange();
    void bottomUpEqualsTopDown();
    void realBottomUpEqualsTopDown();
    void realSizeChangeIsReadToItsEnd();
    void waitsForTheMutex();
    void holdsNoMutexWhileItWaits();

    void cancelBeforeTheFirstFrame();
    void cancelWithinOneFrame();
    void cancelDuringAClip();
    void cancelDuringTheOpenIsNoFailure();

    void fileThatIsNoVideo();
    void tooFewPictures_data();
    void tooFewPictures();

private:
    QString path(const QString& name) const { return folder.filePath(name); }
    void compareBottomUp(const QString& fileName);

    QTemporaryDir folder;
};

void TestDetection::initTestCase() {
    QVERIFY(folder.isValid());
    QVERIFY(media::encodeGrey(path("burst.mkv"), burst(), 25, ffv1));
    QVERIFY(media::encodeGrey(path("three.mkv"), media::numberedPictures(3), 25, ffv1));
}

void TestDetection::measuresEveryPictureAgainstTheOneBefore() {
    QList<QImage> pictures;
    for (int i = 0; i < 12; ++i)
        pictures.append(noise(quint32(i + 1)));
    QVERIFY(media::encodeGrey(path("noise.mkv"), pictures, 25, ffv1));
    const Run run(path("noise.mkv"));
    QCOMPARE(run.outcome, DetectionOutcome::Finished);
    QCOMPARE(run.recorder.frames.size(), 11);
    for (int i = 1; i < 12; ++i) {
        const FrameReport& frame = run.recorder.frames[i - 1];
        QCOMPARE(frame.number, qint64(i));
        QCOMPARE(frame.time, i * 0.04);
        QVERIFY(frame.motion.value == plainValue(pictures[i - 1], pictures[i]));
        QVERIFY(run.series.scores[i - 1] == frame.motion);
        QCOMPARE(run.series.times[i - 1], frame.time);
    }
    QCOMPARE(run.series.scores.size(), 11);
    QCOMPARE(run.series.times.size(), 11);
}

void TestDetection::tellsInOrder() {
    const Run run(path("three.mkv"));
    QCOMPARE(run.recorder.events,
             QStringList({"opened", "frame 1", "position", "frame 2", "end", "position"}));
}

void TestDetection::withoutFindingsItMeasuresAlone() {
    const Run run(path("burst.mkv"), oneSecond());
    Recorder recorder;
    Detection detection(oneSecond(), recorder);
    QCOMPARE(detection.run(path("burst.mkv")).outcome, DetectionOutcome::Finished);
    QCOMPARE(detection.measurement().series.scores, run.series.scores);
    QCOMPARE(detection.measurement().series.times, run.series.times);
    QCOMPARE(recorder.events.count("end"), 1);
    QCOMPARE(recorder.events.count("position"), 149);
    QCOMPARE(recorder.events.size(), 150); // and of nothing else
}

void TestDetection::findsTheClip() {
    const Run run(path("burst.mkv"), oneSecond());
    QCOMPARE(run.outcome, DetectionOutcome::Finished);
    QCOMPARE(run.recorder.frames.size(), 149);
    QCOMPARE(run.recorder.clips.size(), 1);
    const DetectedClip& clip = run.recorder.clips.first();
    QCOMPARE(clip.index, 0);
    // Frames 50 to 100 move. The vote on frame n counts the 24 or 25 frames before frame n - 1, so
    // it is won by 12 or 13 of them, on frame 63 or 64; the clip starts two seconds before that.
    QVERIFY2(clip.start > 0.5 && clip.start < 0.57, qPrintable(QString::number(clip.start)));
    // The last motion is at 4.0 s, and 5.04 s is the first frame more than a second later.
    QCOMPARE(clip.end, 5.04);
    QCOMPARE(clip.snapshot.size(), QSize(320, 240));
    // All pictures from number 50 on are followed by the greatest change; the newest is chosen.
    QVERIFY(clip.snapshotTime >= 61 * 0.04 - 1e-9 && clip.snapshotTime <= 62 * 0.04 + 1e-9);
}

void TestDetection::reportsTheClipBeforeTheFrame() {
    const Run run(path("burst.mkv"), oneSecond());
    const int clip = run.recorder.events.indexOf("clip");
    QVERIFY(clip > 0);
    QCOMPARE(run.recorder.events.value(clip + 1), QString("frame 126")); // the one at 5.04 s
}

void TestDetection::openClipEndsWithTheFile() {
    QVERIFY(media::encodeGrey(path("open.mkv"), burst().mid(0, 90), 25, ffv1));
    const Run run(path("open.mkv"), oneSecond());
    QCOMPARE(run.recorder.clips.size(), 1);
    QCOMPARE(run.recorder.clips.first().end, 89 * 0.04);
    QCOMPARE(run.recorder.events.mid(run.recorder.events.size() - 3),
             QStringList({"end", "position", "clip"}));
}

void TestDetection::tellsCodecAndDuration() {
    const Run lossless(path("burst.mkv"));
    QCOMPARE(lossless.recorder.codecName, QByteArray("ffv1"));
    QCOMPARE(lossless.recorder.duration, 6.0);
    QVERIFY(media::encodeGrey(path("intra.avi"), media::numberedPictures(5), 25,
                              {"-c:v", "mjpeg", "-pix_fmt", "yuvj420p"}));
    QCOMPARE(Run(path("intra.avi")).recorder.codecName, QByteArray("mjpeg"));
}

void TestDetection::positionsEndAtTheFileSize() {
    const Run run(path("burst.mkv"));
    QCOMPARE(run.recorder.positions.size(), 149);
    QVERIFY(std::is_sorted(run.recorder.positions.begin(), run.recorder.positions.end()));
    QCOMPARE(run.recorder.positions.last(), QFileInfo(path("burst.mkv")).size());
}

void TestDetection::timesCountFromTheFirstPicture() {
    QVERIFY(media::encodeGrey(path("late.mkv"), burst(), 25,
                              ffv1 + QStringList{"-output_ts_offset", "3600"}));
    const Run run(path("late.mkv"), oneSecond());
    QCOMPARE(run.recorder.clips.size(), 1);
    QCOMPARE(run.recorder.clips.first().end, 5.04);
    QCOMPARE(run.recorder.frames.last().time, 149 * 0.04);
    QCOMPARE(run.series.times.last(), 3600.0 + 149 * 0.04);
}

void TestDetection::readsOnAfterASizeChange() {
    QStringList h264 = {"-c:v", "libx264", "-bf", "0", "-pix_fmt", "yuv420p"};
    QVERIFY(media::encodeGrey(path("large.ts"), media::numberedPictures(10), 25, h264));
    h264 += {"-output_ts_offset", "0.4"};
    QVERIFY(media::encodeGrey(path("small.ts"), media::numberedPictures(10, 0, QSize(64, 48)), 25,
                              h264));
    QFile both(path("sizes.ts"));
    QVERIFY(both.open(QIODevice::WriteOnly));
    both.write(readFile(path("large.ts")) + readFile(path("small.ts")));
    both.close();

    DetectionOptions options;
    options.measure.region.kind = RegionOfInterest::Kind::Rectangle;
    options.measure.region.rectangle = QRect(0, 0, 32, 48); // the lowest bit's block
    const Run run(path("sizes.ts"), options);
    QCOMPARE(run.outcome, DetectionOutcome::Finished);
    const QVector<float> motion = run.motion();
    QCOMPARE(motion.size(), 19);
    // The lowest bit changes from each number to the next, from dark to light and back.
    for (const float value : motion)
        QVERIFY2(qAbs(value - 150.0F) < 10.0F, qPrintable(QString::number(value)));
    QCOMPARE(motion[9], motion[8]); // between the sizes: held
}

/// Compares a file whose pictures are stored bottom-up with a top-down copy of it.
void TestDetection::compareBottomUp(const QString& fileName) {
    const QString copy = path("top-down.nut");
    QVERIFY(media::encode({"-i", fileName, "-an", "-c:v", "rawvideo", copy}));
    QVERIFY(firstStride(fileName) < 0);
    QVERIFY(firstStride(copy) > 0);

    DetectionOptions upperLeft = oneSecond();
    upperLeft.measure.region.kind = RegionOfInterest::Kind::Rectangle;
    upperLeft.measure.region.rectangle = QRect(0, 0, 32, 16);
    for (DetectionOptions options : {oneSecond(), upperLeft}) {
        options.measure.pixelThreshold = 5;
        options.segmentation.motionThreshold.value = 0.01F;
        const Run original(fileName, options);
        const Run turned(copy, options);
        QCOMPARE(original.outcome, DetectionOutcome::Finished);
        QVERIFY(original.series.scores.size() > 10);
        const QVector<float> motion = original.motion();
        QVERIFY(*std::max_element(motion.begin(), motion.end()) > 0.0F);
        QCOMPARE(original.series.scores, turned.series.scores);
        QCOMPARE(original.recorder.clips.size(), turned.recorder.clips.size());
        QVERIFY(!original.recorder.clips.isEmpty());
        for (int i = 0; i < original.recorder.clips.size(); ++i)
            QCOMPARE(original.recorder.clips[i].snapshot, turned.recorder.clips[i].snapshot);
    }
}

void TestDetection::bottomUpEqualsTopDown() {
    QVERIFY(media::encodeGrey(path("bottom-up.avi"), media::numberedPictures(60), 25,
                              media::bottomUpRgb()));
    compareBottomUp(path("bottom-up.avi"));
}

void TestDetection::realBottomUpEqualsTopDown() {
    KESTROVA_REQUIRE_FOOTAGE();
    compareBottomUp(footageDirectory() + "/bottom-up.avi");
}

void TestDetection::realSizeChangeIsReadToItsEnd() {
    KESTROVA_REQUIRE_FOOTAGE();
    const QString fileName = footageDirectory() + "/size-change.ts";
    const media::ProbedVideo probed = media::probe(fileName);
    QCOMPARE(probed.reorderDepth, 0);
    const Run run(fileName);
    QCOMPARE(run.outcome, DetectionOutcome::Finished);
    QCOMPARE(run.recorder.frames.size(), probed.packetTimes.size() - 1);
    QCOMPARE(run.recorder.positions.last(), QFileInfo(fileName).size());
    QVERIFY(run.series.times.first() > 1921.0);
    QVERIFY(run.recorder.frames.first().time < 0.1);
}

void TestDetection::waitsForTheMutex() {
    DetectionOutcome outcome = DetectionOutcome::CannotOpen;
    const QString fileName = path("three.mkv");
    const std::unique_ptr<QThread> thread(
        QThread::create([&] { outcome = Run(fileName).outcome; }));
    ffmpegMutex().lock();
    thread->start();
    const bool endedEarly = thread->wait(200);
    ffmpegMutex().unlock();
    QVERIFY(thread->wait(30000));
    QVERIFY(!endedEarly);
    QCOMPARE(outcome, DetectionOutcome::Finished);
    QVERIFY(ffmpegMutex().tryLock());
    ffmpegMutex().unlock();
}

void TestDetection::holdsNoMutexWhileItWaits() {
    // The first asks come while the file is opened: a pipe that nobody writes to.
    QCOMPARE(::mkfifo(path("silent.mkv").toUtf8().constData(), 0600), 0);
    QImage picture;
    bool isGrabbed = false;
    std::atomic<int> asked{0};
    const Run run(path("silent.mkv"), {}, [&](const Recorder&) {
        if (++asked == 3)
            isGrabbed = grabFirstFrame(path("burst.mkv"), &picture);
        return asked > 3;
    });
    QVERIFY(isGrabbed);
    QCOMPARE(picture.size(), QSize(64, 48));
    QCOMPARE(run.outcome, DetectionOutcome::Cancelled);
    QCOMPARE(run.errorText, QString());
}

void TestDetection::cancelBeforeTheFirstFrame() {
    const Run run(path("burst.mkv"), oneSecond(),
                  [](const Recorder& recorder) { return bool(recorder.isOpened); });
    QCOMPARE(run.outcome, DetectionOutcome::Cancelled);
    QCOMPARE(run.recorder.events, QStringList({"opened"}));
    QVERIFY(run.series.scores.isEmpty());
    QVERIFY(run.series.times.isEmpty());
}

void TestDetection::cancelWithinOneFrame() {
    const Run run(path("burst.mkv"), oneSecond(),
                  [](const Recorder& recorder) { return recorder.framesSeen >= 20; });
    QCOMPARE(run.outcome, DetectionOutcome::Cancelled);
    QCOMPARE(run.recorder.frames.size(), 20);
    QVERIFY(!run.recorder.events.contains("end"));
    QVERIFY(run.recorder.clips.isEmpty());
    QCOMPARE(run.errorText, QString());
}

void TestDetection::cancelDuringAClip() {
    const Run run(path("burst.mkv"), oneSecond(),
                  [](const Recorder& recorder) { return recorder.framesSeen >= 80; });
    QCOMPARE(run.outcome, DetectionOutcome::Cancelled);
    QCOMPARE(run.recorder.frames.size(), 80);
    QCOMPARE(run.recorder.clips.size(), 1);
    QCOMPARE(run.recorder.clips.first().end, 80 * 0.04);
    QCOMPARE(run.recorder.events.last(), QString("clip"));
    QVERIFY(!run.recorder.events.contains("end"));
}

void TestDetection::cancelDuringTheOpenIsNoFailure() {
    const Run run(path("burst.mkv"), {}, [](const Recorder&) { return true; });
    QCOMPARE(run.outcome, DetectionOutcome::Cancelled);
    QVERIFY(run.recorder.events.isEmpty());
    QCOMPARE(run.errorText, QString());
}

void TestDetection::fileThatIsNoVideo() {
    const Run missing(path("missing.mkv"));
    QCOMPARE(missing.outcome, DetectionOutcome::CannotOpen);
    QCOMPARE(missing.errorText, QString("No such file or directory"));
    QVERIFY(missing.recorder.events.isEmpty());

    QVERIFY(media::encode({"-f", "lavfi", "-i", "sine=d=1", path("sound.wav")}));
    const Run sound(path("sound.wav"));
    QCOMPARE(sound.outcome, DetectionOutcome::CannotOpen);
    QCOMPARE(sound.errorText, QString("no video stream"));
}

void TestDetection::tooFewPictures_data() {
    QTest::addColumn<int>("pictures");
    QTest::addColumn<QStringList>("codec");
    QTest::addColumn<QString>("reason");
    const QStringList h264 = {"-c:v",     "libx264", "-bf",          "2",
                              "-pix_fmt", "yuv420p", "-x264-params", "b-adapt=0:b-pyramid=none"};
    const QString one = "only one picture could be decoded";
    QTest::newRow("one picture") << 1 << ffv1 << one;
    QTest::newRow("two pictures") << 2 << ffv1 << QString();
    // The decoder holds one picture back, which it never gives away.
    QTest::newRow("one picture inside the decoder") << 1 << h264 << "no picture could be decoded";
    QTest::newRow("one outside and one inside") << 2 << h264 << one;
    QTest::newRow("two outside and one inside") << 3 << h264 << QString();
}

void TestDetection::tooFewPictures() {
    QFETCH(int, pictures);
    QFETCH(QStringList, codec);
    QFETCH(QString, reason);
    QVERIFY(media::encodeGrey(path("few.mkv"), media::numberedPictures(pictures), 25, codec));
    const Run run(path("few.mkv"));
    QCOMPARE(run.errorText, reason);
    if (reason.isEmpty()) {
        QCOMPARE(run.outcome, DetectionOutcome::Finished);
        QCOMPARE(run.recorder.frames.size(), 1);
    } else {
        QCOMPARE(run.outcome, DetectionOutcome::TooFewPictures);
        QVERIFY(run.recorder.events.isEmpty());
    }
}

QTEST_GUILESS_MAIN(TestDetection)
#include "test_detection.moc"
