// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

// The scanner's export, as a person or a script calls it.

#include "clipprobe.h"
#include "encoderstand.h"
#include "files.h"
#include "heldtrace.h"
#include "media.h"
#include "process.h"
#include "scannerstand.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include <array>
#include <fcntl.h>
#include <sys/stat.h>

#include <csignal>
#include <limits>
#include <unistd.h>

namespace {

/// Makes it a file of a machine whose clock was never set.
bool forgetTime(const QString& file) {
    const std::array<timespec, 2> times = {};
    return utimensat(AT_FDCWD, QFile::encodeName(file).constData(), times.data(), 0) == 0;
}

/// The one of the `times` (like "09:05:04") that stands in the overlay: the one that it looks most
/// like when it is drawn by itself.
QString writtenTime(const QImage& picture, const QStringList& times) {
    const QRect overlay(10, 8, 300, 18);
    QTemporaryDir folder;
    QString best;
    qint64 least = std::numeric_limits<qint64>::max();
    for (const QString& time : times) {
        const QString text =
            QStringLiteral("drawtext=fontfile=%1/DejaVuSansMono.ttf:x=10:y=10:fontcolor=white:"
                           "text='Mon Nov 16 2026  %2.000'")
                .arg(media::programDirectory(), QString(time).replace(":", "\\:"));
        const QString drawn = folder.filePath("drawn.png");
        if (!media::encode({"-f", "lavfi", "-i", "color=black:s=480x120", "-vf", text, "-frames:v",
                            "1", drawn}))
            return "cannot draw";
        const QImage other(drawn);
        qint64 difference = 0;
        for (int y = overlay.top(); y <= overlay.bottom(); ++y) {
            for (int x = overlay.left(); x <= overlay.right(); ++x)
                difference += qAbs(qGray(picture.pixel(x, y)) - qGray(other.pixel(x, y)));
        }
        if (difference < least)
            best = time;
        least = qMin(least, difference);
    }
    return best;
}

} // namespace

class TestScanExport : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void exportsEachClip();
    void relativeFolderIsOfTheCaller();
    void everyRecordingGetsItsOwnFolder();
    void foldersAreNamedInOrder_data();
    void foldersAreNamedInOrder();
    void recordingsWithoutClipsGetNoFolder();
    void folderThatIsTakenMeanwhile();
    void namesOfAnyBytes();
    void longestNames();
    void defaultsReachTheEncoder();
    void optionsReachTheEncoder();
    void intraCodedRecording();
    void startTimeIsTheClockOnTheWall_data();
    void startTimeIsTheClockOnTheWall();
    void givenStartIsThatOfTheFirst();
    void ownStartsAreWritten();
    void clockOfAClipIsThatOfItsTime_data();
    void clockOfAClipIsThatOfItsTime();
    void overlayIsWritten();
    void writtenTimeIsTheClock_data();
    void writtenTimeIsTheClock();
    void csvHasColumnsForIt();
    void textNamesTheFile();
    void withoutExportNothingIsMade();

    void failedEncoderIsNamed();
    void crashedEncoderIsNamed();
    void missingEncoderIsNamed();
    void interruptEndsTheEncoder();
    void recordingsAreExportedSideBySide();
    void usageErrors_data();
    void usageErrors();

private:
    ProcessResult scan(const QStringList& arguments) const;
    QStringList argumentsOf(const QStringList& options);
    QString path(const QString& name) const { return clips->filePath(name); }

    ScannerStand scanner;
    QTemporaryDir recordings;
    QString recording; ///< 20 s; a box crosses from second 7 to second 13
    std::unique_ptr<QTemporaryDir> clips;
    std::unique_ptr<EncoderStand> encoder;
};

void TestScanExport::initTestCase() {
    recording = recordings.filePath("garden.mp4");
    QVERIFY(encodeVisit(recording));
}

void TestScanExport::init() {
    clips = std::make_unique<QTemporaryDir>();
    encoder = std::make_unique<EncoderStand>();
}

void TestScanExport::cleanup() {
    encoder.reset();
    clips.reset();
}

ProcessResult TestScanExport::scan(const QStringList& arguments) const {
    QProcess process;
    process.setWorkingDirectory(recordings.path());
    process.start(ScannerStand::path(), oneClip + arguments);
    return endOf(process);
}

/// The encoder's arguments behind "-t" and its value.
QStringList TestScanExport::argumentsOf(const QStringList& options) {
    if (scan(QStringList{"--quiet", "--export", clips->path()} + options).status != 0)
        return {};
    const QStringList call = encoder->calls().value(0);
    return call.mid(call.indexOf("-t") + 2);
}

void TestScanExport::exportsEachClip() {
    encoder->useRealEncoder();
    const ProcessResult result =
        scan({"--export", path("new/folder"), "--format", "jsonl", "garden.mp4"});
    QCOMPARE(result.status, 0);
    const QList<QJsonObject> lines = jsonLines(result.output);
    QCOMPARE(lines.size(), 2);
    QCOMPARE(lines[0]["video"].toString(), QString("garden.mp4"));
    QCOMPARE(lines[0]["file"].toString(), path("new/folder/garden_mp4_0/0000.avi"));
    QCOMPARE(lines[0]["exported"].toBool(), true);
    QVERIFY(!lines[1].contains("exported"));
    const ClipProbe probe = probeClip(lines[0]["file"].toString());
    QVERIFY(probe.isPlayable);
    const int length = int(lines[0]["end"].toDouble() - lines[0]["start"].toDouble());
    QVERIFY2(probe.seconds > length - 0.1 && probe.seconds < length + 1.1,
             qPrintable(QString::number(probe.seconds)));
}

void TestScanExport::relativeFolderIsOfTheCaller() {
    encoder->useRealEncoder(); // which runs elsewhere
    const ProcessResult result = scan({"--export", "relative", "--format", "jsonl", "garden.mp4"});
    QCOMPARE(result.status, 0);
    const QString file = recordings.filePath("relative/garden_mp4_0/0000.avi");
    QCOMPARE(jsonLines(result.output)[0]["file"].toString(), file);
    QVERIFY(QFileInfo(file).size() > 0);
    QVERIFY(QDir(recordings.filePath("relative")).removeRecursively());
}

void TestScanExport::everyRecordingGetsItsOwnFolder() {
    QVERIFY(scan({"--export", clips->path(), recording, recording}).status == 0);
    QVERIFY(scan({"--export", clips->path(), recording}).status == 0);
    QCOMPARE(QDir(clips->path()).entryList(QDir::Dirs | QDir::NoDotAndDotDot),
             QStringList({"garden_mp4_0", "garden_mp4_1", "garden_mp4_2"}));
    QCOMPARE(encoder->calls().size(), 3);
}

void TestScanExport::foldersAreNamedInOrder_data() {
    QTest::addColumn<QString>("jobs");
    QTest::newRow("one after another") << "1";
    QTest::newRow("side by side") << "4";
}

void TestScanExport::foldersAreNamedInOrder() {
    QFETCH(QString, jobs);
    QVERIFY(QDir(clips->path()).mkdir("garden_mp4_1"));
    const ProcessResult result =
        scan({"--export", clips->path(), "--format", "jsonl", "--jobs", jobs, recording,
              path("missing/garden.mp4"), recording, recording});
    QCOMPARE(result.status, 1);
    QStringList files;
    for (const QJsonObject& line : jsonLines(result.output)) {
        if (line.contains("file"))
            files.append(line["file"].toString());
    }
    QCOMPARE(files, QStringList({path("garden_mp4_0/0000.avi"), path("garden_mp4_3/0000.avi"),
                                 path("garden_mp4_4/0000.avi")}));
    QVERIFY(!QFileInfo::exists(path("garden_mp4_2"))); // of the one that is missing
}

void TestScanExport::recordingsWithoutClipsGetNoFolder() {
    const ProcessResult result = scan({"--export", path("out"), "--minimum", "20", recording,
                                       path("missing.mp4"), recordings.path()});
    QCOMPARE(result.status, 1);
    QCOMPARE(result.output, QByteArray());
    QVERIFY(QFileInfo(path("out")).isDir());
    QVERIFY(QDir(path("out")).isEmpty());
}

void TestScanExport::folderThatIsTakenMeanwhile() {
    HeldTrace trace(path("trace"));
    QProcess process;
    process.start(ScannerStand::path(),
                  oneClip + QStringList{"--export", path("out"), "--format", "jsonl", "--trace",
                                        trace.path(), recording, recording});
    QTRY_VERIFY(trace.isHolding());
    QVERIFY(QDir(path("out")).mkdir("garden_mp4_0"));
    trace.letGo();
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.exitCode(), 0);
    const QList<QJsonObject> lines = jsonLines(process.readAllStandardOutput());
    QCOMPARE(lines[0]["file"].toString(), path("out/garden_mp4_2/0000.avi"));
    QCOMPARE(lines[2]["file"].toString(), path("out/garden_mp4_1/0000.avi"));
    QVERIFY(QDir(path("out/garden_mp4_0")).isEmpty());
}

void TestScanExport::namesOfAnyBytes() {
    encoder->useRealEncoder();
    const QByteArray name = recordings.path().toUtf8() + "/caf\xe9\n\x1b.mp4";
    const QByteArray out = clips->path().toUtf8() + "/out \xff";
    QVERIFY(link(recording.toUtf8().constData(), name.constData()) == 0);
    QVERIFY(qputenv("NAME", name) && qputenv("OUT", out));
    QProcess process;
    process.start("/bin/sh",
                  QStringList{"-c", "exec \"$0\" \"$@\" --export \"$OUT\" \"$NAME\"",
                              ScannerStand::path(), "--start-time", "2026-11-16T09:05:00"} +
                      oneClip);
    QVERIFY(process.waitForFinished());
    unlink(name.constData());
    QCOMPARE(process.exitCode(), 0);
    QVERIFY(
        process.readAllStandardOutput().endsWith("  " + out + "/caf\xe9\\n\\x1b_mp4_0/0000.avi\n"));
    QVERIFY(access(QByteArray(out + "/caf\xe9\n\x1b_mp4_0/0000.avi").constData(), R_OK) == 0);
}

void TestScanExport::longestNames() {
    encoder->useRealEncoder();
    const QString name = recordings.filePath(QString(251, 'a') + ".mp4");
    QVERIFY(QFile::copy(recording, name));
    const ProcessResult result = scan({"--export", clips->path(), "--format", "jsonl", name, name});
    QVERIFY2(result.status == 0, result.errors.constData());
    QCOMPARE(QDir(clips->path()).entryList(QDir::Dirs | QDir::NoDotAndDotDot).size(), 2);
    QVERIFY(QFile::remove(name));
}

void TestScanExport::defaultsReachTheEncoder() {
    QCOMPARE(argumentsOf({"garden.mp4"}),
             QStringList({"-vcodec", "copy", "-acodec", "copy", "-avoid_negative_ts", "disabled",
                          path("garden_mp4_0/0000.avi")}));
    // The encoder runs elsewhere, so a relative path would not be found.
    QCOMPARE(encoder->calls()[0].mid(0, 10),
             QStringList({"-nostats", "-y", "-ss", "4", "-protocol_whitelist", "file", "-f", "mov",
                          "-i", recording}));
}

void TestScanExport::optionsReachTheEncoder() {
    QCOMPARE(argumentsOf({"--container", "mkv", "--transcode", "--bitrate", "0.5", "--no-audio",
                          recording}),
             QStringList({"-b:v", "524288", "-an", "-avoid_negative_ts", "disabled",
                          path("garden_mp4_0/0000.mkv")}));
}

void TestScanExport::intraCodedRecording() {
    const QString intraCoded = recordings.filePath("garden.avi");
    QVERIFY(media::encode({"-i", recording, "-c:v", "mjpeg", intraCoded}));
    QCOMPARE(argumentsOf({"--container", "mp4", intraCoded}),
             QStringList({"-b:v", "2097152", "-acodec", "copy", "-avoid_negative_ts", "disabled",
                          path("garden_avi_0/0000.mp4")}));
    QCOMPARE(encoder->calls()[0].mid(0, 10),
             QStringList({"-nostats", "-y", "-protocol_whitelist", "file", "-f", "avi", "-i",
                          intraCoded, "-ss", "4"}));
}

void TestScanExport::startTimeIsTheClockOnTheWall_data() {
    QTest::addColumn<QString>("startTime");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<QByteArray>("zone");
    const QString shown = "Mon Nov 16 2026 %{pts\\:hms\\:32704}";
    QTest::newRow("local") << "2026-11-16T09:05:00" << shown << QByteArray("UTC");
    QTest::newRow("in Japan") << "2026-11-16T09:05:00" << shown << QByteArray("Asia/Tokyo");
    QTest::newRow("with a fraction") << "2026-11-16T09:05:00.250" << shown << QByteArray("UTC");
    QTest::newRow("that this machine's clock leaves out")
        << "2026-03-29T02:30:00"
        << "Sun Mar 29 2026 %{pts\\:hms\\:9004}" << QByteArray("Europe/Berlin");
    QTest::newRow("midnight that it leaves out")
        << "2018-11-04"
        << "Sun Nov 4 2018 %{pts\\:hms\\:4}" << QByteArray("America/Sao_Paulo");
}

void TestScanExport::startTimeIsTheClockOnTheWall() {
    QFETCH(QString, startTime);
    QFETCH(QString, shown);
    QFETCH(QByteArray, zone);
    // Clocks were put forward in that very hour, and at that very midnight.
    qputenv("TZ", zone);
    // The clip starts in second 4 of the recording: 9:05:04 is second 32704 of the day.
    const QStringList arguments = argumentsOf({"--start-time", startTime, recording});
    qunsetenv("TZ");
    QCOMPARE(arguments.mid(0, 2),
             QStringList({"-vf", "drawtext=fontfile=DejaVuSansMono.ttf:text='" + shown +
                                     "':x=10:y=10:fontcolor=white:box=1:"
                                     "boxborderw=3:boxcolor=0x00000000@1"}));
}

void TestScanExport::givenStartIsThatOfTheFirst() {
    const QString copy = path("later.mp4");
    QVERIFY(QFile::copy(recording, copy));
    QCOMPARE(
        scan({"--export", clips->path(), "--start-time", "2026-11-16T09:05:00", recording, copy})
            .status,
        0);
    const QList<QStringList> calls = encoder->calls();
    QCOMPARE(calls.size(), 2);
    QVERIFY(calls[0].contains("-vf"));
    QVERIFY(!calls[1].contains("-vf"));
    QVERIFY(calls[1].contains("copy"));
}

void TestScanExport::ownStartsAreWritten() {
    const QString folder = path("named");
    QVERIFY(QDir().mkpath(folder));
    const QString winter = folder + "/20261122_090500.mp4";
    const QString missing = folder + "/2026-03-29 02-30-00.mp4";
    const QString ambiguous = folder + "/01-02-2026_09-05-00.mp4";
    for (const QString& name : {winter, missing, ambiguous})
        QVERIFY(QFile::copy(recording, name));
    QVERIFY(forgetTime(ambiguous));
    const ProcessResult result = scan({"--export", clips->path(), "--start-time", "auto",
                                       "--time-zone", "Europe/Berlin", winter, missing, ambiguous});
    QVERIFY2(result.status == 0, result.errors.constData());
    const QList<QStringList> calls = encoder->calls();
    QCOMPARE(calls.size(), 3);
    // The clip starts in second 4: 9:05:04, and 3:30:04, since the clock was put forward.
    QVERIFY(calls[0].join(' ').contains("text='Sun Nov 22 2026 %{pts\\:hms\\:32704}'"));
    QVERIFY(calls[1].join(' ').contains("text='Sun Mar 29 2026 %{pts\\:hms\\:12604}'"));
    QVERIFY(!calls[2].contains("-vf"));
    QVERIFY(result.errors.contains("the clock was put forward over that hour"));
    QVERIFY(result.errors.contains("it is not known when it began; the day in its name"));
}

void TestScanExport::clockOfAClipIsThatOfItsTime_data() {
    QTest::addColumn<QString>("start");
    QTest::addColumn<QString>("shown");
    // The clip starts in second 4, when the clock has been put forward to 3:00 or back to 2:00.
    QTest::newRow("put forward") << "2026-03-29T01:59:58"
                                 << "Sun Mar 29 2026 %{pts\\:hms\\:10802}";
    QTest::newRow("put back") << "2026-10-25T02:59:58"
                              << "Sun Oct 25 2026 %{pts\\:hms\\:7202}";
    QTest::newRow("midnight") << "2026-11-16T23:59:58"
                              << "Tue Nov 17 2026 %{pts\\:hms\\:2}";
}

void TestScanExport::clockOfAClipIsThatOfItsTime() {
    QFETCH(QString, start);
    QFETCH(QString, shown);
    const QStringList arguments =
        argumentsOf({"--start-time", start, "--time-zone", "Europe/Berlin", recording});
    QVERIFY2(arguments.join(' ').contains("text='" + shown + "'"), qPrintable(arguments.join(' ')));
}

void TestScanExport::overlayIsWritten() {
    encoder->useRealEncoder();
    const ProcessResult result = scan({"--export", clips->path(), "--start-time",
                                       "2026-11-16T09:05:00", "--container", "mp4", recording});
    QVERIFY2(result.status == 0, result.errors.constData());
    QVERIFY(hasOverlay(firstPicture(path("garden_mp4_0/0000.mp4"))));
    QVERIFY(!hasOverlay(firstPicture(recording)));
}

void TestScanExport::writtenTimeIsTheClock_data() {
    QTest::addColumn<QStringList>("codec");
    QTest::addColumn<QString>("startTime");
    QTest::addColumn<QString>("shown"); // second 4 of the recording, where the clip starts
    const QStringList intra = {"-c:v", "mjpeg", "-q:v", "3"};
    const QStringList inter = {"-c:v", "mpeg4", "-q:v", "3", "-g", "25"};
    QTest::newRow("intra-coded") << intra << "2026-11-16T09:05:00"
                                 << "09:05:04";
    QTest::newRow("intra-coded, midnight") << intra << "2026-11-16T23:59:58"
                                           << "00:00:02";
    QTest::newRow("other") << inter << "2026-11-16T09:05:00"
                           << "09:05:04";
    QTest::newRow("other, midnight") << inter << "2026-11-16T23:59:58"
                                     << "00:00:02";
}

void TestScanExport::writtenTimeIsTheClock() {
    QFETCH(QStringList, codec);
    QFETCH(QString, startTime);
    QFETCH(QString, shown);
    encoder->useRealEncoder();
    const QString wide = path("wide.avi");
    QVERIFY(media::encode(media::crossingBox(20, 7, 13, "480x120") + codec + QStringList{wide}));
    const ProcessResult result =
        scan({"--export", clips->path(), "--start-time", startTime, "--container", "mp4", wide});
    QVERIFY2(result.status == 0, result.errors.constData());
    QStringList times;
    for (int second = 0; second < 12; ++second)
        times.append(shown.left(6) + QStringLiteral("%1").arg(second, 2, 10, QLatin1Char('0')));
    QCOMPARE(writtenTime(firstPicture(path("wide_avi_0/0000.mp4")), times), shown);
}

void TestScanExport::csvHasColumnsForIt() {
    const QList<QByteArray> lines =
        scan({"--export", clips->path(), "--format", "csv", recording}).output.split('\n');
    QCOMPARE(lines[0], QByteArray("video,index,start,end,snapshotTime,snapshot,file,exported\r"));
    QVERIFY2(lines[1].endsWith("," + path("garden_mp4_0/0000.avi").toUtf8() + ",true\r"),
             lines[1].constData());
}

void TestScanExport::textNamesTheFile() {
    const ProcessResult result = scan({"--export", clips->path(), recording});
    QVERIFY(result.output.endsWith("  " + path("garden_mp4_0/0000.avi").toUtf8() + "\n"));
}

void TestScanExport::withoutExportNothingIsMade() {
    QVERIFY(scan({recording}).status == 0);
    QVERIFY(encoder->calls().isEmpty());
    QVERIFY(QDir(recordings.path()).entryList(QDir::Dirs | QDir::NoDotAndDotDot).isEmpty());
}

void TestScanExport::failedEncoderIsNamed() {
    encoder->setEnd("1");
    const ProcessResult failed =
        scan({"--export", clips->path(), "--format", "jsonl", recording, recording});
    QCOMPARE(failed.status, 1);
    const QList<QJsonObject> lines = jsonLines(failed.output);
    QCOMPARE(lines.size(), 4);
    QCOMPARE(lines[0]["file"].toString(), path("garden_mp4_0/0000.avi"));
    QVERIFY(!lines[0]["exported"].toBool(true));
    QVERIFY(!lines[2]["exported"].toBool(true));
    const QByteArray message = "kestrova-scan: " + path("garden_mp4_0/0000.avi").toUtf8() +
                               ": the encoder failed: told to fail\n";
    QVERIFY2(failed.errors.contains(message), failed.errors.constData());
}

void TestScanExport::crashedEncoderIsNamed() {
    encoder->setEnd("crash");
    const ProcessResult result = scan({"--export", clips->path(), recording});
    QCOMPARE(result.status, 1);
    QVERIFY2(result.errors.contains("0000.avi: the encoder crashed\n"), result.errors.constData());
}

void TestScanExport::missingEncoderIsNamed() {
    encoder->useNone();
    const ProcessResult result = scan({"--export", clips->path(), "--format", "jsonl", recording});
    QCOMPARE(result.status, 1);
    QVERIFY2(result.errors.contains("0000.avi: the encoder cannot be started: "),
             result.errors.constData());
    QVERIFY(!jsonLines(result.output)[0]["exported"].toBool(true));
}

void TestScanExport::interruptEndsTheEncoder() {
    encoder->hold();
    QProcess process;
    process.start(ScannerStand::path(),
                  oneClip + QStringList{"--export", clips->path(), "--format", "jsonl", recording});
    QTRY_COMPARE(encoder->calls().size(), 1);
    QElapsedTimer timer;
    timer.start();
    QCOMPARE(kill(pid_t(process.processId()), SIGTERM), 0);
    QVERIFY(process.waitForFinished());
    QVERIFY(timer.elapsed() < 2500);
    QCOMPARE(process.exitCode(), 130);
    const QJsonObject clip = jsonLines(process.readAllStandardOutput())[0];
    QVERIFY(!clip["exported"].toBool(true));
    QVERIFY(!QFile::exists(path("garden_mp4_0/0000.avi")));
}

/// As many encoders as --jobs says, none of which ends before all have begun.
void TestScanExport::recordingsAreExportedSideBySide() {
    encoder->hold();
    QProcess process;
    process.start(ScannerStand::path(),
                  oneClip + QStringList{"--export", clips->path(), "--format", "jsonl", "--jobs",
                                        "2", recording, recording, recording});
    QTRY_COMPARE_WITH_TIMEOUT(encoder->calls().size(), 2, 30000);
    encoder->release();
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.exitCode(), 0);
    QStringList files;
    for (const QJsonObject& line : jsonLines(process.readAllStandardOutput())) {
        if (line["exported"].toBool())
            files.append(line["file"].toString());
    }
    QCOMPARE(files, QStringList({path("garden_mp4_0/0000.avi"), path("garden_mp4_1/0000.avi"),
                                 path("garden_mp4_2/0000.avi")}));
}

void TestScanExport::usageErrors_data() {
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QByteArray>("message");
    const auto row = [](const QStringList& arguments, const QByteArray& message) {
        QTest::newRow(qPrintable(arguments.join(' '))) << arguments << message;
    };
    for (const char* option : {"--transcode", "--no-audio"})
        row({option}, QByteArray(option) + " needs --export");
    row({"--container", "mp4"}, "--container needs --export");
    row({"--bitrate", "2"}, "--bitrate needs --export");
    row({"--start-time", "2026-11-16T09:05:00"}, "--start-time needs --export");
    row({"--export", ""}, "--export needs a name");
    row({"--export", "out", "--container", "mov"}, "--container takes avi, mp4 or mkv, not 'mov'");
    row({"--export", "out", "--bitrate", "101"}, "--bitrate takes a number from 0 to 100");
    row({"--export", "out", "--bitrate", "nan"}, "--bitrate takes");
    for (const char* zone : {"Z", "+02:00", "-0330", "+01"})
        row({"--export", "out", "--start-time", QStringLiteral("2026-11-16T22:00:00") + zone},
            QByteArray("which has no zone: leave out '") + zone + '\'');
    row({"--export", "out", "--start-time", "noon"}, "--start-time takes a time like");
    row({"--export", "/dev/null/out"}, "/dev/null/out: cannot write into this folder");
}

void TestScanExport::usageErrors() {
    QFETCH(QStringList, arguments);
    QFETCH(QByteArray, message);
    const ProcessResult result = scan(arguments + QStringList{recording});
    QCOMPARE(result.status, 2);
    QVERIFY2(result.errors.contains(message), result.errors.constData());
    QCOMPARE(result.output, QByteArray());
    QVERIFY(!QFile::exists(recordings.filePath("out")));
}

QTEST_GUILESS_MAIN(TestScanExport)
#include "test_scanexport.moc"
