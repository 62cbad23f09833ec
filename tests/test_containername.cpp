// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "containername.h"
#include "files.h"
#include "media.h"
#include "process.h"
#include "refuseddemuxers.h"

extern "C" {
#include <libavformat/avformat.h>
}

#include <QSet>
#include <QTemporaryDir>
#include <QtTest>

#include <sys/stat.h>

/// What the encoder is told that a recording is.
class TestContainerName : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyNameIsOneDemuxer();
    void encoderKnowsEveryName();
    void isThatOfTheContent();
    void whatIsRefusedHasNone_data();
    void whatIsRefusedHasNone();
    void pipesAreNotWaitedFor();

private:
    QString path(const QString& name) const { return folder.filePath(name); }

    QTemporaryDir folder;
};

namespace {

QVector<const AVInputFormat*> acceptedDemuxers() {
    QVector<const AVInputFormat*> demuxers;
    void* place = nullptr;
    while (const AVInputFormat* demuxer = av_demuxer_iterate(&place)) {
        if (refusalOf(*demuxer).isEmpty() && (demuxer->flags & AVFMT_NOFILE) == 0)
            demuxers.append(demuxer);
    }
    return demuxers;
}

QByteArray nonsense() {
    return QByteArray(5000, 'x');
}

} // namespace

void TestContainerName::everyNameIsOneDemuxer() {
    QVERIFY(acceptedDemuxers().size() > 200);
    for (const AVInputFormat* demuxer : acceptedDemuxers())
        QCOMPARE(av_find_input_format(programName(*demuxer).toLatin1().constData()), demuxer);
}

/// Its list has a line for each, " D  mov,mp4,m4a,3gp,3g2,mj2 QuickTime / MOV".
void TestContainerName::encoderKnowsEveryName() {
    QSet<QByteArray> known;
    for (const QByteArray& line :
         runProgram("ffmpeg", {"-v", "error", "-demuxers"}).output.split('\n'))
        for (const QByteArray& name : line.simplified().split(' ').value(1).split(','))
            known.insert(name);
    for (const AVInputFormat* demuxer : acceptedDemuxers())
        QVERIFY2(known.contains(programName(*demuxer).toLatin1()), demuxer->name);
}

void TestContainerName::isThatOfTheContent() {
    const QString misnamed = path("card.avi");
    QVERIFY(media::encodeGrey(misnamed, {media::grey(32, 32, 1), media::grey(32, 32, 2)}, 25,
                              {"-c:v", "ffv1", "-f", "matroska"}));
    const ContainerName found = containerNameOf(misnamed, [] { return false; });
    QCOMPARE(found.error, QString());
    QCOMPARE(found.name, QString("matroska"));
}

void TestContainerName::whatIsRefusedHasNone_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("reason");
    // Newer libraries go by the extension, too.
    QTest::newRow("playlist") << "night.m3u8"
                              << QByteArray("#EXTM3U\n#EXT-X-TARGETDURATION:9\n#EXTINF:9,\na.ts\n")
                              << "a playlist, not a recording";
    QTest::newRow("list") << "noise" << QByteArray("ffconcat version 1.0\nfile a.mp4\n")
                          << "a playlist, not a recording";
    QTest::newRow("nonsense") << "noise" << nonsense()
                              << "Invalid data found when processing input";
}

void TestContainerName::whatIsRefusedHasNone() {
    QFETCH(QString, name);
    QFETCH(QByteArray, content);
    QFETCH(QString, reason);
    QVERIFY(writeFile(path(name), content));
    const ContainerName found = containerNameOf(path(name), [] { return false; });
    QCOMPARE(found.name, QString());
    QCOMPARE(found.error, reason);
    QCOMPARE(containerNameOf(path("missing.mp4"), [] { return false; }).error,
             QString("No such file or directory"));
}

void TestContainerName::pipesAreNotWaitedFor() {
    QCOMPARE(mkfifo(qPrintable(path("pipe")), 0600), 0);
    const ContainerName found = containerNameOf(path("pipe"), [] { return false; });
    QCOMPARE(found.name, QString());
    QCOMPARE(found.error, QString("a pipe cannot be read again"));
}

QTEST_GUILESS_MAIN(TestContainerName)
#include "test_containername.moc"
