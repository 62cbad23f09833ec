// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

// The scanner's look at key frames alone.

#include "faults.h"
#include "files.h"
#include "media.h"
#include "process.h"
#include "sample.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QtTest>

#include <cerrno>

namespace {

const QStringList someClips = {"--format", "jsonl", "--minimum", "2", "--postrecord", "3"};

/// H.264 with a key frame every `gop` pictures, and no other.
QStringList h264(int gop, const QStringList& more = {}) {
    const QString number = QString::number(gop);
    return QStringList{"-c:v", "libx264", "-preset", "veryfast",      "-g", number, "-keyint_min",
                       number, "-bf",     "3",       "-sc_threshold", "0"} +
           more;
}

} // namespace

class TestQuick : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void looksAtKeyFramesAlone_data();
    void looksAtKeyFramesAlone();
    void comparesThePicturesThemselves_data();
    void comparesThePicturesThemselves();
    void equalsTheWholeWhereAllAreKeyFrames();
    void everythingSaysThatItIsQuick();
    void threadsDoNotChangeAnything();
    void windowIsWidened();
    void keptValuesAreMarked();
    void rangesAndSnapshots();
    void needsTimes();
    void needsTwoKeyFrames();
    void refinedIsExactAroundWhatWasFound_data();
    void refinedIsExactAroundWhatWasFound();
    void refinedCountsOn();
    void refinedStretchesCanBeAskedFor();
    void refinedFromKeptValues();
    void refinedThatCannotBeRead();

private:
    QList<QJsonObject> clips(const QStringList& options, const QString& name);
    ProcessResult scan(const QStringList& options, const QString& name);
    QList<QByteArrayList> traced(const QStringList& options, const QString& name);
    QString path(const QString& name) const { return folder.filePath(name); }

    QTemporaryDir folder;
    QString video; ///< 30 s, a key frame each second; a box crosses from second 8 to second 20
};

void TestQuick::initTestCase() {
    const auto encode = [this](const char* name, const QStringList& codec) {
        return media::encode(media::crossingBox(30, 8, 20) + codec + QStringList{path(name)});
    };
    QVERIFY(encode("a.mp4", h264(25)));
    QVERIFY(encode("b.mkv", h264(25)));
    QVERIFY(encode("c.ts", h264(25)));
    QVERIFY(encode("open.mkv", h264(25, {"-x264-params", "open-gop=1"})));
    QVERIFY(encode("mpeg4.avi", {"-c:v", "mpeg4", "-g", "25", "-sc_threshold", "1000000000"}));
    QVERIFY(encode("far.mp4", h264(250)));
    QVERIFY(encode("whole.avi", {"-c:v", "mjpeg"}));
    QVERIFY(encode("elementary.264", h264(25)));
    QVERIFY(
        media::encode(media::crossingBox(50, 20, 26) + h264(25) + QStringList{path("day.mp4")}));
    QVERIFY(media::encode(
        {"-stream_loop", "2", "-i", path("day.mp4"), "-c", "copy", path("days.mp4")}));
    video = path("a.mp4");
}

ProcessResult TestQuick::scan(const QStringList& options, const QString& name) {
    return runProgram("kestrova-scan", options + QStringList{name});
}

QList<QByteArrayList> TestQuick::traced(const QStringList& options, const QString& name) {
    scan(options + QStringList{"--trace", path("trace")}, name);
    QList<QByteArrayList> lines;
    for (const QByteArray& line : readFile(path("trace")).trimmed().split('\n'))
        lines += line.split('\t');
    return lines;
}

void TestQuick::looksAtKeyFramesAlone_data() {
    QTest::addColumn<QString>("name");
    for (const char* name : {"a.mp4", "b.mkv", "c.ts", "open.mkv", "mpeg4.avi"})
        QTest::newRow(name) << name;
}

void TestQuick::looksAtKeyFramesAlone() {
    KESTROVA_SAMPLED_ROW();
    QFETCH(QString, name);
    const QList<QByteArrayList> lines = traced({"--quick"}, path(name));
    QCOMPARE(lines.size(), 29); // 30 in 30 seconds
    const bool isOpen = name.startsWith("open");
    for (int i = 0; i < lines.size(); ++i) {
        QCOMPARE(lines[i][0].toInt(), i + 1);
        // What stands before an open group is shown before its key frame.
        QVERIFY2(qAbs(lines[i][1].toDouble() - (i + 1)) < (isOpen ? 0.13 : 1e-6),
                 lines[i][1].constData());
    }
}

void TestQuick::comparesThePicturesThemselves_data() {
    QTest::addColumn<QString>("name");
    for (const char* name : {"a.mp4", "b.mkv", "c.ts", "mpeg4.avi"})
        QTest::newRow(name) << name;
}

/// The encoder's program picks the key frames out.
void TestQuick::comparesThePicturesThemselves() {
    KESTROVA_SAMPLED_ROW();
    QFETCH(QString, name);
    const QString keys = path("keys.mkv");
    QVERIFY(media::encode(
        {"-skip_frame", "nokey", "-i", path(name), "-vsync", "passthrough", "-c:v", "ffv1", keys}));
    const QList<QByteArrayList> expected = traced({}, keys);
    const QList<QByteArrayList> found = traced({"--quick"}, path(name));
    QCOMPARE(found.size(), expected.size());
    bool hasMotion = false;
    for (int i = 0; i < found.size(); ++i) {
        QCOMPARE(found[i][2], expected[i][2]);
        hasMotion = hasMotion || found[i][2].toDouble() > 0.5;
    }
    QVERIFY(hasMotion);
}

void TestQuick::equalsTheWholeWhereAllAreKeyFrames() {
    const QList<QByteArrayList> whole = traced({"--skip", "1"}, path("whole.avi"));
    QVERIFY(whole.size() > 700);
    QCOMPARE(traced({"--skip", "1", "--quick"}, path("whole.avi")), whole);
}

void TestQuick::everythingSaysThatItIsQuick() {
    const ProcessResult result =
        scan(someClips + QStringList{"--minimum", "3", "--quick", "--quiet"}, video);
    QCOMPARE(result.status, 0);
    QCOMPARE(result.errors, "kestrova-scan: " + video.toUtf8() +
                                ": quick look: its 30 key frames lie up to 1.000 s apart, motion "
                                "between two of them is missed\n");
    const QList<QJsonObject> lines = jsonLines(result.output);
    QVERIFY(lines.size() >= 2);
    for (const QJsonObject& line : lines)
        QCOMPARE(line["quick"], QJsonValue(true));
    // The box moves from 8 to 20.
    QVERIFY(lines.first()["start"].toDouble() < 8 && lines.first()["end"].toDouble() > 20);
    for (const QJsonObject& line : jsonLines(scan(someClips, video).output))
        QVERIFY(!line.contains("quick"));
}

void TestQuick::threadsDoNotChangeAnything() {
    const auto one = traced({"--quick", "--threads", "1"}, video);
    for (const char* threads : {"2", "5", "64"})
        QCOMPARE(traced({"--quick", "--threads", threads}, video), one);
}

/// Key frames at 0, 10 and 20 s: of a window of 5 s none or one would be left.
void TestQuick::windowIsWidened() {
    const QString looped = path("looped.mp4");
    const QStringList scene = {"-f", "lavfi", "-i", "testsrc2=s=160x120:r=25:d=60"};
    QVERIFY(media::encode(scene + h264(250, {looped})));
    const ProcessResult result = scan({"--quick", "--quiet", "--format", "jsonl"}, looped);
    QVERIFY2(
        result.errors.contains("up to 10.000 s apart") &&
            result.errors.endsWith("; --minimum is widened to two comparisons, up to 20.000 s\n"),
        result.errors.constData());
    QCOMPARE(jsonLines(result.output).last()["clips"].toInt(), 1);
    QVERIFY(!scan({"--quick", "--minimum", "21"}, looped).errors.contains("widened"));
}

void TestQuick::keptValuesAreMarked() {
    const QStringList options = someClips + QStringList{"--quick"};
    const QStringList keeping = {"--values", path("kept")};
    const ProcessResult fresh = scan(options, video);
    for (int i = 0; i < 2; ++i) {
        const ProcessResult kept = scan(options + keeping, video);
        QCOMPARE(kept.output, fresh.output);
        QCOMPARE(kept.errors, fresh.errors);
    }
    const QDir folder(path("kept"));
    const QString file = folder.filePath(folder.entryList({"*.values"}, QDir::Files).value(0));
    QCOMPARE(scan(someClips, file).output, fresh.output); // without being asked for
    // Quick values are none for a whole scan, and the other way round.
    const QByteArray whole = scan(someClips, video).output;
    QCOMPARE(scan(someClips + keeping, video).output, whole);
    QVERIFY2(scan(options, file).errors.contains("--quick does not fit its values"), "whole");
    QCOMPARE(scan(options + keeping, video).output, fresh.output);
}

void TestQuick::rangesAndSnapshots() {
    const QStringList options =
        someClips +
        QStringList{"--quick", "--from", "5", "--to", "25", "--snapshots", path("pictures")};
    const auto found = [&](const QStringList& more) {
        const QByteArray output = scan(options + more, video).output;
        return qMakePair(output, readFile(path("pictures/a.mp4-0000.png")));
    };
    const auto fresh = found({});
    QCOMPARE(jsonLines(fresh.first).last()["frames"].toInt(), 21); // 5, 6 ... 25
    QVERIFY(!fresh.second.isEmpty());
    QCOMPARE(found({"--values", path("kept-range")}), fresh);
    QCOMPARE(found({"--values", path("kept-range")}), fresh);
}

void TestQuick::needsTimes() {
    const ProcessResult result = scan({"--quick"}, path("elementary.264"));
    QCOMPARE(result.status, 3);
    QVERIFY2(result.errors.endsWith(": no usable times, without which there is no quick look\n"),
             result.errors.constData());
    QCOMPARE(scan({"--quick", "--fps", "25"}, video).status, 2);
}

QList<QJsonObject> TestQuick::clips(const QStringList& options, const QString& name) {
    QList<QJsonObject> lines = jsonLines(scan(options, name).output);
    lines.removeLast();
    return lines;
}

void TestQuick::needsTwoKeyFrames() {
    const QString name = path("single.mp4");
    QVERIFY(media::encode(media::crossingBox(30, 8, 20) + h264(10000) + QStringList{name}));
    const ProcessResult whole = scan(someClips, name);
    QCOMPARE(whole.status, 0);
    QCOMPARE(jsonLines(whole.output).size(), 2);
    const QByteArray reason =
        name.toUtf8() + ": a quick look compares key frames, and only one was found\n";
    for (const QStringList& options :
         {QStringList{"--quick"}, QStringList{"--quick", "--refine"}}) {
        const ProcessResult quick = scan(options + someClips, name);
        QCOMPARE(quick.status, 3);
        QVERIFY2(quick.errors.endsWith(reason), quick.errors.constData());
        QCOMPARE(jsonLines(quick.output).size(), 1);
        QCOMPARE(jsonLines(quick.output).first()["state"].toString(), QString("failed"));
    }
}

void TestQuick::refinedIsExactAroundWhatWasFound_data() {
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<int>("visits");
    QTest::newRow("plain") << QStringList() << 3;
    QTest::newRow("one thread") << QStringList{"--threads", "1"} << 3;
    QTest::newRow("merged") << QStringList{"--merge", "1"} << 3;
    QTest::newRow("in a range") << QStringList{"--from", "12", "--to", "75.5"} << 2;
    QTest::newRow("skipping") << QStringList{"--skip", "2"} << 3;
}

void TestQuick::refinedIsExactAroundWhatWasFound() {
    KESTROVA_SAMPLED_ROW();
    QFETCH(QStringList, options);
    QFETCH(int, visits);
    options += someClips + QStringList{"--snapshots", path("pictures")};
    const ProcessResult refined =
        scan(options + QStringList{"--quick", "--refine"}, path("days.mp4"));
    QCOMPARE(refined.status, 0);
    QList<QJsonObject> found = jsonLines(refined.output);
    QCOMPARE(found.takeLast()["quick"], QJsonValue(true));
    QList<QJsonObject> expected;
    static const QRegularExpression stretch("searched exactly from ([0-9.]+) to ([0-9.]+) s");
    auto stretches = stretch.globalMatch(QString::fromUtf8(refined.errors));
    int count = 0;
    while (stretches.hasNext()) {
        const auto bounds = stretches.next();
        ++count;
        for (QJsonObject clip :
             clips(options + QStringList{"--from", bounds.captured(1), "--to", bounds.captured(2)},
                   path("days.mp4"))) {
            clip["index"] = expected.size();
            clip["snapshot"] =
                path("pictures/days.mp4-%1.png").arg(expected.size(), 4, 10, QLatin1Char('0'));
            expected.append(clip);
        }
    }
    QCOMPARE(count, visits);
    QVERIFY(found.size() >= visits);
    QCOMPARE(found, expected);
}

/// Clips, pictures and times are those of the whole recording.
void TestQuick::refinedCountsOn() {
    const QString days = path("days.mp4");
    const QList<QJsonObject> whole = clips(someClips, days);
    QCOMPARE(whole.size(), 3);
    QCOMPARE(clips(someClips + QStringList{"--quick", "--refine"}, days), whole);
    const QList<QByteArrayList> all = traced(someClips, days);
    const QList<QByteArrayList> lines =
        traced(someClips + QStringList{"--quick", "--refine"}, days);
    QVERIFY(lines.size() > 1000 && lines.size() < all.size() * 2 / 3);
    for (const QByteArrayList& line : lines)
        QCOMPARE(line, all.value(line[0].toInt() - 1));
    // A recording in which nothing moves has nothing to search.
    const ProcessResult quiet = scan({"--quick", "--refine", "--threshold-motion", "10"}, days);
    QCOMPARE(quiet.status, 0);
    QCOMPARE(quiet.output, QByteArray());
    QVERIFY(!quiet.errors.contains("searched exactly"));
    QCOMPARE(scan({"--refine"}, days).status, 2);
}

void TestQuick::refinedStretchesCanBeAskedFor() {
    // At 30000/1001 pictures a second times have as many decimals as a number can hold.
    const QString film = path("film.mp4");
    QVERIFY(media::encode({"-r", "30000/1001", "-i", path("days.mp4"), "-t", "600", "-c:v",
                           "libx264", "-preset", "ultrafast", "-g", "30", film}));
    const ProcessResult refined =
        scan(someClips + QStringList{"--quick", "--refine", "--prerecord", "1.1"}, film);
    static const QRegularExpression stretch("searched exactly from (\\S+) to (\\S+) s");
    const auto bounds = stretch.match(QString::fromUtf8(refined.errors));
    QVERIFY2(bounds.hasMatch(), refined.errors.constData());
    QVERIFY2(bounds.captured(1).section('.', 1).size() > 9 ||
                 bounds.captured(2).section('.', 1).size() > 9,
             refined.errors.constData());
    const ProcessResult again =
        scan({"--from", bounds.captured(1), "--to", bounds.captured(2)}, film);
    QCOMPARE(again.status, 0);
    const ProcessResult tiny =
        scan({"--from", "0.0000000000000008881784197001252", "--to", "1"}, film);
    QCOMPARE(tiny.status, 0);
}

void TestQuick::refinedFromKeptValues() {
    const QStringList options =
        someClips + QStringList{"--quick", "--refine", "--values", path("kept-refined")};
    const ProcessResult fresh = scan(options, path("days.mp4"));
    const ProcessResult again = scan(options, path("days.mp4"));
    QCOMPARE(again.output, fresh.output);
    QCOMPARE(again.errors, fresh.errors);
    QVERIFY(fresh.errors.contains("searched exactly"));
    // What is kept are the key frames.
    const QDir kept(path("kept-refined"));
    QVERIFY(readFile(kept.filePath(kept.entryList({"*.values"}, QDir::Files).value(0)))
                .contains("# pictures: key\n"));
}

void TestQuick::refinedThatCannotBeRead() {
    const QString days = path("days.ts"); // an mp4's index stands at its end
    QVERIFY(media::encode({"-i", path("days.mp4"), "-c", "copy", days}));
    const QStringList options =
        someClips + QStringList{"--quick", "--refine", "--values", path("kept-failed")};
    scan(options, days);
    const ProcessResult failed = runProgramIn(faults::readError(days, QFileInfo(days).size() / 2),
                                              "kestrova-scan", options + QStringList{days});
    QCOMPARE(failed.status, 1);
    QVERIFY2(failed.errors.contains(qt_error_string(EIO).toUtf8()),
             failed.errors.right(300).constData());
    const QList<QJsonObject> lines = jsonLines(failed.output);
    QVERIFY(lines.size() >= 2);
    QCOMPARE(lines.last()["state"].toString(), QStringLiteral("failed"));
    QCOMPARE(lines.first(), clips(someClips, days).first()); // found before
}

QTEST_GUILESS_MAIN(TestQuick)
#include "test_quick.moc"
