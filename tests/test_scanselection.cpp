// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

// Which clips the scanner takes, and in which order it tells of them.

#include "files.h"
#include "media.h"
#include "pipewriter.h"
#include "process.h"

#include <QDir>
#include <QFileInfo>
#include <QImage>
#include <QTemporaryDir>
#include <QtTest>

namespace {

/// Each visit is a clip.
const QStringList visits = {"--quiet", "--merge", "0", "--minimum", "2", "--postrecord", "1"};

ProcessResult scan(const QStringList& arguments) {
    return runProgram("kestrova-scan", visits + arguments);
}

/// The lines of clips, or those of the recordings' ends.
QList<QJsonObject> linesOf(const QStringList& arguments, bool areEnds = false) {
    QList<QJsonObject> lines;
    for (const QJsonObject& line :
         jsonLines(scan(QStringList{"--format", "jsonl"} + arguments).output)) {
        if (line.contains("state") == areEnds)
            lines.append(line);
    }
    return lines;
}

/// "recording#number" of each.
QStringList namesOf(const QList<QJsonObject>& lines) {
    QStringList names;
    for (const QJsonObject& line : lines)
        names += QStringLiteral("%1#%2")
                     .arg(QFileInfo(line["video"].toString()).baseName())
                     .arg(line["index"].toInt());
    return names;
}

double lengthOf(const QJsonObject& line) {
    return line["end"].toDouble() - line["start"].toDouble();
}

} // namespace

class TestScanSelection : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void sortedOverAllRecordings();
    void byTheClockOfTheWall();
    void topHasTheirNumbers();
    void topWritesNothingOfTheOthers();
    void endsAreToldBehindTheClips();
    void everyFormatIsSorted();
    void jobsAndKeptValuesChangeNothing_data();
    void jobsAndKeptValuesChangeNothing();

    void longClipsAreCut();
    void piecesHaveTheirOwnPictures();
    void picturesOfPiecesOfKeptValues();
    void piecesAreExported();
    void piecesOfAPipeHaveNoPicture();
    void shortClipsAreLeftOut();
    void nothingLongEnoughIsNotNothingFound();
    void reportHasTheSame();
    void unreadableRecordingsAreTold();

private:
    QString out(const QString& name) { return folder.filePath(name); }

    QTemporaryDir folder;
    QString brief;   ///< a box crosses from second 5 to 9
    QString lasting; ///< from 3 to 15, and again from 22 to 26
};

void TestScanSelection::initTestCase() {
    const QStringList codec = {"-c:v", "libx264", "-preset", "ultrafast", "-g", "25"};
    brief = folder.filePath("brief.mkv");
    QVERIFY(media::encode(media::crossingBox(16, 5, 9) + codec + QStringList{brief}));
    const QString first = folder.filePath("first.mkv");
    const QString second = folder.filePath("second.mkv");
    QVERIFY(media::encode(media::crossingBox(18, 3, 15) + codec + QStringList{first}));
    QVERIFY(media::encode(media::crossingBox(14, 4, 8) + codec + QStringList{second}));
    lasting = folder.filePath("lasting.mkv");
    QVERIFY(media::encode(
        QStringList{"-i", first, "-i", second, "-filter_complex", "[0:v][1:v]concat=n=2:v=1"} +
        codec + QStringList{lasting}));
    QCOMPARE(namesOf(linesOf({brief, lasting})),
             QStringList({"brief#0", "lasting#0", "lasting#1"}));
}

void TestScanSelection::sortedOverAllRecordings() {
    const QList<QJsonObject> byLength = linesOf({"--sort", "length", brief, lasting});
    QCOMPARE(namesOf(byLength).first(), QString("lasting#0")); // 12 s of motion, the others 4
    QCOMPARE(byLength.size(), 3);
    QVERIFY(lengthOf(byLength[0]) > lengthOf(byLength[1]));
    QVERIFY(lengthOf(byLength[1]) >= lengthOf(byLength[2]));
    // The strongest value of each, from the trace.
    const QString trace = out("trace");
    const QList<QJsonObject> sorted =
        linesOf({"--sort", "strength", "--trace", trace, brief, lasting});
    QMap<QString, QMap<QString, double>> motion;
    QString recording = "brief";
    double before = -1.0;
    for (const QByteArray& line : readFile(trace).trimmed().split('\n')) {
        const QList<QByteArray> fields = line.split('\t');
        if (fields[1].toDouble() < before)
            recording = "lasting";
        before = fields[1].toDouble();
        for (const QJsonObject& clip : sorted) {
            const QString name = namesOf({clip})[0];
            if (name.startsWith(recording) && before >= clip["start"].toDouble() &&
                before < clip["end"].toDouble())
                motion[recording][name] = qMax(motion[recording][name], fields[2].toDouble());
        }
    }
    for (int i = 0; i + 1 < sorted.size(); ++i) {
        const auto strongest = [&](int place) {
            const QString name = namesOf(sorted)[place];
            return motion[name.section('#', 0, 0)][name];
        };
        QVERIFY(strongest(i) > 0.0);
        QVERIFY(strongest(i) >= strongest(i + 1));
    }
}

void TestScanSelection::byTheClockOfTheWall() {
    QCOMPARE(namesOf(linesOf({"--sort", "time", lasting, brief})),
             QStringList({"lasting#0", "lasting#1", "brief#0"}));
}

void TestScanSelection::topHasTheirNumbers() {
    // The weakest drops out; the others come in the order of the call, with their numbers.
    const QStringList sorted = namesOf(linesOf({"--sort", "strength", brief, lasting}));
    QStringList expected = {"brief#0", "lasting#0", "lasting#1"};
    expected.removeAll(sorted.last());
    QCOMPARE(namesOf(linesOf({"--top", "2", brief, lasting})), expected);
    QCOMPARE(namesOf(linesOf({"--sort", "strength", "--top", "2", brief, lasting})),
             sorted.mid(0, 2));
    QCOMPARE(namesOf(linesOf({"--sort", "length", "--top", "1", brief, lasting})),
             QStringList{"lasting#0"});
    const ProcessResult told = runProgram(
        "kestrova-scan", {"--merge", "0", "--minimum", "2", "--top", "1", brief, lasting});
    QVERIFY2(told.errors.contains("clips listed: 1 of 3\n"), told.errors.constData());
}

void TestScanSelection::topWritesNothingOfTheOthers() {
    const QString all = out("all");
    const QString some = out("some");
    QCOMPARE(scan({"--snapshots", all + "/s", "--export", all + "/e", "--container", "mp4", brief,
                   lasting})
                 .status,
             0);
    const ProcessResult result =
        scan({"--sort", "length", "--top", "1", "--snapshots", some + "/s", "--export", some + "/e",
              "--container", "mp4", brief, lasting});
    QCOMPARE(result.status, 0);
    QVERIFY(result.output.contains("lasting_mkv_0/0000.mp4"));
    const QMap<QString, QByteArray> files = filesIn(some);
    QCOMPARE(files.keys(), QStringList({"e/lasting_mkv_0/0000.mp4", "s/lasting.mkv-0000.png"}));
    const QMap<QString, QByteArray> others = filesIn(all);
    for (const QString& name : files.keys())
        QCOMPARE(files[name], others[name]);
}

void TestScanSelection::endsAreToldBehindTheClips() {
    const QByteArray output = scan({"--format", "jsonl", "--sort", "time", brief, lasting}).output;
    const QList<QJsonObject> lines = jsonLines(output);
    QCOMPARE(lines.size(), 5);
    QVERIFY(!lines[2].contains("state"));
    QCOMPARE(lines[3]["video"].toString(), brief);
    QCOMPARE(lines[3]["clips"].toInt(), 1);
    QCOMPARE(lines[4]["clips"].toInt(), 2);
}

void TestScanSelection::everyFormatIsSorted() {
    const QByteArray edl = scan({"--format", "edl", "--sort", "length", brief, lasting}).output;
    QCOMPARE(edl.count("FROM CLIP NAME: "), 3);
    QVERIFY(edl.indexOf("lasting.mkv") < edl.indexOf("brief.mkv"));
    for (const char* format : {"text", "csv", "m3u", "mpv", "cuts", "mlt"}) {
        const QByteArray plain = scan({"--format", format, brief, lasting}).output;
        QVERIFY(plain.indexOf("brief.mkv") < plain.indexOf("lasting.mkv"));
        const QByteArray sorted =
            scan({"--format", format, "--sort", "length", "--top", "1", brief, lasting}).output;
        QVERIFY2(sorted.contains("lasting.mkv") && !sorted.contains("brief.mkv"),
                 sorted.constData());
    }
}

void TestScanSelection::jobsAndKeptValuesChangeNothing_data() {
    QTest::addColumn<QStringList>("options");
    QTest::newRow("strength") << QStringList{"--sort", "strength"};
    QTest::newRow("time, top") << QStringList{"--sort", "time", "--top", "3"};
    QTest::newRow("pieces") << QStringList{"--max-length", "2.5", "--min-length", "2"};
    QTest::newRow("all") << QStringList{"--max-length", "3",        "--min-length", "1",
                                        "--sort",       "strength", "--top",        "4"};
    QTest::newRow("cells") << QStringList{"--detector", "cells",  "--max-length", "3",
                                          "--sort",     "length", "--top",        "4"};
}

void TestScanSelection::jobsAndKeptValuesChangeNothing() {
    QFETCH(QStringList, options);
    const QString kept = out(QStringLiteral("kept-%1").arg(QTest::currentDataTag()));
    const QString name = out(QStringLiteral("result-%1").arg(QTest::currentDataTag()));
    int calls = 0;
    const auto result = [&](const QStringList& more) {
        const QString pictures = name + QString::number(calls++);
        const ProcessResult scanned = scan(QStringList{"--format", "csv", "--snapshots", pictures} +
                                           options + more + QStringList{lasting, brief});
        QByteArray text = scanned.output;
        return qMakePair(text.replace(pictures.toUtf8(), "P"), filesIn(pictures));
    };
    const auto expected = result({});
    QVERIFY(expected.second.size() >= 3);
    QCOMPARE(result({"--jobs", "2"}), expected);
    QCOMPARE(result({"--values", kept}), expected);
    QCOMPARE(result({"--values", kept}), expected);
    QCOMPARE(result({"--values", kept, "--jobs", "2", "--threads", "3"}), expected);
}

void TestScanSelection::longClipsAreCut() {
    const QList<QJsonObject> whole = linesOf({lasting});
    const QList<QJsonObject> cut = linesOf({"--max-length", "4", lasting});
    QVERIFY(cut.size() >= 5);
    double end = whole[0]["start"].toDouble();
    for (int i = 0; i < cut.size(); ++i) {
        QCOMPARE(cut[i]["index"].toInt(), i);
        QVERIFY(lengthOf(cut[i]) < 4.0 + 1e-6);
        const double time = cut[i]["snapshotTime"].toDouble();
        QVERIFY(time >= cut[i]["start"].toDouble() && time < cut[i]["end"].toDouble());
        if (cut[i]["start"] == whole[1]["start"])
            end = whole[1]["start"].toDouble();
        QVERIFY(qAbs(cut[i]["start"].toDouble() - end) < 1e-6); // nothing lies between pieces
        end = cut[i]["end"].toDouble();
    }
    QCOMPARE(cut.last()["end"], whole[1]["end"]);
    QCOMPARE(linesOf({"--max-length", "4", lasting}, true)[0]["clips"].toInt(), cut.size());
}

/// Each picture is the recording's at the time that is told, whatever else decodes it.
void TestScanSelection::piecesHaveTheirOwnPictures() {
    const QList<QJsonObject> cut =
        linesOf({"--max-length", "4", "--snapshots", out("pieces"), lasting});
    QSet<QByteArray> different;
    for (const QJsonObject& piece : cut) {
        const QString file = piece["snapshot"].toString();
        const QImage picture = QImage(file).convertToFormat(QImage::Format_Grayscale8);
        QCOMPARE(picture.size(), QSize(320, 240));
        const QString taken = out("taken.png");
        const double time = piece["snapshotTime"].toDouble();
        // A picture has the time of the packet that completed it; here they go one by one.
        QVERIFY(media::encode({"-ss", QString::number(time - 0.02, 'f', 3), "-i", lasting,
                               "-frames:v", "1", "-y", taken}));
        const QImage other = QImage(taken).convertToFormat(QImage::Format_Grayscale8);
        qint64 difference = 0;
        for (int y = 0; y < 240; ++y) {
            for (int x = 0; x < 320; ++x)
                difference += qAbs(picture.constScanLine(y)[x] - other.constScanLine(y)[x]);
        }
        QVERIFY2(difference < 320 * 240 * 4, qPrintable(QString::number(difference)));
        different.insert(readFile(file));
    }
    QCOMPARE(different.size(), cut.size());
}

void TestScanSelection::picturesOfPiecesOfKeptValues() {
    const QString kept = out("kept");
    const QStringList call = {"--max-length", "4", "--values", kept, "--snapshots"};
    QCOMPARE(scan(call + QStringList{out("live"), lasting}).status, 0);
    QCOMPARE(scan(call + QStringList{out("later"), lasting}).status, 0);
    QCOMPARE(filesIn(out("later")), filesIn(out("live")));
    QCOMPARE(scan({"--values", kept, lasting}).output, scan({lasting}).output);
}

void TestScanSelection::piecesAreExported() {
    const QList<QJsonObject> cut =
        linesOf({"--max-length", "4", "--export", out("cut"), "--container", "mkv", lasting});
    QVERIFY(cut.size() >= 5);
    QCOMPARE(filesIn(out("cut")).size(), cut.size());
    for (const QJsonObject& piece : cut)
        QVERIFY(piece["exported"].toBool());
}

void TestScanSelection::piecesOfAPipeHaveNoPicture() {
    const QString pipe = out("pipe.mkv");
    PipeWriter writer(pipe, readFile(lasting));
    writer.goOn();
    const ProcessResult result =
        scan({"--max-length", "4", "--snapshots", out("of-pipe"), "--format", "jsonl", pipe});
    QCOMPARE(result.status, 1);
    QVERIFY2(result.errors.contains("clip #0 has no picture: a pipe cannot be read again"),
             result.errors.constData());
    QVERIFY(jsonLines(result.output).size() >= 6); // the clips are told of all the same
}

void TestScanSelection::shortClipsAreLeftOut() {
    const QList<QJsonObject> all = linesOf({brief, lasting});
    const double longest = lengthOf(all[1]);
    const QList<QJsonObject> left =
        linesOf({"--min-length", QString::number(longest - 0.01), brief, lasting});
    QCOMPARE(namesOf(left), QStringList{"lasting#0"});
    QCOMPARE(left[0]["start"], all[1]["start"]);
    // Cut first: the rest of each clip is too short, and its number is not given away.
    const QList<QJsonObject> pieces = linesOf({"--max-length", "4", "--min-length", "4", lasting});
    QVERIFY(pieces.size() >= 3);
    for (const QJsonObject& piece : pieces)
        QVERIFY(qAbs(lengthOf(piece) - 4.0) < 1e-6);
    QVERIFY(pieces.last()["index"].toInt() > pieces.size() - 1);
}

void TestScanSelection::nothingLongEnoughIsNotNothingFound() {
    const ProcessResult result =
        runProgram("kestrova-scan", {"--minimum", "2", "--merge", "0", "--format", "jsonl",
                                     "--min-length", "1000", brief});
    QCOMPARE(result.status, 0);
    QCOMPARE(jsonLines(result.output)[0]["clips"].toInt(-1), 0);
    QVERIFY(!jsonLines(result.output)[0].contains("strongest"));
    QVERIFY2(result.errors.contains("clips: 0, length: 0:00:15.960, left out as too short: 1\n"),
             result.errors.constData());
}

void TestScanSelection::reportHasTheSame() {
    const QString report = out("report");
    QCOMPARE(scan({"--max-length", "4", "--sort", "length", "--top", "2", "--report", report, brief,
                   lasting})
                 .status,
             0);
    QCOMPARE(QDir(report).entryList(QDir::Dirs | QDir::NoDotAndDotDot).size(), 1);
    int pictures = 0;
    for (const QString& name : filesIn(report).keys())
        pictures += name.endsWith(".png") ? 1 : 0;
    QCOMPARE(pictures, 2);
}

void TestScanSelection::unreadableRecordingsAreTold() {
    const QString none = out("none.mkv");
    const ProcessResult result = scan({"--sort", "time", none, brief});
    QCOMPARE(result.status, 1);
    QVERIFY(result.errors.contains("none.mkv"));
    QCOMPARE(result.output.count('\n'), 1);
}

QTEST_MAIN(TestScanSelection)
#include "test_scanselection.moc"
