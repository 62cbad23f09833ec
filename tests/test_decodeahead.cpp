// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "decodeahead.h"

#include "decodingcontext.h"
#include "media.h"

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
    MediaFile plainFile(video);
    DecodingContext plain(plainFile, {});
    MediaFile file(video);
    DecodingContext decoder(file, {});
    DecodeAhead frames(decoder, isAhead);
    int count = 0;
    for (Frame expected = plain.next(); expected.isThere(); expected = plain.next()) {
        const Frame found = frames.next();
        QVERIFY(found.isThere());
        QCOMPARE(found.time, expected.time);
        QCOMPARE(found.bytePosition, plainFile.bytePosition());
        ++count;
    }
    QVERIFY(count > 60);
    QVERIFY(!frames.next().isThere());
}

void TestDecodeAhead::staysAtTheEnd() {
    MediaFile file(video);
    DecodingContext decoder(file, {});
    DecodeAhead frames(decoder, true);
    while (frames.next().isThere()) {
    }
    for (int i = 0; i < 3; ++i)
        QVERIFY(!frames.next().isThere());
}

void TestDecodeAhead::canBeLeftAtAnyTime() {
    for (int taken = 0; taken < 40; ++taken) {
        MediaFile file(video);
        DecodingOptions options;
        options.threads = 2;
        DecodingContext decoder(file, options);
        DecodeAhead frames(decoder, true);
        for (int i = 0; i < taken; ++i)
            QVERIFY(frames.next().isThere());
    }
}

QTEST_GUILESS_MAIN(TestDecodeAhead)
#include "test_decodeahead.moc"
