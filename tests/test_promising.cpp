// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

// The scanner that measures the likeliest parts first: in the end it has found what it always
// finds, and until then it says what it has looked at.

#include "files.h"
#include "footage.h"
#include "media.h"
#include "process.h"
#include "sample.h"

#include <QDir>
#include <QDirIterator>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMap>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include <algorithm>
#include <csignal>
#include <memory>

namespace {

using Files = QMap<QString, QByteArray>;

/// What one call leaves behind.
struct Scan {
    int status = -1;
    QByteArray output; ///< without clips that may become others
    QByteArrayList provisional;
    QByteArray errors;
};

constexpr int seconds = 330;

/// Encoder input: so many seconds of 160x120 at 5 pictures a second: a still scene with noise, and
/// something that crosses twice.
QStringList twoVisits(int first, int second) {
    const QString scene =
        QStringLiteral("color=c=0x406040:s=160x120:r=5:d=%1,noise=alls=4:allf=t:all_seed=7[scene];"
                       "color=c=gray:s=32x30:r=5:d=%1,noise=alls=90:allf=t:all_seed=8[box];"
                       "[scene][box]overlay=x='mod(20*t,128)':y=40:"
                       "enable='between(t,%2,%2+7)+between(t,%3,%3+6)',format=yuv420p")
            .arg(seconds)
            .arg(first)
            .arg(second);
    return {"-filter_complex", scene};
}

/// Maps of cells may be cut into blocks at other places; what they hold is compared by what is
/// decided on them.
Files filesBelow(const QString& folder) {
    Files files;
    QDirIterator all(folder, QDir::Files, QDirIterator::Subdirectories);
    while (all.hasNext()) {
        const QString path = all.next();
        const bool isOfCells = path.endsWith(QLatin1String(".cells"));
        files[QDir(folder).relativeFilePath(path)] = isOfCells ? QByteArray() : readFile(path);
    }
    return files;
}

/// Recordings side by side end in any order.
QByteArrayList sortedLines(const QByteArray& text) {
    QByteArrayList lines = text.split('\n');
    std::sort(lines.begin(), lines.end());
    return lines;
}

QJsonObject lastLine(const QByteArray& output) {
    return QJsonDocument::fromJson(output.trimmed().split('\n').last()).object();
}

} // namespace

class TestPromising : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();

    void theEndIsThatOfAnOrderlySearch_data();
    void theEndIsThatOfAnOrderlySearch();
    void footageIsFoundAsEver_data();
    void footageIsFoundAsEver();
    void clipsAreToldEarly();
    void otherFormatsKnowNothingOfThat();
    void theBudgetEndsIt();
    void whatWasNotLookedAtIsNotQuiet();
    void laterCallsGoOn();
    void shareOfWhatIsSearchedInOrder();
    void timeIsABudgetToo();
    void interruptedOnesGoOn();
    void killedOnesGoOn();
    void foreignPartsAreMeasuredAnew();
    void damagedOnesAreSearchedInOrder();
    void whatCannotBeKeptIsTold();
    void whatIsNoRecordingIsTold();
    void othersAreRejected_data();
    void othersAreRejected();

private:
    void add(const char* name, int first, int second, const QStringList& codec);
    Scan scanned(const QStringList& options, const QStringList& videos);
    void compare(const QStringList& options, const QStringList& videos);
    QStringList partFiles() const;
    bool isPartWritten(QProcess& process) const;
    QString recording(const QString& name) const { return recordings.filePath(name); }
    QString result(const QString& name) const { return results->filePath(name); }

    QTemporaryDir recordings;
    std::unique_ptr<QTemporaryDir> results;
};

void TestPromising::add(const char* name, int first, int second, const QStringList& codec) {
    QVERIFY2(media::encode(twoVisits(first, second) + codec + QStringList{recording(name)}), name);
}

void TestPromising::initTestCase() {
    const QStringList x264 = {"-c:v", "libx264", "-preset", "veryfast"};
    add("rate.mp4", 200, 290,
        x264 + QStringList{"-g", "5", "-b:v", "60k", "-maxrate", "60k", "-bufsize", "120k"});
    add("quality.mkv", 61, 250, x264 + QStringList{"-g", "10", "-bf", "3"});
    add("transport.ts", 100, 140, x264 + QStringList{"-g", "5"});
    add("high.mp4", 20, 310,
        {"-c:v", "libx265", "-preset", "ultrafast", "-x265-params",
         "keyint=5:bframes=2:log-level=error"});
    add("simple.avi", 150, 225, {"-c:v", "mpeg4", "-g", "5", "-bf", "2"});
    add("stills.avi", 5, 322, {"-c:v", "mjpeg"});
    add("single.mp4", 50, 90, x264 + QStringList{"-g", "100000", "-sc_threshold", "0"});
}

void TestPromising::init() {
    results = std::make_unique<QTemporaryDir>();
}

Scan TestPromising::scanned(const QStringList& options, const QStringList& videos) {
    const ProcessResult result = runProgram("kestrova-scan", options + videos, 400000);
    Scan scan;
    scan.status = result.status;
    scan.errors = result.errors;
    for (const QByteArray& line : result.output.split('\n')) {
        if (line.contains("\"provisional\":true"))
            scan.provisional.append(line);
        else
            scan.output += line + '\n';
    }
    return scan;
}

void TestPromising::compare(const QStringList& options, const QStringList& videos) {
    const QString folder = result("out");
    QStringList writing = options;
    writing.replaceInStrings("OUT", folder);
    QVERIFY(QDir().mkpath(folder));
    const Scan fresh = scanned(writing, videos);
    // The next one writes to the same place, which is named in what is written.
    const QString first = folder + "-first";
    QVERIFY(QDir().rename(folder, first));
    QVERIFY(QDir().mkpath(folder));
    const Scan found = scanned(writing + QStringList{"--promising-first"}, videos);
    QCOMPARE(filesBelow(folder).keys(), filesBelow(first).keys());
    const Files files = filesBelow(folder);
    for (auto file = files.cbegin(); file != files.cend(); ++file)
        QVERIFY2(filesBelow(first)[file.key()] == file.value(), qPrintable(file.key()));
    QCOMPARE(found.status, fresh.status);
    QCOMPARE(found.output, fresh.output);
    QCOMPARE(sortedLines(withoutAdvice(found.errors)), sortedLines(withoutAdvice(fresh.errors)));
}

void TestPromising::theEndIsThatOfAnOrderlySearch_data() {
    QTest::addColumn<QStringList>("options");
    const QStringList jsonl = {"--format", "jsonl", "--minimum", "2"};
    QTest::newRow("text") << QStringList{"--minimum", "2"};
    QTest::newRow("jsonl") << jsonl;
    QTest::newRow("csv, merged") << QStringList{"--format", "csv",     "--minimum",
                                                "2",        "--merge", "1"};
    QTest::newRow("edl") << QStringList{"--format", "edl", "--minimum", "2"};
    QTest::newRow("jobs") << jsonl + QStringList{"--jobs", "2"};
    QTest::newRow("threads") << jsonl + QStringList{"--threads", "3", "--skip", "2"};
    QTest::newRow("many threads") << jsonl + QStringList{"--threads", "24", "--values", "OUT/kept"};
    QTest::newRow("one thread") << jsonl + QStringList{"--threads", "1", "--skip", "1"};
    QTest::newRow("cells") << jsonl + QStringList{"--detector", "cells"};
    QTest::newRow("restless") << jsonl + QStringList{"--detector", "cells", "--ignore-restless"};
    QTest::newRow("values") << jsonl + QStringList{"--values", "OUT/kept", "--trace", "OUT/trace"};
    QTest::newRow("values of cells") << jsonl + QStringList{"--values", "OUT/kept", "--detector",
                                                            "cells",    "--roi",    "10,20,120,80"};
    QTest::newRow("pictures") << jsonl + QStringList{"--snapshots", "OUT/pictures", "--report",
                                                     "OUT/report",  "--merge",      "0"};
    QTest::newRow("export") << jsonl + QStringList{"--export",  "OUT/clips",   "--merge",
                                                   "0",         "--container", "mp4",
                                                   "--exclude", "0,0,160,20"};
}

void TestPromising::theEndIsThatOfAnOrderlySearch() {
    KESTROVA_SAMPLED_ROW();
    QFETCH(QStringList, options);
    compare(options, {recording("rate.mp4"), recording("quality.mkv"), recording("transport.ts"),
                      recording("high.mp4"), recording("simple.avi"), recording("stills.avi"),
                      recording("single.mp4")});
}

void TestPromising::footageIsFoundAsEver_data() {
    QTest::addColumn<QString>("name");
    QTest::newRow("none") << QString();
    for (const QFileInfo& file : footageFiles())
        QTest::newRow(qPrintable(file.fileName())) << file.absoluteFilePath();
}

void TestPromising::footageIsFoundAsEver() {
    QFETCH(QString, name);
    if (name.isEmpty() && footageDirectory().isEmpty())
        QSKIP("KESTROVA_FOOTAGE names no folder with recordings");
    if (!name.isEmpty())
        compare({"--format", "jsonl", "--trace", "OUT/trace"}, {name});
}

/// Each clip of the end is told before, without a number, and before much was looked at.
void TestPromising::clipsAreToldEarly() {
    const Scan found = scanned({"--promising-first", "--format", "jsonl", "--minimum", "2",
                                "--merge", "1", "--threads", "1"},
                               {recording("quality.mkv"), recording("rate.mp4")});
    QCOMPARE(found.status, 0);
    int clips = 0;
    for (const QByteArray& line : found.output.trimmed().split('\n')) {
        const QJsonObject clip = QJsonDocument::fromJson(line).object();
        if (clip.contains("state"))
            continue;
        ++clips;
        const bool isTold = std::any_of(
            found.provisional.cbegin(), found.provisional.cend(), [&](const QByteArray& line) {
                const QJsonObject told = QJsonDocument::fromJson(line).object();
                return told["video"] == clip["video"] && !told.contains("index") &&
                       told["start"].toDouble() <= clip["end"].toDouble() &&
                       told["end"].toDouble() >= clip["start"].toDouble();
            });
        QVERIFY2(isTold, line.constData());
    }
    QCOMPARE(clips, 4);
    const QJsonObject first = QJsonDocument::fromJson(found.provisional.value(0)).object();
    QVERIFY2(first["looked"].toDouble() < 0.25, found.provisional.value(0).constData());
}

void TestPromising::otherFormatsKnowNothingOfThat() {
    for (const char* format : {"text", "csv", "cuts"}) {
        const QStringList options = {"--format", format, "--minimum", "2"};
        const Scan found =
            scanned(options + QStringList{"--promising-first"}, {recording("rate.mp4")});
        QCOMPARE(found.output, scanned(options, {recording("rate.mp4")}).output);
    }
}

void TestPromising::theBudgetEndsIt() {
    const Scan found = scanned({"--promising-first", "--budget", "25%", "--format", "jsonl",
                                "--minimum", "2", "--merge", "1", "--threads", "1"},
                               {recording("quality.mkv")});
    QCOMPARE(found.status, 0);
    const QJsonObject end = lastLine(found.output);
    QCOMPARE(end["state"].toString(), QString("partly"));
    // To the next border of parts.
    QVERIFY2(end["looked"].toDouble() >= 0.25, found.output.constData());
    QVERIFY2(end["looked"].toDouble() < 0.35, found.output.constData());
    QCOMPARE(end["clips"].toInt(), 2);
    QVERIFY2(found.errors.contains(" % of it was looked at, clips: 2\n"), found.errors.constData());
    // All of it is no part.
    const Scan whole = scanned({"--promising-first", "--budget", "100%", "--format", "jsonl",
                                "--minimum", "2", "--merge", "1"},
                               {recording("quality.mkv")});
    QCOMPARE(lastLine(whole.output)["state"].toString(), QString("finished"));
}

void TestPromising::whatWasNotLookedAtIsNotQuiet() {
    const Scan found = scanned({"--promising-first", "--budget", "1%", "--threshold-motion", "10",
                                "--format", "jsonl", "--report", result("report")},
                               {recording("quality.mkv"), recording("rate.mp4")});
    QCOMPARE(found.status, 0);
    for (const QByteArray& line : found.output.trimmed().split('\n')) {
        const QJsonObject end = QJsonDocument::fromJson(line).object();
        QCOMPARE(end["state"].toString(), QString("partly"));
        QVERIFY(!end.contains("strongest"));
    }
    QVERIFY2(!found.errors.contains("strongest"), found.errors.constData());
    const QByteArray page = readFile(result("report/index.html"));
    QVERIFY(page.contains("% of it was looked at"));
    QVERIFY(!page.contains("greatest motion value"));
}

QStringList TestPromising::partFiles() const {
    return QDir(result("kept")).entryList({"*of*.values"}, QDir::Files);
}

void TestPromising::laterCallsGoOn() {
    const QStringList videos = {recording("quality.mkv"), recording("simple.avi")};
    const QStringList options = {"--format", "jsonl", "--minimum", "2"};
    const Scan fresh = scanned(options, videos);
    const QStringList keeping =
        options + QStringList{"--values", result("kept"), "--promising-first"};
    int before = 0;
    for (int call = 0; call < 2; ++call) {
        const Scan some = scanned(keeping + QStringList{"--budget", "30%"}, videos);
        QCOMPARE(some.status, 0);
        QVERIFY(some.output.contains("\"partly\""));
        QVERIFY2(partFiles().size() > before, qPrintable(QString::number(before)));
        before = partFiles().size();
    }
    const Scan whole = scanned(keeping, videos);
    QCOMPARE(whole.status, 0);
    QCOMPARE(whole.output, fresh.output);
    QCOMPARE(partFiles(), QStringList());
    QCOMPARE(QDir(result("kept")).entryList({"*.values"}, QDir::Files).size(), 2);
    // Then there is nothing left to look at.
    const Scan again = scanned(keeping + QStringList{"--budget", "1%"}, videos);
    QCOMPARE(again.output, fresh.output);
}

/// It has one key frame, so that the rest of it cannot be reached alone.
void TestPromising::shareOfWhatIsSearchedInOrder() {
    const Scan found = scanned({"--promising-first", "--budget", "20%", "--format", "jsonl",
                                "--minimum", "2", "--merge", "1"},
                               {recording("single.mp4")});
    QCOMPARE(found.status, 0);
    const QJsonObject end = lastLine(found.output);
    QCOMPARE(end["state"].toString(), QString("partly"));
    QVERIFY2(end["looked"].toDouble() > 0.0 && end["looked"].toDouble() < 0.9,
             found.output.constData());
}

void TestPromising::timeIsABudgetToo() {
    const Scan found = scanned({"--promising-first", "--budget", "0.001s", "--format", "jsonl"},
                               {recording("quality.mkv"), recording("single.mp4")});
    QCOMPARE(found.status, 0);
    QCOMPARE(found.output.count("\"state\":\"partly\",\"looked\":0"), 2);
    const Scan whole = scanned({"--promising-first", "--budget", "2h", "--format", "jsonl"},
                               {recording("quality.mkv")});
    QCOMPARE(lastLine(whole.output)["state"].toString(), QString("finished"));
}

/// Waits for the first part that is kept.
bool TestPromising::isPartWritten(QProcess& process) const {
    QElapsedTimer time;
    time.start();
    while (partFiles().isEmpty() && time.elapsed() < 60000 && !process.waitForFinished(5)) {
    }
    return !partFiles().isEmpty() && process.state() == QProcess::Running;
}

void TestPromising::interruptedOnesGoOn() {
    const QStringList videos = {recording("quality.mkv"), recording("simple.avi"),
                                recording("stills.avi"), recording("rate.mp4")};
    const QStringList options = {"--format", "jsonl", "--minimum", "2"};
    const Scan fresh = scanned(options, videos);
    const QStringList keeping =
        options + QStringList{"--values", result("kept"), "--promising-first"};
    QProcess process;
    process.start(media::programDirectory() + "/kestrova-scan", keeping + videos);
    QVERIFY(process.waitForStarted());
    QVERIFY(isPartWritten(process));
    ::kill(pid_t(process.processId()), SIGINT);
    const ProcessResult end = endOf(process);
    QCOMPARE(end.status, 130);
    QVERIFY2(end.output.contains("\"state\":\"cancelled\",\"looked\":0."), end.output.constData());
    QVERIFY(!partFiles().isEmpty());
    const Scan whole = scanned(keeping, videos);
    QCOMPARE(whole.status, 0);
    QCOMPARE(whole.output, fresh.output);
    QCOMPARE(partFiles(), QStringList());
}

void TestPromising::killedOnesGoOn() {
    const QStringList videos = {recording("quality.mkv"), recording("stills.avi")};
    const QStringList options = {"--format", "jsonl", "--minimum", "2"};
    const QStringList keeping =
        options + QStringList{"--values", result("kept"), "--promising-first"};
    QProcess process;
    process.start(media::programDirectory() + "/kestrova-scan", keeping + videos);
    QVERIFY(isPartWritten(process));
    process.kill();
    QVERIFY(process.waitForFinished());
    const Scan whole = scanned(keeping, videos);
    QCOMPARE(whole.status, 0);
    QCOMPARE(whole.output, scanned(options, videos).output);
    QCOMPARE(partFiles(), QStringList());
}

/// Parts of another call that happen to be as many.
void TestPromising::foreignPartsAreMeasuredAnew() {
    const QStringList video = {recording("quality.mkv")};
    const QStringList options = {"--format", "jsonl", "--minimum", "2"};
    const QStringList keeping = options + QStringList{"--values", result("kept")};
    QCOMPARE(scanned(keeping + QStringList{"--promising-first", "--budget", "10%"}, video).status,
             0);
    const QString name = partFiles().value(0);
    const QString count = name.mid(name.lastIndexOf("of") + 2).section('.', 0, 0);
    QDir(result("kept")).removeRecursively();
    QCOMPARE(runProgram("kestrova-scan",
                        {"--quiet", "--values", result("kept"), "--part", "2/" + count, video[0]})
                 .status,
             0);
    const Scan whole = scanned(keeping + QStringList{"--promising-first"}, video);
    QCOMPARE(whole.output, scanned(options, video).output);
}

void TestPromising::damagedOnesAreSearchedInOrder() {
    QByteArray bytes = readFile(recording("transport.ts"));
    for (int i = bytes.size() / 3; i < bytes.size() / 3 + 4000; ++i)
        bytes[i] = char(bytes[i] ^ 0x5a);
    QVERIFY(QDir().mkpath(result("videos")));
    const QString damaged = result("videos/damaged.ts");
    QVERIFY(writeFile(damaged, bytes));
    const QStringList options = {"--format", "jsonl", "--threads", "1", "--minimum", "2"};
    const Scan found = scanned(options + QStringList{"--promising-first"}, {damaged});
    const Scan fresh = scanned(options, {damaged});
    QCOMPARE(found.output, fresh.output);
    QCOMPARE(found.status, fresh.status);
    QCOMPARE(found.errors, fresh.errors);
}

void TestPromising::whatCannotBeKeptIsTold() {
    // A folder stands where values are to be written.
    QVERIFY(writeFile(result("kept"), "no folder"));
    const ProcessResult found =
        runProgram("kestrova-scan", {"--promising-first", "--budget", "20%", "--values",
                                     result("kept"), recording("quality.mkv")});
    QCOMPARE(found.status, 1);
    QCOMPARE(found.errors.count("cannot keep the"), 1);
}

void TestPromising::whatIsNoRecordingIsTold() {
    QVERIFY(writeFile(result("noise.mp4"), QByteArray(5000, 'x')));
    const QStringList videos = {result("noise.mp4"), result("gone.mp4"), recording("rate.mp4")};
    const QStringList options = {"--format", "jsonl"};
    const Scan fresh = scanned(options, videos);
    const Scan found = scanned(options + QStringList{"--promising-first"}, videos);
    QCOMPARE(found.status, fresh.status);
    QCOMPARE(found.output, fresh.output);
    QCOMPARE(withoutAdvice(found.errors), withoutAdvice(fresh.errors));
}

void TestPromising::othersAreRejected_data() {
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<QByteArray>("reason");
    for (const char* budget : {"", "25", "0%", "101%", "x%", "10d", "-5m", "1e3s", "5 m"})
        QTest::newRow(budget) << QStringList{"--promising-first", "--budget", budget}
                              << QByteArray(
                                     "--budget takes a share above 0% and up to 100%, or a time");
    QTest::newRow("alone") << QStringList{"--budget", "5%"}
                           << QByteArray("--budget needs --promising-first");
    const QList<QStringList> others = {{"--quick"}, {"--from", "1"}, {"--to", "1"}, {"--fps", "5"}};
    for (const QStringList& other : others)
        QTest::newRow(qPrintable(other[0]))
            << other + QStringList{"--promising-first"}
            << "--promising-first and " + other[0].toUtf8() + " exclude each other";
}

void TestPromising::othersAreRejected() {
    QFETCH(QStringList, options);
    QFETCH(QByteArray, reason);
    const ProcessResult result =
        runProgram("kestrova-scan", options + QStringList{recording("rate.mp4")});
    QCOMPARE(result.status, 2);
    QVERIFY2(result.errors.contains(reason), result.errors.constData());
}

QTEST_GUILESS_MAIN(TestPromising)
#include "test_promising.moc"
