// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "video.h"

#include "faults.h"
#include "ffmpegmutex.h"
#include "files.h"
#include "hugepictures.h"
#include "jobworker.h"
#include "media.h"
#include "process.h"
#include "segmentation.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QLoggingCategory>
#include <QSemaphore>
#include <QSettings>
#include <QTemporaryDir>
#include <QThread>
#include <QtTest>

#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <functional>

namespace {

const QStringList ffv1 = {"-c:v", "ffv1"};

QSemaphore damageMet;
QSemaphore goOn;

/// A message handler for which the media library's first complaint waits for `goOn`.
void holdAtDamage(QtMsgType, const QMessageLogContext& context, const QString&) {
    static std::atomic<bool> hasHeld{false};
    if (qstrcmp(context.category, "kestrova.libav") != 0 || hasHeld.exchange(true))
        return;
    damageMet.release();
    goOn.acquire();
}

/// Takes down a job's signals, on the thread that the listener lives on.
class Listener : public QObject {
    Q_OBJECT

public:
    explicit Listener(Video& job, Qt::ConnectionType type = Qt::AutoConnection)
        : job(job) {
        connect(&job, SIGNAL(newClip(int, QImage, double, double, double)), this,
                SLOT(takeClip(int, QImage, double, double, double)), type);
        connect(&job, SIGNAL(resultReady()), this, SLOT(takeResult()), type);
    }

    QVector<DetectedClip> clips;
    QVector<int> statesAtClips;
    QVector<int> statesAtResult;
    QThread* thread = nullptr; ///< where the last signal was delivered
    std::function<void()> onClip;

public Q_SLOTS:
    void takeClip(int index, const QImage& snapshot, double start, double end,
                  double snapshotTime) {
        clips.append({index, snapshot, start, end, snapshotTime});
        statesAtClips.append(job.state);
        thread = QThread::currentThread();
        if (onClip)
            onClip();
    }

    void takeResult() {
        statesAtResult.append(job.state);
        thread = QThread::currentThread();
    }

private:
    Video& job;
};

/// What a job needs beside the file, with the program's defaults.
struct JobOptions {
    double minimum = 1.0;
    int skip = 0;
    const QImage* mask = nullptr;
    const QRect* rectangle = nullptr;
};

/// `quiet` pictures of one grey, then `moving` ones in which every pixel changes by 100 or more,
/// then `quiet` ones again.
QList<QImage> burst(int quiet, int moving) {
    QList<QImage> pictures;
    for (int i = 0; i < quiet + moving + quiet; ++i) {
        const bool moves = i >= quiet && i < quiet + moving;
        const int grey = moves ? (i % 2 == 0 ? 200 : 0) : 100;
        pictures.append(media::grey(64, 48, grey));
    }
    return pictures;
}

/// Pictures that take turns; from each to the next, `pixels` of 100 x 100 change by `difference`.
QList<QImage> turns(int count, int pixels, int difference) {
    QImage changed = media::grey(100, 100, 50);
    for (int i = 0; i < pixels; ++i)
        changed.scanLine(i / 100)[i % 100] = uchar(50 + difference);
    QList<QImage> pictures;
    for (int i = 0; i < count; ++i)
        pictures.append(i % 2 == 0 ? media::grey(100, 100, 50) : changed);
    return pictures;
}

} // namespace

class TestVideo : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();

    void keepsWhatItIsGiven();
    void ownsItsMaskAndRectangle();
    void declaresItsSignalsAndSlot();
    void namesItsFolder_data();
    void namesItsFolder();
    void takesTheFirstFreeFolder();
    void folderThatCannotBeMade();

    void findsTheClip();
    void openClipIsEmittedAtTheEnd();
    void runsOnAWorkerThread();
    void runsOnceMore();
    void countsWallClockSeconds();
    void knowsIntraCodecs();
    void skipsFrames();
    void readsPixelThresholdWhenItRuns_data();
    void readsPixelThresholdWhenItRuns();
    void readsMotionThresholdWhenItRuns_data();
    void readsMotionThresholdWhenItRuns();
    void negativeMotionThresholdIsZero();
    void regionModes_data();
    void regionModes();

    void cancelBeforeTheLoop();
    void cancelFromAnotherThread();
    void cancelDuringAnOpenClip();
    void pipesFail();

    void failures_data();
    void failures();
    void readErrorInTheMiddleIsTheEnd();
    void picturesThatBecomeTooLarge();

private:
    QString path(const QString& name) const { return folder->filePath(name); }
    std::unique_ptr<Video> makeJob(const QString& video, const JobOptions& options = {}) const;

    std::unique_ptr<QTemporaryDir> folder;
    QTemporaryDir recordings;
};

void TestVideo::initTestCase() {
    QCoreApplication::setOrganizationName("kestrova");
    QCoreApplication::setApplicationName("test_video");
    QVERIFY(recordings.isValid());
    QVERIFY(media::encodeGrey(recordings.filePath("burst.mkv"), burst(50, 50), 25, ffv1));
}

void TestVideo::init() {
    QSettings().clear();
    QSettings().setValue("kept_values_mb", 0); // each job measures
    folder = std::make_unique<QTemporaryDir>();
    QVERIFY(folder->isValid());
}

std::unique_ptr<Video> TestVideo::makeJob(const QString& video, const JobOptions& options) const {
    return std::make_unique<Video>(video, folder->path(), 1.0, 1.0, options.minimum, options.skip,
                                   false, options.mask, options.rectangle, false, QDateTime());
}

void TestVideo::keepsWhatItIsGiven() {
    const QString fileName = recordings.filePath("burst.mkv");
    const QDateTime start(QDate(2020, 2, 29), QTime(23, 59, 58));
    const Video job(fileName, folder->path(), 1.5, 2.5, 3.5, 4, true, nullptr, nullptr, true,
                    start);
    QCOMPARE(job.fileName, fileName);
    QCOMPARE(job.shortFileName(), QString("burst.mkv"));
    QCOMPARE(job.fileSize, QFileInfo(fileName).size());
    QCOMPARE(job.prerecord, 1.5);
    QCOMPARE(job.postrecord, 2.5);
    QCOMPARE(job.minimum, 3.5);
    QCOMPARE(job.skip, 4);
    QCOMPARE(job.autoExport, true);
    QCOMPARE(job.exportTimestamps, true);
    QCOMPARE(job.startDateTime, start);
    QVERIFY(!job.mask);
    QVERIFY(!job.roiRect);
    QCOMPARE(int(job.state), 0);
    QCOMPARE(qint64(job.bytesRead), qint64(0));
    QCOMPARE(int(job.elapsedSeconds), 0);
    QCOMPARE(bool(job.intraCodec), false);
    QVERIFY(job.motionValues.isEmpty());
    QVERIFY(job.frameTimes.isEmpty());
    QVERIFY(!job.parent());
}

void TestVideo::ownsItsMaskAndRectangle() {
    QImage mask(20, 10, QImage::Format_ARGB32);
    mask.fill(0xFF00FF00);
    QRect rectangle(1, 2, 3, 4);
    JobOptions options;
    options.mask = &mask;
    options.rectangle = &rectangle;
    const auto job = makeJob(recordings.filePath("burst.mkv"), options);
    mask.fill(0u);
    rectangle = QRect();
    QVERIFY(job->mask.get() != &mask);
    QCOMPARE(job->mask->size(), QSize(20, 10));
    QCOMPARE(job->mask->pixel(3, 3), 0xFF00FF00);
    QCOMPARE(*job->roiRect, QRect(1, 2, 3, 4));
}

void TestVideo::declaresItsSignalsAndSlot() {
    const QMetaObject& meta = Video::staticMetaObject;
    QCOMPARE(meta.methodCount() - meta.methodOffset(), 3);
    const QMetaMethod first = meta.method(meta.methodOffset());
    QCOMPARE(first.methodSignature(), QByteArray("newClip(int,QImage,double,double,double)"));
    QCOMPARE(first.parameterNames(),
             QByteArrayList({"index", "snapshot", "start", "end", "snapshotTime"}));
    QCOMPARE(meta.method(meta.methodOffset() + 1).methodSignature(), QByteArray("resultReady()"));
    QCOMPARE(meta.method(meta.methodOffset() + 2).methodSignature(), QByteArray("detect()"));
}

void TestVideo::namesItsFolder_data() {
    QTest::addColumn<QString>("video");
    QTest::addColumn<QString>("name");
    QTest::newRow("plain") << "/videos/garden.mp4"
                           << "garden_mp4_0";
    QTest::newRow("two dots") << "/videos/garden.cam.mp4"
                              << "garden_mp4_0";
    QTest::newRow("no dot") << "/videos/clip"
                            << "clip__0";
    QTest::newRow("dot first") << "/videos/.hidden"
                               << "_hidden_0";
    QTest::newRow("dot last") << "/videos/clip."
                              << "clip__0";
    QTest::newRow("spaces") << "/videos/my garden.MP4"
                            << "my garden_MP4_0";
    QTest::newRow("percent signs") << "/videos/50%3off%1.%2mp4"
                                   << "50%3off%1_%2mp4_0";
}

void TestVideo::namesItsFolder() {
    QFETCH(QString, video);
    QFETCH(QString, name);
    const auto job = makeJob(video);
    QCOMPARE(job->clipDirectory, path(name));
    QVERIFY(QFileInfo(job->clipDirectory).isDir());
    QCOMPARE(job->fileSize, qint64(0)); // there is no such file
}

void TestVideo::takesTheFirstFreeFolder() {
    const auto first = makeJob("/a/garden.mp4");
    const auto second = makeJob("/b/garden.cam.mp4");
    QCOMPARE(first->clipDirectory, path("garden_mp4_0"));
    QCOMPARE(second->clipDirectory, path("garden_mp4_1"));

    QVERIFY(QDir(folder->path()).mkdir("garden_mp4_3"));
    QFile file(path("garden_mp4_4"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(makeJob("/c/garden.mp4")->clipDirectory, path("garden_mp4_2"));
    QCOMPARE(makeJob("/d/garden.mp4")->clipDirectory, path("garden_mp4_5"));
}

void TestVideo::folderThatCannotBeMade() {
    QFile file(path("file"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    const Video job("/videos/garden.mp4", path("file"), 1.0, 1.0, 1.0, 0, false, nullptr, nullptr,
                    false, QDateTime());
    QCOMPARE(job.clipDirectory, path("file/garden_mp4_0"));
    QVERIFY(!QFileInfo::exists(job.clipDirectory));

    // A folder that is missing is made with the one inside it.
    const Video other("/videos/garden.mp4", path("new/folder"), 1.0, 1.0, 1.0, 0, false, nullptr,
                      nullptr, false, QDateTime());
    QVERIFY(QFileInfo(path("new/folder/garden_mp4_0")).isDir());
}

void TestVideo::findsTheClip() {
    const auto job = makeJob(recordings.filePath("burst.mkv"));
    Listener listener(*job);
    job->detect();
    QCOMPARE(listener.statesAtResult, QVector<int>{4});
    QCOMPARE(listener.statesAtClips, QVector<int>{1});
    // Frames 50 to 100 move; the last is at 4 s, and the first more than a second later at 5.04 s.
    const DetectedClip& clip = listener.clips.first();
    QCOMPARE(clip.index, 0);
    QCOMPARE(clip.end, 5.04);
    QVERIFY(clip.start > 0.5 && clip.start < 0.57);
    QCOMPARE(clip.snapshot.size(), QSize(320, 240));

    QCOMPARE(int(job->state), 4);
    QCOMPARE(qint64(job->bytesRead), job->fileSize);
    QCOMPARE(job->motionValues.size(), 149);
    QCOMPARE(job->frameTimes.size(), 149);
    QCOMPARE(job->frameTimes.first(), 0.04);
    QCOMPARE(job->motionValues[48], 0.0F);
    QCOMPARE(job->motionValues[49], 100.0F); // frame 50
    QCOMPARE(job->motionValues[50], 200.0F);
    QCOMPARE(int(job->elapsedSeconds), 0);
    QCOMPARE(bool(job->intraCodec), false);
    QVERIFY(ffmpegMutex().tryLock());
    ffmpegMutex().unlock();
}

void TestVideo::openClipIsEmittedAtTheEnd() {
    QVERIFY(media::encodeGrey(path("open.mkv"), burst(50, 50).mid(0, 90), 25, ffv1));
    const auto job = makeJob(path("open.mkv"));
    Listener listener(*job);
    job->detect();
    QCOMPARE(listener.clips.size(), 1);
    QCOMPARE(listener.clips.first().end, 89 * 0.04);
    QCOMPARE(listener.statesAtClips, QVector<int>{4});
    QCOMPARE(listener.statesAtResult, QVector<int>{4});
}

void TestVideo::runsOnAWorkerThread() {
    const auto job = makeJob(recordings.filePath("burst.mkv"));
    Listener listener(*job);
    const Worker worker(*job);
    QTRY_COMPARE(listener.statesAtResult, QVector<int>{4});
    QCOMPARE(listener.clips.size(), 1);
    QCOMPARE(listener.clips.first().end, 5.04);
    QCOMPARE(listener.clips.first().snapshot.size(), QSize(320, 240));
    QVERIFY(listener.thread == QThread::currentThread());
}

void TestVideo::runsOnceMore() {
    const auto job = makeJob(recordings.filePath("burst.mkv"));
    Listener listener(*job);
    job->detect();
    const QVector<float> values = job->motionValues;
    job->detect();
    QCOMPARE(listener.statesAtResult, (QVector<int>{4, 4}));
    QCOMPARE(job->motionValues, values);
    QCOMPARE(listener.clips.size(), 2);
    QCOMPARE(listener.clips[1].index, 0);
    QCOMPARE(listener.clips[1].start, listener.clips[0].start);
}

void TestVideo::countsWallClockSeconds() {
    const auto job = makeJob(recordings.filePath("burst.mkv"));
    Listener listener(*job);
    // Six seconds of video take a fraction of one to read, were it not for this.
    listener.onClip = [] {
        QElapsedTimer timer;
        timer.start();
        while (!timer.hasExpired(1100))
            QThread::yieldCurrentThread();
    };
    job->detect();
    QCOMPARE(listener.clips.size(), 1);
    QVERIFY(job->elapsedSeconds >= 1);
    QVERIFY(job->elapsedSeconds < 6);
}

void TestVideo::knowsIntraCodecs() {
    QVERIFY(media::encodeGrey(path("intra.avi"), burst(2, 2), 25,
                              {"-c:v", "mjpeg", "-pix_fmt", "yuvj420p"}));
    const auto job = makeJob(path("intra.avi"));
    job->detect();
    QCOMPARE(bool(job->intraCodec), true);
}

void TestVideo::skipsFrames() {
    JobOptions options;
    options.skip = 3;
    const auto job = makeJob(recordings.filePath("burst.mkv"), options);
    job->detect();
    QCOMPARE(job->motionValues.size(), 149);
    // Measured are frames 4, 8, ...; 48 is the last quiet one of them, 52 the first moving one.
    QCOMPARE(job->motionValues[51 - 1], 0.0F);
    QCOMPARE(job->motionValues[52 - 1], 200.0F);
    QCOMPARE(job->motionValues[103 - 1], 100.0F);
    QCOMPARE(job->motionValues[104 - 1], 0.0F);
}

void TestVideo::readsPixelThresholdWhenItRuns_data() {
    QTest::addColumn<QVariant>("stored");
    QTest::addColumn<int>("difference");
    QTest::addColumn<float>("value");
    QTest::newRow("none: 35 counts as unchanged") << QVariant() << 35 << 0.0F;
    QTest::newRow("none: 36 counts") << QVariant() << 36 << 36.0F;
    QTest::newRow("text") << QVariant("60") << 60 << 0.0F;
    QTest::newRow("number") << QVariant(60) << 61 << 61.0F;
    QTest::newRow("no number at all is 0") << QVariant("much") << 1 << 1.0F;
    QTest::newRow("negative is 0") << QVariant(-20) << 1 << 1.0F;
    QTest::newRow("255") << QVariant(255) << 205 << 0.0F;
    QTest::newRow("more than 255") << QVariant(1000) << 205 << 0.0F;
}

void TestVideo::readsPixelThresholdWhenItRuns() {
    QFETCH(QVariant, stored);
    QFETCH(int, difference);
    QFETCH(float, value);
    QVERIFY(media::encodeGrey(path("turns.mkv"), turns(3, 100 * 100, difference), 25, ffv1));
    const auto job = makeJob(path("turns.mkv"));
    if (stored.isValid())
        QSettings().setValue("threshold_value", stored);
    job->detect();
    QCOMPARE(job->motionValues, (QVector<float>{value, value}));
}

void TestVideo::readsMotionThresholdWhenItRuns_data() {
    QTest::addColumn<QVariant>("stored");
    QTest::addColumn<int>("pixels"); // of 10000, each changing by 40
    QTest::addColumn<int>("clips");
    QTest::newRow("none: 0.48 is quiet") << QVariant() << 120 << 0;
    QTest::newRow("none: 0.52 is motion") << QVariant() << 130 << 1;
    QTest::newRow("text, below") << QVariant("2.5") << 610 << 0; // 2.44
    QTest::newRow("text, above") << QVariant("2.5") << 640 << 1; // 2.56
    QTest::newRow("number, above") << QVariant(2.5) << 640 << 1;
}

void TestVideo::readsMotionThresholdWhenItRuns() {
    QFETCH(QVariant, stored);
    QFETCH(int, pixels);
    QFETCH(int, clips);
    QVERIFY(media::encodeGrey(path("turns.mkv"), turns(50, pixels, 40), 25, ffv1));
    const auto job = makeJob(path("turns.mkv"));
    if (stored.isValid())
        QSettings().setValue("threshold_motion", stored);
    Listener listener(*job);
    job->detect();
    QCOMPARE(listener.clips.size(), clips);
    QCOMPARE(listener.statesAtResult, QVector<int>{4});
}

void TestVideo::negativeMotionThresholdIsZero() {
    // In a recording without any motion every value equals a threshold of 0. That opens a clip,
    // and being quiet it closes again after a second; below 0 it would never be quiet.
    QVERIFY(media::encodeGrey(path("still.mkv"), turns(100, 0, 0), 25, ffv1));
    const auto job = makeJob(path("still.mkv"));
    QSettings().setValue("threshold_motion", "-3");
    Listener listener(*job);
    job->detect();
    QVERIFY(listener.clips.size() > 1);
}

void TestVideo::regionModes_data() {
    QTest::addColumn<bool>("hasMask");
    QTest::addColumn<bool>("hasRectangle");
    QTest::addColumn<float>("value");
    // Of 100 x 100 pixels the upper half changes by 40. The mask selects the lower half and the
    // rectangle takes the upper half, both in coordinates of half that size.
    QTest::newRow("whole frame") << false << false << 20.0F;
    QTest::newRow("mask") << true << false << 0.0F;
    QTest::newRow("the rectangle wins over the mask") << true << true << 40.0F;
}

void TestVideo::regionModes() {
    QFETCH(bool, hasMask);
    QFETCH(bool, hasRectangle);
    QFETCH(float, value);
    QVERIFY(media::encodeGrey(path("turns.mkv"), turns(3, 50 * 100, 40), 25, ffv1));
    QImage mask(50, 50, QImage::Format_ARGB32);
    for (int y = 0; y < 50; ++y)
        std::fill_n(reinterpret_cast<QRgb*>(mask.scanLine(y)), 50, y < 25 ? 0u : 0xFF00FF00);
    const QRect rectangle(0, 0, 50, 25);
    JobOptions options;
    options.mask = hasMask ? &mask : nullptr;
    options.rectangle = hasRectangle ? &rectangle : nullptr;
    const auto job = makeJob(path("turns.mkv"), options);
    job->detect();
    QCOMPARE(job->motionValues, (QVector<float>{value, value}));
}

void TestVideo::cancelBeforeTheLoop() {
    const auto job = makeJob(recordings.filePath("burst.mkv"));
    Listener listener(*job);
    ffmpegMutex().lock(); // the job waits for it to open the file
    const Worker worker(*job);
    const bool isRunning = QTest::qWaitFor([&job] { return job->state == Video::Running; });
    job->state = Video::CancelRequested;
    ffmpegMutex().unlock();
    QVERIFY(isRunning);
    QTRY_COMPARE(listener.statesAtResult, QVector<int>{2});
    QVERIFY(listener.clips.isEmpty());
    QVERIFY(job->motionValues.isEmpty());
}

void TestVideo::cancelFromAnotherThread() {
    const auto job = makeJob(recordings.filePath("burst.mkv"));
    Listener listener(*job);
    Listener direct(*job, Qt::DirectConnection);
    QSemaphore found;
    QSemaphore cancelled;
    direct.onClip = [&] {
        found.release();
        cancelled.acquire();
    };
    const Worker worker(*job);
    const bool isFound = found.tryAcquire(1, 30000);
    job->state = Video::CancelRequested;
    cancelled.release();
    QVERIFY(isFound);
    QTRY_COMPARE(listener.statesAtResult, QVector<int>{2});
    QCOMPARE(listener.clips.size(), 1);
    // The frame that closed the clip, at 5.04 s, was the last.
    QCOMPARE(job->frameTimes.last(), 5.04);
    QCOMPARE(job->motionValues.size(), 126);
}

void TestVideo::cancelDuringAnOpenClip() {
    // What the media library says of the damaged picture, in the middle of the motion, holds the
    // job until the cancel is in place.
    QVERIFY(media::encodeGrey(path("damaged.mkv"), burst(50, 100), 25,
                              ffv1 + QStringList{"-level", "3", "-slicecrc", "1"}));
    QByteArray content = readFile(path("damaged.mkv"));
    content[content.size() / 2] = char(~content[content.size() / 2]);
    QFile file(path("damaged.mkv"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(content), qint64(content.size()));
    file.close();
    QLoggingCategory::setFilterRules("kestrova.libav.critical=true");
    const QtMessageHandler handler = qInstallMessageHandler(holdAtDamage);

    const auto job = makeJob(path("damaged.mkv"));
    Listener listener(*job);
    const Worker worker(*job);
    const bool isHeld = damageMet.tryAcquire(1, 30000);
    job->state = Video::CancelRequested;
    goOn.release();
    QTRY_COMPARE(listener.statesAtResult, QVector<int>{2});
    qInstallMessageHandler(handler);
    QLoggingCategory::setFilterRules({});
    QVERIFY(isHeld);
    QCOMPARE(listener.clips.size(), 1);
    QCOMPARE(listener.statesAtClips, QVector<int>{2});
    QVERIFY(job->frameTimes.size() > 65 && job->frameTimes.size() < 110);
    QCOMPARE(listener.clips.first().end, job->frameTimes.last());
}

void TestVideo::pipesFail() {
    // Nobody ever writes into it.
    const QByteArray pipe = path("pipe.mkv").toUtf8();
    QCOMPARE(::mkfifo(pipe.constData(), 0600), 0);
    QCOMPARE(::symlink(pipe.constData(), path("link.mkv").toUtf8().constData()), 0);
    for (const QString& name : {path("pipe.mkv"), path("link.mkv"), QString("/dev/zero")}) {
        const auto job = makeJob(name);
        Listener listener(*job);
        const Worker worker(*job);
        QTRY_COMPARE(listener.statesAtResult, QVector<int>{3});
        QVERIFY(listener.clips.isEmpty());
    }
}

void TestVideo::failures_data() {
    QTest::addColumn<QString>("name");
    QFile text(recordings.filePath("text.mp4"));
    QVERIFY(text.open(QIODevice::WriteOnly));
    text.write("This is no video.\n");
    QVERIFY(media::encode({"-f", "lavfi", "-i", "sine=d=1", recordings.filePath("sound.wav")}));
    QVERIFY(media::encodeGrey(recordings.filePath("one.mkv"), turns(1, 0, 0), 25, ffv1));
    QVERIFY(media::writeGif(recordings.filePath("huge.gif"), 16000, 16000, 84));
    for (const char* name : {"missing.mp4", "text.mp4", "sound.wav", "one.mkv", "huge.gif", "."})
        QTest::newRow(name) << name;
}

void TestVideo::failures() {
    QFETCH(QString, name);
    const auto job = makeJob(recordings.filePath(name));
    Listener listener(*job);
    job->detect();
    QCOMPARE(int(job->state), 3);
    QCOMPARE(listener.statesAtResult, QVector<int>{3});
    QVERIFY(listener.clips.isEmpty());
    QVERIFY(job->motionValues.isEmpty());
    QVERIFY(ffmpegMutex().tryLock());
    ffmpegMutex().unlock();
}

void TestVideo::readErrorInTheMiddleIsTheEnd() {
    const QString video = recordings.filePath("readerror.mkv");
    if (qEnvironmentVariableIsEmpty("FAILING_CALL")) {
        QVERIFY(media::encodeGrey(video, burst(50, 50), 25, ffv1));
        const qint64 half = QFileInfo(video).size() / 2;
        QProcessEnvironment environment = faults::readError(video, half);
        environment.insert("READ_ERROR_VIDEO", video);
        const ProcessResult result = runProgramIn(
            environment, QCoreApplication::applicationFilePath(), {"readErrorInTheMiddleIsTheEnd"});
        QVERIFY2(result.status == 0, result.output.constData());
        return;
    }
    // Here the read fails.
    const auto job = makeJob(qEnvironmentVariable("READ_ERROR_VIDEO"));
    const Listener listener(*job);
    job->detect();
    QCOMPARE(int(job->state), int(Video::Finished));
    QCOMPARE(listener.statesAtResult, QVector<int>{Video::Finished});
    QVERIFY(job->motionValues.size() > 10 && job->motionValues.size() < 149);
    QCOMPARE(listener.clips.size(), 1);
}

void TestVideo::picturesThatBecomeTooLarge() {
    const QString video = recordings.filePath("grows.avi");
    QVERIFY(media::encodeGrey(video, burst(50, 50), 25, {"-c:v", "png", "-pix_fmt", "rgb24"}));
    QVERIFY(media::changePngSize(video, 90, 16000, 16000));
    const auto job = makeJob(video);
    const Listener listener(*job);
    job->detect();
    QCOMPARE(listener.statesAtResult, QVector<int>{Video::Failed});
    QCOMPARE(listener.clips.size(), 1);
    QCOMPARE(listener.clips[0].end, 89 * 0.04);
}

QTEST_GUILESS_MAIN(TestVideo)
#include "test_video.moc"
