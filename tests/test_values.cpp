// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

// The scanner with values that it has kept: the same as without, but for the decoding.

#include "faults.h"
#include "files.h"
#include "footage.h"
#include "heldtrace.h"
#include "media.h"
#include "pipewriter.h"
#include "process.h"
#include "sample.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>
#include <QImage>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>

namespace {

const QStringList someClips = {"--minimum", "2", "--postrecord", "1"};

/// All that a call leaves behind.
struct Scan : ProcessResult {
    QByteArray trace;
    QMap<QString, QByteArray> pictures;

    bool operator==(const Scan& other) const {
        return status == other.status && output == other.output &&
               withoutAdvice(errors) == withoutAdvice(other.errors) && trace == other.trace &&
               pictures == other.pictures;
    }
};

QStringList videosIn(const QString& folder) {
    QStringList paths;
    if (folder.isEmpty())
        return paths;
    for (const QFileInfo& file : QDir(folder).entryInfoList(QDir::Files)) {
        if (file.suffix() != QLatin1String("md") && file.suffix() != QLatin1String("py"))
            paths += file.absoluteFilePath();
    }
    return paths;
}

} // namespace

class TestValues : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();

    void equalsAFreshScan_data();
    void equalsAFreshScan();
    void decidingNeedsNoDecoding();
    void exportsTheSame();

    void changedRecordingIsMeasuredAnew();
    void otherMeasureIsMeasuredAnew();
    void sameSelectionIsTheSameMask();
    void flawedValuesAreNamedAndReplaced_data();
    void flawedValuesAreNamedAndReplaced();

    void unreadableRecordingsAreNotTriedAgain();
    void whatTheMachineDidIsNotKept();
    void interruptedScansKeepNothing();
    void pipesAreNotKept();
    void valuesThatCannotBeWritten_data();
    void valuesThatCannotBeWritten();
    void killedScansKeepNothingHalf();
    void twoAtOnceDoNoHarm();

    void valuesInPlaceOfTheRecording();
    void valuesOfARecordingThatIsGone();
    void valuesThatOptionsContradict();
    void flawedValuesInPlaceOfTheRecording();
    void valuesThatAreReplacedMeanwhile();
    void traceNeverOverwritesTheRecordingOfValues();

private:
    Scan scanned(const QStringList& options, const QString& named,
                 const QProcessEnvironment& environment = QProcessEnvironment::systemEnvironment());
    QString path(const QString& name) const { return results->filePath(name); }
    QString kept() const { return path("kept"); }
    QStringList keptFiles() const { return QDir(kept()).entryList({"*.values"}, QDir::Files); }
    QString keptFile() const { return kept() + '/' + keptFiles().value(0); }

    QTemporaryDir recordings;
    QString video; ///< 20 s; a box crosses from second 6 to second 12
    QString mask;
    std::unique_ptr<QTemporaryDir> results;
};

void TestValues::initTestCase() {
    video = recordings.filePath("garden.mp4");
    QVERIFY(media::encode(media::crossingBox(20, 6, 12) +
                          QStringList{"-c:v", "libx264", "-preset", "ultrafast", video}));
    const auto add = [this](const char* name, const QStringList& codec) {
        return media::encode(media::crossingBox(16, 6, 10) + codec +
                             QStringList{recordings.filePath(name)});
    };
    const QStringList h264 = {"-c:v", "libx264", "-preset", "veryfast", "-g", "40", "-bf", "3"};
    QVERIFY(add("b.mkv", h264));
    QVERIFY(add("c.ts", h264));
    QVERIFY(add("open.mp4", h264 + QStringList{"-x264-params", "open-gop=1"}));
    QVERIFY(add("elementary.264", h264));
    QVERIFY(add("packed.avi", {"-c:v", "mpeg4", "-bf", "2"}));
    QVERIFY(add("program.mpg", {"-c:v", "mpeg2video", "-bf", "2"}));
    QVERIFY(add("whole.avi", {"-c:v", "mjpeg"}));
    QImage picture(32, 24, QImage::Format_ARGB32);
    picture.fill(Qt::red);
    for (int y = 0; y < 16; ++y) {
        for (int x = 0; x < 32; ++x)
            picture.setPixelColor(x, y, Qt::green);
    }
    mask = recordings.filePath("mask.png");
    QVERIFY(picture.save(mask));
}

void TestValues::init() {
    results = std::make_unique<QTemporaryDir>();
}

/// Snapshots go to the folder "pictures", as in every call.
Scan TestValues::scanned(const QStringList& options, const QString& named,
                         const QProcessEnvironment& environment) {
    const ProcessResult result = runProgramIn(
        environment, "kestrova-scan", options + QStringList{"--trace", path("trace"), named});
    Scan scan{result, readFile(path("trace")), {}};
    QDir pictures(path("pictures"));
    for (const QString& name : pictures.entryList(QDir::Files))
        scan.pictures[name] = readFile(pictures.filePath(name));
    pictures.removeRecursively();
    return scan;
}

void TestValues::equalsAFreshScan_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("number");
    // Every fourth set of a larger recording, or all where somebody wants that and waits.
    const bool isPatient = qEnvironmentVariableIsSet("KESTROVA_EVERY_SET");
    int number = 0;
    for (const QString& name : videosIn(footageDirectory()))
        QTest::newRow(qPrintable(QFileInfo(name).fileName()))
            << name << (isPatient ? -1 : number++);
    for (const QString& name : videosIn(recordings.path()) + videosIn(recordingsDirectory())) {
        if (name != mask)
            QTest::newRow(qPrintable(QFileInfo(name).fileName())) << name << -1;
    }
}

void TestValues::equalsAFreshScan() {
    KESTROVA_SAMPLED_ROW();
    QFETCH(QString, name);
    QFETCH(int, number);
    const QList<QStringList> sets = {
        {"--format", "text"},
        {"--format", "jsonl", "--minimum", "2", "--postrecord", "1"},
        {"--format", "csv", "--minimum", "1", "--threshold-motion", "0"},
        {"--format", "jsonl", "--minimum", "2", "--skip", "3"},
        {"--format", "text", "--minimum", "1", "--threshold-value", "10", "--threshold-motion",
         "2"},
        {"--format", "jsonl", "--minimum", "2", "--roi", "20,30,120,90"},
        {"--format", "csv", "--minimum", "2", "--mask", mask},
        {"--format", "jsonl", "--minimum", "2", "--prerecord", "3", "--fps", "12.5"},
        {"--format", "mlt", "--minimum", "2", "--from", "1.5", "--to", "14"},
        {"--format", "m3u", "--minimum", "1", "--merge", "2", "--exclude", "40,30,60,50"}};
    for (int at = 0; at < sets.size(); ++at) {
        if (number >= 0 && (at + number) % 4 != 0)
            continue;
        const QStringList& set = sets[at];
        const QStringList pictures = {"--snapshots", path("pictures")};
        const Scan fresh = scanned(set + pictures, name);
        const QStringList keeping = set + QStringList{"--values", kept()};
        QVERIFY2(scanned(keeping + pictures, name) == fresh, qPrintable(set.join(' ')));
        QCOMPARE(keptFiles().size(), 1);
        const QByteArray values = readFile(keptFile());
        QVERIFY2(scanned(keeping + pictures, name) == fresh, qPrintable(set.join(' ')));
        QCOMPARE(readFile(keptFile()), values);
    }
}

/// Everything that is decided only: the recording cannot even be read.
void TestValues::decidingNeedsNoDecoding() {
    const QStringList keeping = {"--values", kept(), "--format", "jsonl"};
    QCOMPARE(scanned(keeping, video).status, 0);
    const QList<QStringList> sets = {{},
                                     {"--minimum", "1"},
                                     {"--minimum", "2", "--threshold-motion", "0.1"},
                                     {"--minimum", "2", "--prerecord", "2.5"},
                                     {"--minimum", "2", "--postrecord", "3"}};
    for (const QStringList& set : sets) {
        const Scan fresh = scanned(set + QStringList{"--format", "jsonl"}, video);
        const Scan again = scanned(keeping + set, video, faults::readError(video, 0));
        QVERIFY2(again == fresh, again.errors.constData());
    }
}

void TestValues::exportsTheSame() {
    const auto exported = [this](const QStringList& options) {
        const QString folder = path("clips");
        const Scan scan = scanned(someClips + options + QStringList{"--export", folder}, video);
        const QByteArray clip = readFile(folder + "/garden_mp4_0/0000.avi");
        QDir(folder).removeRecursively();
        return QPair<Scan, QByteArray>(scan, clip);
    };
    const auto fresh = exported({});
    QVERIFY(!fresh.second.isEmpty());
    QVERIFY(exported({"--values", kept()}) == fresh);
    QVERIFY(exported({"--values", kept()}) == fresh);
}

void TestValues::changedRecordingIsMeasuredAnew() {
    const QString own = path("own.mp4");
    QVERIFY(QFile::copy(video, own));
    const QStringList keeping = {"--values", kept()};
    scanned(keeping, own);
    const QByteArray values = readFile(keptFile());
    // The same size, another second.
    timespec times[2] = {{1000, 0}, {1000, 500}};
    QCOMPARE(utimensat(AT_FDCWD, qPrintable(own), times, 0), 0);
    QCOMPARE(scanned(keeping, own).errors.count("kestrova-scan:"), 0);
    QVERIFY(readFile(keptFile()).contains("# modified: 1000000000500\n"));
    QCOMPARE(keptFiles().size(), 1);
    QVERIFY(QFile::resize(own, QFileInfo(own).size() + 1));
    QCOMPARE(utimensat(AT_FDCWD, qPrintable(own), times, 0), 0);
    scanned(keeping, own);
    QVERIFY(readFile(keptFile())
                .contains("# bytes: " + QByteArray::number(QFileInfo(own).size()) + '\n'));
}

void TestValues::otherMeasureIsMeasuredAnew() {
    const QStringList keeping = {"--values", kept(), "--format", "jsonl"};
    for (const QStringList& set : QList<QStringList>{{},
                                                     {"--skip", "1"},
                                                     {"--threshold-value", "5"},
                                                     {"--fps", "10"},
                                                     {"--exclude", "0,0,9,9"},
                                                     {"--from", "5"},
                                                     {"--to", "5"},
                                                     {"--roi", "0,0,50,50"},
                                                     {"--roi", "0,0,50,51"},
                                                     {"--mask", mask},
                                                     {}}) {
        const Scan fresh = scanned(someClips + set + QStringList{"--format", "jsonl"}, video);
        const Scan other = scanned(someClips + set + keeping, video);
        QVERIFY2(other == fresh, qPrintable(set.join(' ')));
    }
    QCOMPARE(keptFiles().size(), 1);
}

void TestValues::sameSelectionIsTheSameMask() {
    const auto values = [this](const QString& picture) {
        scanned({"--values", kept(), "--mask", picture}, video);
        return QFileInfo(keptFile()).lastModified();
    };
    QImage picture(mask);
    picture.setPixelColor(0, 0, QColor(200, 1, 7)); // still selected
    QVERIFY(picture.save(path("same.bmp")));
    picture.setPixelColor(0, 0, QColor(200, 0, 7));
    QVERIFY(picture.save(path("other.bmp")));
    const QDateTime first = values(mask);
    QCOMPARE(values(path("same.bmp")), first);
    QVERIFY(values(path("other.bmp")) != first);
}

void TestValues::flawedValuesAreNamedAndReplaced_data() {
    QTest::addColumn<QString>("kind");
    for (const char* kind : {"cut", "edited", "foreign", "newer", "other", "folder", "pipe"})
        QTest::newRow(kind) << kind;
}

void TestValues::flawedValuesAreNamedAndReplaced() {
    QFETCH(QString, kind);
    const QStringList keeping = someClips + QStringList{"--values", kept()};
    const Scan fresh = scanned(keeping, video);
    const QByteArray good = readFile(keptFile());
    const QString name = keptFile();
    QByteArray text = good;
    QVERIFY(QFile::remove(name));
    if (kind == "folder")
        QVERIFY(QDir().mkdir(name));
    else if (kind == "pipe")
        QCOMPARE(mkfifo(qPrintable(name), 0600), 0);
    else if (kind == "cut")
        text.truncate(text.size() / 2);
    else if (kind == "edited")
        text.replace("\n7\t0.28\t", "\n7\t0.28\tmore");
    else if (kind == "foreign")
        text = readFile(video);
    else if (kind == "newer")
        text.replace("values 2\n", "values 3\n");
    else if (kind == "other") {
        text.replace("garden.mp4", "garage.mp4");
        text.truncate(text.lastIndexOf(' ') + 1);
        text += QCryptographicHash::hash(text, QCryptographicHash::Sha256).toHex() + '\n';
    }
    if (kind != "folder" && kind != "pipe")
        QVERIFY(text != good && writeFile(name, text));

    const Scan again = scanned(keeping, video);
    QVERIFY2(
        again.errors.startsWith("kestrova-scan: " + name.toUtf8() + ": not used, measured anew: "),
        again.errors.constData());
    QCOMPARE(again.output, fresh.output);
    QCOMPARE(again.trace, fresh.trace);
    QCOMPARE(again.status, kind == "folder" ? 1 : 0); // nothing can be kept there
    if (kind != "folder")
        QCOMPARE(readFile(name), good);
}

void TestValues::unreadableRecordingsAreNotTriedAgain() {
    const QString noise = path("noise.mp4");
    const QString sound = path("sound.mka");
    const QString single = path("single.avi");
    const QString none = path("none.mkv");
    QVERIFY(writeFile(noise, QByteArray(5000, 'x')));
    QVERIFY(writeFile(none, {}));
    QVERIFY(media::encode({"-f", "lavfi", "-i", "sine=d=1", sound}));
    QVERIFY(media::encodeGrey(single, {media::grey(32, 32, 9)}, 25, {"-c:v", "ffv1"}));
    const QStringList options = {"--format", "jsonl"};
    const QStringList keeping = options + QStringList{"--values", kept()};
    for (const QString& name : {noise, sound, single, none}) {
        const Scan fresh = scanned(options, name);
        QCOMPARE(fresh.status, 3);
        QVERIFY(scanned(keeping, name) == fresh);
        const Scan again = scanned(keeping, name, faults::readError(name, 0));
        QVERIFY2(again == fresh, again.errors.constData());
        const QString values =
            kept() + '/' + QDir(kept()).entryList({QFileInfo(name).fileName() + "-*"}).value(0);
        QCOMPARE(runProgram("kestrova-scan", {values}).status, 3);
        // Until it changes.
        QFile::remove(name);
        QVERIFY(QFile::copy(video, name));
        QCOMPARE(scanned(keeping, name).status, 0);
    }
}

void TestValues::whatTheMachineDidIsNotKept() {
    const QStringList keeping = {"--values", kept()};
    for (const qint64 offset : {qint64(0), QFileInfo(video).size() / 2}) {
        QCOMPARE(scanned(keeping, video, faults::readError(video, offset)).status, 1);
        QCOMPARE(keptFiles(), QStringList());
    }
    QCOMPARE(scanned(keeping, path("missing.mp4")).status, 1);
    QCOMPARE(keptFiles(), QStringList());
}

void TestValues::interruptedScansKeepNothing() {
    HeldTrace trace(path("held"));
    QProcess process;
    process.start(media::programDirectory() + "/kestrova-scan",
                  {"--values", kept(), "--trace", trace.path(), video});
    QTRY_VERIFY_WITH_TIMEOUT(trace.isHolding(), 30000);
    ::kill(pid_t(process.processId()), SIGINT);
    trace.letGo();
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.exitCode(), 130);
    QCOMPARE(keptFiles(), QStringList());
}

void TestValues::pipesAreNotKept() {
    const QString pipe = path("pipe.ts");
    QCOMPARE(mkfifo(qPrintable(pipe), 0600), 0);
    PipeWriter writer(pipe, readFile(recordings.filePath("c.ts")));
    writer.goOn();
    QCOMPARE(scanned({"--values", kept()}, pipe).status, 0);
    QCOMPARE(keptFiles(), QStringList());
}

void TestValues::valuesThatCannotBeWritten_data() {
    QTest::addColumn<QString>("call");
    QTest::addColumn<int>("error");
    QTest::addColumn<int>("room");
    QTest::newRow("full") << "write" << ENOSPC << 0;
    QTest::newRow("fills up") << "write" << ENOSPC << 5000;
    QTest::newRow("no disk") << "fsync" << EIO << 0;
    QTest::newRow("read-only") << "rename" << EROFS << 0;
}

void TestValues::valuesThatCannotBeWritten() {
    QFETCH(QString, call);
    QFETCH(int, error);
    QFETCH(int, room);
    const Scan fresh = scanned(someClips, video);
    const auto environment = faults::callError(qPrintable(call), error, ".values", room);
    const Scan scan = scanned(someClips + QStringList{"--values", kept()}, video, environment);
    QCOMPARE(scan.status, 1);
    QCOMPARE(scan.output, fresh.output);
    QVERIFY2(
        scan.errors.contains(": cannot keep the values: " + qt_error_string(error).toUtf8() + '\n'),
        scan.errors.constData());
    QCOMPARE(keptFiles(), QStringList());
    QVERIFY(writeFile(path("file"), "x"));
    const Scan inFile = scanned(someClips + QStringList{"--values", path("file")}, video);
    QCOMPARE(inFile.status, 1);
    QCOMPARE(inFile.output, fresh.output);
    QVERIFY(inFile.errors.contains(": cannot keep the values: "));
    QCOMPARE(inFile.errors.count(": cannot keep "), 1); // maps can no more be kept
}

void TestValues::killedScansKeepNothingHalf() {
    const QStringList keeping = someClips + QStringList{"--values", kept()};
    const Scan fresh = scanned(someClips, video);
    for (int i = 0; i < 6; ++i) {
        QProcess process;
        process.setProcessChannelMode(QProcess::MergedChannels);
        process.start(media::programDirectory() + "/kestrova-scan",
                      keeping + QStringList{"--trace", path("killed"), video});
        QVERIFY(process.waitForStarted());
        process.waitForFinished(20 + 40 * i); // whatever it is at
        process.kill();
        process.waitForFinished();
        const Scan next = scanned(keeping, video);
        QVERIFY2(next == fresh, next.errors.constData());
        if (i % 2 == 0)
            QDir(kept()).removeRecursively();
    }
}

void TestValues::twoAtOnceDoNoHarm() {
    const QStringList call = someClips + QStringList{"--quiet", "--values", kept(), video};
    QProcess processes[3];
    for (QProcess& process : processes)
        process.start(media::programDirectory() + "/kestrova-scan", call);
    QByteArray output;
    for (QProcess& process : processes) {
        QVERIFY(process.waitForFinished(60000));
        QCOMPARE(process.exitCode(), 0);
        QCOMPARE(process.readAllStandardError(), QByteArray());
        const QByteArray printed = process.readAllStandardOutput();
        QVERIFY(!printed.isEmpty() && (output.isEmpty() || printed == output));
        output = printed;
    }
    QCOMPARE(keptFiles().size(), 1);
    const Scan next = scanned(someClips + QStringList{"--quiet", "--values", kept()}, video,
                              faults::readError(video, 0));
    QCOMPARE(next.output, output);
}

void TestValues::valuesInPlaceOfTheRecording() {
    const QStringList options =
        someClips + QStringList{"--format", "jsonl", "--snapshots", path("pictures")};
    const Scan fresh = scanned(options, video);
    scanned({"--values", kept()}, video);
    QVERIFY(scanned(options, keptFile()) == fresh);
    // A person need not say again how they were measured, but may.
    scanned({"--skip", "2", "--values", kept()}, video);
    const Scan skipped = scanned(options + QStringList{"--skip", "2"}, video);
    QVERIFY(scanned(options + QStringList{"--skip", "2"}, keptFile()) == skipped);
    QVERIFY(scanned(options, keptFile()) == skipped);
}

void TestValues::valuesOfARecordingThatIsGone() {
    const QString own = path("own.mp4");
    QVERIFY(QFile::copy(video, own));
    const Scan fresh = scanned(someClips, own);
    scanned({"--values", kept()}, own);
    QVERIFY(QFile::remove(own));
    QVERIFY(scanned(someClips, keptFile()) == fresh);

    const Scan pictures =
        scanned(someClips + QStringList{"--snapshots", path("pictures")}, keptFile());
    QCOMPARE(pictures.status, 1);
    QCOMPARE(pictures.output, fresh.output);
    QVERIFY2(pictures.errors.contains("kestrova-scan: " + own.toUtf8() +
                                      ": clip #0 has no picture: it is no longer there\n"),
             pictures.errors.constData());
    const Scan clips = scanned(someClips + QStringList{"--export", path("clips")}, keptFile());
    QCOMPARE(clips.status, 1);
    QVERIFY2(clips.errors.contains("kestrova-scan: " + own.toUtf8() +
                                   ": clip #0 is not exported: it is no longer there\n"),
             clips.errors.constData());
}

void TestValues::valuesThatOptionsContradict() {
    scanned({"--values", kept(), "--skip", "1"}, video);
    const QList<QPair<QStringList, QByteArray>> rows = {
        {{"--skip", "2"}, "--skip does not fit its values, which were measured with skip 1"},
        {{"--fps", "10"}, "--fps does not fit its values, which were measured with fps own"},
        {{"--roi", "1,2,3,4"},
         "--roi does not fit its values, which were measured with region whole"},
        {{"--exclude", "1,2,3,4"},
         "--exclude does not fit its values, which were measured with exclude none"},
        {{"--to", "5"}, "--to does not fit its values, which were measured with to end"},
        {{"--quick"}, "--quick does not fit its values, which were measured with pictures all"},
        {{"--mask", mask},
         "--mask does not fit its values, which were measured with region whole"}};
    for (const auto& row : rows) {
        const Scan scan = scanned(row.first + QStringList{"--format", "jsonl"}, keptFile());
        QCOMPARE(scan.status, 1);
        QCOMPARE(scan.errors, "kestrova-scan: " + keptFile().toUtf8() + ": " + row.second + '\n');
        QCOMPARE(jsonLines(scan.output).last()["state"].toString(), QString("failed"));
    }
}

void TestValues::flawedValuesInPlaceOfTheRecording() {
    scanned({"--values", kept()}, video);
    QByteArray text = readFile(keptFile());
    text.chop(100);
    QVERIFY(writeFile(path("cut.values"), text));
    const ProcessResult result =
        runProgram("kestrova-scan", someClips + QStringList{path("cut.values"), video});
    QCOMPARE(result.status, 1);
    QVERIFY2(result.errors.startsWith("kestrova-scan: " + path("cut.values").toUtf8() + ": it "),
             result.errors.constData());
    QCOMPARE(result.output.count("garden.mp4"), 1); // the other one is done
}

/// By those of another recording, which would be looked at in place of the one that is cut.
void TestValues::valuesThatAreReplacedMeanwhile() {
    const QString own = path("own.mp4");
    const QString other = path("other.mp4");
    QVERIFY(QFile::copy(video, own) && QFile::copy(video, other));
    scanned({"--values", kept()}, own);
    const QString named = path("named.values");
    QVERIFY(QFile::rename(keptFile(), named));
    scanned({"--values", kept()}, other);
    HeldTrace trace(path("trace"));
    QProcess process;
    process.start(media::programDirectory() + "/kestrova-scan",
                  someClips + QStringList{"--quiet", "--trace", trace.path(), video, named});
    QTRY_VERIFY_WITH_TIMEOUT(trace.isHolding(), 30000);
    QVERIFY(writeFile(named, readFile(keptFile())));
    trace.letGo();
    QVERIFY(process.waitForFinished(60000));
    QCOMPARE(process.exitCode(), 1);
    QCOMPARE(process.readAllStandardError(),
             "kestrova-scan: " + named.toUtf8() + ": it is of another recording now\n");
    QVERIFY(!process.readAllStandardOutput().contains(own.toUtf8()));
}

void TestValues::traceNeverOverwritesTheRecordingOfValues() {
    const QString own = path("own.mp4");
    QVERIFY(QFile::copy(video, own));
    scanned({"--values", kept()}, own);
    const ProcessResult result = runProgram("kestrova-scan", {"--trace", own, keptFile()});
    QCOMPARE(result.status, 2);
    QVERIFY2(result.errors.contains("--trace would overwrite the video '" + own.toUtf8()),
             result.errors.constData());
    QCOMPARE(readFile(own), readFile(video));
}

QTEST_GUILESS_MAIN(TestValues)
#include "test_values.moc"
