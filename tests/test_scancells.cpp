// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

// Recordings that are decided on by their cells: at once, from kept maps, and with other options.

#include "files.h"
#include "footage.h"
#include "media.h"
#include "process.h"
#include "sample.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QtTest>

namespace {

ProcessResult scan(const QStringList& arguments) {
    return runProgram("kestrova-scan", arguments);
}

ProcessResult cells(const QStringList& arguments) {
    return scan(QStringList{"--detector", "cells"} + arguments);
}

QByteArrayList printed(const ProcessResult& result) {
    return result.output.split('\n').mid(0, result.output.count('\n'));
}

/// A still scene of 90 s in which a lamp in the corner blinks all the time, and a box crosses from
/// second 40 to 50.
QStringList blinkingCorner() {
    const QString scene =
        "color=c=0x406040:s=320x240:r=10:d=90,noise=alls=4:allf=t:all_seed=7[scene];"
        "color=c=white:s=32x24:r=10:d=90[lamp];color=c=white:s=48x64:r=10:d=90[box];"
        "[scene][lamp]overlay=x=8:y=8:enable='lt(mod(t,1),0.5)'[lit];"
        "[lit][box]overlay=x='(t-40)*W/10':y=100:enable='between(t,40,50)',format=yuv420p";
    return {"-filter_complex", scene, "-c:v", "libx264", "-preset", "ultrafast"};
}

} // namespace

class TestScanCells : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init() { kept = std::make_unique<QTemporaryDir>(); }

    void askingAgainGivesTheSame_data() { addFoldersOfRecordings(); }
    void askingAgainGivesTheSame();
    void otherRegionsAreAskedOfTheMaps_data();
    void otherRegionsAreAskedOfTheMaps();
    void picturesOfOtherRegionsAreTheRightOnes();
    void theMeanIsTheSameBesideMaps();
    void restlessPlacesAreLeftOut();
    void recordingsWithoutClipsSayHowNearTheyWere();
    void recordingsWithClipsSayNothingMore();
    void whatIsGivenForNothingIsTold();

private:
    QString inKept(const QString& name) const { return kept->filePath(name); }

    QTemporaryDir folder;
    std::unique_ptr<QTemporaryDir> kept;
    QString visit;   ///< 20 s; a box crosses from second 6 to second 12
    QString quiet;   ///< 8 s without motion
    QString passing; ///< 20 s; a box crosses from second 14 to second 15
    QString corner;  ///< blinkingCorner
};

void TestScanCells::initTestCase() {
    visit = folder.filePath("visit.mp4");
    quiet = folder.filePath("quiet.mp4");
    passing = folder.filePath("passing.mp4");
    corner = folder.filePath("corner.mp4");
    const QStringList codec = {"-c:v", "libx264", "-preset", "ultrafast"};
    QVERIFY(media::encode(media::crossingBox(20, 6, 12) + codec + QStringList{visit}));
    QVERIFY(media::encode(media::crossingBox(8, 20, 21) + codec + QStringList{quiet}));
    QVERIFY(media::encode(media::crossingBox(20, 14, 15) + codec + QStringList{passing}));
    QVERIFY(media::encode(blinkingCorner() + QStringList{corner}));
}

/// To the last byte, also where the maps come with those of other options.
void TestScanCells::askingAgainGivesTheSame() {
    KESTROVA_SAMPLED_ROW();
    QFETCH(QString, folder);
    KESTROVA_REQUIRE_FOLDER(folder);
    const QVector<QStringList> calls = {
        {},
        {"--quick"},
        {"--from", "1", "--to", "12", "--skip", "1", "--sensitivity", "1", "--minimum", "1"}};
    for (const QString& video : recordingsIn(folder)) {
        for (const QStringList& call : calls) {
            const QStringList options =
                call + QStringList{"--format", "jsonl", "--trace", inKept("trace"),
                                   QDir(folder).filePath(video)};
            const ProcessResult once = cells(options);
            QVERIFY(once.status == 0 || once.status == 3); // too few pictures for these options
            const QByteArray trace = readFile(inKept("trace"));
            for (int again = 0; again < 2; ++again) {
                const ProcessResult asked =
                    cells(QStringList{"--values", inKept("values")} + options);
                QCOMPARE(asked.status, once.status);
                QCOMPARE(asked.output, once.output);
                QCOMPARE(readFile(inKept("trace")), trace);
            }
        }
    }
}

void TestScanCells::otherRegionsAreAskedOfTheMaps_data() {
    QTest::addColumn<QStringList>("region");
    QTest::newRow("rectangle") << QStringList{"--roi", "0,60,160,120"};
    QTest::newRow("excluded") << QStringList{"--exclude", "100,0,220,240"};
    QTest::newRow("both") << QStringList{"--roi", "10,10,300,200", "--exclude", "0,0,100,240"};
    QTest::newRow("nothing") << QStringList{"--exclude", "0,0,320,240"};
}

/// Maps that were kept for the whole picture, and nothing is decoded for them.
void TestScanCells::otherRegionsAreAskedOfTheMaps() {
    KESTROVA_SAMPLED_ROW();
    QFETCH(QStringList, region);
    QCOMPARE(cells({"--values", inKept("values"), visit}).status, 0);
    const ProcessResult measured = cells(region + QStringList{visit});
    const QString values = QDir(inKept("values")).entryList({"*.values"}).value(0);
    const QDateTime before = QFileInfo(inKept("values/" + values)).lastModified();
    const ProcessResult asked = cells(region + QStringList{"--values", inKept("values"), visit});
    QCOMPARE(asked.output, measured.output);
    QCOMPARE(asked.errors, measured.errors);
    QCOMPARE(QFileInfo(inKept("values/" + values)).lastModified(), before);
}

void TestScanCells::picturesOfOtherRegionsAreTheRightOnes() {
    const QStringList region = {"--merge", "0", "--roi", "0,60,160,120"};
    QCOMPARE(cells(region + QStringList{"--snapshots", inKept("measured"), visit}).status, 0);
    QCOMPARE(cells({"--values", inKept("values"), visit}).status, 0);
    const ProcessResult asked = cells(
        region + QStringList{"--values", inKept("values"), "--snapshots", inKept("asked"), visit});
    QCOMPARE(asked.status, 0);
    const QStringList pictures = QDir(inKept("measured")).entryList(QDir::Files);
    QCOMPARE(pictures, QStringList{"visit.mp4-0000.png"});
    QCOMPARE(readFile(inKept("asked/" + pictures[0])), readFile(inKept("measured/" + pictures[0])));
}

/// One pass makes both, so that changing the detector decodes nothing.
void TestScanCells::theMeanIsTheSameBesideMaps() {
    const ProcessResult mean = scan({visit});
    QCOMPARE(cells({"--values", inKept("values"), visit}).status, 0);
    QCOMPARE(scan({"--values", inKept("values"), visit}), mean);
    QDir(inKept("values")).removeRecursively();
    const ProcessResult ofCells = cells({visit});
    QCOMPARE(scan({"--values", inKept("values"), visit}), mean);
    QCOMPARE(cells({"--values", inKept("values"), visit}), ofCells);
}

void TestScanCells::restlessPlacesAreLeftOut() {
    const ProcessResult all = cells({"--merge", "0", corner});
    QCOMPARE(printed(all).size(), 1);
    QVERIFY(all.errors.contains("motion throughout: "));
    const ProcessResult known = cells({"--values", inKept("maps"), "--merge", "0", corner});
    QVERIFY2(known.errors.contains("; --ignore-restless finds 1 clip\n"), known.errors.constData());
    const QStringList ignoring = {"--merge",        "0",   "--ignore-restless", "--report",
                                  inKept("report"), corner};
    const ProcessResult calm = cells(ignoring);
    QCOMPARE(calm.status, 0);
    QCOMPARE(printed(calm).size(), 1);
    QVERIFY2(calm.errors.contains(": left out as restless: "), calm.errors.constData());
    QVERIFY2(calm.errors.contains(" cells, in one place: "), calm.errors.constData());
    QVERIFY(!calm.errors.contains("motion throughout"));
    const QRegularExpression times("  0:00:(3[5-9]|40)\\.\\d+ - 0:00:5[0-5]\\.");
    QVERIFY2(QString(calm.output).contains(times), calm.output.constData());
    QVERIFY(readFile(inKept("report/index.html")).contains("<svg class=\"restless\""));
    for (int again = 0; again < 2; ++again) {
        const ProcessResult asked = cells(QStringList{"--values", inKept("values")} + ignoring);
        QCOMPARE(asked, calm);
    }
    const ProcessResult early = cells({"--ignore-restless", visit}); // 20 s are too few to tell
    QVERIFY(early.errors.contains(
        ": too short to tell what is restless, which takes almost a minute\n"));
}

void TestScanCells::recordingsWithoutClipsSayHowNearTheyWere() {
    const ProcessResult far = scan({"--threshold-motion", "10", visit});
    QVERIFY2(far.errors.contains(", below 10; --detector cells may find more\n"),
             far.errors.constData());
    const QStringList keeping = {"--values", inKept("values"), "--threshold-motion", "10", visit};
    for (int again = 0; again < 2; ++again) {
        const ProcessResult known = scan(keeping);
        QVERIFY2(known.errors.contains(
                     ", below 10; --detector cells --threshold-motion 0.7 finds 1 clip\n"),
                 known.errors.constData());
    }
    QCOMPARE(scan(QStringList{"--quiet"} + keeping).errors, QByteArray());
    const ProcessResult still = cells({"--values", inKept("values"), "--format", "jsonl", quiet});
    QVERIFY2(still.errors.contains("; no --sensitivity finds a clip\n"), still.errors.constData());
    const QJsonObject line = jsonLines(still.output).value(0);
    QVERIFY(line["strongest"].isDouble());
    QVERIFY(line["strongestTime"].isDouble());
    const QStringList asked = {"--values", inKept("values"), "--threshold-motion", "100", visit};
    const ProcessResult little = cells(asked); // a box of a twentieth of the picture, counted fully
    QVERIFY2(little.errors.contains(", below 100 %; no --sensitivity finds a clip; "),
             little.errors.constData());
    const ProcessResult brief = cells({"--minimum", "10", passing});
    QVERIFY2(brief.errors.contains(", but never in half of 10 s; "), brief.errors.constData());
    const ProcessResult report = scan({"--report", inKept("report"), quiet});
    QCOMPARE(report.status, 0);
    QVERIFY(readFile(inKept("report/index.html")).contains("--detector cells may find more"));
}

void TestScanCells::recordingsWithClipsSayNothingMore() {
    const ProcessResult mean = scan({"--format", "jsonl", visit});
    QVERIFY(jsonLines(mean.output).size() > 1);
    QVERIFY(!jsonLines(mean.output).last().contains("strongest"));
    QCOMPARE(mean.errors.count('\n'), 1); // the summary
    QCOMPARE(cells({visit}).errors.count('\n'), 1);
}

void TestScanCells::whatIsGivenForNothingIsTold() {
    const ProcessResult idle = cells({"--threshold-value", "20", visit});
    QCOMPARE(idle.status, 0);
    QVERIFY2(idle.errors.startsWith("--threshold-value is for the mean; "),
             idle.errors.constData());
    QCOMPARE(idle.output, cells({visit}).output);
    const ProcessResult far = scan({"--threshold-motion", "50", visit});
    QCOMPARE(far.status, 2);
    QVERIFY(far.errors.contains("--threshold-motion takes a number from 0 to 10, not '50'"));
    QCOMPARE(cells({"--threshold-motion", "50", visit}).status, 0);
}

QTEST_GUILESS_MAIN(TestScanCells)
#include "test_scancells.moc"
