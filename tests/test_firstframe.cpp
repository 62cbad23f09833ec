// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "firstframe.h"

#include "ffmpegmutex.h"
#include "files.h"
#include "footage.h"
#include "frames.h"
#include "media.h"
#include "probe.h"
#include "videodecoder.h"

extern "C" {
#include <libavutil/frame.h>
#include <libavutil/pixdesc.h>
}

#include <QColor>
#include <QDataStream>
#include <QFile>
#include <QTemporaryDir>
#include <QThread>
#include <QtTest>

#include <sys/stat.h>

#include <array>
#include <cstdint>

namespace {

/// Writes a rotation, clockwise by quarter turns, into the display matrix of an MP4 file's first
/// track: what a camera does, and what no option does in every version of the encoder.
bool writeRotation(const QString& fileName, int degrees) {
    QFile file(fileName);
    if (!file.open(QIODevice::ReadWrite))
        return false;
    const int header = file.readAll().indexOf("tkhd");
    const int quarters = degrees / 90;
    const std::int32_t cosine = std::array{1, 0, -1, 0}[quarters];
    const std::int32_t sine = std::array{0, 1, 0, -1}[quarters];
    // The matrix lies 44 bytes behind the header's name: 16.16 fixed point, three values a row.
    QByteArray rows;
    QDataStream stream(&rows, QIODevice::WriteOnly);
    for (const std::int32_t value : {cosine, sine, 0, -sine, cosine})
        stream << value * 0x10000;
    return header > 0 && file.seek(header + 44) && file.write(rows) == rows.size();
}

const QStringList h264 = {"-c:v",    "libx264",  "-pix_fmt",     "yuv420p",
                          "-preset", "veryfast", "-x264-params", "b-adapt=0:scenecut=0"};

/// The number that a grabbed picture shows.
int numberOf(const QImage& picture) {
    const QImage grey = picture.convertToFormat(QImage::Format_Grayscale8);
    media::HandMadeFrame frame(AV_PIX_FMT_GRAY8, grey.width(), grey.height(), grey.width());
    for (int y = 0; y < grey.height(); ++y)
        std::copy_n(grey.constScanLine(y), grey.width(), frame.row(y));
    return media::numberOf(frame);
}

constexpr int blockSize = 32;

/// Flat blocks of many colours.
QImage colourBlocks() {
    QImage picture(8 * blockSize, 8 * blockSize, QImage::Format_RGB32);
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const int column = x / blockSize;
            const int row = y / blockSize;
            picture.setPixel(x, y, qRgb(column * 36, row * 36, (column * 3 + row * 5) % 8 * 36));
        }
    }
    return picture;
}

/// The sample of a plane at a pixel of the picture, brought to 8 bits.
double sample(const AVFrame& frame, int component, int x, int y) {
    const AVPixFmtDescriptor* format = av_pix_fmt_desc_get(AVPixelFormat(frame.format));
    if (component >= format->nb_components)
        return 128.0;
    const AVComponentDescriptor& place = format->comp[component];
    const int column = component > 0 ? x >> format->log2_chroma_w : x;
    const int row = component > 0 ? y >> format->log2_chroma_h : y;
    const std::uint8_t* at = frame.data[place.plane] +
                             std::ptrdiff_t(row) * frame.linesize[place.plane] +
                             std::ptrdiff_t(column) * place.step + place.offset;
    const int value = place.depth > 8 ? at[0] | at[1] << 8 : at[0];
    return double(value) / double(1 << (place.depth - 8));
}

/// Luma and colour differences to colours after ITU-R BT.601.
QColor colourOfPlanes(const AVFrame& frame, int x, int y) {
    const bool isFull = frame.format == AV_PIX_FMT_YUVJ420P || frame.format == AV_PIX_FMT_GRAY8;
    const double luma =
        isFull ? sample(frame, 0, x, y) : (sample(frame, 0, x, y) - 16.0) * 255.0 / 219.0;
    const double scale = isFull ? 1.0 : 255.0 / 224.0;
    const double blue = (sample(frame, 1, x, y) - 128.0) * scale;
    const double red = (sample(frame, 2, x, y) - 128.0) * scale;
    const auto bounded = [](double value) { return qBound(0, qRound(value), 255); };
    return {bounded(luma + 1.402 * red), bounded(luma - 0.344136 * blue - 0.714136 * red),
            bounded(luma + 1.772 * blue)};
}

QSize decodedSize(const QString& fileName) {
    VideoDecoder decoder;
    if (!decoder.open(fileName.toUtf8().constData()))
        return {};
    const FramePointer frame(decoder.readFrame(true));
    return frame ? QSize(frame->width(), frame->height()) : QSize();
}

} // namespace

class TestFirstFrame : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void grabsTheFirstPicture_data();
    void grabsTheFirstPicture();
    void grabsThePictureThatTheDecoderHolds();
    void keepsTheColours();
    void coloursAreThoseOfThePlanes_data();
    void coloursAreThoseOfThePlanes();
    void everyWidthIsConvertedToItsEnd();
    void oddSizes();
    void headerThatClaimsAnotherSize_data();
    void headerThatClaimsAnotherSize();
    void pictureLongAfterTheSound_data();
    void pictureLongAfterTheSound();
    void fileNamesAreUtf8();
    void rotationIsNotApplied_data();
    void rotationIsNotApplied();
    void realPhoneVideoKeepsItsGeometry();
    void waitsForTheMutex();
    void givesUpAtTheDeadline();

    void falseWhereThereIsNoPicture_data();
    void falseWhereThereIsNoPicture();

private:
    QString path(const QString& name) const { return folder.filePath(name); }
    QTemporaryDir folder;
};

void TestFirstFrame::initTestCase() {
    QVERIFY(folder.isValid());
    QVERIFY(media::encodeGrey(path("h264.mp4"), media::numberedPictures(10, 37), 25, h264));
}

void TestFirstFrame::grabsTheFirstPicture_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QStringList>("codec");
    QTest::newRow("H.264 with B pictures") << "first.mp4" << h264;
    QTest::newRow("MPEG-2") << "first.mpg" << QStringList{"-c:v", "mpeg2video", "-bf", "2"};
    QTest::newRow("FFV1") << "first.mkv" << QStringList{"-c:v", "ffv1"};
    QTest::newRow("raw, stored bottom-up") << "first.avi" << media::bottomUpRgb();
}

void TestFirstFrame::grabsTheFirstPicture() {
    QFETCH(QString, name);
    QFETCH(QStringList, codec);
    QVERIFY(media::encodeGrey(path(name), media::numberedPictures(10, 37), 25, codec));
    QImage picture;
    QVERIFY(grabFirstFrame(path(name), &picture));
    QCOMPARE(picture.size(), QSize(128, 96));
    QCOMPARE(numberOf(picture), 37);
}

void TestFirstFrame::grabsThePictureThatTheDecoderHolds() {
    // With B pictures to come, the only one there is waits for the next.
    QVERIFY(media::encodeGrey(path("one.mp4"), media::numberedPictures(1, 37), 25, h264));
    VideoDecoder decoder;
    QVERIFY(decoder.open(path("one.mp4").toUtf8().constData()));
    QVERIFY(!decoder.readFrame(true));
    QImage picture;
    QVERIFY(grabFirstFrame(path("one.mp4"), &picture));
    QCOMPARE(numberOf(picture), 37);
}

void TestFirstFrame::keepsTheColours() {
    QVERIFY(media::encode({"-f", "lavfi", "-i", "color=c=0xC86420:s=64x48:d=0.2", "-c:v", "ffv1",
                           "-pix_fmt", "bgr0", path("colour.mkv")}));
    QImage picture;
    QVERIFY(grabFirstFrame(path("colour.mkv"), &picture));
    const QColor colour = picture.pixelColor(10, 10);
    QVERIFY(qAbs(colour.red() - 0xC8) <= 2);
    QVERIFY(qAbs(colour.green() - 0x64) <= 2);
    QVERIFY(qAbs(colour.blue() - 0x20) <= 2);
}

void TestFirstFrame::coloursAreThoseOfThePlanes_data() {
    QTest::addColumn<QStringList>("codec");
    for (const char* pixels : {"yuv420p", "yuv422p", "yuv444p", "yuv410p", "yuv420p10", "gray"})
        QTest::newRow(pixels) << QStringList{"-c:v", "ffv1", "-pix_fmt", pixels};
    QTest::newRow("full range") << QStringList{"-c:v", "mjpeg", "-pix_fmt", "yuvj420p"};
}

void TestFirstFrame::coloursAreThoseOfThePlanes() {
    QFETCH(QStringList, codec);
    const QString source = path("blocks.png");
    QVERIFY(colourBlocks().save(source));
    QVERIFY(media::encode(QStringList{"-i", source} + codec + QStringList{path("blocks.mkv")}));
    VideoDecoder decoder;
    QVERIFY(decoder.open(path("blocks.mkv").toUtf8().constData()));
    const FramePointer frame(decoder.readFrame(true));
    QVERIFY(frame);
    QImage picture;
    QVERIFY(grabFirstFrame(path("blocks.mkv"), &picture));
    QCOMPARE(picture.size(), colourBlocks().size());
    for (int y = blockSize / 2; y < picture.height(); y += blockSize) {
        for (int x = blockSize / 2; x < picture.width(); x += blockSize) {
            // The scaler counts in fixed point; three of 256 steps are what that loses.
            const QColor expected = colourOfPlanes(*frame->frame, x, y);
            const QColor actual = picture.pixelColor(x, y);
            const QByteArray shown = expected.name().toLatin1() + ' ' + actual.name().toLatin1();
            QVERIFY2(qAbs(actual.red() - expected.red()) <= 3, shown.constData());
            QVERIFY2(qAbs(actual.green() - expected.green()) <= 3, shown.constData());
            QVERIFY2(qAbs(actual.blue() - expected.blue()) <= 3, shown.constData());
        }
    }
}

void TestFirstFrame::everyWidthIsConvertedToItsEnd() {
    // Fast conversions work on many columns at a time; a column left out would be black.
    for (const int width : {1, 2, 3, 7, 8, 9, 15, 16, 17, 31, 33}) {
        const QString name = path(QStringLiteral("wide-%1.mkv").arg(width));
        QVERIFY(media::encodeGrey(name, {media::grey(width, 6, 200)}, 25,
                                  {"-c:v", "ffv1", "-pix_fmt", "yuv420p"}));
        QImage picture;
        QVERIFY(grabFirstFrame(name, &picture));
        QCOMPARE(picture.size(), QSize(width, 6));
        for (int y = 0; y < 6; ++y) {
            for (int x = 0; x < width; ++x)
                QVERIFY2(qAbs(qGray(picture.pixel(x, y)) - 200) <= 3,
                         qPrintable(QStringLiteral("%1: %2, %3").arg(width).arg(x).arg(y)));
        }
    }
}

void TestFirstFrame::oddSizes() {
    const QSize size(101, 37);
    QVERIFY(media::encodeGrey(path("odd.mkv"), media::numberedPictures(2, 170, size), 25,
                              {"-c:v", "ffv1"}));
    QImage picture;
    QVERIFY(grabFirstFrame(path("odd.mkv"), &picture));
    QCOMPARE(picture.size(), size);
    QCOMPARE(numberOf(picture), 170);
}

void TestFirstFrame::headerThatClaimsAnotherSize_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QStringList>("codec");
    QTest::addColumn<QByteArray>("before"); // the size as it stands in the header
    QTest::addColumn<QByteArray>("after");
    const QStringList vp8 = {"-c:v", "libvpx", "-pix_fmt", "yuv420p"};
    const QStringList svq1 = {"-c:v", "svq1"};
    // 320 x 288, with the byte order and what lies between of each container.
    const QByteArray ivf("\x40\x01\x20\x01", 4);
    QTest::newRow("IVF, more rows")
        << "rows.ivf" << vp8 << ivf << QByteArray("\x40\x01\x20\x10", 4);
    QTest::newRow("IVF, more columns")
        << "columns.ivf" << vp8 << ivf << QByteArray("\x40\x10\x20\x01", 4);
    QTest::newRow("IVF, as much as there can be")
        << "most.ivf" << vp8 << ivf << QByteArray("\xff\xff\xff\xff", 4);
    QTest::newRow("IVF, less of both")
        << "less.ivf" << vp8 << ivf << QByteArray("\x10\x00\x10\x00", 4);
    const QByteArray webm("\xb0\x82\x01\x40\xba\x82\x01\x20", 8);
    QTest::newRow("WebM, more rows")
        << "rows.webm" << vp8 << webm << QByteArray("\xb0\x82\x01\x40\xba\x82\x10\x20", 8);
    QTest::newRow("WebM, more columns")
        << "columns.webm" << vp8 << webm << QByteArray("\xb0\x82\x10\x40\xba\x82\x01\x20", 8);
    // Behind the name of the codec: resolution, frames per sample.
    const QByteArray mov("\x01\x40\x01\x20\x00\x48\x00\x00", 8);
    QTest::newRow("MOV, more rows")
        << "rows.mov" << svq1 << mov << QByteArray("\x01\x40\x10\x20\x00\x48\x00\x00", 8);
    QTest::newRow("MOV, more columns")
        << "columns.mov" << svq1 << mov << QByteArray("\x10\x40\x01\x20\x00\x48\x00\x00", 8);
}

void TestFirstFrame::headerThatClaimsAnotherSize() {
    QFETCH(QString, name);
    QFETCH(QStringList, codec);
    QFETCH(QByteArray, before);
    QFETCH(QByteArray, after);
    const QSize size(320, 288);
    QVERIFY(media::encodeGrey(path(name), media::numberedPictures(3, 85, size), 25, codec));
    QByteArray content = readFile(path(name));
    const int place = content.indexOf(before);
    QVERIFY(place > 0 && place < 4096 + content.size() / 2);
    QVERIFY(writeFile(path(name), content.replace(place, before.size(), after)));
    QImage picture;
    QVERIFY(grabFirstFrame(path(name), &picture));
    QCOMPARE(picture.size(), size);
    QCOMPARE(numberOf(picture), 85);
}

void TestFirstFrame::pictureLongAfterTheSound_data() {
    QTest::addColumn<QString>("name");
    for (const char* name : {"late.mkv", "late.mp4", "late.avi", "late.ts"})
        QTest::newRow(name) << name;
}

void TestFirstFrame::pictureLongAfterTheSound() {
    QFETCH(QString, name);
    QVERIFY(
        media::encode({"-f", "lavfi", "-i", "sine=d=20", "-itsoffset", "15", "-i", path("h264.mp4"),
                       "-map", "0", "-map", "1", "-c:v", "copy", path(name)}));
    QImage picture;
    QVERIFY(grabFirstFrame(path(name), &picture));
    QCOMPARE(numberOf(picture), 37);
}

void TestFirstFrame::fileNamesAreUtf8() {
    const QString name = QString::fromUtf8("G\xC3\xA4rten \xE2\x82\xAC.mp4");
    QVERIFY(QFile::copy(path("h264.mp4"), path(name)));
    QImage picture;
    QVERIFY(grabFirstFrame(path(name), &picture));
    QCOMPARE(numberOf(picture), 37);
}

void TestFirstFrame::rotationIsNotApplied_data() {
    QTest::addColumn<int>("degrees");
    for (const int degrees : {90, 180, 270})
        QTest::addRow("%d degrees", degrees) << degrees;
}

void TestFirstFrame::rotationIsNotApplied() {
    QFETCH(int, degrees);
    const QString turned = path(QStringLiteral("turned-%1.mp4").arg(degrees));
    QVERIFY(QFile::copy(path("h264.mp4"), turned));
    QVERIFY(writeRotation(turned, degrees));
    const int rotation = media::probe(turned).rotation;
    QCOMPARE((rotation + 360) % 180, degrees % 180);
    QVERIFY(rotation != 0);
    QImage picture;
    QVERIFY(grabFirstFrame(turned, &picture));
    QCOMPARE(picture.size(), decodedSize(turned));
    QCOMPARE(picture.size(), QSize(128, 96));
    QCOMPARE(numberOf(picture), 37);
}

void TestFirstFrame::realPhoneVideoKeepsItsGeometry() {
    KESTROVA_REQUIRE_FOOTAGE();
    const QString fileName = footageDirectory() + "/upright-phone.mov";
    const media::ProbedVideo probed = media::probe(fileName);
    QVERIFY(probed.rotation != 0);
    QVERIFY(probed.width != probed.height);
    QImage picture;
    QVERIFY(grabFirstFrame(fileName, &picture));
    QCOMPARE(picture.size(), QSize(probed.width, probed.height));
    QCOMPARE(picture.size(), decodedSize(fileName));
}

void TestFirstFrame::waitsForTheMutex() {
    const QString fileName = path("h264.mp4");
    bool isGrabbed = false;
    QImage picture;
    const std::unique_ptr<QThread> thread(
        QThread::create([&] { isGrabbed = grabFirstFrame(fileName, &picture); }));
    ffmpegMutex().lock();
    thread->start();
    const bool endedEarly = thread->wait(200);
    ffmpegMutex().unlock();
    QVERIFY(thread->wait(30000));
    QVERIFY(!endedEarly);
    QVERIFY(isGrabbed);
    // And lets go of it.
    QVERIFY(ffmpegMutex().tryLock());
    ffmpegMutex().unlock();
}

void TestFirstFrame::givesUpAtTheDeadline() {
    QImage picture;
    QVERIFY(!grabFirstFrame(path("h264.mp4"), &picture, QDeadlineTimer(0)));
    QVERIFY(picture.isNull());
    QVERIFY(grabFirstFrame(path("h264.mp4"), &picture, QDeadlineTimer(QDeadlineTimer::Forever)));
}

void TestFirstFrame::falseWhereThereIsNoPicture_data() {
    QTest::addColumn<QString>("name");
    const auto write = [this](const QString& name, const QByteArray& content) {
        QVERIFY(writeFile(path(name), content));
    };
    const QByteArray whole = readFile(path("h264.mp4"));
    write("text.avi", QByteArray("This is no video.\n").repeated(100));
    write("notes.txt", "hello\n");
    write("empty.mp4", {});
    write("no-index.mp4", whole.left(whole.size() / 2));
    QVERIFY(media::encode({"-f", "lavfi", "-i", "sine=d=1", path("sound.wav")}));
    QVERIFY(media::encode({"-f", "lavfi", "-i", "sine=d=1", path("sound.mkv")}));
    // Nobody writes into it; to open it would be to wait for ever.
    QCOMPARE(::mkfifo(path("pipe.mp4").toUtf8().constData(), 0600), 0);
    QVERIFY(QFile::link(path("pipe.mp4"), path("link.mp4")));
    for (const char* name : {"text.avi", "notes.txt", "empty.mp4", "no-index.mp4", "sound.wav",
                             "sound.mkv", "missing.mp4", ".", "pipe.mp4", "link.mp4"})
        QTest::newRow(name) << name;
}

void TestFirstFrame::falseWhereThereIsNoPicture() {
    QFETCH(QString, name);
    QImage picture = media::grey(3, 3, 9);
    const QImage before = picture;
    QVERIFY(!grabFirstFrame(path(name), &picture));
    QCOMPARE(picture, before);
    QVERIFY(ffmpegMutex().tryLock());
    ffmpegMutex().unlock();
}

QTEST_GUILESS_MAIN(TestFirstFrame)
#include "test_firstframe.moc"
