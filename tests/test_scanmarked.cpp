// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

// What somebody has marked in a report is cut out, and nothing else is opened.

#include "clipprobe.h"
#include "encoderstand.h"
#include "files.h"
#include "media.h"
#include "openwatch.h"
#include "process.h"
#include "scannerstand.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>
#include <sys/stat.h>

namespace {

/// A clip that a search has found, as a report marks it.
QJsonObject marked(const QJsonObject& clip, const QString& mark = QStringLiteral("keep")) {
    const QString video = clip["video"].toString();
    struct stat found {};
    stat(QFile::encodeName(video).constData(), &found);
    const qint64 modified = found.st_mtim.tv_sec * 1000LL + found.st_mtim.tv_nsec / 1000000;
    return {{"recording", video},
            {"size", qint64(found.st_size)},
            {"modified", modified},
            {"number", clip["index"]},
            {"start", clip["start"]},
            {"end", clip["end"]},
            {"mark", mark}};
}

} // namespace

class TestScanMarked : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void filesAreThoseOfAFreshExport_data();
    void filesAreThoseOfAFreshExport();
    void linesAreThoseOfAFreshExport();
    void nothingElseIsOpened();
    void whatHasChangedIsLeftOut_data();
    void whatHasChangedIsLeftOut();
    void namesCannotSteer();
    void noFileOfMarks();
    void pipesNobodyWritesTo();
    void nothingIsKept();
    void timesThatMakeNoSense();
    void clipsThatGoOn();
    void partsThatAreLeftOut();
    void partsThatMakeNoSense();
    void recapIsInTheOrderOfTheMarks();
    void optionsThatSearchAreRefused_data();
    void optionsThatSearchAreRefused();
    void outputThatIsLost();

private:
    ProcessResult scan(const QStringList& arguments);
    QList<QJsonObject> clips(const QStringList& more = oneClip);
    QString write(const QList<QJsonObject>& marks);
    void makeHalves();
    static QJsonObject markedWithParts(const QJsonObject& clip);
    QString path(const QString& name) const { return results->filePath(name); }

    ScannerStand scanner;
    QTemporaryDir recordings;
    QString visit;
    QString other;      ///< its pictures stand alone
    QString raw;        ///< without times
    QStringList halves; ///< of the visit, one of which goes on in the other
    std::unique_ptr<QTemporaryDir> results;
    std::unique_ptr<EncoderStand> encoder;
};

void TestScanMarked::initTestCase() {
    visit = recordings.filePath("visit.mp4");
    QVERIFY(encodeVisit(visit));
    other = recordings.filePath("other.avi");
    QVERIFY(media::encode(media::crossingBox(20, 7, 13, "160x120") +
                          QStringList{"-c:v", "mjpeg", other}));
    raw = recordings.filePath("raw.h264");
    QVERIFY(media::encode({"-i", visit, "-c", "copy", "-f", "h264", raw}));
}

void TestScanMarked::init() {
    results = std::make_unique<QTemporaryDir>();
    encoder = std::make_unique<EncoderStand>();
    encoder->useRealEncoder();
}

void TestScanMarked::cleanup() {
    encoder.reset();
}

ProcessResult TestScanMarked::scan(const QStringList& arguments) {
    return runProgram(ScannerStand::path(), QStringList{"--quiet"} + arguments);
}

/// Those that a search finds with these options, by default one of each recording.
QList<QJsonObject> TestScanMarked::clips(const QStringList& more) {
    QList<QJsonObject> found;
    const ProcessResult result =
        scan(QStringList{"--format", "jsonl"} + more + QStringList{visit, other, raw});
    for (const QJsonObject& line : jsonLines(result.output)) {
        if (!line.contains("state"))
            found.append(line);
    }
    return found;
}

QString TestScanMarked::write(const QList<QJsonObject>& marks) {
    QJsonArray all;
    for (const QJsonObject& mark : marks)
        all.append(mark);
    writeFile(path("marks.json"),
              QJsonDocument({{"kestrova", "marks"}, {"version", 1}, {"clips", all}}).toJson());
    return path("marks.json");
}

void TestScanMarked::filesAreThoseOfAFreshExport_data() {
    QTest::addColumn<QStringList>("options");
    // Files in MKV hold a random number.
    QTest::newRow("copied") << QStringList{"--container", "mp4"};
    QTest::newRow("encoded anew") << oneClip +
                                         QStringList{"--transcode", "--bitrate", "1", "--no-audio"};
    QTest::newRow("numbered") << oneClip + QStringList{"--fps", "25", "--container", "mp4"};
    QTest::newRow("with the time")
        << oneClip + QStringList{"--start-time", "2026-11-16T09:05:00", "--container", "mp4"};
}

void TestScanMarked::filesAreThoseOfAFreshExport() {
    QFETCH(QStringList, options);
    const QList<QJsonObject> all = clips(QStringList{"--export", path("fresh")} + options);
    QVERIFY(all.size() >= 3);
    QMap<QString, QByteArray> expected = filesIn(path("fresh"));
    QCOMPARE(expected.size(), all.size());
    QList<QJsonObject> marks;
    for (int i = 0; i < all.size(); ++i) {
        marks.append(marked(all[i], i % 2 == 0 ? "keep" : "seen"));
        if (i % 2 == 1)
            expected.remove(QDir(path("fresh")).relativeFilePath(all[i]["file"].toString()));
    }
    const QStringList exports = options.mid(options.contains(oneClip[0]) ? oneClip.size() : 0);
    const ProcessResult result =
        scan(QStringList{"--marked", write(marks), "--export", path("cut")} + exports);
    QVERIFY2(result.status == 0, result.errors.constData());
    QCOMPARE(filesIn(path("cut")).keys(), expected.keys());
    QCOMPARE(filesIn(path("cut")), expected);
}

void TestScanMarked::linesAreThoseOfAFreshExport() {
    const QList<QJsonObject> all = clips();
    QList<QJsonObject> marks;
    for (const QJsonObject& clip : all)
        marks.append(marked(clip));
    QByteArray fresh = scan(oneClip + QStringList{"--export", path("fresh"), "--container", "mp4",
                                                  visit, other, raw})
                           .output;
    const QByteArray cut =
        scan({"--marked", write(marks), "--export", path("cut"), "--container", "mp4"}).output;
    QCOMPARE(cut.count('\n'), 3);
    QCOMPARE(cut, fresh.replace("/fresh/", "/cut/"));
}

void TestScanMarked::nothingElseIsOpened() {
    const QList<QJsonObject> all = clips();
    QList<QJsonObject> marks;
    for (const QJsonObject& clip : all)
        marks.append(marked(clip, clip["video"].toString() == visit ? "keep" : "seen"));
    const QString file = write(marks);
    OpenWatch watch({other, raw});
    QCOMPARE(scan({"--marked", file, "--export", path("cut"), "--container", "mp4"}).status, 0);
    QCOMPARE(watch.count(), 0);
    QCOMPARE(QDir(path("cut")).entryList(QDir::Dirs | QDir::NoDotAndDotDot),
             QStringList{"visit_mp4_0"});
}

void TestScanMarked::whatHasChangedIsLeftOut_data() {
    QTest::addColumn<QString>("what");
    QTest::addColumn<QByteArray>("reason");
    const QByteArray changed = "it has changed since its clips were marked\n";
    QTest::newRow("size") << "size" << changed;
    QTest::newRow("time") << "modified" << changed;
    QTest::newRow("gone") << "gone" << QByteArray("No such file or directory\n");
    QTest::newRow("a folder") << "folder" << QByteArray("it is no file\n");
    QTest::newRow("a pipe") << "pipe" << QByteArray("it is no file\n");
    QTest::newRow("no recording") << "text" << QByteArray("it is no recording\n");
}

void TestScanMarked::whatHasChangedIsLeftOut() {
    QFETCH(QString, what);
    QFETCH(QByteArray, reason);
    QList<QJsonObject> all = clips();
    QList<QJsonObject> marks;
    for (const QJsonObject& clip : all)
        marks.append(marked(clip));
    for (QJsonObject& mark : marks) {
        if (mark["recording"].toString() != other)
            continue;
        if (what == "gone")
            mark["recording"] = path("gone.avi");
        else if (what == "folder")
            mark["recording"] = recordings.path();
        else if (what == "pipe")
            mark["recording"] = path("pipe");
        else if (what == "text")
            mark = [&, clip = QJsonObject{{"video", path("text.avi")},
                                          {"index", mark["number"]},
                                          {"start", mark["start"]},
                                          {"end", mark["end"]}}] {
                writeFile(path("text.avi"), "no recording at all\n");
                return marked(clip);
            }();
        else
            mark[what] = mark[what].toDouble() + 1.0;
    }
    QCOMPARE(mkfifo(QFile::encodeName(path("pipe")).constData(), 0600), 0);
    const ProcessResult result =
        scan({"--marked", write(marks), "--export", path("cut"), "--container", "mp4"});
    QCOMPARE(result.status, 1);
    QVERIFY2(what == "text" || result.errors.endsWith(": " + reason), result.errors.constData());
    QCOMPARE(result.errors.count('\n'), 1); // of each recording once
    QCOMPARE(QDir(path("cut")).entryList(QDir::Dirs | QDir::NoDotAndDotDot),
             QStringList({"raw_h264_0", "visit_mp4_0"}));
}

void TestScanMarked::namesCannotSteer() {
    QJsonObject mark = marked({{"video", visit}, {"index", 0}, {"start", 1.0}, {"end", 4.0}});
    mark["recording"] = "/none/\x1b[2J\n.mp4";
    const ProcessResult result = scan({"--marked", write({mark}), "--export", path("cut")});
    QCOMPARE(result.status, 1);
    QCOMPARE(result.errors,
             QByteArray("kestrova-scan: /none/\\x1b[2J\\n.mp4: No such file or directory\n"));
}

void TestScanMarked::noFileOfMarks() {
    QVERIFY(writeFile(path("marks.json"), "[]"));
    ProcessResult result = scan({"--marked", path("marks.json"), "--export", path("cut")});
    QCOMPARE(result.status, 1);
    QVERIFY2(result.errors.endsWith(": cannot read the marks: it is no file of marks\n"),
             result.errors.constData());
    QVERIFY(!QFileInfo::exists(path("cut"))); // nothing was begun
    result = scan({"--marked", path("none.json"), "--export", path("cut")});
    QCOMPARE(result.status, 1);
    QVERIFY(result.errors.endsWith(": cannot read the marks: No such file or directory\n"));
    QCOMPARE(scan({"--marked", visit, "--export", path("cut")}).status, 1);
}

void TestScanMarked::pipesNobodyWritesTo() {
    QCOMPARE(mkfifo(QFile::encodeName(path("pipe")).constData(), 0600), 0);
    QProcess process;
    process.start(ScannerStand::path(), {"--marked", path("pipe"), "--export", path("cut")});
    QVERIFY(process.waitForStarted());
    QVERIFY(!process.waitForFinished(500)); // it waits
    process.terminate();
    QVERIFY(process.waitForFinished(10000));
    QVERIFY(!QFileInfo::exists(path("cut")));
}

void TestScanMarked::nothingIsKept() {
    const QJsonObject seen =
        marked({{"video", visit}, {"index", 0}, {"start", 1.0}, {"end", 4.0}}, "seen");
    const QString file = write({seen});
    const ProcessResult result =
        runProgram(ScannerStand::path(), {"--marked", file, "--export", path("cut")});
    QCOMPARE(result.status, 0);
    QCOMPARE(result.errors, file.toUtf8() + ": no clip is marked to be kept\n");
    QVERIFY(filesIn(path("cut")).isEmpty());
}

void TestScanMarked::timesThatMakeNoSense() {
    const QJsonObject mark = marked({{"video", visit}, {"index", 0}, {"start", 9.0}, {"end", 4.0}});
    const ProcessResult result = scan({"--marked", write({mark}), "--export", path("cut")});
    QCOMPARE(result.status, 1);
    QVERIFY2(result.errors.endsWith(": clip #0 cannot be cut out: its times make no sense\n"),
             result.errors.constData());
}

/// Of two files that go on in each other, in which one visit crosses the border.
void TestScanMarked::makeHalves() {
    if (!halves.isEmpty())
        return;
    const QString name = recordings.filePath("half%d.mkv");
    QVERIFY(media::encode(
        {"-i", visit, "-c", "copy", "-copyts", "-f", "segment", "-segment_time", "10", name}));
    halves << recordings.filePath("half0.mkv") << recordings.filePath("half1.mkv");
}

/// A clip that goes on in other recordings, as a report marks it.
QJsonObject TestScanMarked::markedWithParts(const QJsonObject& clip) {
    QJsonArray parts;
    for (const QJsonValue& one : clip["parts"].toArray()) {
        QJsonObject part = marked({{"video", one.toObject()["recording"]}});
        part["start"] = one.toObject()["start"];
        part["end"] = one.toObject()["end"];
        part["offset"] = clip["end"].toDouble() - one.toObject()["end"].toDouble();
        parts.append(part);
    }
    QJsonObject first = parts[0].toObject();
    first["offset"] = 0;
    parts[0] = first;
    QJsonObject mark = marked(clip);
    mark["parts"] = parts;
    return mark;
}

void TestScanMarked::clipsThatGoOn() {
    makeHalves();
    const QStringList exports = {"--container", "mp4"};
    const ProcessResult fresh =
        scan(oneClip + QStringList{"--continue", "--format", "jsonl", "--export", path("fresh")} +
             exports + halves);
    const QJsonObject clip = jsonLines(fresh.output)[0];
    QCOMPARE(clip["parts"].toArray().size(), 2);
    const QString file = write({markedWithParts(clip)});
    const ProcessResult result =
        scan(QStringList{"--marked", file, "--export", path("cut")} + exports);
    QVERIFY2(result.status == 0, result.errors.constData());
    QVERIFY2(result.output.contains(" in " + halves[1].toUtf8()), result.output.constData());
    QCOMPARE(filesIn(path("cut")).size(), 1);
    QCOMPARE(filesIn(path("cut")), filesIn(path("fresh")));
    const ProcessResult recap =
        runProgram(ScannerStand::path(), {"--marked", file, "--recap", path("film.mp4")});
    QVERIFY2(recap.status == 0, recap.errors.constData());
    QVERIFY2(recap.errors.contains("film.mp4: clips: 1, length: "), recap.errors.constData());
    const double length = clip["end"].toDouble() - clip["start"].toDouble();
    const double shown = probeClip(path("film.mp4")).seconds;
    QVERIFY2(shown > length - 0.2 && shown < length + 1.2, // it begins at a whole second
             qPrintable(QString::number(shown)));
}

void TestScanMarked::partsThatAreLeftOut() {
    makeHalves();
    const QJsonObject clip = jsonLines(
        scan(oneClip + QStringList{"--continue", "--format", "jsonl"} + halves).output)[0];
    QJsonObject mark = markedWithParts(clip);
    QJsonArray parts = mark["parts"].toArray();
    QJsonObject last = parts[1].toObject();
    last["size"] = 7;
    parts[1] = last;
    mark["parts"] = parts;
    const QJsonObject alone =
        marked({{"video", visit}, {"index", 0}, {"start", 1.0}, {"end", 4.0}});
    const ProcessResult result =
        scan({"--marked", write({mark, alone}), "--export", path("cut"), "--container", "mp4"});
    QCOMPARE(result.status, 1);
    const QList<QByteArray> errors = result.errors.trimmed().split('\n');
    QCOMPARE(errors.size(), 2);
    QVERIFY(errors[0].endsWith("half1.mkv: it has changed since its clips were marked"));
    QVERIFY(errors[1].endsWith("half0.mkv: clip #0 cannot be cut out: it goes on in " +
                               halves[1].toUtf8() + ", which is left out"));
    QCOMPARE(filesIn(path("cut")).keys(), QStringList{"visit_mp4_0/0000.mp4"});
}

void TestScanMarked::partsThatMakeNoSense() {
    makeHalves();
    const QJsonObject clip = jsonLines(
        scan(oneClip + QStringList{"--continue", "--format", "jsonl"} + halves).output)[0];
    QJsonObject mark = markedWithParts(clip);
    QJsonArray parts = mark["parts"].toArray();
    QJsonObject last = parts[1].toObject();
    last["end"] = last["start"].toDouble() - 5.0;
    parts[1] = last;
    mark["parts"] = parts;
    const ProcessResult result = scan({"--marked", write({mark}), "--recap", path("film.mp4")});
    QCOMPARE(result.status, 1);
    QVERIFY2(result.errors.contains(": clip #0 cannot be cut out: its times make no sense\n"),
             result.errors.constData());
    QVERIFY(!QFileInfo::exists(path("film.mp4")));
}

void TestScanMarked::recapIsInTheOrderOfTheMarks() {
    const auto mark = [](const QString& video, int number, double start, double end) {
        return marked({{"video", video}, {"index", number}, {"start", start}, {"end", end}});
    };
    const QString file =
        write({mark(other, 1, 8.0, 10.0), mark(visit, 0, 2.0, 5.0), mark(other, 0, 1.0, 2.0)});
    const ProcessResult result = scan({"--marked", file, "--recap", path("film.mp4")});
    QVERIFY2(result.status == 0, result.errors.constData());
    const QList<QByteArray> lines = result.output.trimmed().split('\n');
    QCOMPARE(lines.size(), 3);
    QVERIFY(lines[0].contains("other.avi  #1") && lines[1].contains("visit.mp4  #0") &&
            lines[2].contains("other.avi  #0"));
    const ClipProbe film = probeClip(path("film.mp4"));
    QVERIFY(film.isPlayable);
    QVERIFY2(qAbs(film.seconds - 6.0) < 0.2, qPrintable(QString::number(film.seconds)));
    QCOMPARE(scan({"--marked", file, "--recap",
                   path("../" + recordings.path().section('/', -1) + "/visit.mp4")})
                 .status,
             2);
    QVERIFY(probeClip(visit).isPlayable);
}

void TestScanMarked::optionsThatSearchAreRefused_data() {
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<QByteArray>("error");
    QTest::newRow("a video") << QStringList{visit}
                             << QByteArray("--marked names the recordings itself: leave out '");
    QTest::newRow("a list") << QStringList{"--list", "-"}
                            << QByteArray("--marked and --list exclude each other\n");
    QTest::newRow("a report") << QStringList{"--report", "r"}
                              << QByteArray("--marked and --report exclude each other\n");
    QTest::newRow("the strongest")
        << QStringList{"--top", "3"} << QByteArray("--marked and --top exclude each other\n");
    QTest::newRow("values") << QStringList{"--values", "v"}
                            << QByteArray("--marked and --values exclude each other\n");
}

void TestScanMarked::optionsThatSearchAreRefused() {
    QFETCH(QStringList, options);
    QFETCH(QByteArray, error);
    const ProcessResult result =
        scan(QStringList{"--marked", "marks.json", "--export", path("cut")} + options);
    QCOMPARE(result.status, 2);
    QVERIFY2(result.errors.contains(error), result.errors.constData());
}

void TestScanMarked::outputThatIsLost() {
    const QJsonObject mark = marked({{"video", visit}, {"index", 0}, {"start", 1.0}, {"end", 4.0}});
    QProcess process;
    process.setStandardOutputFile("/dev/full");
    process.start(ScannerStand::path(),
                  {"--quiet", "--marked", write({mark}), "--export", path("cut")});
    const ProcessResult result = endOf(process);
    QCOMPARE(result.status, 1);
    QVERIFY2(result.errors.contains("standard output: "), result.errors.constData());
}

QTEST_MAIN(TestScanMarked)
#include "test_scanmarked.moc"
