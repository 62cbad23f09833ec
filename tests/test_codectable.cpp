// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "codectable.h"

#include "libavpointers.h"

#include <QSet>
#include <QtTest>

class TestCodecTable : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyRow_data();
    void everyRow();
    void codecsStandOnce();
    void othersAreDecodedPlainly();
};

void TestCodecTable::everyRow_data() {
    QTest::addColumn<int>("row");
    for (std::size_t i = 0; i < codecTable().size(); ++i)
        QTest::newRow(avcodec_get_name(codecTable()[i].codec)) << int(i);
}

/// What it says holds of the libraries' decoder, and of itself.
void TestCodecTable::everyRow() {
    QFETCH(int, row);
    const CodecTraits& traits = codecTable()[std::size_t(row)];
    const AVCodec* decoder = avcodec_find_decoder(traits.codec);
    QVERIFY(decoder);
    QCOMPARE(decoder->type, AVMEDIA_TYPE_VIDEO);
    const int threads = traits.threading == DecoderThreading::Frame
                            ? AV_CODEC_CAP_FRAME_THREADS
                            : AV_CODEC_CAP_SLICE_THREADS | AV_CODEC_CAP_OTHER_THREADS;
    if (traits.threading != DecoderThreading::One)
        QVERIFY((decoder->capabilities & threads) != 0);
    const bool hasIntraAlone =
        (avcodec_descriptor_get(traits.codec)->props & AV_CODEC_PROP_INTRA_ONLY) != 0;
    QVERIFY(hasIntraAlone || traits.chunks != ChunkGain::Intra);
    // Frame threads are what chunks of ordinary codecs are measured against, and the way back from
    // them begins at a random access point.
    QCOMPARE(traits.chunks == ChunkGain::Ordinary, traits.threading == DecoderThreading::Frame);
    QVERIFY(traits.accessPoints || traits.chunks == ChunkGain::None);
    if (traits.accessPoints)
        QVERIFY(traits.accessPoints(PacketBytes()) != nullptr);
}

void TestCodecTable::codecsStandOnce() {
    QSet<int> codecs;
    for (const CodecTraits& traits : codecTable())
        codecs.insert(traits.codec);
    QCOMPARE(std::size_t(codecs.size()), codecTable().size());
    QVERIFY(!codecs.contains(AV_CODEC_ID_NONE));
}

void TestCodecTable::othersAreDecodedPlainly() {
    const CodecTraits known = traitsOf(AV_CODEC_ID_HEVC);
    QCOMPARE(known.codec, AV_CODEC_ID_HEVC);
    QCOMPARE(known.threading, DecoderThreading::Frame);
    for (const AVCodecID codec : {AV_CODEC_ID_CINEPAK, AV_CODEC_ID_H263, AV_CODEC_ID_NONE}) {
        const CodecTraits traits = traitsOf(codec);
        QCOMPARE(traits.threading, DecoderThreading::One);
        QCOMPARE(traits.chunks, ChunkGain::None);
        QVERIFY(!traits.accessPoints);
    }
}

QTEST_GUILESS_MAIN(TestCodecTable)
#include "test_codectable.moc"
