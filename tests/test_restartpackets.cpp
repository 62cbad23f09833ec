// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "restartpackets.h"

#include <QtTest>

namespace {

NumberedPacket packet(qint64 number, int size = 10) {
    NumberedPacket numbered{number, PacketPointer(av_packet_alloc())};
    av_new_packet(numbered.packet.get(), size);
    return numbered;
}

/// Adds packets `first` to `last`, every tenth an access point.
void addPackets(RestartPackets& restart, int first, int last, int size = 10) {
    for (int number = first; number <= last; ++number)
        restart.add(packet(number, size), number % 10 == 0);
}

} // namespace

class TestRestartPackets : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void beginsAtTheFirstPacketOfTheFile();
    void beginsAWholeGroupBeforeTheLastPicture();
    void packetsNotHandedOutAreAllThere();
    void firstPacketNeedsNoAccessPoint();
    void streamWithoutAccessPointsCannotRestartOnceTooLarge();
    void restartsAgainTwoAccessPointsAfterALargeGroup();
    void largeGroupsPushOutOnlyWhatIsTooMuch();
};

void TestRestartPackets::beginsAtTheFirstPacketOfTheFile() {
    RestartPackets restart;
    addPackets(restart, 0, 5);
    const auto packets = restart.take();
    QCOMPARE(packets.size(), std::size_t(6));
    QCOMPARE(packets.front().number, 0);
}

void TestRestartPackets::beginsAWholeGroupBeforeTheLastPicture() {
    RestartPackets restart;
    for (int number = 0; number <= 45; ++number) {
        restart.add(packet(number), number % 10 == 0);
        restart.handedOut(number - 3);
    }
    // The last picture handed out is 42: the access point at 40 lies between it and that at 30.
    const auto packets = restart.take();
    QCOMPARE(packets.front().number, 30);
    QCOMPARE(packets.back().number, 45);
}

void TestRestartPackets::packetsNotHandedOutAreAllThere() {
    RestartPackets restart;
    addPackets(restart, 0, 59);
    restart.handedOut(15);
    const auto packets = restart.take();
    QCOMPARE(packets.front().number, 0); // 10 is the only access point up to 15
    for (std::size_t i = 1; i < packets.size(); ++i)
        QCOMPARE(packets[i].number, packets[i - 1].number + 1);
    QCOMPARE(packets.back().number, 59);
}

void TestRestartPackets::firstPacketNeedsNoAccessPoint() {
    RestartPackets restart;
    restart.add(packet(0), false);
    restart.add(packet(1), false);
    QCOMPARE(restart.take().size(), std::size_t(2));
}

void TestRestartPackets::streamWithoutAccessPointsCannotRestartOnceTooLarge() {
    RestartPackets restart;
    for (int number = 0; number < 40; ++number) {
        restart.add(packet(number, 1 << 20), number == 0);
        restart.handedOut(number);
    }
    QVERIFY(restart.take().empty());
}

void TestRestartPackets::restartsAgainTwoAccessPointsAfterALargeGroup() {
    RestartPackets restart;
    for (int number = 0; number < 40; ++number)
        restart.add(packet(number, 1 << 20), number == 0);
    addPackets(restart, 40, 65);
    restart.handedOut(49);
    QVERIFY(restart.take().empty()); // nothing between the access point at 40 and the last picture
    restart.handedOut(51);
    const auto packets = restart.take();
    QVERIFY(!packets.empty());
    QCOMPARE(packets.front().number, 40);
}

void TestRestartPackets::largeGroupsPushOutOnlyWhatIsTooMuch() {
    // Groups of 7 MB: three of them are too much, but not two.
    RestartPackets restart;
    for (int number = 0; number < 35; ++number) {
        restart.add(packet(number, 7 * 1024 * 1024 / 10), number % 10 == 0);
        restart.handedOut(number);
    }
    const auto packets = restart.take();
    QVERIFY(!packets.empty());
    QCOMPARE(packets.front().number, 20);
    QCOMPARE(packets.back().number, 34);
}

QTEST_GUILESS_MAIN(TestRestartPackets)
#include "test_restartpackets.moc"
