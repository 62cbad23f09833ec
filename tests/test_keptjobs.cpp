// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

// Jobs whose recordings were searched before: who listens cannot tell the difference.

#include "celldefaults.h"
#include "files.h"
#include "footage.h"
#include "jobrun.h"
#include "keptmeasurement.h"
#include "measurementcache.h"
#include "media.h"
#include "openwatch.h"
#include "sample.h"

#include <QDir>
#include <QSettings>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

namespace {

DecidingOptions cells(bool isRestlessIgnored = false) {
    DecidingOptions options;
    options.detector = Detector::Cells;
    options.segmentation.minimum = cellsMinimum;
    options.segmentation.motionThreshold.value = float(cellsThreshold);
    options.cells.isRestlessIgnored = isRestlessIgnored;
    return options;
}

/// How a recording is searched: at first, and then again.
struct Case {
    const char* name;
    SearchOptions search;
    int skip = 0;
};

QVector<Case> allCases() {
    QVector<Case> all;
    SearchOptions search;
    all.append({"mean", search});
    all.append({"skipping", search, 3});
    search.deciding = cells();
    all.append({"cells", search});
    search.deciding = cells(true);
    all.append({"without what is restless", search});
    search.deciding = DecidingOptions();
    search.deciding->segmentation.minimum = 1.0;
    search.deciding->joiningGap = 1.0;
    all.append({"joined", search});
    search = {};
    search.isQuick = true;
    all.append({"quick", search});
    search = {};
    search.excluded = {QRect(0, 0, 60, 60)};
    all.append({"excluded", search});
    return all;
}

} // namespace

class TestKeptJobs : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();

    void listensTheSame_data();
    void listensTheSame();
    void recordingsTellTheSame_data();
    void recordingsTellTheSame();
    void nothingIsDecodedButPictures();
    void otherOptionsDecideOnTheSame();
    void openClipComesWhenItIsFinished();
    void numbersGoOn();
    void failuresAreKept();
    void cancelledWhileItDecides();
    void cancelledOnesAreNotKept();

    void grownMeanwhile();
    void removedMeanwhile();
    void changedMeanwhile();

private:
    QString path(const QString& name) const { return folder.filePath(name); }
    std::unique_ptr<Video> makeJob(const QString& video, int skip = 0) const {
        return std::make_unique<Video>(video, folder.filePath("exports"), 1.0, 1.0, 2.0, skip,
                                       false, nullptr, nullptr, false, QDateTime());
    }
    bool isKept(const Video& job) const {
        return keptMeasurement(job.fileName, job.detectionOptions()).has_value();
    }
    void compare(const QString& video, const Case& one, QByteArray& difference);

    QTemporaryDir folder;
    std::unique_ptr<QTemporaryDir> cache;
    int found = 0; ///< clips that were compared
};

void TestKeptJobs::initTestCase() {
    QCoreApplication::setOrganizationName("kestrova");
    QCoreApplication::setApplicationName("test_keptjobs");
    QVERIFY(folder.isValid());
    const QStringList visit = media::crossingBox(14, 4, 9);
    QVERIFY(media::encode(visit + QStringList{"-c:v", "mpeg4", "-bf", "2", path("mpeg4.mp4")}));
    QVERIFY(media::encode(visit + QStringList{"-c:v", "libx264", "-g", "50", path("h264.mkv")}));
    QVERIFY(media::encode(visit + QStringList{"-c:v", "mjpeg", path("mjpeg.avi")}));
    // The box has not left when it ends.
    QVERIFY(media::encode(media::crossingBox(8, 3, 12) +
                          QStringList{"-c:v", "libx264", "-g", "25", path("open.mp4")}));
}

/// Each test begins with nothing kept.
void TestKeptJobs::init() {
    QSettings().clear();
    cache = std::make_unique<QTemporaryDir>();
    qputenv("XDG_CACHE_HOME", QFile::encodeName(cache->path()));
    MeasurementCache::instance().endRun();
}

/// Searches twice; what differs the second time.
void TestKeptJobs::compare(const QString& video, const Case& one, QByteArray& difference) {
    MeasurementCache::clear();
    const auto job = makeJob(video, one.skip);
    job->search = one.search;
    QVERIFY(!isKept(*job));
    const JobRun measured(*job);
    job->detect();
    QVERIFY(isKept(*job));
    const auto again = makeJob(video, one.skip);
    again->search = one.search;
    const JobRun kept(*again);
    again->detect();
    found += kept.clips.size();

    const auto check = [&difference](bool isSame, const char* what) {
        if (!isSame)
            difference += QByteArray(" ") + what;
    };
    check(kept.clips.size() == measured.clips.size(), "clips");
    for (int i = 0; i < std::min(kept.clips.size(), measured.clips.size()); ++i) {
        const DetectedClip& left = kept.clips[i];
        const DetectedClip& right = measured.clips[i];
        check(left.index == right.index, "index");
        check(left.start == right.start && left.end == right.end, "times");
        check(left.snapshotTime == right.snapshotTime, "snapshot-time");
        check(left.snapshot == right.snapshot && !left.snapshot.isNull(), "snapshot");
    }
    check(kept.statesAtClips == measured.statesAtClips, "states");
    check(kept.statesAtResult == measured.statesAtResult, "state");
    check(kept.values == measured.values, "live-values");
    check(again->motionValues == job->motionValues, "values");
    check(again->frameTimes == job->frameTimes, "frame-times");
    check(again->intraCodec == job->intraCodec, "intra");
    check(again->bytesRead == again->fileSize, "bytes");
    const JobFacts left = again->news.facts();
    const JobFacts right = job->news.facts();
    check(left.seconds == right.seconds && left.pictures == right.pictures, "facts");
    check(left.strongest == right.strongest && left.strongestTime == right.strongestTime,
          "strongest");
    check(left.damage.packets == right.damage.packets, "damage");
    check(left.isReadToItsEnd && left.error == right.error, "error");
}

void TestKeptJobs::listensTheSame_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("number");
    const QVector<Case> all = allCases();
    for (const char* name : {"mpeg4.mp4", "h264.mkv", "mjpeg.avi", "open.mp4"}) {
        for (int i = 0; i < all.size(); ++i)
            QTest::addRow("%s, %s", name, all[i].name) << name << i;
    }
}

void TestKeptJobs::listensTheSame() {
    KESTROVA_SAMPLED_ROW();
    QFETCH(QString, name);
    QFETCH(int, number);
    const int before = found;
    const Case one = allCases()[number];
    QByteArray difference;
    compare(path(name), one, difference);
    QVERIFY2(difference.isEmpty(), difference.constData());
    if (!one.search.isQuick) // key frames alone can miss it
        QVERIFY(found > before);
}

void TestKeptJobs::recordingsTellTheSame_data() {
    addFoldersOfRecordings();
}

void TestKeptJobs::recordingsTellTheSame() {
    KESTROVA_SAMPLED_ROW();
    QFETCH(QString, folder);
    KESTROVA_REQUIRE_FOLDER(folder);
    for (const QString& name : recordingsIn(folder)) {
        for (const Case& one : allCases()) {
            QByteArray difference;
            compare(QDir(folder).filePath(name), one, difference);
            QVERIFY2(difference.isEmpty(),
                     (name.toUtf8() + ", " + one.name + ":" + difference).constData());
        }
    }
}

/// Of a recording without clips nothing but samples are read.
void TestKeptJobs::nothingIsDecodedButPictures() {
    const auto job = makeJob(path("h264.mkv"));
    job->search.deciding = DecidingOptions();
    job->search.deciding->segmentation.motionThreshold.value = 100.0F;
    job->detect();
    QCOMPARE(int(job->state), int(Video::Finished));
    const auto again = makeJob(path("h264.mkv"));
    again->search = job->search;
    const RecordingStamp before = *stampOf(again->fileName);
    OpenWatch watch({again->fileName});
    QVERIFY(stampOf(again->fileName) == before);
    const int openings = watch.count();
    again->detect();
    QCOMPARE(int(again->state), int(Video::Finished));
    QCOMPARE(watch.count(), openings);
}

void TestKeptJobs::otherOptionsDecideOnTheSame() {
    const auto job = makeJob(path("mpeg4.mp4"));
    job->detect();
    const auto file = [] {
        return QDir(MeasurementCache::folder()).entryInfoList({"*.values"}).value(0);
    };
    const QByteArray kept = readFile(file().filePath());
    QVERIFY(!kept.isEmpty());
    const auto again = makeJob(path("mpeg4.mp4"));
    again->search.deciding = cells();
    QVERIFY(isKept(*again));
    const JobRun run(*again);
    again->detect();
    QCOMPARE(run.clips.size(), 1);
    QCOMPARE(readFile(file().filePath()), kept);

    // Where cells decide, a region of its own is no reason to measure.
    QImage mask(320, 240, QImage::Format_RGB32);
    mask.fill(Qt::green);
    Video other(path("mpeg4.mp4"), path("exports"), 1.0, 1.0, 2.0, 0, false, &mask, nullptr, false,
                QDateTime());
    QVERIFY(!isKept(other));
    other.search.deciding = cells();
    QVERIFY(isKept(other));
    const JobRun otherRun(other);
    other.detect();
    QCOMPARE(otherRun.clips.size(), 1);
    QCOMPARE(otherRun.clips[0].start, run.clips[0].start);
    QCOMPARE(otherRun.clips[0].snapshot, run.clips[0].snapshot);
}

void TestKeptJobs::openClipComesWhenItIsFinished() {
    makeJob(path("open.mp4"))->detect();
    const auto job = makeJob(path("open.mp4"));
    QVERIFY(isKept(*job));
    const JobRun run(*job);
    job->detect();
    QCOMPARE(run.statesAtClips, QVector<int>{Video::Finished});
    QCOMPARE(run.clips.first().end, job->frameTimes.last());
    QVERIFY(!run.clips.first().snapshot.isNull());
}

void TestKeptJobs::numbersGoOn() {
    makeJob(path("mpeg4.mp4"))->detect();
    const auto job = makeJob(path("mpeg4.mp4"));
    job->firstClipNumber = 4;
    job->nextClipNumber = 4;
    const JobRun run(*job);
    job->detect();
    QCOMPARE(run.clips.size(), 1);
    QCOMPARE(run.clips.first().index, 4);
}

void TestKeptJobs::failuresAreKept() {
    QVERIFY(writeFile(path("text.mp4"), "This is no video.\n"));
    const auto job = makeJob(path("text.mp4"));
    job->detect();
    QVERIFY(isKept(*job));
    const auto again = makeJob(path("text.mp4"));
    const JobRun run(*again);
    again->detect();
    QCOMPARE(run.statesAtResult, QVector<int>{Video::Failed});
    QCOMPARE(again->news.facts().error, job->news.facts().error);
    QVERIFY(!job->news.facts().error.isEmpty());
    QCOMPARE(qint64(again->bytesRead), qint64(job->bytesRead));

    // What may be there the next time is looked for again.
    const auto missing = makeJob(path("missing.mp4"));
    missing->detect();
    QCOMPARE(int(missing->state), int(Video::Failed));
    QVERIFY(!isKept(*missing));
}

void TestKeptJobs::cancelledWhileItDecides() {
    makeJob(path("mpeg4.mp4"))->detect();
    const auto job = makeJob(path("mpeg4.mp4"));
    QVERIFY(isKept(*job));
    JobRun run(*job);
    run.onClip = [&job] { job->state = Video::CancelRequested; };
    job->detect();
    QCOMPARE(run.statesAtResult, QVector<int>{Video::CancelRequested});
    QCOMPARE(run.clips.size(), 1);
    // The picture that closed the clip was the last.
    QCOMPARE(job->frameTimes.last(), run.clips.first().end);
    QCOMPARE(job->motionValues.size(), job->frameTimes.size());
    QVERIFY(!job->news.facts().isReadToItsEnd);
}

void TestKeptJobs::cancelledOnesAreNotKept() {
    const auto job = makeJob(path("mpeg4.mp4"));
    JobRun run(*job);
    run.onClip = [&job] { job->state = Video::CancelRequested; };
    job->detect();
    QCOMPARE(run.statesAtResult, QVector<int>{Video::CancelRequested});
    QVERIFY(!isKept(*job));
}

void TestKeptJobs::grownMeanwhile() {
    QVERIFY(QFile::copy(path("mjpeg.avi"), path("grown.avi")));
    const auto job = makeJob(path("grown.avi"));
    JobRun run(*job);
    run.onClip = [this] {
        QFile file(path("grown.avi"));
        QVERIFY(file.open(QIODevice::Append) && file.write(QByteArray(100, 'x')) == 100);
    };
    job->detect();
    QCOMPARE(run.clips.size(), 1);
    QCOMPARE(run.statesAtResult, QVector<int>{Video::Finished});
    QCOMPARE(job->news.facts().error,
             QString("it grew while it was searched; what came behind 0:00:13.960 is left out"));
    QVERIFY(!job->news.facts().isReadToItsEnd);
    QVERIFY(!isKept(*job));
}

void TestKeptJobs::removedMeanwhile() {
    QVERIFY(QFile::copy(path("mjpeg.avi"), path("removed.avi")));
    const auto job = makeJob(path("removed.avi"));
    JobRun run(*job);
    run.onClip = [this] { QVERIFY(QFile::remove(path("removed.avi"))); };
    job->detect();
    QCOMPARE(job->news.facts().error, QString("it was removed while it was searched"));
    QVERIFY(!job->news.facts().isReadToItsEnd);
    QVERIFY(QDir(MeasurementCache::folder()).isEmpty());
}

/// Between the picture that is decided on and its clip's picture that is looked for.
void TestKeptJobs::changedMeanwhile() {
    QVERIFY(QFile::copy(path("mjpeg.avi"), path("changed.avi")));
    makeJob(path("changed.avi"))->detect();
    const auto job = makeJob(path("changed.avi"));
    QVERIFY(isKept(*job));
    JobRun run(*job);
    connect(
        &job->news, &JobNews::factsChanged, job.get(),
        [this] { QVERIFY(writeFile(path("changed.avi"), readFile(path("open.mp4")))); },
        Qt::DirectConnection);
    job->detect();
    QCOMPARE(run.statesAtResult, QVector<int>{Video::Finished});
    QCOMPARE(run.clips.size(), 1);
    QVERIFY(run.clips.first().snapshot.isNull()); // never that of another recording
    QVERIFY(!isKept(*job));
}

QTEST_GUILESS_MAIN(TestKeptJobs)
#include "test_keptjobs.moc"
