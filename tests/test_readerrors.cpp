// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

// What the scanner says of a recording that cannot be read to its end.

#include "faults.h"
#include "files.h"
#include "media.h"
#include "process.h"

#include <QFileInfo>
#include <QTemporaryDir>
#include <QtTest>

namespace {

const QStringList options = {"--quiet", "--format", "jsonl", "--minimum", "2"};

ProcessResult scan(const QString& video) {
    return runProgram("kestrova-scan", options + QStringList{video});
}

ProcessResult scanIn(const QProcessEnvironment& environment, const QString& video) {
    return runProgramIn(environment, "kestrova-scan", options + QStringList{video});
}

QByteArray complaint(const QString& video, const QByteArray& reason) {
    return "kestrova-scan: " + video.toUtf8() + ": " + reason + '\n';
}

} // namespace

class TestReadErrors : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void halfway_data();
    void halfway();
    void afterTheLastByte();
    void atTheBeginning();
    void behindTheRange();

private:
    QString encoded(const QString& name, const QStringList& codec) const;

    QTemporaryDir folder;
};

/// 20 s; a box crosses from second 6 to second 16, so that a clip is open halfway.
QString TestReadErrors::encoded(const QString& name, const QStringList& codec) const {
    const QString path = folder.filePath(name);
    return media::encode(media::crossingBox(20, 6, 16) + codec + QStringList{path}) ? path
                                                                                    : QString();
}

void TestReadErrors::halfway_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QStringList>("codec");
    const QStringList h264 = {"-c:v", "libx264", "-preset", "ultrafast"};
    const QStringList mpeg4 = {"-c:v", "mpeg4"};
    // What the demuxers answer where the disk fails differs: an I/O error, the plain end, that the
    // data is invalid.
    QTest::newRow("MP4") << "a.mp4" << h264 + QStringList{"-movflags", "faststart"};
    QTest::newRow("fragmented MP4")
        << "b.mp4" << h264 + QStringList{"-movflags", "frag_keyframe+empty_moov"};
    QTest::newRow("AVI") << "c.avi" << mpeg4;
    QTest::newRow("Matroska") << "d.mkv" << h264;
    QTest::newRow("MPEG-TS") << "e.ts" << h264;
    QTest::newRow("MPEG-PS") << "f.mpg" << QStringList{"-c:v", "mpeg2video"};
    QTest::newRow("FLV") << "g.flv" << QStringList{"-c:v", "flv1"};
    QTest::newRow("ASF") << "h.asf" << mpeg4;
    QTest::newRow("Ogg") << "i.ogv" << QStringList{"-c:v", "libtheora"};
    QTest::newRow("NUT") << "j.nut" << mpeg4;
}

void TestReadErrors::halfway() {
    QFETCH(QString, name);
    QFETCH(QStringList, codec);
    const QString video = encoded(name, codec);
    QVERIFY(!video.isEmpty());
    const qint64 half = QFileInfo(video).size() / 2;
    const ProcessResult failed = scanIn(faults::readError(video, half), video);
    QCOMPARE(failed.status, 1);
    QCOMPARE(failed.errors, complaint(video, "cannot be read to its end: Input/output error"));
    const QList<QJsonObject> lines = jsonLines(failed.output);
    QCOMPARE(lines.size(), 2);
    QCOMPARE(lines[0]["end"].toDouble(), lines[1]["seconds"].toDouble());
    QVERIFY2(lines[0]["end"].toDouble() > 7.0 && lines[0]["end"].toDouble() < 14.0,
             failed.output.constData());
    QCOMPARE(lines[1]["state"].toString(), QString("failed"));
    QCOMPARE(lines[1]["clips"].toInt(), 1);

    // A recording that was cut off there has nothing more to read, and says the same but for that;
    // where its headers still promise more, it says so.
    QVERIFY(QFile::resize(video, half));
    const ProcessResult truncated = scan(video);
    QCOMPARE(truncated.status, 0);
    const QByteArray missing = complaint(video, "damaged: of the 0:00:20.");
    QVERIFY2(truncated.errors.isEmpty() || truncated.errors.startsWith(missing.chopped(1)),
             truncated.errors.constData());
    QList<QJsonObject> same = jsonLines(truncated.output);
    QCOMPARE(same.last().contains("damaged"), !truncated.errors.isEmpty());
    same.last().remove("damaged");
    QCOMPARE(same, jsonLines(QByteArray(failed.output).replace("failed", "finished")));
}

void TestReadErrors::afterTheLastByte() {
    const QString video = encoded("end.ts", {"-c:v", "libx264", "-preset", "ultrafast"});
    QVERIFY(!video.isEmpty());
    const ProcessResult failed = scanIn(faults::readError(video, QFileInfo(video).size()), video);
    // Whether more was to come, nobody knows.
    QCOMPARE(failed.status, 1);
    QCOMPARE(failed.output, scan(video).output.replace("finished", "failed"));
}

void TestReadErrors::atTheBeginning() {
    const QString video = encoded("begin.ts", {"-c:v", "libx264", "-preset", "ultrafast"});
    QVERIFY(!video.isEmpty());
    for (const qint64 offset : {0, 1000, 20000}) {
        const ProcessResult failed = scanIn(faults::readError(video, offset), video);
        QCOMPARE(failed.status, 1);
        QVERIFY2(failed.errors.contains("Input/output error"), failed.errors.constData());
        QCOMPARE(jsonLines(failed.output).last()["state"].toString(), QString("failed"));
    }
}

/// What lies behind the range is not asked for, even where it is read ahead.
void TestReadErrors::behindTheRange() {
    // Of pictures so large that few lie in what is read of the file at a time.
    const QString video = folder.filePath("range.ts");
    QVERIFY(
        media::encode(media::crossingBox(6, 1, 5, "640x480") +
                      QStringList{"-c:v", "libx264", "-preset", "ultrafast", "-qp", "5", video}));
    const auto search = [&video](const QProcessEnvironment& environment, const QString& threads) {
        return runProgramIn(environment, "kestrova-scan",
                            options + QStringList{"--to", "3", "--threads", threads, video});
    };
    const QByteArray whole = search(QProcessEnvironment::systemEnvironment(), "1").output;
    qint64 tooFew = 0;
    qint64 enough = QFileInfo(video).size();
    while (enough - tooFew > 1024) {
        const qint64 middle = (tooFew + enough) / 2;
        const bool isEnough = search(faults::readError(video, middle), "1").status == 0;
        (isEnough ? enough : tooFew) = middle;
    }
    QVERIFY(enough < QFileInfo(video).size() * 3 / 4);

    const ProcessResult ahead = search(faults::readError(video, enough), "4");
    QCOMPARE(ahead.errors, QByteArray());
    QCOMPARE(ahead.status, 0);
    QCOMPARE(ahead.output, whole);
}

QTEST_GUILESS_MAIN(TestReadErrors)
#include "test_readerrors.moc"
