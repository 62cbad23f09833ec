// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "playback.h"

#include "files.h"
#include "logging.h"
#include "mpvlibrary.h"
#include "mpvplayer.h"
#include "numberedpictures.h"
#include "openwatch.h"
#include "pictureslot.h"

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavutil/log.h>
}

#include <QDir>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QtTest>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>

namespace {

constexpr int longMilliseconds = 20000;

/// Plays, and notes which pictures are shown.
class Watched : public QObject {
    Q_OBJECT

public:
    Watched()
        : shown(&playback, SIGNAL(shown(double)))
        , failed(&playback, SIGNAL(failed(QString)))
        , sized(&playback, SIGNAL(sized(QSize))) {
        connect(&playback, SIGNAL(drawn(QImage)), SLOT(note(QImage)));
        playback.setSize(QSize(80, 60));
    }

    void play(const QString& file, double start, double end, bool isPlaying = false,
              bool isWhole = false) {
        PlayRequest request;
        request.clip = {file, {}, start, end, -1};
        request.isPlaying = isPlaying;
        request.isWhole = isWhole;
        playback.play(request);
    }

    bool hasAnswered() const { return !shown.isEmpty() || !failed.isEmpty(); }
    int last() const { return numbers.isEmpty() ? -1 : numbers.last(); }
    QString reason() const { return failed.isEmpty() ? QString() : failed.last()[0].toString(); }

    Playback playback;
    QSignalSpy shown;
    QSignalSpy failed;
    QSignalSpy sized;
    QList<int> numbers;

private Q_SLOTS:
    void note(const QImage& picture) { numbers.append(numbered::numberIn(picture)); }
};

} // namespace

class TestPlayback : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void clipBeginsWithItsPicture_data();
    void clipBeginsWithItsPicture();
    void clipsOfOneRecordingFollow();
    void loopReturnsToItsStart();
    void loopBehindTheEndReturnsToo();
    void wholeRecordingPlaysToItsEnd();
    void stepsForwardAndBack();
    void seeks();
    void picturesHaveTheirShape();
    void sizeIsDrawnAnew();
    void listsOfOtherFilesAreRefused_data();
    void listsOfOtherFilesAreRefused();
    void nothingIsOpenedBesideTheFile();
    void namesOfAnyBytes();
    void missingFileIsTold();
    void pipeIsRefused();
    void changedFileIsTold();
    void fileThatIsCutWhilePlayedIsTold();
    void switchesQuickly();
    void failureOfTheFormerIsNotOfTheNext();
    void endsWhileItLoads();
    void stopIsTheEndOfSignals();
    void impatienceGivesUp();
    void errorsOfSearchesStayTheirs();

private:
    QString path(const QString& name) const { return folder.filePath(name); }
    bool encodeAll() const;

    QTemporaryDir folder;
};

void TestPlayback::initTestCase() {
    if (!MpvLibrary::load())
        QSKIP("libmpv is not installed");
    QVERIFY(encodeAll());
}

bool TestPlayback::encodeAll() const {
    const QStringList h264 = {"-c:v", "libx264", "-crf", "1", "-g", "20", "-bf", "2"};
    const QStringList intra = {"-c:v", "libx264", "-crf", "1", "-g", "20", "-bf", "0"};
    const bool isPlain =
        numbered::encode(path("plain.mkv"), h264) &&
        numbered::encode(path("late.mkv"), h264 + QStringList{"-output_ts_offset", "7.3"}) &&
        numbered::encode(path("stream.ts"), h264) && numbered::encode(path("plain.mp4"), h264) &&
        numbered::encode(path("long.ts"), {"-c:v", "libx264", "-crf", "1", "-g", "250"}) &&
        numbered::encode(path("plain.avi"), intra);
    // Begins between two key frames, of which an edit list tells.
    return isPlain &&
           media::encode(
               {"-ss", "0.48", "-i", path("plain.mp4"), "-c", "copy", path("edit.mp4")}) &&
           // Its sound begins before its pictures.
           media::encode({"-f", "lavfi", "-i", "sine=duration=4", "-itsoffset", "0.6", "-i",
                          path("plain.mkv"), "-map", "0", "-map", "1", "-c:v", "copy", "-c:a",
                          "pcm_s16le", path("sound.mkv")}) &&
           media::encode({"-f", "lavfi", "-i", "sine=duration=4", "-itsoffset", "0.6", "-i",
                          path("plain.mkv"), "-map", "0", "-map", "1", "-c:v", "copy", "-c:a",
                          "mp2", path("sound.ts")});
}

void TestPlayback::clipBeginsWithItsPicture_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("first"); // picture
    QTest::newRow("mkv") << "plain.mkv" << 0;
    QTest::newRow("mkv that begins late") << "late.mkv" << 0;
    QTest::newRow("ts") << "stream.ts" << 0;
    QTest::newRow("ts with one key frame") << "long.ts" << 0;
    QTest::newRow("mp4") << "plain.mp4" << 0;
    QTest::newRow("mp4 with an edit list") << "edit.mp4" << 12;
    QTest::newRow("avi") << "plain.avi" << 0;
    QTest::newRow("mkv whose sound begins first") << "sound.mkv" << 0;
    QTest::newRow("ts whose sound begins first") << "sound.ts" << 0;
}

void TestPlayback::clipBeginsWithItsPicture() {
    QFETCH(QString, name);
    QFETCH(int, first);
    for (const int picture : {0, 7, 33, 60}) {
        Watched watched;
        watched.play(path(name), picture / 25.0, 2.4);
        QTRY_VERIFY_WITH_TIMEOUT(watched.hasAnswered(), longMilliseconds);
        QCOMPARE(watched.reason(), QString());
        QTRY_COMPARE(watched.last(), first + picture);
        // And never another one; only where the search has to begin from earlier is the one before
        // it seen for a moment.
        if (name != "long.ts")
            QCOMPARE(watched.numbers.first(), first + picture);
    }
}

void TestPlayback::clipsOfOneRecordingFollow() {
    Watched watched;
    for (const int picture : {50, 10, 30}) {
        watched.shown.clear();
        watched.play(path("stream.ts"), picture / 25.0, picture / 25.0 + 0.4);
        QTRY_COMPARE_WITH_TIMEOUT(watched.shown.count(), 1, longMilliseconds);
        QTRY_COMPARE(watched.last(), picture);
    }
}

void TestPlayback::loopReturnsToItsStart() {
    Watched watched;
    watched.play(path("plain.mp4"), 1.0, 1.4, true);
    const auto returns = [&watched] {
        int count = 0;
        for (int i = 1; i < watched.numbers.size(); ++i)
            count += watched.numbers[i] < watched.numbers[i - 1] ? 1 : 0;
        return count;
    };
    QTRY_VERIFY_WITH_TIMEOUT(returns() >= 3, longMilliseconds);
    for (const int number : qAsConst(watched.numbers))
        QVERIFY2(number >= 25 && number <= 35, qPrintable(QString::number(number)));
    // On a busy machine a picture is left out now and then.
    QVERIFY(watched.numbers.count(25) + watched.numbers.count(26) >= 3);
}

void TestPlayback::loopBehindTheEndReturnsToo() {
    Watched watched;
    watched.play(path("plain.avi"), 2.6, 9.0, true);
    const auto count = [&watched](int from, int to) {
        return std::count_if(watched.numbers.cbegin(), watched.numbers.cend(),
                             [=](int number) { return number >= from && number <= to; });
    };
    QTRY_VERIFY_WITH_TIMEOUT(count(72, 74) >= 2, longMilliseconds);
    QTRY_VERIFY_WITH_TIMEOUT(count(65, 67) >= 4, longMilliseconds);
    QCOMPARE(count(65, 74), watched.numbers.size());
}

void TestPlayback::wholeRecordingPlaysToItsEnd() {
    Watched watched;
    QSignalSpy paused(&watched.playback, SIGNAL(paused(bool)));
    watched.play(path("plain.mkv"), 2.0, 2.2, true, true);
    QTRY_COMPARE_WITH_TIMEOUT(watched.last(), 74, longMilliseconds);
    QTRY_VERIFY(!paused.isEmpty() && paused.last()[0].toBool());
    QVERIFY(qAbs(watched.shown.last()[0].toDouble() - 3.0) < 0.05);
    // Once more from its beginning.
    watched.playback.setPaused(false);
    QTRY_VERIFY_WITH_TIMEOUT(watched.last() < 20, longMilliseconds);
}

void TestPlayback::stepsForwardAndBack() {
    Watched watched;
    watched.play(path("plain.mkv"), 1.2, 2.0);
    QTRY_COMPARE_WITH_TIMEOUT(watched.last(), 30, longMilliseconds);
    watched.playback.step(false);
    QTRY_COMPARE(watched.last(), 31);
    watched.playback.step(false);
    QTRY_COMPARE(watched.last(), 32);
    watched.playback.step(true);
    QTRY_COMPARE(watched.last(), 31);
}

void TestPlayback::seeks() {
    Watched watched;
    QSignalSpy moved(&watched.playback, SIGNAL(moved(double)));
    watched.play(path("late.mkv"), 0.0, 3.0);
    QTRY_COMPARE_WITH_TIMEOUT(watched.last(), 0, longMilliseconds);
    watched.playback.seek(1.72);
    QTRY_COMPARE(watched.last(), 43);
    QTRY_VERIFY(qAbs(moved.last()[0].toDouble() - 1.72) < 0.001);
}

void TestPlayback::picturesHaveTheirShape() {
    QVERIFY(media::encode({"-i", path("plain.mkv"), "-c:v", "mpeg4", "-frames:v", "3", "-aspect",
                           "16:9", path("wide.mp4")}));
    Watched watched;
    watched.play(path("wide.mp4"), 0.0, 1.0);
    QTRY_COMPARE_WITH_TIMEOUT(watched.shown.count(), 1, longMilliseconds);
    const QSize shape = watched.sized.last()[0].toSize();
    QVERIFY(qAbs(shape.width() * 9 - shape.height() * 16) <= 16);
}

void TestPlayback::sizeIsDrawnAnew() {
    Watched watched;
    watched.play(path("plain.mkv"), 0.4, 1.0);
    QTRY_COMPARE_WITH_TIMEOUT(watched.last(), 10, longMilliseconds);
    QSignalSpy drawn(&watched.playback, SIGNAL(drawn(QImage)));
    watched.playback.setSize(QSize(333, 77));
    QTRY_VERIFY(!drawn.isEmpty());
    QCOMPARE(drawn.last()[0].value<QImage>().size(), QSize(333, 77));
    QCOMPARE(watched.last(), 10);
}

void TestPlayback::listsOfOtherFilesAreRefused_data() {
    QTest::addColumn<QByteArray>("content");
    const QByteArray target = path("plain.mkv").toUtf8();
    QTest::newRow("m3u") << "#EXTM3U\n#EXTINF:1,\n" + target + '\n';
    QTest::newRow("hls") << "#EXTM3U\n#EXT-X-TARGETDURATION:3\n#EXTINF:3.0,\n" + target +
                                "\n#EXT-X-ENDLIST\n";
    QTest::newRow("edit list") << "# mpv EDL v0\n" + target + ",0,1\n";
    QTest::newRow("concat") << "ffconcat version 1.0\nfile '" + target + "'\n";
    QTest::newRow("pls") << "[playlist]\nFile1=" + target + "\nNumberOfEntries=1\n";
    QTest::newRow("cue") << "FILE \"" + target + "\" WAVE\nTRACK 01 AUDIO\nINDEX 01 00:00:00\n";
    QTest::newRow("text") << target + '\n';
    QTest::newRow("nothing") << QByteArray();
}

void TestPlayback::listsOfOtherFilesAreRefused() {
    QFETCH(QByteArray, content);
    OpenWatch watch({path("plain.mkv")});
    for (const char* name : {"forged.mp4", "forged.m3u8", "forged.edl"}) {
        QVERIFY(writeFile(path(name), content));
        Watched watched;
        watched.play(path(name), 0.0, 1.0, true);
        QTRY_COMPARE_WITH_TIMEOUT(watched.failed.count(), 1, longMilliseconds);
        QVERIFY(watched.numbers.isEmpty());
    }
    QCOMPARE(watch.count(), 0);
}

/// Subtitles, sound, covers, configurations and chapters of other files lie about.
void TestPlayback::nothingIsOpenedBesideTheFile() {
    const QStringList beside = {path("plain.srt"),      path("plain.ass"), path("plain.mp3"),
                                path("plain.mkv.conf"), path("cover.jpg"), path("plain.lua")};
    for (const QString& name : beside)
        QVERIFY(writeFile(name, "1\n00:00:00,000 --> 00:00:02,000\ntext\n"));
    OpenWatch watch(beside);
    Watched watched;
    watched.play(path("plain.mkv"), 0.4, 1.0);
    QTRY_COMPARE_WITH_TIMEOUT(watched.last(), 10, longMilliseconds);
    QCOMPARE(watch.count(), 0);
}

void TestPlayback::namesOfAnyBytes() {
    const QStringList names = {"a%02d.mkv", "http:__example.mkv",          "edl:x,y.mkv",
                               "-i.mkv",    QString("\u00e4 #?&;'\".mkv"), "av:lavfi.mkv",
                               "[1]{2}.mkv"};
    for (const QString& name : names) {
        QVERIFY(QFile::copy(path("plain.mkv"), path(name)));
        Watched watched;
        watched.play(path(name), 0.4, 1.0);
        QTRY_COMPARE_WITH_TIMEOUT(watched.last(), 10, longMilliseconds);
    }
}

void TestPlayback::missingFileIsTold() {
    Watched watched;
    watched.play(path("missing.mp4"), 0.0, 1.0);
    QTRY_COMPARE_WITH_TIMEOUT(watched.failed.count(), 1, longMilliseconds);
    QCOMPARE(watched.reason(), QString("The recording is no longer there."));
    // And another one is played.
    watched.play(path("plain.mp4"), 0.4, 1.0);
    QTRY_COMPARE_WITH_TIMEOUT(watched.last(), 10, longMilliseconds);
}

void TestPlayback::pipeIsRefused() {
    QCOMPARE(::mkfifo(path("pipe.mp4").toUtf8().constData(), 0600), 0);
    for (const QString& name : {path("pipe.mp4"), folder.path(), QString("/dev/zero")}) {
        Watched watched;
        watched.play(name, 0.0, 1.0);
        QTRY_COMPARE_WITH_TIMEOUT(watched.failed.count(), 1, longMilliseconds);
        QCOMPARE(watched.reason(), QString("This is no file that can be played."));
    }
}

void TestPlayback::changedFileIsTold() {
    Watched watched;
    PlayRequest request;
    request.clip = {path("plain.mp4"), {}, 0.4, 1.0, QFileInfo(path("plain.mp4")).size() + 1};
    watched.playback.play(request);
    QTRY_COMPARE_WITH_TIMEOUT(watched.failed.count(), 1, longMilliseconds);
    QCOMPARE(watched.reason(), QString("The recording has changed since it was searched."));
    request.clip.bytes -= 1;
    request.clip.isChanged = [] { return true; }; // as large as before
    watched.playback.play(request);
    QTRY_COMPARE_WITH_TIMEOUT(watched.failed.count(), 2, longMilliseconds);
    QCOMPARE(watched.reason(), QString("The recording has changed since it was searched."));
    request.clip.isChanged = [] { return false; };
    watched.playback.play(request);
    QTRY_COMPARE_WITH_TIMEOUT(watched.last(), 10, longMilliseconds);
}

void TestPlayback::fileThatIsCutWhilePlayedIsTold() {
    // So large that it is not read at once.
    QVERIFY(media::encode({"-f", "lavfi", "-i", "testsrc2=size=320x240:rate=25:duration=12", "-c:v",
                           "rawvideo", "-pix_fmt", "yuv420p", path("cut.avi")}));
    QVERIFY(QFileInfo(path("cut.avi")).size() > 30 * 1024 * 1024);
    Watched watched;
    watched.play(path("cut.avi"), 0.0, 12.0, true);
    QTRY_COMPARE_WITH_TIMEOUT(watched.shown.count(), 1, longMilliseconds);
    QVERIFY(QFile::resize(path("cut.avi"), 6 * 1024 * 1024));
    watched.playback.seek(10.0);
    QTRY_COMPARE_WITH_TIMEOUT(watched.failed.count(), 1, longMilliseconds);
    QCOMPARE(watched.reason(), QString("The recording has changed while it was played."));
}

void TestPlayback::switchesQuickly() {
    const QStringList names = {"plain.mkv", "stream.ts", "missing.mp4", "plain.avi", "edit.mp4"};
    Watched watched;
    for (int i = 0; i < 50; ++i) {
        watched.play(path(names[i % names.size()]), i / 25.0, 3.0, i % 2 == 0);
        QTest::qWait(i % 7);
    }
    watched.play(path("late.mkv"), 1.0, 2.0);
    QTRY_COMPARE_WITH_TIMEOUT(watched.last(), 25, longMilliseconds);
    QTRY_VERIFY(!watched.shown.isEmpty());
}

void TestPlayback::failureOfTheFormerIsNotOfTheNext() {
    QVERIFY(writeFile(path("text.srt"), "1\n00:00:00,000 --> 00:00:01,000\nHello\n"));
    QVERIFY(media::encode({"-i", path("text.srt"), path("text.mkv")}));
    PictureSlot pictures;
    MpvPlayer player(pictures);
    QSignalSpy shown(&player, SIGNAL(shown(int, double)));
    QSignalSpy failed(&player, SIGNAL(failed(int, QString)));
    PlayRequest request;
    const auto play = [&](const QString& name) {
        ++request.number;
        request.clip = {path(name), {}, 1.0, 2.0, -1};
        player.play(request);
    };
    play("text.mkv");
    QTRY_COMPARE_WITH_TIMEOUT(failed.count(), 1, longMilliseconds);
    play("text.mkv");
    QTest::qSleep(500); // it fails meanwhile, and nobody hears of it before the next is asked for
    play("plain.mp4");
    QTRY_VERIFY_WITH_TIMEOUT(shown.count() + failed.count() > 1, longMilliseconds);
    QCOMPARE(failed.count(), 1);
    QCOMPARE(shown.last()[0].toInt(), request.number);
}

void TestPlayback::endsWhileItLoads() {
    for (int milliseconds = 0; milliseconds < 60; milliseconds += 3) {
        QElapsedTimer timer;
        {
            Watched watched;
            watched.play(path("stream.ts"), 1.0, 2.0, true);
            QTest::qWait(milliseconds);
            timer.start();
        }
        QVERIFY(timer.elapsed() < 2000);
    }
    QTRY_VERIFY(!Playback::isAnyAbandoned());
}

void TestPlayback::stopIsTheEndOfSignals() {
    Watched watched;
    watched.play(path("plain.mkv"), 0.0, 3.0, true);
    QTRY_VERIFY_WITH_TIMEOUT(watched.numbers.size() > 3, longMilliseconds);
    QElapsedTimer timer;
    timer.start();
    watched.playback.stop();
    QVERIFY(timer.elapsed() < 50);
    const int before = watched.numbers.size();
    QTRY_VERIFY(!Playback::isAnyAbandoned());
    QCOMPARE(watched.numbers.size(), before);
    watched.play(path("plain.mkv"), 0.4, 3.0);
    QTRY_COMPARE_WITH_TIMEOUT(watched.last(), 10, longMilliseconds);
}

/// As on a disk that does not answer: no file of this machine hangs, so that the time is short.
void TestPlayback::impatienceGivesUp() {
    Watched watched;
    watched.playback.setPatience(0);
    watched.play(path("stream.ts"), 1.0, 2.0);
    QTRY_COMPARE_WITH_TIMEOUT(watched.failed.count(), 1, longMilliseconds);
    QCOMPARE(watched.reason(), QString("The recording does not answer."));
    watched.playback.setPatience(longMilliseconds);
    watched.play(path("stream.ts"), 1.0, 2.0);
    QTRY_COMPARE_WITH_TIMEOUT(watched.last(), 25, longMilliseconds);
}

/// The library has decoders and a log of its own.
void TestPlayback::errorsOfSearchesStayTheirs() {
    QByteArray content = readFile(path("stream.ts"));
    for (int i = 3000; i < content.size(); i += 997)
        content[i] = char(i);
    QVERIFY(writeFile(path("damaged.ts"), content));
    routeLibavLog();
    DecoderErrors decoder;
    AVCodecContext* context = avcodec_alloc_context3(nullptr);
    context->opaque = &decoder;
    const qint64 unowned = unownedLibavErrors();
    {
        Watched watched;
        watched.play(path("damaged.ts"), 0.0, 3.0, true);
        QTRY_VERIFY_WITH_TIMEOUT(watched.numbers.size() > 40, longMilliseconds);
        QCOMPARE(decoder.libavErrors.load(), 0);
        av_log(context, AV_LOG_ERROR, "while it plays\n");
        QCOMPARE(decoder.libavErrors.load(), 1);
    }
    QTRY_VERIFY(!Playback::isAnyAbandoned());
    av_log(context, AV_LOG_ERROR, "when it has gone\n");
    QCOMPARE(decoder.libavErrors.load(), 2);
    QCOMPARE(unownedLibavErrors(), unowned);
    avcodec_free_context(&context);
}

QTEST_MAIN(TestPlayback)
#include "test_playback.moc"
