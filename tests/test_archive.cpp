// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

// kestrova-archive on this machine; scripts/test-archive has the others.

#include "files.h"
#include "measuresettings.h"
#include "media.h"
#include "process.h"

#include <QDir>
#include <QImage>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QtTest>

namespace {

const char noEngine[] = "GNU parallel is not installed";

bool hasEngine() {
    return !QStandardPaths::findExecutable("parallel").isEmpty();
}

} // namespace

class TestArchive : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void printsWhatTheScannerPrints();
    void measuresWithWhatValuesDependOn();
    void knowsWhatValuesDependOn();
    void goesOnWhereItEnded();
    void aChangedMaskIsAnotherOne();
    void namesWhatIsMissing();
    void usageErrors_data();
    void usageErrors();

private:
    QString path(const QString& name) const { return folder.filePath(name); }
    QStringList archivesIn(const QString& name) const {
        return QDir(path(name)).entryList({"archive-*"}, QDir::Dirs);
    }

    QTemporaryDir folder; ///< recordings/: two recordings, and one that is none
    QStringList options;
};

void TestArchive::initTestCase() {
    QVERIFY(QDir(folder.path()).mkpath("recordings"));
    for (const char* name : {"recordings/it's \"one\".mkv", "recordings/line\nbreak.mkv"})
        QVERIFY(
            media::encode(media::crossingBox(8, 2, 6) + QStringList{"-c:v", "mpeg4", path(name)}));
    QVERIFY(writeFile(path("recordings/noise.mp4"), QByteArray(5000, 'x')));
    options = QStringList{"--quiet", "--format", "jsonl", "--minimum", "2"};
}

void TestArchive::printsWhatTheScannerPrints() {
    if (!hasEngine())
        QSKIP(noEngine);
    const ProcessResult scan =
        runProgram("kestrova-scan", options + QStringList{path("recordings")});
    QCOMPARE(scan.status, 3);
    QVERIFY(scan.output.contains("\"clips\":1"));
    const ProcessResult archive = runProgram(
        "kestrova-archive", options + QStringList{"--values", path("kept"), path("recordings")});
    QCOMPARE(archive.status, 3);
    QCOMPARE(archive.output, scan.output);
    QCOMPARE(archive.errors, scan.errors);
}

void TestArchive::measuresWithWhatValuesDependOn() {
    if (!hasEngine())
        QSKIP(noEngine);
    const QStringList arguments = {"--values",  path("half"), "--skip=1",
                                   "--exclude", "0,0,8,8",    "--exclude",
                                   "8,8,8,8",   "--merge=10", path("recordings")};
    QCOMPARE(runProgram("kestrova-archive", options + arguments).status, 3);
    QCOMPARE(archivesIn("half").size(), 1);
    const QByteArray measure = readFile(path("half/" + archivesIn("half").first() + "/measure"));
    QVERIFY2(measure.contains(" --skip=1 --exclude=0,0,8,8 --exclude=8,8,8,8\n"),
             measure.constData());
    for (const QString& file : QDir(path("half")).entryList({"*.values"}))
        QVERIFY(readFile(path("half/" + file)).contains("# skip: 1\n"));
}

void TestArchive::knowsWhatValuesDependOn() {
    const QString text =
        QString::fromUtf8(readFile(KESTROVA_SOURCE "/src/archive/kestrova-archive"));
    const auto list = QRegularExpression("MEASURING = \\[([^]]*)\\]").match(text).captured(1);
    QStringList names;
    for (const QString& word : list.split(','))
        names += word.trimmed().remove('"');
    QCOMPARE(names, measureOptionNames());
}

void TestArchive::goesOnWhereItEnded() {
    if (!hasEngine())
        QSKIP(noEngine);
    const QStringList arguments = options + QStringList{"--values", path("on"), path("recordings")};
    const ProcessResult first = runProgram("kestrova-archive", arguments);
    const QString work = path("on/" + archivesIn("on").value(0));
    // The list is that of the first call, and what is done has no job.
    QVERIFY(QFile::copy(path("recordings/noise.mp4"), path("recordings/new.mp4")));
    const QByteArray log = readFile(work + "/joblog");
    QCOMPARE(log.count('\n'), 3);
    const ProcessResult second = runProgram("kestrova-archive", arguments);
    QCOMPARE(second.status, 3);
    QCOMPARE(second.output, first.output);
    QCOMPARE(readFile(work + "/joblog"), log);
    // What has no end is a job again; a line that a full disk cut short is none.
    const QDir ends(work + "/ends", {}, QDir::Name, QDir::Files);
    QVERIFY(writeFile(ends.filePath(ends.entryList().value(0)), "1 0\n2 0\n3 "));
    QCOMPARE(runProgram("kestrova-archive", arguments).output, first.output);
    QCOMPARE(readFile(work + "/joblog").count('\n'), 4);
    QVERIFY(QFile::remove(path("recordings/new.mp4")));
}

void TestArchive::aChangedMaskIsAnotherOne() {
    if (!hasEngine())
        QSKIP(noEngine);
    QImage mask(64, 48, QImage::Format_ARGB32);
    for (const int rows : {48, 20}) {
        mask.fill(0U);
        for (int y = 0; y < rows; ++y) {
            for (int x = 0; x < 64; ++x)
                mask.setPixel(x, y, 0xFF00FF00U);
        }
        QVERIFY(mask.save(path("mask.png")));
        const QStringList arguments = {"--mask", path("mask.png"), path("recordings")};
        const ProcessResult archive = runProgram(
            "kestrova-archive", options + QStringList{"--values", path("masked")} + arguments);
        QCOMPARE(archive.output, runProgram("kestrova-scan", options + arguments).output);
        QCOMPARE(archivesIn("masked").size(), rows == 48 ? 1 : 2);
    }
    QCOMPARE(runProgram("kestrova-archive",
                        {"--values", path("masked"), "--mask", path("no.png"), path("recordings")})
                 .status,
             2);
}

void TestArchive::namesWhatIsMissing() {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("PATH", folder.path());
    const ProcessResult result = runProgramIn(environment, "kestrova-archive",
                                              {"--values", path("none"), path("recordings")});
    QCOMPARE(result.status, 1);
    QVERIFY2(result.errors.contains("parallel is missing"), result.errors.constData());
    QVERIFY(!QFileInfo::exists(path("none")));
}

void TestArchive::usageErrors_data() {
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QByteArray>("reason");
    const QString values = "--values=" + path("usage");
    QTest::newRow("no folder") << QStringList{"a.mp4"} << QByteArray("--values");
    QTest::newRow("no recording") << QStringList{values} << QByteArray("no video named");
    QTest::newRow("two engines") << QStringList{values, "--slurm", "--hosts", "x", "a.mp4"}
                                 << QByteArray("not allowed with");
    QTest::newRow("parts of nothing")
        << QStringList{values, "--split", "0", "a.mp4"} << QByteArray("--split");
    QTest::newRow("parts of key frames")
        << QStringList{values, "--split", "5", "--quick", "a.mp4"} << QByteArray("--split");
    QTest::newRow("the scanner's options")
        << QStringList{values, "--skip", "x", "a.mp4"} << QByteArray("--skip");
    QTest::newRow("no option") << QStringList{values, "--part", "1/2", "a.mp4"}
                               << QByteArray("--part");
}

void TestArchive::usageErrors() {
    if (!hasEngine())
        QSKIP(noEngine);
    QFETCH(QStringList, arguments);
    QFETCH(QByteArray, reason);
    const ProcessResult result = runProgram("kestrova-archive", arguments);
    QCOMPARE(result.status, 2);
    QVERIFY2(result.errors.contains(reason), result.errors.constData());
    QCOMPARE(result.output, QByteArray());
}

QTEST_GUILESS_MAIN(TestArchive)
#include "test_archive.moc"
