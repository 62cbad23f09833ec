// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

// Recordings that are not, or no longer, what was measured: nothing is taken from them.

#include "encoderstand.h"
#include "files.h"
#include "heldtrace.h"
#include "media.h"
#include "process.h"
#include "recordingstamp.h"
#include "scannerstand.h"
#include "valuesreader.h"
#include "valueswriter.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include <cstdio>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>

namespace {

struct Scan : ProcessResult {
    QJsonObject clip() const { return jsonLines(output).value(0); }
    QString state() const { return jsonLines(output).last()["state"].toString(); }
};

const QStringList jsonLine = QStringList{"--format", "jsonl"} + oneClip;
const QStringList quietly = QStringList{"--quiet"} + jsonLine;

/// As cp -p, and cameras without a clock.
bool setTime(const QString& file, const struct stat& like) {
    const timespec times[2] = {like.st_atim, like.st_mtim};
    return utimensat(AT_FDCWD, qPrintable(file), times, 0) == 0;
}

struct stat statusOf(const QString& file) {
    struct stat found {};
    stat(qPrintable(file), &found);
    return found;
}

/// In place: whoever has the file open reads what is new.
bool overwrite(const QString& file, const QByteArray& content) {
    QFile opened(file);
    return opened.open(QIODevice::ReadWrite) && opened.write(content) == content.size() &&
           opened.resize(content.size());
}

bool append(const QString& file, const QByteArray& content) {
    QFile opened(file);
    return opened.open(QIODevice::Append) && opened.write(content) == content.size();
}

bool replace(const QString& file, const QByteArray& content) {
    return writeFile(file + ".new", content) &&
           std::rename(qPrintable(file + ".new"), qPrintable(file)) == 0;
}

/// The values as the first version wrote them.
QByteArray olderFormat(const QByteArray& text) {
    QByteArray older;
    for (const QByteArray& line : text.split('\n')) {
        if (line.startsWith("# rate: "))
            older += "# length: 20\n";
        if (!line.startsWith("# content: ") && !line.startsWith("# end: "))
            older += line + '\n';
    }
    older.replace("values 2\n", "values 1\n");
    older.chop(1);
    older += text.mid(text.indexOf("# end: "));
    older.truncate(older.lastIndexOf(' ') + 1);
    return older + QCryptographicHash::hash(older, QCryptographicHash::Sha256).toHex() + '\n';
}

} // namespace

class TestChangedRecording : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void valuesNamedLikeAVideoAreNone_data();
    void valuesNamedLikeAVideoAreNone();
    void valuesOfAnother_data();
    void valuesOfAnother();
    void valuesOfTheRecording();
    void pipesAreNotExported();
    void quickValuesAreNotRefinedInAnother_data();
    void quickValuesAreNotRefinedInAnother();
    void encoderIsToldTheFormat_data();
    void encoderIsToldTheFormat();
    void oddNamesAreExported_data();
    void oddNamesAreExported();
    void changedWhileScanned_data();
    void changedWhileScanned();
    void changedBetweenPicturesOfKeptValues();
    void changedWhileExported();
    void growingRecording();
    void sameSizeAndTimeIsMeasuredAnew();
    void touchedWithoutAChange();
    void olderValuesAreMeasuredAnew();
    void olderValuesInPlaceOfTheRecording();

private:
    Scan scan(const QStringList& arguments) const;
    bool forge(const QString& file, const RecordingStamp& recording) const;
    QString path(const QString& name) const { return folder->filePath(name); }
    QString clipsFolder() const { return path("clips"); }

    ScannerStand scanner;
    QTemporaryDir recordings;
    QString video;       ///< 20 s; a box crosses from second 7 to second 13
    QByteArray content;  ///< of the video
    QByteArray other;    ///< of another one, as many bytes; its box crosses from second 2 to 8
    QByteArray streamed; ///< the same as a stream that others may be appended to
    QString own;         ///< where each test has the video
    std::unique_ptr<QTemporaryDir> folder;
    std::unique_ptr<EncoderStand> encoder;
};

void TestChangedRecording::initTestCase() {
    const auto made = [this](const QString& name, int from, int to) {
        const QString file = recordings.filePath(name);
        return encodeVisit(file, from, to) ? readFile(file) : QByteArray();
    };
    content = made("garden.mp4", 7, 13);
    other = made("other.mp4", 2, 8);
    streamed = made("garden.ts", 7, 13);
    QVERIFY(!content.isEmpty() && !other.isEmpty() && !streamed.isEmpty());
    // What lies behind the last box is nothing to a demuxer.
    const int size = qMax(content.size(), other.size()) + 8;
    content += QByteArray(size - content.size(), '\0');
    other += QByteArray(size - other.size(), '\0');
    video = recordings.filePath("garden.mp4");
    QVERIFY(writeFile(video, content));
}

void TestChangedRecording::init() {
    folder = std::make_unique<QTemporaryDir>();
    encoder = std::make_unique<EncoderStand>();
    own = path("own.mp4");
    QVERIFY(QFile::copy(video, own));
}

void TestChangedRecording::cleanup() {
    encoder.reset();
    folder.reset();
}

Scan TestChangedRecording::scan(const QStringList& arguments) const {
    return {runProgram(ScannerStand::path(), quietly + arguments)};
}

/// A values file in which everything is right but, perhaps, whose values they are.
bool TestChangedRecording::forge(const QString& file, const RecordingStamp& recording) const {
    if (scan({"--values", path("forging"), video}).status != 0)
        return false;
    const QString kept =
        QDir(path("forging")).entryInfoList({"*.values"}, QDir::Files).value(0).filePath();
    KeptValues values = readValues(kept).values;
    QDir(path("forging")).removeRecursively();
    values.recording = recording;
    return writeValues(valuesText(values), file).isEmpty();
}

void TestChangedRecording::valuesNamedLikeAVideoAreNone_data() {
    QTest::addColumn<QStringList>("named");
    QTest::newRow("in a folder") << QStringList{"card"};
    QTest::newRow("by a person") << QStringList{"card/cam7.mp4"};
    QTest::newRow("in a list") << QStringList{"--list", "list"};
}

void TestChangedRecording::valuesNamedLikeAVideoAreNone() {
    QFETCH(QStringList, named);
    QVERIFY(QDir().mkdir(path("card")));
    QVERIFY(forge(path("card/cam7.mp4"), *stampOf(own)));
    QVERIFY(writeFile(path("list"), path("card/cam7.mp4").toUtf8() + '\n'));
    QStringList arguments = {"--export", clipsFolder(), "--snapshots", path("pictures")};
    for (const QString& name : named)
        arguments += name.startsWith("--") ? name : path(name);
    const Scan found = scan(arguments);
    QCOMPARE(found.status, 3);
    QCOMPARE(jsonLines(found.output).size(), 1);
    QCOMPARE(found.state(), QString("failed"));
    QVERIFY2(!found.output.contains("own.mp4") && !found.errors.contains("own.mp4"),
             found.errors.constData());
    QVERIFY(encoder->calls().isEmpty());
    QVERIFY(QDir(path("pictures")).isEmpty());
}

void TestChangedRecording::valuesOfAnother_data() {
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QByteArray>("reason");
    const QByteArray changed = "it has changed since it was measured";
    QTest::newRow("missing") << "missing" << QByteArray("it is no longer there");
    QTest::newRow("pipe") << "pipe" << QByteArray("it is no longer there");
    QTest::newRow("folder") << "folder" << QByteArray("it is no longer there");
    QTest::newRow("another size") << "size" << changed;
    QTest::newRow("another time") << "time" << changed;
    QTest::newRow("other content") << "content" << changed;
    QTest::newRow("longer") << "longer" << changed;
    QTest::newRow("playlist") << "playlist" << QByteArray("a playlist, not a recording");
}

/// Named in place of their recording: clips are found, and nothing is taken from what is there.
void TestChangedRecording::valuesOfAnother() {
    QFETCH(QString, kind);
    QFETCH(QByteArray, reason);
    const struct stat before = statusOf(own);
    if (kind == "playlist") {
        own = path("own.m3u8"); // newer libraries go by the extension, too
        QVERIFY(writeFile(own, "#EXTM3U\n#EXT-X-TARGETDURATION:9\n#EXTINF:9,\n" + video.toUtf8() +
                                   "\n#EXT-X-ENDLIST\n"));
    }
    QVERIFY(forge(path("a.values"), *stampOf(own)));
    if (kind == "missing" || kind == "pipe" || kind == "folder")
        QVERIFY(QFile::remove(own));
    if (kind == "pipe")
        QCOMPARE(mkfifo(qPrintable(own), 0600), 0);
    if (kind == "folder")
        QVERIFY(QDir().mkdir(own));
    if (kind == "size" || kind == "longer")
        QVERIFY(QFile::resize(own, kind == "size" ? content.size() - 1 : content.size() + 1));
    if (kind == "content")
        QVERIFY(overwrite(own, other));
    if (kind == "size" || kind == "content")
        QVERIFY(setTime(own, before));
    if (kind == "time")
        QVERIFY(setTime(own, statusOf("/")));
    const Scan found = scan({"--export", clipsFolder(), "--snapshots", path("pictures"), "--report",
                             path("report"), path("a.values")});
    QCOMPARE(found.status, 1);
    QCOMPARE(found.clip()["start"].toDouble(-1), scan({video}).clip()["start"].toDouble(-2));
    QCOMPARE(found.clip()["exported"].toBool(true), false);
    QVERIFY(found.clip()["snapshot"].isNull());
    QVERIFY2(found.errors.contains(": clip #0 is not exported: " + reason + '\n'),
             found.errors.constData());
    QVERIFY(encoder->calls().isEmpty());
    QVERIFY(QDir(path("pictures")).isEmpty() && QDir(path("report/pictures")).isEmpty());
}

/// Named on the command line or in a list; a folder is one of recordings.
void TestChangedRecording::valuesOfTheRecording() {
    QVERIFY(forge(path("a.values"), *stampOf(own)));
    const Scan found =
        scan({"--export", clipsFolder(), "--snapshots", path("pictures"), path("a.values")});
    QVERIFY2(found.status == 0, found.errors.constData());
    QCOMPARE(found.clip()["exported"].toBool(false), true);
    QVERIFY(!found.clip()["snapshot"].isNull());

    QVERIFY(writeFile(path("list"), path("a.values").toUtf8() + '\n'));
    QCOMPARE(scan({"--list", path("list")}).output, scan({own}).output);
    QVERIFY(QDir().mkdir(path("card")));
    QVERIFY(QFile::rename(path("a.values"), path("card/a.values")));
    const Scan folder = scan({path("card")});
    QCOMPARE(folder.output, QByteArray());
    QVERIFY(folder.errors.contains("no file below this folder is named like a video"));
}

/// What has been read from a pipe is gone; waiting for more would never end.
void TestChangedRecording::pipesAreNotExported() {
    const QString pipe = path("pipe.ts");
    QCOMPARE(mkfifo(qPrintable(pipe), 0600), 0);
    encoder->useRealEncoder();
    QProcess writer;
    writer.setStandardInputFile(recordings.filePath("garden.ts"));
    writer.setStandardOutputFile(QProcess::nullDevice());
    writer.start("/bin/sh", {"-c", "cat > \"$0\"", pipe});
    QProcess scanner;
    scanner.start(ScannerStand::path(), quietly + QStringList{"--export", clipsFolder(), pipe});
    const Scan found{endOf(scanner)};
    writer.kill();
    writer.waitForFinished();
    QCOMPARE(found.status, 1);
    QCOMPARE(found.clip()["exported"].toBool(true), false);
    QVERIFY2(found.errors.contains("clip #0 is not exported: a pipe cannot be read again"),
             found.errors.constData());
}

void TestChangedRecording::quickValuesAreNotRefinedInAnother_data() {
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QByteArray>("reason");
    QTest::newRow("another") << "another" << QByteArray("it has changed since it was measured");
    QTest::newRow("missing") << "missing" << QByteArray("it is no longer there");
    QTest::newRow("pipe") << "pipe" << QByteArray("it is no longer there");
}

void TestChangedRecording::quickValuesAreNotRefinedInAnother() {
    QFETCH(QString, kind);
    QFETCH(QByteArray, reason);
    QCOMPARE(scan({"--quick", "--values", path("kept"), own}).status, 0);
    const QString values =
        QDir(path("kept")).entryInfoList({"*.values"}, QDir::Files).value(0).filePath();
    QCOMPARE(scan({"--quick", "--refine", values}).state(), QString("finished"));
    QVERIFY(kind == "another" ? replace(own, other) : QFile::remove(own));
    if (kind == "pipe")
        QCOMPARE(mkfifo(qPrintable(own), 0600), 0);
    const Scan found = scan({"--quick", "--refine", values});
    QCOMPARE(found.status, 1);
    QCOMPARE(jsonLines(found.output).size(), 1);
    QCOMPARE(found.state(), QString("failed"));
    QVERIFY2(found.errors.contains("own.mp4: " + reason + '\n'), found.errors.constData());
}

void TestChangedRecording::encoderIsToldTheFormat_data() {
    QTest::addColumn<QString>("ending");
    QTest::addColumn<QString>("format");
    QTest::newRow("mp4") << "mp4"
                         << "mov";
    QTest::newRow("mov") << "mov"
                         << "mov";
    QTest::newRow("mkv") << "mkv"
                         << "matroska";
    QTest::newRow("webm") << "webm"
                          << "matroska";
    QTest::newRow("ts") << "ts"
                        << "mpegts";
    QTest::newRow("avi") << "avi"
                         << "avi";
    QTest::newRow("flv") << "flv"
                         << "flv";
    QTest::newRow("mpg") << "mpg"
                         << "mpeg";
    QTest::newRow("264") << "264"
                         << "h264";
    QTest::newRow("misnamed") << "mpg.avi.mp4"
                              << "mpegts";
}

/// From the content, so that it cannot take it for something else; and the encoder knows the name.
void TestChangedRecording::encoderIsToldTheFormat() {
    QFETCH(QString, ending);
    QFETCH(QString, format);
    const QString name = path("copy." + ending);
    QStringList codec = {"-c:v", "copy"};
    if (ending == "webm")
        codec = QStringList{"-c:v", "libvpx", "-deadline", "realtime", "-cpu-used", "8"};
    if (ending == "mpg")
        codec = QStringList{"-c:v", "mpeg2video"};
    if (ending == "mpg.avi.mp4")
        codec += {"-f", "mpegts"};
    QVERIFY(media::encode(QStringList{"-i", video} + codec + QStringList{name}));
    const QStringList fps = ending == "264" ? QStringList{"--fps", "25"} : QStringList();
    QCOMPARE(scan(fps + QStringList{"--export", clipsFolder(), name}).status, 0);
    const QStringList call = encoder->calls().value(0);
    const int input = call.indexOf("-i");
    QCOMPARE(call.value(input + 1), name);
    const QStringList told = {"-protocol_whitelist", "file", "-f", format};
    QCOMPARE(call.mid(call.indexOf("-protocol_whitelist"), 4), told);
    QVERIFY(call.indexOf("-f") < input);
    encoder->useRealEncoder();
    // AVI does not take a copy from those.
    const bool isMatroska = QStringList{"mkv", "webm", "flv"}.contains(ending);
    const Scan real = scan(fps + QStringList{"--container", isMatroska ? "mkv" : "avi", "--export",
                                             clipsFolder(), name});
    QVERIFY2(real.status == 0, real.errors.constData());
    QCOMPARE(real.clip()["exported"].toBool(false), true);
}

void TestChangedRecording::oddNamesAreExported_data() {
    QTest::addColumn<QString>("name");
    for (const char* name : {"http:a.mp4", "-f.mp4", "file:b.mp4", "concat:c|d.mp4", "pipe:0.mp4",
                             "-i %03d ?[x]*.mp4", "data:,x.mp4"})
        QTest::newRow(name) << name;
}

void TestChangedRecording::oddNamesAreExported() {
    QFETCH(QString, name);
    QVERIFY(QFile::rename(own, path(name)));
    encoder->useRealEncoder();
    QProcess process;
    process.setWorkingDirectory(folder->path());
    process.start(ScannerStand::path(),
                  quietly + QStringList{"--export", clipsFolder(), "--", name});
    const Scan found{endOf(process)};
    QVERIFY2(found.status == 0, found.errors.constData());
    QCOMPARE(found.clip()["exported"].toBool(false), true);
}

void TestChangedRecording::changedWhileScanned_data() {
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QByteArray>("reason");
    const QByteArray changed = "it has changed since it was measured";
    QTest::newRow("replaced") << "replaced" << changed;
    QTest::newRow("replaced by one as large and old") << "alike" << changed;
    QTest::newRow("overwritten") << "overwritten" << changed;
    QTest::newRow("overwritten, time kept") << "kept time" << changed;
    QTest::newRow("cut short") << "cut" << changed;
    QTest::newRow("removed") << "removed" << QByteArray("it is no longer there");
}

void TestChangedRecording::changedWhileScanned() {
    QFETCH(QString, kind);
    QFETCH(QByteArray, reason);
    const struct stat before = statusOf(own);
    HeldTrace trace(path("trace"));
    QProcess process;
    process.start(ScannerStand::path(),
                  quietly + QStringList{"--threads", "1", "--export", clipsFolder(), "--values",
                                        path("kept"), "--trace", trace.path(), own});
    QTRY_VERIFY_WITH_TIMEOUT(trace.isHolding(), 30000);
    if (kind == "replaced")
        QVERIFY(replace(own, other.left(other.size() / 2)));
    if (kind == "alike")
        QVERIFY(replace(own, other) && setTime(own, before));
    if (kind == "overwritten" || kind == "kept time")
        QVERIFY(overwrite(own, other));
    if (kind == "kept time")
        QVERIFY(setTime(own, before));
    if (kind == "cut")
        QVERIFY(QFile::resize(own, content.size() / 2));
    if (kind == "removed")
        QVERIFY(QFile::remove(own));
    trace.letGo();
    const Scan found{endOf(process)};
    QCOMPARE(found.status, 1);
    QCOMPARE(found.state(), QString("failed"));
    QVERIFY(encoder->calls().isEmpty());
    for (const QJsonObject& line : jsonLines(found.output))
        QCOMPARE(line["exported"].toBool(false), false);
    const QByteArray told = kind == "removed" ? "it was removed while it was searched"
                                              : "it was changed while it was searched";
    QVERIFY2(found.errors.contains("own.mp4: " + told), found.errors.constData());
    if (found.clip().contains("exported"))
        QVERIFY2(found.errors.contains("clip #0 is not exported: " + reason),
                 found.errors.constData());
    QVERIFY(QDir(path("kept")).isEmpty());
}

/// Two clips with pictures are decided on values; behind the first one the recording is another.
void TestChangedRecording::changedBetweenPicturesOfKeptValues() {
    const QStringList keeping = {
        "--values", path("kept"), "--snapshots", path("pictures"), "--export", clipsFolder(), own};
    QCOMPARE(scan(keeping).status, 0);
    QDir(path("pictures")).removeRecursively();
    encoder->hold();
    QProcess process;
    // With the defaults one visit gives several clips.
    process.start(ScannerStand::path(), QStringList{"--quiet", "--format", "jsonl"} + keeping);
    QTRY_COMPARE_WITH_TIMEOUT(encoder->calls().size(), 2, 30000);
    QVERIFY(replace(own, other));
    encoder->release();
    const Scan found{endOf(process)};
    QCOMPARE(found.status, 1);
    const QList<QJsonObject> lines = jsonLines(found.output);
    QVERIFY(lines.size() > 2);
    QCOMPARE(encoder->calls().size(), 2);
    QVERIFY(!lines[0]["snapshot"].isNull());
    QVERIFY(lines[1]["snapshot"].isNull());
    QVERIFY2(found.errors.contains("own.mp4: clip #1 has no picture: it has changed since it was "
                                   "measured\n"),
             found.errors.constData());
    QVERIFY2(found.errors.contains("own.mp4: clip #1 is not exported: it has changed since it was "
                                   "measured\n"),
             found.errors.constData());
}

/// What the encoder has read is not known; the file stays, but does not count.
void TestChangedRecording::changedWhileExported() {
    encoder->hold();
    QProcess process;
    process.start(ScannerStand::path(), quietly + QStringList{"--export", clipsFolder(), own});
    QTRY_COMPARE_WITH_TIMEOUT(encoder->calls().size(), 1, 30000);
    QVERIFY(overwrite(own, other));
    encoder->release();
    const Scan found{endOf(process)};
    QCOMPARE(found.status, 1);
    QCOMPARE(found.clip()["exported"].toBool(true), false);
    const QString file = clipsFolder() + "/own_mp4_0/0000.avi";
    QCOMPARE(found.clip()["file"].toString(), file);
    QVERIFY2(found.errors.contains("0000.avi: this may show something else: the recording was "
                                   "changed while it was cut out\n"),
             found.errors.constData());
    QVERIFY(QFileInfo::exists(file));
}

/// A camera still writes: what was found is right, and there is more.
void TestChangedRecording::growingRecording() {
    const QString growing = path("growing.ts");
    QVERIFY(writeFile(growing, streamed));
    HeldTrace trace(path("trace"));
    QProcess process;
    process.start(ScannerStand::path(),
                  quietly + QStringList{"--threads", "1", "--export", clipsFolder(), "--values",
                                        path("kept"), "--trace", trace.path(), growing});
    QTRY_VERIFY_WITH_TIMEOUT(trace.isHolding(), 30000);
    QVERIFY(append(growing, streamed.left(188 * 20)));
    trace.letGo();
    const Scan found{endOf(process)};
    QCOMPARE(found.status, 1);
    QCOMPARE(found.clip()["exported"].toBool(false), true);
    QCOMPARE(found.state(), QString("finished"));
    QVERIFY2(found.errors.contains("growing.ts: it grew while it was searched; what came behind "),
             found.errors.constData());
    QVERIFY(QDir(path("kept")).isEmpty());
}

void TestChangedRecording::sameSizeAndTimeIsMeasuredAnew() {
    const struct stat before = statusOf(own);
    const QStringList keeping = {"--values", path("kept"), own};
    const Scan old = scan(keeping);
    QVERIFY(overwrite(own, other) && setTime(own, before));
    const Scan anew = scan(keeping);
    QCOMPARE(anew.status, 0);
    QCOMPARE(anew.output, scan({own}).output);
    QVERIFY(anew.output != old.output);
}

/// Links, owners and permissions are not the recording.
void TestChangedRecording::touchedWithoutAChange() {
    HeldTrace trace(path("trace"));
    QProcess process;
    process.start(ScannerStand::path(),
                  quietly + QStringList{"--threads", "1", "--export", clipsFolder(), "--trace",
                                        trace.path(), own});
    QTRY_VERIFY_WITH_TIMEOUT(trace.isHolding(), 30000);
    QVERIFY(QFile::setPermissions(own, QFile::ReadOwner));
    trace.letGo();
    const Scan found{endOf(process)};
    QVERIFY2(found.status == 0, found.errors.constData());
    QCOMPARE(encoder->calls().size(), 1);
}

/// They cannot prove what they are of.
void TestChangedRecording::olderValuesAreMeasuredAnew() {
    const QStringList keeping = {"--values", path("kept"), own};
    const Scan fresh = scan(keeping);
    const QString file =
        QDir(path("kept")).entryInfoList({"*.values"}, QDir::Files).value(0).filePath();
    const QByteArray values = readFile(file);
    QVERIFY(writeFile(file, olderFormat(values)));
    QCOMPARE(readValues(file).flaw, QString());
    QProcess process;
    process.start(ScannerStand::path(), jsonLine + keeping); // not quiet
    const Scan anew{endOf(process)};
    QCOMPARE(anew.status, 0);
    QCOMPARE(anew.output, fresh.output);
    QVERIFY2(anew.errors.startsWith(file.toUtf8() +
                                    ": of an older version, which kept no digest of "
                                    "the recording; measured anew\n"),
             anew.errors.constData());
    QCOMPARE(readFile(file), values);
}

void TestChangedRecording::olderValuesInPlaceOfTheRecording() {
    QVERIFY(forge(path("a.values"), *stampOf(own)));
    QVERIFY(writeFile(path("a.values"), olderFormat(readFile(path("a.values")))));
    QCOMPARE(scan({path("a.values")}).output, scan({own}).output);
    const Scan found =
        scan({"--snapshots", path("pictures"), "--export", clipsFolder(), path("a.values")});
    QCOMPARE(found.status, 1);
    QVERIFY2(found.errors.contains("clip #0 has no picture: its values have no digest") &&
                 found.errors.contains("clip #0 is not exported: its values have no digest"),
             found.errors.constData());
    QVERIFY(encoder->calls().isEmpty());
}

QTEST_GUILESS_MAIN(TestChangedRecording)
#include "test_changedrecording.moc"
