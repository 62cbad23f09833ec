// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

// The lists for other programs, as the scanner prints them.

#include "files.h"
#include "media.h"
#include "process.h"

#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <QXmlStreamReader>
#include <QtTest>

#include <csignal>
#include <unistd.h>

namespace {

const QStringList oneClip = {"--quiet", "--minimum", "2", "--postrecord", "2", "--format"};

ProcessResult scan(const QString& format, const QStringList& arguments) {
    return runProgram("kestrova-scan", oneClip + QStringList{format} + arguments);
}

QByteArray inUrl(const QString& path) {
    return "file://" + path.toUtf8().toPercentEncoding("/");
}

QByteArray seconds(double value) {
    return QByteArray::number(value, 'f', 6);
}

/// Entries of a well-formed document; -1 if it is none.
int mltEntries(const QByteArray& document) {
    QXmlStreamReader reader(document);
    int entries = 0;
    while (!reader.atEnd()) {
        if (reader.readNext() == QXmlStreamReader::StartElement && reader.name() == "entry")
            ++entries;
    }
    return reader.hasError() ? -1 : entries;
}

const QStringList formats = {"m3u", "mpv", "cuts", "edl", "mlt"};

} // namespace

class TestScanFormats : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void timesAreThoseOfTheClips();
    void framesAreThoseOfThePictures();
    void laterStreamsCountFromTheFile();
    void laterFilesCountFromTheirBeginning_data();
    void laterFilesCountFromTheirBeginning();
    void numberedPicturesCountAsNumbered();
    void sideBySideEqualsOneAfterAnother();
    void documentsEndAfterFailures();
    void documentsEndAfterInterrupts();
    void documentsWithoutClips();
    void namesThatXmlCannotHold();

private:
    QTemporaryDir folder;
    QString video; ///< 20 s at 25 pictures a second; a box crosses from second 6 to second 12
    double start = 0.0;
    double end = 0.0;
};

void TestScanFormats::initTestCase() {
    video = folder.filePath("gar den.mp4");
    QVERIFY(media::encode(media::crossingBox(20, 6, 12) +
                          QStringList{"-c:v", "libx264", "-preset", "ultrafast", video}));
    const QList<QJsonObject> lines = jsonLines(scan("jsonl", {video}).output);
    QCOMPARE(lines.size(), 2);
    start = lines[0]["start"].toDouble();
    end = lines[0]["end"].toDouble();
    QVERIFY(start > 3.0 && end > start + 5.0);
}

void TestScanFormats::timesAreThoseOfTheClips() {
    const QByteArray path = video.toUtf8();
    QCOMPARE(scan("m3u", {video}).output,
             "#EXTM3U\n#EXTINF:" + QByteArray::number(qCeil(end - start)) + ',' + path +
                 " #0\n#EXTVLCOPT:start-time=" + seconds(start) +
                 "\n#EXTVLCOPT:stop-time=" + seconds(end) + '\n' + inUrl(video) + '\n');
    QCOMPARE(scan("mpv", {video}).output, "# mpv EDL v0\n%" + QByteArray::number(path.size()) +
                                              '%' + path + ',' + seconds(start) + ',' +
                                              seconds(end - start) + '\n');
    QCOMPARE(scan("cuts", {video}).output,
             seconds(start) + '\t' + seconds(end) + '\t' + path + " #0\n");
}

void TestScanFormats::framesAreThoseOfThePictures() {
    const int in = qRound(start * 25.0);
    const int out = qRound(end * 25.0);
    const auto timecode = [](int frame) {
        return QStringLiteral("00:00:%1:%2")
            .arg(frame / 25, 2, 10, QChar('0'))
            .arg(frame % 25, 2, 10, QChar('0'))
            .toLatin1();
    };
    const QByteArray list = scan("edl", {video}).output;
    QVERIFY2(list.contains("001  GARDEN   V     C        " + timecode(in) + ' ' + timecode(out) +
                           " 00:00:00:00 " + timecode(out - in) + '\n'),
             list.constData());
    const QByteArray document = scan("mlt", {video}).output;
    QVERIFY2(document.contains(" in=\"" + QByteArray::number(in) + "\" out=\"" +
                               QByteArray::number(out - 1) + "\"/>"),
             document.constData());
    QVERIFY(document.contains(" width=\"320\" height=\"240\" "));
    QVERIFY(document.contains(" frame_rate_num=\"25\" frame_rate_den=\"1\"/>"));
}

void TestScanFormats::laterStreamsCountFromTheFile() {
    // The sound begins at 0, the pictures two seconds later.
    const QString late = folder.filePath("late.mkv");
    QVERIFY(media::encode({"-f", "lavfi", "-i", "sine=d=22", "-itsoffset", "2", "-i", video, "-map",
                           "0:a", "-map", "1:v", "-c:v", "copy", "-c:a", "flac", late}));
    const QJsonObject clip = jsonLines(scan("jsonl", {late}).output).first();
    const double lateStart = clip["start"].toDouble();
    QVERIFY(qAbs(lateStart - start) < 0.041);
    QVERIFY(scan("cuts", {late}).output.startsWith(seconds(lateStart + 2.0) + '\t'));
    QVERIFY(scan("mlt", {late})
                .output.contains(" in=\"" + QByteArray::number(qRound(lateStart * 25.0)) + '"'));
}

void TestScanFormats::laterFilesCountFromTheirBeginning_data() {
    QTest::addColumn<QString>("file");
    QTest::addColumn<QStringList>("muxing");
    QTest::addColumn<double>("mpvClock"); // at the first picture
    QTest::addColumn<double>("vlcClock");
    const QStringList none;
    const QStringList ten = {"-output_ts_offset", "10"};
    QTest::newRow("MP4 at 0") << "zero.mp4" << none << 0.0 << 0.0;
    // The muxer puts 1.4 s in front, as recorders do.
    QTest::newRow("transport stream") << "recorder.ts" << none << 1.4 << 0.0;
    QTest::newRow("transport stream at 10 s")
        << "ten.ts" << ten + QStringList{"-muxdelay", "0", "-muxpreload", "0"} << 10.0 << 0.0;
    QTest::newRow("Matroska at 10 s") << "ten.mkv" << ten << 10.0 << 10.0;
    QTest::newRow("edit list that waits") << "waits.mp4" << ten << 10.0 << 10.0;
}

void TestScanFormats::laterFilesCountFromTheirBeginning() {
    QFETCH(QString, file);
    QFETCH(QStringList, muxing);
    QFETCH(double, mpvClock);
    QFETCH(double, vlcClock);
    const QString late = folder.filePath(file);
    // Without B pictures times of decoding and showing are the same.
    QVERIFY(media::encode(
        QStringList{"-i", video, "-an", "-c:v", "libx264", "-preset", "ultrafast", "-bf", "0"} +
        muxing + QStringList{late}));
    const double lateStart = jsonLines(scan("jsonl", {late}).output).first()["start"].toDouble();
    const auto shown = [&](const QString& format, const QByteArray& before) {
        const QByteArray list = scan(format, {late}).output;
        return list.mid(list.indexOf(before) + before.size()).split('\n')[0].split(',')[0];
    };
    QCOMPARE(shown("mpv", late.toUtf8() + ','), seconds(mpvClock + lateStart));
    QCOMPARE(shown("m3u", "start-time="), seconds(vlcClock + lateStart));
    QVERIFY(scan("cuts", {late}).output.startsWith(seconds(lateStart) + '\t'));
    // What was kept knows it, too.
    const QStringList keeping = {"--values", folder.filePath("kept"), late};
    const ProcessResult fresh = scan("mpv", keeping);
    QCOMPARE(scan("mpv", keeping).output, fresh.output);
}

void TestScanFormats::numberedPicturesCountAsNumbered() {
    const QStringList slow = {"--fps", "12.5", video};
    const QJsonObject clip = jsonLines(scan("jsonl", slow).output).first();
    const QByteArray document = scan("mlt", slow).output;
    QVERIFY2(document.contains(" frame_rate_num=\"12500\" frame_rate_den=\"1000\"/>"),
             document.constData());
    QVERIFY(document.contains(" in=\"" +
                              QByteArray::number(qRound(clip["start"].toDouble() * 12.5)) + '"'));
    QVERIFY(scan("cuts", slow).output.startsWith(seconds(clip["start"].toDouble()) + '\t'));
}

void TestScanFormats::sideBySideEqualsOneAfterAnother() {
    QStringList videos = {video};
    for (int i = 1; i < 5; ++i) {
        const QString name = folder.filePath(QStringLiteral("side%1.mp4").arg(i));
        QVERIFY(media::encode(media::crossingBox(18 - 3 * i, 1, 4) +
                              QStringList{"-c:v", "libx264", "-preset", "ultrafast", name}));
        videos.append(name);
    }
    for (const QString& format : formats) {
        const QByteArray one = scan(format, videos).output;
        QVERIFY2(one.count("side") >= 4, one.constData());
        QCOMPARE(scan(format, QStringList{"--jobs", "5"} + videos).output, one);
    }
}

void TestScanFormats::documentsEndAfterFailures() {
    const QStringList videos = {folder.filePath("missing.mp4"), video};
    for (const QString& format : formats) {
        const ProcessResult result = scan(format, videos);
        QCOMPARE(result.status, 1);
        QCOMPARE(result.output, scan(format, {video}).output);
    }
    QCOMPARE(mltEntries(scan("mlt", videos).output), 1);
}

void TestScanFormats::documentsEndAfterInterrupts() {
    const QString busy = folder.filePath("busy.mp4");
    QVERIFY(media::encode({"-f", "lavfi", "-i", "testsrc2=s=1280x720:r=25:d=60", "-c:v", "libx264",
                           "-preset", "ultrafast", busy}));
    for (const char* jobs : {"1", "2"}) {
        const QString trace = folder.filePath(QStringLiteral("trace") + jobs);
        QProcess process;
        process.start(
            media::programDirectory() + "/kestrova-scan",
            oneClip + QStringList{"mlt", "--jobs", jobs, "--trace", trace, busy, busy, busy, busy});
        QTRY_VERIFY(QFileInfo(trace).size() > 4096); // the clip is open
        ::kill(pid_t(process.processId()), SIGINT);
        QVERIFY(process.waitForFinished());
        QCOMPARE(process.exitCode(), 130);
        const int entries = mltEntries(process.readAllStandardOutput());
        QVERIFY2(entries >= 1 && entries <= 2, qPrintable(QString::number(entries)));
    }
}

void TestScanFormats::documentsWithoutClips() {
    const QStringList quiet = {"--threshold-motion", "10", "--threshold-value", "255", video};
    QCOMPARE(mltEntries(scan("mlt", quiet).output), 0);
    QCOMPARE(scan("edl", quiet).output, QByteArray("TITLE: KESTROVA CLIPS\nFCM: NON-DROP FRAME\n"));
    QCOMPARE(scan("m3u", quiet).output, QByteArray("#EXTM3U\n"));
    QCOMPARE(scan("cuts", quiet).output, QByteArray());
}

void TestScanFormats::namesThatXmlCannotHold() {
    const QByteArray path = folder.path().toUtf8() + "/caf\xe9.mp4";
    QCOMPARE(link(video.toUtf8().constData(), path.constData()), 0);
    // Through the shell, since this program itself does not know such names.
    QVERIFY(qputenv("NAME", path));
    const auto run = [&](const QString& format) {
        return runProgram("/bin/sh", QStringList{"-c", "exec \"$0\" \"$@\" \"$NAME\"",
                                                 media::programDirectory() + "/kestrova-scan"} +
                                         oneClip + QStringList{format, video});
    };
    const ProcessResult mlt = run("mlt");
    QCOMPARE(mlt.status, 1);
    QCOMPARE(mlt.errors, "kestrova-scan: " + path +
                             ": its clips cannot be listed, since XML cannot hold its name\n");
    QCOMPARE(mlt.output, scan("mlt", {video}).output);
    for (const char* format : {"m3u", "mpv", "cuts", "edl"}) {
        const ProcessResult other = run(format);
        QCOMPARE(other.status, 0);
        QVERIFY(other.output.contains("caf"));
    }
}

QTEST_GUILESS_MAIN(TestScanFormats)
#include "test_scanformats.moc"
