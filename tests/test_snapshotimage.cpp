// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "snapshotimage.h"

#include "frames.h"

extern "C" {
#include <libavutil/frame.h>
#include <libavutil/imgutils.h>
#include <libavutil/pixdesc.h>
}

#include <QtTest>

#include <cstdint>

namespace {

/// Turns a picture over in memory: same picture, every plane stored bottom-up.
void storeBottomUp(DecodedFrame& record) {
    AVFrame& frame = *record.frame;
    const auto format = AVPixelFormat(frame.format);
    const AVPixFmtDescriptor* description = av_pix_fmt_desc_get(format);
    for (int plane = 0; plane < av_pix_fmt_count_planes(format); ++plane) {
        const int shift = plane == 0 ? 0 : description->log2_chroma_h;
        const int rows = AV_CEIL_RSHIFT(frame.height, shift);
        const int bytes = av_image_get_linesize(format, frame.width, plane);
        std::uint8_t* top = frame.data[plane];
        std::uint8_t* bottom = top + std::ptrdiff_t(rows - 1) * frame.linesize[plane];
        for (int y = 0; y < rows / 2; ++y) {
            const std::ptrdiff_t offset = std::ptrdiff_t(y) * frame.linesize[plane];
            std::swap_ranges(top + offset, top + offset + bytes, bottom - offset);
        }
        frame.data[plane] = bottom;
        frame.linesize[plane] = -frame.linesize[plane];
    }
}

/// Each byte of each plane another one, the same ones in every call.
void fillWithNoise(DecodedFrame& record) {
    AVFrame& frame = *record.frame;
    const auto format = AVPixelFormat(frame.format);
    const AVPixFmtDescriptor* description = av_pix_fmt_desc_get(format);
    quint32 state = 1;
    for (int plane = 0; plane < av_pix_fmt_count_planes(format); ++plane) {
        const int rows = AV_CEIL_RSHIFT(frame.height, plane == 0 ? 0 : description->log2_chroma_h);
        for (int y = 0; y < rows; ++y) {
            std::uint8_t* row = frame.data[plane] + std::ptrdiff_t(y) * frame.linesize[plane];
            for (int x = 0; x < av_image_get_linesize(format, frame.width, plane); ++x) {
                state = state * 1664525 + 1013904223;
                row[x] = std::uint8_t(state >> 24);
            }
        }
    }
}

bool isNear(QRgb a, QRgb b) {
    return qAbs(qRed(a) - qRed(b)) <= 3 && qAbs(qGreen(a) - qGreen(b)) <= 3 &&
           qAbs(qBlue(a) - qBlue(b)) <= 3;
}

} // namespace

class TestSnapshotImage : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void is320PixelsWide_data();
    void is320PixelsWide();
    void showsColours();
    void showsLuma_data();
    void showsLuma();
    void keepsUpAndLeft();
    void bottomUpEqualsTopDown_data();
    void bottomUpEqualsTopDown();
    void nullWhereThereIsNoPicture_data();
    void nullWhereThereIsNoPicture();
};

void TestSnapshotImage::is320PixelsWide_data() {
    QTest::addColumn<QSize>("picture");
    QTest::addColumn<QSize>("snapshot");
    QTest::newRow("1080p") << QSize(1920, 1080) << QSize(320, 180);
    QTest::newRow("PAL") << QSize(720, 576) << QSize(320, 256);
    QTest::newRow("one pixel") << QSize(1, 1) << QSize(320, 320);
    QTest::newRow("as wide as the snapshot") << QSize(320, 240) << QSize(320, 240);
    QTest::newRow("narrower") << QSize(100, 30) << QSize(320, 96);
    QTest::newRow("truncated") << QSize(999, 500) << QSize(320, 160);     // 160.16
    QTest::newRow("truncated far") << QSize(641, 480) << QSize(320, 239); // 239.6
    QTest::newRow("upright") << QSize(480, 848) << QSize(320, 565);       // 565.3
    QTest::newRow("one row left") << QSize(640, 3) << QSize(320, 1);      // 1.5
    QTest::newRow("no row left") << QSize(640, 1) << QSize();             // 0.5
    QTest::newRow("higher than can be painted") << QSize(1, 200) << QSize();
}

void TestSnapshotImage::is320PixelsWide() {
    QFETCH(QSize, picture);
    QFETCH(QSize, snapshot);
    const FramePointer frame =
        media::libraryFrame(AV_PIX_FMT_YUV420P, picture.width(), picture.height());
    QVERIFY(frame != nullptr);
    const QImage image = snapshotImage(*frame);
    if (!snapshot.isValid()) {
        QVERIFY(image.isNull());
        return;
    }
    QCOMPARE(image.size(), snapshot);
    QCOMPARE(image.format(), QImage::Format_RGB32);
}

void TestSnapshotImage::showsColours() {
    const FramePointer frame = media::libraryFrame(AV_PIX_FMT_RGB24, 64, 48);
    for (int y = 0; y < 48; ++y) {
        for (int x = 0; x < 64; ++x) {
            std::uint8_t* pixel = frame->frame->data[0] + y * frame->frame->linesize[0] + 3 * x;
            pixel[0] = 200;
            pixel[1] = 100;
            pixel[2] = 30;
        }
    }
    const QImage image = snapshotImage(*frame);
    QCOMPARE(image.size(), QSize(320, 240));
    for (const QPoint& point : {QPoint(0, 0), QPoint(160, 120), QPoint(319, 239)})
        QVERIFY(isNear(image.pixel(point), qRgb(200, 100, 30)));
}

void TestSnapshotImage::showsLuma_data() {
    QTest::addColumn<int>("luma");
    QTest::addColumn<int>("grey");
    // The range of video is 16 to 235.
    QTest::newRow("black") << 16 << 0;
    QTest::newRow("grey") << 126 << 128; // (126 - 16) * 255 / 219
    QTest::newRow("white") << 235 << 255;
}

void TestSnapshotImage::showsLuma() {
    QFETCH(int, luma);
    QFETCH(int, grey);
    const FramePointer frame = media::libraryFrame(AV_PIX_FMT_YUV420P, 64, 48);
    const AVFrame& picture = *frame->frame;
    std::fill_n(picture.data[0], 48 * picture.linesize[0], std::uint8_t(luma));
    std::fill_n(picture.data[1], 24 * picture.linesize[1], std::uint8_t(128));
    std::fill_n(picture.data[2], 24 * picture.linesize[2], std::uint8_t(128));
    QVERIFY(isNear(snapshotImage(*frame).pixel(160, 120), qRgb(grey, grey, grey)));
}

void TestSnapshotImage::keepsUpAndLeft() {
    const FramePointer frame = media::libraryFrame(AV_PIX_FMT_GRAY8, 64, 48);
    const AVFrame& picture = *frame->frame;
    for (int y = 0; y < 24; ++y)
        std::fill_n(picture.data[0] + y * picture.linesize[0], 32, std::uint8_t(250));
    const QImage image = snapshotImage(*frame);
    QVERIFY(qGray(image.pixel(80, 60)) > 200);
    QVERIFY(qGray(image.pixel(240, 60)) < 50);
    QVERIFY(qGray(image.pixel(80, 180)) < 50);
    QVERIFY(qGray(image.pixel(240, 180)) < 50);
}

void TestSnapshotImage::bottomUpEqualsTopDown_data() {
    QTest::addColumn<int>("format");
    QTest::addColumn<QSize>("size");
    for (const AVPixelFormat format : {AV_PIX_FMT_BGR24, AV_PIX_FMT_BGRA, AV_PIX_FMT_RGB555LE,
                                       AV_PIX_FMT_GRAY8, AV_PIX_FMT_YUV420P, AV_PIX_FMT_YUYV422}) {
        for (const QSize& size : {QSize(320, 240), QSize(352, 288), QSize(101, 37)}) {
            QTest::addRow("%s, %dx%d", av_get_pix_fmt_name(format), size.width(), size.height())
                << int(format) << size;
        }
    }
}

void TestSnapshotImage::bottomUpEqualsTopDown() {
    QFETCH(int, format);
    QFETCH(QSize, size);
    const FramePointer frame =
        media::libraryFrame(AVPixelFormat(format), size.width(), size.height());
    fillWithNoise(*frame);
    const QImage topDown = snapshotImage(*frame);
    QVERIFY(!topDown.isNull());
    storeBottomUp(*frame);
    QVERIFY(frame->stride() < 0);
    QCOMPARE(snapshotImage(*frame), topDown);
}

void TestSnapshotImage::nullWhereThereIsNoPicture_data() {
    QTest::addColumn<int>("format");
    QTest::addColumn<QSize>("size");
    QTest::addColumn<bool>("hasData");
    QTest::newRow("no data") << int(AV_PIX_FMT_GRAY8) << QSize(64, 48) << false;
    QTest::newRow("no format") << int(AV_PIX_FMT_NONE) << QSize(64, 48) << true;
    QTest::newRow("unknown format") << 100000 << QSize(64, 48) << true;
    QTest::newRow("inside the hardware") << int(AV_PIX_FMT_VAAPI) << QSize(64, 48) << true;
    QTest::newRow("no columns") << int(AV_PIX_FMT_GRAY8) << QSize(0, 48) << true;
    QTest::newRow("no rows") << int(AV_PIX_FMT_GRAY8) << QSize(64, 0) << true;
    QTest::newRow("negative size") << int(AV_PIX_FMT_GRAY8) << QSize(-64, -48) << true;
}

void TestSnapshotImage::nullWhereThereIsNoPicture() {
    QFETCH(int, format);
    QFETCH(QSize, size);
    QFETCH(bool, hasData);
    media::HandMadeFrame frame(AV_PIX_FMT_GRAY8, 64, 48, 64);
    AVFrame& picture = *frame.record().frame;
    picture.format = format;
    picture.width = size.width();
    picture.height = size.height();
    if (!hasData)
        picture.data[0] = nullptr;
    QVERIFY(snapshotImage(frame).isNull());
}

QTEST_GUILESS_MAIN(TestSnapshotImage)
#include "test_snapshotimage.moc"
