// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "measurementcache.h"

#include "cellsfile.h"
#include "faults.h"
#include "files.h"
#include "jobrun.h"
#include "keptmeasurement.h"
#include "keptpair.h"
#include "measuresettings.h"
#include "media.h"
#include "process.h"
#include "valuesname.h"

#include <QDir>
#include <QSettings>
#include <QTemporaryDir>
#include <QtTest>

#include <fcntl.h>
#include <sys/stat.h>

#include <atomic>
#include <cerrno>
#include <memory>
#include <thread>

namespace {

constexpr float mark = 77.0F; ///< a value that nothing measures

/// What is kept says so in its first value.
bool isMarked(const QVector<float>& values) {
    return !values.isEmpty() && values.first() == mark;
}

/// Takes down what a person is told.
class Notices : public QObject {
    Q_OBJECT

public:
    Notices() {
        connect(&MeasurementCache::instance(), SIGNAL(told(QString)), SLOT(take(QString)));
    }
    QStringList all;

public Q_SLOTS:
    void take(const QString& notice) { all.append(notice); }
};

bool setTimes(const QString& file, const timespec& time) {
    const timespec times[] = {time, time};
    return utimensat(AT_FDCWD, QFile::encodeName(file).constData(), times, 0) == 0;
}

/// A recording that is on no disk, of so many pictures without maps that change.
Measurement madeUp(int pictures) {
    Measurement measured;
    measured.hasPictures = true;
    measured.stream.codecName = "h264";
    const CellMap map(cellGridOf(64, 48));
    for (int i = 1; i <= pictures; ++i) {
        measured.series.scores.append(MotionScore{float(i % 1000) / 7.0F});
        measured.series.times.append(i * 0.04);
        measured.maps.append(map);
    }
    return measured;
}

RecordingStamp stampOfMadeUp(const QByteArray& name) {
    return {"/recordings/" + name, 1000, 2000, QByteArray(64, 'a')};
}

} // namespace

class TestMeasurementCache : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void scannerReadsIt_data();
    void scannerReadsIt();
    void readsTheScanners();
    void rectangleOfTheRecordingsSizeIsTheScanners();
    void quickLookReplacesNothing();

    void whatIsGoodIsUsed();
    void whatIsCutOffIsMeasuredAnew_data();
    void whatIsCutOffIsMeasuredAnew();
    void whatIsFlippedIsMeasuredAnew_data();
    void whatIsFlippedIsMeasuredAnew();
    void whatIsOfSomethingElseIsMeasuredAnew_data();
    void whatIsOfSomethingElseIsMeasuredAnew();
    void replacedRecordingIsMeasuredAnew();

    void oldestGoesFirst();
    void whatIsTooLargeIsNotKept();
    void leftoversCountAndGo();
    void otherFilesStay();
    void offKeepsForTheRunAlone();
    void fitsWhenTheLimitFalls();

    void failingDisk_data();
    void failingDisk();
    void nothingCanBeKept();
    void folderIsItsOwners();
    void foldersOfOthersAreNotUsed();
    void anyThreadMayAsk();

private:
    QString path(const QString& name) const { return folder.filePath(name); }
    QString valuesFile() const {
        return valuesPath(MeasurementCache::folder(), QFile::encodeName(video));
    }
    std::unique_ptr<Video> makeJob() const {
        return std::make_unique<Video>(video, path("exports"), 1.0, 1.0, 2.0, 0, false, nullptr,
                                       nullptr, false, QDateTime());
    }
    QVector<float> searched() const {
        const auto job = makeJob();
        job->detect();
        return job->motionValues;
    }
    KeptValues markedValues() const;
    void plant(const KeptValues& values) const;

    QTemporaryDir folder;
    std::unique_ptr<QTemporaryDir> cache;
    QString video;
    QVector<float> expected; ///< the recording's true values
};

void TestMeasurementCache::initTestCase() {
    QCoreApplication::setOrganizationName("kestrova");
    QCoreApplication::setApplicationName("test_measurementcache");
    QVERIFY(folder.isValid());
    video = path("visit.mp4");
    QVERIFY(media::encode(media::crossingBox(12, 4, 9) + QStringList{"-c:v", "mpeg4", video}));
    init();
    expected = searched();
    QVERIFY(expected.size() > 200 && !isMarked(expected));
}

/// Each test begins with nothing kept.
void TestMeasurementCache::init() {
    QSettings().clear();
    cache = std::make_unique<QTemporaryDir>();
    qputenv("XDG_CACHE_HOME", QFile::encodeName(cache->path()));
    MeasurementCache::instance().endRun();
}

void TestMeasurementCache::cleanup() {
    QSettings().clear();
}

/// What one finds of the recording, with a mark in it.
KeptValues TestMeasurementCache::markedValues() const {
    const auto job = makeJob();
    const RecordingStamp stamp = *stampOf(video);
    auto values = MeasurementCache::instance().find(stamp, job->detectionOptions());
    if (!values) {
        job->detect();
        values = MeasurementCache::instance().find(stamp, job->detectionOptions());
    }
    values->measurement.series.scores[0].value = mark;
    return *values;
}

void TestMeasurementCache::plant(const KeptValues& values) const {
    const PairFailure failure = writePair(values, valuesFile());
    QVERIFY(failure.values.isEmpty() && failure.maps.isEmpty());
}

void TestMeasurementCache::scannerReadsIt_data() {
    QTest::addColumn<QStringList>("arguments");
    QTest::newRow("mean") << QStringList{};
    QTest::newRow("cells") << QStringList{"--detector", "cells"};
}

void TestMeasurementCache::scannerReadsIt() {
    QFETCH(QStringList, arguments);
    const auto job = makeJob();
    const JobRun run(*job);
    job->detect();
    QCOMPARE(run.clips.size(), 1);
    arguments += {"--quiet", "--values", MeasurementCache::folder(), video};
    const ProcessResult unmeasured =
        runProgram("kestrova-scan", QStringList{"--unmeasured"} + arguments);
    QCOMPARE(unmeasured.status, 0);
    QCOMPARE(unmeasured.output, QByteArray());
    const QByteArray before = readFile(valuesFile());
    const ProcessResult scan =
        runProgram("kestrova-scan", QStringList{"--minimum", "2", "--format", "jsonl"} + arguments);
    QCOMPARE(scan.status, 0);
    QCOMPARE(jsonLines(scan.output).size(), 2);
    QCOMPARE(readFile(valuesFile()), before);
    if (!arguments.contains("cells"))
        QCOMPARE(jsonLines(scan.output).first()["start"].toDouble(), run.clips.first().start);
}

void TestMeasurementCache::readsTheScanners() {
    const ProcessResult scan =
        runProgram("kestrova-scan", {"--quiet", "--detector", "cells", "--values",
                                     MeasurementCache::folder(), video});
    QCOMPARE(scan.status, 0);
    const auto job = makeJob();
    QVERIFY(keptMeasurement(video, job->detectionOptions()).has_value());
    plant(markedValues());
    QVERIFY(isMarked(searched()));
}

/// A rectangle that was drawn on the recording's own first picture.
void TestMeasurementCache::rectangleOfTheRecordingsSizeIsTheScanners() {
    const QRect rectangle(40, 30, 200, 100);
    const auto unmeasured = [&](const QSize& space) {
        const QImage mask(space, QImage::Format_ARGB32);
        Video job(video, path("exports"), 1.0, 1.0, 2.0, 0, false, &mask, &rectangle, false,
                  QDateTime());
        job.detect();
        QVERIFY2(keptMeasurement(video, job.detectionOptions()).has_value(), "kept all the same");
    };
    const auto isMeasured = [&] {
        return runProgram("kestrova-scan", {"--unmeasured", "--roi", "40,30,200,100", "--values",
                                            MeasurementCache::folder(), video})
            .output.isEmpty();
    };
    QVERIFY(!isMeasured());
    unmeasured({320, 240});
    QVERIFY(isMeasured());
    unmeasured({640, 480}); // which means other pixels
    QVERIFY(!isMeasured());
}

void TestMeasurementCache::quickLookReplacesNothing() {
    searched();
    const QByteArray whole = readFile(valuesFile());
    QVERIFY(!whole.isEmpty());
    const auto quick = makeJob();
    quick->search.isQuick = true;
    quick->detect();
    QCOMPARE(readFile(valuesFile()), whole);
    const auto kept = keptMeasurement(video, quick->detectionOptions());
    QVERIFY(kept && kept->series.times.size() == quick->frameTimes.size());
    QVERIFY(keptMeasurement(video, makeJob()->detectionOptions())->series.times.size() >
            kept->series.times.size());
}

/// What the tests of faults rely on.
void TestMeasurementCache::whatIsGoodIsUsed() {
    QCOMPARE(searched(), expected);
    plant(markedValues());
    QVERIFY(isMarked(searched()));
}

void TestMeasurementCache::whatIsCutOffIsMeasuredAnew_data() {
    QTest::addColumn<bool>("isOfMaps");
    QTest::addColumn<int>("quarters");
    for (int quarters = 0; quarters < 4; ++quarters) {
        QTest::addRow("values, %d quarters", quarters) << false << quarters;
        QTest::addRow("maps, %d quarters", quarters) << true << quarters;
    }
    QTest::newRow("values, but for a byte") << false << 4;
    QTest::newRow("maps, but for a byte") << true << 4;
}

void TestMeasurementCache::whatIsCutOffIsMeasuredAnew() {
    QFETCH(bool, isOfMaps);
    QFETCH(int, quarters);
    plant(markedValues());
    QFile file(isOfMaps ? cellsPath(valuesFile()) : valuesFile());
    QVERIFY(file.resize(quarters < 4 ? file.size() * quarters / 4 : file.size() - 1));
    const Notices notices;
    QCOMPARE(searched(), expected);
    QVERIFY(notices.all.isEmpty());
    const auto kept = keptMeasurement(video, makeJob()->detectionOptions()); // whole again
    QVERIFY(kept && kept->maps.count() == expected.size());
}

void TestMeasurementCache::whatIsFlippedIsMeasuredAnew_data() {
    QTest::addColumn<bool>("isOfMaps");
    QTest::addColumn<int>("percent");
    for (const int percent : {0, 1, 30, 60, 99}) {
        QTest::addRow("values at %d percent", percent) << false << percent;
        QTest::addRow("maps at %d percent", percent) << true << percent;
    }
}

void TestMeasurementCache::whatIsFlippedIsMeasuredAnew() {
    QFETCH(bool, isOfMaps);
    QFETCH(int, percent);
    plant(markedValues());
    const QString file = isOfMaps ? cellsPath(valuesFile()) : valuesFile();
    QByteArray content = readFile(file);
    const int place = content.size() * percent / 100;
    content[place] = char(content[place] ^ 1);
    QVERIFY(writeFile(file, content));
    QCOMPARE(searched(), expected);
}

void TestMeasurementCache::whatIsOfSomethingElseIsMeasuredAnew_data() {
    QTest::addColumn<QString>("what");
    for (const char* what : {"path", "bytes", "modified", "digest", "no digest", "version",
                             "threshold", "part", "no maps", "maps of others", "one picture"})
        QTest::newRow(what) << what;
}

void TestMeasurementCache::whatIsOfSomethingElseIsMeasuredAnew() {
    QFETCH(QString, what);
    KeptValues values = markedValues();
    RecordingStamp& stamp = values.recording;
    if (what == "path")
        stamp.path += "x";
    if (what == "bytes")
        ++stamp.bytes;
    if (what == "modified")
        ++stamp.modified;
    if (what == "digest")
        stamp.digest = QByteArray(64, 'b');
    if (what == "no digest")
        stamp.digest.clear();
    if (what == "version")
        values.settings[0].value = "2";
    if (what == "threshold")
        values.settings[1].value = "34";
    if (what == "part")
        values.part = RecordingPart{1, 2};
    if (what == "no maps")
        values.measurement.maps = CellMaps();
    if (what == "one picture") {
        values.measurement.series = MotionSeries();
        values.measurement.maps = CellMaps();
        plant(values);
        // It says nothing of clips, and is none of those that a search gives.
        const auto job = makeJob();
        job->detect();
        QVERIFY(job->hasEnded());
        return;
    }
    plant(values);
    if (what == "maps of others") {
        const QByteArray maps = readFile(cellsPath(valuesFile()));
        values.measurement.series.scores[1].value = mark;
        plant(values); // of another digest
        QVERIFY(writeFile(cellsPath(valuesFile()), maps));
    }
    QCOMPARE(searched(), expected);
}

/// By one of the same size and time.
void TestMeasurementCache::replacedRecordingIsMeasuredAnew() {
    const QString name = path("replaced.mp4");
    QVERIFY(QFile::copy(video, name));
    const auto job = [&] {
        return std::make_unique<Video>(name, path("exports"), 1.0, 1.0, 2.0, 0, false, nullptr,
                                       nullptr, false, QDateTime());
    };
    job()->detect();
    const DetectionOptions options = job()->detectionOptions();
    QVERIFY(keptMeasurement(name, options).has_value());
    struct stat before {};
    QCOMPARE(stat(QFile::encodeName(name).constData(), &before), 0);
    QByteArray content = readFile(name);
    content[100] = char(content[100] ^ 1); // in the first sample
    QVERIFY(writeFile(name, content) && setTimes(name, before.st_mtim));
    QVERIFY(!keptMeasurement(name, options).has_value());
}

void TestMeasurementCache::oldestGoesFirst() {
    MeasurementCache& kept = MeasurementCache::instance();
    QSettings().setValue("kept_values_mb", 1);
    const DetectionOptions options;
    const Measurement measured = madeUp(15000); // some 400 kB
    const auto fileOf = [](const char* name) {
        return valuesPath(MeasurementCache::folder(), stampOfMadeUp(name).path);
    };
    const auto keep = [&](const char* name, int age) {
        kept.keep(stampOfMadeUp(name), options, measured, {});
        const timespec time{::time(nullptr) - age, 0};
        for (const QString& file : {fileOf(name), cellsPath(fileOf(name))})
            QVERIFY(setTimes(file, time));
    };
    keep("old", 300);
    keep("older", 400);
    const qint64 two = MeasurementCache::size();
    QVERIFY(two > 600 * 1000 && two < 1000 * 1000);
    // The older one was used since, so that the other goes, with its maps.
    QVERIFY(kept.find(stampOfMadeUp("older"), options).has_value());
    kept.keep(stampOfMadeUp("new"), options, measured, {});
    QVERIFY(!QFile::exists(fileOf("old")));
    QVERIFY(!QFile::exists(cellsPath(fileOf("old"))));
    QVERIFY(kept.find(stampOfMadeUp("older"), options).has_value());
    QVERIFY(kept.find(stampOfMadeUp("new"), options).has_value());
    QVERIFY(MeasurementCache::size() <= 1000 * 1000);
}

void TestMeasurementCache::whatIsTooLargeIsNotKept() {
    QSettings().setValue("kept_values_mb", 1);
    const Notices notices;
    MeasurementCache::instance().keep(stampOfMadeUp("long"), {}, madeUp(60000), {});
    QCOMPARE(MeasurementCache::size(), qint64(0));
    QVERIFY(QDir(MeasurementCache::folder()).isEmpty(QDir::Files));
    QVERIFY(notices.all.isEmpty());
}

/// Of a program that was killed while it wrote.
void TestMeasurementCache::leftoversCountAndGo() {
    searched();
    const qint64 good = MeasurementCache::size();
    const QString left = valuesPath(MeasurementCache::folder(), "/gone.mp4") + ".abc123";
    QVERIFY(writeFile(left, QByteArray(1000 * 1000, 'x')));
    QVERIFY(setTimes(left, {1000000, 0}));
    QCOMPARE(MeasurementCache::size(), good + 1000 * 1000);
    QSettings().setValue("kept_values_mb", 1);
    MeasurementCache::fit();
    QVERIFY(!QFile::exists(left));
    QCOMPARE(MeasurementCache::size(), good);
}

void TestMeasurementCache::otherFilesStay() {
    searched();
    const QString other = MeasurementCache::folder() + "/notes.txt";
    QVERIFY(writeFile(other, "of a person"));
    MeasurementCache::clear();
    QCOMPARE(MeasurementCache::size(), qint64(0));
    QVERIFY(!QFile::exists(valuesFile()));
    QVERIFY(QFile::exists(other));
}

void TestMeasurementCache::offKeepsForTheRunAlone() {
    QSettings().setValue("kept_values_mb", 0);
    QCOMPARE(searched(), expected);
    QVERIFY(QDir(cache->path()).isEmpty());
    const DetectionOptions options = makeJob()->detectionOptions();
    const auto kept = keptMeasurement(video, options);
    QVERIFY(kept && kept->maps.count() == expected.size());
    MeasurementCache::instance().endRun();
    QVERIFY(!keptMeasurement(video, options).has_value());
}

void TestMeasurementCache::fitsWhenTheLimitFalls() {
    searched();
    QVERIFY(MeasurementCache::size() > 0);
    MeasurementCache::fit();
    QVERIFY(MeasurementCache::size() > 0);
    QSettings().setValue("kept_values_mb", 0);
    MeasurementCache::fit();
    QCOMPARE(MeasurementCache::size(), qint64(0));
}

void TestMeasurementCache::failingDisk_data() {
    QTest::addColumn<QString>("what");
    QTest::addColumn<int>("room"); ///< bytes that are written before it is full; -1: no folder
    QTest::newRow("no folder") << "no folder" << -1;
    QTest::newRow("full") << "full" << 0;
    QTest::newRow("fills up with maps") << "fills up with maps" << 500;
    QTest::newRow("fills up with values") << "fills up with values" << 12000;
}

/// One goes on with a temporary folder, and is told once.
void TestMeasurementCache::failingDisk() {
    QFETCH(QString, what);
    QFETCH(int, room);
    if (room >= 0 && qEnvironmentVariableIsEmpty("FAILING_CALL")) {
        QProcessEnvironment environment = faults::callError("write", ENOSPC, "/kestrova/", room);
        const ProcessResult result = runProgramIn(
            environment, QCoreApplication::applicationFilePath(), {"failingDisk:" + what});
        QVERIFY2(result.status == 0, result.output.constData());
        return;
    }
    if (room < 0) {
        QVERIFY(writeFile(path("nofolder"), "a file"));
        qputenv("XDG_CACHE_HOME", QFile::encodeName(path("nofolder")));
    }
    MeasurementCache fresh; // has told nothing yet
    QSignalSpy told(&fresh, SIGNAL(told(QString)));
    const RecordingStamp stamp = stampOfMadeUp("any");
    for (int i = 0; i < 2; ++i)
        fresh.keep(stamp, {}, madeUp(2000), {});
    QCOMPARE(told.size(), 1);
    const QString notice = told.first().first().toString();
    QVERIFY2(notice.contains(MeasurementCache::folder()), qPrintable(notice));
    QVERIFY2(notice.endsWith(room < 0 ? "Not a directory" : "No space left on device"),
             qPrintable(notice));
    const auto kept = fresh.find(stamp, {});
    QVERIFY(kept && kept->measurement.maps.count() == 2000);
    QVERIFY(QDir(MeasurementCache::folder()).entryList(QDir::Files).isEmpty());
    fresh.endRun();
    QVERIFY(!fresh.find(stamp, {}).has_value());
}

/// Neither in the cache nor for the run: the search is none the worse for it.
void TestMeasurementCache::nothingCanBeKept() {
    const QByteArray before = qgetenv("TMPDIR");
    QVERIFY(writeFile(path("nofolder"), "a file"));
    qputenv("XDG_CACHE_HOME", QFile::encodeName(path("nofolder")));
    qputenv("TMPDIR", QFile::encodeName(path("nofolder")));
    const Notices notices;
    const auto job = makeJob();
    const JobRun run(*job);
    job->detect();
    const bool isKept = keptMeasurement(video, job->detectionOptions()).has_value();
    before.isNull() ? qunsetenv("TMPDIR") : qputenv("TMPDIR", before);
    QCOMPARE(notices.all.size(), 1);
    QCOMPARE(run.statesAtResult, QVector<int>{Video::Finished});
    QCOMPARE(run.clips.size(), 1);
    QCOMPARE(job->motionValues, expected);
    QVERIFY(!isKept);
}

/// Whoever asks finds all of it or nothing, while it is replaced again and again.
void TestMeasurementCache::folderIsItsOwners() {
    const mode_t before = umask(022);
    QVERIFY(QDir().mkpath(MeasurementCache::folder())); // as an older version made it
    searched();
    umask(before);
    const auto modeOf = [](const QString& path) {
        struct stat status {};
        stat(QFile::encodeName(path).constData(), &status);
        return int(status.st_mode & 0777);
    };
    QCOMPARE(modeOf(MeasurementCache::folder()), 0700);
    QCOMPARE(modeOf(MeasurementCache::folder() + "/quick"), 0700);
    QCOMPARE(modeOf(valuesFile()), 0600);
    QCOMPARE(modeOf(cellsPath(valuesFile())), 0600);
}

void TestMeasurementCache::foldersOfOthersAreNotUsed() {
    plant(markedValues());
    const QString planted = path("planted");
    QVERIFY(QDir().rename(MeasurementCache::folder(), planted));
    QVERIFY(QFile::link(planted, MeasurementCache::folder()));
    QVERIFY(!isMarked(searched())); // measured, not believed
    QCOMPARE(MeasurementCache::size(), qint64(0));
    MeasurementCache::clear();
    QVERIFY(QFile::exists(valuesFile())); // of somebody else's files none is removed
    const QByteArray before = readFile(valuesFile());

    MeasurementCache other;
    Notices notices;
    connect(&other, SIGNAL(told(QString)), &notices, SLOT(take(QString)));
    other.keep(stampOfMadeUp("one"), {}, madeUp(300), {});
    other.keep(stampOfMadeUp("two"), {}, madeUp(300), {});
    QCOMPARE(notices.all.size(), 1);
    QVERIFY2(notices.all[0].contains("is a link"), qPrintable(notices.all[0]));
    QVERIFY(other.find(stampOfMadeUp("two"), {})); // for as long as the program runs
    QCOMPARE(readFile(valuesFile()), before);
    QCOMPARE(QDir(planted).entryList(QDir::Files).size(), 2);
}

void TestMeasurementCache::anyThreadMayAsk() {
    MeasurementCache& kept = MeasurementCache::instance();
    const RecordingStamp stamp = stampOfMadeUp("shared");
    const Measurement measured[] = {madeUp(300), madeUp(500)};
    std::atomic<bool> isOver{false};
    std::atomic<int> finds{0};
    std::atomic<int> wrong{0};
    std::vector<std::thread> threads;
    for (int i = 0; i < 3; ++i) {
        threads.emplace_back([&] {
            while (!isOver) {
                const auto found = kept.find(stamp, {});
                if (!found)
                    continue;
                ++finds;
                const int count = found->measurement.maps.count();
                if ((count != 300 && count != 500) ||
                    found->measurement.series.times.size() != count)
                    ++wrong;
            }
        });
    }
    for (int i = 0; i < 200 || (finds < 10 && i < 20000); ++i)
        kept.keep(stamp, {}, measured[i % 2], {});
    isOver = true;
    for (std::thread& thread : threads)
        thread.join();
    QVERIFY(finds >= 10);
    QCOMPARE(int(wrong), 0);
}

QTEST_GUILESS_MAIN(TestMeasurementCache)
#include "test_measurementcache.moc"
