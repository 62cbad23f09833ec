// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "framebudget.h"

#include "codeccontext.h"

extern "C" {
#include <libavutil/pixfmt.h>
}

#include <QtTest>

namespace {

/// A decoder's context whose pictures `memory` counts.
CodecContextPointer watchedContext(FrameBudget& memory) {
    const AVCodec* codec = avcodec_find_decoder(AV_CODEC_ID_MJPEG);
    CodecContextPointer context(avcodec_alloc_context3(codec));
    memory.watch(*context);
    return avcodec_open2(context.get(), codec, nullptr) < 0 ? nullptr : std::move(context);
}

/// What the decoder asks for: a picture, or null if it is refused. Its bytes are never touched, so
/// that the system need not have them.
AVFramePointer allocate(AVCodecContext& context, AVPixelFormat format, int width, int height) {
    context.pix_fmt = format;
    context.width = context.coded_width = width;
    context.height = context.coded_height = height;
    AVFramePointer picture(av_frame_alloc());
    picture->format = format;
    picture->width = width;
    picture->height = height;
    return context.get_buffer2(&context, picture.get(), 0) < 0 ? nullptr : std::move(picture);
}

} // namespace

class TestFrameBudget : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void sizes_data();
    void sizes();
    void twoPicturesMustFit_data();
    void twoPicturesMustFit();
    void picturesCountWhileTheyAreHeld();
    void referencesCountOnce();
    void picturesOutliveAll();
    void shortageIsNoted();
};

void TestFrameBudget::sizes_data() {
    QTest::addColumn<int>("format");
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("height");
    QTest::addColumn<qint64>("bytes");
    QTest::newRow("1080p") << int(AV_PIX_FMT_YUV420P) << 1920 << 1080 << qint64(3110400);
    QTest::newRow("10 bits") << int(AV_PIX_FMT_YUV420P10) << 1920 << 1080 << qint64(6220800);
    QTest::newRow("with alpha") << int(AV_PIX_FMT_BGRA) << 16000 << 16000 << qint64(1024000000);
    QTest::newRow("no format") << int(AV_PIX_FMT_NONE) << 1920 << 1080 << qint64(0);
    QTest::newRow("no size") << int(AV_PIX_FMT_YUV420P) << 0 << 0 << qint64(0);
    QTest::newRow("negative size") << int(AV_PIX_FMT_YUV420P) << -5 << 10 << qint64(0);
    QTest::newRow("beyond an int")
        << int(AV_PIX_FMT_RGBA64) << 20000 << 20000 << qint64(2147483647);
}

void TestFrameBudget::sizes() {
    QFETCH(int, format);
    QFETCH(int, width);
    QFETCH(int, height);
    QTEST(pictureBytes(format, width, height), "bytes");
}

void TestFrameBudget::twoPicturesMustFit_data() {
    QTest::addColumn<int>("format");
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("height");
    QTest::addColumn<bool>("isAllowed");
    QTest::newRow("small") << int(AV_PIX_FMT_YUV420P) << 320 << 240 << true;
    QTest::newRow("16000 x 16000") << int(AV_PIX_FMT_YUV420P) << 16000 << 16000 << true;
    QTest::newRow("16000 x 16000 with alpha") << int(AV_PIX_FMT_BGRA) << 16000 << 16000 << false;
    QTest::newRow("half of all") << int(AV_PIX_FMT_GRAY16) << 16000 << 15625 << true;
    QTest::newRow("a row more") << int(AV_PIX_FMT_GRAY16) << 16000 << 15626 << false;
}

void TestFrameBudget::twoPicturesMustFit() {
    QFETCH(int, format);
    QFETCH(int, width);
    QFETCH(int, height);
    QTEST(haveRoom(pictureBytes(format, width, height)), "isAllowed");
    FrameBudget memory;
    const CodecContextPointer context = watchedContext(memory);
    const AVFramePointer picture = allocate(*context, AVPixelFormat(format), width, height);
    QTEST(bool(picture), "isAllowed");
    QTEST(!memory.hasFailed(), "isAllowed");
    const QString refusal =
        QStringLiteral("pictures of %1 x %2 are too large").arg(width).arg(height);
    QCOMPARE(memory.errorText(), picture ? QString() : refusal);
}

void TestFrameBudget::picturesCountWhileTheyAreHeld() {
    FrameBudget memory;
    const CodecContextPointer context = watchedContext(memory);
    const auto next = [&] { return allocate(*context, AV_PIX_FMT_YUV420P, 16000, 16000); };
    AVFramePointer first = next();
    AVFramePointer second = next();
    QVERIFY(first && second);
    QVERIFY(!next());
    QVERIFY(memory.hasFailed());
    first.reset();
    QVERIFY(memory.hasFailed());
    memory.tryAgain();
    QVERIFY(!memory.hasFailed());
    QCOMPARE(memory.errorText(), QString());
    const AVFramePointer third = next();
    QVERIFY(third && !memory.hasFailed());
}

void TestFrameBudget::referencesCountOnce() {
    FrameBudget memory;
    const CodecContextPointer context = watchedContext(memory);
    AVFramePointer first = allocate(*context, AV_PIX_FMT_YUV420P, 16000, 16000);
    QVERIFY(first && av_frame_is_writable(first.get()));
    AVFramePointer reference(av_frame_clone(first.get()));
    QVERIFY(!av_frame_is_writable(first.get()));
    first.reset();
    QVERIFY(av_frame_is_writable(reference.get()));
    const AVFramePointer second = allocate(*context, AV_PIX_FMT_YUV420P, 16000, 16000);
    QVERIFY(second);
    QVERIFY(!allocate(*context, AV_PIX_FMT_YUV420P, 16000, 16000));
    reference.reset();
    QVERIFY(allocate(*context, AV_PIX_FMT_YUV420P, 16000, 16000));
}

void TestFrameBudget::picturesOutliveAll() {
    AVFramePointer picture;
    {
        FrameBudget memory;
        const CodecContextPointer context = watchedContext(memory);
        picture = allocate(*context, AV_PIX_FMT_GRAY8, 64, 48);
    }
    QVERIFY(picture);
    picture->data[0][0] = 7;
    picture.reset();
}

void TestFrameBudget::shortageIsNoted() {
    FrameBudget memory;
    memory.noteShortage();
    QVERIFY(memory.hasFailed());
    QCOMPARE(memory.errorText(), QString("out of memory"));
}

QTEST_GUILESS_MAIN(TestFrameBudget)
#include "test_framebudget.moc"
