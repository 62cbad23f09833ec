// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

// What packets tell of their pictures without being decoded.

#include "codedpictures.h"

#include "h264sets.h"
#include "libavpointers.h"
#include "media.h"
#include "mediafile.h"

#include <QMap>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QtTest>

#include <cstring>

namespace {

QVector<CodedPicture> picturesOf(const QString& path) {
    QVector<CodedPicture> all;
    MediaFile file(path.toUtf8());
    if (!file.isOpen())
        return all;
    CodedPictures pictures(*file.stream()->codecpar);
    while (const auto packet = file.packets().read())
        all.append(pictures.of(*packet->packet));
    return all;
}

QMap<int, int> countsOf(const QVector<CodedPicture>& pictures) {
    QMap<int, int> counts;
    for (const CodedPicture& picture : pictures)
        ++counts[picture.kind];
    return counts;
}

PacketBytes bytesOf(const QByteArray& bytes) {
    return {reinterpret_cast<const std::uint8_t*>(bytes.constData()), bytes.size()};
}

} // namespace

class TestCodedPictures : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void quantisersAreThoseOfTheEncoder_data();
    void quantisersAreThoseOfTheEncoder();
    void kindsOfOtherCodecs_data();
    void kindsOfOtherCodecs();
    void startCodesAreKeptOut();
    void hostileBytesAreBounded_data();
    void hostileBytesAreBounded();

private:
    QString path(const QString& name) const { return folder.filePath(name); }

    QTemporaryDir folder;
};

void TestCodedPictures::quantisersAreThoseOfTheEncoder_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<QString>("parameters");
    const QStringList none;
    QTest::newRow("arithmetic") << "a.mp4" << none << "bframes=3:b-pyramid=normal:ref=5:weightp=2";
    QTest::newRow("weighted") << "b.mkv" << none << "bframes=3:weightb=1:weightp=2:ref=16";
    QTest::newRow("variable lengths")
        << "c.mp4" << QStringList{"-profile:v", "baseline"} << "ref=3";
    QTest::newRow("fields") << "d.mkv" << none << "tff=1:bframes=2";
    QTest::newRow("start codes") << "e.ts" << none << "bframes=3:slices=4";
    QTest::newRow("full chroma") << "f.mkv" << QStringList{"-pix_fmt", "yuv444p"} << "bframes=2";
    QTest::newRow("intra refresh") << "g.mp4" << none << "intra-refresh=1:keyint=20";
    QTest::newRow("scaling lists") << "h.mp4" << none << "cqm=jvt:8x8dct=1";
}

/// The encoder was told to use the same for all blocks of all pictures.
void TestCodedPictures::quantisersAreThoseOfTheEncoder() {
    QFETCH(QString, name);
    QFETCH(QStringList, options);
    QFETCH(QString, parameters);
    const QString all = "keyint=20:ipratio=1:pbratio=1:aq-mode=0:mbtree=0:" + parameters;
    QVERIFY(media::encode(media::crossingBox(3, 1, 2) +
                          QStringList{"-c:v", "libx264", "-qp", "31", "-x264-params", all} +
                          options + QStringList{path(name)}));
    const QVector<CodedPicture> pictures = picturesOf(path(name));
    QCOMPARE(pictures.size(), 75);
    for (const CodedPicture& picture : pictures) {
        QVERIFY(picture.quantiser);
        QCOMPARE(*picture.quantiser, 31);
        QVERIFY(picture.kind > 0);
    }
    QVERIFY(countsOf(pictures).size() > 1);
}

void TestCodedPictures::kindsOfOtherCodecs_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QStringList>("codec");
    QTest::addColumn<int>("keys");
    QTest::newRow("HEVC")
        << "h.mp4" << QStringList{"-c:v",         "libx265",
                                  "-preset",      "ultrafast",
                                  "-x265-params", "keyint=25:bframes=0:scenecut=0:log-level=error"}
        << 3;
    QTest::newRow("MPEG-4") << "m.avi" << QStringList{"-c:v", "mpeg4",         "-g",
                                                      "25",   "-sc_threshold", "1000000000"}
                            << 3;
}

/// Pictures that need no other are a kind of their own.
void TestCodedPictures::kindsOfOtherCodecs() {
    QFETCH(QString, name);
    QFETCH(QStringList, codec);
    QFETCH(int, keys);
    QVERIFY(media::encode(media::crossingBox(3, 1, 2) + codec + QStringList{path(name)}));
    const QVector<CodedPicture> pictures = picturesOf(path(name));
    QCOMPARE(pictures.size(), 75);
    const QMap<int, int> counts = countsOf(pictures);
    // The first key frame may be one of another kind than the others.
    int ofKeys = 0;
    for (const CodedPicture& picture : pictures) {
        QVERIFY(!picture.quantiser);
        ofKeys += counts[picture.kind] <= keys ? 1 : 0;
    }
    QCOMPARE(ofKeys, keys);
}

void TestCodedPictures::startCodesAreKeptOut() {
    const QByteArray escaped = QByteArray::fromHex("0000030100000300000003");
    const auto plain = unescaped(bytesOf(escaped), 99);
    QCOMPARE(QByteArray(reinterpret_cast<const char*>(plain.data()), int(plain.size())),
             QByteArray::fromHex("0000010000000000"));
    QCOMPARE(unescaped(bytesOf(escaped), 3).size(), std::size_t(3));
}

void TestCodedPictures::hostileBytesAreBounded_data() {
    QTest::addColumn<int>("codec");
    QTest::newRow("H.264") << int(AV_CODEC_ID_H264);
    QTest::newRow("HEVC") << int(AV_CODEC_ID_HEVC);
    QTest::newRow("AV1") << int(AV_CODEC_ID_AV1);
}

/// Whatever there is, there is an answer, and soon.
void TestCodedPictures::hostileBytesAreBounded() {
    QFETCH(int, codec);
    QRandomGenerator random(7);
    const ParametersPointer parameters(avcodec_parameters_alloc());
    parameters->codec_id = AVCodecID(codec);
    CodedPictures pictures(*parameters);
    for (int i = 0; i < 20000; ++i) {
        const int size = int(random.bounded(80)) + 6;
        const PacketPointer packet(av_packet_alloc());
        av_new_packet(packet.get(), size);
        for (int at = 0; at < size; ++at)
            packet->data[at] = std::uint8_t(random.bounded(4) == 0 ? 0 : random.bounded(256));
        // Units of which there can be: sets and slices, also of all zeros.
        const char types[] = {0x67, 0x68, 0x65, 0x41, 0x01, 0x26, 0x0A, 0x32};
        std::memcpy(packet->data, "\0\0\1", 3);
        packet->data[3] = std::uint8_t(types[random.bounded(8)]);
        const CodedPicture picture = pictures.of(*packet);
        QVERIFY(picture.kind >= 0 && picture.kind < 64);
        QVERIFY(!picture.quantiser || (*picture.quantiser >= -36 && *picture.quantiser <= 51));
    }
}

QTEST_GUILESS_MAIN(TestCodedPictures)
#include "test_codedpictures.moc"
