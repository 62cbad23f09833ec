// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

// The scanner's packages of Camtrap DP, as files; what their tables hold is test_camtrap's.

#include "files.h"
#include "heldtrace.h"
#include "media.h"
#include "process.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QTemporaryDir>
#include <QtTest>

#include <cmath>

namespace {

const QStringList clips = {"--quiet", "--minimum", "1", "--merge", "0"};

ProcessResult scan(const QStringList& arguments) {
    return runProgram("kestrova-scan", clips + arguments);
}

const char* const tables[] = {"deployments.csv", "media.csv", "observations.csv"};

} // namespace

class TestScanCamtrap : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void eventsAreTheClips();
    void timesAreOfTheZone();
    void filesOfClipsAreNamed();
    void valuesGiveTheSame();
    void olderPackageIsReplaced();
    void recordingWithoutStartIsRefused();
    void recordingWithoutLocationIsRefused();
    void nothingIsWrittenOfNothing();
    void unreadableRecordingIsLeftOut();
    void damageIsRemarked();
    void folderThatCannotBeWritten();
    void interruptedSearchSaysSo();

private:
    QString path(const QString& name) const { return folder.filePath(name); }
    QStringList package(const QString& name) const;
    QByteArray table(const QString& name, const char* table) const {
        return readFile(path(name) + '/' + table);
    }
    int linesOf(const QString& name, const char* which) const {
        return table(name, which).count("\r\n") - 1;
    }

    QTemporaryDir folder; ///< cam/a.mp4, in which a box crosses twice
    QString video;
};

void TestScanCamtrap::initTestCase() {
    QVERIFY(QDir(folder.path()).mkpath("cam"));
    video = path("cam/a.mp4");
    QVERIFY(media::encode(media::twoVisits() + QStringList{"-c:v", "mpeg4", "-g", "25", video}));
}

/// The options for a package in the folder of that name.
QStringList TestScanCamtrap::package(const QString& name) const {
    return {
        "--format",   "camtrap-dp", "--output",  path(name), "--start-time",  "2026-11-16T22:00:00",
        "--location", "52.5,13.25", "--project", "Otters",   "--contributor", "Anna"};
}

void TestScanCamtrap::eventsAreTheClips() {
    const ProcessResult listed = scan({"--format", "jsonl", video});
    const QList<QJsonObject> lines = jsonLines(listed.output);
    QCOMPARE(lines.size(), 3); // two visits, and the end
    const ProcessResult result = scan(package("plain") + QStringList{video});
    QCOMPARE(result.status, 0);
    QCOMPARE(result.output, QByteArray());
    QCOMPARE(result.errors, QByteArray());
    QCOMPARE(linesOf("plain", "deployments.csv"), 1);
    QCOMPARE(linesOf("plain", "media.csv"), 1);
    QCOMPARE(linesOf("plain", "observations.csv"), 2);
    const QByteArray events = table("plain", "observations.csv");
    for (int i = 0; i < 2; ++i) {
        const QTime begin(22, 0);
        const QTime start = begin.addSecs(int(lines[i]["start"].toDouble()));
        const QTime end = begin.addSecs(int(std::ceil(lines[i]["end"].toDouble())));
        QVERIFY2(events.contains("2026-11-16T" + start.toString().toUtf8()), events.constData());
        QVERIFY2(events.contains("2026-11-16T" + end.toString().toUtf8()), events.constData());
    }
    const QJsonObject head = QJsonDocument::fromJson(table("plain", "datapackage.json")).object();
    QCOMPARE(head["resources"].toArray().size(), 3);
    QCOMPARE(head["temporal"].toObject()["start"].toString(), QString("2026-11-16"));
    QVERIFY(!head.contains("description"));
}

void TestScanCamtrap::timesAreOfTheZone() {
    const QStringList zone = {"--time-zone", "America/St_Johns"};
    QCOMPARE(scan(package("zone") + zone + QStringList{video}).status, 0);
    QVERIFY(table("zone", "deployments.csv").contains(",2026-11-16T22:00:00-03:30,"));
    // Each by its own name.
    QVERIFY(QDir().mkpath(path("named")));
    for (const char* name : {"named/20260701_120000.mp4", "named/20260701_120030.mp4"})
        QVERIFY(QFile::copy(video, path(name)));
    QStringList options = package("names") + QStringList{"--time-zone", "Europe/Berlin"};
    options[options.indexOf("2026-11-16T22:00:00")] = "auto";
    const ProcessResult result = scan(options + QStringList{path("named")});
    QVERIFY2(result.status == 0, result.errors.constData());
    QVERIFY(table("names", "media.csv").contains(",2026-07-01T12:00:00+02:00,"));
    QVERIFY(table("names", "media.csv").contains(",2026-07-01T12:00:30+02:00,"));
    QCOMPARE(linesOf("names", "observations.csv"), 4);
}

void TestScanCamtrap::filesOfClipsAreNamed() {
    const QStringList files = {"--snapshots",      path("full/pictures"), "--export",
                               path("full/clips"), "--container",         "mkv"};
    const ProcessResult result = scan(package("full") + files + QStringList{video});
    QCOMPARE(result.status, 0);
    QCOMPARE(linesOf("full", "media.csv"), 5);
    int relative = 0;
    for (const QByteArray& line : table("full", "media.csv").split('\n').mid(1)) {
        const QByteArray file = line.split(',').value(4);
        if (!file.startsWith("clips/") && !file.startsWith("pictures/"))
            continue;
        ++relative;
        QVERIFY2(QFileInfo(path("full/" + file)).size() > 0, file.constData());
    }
    QCOMPARE(relative, 4);
    QVERIFY(table("full", "media.csv").contains(",file://" + video.toUtf8() + ",false,a.mp4,"));
}

void TestScanCamtrap::valuesGiveTheSame() {
    const QStringList kept = {"--values", path("kept")};
    QCOMPARE(scan(package("measured") + kept + QStringList{video}).status, 0);
    QCOMPARE(scan(package("decided") + kept + QStringList{video}).status, 0);
    QCOMPARE(scan(package("plain") + QStringList{"--jobs", "2", video}).status, 0);
    for (const char* name : tables) {
        QVERIFY(!table("plain", name).isEmpty());
        QCOMPARE(table("measured", name), table("plain", name));
        QCOMPARE(table("decided", name), table("plain", name));
    }
}

void TestScanCamtrap::olderPackageIsReplaced() {
    QVERIFY(QDir().mkpath(path("older")));
    QVERIFY(writeFile(path("older/media.csv"), QByteArray(100000, 'x')));
    QVERIFY(QFile::link(path("elsewhere"), path("older/observations.csv")));
    QCOMPARE(scan(package("older") + QStringList{video}).status, 0);
    QVERIFY(table("older", "media.csv").startsWith("mediaID,"));
    QVERIFY(table("older", "observations.csv").startsWith("observationID,"));
    QVERIFY(!QFileInfo::exists(path("elsewhere"))); // links are not followed
}

void TestScanCamtrap::recordingWithoutStartIsRefused() {
    // One start is that of the first recording.
    QVERIFY(QFile::copy(video, path("cam/b.mp4")));
    const ProcessResult result = scan(package("starts") + QStringList{video, path("cam/b.mp4")});
    QCOMPARE(result.status, 1);
    QVERIFY2(result.errors.contains("b.mp4: it is left out of the package, since it is not known "
                                    "when it began"),
             result.errors.constData());
    QCOMPARE(linesOf("starts", "media.csv"), 1);
    QCOMPARE(linesOf("starts", "observations.csv"), 2);
}

void TestScanCamtrap::recordingWithoutLocationIsRefused() {
    QStringList options = package("places");
    options[options.indexOf("52.5,13.25")] = path("dam") + "=52.5,13.25";
    const ProcessResult result = scan(options + QStringList{video});
    QCOMPARE(result.status, 1);
    QVERIFY(result.errors.contains("since no --location is given for its folder"));
    QVERIFY(result.errors.contains(path("dam").toUtf8() + ": warning: --location names this"));
    QVERIFY(!QFileInfo::exists(path("places/datapackage.json")));
    options[options.indexOf(path("dam") + "=52.5,13.25")] = path("cam") + "=52.5,13.25";
    QCOMPARE(scan(options + QStringList{video}).status, 0);
    QVERIFY(table("places", "deployments.csv").contains(",cam,52.5,13.25,"));
}

void TestScanCamtrap::nothingIsWrittenOfNothing() {
    QVERIFY(QDir().mkpath(path("empty")));
    const ProcessResult result = scan(package("nothing") + QStringList{path("empty")});
    QCOMPARE(result.status, 1);
    QVERIFY(result.errors.contains("cannot write the package: there is no recording for it"));
    QCOMPARE(QDir(path("nothing")).entryList(QDir::Files), QStringList());
}

void TestScanCamtrap::unreadableRecordingIsLeftOut() {
    QVERIFY(writeFile(path("cam/none.mp4"), "no video\n"));
    const ProcessResult result =
        scan(package("unreadable") + QStringList{video, path("cam/none.mp4")});
    QCOMPARE(result.status, 3);
    QCOMPARE(result.errors.count('\n'), 1); // that it is none, and not that it is left out
    QCOMPARE(linesOf("unreadable", "media.csv"), 1);
}

void TestScanCamtrap::damageIsRemarked() {
    // Without its end, of which the head promises more.
    QVERIFY(media::encode(media::twoVisits() + QStringList{"-c:v", "mpeg4", "-movflags",
                                                           "+faststart", path("whole.mp4")}));
    const QByteArray whole = readFile(path("whole.mp4"));
    QVERIFY(writeFile(path("cut.mp4"), whole.left(whole.size() * 2 / 3)));
    QCOMPARE(scan(package("cut") + QStringList{path("cut.mp4")}).status, 0);
    const QByteArray line = table("cut", "media.csv").split('\n').value(1);
    QVERIFY2(line.contains("video/mp4,,,") && !line.endsWith(",,,\r"), line.constData());
}

void TestScanCamtrap::folderThatCannotBeWritten() {
    QVERIFY(writeFile(path("file"), {}));
    ProcessResult result = scan(package("file") + QStringList{video});
    QCOMPARE(result.status, 2);
    QVERIFY(result.errors.contains("cannot write into this folder"));
    QVERIFY(QDir().mkpath(path("full2/datapackage.json/in the way")));
    result = scan(package("full2") + QStringList{video});
    QCOMPARE(result.status, 1);
    QVERIFY(result.errors.contains("cannot write the package: datapackage.json: "));
}

void TestScanCamtrap::interruptedSearchSaysSo() {
    HeldTrace trace(path("trace"));
    QProcess process;
    process.start(media::programDirectory() + "/kestrova-scan",
                  clips + package("interrupted") + QStringList{"--trace", trace.path(), video});
    QTRY_VERIFY_WITH_TIMEOUT(trace.isHolding(), 20000);
    process.terminate();
    trace.letGo();
    QCOMPARE(endOf(process).status, 130);
    const QByteArray head = table("interrupted", "datapackage.json");
    QVERIFY2(head.contains("\"description\": \"The search was interrupted"), head.constData());
    QVERIFY(table("interrupted", "media.csv").contains(",not searched to its end\r\n"));
    QCOMPARE(linesOf("interrupted", "deployments.csv"), 1);
}

QTEST_GUILESS_MAIN(TestScanCamtrap)
#include "test_scancamtrap.moc"
