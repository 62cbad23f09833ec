// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "clip.h"
#include "encoderstand.h"
#include "exportnotices.h"
#include "video.h"

#include <QDesktopServices>
#include <QDir>
#include <QIcon>
#include <QSettings>
#include <QtTest>

#include <memory>
#include <vector>

#include <sys/resource.h>
#include <unistd.h>

namespace {

QImage blueSnapshot() {
    QImage snapshot(320, 180, QImage::Format_RGB32);
    snapshot.fill(Qt::blue);
    return snapshot;
}

QString secondLine(const Clip& clip) {
    return clip.text().section('\n', 1);
}

} // namespace

class TestClip : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void statusTexts();
    void showsNameNumberTimeLengthAndStatus();
    void text_data();
    void text();
    void nameWithPlaceholders();
    void iconIsTheSnapshot();

    void exportsByItself();
    void asksTwiceForAutomaticExport();
    void threeInARow();
    void runsInTheProgramsDirectory();
    void readsTheSettingsAtEveryStart();
    void exportsAgain();
    void handsOverTheOverlay();
    void seeksBehindAnIntraCodedInput();

    void opensWhatIsExported();
    void opensOddNames();
    void openingExportsFirst();
    void openingGoesToTheHead();
    void openingWhileExporting();
    void failedIsNotOpened();

    void encoderFails();
    void encoderIsMissing();
    void noProcessCanBeMade();
    void crashEndsTwice();
    void secondStartEndsTheFirst();
    void alwaysCrashing();
    void endOfASupersededRun();

    void successWithoutAFile_data();
    void successWithoutAFile();
    void reasonOfAFailure();
    void timesThatCannotBeCut();

    void removingTheExportingClip();
    void removingBesideADirectExport();
    void removingAWaitingClip();
    void removingAll();
    void leavingTheQueueTogether();
    void jobGone();

public Q_SLOTS:
    void noteUrl(const QUrl& url) { openedUrls.append(url); }
    void note(const QString& notice) { notices.append(notice); }

private:
    std::unique_ptr<Video> makeJob(bool autoExport = false, bool exportTimestamps = false,
                                   const QDateTime& start = {}) const;

    std::unique_ptr<QTemporaryDir> folder;
    std::unique_ptr<EncoderStand> encoder;
    QString videoName;
    QList<QUrl> openedUrls;
    QStringList notices;
};

void TestClip::initTestCase() {
    QCoreApplication::setOrganizationName("kestrova");
    QCoreApplication::setApplicationName("kestrova");
    connect(&ExportNotices::instance(), SIGNAL(told(QString)), SLOT(note(QString)));
}

void TestClip::init() {
    QSettings().clear();
    folder = std::make_unique<QTemporaryDir>();
    encoder = std::make_unique<EncoderStand>();
    videoName = folder->filePath("garden.mp4");
    openedUrls.clear();
    notices.clear();
    QDesktopServices::setUrlHandler("file", this, "noteUrl");
}

void TestClip::cleanup() {
    QDesktopServices::unsetUrlHandler("file");
    encoder->release();
    QTRY_COMPARE(Clip::exportQueueLength(), 0);
    encoder.reset();
    folder.reset();
}

std::unique_ptr<Video> TestClip::makeJob(bool autoExport, bool exportTimestamps,
                                         const QDateTime& start) const {
    return std::make_unique<Video>(videoName, folder->path(), 1.0, 1.0, 5.0, 0, autoExport, nullptr,
                                   nullptr, exportTimestamps, start);
}

void TestClip::statusTexts() {
    QCOMPARE(Clip::statusText(0), "not exported");
    QCOMPARE(Clip::statusText(1), "exporting...");
    QCOMPARE(Clip::statusText(2), "queued...");
    QCOMPARE(Clip::statusText(3), "canceled");
    QCOMPARE(Clip::statusText(4), "export failed!");
    QCOMPARE(Clip::statusText(5), "exported");
    QCOMPARE(Clip::statusText(6), "unknown status");
    QCOMPARE(Clip::statusText(-1), "unknown status");
}

void TestClip::showsNameNumberTimeLengthAndStatus() {
    const auto job = makeJob();
    Clip clip(job.get(), 3, blueSnapshot(), 9 * 3600 + 5 * 60 + 3.7, 9 * 3600 + 5 * 60 + 16.6, 0.0);
    clip.status = Clip::Queued;
    clip.updateText();
    QCOMPARE(clip.text(), QString("garden.mp4\n#3 9:05:03 (12 sec) (queued...)"));
}

void TestClip::text_data() {
    QTest::addColumn<double>("start");
    QTest::addColumn<double>("end");
    QTest::addColumn<QDateTime>("videoStart");
    QTest::addColumn<QString>("line");
    const QDateTime none;
    const QDateTime beforeMidnight(QDate(2026, 11, 16), QTime(23, 59, 50), Qt::UTC);
    QTest::newRow("from the start of the video")
        << 3725.9 << 3731.0 << none << "#0 1:02:05 (5 sec) (not exported)";
    QTest::newRow("folded into one day")
        << 90000.0 << 90002.0 << none << "#0 1:00:00 (2 sec) (not exported)";
    QTest::newRow("past midnight")
        << 15.0 << 20.0 << beforeMidnight << "#0 0:00:05 (5 sec) (not exported)";
    QTest::newRow("shorter than a second")
        << 1.0 << 1.9 << none << "#0 0:00:01 (0 sec) (not exported)";
}

void TestClip::text() {
    QFETCH(double, start);
    QFETCH(double, end);
    QFETCH(QDateTime, videoStart);
    QFETCH(QString, line);
    const auto job = makeJob(false, videoStart.isValid(), videoStart);
    const Clip clip(job.get(), 0, blueSnapshot(), start, end, start);
    QCOMPARE(secondLine(clip), line);
}

void TestClip::nameWithPlaceholders() {
    videoName = folder->filePath("cam%1 %7%L2.mp4");
    const auto job = makeJob();
    const Clip clip(job.get(), 3, blueSnapshot(), 0.0, 5.0, 1.0);
    QCOMPARE(clip.text(), QString("cam%1 %7%L2.mp4\n#3 0:00:00 (5 sec) (not exported)"));
}

void TestClip::iconIsTheSnapshot() {
    const auto job = makeJob();
    const Clip clip(job.get(), 0, blueSnapshot(), 0.0, 1.0, 0.5);
    QCOMPARE(clip.icon().pixmap(320, 320).toImage().pixelColor(10, 10), QColor(Qt::blue));
    QCOMPARE(clip.icon().actualSize({320, 320}), QSize(320, 180));
    QCOMPARE(clip.type(), int(QListWidgetItem::Type));
}

void TestClip::exportsByItself() {
    const auto job = makeJob(true);
    const Clip clip(job.get(), 0, blueSnapshot(), 2.5, 6.0, 3.0);
    QCOMPARE(secondLine(clip), QString("#0 0:00:02 (3 sec) (exporting...)"));
    QCOMPARE(clip.outputPath, job->clipDirectory + "/0000.avi");
    QTRY_COMPARE(secondLine(clip), QString("#0 0:00:02 (3 sec) (exported)"));
    QCOMPARE(encoder->calls(),
             QList<QStringList>(
                 {{"-nostats", "-y", "-ss", "2", "-i", videoName, "-t", "3", "-vcodec", "copy",
                   "-acodec", "copy", "-avoid_negative_ts", "disabled", clip.outputPath}}));
}

void TestClip::asksTwiceForAutomaticExport() {
    encoder->hold();
    const auto job = makeJob(true);
    Clip first(job.get(), 0, blueSnapshot(), 0.0, 5.0, 1.0);
    first.exportClip(false);
    QCOMPARE(first.status, int(Clip::Queued));
    QCOMPARE(Clip::exportQueueLength(), 1);
    Clip second(job.get(), 1, blueSnapshot(), 9.0, 15.0, 10.0);
    second.exportClip(false);
    QCOMPARE(second.status, int(Clip::Queued));
    QCOMPARE(Clip::exportQueueLength(), 3);

    encoder->release();
    QTRY_COMPARE(second.status, int(Clip::Exported));
    QCOMPARE(first.status, int(Clip::Exported));
    QCOMPARE(Clip::exportQueueLength(), 0);
    QCOMPARE(encoder->outputs(), QStringList({"0000.avi", "0001.avi"}));
}

void TestClip::threeInARow() {
    encoder->hold();
    const auto job = makeJob();
    Clip first(job.get(), 0, blueSnapshot(), 0.0, 5.0, 1.0);
    Clip second(job.get(), 1, blueSnapshot(), 10.0, 15.0, 11.0);
    Clip third(job.get(), 2, blueSnapshot(), 20.0, 25.0, 21.0);
    for (Clip* clip : {&first, &second, &third})
        clip->exportClip(false);
    QCOMPARE(first.status, int(Clip::Exporting));
    QCOMPARE(second.status, int(Clip::Queued));
    QCOMPARE(third.status, int(Clip::Queued));
    QCOMPARE(Clip::exportQueueLength(), 2);

    // The second clip stays in the queue while it is exported.
    encoder->releaseOutput("0000.avi");
    QTRY_COMPARE(first.status, int(Clip::Exported));
    QCOMPARE(second.status, int(Clip::Exporting));
    QCOMPARE(third.status, int(Clip::Queued));
    QCOMPARE(Clip::exportQueueLength(), 2);
    encoder->releaseOutput("0001.avi");
    QTRY_COMPARE(second.status, int(Clip::Exported));
    QCOMPARE(third.status, int(Clip::Exporting));
    QCOMPARE(Clip::exportQueueLength(), 1);

    encoder->release();
    QTRY_COMPARE(third.status, int(Clip::Exported));
    QCOMPARE(encoder->outputs(), QStringList({"0000.avi", "0001.avi", "0002.avi"}));
}

void TestClip::runsInTheProgramsDirectory() {
    QDir::setCurrent("/");
    const auto job = makeJob(true);
    const Clip clip(job.get(), 0, blueSnapshot(), 0.0, 5.0, 1.0);
    QCOMPARE(QDir::currentPath(), QCoreApplication::applicationDirPath());
    QTRY_COMPARE(clip.status, int(Clip::Exported));
}

void TestClip::readsTheSettingsAtEveryStart() {
    const auto job = makeJob();
    Clip clip(job.get(), 12345, blueSnapshot(), 0.0, 5.0, 1.0);
    QSettings().setValue("output_format", 3);
    clip.exportClip(false);
    QTRY_COMPARE(clip.status, int(Clip::Exported));
    QSettings().setValue("output_format", 2);
    QSettings().setValue("do_transcoding", true);
    QSettings().setValue("disable_audio", true);
    QSettings().setValue("bitrate_output", 0.5);
    clip.exportClip(false);
    QTRY_COMPARE(clip.status, int(Clip::Exported));
    QCOMPARE(encoder->outputs(), QStringList({"12345.avi", "12345.mkv"}));
    QCOMPARE(encoder->calls()[1].mid(8),
             QStringList({"-b:v", "524288", "-an", "-avoid_negative_ts", "disabled",
                          job->clipDirectory + "/12345.mkv"}));
}

void TestClip::exportsAgain() {
    const auto job = makeJob();
    Clip clip(job.get(), 0, blueSnapshot(), 0.0, 5.0, 1.0);
    encoder->setEnd("1");
    clip.exportClip(false);
    QTRY_COMPARE(clip.status, int(Clip::ExportFailed));
    encoder->setEnd("0");
    for (int run = 2; run <= 3; ++run) {
        clip.exportClip(false);
        QCOMPARE(clip.status, int(Clip::Exporting));
        QTRY_COMPARE(clip.status, int(Clip::Exported));
        QCOMPARE(encoder->calls().size(), run);
    }
}

void TestClip::handsOverTheOverlay() {
    const auto job = makeJob(true, true, QDateTime(QDate(2026, 11, 16), QTime(9, 5, 0), Qt::UTC));
    const Clip clip(job.get(), 0, blueSnapshot(), 3.7, 9.0, 5.0);
    QTRY_COMPARE(clip.status, int(Clip::Exported));
    QCOMPARE(encoder->calls()[0].mid(8, 4),
             QStringList({"-vf",
                          "drawtext=fontfile=DejaVuSansMono.ttf:text='Mon Nov 16 2026 "
                          "%{pts\\:hms\\:32703}':x=10:y=10:fontcolor=white:box=1:boxborderw=3:"
                          "boxcolor=0x00000000@1",
                          "-b:v", "2097152"}));
}

void TestClip::seeksBehindAnIntraCodedInput() {
    const auto job = makeJob();
    job->intraCodec = true;
    Clip clip(job.get(), 0, blueSnapshot(), 3.7, 9.0, 5.0);
    clip.exportClip(false);
    QTRY_COMPARE(clip.status, int(Clip::Exported));
    QCOMPARE(encoder->calls()[0].mid(2, 8),
             QStringList({"-i", videoName, "-ss", "3", "-t", "5", "-b:v", "2097152"}));
}

void TestClip::opensWhatIsExported() {
    const auto job = makeJob(true);
    Clip clip(job.get(), 0, blueSnapshot(), 0.0, 5.0, 1.0);
    QTRY_COMPARE(clip.status, int(Clip::Exported));
    QVERIFY(openedUrls.isEmpty());
    clip.openClip();
    QCOMPARE(openedUrls, QList<QUrl>({QUrl("file:///" + clip.outputPath)}));
    QCOMPARE(encoder->calls().size(), 1);
}

void TestClip::opensOddNames() {
    videoName = folder->filePath("100% #1?.mp4");
    const auto job = makeJob(true);
    Clip clip(job.get(), 0, blueSnapshot(), 0.0, 5.0, 1.0);
    QTRY_COMPARE(clip.status, int(Clip::Exported));
    clip.openClip();
    QCOMPARE(openedUrls.size(), 1);
    QCOMPARE(openedUrls[0].toEncoded(),
             "file:///" + folder->path().toUtf8() + "/100%25%20%231%3F_mp4_0/0000.avi");
    QCOMPARE(openedUrls[0].toLocalFile(), '/' + clip.outputPath);
}

void TestClip::openingExportsFirst() {
    encoder->hold();
    const auto job = makeJob();
    Clip clip(job.get(), 0, blueSnapshot(), 0.0, 5.0, 1.0);
    clip.openClip();
    QCOMPARE(clip.status, int(Clip::Exporting));
    QVERIFY(clip.openWhenDone);
    QVERIFY(openedUrls.isEmpty());
    encoder->release();
    QTRY_COMPARE(openedUrls, QList<QUrl>({QUrl("file:///" + clip.outputPath)}));
    QCOMPARE(clip.status, int(Clip::Exported));
    QVERIFY(!clip.openWhenDone);
}

void TestClip::openingGoesToTheHead() {
    encoder->hold();
    const auto job = makeJob();
    Clip running(job.get(), 0, blueSnapshot(), 0.0, 5.0, 1.0);
    Clip waiting(job.get(), 1, blueSnapshot(), 10.0, 15.0, 11.0);
    Clip opened(job.get(), 2, blueSnapshot(), 20.0, 25.0, 21.0);
    for (Clip* clip : {&running, &waiting, &opened})
        clip->exportClip(false);
    opened.openClip();
    QCOMPARE(Clip::exportQueueLength(), 3);
    encoder->release();
    QTRY_COMPARE(waiting.status, int(Clip::Exported));
    QCOMPARE(encoder->outputs(), QStringList({"0000.avi", "0002.avi", "0001.avi"}));
    QCOMPARE(openedUrls, QList<QUrl>({QUrl("file:///" + opened.outputPath)}));
}

void TestClip::openingWhileExporting() {
    encoder->hold();
    const auto job = makeJob(true);
    Clip clip(job.get(), 0, blueSnapshot(), 0.0, 5.0, 1.0);
    clip.openClip();
    QCOMPARE(clip.status, int(Clip::Queued));
    QCOMPARE(Clip::exportQueueLength(), 1);
    encoder->release();
    QTRY_COMPARE(openedUrls.size(), 1);
    QCOMPARE(clip.status, int(Clip::Exported));
    QCOMPARE(Clip::exportQueueLength(), 0);
    QCOMPARE(encoder->calls().size(), 1);
}

void TestClip::failedIsNotOpened() {
    encoder->setEnd("1");
    const auto job = makeJob();
    Clip clip(job.get(), 0, blueSnapshot(), 0.0, 5.0, 1.0);
    clip.openClip();
    QTRY_COMPARE(clip.status, int(Clip::ExportFailed));
    clip.openClip();
    QCOMPARE(clip.status, int(Clip::ExportFailed));
    QVERIFY(openedUrls.isEmpty());
    QCOMPARE(encoder->calls().size(), 1);
}

void TestClip::encoderFails() {
    encoder->setEnd("1");
    encoder->hold();
    const auto job = makeJob(true);
    const Clip failing(job.get(), 0, blueSnapshot(), 0.0, 5.0, 1.0);
    const Clip next(job.get(), 1, blueSnapshot(), 10.0, 15.0, 11.0);
    QTRY_COMPARE(encoder->calls().size(), 1);
    encoder->setEnd("0");
    encoder->release();
    QTRY_COMPARE(next.status, int(Clip::Exported));
    QCOMPARE(secondLine(failing), QString("#0 0:00:00 (5 sec) (export failed!)"));
}

void TestClip::encoderIsMissing() {
    encoder->useNone();
    const auto job = makeJob();
    Clip first(job.get(), 0, blueSnapshot(), 0.0, 5.0, 1.0);
    Clip second(job.get(), 1, blueSnapshot(), 10.0, 15.0, 11.0);
    first.exportClip(false);
    second.exportClip(false);
    QTRY_COMPARE(second.status, int(Clip::ExportFailed));
    QCOMPARE(first.status, int(Clip::ExportFailed));
    QCOMPARE(Clip::exportQueueLength(), 0);

    encoder->useRecorder();
    first.exportClip(false);
    QTRY_COMPARE(first.status, int(Clip::Exported));
}

void TestClip::noProcessCanBeMade() {
    // Far more clips than nested calls would survive.
    constexpr int count = 20000;
    const auto job = makeJob();
    std::vector<std::unique_ptr<Clip>> clips;
    encoder->hold();
    for (int i = 0; i < count; ++i) {
        clips.push_back(std::make_unique<Clip>(job.get(), i, QImage(), 0.0, 5.0, 1.0));
        clips.back()->exportClip(false);
    }
    QTRY_COMPARE(encoder->calls().size(), 1);
    // No descriptor is left for the pipes of another process.
    const int lowestFree = dup(0);
    close(lowestFree);
    rlimit before{};
    getrlimit(RLIMIT_NOFILE, &before);
    const rlimit full{rlim_t(lowestFree), before.rlim_max};
    encoder->release();
    setrlimit(RLIMIT_NOFILE, &full);
    const bool hasEnded =
        QTest::qWaitFor([&] { return clips.back()->status == Clip::ExportFailed; }, 60000);
    setrlimit(RLIMIT_NOFILE, &before);
    QVERIFY(hasEnded);
    QCOMPARE(clips.front()->status, int(Clip::Exported));
    for (int i = 1; i < count; ++i)
        QCOMPARE(clips[std::size_t(i)]->status, int(Clip::ExportFailed));
    QCOMPARE(Clip::exportQueueLength(), 0);
}

void TestClip::crashEndsTwice() {
    encoder->setEnd("crash");
    encoder->hold();
    const auto job = makeJob(true);
    const Clip crashing(job.get(), 0, blueSnapshot(), 0.0, 5.0, 1.0);
    const Clip next(job.get(), 1, blueSnapshot(), 10.0, 15.0, 11.0);
    QTRY_COMPARE(encoder->calls().size(), 1);
    encoder->setEnd("0");
    encoder->release();
    QTRY_COMPARE(next.status, int(Clip::Exported));
    // Both the error and the end of the crashed run start the next clip; the first of these starts
    // is ended at once, before it has noted anything or after.
    const QStringList outputs = encoder->outputs();
    QVERIFY(outputs == QStringList({"0000.avi", "0001.avi"}) ||
            outputs == QStringList({"0000.avi", "0001.avi", "0001.avi"}));
    QCOMPARE(encoder->clashes(), QByteArray());
    QCOMPARE(crashing.status, int(Clip::ExportFailed));
    QCOMPARE(Clip::exportQueueLength(), 0);
}

void TestClip::secondStartEndsTheFirst() {
    encoder->hold();
    const auto job = makeJob();
    Clip crashing(job.get(), 0, blueSnapshot(), 0.0, 5.0, 1.0);
    Clip next(job.get(), 1, blueSnapshot(), 10.0, 15.0, 11.0);
    crashing.exportClip(false);
    next.exportClip(false);
    QTRY_COMPARE(encoder->calls().size(), 1);
    // A crash, drawn out so that the first start is well under way when the second comes.
    QMetaObject::invokeMethod(&crashing, "processError",
                              Q_ARG(QProcess::ProcessError, QProcess::Crashed));
    QCOMPARE(next.status, int(Clip::Exporting));
    QTRY_COMPARE(encoder->calls().size(), 2);
    QMetaObject::invokeMethod(&crashing, "processFinished", Q_ARG(int, -1));
    QTRY_COMPARE(encoder->calls().size(), 3);
    QCOMPARE(encoder->outputs(), QStringList({"0000.avi", "0001.avi", "0001.avi"}));
    QCOMPARE(encoder->clashes(), QByteArray());
    QCOMPARE(next.status, int(Clip::Exporting));
    encoder->releaseOutput("0001.avi");
    QTRY_COMPARE(next.status, int(Clip::Exported));
    QCOMPARE(encoder->calls().size(), 3);
    encoder->release();
    QTRY_COMPARE(crashing.status, int(Clip::Exported));
}

void TestClip::alwaysCrashing() {
    constexpr int count = 300;
    encoder->setEnd("crash");
    const auto job = makeJob();
    const auto descriptors = [] {
        return int(QDir("/proc/self/fd").entryList(QDir::AllEntries | QDir::System).size());
    };
    const int before = descriptors();
    int most = 0;
    QTimer sampler;
    connect(&sampler, &QTimer::timeout, &sampler, [&] { most = qMax(most, descriptors()); });
    sampler.start(5);
    std::vector<std::unique_ptr<Clip>> clips;
    for (int i = 0; i < count; ++i) {
        clips.push_back(std::make_unique<Clip>(job.get(), i, QImage(), 0.0, 5.0, 1.0));
        clips.back()->exportClip(false);
    }
    QTRY_COMPARE_WITH_TIMEOUT(clips.back()->status, int(Clip::ExportFailed), 120000);
    for (const auto& clip : clips)
        QCOMPARE(clip->status, int(Clip::ExportFailed));
    QCOMPARE(Clip::exportQueueLength(), 0);
    const int starts = int(encoder->calls().size());
    QVERIFY2(starts >= count && starts <= 2 * count, qPrintable(QString::number(starts)));
    QCOMPARE(encoder->clashes(), QByteArray());
    QVERIFY2(most > before && most < before + 50, qPrintable(QString::number(most)));
}

void TestClip::endOfASupersededRun() {
    encoder->hold();
    const auto job = makeJob();
    Clip clip(job.get(), 0, blueSnapshot(), 0.0, 5.0, 1.0);
    Clip waiting(job.get(), 1, blueSnapshot(), 10.0, 15.0, 11.0);
    auto other = std::make_unique<Clip>(job.get(), 2, blueSnapshot(), 20.0, 25.0, 21.0);
    clip.exportClip(false);
    QTRY_COMPARE(encoder->calls().size(), 1);
    other.reset(); // from now on no encoder is believed to run
    clip.exportClip(false);
    waiting.exportClip(false);
    QTRY_COMPARE(encoder->calls().size(), 2);
    // The end of the first run has neither failed the clip nor started the one that waits.
    QCOMPARE(clip.status, int(Clip::Exporting));
    QCOMPARE(waiting.status, int(Clip::Queued));
    QCOMPARE(encoder->outputs(), QStringList({"0000.avi", "0000.avi"}));
    QCOMPARE(encoder->clashes(), QByteArray());
    encoder->release();
    QTRY_COMPARE(waiting.status, int(Clip::Exported));
    QCOMPARE(clip.status, int(Clip::Exported));
    QCOMPARE(encoder->calls().size(), 3);
}

void TestClip::successWithoutAFile_data() {
    QTest::addColumn<QByteArray>("end");
    QTest::addColumn<QString>("reason");
    QTest::newRow("no file") << QByteArray("none") << "the encoder wrote no file";
    QTest::newRow("empty file") << QByteArray("empty") << "the encoder wrote an empty file";
}

void TestClip::successWithoutAFile() {
    QFETCH(QByteArray, end);
    QFETCH(QString, reason);
    encoder->setEnd(end);
    const auto job = makeJob();
    Clip clip(job.get(), 2, blueSnapshot(), 0.0, 5.0, 1.0);
    clip.exportClip(false);
    QTRY_COMPARE(clip.status, int(Clip::Exported));
    QCOMPARE(notices, QStringList({"garden.mp4 #2: " + reason}));
    QVERIFY2(clip.toolTip().contains(reason), qPrintable(clip.toolTip()));

    encoder->setEnd("0");
    clip.exportClip(false);
    QCOMPARE(clip.toolTip(), QString());
    QTRY_COMPARE(clip.status, int(Clip::Exported));
    QCOMPARE(clip.toolTip(), QString());
    QCOMPARE(notices.size(), 1);
}

void TestClip::reasonOfAFailure() {
    encoder->setEnd("1");
    videoName = folder->filePath("<b>%1.mp4");
    const auto job = makeJob();
    Clip clip(job.get(), 4, blueSnapshot(), 0.0, 5.0, 1.0);
    clip.exportClip(false);
    QTRY_COMPARE(clip.status, int(Clip::ExportFailed));
    QCOMPARE(notices, QStringList({"<b>%1.mp4 #4: told to fail"}));
    QVERIFY2(clip.toolTip().contains("told to fail"), qPrintable(clip.toolTip()));

    encoder->useNone();
    clip.exportClip(false);
    QTRY_COMPARE(clip.status, int(Clip::ExportFailed));
    QVERIFY2(clip.toolTip().contains("the encoder cannot be started"), qPrintable(clip.toolTip()));
}

void TestClip::timesThatCannotBeCut() {
    const auto job = makeJob();
    Clip running(job.get(), 0, blueSnapshot(), 0.0, 5.0, 1.0);
    Clip absurd(job.get(), 1, blueSnapshot(), 102481911520608.0, 102481911520620.0, 0.0);
    absurd.openClip();
    QCOMPARE(absurd.status, int(Clip::ExportFailed));
    QCOMPARE(notices, QStringList({"garden.mp4 #1: a clip with these times cannot be cut out"}));
    QVERIFY(absurd.text().endsWith("(export failed!)"));

    encoder->hold();
    running.exportClip(false);
    absurd.exportClip(false);
    QCOMPARE(absurd.status, int(Clip::ExportFailed));
    QCOMPARE(Clip::exportQueueLength(), 0);
    encoder->release();
    QTRY_COMPARE(running.status, int(Clip::Exported));
    QCOMPARE(encoder->outputs(), QStringList({"0000.avi"}));
}

void TestClip::removingTheExportingClip() {
    encoder->hold();
    const auto job = makeJob();
    Clip direct(job.get(), 0, blueSnapshot(), 0.0, 5.0, 1.0);
    auto removed = std::make_unique<Clip>(job.get(), 1, blueSnapshot(), 10.0, 15.0, 11.0);
    Clip next(job.get(), 2, blueSnapshot(), 20.0, 25.0, 21.0);
    Clip last(job.get(), 3, blueSnapshot(), 30.0, 35.0, 31.0);
    for (Clip* clip : {&direct, removed.get(), &next, &last})
        clip->exportClip(false);
    encoder->releaseOutput("0000.avi");
    QTRY_COMPARE(removed->status, int(Clip::Exporting));
    const QString removedFile = removed->outputPath;

    removed.reset();
    QCOMPARE(next.status, int(Clip::Exporting));
    QCOMPARE(last.status, int(Clip::Queued));
    QCOMPARE(Clip::exportQueueLength(), 2);
    encoder->release();
    QTRY_VERIFY(QFile::exists(removedFile));
    QTRY_COMPARE(last.status, int(Clip::Exported));
}

void TestClip::removingBesideADirectExport() {
    encoder->hold();
    const auto job = makeJob();
    Clip direct(job.get(), 0, blueSnapshot(), 0.0, 5.0, 1.0);
    Clip waiting(job.get(), 1, blueSnapshot(), 10.0, 15.0, 11.0);
    auto other = std::make_unique<Clip>(job.get(), 2, blueSnapshot(), 20.0, 25.0, 21.0);
    direct.exportClip(false);
    waiting.exportClip(false);
    other.reset();
    // The direct export is not in the queue, so a second encoder runs beside its own.
    QCOMPARE(waiting.status, int(Clip::Exporting));
    QTRY_COMPARE(encoder->calls().size(), 2);
    encoder->release();
    QTRY_COMPARE(direct.status, int(Clip::Exported));
    QTRY_COMPARE(waiting.status, int(Clip::Exported));
}

void TestClip::removingAWaitingClip() {
    encoder->hold();
    const auto job = makeJob();
    Clip direct(job.get(), 0, blueSnapshot(), 0.0, 5.0, 1.0);
    Clip exporting(job.get(), 1, blueSnapshot(), 10.0, 15.0, 11.0);
    auto removed = std::make_unique<Clip>(job.get(), 2, blueSnapshot(), 20.0, 25.0, 21.0);
    Clip last(job.get(), 3, blueSnapshot(), 30.0, 35.0, 31.0);
    for (Clip* clip : {&direct, &exporting, removed.get(), &last})
        clip->exportClip(false);
    encoder->releaseOutput("0000.avi");
    QTRY_COMPARE(exporting.status, int(Clip::Exporting));
    removed->exportClip(true);
    QCOMPARE(Clip::exportQueueLength(), 4);

    removed.reset();
    QCOMPARE(Clip::exportQueueLength(), 2);
    QCOMPARE(exporting.status, int(Clip::Exporting));
    QCOMPARE(last.status, int(Clip::Queued));
    encoder->release();
    QTRY_COMPARE(last.status, int(Clip::Exported));
    QCOMPARE(encoder->outputs(), QStringList({"0000.avi", "0001.avi", "0003.avi"}));
}

void TestClip::removingAll() {
    encoder->hold();
    const auto job = makeJob();
    std::vector<std::unique_ptr<Clip>> clips;
    for (int index = 0; index < 4; ++index) {
        clips.push_back(
            std::make_unique<Clip>(job.get(), index, blueSnapshot(), index, index + 1.0, index));
        clips.back()->exportClip(false);
    }
    for (auto& clip : clips)
        clip.reset();
    QCOMPARE(Clip::exportQueueLength(), 0);
    // Each removal lets the next clip start; the encoders run on without them.
    QTRY_COMPARE(encoder->calls().size(), 4);
    encoder->release();
    for (int index = 0; index < 4; ++index)
        QTRY_VERIFY(QFile::exists(job->clipDirectory + QString("/000%1.avi").arg(index)));
}

void TestClip::leavingTheQueueTogether() {
    encoder->hold();
    const auto job = makeJob();
    std::vector<std::unique_ptr<Clip>> clips;
    for (int index = 0; index < 300; ++index) {
        clips.push_back(std::make_unique<Clip>(job.get(), index, QImage(), 0.0, 5.0, 1.0));
        clips.back()->exportClip(false);
    }
    clips[5]->exportClip(true); // stands twice in it
    const auto stays = std::move(clips[7]);
    const auto staysBehind = std::move(clips[290]);
    QList<Clip*> leaving;
    for (const auto& clip : clips) {
        if (clip)
            leaving.append(clip.get());
    }
    Clip::leaveQueue(leaving);
    QCOMPARE(Clip::exportQueueLength(), 2);
    clips.clear();
    QCOMPARE(stays->status, int(Clip::Exporting));
    QCOMPARE(staysBehind->status, int(Clip::Queued));
    encoder->release();
    QTRY_COMPARE(staysBehind->status, int(Clip::Exported));
    // The first two run side by side, and the first one's clip is gone.
    QTRY_COMPARE(encoder->outputs().size(), 3);
    QStringList outputs = encoder->outputs();
    outputs.sort();
    QCOMPARE(outputs, QStringList({"0000.avi", "0007.avi", "0290.avi"}));
}

void TestClip::jobGone() {
    encoder->hold();
    auto job = makeJob(true);
    auto running = std::make_unique<Clip>(job.get(), 0, blueSnapshot(), 0.0, 5.0, 1.0);
    auto waiting = std::make_unique<Clip>(job.get(), 1, blueSnapshot(), 10.0, 15.0, 11.0);
    Clip kept(job.get(), 2, blueSnapshot(), 20.0, 25.0, 21.0);
    QTRY_COMPARE(encoder->calls().size(), 1);
    job.reset();
    running.reset();
    QCOMPARE(waiting->status, int(Clip::Queued));
    waiting.reset();
    kept.updateText();
    QCOMPARE(kept.text(), QString("\n#2 0:00:20 (5 sec) (queued...)"));
    kept.openClip();
    QCOMPARE(Clip::exportQueueLength(), 1);
    encoder->release();
    QMetaObject::invokeMethod(&kept, "processFinished", Q_ARG(int, -1));
    QCOMPARE(Clip::exportQueueLength(), 0);
    QCOMPARE(encoder->calls().size(), 1);
}

QTEST_MAIN(TestClip)
#include "test_clip.moc"
