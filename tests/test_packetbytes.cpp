// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "packetbytes.h"

#include <QtTest>

#include <array>
#include <limits>
#include <vector>

class TestPacketBytes : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void bitsOfBytes();
    void nothingIsReadOutside();
    void partsAreCutToWhatThereIs();
    void prefixes();
};

void TestPacketBytes::bitsOfBytes() {
    const std::array<std::uint8_t, 3> data{0xA5, 0x10, 0xFF};
    const PacketBytes bytes(data.data(), 3);
    QCOMPARE(bytes.bit(0), 1);
    QCOMPARE(bytes.bit(1), 0);
    QCOMPARE(bytes.bits(4, 8), 0x51);
    QCOMPARE(bytes.golomb(8), 7); // 0001000 is 8 - 1
    QCOMPARE(bytes.golomb(0), 0);
}

void TestPacketBytes::nothingIsReadOutside() {
    const std::array<std::uint8_t, 4> data{0xFF, 0xFF, 0xFF, 0xFF};
    const PacketBytes bytes(data.data() + 1, 2);
    constexpr std::int64_t farthest = std::numeric_limits<std::int64_t>::max();
    for (const std::int64_t index : {std::int64_t(-1), std::int64_t(-8), -farthest,
                                     std::int64_t(16), std::int64_t(1) << 31, farthest}) {
        QCOMPARE(bytes.at(index), 0);
        QCOMPARE(bytes.bit(index), 0);
    }
    QCOMPARE(bytes.bits(-4, 8), 0x0F);
    QCOMPARE(bytes.bits(12, 8), 0xF0);
    QCOMPARE(PacketBytes(nullptr, 5).size(), std::int64_t(0));
    QCOMPARE(PacketBytes(data.data(), -1).size(), std::int64_t(0));
}

void TestPacketBytes::partsAreCutToWhatThereIs() {
    const std::array<std::uint8_t, 4> data{1, 2, 0, 0};
    const PacketBytes bytes(data.data(), 4);
    QCOMPARE(bytes.part(-3, 1).size(), std::int64_t(1));
    QCOMPARE(bytes.part(1, std::int64_t(1) << 40).size(), std::int64_t(3));
    QCOMPARE(bytes.part(3, 1).size(), std::int64_t(0));
    QCOMPARE(bytes.trimmed().size(), std::int64_t(2));
}

void TestPacketBytes::prefixes() {
    const std::array<std::uint8_t, 9> data{0, 0, 1, 7, 0, 0, 1, 8, 0};
    const PacketBytes bytes(data.data(), 9);
    std::vector<int> firstBytes;
    std::vector<std::int64_t> sizes;
    bytes.forEachBehindPrefix([&](const PacketBytes& part) {
        firstBytes.push_back(part.at(0));
        sizes.push_back(part.size());
        return true;
    });
    QCOMPARE(firstBytes, std::vector<int>({7, 8}));
    QCOMPARE(sizes, std::vector<std::int64_t>({1, 1}));
    int taken = 0;
    bytes.forEachBehindPrefix([&taken](const PacketBytes& /*part*/) { return ++taken < 1; });
    QCOMPARE(taken, 1);
    // Behind a prefix at the very end there is nothing.
    bytes.part(0, 7).forEachBehindPrefix([&taken](const PacketBytes& /*part*/) { return ++taken; });
    QCOMPARE(taken, 2);
}

QTEST_GUILESS_MAIN(TestPacketBytes)
#include "test_packetbytes.moc"
