// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

// Merged clips, as the scanner prints, pictures and exports them.

#include "clipprobe.h"
#include "faults.h"
#include "files.h"
#include "media.h"
#include "pipewriter.h"
#include "process.h"

#include <QFileInfo>
#include <QImage>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include <csignal>

namespace {

ProcessResult scan(const QStringList& arguments) {
    return runProgram("kestrova-scan", arguments);
}

QList<QJsonObject> clipsOf(const QByteArray& output) {
    QList<QJsonObject> clips = jsonLines(output);
    for (int i = clips.size() - 1; i >= 0; --i) {
        if (clips[i].contains("state"))
            clips.removeAt(i);
    }
    return clips;
}

const QStringList jsonl = {"--quiet", "--format", "jsonl"};

} // namespace

class TestScanMerge : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void oneVisitIsOneClip();
    void everyFormatHasTheMergedClips();
    void snapshotIsTheStrongest();
    void exportsAreMerged();
    void printedAsSoonAsItIsCertain();
    void interruptPrintsWhatWaits();
    void readErrorPrintsWhatWaits();

private:
    QTemporaryDir folder;
    QString video; ///< 30 s; a box crosses from second 10 to second 16
};

void TestScanMerge::initTestCase() {
    video = folder.filePath("visit.mkv");
    QVERIFY(media::encode(media::crossingBox(30, 10, 16) +
                          QStringList{"-c:v", "libx264", "-preset", "ultrafast", video}));
}

void TestScanMerge::oneVisitIsOneClip() {
    const QList<QJsonObject> apart = clipsOf(scan(jsonl + QStringList{video}).output);
    QCOMPARE(apart.size(), 3); // as docs/scanner.md and the manual say
    const ProcessResult result = scan(jsonl + QStringList{"--merge", "0", video});
    QCOMPARE(result.status, 0);
    const QList<QJsonObject> clips = clipsOf(result.output);
    QCOMPARE(clips.size(), 1);
    QCOMPARE(clips[0]["index"].toInt(-1), 0);
    QCOMPARE(clips[0]["start"], apart.first()["start"]);
    QCOMPARE(clips[0]["end"], apart.last()["end"]);
    QCOMPARE(jsonLines(result.output).last()["clips"].toInt(), 1);
}

void TestScanMerge::everyFormatHasTheMergedClips() {
    QCOMPARE(scan({"--quiet", "--merge", "0", video}).output.count('\n'), 1);
    QCOMPARE(scan({"--quiet", "--format", "csv", "--merge", "0", video}).output.count('\n'), 2);
    // Two visits are two clips until the time between them may lie in a clip.
    const QString two = folder.filePath("two.mkv");
    QVERIFY(media::encode({"-i", video, "-i", video, "-filter_complex", "[0:v][1:v]concat=n=2:v=1",
                           "-c:v", "libx264", "-preset", "ultrafast", two}));
    const auto merged = [&](double gap) {
        return clipsOf(scan(jsonl + QStringList{"--merge", QString::number(gap), two}).output);
    };
    const QList<QJsonObject> clips = merged(0.0);
    QCOMPARE(clips.size(), 2);
    QCOMPARE(clips[1]["index"].toInt(), 1);
    const double between = clips[1]["start"].toDouble() - clips[0]["end"].toDouble();
    QVERIFY(between > 5.0);
    QCOMPARE(merged(between - 0.02).size(), 2);
    QCOMPARE(merged(between + 0.02).size(), 1);
}

void TestScanMerge::snapshotIsTheStrongest() {
    // Of the clips' pictures, the one of the picture with the greatest value in the trace.
    const QString trace = folder.filePath("trace");
    scan(jsonl + QStringList{"--trace", trace, video});
    double strongest = -1.0;
    double time = 0.0;
    for (const QByteArray& line : readFile(trace).trimmed().split('\n')) {
        const QList<QByteArray> fields = line.split('\t');
        if (fields[2].toDouble() > strongest) {
            strongest = fields[2].toDouble();
            time = fields[1].toDouble();
        }
    }
    const QList<QJsonObject> clips = clipsOf(
        scan(jsonl + QStringList{"--merge", "0", "--snapshots", folder.filePath("one"), video})
            .output);
    QCOMPARE(clips.size(), 1);
    // A clip that opens shows the picture before the move, an open one the picture itself.
    QVERIFY(qAbs(clips[0]["snapshotTime"].toDouble() - time) < 0.041);
    QCOMPARE(QImage(clips[0]["snapshot"].toString()).size(), QSize(320, 240));
    QVERIFY(!QFileInfo::exists(folder.filePath("one/visit.mkv-0001.png")));
}

void TestScanMerge::exportsAreMerged() {
    const QList<QJsonObject> clips =
        clipsOf(scan(jsonl + QStringList{"--merge", "0", "--export", folder.filePath("out"),
                                         "--transcode", video})
                    .output);
    QCOMPARE(clips.size(), 1);
    QVERIFY(clips[0]["exported"].toBool());
    const double length = clips[0]["end"].toDouble() - clips[0]["start"].toDouble();
    const ClipProbe clip = probeClip(clips[0]["file"].toString());
    QVERIFY(clip.isPlayable);
    QVERIFY(qAbs(clip.seconds - length) < 1.0); // cut at whole seconds
}

void TestScanMerge::printedAsSoonAsItIsCertain() {
    // The first half of the bytes ends far behind the visit.
    const QString recording = folder.filePath("long.mkv");
    QVERIFY(media::encode(media::crossingBox(60, 4, 6) +
                          QStringList{"-c:v", "libx264", "-preset", "ultrafast", recording}));
    const QString pipe = folder.filePath("pipe.mkv");
    PipeWriter writer(pipe, readFile(recording));
    QProcess process;
    process.start(media::programDirectory() + "/kestrova-scan",
                  jsonl + QStringList{"--minimum", "2", "--merge", "2", pipe});
    QByteArray output;
    QTRY_VERIFY((output += process.readAllStandardOutput()).endsWith('\n'));
    QCOMPARE(clipsOf(output).size(), 1);
    writer.goOn();
    QVERIFY(process.waitForFinished());
    output += process.readAllStandardOutput();
    QCOMPARE(output, scan(jsonl + QStringList{"--minimum", "2", "--merge", "2", recording})
                         .output.replace("long.mkv", "pipe.mkv"));
}

void TestScanMerge::interruptPrintsWhatWaits() {
    const QString pipe = folder.filePath("stalled.mkv");
    const PipeWriter writer(pipe, readFile(video) + QByteArray(1 << 20, 0));
    const QString trace = folder.filePath("stalled.trace");
    QProcess process;
    process.start(media::programDirectory() + "/kestrova-scan",
                  jsonl + QStringList{"--merge", "3600", "--trace", trace, pipe});
    // All of the visit and several seconds more.
    QTRY_VERIFY(readFile(trace).contains("\n600\t"));
    QCOMPARE(process.readAllStandardOutput(), QByteArray());
    ::kill(pid_t(process.processId()), SIGINT);
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.exitCode(), 130);
    const QList<QJsonObject> lines = jsonLines(process.readAllStandardOutput());
    QCOMPARE(lines.size(), 2);
    QVERIFY(lines[0]["end"].toDouble() > 16.0);
    QCOMPARE(lines[1]["clips"].toInt(), 1);
}

void TestScanMerge::readErrorPrintsWhatWaits() {
    const qint64 almostAll = QFileInfo(video).size() * 9 / 10;
    const ProcessResult result = runProgramIn(faults::readError(video, almostAll), "kestrova-scan",
                                              jsonl + QStringList{"--merge", "3600", video});
    QCOMPARE(result.status, 1);
    const QList<QJsonObject> lines = jsonLines(result.output);
    QCOMPARE(lines.size(), 2);
    QVERIFY(lines[0]["end"].toDouble() > 16.0);
    QCOMPARE(lines[1]["state"].toString(), QString("failed"));
}

QTEST_GUILESS_MAIN(TestScanMerge)
#include "test_scanmerge.moc"
