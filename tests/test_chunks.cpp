// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

// A recording that is decoded in chunks side by side is told of as one thread tells of it.

#include "detection.h"

#include "chunkpictures.h"
#include "files.h"
#include "footage.h"
#include "framestream.h"
#include "h264header.h"
#include "media.h"
#include "sample.h"

#include <QCryptographicHash>
#include <QLoggingCategory>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QtEndian>
#include <QtTest>

#include <atomic>

namespace {

/// All that a client is told, in its order.
class Account : public DetectionProgress, public DetectionFindings {
public:
    bool isCancelled() override { return cancelAt >= 0 && framesSeen >= cancelAt; }

    void opened(const StreamFacts& stream) override {
        add("described")
            .append(QByteArray::number(stream.description.size.width()) + ' ' +
                    digits(stream.origin));
        add("numbered").append(QByteArray::number(stream.frameRate));
        add("opened").append(stream.codecName + ' ' + QByteArray::number(stream.duration));
        add("empty region").append(QByteArray::number(int(stream.isRegionEmpty)));
    }

    void positionChanged(qint64 position, bool isAtEnd) override {
        if (isAtEnd)
            add("end");
        positions.append(position);
    }

    void frameProcessed(const FrameReport& frame) override {
        add("frame").append(QByteArray::number(frame.number) + ' ' + digits(frame.time) + ' ' +
                            digits(double(frame.motion.value)) + ' ' + digits(frame.earliestStart));
        times.append(QByteArray::number(frame.number) + ' ' + digits(frame.time));
        ++framesSeen;
    }

    void clipFound(const DetectedClip& clip) override {
        ++clips;
        hasAllSnapshots = hasAllSnapshots && !clip.snapshot.isNull();
        const QByteArray bytes(reinterpret_cast<const char*>(clip.snapshot.constBits()),
                               int(clip.snapshot.sizeInBytes()));
        add("clip").append(digits(clip.start) + ' ' + digits(clip.end) + ' ' +
                           digits(clip.snapshotTime) + ' ' +
                           QCryptographicHash::hash(bytes, QCryptographicHash::Md5).toHex());
    }

    int cancelAt = -1;
    std::atomic<int> framesSeen{0};
    QList<QByteArray> events;
    QList<QByteArray> times;
    QVector<qint64> positions;
    int clips = 0;
    bool hasAllSnapshots = true;

private:
    static QByteArray digits(double number) { return QByteArray::number(number, 'g', 17); }

    QByteArray& add(const char* what) {
        events.append(QByteArray(what) + ' ');
        return events.last();
    }
};

int plans = 0;      // recordings that were to be decoded in chunks
int ends = 0;       // of these, those that were not to their end
int mismatches = 0; // chunks that were decoded and not handed on
int again = 0;      // chunks that were decoded once more

QtMessageHandler previousHandler = nullptr;

/// Counts the decoder's own word.
void countRoads(QtMsgType type, const QMessageLogContext& context, const QString& message) {
    if (message.startsWith(QLatin1String("chunks,")))
        ++plans;
    else if (message.startsWith(QLatin1String("no chunks from")))
        ++ends;
    else if (message.endsWith(QLatin1String("is a mismatch")))
        ++mismatches;
    else if (message.endsWith(QLatin1String("once more")))
        ++again;
    else if (!message.startsWith(QLatin1String("one thread from")))
        previousHandler(type, context, message);
}

struct Run {
    Run(const QString& path, DetectionOptions options, int threads, int cancelAt = -1) {
        options.threads = threads;
        account.cancelAt = cancelAt;
        Detection detection(options, account, &account);
        const MeasuringEnd end = detection.run(path);
        outcome = end.outcome;
        error = end.error;
        maps = detection.measurement().maps;
    }

    /// Of all maps.
    QByteArray mapsDigest() const {
        QCryptographicHash digest(QCryptographicHash::Md5);
        CellMapsReader reader(maps);
        while (const CellMap* map = reader.next()) {
            digest.addData(QByteArray::number(map->grid.columns));
            digest.addData(reinterpret_cast<const char*>(map->steps.data()),
                           int(map->steps.size()));
        }
        return digest.result();
    }

    Account account;
    DetectionOutcome outcome{};
    QString error;
    CellMaps maps;
};

QString difference(const QList<QByteArray>& found, const QList<QByteArray>& expected) {
    for (int i = 0; i < qMin(found.size(), expected.size()); ++i) {
        if (found[i] != expected[i])
            return QStringLiteral("event %1: %2 instead of %3")
                .arg(i)
                .arg(QString(found[i]), QString(expected[i]));
    }
    if (found.size() != expected.size())
        return QStringLiteral("%1 events instead of %2").arg(found.size()).arg(expected.size());
    return {};
}

DetectionOptions oneSecond() {
    DetectionOptions options;
    options.segmentation.minimum = 1.0;
    return options;
}

/// Of small pictures maps take far longer than all else, so that two of the runs make them.
DetectionOptions withMaps(DetectionOptions options, bool areWanted) {
    options.areMapsKept = areWanted;
    return options;
}

void compareWithOneThread(const QString& path, const DetectionOptions& options = oneSecond(),
                          const QVector<int>& counts = {2, 3, 4, 8, 16}) {
    const Run expected(path, withMaps(options, true), 1);
    QVERIFY2(expected.outcome == DetectionOutcome::Finished, qPrintable(expected.error));
    for (const int threads : counts) {
        const bool hasMaps = threads == counts[counts.size() / 2];
        const int endsBefore = ends;
        const Run run(path, withMaps(options, hasMaps), threads);
        const QString found = difference(run.account.events, expected.account.events);
        QVERIFY2(found.isEmpty(),
                 qPrintable(QStringLiteral("%1 threads: %2").arg(threads).arg(found)));
        QCOMPARE(run.outcome, expected.outcome);
        QCOMPARE(run.error, expected.error);
        if (hasMaps)
            QCOMPARE(run.mapsDigest(), expected.mapsDigest());
        QVERIFY(run.account.hasAllSnapshots);
        if (plans > 0 && ends == endsBefore)
            QCOMPARE(run.account.positions, expected.account.positions);
    }
}

/// Quiet, with something that crosses for a second of every six.
QStringList scene(int seconds, const char* size = "128x96") {
    const QString graph =
        QStringLiteral(
            "color=c=0x406040:s=%1:r=25:d=%2,noise=alls=4:allf=t:all_seed=7[scene];"
            "color=c=gray:s=%1:r=25:d=%2,scale=iw/3:ih/3,noise=alls=90:allf=t:all_seed=8[box];"
            "[scene][box]overlay=x='mod(t,6)*W/2':y=H/3:enable='lt(mod(t,6),2)'")
            .arg(size)
            .arg(seconds);
    return {"-filter_complex", graph};
}

/// The same number of pictures with the same times.
void compareTimes(const QString& path, const QString& what) {
    const Run expected(path, oneSecond(), 1);
    for (const int threads : {2, 4, 16}) {
        const Run run(path, oneSecond(), threads);
        const QString found = difference(run.account.times, expected.account.times);
        QVERIFY2(
            found.isEmpty(),
            qPrintable(QStringLiteral("%1, %2 threads: %3").arg(what).arg(threads).arg(found)));
        QCOMPARE(run.outcome, expected.outcome);
    }
}

/// Single bits, many bits, a run of zeros or a hole, behind the first fiftieth.
QByteArray damaged(QByteArray bytes, quint32 seed) {
    QRandomGenerator random(seed);
    const auto place = [&] {
        return int(random.bounded(quint32(bytes.size() / 50), quint32(bytes.size())));
    };
    const int length = int(random.bounded(100U, 4000U));
    switch (seed % 4) {
    case 0:
        return bytes.remove(place(), length);
    case 1: {
        const int start = place();
        return bytes.replace(start, length, QByteArray(qMin(length, bytes.size() - start), '\0'));
    }
    default:
        for (int flips = seed % 4 == 2 ? 1 : 30; flips > 0; --flips) {
            const int at = place();
            bytes[at] = char(bytes[at] ^ (1 << random.bounded(8U)));
        }
        return bytes;
    }
}

class KeepsAll : public PictureKeeper {
public:
    void begin(qint64) override { kept.clear(); }
    void take(int place, const Picture&, const Picture&, std::optional<MotionScore>) override {
        add(kept, place);
    }
    KeptPictures end() override { return kept; }
    void takeFirst(qint64, const DecodedFrame&, const DecodedFrame&, std::optional<MotionScore>,
                   KeptPictures& keptOfChunk) const override {
        add(keptOfChunk, 0);
    }

private:
    static void add(KeptPictures& pictures, int place) {
        pictures[place] = {1.0F, QImage(1, 1, QImage::Format_RGB32)};
    }

    KeptPictures kept;
};

} // namespace

class TestChunks : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanupTestCase();
    void undamagedStreams_data();
    void undamagedStreams();
    void falseKeyFlags();
    void codecsWithoutAccessPoints_data();
    void codecsWithoutAccessPoints();
    void optionsOfTheMeasure_data();
    void optionsOfTheMeasure();
    void streamsThatAreNotCut_data();
    void streamsThatAreNotCut();
    void unknownDelay_data();
    void unknownDelay();
    void longGroupInTheMiddle();
    void sizesThatChange();
    void parametersThatChange();
    void cutInTheMiddleOfAGroup();
    void damagedFiles_data();
    void damagedFiles();
    void damageBehindKeyFrames();
    void cancelled_data();
    void cancelled();
    void snapshotsAreMadeWhileDecoding_data();
    void snapshotsAreMadeWhileDecoding();
    void whatIsKeptIsThereWhenItIsHandedOut();
    void wholeRecordings_data();
    void wholeRecordings();

private:
    QString encoded(const QString& name, const QStringList& options, int seconds = 44);

    QTemporaryDir folder;
};

void TestChunks::initTestCase() {
    QLoggingCategory::setFilterRules("kestrova.engine.debug=true");
    previousHandler = qInstallMessageHandler(countRoads);
}

void TestChunks::init() {
    plans = 0;
    ends = 0;
    mismatches = 0;
}

void TestChunks::cleanupTestCase() {
    qInstallMessageHandler(previousHandler);
}

QString TestChunks::encoded(const QString& name, const QStringList& options, int seconds) {
    const QString path = folder.filePath(name);
    const QStringList format =
        options.contains("-pix_fmt") ? QStringList() : QStringList{"-pix_fmt", "yuv420p"};
    return media::encode(scene(seconds) + format + options + QStringList{path}) ? path : QString();
}

void TestChunks::undamagedStreams_data() {
    QTest::addColumn<QString>("suffix");
    QTest::addColumn<QString>("options");
    QTest::addColumn<int>("seconds");
    // As long as sixteen chunks are, and longer where leading packets are decoded twice.
    const auto row = [](const char* suffix, const QByteArray& options, int seconds = 44) {
        QTest::newRow((QByteArray(suffix) + ' ' + options).constData())
            << QString(suffix) << QString(options) << seconds;
    };
    const QByteArray h264 = "-c:v libx264 -preset veryfast ";
    for (const char* suffix : {"mp4", "mkv", "ts", "avi", "mov", "flv"}) {
        row(suffix, h264 + "-g 12 -bf 0");
        row(suffix, h264 + "-g 50 -bf 3 -b_strategy 0");
    }
    row("h264", h264 + "-g 24 -bf 3");
    row("mp4", h264 + "-tune zerolatency -g 25");
    row("mp4", h264 + "-g 1");
    row("mp4", h264 + "-g 2");
    row("mp4", h264 + "-x264-params b-pyramid=normal:ref=5:keyint=12:bframes=3");
    row("mp4", h264 + "-x264-params ref=8:keyint=30:bframes=8:b-adapt=0");
    row("ts", h264 + "-g 24 -x264-params slices=4");
    row("mp4", h264 + "-g 24 -flags +ildct+ilme -x264-params tff=1");
    row("ts", h264 + "-g 24 -flags +ildct+ilme -x264-params bff=1:bframes=2");
    row("mkv", h264 + "-g 24 -pix_fmt yuv422p10le -bf 2");
    const QByteArray hevc = "-c:v libx265 -preset ultrafast -x265-params log-level=none:keyint=25:";
    for (const char* suffix : {"mp4", "mkv", "ts"}) {
        row(suffix, hevc + "bframes=0");
        row(suffix, hevc + "bframes=4:open-gop=0");
    }
    row("mp4", hevc + "bframes=4:open-gop=1", 78);
    row("mp4", "-c:v mpeg4 -bf 2 -g 12", 78);
    for (const char* suffix : {"avi", "mp4", "mkv"})
        row(suffix, "-c:v mpeg4 -bf 0 -g 12");
    row("avi", "-c:v mjpeg -pix_fmt yuvj420p");
    row("mov", "-c:v mjpeg -pix_fmt yuvj422p");
    row("mkv", "-c:v mjpeg -huffman default -pix_fmt yuvj420p");
    row("webm",
        "-c:v libvpx -auto-alt-ref 1 -lag-in-frames 10 -g 25 -cpu-used 8 -deadline realtime");
    row("webm", "-c:v libvpx-vp9 -auto-alt-ref 1 -lag-in-frames 10 -g 25 -cpu-used 8 "
                "-deadline realtime");
    row("mkv", "-c:v libsvtav1 -preset 12 -g 24");
    row("mp4", "-c:v libsvtav1 -preset 12 -g 48");
    row("avi", "-c:v huffyuv -pix_fmt yuv422p");
    row("avi", "-c:v utvideo");
    row("mov", "-c:v prores -pix_fmt yuv422p10le");
}

void TestChunks::undamagedStreams() {
    KESTROVA_SAMPLED_ROW();
    QFETCH(QString, suffix);
    QFETCH(QString, options);
    QFETCH(int, seconds);
    const QStringList arguments = options.split(' ', Qt::SkipEmptyParts);
    if (!media::hasEncoder(arguments.at(1)))
        QSKIP("this encoder is not installed");
    const QString path = encoded("stream." + suffix, arguments, seconds);
    QVERIFY(!path.isEmpty());
    compareWithOneThread(path);
    // Where the chunks were left, the comparison would say nothing of them.
    QCOMPARE(plans, 5);
    QCOMPARE(ends, 0);
}

/// An MP4 file that does not list its key frames says that all are.
void TestChunks::falseKeyFlags() {
    const QString path = encoded("flags.mp4", {"-c:v", "mpeg4", "-bf", "0", "-g", "12"});
    QVERIFY(!path.isEmpty());
    QVERIFY(writeFile(path, readFile(path).replace("stss", "free")));
    compareWithOneThread(path);
    QCOMPARE(plans, 5);
    QCOMPARE(ends, 0);
}

void TestChunks::codecsWithoutAccessPoints_data() {
    QTest::addColumn<QString>("suffix");
    QTest::addColumn<QString>("codec");
    QTest::newRow("FFV1") << "mkv"
                          << "ffv1";
    QTest::newRow("Sorenson H.263") << "flv"
                                    << "flv";
    QTest::newRow("MS MPEG-4") << "avi"
                               << "msmpeg4v2";
}

/// Those whose packets nobody looks into are not cut.
void TestChunks::codecsWithoutAccessPoints() {
    QFETCH(QString, suffix);
    QFETCH(QString, codec);
    const QString path = encoded("uncut." + suffix, {"-c:v", codec, "-g", "12"}, 12);
    QVERIFY(!path.isEmpty());
    compareWithOneThread(path);
    QCOMPARE(plans, 0);
}

void TestChunks::optionsOfTheMeasure_data() {
    QTest::addColumn<int>("skip");
    QTest::addColumn<QRect>("rectangle");
    QTest::addColumn<bool>("isDrawnOnPixels");
    QTest::addColumn<bool>("isMask");
    QTest::newRow("every third") << 2 << QRect() << false << false;
    QTest::newRow("every fiftieth") << 49 << QRect() << false << false;
    QTest::newRow("rectangle of another size") << 0 << QRect(10, 10, 40, 30) << false << false;
    QTest::newRow("rectangle in pixels") << 0 << QRect(10, 10, 40, 30) << true << false;
    QTest::newRow("outside") << 0 << QRect(500, 500, 40, 30) << true << false;
    QTest::newRow("mask") << 1 << QRect() << false << true;
}

void TestChunks::optionsOfTheMeasure() {
    KESTROVA_SAMPLED_ROW();
    QFETCH(int, skip);
    QFETCH(QRect, rectangle);
    QFETCH(bool, isDrawnOnPixels);
    QFETCH(bool, isMask);
    const QString path =
        encoded("measure.mp4", {"-c:v", "libx264", "-preset", "veryfast", "-g", "12", "-bf", "2"});
    QVERIFY(!path.isEmpty());
    DetectionOptions options = oneSecond();
    options.segmentation.motionThreshold.value = 0.01F;
    options.measure.skip = skip;
    RegionOfInterest& region = options.measure.region;
    if (rectangle.isValid()) {
        region.kind = RegionOfInterest::Kind::Rectangle;
        region.rectangle = rectangle;
        region.space = isDrawnOnPixels ? QSize() : QSize(64, 48);
    }
    if (isMask) {
        region.kind = RegionOfInterest::Kind::Mask;
        region.mask = QImage(16, 12, QImage::Format_ARGB32);
        region.mask.fill(0xFF000000U);
        for (int y = 0; y < 12; ++y)
            region.mask.setPixel(y, y, 0xFF00FF00U);
    }
    compareWithOneThread(path, options, {2, 4});
    QCOMPARE(ends, 0);
}

void TestChunks::streamsThatAreNotCut_data() {
    QTest::addColumn<QString>("suffix");
    QTest::addColumn<QString>("options");
    QTest::addColumn<bool>("hasMismatches"); // a chunk is decoded for nothing
    const auto row = [](const char* suffix, const char* options, bool hasMismatches = false) {
        QTest::newRow((QByteArray(suffix) + ' ' + options).constData())
            << QString(suffix) << QString(options) << hasMismatches;
    };
    row("mp4", "-c:v libx264 -preset veryfast -x264-params keyint=9999:scenecut=0:bframes=3");
    row("mp4",
        "-c:v libx264 -preset veryfast -x264-params keyint=10:open-gop=1:scenecut=0:bframes=3");
    row("ts", "-c:v libx264 -preset veryfast -x264-params intra-refresh=1:keyint=20:scenecut=0");
    row("avi", "-c:v mpeg4 -flags +ildct+ilme -top 1 -g 12", true);
    row("mp4", "-c:v mpeg4 -flags +ildct+ilme -top 1 -bf 2 -g 12", true);
    row("avi", "-c:v libxvid -bf 2 -g 25", true);
}

/// One group, groups that only seem to begin anew, and fields that count on what came before.
void TestChunks::streamsThatAreNotCut() {
    KESTROVA_SAMPLED_ROW();
    QFETCH(QString, suffix);
    QFETCH(QString, options);
    QFETCH(bool, hasMismatches);
    const QStringList arguments = options.split(' ', Qt::SkipEmptyParts);
    if (!media::hasEncoder(arguments.at(1)))
        QSKIP("this encoder is not installed");
    const QString path = encoded("whole." + suffix, arguments);
    QVERIFY(!path.isEmpty());
    compareWithOneThread(path);
    QCOMPARE(plans, 5);
    QCOMPARE(ends, 5);
    QCOMPARE(mismatches > 0, hasMismatches);
}

void TestChunks::unknownDelay_data() {
    QTest::addColumn<QString>("options");
    QTest::newRow("no B pictures") << "keyint=12:bframes=0";
    QTest::newRow("B pictures") << "keyint=24:bframes=3:b-adapt=0:b-pyramid=none";
    QTest::newRow("B pictures that others need")
        << "keyint=24:bframes=3:b-adapt=0:b-pyramid=normal";
}

/// The headers do not say how many pictures are held back.
void TestChunks::unknownDelay() {
    KESTROVA_SAMPLED_ROW();
    QFETCH(QString, options);
    const QString path =
        encoded("unknown.mp4", {"-c:v", "libx264", "-preset", "veryfast", "-x264-params", options});
    QVERIFY(removeUsabilityInformation(path));
    compareWithOneThread(path);
    QCOMPARE(plans, 5);
}

void TestChunks::longGroupInTheMiddle() {
    // Twenty seconds of short groups, twenty of one, and twenty of short ones again.
    const QString path =
        encoded("long.mp4",
                {"-c:v", "libx264", "-preset", "veryfast", "-g", "9999", "-sc_threshold", "0",
                 "-force_key_frames", "expr:if(between(t,20,40),0,not(mod(n,12)))"},
                60);
    QVERIFY(!path.isEmpty());
    compareWithOneThread(path, oneSecond(), {2, 3, 4});
    QCOMPARE(ends, 3);
    QCOMPARE(mismatches, 0);
}

void TestChunks::sizesThatChange() {
    QByteArray joined;
    for (const char* size : {"160x120", "320x240", "96x64"}) {
        const QString part = folder.filePath("part.ts");
        QVERIFY(
            media::encode(scene(14, size) + QStringList{"-c:v", "libx264", "-preset", "veryfast",
                                                        "-g", "12", "-pix_fmt", "yuv420p", part}));
        joined += readFile(part);
    }
    const QString path = folder.filePath("sizes.ts");
    QVERIFY(writeFile(path, joined));
    DetectionOptions options = oneSecond();
    // In pixels of the first pictures, whoever measures them.
    options.measure.region.kind = RegionOfInterest::Kind::Rectangle;
    options.measure.region.rectangle = QRect(20, 20, 100, 80);
    compareWithOneThread(path, options, {2, 3, 4});
    QCOMPARE(ends, 3);
}

void TestChunks::parametersThatChange() {
    // Of one size; the second part holds back more pictures.
    QByteArray joined;
    for (const char* frames : {"0", "3", "0"}) {
        const QString part = folder.filePath("part.ts");
        QVERIFY(media::encode(scene(14) + QStringList{"-c:v", "libx264", "-preset", "veryfast",
                                                      "-g", "12", "-bf", frames, "-pix_fmt",
                                                      "yuv420p", part}));
        joined += readFile(part);
    }
    const QString path = folder.filePath("parameters.ts");
    QVERIFY(writeFile(path, joined));
    compareWithOneThread(path, oneSecond(), {2, 3, 4});
    QCOMPARE(plans, 3);
}

void TestChunks::cutInTheMiddleOfAGroup() {
    const QString whole =
        encoded("whole.ts", {"-c:v", "libx264", "-preset", "veryfast", "-g", "30", "-bf", "2"});
    QVERIFY(!whole.isEmpty());
    const QByteArray bytes = readFile(whole);
    const QString path = folder.filePath("cut.ts");
    // What comes before the first access point may show what the decoder's memory held.
    QVERIFY(writeFile(path, bytes.mid(bytes.size() / 188 / 40 * 188)));
    const Run expected(path, oneSecond(), 1);
    QVERIFY(expected.account.times.size() > 1000);
    for (const int threads : {2, 4, 16})
        QCOMPARE(Run(path, oneSecond(), threads).account.times, expected.account.times);
    QVERIFY(writeFile(path, bytes.left(bytes.size() / 188 * 9 / 10 * 188 + 100)));
    compareWithOneThread(path);
}

void TestChunks::damagedFiles_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("options");
    const auto row = [](const char* title, const char* name, const QByteArray& options) {
        QTest::newRow(title) << QString(name) << QString(options);
    };
    const QByteArray h264 = "-c:v libx264 -preset veryfast ";
    const QByteArray hevc = "-c:v libx265 -preset ultrafast -x265-params log-level=none:keyint=";
    row("H.264", "damaged.mp4", h264 + "-g 12 -bf 2");
    row("H.264, unknown delay", "unknown.mp4", h264 + "-g 12 -bf 2");
    row("H.264 in TS", "damaged.ts", h264 + "-g 24 -bf 0");
    row("HEVC", "damaged.mkv", hevc + "25");
    row("HEVC, closed groups", "damaged.mp4", hevc + "25:open-gop=0:bframes=3");
    row("HEVC, no list of key frames", "unlisted.mp4", hevc + "12:bframes=4");
    row("AV1", "damaged.mkv", "-c:v libsvtav1 -preset 12 -g 24");
    row("MPEG-4", "damaged.avi", "-c:v mpeg4 -g 12 -bf 0");
    row("MJPEG", "damaged.avi", "-c:v mjpeg -pix_fmt yuvj420p");
}

/// The same number of pictures with the same times, whatever is concealed in them.
void TestChunks::damagedFiles() {
    KESTROVA_SAMPLED_ROW();
    QFETCH(QString, name);
    QFETCH(QString, options);
    if (!media::hasEncoder(options.split(' ').at(1)))
        QSKIP("this encoder is not installed");
    const QString whole = encoded(name, options.split(' '), 10);
    QVERIFY(!whole.isEmpty());
    if (name.startsWith("unknown"))
        QVERIFY(removeUsabilityInformation(whole));
    // Without a list all pictures are key frames, as the container has it.
    if (name.startsWith("unlisted"))
        QVERIFY(writeFile(whole, readFile(whole).replace("stss", "free")));
    const QByteArray bytes = readFile(whole);
    const QString path = folder.filePath("now-" + name);
    for (quint32 seed = 0; seed < 32; ++seed) {
        QVERIFY(writeFile(path, damaged(bytes, seed)));
        compareTimes(path, QStringLiteral("seed %1").arg(seed));
        if (QTest::currentTestFailed())
            return;
    }
}

/// The last pictures of a chunk come with the first packets behind its end, or, where these are
/// damaged, later.
void TestChunks::damageBehindKeyFrames() {
    const QString whole = encoded(
        "keys.mp4",
        {"-c:v", "libx264", "-preset", "veryfast", "-g", "12", "-bf", "2", "-sc_threshold", "0"},
        10);
    const QByteArray bytes = readFile(whole);
    const QString path = folder.filePath("damaged-keys.mp4");
    int keys = 0;
    // Behind its length, the first bytes of such a slice.
    for (int at = bytes.indexOf("\x65\x88"); at >= 0; at = bytes.indexOf("\x65\x88", at + 1)) {
        const int end = at + int(qFromBigEndian<quint32>(bytes.constData() + at - 4));
        if (end < at || end + 300 > bytes.size())
            continue;
        ++keys;
        QVERIFY(writeFile(path, QByteArray(bytes).replace(end, 300, QByteArray(300, '\0'))));
        compareTimes(path, QStringLiteral("key frame %1").arg(keys));
        if (QTest::currentTestFailed())
            return;
    }
    QVERIFY(keys >= 20);
}

void TestChunks::cancelled_data() {
    QTest::addColumn<int>("frames");
    QTest::newRow("at once") << 0;
    QTest::newRow("in the first chunk") << 5;
    QTest::newRow("in a later one") << 300;
}

void TestChunks::cancelled() {
    QFETCH(int, frames);
    const QString path =
        encoded("cancelled.mp4", {"-c:v", "libx264", "-preset", "veryfast", "-g", "12"});
    QVERIFY(!path.isEmpty());
    const Run expected(path, oneSecond(), 1, frames);
    const Run run(path, oneSecond(), 4, frames);
    QCOMPARE(run.outcome, DetectionOutcome::Cancelled);
    QCOMPARE(run.account.framesSeen.load(), frames);
    QCOMPARE(run.account.events, expected.account.events);
}

void TestChunks::snapshotsAreMadeWhileDecoding_data() {
    QTest::addColumn<int>("group");
    QTest::addColumn<int>("pixelThreshold");
    QTest::addColumn<int>("skip");
    QTest::addColumn<bool>("areCells");
    QTest::addColumn<int>("most"); // of a hundred clips, those for which a chunk is decoded again
    QTest::newRow("short groups") << 50 << 35 << 0 << false << 5;
    QTest::newRow("long groups") << 250 << 35 << 0 << false << 5;
    QTest::newRow("noise counts as motion") << 50 << 2 << 0 << false << 5;
    // A clip can open at any picture that keeps a value.
    QTest::newRow("pictures are skipped") << 50 << 35 << 4 << false << 35;
    // The first half second of a chunk knows too little.
    QTest::newRow("cells") << 50 << 35 << 0 << true << 35;
    QTest::newRow("cells of long groups") << 250 << 35 << 0 << true << 20;
}

/// Which pictures can be chosen is known when they are decoded, but for a few.
void TestChunks::snapshotsAreMadeWhileDecoding() {
    KESTROVA_SAMPLED_ROW();
    QFETCH(int, group);
    QFETCH(int, pixelThreshold);
    QFETCH(int, skip);
    QFETCH(bool, areCells);
    QFETCH(int, most);
    const QStringList codec{"-c:v", "libx264", "-preset", "veryfast", "-g", QString::number(group)};
    const QString path = encoded("snapshots.mp4", codec, 120);
    QVERIFY(!path.isEmpty());
    DetectionOptions options;
    options.segmentation.minimum = 2.0;
    options.measure.pixelThreshold = pixelThreshold;
    options.measure.skip = skip;
    options.detector = areCells ? Detector::Cells : Detector::Mean;
    const Run expected(path, options, 1);
    again = 0;
    const Run run(path, options, 4);
    QCOMPARE(difference(run.account.events, expected.account.events), QString());
    QVERIFY(run.account.clips > 0);
    QVERIFY2(again <= 1 + run.account.clips * most / 100,
             qPrintable(QStringLiteral("%1 clips, %2 chunks decoded once more")
                            .arg(run.account.clips)
                            .arg(again)));
}

/// Also of pictures that come with packets of the next chunk.
void TestChunks::whatIsKeptIsThereWhenItIsHandedOut() {
    const QString path =
        encoded("kept.mp4", {"-c:v", "libx264", "-preset", "veryfast", "-g", "50", "-bf", "2"});
    QVERIFY(!path.isEmpty());
    FramePlan plan;
    plan.threads = 2;
    plan.work.comparison = [] {
        return [](const DecodedFrame&, const DecodedFrame&) { return MotionScore{1.0F}; };
    };
    plan.work.keeper = [] { return std::make_unique<KeepsAll>(); };
    FrameStream frames(QFile::encodeName(path), plan);
    QVERIFY(frames.next().isThere()); // which nothing was compared with
    int pictures = 0;
    for (Frame frame = frames.next(); frame.chunk; frame = frames.next()) {
        QVERIFY2(!keptPicture(frame).isNull(), qPrintable(QString::number(frame.packet)));
        ++pictures;
    }
    QVERIFY(pictures > 1000);
}

void TestChunks::wholeRecordings_data() {
    addFoldersOfRecordings();
}

void TestChunks::wholeRecordings() {
    QFETCH(QString, folder);
    QFETCH(int, count);
    KESTROVA_REQUIRE_FOLDER(folder);
    const QStringList names = recordingsIn(folder);
    QCOMPARE(names.size(), count);
    for (int i = 0; i < names.size(); ++i) {
        if (!isLeftOut(i))
            compareWithOneThread(folder + '/' + names[i]);
    }
}

QTEST_GUILESS_MAIN(TestChunks)
#include "test_chunks.moc"
