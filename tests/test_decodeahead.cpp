// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "decodeahead.h"

#include "media.h"
#include "videodecoder.h"

#include <QTemporaryDir>
#include <QtTest>

class TestDecodeAhead : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void givesWhatTheDecoderGives_data();
    void givesWhatTheDecoderGives();
    void staysAtTheEnd();
    void canBeLeftAtAnyTime();

private:
    QTemporaryDir folder;
    QByteArray video;
};

void TestDecodeAhead::initTestCase() {
    const QString path = folder.filePath("video.mp4");
    QVERIFY(media::encode({"-f", "lavfi", "-i", "testsrc2=s=160x120:d=3", "-c:v", "libx264",
                           "-pix_fmt", "yuv420p", path}));
    video = path.toUtf8();
}

void TestDecodeAhead::givesWhatTheDecoderGives_data() {
    QTest::addColumn<bool>("isAhead");
    QTest::newRow("at the moment") << false;
    QTest::newRow("ahead") << true;
}

void TestDecodeAhead::givesWhatTheDecoderGives() {
    QFETCH(bool, isAhead);
    VideoDecoder plain(1);
    QVERIFY(plain.open(video.constData()));
    VideoDecoder decoder(1);
    QVERIFY(decoder.open(video.constData()));
    DecodeAhead pictures(decoder, isAhead);
    int count = 0;
    while (const FramePointer expected{plain.readFrame(true)}) {
        const Frame found = pictures.next();
        QVERIFY(found.isThere());
        QCOMPARE(found.time, expected->time);
        QCOMPARE(found.bytePosition, plain.bytePosition());
        ++count;
    }
    QVERIFY(count > 60);
    QVERIFY(!pictures.next().isThere());
}

void TestDecodeAhead::staysAtTheEnd() {
    VideoDecoder decoder(1);
    QVERIFY(decoder.open(video.constData()));
    DecodeAhead pictures(decoder, true);
    while (pictures.next().isThere()) {
    }
    for (int i = 0; i < 3; ++i)
        QVERIFY(!pictures.next().isThere());
}

void TestDecodeAhead::canBeLeftAtAnyTime() {
    for (int taken = 0; taken < 40; ++taken) {
        VideoDecoder decoder(2);
        QVERIFY(decoder.open(video.constData()));
        DecodeAhead pictures(decoder, true);
        for (int i = 0; i < taken; ++i)
            QVERIFY(pictures.next().isThere());
    }
}

QTEST_GUILESS_MAIN(TestDecodeAhead)
#include "test_decodeahead.moc"
