// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

// What is refused, and that of what is read no other file is opened than the one that was named.

#include "refuseddemuxers.h"

#include "files.h"
#include "firstframe.h"
#include "media.h"
#include "mediafile.h"
#include "openwatch.h"
#include "videodecoder.h"

extern "C" {
#include <libavformat/avformat.h>
}

#include <QDir>
#include <QSet>
#include <QTemporaryDir>
#include <QtTest>

#include <vector>

namespace {

/// Each with why it is refused. What the installed libraries lack, others have.
const QMap<QString, QString> refused = {
    {"hls", "a playlist, not a recording"},
    {"dash", "a playlist, not a recording"},
    {"webm_dash_manifest", "a playlist, not a recording"},
    {"imf", "a playlist, not a recording"},
    {"concat", "a playlist, not a recording"},
    {"vobsub", "the index of another file, not a recording"},
    {"sdp", "the address of a stream, not a recording"},
    {"rtsp", "the address of a stream, not a recording"},
    {"rtp", "the address of a stream, not a recording"},
    {"sap", "the address of a stream, not a recording"},
    {"avisynth", "a script, not a recording"},
    {"vapoursynth", "a script, not a recording"},
    {"tty", "text, not a recording"},
    {"bin", "text, not a recording"},
    {"xbin", "text, not a recording"},
    {"adf", "text, not a recording"},
    {"idf", "text, not a recording"},
};

QByteArray littleEndian(quint64 value, int bytes) {
    QByteArray text;
    for (int i = 0; i < bytes; ++i)
        text += char(value >> 8 * i);
    return text;
}

constexpr int mlvWidth = 64;
constexpr int mlvHeight = 48;

/// A camera's raw recording with one picture, numbered `number`, of one grey. Of a long recording
/// the parts lie in files whose names end in "00", "01" and so on.
QByteArray mlvPart(int number, char grey) {
    constexpr int bitsPerPixel = 16;
    const QByteArray picture(mlvWidth * mlvHeight * bitsPerPixel / 8, grey);
    const QByteArray header = "MLVI" + littleEndian(52, 4) + QByteArray("v2.0\0\0\0\0", 8) +
                              littleEndian(77, 8) + // what all parts have in common
                              littleEndian(0, 8) +  // part, parts, flags
                              littleEndian(1, 2) +  // raw pictures
                              littleEndian(0, 2) +  // no sound
                              littleEndian(2, 4) +  // pictures
                              littleEndian(0, 4) +  // pieces of sound
                              littleEndian(25, 4) + littleEndian(1, 4); // pictures per second
    const QByteArray raw = "RAWI" + littleEndian(180, 4) + littleEndian(0, 8) +
                           littleEndian(mlvWidth, 2) + littleEndian(mlvHeight, 2) +
                           littleEndian(1, 4) + QByteArray(20, '\0') +
                           littleEndian(bitsPerPixel, 4) + QByteArray(48, '\0') +
                           littleEndian(0x2010100, 4) + QByteArray(80, '\0');
    const QByteArray frame = "VIDF" + littleEndian(32U + quint64(picture.size()), 4) +
                             littleEndian(0, 8) + littleEndian(quint64(number), 4) +
                             QByteArray(8, '\0') + littleEndian(0, 4) + picture;
    return header + raw + frame;
}

/// How many pictures a file gives; -1 if it cannot be opened.
int pictureCount(const QString& path) {
    VideoDecoder decoder;
    if (!decoder.open(path.toUtf8().constData()))
        return -1;
    int count = 0;
    while (const FramePointer frame{decoder.readFrame(true)})
        ++count;
    return count;
}

} // namespace

class TestRefusedDemuxers : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void everyDemuxerHasItsVerdict();
    void everyDemuxerReadsBytes();
    void namesOtherFiles_data();
    void namesOtherFiles();
    void drawsText_data();
    void drawsText();
    void partsBesideAreNotRead();
    void planesBesideAreNotRead();
    void patternsAreNames_data();
    void patternsAreNames();

private:
    QString path(const QString& name) const { return folder.filePath(name); }

    QTemporaryDir folder;
};

void TestRefusedDemuxers::initTestCase() {
    QVERIFY(folder.isValid());
    const QStringList scene = {"-f",       "lavfi",  "-i", "testsrc2=s=64x48:r=25:d=0.4",
                               "-pix_fmt", "yuv420p"};
    QVERIFY(media::encode(scene + QStringList{"-c:v", "mpeg2video", path("other.ts")}));
    QVERIFY(media::encode(scene + QStringList{"-c:v", "mpeg4", path("other.mp4")}));
    QVERIFY(media::encode(scene + QStringList{path("other.gif")}));
    QVERIFY(media::encode(scene + QStringList{"-frames:v", "3", path("other%03d.png")}));
}

void TestRefusedDemuxers::everyDemuxerHasItsVerdict() {
    void* place = nullptr;
    int count = 0;
    while (const AVInputFormat* demuxer = av_demuxer_iterate(&place)) {
        ++count;
        QVERIFY2(refusalOf(*demuxer) == refused.value(demuxer->name), demuxer->name);
    }
    QVERIFY2(count > 200, qPrintable(QString::number(count)));
    for (auto verdict = refused.begin(); verdict != refused.end(); ++verdict) {
        AVInputFormat made{};
        const QByteArray name = verdict.key().toLatin1();
        made.name = name.constData();
        QCOMPARE(refusalOf(made), verdict.value());
    }
}

void TestRefusedDemuxers::everyDemuxerReadsBytes() {
    // Those that open what they read by themselves, as addresses and devices do, never get to see a
    // file. One reads either way: the one for pictures in files of their own.
    QStringList others;
    void* place = nullptr;
    while (const AVInputFormat* demuxer = av_demuxer_iterate(&place)) {
        if ((demuxer->flags & AVFMT_NOFILE) != 0 && refusalOf(*demuxer).isEmpty())
            others.append(demuxer->name);
    }
    others.removeAll("dvdvideo"); // of newer libraries, for devices and folders
    QCOMPARE(others, QStringList{"image2"});
}

void TestRefusedDemuxers::namesOtherFiles_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("demuxer");

    const QByteArray hls = "#EXTM3U\n#EXT-X-VERSION:3\n#EXT-X-TARGETDURATION:1\n"
                           "#EXT-X-MEDIA-SEQUENCE:0\n#EXTINF:0.4,\nother.ts\n";
    QTest::newRow("HLS without an end") << "list.m3u8" << hls << "hls";
    QTest::newRow("HLS with an end") << "ended.m3u8" << hls + "#EXT-X-ENDLIST\n"
                                     << "hls";
    QTest::newRow("HLS named .mp4") << "list.mp4" << hls << "hls";
    QTest::newRow("HLS without an extension") << "list" << hls << "hls";
    const QByteArray master = "#EXTM3U\n#EXT-X-STREAM-INF:BANDWIDTH=100000\nended.m3u8\n";
    QTest::newRow("HLS that names a playlist") << "master.m3u8" << master << "hls";
    const QByteArray mpd =
        "<?xml version=\"1.0\"?>\n<MPD xmlns=\"urn:mpeg:dash:schema:mpd:2011\" type=\"static\" "
        "mediaPresentationDuration=\"PT0.4S\" minBufferTime=\"PT1S\" "
        "profiles=\"urn:mpeg:dash:profile:isoff-on-demand:2011\"><Period><AdaptationSet "
        "mimeType=\"video/mp4\"><Representation id=\"1\" bandwidth=\"100000\">"
        "<BaseURL>other.mp4</BaseURL></Representation></AdaptationSet></Period></MPD>\n";
    QTest::newRow("DASH") << "manifest.mpd" << mpd << "dash";
    QTest::newRow("DASH named .mp4") << "manifest.mp4" << mpd << "dash";
    const QByteArray concat = "ffconcat version 1.0\nfile other.mp4\n";
    QTest::newRow("concat") << "list.ffconcat" << concat << "concat";
    QTest::newRow("concat named .avi") << "list.avi" << concat << "concat";
    QTest::newRow("session") << "camera.sdp"
                             << QByteArray("v=0\no=- 0 0 IN IP4 127.0.0.1\ns=camera\nc=IN IP4 "
                                           "127.0.0.1\nt=0 0\nm=video 5004 RTP/AVP 96\n"
                                           "a=rtpmap:96 H264/90000\n")
                             << "sdp";
    QTest::newRow("subtitles' index")
        << "other.idx" << QByteArray("# VobSub index file, v7\nsize: 720x576\n") << "vobsub";
}

void TestRefusedDemuxers::namesOtherFiles() {
    QFETCH(QString, name);
    QFETCH(QByteArray, content);
    QFETCH(QString, demuxer);
    if (!av_find_input_format(demuxer.toLatin1().constData()))
        QSKIP(qPrintable("the libraries have no " + demuxer));
    QVERIFY(writeFile(path(name), content));
    QStringList others;
    for (const char* other : {"other.ts", "other.mp4", "other.gif"})
        others.append(path(other));
    if (QFile::exists(path("ended.m3u8")) && name != "ended.m3u8")
        others.append(path("ended.m3u8"));
    OpenWatch watch(others);

    const MediaFile file(path(name).toUtf8());
    QVERIFY(!file.isOpen());
    // Newer libraries take an HLS playlist for one only where it has its extension.
    const QString unrecognised("Invalid data found when processing input");
    const bool isRenamedHls = demuxer == "hls" && !name.endsWith(".m3u8");
    if (!isRenamedHls || file.errorText() != unrecognised)
        QCOMPARE(file.errorText(), refused.value(demuxer));
    QImage picture = media::grey(3, 3, 9);
    const QImage before = picture;
    QVERIFY(!grabFirstFrame(path(name), &picture));
    QCOMPARE(picture, before);
    QCOMPARE(watch.count(), 0);
    // Named themselves, the others are read.
    QCOMPARE(pictureCount(path("other.mp4")), 10);
    QVERIFY(watch.count() > 0);
}

void TestRefusedDemuxers::drawsText_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("content");
    const QByteArray text =
        QByteArray("All that is written here is read by people.\r\n").repeated(50);
    QTest::newRow("text") << "notes.txt" << text;
    QTest::newRow("release notes") << "release.nfo" << text;
    QTest::newRow("description") << "file_id.diz" << text;
    QTest::newRow("terminal colours") << "picture.ans" << QByteArray("\x1b[31m") + text;
    QByteArray screen;
    for (int i = 0; i < 2000; ++i)
        screen += QByteArray(1, i % 7 == 0 ? char('A' + i % 26) : ' ') + char(7 + i / 80 % 8);
    QTest::newRow("characters and colours") << "screen.bin" << screen;
    QTest::newRow("with a font of its own")
        << "screen.xb"
        << QByteArray("XBIN\x1a", 5) + littleEndian(80, 2) + littleEndian(25, 2) +
               QByteArray("\x10\0", 2) + screen;
}

void TestRefusedDemuxers::drawsText() {
    QFETCH(QString, name);
    QFETCH(QByteArray, content);
    QVERIFY(writeFile(path(name), content));
    const MediaFile file(path(name).toUtf8());
    QVERIFY(!file.isOpen());
    QCOMPARE(file.errorText(), QString("text, not a recording"));
    QImage picture;
    QVERIFY(!grabFirstFrame(path(name), &picture));
}

void TestRefusedDemuxers::partsBesideAreNotRead() {
    QVERIFY(writeFile(path("field.mlv"), mlvPart(0, 50)));
    QVERIFY(writeFile(path("field.m00"), mlvPart(1, 90)));
    OpenWatch watch({path("field.m00")});
    QCOMPARE(pictureCount(path("field.mlv")), 1);
    QCOMPARE(watch.count(), 0);
    QCOMPARE(pictureCount(path("field.m00")), 1);
    QVERIFY(watch.count() > 0);
}

void TestRefusedDemuxers::planesBesideAreNotRead() {
    // A picture in three files, of which somebody names the first.
    for (const char* name : {"plane.Y", "plane.U", "plane.V"})
        QVERIFY(writeFile(path(name), QByteArray(352 * 288, 'p')));
    OpenWatch watch({path("plane.U"), path("plane.V")});
    QVERIFY(pictureCount(path("plane.Y")) <= 0);
    QCOMPARE(watch.count(), 0);
}

void TestRefusedDemuxers::patternsAreNames_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("copied"); // empty: there is no such file
    QTest::addColumn<int>("pictures");
    QTest::newRow("pattern of numbers") << "other%03d.png" << QString() << -1;
    QTest::newRow("pattern of names") << "other*.png" << QString() << -1;
    QTest::newRow("file named like one of numbers") << "%d.png"
                                                    << "other002.png" << 1;
    QTest::newRow("file named like one of names") << "other*.gif"
                                                  << "other.gif" << 10;
    QTest::newRow("question mark") << "what?.gif"
                                   << "other.gif" << 10;
    QTest::newRow("braces") << "{other}.gif"
                            << "other.gif" << 10;
    QTest::newRow("per cent and braces") << "%[other].gif"
                                         << "other.gif" << 10;
    QTest::newRow("number in an animation's name") << "other%d.gif"
                                                   << "other.gif" << 10;
    QTest::newRow("number in a recording's name") << "cam%1.mp4"
                                                  << "other.mp4" << 10;
}

void TestRefusedDemuxers::patternsAreNames() {
    QFETCH(QString, name);
    QFETCH(QString, copied);
    QFETCH(int, pictures);
    OpenWatch watch({path("other001.png"), path("other002.png"), path("other.gif")});
    if (!copied.isEmpty())
        QVERIFY(writeFile(path(name), readFile(path(copied))));
    watch.count();
    QCOMPARE(pictureCount(path(name)), pictures);
    QImage grabbed;
    QCOMPARE(grabFirstFrame(path(name), &grabbed), pictures > 0);
    QCOMPARE(watch.count(), 0);
    if (copied.isEmpty())
        return;
    QImage original;
    QVERIFY(grabFirstFrame(path(copied), &original));
    QCOMPARE(grabbed, original);
}

QTEST_GUILESS_MAIN(TestRefusedDemuxers)
#include "test_refuseddemuxers.moc"
