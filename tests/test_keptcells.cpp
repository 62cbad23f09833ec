// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

// Maps of cells that the scanner has kept: they count, whatever the region was, as long as nothing
// has befallen them.

#include "faults.h"
#include "files.h"
#include "media.h"
#include "process.h"
#include "sample.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QtTest>

#include <cerrno>
#include <memory>
#include <sys/stat.h>

class TestKeptCells : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();

    void mapsCountWhateverTheRegionWas_data();
    void mapsCountWhateverTheRegionWas();
    void otherSettingsAreMeasuredAnew_data();
    void otherSettingsAreMeasuredAnew();
    void valuesWithoutMapsCountForTheMean();
    void flawedMapsAreNamedAndReplaced_data();
    void flawedMapsAreNamedAndReplaced();
    void theMeanLooksAtNoMaps();
    void mapsOfOtherValuesAreNobodys();
    void mapsThatCannotBeWritten_data();
    void mapsThatCannotBeWritten();
    void manyMapsAreKeptWhereverTheyWere_data();
    void manyMapsAreKeptWhereverTheyWere();
    void mapsThatAreGoneAreNotKept();
    void plantedLinksAreNotFollowed();
    void unmeasuredKnowsWhatDecides();
    void valuesInPlaceOfTheRecording();
    void partsAreJoined();
    void partsWithoutMapsCountForTheMean();
    void unreadableRecordingsNeedNoMaps();

private:
    ProcessResult scan(const QStringList& options) const {
        return runProgram("kestrova-scan", QStringList{"--quiet"} + options);
    }
    ProcessResult cells(const QStringList& options) const {
        return scan(QStringList{"--detector", "cells"} + options);
    }
    QString path(const QString& name) const { return results->filePath(name); }
    QStringList keeping() const { return {"--values", path("kept")}; }
    QString kept(const QString& ending) const {
        const QDir folder(path("kept"));
        return folder.filePath(folder.entryList({"*" + ending}, QDir::AllEntries).value(0));
    }

    QTemporaryDir recordings;
    QString video; ///< 20 s; a box crosses from second 6 to second 12
    QString busy;  ///< its maps take 8 MB
    std::unique_ptr<QTemporaryDir> results;
};

void TestKeptCells::initTestCase() {
    video = recordings.filePath("garden.mp4");
    QVERIFY(media::encode(media::crossingBox(20, 6, 12) +
                          QStringList{"-c:v", "libx264", "-preset", "ultrafast", video}));
    QVERIFY(!cells({video}).output.isEmpty());
    busy = recordings.filePath("busy.mp4");
    const QString part = recordings.filePath("part.mp4");
    QVERIFY(media::encode({"-f", "lavfi", "-i",
                           "testsrc2=s=160x120:r=10:d=100,noise=alls=25:allf=t:all_seed=7", "-c:v",
                           "libx264", "-preset", "ultrafast", "-g", "50", part}));
    QVERIFY(media::encode({"-stream_loop", "6", "-i", part, "-c", "copy", busy}));
}

void TestKeptCells::init() {
    results = std::make_unique<QTemporaryDir>();
}

void TestKeptCells::mapsCountWhateverTheRegionWas_data() {
    QTest::addColumn<QStringList>("before");
    QTest::addColumn<QStringList>("now");
    const QStringList corner = {"--roi", "0,0,60,60"};
    QTest::newRow("the same") << QStringList() << QStringList();
    QTest::newRow("whole, then a corner") << QStringList() << corner;
    QTest::newRow("a corner, then whole") << corner << QStringList();
    QTest::newRow("threshold of pixels") << QStringList{"--threshold-value", "10"} << corner;
    QTest::newRow("left out") << QStringList{"--exclude", "0,0,60,60"} << QStringList();
    QTest::newRow("kept by cells") << QStringList{"--detector", "cells"} + corner << QStringList();
    QTest::newRow("outside the picture")
        << QStringList{"--roi", "5000,5000,10,10"} << QStringList();
}

/// Nothing is written anew, and a named values file decides alike.
void TestKeptCells::mapsCountWhateverTheRegionWas() {
    KESTROVA_SAMPLED_ROW();
    QFETCH(QStringList, before);
    QFETCH(QStringList, now);
    QCOMPARE(scan(before + keeping() + QStringList{video}).status, 0);
    const QByteArray values = readFile(kept(".values"));
    const QByteArray maps = readFile(kept(".cells"));
    QVERIFY(!maps.isEmpty());
    const ProcessResult fresh = cells(now + QStringList{video});
    const ProcessResult again = cells(now + keeping() + QStringList{video});
    QVERIFY2(again == fresh, again.errors.constData());
    QCOMPARE(readFile(kept(".values")), values);
    QCOMPARE(readFile(kept(".cells")), maps);
    const ProcessResult named = cells(now + QStringList{kept(".values")});
    QVERIFY2(named == fresh, named.errors.constData());
}

void TestKeptCells::otherSettingsAreMeasuredAnew_data() {
    QTest::addColumn<QStringList>("options");
    QTest::newRow("skip") << QStringList{"--skip", "1"};
    QTest::newRow("rate") << QStringList{"--fps", "12.5"};
    QTest::newRow("key frames") << QStringList{"--quick"};
    QTest::newRow("range") << QStringList{"--from", "3"};
}

void TestKeptCells::otherSettingsAreMeasuredAnew() {
    QFETCH(QStringList, options);
    QCOMPARE(scan(keeping() + QStringList{video}).status, 0);
    const QByteArray maps = readFile(kept(".cells"));
    const ProcessResult fresh = cells(options + QStringList{video});
    QVERIFY(cells(options + keeping() + QStringList{video}) == fresh);
    QVERIFY(readFile(kept(".cells")) != maps);
    QVERIFY(cells(options + keeping() + QStringList{video}) == fresh);
}

void TestKeptCells::valuesWithoutMapsCountForTheMean() {
    const ProcessResult mean = scan(keeping() + QStringList{video});
    const QByteArray values = readFile(kept(".values"));
    const QByteArray maps = readFile(kept(".cells"));
    QVERIFY(QFile::remove(kept(".cells")));
    QVERIFY(scan(keeping() + QStringList{video}) == mean);
    QCOMPARE(QDir(path("kept")).entryList({"*.cells"}), QStringList());
    const ProcessResult anew = runProgram("kestrova-scan", QStringList{"--detector", "cells"} +
                                                               keeping() + QStringList{video});
    QVERIFY2(anew.errors.contains(": kept without maps of cells; measured anew\n"),
             anew.errors.constData());
    QCOMPARE(readFile(kept(".values")), values);
    QCOMPARE(readFile(kept(".cells")), maps);
}

void TestKeptCells::flawedMapsAreNamedAndReplaced_data() {
    QTest::addColumn<QString>("kind");
    for (const char* kind : {"cut", "changed", "foreign", "longer", "folder", "pipe", "sparse"})
        QTest::newRow(kind) << kind;
}

void TestKeptCells::flawedMapsAreNamedAndReplaced() {
    KESTROVA_SAMPLED_ROW();
    QFETCH(QString, kind);
    const ProcessResult fresh = cells(keeping() + QStringList{video});
    const QString name = kept(".cells");
    const QByteArray good = readFile(name);
    QByteArray bytes = good;
    QVERIFY(QFile::remove(name));
    if (kind == "cut")
        bytes.truncate(bytes.size() / 2);
    else if (kind == "changed")
        bytes[bytes.size() - 20] = char(bytes[bytes.size() - 20] + 1);
    else if (kind == "foreign")
        bytes = readFile(video);
    else if (kind == "longer")
        bytes += '\0';
    if (kind == "folder")
        QVERIFY(QDir().mkdir(name));
    else if (kind == "pipe")
        QCOMPARE(mkfifo(qPrintable(name), 0600), 0);
    else
        QVERIFY(writeFile(name, bytes));
    if (kind == "sparse")
        QVERIFY(QFile::resize(name, Q_INT64_C(1) << 32));

    const ProcessResult again = cells(keeping() + QStringList{video});
    const QByteArray told = "kestrova-scan: " + name.toUtf8() + ": not used, measured anew: ";
    QVERIFY2(again.errors.startsWith(told), again.errors.constData());
    QCOMPARE(again.errors.count(told), 1);
    QCOMPARE(again.output, fresh.output);
    QCOMPARE(again.status, kind == "folder" ? 1 : 0); // nothing can be kept there
    if (kind != "folder")
        QCOMPARE(readFile(name), good);
}

void TestKeptCells::theMeanLooksAtNoMaps() {
    const ProcessResult mean = scan(keeping() + QStringList{video});
    const QString name = kept(".cells");
    QVERIFY(writeFile(name, "damaged"));
    QVERIFY(scan(keeping() + QStringList{video}) == mean);
    QVERIFY(scan({kept(".values")}).status == 0);
    QCOMPARE(readFile(name), QByteArray("damaged"));
}

/// As they lie there when a scan is killed between the two files.
void TestKeptCells::mapsOfOtherValuesAreNobodys() {
    const ProcessResult mean = scan(keeping() + QStringList{video});
    const QByteArray values = readFile(kept(".values"));
    QCOMPARE(scan(QStringList{"--threshold-value", "5"} + keeping() + QStringList{video}).status,
             0);
    QVERIFY(readFile(kept(".values")) != values);
    QVERIFY(writeFile(kept(".values"), values));
    QVERIFY(scan(keeping() + QStringList{video}) == mean);
    const ProcessResult anew = cells(keeping() + QStringList{video});
    QVERIFY2(anew.errors.contains(".cells: not used, measured anew: it is of other values\n"),
             anew.errors.constData());
    QCOMPARE(anew.output, cells({video}).output);
    QCOMPARE(readFile(kept(".values")), values);
    QVERIFY(cells(keeping() + QStringList{video}).errors.isEmpty());
}

void TestKeptCells::mapsThatCannotBeWritten_data() {
    QTest::addColumn<QString>("call");
    QTest::addColumn<int>("error");
    QTest::addColumn<int>("room");
    QTest::newRow("full") << "write" << ENOSPC << 0;
    QTest::newRow("fills up") << "write" << ENOSPC << 500;
    QTest::newRow("no disk") << "fsync" << EIO << 0;
    QTest::newRow("read-only") << "rename" << EROFS << 0;
}

/// The values are kept all the same, and count for the mean.
void TestKeptCells::mapsThatCannotBeWritten() {
    QFETCH(QString, call);
    QFETCH(int, error);
    QFETCH(int, room);
    const ProcessResult fresh = scan({video});
    const auto environment = faults::callError(qPrintable(call), error, ".cells", room);
    const ProcessResult failed = runProgramIn(
        environment, "kestrova-scan", QStringList{"--quiet"} + keeping() + QStringList{video});
    QCOMPARE(failed.status, 1);
    QCOMPARE(failed.output, fresh.output);
    QVERIFY2(failed.errors.contains(".cells: cannot keep the maps of cells: " +
                                    qt_error_string(error).toUtf8() + '\n'),
             failed.errors.constData());
    QCOMPARE(QDir(path("kept")).entryList(QDir::AllEntries | QDir::NoDotAndDotDot).size(), 1);
    QVERIFY(scan(keeping() + QStringList{video}) == fresh);
    QCOMPARE(cells(keeping() + QStringList{video}).status, 0);
    QVERIFY(!readFile(kept(".cells")).isEmpty());
}

void TestKeptCells::manyMapsAreKeptWhereverTheyWere_data() {
    QTest::addColumn<QString>("call");
    QTest::addColumn<int>("error");
    QTest::newRow("no folder for a file") << "unnamed" << EROFS;
    QTest::newRow("full disk") << "pwrite" << ENOSPC;
}

/// In memory alone, where there is no file for them.
void TestKeptCells::manyMapsAreKeptWhereverTheyWere() {
    QFETCH(QString, call);
    QFETCH(int, error);
    const QStringList options = {"--quiet", "--detector", "cells", "--values"};
    const ProcessResult usual =
        runProgram("kestrova-scan", options + QStringList{path("usual"), busy});
    QCOMPARE(usual.status, 0);
    const ProcessResult inMemory =
        runProgramIn(faults::callError(qPrintable(call), error, "/"), "kestrova-scan",
                     options + QStringList{path("kept"), busy});
    QVERIFY(inMemory == usual);
    const QByteArray maps = readFile(kept(".cells"));
    QVERIFY(maps.size() > 6 * 1000 * 1000);
    QVERIFY(maps == readFile(path("usual/") + QFileInfo(kept(".cells")).fileName()));
    QVERIFY(cells(keeping() + QStringList{busy}) == usual);
}

/// What was put aside cannot be read any more. The mean does not need it.
void TestKeptCells::mapsThatAreGoneAreNotKept() {
    const ProcessResult fresh = scan({busy});
    QTemporaryDir aside;
    QProcessEnvironment environment = faults::callError("pread", EIO, aside.path());
    environment.insert("TMPDIR", aside.path());
    const ProcessResult failed = runProgramIn(
        environment, "kestrova-scan", QStringList{"--quiet"} + keeping() + QStringList{busy});
    QCOMPARE(failed.status, 1);
    QCOMPARE(failed.output, fresh.output);
    QVERIFY2(failed.errors.contains(".cells: cannot keep the maps of cells: out of memory\n"),
             failed.errors.constData());
    QCOMPARE(QDir(path("kept")).entryList(QDir::AllEntries | QDir::NoDotAndDotDot).size(), 1);
    QVERIFY(scan(keeping() + QStringList{busy}) == fresh);
}

void TestKeptCells::plantedLinksAreNotFollowed() {
    QCOMPARE(scan(keeping() + QStringList{video}).status, 0);
    const QString name = kept(".cells");
    const QString secret = path("secret");
    QVERIFY(writeFile(secret, "mine"));
    QVERIFY(QFile::remove(name));
    QVERIFY(QFile::link(secret, name));
    QCOMPARE(cells(keeping() + QStringList{video}).status, 0);
    QCOMPARE(readFile(secret), QByteArray("mine"));
    QVERIFY(!QFileInfo(name).isSymLink());
}

void TestKeptCells::unmeasuredKnowsWhatDecides() {
    const QByteArray named = video.toUtf8() + '\0';
    QCOMPARE(scan(keeping() + QStringList{video}).status, 0);
    const QStringList ask = QStringList{"--unmeasured"} + keeping();
    QCOMPARE(cells(ask + QStringList{"--roi", "0,0,60,60", video}).output, QByteArray());
    QCOMPARE(scan(ask + QStringList{"--roi", "0,0,60,60", video}).output, named);
    QVERIFY(QFile::remove(kept(".cells")));
    QCOMPARE(cells(ask + QStringList{video}).output, named);
    QCOMPARE(scan(ask + QStringList{video}).output, QByteArray());
}

void TestKeptCells::valuesInPlaceOfTheRecording() {
    QCOMPARE(scan(keeping() + QStringList{video}).status, 0);
    const QString values = kept(".values");
    QCOMPARE(cells({values}).output, cells({video}).output);
    QVERIFY(writeFile(kept(".cells"), "damaged"));
    const ProcessResult damaged = cells({values});
    QCOMPARE(damaged.status, 1);
    QVERIFY2(damaged.errors.endsWith(".cells: it is no file with maps of cells\n"),
             damaged.errors.constData());
    QVERIFY(QFile::remove(kept(".cells")));
    const ProcessResult without = cells({values});
    QCOMPARE(without.status, 1);
    QVERIFY2(without.errors.contains(values.toUtf8() + ": no maps of cells are kept beside it"),
             without.errors.constData());
    QCOMPARE(scan({values}).status, 0);
}

void TestKeptCells::partsAreJoined() {
    for (const char* part : {"1/3", "2/3", "3/3"})
        QCOMPARE(scan(keeping() + QStringList{"--part", part, video}).status, 0);
    const ProcessResult joined = cells(keeping() + QStringList{"--roi", "0,0,160,200", video});
    QVERIFY2(joined == cells({"--roi", "0,0,160,200", video}), joined.errors.constData());
    const QDir folder(path("kept"));
    QCOMPARE(folder.entryList({"*.values"}).size(), 4);
    const int parts = folder.entryList({"*of3.cells"}).size(); // of those that hold pictures
    QCOMPARE(folder.entryList({"*.cells"}).size(), parts + 1);
    QVERIFY(cells(keeping() + QStringList{video}) == cells({video}));
}

void TestKeptCells::partsWithoutMapsCountForTheMean() {
    for (const char* part : {"1/2", "2/2"})
        QCOMPARE(scan(keeping() + QStringList{"--part", part, video}).status, 0);
    QVERIFY(QFile::remove(kept("-2of2.cells")));
    QVERIFY(scan(keeping() + QStringList{video}) == scan({video}));
    QCOMPARE(QDir(path("kept")).entryList({"*.values"}).size(), 3);
    QCOMPARE(QDir(path("kept")).entryList({"*.cells"}).size(), 1);
    QVERIFY(cells(keeping() + QStringList{video}) == cells({video}));
    QCOMPARE(QDir(path("kept")).entryList({"*.cells"}).size(), 2);
}

void TestKeptCells::unreadableRecordingsNeedNoMaps() {
    const QString noise = path("noise.mp4");
    QVERIFY(writeFile(noise, QByteArray(5000, 'x')));
    const ProcessResult fresh = cells({noise});
    QCOMPARE(fresh.status, 3);
    QVERIFY(cells(keeping() + QStringList{noise}) == fresh);
    QCOMPARE(cells(keeping() + QStringList{"--unmeasured", noise}).output, QByteArray());
    QCOMPARE(QDir(path("kept")).entryList({"*.cells"}), QStringList());
}

QTEST_GUILESS_MAIN(TestKeptCells)
#include "test_keptcells.moc"
