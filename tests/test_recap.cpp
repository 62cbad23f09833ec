// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

// The film of all clips: what it shows, and what is left where it cannot be written.

#include "clipprobe.h"
#include "encoderstand.h"
#include "faults.h"
#include "files.h"
#include "media.h"
#include "probe.h"
#include "process.h"
#include "scannerstand.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include <csignal>
#include <memory>

namespace {

const QStringList quietly = QStringList{"--quiet"} + oneClip;

/// Seconds of all clips that are printed, each from the whole second before it.
double secondsOf(const QByteArray& output) {
    double seconds = 0.0;
    for (const QJsonObject& line : jsonLines(output)) {
        if (!line.contains("state"))
            seconds += line["end"].toDouble() - int(line["start"].toDouble());
    }
    return seconds;
}

} // namespace

class TestRecap : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void allClipsInOneFilm_data();
    void allClipsInOneFilm();
    void asFastAsIsAsked();
    void sizesAreOne();
    void theClockIsWritten();
    void recordingsWithoutTimes();
    void onlyTheChosenInTheirOrder();
    void noClipsNoFilm();
    void memoryStaysTheSame();

    void missingEncoder();
    void encoderThatWritesNothing();
    void encoderThatFails_data();
    void encoderThatFails();
    void fullDisk();
    void recordingThatIsGone();
    void interrupted();
    void folderThatIsNotThere();
    void whatIsReadIsNotReplaced();

private:
    ProcessResult scan(const QStringList& arguments);
    QString path(const QString& name) const { return results->filePath(name); }
    QStringList left() const {
        return QDir(results->path()).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    }

    ScannerStand scanner;
    QTemporaryDir recordings;
    QString small; ///< 160x120, one clip
    QString large; ///< 320x180, one clip
    std::unique_ptr<QTemporaryDir> results;
    std::unique_ptr<EncoderStand> encoder;
    QProcessEnvironment environment;
};

void TestRecap::initTestCase() {
    small = recordings.filePath("small.mp4");
    QVERIFY(encodeVisit(small));
    large = recordings.filePath("large.mkv");
    QVERIFY(media::encode(media::crossingBox(16, 5, 9, "320x180") +
                          QStringList{"-c:v", "libx264", "-preset", "ultrafast", large}));
}

void TestRecap::init() {
    results = std::make_unique<QTemporaryDir>();
    encoder = std::make_unique<EncoderStand>();
    encoder->useRealEncoder();
    environment = QProcessEnvironment::systemEnvironment();
}

void TestRecap::cleanup() {
    encoder.reset();
}

ProcessResult TestRecap::scan(const QStringList& arguments) {
    return runProgramIn(environment, ScannerStand::path(), quietly + arguments);
}

void TestRecap::allClipsInOneFilm_data() {
    QTest::addColumn<QString>("name");
    QTest::newRow("avi") << "film.avi";
    QTest::newRow("mp4") << "film.mp4";
    QTest::newRow("mkv, in capitals") << "film.MKV";
}

void TestRecap::allClipsInOneFilm() {
    QFETCH(QString, name);
    QVERIFY(writeFile(path(name), "an older film"));
    const ProcessResult result =
        scan({"--format", "jsonl", "--jobs", "2", "--recap", path(name), small, small});
    QVERIFY2(result.status == 0 && result.errors.isEmpty(), result.errors.constData());
    QCOMPARE(left(), QStringList{name});
    const ClipProbe film = probeClip(path(name));
    QVERIFY(film.isPlayable);
    QVERIFY(!film.hasSound);
    const double seconds = secondsOf(result.output);
    QVERIFY(seconds > 10.0);
    QVERIFY2(qAbs(film.seconds - seconds) < 0.2, qPrintable(QString::number(film.seconds)));
    QCOMPARE(qAbs(film.pictures - seconds * 25.0) < 4.0, true);
}

void TestRecap::asFastAsIsAsked() {
    const ProcessResult result = scan(
        {"--format", "jsonl", "--recap", path("film.mp4"), "--recap-speed", "4", small, large});
    QCOMPARE(result.status, 0);
    const double seconds = secondsOf(result.output) / 4.0;
    const ClipProbe film = probeClip(path("film.mp4"));
    QVERIFY2(qAbs(film.seconds - seconds) < 0.2, qPrintable(QString::number(film.seconds)));
    QCOMPARE(qAbs(film.pictures - seconds * 25.0) < 4.0, true);
}

/// The most frequent one; what has another shape stands between black bars.
void TestRecap::sizesAreOne() {
    QCOMPARE(scan({"--recap", path("film.mkv"), large, small, small}).status, 0);
    const media::ProbedVideo film = media::probe(path("film.mkv"));
    QCOMPARE(QSize(film.width, film.height), QSize(160, 120));
    const QImage picture = firstPicture(path("film.mkv")); // 16:9 in 4:3: 15 rows above and below
    QCOMPARE(picture.size(), QSize(160, 120));
    QVERIFY(qGray(picture.pixel(80, 6)) < 24);
    QVERIFY(qGray(picture.pixel(80, 113)) < 24);
    QVERIFY(qGray(picture.pixel(80, 24)) > 40);
}

void TestRecap::theClockIsWritten() {
    QCOMPARE(scan({"--recap", path("plain.mp4"), large}).status, 0);
    QVERIFY(!hasOverlay(firstPicture(path("plain.mp4"))));
    QCOMPARE(
        scan({"--recap", path("timed.mp4"), "--start-time", "2026-11-16T09:05:00", large}).status,
        0);
    QVERIFY(hasOverlay(firstPicture(path("timed.mp4"))));
}

void TestRecap::recordingsWithoutTimes() {
    const QString raw = recordings.filePath("raw.h264");
    QVERIFY(media::encode({"-i", small, "-c", "copy", "-f", "h264", raw}));
    const ProcessResult result =
        scan({"--format", "jsonl", "--recap", path("film.mp4"), "--fps", "25", raw});
    QVERIFY2(result.status == 0, result.errors.constData());
    const ClipProbe film = probeClip(path("film.mp4"));
    QVERIFY2(qAbs(film.seconds - secondsOf(result.output)) < 0.2,
             qPrintable(QString::number(film.seconds)));
}

void TestRecap::onlyTheChosenInTheirOrder() {
    const ProcessResult result = scan({"--format", "jsonl", "--sort", "length", "--top", "1",
                                       "--recap", path("film.mp4"), small, large});
    QCOMPARE(result.status, 0);
    QVERIFY(qAbs(probeClip(path("film.mp4")).seconds - secondsOf(result.output)) < 0.2);
    const media::ProbedVideo film = media::probe(path("film.mp4"));
    QCOMPARE(film.width, result.output.contains("small.mp4\",\"index") ? 160 : 320);
}

void TestRecap::noClipsNoFilm() {
    QVERIFY(writeFile(path("film.mp4"), "an older film"));
    const ProcessResult result = runProgram(
        ScannerStand::path(), {"--min-length", "1000", "--recap", path("film.mp4"), small});
    QCOMPARE(result.status, 0);
    QVERIFY2(result.errors.contains("film.mp4: there is no clip to be shown\n"),
             result.errors.constData());
    QCOMPARE(readFile(path("film.mp4")), QByteArray("an older film"));
}

/// The most that the scanner and its encoders ever held, for one clip and for twelve.
void TestRecap::memoryStaysTheSame() {
#ifdef __SANITIZE_ADDRESS__
    QSKIP("the address sanitizer keeps what was freed");
#endif
    const auto most = [&](int copies) -> qint64 {
        QStringList arguments = {"-f", "%M", "-o", path("most"), ScannerStand::path()};
        arguments += quietly + QStringList{"--recap", path("film.mp4"), "--recap-speed", "32"};
        for (int i = 0; i < copies; ++i)
            arguments += small;
        QProcess process;
        process.start("/usr/bin/time", arguments);
        if (!process.waitForStarted())
            return -1;
        if (endOf(process).status != 0)
            return -2;
        return readFile(path("most")).trimmed().toLongLong();
    };
    const qint64 one = most(1);
    if (one == -1)
        QSKIP("there is no /usr/bin/time");
    const qint64 many = most(12);
    QVERIFY2(one > 0 && many > 0 && many < one + 20000,
             qPrintable(QStringLiteral("%1 kB, %2 kB").arg(one).arg(many)));
}

void TestRecap::missingEncoder() {
    encoder->useNone();
    const ProcessResult result = scan({"--recap", path("film.mp4"), small});
    QCOMPARE(result.status, 1);
    QVERIFY2(
        result.errors.contains("film.mp4: cannot write the recap: the encoder cannot be started: "),
        result.errors.constData());
    QVERIFY(left().isEmpty());
    QVERIFY(!result.output.isEmpty()); // the clips are told of all the same
}

void TestRecap::encoderThatWritesNothing() {
    encoder->useScript("exit 0");
    QVERIFY(writeFile(path("film.mp4"), "an older film"));
    const ProcessResult result = scan({"--recap", path("film.mp4"), small});
    QCOMPARE(result.status, 1);
    QVERIFY2(result.errors.contains("film.mp4: cannot write the recap: "),
             result.errors.constData());
    QCOMPARE(left(), QStringList{"film.mp4"});
    QCOMPARE(readFile(path("film.mp4")), QByteArray("an older film"));
}

void TestRecap::encoderThatFails_data() {
    QTest::addColumn<QByteArray>("script");
    QTest::addColumn<QByteArray>("error");
    // The clip's pictures never end by themselves.
    const QByteArray film = "for last; do :; done\n[ \"$last\" = pipe:1 ] && exec yes\n";
    const QByteArray noFilm = "film.mp4: cannot write the recap: the encoder ";
    QTest::newRow("at once") << film + "echo 'Unknown encoder' >&2; exit 1\n"
                             << noFilm + "failed: Unknown encoder\n";
    QTest::newRow("by a signal") << film + "kill -SEGV $$\n" << noFilm + "crashed\n";
    QTest::newRow("in the middle of the film")
        << film + "head -c 1000000 >\"$last\"; echo 'No space left on device' >&2; exit 1\n"
        << noFilm + "failed: No space left on device\n";
    QTest::newRow("for the clip alone")
        << QByteArray("for last; do :; done\n"
                      "[ \"$last\" = pipe:1 ] && { echo 'Invalid data' >&2; exit 1; }\n"
                      "cat >\"$last\"\n")
        << QByteArray("clip #0 is not, or not as a whole, in the recap: the encoder failed: "
                      "Invalid data\n");
}

void TestRecap::encoderThatFails() {
    QFETCH(QByteArray, script);
    QFETCH(QByteArray, error);
    encoder->useScript(script);
    const ProcessResult result = scan({"--recap", path("film.mp4"), small});
    QCOMPARE(result.status, 1);
    QVERIFY2(result.errors.contains(error), result.errors.constData());
    QVERIFY(left().isEmpty());
}

void TestRecap::fullDisk() {
    environment = faults::callError("write", ENOSPC, "/film.mp4");
    const ProcessResult result = scan({"--recap", path("film.mp4"), small});
    QCOMPARE(result.status, 1);
    QVERIFY2(result.errors.contains("film.mp4: cannot write the recap: the encoder ") &&
                 result.errors.contains("No space left on device"),
             result.errors.constData());
    QVERIFY(left().isEmpty());
}

void TestRecap::recordingThatIsGone() {
    const QString going = path("going.mp4");
    QVERIFY(QFile::copy(small, going));
    QProcess process;
    const QString fifo = path("clips");
    QCOMPARE(QProcess::execute("mkfifo", {fifo}), 0);
    // The last recording waits for its bytes until the first one is gone.
    process.start(ScannerStand::path(),
                  quietly + QStringList{"--recap", path("film.mp4"), large, going, fifo});
    QByteArray output;
    while (!output.contains("going.mp4") && process.waitForReadyRead(60000))
        output += process.readAllStandardOutput();
    QVERIFY(output.contains("going.mp4"));
    QVERIFY(QFile::remove(going));
    QVERIFY(writeFile(fifo, "no recording"));
    const ProcessResult result = endOf(process);
    QCOMPARE(result.status, 1);
    QVERIFY2(result.errors.contains("going.mp4: clip #0 is not, or not as a whole, in the recap: "
                                    "it is no longer there\n"),
             result.errors.constData());
    QVERIFY(probeClip(path("film.mp4")).isPlayable); // the other one is in it
}

void TestRecap::interrupted() {
    encoder->useScript("for last; do :; done\n"
                       "[ \"$last\" = pipe:1 ] && exec sleep 60\n"
                       "echo begun >\"$last\"; cat >>\"$last\"\n");
    QProcess process;
    process.start(ScannerStand::path(), quietly + QStringList{"--recap", path("film.mp4"), small});
    QTRY_VERIFY_WITH_TIMEOUT(!left().isEmpty() && QFileInfo(path(left()[0])).size() > 0, 60000);
    QElapsedTimer sinceAsked;
    sinceAsked.start();
    kill(pid_t(process.processId()), SIGINT);
    const ProcessResult result = endOf(process);
    QCOMPARE(result.status, 130);
    QVERIFY(sinceAsked.elapsed() < 20000);
    QVERIFY2(result.errors.contains("film.mp4: cannot write the recap: interrupted\n"),
             result.errors.constData());
    QVERIFY(left().isEmpty());
}

void TestRecap::folderThatIsNotThere() {
    const ProcessResult result = scan({"--recap", path("none/film.mp4"), small});
    QCOMPARE(result.status, 2); // before anything is searched
    QVERIFY(result.output.isEmpty());
    QVERIFY2(result.errors.contains("cannot write the recap: No such file or directory\n"),
             result.errors.constData());
    QVERIFY(QDir().mkpath(path("folder.mp4")));
    QVERIFY(scan({"--recap", path("folder.mp4"), small})
                .errors.contains("cannot write the recap: it is a folder\n"));
}

void TestRecap::whatIsReadIsNotReplaced() {
    const QByteArray before = readFile(small);
    for (const QString& name :
         {small, recordings.filePath("../" + recordings.path().section('/', -1) + "/small.mp4")}) {
        const ProcessResult result = scan({"--recap", name, recordings.path()});
        QCOMPARE(result.status, 2);
        QVERIFY2(result.errors.contains("--recap would overwrite the video '"),
                 result.errors.constData());
    }
    QCOMPARE(readFile(small), before);
    QVERIFY(scan({"--recap", path("film.gif"), small})
                .errors.contains("--recap takes a name that ends in .avi, .mp4 or .mkv, not '"));
}

QTEST_MAIN(TestRecap)
#include "test_recap.moc"
