// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

// The scanner's export where something goes wrong: what it says, how it ends, and what is left.

#include "clipprobe.h"
#include "encoderstand.h"
#include "faults.h"
#include "files.h"
#include "scannerstand.h"

#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include <cerrno>
#include <memory>

namespace {

/// One clip per recording, of 4 to 9 seconds.
const QStringList options = QStringList{"--quiet", "--format", "jsonl"} + oneClip;

} // namespace

class TestExportFaults : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void fullDisk_data();
    void fullDisk();
    void diskFullAtTheLastByte_data();
    void diskFullAtTheLastByte();
    void folderThatCannotBeMade();
    void encoderThatLies_data();
    void encoderThatLies();
    void longLogIsNotHeld();
    void endOfTheProgramEndsTheEncoder();

private:
    void run(const QStringList& arguments);
    void useEncoder(const QByteArray& script);
    QString path(const QString& name) const { return clips->filePath(name); }
    QString clipPath(const QString& container) const {
        return path("garden_mp4_0/0000." + container);
    }

    ScannerStand scanner;
    QTemporaryDir recordings;
    QString recording;
    std::unique_ptr<QTemporaryDir> clips;
    std::unique_ptr<EncoderStand> encoder;
    std::unique_ptr<QProcess> process;
    QByteArray errors;
    QList<QJsonObject> lines; ///< of standard output
};

void TestExportFaults::initTestCase() {
    recording = recordings.filePath("garden.mp4");
    QVERIFY(encodeVisit(recording));
}

void TestExportFaults::init() {
    clips = std::make_unique<QTemporaryDir>();
    encoder = std::make_unique<EncoderStand>();
    process = std::make_unique<QProcess>();
}

void TestExportFaults::cleanup() {
    process->kill();
    process->waitForFinished();
    encoder.reset();
}

/// The next exports have this shell script for an encoder; "$output" is their file.
void TestExportFaults::useEncoder(const QByteArray& script) {
    encoder->useScript("for output; do :; done\n" + script);
}

void TestExportFaults::run(const QStringList& arguments) {
    process->start(ScannerStand::path(),
                   options + QStringList{"--export", clips->path()} + arguments);
    QVERIFY(process->waitForFinished(120000));
    QCOMPARE(process->exitStatus(), QProcess::NormalExit);
    errors = process->readAllStandardError();
    lines = jsonLines(process->readAllStandardOutput());
}

void TestExportFaults::fullDisk_data() {
    QTest::addColumn<QString>("container");
    for (const char* container : {"avi", "mp4", "mkv"})
        QTest::newRow(container) << container;
}

void TestExportFaults::fullDisk() {
    QFETCH(QString, container);
    encoder->useRealEncoder();
    process->setProcessEnvironment(faults::callError("write", ENOSPC, "/0000."));
    run({"--container", container, recording});
    QCOMPARE(process->exitCode(), 1);
    const QByteArray start = "kestrova-scan: " + clipPath(container).toUtf8() + ": the encoder ";
    QVERIFY2(errors.startsWith(start), errors.constData());
    QVERIFY2(errors.endsWith(": No space left on device\n"), errors.constData());
    QVERIFY(!lines[0]["exported"].toBool(true));
    QCOMPARE(lines[1]["state"].toString(), QString("finished"));
    QVERIFY(!QFileInfo::exists(clipPath(container)));
}

void TestExportFaults::diskFullAtTheLastByte_data() {
    fullDisk_data();
}

void TestExportFaults::diskFullAtTheLastByte() {
    QFETCH(QString, container);
    encoder->useRealEncoder();
    run({"--container", container, recording});
    QCOMPARE(process->exitCode(), 0);
    const qint64 size = QFileInfo(clipPath(container)).size();
    QVERIFY(probeClip(clipPath(container)).isPlayable);
    QVERIFY(QDir(path("garden_mp4_0")).removeRecursively());
    // The encoder of Debian 12 answers 0, since every packet was written.
    process->setProcessEnvironment(faults::callError("write", ENOSPC, "/0000.", int(size) - 1));
    run({"--container", container, recording});
    QCOMPARE(process->exitCode(), 1);
    const bool isFlaw =
        errors.contains(": the encoder did not finish the file: Error writing trailer of ");
    const bool isFailure = errors.contains(": the encoder failed: ") &&
                           errors.contains("Error writing trailer: No space left on device");
    QVERIFY2(isFlaw || isFailure, errors.constData());
    QVERIFY2(errors.endsWith(": No space left on device\n"), errors.constData());
    QVERIFY(!lines[0]["exported"].toBool(true));
}

void TestExportFaults::folderThatCannotBeMade() {
    process->setProcessEnvironment(faults::callError("mkdir", EDQUOT, "garden_mp4"));
    run({recording, recording});
    QCOMPARE(process->exitCode(), 1);
    const QByteArray complaint = "kestrova-scan: " + recording.toUtf8() +
                                 ": cannot make a folder for its clips: Disk quota exceeded\n";
    QCOMPARE(errors, complaint + complaint);
    QVERIFY(encoder->calls().isEmpty());
    QCOMPARE(lines.size(), 4);
    QVERIFY(lines[0]["file"].isNull());
    QVERIFY(!lines[0]["exported"].toBool(true));
}

void TestExportFaults::encoderThatLies_data() {
    QTest::addColumn<QByteArray>("script");
    QTest::addColumn<QByteArray>("failure");
    QTest::newRow("no file") << QByteArray("exit 0") << QByteArray("the encoder wrote no file");
    QTest::newRow("empty file") << QByteArray("touch \"$output\"")
                                << QByteArray("the encoder wrote an empty file");
    QTest::newRow("empty file, reason")
        << QByteArray("touch \"$output\"; echo 'Error closing file: Disk quota exceeded' >&2")
        << QByteArray("the encoder wrote an empty file: Error closing file: Disk quota exceeded");
    QTest::newRow("empty file, crash")
        << QByteArray("touch \"$output\"; kill -SEGV $$") << QByteArray("the encoder crashed");
    QTest::newRow("empty file, failure")
        << QByteArray("touch \"$output\"; echo one >&2; echo two >&2; exit 1")
        << QByteArray("the encoder failed: one\n    two");
}

void TestExportFaults::encoderThatLies() {
    QFETCH(QByteArray, script);
    QFETCH(QByteArray, failure);
    useEncoder(script);
    run({recording});
    QCOMPARE(process->exitCode(), 1);
    QCOMPARE(errors, "kestrova-scan: " + clipPath("avi").toUtf8() + ": " + failure + "\n");
    QVERIFY(!lines[0]["exported"].toBool(true));
    QVERIFY(!QFileInfo::exists(clipPath("avi")));
}

void TestExportFaults::longLogIsNotHeld() {
    const auto peakMegabytes = [this] {
        const QByteArray status =
            readFile(QStringLiteral("/proc/%1/status").arg(process->processId()));
        return status.mid(status.indexOf("VmHWM:") + 6, 12).trimmed().split(' ')[0].toInt() / 1024;
    };
    useEncoder(
        "cd \"${output%/*}\" || exit; touch started; while [ ! -e go ]; do sleep 0.01; done\n"
        "yes 'all is well, all is well, all is well' | head -c 100000000 >&2\n"
        "echo >&2; echo 'Unknown encoder' >&2; echo 'Conversion failed!' >&2\n"
        "touch said; while [ ! -e end ]; do sleep 0.01; done; exit 1");
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    // The sanitizer keeps what is freed.
    environment.insert("ASAN_OPTIONS", environment.value("ASAN_OPTIONS") + ":quarantine_size_mb=1");
    process->setProcessEnvironment(environment);
    const auto marker = [this](const QString& name) { return path("garden_mp4_0/" + name); };
    const auto touch = [&](const char* name) { QFile(marker(name)).open(QIODevice::WriteOnly); };
    process->start(ScannerStand::path(),
                   options + QStringList{"--export", clips->path(), recording});
    QTRY_VERIFY_WITH_TIMEOUT(QFileInfo::exists(marker("started")), 60000);
    const int before = peakMegabytes();
    touch("go");
    QTRY_VERIFY_WITH_TIMEOUT(QFileInfo::exists(marker("said")), 120000);
    const int after = peakMegabytes();
    touch("end");
    QVERIFY(process->waitForFinished());
    QVERIFY2(after - before < 40, qPrintable(QString::number(after - before)));
    QCOMPARE(process->readAllStandardError(), "kestrova-scan: " + clipPath("avi").toUtf8() +
                                                  ": the encoder failed: Unknown encoder\n");
}

void TestExportFaults::endOfTheProgramEndsTheEncoder() {
    useEncoder("trap 'touch \"$output.ended\"; exit' TERM\n"
               "touch \"$output\"; while :; do sleep 0.01; done");
    process->start(ScannerStand::path(),
                   options + QStringList{"--export", clips->path(), recording});
    QTRY_VERIFY_WITH_TIMEOUT(QFileInfo::exists(clipPath("avi")), 60000);
    process->kill();
    QVERIFY(process->waitForFinished());
    QTRY_VERIFY(QFileInfo::exists(clipPath("avi.ended")));
}

QTEST_GUILESS_MAIN(TestExportFaults)
#include "test_exportfaults.moc"
