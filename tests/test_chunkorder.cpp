// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "chunkorder.h"

#include <QtTest>

#include <functional>

namespace {

using Numbers = std::vector<qint64>;

/// A stream of which nothing is decoded.
struct Stream {
    Stream() {
        const ParametersPointer parameters(avcodec_parameters_alloc());
        shared = std::make_shared<ChunkStream>(*parameters, memory);
    }

    /// Its next chunk, of `packets` packets, whose decoder holds back `delay` pictures and loses
    /// none.
    Chunk& add(int packets, int delay, bool isLast = false) {
        chunks.push_back(std::make_unique<Chunk>(shared));
        Chunk& chunk = *chunks.back();
        chunk.index = qint64(chunks.size()) - 1;
        chunk.delay = delay;
        chunk.isLast = isLast;
        for (int i = 0; i < packets; ++i)
            chunk.add({packetCount++, PacketPointer(av_packet_alloc())});
        const int pictures = isLast ? packets - delay : packets;
        for (int i = 0; i < pictures; ++i)
            chunk.results.push_back({i + delay < packets ? i + delay : -1, std::nullopt});
        if (pictures > 0) {
            chunk.first = picture(16);
            chunk.last = picture(16);
        }
        return chunk;
    }

    static FramePointer picture(int width, AVPictureType type = AV_PICTURE_TYPE_I) {
        AVFrame* frame = av_frame_alloc();
        frame->width = width;
        frame->height = 16;
        frame->pict_type = type;
        return FramePointer(new DecodedFrame{0.0, frame});
    }

    FrameBudget memory;
    std::shared_ptr<ChunkStream> shared;
    std::vector<std::unique_ptr<Chunk>> chunks;
    qint64 packetCount = 0;
};

std::optional<MotionScore> alwaysSeven(const DecodedFrame&, const DecodedFrame&) {
    return MotionScore{7.0F};
}

Numbers from(qint64 first, int count) {
    Numbers numbers;
    for (int i = 0; i < count; ++i)
        numbers.push_back(first + i);
    return numbers;
}

using Change = std::function<void(Chunk&)>;

} // namespace

Q_DECLARE_METATYPE(Change)

class TestChunkOrder : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void withoutDelay();
    void delayedPicturesBelongToLaterPackets();
    void lastPicturesAreNotHandedOut();
    void endShorterThanTheDelay();
    void leadingPicturesCountWithTheChunkBefore();
    void packetsWithoutPictures();
    void accessPointIsCompared();
    void mismatches_data();
    void mismatches();
};

void TestChunkOrder::withoutDelay() {
    Stream stream;
    ChunkOrder order(alwaysSeven);
    QCOMPARE(order.add(stream.add(5, 0)).value(), from(0, 5));
    QCOMPARE(order.add(stream.add(3, 0)).value(), from(5, 3));
    QCOMPARE(order.add(stream.add(2, 0, true)).value(), from(8, 2));
    QCOMPARE(order.reorderDelay(), 0);
}

void TestChunkOrder::delayedPicturesBelongToLaterPackets() {
    Stream stream;
    ChunkOrder order(alwaysSeven);
    QCOMPARE(order.add(stream.add(5, 2)).value(), from(2, 5));
    QCOMPARE(order.add(stream.add(4, 2)).value(), from(7, 4));
    QCOMPARE(order.reorderDelay(), 2);
    QVERIFY(order.isDelayUsual());
}

void TestChunkOrder::lastPicturesAreNotHandedOut() {
    Stream stream;
    ChunkOrder order(alwaysSeven);
    order.add(stream.add(5, 2));
    QCOMPARE(order.add(stream.add(4, 2, true)).value(), from(7, 2)); // up to packet 8, the last
}

void TestChunkOrder::endShorterThanTheDelay() {
    Stream stream;
    ChunkOrder order(alwaysSeven);
    order.add(stream.add(5, 2));
    QCOMPARE(order.add(stream.add(2, 2, true)).value(), Numbers());
}

void TestChunkOrder::leadingPicturesCountWithTheChunkBefore() {
    Stream stream;
    ChunkOrder order(alwaysSeven);
    // Two of the second chunk's packets are decoded at the end of the first one, behind a copy of
    // the packet that they follow.
    Chunk& first = stream.add(5, 1);
    for (int i = 0; i < 3; ++i)
        first.tail.emplace_back(av_packet_alloc());
    first.results = {{1, {}}, {2, {}}, {3, {}}, {4, {}}, {5, {}}, {6, {}}, {7, {}}};
    Chunk& second = stream.add(6, 1);
    second.leading = 2;
    second.results.resize(4);
    second.results.back().fed = -1;
    QCOMPARE(order.add(first).value(), from(1, 7));
    QCOMPARE(order.add(second).value(), from(8, 4));
}

void TestChunkOrder::packetsWithoutPictures() {
    Stream stream;
    ChunkOrder order(alwaysSeven);
    Chunk& chunk = stream.add(4, 0);
    chunk.results.erase(chunk.results.begin() + 1); // as of a picture that is never shown
    QCOMPARE(order.add(chunk).value(), Numbers({0, 2, 3}));
}

void TestChunkOrder::accessPointIsCompared() {
    Stream stream;
    ChunkOrder order(alwaysSeven);
    Chunk& first = stream.add(3, 0);
    Chunk& second = stream.add(3, 0);
    order.add(first);
    order.add(second);
    QVERIFY(!first.results.front().motion);
    QCOMPARE(second.results.front().motion.value(), MotionScore{7.0F});
    QVERIFY(!second.results.back().motion);
    QVERIFY(!first.last && !second.first); // nobody needs them any more
}

void TestChunkOrder::mismatches_data() {
    QTest::addColumn<int>("delay");
    QTest::addColumn<bool>("isFirst");
    QTest::addColumn<Change>("change");
    const auto row = [](const char* name, int delay, bool isFirst, const Change& change) {
        QTest::newRow(name) << delay << isFirst << change;
    };
    row("its own", 0, false, [](Chunk& chunk) { chunk.hasMismatch = true; });
    row("another delay", 2, false, [](Chunk& chunk) { chunk.delay = 3; });
    row("one picture less", 2, false, [](Chunk& chunk) { chunk.results.pop_back(); });
    row("one picture more", 2, false, [](Chunk& chunk) { chunk.results.push_back({-1, {}}); });
    row("no picture", 0, false, [](Chunk& chunk) { chunk.results.clear(); });
    row("a packet without one", 2, false, [](Chunk& chunk) { ++chunk.results[1].fed; });
    row("a packet without one at the start", 2, true, [](Chunk& chunk) { ++chunk.results[1].fed; });
    row("held back for no reason", 0, false, [](Chunk& chunk) { chunk.results.back().fed = -1; });
    row("earlier than it can be", 2, true, [](Chunk& chunk) {
        for (ChunkResult& result : chunk.results)
            --result.fed;
    });
    row("another size", 0, false, [](Chunk& chunk) { chunk.first = Stream::picture(32); });
    row("a false key frame", 0, false,
        [](Chunk& chunk) { chunk.first = Stream::picture(16, AV_PICTURE_TYPE_P); });
    row("leading pictures out of nowhere", 0, false, [](Chunk& chunk) { chunk.leading = 1; });
}

void TestChunkOrder::mismatches() {
    QFETCH(int, delay);
    QFETCH(bool, isFirst);
    QFETCH(Change, change);
    Stream stream;
    ChunkOrder order(alwaysSeven);
    if (!isFirst)
        QVERIFY(order.add(stream.add(6, delay)));
    Chunk& chunk = stream.add(6, delay);
    change(chunk);
    QVERIFY(!order.add(chunk));
}

QTEST_GUILESS_MAIN(TestChunkOrder)
#include "test_chunkorder.moc"
