// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

// Reports, as the scanner writes them.

#include "faults.h"
#include "files.h"
#include "media.h"
#include "pipewriter.h"
#include "process.h"

#include <QDir>
#include <QFileInfo>
#include <QImage>
#include <QProcess>
#include <QTemporaryDir>
#include <QUrl>
#include <QtTest>

#include <cerrno>
#include <csignal>
#include <unistd.h>

namespace {

ProcessResult scan(const QStringList& arguments) {
    return runProgram("kestrova-scan", QStringList{"--quiet", "--merge", "0"} + arguments);
}

/// All values of an attribute.
QStringList attributes(const QByteArray& page, const QString& name) {
    const QRegularExpression attribute(' ' + name + "=\"([^\"]*)\"");
    auto matches = attribute.globalMatch(QString::fromUtf8(page));
    QStringList found;
    while (matches.hasNext())
        found.append(matches.next().captured(1));
    return found;
}

/// The bytes of the path that a reference from the folder leads to.
QByteArray target(const QString& reference, const QString& folder) {
    const QByteArray encoded = reference.section('#', 0, 0).toUtf8();
    if (encoded.startsWith("file://"))
        return QByteArray::fromPercentEncoding(encoded.mid(7));
    return folder.toUtf8() + '/' + QByteArray::fromPercentEncoding(encoded);
}

bool isThere(const QByteArray& path) {
    return ::access(path.constData(), R_OK) == 0;
}

} // namespace

class TestScanReport : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void everyLinkLeadsSomewhere();
    void outputIsThatWithoutAReport();
    void clipsAreThoseThatArePrinted();
    void givenStartIsThatOfTheFirst();
    void exportedFilesAreLinked();
    void sideBySideEqualsOneAfterAnother();
    void oddNamesAreLinked_data();
    void oddNamesAreLinked();
    void unreadableRecordingsAreListed();
    void interruptedScansAreNotComplete();
    void unwritableFoldersAreUsageErrors();
    void failuresAtTheEndAreNamed();
    void quickLooksAreMarked();
    void olderReportsAreReplaced();
    void olderReportsOutliveAFullDisk_data();
    void olderReportsOutliveAFullDisk();

private:
    QByteArray pageIn(const QString& report) const {
        return readFile(folder.filePath(report + "/index.html"));
    }

    QTemporaryDir folder;
    QString video; ///< 20 s; a box crosses from second 6 to second 12
    QString quiet; ///< 5 s without motion
};

void TestScanReport::initTestCase() {
    video = folder.filePath("visit.mp4");
    quiet = folder.filePath("quiet.mp4");
    const QStringList codec = {"-c:v", "libx264", "-preset", "ultrafast"};
    QVERIFY(media::encode(media::crossingBox(20, 6, 12) + codec + QStringList{video}));
    QVERIFY(media::encode(media::crossingBox(5, 9, 9) + codec + QStringList{quiet}));
}

void TestScanReport::everyLinkLeadsSomewhere() {
    const QString report = folder.filePath("new/links");
    QCOMPARE(scan({"--report", report, video, quiet}).status, 0);
    const QByteArray page = pageIn("new/links");
    QVERIFY(page.endsWith("</html>\n"));
    const QStringList pictures = attributes(page, "src");
    QCOMPARE(pictures, QStringList{"pictures/visit.mp4-0000.png"});
    const QImage picture(QString::fromUtf8(target(pictures[0], report)));
    QCOMPARE(attributes(page, "width").count(QString::number(picture.width())), 1);
    QCOMPARE(picture.size(), QSize(320, 240));
    const QStringList links = attributes(page, "href");
    QCOMPARE(links.size(), 2); // the first one leads past the head of the page
    QCOMPARE(target(links[1], report), video.toUtf8());
    QVERIFY(page.contains("quiet.mp4</bdi> <span"));
    // Only the pictures are beside the page, and nothing is left over from writing.
    QCOMPARE(QDir(report).entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden),
             QStringList({"index.html", "pictures"}));
}

void TestScanReport::outputIsThatWithoutAReport() {
    for (const char* format : {"text", "jsonl", "csv"}) {
        const QStringList arguments = {"--format", format, video, quiet};
        const QByteArray plain = scan(arguments).output;
        QCOMPARE(scan(arguments + QStringList{"--report", folder.filePath("same")}).output, plain);
    }
}

void TestScanReport::clipsAreThoseThatArePrinted() {
    const ProcessResult result =
        scan({"--report", folder.filePath("clips"), "--format", "jsonl", video});
    const QJsonObject clip = jsonLines(result.output).first();
    const QByteArray page = pageIn("clips");
    QCOMPARE(attributes(page, "data-start"),
             QStringList{QString::number(clip["start"].toDouble(), 'f', 3)});
    QCOMPARE(attributes(page, "data-end"),
             QStringList{QString::number(clip["end"].toDouble(), 'f', 3)});
    QVERIFY(page.contains("0:00:19 long, 1 clip<") || page.contains("0:00:20 long, 1 clip<"));
    QVERIFY(!page.contains("10:00:0"));
    const QStringList clock = {"--start-time", "2026-11-16T10:00:00"};
    QCOMPARE(scan(clock + QStringList{"--report", folder.filePath("clips"), video}).status, 0);
    QVERIFY(pageIn("clips").contains("</b> 10:00:0"));
}

void TestScanReport::givenStartIsThatOfTheFirst() {
    const QString copy = folder.filePath("later.mp4");
    QVERIFY(QFile::copy(video, copy));
    const QStringList call = {
        "--start-time", "2026-11-16T10:00:00", "--report", folder.filePath("first"), video, copy};
    const ProcessResult result = runProgram("kestrova-scan", call);
    QCOMPARE(result.status, 0);
    QCOMPARE(result.errors.count("--start-time is when the first recording began"), 1);
    const QByteArray page = pageIn("first");
    QCOMPARE(page.count(", from 2026-11-16 10:00:00"), 1);
    QVERIFY(page.contains("</b> 10:00:0"));
    QVERIFY(page.contains("</b> 0:00:0"));
    QVERIFY(!scan(call).errors.contains("--start-time"));
}

void TestScanReport::exportedFilesAreLinked() {
    const QString report = folder.filePath("exported");
    QCOMPARE(scan({"--report", report, "--export", report + "/clips", video}).status, 0);
    const QString link = attributes(pageIn("exported"), "href").last();
    QVERIFY2(link.startsWith("clips/"), qPrintable(link));
    QVERIFY(isThere(target(link, report)));
}

void TestScanReport::sideBySideEqualsOneAfterAnother() {
    const QString copy = folder.filePath("visit2.mp4");
    QVERIFY(QFile::copy(video, copy));
    const QStringList all = {video, quiet, copy, video};
    QCOMPARE(scan(QStringList{"--report", folder.filePath("one"), "--jobs", "1"} + all).status, 0);
    QCOMPARE(scan(QStringList{"--report", folder.filePath("four"), "--jobs", "4"} + all).status, 0);
    QCOMPARE(pageIn("four"), pageIn("one"));
    QCOMPARE(QDir(folder.filePath("four/pictures")).entryList(QDir::Files).size(), 3);
}

void TestScanReport::oddNamesAreLinked_data() {
    QTest::addColumn<QByteArray>("name");
    QTest::newRow("markup") << QByteArray("<script>\"&'.mp4");
    QTest::newRow("URL") << QByteArray("a#b?c%41 d:e.mp4");
    QTest::newRow("line break") << QByteArray("a\nb.mp4");
    QTest::newRow("no UTF-8") << QByteArray("a\xff\xc3.mp4");
    QTest::newRow("placeholder") << QByteArray("{{data}} %1.mp4");
}

void TestScanReport::oddNamesAreLinked() {
    QFETCH(QByteArray, name);
    const QByteArray path = folder.path().toUtf8() + '/' + name;
    QVERIFY(::link(video.toUtf8().constData(), path.constData()) == 0);
    const QString report = folder.filePath("odd");
    const QString list = folder.filePath("odd-list");
    QVERIFY(writeFile(list, path + '\0'));
    const ProcessResult result = scan({"--report", report, "--null", "--list", list});
    QVERIFY2(result.status == 0, result.errors.constData());
    const QByteArray page = pageIn("odd");
    QCOMPARE(page.count("<script"), 2);
    QCOMPARE(target(attributes(page, "href").last(), report), path);
    QVERIFY(isThere(target(attributes(page, "src").last(), report)));
    QVERIFY(::unlink(path.constData()) == 0);
}

void TestScanReport::unreadableRecordingsAreListed() {
    const QString text = folder.filePath("text.mp4");
    QVERIFY(writeFile(text, "no recording"));
    const ProcessResult result = scan({"--report", folder.filePath("failed"), text, video});
    QCOMPARE(result.status, 3);
    const QByteArray page = pageIn("failed");
    QVERIFY(page.indexOf("text.mp4</bdi> <span", page.indexOf("id=\"failed\"")) > 0);
    QVERIFY(page.contains("visit.mp4-0000.png"));
    QVERIFY(!page.contains("not complete"));
}

void TestScanReport::interruptedScansAreNotComplete() {
    const QString pipe = folder.filePath("stalled.mkv");
    const QString whole = folder.filePath("whole.mkv");
    QVERIFY(media::encode({"-i", video, "-c", "copy", whole}));
    const PipeWriter writer(pipe, readFile(whole) + QByteArray(1 << 20, 0));
    const QString trace = folder.filePath("trace");
    QProcess process;
    process.start(media::programDirectory() + "/kestrova-scan",
                  {"--trace", trace, "--report", folder.filePath("cut"), pipe, quiet});
    QTRY_VERIFY(readFile(trace).contains("\n400\t"));
    ::kill(pid_t(process.processId()), SIGINT);
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.exitCode(), 130);
    const QByteArray page = pageIn("cut");
    QVERIFY(page.contains("not complete"));
    QVERIFY(page.contains("pictures/stalled.mkv-0000.png"));
    QVERIFY(page.contains("quiet.mp4</bdi> <span class=\"facts\">not begun"));
    QVERIFY(page.endsWith("</html>\n"));
}

void TestScanReport::unwritableFoldersAreUsageErrors() {
    const ProcessResult result = scan({"--report", "/dev/null/report", video});
    QCOMPARE(result.status, 2);
    QCOMPARE(result.output, QByteArray());
    QVERIFY2(result.errors.contains("/dev/null/report: cannot write into this folder"),
             result.errors.constData());
    QVERIFY(QDir(folder.path()).mkdir("taken"));
    QVERIFY(writeFile(folder.filePath("taken/pictures"), ""));
    const ProcessResult below = scan({"--report", folder.filePath("taken"), video});
    QCOMPARE(below.status, 2);
    QVERIFY2(below.errors.contains("taken/pictures: "), below.errors.constData());
    QCOMPARE(scan({"--report", "", video}).status, 2);
}

void TestScanReport::failuresAtTheEndAreNamed() {
    QVERIFY(QDir(folder.path()).mkpath("stuck/index.html"));
    QVERIFY(QDir(folder.path()).mkpath("stuck/pictures/visit.mp4-0000.png"));
    const ProcessResult result = scan({"--report", folder.filePath("stuck"), video});
    QCOMPARE(result.status, 1);
    QCOMPARE(result.output.count('\n'), 1);
    QVERIFY2(result.errors.contains("stuck/index.html: cannot write the report: "),
             result.errors.constData());
    QVERIFY2(result.errors.contains("visit.mp4: cannot write the picture "),
             result.errors.constData());
    QCOMPARE(QDir(folder.filePath("stuck")).entryList(QDir::Files | QDir::Hidden), QStringList());
}

/// Also where it is refined; the recording is then as long as it is.
void TestScanReport::quickLooksAreMarked() {
    const QByteArray mark = "Only key frames were looked at";
    const QString looked = folder.filePath("looked.mp4");
    QVERIFY(
        media::encode(media::crossingBox(60, 40, 46) +
                      QStringList{"-c:v", "libx264", "-preset", "ultrafast", "-g", "25", looked}));
    const QStringList options = {"--minimum", "2", looked, "--report"};
    scan(options + QStringList{folder.filePath("exact")});
    QVERIFY(!pageIn("exact").contains(mark));
    for (const QStringList& more : QList<QStringList>{{"--quick"}, {"--quick", "--refine"}}) {
        const ProcessResult result = scan(options + QStringList{folder.filePath("looked")} + more);
        QCOMPARE(result.status, 0);
        const QByteArray page = pageIn("looked");
        QVERIFY(page.contains(mark));
        QVERIFY2(page.contains("0:00:59 searched, 1 clip "),
                 page.mid(page.indexOf("searched") - 60, 90).constData());
        QVERIFY(page.contains("0:00:59 long, 1 clip"));
    }
    // Where nothing was found there is nothing to search.
    scan(options +
         QStringList{folder.filePath("looked"), "--quick", "--refine", "--threshold-motion", "10"});
    QVERIFY(pageIn("looked").contains("0:00:59 long, strongest motion "));
}

void TestScanReport::olderReportsAreReplaced() {
    QCOMPARE(scan({"--report", folder.filePath("again"), video}).status, 0);
    QCOMPARE(scan({"--report", folder.filePath("again"), quiet}).status, 0);
    QVERIFY(!pageIn("again").contains("visit.mp4"));
    QVERIFY(pageIn("again").contains("1 recording, "));
}

void TestScanReport::olderReportsOutliveAFullDisk_data() {
    QTest::addColumn<QByteArray>("call");
    QTest::newRow("the page does not fit") << QByteArray("write");
    QTest::newRow("it does not reach the disk") << QByteArray("fsync");
    QTest::newRow("it cannot take its name") << QByteArray("rename");
}

void TestScanReport::olderReportsOutliveAFullDisk() {
    QFETCH(QByteArray, call);
    QCOMPARE(scan({"--report", folder.filePath("kept"), video}).status, 0);
    const QByteArray older = pageIn("kept");
    // Without a clip the page is all that is written there; its file may have no name yet.
    const auto environment =
        faults::callError(call.constData(), ENOSPC, "/kept/", call == "write" ? 5000 : 0);
    const ProcessResult result =
        runProgramIn(environment, "kestrova-scan", {"--report", folder.filePath("kept"), quiet});
    QCOMPARE(result.status, 1);
    QVERIFY2(result.errors.contains("kept/index.html: cannot write the report: "),
             result.errors.constData());
    QCOMPARE(pageIn("kept"), older);
    QCOMPARE(QDir(folder.filePath("kept")).entryList(QDir::Files | QDir::Hidden),
             QStringList{"index.html"});
}

QTEST_GUILESS_MAIN(TestScanReport)
#include "test_scanreport.moc"
