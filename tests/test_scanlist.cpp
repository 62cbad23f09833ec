// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

// The scanner where a list or a folder tells the recordings.

#include "files.h"
#include "media.h"
#include "openwatch.h"
#include "process.h"

#include <QDir>
#include <QDirIterator>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

namespace {

const QStringList jsonl = {"--quiet", "--format", "jsonl"};

ProcessResult scan(const QStringList& arguments) {
    return runProgram("kestrova-scan", arguments);
}

/// The names of the recordings in the order in which they ended.
QStringList scanned(const ProcessResult& result) {
    QStringList names;
    for (const QJsonObject& line : jsonLines(result.output)) {
        if (line["state"].toString() == "finished")
            names.append(line["video"].toString());
    }
    return names;
}

} // namespace

class TestScanList : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void folderIsSearched();
    void listIsSearched();
    void listFromStandardInput();
    void severalListsAreSearched();
    void namesAreThoseOfTheSearch();
    void unmeasuredAreThoseWithoutValues();
    void namesTellThatTheyAreNoClips();
    void whatCannotBeReadIsNamed();
    void nothingFoundIsNoFailure();
    void traceOverwritesNothingFound();
    void usageErrors_data();
    void usageErrors();

private:
    QString path(const QString& name) const { return folder.filePath(name); }

    QTemporaryDir folder; ///< a/1.mp4 and a/b/2.mkv, 1 s each; a/notes.txt
    QStringList both;
};

void TestScanList::initTestCase() {
    QVERIFY(QDir(folder.path()).mkpath("a/b"));
    both = QStringList{path("a/1.mp4"), path("a/b/2.mkv")};
    for (const QString& video : both)
        QVERIFY(media::encode(media::crossingBox(1, 0, 1) + QStringList{"-c:v", "mpeg4", video}));
    QVERIFY(writeFile(path("a/notes.txt"), "no video\n"));
}

void TestScanList::folderIsSearched() {
    const ProcessResult result = scan(jsonl + QStringList{path("a")});
    QCOMPARE(result.status, 0);
    QCOMPARE(result.errors, QByteArray());
    QCOMPARE(scanned(result), both);
    QCOMPARE(result.output, scan(jsonl + both).output);
    QCOMPARE(scanned(scan(jsonl + QStringList{"--jobs", "2", path("a"), both[0]})),
             both + QStringList{both[0]});
}

void TestScanList::listIsSearched() {
    QVERIFY(writeFile(path("list"), (both[1] + '\n' + path("a/b") + '\n').toUtf8()));
    const ProcessResult result = scan(jsonl + QStringList{"--list", path("list"), both[0]});
    QCOMPARE(result.status, 0);
    QCOMPARE(scanned(result), QStringList({both[0], both[1], both[1]}));
}

void TestScanList::listFromStandardInput() {
    QVERIFY(writeFile(path("null"), both.join(QChar(0)).toUtf8()));
    QProcess process;
    process.setStandardInputFile(path("null"));
    process.start(media::programDirectory() + "/kestrova-scan",
                  jsonl + QStringList{"--list", "-", "--null"});
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.exitCode(), 0);
    ProcessResult result;
    result.output = process.readAllStandardOutput();
    QCOMPARE(scanned(result), both);
}

void TestScanList::severalListsAreSearched() {
    QVERIFY(writeFile(path("first"), both[1].toUtf8()));
    QVERIFY(writeFile(path("second"), both[0].toUtf8()));
    const QStringList lists = {"--list", path("first"), "--list", path("second")};
    const ProcessResult result = scan(jsonl + lists);
    QCOMPARE(result.status, 0);
    QCOMPARE(scanned(result), QStringList({both[1], both[0]}));
    for (const char* list : {"first", "second"})
        QVERIFY(scan(lists + QStringList{"--trace", path(list)})
                    .errors.contains("--trace would overwrite the list"));
    QCOMPARE(readFile(path("first")), both[1].toUtf8());
}

void TestScanList::namesTellThatTheyAreNoClips() {
    const QStringList names = {"--names", "--format", "csv", path("a")};
    const ProcessResult result = scan(names);
    QCOMPARE(result.status, 0);
    QCOMPARE(result.output, (both.join(QChar()) + QChar()).toUtf8());
    QCOMPARE(result.errors,
             QByteArray("--names prints names and no clips, so that --format changes nothing\n"));
    QCOMPARE(scan(names + QStringList{"--quiet"}).errors, QByteArray());
}

void TestScanList::namesAreThoseOfTheSearch() {
    const QString odd = path("odd\n name.mkv"); // never opened: it need not be there
    const QByteArray names = (both.join(QChar()) + QChar() + odd + QChar()).toUtf8();
    const ProcessResult result = scan({"--names", "--snapshots", path("none"), path("a"), odd});
    QCOMPARE(result.status, 0);
    QCOMPARE(result.output, names);
    QVERIFY(!QFileInfo::exists(path("none")));
    QVERIFY(writeFile(path("names"), names));
    QCOMPARE(scan({"--names", "--list", path("names"), "--null"}).output, names);
    QCOMPARE(scan({"--names", "--list", path("missing"), odd}).status, 1);
    QCOMPARE(scan({"--names"}).status, 2);
}

void TestScanList::unmeasuredAreThoseWithoutValues() {
    const QString missing = path("missing.mkv"); // what is not there cannot be kept
    const QStringList asked = {"--unmeasured", "--values", path("kept"), path("a"), missing};
    const auto names = [](const QStringList& videos) {
        return videos.isEmpty() ? QByteArray() : (videos.join(QChar()) + QChar()).toUtf8();
    };
    OpenWatch watch(both);
    QCOMPARE(scan(asked).output, names(both));
    if (const int opened = watch.count(); opened >= 0) // -1 where nothing can be watched
        QCOMPARE(opened, 0);
    QVERIFY(!QFileInfo::exists(path("kept")));
    QCOMPARE(scan({"--values", path("kept"), both[0]}).status, 0);
    QCOMPARE(scan(asked).output, names({both[1]}));
    QCOMPARE(scan(asked + QStringList{"--jobs", "3", both[0]}).output, names({both[1]}));
    QCOMPARE(scan(asked + QStringList{"--skip", "1"}).output, names(both));
    // In parts: all of them, or it is left.
    QCOMPARE(scan({"--values", path("kept"), "--part", "1/2", both[1]}).status, 0);
    QCOMPARE(scan(asked).output, names({both[1]}));
    QCOMPARE(scan({"--values", path("kept"), "--part", "2/2", both[1]}).status, 0);
    QCOMPARE(scan(asked).output, QByteArray());
    QDirIterator files(path("kept"), {"1.mp4*.values"});
    QVERIFY(writeFile(files.next(), "damaged\n"));
    const ProcessResult damaged = scan(asked);
    QCOMPARE(damaged.status, 0);
    QCOMPARE(damaged.output, names({both[0]}));
    QVERIFY(damaged.errors.contains("not used, measured anew"));
    QCOMPARE(scan({"--unmeasured", path("a")}).status, 2);
    QCOMPARE(scan(asked + QStringList{"--part", "1/2"}).status, 2);
}

void TestScanList::whatCannotBeReadIsNamed() {
    const ProcessResult result =
        scan(jsonl + QStringList{"--list", path("missing"), path("a"), path("gone.mp4")});
    QCOMPARE(result.status, 1);
    QCOMPARE(scanned(result), both);
    QVERIFY(result.errors.startsWith("kestrova-scan: " + path("missing").toUtf8() +
                                     ": cannot read this list: No such file or directory\n"));
    QCOMPARE(result.errors.count('\n'), 2);
    QCOMPARE(scan({"--list", path("missing")}).status, 1);
}

void TestScanList::nothingFoundIsNoFailure() {
    QVERIFY(QDir(folder.path()).mkpath("empty"));
    const ProcessResult result = scan({"--format", "csv", path("empty")});
    QCOMPARE(result.status, 0);
    QCOMPARE(result.output, QByteArray("video,index,start,end,snapshotTime,snapshot\r\n"));
    QCOMPARE(result.errors, "kestrova-scan: " + path("empty").toUtf8() +
                                ": warning: no file below this folder is named like a video\n");
    const ProcessResult list = scan({"--list", "-"});
    QCOMPARE(list.status, 0);
    QVERIFY(list.errors.startsWith("kestrova-scan: -: warning: "));
}

void TestScanList::traceOverwritesNothingFound() {
    const QByteArray before = readFile(both[1]);
    const ProcessResult result = scan({"--trace", both[1], path("a")});
    QCOMPARE(result.status, 2);
    QVERIFY(result.errors.contains("--trace would overwrite the video"));
    QCOMPARE(readFile(both[1]), before);
    QVERIFY(writeFile(path("list"), both[0].toUtf8()));
    QVERIFY(scan({"--trace", path("list"), "--list", path("list")})
                .errors.contains("--trace would overwrite the list"));
    QCOMPARE(readFile(path("list")), both[0].toUtf8());
}

void TestScanList::usageErrors_data() {
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QByteArray>("message");
    QTest::newRow("no list") << QStringList{"--null", "a.mp4"} << QByteArray("--null needs --list");
    QTest::newRow("empty name") << QStringList{"--list="} << QByteArray("--list needs a name");
    QTest::newRow("empty name of several")
        << QStringList{"--list", "a", "--list="} << QByteArray("--list needs a name");
    QTest::newRow("empty recording")
        << QStringList{"a.mp4", ""} << QByteArray("an empty name is no recording");
    QTest::newRow("another format") << QStringList{"--format", "json", "a.mp4"}
                                    << QByteArray("not 'json' (did you mean jsonl?)");
    QTest::newRow("format in capitals")
        << QStringList{"--format", "CSV", "a.mp4"} << QByteArray("not 'CSV' (did you mean csv?)");
    QTest::newRow("option that there is not")
        << QStringList{"--threshhold-motion", "1", "a.mp4"}
        << QByteArray("'threshhold-motion' (did you mean --threshold-motion?)");
}

void TestScanList::usageErrors() {
    QFETCH(QStringList, arguments);
    const ProcessResult result = scan(arguments);
    QCOMPARE(result.status, 2);
    QFETCH(QByteArray, message);
    QVERIFY2(result.errors.contains(message), result.errors.constData());
}

QTEST_GUILESS_MAIN(TestScanList)
#include "test_scanlist.moc"
