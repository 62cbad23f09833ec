// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "chunkcutter.h"

#include "logging.h"
#include "media.h"
#include "mediafile.h"

#include <QTemporaryDir>
#include <QtTest>

namespace {

/// Everything in an open recording, cut.
struct CutRecording {
    CutRecording(const QString& path, const ChunkPlan& plan)
        : file(path.toUtf8())
        , isOpen(file.isOpen()) {
        if (!isOpen)
            return;
        stream = std::make_shared<ChunkStream>(*file.stream()->codecpar, memory);
        cutter = std::make_unique<ChunkCutter>(file.packets(), stream, plan);
    }

    void readAll() {
        while (cutter->read())
            hasBeenTooLong = hasBeenTooLong || cutter->isTooLong();
    }

    MediaFile file;
    bool isOpen;
    FrameBudget memory;
    std::shared_ptr<ChunkStream> stream;
    std::unique_ptr<ChunkCutter> cutter;
    bool hasBeenTooLong = false;
};

ChunkPlan planOf(int fewest, int fewestOpen) {
    ChunkPlan plan;
    plan.workers = 2;
    plan.fewestPackets = fewest;
    plan.fewestOpen = fewestOpen;
    plan.enoughBytes = 1 << 30;
    plan.mostPackets = 60;
    plan.mostBytes = 1 << 30;
    plan.bytesInHand = 1 << 30;
    return plan;
}

bool areSame(const AVPacket& a, const AVPacket& b) {
    return a.size == b.size && a.data == b.data;
}

} // namespace

class TestChunkCutter : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void everyPacketIsInOneChunk();
    void shortGroupsAreJoined();
    void manyBytesAreEnough();
    void leadingPacketsAreInTwo();
    void longGroupsAreTooLong();
    void marksAreKeptUntilForgotten();
    void packetsAreCounted();

private:
    QTemporaryDir folder;
    QString closed; ///< 100 pictures in groups of ten
    QString open;   ///< the same with leading pictures
};

void TestChunkCutter::initTestCase() {
    routeLibavLog();
    closed = folder.filePath("closed.mkv");
    open = folder.filePath("open.mkv");
    const QStringList source = {"-f",       "lavfi",   "-i",  "testsrc2=s=160x120:r=25:d=4",
                                "-pix_fmt", "yuv420p", "-c:v"};
    QVERIFY(media::encode(source + QStringList{"libx264", "-x264-params",
                                               "keyint=10:min-keyint=10:scenecut=0:bframes=2",
                                               closed}));
    QVERIFY(media::encode(source +
                          QStringList{"libx265", "-x265-params",
                                      "log-level=none:keyint=10:min-keyint=10:scenecut=0:bframes=3:"
                                      "b-adapt=0:open-gop=1",
                                      open}));
}

void TestChunkCutter::everyPacketIsInOneChunk() {
    for (const QString& path : {closed, open}) {
        CutRecording cut(path, planOf(1, 1));
        QVERIFY(cut.isOpen);
        cut.readAll();
        qint64 next = 0;
        qint64 index = 0;
        for (const ChunkPointer& chunk : cut.cutter->whole) {
            QCOMPARE(chunk->index, index++);
            QCOMPARE(chunk->isLast, chunk == cut.cutter->whole.back());
            QVERIFY(!chunk->hasMismatch);
            for (const NumberedPacket& packet : chunk->packets)
                QCOMPARE(packet.number, next++);
        }
        QCOMPARE(next, 100);
        QCOMPARE(index, 10);
        QVERIFY(cut.cutter->unfinished().empty());
    }
}

void TestChunkCutter::shortGroupsAreJoined() {
    CutRecording cut(closed, planOf(25, 45));
    cut.readAll();
    QVector<int> lengths;
    for (const ChunkPointer& chunk : cut.cutter->whole)
        lengths.append(int(chunk->packets.size()));
    QCOMPARE(lengths, QVector<int>({30, 30, 30, 10}));
}

void TestChunkCutter::manyBytesAreEnough() {
    ChunkPlan plan = planOf(25, 45);
    plan.enoughBytes = 1;
    CutRecording cut(closed, plan);
    cut.readAll();
    QCOMPARE(cut.cutter->whole.size(), std::size_t(10));
}

void TestChunkCutter::leadingPacketsAreInTwo() {
    CutRecording cut(open, planOf(1, 1));
    cut.readAll();
    int leading = 0;
    for (std::size_t i = 0; i + 1 < cut.cutter->whole.size(); ++i) {
        const Chunk& chunk = *cut.cutter->whole[i];
        const Chunk& next = *cut.cutter->whole[i + 1];
        QCOMPARE(int(chunk.tail.size()), next.leading > 0 ? next.leading + 1 : 0);
        for (std::size_t j = 0; j < chunk.tail.size(); ++j)
            QVERIFY(areSame(*chunk.tail[j], *next.packets[j].packet));
        // What the next one decodes begins with its key picture and leaves the leading ones out.
        const auto decoded = next.decodedPackets();
        QCOMPARE(int(decoded.size()), int(next.packets.size() + next.tail.size()) - next.leading);
        QCOMPARE(decoded[1], next.packets[std::size_t(next.leading) + 1].packet.get());
        leading += next.leading;
    }
    QVERIFY(leading >= 9); // at least one at each access point: groups are open
}

void TestChunkCutter::longGroupsAreTooLong() {
    CutRecording fits(closed, planOf(50, 50));
    fits.readAll();
    QVERIFY(!fits.hasBeenTooLong);
    CutRecording one(closed, planOf(90, 90));
    one.readAll();
    QVERIFY(one.hasBeenTooLong);
}

void TestChunkCutter::marksAreKeptUntilForgotten() {
    CutRecording cut(closed, planOf(1, 1));
    for (int i = 0; i < 5; ++i)
        QVERIFY(cut.cutter->read());
    QVERIFY(cut.cutter->mark(0) && cut.cutter->mark(4));
    QVERIFY(!cut.cutter->mark(5));
    QVERIFY(cut.cutter->mark(4)->dts > cut.cutter->mark(3)->dts);
    QVERIFY(cut.cutter->mark(4)->bytePosition >= cut.cutter->mark(0)->bytePosition);
    cut.cutter->forgetBefore(3);
    QVERIFY(!cut.cutter->mark(2));
    QVERIFY(cut.cutter->mark(3));
}

void TestChunkCutter::packetsAreCounted() {
    CutRecording cut(closed, planOf(1, 1));
    cut.readAll();
    // Those that somebody else has in hand do not count.
    QCOMPARE(cut.stream->keptBytes.load(), 0);
    const ChunkPointer first = cut.cutter->whole[0];
    cut.cutter->whole[0]->letGo(0);
    QVERIFY(first->bytes > 0);
    QCOMPARE(cut.stream->keptBytes.load(), first->bytes);
    cut.cutter->whole[1]->letGo(0);
    cut.cutter->whole[1]->letGo(0);
    QCOMPARE(cut.stream->keptBytes.load(), first->bytes + cut.cutter->whole[1]->bytes);
    cut.cutter->whole.erase(cut.cutter->whole.begin() + 1);
    QCOMPARE(cut.stream->keptBytes.load(), first->bytes);
}

QTEST_GUILESS_MAIN(TestChunkCutter)
#include "test_chunkcutter.moc"
