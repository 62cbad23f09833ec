// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "framesnapshot.h"

#include "frames.h"
#include "snapshotimage.h"

#include <QtTest>

#include <cstdint>

namespace {

std::shared_ptr<const DecodedFrame> greyFrame() {
    FramePointer frame = media::libraryFrame(AV_PIX_FMT_GRAY8, 64, 48);
    const QImage number = media::numberedPicture(45, QSize(64, 48));
    for (int y = 0; y < 48; ++y)
        std::copy_n(number.constScanLine(y), 64,
                    const_cast<std::uint8_t*>(frame->data()) + y * frame->stride());
    return frame;
}

} // namespace

class TestFrameSnapshot : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void shrinkingLetsGoOfTheFrame();
    void veryLargeFrameIsNotKept();
    void snapshotIsTheSmallPicture();
    void snapshotIsMadeOnce();
    void unreadablePictureBecomesANullImage();
};

void TestFrameSnapshot::shrinkingLetsGoOfTheFrame() {
    auto frame = greyFrame();
    const std::weak_ptr<const DecodedFrame> watched = frame;
    FrameSnapshot picture(std::move(frame));
    QVERIFY(!watched.expired());
    picture.shrink();
    QVERIFY(watched.expired());
    picture.shrink();
    QCOMPARE(picture.snapshot().size(), QSize(320, 240));
}

void TestFrameSnapshot::veryLargeFrameIsNotKept() {
    std::shared_ptr<const DecodedFrame> frame = media::libraryFrame(AV_PIX_FMT_GRAY8, 8000, 4500);
    const std::weak_ptr<const DecodedFrame> watched = frame;
    const QImage expected = snapshotImage(*frame);
    FrameSnapshot picture(std::move(frame));
    QVERIFY(watched.expired());
    QCOMPARE(picture.snapshot(), expected);
}

void TestFrameSnapshot::snapshotIsTheSmallPicture() {
    const auto frame = greyFrame();
    FrameSnapshot picture(frame);
    QCOMPARE(picture.snapshot(), snapshotImage(*frame));
}

void TestFrameSnapshot::snapshotIsMadeOnce() {
    FrameSnapshot picture(greyFrame());
    const QImage first = picture.snapshot();
    QCOMPARE(picture.snapshot().cacheKey(), first.cacheKey());
}

void TestFrameSnapshot::unreadablePictureBecomesANullImage() {
    FrameSnapshot picture(media::libraryFrame(AV_PIX_FMT_GRAY8, 640, 1));
    QVERIFY(picture.snapshot().isNull());
    QVERIFY(picture.snapshot().isNull());
}

QTEST_GUILESS_MAIN(TestFrameSnapshot)
#include "test_framesnapshot.moc"
