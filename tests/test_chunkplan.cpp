// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "chunkplan.h"

#include "cellgrid.h"
#include "framebudget.h"
#include "libavpointers.h"

#include <QSize>
#include <QtTest>

class TestChunkPlan : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void workers_data();
    void workers();
    void packetsAreBounded();
    void cellsAreBounded();
};

namespace {

ChunkPlan planFor(AVCodecID codec, const QSize& size, int threads) {
    const ParametersPointer parameters(avcodec_parameters_alloc());
    parameters->codec_id = codec;
    parameters->format = AV_PIX_FMT_YUV420P;
    parameters->width = size.width();
    parameters->height = size.height();
    return planChunks(*parameters, threads);
}

} // namespace

void TestChunkPlan::workers_data() {
    QTest::addColumn<int>("codec");
    QTest::addColumn<QSize>("size");
    QTest::addColumn<int>("threads");
    QTest::addColumn<int>("expected");
    const auto row = [](const char* name, AVCodecID codec, int width, int height, int threads,
                        int expected) {
        QTest::newRow(name) << int(codec) << QSize(width, height) << threads << expected;
    };
    row("one thread", AV_CODEC_ID_H264, 1920, 1080, 1, 0);
    row("two", AV_CODEC_ID_H264, 1920, 1080, 2, 2);
    row("more than a decoder is given", AV_CODEC_ID_H264, 640, 360, 64, 16);
    row("4K whose pictures need others", AV_CODEC_ID_HEVC, 3840, 2160, 8, 0);
    row("4K whose pictures do not", AV_CODEC_ID_MJPEG, 3840, 2160, 2, 2);
    row("4K, a decoder without threads across pictures", AV_CODEC_ID_AV1, 3840, 2160, 2, 2);
    row("larger than what is kept", AV_CODEC_ID_MJPEG, 8000, 6000, 4, 0);
    row("never tried", AV_CODEC_ID_CINEPAK, 640, 360, 4, 0);
    row("slower than with shared pictures", AV_CODEC_ID_MPEG2VIDEO, 1920, 1080, 4, 0);
    row("of unknown size", AV_CODEC_ID_H264, 0, 0, 4, 0);
}

void TestChunkPlan::workers() {
    QFETCH(int, codec);
    QFETCH(QSize, size);
    QFETCH(int, threads);
    QFETCH(int, expected);
    QCOMPARE(planFor(AVCodecID(codec), size, threads).workers, expected);
}

void TestChunkPlan::packetsAreBounded() {
    for (const int threads : {2, 4, 8, 16}) {
        const ChunkPlan plan = planFor(AV_CODEC_ID_H264, QSize(640, 360), threads);
        // One for each worker, and one that is being read.
        QVERIFY(plan.mostBytes * (plan.workers + 1) <= plan.bytesInHand);
        QVERIFY(plan.bytesInHand <= (threads + 1) * qint64(16 << 20));
        QVERIFY(plan.fewestPackets < plan.mostPackets);
    }
}

/// A group of an ordinary length for each thread, and no more than half of what packets may take.
void TestChunkPlan::cellsAreBounded() {
    for (const QSize& size :
         {QSize(1920, 1080), QSize(640, 480), QSize(1080, 1920), QSize(64, 48)}) {
        const ChunkPlan plan = planFor(AV_CODEC_ID_H264, size, 16);
        const int cells = cellGridOf(size.width(), size.height()).count();
        QVERIFY(qint64(plan.cellsInHand) * cells * 2 <= plan.bytesInHand / 2);
        QVERIFY(plan.cellsInHand >= plan.workers * (size.width() < size.height() ? 90 : 150));
    }
}

QTEST_GUILESS_MAIN(TestChunkPlan)
#include "test_chunkplan.moc"
