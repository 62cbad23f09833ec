// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "stretch.h"
#include "stretchpicture.h"

#include <QtTest>

/// Pictures that are decoded a second time.
class TestStretchPicture : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void saysWhyItCannotBeDecodedAgain_data();
    void saysWhyItCannotBeDecodedAgain();
};

void TestStretchPicture::saysWhyItCannotBeDecodedAgain_data() {
    QTest::addColumn<bool>("isShrunk");
    QTest::newRow("asked for") << false;
    QTest::newRow("made before") << true;
}

/// Its packets give no picture this time, whatever they gave the first time.
void TestStretchPicture::saysWhyItCannotBeDecodedAgain() {
    QFETCH(bool, isShrunk);
    const ParametersPointer parameters(avcodec_parameters_alloc());
    parameters->codec_type = AVMEDIA_TYPE_VIDEO;
    parameters->codec_id = AV_CODEC_ID_MJPEG;
    PictureMemory memory;
    const auto stream = std::make_shared<StretchStream>(*parameters, memory);
    const auto stretch = std::make_shared<Stretch>(stream);
    stretch->isLast = true;
    for (int i = 0; i < 2; ++i) {
        PacketPointer packet(av_packet_alloc());
        // More than is kept beside the packets in hand.
        QCOMPARE(av_new_packet(packet.get(), isShrunk ? 40 * 1024 * 1024 : 100), 0);
        std::fill_n(packet->data, packet->size, std::uint8_t(0));
        stretch->add({i, std::move(packet)});
    }
    StretchedPicture place;
    place.stretch = stretch;
    StretchPicture picture(place, std::make_shared<StretchCandidates>());
    QCOMPARE(picture.flaw(), QString());
    if (isShrunk)
        picture.shrink();
    QVERIFY(picture.snapshot().isNull());
    QCOMPARE(picture.flaw(), QString("its picture cannot be decoded once more"));
}

QTEST_GUILESS_MAIN(TestStretchPicture)
#include "test_stretchpicture.moc"
