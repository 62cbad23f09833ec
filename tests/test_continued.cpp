// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

// The scanner on recordings that go on in the next file: what it finds in the whole that they were
// cut out of.

#include "clipprobe.h"
#include "encoderstand.h"
#include "files.h"
#include "media.h"
#include "process.h"
#include "sample.h"
#include "scannerstand.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QTemporaryDir>
#include <QtTest>

#include <limits>

namespace {

const QStringList h264 = {"-c:v", "libx264", "-preset", "ultrafast", "-g", "25"};
constexpr double picture = 0.04; // seconds

/// A clip on the line of time of the whole.
struct Clip {
    double start;
    double end;
};

ProcessResult scan(const QStringList& arguments) {
    return runProgram("kestrova-scan", arguments);
}

QList<QJsonObject> clipLines(const QByteArray& output) {
    QList<QJsonObject> lines;
    for (const QJsonObject& line : jsonLines(output)) {
        if (!line.contains("state"))
            lines.append(line);
    }
    return lines;
}

/// `begins`: when the recordings begin on the line of time, by their names.
QVector<Clip> clipsOf(const QByteArray& output, const QHash<QString, double>& begins) {
    QVector<Clip> clips;
    for (const QJsonObject& line : clipLines(output)) {
        const double begin = begins[QFileInfo(line["video"].toString()).fileName()];
        clips.append({begin + line["start"].toDouble(), begin + line["end"].toDouble()});
    }
    return clips;
}

bool isSame(const QVector<Clip>& left, const QVector<Clip>& right, double tolerance) {
    bool isSame = left.size() == right.size();
    for (int i = 0; isSame && i < left.size(); ++i)
        isSame = qAbs(left[i].start - right[i].start) <= tolerance &&
                 qAbs(left[i].end - right[i].end) <= tolerance;
    if (!isSame) {
        for (const auto* clips : {&left, &right}) {
            for (const Clip& clip : *clips)
                qWarning("%.3f - %.3f", clip.start, clip.end);
            qWarning("--");
        }
    }
    return isSame;
}

/// Of two pictures of one size, over all pixels.
qint64 differenceOf(const QImage& left, const QImage& right) {
    qint64 sum = 0;
    for (int y = 0; y < left.height(); ++y) {
        for (int x = 0; x < left.width(); ++x)
            sum += qAbs(qGray(left.pixel(x, y)) - qGray(right.pixel(x, y)));
    }
    return sum;
}

} // namespace

class TestContinued : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void clipsAreThoseOfTheWhole_data();
    void clipsAreThoseOfTheWhole();
    void everyRoadGivesTheSame_data();
    void everyRoadGivesTheSame();
    void clipsAreToldWithTheirParts();
    void textNamesFirstAndLast();
    void csvNamesFirstAndLast();
    void listsHaveEachPart_data();
    void listsHaveEachPart();
    void aRecordingAloneIsAsEver_data();
    void aRecordingAloneIsAsEver();
    void eachRecordingIsSummedUp();
    void picturesAreOfTheRightFile();

    void clocksInNamesTell_data();
    void clocksInNamesTell();
    void startsFollowTheGivenOne();
    void numbersInNamesProveNothing();
    void countersTellTheOrder();
    void piecesOfLongClips();
    void aMissingFileEndsIt();
    void aDamagedFileEndsIt();
    void camerasAreToldApart();
    void otherSizesAreNotContinued();
    void nothingIsSaidUnasked();
    void interruptPrintsWhatIsOpen();

    void exportIsOneFile_data();
    void exportIsOneFile();
    void exportNamesAnything();
    void exportCannotNameLineBreaks();
    void exportIsEncodedAnewWhereItMust();
    void exportOfAChangedPartFails();

private:
    QString path(const QString& name) const { return folder.filePath(name); }
    QStringList cut(const QString& subfolder, const QString& ending) const;
    QStringList named(const QString& subfolder, const QStringList& names) const;

    QTemporaryDir folder;
    QString whole;                 ///< 40 s; a box crosses from second 7 to 13 and from 27 to 33
    QStringList files;             ///< the same, in four of 10 s
    QHash<QString, double> begins; ///< of those, on the line of time
    QStringList visits = oneClip + QStringList{"--quiet", "--format", "jsonl"};
};

/// The whole in files of 10 s whose stamps go on.
QStringList TestContinued::cut(const QString& subfolder, const QString& ending) const {
    QDir(folder.path()).mkpath(subfolder);
    const QString name = path(subfolder) + "/%d." + ending;
    if (!media::encode(
            {"-i", whole, "-c", "copy", "-copyts", "-f", "segment", "-segment_time", "10", name}))
        return {};
    QStringList names;
    for (int i = 0; i < 4; ++i)
        names += path(subfolder) + QStringLiteral("/%1.").arg(i) + ending;
    return names;
}

void TestContinued::initTestCase() {
    const QString visit = path("visit.mkv");
    whole = path("whole.mkv");
    // With pictures that the decoder holds back, and a key frame each second alone.
    const QStringList reordered = {"-c:v", "libx264", "-preset", "veryfast",      "-g",
                                   "25",   "-bf",     "2",       "-sc_threshold", "0"};
    QVERIFY(encodeVisit(visit));
    QVERIFY(media::encode(
        QStringList{"-i", visit, "-i", visit, "-filter_complex", "[0:v][1:v]concat=n=2:v=1"} +
        reordered + QStringList{whole}));
    files = cut("mkv", "mkv");
    for (const QString& file : files)
        QVERIFY(QFileInfo::exists(file));
    for (int i = 0; i < 4; ++i) {
        for (const char* ending : {".mkv", ".ts", ".nut"})
            begins[QString::number(i) + ending] = 10.0 * i;
    }
}

void TestContinued::clipsAreThoseOfTheWhole_data() {
    QTest::addColumn<QString>("ending");
    QTest::addColumn<QStringList>("options");
    QTest::newRow("mean") << "mkv" << QStringList();
    QTest::newRow("mean, transport streams") << "ts" << QStringList();
    QTest::newRow("mean, pictures left out") << "mkv" << QStringList{"--skip", "2"};
    QTest::newRow("mean, in a rectangle") << "mkv" << QStringList{"--roi", "10,10,140,80"};
    QTest::newRow("mean, merged") << "mkv" << QStringList{"--merge", "20"};
    QTest::newRow("cells") << "mkv" << QStringList{"--detector", "cells"};
    QTest::newRow("cells, transport streams") << "ts" << QStringList{"--detector", "cells"};
    QTest::newRow("cells, merged") << "mkv" << QStringList{"--detector", "cells", "--merge", "0"};
}

void TestContinued::clipsAreThoseOfTheWhole() {
    KESTROVA_SAMPLED_ROW();
    QFETCH(QString, ending);
    QFETCH(QStringList, options);
    const QStringList parts = ending == "mkv" ? files : cut(ending, ending);
    const QHash<QString, double> beginning = {{"whole.mkv", 0.0}};
    const QVector<Clip> expected =
        clipsOf(scan(visits + options + QStringList{whole}).output, beginning);
    const ProcessResult result = scan(visits + options + QStringList{"--continue"} + parts);
    QCOMPARE(result.status, 0);
    QVERIFY(!expected.isEmpty());
    // The decoder holds back two pictures at the end of each file.
    QVERIFY(isSame(clipsOf(result.output, begins), expected, 3 * picture + 1e-6));
    QVERIFY(!isSame(clipsOf(scan(visits + options + parts).output, begins), expected,
                    3 * picture + 1e-6)); // which is not so by itself
}

void TestContinued::everyRoadGivesTheSame_data() {
    QTest::addColumn<QStringList>("options");
    for (const char* detector : {"mean", "cells"})
        QTest::newRow(detector) << QStringList{"--detector", detector};
}

void TestContinued::everyRoadGivesTheSame() {
    QFETCH(QStringList, options);
    const QStringList all = visits + options + QStringList{"--continue"};
    const QByteArray expected = scan(all + QStringList{"--threads", "1"} + files).output;
    QVERIFY(expected.contains("parts"));
    QCOMPARE(scan(all + QStringList{"--jobs", "4"} + files).output, expected);
    const QString values = path("kept-" + options.last());
    QCOMPARE(scan(all + QStringList{"--values", values} + files).output, expected); // measures
    QCOMPARE(scan(all + QStringList{"--values", values} + files).output, expected); // decides
    const QString parted = path("parted-" + options.last());
    for (const char* part : {"1/3", "2/3", "3/3"})
        QCOMPARE(scan(options + QStringList{"--quiet", "--values", parted, "--part", part} + files)
                     .status,
                 0);
    QCOMPARE(scan(all + QStringList{"--values", parted} + files).output, expected);
    const QStringList kept = QDir(values).entryList({"*.values"}, QDir::Files, QDir::Name);
    QCOMPARE(kept.size(), 4);
    QStringList named;
    for (const QString& name : kept)
        named += values + '/' + name;
    QCOMPARE(scan(all + named).output, expected);
}

void TestContinued::clipsAreToldWithTheirParts() {
    const QList<QJsonObject> clips =
        clipLines(scan(visits + QStringList{"--continue"} + files).output);
    QCOMPARE(clips.size(), 2);
    for (int i = 0; i < 2; ++i) {
        const QJsonArray parts = clips[i]["parts"].toArray();
        QCOMPARE(parts.size(), 2);
        QCOMPARE(clips[i]["video"].toString(), files[2 * i]);
        QCOMPARE(clips[i]["index"].toInt(-1), 0); // each is the first of its recording
        QCOMPARE(parts[0].toObject()["recording"].toString(), files[2 * i]);
        QCOMPARE(parts[0].toObject()["start"], clips[i]["start"]);
        QVERIFY(qAbs(parts[0].toObject()["end"].toDouble() - 10.0) < 6 * picture);
        QCOMPARE(parts[1].toObject()["recording"].toString(), files[2 * i + 1]);
        QCOMPARE(parts[1].toObject()["start"].toDouble(-1), 0.0);
        QVERIFY(qAbs(parts[1].toObject()["end"].toDouble() + 10.0 - clips[i]["end"].toDouble()) <
                6 * picture);
    }
    const QJsonObject alone = clipLines(scan(visits + QStringList{"--continue", whole}).output)[0];
    QCOMPARE(alone["parts"].toArray().size(), 1);
    QCOMPARE(alone["parts"].toArray()[0].toObject()["end"], alone["end"]);
}

void TestContinued::textNamesFirstAndLast() {
    const QByteArray output = scan(oneClip + QStringList{"--quiet", "--continue"} + files).output;
    const QRegularExpression line("^\\S+0\\.mkv  #0  0:00:04\\.\\d{3} - 0:00:04\\.\\d{3} in "
                                  "\\S+1\\.mkv  10\\.\\d s\n");
    QVERIFY2(line.match(output).hasMatch(), output.constData());
}

void TestContinued::csvNamesFirstAndLast() {
    const QStringList csv = oneClip + QStringList{"--quiet", "--format", "csv"};
    const QList<QByteArray> lines =
        scan(csv + QStringList{"--continue"} + files).output.split('\n');
    QCOMPARE(lines[0],
             QByteArray("video,index,start,end,snapshotTime,snapshot,lastVideo,lastEnd\r"));
    const QList<QByteArray> fields = lines[1].trimmed().split(',');
    QCOMPARE(fields.size(), 8);
    QCOMPARE(QString(fields[0]), files[0]);
    QCOMPARE(QString(fields[6]), files[1]);
    QVERIFY(qAbs(fields[7].toDouble() + 10.0 - fields[3].toDouble()) < 6 * picture);
    QCOMPARE(scan(csv + QStringList{whole}).output.split('\n')[0],
             QByteArray("video,index,start,end,snapshotTime,snapshot\r"));
}

void TestContinued::listsHaveEachPart_data() {
    QTest::addColumn<QString>("format");
    QTest::addColumn<QByteArray>("mark"); ///< of a part
    QTest::newRow("m3u") << "m3u" << QByteArray("#EXTINF");
    QTest::newRow("mpv") << "mpv" << QByteArray("\n%");
    QTest::newRow("cuts") << "cuts" << QByteArray("\n");
    QTest::newRow("edl") << "edl" << QByteArray("* FROM CLIP NAME");
    QTest::newRow("mlt") << "mlt" << QByteArray("<entry");
}

void TestContinued::listsHaveEachPart() {
    QFETCH(QString, format);
    QFETCH(QByteArray, mark);
    const QByteArray output =
        scan(oneClip + QStringList{"--quiet", "--continue", "--format", format} + files).output;
    QCOMPARE(output.count(mark), 4);
    if (format != "mlt" && format != "mpv")
        QCOMPARE(output.count("0.mkv #0 in "), 1);
}

void TestContinued::aRecordingAloneIsAsEver_data() {
    QTest::addColumn<QStringList>("options");
    QTest::newRow("mean") << QStringList{};
    QTest::newRow("cells") << QStringList{"--detector", "cells"};
    QTest::newRow("key frames") << QStringList{"--quick"};
    QTest::newRow("merged") << QStringList{"--merge", "0"};
}

/// Text tells no parts.
void TestContinued::aRecordingAloneIsAsEver() {
    QFETCH(QStringList, options);
    const QString trace = path("trace");
    const QStringList text = options + QStringList{"--trace", trace, path("visit.mkv"), files[3]};
    const ProcessResult expected = scan(text);
    const QByteArray values = readFile(trace);
    const ProcessResult found = scan(QStringList{"--continue=0"} + text);
    QCOMPARE(found.output, expected.output);
    QCOMPARE(withoutAdvice(found.errors), withoutAdvice(expected.errors));
    QCOMPARE(readFile(trace), values);
}

void TestContinued::eachRecordingIsSummedUp() {
    const ProcessResult result =
        scan(oneClip + QStringList{"--continue", "--format", "jsonl"} + files);
    int ends = 0;
    for (const QJsonObject& line : jsonLines(result.output)) {
        if (!line.contains("state"))
            continue;
        QCOMPARE(line["video"].toString(), files[ends]);
        QCOMPARE(line["state"].toString(), QString("finished"));
        QCOMPARE(line["clips"].toInt(-1), ends % 2 == 0 ? 1 : 0);
        // What another one's clip lies in is not without motion.
        QVERIFY(!line.contains("strongest"));
        QVERIFY(qAbs(line["seconds"].toDouble() - 10.0) < 6 * picture);
        ++ends;
    }
    QCOMPARE(ends, 4);
    QCOMPARE(result.errors.count("and clips that go on from before: 1\n"), 2);
}

/// Of all pictures around it, the snapshot is most like the one that was shown then.
void TestContinued::picturesAreOfTheRightFile() {
    const QStringList options = visits + QStringList{"--snapshots", path("pictures")};
    const QList<QJsonObject> clips =
        clipLines(scan(options + QStringList{"--continue"} + files).output);
    for (int i = 0; i < clips.size(); ++i) {
        const double begin = begins[QFileInfo(clips[i]["video"].toString()).fileName()];
        const int number = qRound((begin + clips[i]["snapshotTime"].toDouble()) / picture);
        const QString around = path(QStringLiteral("around%1-").arg(i)) + "%d.png";
        QVERIFY(media::encode({"-i", whole, "-vf",
                               QStringLiteral("select=between(n\\,%1\\,%2),scale=320:240")
                                   .arg(number - 10)
                                   .arg(number + 10),
                               "-vsync", "0", around}));
        const QImage snapshot(clips[i]["snapshot"].toString());
        QCOMPARE(snapshot.size(), QSize(320, 240));
        qint64 least = std::numeric_limits<qint64>::max();
        int nearest = -1;
        for (int k = 0; k <= 20; ++k) {
            const qint64 difference = differenceOf(
                snapshot, QImage(QString(around).replace("%d", QString::number(k + 1))));
            if (difference < least)
                nearest = k;
            least = qMin(least, difference);
        }
        QCOMPARE(nearest, 10);
    }
    QCOMPARE(clips.size(), 2);
}

/// The same as `files`, but that the stamps of each begin anew; by `names`, in `subfolder`.
QStringList TestContinued::named(const QString& subfolder, const QStringList& names) const {
    const QDir sub(path(subfolder));
    if (!QDir().mkpath(sub.path()) ||
        !media::encode({"-i", whole, "-c", "copy", "-f", "segment", "-segment_time", "10",
                        "-reset_timestamps", "1", sub.filePath("%d.mkv")}))
        return {};
    QStringList paths;
    for (int i = 0; i < names.size(); ++i) {
        paths += sub.filePath(names[i]);
        const QString piece = sub.filePath(QStringLiteral("%1.mkv").arg(i));
        if (piece != paths.last() && !QFile::rename(piece, paths.last()))
            return {};
    }
    return paths;
}

void TestContinued::clocksInNamesTell_data() {
    QTest::addColumn<QStringList>("names");
    QTest::addColumn<QList<int>>("goOn"); ///< the recordings that others go on in
    QTest::newRow("one behind the other")
        << QStringList{"cam_20261116_120000.mkv", "cam_20261116_120010.mkv",
                       "cam_20261116_120020.mkv", "cam_20261116_120030.mkv"}
        << QList<int>{1, 2, 3};
    QTest::newRow("a day later") << QStringList{"cam_20261116_120000.mkv",
                                                "cam_20261117_120010.mkv",
                                                "cam_20261117_120020.mkv",
                                                "cam_20261118_120030.mkv"}
                                 << QList<int>{2};
    QTest::newRow("a clock set back")
        << QStringList{"cam_20261116_120000.mkv", "cam_20261116_120010.mkv",
                       "cam_20261116_115900.mkv", "cam_20261116_115910.mkv"}
        << QList<int>{1, 3};
    QTest::newRow("over midnight")
        << QStringList{"cam_20261116_235945.mkv", "cam_20261116_235955.mkv",
                       "cam_20261117_000005.mkv", "cam_20261117_000015.mkv"}
        << QList<int>{1, 2, 3};
    QTest::newRow("a second too early and too late")
        << QStringList{"cam_20261116_120000.mkv", "cam_20261116_120009.mkv",
                       "cam_20261116_120020.mkv", "cam_20261116_120034.mkv"}
        << QList<int>{1, 2};
}

void TestContinued::clocksInNamesTell() {
    QFETCH(QStringList, names);
    QFETCH(QList<int>, goOn);
    const QStringList paths = named(QTest::currentDataTag(), names);
    QCOMPARE(paths.size(), 4);
    const ProcessResult result = scan(QStringList{"--continue", "--verbose"} + paths);
    for (int i = 1; i < 4; ++i) {
        const QByteArray line = (paths[i] + ": goes on from " + paths[i - 1] + ": ").toUtf8();
        QVERIFY2(result.errors.contains(line) == goOn.contains(i), result.errors.constData());
    }
    QCOMPARE(result.errors.count(": goes on from "), goOn.size());
}

void TestContinued::startsFollowTheGivenOne() {
    const ProcessResult result = scan(oneClip +
                                      QStringList{"--continue", "--format", "jsonl", "--start-time",
                                                  "2026-11-16T12:00:00", "--time-zone", "UTC"} +
                                      files);
    QVERIFY(result.errors.contains("those that it does not go on in have no date and time"));
    QStringList began;
    for (const QJsonObject& line : jsonLines(result.output)) {
        if (!line.contains("state"))
            continue;
        began += line["began"].toString().left(18); // to ten seconds
        QCOMPARE(line["beganBy"].toString(), QString(began.size() == 1 ? "given" : "follows"));
    }
    QCOMPARE(began, QStringList({"2026-11-16T12:00:0", "2026-11-16T12:00:1", "2026-11-16T12:00:2",
                                 "2026-11-16T12:00:3"}));
}

void TestContinued::numbersInNamesProveNothing() {
    const QStringList all = named("anew", {"0.mkv", "1.mkv", "2.mkv", "3.mkv"});
    QStringList anew;
    // All of them were last written to at one time.
    for (const QString& name : all.mid(0, 2)) {
        QFile file(name);
        QVERIFY(file.open(QIODevice::ReadWrite));
        QVERIFY(file.setFileTime(QDateTime(QDate(2026, 11, 16), QTime(12, 0)),
                                 QFileDevice::FileModificationTime));
        anew += name;
    }
    const ProcessResult result = scan(QStringList{"--continue", "--verbose"} + anew);
    const QString refusal = QString("%1: does not go on from %2: it begins ").arg(anew[1], anew[0]);
    QVERIFY2(result.errors.contains(refusal.toUtf8()), result.errors.constData());
    QVERIFY(result.errors.contains(" s before its end: they overlap, or a clock was set back\n"));
    QCOMPARE(result.output, scan(anew).output);
}

void TestContinued::countersTellTheOrder() {
    QDir(folder.path()).mkpath("counted");
    const char* names[] = {"8", "9", "10", "11"};
    for (int i = 0; i < 4; ++i)
        QVERIFY(QFile::copy(files[i], path("counted/") + names[i] + ".mkv"));
    const QByteArray said = scan({"--continue", "--verbose", path("counted")}).errors;
    QCOMPARE(said.count("goes on from"), 3);
    QVERIFY2(said.contains(("10.mkv: goes on from " + path("counted/9.mkv") + ": ").toUtf8()),
             said.constData());
}

void TestContinued::piecesOfLongClips() {
    const QStringList cut = {"--continue", "--max-length", "4", "--snapshots", path("pieces")};
    const QList<QJsonObject> clips = clipLines(scan(visits + cut + files).output);
    QVERIFY(clips.size() >= 6);
    QVector<Clip> pieces = clipsOf(scan(visits + cut + files).output, begins);
    const QVector<Clip> whole =
        clipsOf(scan(visits + QStringList{"--continue"} + files).output, begins);
    QCOMPARE(pieces.first().start, whole.first().start);
    QVERIFY(qAbs(pieces.last().end - whole.last().end) < 1e-6);
    for (int i = 0; i < clips.size(); ++i) {
        QVERIFY(QFileInfo::exists(clips[i]["snapshot"].toString()));
        QVERIFY(pieces[i].end - pieces[i].start < 4.0 + 1e-6);
        const double shown = clips[i]["snapshotTime"].toDouble();
        QVERIFY(shown >= clips[i]["start"].toDouble() - 1e-6);
        QVERIFY(shown <= clips[i]["end"].toDouble());
        // Numbered on within the recording in which they begin.
        const bool isNext = i > 0 && clips[i]["video"] == clips[i - 1]["video"];
        QCOMPARE(clips[i]["index"].toInt(), isNext ? clips[i - 1]["index"].toInt() + 1 : 0);
    }
    const QStringList best = {"--continue", "--sort", "length", "--top", "1"};
    QCOMPARE(clipLines(scan(visits + best + files).output).size(), 1);
    const QStringList none = {"--continue", "--min-length", "100"};
    QCOMPARE(clipLines(scan(visits + none + files).output).size(), 0);
}

void TestContinued::aMissingFileEndsIt() {
    const QStringList left = {files[0], files[2], files[3]};
    const ProcessResult result = scan(visits + QStringList{"--continue"} + left);
    const QList<QJsonObject> clips = clipLines(result.output);
    QCOMPARE(clips.size(), 2);
    QCOMPARE(clips[0]["parts"].toArray().size(), 1); // nothing is bridged
    QVERIFY(clips[0]["end"].toDouble() < 10.0);
    QCOMPARE(clips[1]["parts"].toArray().size(), 2); // what lies behind goes on
}

void TestContinued::aDamagedFileEndsIt() {
    const QString none = path("mkv/1b.mkv");
    QVERIFY(writeFile(none, "no recording"));
    const QStringList broken = {files[0], none, files[2], files[3]};
    const ProcessResult result = scan(visits + QStringList{"--continue"} + broken);
    QCOMPARE(result.status, 3);
    QVERIFY(result.errors.contains("1b.mkv: "));
    QCOMPARE(clipLines(result.output).size(), 2);

    // One that is cut off goes on up to there, and nothing goes on in it.
    const QString cutOff = path("mkv/1c.mkv");
    const QByteArray bytes = readFile(files[1]);
    QVERIFY(writeFile(cutOff, bytes.left(bytes.size() / 2)));
    const ProcessResult short1 =
        scan(visits + QStringList{"--continue", files[0], cutOff, files[2], files[3]});
    const QList<QJsonObject> clips = clipLines(short1.output);
    QCOMPARE(clips.size(), 2);
    QCOMPARE(clips[0]["parts"].toArray().size(), 2);
    QCOMPARE(clips[0]["parts"].toArray()[1].toObject()["recording"].toString(), cutOff);
    QCOMPARE(clips[1]["video"].toString(), files[2]);
}

void TestContinued::camerasAreToldApart() {
    // Two cameras in one folder, file for file at the same time.
    QDir(folder.path()).mkpath("two");
    QStringList both;
    for (int i = 0; i < 4; ++i) {
        for (const char* camera : {"cam1", "cam2"}) {
            both += path(QStringLiteral("two/%1-%2.mkv").arg(i).arg(camera));
            QVERIFY(QFile::copy(files[i], both.last()));
        }
    }
    const ProcessResult apart =
        scan(oneClip + QStringList{"--format", "jsonl", "--continue", "--verbose"} + both);
    QCOMPARE(clipLines(apart.output).size(), 4);
    for (const QJsonObject& clip : clipLines(apart.output)) {
        const QJsonArray parts = clip["parts"].toArray();
        QCOMPARE(parts.size(), 2);
        for (const char* camera : {"cam1", "cam2"})
            QCOMPARE(parts[0].toObject()["recording"].toString().contains(camera),
                     parts[1].toObject()["recording"].toString().contains(camera));
    }
    // By the names of these nobody can.
    QDir(folder.path()).mkpath("alike");
    const QStringList names = {"front.mkv", "gate.mkv", "yard.mkv"};
    QStringList alike;
    for (int i = 0; i < 3; ++i) {
        alike += path("alike/" + names[i]);
        QVERIFY(QFile::copy(files[i / 2], alike.last()));
    }
    const ProcessResult mixed = scan(QStringList{"--continue", "--verbose"} + alike);
    QVERIFY2(mixed.errors.contains("yard.mkv: does not go on from "), mixed.errors.constData());
    QVERIFY(mixed.errors.contains("gate.mkv ends then, too, and they cannot be told apart\n"));
}

void TestContinued::otherSizesAreNotContinued() {
    QDir(folder.path()).mkpath("size");
    const QString other = path("size/1.mkv");
    QVERIFY(QFile::copy(files[0], path("size/0.mkv")));
    QVERIFY(media::encode(QStringList{"-copyts", "-i", files[1], "-vf", "scale=320:240"} + h264 +
                          QStringList{"-copyts", other}));
    const ProcessResult result = scan({"--continue", "--verbose", path("size/0.mkv"), other});
    QVERIFY2(result.errors.contains("its pictures are 320 x 240 and not 160 x 120\n"),
             result.errors.constData());
}

void TestContinued::nothingIsSaidUnasked() {
    QVERIFY(!scan(QStringList{"--continue"} + files).errors.contains("goes on from"));
    const QByteArray said = scan(QStringList{"--continue", "--verbose"} + files).errors;
    QCOMPARE(said.count("goes on from"), 3);
    QCOMPARE(said.count("its time stamps go on\n"), 3);
}

void TestContinued::interruptPrintsWhatIsOpen() {
    // Standard output that takes nothing ends the scan as a signal does.
    QProcess process;
    process.setStandardOutputFile("/dev/full");
    process.start(media::programDirectory() + "/kestrova-scan",
                  visits + QStringList{"--continue"} + files);
    const ProcessResult result = endOf(process);
    QCOMPARE(result.status, 1);
    QVERIFY(result.errors.contains("standard output"));
}

void TestContinued::exportIsOneFile_data() {
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<QString>("codec");
    QTest::newRow("copied") << QStringList{"--container", "mkv"} << "h264";
    QTest::newRow("copied into mp4") << QStringList{"--container", "mp4"} << "h264";
    QTest::newRow("encoded") << QStringList{"--container", "mkv", "--transcode"} << "h264";
    QTest::newRow("encoded as avi") << QStringList{"--transcode"} << "mpeg4";
}

void TestContinued::exportIsOneFile() {
    QFETCH(QStringList, options);
    QFETCH(QString, codec);
    const QString out = path("export");
    QDir(out).removeRecursively();
    const ProcessResult result =
        scan(visits + QStringList{"--continue", "--export", out} + options + files);
    QCOMPARE(result.status, 0);
    const QList<QJsonObject> clips = clipLines(result.output);
    QCOMPARE(clips.size(), 2);
    for (const QJsonObject& clip : clips) {
        QVERIFY(clip["exported"].toBool());
        const QFileInfo file(clip["file"].toString());
        const ClipProbe probe = probeClip(file.filePath());
        QVERIFY(probe.isPlayable);
        QCOMPARE(probe.videoCodec, codec);
        const double length = clip["end"].toDouble() - clip["start"].toDouble();
        QVERIFY2(qAbs(probe.seconds - length) < 1.5, qPrintable(QString::number(probe.seconds)));
        QVERIFY(probe.pictures > 25 * (length - 1.5));
        // The encoder's list is gone.
        QCOMPARE(file.dir().entryList(QDir::Files).size(), 1);
    }
}

void TestContinued::exportNamesAnything() {
    const QString odd = "it's \"%1\" # file:x\\ \xc3\xa4?*";
    QDir(folder.path()).mkpath(odd);
    QStringList names;
    for (int i = 0; i < 2; ++i) {
        names += path(odd) + QStringLiteral("/'%1' & '.mkv").arg(i);
        QVERIFY(QFile::copy(files[i], names.last()));
    }
    const QList<QJsonObject> clips = clipLines(
        scan(visits + QStringList{"--continue", "--container", "mkv", "--export", path("odd")} +
             names)
            .output);
    QCOMPARE(clips.size(), 1);
    QVERIFY(clips[0]["exported"].toBool());
    QVERIFY(probeClip(clips[0]["file"].toString()).seconds > 8.0);
}

void TestContinued::exportCannotNameLineBreaks() {
    QStringList names;
    for (int i = 0; i < 2; ++i) {
        names += path(QStringLiteral("line\nfile '/etc/passwd'%1.mkv").arg(i).replace('/', '|'));
        QVERIFY(QFile::copy(files[i], names.last()));
    }
    const ProcessResult result =
        scan(visits + QStringList{"--continue", "--export", path("lines")} + names);
    QCOMPARE(result.status, 1);
    QVERIFY(
        result.errors.contains("a line break in its name, which no list for the encoder holds"));
    QCOMPARE(clipLines(result.output)[0]["exported"].toBool(true), false);
}

void TestContinued::exportIsEncodedAnewWhereItMust() {
    ScannerStand scanner;
    EncoderStand encoder;
    const QString out = path("anew-export"); // the encoder can write nowhere else
    QVERIFY(QDir().mkpath(out));
    const QString calls = out + "/calls";
    // Copies of what lies in one recording alone succeed, too.
    encoder.useScript("#!/bin/sh\n"
                      "echo \"$*\" >> '" +
                      calls.toUtf8() +
                      "'\n"
                      "case \"$*\" in *concat*copy\\ -acodec*) echo 'not alike: invalid' >&2; exit "
                      "1;; esac\n"
                      "for last in \"$@\"; do :; done\n"
                      "echo clip > \"$last\"\n");
    const ProcessResult result = runProgram(
        ScannerStand::path(), visits + QStringList{"--continue", "--export", out} + files);
    QVERIFY2(result.status == 0, result.errors.constData());
    const QList<QJsonObject> clips = clipLines(result.output);
    QVERIFY(clips[0]["exported"].toBool());
    const QList<QByteArray> lines = readFile(calls).split('\n');
    QVERIFY(lines[0].contains("-format_whitelist concat,matroska -safe 0 -f concat -i"));
    QVERIFY(lines[0].contains("-vcodec copy"));
    QVERIFY(lines[1].contains("-b:v"));
    QVERIFY(!lines[1].contains("-vcodec copy"));
}

void TestContinued::exportOfAChangedPartFails() {
    ScannerStand scanner;
    EncoderStand encoder;
    const QString out = path("changing"); // the encoder can write nowhere else
    QVERIFY(QDir().mkpath(out));
    QStringList names;
    for (int i = 0; i < 2; ++i) {
        names += out + QStringLiteral("/%1.mkv").arg(i);
        QVERIFY(QFile::copy(files[i], names.last()));
    }
    // The second recording is written to while the clip is cut out.
    encoder.useScript("#!/bin/sh\necho other > '" + names[1].toUtf8() +
                      "'\nfor last in \"$@\"; do :; done\necho clip > \"$last\"\n");
    const ProcessResult result = runProgram(
        ScannerStand::path(), visits + QStringList{"--continue", "--export", out} + names);
    QCOMPARE(result.status, 1);
    QVERIFY(result.errors.contains("the recording was changed while it was cut out"));
    QCOMPARE(clipLines(result.output)[0]["exported"].toBool(true), false);
}

QTEST_GUILESS_MAIN(TestContinued)
#include "test_continued.moc"
