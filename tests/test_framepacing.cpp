// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

// Which packet each picture comes with.

#include "codeccontext.h"
#include "framepacing.h"

#include <QtTest>

namespace {

constexpr qint64 none = -1;

FramePacing pacingOf(AVCodecID codec) {
    const CodecContextPointer context(avcodec_alloc_context3(nullptr));
    context->codec_id = codec;
    return FramePacing(*context);
}

QVector<qint64> places(FramePacing pacing, const QVector<qint64>& completedBy) {
    QVector<qint64> found;
    for (const qint64 packet : completedBy)
        found.append(pacing.placeOf(packet).value_or(none));
    return found;
}

} // namespace

class TestFramePacing : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void onlyTheFirstCounts();
    void theOthersComeLater();
    void noMoreThanAreHeldBack();
    void restarted();
};

void TestFramePacing::onlyTheFirstCounts() {
    QCOMPARE(places(pacingOf(AV_CODEC_ID_MPEG4), {0, 2, 2, 2, 3, 7}),
             QVector<qint64>({0, 2, none, none, 3, 7}));
}

void TestFramePacing::theOthersComeLater() {
    // Two are held back; a new sequence begins with packet 5.
    QCOMPARE(places(pacingOf(AV_CODEC_ID_HEVC), {2, 3, 4, 5, 5, 7, 8}),
             QVector<qint64>({2, 3, 4, 5, 6, 7, 8}));
    // Packets that complete none leave gaps, which nothing fills.
    QCOMPARE(places(pacingOf(AV_CODEC_ID_HEVC), {0, 4, 4, 9}), QVector<qint64>({0, 4, 5, 9}));
}

void TestFramePacing::noMoreThanAreHeldBack() {
    FramePacing pacing = pacingOf(AV_CODEC_ID_HEVC);
    // A stream with two pictures in each packet, which no encoder writes.
    for (qint64 packet = 0; packet < 1000; ++packet) {
        for (int i = 0; i < 2; ++i) {
            const auto place = pacing.placeOf(packet);
            QVERIFY(!place || (*place >= packet && *place < packet + 16));
            QVERIFY(place || (i == 1 && packet >= 15));
        }
    }
}

void TestFramePacing::restarted() {
    FramePacing pacing = pacingOf(AV_CODEC_ID_HEVC);
    QCOMPARE(pacing.placeOf(5).value_or(none), qint64(5));
    QCOMPARE(pacing.placeOf(5).value_or(none), qint64(6));
    pacing.restart();
    QCOMPARE(pacing.placeOf(5).value_or(none), qint64(5));
}

QTEST_GUILESS_MAIN(TestFramePacing)
#include "test_framepacing.moc"
