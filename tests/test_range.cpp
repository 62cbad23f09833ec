// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

// The scanner on a part of a recording: what one pass over all of it finds there.

#include "files.h"
#include "footage.h"
#include "media.h"
#include "process.h"
#include "sample.h"

#include <QDir>
#include <QTemporaryDir>
#include <QtTest>

namespace {

/// A line of the trace.
struct Picture {
    QByteArray number;
    double time;
    QByteArray value;

    bool operator==(const Picture& other) const {
        return number == other.number && time == other.time && value == other.value;
    }
};

QVector<Picture> picturesIn(const QByteArray& trace) {
    QVector<Picture> pictures;
    for (const QByteArray& line : trace.split('\n')) {
        const QList<QByteArray> fields = line.split('\t');
        if (fields.size() == 3)
            pictures.append({fields[0], fields[1].toDouble(), fields[2]});
    }
    return pictures;
}

} // namespace

class TestRange : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void measuresWhatOnePassMeasures_data();
    void measuresWhatOnePassMeasures();
    void timesAreWrittenAsClocksDo();
    void clipsAreThoseOfThePart();
    void emptyRangesAreNamed();
    void keptValuesAreOfTheirRange();
    void snapshotsAreOfTheRecording();
    void wrongTimesAreRejected_data();
    void wrongTimesAreRejected();

private:
    ProcessResult scan(const QStringList& options, const QString& name);
    QVector<Picture> traced(const QStringList& options, const QString& name);

    QTemporaryDir folder;
    QString video; ///< 16 s; a box crosses from second 4 to second 9
};

void TestRange::initTestCase() {
    const auto encode = [this](const char* name, const QStringList& codec) {
        return media::encode(media::crossingBox(16, 4, 9) + codec +
                             QStringList{folder.filePath(name)});
    };
    const QStringList h264 = {"-c:v", "libx264", "-preset", "veryfast", "-g", "30", "-bf", "3"};
    QVERIFY(encode("a.mp4", h264));
    QVERIFY(encode("b.mkv", h264));
    QVERIFY(encode("c.ts", h264));
    QVERIFY(encode("open.mkv", h264 + QStringList{"-x264-params", "open-gop=1"}));
    QVERIFY(encode("elementary.264", h264));
    QVERIFY(encode("one-key.mp4", {"-c:v", "libx264", "-preset", "veryfast", "-g", "9999"}));
    QVERIFY(encode("packed.avi", {"-c:v", "mpeg4", "-bf", "2"}));
    QVERIFY(encode("program.mpg", {"-c:v", "mpeg2video", "-bf", "2"}));
    QVERIFY(encode("fields.ts", {"-c:v", "mpeg2video", "-flags", "+ildct+ilme"}));
    QVERIFY(encode("whole.avi", {"-c:v", "mjpeg"}));
    video = folder.filePath("a.mp4");
}

ProcessResult TestRange::scan(const QStringList& options, const QString& name) {
    return runProgram("kestrova-scan", options + QStringList{"--quiet", name});
}

QVector<Picture> TestRange::traced(const QStringList& options, const QString& name) {
    const QString trace = folder.filePath("trace");
    scan(options + QStringList{"--trace", trace}, name);
    return picturesIn(readFile(trace));
}

void TestRange::measuresWhatOnePassMeasures_data() {
    QTest::addColumn<QString>("name");
    QStringList folders = {folder.path(), recordingsDirectory()};
    if (!footageDirectory().isEmpty())
        folders += footageDirectory();
    for (const QString& place : folders) {
        for (const QFileInfo& file : QDir(place).entryInfoList(QDir::Files)) {
            if (file.suffix() != "md" && file.suffix() != "py" && file.fileName() != "trace")
                QTest::newRow(qPrintable(file.fileName())) << file.absoluteFilePath();
        }
    }
}

void TestRange::measuresWhatOnePassMeasures() {
    KESTROVA_SAMPLED_ROW();
    QFETCH(QString, name);
    const QVector<Picture> whole = traced({}, name);
    QVERIFY(!whole.isEmpty());
    const double end = whole.last().time;
    const QList<QPair<double, double>> ranges = {
        {0.0, 0.3 * end}, {0.02, end}, {0.31 * end, 0.6 * end}, {0.7 * end, 2 * end}};
    for (const auto& range : ranges) {
        QVector<Picture> expected;
        bool isFirst = range.first > 0.0; // which is compared with nothing; number 0 is in no trace
        for (const Picture& picture : whole) {
            if (picture.time < range.first || picture.time > range.second)
                continue;
            if (!isFirst)
                expected.append(picture);
            isFirst = false;
        }
        const QVector<Picture> found = traced({"--from", QString::number(range.first, 'f', 9),
                                               "--to", QString::number(range.second, 'f', 9)},
                                              name);
        QCOMPARE(found.size(), expected.size());
        QVERIFY2(found == expected, qPrintable(QString::number(range.first)));
    }
}

void TestRange::timesAreWrittenAsClocksDo() {
    const auto part = traced({"--from", "3.5", "--to", "10"}, video);
    QVERIFY(part.size() > 100);
    QCOMPARE(traced({"--from", "0:03.5", "--to", "0:00:10"}, video), part);
    QCOMPARE(traced({"--from", "0:00:03.500", "--to", "00:10.0"}, video), part);
}

void TestRange::clipsAreThoseOfThePart() {
    const QStringList options = {"--format", "jsonl", "--minimum", "2", "--postrecord", "1"};
    const auto clips = [&](const QStringList& range) {
        return jsonLines(scan(options + range, video).output);
    };
    const QList<QJsonObject> whole = clips({});
    QCOMPARE(whole.size(), 2);
    // From some seconds before the visit on, it is found as if all had been looked at.
    QCOMPARE(clips({"--from", "1"}).first(), whole.first());
    QCOMPARE(clips({"--from", "11"}).size(), 1);
    const QJsonObject end = clips({"--from", "1", "--to", "3.02"}).last();
    QCOMPARE(end["frames"].toInt(), 51); // 1.00, 1.04 ... 3.00
    QVERIFY(qAbs(end["seconds"].toDouble() - 3.0) < 1e-9);
}

void TestRange::emptyRangesAreNamed() {
    for (const QStringList& range :
         QList<QStringList>{{"--from", "99"}, {"--from", "1.01", "--to", "1.05"}}) {
        const ProcessResult result = scan(range, video);
        QCOMPARE(result.status, 3);
        QCOMPARE(result.errors, "kestrova-scan: " + video.toUtf8() +
                                    ": fewer than two pictures lie in the range\n");
    }
}

void TestRange::keptValuesAreOfTheirRange() {
    const QStringList options = {"--minimum", "2", "--postrecord", "1", "--format", "jsonl"};
    const QStringList keeping = options + QStringList{"--values", folder.filePath("kept")};
    const QStringList range = {"--from", "3", "--to", "8"};
    const QByteArray part = scan(options + range, video).output;
    const QByteArray whole = scan(options, video).output;
    QVERIFY(part != whole);
    for (int i = 0; i < 2; ++i) {
        QCOMPARE(scan(keeping + range, video).output, part);
        QCOMPARE(scan(keeping + range, video).output, part);
        QCOMPARE(scan(keeping, video).output, whole);
    }
}

void TestRange::snapshotsAreOfTheRecording() {
    const auto picture = [&](const QStringList& more) {
        const QString place = folder.filePath("pictures");
        scan(QStringList{"--minimum", "2", "--from", "3", "--to", "14", "--snapshots", place} +
                 more,
             video);
        QByteArray bytes = readFile(place + "/a.mp4-0000.png");
        QDir(place).removeRecursively();
        return bytes;
    };
    const QByteArray fresh = picture({});
    QVERIFY(!fresh.isEmpty());
    const QStringList keeping = {"--values", folder.filePath("kept-pictures")};
    QCOMPARE(picture(keeping), fresh);
    QCOMPARE(picture(keeping), fresh);
}

void TestRange::wrongTimesAreRejected_data() {
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<QByteArray>("complaint");
    for (const char* time : {"", "-1", "1:60", "1:2:3:4", "x", "1e3", "1:75.5", "0:61:00", "inf"})
        QTest::addRow("'%s'", time)
            << QStringList{QStringLiteral("--from=%1").arg(time)}
            << QByteArray("--from takes seconds or a time like 1:02:03.5, not '") + time + "'";
    QTest::newRow("turned around")
        << QStringList{"--from", "5", "--to", "5"} << QByteArray("--to must lie behind --from");
}

void TestRange::wrongTimesAreRejected() {
    QFETCH(QStringList, options);
    QFETCH(QByteArray, complaint);
    const ProcessResult result = scan(options, video);
    QCOMPARE(result.status, 2);
    QVERIFY2(result.errors.startsWith("kestrova-scan: " + complaint), result.errors.constData());
}

QTEST_GUILESS_MAIN(TestRange)
#include "test_range.moc"
