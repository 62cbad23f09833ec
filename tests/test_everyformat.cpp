// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

// Every format that the encoder can write gives the pictures and times that the media libraries
// give when they open the file themselves, by its name.

#include "framestream.h"
#include "media.h"

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libavutil/imgutils.h>
}

#include <QCryptographicHash>
#include <QFileInfo>
#include <QMap>
#include <QTemporaryDir>
#include <QtTest>

namespace {

/// The times in seconds and what they show.
using Pictures = QVector<QPair<double, QByteArray>>;

/// A file as the media libraries open it by its name.
struct Demuxing {
    explicit Demuxing(const QString& path) {
        avformat_open_input(&format, path.toUtf8().constData(), nullptr, nullptr);
        if (format)
            avformat_find_stream_info(format, nullptr);
    }
    ~Demuxing() {
        avcodec_free_context(&codec);
        avformat_close_input(&format);
    }
    Demuxing(const Demuxing&) = delete;
    Demuxing& operator=(const Demuxing&) = delete;

    /// Finds the first video stream and opens its decoder; null if there is none.
    const AVStream* openStream() {
        for (unsigned i = 0; format && i < format->nb_streams; ++i) {
            const AVStream* stream = format->streams[i];
            if (stream->codecpar->codec_type != AVMEDIA_TYPE_VIDEO)
                continue;
            const AVCodec* decoder = avcodec_find_decoder(stream->codecpar->codec_id);
            codec = decoder ? avcodec_alloc_context3(decoder) : nullptr;
            if (!codec || avcodec_parameters_to_context(codec, stream->codecpar) < 0)
                return nullptr;
            codec->thread_count = 1;
            return avcodec_open2(codec, decoder, nullptr) < 0 ? nullptr : stream;
        }
        return nullptr;
    }

    AVFormatContext* format = nullptr;
    AVCodecContext* codec = nullptr;
};

QByteArray contentOf(const AVFrame& frame) {
    const auto pixels = AVPixelFormat(frame.format);
    QByteArray content(av_image_get_buffer_size(pixels, frame.width, frame.height, 1), '\0');
    av_image_copy_to_buffer(reinterpret_cast<std::uint8_t*>(content.data()), content.size(),
                            frame.data, frame.linesize, pixels, frame.width, frame.height, 1);
    return QByteArray::number(frame.format) + ' ' + QByteArray::number(frame.width) + ' ' +
           QCryptographicHash::hash(content, QCryptographicHash::Md5);
}

/// The first picture that each packet completes, with the packet's time in seconds.
Pictures readPlainly(const QString& path) {
    Pictures pictures;
    Demuxing file(path);
    const AVStream* stream = file.openStream();
    AVPacket* packet = av_packet_alloc();
    AVFrame* frame = av_frame_alloc();
    while (stream && av_read_frame(file.format, packet) >= 0) {
        if (packet->stream_index == stream->index && packet->size > 0) {
            avcodec_send_packet(file.codec, packet);
            bool isFirst = true;
            while (avcodec_receive_frame(file.codec, frame) >= 0) {
                if (isFirst)
                    pictures.append(
                        {double(packet->dts) * av_q2d(stream->time_base), contentOf(*frame)});
                isFirst = false;
            }
        }
        av_packet_unref(packet);
    }
    av_frame_free(&frame);
    av_packet_free(&packet);
    return pictures;
}

Pictures read(const QString& path) {
    Pictures pictures;
    FramePlan plan;
    plan.threads = 1;
    FrameStream frames(path.toUtf8(), plan);
    for (Frame frame = frames.next(); frame.isThere(); frame = frames.next())
        pictures.append({frame.time, contentOf(*frame.picture->frame)});
    return pictures;
}

/// What some formats want beside their own defaults.
const QMap<QString, QStringList> formatOptions = {
    {"dnxhd", {"-s", "1920x1080", "-c:v", "dnxhd", "-b:v", "120M", "-pix_fmt", "yuv422p"}},
    {"filmstrip", {"-pix_fmt", "rgba"}},
    {"ico", {"-c:v", "png"}},
    {"ljpg", {"-c:v", "ljpeg", "-pix_fmt", "bgr24"}},
    {"mxf_opatom", {"-s", "1920x1080", "-c:v", "dnxhd", "-b:v", "120M", "-pix_fmt", "yuv422p"}},
    {"roq", {"-r", "30"}},
};

/// Encodes pictures of a size that the format takes.
bool encodeAs(const QString& format, const QStringList& options, const QString& path) {
    for (const char* size : {"176x144", "720x576"}) {
        const QString scene = QStringLiteral("testsrc2=s=%1:r=25:d=0.24").arg(size);
        if (media::tryEncode(QStringList{"-f", "lavfi", "-i", scene} + options +
                             QStringList{"-f", format, path}) &&
            QFileInfo(path).size() > 0)
            return true;
    }
    return false;
}

} // namespace

class TestEveryFormat : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QVERIFY(folder.isValid()); }

    void recordings_data();
    void recordings();
    void singlePictures_data();
    void singlePictures();
    void mostOfThemHadPictures();

private:
    void compare(const QString& path);

    QTemporaryDir folder;
    int recordingCount = 0; ///< with two pictures or more
    int singleCount = 0;    ///< with one
};

void TestEveryFormat::recordings_data() {
    QTest::addColumn<QString>("extension");
    void* place = nullptr;
    while (const AVOutputFormat* muxer = av_muxer_iterate(&place)) {
        // Those that write no file of their own make playlists, or send to an address.
        if (muxer->video_codec != AV_CODEC_ID_NONE && (muxer->flags & AVFMT_NOFILE) == 0)
            QTest::newRow(muxer->name) << QString(muxer->extensions).section(',', 0, 0);
    }
}

void TestEveryFormat::recordings() {
    QFETCH(QString, extension);
    const QString format = QTest::currentDataTag();
    const QString path = folder.filePath(format + '.' + extension);
    if (!encodeAs(format, formatOptions.value(format), path))
        QSKIP("the encoder cannot write it");
    compare(path);
}

void TestEveryFormat::singlePictures_data() {
    QTest::addColumn<QString>("path");
    const AVOutputFormat* images = av_guess_format("image2", nullptr, nullptr);
    const QStringList extensions = QString(images->extensions).split(',');
    for (const QString& extension : extensions)
        QTest::newRow(qPrintable(extension)) << folder.filePath("picture." + extension);
}

void TestEveryFormat::singlePictures() {
    QFETCH(QString, path);
    const QStringList options = {"-frames:v", "1", "-update", "1"};
    if (!encodeAs("image2", options + formatOptions.value(QTest::currentDataTag()), path))
        QSKIP("the encoder cannot write it");
    compare(path);
}

void TestEveryFormat::mostOfThemHadPictures() {
    QVERIFY2(recordingCount >= 45, qPrintable(QString::number(recordingCount)));
    QVERIFY2(singleCount >= 25, qPrintable(QString::number(singleCount)));
}

void TestEveryFormat::compare(const QString& path) {
    const Pictures expected = readPlainly(path);
    const Pictures actual = read(path);
    QCOMPARE(actual.size(), expected.size());
    QVERIFY(actual == expected);
    recordingCount += expected.size() > 1 ? 1 : 0;
    singleCount += expected.size() == 1 ? 1 : 0;
}

QTEST_GUILESS_MAIN(TestEveryFormat)
#include "test_everyformat.moc"
