// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

// The scanner where something cannot be written: what it says, how it ends, and what is left.

#include "faults.h"
#include "files.h"
#include "heldtrace.h"
#include "media.h"

#include <QDir>
#include <QFileInfo>
#include <QImage>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include <cerrno>
#include <fcntl.h>
#include <memory>
#include <unistd.h>

class TestScanFaults : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void fullStandardOutputEndsTheScan_data();
    void fullStandardOutputEndsTheScan();
    void standardOutputThatFillsUpEndsTheScan();
    void closedPipeEndsTheScan();
    void closedStandardOutputEndsTheScan();
    void closedStandardErrorGetsIntoNoFile();
    void helpToAFullDisk();

    void pictureThatCannotBeWritten_data();
    void pictureThatCannotBeWritten();
    void olderPictureSurvives();
    void folderOfPicturesThatGoesAway();
    void pictureFolderThatCannotBeMade();

    void traceThatCannotBeOpened();
    void fullTraceIsNamedAtOnce();
    void traceThatFillsUp();
    void traceThatDoesNotReachTheDisk();
    void fullDiskWinsOverUnreadableRecordings();

private:
    void fail(const char* call, int error, const QString& file, int room = 0);
    void run(const QStringList& arguments);
    QByteArray errors() const { return readFile(path("errors")); }
    QString path(const QString& name) const { return results->filePath(name); }
    QStringList pictures() const { return QDir(path("pictures")).entryList(QDir::Files); }

    QTemporaryDir recordings;
    QString recording; ///< one clip with `oneClip`
    std::unique_ptr<QTemporaryDir> results;
    std::unique_ptr<QProcess> process;
};

void TestScanFaults::initTestCase() {
    recording = recordings.filePath("garden.mp4");
    QVERIFY(media::encode(media::crossingBox(20, 6, 12) +
                          QStringList{"-c:v", "libx264", "-preset", "ultrafast", recording}));
}

void TestScanFaults::init() {
    results = std::make_unique<QTemporaryDir>();
    process = std::make_unique<QProcess>();
    process->setStandardErrorFile(path("errors"));
}

void TestScanFaults::cleanup() {
    process->kill();
    process->waitForFinished();
}

/// In the scanner that is run next.
void TestScanFaults::fail(const char* call, int error, const QString& file, int room) {
    process->setProcessEnvironment(faults::callError(call, error, file, room));
}

/// One clip per recording with these options.
void TestScanFaults::run(const QStringList& arguments) {
    process->start(media::programDirectory() + "/kestrova-scan",
                   QStringList{"--minimum", "2", "--postrecord", "2"} + arguments);
    QVERIFY(process->waitForFinished(120000));
    QCOMPARE(process->exitStatus(), QProcess::NormalExit);
}

void TestScanFaults::fullStandardOutputEndsTheScan_data() {
    QTest::addColumn<QString>("format");
    QTest::addColumn<int>("jobs");
    QTest::addColumn<int>("mostPictures");
    QTest::newRow("text") << "text" << 1 << 1;
    QTest::newRow("jsonl") << "jsonl" << 1 << 1;
    QTest::newRow("csv, whose header fails") << "csv" << 1 << 0;
    QTest::newRow("side by side") << "text" << 2 << 4; // as it happens
}

void TestScanFaults::fullStandardOutputEndsTheScan() {
    QFETCH(QString, format);
    QFETCH(int, jobs);
    QFETCH(int, mostPictures);
    process->setStandardOutputFile("/dev/full");
    run(QStringList{"--quiet", "--format", format, "--jobs", QString::number(jobs), "--snapshots",
                    path("pictures"), recording, recording, recording, recording});
    QCOMPARE(process->exitCode(), 1);
    QCOMPARE(errors(), QByteArray("kestrova-scan: standard output: No space left on device\n"));
    QVERIFY2(pictures().size() <= mostPictures, qPrintable(pictures().join(' ')));
}

void TestScanFaults::standardOutputThatFillsUpEndsTheScan() {
    process->setStandardOutputFile(path("clips"));
    fail("write", ENOSPC, "/clips", 10);
    run({recording, recording});
    QCOMPARE(process->exitCode(), 1);
    QCOMPARE(errors(), QByteArray("kestrova-scan: standard output: No space left on device\n"));
    QCOMPARE(readFile(path("clips")), recording.left(10).toUtf8());
}

void TestScanFaults::closedPipeEndsTheScan() {
    // The shell's own descriptor 3 keeps the pipe's reader from being there.
    process->start("/bin/sh", {"-c", "{ \"$@\"; echo $? >\"$0\"; } | true", path("status"),
                               media::programDirectory() + "/kestrova-scan", "--format", "csv",
                               recording, recording});
    QVERIFY(process->waitForFinished());
    QCOMPARE(readFile(path("status")), QByteArray("1\n"));
    QCOMPARE(errors(), QByteArray("kestrova-scan: standard output: Broken pipe\n"));
}

void TestScanFaults::closedStandardOutputEndsTheScan() {
    // The trace must not become what standard output was.
    process->start("/bin/sh",
                   {"-c", "exec \"$0\" \"$@\" >&-", media::programDirectory() + "/kestrova-scan",
                    "--format", "csv", "--trace", path("trace"), recording});
    QVERIFY(process->waitForFinished());
    QCOMPARE(process->exitCode(), 1);
    QCOMPARE(errors(), QByteArray("kestrova-scan: standard output: Bad file descriptor\n"));
    QVERIFY(!readFile(path("trace")).contains("video"));
}

void TestScanFaults::closedStandardErrorGetsIntoNoFile() {
    process->start("/bin/sh", {"-c", "exec \"$0\" \"$@\" 2>&- <&-",
                               media::programDirectory() + "/kestrova-scan", "--trace",
                               path("trace"), path("missing.mp4"), recording});
    QVERIFY(process->waitForFinished());
    QCOMPARE(process->exitCode(), 1);
    const QByteArray trace = readFile(path("trace"));
    QVERIFY(trace.startsWith("1\t"));
    QVERIFY(!trace.contains("missing"));
}

void TestScanFaults::helpToAFullDisk() {
    process->setStandardOutputFile("/dev/full");
    run({"--help"});
    QCOMPARE(process->exitCode(), 1);
    QCOMPARE(errors(), QByteArray("kestrova-scan: standard output: No space left on device\n"));
}

void TestScanFaults::pictureThatCannotBeWritten_data() {
    QTest::addColumn<QByteArray>("call");
    QTest::addColumn<int>("error");
    QTest::addColumn<int>("room");
    QTest::addColumn<QByteArray>("reason");
    QTest::newRow("full disk") << QByteArray("write") << ENOSPC << 0
                               << QByteArray("No space left on device");
    QTest::newRow("disk that fills up")
        << QByteArray("write") << ENOSPC << 1000 << QByteArray("No space left on device");
    QTest::newRow("flush") << QByteArray("fsync") << EDQUOT << 0
                           << QByteArray("Disk quota exceeded");
    QTest::newRow("new name") << QByteArray("rename") << EDQUOT << 0
                              << QByteArray("Disk quota exceeded");
}

void TestScanFaults::pictureThatCannotBeWritten() {
    QFETCH(QByteArray, call);
    QFETCH(int, error);
    QFETCH(int, room);
    QFETCH(QByteArray, reason);
    fail(call.constData(), error, "/pictures/", room);
    run({"--quiet", "--format", "jsonl", "--snapshots", path("pictures"), recording});
    QCOMPARE(process->exitCode(), 1);
    QCOMPARE(errors(), "kestrova-scan: " + path("pictures/garden.mp4-0000.png").toUtf8() +
                           ": cannot write the picture: " + reason + "\n");
    QCOMPARE(pictures(), QStringList());
    const QList<QJsonObject> lines = jsonLines(process->readAllStandardOutput());
    QCOMPARE(lines.size(), 2);
    QVERIFY(lines[0]["snapshot"].isNull());
    QCOMPARE(lines[1]["state"].toString(), QString("finished"));
}

void TestScanFaults::olderPictureSurvives() {
    const QStringList arguments = {"--quiet", "--snapshots", path("pictures"), recording};
    run(arguments);
    QCOMPARE(process->exitCode(), 0);
    const QByteArray picture = readFile(path("pictures/garden.mp4-0000.png"));
    QVERIFY(!QImage::fromData(picture).isNull());
    for (const char* call : {"write", "rename"}) {
        fail(call, ENOSPC, "/pictures/", 500);
        run(arguments);
        QCOMPARE(process->exitCode(), 1);
        QVERIFY2(errors().endsWith(": No space left on device\n"), errors().constData());
        QCOMPARE(readFile(path("pictures/garden.mp4-0000.png")), picture);
        QCOMPARE(pictures().size(), 1);
    }
}

void TestScanFaults::folderOfPicturesThatGoesAway() {
    HeldTrace trace(path("trace"));
    process->start(media::programDirectory() + "/kestrova-scan",
                   {"--quiet", "--minimum", "2", "--postrecord", "2", "--trace", trace.path(),
                    "--snapshots", path("pictures"), recording});
    QTRY_VERIFY(trace.isHolding()); // before the clip ends
    QVERIFY(QDir(path("pictures")).removeRecursively());
    trace.letGo();
    QVERIFY(process->waitForFinished());
    QCOMPARE(process->exitCode(), 1);
    QCOMPARE(errors(), "kestrova-scan: " + path("pictures/garden.mp4-0000.png").toUtf8() +
                           ": cannot write the picture: No such file or directory\n");
}

void TestScanFaults::pictureFolderThatCannotBeMade() {
    fail("mkdir", EROFS, "/pictures");
    run({"--snapshots", path("pictures"), recording});
    QCOMPARE(process->exitCode(), 2);
    QCOMPARE(errors(), "kestrova-scan: " + path("pictures").toUtf8() +
                           ": cannot write into this folder: Read-only file system\n");
    QCOMPARE(process->readAllStandardOutput(), QByteArray());
}

void TestScanFaults::traceThatCannotBeOpened() {
    run({"--trace", path("no/such/folder"), recording});
    QCOMPARE(process->exitCode(), 2);
    QCOMPARE(errors(),
             "kestrova-scan: " + path("no/such/folder").toUtf8() + ": No such file or directory\n");
}

void TestScanFaults::fullTraceIsNamedAtOnce() {
    run({"--quiet", "--format", "jsonl", "--trace", "/dev/full", recording, recording});
    QCOMPARE(process->exitCode(), 1);
    QCOMPARE(errors(), QByteArray("kestrova-scan: /dev/full: No space left on device\n"));
    // The clips are worth having without it.
    const QList<QJsonObject> lines = jsonLines(process->readAllStandardOutput());
    QCOMPARE(lines.size(), 4);
    QCOMPARE(lines[3]["state"].toString(), QString("finished"));
}

void TestScanFaults::traceThatFillsUp() {
    fail("write", ENOSPC, "/trace", 100);
    run({"--quiet", "--trace", path("trace"), recording});
    QCOMPARE(process->exitCode(), 1);
    QCOMPARE(errors(), "kestrova-scan: " + path("trace").toUtf8() + ": No space left on device\n");
    QCOMPARE(readFile(path("trace")).size(), 100);
}

void TestScanFaults::traceThatDoesNotReachTheDisk() {
    fail("fsync", EIO, "/trace");
    run({"--quiet", "--trace", path("trace"), recording});
    QCOMPARE(process->exitCode(), 1);
    QCOMPARE(errors(), "kestrova-scan: " + path("trace").toUtf8() + ": Input/output error\n");
}

void TestScanFaults::fullDiskWinsOverUnreadableRecordings() {
    QVERIFY(writeFile(path("noise.mp4"), QByteArray(5000, 'x')));
    const QStringList arguments = {"--quiet", "--values", path("kept"), path("noise.mp4")};
    fail("write", ENOSPC, ".values");
    run(arguments); // what is wrong with it could not be kept
    QCOMPARE(process->exitCode(), 1);
    process->setProcessEnvironment(QProcessEnvironment::systemEnvironment());
    run(arguments);
    QCOMPARE(process->exitCode(), 3);
}

QTEST_GUILESS_MAIN(TestScanFaults)
#include "test_scanfaults.moc"
