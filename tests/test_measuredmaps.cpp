// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

// The maps of changed cells of a recording, by whatever road they are made.

#include "partdetection.h"

#include "cellthinning.h"
#include "footage.h"
#include "frames.h"
#include "media.h"
#include "picturecells.h"
#include "sample.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

namespace {

using Maps = QVector<QByteArray>;

class Quiet : public DetectionProgress {
public:
    bool isCancelled() override { return pictures >= cancelAt; }
    void positionChanged(qint64, bool) override { ++pictures; }

    int cancelAt = std::numeric_limits<int>::max();
    int pictures = 0;
};

/// What is told of a recording, its pictures left out.
class Account : public DetectionFindings {
public:
    void opened(const StreamFacts&) override {}
    void frameProcessed(const FrameReport& frame) override { scores.append(frame.motion.value); }
    void clipFound(const DetectedClip& clip) override {
        clips.append({clip.start, clip.end, clip.snapshotTime});
    }

    QVector<float> scores;
    QVector<QVector<double>> clips;
};

QByteArray bytesOf(const CellMap& map) {
    QByteArray bytes = QByteArray::number(map.grid.columns) + (map.isCarried ? '=' : 'x');
    for (const std::uint64_t word : map.brighter.words)
        bytes.append(QByteArray::number(qulonglong(word), 16));
    return bytes.append(reinterpret_cast<const char*>(map.steps.data()), int(map.steps.size()));
}

Maps mapsOf(const CellMaps& kept) {
    Maps maps;
    CellMapsReader reader(kept);
    while (const CellMap* map = reader.next())
        maps.append(bytesOf(*map));
    return maps;
}

Maps mapsOf(const Measurement& measured) {
    return mapsOf(measured.maps);
}

int movingIn(const Maps& maps) {
    return int(std::count_if(maps.begin(), maps.end(), [](const QByteArray& map) {
        return map.contains(char(changedStep));
    }));
}

DetectionOptions keepingMaps(int threads = 1) {
    DetectionOptions options;
    options.times.mustBeUsable = true;
    options.areMapsKept = true;
    options.threads = threads;
    return options;
}

Measurement measured(const QString& path, const DetectionOptions& options) {
    Quiet progress;
    Detection detection(options, progress);
    const MeasuringEnd end = detection.run(path);
    if (end.outcome != DetectionOutcome::Finished)
        qWarning("%s: %s", qPrintable(path), qPrintable(end.error));
    return detection.measurement();
}

QString difference(const Maps& found, const Maps& expected) {
    for (int i = 0; i < qMin(found.size(), expected.size()); ++i) {
        if (found[i] != expected[i])
            return QStringLiteral("map %1 differs").arg(i);
    }
    if (found.size() != expected.size())
        return QStringLiteral("%1 maps instead of %2").arg(found.size()).arg(expected.size());
    return {};
}

/// Each picture reduced and compared with those before it, one after the other.
Maps literalMaps(const QString& path, int skip) {
    FramePlan plan;
    plan.threads = 1;
    plan.times.mustBeUsable = true;
    FrameStream frames(QFile::encodeName(path), plan);
    PictureCells pictures;
    CellComparison comparison;
    CellGroups groups;
    CellMap map;
    CellMaps maps;
    int number = 0;
    for (Frame frame = frames.next(); frame.isThere(); frame = frames.next(), ++number) {
        const bool isSeen = number % (skip + 1) == 0;
        map.isCarried = true;
        if (isSeen) {
            const CellMap& made = comparison.add(frame.time, pictures.reduce(*frame.picture));
            if (!made.isCarried) {
                map = made;
                removeSmallGroups(map, groups);
            }
        }
        if (number > 0)
            maps.append(map);
    }
    return mapsOf(maps);
}

} // namespace

class TestMeasuredMaps : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void sameOnEveryRoad_data();
    void sameOnEveryRoad();
    void skippedPicturesHaveTheMapBefore();
    void rangesBeginAnew();
    void keyFrames();
    void decidedOn();
    void meanIsWhatItWas();
    void cancelledIsCutOff();
    void partsAreOnePass_data();
    void partsAreOnePass();
    void partsOfSkippedPictures_data();
    void partsOfSkippedPictures();

private:
    void add(const char* name, const QStringList& codec, int seconds = 24);
    void addRecordings();

    QTemporaryDir folder;
    QString video;
};

/// 25 pictures a second in which a box crosses.
void TestMeasuredMaps::add(const char* name, const QStringList& codec, int seconds) {
    QVERIFY2(media::encode(media::crossingBox(seconds, 3, seconds - 5) + codec +
                           QStringList{folder.filePath(name)}),
             name);
}

void TestMeasuredMaps::initTestCase() {
    const QStringList x264 = {"-c:v", "libx264", "-preset", "veryfast"};
    add("closed.mp4", x264 + QStringList{"-g", "40", "-bf", "3"});
    add("short.ts", x264 + QStringList{"-g", "7", "-bf", "2"});
    add("pyramid.mkv",
        x264 + QStringList{"-g", "24", "-bf", "3", "-x264-params", "b-pyramid=normal:ref=5"});
    add("intra.mp4", x264 + QStringList{"-g", "1"}, 12);
    add("open.mp4", {"-c:v", "libx265", "-preset", "ultrafast", "-x265-params",
                     "keyint=30:bframes=3:log-level=error"});
    add("program.mpg", {"-c:v", "mpeg2video", "-bf", "2", "-g", "15"});
    add("stills.avi", {"-c:v", "mjpeg"}, 12);
    add("slow.mp4", x264 + QStringList{"-g", "4", "-bf", "0", "-r", "2"}, 60);
    add("old.webm", {"-c:v", "libvpx", "-deadline", "realtime", "-cpu-used", "8", "-g", "25"});
    video = folder.filePath("closed.mp4");
    QVERIFY(media::encode({"-i", video, "-vf", "select='not(mod(n,5))+lt(mod(n,50),20)'", "-vsync",
                           "vfr", "-c:v", "libx264", "-g", "30", "-bf", "2",
                           folder.filePath("uneven.mkv")}));
}

void TestMeasuredMaps::addRecordings() {
    QTest::addColumn<QString>("path");
    for (const QString& at : {folder.path(), recordingsDirectory()}) {
        for (const QString& name : recordingsIn(at))
            QTest::newRow(qPrintable(name)) << at + '/' + name;
    }
    const QString footage = footageDirectory();
    // Those that are unlike the others; the scanner is compared on all of them.
    for (const char* name : {"highway.avi", "junction-vfr.mp4", "size-change.ts"}) {
        if (!footage.isEmpty())
            QTest::newRow(name) << footage + '/' + name;
    }
}

void TestMeasuredMaps::sameOnEveryRoad_data() {
    addRecordings();
}

void TestMeasuredMaps::sameOnEveryRoad() {
    QFETCH(QString, path);
    const Maps expected = literalMaps(path, 0);
    QVERIFY(movingIn(expected) > 0);
    for (const int threads : {1, 3}) {
        const Measurement found = measured(path, keepingMaps(threads));
        QCOMPARE(found.maps.count(), found.series.scores.size());
        const QString flaw = difference(mapsOf(found), expected);
        QVERIFY2(flaw.isEmpty(), qPrintable(QString("%1 threads: %2").arg(threads).arg(flaw)));
    }
}

void TestMeasuredMaps::skippedPicturesHaveTheMapBefore() {
    for (const int skip : {1, 6, 30}) {
        const Maps expected = literalMaps(video, skip);
        for (const int threads : {1, 3}) {
            DetectionOptions options = keepingMaps(threads);
            options.measure.skip = skip;
            QCOMPARE(difference(mapsOf(measured(video, options)), expected), QString());
        }
    }
}

/// Behind the first second of a range the maps are those of the whole.
void TestMeasuredMaps::rangesBeginAnew() {
    const Maps whole = mapsOf(measured(video, keepingMaps()));
    Maps one;
    for (const int threads : {1, 2, 8}) {
        DetectionOptions options = keepingMaps(threads);
        options.range = {6.0, 12.0};
        const Measurement range = measured(video, options);
        const Maps maps = mapsOf(range);
        one = one.isEmpty() ? maps : one;
        QCOMPARE(maps, one);
        QCOMPARE(maps.mid(25), whole.mid(int(range.firstNumber) + 25, maps.size() - 25));
        QVERIFY(maps.first() != whole[int(range.firstNumber)]);
    }
}

void TestMeasuredMaps::keyFrames() {
    Maps one;
    for (const int threads : {1, 2, 3, 8}) {
        DetectionOptions options = keepingMaps(threads);
        options.isKeyframesOnly = true;
        const Maps maps = mapsOf(measured(video, options));
        one = one.isEmpty() ? maps : one;
        QCOMPARE(maps, one);
    }
    QVERIFY(movingIn(one) > 3);
}

/// Clips, values and what is kept; with and without the maps being kept.
void TestMeasuredMaps::decidedOn() {
    const Measurement mean = measured(video, keepingMaps());
    QVector<float> scores;
    QVector<QVector<double>> clips;
    for (const int threads : {1, 2, 3, 8}) {
        DetectionOptions options = keepingMaps(threads);
        options.detector = Detector::Cells;
        options.segmentation.minimum = 2.0;
        options.areMapsKept = threads != 3;
        Quiet progress;
        Account account;
        Detection detection(options, progress, &account);
        QCOMPARE(detection.run(video).outcome, DetectionOutcome::Finished);
        if (scores.isEmpty())
            clips = account.clips;
        scores = scores.isEmpty() ? account.scores : scores;
        QCOMPARE(account.scores, scores);
        QCOMPARE(account.clips, clips);
        QCOMPARE(detection.measurement().series.scores, mean.series.scores);
        QCOMPARE(detection.measurement().series.times, mean.series.times);
        QCOMPARE(detection.measurement().maps.count(), options.areMapsKept ? mean.maps.count() : 0);
    }
    QCOMPARE(clips.size(), 1);
    QVERIFY(scores != [&mean] {
        QVector<float> means;
        for (const MotionScore score : mean.series.scores)
            means.append(score.value);
        return means;
    }());
}

/// Nothing of cells is measured where nobody wants them.
void TestMeasuredMaps::meanIsWhatItWas() {
    for (const int threads : {1, 2}) {
        DetectionOptions options = keepingMaps(threads);
        const Measurement both = measured(video, options);
        options.areMapsKept = false;
        options.detector = Detector::Cells; // nobody decides
        const Measurement mean = measured(video, options);
        QCOMPARE(mean.series.scores, both.series.scores);
        QCOMPARE(mean.maps.count(), 0);
    }
}

void TestMeasuredMaps::cancelledIsCutOff() {
    for (const int threads : {1, 3}) {
        Quiet progress;
        progress.cancelAt = 100;
        Detection detection(keepingMaps(threads), progress);
        QCOMPARE(detection.run(video).outcome, DetectionOutcome::Cancelled);
        QCOMPARE(detection.measurement().maps.count(), 100);
        QCOMPARE(detection.measurement().series.scores.size(), 100);
    }
}

namespace {

struct Joined {
    bool isRegular = true;
    int filled = 0; ///< parts with pictures of their own
    Maps maps;
};

/// The first `held` maps of a part are the last one before it.
Joined joinedParts(const QString& path, int count, const DetectionOptions& options) {
    Joined joined;
    for (int i = 1; i <= count; ++i) {
        Quiet progress;
        PartDetection detection(options, {i, count}, progress);
        const MeasuringEnd end = detection.run(path);
        if (end.outcome != DetectionOutcome::Finished)
            qWarning("part %d: %s", i, qPrintable(end.error));
        const Maps maps = mapsOf(detection.measurement());
        joined.isRegular = joined.isRegular && detection.facts().isRegular;
        joined.filled += maps.isEmpty() ? 0 : 1;
        joined.maps += maps;
    }
    return joined;
}

} // namespace

void TestMeasuredMaps::partsAreOnePass_data() {
    addRecordings();
}

/// And those that were regular without maps are with them.
void TestMeasuredMaps::partsAreOnePass() {
    KESTROVA_SAMPLED_ROW();
    QFETCH(QString, path);
    const Maps expected = mapsOf(measured(path, keepingMaps()));
    DetectionOptions mean = keepingMaps();
    mean.areMapsKept = false;
    for (int count = 2; count <= 7; ++count) {
        const Joined joined = joinedParts(path, count, keepingMaps());
        QCOMPARE(joined.isRegular, joinedParts(path, count, mean).isRegular);
        const QString flaw = joined.isRegular ? difference(joined.maps, expected) : QString();
        QVERIFY2(flaw.isEmpty(), qPrintable(QString("%1 parts: %2").arg(count).arg(flaw)));
    }
}

void TestMeasuredMaps::partsOfSkippedPictures_data() {
    addRecordings();
}

void TestMeasuredMaps::partsOfSkippedPictures() {
    KESTROVA_SAMPLED_ROW();
    QFETCH(QString, path);
    for (const int skip : {1, 6, 30}) {
        DetectionOptions options = keepingMaps();
        options.measure.skip = skip;
        const Maps expected = mapsOf(measured(path, options));
        const Joined joined = joinedParts(path, 3, options);
        const QString flaw = joined.isRegular ? difference(joined.maps, expected) : QString();
        QVERIFY2(flaw.isEmpty(), qPrintable(QString("%1 skipped: %2").arg(skip).arg(flaw)));
    }
}

QTEST_GUILESS_MAIN(TestMeasuredMaps)
#include "test_measuredmaps.moc"
