// SPDX-FileCopyrightText: 2026 The Kestrova authors
//
// SPDX-License-Identifier: GPL-3.0-or-later

#include "encoderstand.h"
#include "faults.h"
#include "filenamecodec.h"
#include "mainwindowdriver.h"
#include "media.h"
#include "process.h"
#include "toolkit.h"

#include <QDir>
#include <QMutex>
#include <QProgressBar>
#include <QSemaphore>
#include <QSettings>
#include <QTemporaryDir>
#include <QtTest>

#include <unistd.h>

namespace {

constexpr int longMilliseconds = 60000;

} // namespace

class TestQueueAndList : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void oneJobAfterTheOther();
    void fileThatIsNoVideoHoldsNothingUp();
    void cancelEndsAllJobs();
    void cancelLeavesJobsThatHaveEnded();
    void jobAcceptedAfterACancel();
    void withdrawnJobNeverRuns();
    void jobIsStartedOnce();
    void progressIsShownWhileJobsRun();
    void noThreadForTheWorker();

    void clipIsListed();
    void automaticExport();
    void backlogMessage();
    void exportsSelected();
    void opensSelected();
    void doubleClickOpens();
    void otherButtonsOpenNothing();
    void removesSelected();
    void removesAll();
    void removesAllQueued();
    void removesSomeOfTheQueued();
    void quittingStartsNoEncoder();
    void failureIsTold();
    void listActionsFollowTheSelection();
    void clipOfAnotherSenderIsIgnored();

    void directoryGoesToSetup();
    void emptyDirectoryGoesToSetup();
    void addFilesOpensWhereThePersonWas();
    void nameThatIsNotUtf8();

private:
    Video* makeJob(const QString& fileName, bool autoExport = false) const;
    /// A job that has been accepted and has failed, so that its clips can be announced by hand.
    Video* failedJob(bool autoExport = false);
    /// Accepts a job that stops at its first clip, as on a disk that does not answer, until `gate`
    /// is unlocked. Answers the thread that it holds.
    QThread* acceptStalled(Video* job);
    void announceClips(Video* job, int count);
    void tick() { QMetaObject::invokeMethod(&driver->window, "updateStatus"); }

    QMutex gate;
    QSemaphore gateReached;
    QTemporaryDir recordings;
    QString shortRecording;
    QString longRecording;
    std::unique_ptr<QTemporaryDir> folder;
    std::unique_ptr<EncoderStand> encoder;
    std::unique_ptr<MainWindowDriver> driver;
};

void TestQueueAndList::initTestCase() {
    installFileNameCodec();
    QCoreApplication::setOrganizationName("kestrova");
    QCoreApplication::setApplicationName("kestrova");
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    shortRecording = recordings.filePath("short.mp4");
    longRecording = recordings.filePath("long.mp4");
    QVERIFY(media::encode(media::crossingBox(12, 3, 9, "160x120") +
                          QStringList{"-c:v", "mpeg4", shortRecording}));
    QVERIFY(
        media::encode({"-stream_loop", "400", "-i", shortRecording, "-c", "copy", longRecording}));
}

void TestQueueAndList::init() {
    QSettings().clear();
    QSettings().setValue("export_postrecord", 2.0);
    QSettings().setValue("export_minimum", 2.0);
    folder = std::make_unique<QTemporaryDir>();
    QVERIFY(QDir::setCurrent(folder->path())); // where a person starts the program
    encoder = std::make_unique<EncoderStand>();
    driver = std::make_unique<MainWindowDriver>();
    driver->window.show();
}

void TestQueueAndList::cleanup() {
    encoder->release();
    QTRY_COMPARE(Clip::exportQueueLength(), 0);
    driver.reset();
    encoder.reset();
    folder.reset();
}

Video* TestQueueAndList::makeJob(const QString& fileName, bool autoExport) const {
    return new Video(fileName, folder->path(), 1.0, 2.0, 2.0, 0, autoExport, nullptr, nullptr,
                     false, QDateTime());
}

Video* TestQueueAndList::failedJob(bool autoExport) {
    Video* job = makeJob("missing.mp4", autoExport);
    driver->accept(job);
    [&] { QTRY_COMPARE(int(job->state), int(Video::Failed)); }();
    return job;
}

QThread* TestQueueAndList::acceptStalled(Video* job) {
    gate.lock();
    connect(
        job, &Video::newClip, job,
        [this] {
            if (QThread::currentThread() == thread())
                return; // announced by hand
            gateReached.release();
            const QMutexLocker lock(&gate);
        },
        Qt::DirectConnection);
    driver->accept(job);
    [&] { QVERIFY(gateReached.tryAcquire(1, longMilliseconds)); }();
    return job->thread();
}

void TestQueueAndList::announceClips(Video* job, int count) {
    QImage snapshot(320, 240, QImage::Format_RGB32);
    snapshot.fill(Qt::green);
    for (int index = 0; index < count; ++index)
        Q_EMIT job->newClip(index, snapshot, index * 10.0, index * 10.0 + 5.0, index * 10.0 + 1.0);
}

void TestQueueAndList::oneJobAfterTheOther() {
    Video* first = makeJob(shortRecording);
    Video* second = makeJob(shortRecording);
    QSignalSpy firstEnd(first, SIGNAL(resultReady()));
    int secondAtFirstEnd = -1;
    connect(
        first, &Video::resultReady, first, [&] { secondAtFirstEnd = second->state; },
        Qt::DirectConnection);
    driver->setup.readyVideos.append(first);
    driver->accept(second);
    QVERIFY(driver->setup.readyVideos.isEmpty());
    QTRY_COMPARE_WITH_TIMEOUT(int(second->state), int(Video::Finished), longMilliseconds);
    QCOMPARE(int(first->state), int(Video::Finished));
    QCOMPARE(secondAtFirstEnd, int(Video::Waiting));
    QCOMPARE(firstEnd.size(), 1);
    QTRY_COMPARE(driver->list().count(), 2);
    QCOMPARE(driver->clip(0).video.data(), first);
    QCOMPARE(driver->clip(1).video.data(), second);
}

void TestQueueAndList::fileThatIsNoVideoHoldsNothingUp() {
    Video* broken = makeJob(QCoreApplication::applicationFilePath());
    Video* good = makeJob(shortRecording);
    driver->setup.readyVideos.append(broken);
    driver->accept(good);
    QTRY_COMPARE_WITH_TIMEOUT(int(good->state), int(Video::Finished), longMilliseconds);
    QCOMPARE(int(broken->state), int(Video::Failed));
}

void TestQueueAndList::cancelEndsAllJobs() {
    QList<Video*> jobs = {makeJob(longRecording), makeJob(shortRecording), makeJob(shortRecording)};
    QSignalSpy end(jobs[0], SIGNAL(resultReady()));
    driver->setup.readyVideos = jobs.mid(0, 2);
    driver->accept(jobs[2]);
    QTRY_COMPARE(int(jobs[0]->state), int(Video::Running));
    tick();
    QVERIFY(driver->action("actionCancel").isEnabled());
    driver->click("pushButtonCancel");
    for (const Video* job : qAsConst(jobs))
        QCOMPARE(int(job->state), int(Video::CancelRequested));
    QTRY_COMPARE(end.size(), 1);
    tick();
    QVERIFY(!driver->part<QProgressBar>("progressBar").isVisible());
    QVERIFY(!driver->part<QPushButton>("pushButtonCancel").isVisible());
    QVERIFY(!driver->action("actionCancel").isEnabled());
    for (const Video* job : qAsConst(jobs))
        QCOMPARE(int(job->state), int(Video::CancelRequested));
    QVERIFY(jobs[1]->thread() == QThread::currentThread()); // never started
    QVERIFY(jobs[2]->thread() == QThread::currentThread());
}

void TestQueueAndList::cancelLeavesJobsThatHaveEnded() {
    Video* broken = makeJob(recordings.filePath("missing.mp4"));
    Video* good = makeJob(shortRecording);
    Video* running = makeJob(longRecording);
    driver->setup.readyVideos = {broken, good};
    driver->accept(running);
    QTRY_COMPARE_WITH_TIMEOUT(int(running->state), int(Video::Running), longMilliseconds);
    driver->click("pushButtonCancel");
    QCOMPARE(int(broken->state), int(Video::Failed));
    QCOMPARE(int(good->state), int(Video::Finished));
    QCOMPARE(int(running->state), int(Video::CancelRequested));
}

void TestQueueAndList::jobAcceptedAfterACancel() {
    Video* cancelled = makeJob(longRecording);
    driver->accept(cancelled);
    QTRY_COMPARE(int(cancelled->state), int(Video::Running));
    tick();
    driver->trigger("actionCancel");
    Video* next = makeJob(shortRecording);
    driver->accept(next);
    QTRY_COMPARE_WITH_TIMEOUT(int(next->state), int(Video::Finished), longMilliseconds);
    QCOMPARE(int(cancelled->state), int(Video::CancelRequested));
}

void TestQueueAndList::withdrawnJobNeverRuns() {
    Video* stalled = makeJob(shortRecording);
    QSignalSpy end(stalled, SIGNAL(resultReady()));
    acceptStalled(stalled);
    driver->click("pushButtonCancel");
    Video* withdrawn = makeJob(shortRecording);
    Video* next = makeJob(shortRecording);
    driver->accept(withdrawn);
    QCOMPARE(int(withdrawn->state), int(Video::Waiting));
    driver->click("pushButtonCancel");
    driver->accept(next);
    QVERIFY(withdrawn->thread() == QThread::currentThread());
    QVERIFY(next->thread() == QThread::currentThread());
    QCOMPARE(end.size(), 0);
    gate.unlock();
    QTRY_COMPARE_WITH_TIMEOUT(int(next->state), int(Video::Finished), longMilliseconds);
    QCOMPARE(end.size(), 1);
    QCOMPARE(int(withdrawn->state), int(Video::CancelRequested));
    QVERIFY(withdrawn->thread() == QThread::currentThread()); // never started
}

void TestQueueAndList::jobIsStartedOnce() {
    Video* job = makeJob(shortRecording);
    QSignalSpy end(job, SIGNAL(resultReady()));
    driver->accept(job);
    // The worker may not have begun with it yet.
    QMetaObject::invokeMethod(&driver->window, "processQueue");
    QMetaObject::invokeMethod(&driver->window, "processQueue");
    Video* next = makeJob(shortRecording);
    driver->accept(next);
    QTRY_COMPARE_WITH_TIMEOUT(int(next->state), int(Video::Finished), longMilliseconds);
    QTRY_COMPARE(driver->list().count(), 2);
    QCOMPARE(end.size(), 1);
}

void TestQueueAndList::progressIsShownWhileJobsRun() {
    Video* job = makeJob(longRecording);
    driver->accept(job);
    auto& bar = driver->part<QProgressBar>("progressBar");
    QTRY_VERIFY(bar.isVisible()); // within a tick of the timer
    QVERIFY(driver->part<QPushButton>("pushButtonCancel").isVisible());
    QTRY_VERIFY(job->bytesRead * 100 / job->fileSize >= 3 || job->hasEnded());
    QVERIFY(!job->hasEnded());
    tick();
    const int value = bar.value();
    QVERIFY2(value >= 3 && value <= job->bytesRead * 100 / job->fileSize,
             qPrintable(QString::number(value)));
    driver->click("pushButtonCancel");
    QTRY_VERIFY(!bar.isVisible());
    QVERIFY(bar.value() >= value);
}

void TestQueueAndList::noThreadForTheWorker() {
    if (qEnvironmentVariableIsEmpty("FAILING_CALL")) {
        const ProcessResult result =
            runProgramIn(faults::noThreadsWhile(folder->filePath("no-threads")),
                         QCoreApplication::applicationFilePath(), {"noThreadForTheWorker"});
        QVERIFY2(result.status == 0, result.output.constData());
        return;
    }
    keepToolkitThread(); // as the program does; a conversion would else wait for a thread for ever
    // Here no thread can be had while the file is there.
    QFile noThreads(qEnvironmentVariable("FAILING_FILE"));
    QVERIFY(noThreads.open(QIODevice::WriteOnly));
    driver.reset(); // the new one looks for its own setup window
    driver = std::make_unique<MainWindowDriver>();
    Video* first = makeJob(shortRecording);
    Video* second = makeJob(shortRecording);
    for (Video* job : {first, second}) {
        driver->accept(job);
        QCOMPARE(driver->part<QStatusBar>("statusBar").currentMessage(),
                 QString("No thread to run detection on, trying again..."));
        QCOMPARE(int(job->state), int(Video::Waiting));
    }
    driver->click("pushButtonCancel");
    QVERIFY(first->hasEnded() && second->hasEnded());

    Video* third = makeJob(shortRecording);
    driver->accept(third);
    QVERIFY(noThreads.remove());
    QTRY_COMPARE_WITH_TIMEOUT(int(third->state), int(Video::Finished), longMilliseconds);
    QTRY_COMPARE(driver->list().count(), 1); // its signal may come behind the state
    QCOMPARE(driver->part<QStatusBar>("statusBar").currentMessage(), QString());

    // One that never got a thread ends like any other.
    QVERIFY(noThreads.open(QIODevice::WriteOnly));
    driver.reset(); // the new one looks for its own setup window
    driver = std::make_unique<MainWindowDriver>();
    driver->accept(makeJob(shortRecording));
    driver.reset();
    QVERIFY(noThreads.remove());
    driver.reset(); // the new one looks for its own setup window
    driver = std::make_unique<MainWindowDriver>();
}

void TestQueueAndList::clipIsListed() {
    driver->accept(makeJob(shortRecording));
    QTRY_COMPARE_WITH_TIMEOUT(driver->list().count(), 1, longMilliseconds);
    const Clip& clip = driver->clip(0);
    QCOMPARE(clip.text().section('\n', 0, 0), QString("short.mp4"));
    QVERIFY(driver->captions()[0].endsWith("(not exported)"));
    QCOMPARE(clip.icon().actualSize({320, 320}), QSize(320, 240));
    QCOMPARE(Clip::exportQueueLength(), 0);
    QVERIFY(driver->action("actionRemoveAll").isEnabled());
    QVERIFY(!driver->action("actionRemoveSelected").isEnabled());
}

void TestQueueAndList::automaticExport() {
    encoder->hold();
    announceClips(failedJob(true), 2);
    QCOMPARE(driver->captions(),
             QStringList({"#0 0:00:00 (5 sec) (queued...)", "#1 0:00:10 (5 sec) (queued...)"}));
    QCOMPARE(Clip::exportQueueLength(), 3);
    QTRY_COMPARE(encoder->outputs(), QStringList({"0000.avi"}));
    encoder->release();
    QTRY_COMPARE(driver->captions(),
                 QStringList({"#0 0:00:00 (5 sec) (exported)", "#1 0:00:10 (5 sec) (exported)"}));
    QCOMPARE(encoder->outputs(), QStringList({"0000.avi", "0001.avi"}));
}

void TestQueueAndList::backlogMessage() {
    auto& statusBar = driver->part<QStatusBar>("statusBar");
    encoder->hold();
    announceClips(failedJob(), 4);
    tick();
    QVERIFY(statusBar.currentMessage().isEmpty());
    driver->list().selectAll();
    driver->trigger("actionExport_selected");
    QTRY_COMPARE(statusBar.currentMessage(), QString("3 clips queued to export..."));
    statusBar.clearMessage();
    QTRY_COMPARE(statusBar.currentMessage(), QString("3 clips queued to export..."));
    encoder->release();
    QTRY_COMPARE(Clip::exportQueueLength(), 0);
    QTRY_VERIFY(statusBar.currentMessage().isEmpty());
}

void TestQueueAndList::exportsSelected() {
    announceClips(failedJob(), 4);
    driver->clip(1).setSelected(true);
    driver->clip(3).setSelected(true);
    driver->trigger("actionExport_selected");
    QTRY_COMPARE(
        driver->captions(),
        QStringList({"#0 0:00:00 (5 sec) (not exported)", "#1 0:00:10 (5 sec) (exported)",
                     "#2 0:00:20 (5 sec) (not exported)", "#3 0:00:30 (5 sec) (exported)"}));
}

void TestQueueAndList::opensSelected() {
    encoder->setEnd("1");
    announceClips(failedJob(), 3);
    driver->clip(2).setSelected(true);
    driver->trigger("actionOpen_selected");
    QVERIFY(driver->clip(2).openWhenDone);
    QVERIFY(!driver->clip(0).openWhenDone);
    QTRY_COMPARE(driver->clip(2).status, int(Clip::ExportFailed));
}

void TestQueueAndList::doubleClickOpens() {
    encoder->setEnd("1");
    announceClips(failedJob(), 3);
    driver->clip(0).setSelected(true);
    const QRect place = driver->list().visualItemRect(&driver->clip(1));
    QTest::mouseClick(driver->list().viewport(), Qt::LeftButton, {}, place.center());
    QTest::mouseDClick(driver->list().viewport(), Qt::LeftButton, {}, place.center());
    QVERIFY(driver->clip(1).openWhenDone);
    QVERIFY(!driver->clip(0).openWhenDone);
    QTRY_COMPARE(driver->clip(1).status, int(Clip::ExportFailed));
}

void TestQueueAndList::otherButtonsOpenNothing() {
    announceClips(failedJob(), 1);
    const QPoint place = driver->list().visualItemRect(&driver->clip(0)).center();
    for (const Qt::MouseButton button : {Qt::RightButton, Qt::MiddleButton}) {
        QTest::mouseClick(driver->list().viewport(), button, {}, place);
        QTest::mouseDClick(driver->list().viewport(), button, {}, place);
        QVERIFY(!driver->clip(0).openWhenDone);
        QCOMPARE(driver->clip(0).status, int(Clip::NotExported));
    }
}

void TestQueueAndList::removesSelected() {
    announceClips(failedJob(), 4);
    const QPointer<Clip> first(&driver->clip(0));
    driver->clip(0).setSelected(true);
    driver->clip(2).setSelected(true);
    driver->trigger("actionRemoveSelected");
    QCOMPARE(driver->captions(), QStringList({"#1 0:00:10 (5 sec) (not exported)",
                                              "#3 0:00:30 (5 sec) (not exported)"}));
    QVERIFY(!first);
    QVERIFY(!driver->action("actionRemoveSelected").isEnabled());
    QVERIFY(driver->action("actionRemoveAll").isEnabled());
}

void TestQueueAndList::removesAll() {
    announceClips(failedJob(), 4);
    driver->clip(1).setSelected(true);
    driver->trigger("actionRemoveAll");
    QCOMPARE(driver->list().count(), 0);
    for (const char* name : {"actionOpen_selected", "actionExport_selected", "actionRemoveSelected",
                             "actionRemoveAll"})
        QVERIFY2(!driver->action(name).isEnabled(), name);
}

void TestQueueAndList::removesAllQueued() {
    encoder->hold();
    Video* job = failedJob(true);
    announceClips(job, 300);
    QCOMPARE(Clip::exportQueueLength(), 599); // asked for twice, and the first one runs
    driver->trigger("actionRemoveAll");
    QCOMPARE(driver->list().count(), 0);
    QCOMPARE(Clip::exportQueueLength(), 0);
    encoder->release();
    // One that is asked for now comes after all that would have been started before.
    const Clip last(job, 999, QImage(), 0.0, 5.0, 1.0);
    QTRY_COMPARE(last.status, int(Clip::Exported));
    QCOMPARE(encoder->outputs(), QStringList({"0000.avi", "0999.avi"}));
}

void TestQueueAndList::removesSomeOfTheQueued() {
    encoder->hold();
    announceClips(failedJob(), 300);
    driver->list().selectAll();
    driver->trigger("actionExport_selected");
    driver->clip(150).setSelected(false);
    driver->clip(299).setSelected(false);
    driver->trigger("actionRemoveSelected");
    QCOMPARE(driver->captions(), QStringList({"#150 0:25:00 (5 sec) (exporting...)",
                                              "#299 0:49:50 (5 sec) (queued...)"}));
    encoder->release();
    QTRY_COMPARE(driver->clip(1).status, int(Clip::Exported));
    QCOMPARE(encoder->outputs(), QStringList({"0000.avi", "0150.avi", "0299.avi"}));
}

void TestQueueAndList::quittingStartsNoEncoder() {
    encoder->hold();
    Video* job = makeJob(shortRecording);
    const QThread* worker = acceptStalled(job);
    announceClips(job, 3);
    driver->list().selectAll();
    driver->trigger("actionExport_selected");
    QTRY_COMPARE(encoder->calls().size(), 1);
    // The worker is given up with its job, so that the clips still have one.
    QTest::ignoreMessage(QtDebugMsg, "Processing thread wait failed");
    driver.reset();
    QCOMPARE(Clip::exportQueueLength(), 0);
    gate.unlock();
    QTRY_VERIFY(worker->isFinished());
    encoder->release();
    const std::unique_ptr<Video> laterJob(makeJob(shortRecording, true));
    const Clip later(laterJob.get(), 999, QImage(), 0.0, 5.0, 1.0);
    QTRY_COMPARE(later.status, int(Clip::Exported));
    QCOMPARE(encoder->outputs(), QStringList({"0000.avi", "0999.avi"}));
}

void TestQueueAndList::failureIsTold() {
    auto& statusBar = driver->part<QStatusBar>("statusBar");
    encoder->setEnd("1");
    announceClips(failedJob(), 3);
    driver->clip(1).setSelected(true);
    driver->trigger("actionExport_selected");
    QTRY_COMPARE(driver->clip(1).status, int(Clip::ExportFailed));
    QCOMPARE(statusBar.currentMessage(), QString("missing.mp4 #1: told to fail"));
    QVERIFY(driver->clip(1).toolTip().contains("told to fail"));
    // The backlog covers it for as long as there is one.
    encoder->hold();
    driver->list().selectAll();
    driver->trigger("actionExport_selected");
    tick();
    QCOMPARE(statusBar.currentMessage(), QString("2 clips queued to export..."));
    encoder->release();
    QTRY_COMPARE(driver->clip(2).status, int(Clip::ExportFailed));
    statusBar.clearMessage();
    tick();
    QCOMPARE(statusBar.currentMessage(), QString("missing.mp4 #2: told to fail"));
}

void TestQueueAndList::listActionsFollowTheSelection() {
    announceClips(failedJob(), 2);
    driver->list().selectAll();
    for (const char* name : {"actionOpen_selected", "actionExport_selected", "actionRemoveSelected",
                             "actionRemoveAll"})
        QVERIFY2(driver->action(name).isEnabled(), name);
    driver->list().clearSelection();
    for (const char* name :
         {"actionOpen_selected", "actionExport_selected", "actionRemoveSelected"})
        QVERIFY2(!driver->action(name).isEnabled(), name);
    QVERIFY(driver->action("actionRemoveAll").isEnabled());
}

void TestQueueAndList::clipOfAnotherSenderIsIgnored() {
    QMetaObject::invokeMethod(&driver->window, "newClip", Q_ARG(int, 0), Q_ARG(QImage, QImage()),
                              Q_ARG(double, 0.0), Q_ARG(double, 1.0), Q_ARG(double, 0.5));
    QCOMPARE(driver->list().count(), 0);
}

void TestQueueAndList::directoryGoesToSetup() {
    const QDir directory(folder->path());
    QVERIFY(directory.mkpath("in/deep") && directory.mkpath("out"));
    QVERIFY(QFile::copy(shortRecording, directory.filePath("in/deep/a.dat")));
    QVERIFY(QFile::copy(shortRecording, directory.filePath("in/.hidden.mp4")));
    QVERIFY(QFile::copy(QCoreApplication::applicationFilePath(), directory.filePath("in/b.mp4")));
    driver->addDirectory(directory.filePath("in"));
    QTRY_VERIFY(driver->setup.isVisible());
    QCOMPARE(driver->setupPart<QLabel>("labelInfo").text(), directory.filePath("in/deep/a.dat"));
    driver->setupPart<QLineEdit>("lineEditDir").setText(directory.filePath("out"));
    driver->clickSetup("pushButtonAddAll");
    QVERIFY(!driver->setup.isVisible());
    QTRY_COMPARE_WITH_TIMEOUT(driver->list().count(), 1, longMilliseconds);
    QCOMPARE(driver->clip(0).text().section('\n', 0, 0), QString("a.dat"));
    QCOMPARE(driver->clip(0).video->clipDirectory, directory.filePath("out/a_dat_0"));
}

void TestQueueAndList::emptyDirectoryGoesToSetup() {
    QVERIFY(QDir(folder->path()).mkpath("empty"));
    driver->addFiles({shortRecording});
    QVERIFY(driver->setup.isVisible());
    driver->addDirectory(folder->filePath("empty"));
    QVERIFY(!driver->setup.isVisible()); // drops what it showed
}

void TestQueueAndList::addFilesOpensWhereThePersonWas() {
    encoder->setEnd("1");
    announceClips(failedJob(), 1);
    driver->list().selectAll();
    driver->trigger("actionExport_selected");
    QTRY_COMPARE(driver->clip(0).status, int(Clip::ExportFailed));
    QCOMPARE(QDir::currentPath(), QCoreApplication::applicationDirPath());
    QString shown;
    const DialogAnswer<QFileDialog> answer([&shown](QFileDialog& dialog) {
        shown = dialog.directory().path();
        dialog.reject();
    });
    driver->click("pushButtonAddFiles");
    QCOMPARE(shown, folder->path());
}

void TestQueueAndList::nameThatIsNotUtf8() {
    const QDir directory(folder->path());
    const QString name = QFile::decodeName("caf\xe9 100%1.mp4");
    QVERIFY(directory.mkpath("in") && directory.mkpath("out"));
    QVERIFY(QFile::copy(shortRecording, directory.filePath("in/" + name)));
    driver->addDirectory(directory.filePath("in"));
    QCOMPARE(driver->setupPart<QLabel>("labelInfo").text(), directory.filePath("in/" + name));
    driver->setupPart<QLineEdit>("lineEditDir").setText(directory.filePath("out"));
    driver->clickSetup("pushButtonAddAll");
    QTRY_COMPARE_WITH_TIMEOUT(driver->list().count(), 1, longMilliseconds);
    QCOMPARE(driver->clip(0).text().section('\n', 0, 0), name);
    driver->list().selectAll();
    driver->trigger("actionExport_selected");
    QTRY_COMPARE(driver->clip(0).status, int(Clip::Exported));
    QVERIFY(encoder->calls()[0].contains(directory.filePath("in/" + name)));
    const QByteArray file =
        QFile::encodeName(directory.filePath("out")) + "/caf\xe9 100%1_mp4_0/0000.avi";
    QCOMPARE(access(file.constData(), R_OK), 0);
}

QTEST_MAIN(TestQueueAndList)
#include "test_queueandlist.moc"
