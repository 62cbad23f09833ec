// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "chunk.h"
#include "chunksnapshot.h"

#include <QtTest>

/// Pictures that are decoded a second time.
class TestChunkSnapshot : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void saysWhyItCannotBeDecodedAgain_data();
    void saysWhyItCannotBeDecodedAgain();
};

void TestChunkSnapshot::saysWhyItCannotBeDecodedAgain_data() {
    QTest::addColumn<bool>("isShrunk");
    QTest::newRow("asked for") << false;
    QTest::newRow("made before") << true;
}

/// Its packets give no picture this time, whatever they gave the first time.
void TestChunkSnapshot::saysWhyItCannotBeDecodedAgain() {
    QFETCH(bool, isShrunk);
    const ParametersPointer parameters(avcodec_parameters_alloc());
    parameters->codec_type = AVMEDIA_TYPE_VIDEO;
    parameters->codec_id = AV_CODEC_ID_MJPEG;
    FrameBudget memory;
    const auto stream = std::make_shared<ChunkStream>(*parameters, memory);
    const auto chunk = std::make_shared<Chunk>(stream);
    chunk->isLast = true;
    for (int i = 0; i < 2; ++i) {
        PacketPointer packet(av_packet_alloc());
        // More than is kept beside the packets in hand.
        QCOMPARE(av_new_packet(packet.get(), isShrunk ? 40 * 1024 * 1024 : 100), 0);
        std::fill_n(packet->data, packet->size, std::uint8_t(0));
        chunk->add({i, std::move(packet)});
    }
    Frame place;
    place.chunk = chunk;
    ChunkSnapshot picture(place, std::make_shared<ChunkCandidates>());
    QCOMPARE(picture.flaw(), QString());
    if (isShrunk)
        picture.shrink();
    QVERIFY(picture.snapshot().isNull());
    QCOMPARE(picture.flaw(), QString("its picture cannot be decoded once more"));
}

QTEST_GUILESS_MAIN(TestChunkSnapshot)
#include "test_chunksnapshot.moc"
