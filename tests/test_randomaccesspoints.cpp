// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "randomaccesspoints.h"

#include "files.h"
#include "libavpointers.h"
#include "logging.h"
#include "media.h"
#include "mediafile.h"

#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QtTest>

#include <algorithm>
#include <cstring>

#include <sys/mman.h>

namespace {

using Access = PacketKind::Access;

PacketPointer packetOf(const QByteArray& bytes, int flags) {
    PacketPointer packet(av_packet_alloc());
    av_new_packet(packet.get(), bytes.size());
    std::memcpy(packet->data, bytes.constData(), std::size_t(bytes.size()));
    packet->flags = flags;
    return packet;
}

RandomAccessPoints accessPointsOf(AVCodecID codec, const QByteArray& header) {
    const ParametersPointer parameters(avcodec_parameters_alloc());
    parameters->codec_id = codec;
    parameters->extradata = static_cast<std::uint8_t*>(av_mallocz(std::size_t(header.size()) + 64));
    std::memcpy(parameters->extradata, header.constData(), std::size_t(header.size()));
    parameters->extradata_size = header.size();
    return RandomAccessPoints(*parameters);
}

/// A stream of packets that are written down, each byte as two hexadecimal digits.
class Stream {
public:
    explicit Stream(AVCodecID codec, const QByteArray& header = {})
        : accessPoints(accessPointsOf(codec, QByteArray::fromHex(header))) {}

    PacketKind next(const QByteArray& bytes, int flags = AV_PKT_FLAG_KEY) {
        return accessPoints.next(*packetOf(QByteArray::fromHex(bytes), flags));
    }

    Access access(const QByteArray& bytes, int flags = AV_PKT_FLAG_KEY) {
        return next(bytes, flags).access;
    }

    PacketKind of(const AVPacket& packet) { return accessPoints.next(packet); }

private:
    RandomAccessPoints accessPoints;
};

/// A packet of a recording, and what it was found to be.
struct FoundPacket {
    PacketKind kind;
    std::int64_t shownAt;
    bool isKey; ///< as the container says
};

QVector<FoundPacket> packetsOf(const QString& path) {
    QVector<FoundPacket> packets;
    MediaFile file(path.toUtf8());
    if (!file.isOpen())
        return packets;
    RandomAccessPoints accessPoints(*file.stream()->codecpar);
    while (const auto packet = file.packets().read())
        packets.append({accessPoints.next(*packet->packet), packet->packet->pts,
                        (packet->packet->flags & AV_PKT_FLAG_KEY) != 0});
    return packets;
}

QVector<int> placesOf(const QVector<FoundPacket>& packets, Access access) {
    QVector<int> places;
    for (int i = 0; i < packets.size(); ++i) {
        if (packets[i].kind.access == access)
            places.append(i);
    }
    return places;
}

/// Those that the container shows before the key frame that they follow at once.
QVector<int> shownBeforeTheirKey(const QVector<FoundPacket>& packets) {
    QVector<int> places;
    int key = -1;
    for (int i = 0; i < packets.size(); ++i) {
        if (packets[i].isKey)
            key = i;
        else if (key >= 0 && packets[i].shownAt < packets[key].shownAt)
            places.append(i);
        else
            key = -1;
    }
    return places;
}

QVector<int> leadingOf(const QVector<FoundPacket>& packets) {
    QVector<int> places;
    for (int i = 0; i < packets.size(); ++i) {
        if (packets[i].kind.isLeading)
            places.append(i);
    }
    return places;
}

QVector<int> every(int step, int count) {
    QVector<int> places;
    for (int i = 0; i < count; i += step)
        places.append(i);
    return places;
}

} // namespace

class TestRandomAccessPoints : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void h264BeginsAtARefreshAlone();
    void h264InsideAContainer();
    void parameterSetsThatChange();
    void moreSetsThanTheCodecAllows_data();
    void moreSetsThanTheCodecAllows();
    void setsThatAreTooLarge();
    void hevcKnowsRefreshAndRandomAccess();
    void hevcLeadingPictures();
    void mpeg2GroupsAreClosedOrOpen();
    void mpeg2SequenceHeadersThatChange();
    void mpeg4BeginsAtIntraPictures();
    void mpeg4HeadersThatChange();
    void keyFlagsAreNotEnough_data();
    void keyFlagsAreNotEnough();
    void av1SequenceHeaders();
    void jpegWithoutItsTables();
    void packetsOfMoreBitsThanAnIntCounts();
    void damagedPacketsAreSuspect();
    void unknownCodecsHaveNone();
    void generatedStreams_data();
    void generatedStreams();
    void falseKeyFlags();
    void recoveryPointsAreNone();
    void intraRefreshHasNone();
    void anyBytes();

private:
    QTemporaryDir folder;
};

void TestRandomAccessPoints::initTestCase() {
    routeLibavLog();
}

// Units of type 7, 8, 6, 5, 1 and 10: a sequence and a picture set, a message, a refresh, another
// picture, an end of the sequence.
void TestRandomAccessPoints::h264BeginsAtARefreshAlone() {
    Stream stream(AV_CODEC_ID_H264);
    QCOMPARE(stream.access("000001 6764001eac 000001 68ee3c80 000001 65888400"), Access::ClosedGop);
    QCOMPARE(stream.access("000001 419a2100"), Access::None);
    // A recovery point: the container calls it a key frame.
    QCOMPARE(stream.access("000001 0606018440 000001 419a2100"), Access::None);
    QCOMPARE(stream.access("00000001 6764001eac 00000001 68ee3c80 00000001 65888400"),
             Access::ClosedGop);
    const PacketKind last = stream.next("000001 65888400 000001 0a");
    QVERIFY(last.isDiscontinuity);
    QCOMPARE(last.access, Access::None);
}

void TestRandomAccessPoints::h264InsideAContainer() {
    // One set of each kind; units behind four bytes that tell their length.
    Stream stream(AV_CODEC_ID_H264, "0164001effe10005 6764001eac 010004 68ee3c80");
    QCOMPARE(stream.access("00000003 658884"), Access::ClosedGop);
    QCOMPARE(stream.access("00000002 0605 00000003 658884"), Access::ClosedGop);
    QCOMPARE(stream.access("00000003 419a21"), Access::None);
    QCOMPARE(stream.access("000000ff 658884"), Access::None);
}

void TestRandomAccessPoints::parameterSetsThatChange() {
    Stream stream(AV_CODEC_ID_H264, "0164001effe10005 6764001eac 010004 68ee3c80");
    const char* changing = "00000005 6764001ead 00000003 658884";
    const char* plain = "00000003 658884";
    QCOMPARE(stream.access(plain), Access::ClosedGop);
    QCOMPARE(stream.access(changing), Access::None);
    // A decoder that begins here knows the first set alone.
    QCOMPARE(stream.access(plain), Access::None);
    QCOMPARE(stream.access(changing), Access::ClosedGop);
    QCOMPARE(stream.access("00000005 6764001eac 00000003 658884"), Access::None);
    QCOMPARE(stream.access(plain), Access::ClosedGop);
    // Another number, though the set is new, too.
    QCOMPARE(stream.access("00000004 685e3c80 00000003 658884"), Access::None);
}

namespace {

/// `start`, the number as Exp-Golomb code and a bit that ends it, behind a prefix; as hexadecimal
/// digits.
QByteArray setWithNumber(const QByteArray& start, int number) {
    const QByteArray digits = QByteArray::number(number + 1, 2);
    QByteArray bits = QByteArray(digits.size() - 1, '0') + digits + '1';
    bits += QByteArray((8 - bits.size() % 8) % 8, '0');
    QByteArray set = "000001" + start;
    for (int i = 0; i < bits.size(); i += 8)
        set += QByteArray(1, char(bits.mid(i, 8).toInt(nullptr, 2))).toHex();
    return set + "ff";
}

/// Sets with the numbers from 0 up to `count`.
QByteArray setsWithNumbers(const QByteArray& start, int count) {
    QByteArray sets;
    for (int i = 0; i < count; ++i)
        sets += setWithNumber(start, i);
    return sets;
}

} // namespace

void TestRandomAccessPoints::moreSetsThanTheCodecAllows_data() {
    QTest::addColumn<int>("codec");
    QTest::addColumn<QByteArray>("allowed");
    QTest::addColumn<QByteArray>("another");
    QTest::addColumn<QByteArray>("picture");
    const auto row = [](const char* name, AVCodecID codec, const QByteArray& allowed,
                        const QByteArray& another, const char* picture) {
        QTest::newRow(name) << int(codec) << allowed << another << QByteArray(picture);
    };
    const char* refresh264 = "000001 658884";
    row("H.264, sequences", AV_CODEC_ID_H264, setsWithNumbers("6764001e", 32),
        setWithNumber("6764001e", 32), refresh264);
    row("H.264, pictures", AV_CODEC_ID_H264, setsWithNumbers("68", 256), setWithNumber("68", 256),
        refresh264);
    const char* refresh265 = "000001 2601af";
    row("HEVC, pictures", AV_CODEC_ID_HEVC, setsWithNumbers("4401", 64), setWithNumber("4401", 64),
        refresh265);
    const char* intra = "000001b6 10c0ffffffff";
    row("MPEG-4", AV_CODEC_ID_MPEG4, QByteArray("000001b24c").repeated(64), "000001b24c", intra);
}

void TestRandomAccessPoints::moreSetsThanTheCodecAllows() {
    QFETCH(int, codec);
    QFETCH(QByteArray, allowed);
    QFETCH(QByteArray, another);
    QFETCH(QByteArray, picture);
    Stream full(AVCodecID(codec), allowed);
    QVERIFY(full.access(picture) != Access::None);
    QVERIFY(full.access(allowed + picture) != Access::None);
    QCOMPARE(full.access(allowed + another + picture), Access::None);
    QCOMPARE(full.access(picture), Access::None);
    Stream over(AVCodecID(codec), allowed + another);
    QCOMPARE(over.access(picture), Access::None);
    QCOMPARE(over.access(picture), Access::None);
}

void TestRandomAccessPoints::setsThatAreTooLarge() {
    const QByteArray refresh = "000001 658884";
    const QByteArray set = "000001 6764001eac";
    Stream stream(AV_CODEC_ID_H264, set + QByteArray(2000, 'f'));
    QCOMPARE(stream.access(refresh), Access::ClosedGop);
    Stream large(AV_CODEC_ID_H264, set + QByteArray(200000, 'f'));
    QCOMPARE(large.access(refresh), Access::None);
}

// Types: 19 and 20 are refreshes, 21 is random access, 1 is a trailing picture, 16 is a broken
// link.
void TestRandomAccessPoints::hevcKnowsRefreshAndRandomAccess() {
    Stream stream(AV_CODEC_ID_HEVC);
    QCOMPARE(stream.access("000001 2601af"), Access::ClosedGop);
    QCOMPARE(stream.access("000001 2801af"), Access::ClosedGop);
    QCOMPARE(stream.access("000001 2a01af"), Access::OpenGop);
    QCOMPARE(stream.access("000001 2001af"), Access::None);
    QCOMPARE(stream.access("000001 0201d0"), Access::None);
    // Pictures before it are not to be shown: the second bit of the slice.
    QCOMPARE(stream.access("000001 2601ef"), Access::None);
    // Another layer's refresh.
    QCOMPARE(stream.access("000001 2609af 000001 0201d0"), Access::None);
    QVERIFY(stream.next("000001 2601af 000001 4801").isDiscontinuity);
}

void TestRandomAccessPoints::hevcLeadingPictures() {
    Stream stream(AV_CODEC_ID_HEVC);
    const char* skipped = "000001 1001d0";   // 8
    const char* decodable = "000001 0c01d0"; // 6
    const char* trailing = "000001 0201d0";
    QVERIFY(!stream.next("000001 2801af").isLeading);
    QVERIFY(!stream.next(decodable).isLeading); // needs nothing from before the refresh
    QCOMPARE(stream.access("000001 2a01af"), Access::OpenGop);
    QVERIFY(stream.next(skipped).isLeading);
    QVERIFY(stream.next(decodable).isLeading);
    QVERIFY(!stream.next(trailing).isLeading);
    QVERIFY(!stream.next(skipped).isLeading);
}

// Codes: b3 sequence, b8 group (bit 25 behind it: closed), 00 picture (behind ten bits its type).
void TestRandomAccessPoints::mpeg2GroupsAreClosedOrOpen() {
    Stream stream(AV_CODEC_ID_MPEG2VIDEO);
    const char* sequence = "000001b3 14009013ffffe018 ";
    const auto key = [&](const char* group) {
        return QByteArray(sequence) + group + "00000100 000fffff";
    };
    const char* bidirectional = "00000100 001fffff";
    const char* predicted = "00000100 0097ffff";
    QCOMPARE(stream.access(key("000001b8 00080040")), Access::ClosedGop);
    QVERIFY(!stream.next(bidirectional).isLeading);
    QCOMPARE(stream.access(key("000001b8 00080000")), Access::OpenGop);
    QVERIFY(stream.next(bidirectional).isLeading);
    QVERIFY(stream.next(bidirectional).isLeading);
    QVERIFY(!stream.next(predicted).isLeading);
    QVERIFY(!stream.next(bidirectional).isLeading);
    // Without the sequence header there is nothing to begin with.
    QCOMPARE(stream.access("00000100 000fffff"), Access::None);
    QCOMPARE(stream.access(key("")), Access::OpenGop);
    QVERIFY(stream.next(key("000001b8 00080040") + "000001b7").isDiscontinuity);
}

void TestRandomAccessPoints::mpeg2SequenceHeadersThatChange() {
    Stream stream(AV_CODEC_ID_MPEG2VIDEO);
    QVERIFY(!stream.next("000001b3 14009013ffffe018 00000100 000fffff").isDiscontinuity);
    const PacketKind other = stream.next("000001b3 28012013ffffe018 00000100 000fffff");
    QVERIFY(other.isDiscontinuity);
    QCOMPARE(other.access, Access::None);
}

// Codes: b6 picture, whose first two bits are its kind; 20 layer; b2 user data; b3 group.
void TestRandomAccessPoints::mpeg4BeginsAtIntraPictures() {
    Stream stream(AV_CODEC_ID_MPEG4, "000001b001 000001b58913 00000100 00000120 00c48d88");
    QCOMPARE(stream.access("000001b6 10c0ffffffff"), Access::OpenGop);
    QVERIFY(stream.next("000001b6 90c0ffffffff").isLeading);
    QVERIFY(!stream.next("000001b6 50c0ffffffff").isLeading);
    QCOMPARE(stream.access("000001b6 50c0ffffffff"), Access::None); // the container says key
    // A closed group is none here, either.
    QCOMPARE(stream.access("000001b3 00102307 000001b6 10c0ffffffff"), Access::OpenGop);
    QVERIFY(stream.next("000001b6 5f").isDiscontinuity);
}

void TestRandomAccessPoints::mpeg4HeadersThatChange() {
    const char* layer = "00000120 00c48d88 000001b6 10c0ffffffff";
    const char* other = "00000120 00c48d89 000001b6 10c0ffffffff";
    Stream stream(AV_CODEC_ID_MPEG4);
    QCOMPARE(stream.access(layer), Access::OpenGop);
    QCOMPARE(stream.access(layer), Access::OpenGop);
    // It does not stand in the headers.
    QCOMPARE(stream.access("000001b6 10c0ffffffff"), Access::None);
    QVERIFY(stream.next(other).isDiscontinuity);
    Stream named(AV_CODEC_ID_MPEG4, "00000120 00c48d88 000001b2 4c617663");
    QCOMPARE(named.access(layer), Access::OpenGop);
    QVERIFY(named.next("000001b2 58766944 000001b6 10c0ffffffff").isDiscontinuity);
}

void TestRandomAccessPoints::keyFlagsAreNotEnough_data() {
    QTest::addColumn<int>("codec");
    QTest::addColumn<QByteArray>("key");
    QTest::addColumn<QByteArray>("other");
    const auto row = [](const char* name, AVCodecID codec, const char* key, const char* other) {
        QTest::newRow(name) << int(codec) << QByteArray(key) << QByteArray(other);
    };
    // The lowest bit of the first byte, and what follows in three bytes.
    row("VP8", AV_CODEC_ID_VP8, "50ab009d012ab000900000", "51ab009d012ab000900000");
    // Marker 10, profile 00, not repeated, then the kind.
    row("VP9", AV_CODEC_ID_VP9, "82498342", "86498342");
    row("VP9 repeated", AV_CODEC_ID_VP9, "82498342", "88498342");
    row("VP9 of profile 3", AV_CODEC_ID_VP9, "b0498342", "b2498342");
}

void TestRandomAccessPoints::keyFlagsAreNotEnough() {
    QFETCH(int, codec);
    QFETCH(QByteArray, key);
    QFETCH(QByteArray, other);
    Stream stream{AVCodecID(codec)};
    QCOMPARE(stream.access(key), Access::ClosedGop);
    QCOMPARE(stream.access(key, 0), Access::None);
    QCOMPARE(stream.access(other), Access::None);
    QCOMPARE(stream.access(key.left(2)), Access::None);
}

// Units: 12 divides, 0a is a sequence header, 32 a picture; its first bits are: repeated, kind in
// two, shown.
void TestRandomAccessPoints::av1SequenceHeaders() {
    Stream stream(AV_CODEC_ID_AV1);
    QCOMPARE(stream.access("1200 0a03000102 320310ffff"), Access::ClosedGop);
    QCOMPARE(stream.access("1200 320330ffff"), Access::None);
    QCOMPARE(stream.access("1200 320300ffff"), Access::None); // not shown
    QCOMPARE(stream.access("1200 0a03000102 320310ffff"), Access::ClosedGop);
    QCOMPARE(stream.access("1200 320310ffff"), Access::None); // its header stands elsewhere
    QVERIFY(stream.next("1200 0a03000103 320310ffff").isDiscontinuity);
}

void TestRandomAccessPoints::jpegWithoutItsTables() {
    const QByteArray quantization = "ffdb0043 00" + QByteArray(128, '1');
    const QByteArray huffman = "ffc40014 00 01" + QByteArray(30, '0') + "05";
    const QByteArray scan = "ffda0008 0101003f00 ff";
    Stream plain(AV_CODEC_ID_MJPEG);
    QCOMPARE(plain.access("ffd8" + quantization + scan), Access::ClosedGop);
    QCOMPARE(plain.access("ffd8" + scan), Access::None);
    QCOMPARE(plain.access("ffd8" + quantization + scan), Access::ClosedGop);
    QCOMPARE(plain.access("ffd8" + quantization + huffman + scan), Access::ClosedGop);
    // From here on it would be decoded with the tables of the packet before.
    QCOMPARE(plain.access("ffd8" + quantization + scan), Access::None);
}

/// As a sparse file is read: zeros that take no memory before they are written.
class SparseBytes {
public:
    explicit SparseBytes(std::size_t size)
        : size(size)
        , bytes(mmap(nullptr, size, PROT_READ | PROT_WRITE,
                     MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0)) {}
    ~SparseBytes() { munmap(bytes, size); }
    SparseBytes(const SparseBytes&) = delete;
    SparseBytes& operator=(const SparseBytes&) = delete;

    bool areThere() const { return bytes != MAP_FAILED; }
    std::uint8_t* data() { return static_cast<std::uint8_t*>(bytes); }

    void put(std::size_t place, const QByteArray& hex) {
        const QByteArray written = QByteArray::fromHex(hex);
        std::memcpy(data() + place, written.constData(), std::size_t(written.size()));
    }

private:
    std::size_t size;
    void* bytes;
};

// Its tables stand behind segments of 65537 bytes each, which end with the largest packet.
void TestRandomAccessPoints::packetsOfMoreBitsThanAnIntCounts() {
    constexpr std::size_t largest = 0x7FFFFFFF - AV_INPUT_BUFFER_PADDING_SIZE;
    constexpr std::size_t segment = 0xFFFF + 2;
    SparseBytes bytes(largest + AV_INPUT_BUFFER_PADDING_SIZE);
    if (!bytes.areThere())
        QSKIP("an address space of 2 GB cannot be had");
    const QByteArray tables = "ffdb0043 00" + QByteArray(64, '1').toHex();
    bytes.put(0, "ffd8");
    std::size_t place = 2;
    for (; place + 2 * segment < largest; place += segment)
        bytes.put(place, "ffe0ffff");
    bytes.put(place, tables + "ffe0ffff"); // longer than what is left

    Stream stream(AV_CODEC_ID_MJPEG);
    QCOMPARE(stream.access("ffd8" + tables + "ffda"), Access::ClosedGop);
    const PacketPointer packet(av_packet_alloc());
    packet->data = bytes.data();
    packet->size = int(largest);
    QCOMPARE(stream.of(*packet).access, Access::ClosedGop);
    bytes.put(place, "ffe0");
    QCOMPARE(stream.of(*packet).access, Access::None);
}

void TestRandomAccessPoints::damagedPacketsAreSuspect() {
    Stream stream(AV_CODEC_ID_RAWVIDEO);
    QCOMPARE(stream.access("00"), Access::ClosedGop);
    const PacketKind damaged = stream.next("00", AV_PKT_FLAG_KEY | AV_PKT_FLAG_CORRUPT);
    QVERIFY(damaged.isDiscontinuity);
    QCOMPARE(damaged.access, Access::None);
    RandomAccessPoints accessPoints = accessPointsOf(AV_CODEC_ID_RAWVIDEO, {});
    const PacketPointer first = packetOf("00", 0);
    const PacketPointer changing = packetOf("00", 0);
    for (AVPacket* packet : {first.get(), changing.get()})
        QVERIFY(av_packet_new_side_data(packet, AV_PKT_DATA_NEW_EXTRADATA, 4) != nullptr);
    QVERIFY(!accessPoints.next(*first).isDiscontinuity); // nothing lies before it
    QVERIFY(accessPoints.next(*changing).isDiscontinuity);
}

void TestRandomAccessPoints::unknownCodecsHaveNone() {
    Stream stream(AV_CODEC_ID_CINEPAK);
    QCOMPARE(stream.access("000001 65888400"), Access::None);
}

void TestRandomAccessPoints::generatedStreams_data() {
    QTest::addColumn<QString>("suffix");
    QTest::addColumn<QString>("options");
    QTest::addColumn<int>("group");
    QTest::addColumn<bool>("isOpen");
    const auto row = [](const char* suffix, const char* options, int group, bool isOpen) {
        QTest::newRow((QByteArray(suffix) + ' ' + options).constData())
            << QString(suffix) << QString(options) << group << isOpen;
    };
    for (const char* suffix : {"mp4", "mkv", "ts", "avi", "flv", "h264"})
        row(suffix, "-c:v libx264 -x264-params keyint=12:min-keyint=12:scenecut=0:bframes=2", 12,
            false);
    row("mp4", "-c:v libx264 -x264-params keyint=1", 1, false);
    const char* hevc = "-c:v libx265 -x265-params "
                       "log-level=none:keyint=10:min-keyint=10:scenecut=0:bframes=3:open-gop=";
    for (const char* suffix : {"mp4", "mkv", "ts"}) {
        row(suffix, (QByteArray(hevc) + "0").constData(), 10, false);
        row(suffix, (QByteArray(hevc) + "1").constData(), 10, true);
    }
    row("mkv", "-c:v mpeg2video -g 12 -sc_threshold 1000000000 -bf 2", 12, true);
    row("mpg", "-c:v mpeg2video -g 12 -sc_threshold 1000000000 -bf 2 -flags +cgop", 12, false);
    row("ts", "-c:v mpeg1video -g 12 -sc_threshold 1000000000 -bf 0", 12, true);
    row("avi", "-c:v mpeg4 -g 12 -sc_threshold 1000000000 -bf 0", 12, true);
    row("mkv", "-c:v mpeg4 -g 12 -sc_threshold 1000000000 -bf 2", 12, true);
    row("webm", "-c:v libvpx -g 12 -keyint_min 12 -auto-alt-ref 0", 12, false);
    row("webm", "-c:v libvpx-vp9 -g 12 -keyint_min 12 -cpu-used 8 -deadline realtime", 12, false);
    row("mkv", "-c:v libsvtav1 -preset 12 -g 12", 12, false);
    row("avi", "-c:v mjpeg -pix_fmt yuvj420p", 1, false);
    row("mov", "-c:v prores", 1, false);
    row("avi", "-c:v huffyuv -pix_fmt yuv422p", 1, false);
}

/// Groups of a known length, one picture per packet.
void TestRandomAccessPoints::generatedStreams() {
    QFETCH(QString, suffix);
    QFETCH(QString, options);
    QFETCH(int, group);
    QFETCH(bool, isOpen);
    if (!media::hasEncoder(options.split(' ').at(1)))
        QSKIP("this encoder is not installed");
    const QString path = folder.filePath("groups." + suffix);
    QStringList arguments = {"-f",       "lavfi",  "-i", "testsrc2=s=176x144:r=25:d=2.4",
                             "-pix_fmt", "yuv420p"};
    arguments += options.split(' ', Qt::SkipEmptyParts);
    QVERIFY(media::encode(arguments + QStringList{path}));
    const QVector<FoundPacket> packets = packetsOf(path);
    QVERIFY(packets.size() >= 59);
    QVector<int> found = placesOf(packets, isOpen ? Access::OpenGop : Access::ClosedGop);
    QVector<int> keys;
    for (int i = 0; i < packets.size(); ++i) {
        if (packets[i].isKey)
            keys.append(i);
    }
    // The encoders begin with a closed group even where all others are open.
    if (isOpen && !found.startsWith(0))
        found.prepend(0);
    QCOMPARE(found, keys);
    // Pictures that are shown before the second key frame come behind it.
    const int groups = every(group, packets.size()).size();
    QVERIFY(found.size() == groups || (options.contains("-bf 2") && found.size() == groups + 1));
    QCOMPARE(leadingOf(packets), isOpen ? shownBeforeTheirKey(packets) : QVector<int>());
}

/// An MP4 file that does not list its key frames says that all are.
void TestRandomAccessPoints::falseKeyFlags() {
    const QString path = folder.filePath("flags.mp4");
    QVERIFY(media::encode({"-f", "lavfi", "-i", "testsrc2=s=352x288:d=2", "-pix_fmt", "yuv420p",
                           "-c:v", "mpeg4", "-g", "12", "-sc_threshold", "1000000000", path}));
    QVERIFY(writeFile(path, readFile(path).replace("stss", "free")));
    const QVector<FoundPacket> packets = packetsOf(path);
    QCOMPARE(placesOf(packets, Access::OpenGop), every(12, packets.size()));
    QVERIFY(std::all_of(packets.begin(), packets.end(), [](const auto& one) { return one.isKey; }));
}

void TestRandomAccessPoints::recoveryPointsAreNone() {
    const QString path = folder.filePath("open.mp4");
    QVERIFY(media::encode({"-f", "lavfi", "-i", "testsrc2=s=176x144:d=2", "-pix_fmt", "yuv420p",
                           "-c:v", "libx264", "-x264-params",
                           "open-gop=1:keyint=10:min-keyint=10:scenecut=0:bframes=3", path}));
    QCOMPARE(placesOf(packetsOf(path), Access::ClosedGop), QVector<int>({0}));
}

void TestRandomAccessPoints::intraRefreshHasNone() {
    const QString path = folder.filePath("refresh.ts");
    QVERIFY(media::encode({"-f", "lavfi", "-i", "testsrc2=s=176x144:d=2", "-pix_fmt", "yuv420p",
                           "-c:v", "libx264", "-x264-params", "intra-refresh=1:keyint=20", path}));
    QCOMPARE(placesOf(packetsOf(path), Access::ClosedGop), QVector<int>({0}));
}

void TestRandomAccessPoints::anyBytes() {
    // What is read beyond a packet the sanitizers see; an access point must still be an access
    // point's kind.
    QRandomGenerator random(1);
    for (int id = AV_CODEC_ID_MPEG1VIDEO; id <= AV_CODEC_ID_VP9; ++id) {
        QByteArray header(int(random.bounded(60U)), '\0');
        for (char& byte : header)
            byte = char(random.bounded(4U));
        RandomAccessPoints accessPoints = accessPointsOf(AVCodecID(id), header);
        for (int i = 0; i < 200; ++i) {
            QByteArray bytes(int(random.bounded(40U)), '\0');
            for (char& byte : bytes)
                byte = char(random.bounded(i % 2 == 0 ? 256U : 3U));
            const PacketKind kind = accessPoints.next(*packetOf(bytes, AV_PKT_FLAG_KEY));
            QVERIFY(!kind.isDiscontinuity || kind.access == Access::None);
        }
    }
}

QTEST_GUILESS_MAIN(TestRandomAccessPoints)
#include "test_randomaccesspoints.moc"
