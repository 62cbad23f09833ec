// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

// What the scanner makes of recordings whose times are missing or make no sense.

#include "clipprobe.h"
#include "files.h"
#include "media.h"
#include "process.h"
#include "times.h"

#include <QDir>
#include <QTemporaryDir>
#include <QtTest>

namespace {

const QStringList h264 = {"-c:v", "libx264", "-preset", "ultrafast", "-bf", "0"};

struct Scan {
    explicit Scan(const QStringList& arguments) {
        const ProcessResult result = runProgram(
            "kestrova-scan", QStringList{"--format", "jsonl", "--minimum", "2"} + arguments);
        status = result.status;
        errors = result.errors;
        lines = jsonLines(result.output);
    }

    QString state() const { return lines.last()["state"].toString(); }
    QVector<double> clipTimes() const {
        QVector<double> times;
        for (const QJsonObject& line : lines) {
            if (line.contains("index"))
                times << line["start"].toDouble() << line["end"].toDouble();
        }
        return times;
    }

    int status;
    QByteArray errors;
    QList<QJsonObject> lines;
};

QByteArray said(const QString& video, const QByteArray& text) {
    return video.toUtf8() + ": " + text + '\n';
}

const QByteArray noUsableTimes =
    "no usable times; with --fps N its pictures are taken to be N per second";

} // namespace

class TestTimes : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void firstTimeIsMissing();
    void laterTimesAreMissing();
    void rateOfTheHeaders_data();
    void rateOfTheHeaders();
    void noRateInTheHeaders_data();
    void noRateInTheHeaders();
    void rateThatIsAskedFor();
    void timesThatStandStill();
    void timesThatRunBackwards();
    void countedRecordingIsCutWhereTheClipIs();

private:
    QString path(const QString& name) const { return folder.filePath(name); }
    QString copyOf(const QString& name, const QString& copy) const;

    QTemporaryDir folder;
    QVector<double> clip; ///< start and end of the one clip of all the recordings made here
};

/// 16 s; a box crosses from second 6 to second 12.
void TestTimes::initTestCase() {
    const QStringList scene = media::crossingBox(16, 6, 12);
    QVERIFY(media::encode(scene + h264 + QStringList{path("good.mp4")}));
    const QStringList copy = {"-i", path("good.mp4"), "-c", "copy"};
    QVERIFY(media::encode(copy + QStringList{path("good.ts")}));
    QVERIFY(media::encode(copy + QStringList{path("good.flv")}));
    QVERIFY(media::encode(copy + QStringList{path("raw.h264")}));
    const Scan scan({path("good.mp4")});
    QCOMPARE(scan.status, 0);
    clip = scan.clipTimes();
    QCOMPARE(clip.size(), 2);
}

QString TestTimes::copyOf(const QString& name, const QString& copy) const {
    QFile::remove(path(copy));
    return QFile::copy(path(name), path(copy)) ? path(copy) : QString();
}

void TestTimes::firstTimeIsMissing() {
    const QString video = copyOf("good.ts", "first.ts");
    QVERIFY(media::removeTimes(video, {0}));
    const Scan scan({video});
    QCOMPARE(scan.status, 3);
    QCOMPARE(scan.errors, "kestrova-scan: " + said(video, noUsableTimes));
    QCOMPARE(scan.lines.size(), 1);
    QCOMPARE(scan.state(), QString("failed"));

    const Scan counted({"--fps", "25", video});
    QCOMPARE(counted.status, 0);
    QCOMPARE(counted.clipTimes(), clip);
}

void TestTimes::laterTimesAreMissing() {
    const QString video = copyOf("good.ts", "later.ts");
    const QVector<double> good = Scan({video}).clipTimes();
    QCOMPARE(good.size(), 2);
    // In the quiet, where the clip opens, while it is open, at its end, and at the very end.
    QVERIFY(media::removeTimes(video, {1, 40, 41, 42, 205, 206, 330, 398, 399}));
    const Scan scan({video});
    QCOMPARE(scan.status, 0);
    QCOMPARE(scan.state(), QString("finished"));
    const QVector<double> times = scan.clipTimes();
    QCOMPARE(times.size(), 2);
    QVERIFY(qAbs(times[0] - good[0]) < 0.09 && qAbs(times[1] - good[1]) < 0.09);
    QVERIFY(qAbs(scan.lines.last()["seconds"].toDouble() - 397 * 0.04) < 1e-6);
}

void TestTimes::rateOfTheHeaders_data() {
    QTest::addColumn<QStringList>("codec");
    QTest::addColumn<QString>("name");
    QTest::newRow("H.264") << h264 << "header.h264";
    QTest::newRow("HEVC") << QStringList{"-c:v", "libx265", "-preset", "ultrafast", "-bf", "0"}
                          << "header.hevc";
}

void TestTimes::rateOfTheHeaders() {
    QFETCH(QStringList, codec);
    QFETCH(QString, name);
    const QString video = path(name);
    QVERIFY(media::encode(QStringList{"-i", path("good.mp4")} + codec + QStringList{video}));
    const Scan scan({video});
    QCOMPARE(scan.status, 0);
    QVERIFY2(scan.errors.startsWith(
                 said(video, "no times; taken to be 25 pictures per second, as its headers say")),
             scan.errors.constData());
    QCOMPARE(scan.clipTimes().size(), 2);
    for (int i = 0; i < 2; ++i)
        QVERIFY(qAbs(scan.clipTimes()[i] - clip[i]) < 0.21);
    QCOMPARE(Scan({"--quiet", video}).errors, QByteArray());
}

void TestTimes::noRateInTheHeaders_data() {
    QTest::addColumn<QStringList>("encoding");
    QTest::addColumn<QString>("name");
    QTest::newRow("none") << QStringList{"-c:v",      "libx265",      "-preset",
                                         "ultrafast", "-x265-params", "vui-timing-info=0"}
                          << "none.hevc";
    QTest::newRow("that of a clock")
        << QStringList{"-c", "copy", "-bsf:v", "h264_metadata=tick_rate=90000"} << "clock.h264";
}

void TestTimes::noRateInTheHeaders() {
    QFETCH(QStringList, encoding);
    QFETCH(QString, name);
    const QString video = path(name);
    QVERIFY(media::encode(QStringList{"-i", path("raw.h264")} + encoding + QStringList{video}));
    const Scan scan({video});
    QCOMPARE(scan.status, 3);
    QCOMPARE(scan.errors, "kestrova-scan: " + said(video, noUsableTimes));
    QCOMPARE(scan.state(), QString("failed"));
    QCOMPARE(Scan({"--fps", "25", video}).status, 0);
}

void TestTimes::rateThatIsAskedFor() {
    // Half the rate is twice the length: with all margins doubled, the same pictures are a clip.
    const Scan slow({"--minimum", "4", "--prerecord", "2", "--postrecord", "2", "--fps", "12.5",
                     path("good.mp4")});
    QCOMPARE(slow.status, 0);
    QCOMPARE(slow.clipTimes(), QVector<double>({2 * clip[0], 2 * clip[1]}));
    QCOMPARE(slow.lines.last()["seconds"].toDouble(),
             (slow.lines.last()["frames"].toInt() - 1) / 12.5);
    for (const char* rate : {"0.01", "1000"}) {
        const Scan scan({"--fps", rate, path("raw.h264")});
        QCOMPARE(scan.status, 0);
        QCOMPARE(scan.lines.last()["seconds"].toDouble(), 399 / QByteArray(rate).toDouble());
    }
}

void TestTimes::timesThatStandStill() {
    const QString video = copyOf("good.flv", "still.flv");
    QVERIFY(media::changeTimes(video, [](quint32) { return 0; }));
    const Scan scan({video});
    QCOMPARE(scan.status, 3);
    QCOMPARE(scan.errors, "kestrova-scan: " + said(video, noUsableTimes));
    QCOMPARE(scan.state(), QString("failed"));
    QCOMPARE(Scan({"--fps", "25", video}).clipTimes(), clip);
}

void TestTimes::timesThatRunBackwards() {
    // While the clip is open, the recorder's clock jumps from 109 s back to 60.
    const QString video = copyOf("good.flv", "backwards.flv");
    QVERIFY(media::changeTimes(
        video, [](quint32 time) { return time < 9000 ? time + 100000 : time + 51000; }));
    const Scan scan({"--quiet", "--export", path("backwards"), video});
    QCOMPARE(scan.status, 1);
    QCOMPARE(scan.errors,
             "kestrova-scan: " +
                 said(video, "the times of clip #0 make no sense, it cannot be cut out"));
    const QVector<double> times = scan.clipTimes();
    QCOMPARE(times.size(), 2);
    QVERIFY(times[1] < times[0]);
    QVERIFY(scan.lines[0]["file"].isNull());
    QCOMPARE(scan.lines[0]["exported"].toBool(true), false);
    // The recording itself was read to its end.
    QCOMPARE(scan.state(), QString("finished"));
    QCOMPARE(QDir(path("backwards/backwards_flv_0")).entryList(QDir::Files), QStringList());
    QCOMPARE(Scan({"--fps", "25", video}).clipTimes(), clip);
}

void TestTimes::countedRecordingIsCutWhereTheClipIs() {
    const Scan scan(
        {"--quiet", "--container", "mp4", "--export", path("counted"), path("raw.h264")});
    QCOMPARE(scan.status, 0);
    const QString file = scan.lines[0]["file"].toString();
    const ClipProbe probe = probeClip(file);
    QVERIFY(probe.isPlayable);
    QCOMPARE(probe.seconds, double(int(clip[1] - clip[0])));
    // Its first picture is the one that far into the recording, but for the encoder's losses.
    const QString expected = path("expected.mp4");
    QVERIFY(media::encode({"-ss", QString::number(int(clip[0])), "-i", path("good.mp4"),
                           "-frames:v", "1", "-c:v", "libx264", "-qp", "0", expected}));
    const QImage found = firstPicture(file).convertToFormat(QImage::Format_Grayscale8);
    const QImage original = firstPicture(expected).convertToFormat(QImage::Format_Grayscale8);
    QCOMPARE(found.size(), original.size());
    double difference = 0;
    for (int y = 0; y < found.height(); ++y) {
        for (int x = 0; x < found.width(); ++x)
            difference += qAbs(qGray(found.pixel(x, y)) - qGray(original.pixel(x, y)));
    }
    QVERIFY(difference / (found.width() * found.height()) < 8.0);
}

QTEST_GUILESS_MAIN(TestTimes)
#include "test_times.moc"
