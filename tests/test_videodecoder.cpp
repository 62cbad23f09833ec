// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "videodecoder.h"

#include "encoderarguments.h"
#include "files.h"
#include "frames.h"
#include "framestream.h"
#include "media.h"
#include "probe.h"

extern "C" {
#include <libavutil/frame.h>
}

#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

#include <vector>

namespace {

constexpr int pictureCount = 20;

/// Everything that a decoder delivers, kept until all of it is read.
std::vector<FramePointer> readAll(VideoDecoder& decoder, bool clone = true) {
    std::vector<FramePointer> frames;
    while (DecodedFrame* record = decoder.readFrame(clone))
        frames.emplace_back(record);
    return frames;
}

QVector<int> numbersOf(const std::vector<FramePointer>& frames) {
    QVector<int> numbers;
    for (const FramePointer& frame : frames)
        numbers.append(media::numberOf(*frame));
    return numbers;
}

QVector<int> counting(int count, int first = 0) {
    QVector<int> numbers;
    for (int i = 0; i < count; ++i)
        numbers.append(first + i);
    return numbers;
}

/// x264's arguments for a fixed number of B pictures between two others.
QStringList h264(int bPictures) {
    return {"-c:v",         "libx264",
            "-pix_fmt",     "yuv420p",
            "-preset",      "veryfast",
            "-bf",          QString::number(bPictures),
            "-x264-params", "b-adapt=0:scenecut=0:b-pyramid=none"};
}

QStringList sound() {
    return {"-f", "lavfi", "-i", "sine=d=1"};
}

const QStringList vp9 = {"-pix_fmt", "yuv420p",   "-c:v", "libvpx-vp9",     "-deadline",
                         "realtime", "-cpu-used", "8",    "-lag-in-frames", "0"};

/// The packets of an IVF file: a header of 32 bytes, then size (4 bytes), time (8 bytes) and data
/// of each.
QVector<QByteArray> ivfPackets(const QByteArray& file) {
    QVector<QByteArray> packets;
    for (int at = 32; at + 12 <= file.size(); at += 12 + packets.last().size()) {
        const auto size = qFromLittleEndian<quint32>(file.constData() + at);
        packets.append(file.mid(at + 12, int(size)));
    }
    return packets;
}

QByteArray littleEndian(int value, int bytes) {
    QByteArray text;
    for (int i = 0; i < bytes; ++i)
        text += i < 4 ? char(value >> 8 * i) : '\0';
    return text;
}

QByteArray ivfFile(const QByteArray& original, const QVector<QByteArray>& packets) {
    QByteArray file = original.left(32);
    for (int i = 0; i < packets.size(); ++i)
        file += littleEndian(packets[i].size(), 4) + littleEndian(i, 8) + packets[i];
    return file;
}

/// One packet that holds two VP9 pictures, both of them to be shown.
QByteArray vp9Superframe(const QByteArray& first, const QByteArray& second) {
    const char marker = char(0xC0 | (4 - 1) << 3 | (2 - 1)); // sizes of 4 bytes, 2 pictures
    return first + second + marker + littleEndian(first.size(), 4) +
           littleEndian(second.size(), 4) + marker;
}

} // namespace

class TestVideoDecoder : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void deliversThePicturesWithTheirTimes_data();
    void deliversThePicturesWithTheirTimes();
    void packedBPicturesComeOneByOne();
    void picturesOutliveTheRead_data();
    void picturesOutliveTheRead();

    void takesTheFirstVideoStream_data();
    void takesTheFirstVideoStream();
    void timesStartWhereTheStreamStarts();
    void missingDecodingTimeIsVeryNegative();
    void onePicturePerPacket();
    void emptyPacketsAreSkipped();
    void sizeChangesInMidStream();
    void pixelFormatChangesInMidStream();
    void bytePositionFollowsTheFile();
    void knowsTheIntraCodecs_data();
    void knowsTheIntraCodecs();
    void opensAnotherFile();

    void deliversWhatATruncatedFileHolds_data();
    void deliversWhatATruncatedFileHolds();
    void refusesWhatIsNoVideo_data();
    void refusesWhatIsNoVideo();
    void refusesAnUnknownCodec();
    void answersNothingWhileClosed();

private:
    QString path(const QString& name) const { return folder.filePath(name); }
    bool makeNumbered(const QString& name, const QStringList& codec);
    bool openFile(VideoDecoder& decoder, const QString& name) const {
        return decoder.open(path(name).toUtf8().constData());
    }

    QTemporaryDir folder;
};

void TestVideoDecoder::initTestCase() {
    QVERIFY(folder.isValid());
}

bool TestVideoDecoder::makeNumbered(const QString& name, const QStringList& codec) {
    return QFile::exists(path(name)) ||
           media::encodeGrey(path(name), media::numberedPictures(pictureCount), 25, codec);
}

void TestVideoDecoder::deliversThePicturesWithTheirTimes_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QStringList>("codec");
    // How many pictures the decoder holds back to bring them into their order. So many packets
    // later a picture is complete, and so many stay inside at the end of the file.
    QTest::addColumn<int>("delay");

    const QStringList yuv = {"-pix_fmt", "yuv420p"};
    QTest::newRow("H.264 without B, MP4") << "h264.mp4" << h264(0) << 0;
    QTest::newRow("H.264 without B, AVI") << "h264.avi" << h264(0) << 0;
    QTest::newRow("H.264 with B, MP4") << "h264-b.mp4" << h264(2) << 1;
    QTest::newRow("H.264 with B, MKV") << "h264-b.mkv" << h264(2) << 1;
    QTest::newRow("H.264 with B, TS") << "h264-b.ts" << h264(2) << 1;
    QTest::newRow("H.264 with referenced B, TS")
        << "h264-pyramid.ts"
        << QStringList{"-c:v",    "libx264",      "-pix_fmt",
                       "yuv420p", "-x264-params", "bframes=3:b-adapt=0:scenecut=0:b-pyramid=normal"}
        << 2;
    QTest::newRow("HEVC without B, MP4")
        << "hevc.mp4" << QStringList{"-c:v",    "libx265",      "-pix_fmt",
                                     "yuv420p", "-x265-params", "log-level=error:bframes=0"}
        << 0;
    QTest::newRow("HEVC with B, MKV")
        << "hevc-b.mkv"
        << QStringList{"-c:v",         "libx265",
                       "-pix_fmt",     "yuv420p",
                       "-x265-params", "log-level=error:bframes=2:b-adapt=0:scenecut=0:b-pyramid=0"}
        << 1;
    QTest::newRow("MPEG-4, AVI") << "mpeg4.avi" << yuv + QStringList{"-c:v", "mpeg4"} << 0;
    QTest::newRow("MPEG-4 with B, AVI")
        << "mpeg4-b.avi" << yuv + QStringList{"-c:v", "mpeg4", "-bf", "2"} << 1;
    QTest::newRow("MPEG-4 with B, MP4")
        << "mpeg4-b.mp4" << yuv + QStringList{"-c:v", "mpeg4", "-bf", "2"} << 1;
    // An MPEG-2 stream that does not promise to have no B pictures is decoded as if it had some.
    QTest::newRow("MPEG-2, TS") << "mpeg2.ts" << yuv + QStringList{"-c:v", "mpeg2video"} << 1;
    QTest::newRow("MPEG-2 with B, TS")
        << "mpeg2-b.ts" << yuv + QStringList{"-c:v", "mpeg2video", "-bf", "2"} << 1;
    QTest::newRow("MJPEG, AVI") << "mjpeg.avi"
                                << QStringList{"-c:v", "mjpeg", "-pix_fmt", "yuvj420p"} << 0;
    QTest::newRow("VP8, WebM") << "vp8.webm" << yuv + QStringList{"-c:v", "libvpx"} << 0;
    QTest::newRow("VP9, WebM") << "vp9.webm"
                               << yuv + QStringList{"-c:v",     "libvpx-vp9", "-deadline",
                                                    "realtime", "-cpu-used",  "8"}
                               << 0;
    // With pictures that are never shown, packed into one packet with the next.
    QTest::newRow("VP9 with hidden pictures, WebM")
        << "vp9-hidden.webm"
        << yuv + QStringList{"-c:v",           "libvpx-vp9", "-deadline",     "good",
                             "-cpu-used",      "5",          "-auto-alt-ref", "1",
                             "-lag-in-frames", "16",         "-b:v",          "50k"}
        << 0;
    QTest::newRow("AV1, MKV") << "av1.mkv" << yuv + QStringList{"-c:v", "libsvtav1"} << 0;
    QTest::newRow("FFV1, MKV") << "ffv1.mkv" << QStringList{"-c:v", "ffv1"} << 0;
    QTest::newRow("raw grey, MKV") << "raw.mkv" << QStringList{"-c:v", "rawvideo"} << 0;
    QTest::newRow("raw RGB stored bottom-up, AVI") << "bottom-up.avi" << media::bottomUpRgb() << 0;
    QTest::newRow("raw RGB stored top-down, AVI")
        << "raw.avi" << QStringList{"-c:v", "rawvideo", "-pix_fmt", "bgr24"} << 0;
    QTest::newRow("Sorenson H.263, FLV") << "flv1.flv" << yuv + QStringList{"-c:v", "flv"} << 0;
}

void TestVideoDecoder::deliversThePicturesWithTheirTimes() {
    QFETCH(QString, name);
    QFETCH(QStringList, codec);
    QFETCH(int, delay);
    const QString encoder = codec.value(codec.indexOf("-c:v") + 1);
    if (!media::hasEncoder(encoder))
        QSKIP(qPrintable("the encoder has no " + encoder));
    QVERIFY(makeNumbered(name, codec));
    const media::ProbedVideo probed = media::probe(path(name));
    QCOMPARE(probed.packetTimes.size(), pictureCount);
    QCOMPARE(probed.reorderDepth, delay);

    VideoDecoder decoder;
    QVERIFY(openFile(decoder, name));
    const std::vector<FramePointer> frames = readAll(decoder);

    QCOMPARE(numbersOf(frames), counting(pictureCount - delay));
    for (std::size_t i = 0; i < frames.size(); ++i) {
        QCOMPARE(frames[i]->width(), 128);
        QCOMPARE(frames[i]->height(), 96);
        const qint64 completed = probed.packetTimes[int(i) + delay];
        QVERIFY(frames[i]->time == double(completed) * probed.timeBase);
    }
    QVERIFY(!decoder.readFrame(true));
}

void TestVideoDecoder::packedBPicturesComeOneByOne() {
    if (!media::hasEncoder("libxvid"))
        QSKIP("the encoder has no libxvid");
    // AVI has no decoding order of its own: a B picture lies in one packet with the picture that
    // it refers to, and a packet of a few bytes stands where it would have been.
    QVERIFY(makeNumbered("packed.avi",
                         {"-pix_fmt", "yuv420p", "-c:v", "libxvid", "-bf", "1", "-q:v", "3"}));
    QVERIFY(readFile(path("packed.avi")).contains("DivX503b1393p")); // p: packed
    const media::ProbedVideo probed = media::probe(path("packed.avi"));
    VideoDecoder decoder;
    QVERIFY(openFile(decoder, "packed.avi"));
    const std::vector<FramePointer> frames = readAll(decoder);
    QVERIFY(frames.size() >= pictureCount / 2);
    QCOMPARE(int(frames.size()), probed.packetTimes.size() - probed.reorderDepth);
    QCOMPARE(numbersOf(frames), counting(int(frames.size())));
    for (std::size_t i = 0; i < frames.size(); ++i)
        QVERIFY(frames[i]->time == double(probed.packetTimes[int(i) + 1]) * probed.timeBase);
}

void TestVideoDecoder::picturesOutliveTheRead_data() {
    QTest::addColumn<bool>("clone");
    QTest::newRow("own reference") << true;
    QTest::newRow("the decoder's frame") << false;
}

void TestVideoDecoder::picturesOutliveTheRead() {
    QFETCH(bool, clone);
    QVERIFY(makeNumbered("h264-b.mp4", h264(2)));
    std::vector<FramePointer> frames;
    {
        VideoDecoder decoder;
        QVERIFY(openFile(decoder, "h264-b.mp4"));
        frames = readAll(decoder, clone);
    }
    QCOMPARE(numbersOf(frames), counting(pictureCount - 1));
}

void TestVideoDecoder::takesTheFirstVideoStream_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QStringList>("maps");
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("firstNumber");
    for (const char* container : {"mkv", "avi", "mov"}) {
        const auto add = [container](const char* order, const QStringList& maps, int index,
                                     int firstNumber) {
            QTest::addRow("%s, %s", container, order)
                << QStringLiteral("%1.%2").arg(order, container).remove(' ') << maps << index
                << firstNumber;
        };
        add("video first", {"-map", "0", "-map", "2"}, 0, 0);
        add("audio first", {"-map", "2", "-map", "0"}, 1, 0);
        add("two videos", {"-map", "1", "-map", "2", "-map", "0"}, 0, 100);
        add("audio and two videos", {"-map", "2", "-map", "1", "-map", "0"}, 1, 100);
    }
}

void TestVideoDecoder::takesTheFirstVideoStream() {
    QFETCH(QString, name);
    QFETCH(QStringList, maps);
    QFETCH(int, index);
    QFETCH(int, firstNumber);
    QVERIFY(makeNumbered("h264.mp4", h264(0)));
    if (!QFile::exists(path("other.mp4")))
        QVERIFY(media::encodeGrey(path("other.mp4"), media::numberedPictures(pictureCount, 100), 25,
                                  h264(0)));
    const QStringList inputs = {"-i", path("h264.mp4"), "-i", path("other.mp4")};
    QVERIFY(media::encode(inputs + sound() + maps +
                          QStringList{"-c:v", "copy", "-c:a", "pcm_s16le", path(name)}));
    VideoDecoder decoder;
    QVERIFY(openFile(decoder, name));
    QCOMPARE(decoder.videoStreamIndex(), index);
    QCOMPARE(numbersOf(readAll(decoder)), counting(pictureCount, firstNumber));
}

void TestVideoDecoder::timesStartWhereTheStreamStarts() {
    QVERIFY(makeNumbered("late.mkv", h264(0) + QStringList{"-output_ts_offset", "3600"}));
    VideoDecoder decoder;
    QVERIFY(openFile(decoder, "late.mkv"));
    const std::vector<FramePointer> frames = readAll(decoder);
    QCOMPARE(int(frames.size()), pictureCount);
    for (int i = 0; i < pictureCount; ++i)
        QCOMPARE(frames[std::size_t(i)]->time, 3600.0 + i * 0.04);
}

void TestVideoDecoder::missingDecodingTimeIsVeryNegative() {
    // A bare H.264 stream has no times at all.
    QVERIFY(makeNumbered("bare.h264", h264(0)));
    const media::ProbedVideo probed = media::probe(path("bare.h264"));
    QVERIFY(probed.timeBase > 0.0);
    VideoDecoder decoder;
    QVERIFY(openFile(decoder, "bare.h264"));
    const std::vector<FramePointer> frames = readAll(decoder);
    QCOMPARE(numbersOf(frames), counting(pictureCount));
    const double smallest = -9223372036854775808.0; // -2^63
    for (const FramePointer& frame : frames)
        QVERIFY(frame->time == smallest * probed.timeBase);
}

void TestVideoDecoder::onePicturePerPacket() {
    QVERIFY(makeNumbered("vp9.ivf", vp9));
    const QVector<QByteArray> single = ivfPackets(readFile(path("vp9.ivf")));
    QCOMPARE(single.size(), pictureCount);
    QVector<QByteArray> merged;
    for (int i = 0; i < single.size(); i += 2)
        merged.append(vp9Superframe(single[i], single[i + 1]));
    QVERIFY(writeFile(path("merged.ivf"), ivfFile(readFile(path("vp9.ivf")), merged)));

    VideoDecoder decoder;
    QVERIFY(openFile(decoder, "merged.ivf"));
    const QVector<int> numbers = numbersOf(readAll(decoder));
    QCOMPARE(numbers.size(), pictureCount / 2);
    for (int i = 0; i < numbers.size(); ++i)
        QCOMPARE(numbers[i], 2 * i);
}

void TestVideoDecoder::emptyPacketsAreSkipped() {
    // A codec that libav has no parser for, since a parser swallows empty packets.
    QVERIFY(makeNumbered("ffv1-%02d.packet", {"-c:v", "ffv1", "-level", "1", "-f", "image2"}));
    QVector<QByteArray> packets;
    for (int i = 1; i <= pictureCount; ++i)
        packets.append(readFile(path(QStringLiteral("ffv1-%1.packet").arg(i, 2, 10, QChar('0')))));
    packets.insert(10, QByteArray());
    packets.insert(5, QByteArray());
    QVERIFY(makeNumbered("vp9.ivf", vp9));
    const QByteArray header = readFile(path("vp9.ivf")).replace(8, 4, "FFV1");
    QVERIFY(writeFile(path("empty.ivf"), ivfFile(header, packets)));
    QCOMPARE(media::probe(path("empty.ivf")).packetTimes.size(), pictureCount + 2);

    VideoDecoder decoder;
    QVERIFY(openFile(decoder, "empty.ivf"));
    QCOMPARE(numbersOf(readAll(decoder)), counting(pictureCount));
}

void TestVideoDecoder::sizeChangesInMidStream() {
    const QSize small(64, 48);
    QVERIFY(makeNumbered("h264.ts", h264(0)));
    QVERIFY(media::encodeGrey(path("small.ts"), media::numberedPictures(10, 50, small), 25,
                              h264(0) + QStringList{"-output_ts_offset", "0.8"}));
    QVERIFY(writeFile(path("sizes.ts"), readFile(path("h264.ts")) + readFile(path("small.ts"))));

    VideoDecoder decoder;
    QVERIFY(openFile(decoder, "sizes.ts"));
    const std::vector<FramePointer> frames = readAll(decoder);
    QCOMPARE(numbersOf(frames), counting(pictureCount) + counting(10, 50));
    for (std::size_t i = 0; i < frames.size(); ++i) {
        QCOMPARE(frames[i]->width(), i < pictureCount ? 128 : 64);
        QCOMPARE(frames[i]->height(), i < pictureCount ? 96 : 48);
    }
}

void TestVideoDecoder::pixelFormatChangesInMidStream() {
    QStringList full = h264(0) + QStringList{"-output_ts_offset", "0.8"};
    full[full.indexOf("yuv420p")] = "yuv444p";
    QVERIFY(makeNumbered("h264.ts", h264(0)));
    QVERIFY(media::encodeGrey(path("444.ts"), media::numberedPictures(10, 50), 25, full));
    QVERIFY(writeFile(path("formats.ts"), readFile(path("h264.ts")) + readFile(path("444.ts"))));

    VideoDecoder decoder;
    QVERIFY(openFile(decoder, "formats.ts"));
    const std::vector<FramePointer> frames = readAll(decoder);
    QCOMPARE(numbersOf(frames), counting(pictureCount) + counting(10, 50));
    QCOMPARE(frames.front()->frame->format, int(AV_PIX_FMT_YUV420P));
    QCOMPARE(frames.back()->frame->format, int(AV_PIX_FMT_YUV444P));
}

void TestVideoDecoder::bytePositionFollowsTheFile() {
    QVERIFY(makeNumbered("raw.mkv", {"-c:v", "rawvideo"}));
    VideoDecoder decoder;
    QVERIFY(openFile(decoder, "raw.mkv"));
    const qint64 size = QFileInfo(path("raw.mkv")).size();
    qint64 before = decoder.bytePosition();
    QVERIFY(before > 0); // the header is read
    const qint64 atStart = before;
    while (const FramePointer frame{decoder.readFrame(true)}) {
        QVERIFY(decoder.bytePosition() >= before);
        QVERIFY(decoder.bytePosition() <= size);
        before = decoder.bytePosition();
    }
    QVERIFY(before > atStart);
    QCOMPARE(decoder.bytePosition(), size);
}

void TestVideoDecoder::knowsTheIntraCodecs_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QStringList>("codec");
    QTest::addColumn<QByteArray>("renamed"); // the codec's four letters in the file, and new ones
    QTest::addColumn<bool>("isIntra");
    const QStringList mjpeg = {"-c:v", "mjpeg", "-pix_fmt", "yuvj420p"};
    QTest::newRow("MJPEG") << "mjpeg.avi" << mjpeg << QByteArray() << true;
    // What the encoder cannot write gets its name by hand; it is opened, not decoded.
    QTest::newRow("MJPEG-B") << "mjpegb.mov" << mjpeg << QByteArray("jpegmjpb") << true;
    QTest::newRow("Lagarith") << "lagarith.avi" << QStringList{"-c:v", "ffv1"}
                              << QByteArray("FFV1LAGS") << true;
    QTest::newRow("FFV1") << "ffv1.mkv" << QStringList{"-c:v", "ffv1"} << QByteArray() << false;
    QTest::newRow("raw") << "raw.mkv" << QStringList{"-c:v", "rawvideo"} << QByteArray() << false;
    QTest::newRow("HuffYUV") << "huffyuv.avi"
                             << QStringList{"-c:v", "huffyuv", "-pix_fmt", "yuv422p"}
                             << QByteArray() << false;
    QTest::newRow("H.264") << "h264.mp4" << h264(0) << QByteArray() << false;
    QTest::newRow("H.264 of I pictures")
        << "h264-intra.mp4" << h264(0) + QStringList{"-g", "1"} << QByteArray() << false;
    QTest::newRow("MPEG-4") << "mpeg4.avi" << QStringList{"-c:v", "mpeg4", "-pix_fmt", "yuv420p"}
                            << QByteArray() << false;
}

void TestVideoDecoder::knowsTheIntraCodecs() {
    QFETCH(QString, name);
    QFETCH(QStringList, codec);
    QFETCH(QByteArray, renamed);
    QFETCH(bool, isIntra);
    QVERIFY(makeNumbered(name, codec));
    if (!renamed.isEmpty()) {
        QByteArray content = readFile(path(name));
        QVERIFY(content.contains(renamed.left(4)));
        QVERIFY(writeFile(path(name), content.replace(renamed.left(4), renamed.mid(4))));
    }
    VideoDecoder decoder;
    QVERIFY(!decoder.isIntraCodec());
    QVERIFY(openFile(decoder, name));
    QCOMPARE(decoder.isIntraCodec(), isIntra);
    QCOMPARE(isIntraCodec(MediaFile(path(name).toUtf8()).facts().codecName), isIntra);
    decoder.close();
    QVERIFY(!decoder.isIntraCodec());
}

void TestVideoDecoder::opensAnotherFile() {
    QVERIFY(makeNumbered("h264.mp4", h264(0)));
    QVERIFY(makeNumbered("ffv1.mkv", {"-c:v", "ffv1"}));
    VideoDecoder decoder;
    QVERIFY(openFile(decoder, "h264.mp4"));
    const FramePointer first(decoder.readFrame(true));
    QVERIFY(openFile(decoder, "ffv1.mkv"));
    QCOMPARE(numbersOf(readAll(decoder)), counting(pictureCount));
    QVERIFY(!openFile(decoder, "missing.mkv"));
    QVERIFY(!decoder.readFrame(true));
    QVERIFY(openFile(decoder, "h264.mp4"));
    QCOMPARE(numbersOf(readAll(decoder)), counting(pictureCount));
}

void TestVideoDecoder::deliversWhatATruncatedFileHolds_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QStringList>("codec");
    QTest::newRow("FFV1, MKV") << "ffv1.mkv" << QStringList{"-c:v", "ffv1"};
    QTest::newRow("raw, AVI") << "raw.avi" << QStringList{"-c:v", "rawvideo", "-pix_fmt", "bgr24"};
    QTest::newRow("MJPEG, AVI") << "mjpeg.avi"
                                << QStringList{"-c:v", "mjpeg", "-pix_fmt", "yuvj420p"};
    QTest::newRow("H.264, MKV") << "h264-intra.mkv" << h264(0) + QStringList{"-g", "1"};
}

void TestVideoDecoder::deliversWhatATruncatedFileHolds() {
    QFETCH(QString, name);
    QFETCH(QStringList, codec);
    QVERIFY(makeNumbered(name, codec));
    const QByteArray whole = readFile(path(name));
    QVERIFY(writeFile(path("cut-" + name), whole.left(whole.size() * 6 / 10)));
    VideoDecoder decoder;
    QVERIFY(openFile(decoder, "cut-" + name));
    const std::vector<FramePointer> frames = readAll(decoder);
    // About six tenths of the pictures are whole; the one that is cut through may still show.
    QVERIFY2(frames.size() > 4 && frames.size() < pictureCount,
             qPrintable(QString::number(frames.size())));
    const int uncut = int(frames.size()) - 1;
    QCOMPARE(numbersOf(frames).mid(0, uncut), counting(uncut));
    QVERIFY(!decoder.readFrame(true));
}

void TestVideoDecoder::refusesWhatIsNoVideo_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("reason"); // empty: whatever the media library says
    QVERIFY(writeFile(path("text.mp4"), QByteArray("This is no video.\n").repeated(500)));
    QVERIFY(writeFile(path("empty.mp4"), {}));
    QVERIFY(makeNumbered("h264.mp4", h264(0)));
    const QByteArray whole = readFile(path("h264.mp4"));
    QVERIFY(writeFile(path("no-index.mp4"), whole.left(whole.size() / 2)));
    QVERIFY(media::encode(sound() + QStringList{path("sound.wav")}));
    QVERIFY(media::encode(sound() + QStringList{"-c:a", "aac", path("sound.mp4")}));
    QTest::newRow("text") << "text.mp4" << QString();
    QTest::newRow("empty") << "empty.mp4" << QString();
    QTest::newRow("MP4 that lost its index") << "no-index.mp4" << QString();
    QTest::newRow("missing") << "missing.mp4"
                             << "No such file or directory";
    QTest::newRow("directory") << "."
                               << "Is a directory";
    QTest::newRow("sound, WAV") << "sound.wav"
                                << "no video stream";
    QTest::newRow("sound, MP4") << "sound.mp4"
                                << "no video stream";
}

void TestVideoDecoder::refusesWhatIsNoVideo() {
    QFETCH(QString, name);
    QFETCH(QString, reason);
    VideoDecoder decoder;
    QVERIFY(!openFile(decoder, name));
    QCOMPARE(decoder.videoStreamIndex(), -1);
    const MediaFile file(path(name).toUtf8());
    if (reason.isEmpty())
        QVERIFY(!file.errorText().isEmpty());
    else
        QCOMPARE(file.errorText(), reason);
    QVERIFY(!decoder.readFrame(true));
    QVERIFY(file.facts().codecName.isEmpty());
    decoder.close();
    QCOMPARE(decoder.bytePosition(), qint64(-1));
}

void TestVideoDecoder::refusesAnUnknownCodec() {
    QVERIFY(makeNumbered("ffv1.avi", {"-c:v", "ffv1"}));
    QByteArray content = readFile(path("ffv1.avi"));
    QVERIFY(content.contains("FFV1"));
    QVERIFY(writeFile(path("unknown.avi"), content.replace("FFV1", "Q~Q~")));
    VideoDecoder decoder;
    QVERIFY(!openFile(decoder, "unknown.avi"));
    QCOMPARE(decoder.videoStreamIndex(), 0);
    const QString error = FrameStream(path("unknown.avi").toUtf8(), {}).errorText();
    QVERIFY2(error.startsWith("no decoder"), qPrintable(error));
    QVERIFY(!decoder.readFrame(true));
}

void TestVideoDecoder::answersNothingWhileClosed() {
    QVERIFY(makeNumbered("h264.mp4", h264(0)));
    VideoDecoder decoder;
    decoder.close();
    QCOMPARE(decoder.bytePosition(), qint64(-1));
    QCOMPARE(decoder.videoStreamIndex(), -1);
    QVERIFY(!decoder.readFrame(true));
    QVERIFY(openFile(decoder, "h264.mp4"));
    decoder.close();
    decoder.close();
    QCOMPARE(decoder.bytePosition(), qint64(-1));
    QCOMPARE(decoder.videoStreamIndex(), -1);
    QVERIFY(!decoder.readFrame(true));
}

QTEST_GUILESS_MAIN(TestVideoDecoder)
#include "test_videodecoder.moc"
