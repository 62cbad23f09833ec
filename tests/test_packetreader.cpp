// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "packetreader.h"

#include "files.h"
#include "logging.h"
#include "media.h"
#include "pipewriter.h"
#include "probe.h"

#include <QTemporaryDir>
#include <QtEndian>
#include <QtTest>

#include <sys/stat.h>

namespace {

QVector<qint64> readTimes(PacketReader& reader) {
    QVector<qint64> times;
    while (const auto packet = reader.read())
        times.append(packet->packet->dts);
    return times;
}

} // namespace

class TestPacketReader : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void readsTheVideoStream();
    void numbersThePackets();
    void startsOverWhenOpenedAgain();
    void errorEndsTheFileForGood();
    void interruptEndsTheRead();
    void interruptEndsTheOpenOfASilentPipe();
    void interruptEndsTheOpenOfAStalledPipe();
    void readsAPipeOnce();
    void nothingWhileClosed();

private:
    QString path(const QString& name) const { return folder.filePath(name); }
    bool openFile(PacketReader& reader, const QString& name) const {
        return reader.open(path(name).toUtf8().constData());
    }

    QTemporaryDir folder;
};

void TestPacketReader::initTestCase() {
    routeLibavLog();
    QVERIFY(folder.isValid());
    // Sound between the pictures, so that the file tells several places where they lie.
    QVERIFY(media::encode({"-f", "lavfi", "-i", "testsrc2=s=64x48:r=25:d=4", "-f", "lavfi", "-i",
                           "sine=d=4", "-c:v", "mpeg4", path("whole.mp4")}));
}

void TestPacketReader::readsTheVideoStream() {
    PacketReader reader;
    QVERIFY(openFile(reader, "whole.mp4"));
    QCOMPARE(reader.stream()->index, 0);
    QCOMPARE(reader.duration(), 4.0);
    const media::ProbedVideo probed = media::probe(path("whole.mp4"));
    QCOMPARE(probed.packetTimes.size(), 100);
    QCOMPARE(readTimes(reader), probed.packetTimes);
}

void TestPacketReader::numbersThePackets() {
    PacketReader reader;
    QVERIFY(openFile(reader, "whole.mp4"));
    for (int i = 0; i < 100; ++i) {
        const auto packet = reader.read();
        QVERIFY(packet.has_value());
        QCOMPARE(packet->number, qint64(i));
    }
    QVERIFY(!reader.read());
}

void TestPacketReader::startsOverWhenOpenedAgain() {
    PacketReader reader;
    QVERIFY(openFile(reader, "whole.mp4"));
    const QVector<qint64> first = readTimes(reader);
    QVERIFY(openFile(reader, "whole.mp4"));
    QCOMPARE(readTimes(reader), first);
    QVERIFY(reader.reopen());
    QCOMPARE(readTimes(reader), first);
}

void TestPacketReader::errorEndsTheFileForGood() {
    // The box "stco" lists where the runs of pictures lie: count, then an offset each. The third
    // run is sent to where the file has nothing; the fourth could be read again.
    QByteArray content = readFile(path("whole.mp4"));
    const int box = content.indexOf("stco");
    QVERIFY(box > 0);
    QVERIFY(qFromBigEndian<quint32>(content.constData() + box + 8) > 3);
    qToBigEndian(quint32(0x7FFFFFF0), content.data() + box + 12 + 2 * 4);
    QVERIFY(writeFile(path("hole.mp4"), content));

    PacketReader reader;
    QVERIFY(openFile(reader, "hole.mp4"));
    const int count = readTimes(reader).size();
    QVERIFY2(count > 0 && count < 100, qPrintable(QString::number(count)));
    for (int i = 0; i < 5; ++i)
        QVERIFY(!reader.read());
    QVERIFY(openFile(reader, "hole.mp4"));
    QCOMPARE(readTimes(reader).size(), count);
}

void TestPacketReader::interruptEndsTheRead() {
    bool interrupted = false;
    PacketReader reader;
    reader.setInterrupt([&interrupted] { return interrupted; });
    QVERIFY(openFile(reader, "whole.mp4"));
    QVERIFY(reader.read().has_value());
    interrupted = true;
    QVERIFY(reader.isInterrupted());
    QVERIFY(!reader.read());
}

void TestPacketReader::interruptEndsTheOpenOfASilentPipe() {
    QCOMPARE(::mkfifo(path("silent").toUtf8().constData(), 0600), 0);
    int asked = 0;
    PacketReader reader;
    reader.setInterrupt([&asked] { return ++asked > 3; });
    QVERIFY(!openFile(reader, "silent"));
    QCOMPARE(reader.errorText(), QString("Immediate exit requested"));
}

void TestPacketReader::interruptEndsTheOpenOfAStalledPipe() {
    // The demuxer is known by then, and waits for what it needs to know of the streams.
    QVERIFY(media::encode({"-f", "lavfi", "-i", "testsrc2=s=64x48:r=25:d=1", "-c:v", "mpeg2video",
                           path("whole.ts")}));
    PipeWriter writer(path("stalled"), readFile(path("whole.ts")).left(20 * 188));
    int asked = 0;
    PacketReader reader;
    reader.setInterrupt([&] { return writer.hasWrittenHalf() && ++asked > 5; });
    QVERIFY(!openFile(reader, "stalled"));
    QVERIFY(asked > 5);
}

void TestPacketReader::readsAPipeOnce() {
    QVERIFY(media::encode({"-i", path("whole.mp4"), "-c", "copy", path("whole.mkv")}));
    PacketReader file;
    QVERIFY(openFile(file, "whole.mkv"));
    const QVector<qint64> times = readTimes(file);
    PipeWriter writer(path("pipe"), readFile(path("whole.mkv")));
    writer.goOn();
    PacketReader reader;
    QVERIFY(openFile(reader, "pipe"));
    QCOMPARE(readTimes(reader), times);
    QVERIFY(!reader.reopen());
    QCOMPARE(reader.errorText(), QString("a pipe cannot be read again"));
    QVERIFY(!reader.read());
}

void TestPacketReader::nothingWhileClosed() {
    PacketReader reader;
    QVERIFY(!reader.read());
    QVERIFY(!reader.stream());
    QCOMPARE(reader.bytePosition(), qint64(-1));
    QCOMPARE(reader.duration(), 0.0);
    QVERIFY(!openFile(reader, "missing.mp4"));
    QCOMPARE(reader.errorText(), QString("No such file or directory"));
    QVERIFY(!reader.read());
    QVERIFY(openFile(reader, "whole.mp4"));
    reader.close();
    QVERIFY(!reader.read());
    QCOMPARE(reader.bytePosition(), qint64(-1));
}

QTEST_GUILESS_MAIN(TestPacketReader)
#include "test_packetreader.moc"
