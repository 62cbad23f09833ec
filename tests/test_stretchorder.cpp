// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "stretchorder.h"

#include <QtTest>

#include <functional>

namespace {

using Numbers = std::vector<qint64>;

/// A stream of which nothing is decoded.
struct Stream {
    Stream() {
        const ParametersPointer parameters(avcodec_parameters_alloc());
        shared = std::make_shared<StretchStream>(*parameters, memory);
    }

    /// Its next stretch, of `packets` packets, whose decoder holds back `delay` pictures and loses
    /// none.
    Stretch& add(int packets, int delay, bool isLast = false) {
        stretches.push_back(std::make_unique<Stretch>(shared));
        Stretch& stretch = *stretches.back();
        stretch.index = qint64(stretches.size()) - 1;
        stretch.delay = delay;
        stretch.isLast = isLast;
        for (int i = 0; i < packets; ++i)
            stretch.add({packetCount++, PacketPointer(av_packet_alloc())});
        const int pictures = isLast ? packets - delay : packets;
        for (int i = 0; i < pictures; ++i)
            stretch.results.push_back({i + delay < packets ? i + delay : -1, std::nullopt});
        if (pictures > 0) {
            stretch.first = picture(16);
            stretch.last = picture(16);
        }
        return stretch;
    }

    static FramePointer picture(int width, AVPictureType type = AV_PICTURE_TYPE_I) {
        AVFrame* frame = av_frame_alloc();
        frame->width = width;
        frame->height = 16;
        frame->pict_type = type;
        return FramePointer(new DecodedFrame{0.0, frame});
    }

    PictureMemory memory;
    std::shared_ptr<StretchStream> shared;
    std::vector<std::unique_ptr<Stretch>> stretches;
    qint64 packetCount = 0;
};

std::optional<float> alwaysSeven(const DecodedFrame&, const DecodedFrame&) {
    return 7.0F;
}

Numbers from(qint64 first, int count) {
    Numbers numbers;
    for (int i = 0; i < count; ++i)
        numbers.push_back(first + i);
    return numbers;
}

using Change = std::function<void(Stretch&)>;

} // namespace

Q_DECLARE_METATYPE(Change)

class TestStretchOrder : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void withoutDelay();
    void delayedPicturesBelongToLaterPackets();
    void lastPicturesAreNotHandedOut();
    void endShorterThanTheDelay();
    void leadingPicturesCountWithTheStretchBefore();
    void packetsWithoutPictures();
    void borderIsCompared();
    void doubts_data();
    void doubts();
};

void TestStretchOrder::withoutDelay() {
    Stream stream;
    StretchOrder order(alwaysSeven);
    QCOMPARE(order.add(stream.add(5, 0)).value(), from(0, 5));
    QCOMPARE(order.add(stream.add(3, 0)).value(), from(5, 3));
    QCOMPARE(order.add(stream.add(2, 0, true)).value(), from(8, 2));
    QCOMPARE(order.reorderDelay(), 0);
}

void TestStretchOrder::delayedPicturesBelongToLaterPackets() {
    Stream stream;
    StretchOrder order(alwaysSeven);
    QCOMPARE(order.add(stream.add(5, 2)).value(), from(2, 5));
    QCOMPARE(order.add(stream.add(4, 2)).value(), from(7, 4));
    QCOMPARE(order.reorderDelay(), 2);
    QVERIFY(order.isDelayUsual());
}

void TestStretchOrder::lastPicturesAreNotHandedOut() {
    Stream stream;
    StretchOrder order(alwaysSeven);
    order.add(stream.add(5, 2));
    QCOMPARE(order.add(stream.add(4, 2, true)).value(), from(7, 2)); // up to packet 8, the last
}

void TestStretchOrder::endShorterThanTheDelay() {
    Stream stream;
    StretchOrder order(alwaysSeven);
    order.add(stream.add(5, 2));
    QCOMPARE(order.add(stream.add(2, 2, true)).value(), Numbers());
}

void TestStretchOrder::leadingPicturesCountWithTheStretchBefore() {
    Stream stream;
    StretchOrder order(alwaysSeven);
    // Two of the second stretch's packets are decoded at the end of the first one, behind a copy of
    // the packet that they follow.
    Stretch& first = stream.add(5, 1);
    for (int i = 0; i < 3; ++i)
        first.tail.emplace_back(av_packet_alloc());
    first.results = {{1, {}}, {2, {}}, {3, {}}, {4, {}}, {5, {}}, {6, {}}, {7, {}}};
    Stretch& second = stream.add(6, 1);
    second.leading = 2;
    second.results.resize(4);
    second.results.back().fed = -1;
    QCOMPARE(order.add(first).value(), from(1, 7));
    QCOMPARE(order.add(second).value(), from(8, 4));
}

void TestStretchOrder::packetsWithoutPictures() {
    Stream stream;
    StretchOrder order(alwaysSeven);
    Stretch& stretch = stream.add(4, 0);
    stretch.results.erase(stretch.results.begin() + 1); // as of a picture that is never shown
    QCOMPARE(order.add(stretch).value(), Numbers({0, 2, 3}));
}

void TestStretchOrder::borderIsCompared() {
    Stream stream;
    StretchOrder order(alwaysSeven);
    Stretch& first = stream.add(3, 0);
    Stretch& second = stream.add(3, 0);
    order.add(first);
    order.add(second);
    QVERIFY(!first.results.front().value);
    QCOMPARE(second.results.front().value.value(), 7.0F);
    QVERIFY(!second.results.back().value);
    QVERIFY(!first.last && !second.first); // nobody needs them any more
}

void TestStretchOrder::doubts_data() {
    QTest::addColumn<int>("delay");
    QTest::addColumn<bool>("isFirst");
    QTest::addColumn<Change>("change");
    const auto row = [](const char* name, int delay, bool isFirst, const Change& change) {
        QTest::newRow(name) << delay << isFirst << change;
    };
    row("its own", 0, false, [](Stretch& stretch) { stretch.isInDoubt = true; });
    row("another delay", 2, false, [](Stretch& stretch) { stretch.delay = 3; });
    row("one picture less", 2, false, [](Stretch& stretch) { stretch.results.pop_back(); });
    row("one picture more", 2, false, [](Stretch& stretch) {
        stretch.results.push_back({-1, {}});
    });
    row("no picture", 0, false, [](Stretch& stretch) { stretch.results.clear(); });
    row("a packet without one", 2, false, [](Stretch& stretch) { ++stretch.results[1].fed; });
    row("a packet without one at the start", 2, true,
        [](Stretch& stretch) { ++stretch.results[1].fed; });
    row("held back for no reason", 0, false,
        [](Stretch& stretch) { stretch.results.back().fed = -1; });
    row("earlier than it can be", 2, true, [](Stretch& stretch) {
        for (StretchResult& result : stretch.results)
            --result.fed;
    });
    row("another size", 0, false, [](Stretch& stretch) { stretch.first = Stream::picture(32); });
    row("a false key frame", 0, false,
        [](Stretch& stretch) { stretch.first = Stream::picture(16, AV_PICTURE_TYPE_P); });
    row("leading pictures out of nowhere", 0, false, [](Stretch& stretch) { stretch.leading = 1; });
}

void TestStretchOrder::doubts() {
    QFETCH(int, delay);
    QFETCH(bool, isFirst);
    QFETCH(Change, change);
    Stream stream;
    StretchOrder order(alwaysSeven);
    if (!isFirst)
        QVERIFY(order.add(stream.add(6, delay)));
    Stretch& stretch = stream.add(6, delay);
    change(stretch);
    QVERIFY(!order.add(stretch));
}

QTEST_GUILESS_MAIN(TestStretchOrder)
#include "test_stretchorder.moc"
