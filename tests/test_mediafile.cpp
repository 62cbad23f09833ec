// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "mediafile.h"

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

QVector<qint64> readTimes(MediaFile& file) {
    QVector<qint64> times;
    while (const auto packet = file.packets().read())
        times.append(packet->packet->dts);
    return times;
}

} // namespace

class TestMediaFile : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void readsTheVideoStream();
    void describesThePictures();
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
    QByteArray pathOf(const QString& name) const { return path(name).toUtf8(); }

    QTemporaryDir folder;
};

void TestMediaFile::initTestCase() {
    routeLibavLog();
    QVERIFY(folder.isValid());
    // Sound between the pictures, so that the file tells several places where they lie.
    QVERIFY(media::encode({"-f", "lavfi", "-i", "testsrc2=s=64x48:r=25:d=4", "-f", "lavfi", "-i",
                           "sine=d=4", "-c:v", "mpeg4", path("whole.mp4")}));
}

void TestMediaFile::readsTheVideoStream() {
    MediaFile file(pathOf("whole.mp4"));
    QVERIFY(file.isOpen());
    QCOMPARE(file.stream()->index, 0);
    QCOMPARE(file.facts().duration, 4.0);
    const media::ProbedVideo probed = media::probe(path("whole.mp4"));
    QCOMPARE(probed.packetTimes.size(), 100);
    QCOMPARE(readTimes(file), probed.packetTimes);
}

void TestMediaFile::describesThePictures() {
    QVERIFY(media::encode({"-f", "lavfi", "-i", "color=s=72x48:r=25/2:d=2,setsar=16/15", "-c:v",
                           "mpeg4", "-output_ts_offset", "3", path("wide.mkv")}));
    const StreamDescription wide = MediaFile(pathOf("wide.mkv")).facts().description;
    QCOMPARE(wide.size, QSize(72, 48));
    QCOMPARE(wide.pixelAspect.numerator * 15, wide.pixelAspect.denominator * 16);
    QCOMPARE(wide.frameRate.numerator * 2, wide.frameRate.denominator * 25);
    QCOMPARE(wide.startTime, 3.0);
}

void TestMediaFile::numbersThePackets() {
    MediaFile file(pathOf("whole.mp4"));
    for (int i = 0; i < 100; ++i) {
        const auto packet = file.packets().read();
        QVERIFY(packet.has_value());
        QCOMPARE(packet->number, qint64(i));
    }
    QVERIFY(!file.packets().read());
}

void TestMediaFile::startsOverWhenOpenedAgain() {
    MediaFile file(pathOf("whole.mp4"));
    const QVector<qint64> first = readTimes(file);
    QVERIFY(!first.isEmpty());
    QVERIFY(file.reopen());
    QCOMPARE(readTimes(file), first);
}

void TestMediaFile::errorEndsTheFileForGood() {
    // The box "stco" lists where the runs of pictures lie: count, then an offset each. The third
    // run is sent to where the file has nothing; the fourth could be read again.
    QByteArray content = readFile(path("whole.mp4"));
    const int box = content.indexOf("stco");
    QVERIFY(box > 0);
    QVERIFY(qFromBigEndian<quint32>(content.constData() + box + 8) > 3);
    qToBigEndian(quint32(0x7FFFFFF0), content.data() + box + 12 + 2 * 4);
    QVERIFY(writeFile(path("hole.mp4"), content));

    MediaFile file(pathOf("hole.mp4"));
    const int count = readTimes(file).size();
    QVERIFY2(count > 0 && count < 100, qPrintable(QString::number(count)));
    for (int i = 0; i < 5; ++i)
        QVERIFY(!file.packets().read());
    QVERIFY(file.reopen());
    QCOMPARE(readTimes(file).size(), count);
}

void TestMediaFile::interruptEndsTheRead() {
    bool interrupted = false;
    MediaFile file(pathOf("whole.mp4"), [&interrupted] { return interrupted; });
    QVERIFY(file.packets().read().has_value());
    interrupted = true;
    QVERIFY(file.packets().isInterrupted());
    QVERIFY(!file.packets().read());
}

void TestMediaFile::interruptEndsTheOpenOfASilentPipe() {
    QCOMPARE(::mkfifo(path("silent").toUtf8().constData(), 0600), 0);
    int asked = 0;
    const MediaFile file(pathOf("silent"), [&asked] { return ++asked > 3; });
    QVERIFY(!file.isOpen());
    QCOMPARE(file.errorText(), QString("Immediate exit requested"));
}

void TestMediaFile::interruptEndsTheOpenOfAStalledPipe() {
    // The demuxer is known by then, and waits for what it needs to know of the streams.
    QVERIFY(media::encode({"-f", "lavfi", "-i", "testsrc2=s=64x48:r=25:d=1", "-c:v", "mpeg2video",
                           path("whole.ts")}));
    PipeWriter writer(path("stalled"), readFile(path("whole.ts")).left(20 * 188));
    int asked = 0;
    const MediaFile file(pathOf("stalled"), [&] { return writer.hasWrittenHalf() && ++asked > 5; });
    QVERIFY(!file.isOpen());
    QVERIFY(asked > 5);
}

void TestMediaFile::readsAPipeOnce() {
    QVERIFY(media::encode({"-i", path("whole.mp4"), "-c", "copy", path("whole.mkv")}));
    MediaFile file(pathOf("whole.mkv"));
    const QVector<qint64> times = readTimes(file);
    PipeWriter writer(path("pipe"), readFile(path("whole.mkv")));
    writer.goOn();
    MediaFile pipe(pathOf("pipe"));
    QCOMPARE(readTimes(pipe), times);
    QVERIFY(!times.isEmpty());
    QVERIFY(!pipe.reopen());
    QCOMPARE(pipe.errorText(), QString("a pipe cannot be read again"));
    QVERIFY(!pipe.packets().read());
}

void TestMediaFile::nothingWhileClosed() {
    MediaFile file(pathOf("missing.mp4"));
    QVERIFY(!file.isOpen());
    QCOMPARE(file.errorText(), QString("No such file or directory"));
    QVERIFY(!file.packets().read());
    QVERIFY(!file.stream());
    QCOMPARE(file.bytePosition(), qint64(-1));
    QCOMPARE(file.bytes(), qint64(-1));
    QCOMPARE(file.facts().duration, 0.0);
    QVERIFY(file.facts().codecName.isEmpty());
    QVERIFY(file.facts().description.size.isEmpty());
}

QTEST_GUILESS_MAIN(TestMediaFile)
#include "test_mediafile.moc"
