// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

// Decoding on several threads gives what decoding on one gives: pictures, times, their number.

#include "decoderthreads.h"
#include "footage.h"
#include "framestream.h"
#include "media.h"
#include "sample.h"

extern "C" {
#include <libavcodec/avcodec.h>
}

#include <QCryptographicHash>
#include <QLoggingCategory>
#include <QTemporaryDir>
#include <QtTest>

#include <cstdint>

namespace {

struct Picture {
    double time;
    int width;
    int height;
    QByteArray checksum; ///< of plane 0
};

bool operator==(const Picture& a, const Picture& b) {
    return a.time == b.time && a.width == b.width && a.height == b.height &&
           a.checksum == b.checksum;
}

QByteArray planeChecksum(const DecodedFrame& frame) {
    QCryptographicHash hash(QCryptographicHash::Md5);
    for (int y = 0; y < frame.height(); ++y) {
        const std::uint8_t* row = frame.data() + std::ptrdiff_t(y) * frame.stride();
        hash.addData(reinterpret_cast<const char*>(row), qMin(frame.width(), qAbs(frame.stride())));
    }
    return hash.result();
}

QVector<Picture> decode(const QString& path, int threads) {
    QVector<Picture> pictures;
    FramePlan plan;
    plan.threads = threads;
    FrameStream frames(path.toUtf8(), plan);
    for (Frame frame = frames.next(); frame.isThere(); frame = frames.next())
        pictures.append({frame.time, frame.width, frame.height, planeChecksum(*frame.picture)});
    return pictures;
}

int serialFallbacks = 0;

QtMessageHandler previousHandler = nullptr;

/// Counts the decoder's own word that it goes on with one thread.
void countFallbacks(QtMsgType type, const QMessageLogContext& context, const QString& message) {
    if (message.startsWith(QLatin1String("one thread from")))
        ++serialFallbacks;
    else
        previousHandler(type, context, message);
}

QString difference(const QVector<Picture>& found, const QVector<Picture>& expected) {
    for (int i = 0; i < qMin(found.size(), expected.size()); ++i) {
        if (!(found[i] == expected[i]))
            return QStringLiteral("picture %1 at %2 differs from that at %3")
                .arg(i)
                .arg(found[i].time)
                .arg(expected[i].time);
    }
    if (found.size() != expected.size())
        return QStringLiteral("%1 pictures instead of %2").arg(found.size()).arg(expected.size());
    return {};
}

void compareThreadCounts(const QString& path) {
    const QVector<Picture> expected = decode(path, 1);
    QVERIFY(!expected.isEmpty());
    for (const int threads : {2, 3, 4, 8, 16}) {
        const QString found = difference(decode(path, threads), expected);
        QVERIFY2(found.isEmpty(),
                 qPrintable(QStringLiteral("%1 threads: %2").arg(threads).arg(found)));
    }
}

} // namespace

class TestThreads : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void frameThreadsAreUsed();
    void largePicturesGetFewerThreads_data();
    void largePicturesGetFewerThreads();
    void undamagedStreams_data();
    void undamagedStreams();
    void closedGroupsLoseNothing_data();
    void closedGroupsLoseNothing();
    void sizeChange();
    void missingStamps();
    void startInTheMiddleOfAGroup();
    void wholeRecordings_data();
    void wholeRecordings();

private:
    QTemporaryDir folder;
};

void TestThreads::initTestCase() {
    QLoggingCategory::setFilterRules("kestrova.engine.debug=true");
    previousHandler = qInstallMessageHandler(countFallbacks);
}

void TestThreads::cleanupTestCase() {
    qInstallMessageHandler(previousHandler);
}

void TestThreads::frameThreadsAreUsed() {
    AVCodecContext* context = avcodec_alloc_context3(avcodec_find_decoder(AV_CODEC_ID_H264));
    const DecoderThreading several = setUpThreads(*context, 4);
    const int count = context->thread_count;
    const int type = context->thread_type;
    const DecoderThreading one = setUpThreads(*context, 1);
    const int countOfOne = context->thread_count;
    avcodec_free_context(&context);
    QCOMPARE(several, DecoderThreading::Frame);
    QCOMPARE(count, 4);
    QCOMPARE(type, FF_THREAD_FRAME);
    QCOMPARE(one, DecoderThreading::One);
    QCOMPARE(countOfOne, 1);
}

void TestThreads::largePicturesGetFewerThreads_data() {
    QTest::addColumn<QSize>("size");
    QTest::addColumn<int>("threads");
    QTest::newRow("1080p") << QSize(1920, 1080) << 16;
    QTest::newRow("4K") << QSize(3840, 2160) << 16;
    QTest::newRow("8K") << QSize(7680, 4320) << 3;
    QTest::newRow("the largest") << QSize(16000, 16000) << 1;
    QTest::newRow("unknown") << QSize(0, 0) << 16;
}

void TestThreads::largePicturesGetFewerThreads() {
    QFETCH(QSize, size);
    QFETCH(int, threads);
    AVCodecContext* context = avcodec_alloc_context3(avcodec_find_decoder(AV_CODEC_ID_H264));
    context->pix_fmt = AV_PIX_FMT_YUV420P;
    context->width = size.width();
    context->height = size.height();
    const DecoderThreading threading = setUpThreads(*context, 16);
    const int count = context->thread_count;
    avcodec_free_context(&context);
    QCOMPARE(count, threads);
    QCOMPARE(threading, threads > 1 ? DecoderThreading::Frame : DecoderThreading::One);
}

void TestThreads::undamagedStreams_data() {
    QTest::addColumn<QString>("encoder");
    QTest::addColumn<QString>("suffix");
    QTest::addColumn<QString>("options");
    const auto row = [](const char* encoder, const char* suffix, const char* options) {
        const QByteArray name = QByteArray(encoder) + ' ' + suffix + ' ' + options;
        QTest::newRow(name.constData()) << QString(encoder) << QString(suffix) << QString(options);
    };
    for (const char* suffix : {"mp4", "mkv", "ts", "avi", "mov", "flv"}) {
        row("libx264", suffix, "-bf 0");
        row("libx264", suffix, "-bf 3 -b_strategy 0");
    }
    row("libx264", "mp4", "-tune zerolatency");
    row("libx264", "mp4", "-bf 3 -x264-params b-pyramid=normal:ref=5:keyint=12");
    row("libx264", "mp4", "-x264-params open-gop=1:keyint=10:bframes=3");
    row("libx264", "mp4", "-x264-params intra-refresh=1:keyint=20");
    row("libx264", "ts", "-x264-params slices=4");
    row("libx264", "mp4", "-flags +ildct+ilme -x264-params tff=1");
    row("libx264", "ts", "-flags +ildct+ilme -x264-params bff=1:bframes=2");
    row("libx264", "mkv", "-pix_fmt yuv422p10le -bf 2");
    row("libx264", "h264", "-bf 3");
    for (const char* suffix : {"mp4", "mkv", "ts"}) {
        row("libx265", suffix, "-x265-params log-level=none:bframes=0");
        row("libx265", suffix, "-x265-params log-level=none:bframes=4");
    }
    row("libx265", "mp4", "-x265-params log-level=none:open-gop=1:keyint=10:bframes=4");
    row("libx265", "mp4", "-x265-params log-level=none:open-gop=0:keyint=10:bframes=4");
    for (const char* suffix : {"avi", "mp4", "mkv"}) {
        row("mpeg4", suffix, "-bf 0");
        row("mpeg4", suffix, "-bf 2 -g 12");
    }
    row("mpeg4", "avi", "-flags +ildct+ilme -top 1");
    row("mpeg4", "mp4", "-flags +ildct+ilme -top 1 -bf 2");
    row("mpeg4", "avi", "-flags +qpel -bf 2 -vtag XVID");
    row("libxvid", "avi", "-bf 2");
    row("mpeg2video", "ts", "-bf 2 -g 12");
    row("mpeg2video", "mpg", "-bf 2 -flags +ildct+ilme -top 1");
    row("mpeg1video", "mpg", "-bf 2");
    row("mjpeg", "avi", "-pix_fmt yuvj420p");
    row("mjpeg", "mov", "-pix_fmt yuvj422p");
    row("libvpx", "webm", "-auto-alt-ref 1 -lag-in-frames 10");
    row("libvpx-vp9", "webm", "-auto-alt-ref 1 -lag-in-frames 10 -cpu-used 8 -deadline realtime");
    row("libvpx-vp9", "mkv", "-lag-in-frames 0 -cpu-used 8 -deadline realtime");
    row("libsvtav1", "mkv", "-preset 12");
    row("libsvtav1", "mp4", "-preset 12");
    row("ffv1", "mkv", "-level 3 -slices 4");
    row("ffv1", "avi", "-level 1");
    row("rawvideo", "avi", "-pix_fmt yuv420p");
    row("huffyuv", "avi", "-pix_fmt yuv422p");
    row("flv", "flv", "");
    row("msmpeg4v2", "avi", "");
    row("msmpeg4", "avi", "");
    row("wmv2", "asf", "");
    row("prores", "mov", "-pix_fmt yuv422p10le");
    row("utvideo", "avi", "");
    row("png", "mov", "-pix_fmt rgb24");
}

void TestThreads::undamagedStreams() {
    KESTROVA_SAMPLED_ROW();
    QFETCH(QString, encoder);
    QFETCH(QString, suffix);
    QFETCH(QString, options);
    if (!media::hasEncoder(encoder))
        QSKIP("this encoder is not installed");
    const QString path = folder.filePath("stream." + suffix);
    QStringList arguments = {"-f",       "lavfi",   "-i",   "testsrc2=s=208x144:r=25:d=2.4",
                             "-pix_fmt", "yuv420p", "-c:v", encoder,
                             "-threads", "1"};
    arguments += options.split(' ', Qt::SkipEmptyParts);
    QVERIFY(media::encode(arguments + QStringList{path}));
    serialFallbacks = 0;
    compareThreadCounts(path);
    // Only interlaced streams of the codecs with frame threads and packed B pictures may go back to
    // one thread; for all others the comparison would not say anything if they did.
    const bool isInterlaced = options.contains("ildct") && encoder != QLatin1String("mpeg2video");
    const bool isPacked = encoder == QLatin1String("libxvid");
    QCOMPARE(serialFallbacks, isInterlaced || isPacked ? 5 : 0);
}

void TestThreads::closedGroupsLoseNothing_data() {
    QTest::addColumn<QString>("options");
    QTest::addColumn<int>("threads");
    for (const int threads : {1, 3}) {
        const auto row = [threads](const QByteArray& options) {
            QTest::newRow((options + ", threads: " + QByteArray::number(threads)).constData())
                << QString(options) << threads;
        };
        row("-c:v libx264 -x264-params keyint=10:scenecut=0:b-pyramid=normal:b-adapt=0:bframes=3");
        row("-c:v libx265 -x265-params "
            "log-level=none:keyint=10:min-keyint=10:b-adapt=0:b-pyramid=1:bframes=4:open-gop=0");
    }
}

/// Each packet completes one picture, from the third on: two are held back to put pictures in
/// order. That is so also where a group ends, whatever the decoder then gives away at once, and the
/// last group is a key frame alone.
void TestThreads::closedGroupsLoseNothing() {
    QFETCH(QString, options);
    QFETCH(int, threads);
    const QString path = folder.filePath("closed.mp4");
    QVERIFY(media::encode(QStringList{"-f", "lavfi", "-i", "testsrc2=s=208x144:r=25", "-frames:v",
                                      "101", "-pix_fmt", "yuv420p"} +
                          options.split(' ') + QStringList{path}));
    const QVector<Picture> pictures = decode(path, threads);
    QCOMPARE(pictures.size(), 101 - 2);
    for (int i = 1; i < pictures.size(); ++i) {
        QCOMPARE(qRound(pictures[i].time * 12800), qRound(pictures[0].time * 12800) + i * 512);
        QVERIFY(pictures[i].checksum != pictures[i - 1].checksum);
    }
}

void TestThreads::sizeChange() {
    const QString whole = folder.filePath("sizes.ts");
    QFile joined(whole);
    QVERIFY(joined.open(QIODevice::WriteOnly));
    for (const char* size : {"160x120", "320x240", "96x64"}) {
        const QString part = folder.filePath("part.ts");
        QVERIFY(media::encode({"-f", "lavfi", "-i", QStringLiteral("testsrc2=s=%1:d=1").arg(size),
                               "-c:v", "libx264", "-pix_fmt", "yuv420p", part}));
        QFile file(part);
        QVERIFY(file.open(QIODevice::ReadOnly));
        joined.write(file.readAll());
    }
    joined.close();
    compareThreadCounts(whole);
}

void TestThreads::missingStamps() {
    // A bare H.264 stream inside AVI with B-frames has packets without decoding time stamps.
    const QString path = folder.filePath("bare.avi");
    QVERIFY(media::encode({"-f", "lavfi", "-i", "testsrc2=s=160x120:d=2", "-c:v", "libx264", "-bf",
                           "3", "-bsf:v", "h264_mp4toannexb", "-pix_fmt", "yuv420p", path}));
    compareThreadCounts(path);
}

void TestThreads::startInTheMiddleOfAGroup() {
    // A transport stream cut at an arbitrary packet begins with pictures that lack their
    // references.
    const QString whole = folder.filePath("whole.ts");
    QVERIFY(media::encode({"-f", "lavfi", "-i", "testsrc2=s=320x240:d=4", "-c:v", "libx264", "-g",
                           "25", "-pix_fmt", "yuv420p", whole}));
    QFile file(whole);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray bytes = file.readAll();
    const QString cut = folder.filePath("cut.ts");
    QFile rest(cut);
    QVERIFY(rest.open(QIODevice::WriteOnly));
    rest.write(bytes.mid(bytes.size() / 188 / 3 * 188));
    rest.close();
    const QVector<Picture> expected = decode(cut, 1);
    QVERIFY(!expected.isEmpty());
    for (const int threads : {2, 3, 4, 8, 16}) {
        const QVector<Picture> found = decode(cut, threads);
        QCOMPARE(found.size(), expected.size());
        for (int i = 0; i < found.size(); ++i)
            QCOMPARE(found[i].time, expected[i].time);
    }
}

void TestThreads::wholeRecordings_data() {
    addFoldersOfRecordings();
}

void TestThreads::wholeRecordings() {
    QFETCH(QString, folder);
    QFETCH(int, count);
    KESTROVA_REQUIRE_FOLDER(folder);
    const QStringList names = recordingsIn(folder);
    QCOMPARE(names.size(), count);
    for (int i = 0; i < names.size(); ++i) {
        if (!isLeftOut(i))
            compareThreadCounts(folder + '/' + names[i]);
    }
}

QTEST_GUILESS_MAIN(TestThreads)
#include "test_threads.moc"
