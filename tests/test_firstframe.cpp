#include "firstframe.h"

#include "ffmpegmutex.h"
#include "files.h"
#include "footage.h"
#include "frames.h"
#include "media.h"
#include "probe.h"
#include "videodecoder.h"

#include <QDataStream>
#include <QFile>
#include <QTemporaryDir>
#include <QThread>
#include <QtTest>

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
    void keepsTheColours();
    void oddSizes();
    void fileNamesAreUtf8();
    void rotationIsNotApplied_data();
    void rotationIsNotApplied();
    void realPhoneVideoKeepsItsGeometry();
    void waitsForTheMutex();

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

void TestFirstFrame::oddSizes() {
    const QSize size(101, 37);
    QVERIFY(media::encodeGrey(path("odd.mkv"), media::numberedPictures(2, 170, size), 25,
                              {"-c:v", "ffv1"}));
    QImage picture;
    QVERIFY(grabFirstFrame(path("odd.mkv"), &picture));
    QCOMPARE(picture.size(), size);
    QCOMPARE(numberOf(picture), 170);
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

void TestFirstFrame::falseWhereThereIsNoPicture_data() {
    QTest::addColumn<QString>("name");
    const auto write = [this](const QString& name, const QByteArray& content) {
        QFile file(path(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(content), qint64(content.size()));
    };
    const QByteArray whole = readFile(path("h264.mp4"));
    write("text.avi", QByteArray("This is no video.\n").repeated(100));
    write("notes.txt", "hello\n");
    write("empty.mp4", {});
    write("no-index.mp4", whole.left(whole.size() / 2));
    QVERIFY(media::encode({"-f", "lavfi", "-i", "sine=d=1", path("sound.wav")}));
    QVERIFY(media::encode({"-f", "lavfi", "-i", "sine=d=1", path("sound.mkv")}));
    for (const char* name : {"text.avi", "notes.txt", "empty.mp4", "no-index.mp4", "sound.wav",
                             "sound.mkv", "missing.mp4", "."})
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
